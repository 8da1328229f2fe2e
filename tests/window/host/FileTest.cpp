// FileTest.cpp - what file names find on the disk, and where the program lies
#include <gmock/gmock.h>
#include <windows.h>

#include "../../support/TempFolder.h"
#include "host/FileBytes.h"
#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/DFile.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::Eq;
using testing::Optional;
using testing::StrEq;

namespace
{
DFile FileOf(std::string const& path) { return DFile(path.c_str()); }
constexpr std::size_t kLimit = 1u << 20;
} // namespace

TEST(DFileOnDisk, AFileThatIsThereExistsAndCanBeRead)
{
    const support::TempFolder folder;
    const DFile file = FileOf(folder.Write("a.tif", "x"));
    EXPECT_TRUE(file.Exist());
    EXPECT_TRUE(file.CanRead());
}

TEST(DFileOnDisk, OptionsAreNoPartOfTheFile)
{
    const support::TempFolder folder;
    const DFile file = FileOf(folder.Write("a.tif", "x") + "?page=2");
    EXPECT_TRUE(file.Exist());
    EXPECT_TRUE(file.CanRead());
}

TEST(DFileOnDisk, AMissingFileAndANameWithoutTextAreNeither)
{
    const support::TempFolder folder;
    for (std::string const& path : {folder.Path("none.tif"), folder.Path("none\\none.tif"), std::string(),
                                    std::string("*.tif"), std::string("<|>"), std::string(40'000, 'x')})
    {
        EXPECT_FALSE(FileOf(path).Exist()) << path.substr(0, 80);
        EXPECT_FALSE(FileOf(path).CanRead()) << path.substr(0, 80);
    }
}

TEST(DFileOnDisk, AFolderExistsAndCannotBeRead)
{
    const support::TempFolder folder;
    const DFile file = FileOf(folder.MakeFolder("sub"));
    EXPECT_TRUE(file.Exist());
    EXPECT_FALSE(file.CanRead());
}

TEST(DFileOnDisk, AFileThatAnotherHoldsForItselfExistsAndCannotBeRead)
{
    const support::TempFolder folder;
    const DFile file = FileOf(folder.Write("locked.tif", "x"));
    const host::FileHandle exclusive(::CreateFileA(folder.Path("locked.tif").c_str(), GENERIC_READ, 0, nullptr,
                                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(exclusive.IsValid());
    EXPECT_TRUE(file.Exist());
    EXPECT_FALSE(file.CanRead());
}

TEST(ReadWholeFile, GivesEveryByte)
{
    const support::TempFolder folder;
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_THAT(host::ReadWholeFile(FileOf(folder.Write("a.bin", bytes)), kLimit), Optional(Eq(bytes)));
    EXPECT_THAT(host::ReadWholeFile(FileOf(folder.Write("empty", "")), kLimit), Optional(Eq("")));
}

TEST(ReadWholeFile, RefusesWhatIsMissingAFolderAndWhatIsTooLarge)
{
    const support::TempFolder folder;
    EXPECT_EQ(host::ReadWholeFile(FileOf(folder.Path("none")), kLimit), std::nullopt);
    EXPECT_EQ(host::ReadWholeFile(FileOf(folder.MakeFolder("sub")), kLimit), std::nullopt);
    EXPECT_EQ(host::ReadWholeFile(FileOf(folder.Write("five", "12345")), 4), std::nullopt);
    EXPECT_THAT(host::ReadWholeFile(FileOf(folder.Write("five", "12345")), 5), Optional(Eq("12345")));
}

TEST(ReplaceFileContent, WritesANewFileAndReplacesAnOldOne)
{
    const support::TempFolder folder;
    EXPECT_TRUE(host::ReplaceFileContent(FileOf(folder.Path("a.xml")), "first"));
    EXPECT_EQ(folder.Read("a.xml"), "first");
    EXPECT_TRUE(host::ReplaceFileContent(FileOf(folder.Path("a.xml")), ""));
    EXPECT_EQ(folder.Read("a.xml"), "");
    EXPECT_THAT(folder.Names(), ElementsAre("a.xml")) << "the file beside it is gone";
}

TEST(ReplaceFileContent, AFailureLeavesTheOldFileAndNothingBesideIt)
{
    const support::TempFolder folder;
    folder.MakeFolder("sub");
    EXPECT_FALSE(host::ReplaceFileContent(FileOf(folder.Path("sub")), "x")) << "a folder has that name";
    EXPECT_FALSE(host::ReplaceFileContent(FileOf(folder.Path("none\\a.xml")), "x")) << "no such folder";
    EXPECT_THAT(folder.Names(), ElementsAre("sub"));

    folder.Write("open.xml", "old");
    const host::FileHandle exclusive(::CreateFileA(folder.Path("open.xml").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                                   nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(exclusive.IsValid());
    EXPECT_FALSE(host::ReplaceFileContent(FileOf(folder.Path("open.xml")), "new")) << "another program has it open";
    EXPECT_EQ(folder.Read("open.xml"), "old");
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("open.xml", "sub"));
}

TEST(InstallDir, IsTheFolderOfTheRunningProgramWithItsSeparator)
{
    char program[MAX_PATH];
    ::GetModuleFileNameA(nullptr, program, MAX_PATH);
    const DString folder = GetInstallDir(nullptr);
    EXPECT_THAT(folder.c_str(), EndsWith("\\"));
    EXPECT_TRUE(folder + StripPath(program) == program);
}

TEST(InstallDir, AFolderBelowItMayBeAskedFor)
{
    EXPECT_TRUE(GetInstallDir("plugins") == GetInstallDir(nullptr) + "plugins\\");
    EXPECT_TRUE(GetInstallDir("plugins\\") == GetInstallDir(nullptr) + "plugins\\");
    EXPECT_TRUE(GetInstallDir("") == GetInstallDir(nullptr));
}

TEST(InstallDir, AnotherHoldsForAScopeAndScopesNest)
{
    const DString own = GetInstallDir(nullptr);
    {
        const InstallDirScope outer("D:\\Tavia");
        EXPECT_THAT(GetInstallDir(nullptr).c_str(), StrEq("D:\\Tavia\\"));
        {
            const InstallDirScope inner("E:/x/");
            EXPECT_THAT(GetInstallDir(nullptr).c_str(), StrEq("E:/x/"));
        }
        EXPECT_THAT(GetInstallDir(nullptr).c_str(), StrEq("D:\\Tavia\\"));
    }
    EXPECT_TRUE(GetInstallDir(nullptr) == own);
}
