// DfltFldrsTest.cpp - default folders and their history in the user's store
#include "support/TempFolder.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <gmock/gmock.h>

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace
{

using support::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StrEq;

constexpr char kKey[] = "TestFolders";
constexpr char kStore[] = "Software\\TavKit\\Workbench\\DefaultFolders";
constexpr unsigned int kDesktop = 16;
constexpr unsigned int kDocuments = 12;
constexpr unsigned int kCommonDocuments = 46;

/// What the shell says, as it comes; "" if it doesn't know the folder.
std::string ShellFolder(unsigned int csidl)
{
    DString path;
    return DfltFldrs::GetSpecialFolder(csidl, path) ? path.c_str() : "";
}

std::string Desktop() { return ShellFolder(kDesktop); }

std::string Documents()
{
    const std::string own = ShellFolder(kDocuments);
    return own.empty() ? ShellFolder(kCommonDocuments) : own;
}

class DefaultFolders : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        Clean();
    }
    void TearDown() override
    {
        Clean();
        WindowTest::TearDown();
    }

    static void Clean()
    {
        DfltFldrs::DeleteInstance();
        CnfgLdr::Instance()->Reset();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, kStore);
    }

    static void StoreRaw(DWORD type, std::string const& bytes)
    {
        ASSERT_EQ(
            ::RegSetKeyValueA(HKEY_CURRENT_USER, kStore, kKey, type, bytes.data(), static_cast<DWORD>(bytes.size())),
            ERROR_SUCCESS);
    }
    static void Store(std::string const& list) { StoreRaw(REG_SZ, list + '\0'); }
    static std::string Stored()
    {
        return DUserCnfg("DefaultFolders", true, false).ReadString(kKey, "(nothing)").c_str();
    }

    static std::vector<std::string> Folders(char const* key = kKey, bool dflts = true, bool hist = true)
    {
        DVectorSafe<DString> folders;
        folders.Append("left over");
        DfltFldrs::Instance()->GetDirHist(key, folders, dflts, hist);
        std::vector<std::string> texts;
        for (DString const& folder : folders)
        {
            texts.emplace_back(folder.c_str());
        }
        return texts;
    }
    static void SetDefaults(char const* folders) { DfltFldrs::Instance()->SetDfltFldrs(kKey, folders); }

    TempFolder m_temp;
};

} // namespace

TEST_F(DefaultFolders, TheInstanceIsMadeOnFirstUseAndDeletedOnDemand)
{
    EXPECT_FALSE(DfltFldrs::HasInstance());
    DfltFldrs* const instance = DfltFldrs::Instance();
    EXPECT_TRUE(DfltFldrs::HasInstance());
    EXPECT_EQ(DfltFldrs::Instance(), instance);
    DfltFldrs::DeleteInstance();
    EXPECT_FALSE(DfltFldrs::HasInstance());
    DfltFldrs::DeleteInstance();
    EXPECT_FALSE(DfltFldrs::HasInstance());
}

TEST_F(DefaultFolders, ANewInstanceKnowsNothingOfWhatTheOldOneWasTold)
{
    SetDefaults("C:\\a");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    DfltFldrs::DeleteInstance();
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(DefaultFolders, EveryCategoryHasDefaultsOfItsOwn)
{
    std::vector<std::string> const usual{Documents(), Desktop()};
    for (char const* key : {"ImageFolders", "ProjectFolders", "WorkspaceFolders", "RulesetFolders", "SolutionFolders"})
    {
        EXPECT_EQ(Folders(key), usual) << key;
    }
    DString install = GetInstallDir(nullptr);
    install.TrimRight("\\");
    EXPECT_THAT(Folders("ThematicFolders"), ElementsAre(usual[0], usual[1], std::string(install + "\\Examples")));
    EXPECT_THAT(Folders("imagefolders"), IsEmpty()) << "keys are exact";
}

TEST_F(DefaultFolders, TheProductConfigurationNamesOthers)
{
    ASSERT_TRUE(CnfgLdr::Instance()->Load(
        m_temp.Write("p.xml", "<Product><Folder category='ImageFolders' path='C:\\p;InstallDir\\q'/></Product>")
            .c_str()));
    DString install = GetInstallDir(nullptr);
    install.TrimRight("\\");
    EXPECT_THAT(Folders("ImageFolders"), ElementsAre("C:\\p", std::string(install + "\\q")));
    EXPECT_THAT(Folders("ProjectFolders"), ElementsAre(Documents(), Desktop()));
}

TEST_F(DefaultFolders, CopiesHaveTheirOwnDefaults)
{
    SetDefaults("C:\\a");
    DfltFldrs copy(*DfltFldrs::Instance());
    copy.SetDfltFldrs(kKey, "C:\\b");
    copy.SetDfltFldrs("More", "C:\\c");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    *DfltFldrs::Instance() = copy;
    EXPECT_THAT(Folders(), ElementsAre("C:\\b"));
    EXPECT_THAT(Folders("More"), ElementsAre("C:\\c"));
    copy = DfltFldrs();
    DVectorSafe<DString> folders;
    copy.GetDirHist("More", folders, true, false);
    EXPECT_TRUE(folders.IsEmpty()) << "assignment clears the target first";
}

TEST_F(DefaultFolders, ANullOrEmptyKeyEmptiesTheList)
{
    EXPECT_THAT(Folders(nullptr), IsEmpty());
    EXPECT_THAT(Folders(""), IsEmpty());
}

TEST_F(DefaultFolders, TheHistoryComesFirstAndHidesDefaultsOfOtherLetterCase)
{
    Store("C:\\New;;C:\\Old;C:\\New");
    SetDefaults("c:\\old;C:\\Base;C:\\Base");
    EXPECT_THAT(Folders(), ElementsAre("C:\\New", "C:\\Old", "C:\\New", "C:\\Base"));
    EXPECT_THAT(Folders(kKey, false, true), ElementsAre("C:\\New", "C:\\Old", "C:\\New"));
    EXPECT_THAT(Folders(kKey, true, false), ElementsAre("c:\\old", "C:\\Base"));
    EXPECT_THAT(Folders(kKey, false, false), IsEmpty());
}

TEST_F(DefaultFolders, WithoutTheHistoryTheStoreIsNotOpened)
{
    SetDefaults("C:\\a");
    EXPECT_THAT(Folders(kKey, true, false), ElementsAre("C:\\a"));
    HKEY store = nullptr;
    EXPECT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, kStore, 0, KEY_QUERY_VALUE, &store), ERROR_FILE_NOT_FOUND)
        << "opening the store would have made it";
    EXPECT_THAT(Folders(kKey, true, true), ElementsAre("C:\\a"));
    EXPECT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, kStore, 0, KEY_QUERY_VALUE, &store), ERROR_SUCCESS);
    ::RegCloseKey(store);
}

TEST_F(DefaultFolders, LookingForAnUnknownCategoryAddsNone)
{
    Folders("Unknown");
    DfltFldrs copy(*DfltFldrs::Instance());
    EXPECT_THAT(Folders("Unknown"), IsEmpty());
}

TEST_F(DefaultFolders, TokensBecomeRealPathsInTheHistoryToo)
{
    Store("desktop;Desktop\\;My Documents");
    EXPECT_THAT(Folders(kKey, false, true), ElementsAre(Desktop(), "Desktop\\", Documents()));
}

TEST_F(DefaultFolders, TheInstallationFolderComesWithoutASeparatorAndTheShellsFoldersWithOne)
{
    const InstallDirScope scope("C:\\App\\");
    EXPECT_THAT(DfltFldrs::TranslateSpecialPath("INSTALLDIR\\x").c_str(), StrEq("C:\\App\\x"));
    EXPECT_THAT(DfltFldrs::TranslateSpecialPath("installdirectory").c_str(), StrEq("C:\\Appectory"));
    EXPECT_THAT(DfltFldrs::TranslateSpecialPath("InstallDir").c_str(), StrEq("C:\\App"));
    EXPECT_EQ(DfltFldrs::TranslateSpecialPath("desktop").c_str(), Desktop());
    EXPECT_THAT(DfltFldrs::TranslateSpecialPath("Desktop\\").c_str(), StrEq("Desktop\\"));
    EXPECT_EQ(DfltFldrs::TranslateSpecialPath("MY documents").c_str(), Documents());
    EXPECT_THAT(Desktop(), testing::EndsWith("\\"));
    EXPECT_THAT(Documents(), testing::EndsWith("\\"));
    EXPECT_THAT(DfltFldrs::TranslateSpecialPath("C:\\x").c_str(), StrEq("C:\\x"));
    EXPECT_THAT(DfltFldrs::TranslateSpecialPath(nullptr).c_str(), StrEq(""));
}

TEST_F(DefaultFolders, AFolderThatTheShellRefusesLeavesThePathAlone)
{
    constexpr unsigned int kNoSuchFolder = 0x7F;
    DString path("before");
    EXPECT_FALSE(DfltFldrs::GetSpecialFolder(kNoSuchFolder, path));
    EXPECT_THAT(path.c_str(), StrEq("before"));
}

TEST_F(DefaultFolders, TheShellsFolderIsThereOnceItWasAskedFor)
{
    const std::string desktop = Desktop();
    ::RemoveDirectoryA(desktop.c_str()); // if it is empty
    EXPECT_EQ(Desktop(), desktop);
    EXPECT_NE(::GetFileAttributesA(desktop.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DefaultFolders, AFolderThatTheUserMovesIsSeenAtOnce)
{
    constexpr char kUserFolders[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
    char before[MAX_PATH] = "";
    DWORD size = sizeof before;
    DWORD type = REG_NONE;
    ASSERT_EQ(
        ::RegGetValueA(HKEY_CURRENT_USER, kUserFolders, "Desktop", RRF_RT_ANY | RRF_NOEXPAND, &type, before, &size),
        ERROR_SUCCESS);
    SetDefaults("Desktop");
    const std::string desktop = Desktop();
    EXPECT_THAT(Folders(), ElementsAre(desktop));
    EXPECT_THAT(Folders(), ElementsAre(desktop));
    const std::string moved = m_temp.MakeFolder("moved");
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kUserFolders, "Desktop", REG_SZ, moved.c_str(),
                      static_cast<DWORD>(moved.size() + 1));
    EXPECT_THAT(Folders(), ElementsAre(moved + "\\"));
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kUserFolders, "Desktop", type, before, size);
    EXPECT_THAT(Folders(), ElementsAre(desktop));
}

TEST_F(DefaultFolders, ASavedFolderIsTheFirstInTheNextProcess)
{
    DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\One");
    DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\Two");
    DfltFldrs::Instance()->SaveDirHist(kKey, "c:\\one");
    EXPECT_EQ(Stored(), "c:\\one;C:\\Two");
    DfltFldrs::DeleteInstance();
    EXPECT_THAT(Folders(), ElementsAre("c:\\one", "C:\\Two"));
}

TEST_F(DefaultFolders, NothingIsSavedWithoutAFolderOrAKey)
{
    DfltFldrs::Instance()->SaveDirHist(kKey, "");
    DfltFldrs::Instance()->SaveDirHist(kKey, DString());
    EXPECT_EQ(Stored(), "(nothing)");
    DfltFldrs::Instance()->SaveDirHist(nullptr, "C:\\a");
    DfltFldrs::Instance()->SaveDirHist("", "C:\\a");
    EXPECT_EQ(DUserCnfg("DefaultFolders", true, false).ReadString("", "(nothing)").c_str(), std::string("(nothing)"));
}

TEST_F(DefaultFolders, AnUnchangedListIsWrittenAnew)
{
    Store(";C:\\a;;C:\\b;");
    DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\a");
    EXPECT_EQ(Stored(), "C:\\a;C:\\b");
}

TEST_F(DefaultFolders, ATokenOfTheHistoryIsWrittenBackAsARealPath)
{
    Store("Desktop");
    DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\a");
    EXPECT_EQ(Stored(), "C:\\a;" + Desktop());
}

TEST_F(DefaultFolders, PickingAnOldFolderInAFullListStillDropsTheOldest)
{
    Store("1;2;3;4;5;6;7;8");
    SetDefaults("d1;d2;1");
    ASSERT_THAT(Folders(), SizeIs(10));
    DfltFldrs::Instance()->SaveDirHist(kKey, "2");
    EXPECT_EQ(Stored(), "2;1;3;4;5;6;7");
    EXPECT_THAT(Folders(), SizeIs(9));
    DfltFldrs::Instance()->SaveDirHist(kKey, "9");
    EXPECT_EQ(Stored(), "9;2;1;3;4;5;6;7") << "there was room again";
}

TEST_F(DefaultFolders, TheHistoryIsBoundedByTenLessTheDefaultsThatItDoesNotCover)
{
    SetDefaults("d1;d2;d3");
    for (int i = 0; i < 30; ++i)
    {
        DfltFldrs::Instance()->SaveDirHist(kKey, ("f" + std::to_string(i)).c_str());
    }
    EXPECT_EQ(Stored(), "f29;f28;f27;f26;f25;f24;f23");
}

TEST_F(DefaultFolders, ADefaultsFileSetsCategoriesAndReadsSlashesEitherWay)
{
    SetDefaults("C:\\before");
    DfltFldrs::Instance()->SetDfltFldrs("Other", "C:\\other");
    const std::string file =
        m_temp.Write("d.xml", "<Any path='ignored'><TestFolders path='C:/data;D:\\x/y' more='1'>"
                              "<Inner path='no'/></TestFolders><New path='first'/><New path='C:/n'/>"
                              "<Empty/></Any>");
    DfltFldrs::Instance()->SetDfltFldrs("Empty", "C:\\e");
    EXPECT_TRUE(DfltFldrs::Instance()->Load(file.c_str()));
    EXPECT_THAT(Folders(), ElementsAre("C:\\data", "D:\\x\\y"));
    EXPECT_THAT(Folders("New"), ElementsAre("C:\\n"));
    EXPECT_THAT(Folders("Other"), ElementsAre("C:\\other"));
    EXPECT_THAT(Folders("Inner"), IsEmpty());
    EXPECT_THAT(Folders("Empty"), IsEmpty());
    EXPECT_THAT(Folders("ImageFolders"), ElementsAre(Documents(), Desktop()));
}

TEST_F(DefaultFolders, ADefaultsFileThatCannotBeReadChangesNothing)
{
    SetDefaults("C:\\before");
    const std::string good = "<Any><TestFolders path='C:\\after'/></Any>";
    EXPECT_FALSE(DfltFldrs::Instance()->Load(DFile()));
    EXPECT_FALSE(DfltFldrs::Instance()->Load(""));
    EXPECT_FALSE(DfltFldrs::Instance()->Load(m_temp.Path("none.xml").c_str()));
    EXPECT_FALSE(DfltFldrs::Instance()->Load(m_temp.MakeFolder("sub").c_str()));
    for (std::size_t cut = 0; cut < good.size(); ++cut)
    {
        EXPECT_FALSE(DfltFldrs::Instance()->Load(m_temp.Write("cut.xml", good.substr(0, cut)).c_str())) << cut;
    }
    for (std::string const& hostile :
         {std::string("\0\xFF\x80", 3), "<!DOCTYPE a [<!ENTITY e 'x'>]>" + good, good + good,
          std::string("<Any><TestFolders path='a' path='b'/></Any>"), std::string(1 << 20, '<')})
    {
        EXPECT_FALSE(DfltFldrs::Instance()->Load(m_temp.Write("bad.xml", hostile).c_str()));
    }
    EXPECT_THAT(Folders(), ElementsAre("C:\\before"));
    EXPECT_TRUE(DfltFldrs::Instance()->Load(m_temp.Write("good.xml", good).c_str()));
    EXPECT_THAT(Folders(), ElementsAre("C:\\after"));
}

// What the platform's parser takes of such sizes differs from one to the next.
TEST_F(DefaultFolders, ADefaultsFileOfFiftyMegabytesIsTakenWholeOrNotAtAll)
{
    constexpr std::size_t kSize = 50u << 20;
    constexpr std::size_t kPath = 16000;
    SetDefaults("C:\\before");
    std::string text = "<Any><TestFolders path='C:/after'/>";
    int categories = 0;
    for (; text.size() < kSize; ++categories)
    {
        text += "<Key" + std::to_string(categories) + " path='C:/" + std::string(kPath, 'x') + "'/>";
    }
    text += "</Any>";
    const bool taken = DfltFldrs::Instance()->Load(m_temp.Write("large.xml", text).c_str());
    const std::string last = "Key" + std::to_string(categories - 1);
    EXPECT_THAT(Folders(), ElementsAre(taken ? "C:\\after" : "C:\\before"));
    EXPECT_THAT(Folders("Key0"), SizeIs(taken ? 1 : 0));
    EXPECT_THAT(Folders(last.c_str()), SizeIs(taken ? 1 : 0));
}

TEST_F(DefaultFolders, AFolderListOfFiftyMegabytesIsTakenWholeOrNotAtAll)
{
    constexpr std::size_t kSize = 50u << 20;
    SetDefaults("C:\\before");
    const std::string path(kSize, 'x');
    const bool taken = DfltFldrs::Instance()->Load(
        m_temp.Write("large.xml", "<Any><TestFolders path='C:/" + path + "'/></Any>").c_str());
    EXPECT_THAT(Folders(), ElementsAre(taken ? "C:\\" + path : std::string("C:\\before")));
}

TEST_F(DefaultFolders, AStoreWithAValueThatIsNoTextReadsAsEmptyAndIsMended)
{
    SetDefaults("C:\\d");
    const std::pair<DWORD, std::string> values[] = {{REG_DWORD, std::string(4, '\1')},
                                                    {REG_BINARY, std::string("C:\\a;C:\\b")},
                                                    {REG_MULTI_SZ, std::string("C:\\a\0C:\\b\0", 11)},
                                                    {REG_EXPAND_SZ, std::string("%TEMP%\0", 7)},
                                                    {REG_NONE, std::string()}};
    for (auto const& [type, bytes] : values)
    {
        StoreRaw(type, bytes);
        EXPECT_THAT(Folders(), ElementsAre("C:\\d")) << type;
        DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\x");
        EXPECT_EQ(Stored(), "C:\\x") << type;
    }
}

TEST_F(DefaultFolders, AStoreWithAMegabyteOfFoldersIsReadWholeAndShrinks)
{
    std::string list;
    int entries = 0;
    for (; list.size() < (1u << 20); ++entries)
    {
        list +=
            (entries == 0 ? "" : ";") + (entries % 3 == 0 ? std::string("Desktop") : "C:\\" + std::to_string(entries));
    }
    Store(list);
    SetDefaults("C:\\d");
    EXPECT_THAT(Folders(), SizeIs(static_cast<std::size_t>(entries) + 1));
    DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\x");
    EXPECT_THAT(Folders(kKey, false, true), SizeIs(static_cast<std::size_t>(entries)));
    EXPECT_EQ(Folders().front(), "C:\\x");
}

TEST_F(DefaultFolders, LongAndVanishedFoldersAreKeptAsTheyAre)
{
    constexpr std::size_t kLongest = 259; // that the system opens by its plain name
    constexpr std::size_t kLonger = 400;
    const std::string fits = "C:\\" + std::string(kLongest - 3, 'a');
    const std::string longer = "C:\\" + std::string(kLonger - 3, 'b');
    for (std::string const& folder : {fits, longer, m_temp.Path("vanished"), std::string("Q:\\no drive\\")})
    {
        DfltFldrs::Instance()->SaveDirHist(kKey, folder.c_str());
        EXPECT_EQ(Folders().front(), folder);
    }
    EXPECT_THAT(Folders(), SizeIs(4));
}
