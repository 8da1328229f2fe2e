// ProfileTest.cpp - settings in the registry and in an INI file
#include <afx.h>
#include "impl/Profile.h"
#include <gmock/gmock.h>
#include <shlwapi.h>

#include <cstdio>
#include <string>

namespace
{
constexpr LPCTSTR kCompany = "TavKit Profile Test";
constexpr LPCTSTR kCompanyPath = "Software\\TavKit Profile Test";
constexpr LPCTSTR kAppPath = "Software\\TavKit Profile Test\\App";

bool KeyExists(const CString& path)
{
    HKEY key = nullptr;
    const bool exists = ::RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) == ERROR_SUCCESS;
    if (exists)
    {
        ::RegCloseKey(key);
    }
    return exists;
}

CString IniPath()
{
    char folder[MAX_PATH] = "";
    ::GetTempPathA(MAX_PATH, folder);
    return CString(folder) + "tavkit_profile_test.ini";
}

// The rules that both stores share.
class ProfileStore : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override { Clear(); }
    void TearDown() override { Clear(); }

    AfxProfile m_profile = GetParam() ? AfxProfile(kCompany, "App") : AfxProfile("", IniPath());

private:
    static void Clear()
    {
        ::SHDeleteKeyA(HKEY_CURRENT_USER, kCompanyPath);
        ::DeleteFileA(IniPath());
    }
};

class RegistryProfile : public testing::Test
{
protected:
    void SetUp() override { ::SHDeleteKeyA(HKEY_CURRENT_USER, kCompanyPath); }
    void TearDown() override { ::SHDeleteKeyA(HKEY_CURRENT_USER, kCompanyPath); }

    void StoreRaw(DWORD type, const std::string& data) const
    {
        HKEY key = m_profile.OpenSectionKey("S");
        ASSERT_NE(key, nullptr);
        ::RegSetValueExA(key, "raw", 0, type, reinterpret_cast<const BYTE*>(data.data()),
                         static_cast<DWORD>(data.size()));
        ::RegCloseKey(key);
    }

    AfxProfile m_profile{kCompany, "App"};
};
} // namespace

TEST_P(ProfileStore, IntegersComeBackNegativeOnesToo)
{
    for (const int value : {0, 1, -1, 0x7FFFFFFF, static_cast<int>(0x80000000)})
    {
        EXPECT_TRUE(m_profile.WriteInt("S", "n", value));
        EXPECT_EQ(static_cast<int>(m_profile.GetInt("S", "n", 5)), value);
    }
}

TEST_P(ProfileStore, WhatIsMissingAnswersTheDefault)
{
    EXPECT_EQ(static_cast<int>(m_profile.GetInt("S", "n", -7)), -7);
    EXPECT_EQ(m_profile.GetString("S", "t", "default"), "default");
    EXPECT_EQ(m_profile.GetString("S", "t", nullptr), "");
    EXPECT_TRUE(m_profile.WriteInt("S", "other", 1));
    EXPECT_EQ(static_cast<int>(m_profile.GetInt("S", "n", -7)), -7);
    EXPECT_EQ(m_profile.GetString("S", "t", "default"), "default");
}

TEST_P(ProfileStore, LongStringsComeBackWhole)
{
    for (const int length : {0, 1, 1022, 1023, 1024, 5000, 31999})
    {
        const CString text('x', length);
        EXPECT_TRUE(m_profile.WriteString("S", "t", text));
        EXPECT_EQ(m_profile.GetString("S", "t", "default"), text) << length;
    }
}

TEST_P(ProfileStore, StringsOfTheAnsiCodePageComeBack)
{
    EXPECT_TRUE(m_profile.WriteString("S", "t", "5 \xB5m \xE4"));
    EXPECT_EQ(m_profile.GetString("S", "t", ""), "5 \xB5m \xE4");
}

TEST_P(ProfileStore, ANullValueDeletesTheEntry)
{
    EXPECT_TRUE(m_profile.WriteString("S", "t", "text"));
    EXPECT_TRUE(m_profile.WriteString("S", "u", "stays"));
    EXPECT_TRUE(m_profile.WriteString("S", "t", nullptr));
    EXPECT_EQ(m_profile.GetString("S", "t", "default"), "default");
    EXPECT_EQ(m_profile.GetString("S", "u", "default"), "stays");
}

TEST_P(ProfileStore, ANullEntryDeletesTheSection)
{
    EXPECT_TRUE(m_profile.WriteString("S", "t", "text"));
    EXPECT_TRUE(m_profile.WriteInt("S", "n", 1));
    EXPECT_TRUE(m_profile.WriteInt("Other", "n", 2));
    EXPECT_TRUE(m_profile.WriteString("S", nullptr, nullptr));
    EXPECT_EQ(m_profile.GetString("S", "t", "default"), "default");
    EXPECT_EQ(m_profile.GetInt("S", "n", 9), 9U);
    EXPECT_EQ(m_profile.GetInt("Other", "n", 9), 2U);
}

TEST_P(ProfileStore, ASectionNameMayHoldABackslash)
{
    EXPECT_TRUE(m_profile.WriteInt("WindowPositions\\ID=0x00001771", "x", -1));
    EXPECT_EQ(static_cast<int>(m_profile.GetInt("WindowPositions\\ID=0x00001771", "x", 5)), -1);
    EXPECT_EQ(m_profile.GetInt("WindowPositions", "x", 5), 5U);
}

TEST_P(ProfileStore, NullNamesAnswerTheDefaultAndAreNotWritten)
{
    EXPECT_EQ(m_profile.GetInt(nullptr, "n", 5), 5U);
    EXPECT_EQ(m_profile.GetInt("S", nullptr, 5), 5U);
    EXPECT_EQ(m_profile.GetString(nullptr, "t", "default"), "default");
    EXPECT_EQ(m_profile.GetString("S", nullptr, "default"), "default");
    EXPECT_FALSE(m_profile.WriteInt(nullptr, "n", 1));
    EXPECT_FALSE(m_profile.WriteInt("S", nullptr, 1));
    EXPECT_FALSE(m_profile.WriteString(nullptr, "t", "text"));
}

INSTANTIATE_TEST_SUITE_P(Both, ProfileStore, testing::Bool(),
                         [](const auto& info) { return std::string(info.param ? "Registry" : "IniFile"); });

TEST_F(RegistryProfile, LiesBelowTheCompanysAndTheApplicationsKey)
{
    EXPECT_TRUE(m_profile.WriteInt("WindowPositions\\ID=0x00001771", "x", 3));
    EXPECT_TRUE(KeyExists(CString(kAppPath) + "\\WindowPositions\\ID=0x00001771"));
    DWORD type = REG_NONE;
    DWORD value = 0;
    DWORD size = sizeof value;
    EXPECT_EQ(::SHGetValueA(HKEY_CURRENT_USER, CString(kAppPath) + "\\WindowPositions\\ID=0x00001771", "x", &type,
                            &value, &size),
              static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(value, 3U);
}

TEST_F(RegistryProfile, TakesATextOfAnyLength)
{
    const CString text('x', 1'000'000);
    EXPECT_TRUE(m_profile.WriteString("S", "t", text));
    EXPECT_EQ(m_profile.GetString("S", "t", ""), text);
}

TEST(IniProfile, RefusesALineThatIsTooLongAndKeepsTheOldText)
{
    ::DeleteFileA(IniPath());
    const AfxProfile profile("", IniPath());
    EXPECT_TRUE(profile.WriteString("S", "t", "old"));
    EXPECT_FALSE(profile.WriteString("S", "t", CString('x', 60000)));
    EXPECT_EQ(profile.GetString("S", "t", ""), "old");
    ::DeleteFileA(IniPath());
}

TEST(IniProfile, ReadsALongLineThatAnotherProgramWrote)
{
    const std::string text(100'000, 'x');
    std::FILE* const file = std::fopen(IniPath(), "wb");
    ASSERT_NE(file, nullptr);
    std::fprintf(file, "[S]\r\nt=%s\r\n", text.c_str());
    std::fclose(file);
    EXPECT_EQ(AfxProfile("", IniPath()).GetString("S", "t", ""), text.c_str());
    ::DeleteFileA(IniPath());
}

TEST(IniProfile, AFileThatIsAFolderOrGarbageAnswersTheDefault)
{
    char folder[MAX_PATH] = "";
    ::GetTempPathA(MAX_PATH, folder);
    const AfxProfile inFolder("", folder);
    EXPECT_EQ(inFolder.GetInt("S", "n", 7), 7U);
    EXPECT_EQ(inFolder.GetString("S", "t", "default"), "default");
    EXPECT_FALSE(inFolder.WriteString("S", "t", "text"));

    std::FILE* const file = std::fopen(IniPath(), "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite("\0\xFF[[S\n=]\0\r=t=[", 1, 17, file);
    std::fclose(file);
    const AfxProfile garbage("", IniPath());
    EXPECT_EQ(garbage.GetInt("S", "n", 7), 7U);
    EXPECT_EQ(garbage.GetString("S", "t", "default"), "default");
    ::DeleteFileA(IniPath());
}

TEST_F(RegistryProfile, ReadingMakesNoKeys)
{
    m_profile.GetInt("S", "n", 0);
    m_profile.GetString("S", "t", "");
    EXPECT_FALSE(KeyExists(kCompanyPath));
}

TEST_F(RegistryProfile, AValueOfAnotherTypeAnswersTheDefault)
{
    EXPECT_TRUE(m_profile.WriteInt("S", "v", 1));
    EXPECT_EQ(m_profile.GetString("S", "v", "default"), "default");
    EXPECT_TRUE(m_profile.WriteString("S", "v", "12"));
    EXPECT_EQ(m_profile.GetInt("S", "v", 7), 7U);
    StoreRaw(REG_DWORD, "12"); // two bytes are no number
    EXPECT_EQ(m_profile.GetInt("S", "raw", 7), 7U);
    StoreRaw(REG_BINARY, "12");
    EXPECT_EQ(m_profile.GetString("S", "raw", "default"), "default");
}

TEST_F(RegistryProfile, ATextWithoutItsTerminatorIsReadWhole)
{
    StoreRaw(REG_SZ, "abc");
    EXPECT_EQ(m_profile.GetString("S", "raw", "default"), "abc");
    StoreRaw(REG_SZ, "");
    EXPECT_EQ(m_profile.GetString("S", "raw", "default"), "");
    StoreRaw(REG_SZ, std::string("ab\0cd", 6));
    EXPECT_EQ(m_profile.GetString("S", "raw", "default"), "ab");
}

TEST_F(RegistryProfile, DeletingASectionTakesTheNestedOnesWithIt)
{
    EXPECT_TRUE(m_profile.WriteInt("A\\B\\C", "n", 1));
    EXPECT_TRUE(m_profile.WriteInt("A", "n", 1));
    EXPECT_TRUE(m_profile.WriteString("A", nullptr, nullptr));
    EXPECT_FALSE(KeyExists(CString(kAppPath) + "\\A"));
    EXPECT_TRUE(KeyExists(kAppPath));
}

TEST_F(RegistryProfile, ThereMustBeSomethingToDelete)
{
    EXPECT_FALSE(m_profile.WriteString("A", nullptr, nullptr));
    EXPECT_FALSE(m_profile.WriteString("A", "n", nullptr));
}

TEST_F(RegistryProfile, AnEmptySectionNameNeverDeletesTheApplication)
{
    EXPECT_TRUE(m_profile.WriteInt("A", "n", 1));
    EXPECT_FALSE(m_profile.WriteString("", nullptr, nullptr));
    EXPECT_EQ(m_profile.GetInt("A", "n", 0), 1U);
}

TEST_F(RegistryProfile, KeysAreOpenedForTheCaller)
{
    HKEY key = m_profile.OpenAppKey();
    ASSERT_NE(key, nullptr);
    ::RegCloseKey(key);
    EXPECT_TRUE(KeyExists(kAppPath));
    EXPECT_EQ(m_profile.OpenSectionKey(nullptr), nullptr);
    EXPECT_EQ(AfxProfile("", "app.ini").OpenAppKey(), nullptr);
    EXPECT_EQ(AfxProfile("", "app.ini").OpenSectionKey("S"), nullptr);
}
