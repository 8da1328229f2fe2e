// CnfgTest.cpp - settings that survive the process
#include <string>

#include <gmock/gmock.h>
#include <windows.h>

#include "tavkit/frame/services/DCnfg.h"

using testing::StrEq;

namespace
{
constexpr char const* kSection = "TavKitTest";
constexpr char const* kSectionKey = "Software\\TavKit\\Workbench\\TavKitTest";

void DeleteSection()
{
    ::RegDeleteKeyA(HKEY_CURRENT_USER, (std::string(kSectionKey) + "\\Sub").c_str());
    ::RegDeleteKeyA(HKEY_CURRENT_USER, kSectionKey);
}

class UserCnfg : public testing::Test
{
protected:
    void SetUp() override { DeleteSection(); }
    void TearDown() override { DeleteSection(); }

    static void StoreRaw(char const* name, DWORD type, std::string const& bytes)
    {
        HKEY key = nullptr;
        ASSERT_EQ(
            ::RegCreateKeyExA(HKEY_CURRENT_USER, kSectionKey, 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr),
            ERROR_SUCCESS);
        ::RegSetValueExA(key, name, 0, type, reinterpret_cast<BYTE const*>(bytes.data()),
                         static_cast<DWORD>(bytes.size()));
        ::RegCloseKey(key);
    }
};
} // namespace

TEST_F(UserCnfg, AValueSurvivesTheObject)
{
    EXPECT_TRUE(DUserCnfg(kSection, true, false).WriteString("Images", "C:\\a;D:\\b"));
    DUserCnfg later(kSection, true, false);
    EXPECT_TRUE(later.HasKey("Images"));
    EXPECT_THAT(later.ReadString("Images", "x").c_str(), StrEq("C:\\a;D:\\b"));
}

TEST_F(UserCnfg, LiesInTheCurrentUsersRegistryAsText)
{
    DUserCnfg(kSection, true, false).WriteString("Images", "C:\\a");
    char text[64] = "";
    DWORD size = sizeof(text);
    EXPECT_EQ(::RegGetValueA(HKEY_CURRENT_USER, kSectionKey, "Images", RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_THAT(text, StrEq("C:\\a"));
}

TEST_F(UserCnfg, AMissingValueReadsAsTheDefault)
{
    const DUserCnfg store(kSection, true, false);
    EXPECT_FALSE(store.HasKey("Images"));
    EXPECT_THAT(store.ReadString("Images", "dflt").c_str(), StrEq("dflt"));
    EXPECT_THAT(store.ReadString("Images", DString()).c_str(), StrEq(""));
}

TEST_F(UserCnfg, AnEmptyValueIsThere)
{
    DUserCnfg store(kSection, true, false);
    EXPECT_TRUE(store.WriteString("Images", DString()));
    EXPECT_TRUE(store.HasKey("Images"));
    EXPECT_THAT(store.ReadString("Images", "dflt").c_str(), StrEq(""));
}

TEST_F(UserCnfg, ValuesOfAnyLengthComeBack)
{
    DUserCnfg store(kSection, true, false);
    for (const std::size_t length : {std::size_t{259}, std::size_t{260}, std::size_t{1024}, std::size_t{300'000}})
    {
        const std::string value(length, 'x');
        EXPECT_TRUE(store.WriteString("Long", value.c_str()));
        EXPECT_EQ(store.ReadString("Long", "").GetLength(), static_cast<int>(length));
    }
}

TEST_F(UserCnfg, BytesOfTheCodePageComeBack)
{
    DUserCnfg store(kSection, true, false);
    EXPECT_TRUE(store.WriteString("Umlaut", "B\xE4r \x80"));
    EXPECT_THAT(store.ReadString("Umlaut", "").c_str(), StrEq("B\xE4r \x80"));
}

TEST_F(UserCnfg, ValuesOfOtherTypesReadAsMissing)
{
    StoreRaw("Number", REG_DWORD, std::string(4, '\1'));
    StoreRaw("Binary", REG_BINARY, "text");
    StoreRaw("Several", REG_MULTI_SZ, std::string("a\0b\0\0", 5));
    StoreRaw("Expand", REG_EXPAND_SZ, "%TEMP%");
    const DUserCnfg store(kSection, true, false);
    for (char const* name : {"Number", "Binary", "Several", "Expand"})
    {
        EXPECT_FALSE(store.HasKey(name)) << name;
        EXPECT_THAT(store.ReadString(name, "dflt").c_str(), StrEq("dflt")) << name;
    }
}

TEST_F(UserCnfg, ATextThatSomebodyStoredWithoutItsEndIsRead)
{
    StoreRaw("Open", REG_SZ, "abc");
    StoreRaw("Nothing", REG_SZ, "");
    StoreRaw("Inner", REG_SZ, std::string("ab\0cd", 5));
    const DUserCnfg store(kSection, true, false);
    EXPECT_THAT(store.ReadString("Open", "dflt").c_str(), StrEq("abc"));
    EXPECT_THAT(store.ReadString("Nothing", "dflt").c_str(), StrEq(""));
    EXPECT_THAT(store.ReadString("Inner", "dflt").c_str(), StrEq("ab"));
}

TEST_F(UserCnfg, WithoutCreatingAMissingSectionReadsAsEmptyAndTakesNothing)
{
    DUserCnfg store(kSection, false, false);
    EXPECT_FALSE(store.HasKey("a"));
    EXPECT_THAT(store.ReadString("a", "dflt").c_str(), StrEq("dflt"));
    EXPECT_FALSE(store.WriteString("a", "b"));
    HKEY key = nullptr;
    EXPECT_NE(::RegOpenKeyExA(HKEY_CURRENT_USER, kSectionKey, 0, KEY_QUERY_VALUE, &key), ERROR_SUCCESS);
}

TEST_F(UserCnfg, AReadOnlyStoreReadsAndRefusesToWrite)
{
    DUserCnfg(kSection, true, false).WriteString("a", "1");
    DUserCnfg store(kSection, true, true);
    EXPECT_FALSE(store.WriteString("a", "2"));
    EXPECT_THAT(store.ReadString("a", "").c_str(), StrEq("1"));
}

TEST_F(UserCnfg, SectionsNestAndTooLongANameIsRefused)
{
    EXPECT_TRUE(DUserCnfg("TavKitTest\\Sub", true, false).WriteString("a", "inner"));
    EXPECT_THAT(DUserCnfg("TavKitTest\\Sub", false, true).ReadString("a", "").c_str(), StrEq("inner"));
    EXPECT_FALSE(DUserCnfg(kSection, false, true).HasKey("a"));
    DUserCnfg store(kSection, true, false);
    EXPECT_FALSE(store.WriteString(std::string(70'000, 'n').c_str(), "x"));
    EXPECT_FALSE(DUserCnfg(std::string(70'000, 's').c_str(), true, false).WriteString("a", "b"));
}
