// DlgSlctDirTest.cpp - the shell's folder browser, driven from inside its own loop
#include "support/TempFolder.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"
#include "tests/window/kit/FolderBrowser.h"
#include "tests/window/kit/ImportHook.h"

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace
{

using automation::FindControl;
using folderbrowser::Accept;
using folderbrowser::Cancel;
using folderbrowser::IsOkEnabled;
using folderbrowser::kEdit;
using folderbrowser::kNewFolder;
using folderbrowser::kTitle;
using folderbrowser::SelectedLabel;
using folderbrowser::SelectPath;
using folderbrowser::TextOf;
using support::ModalHelper;
using support::TempFolder;
using testing::IsEmpty;
using testing::StrCaseEq;
using testing::StrEq;

constexpr char kKey[] = "ActnLibDir"; // has no default folders
constexpr char kSection[] = "Settings";
constexpr char kHistory[] = "Software\\TavKit\\Workbench\\DefaultFolders";

/// What the library asked of the browser, seen at its border to the system.
struct Selections
{
    static inline int count = 0;
    static inline HWND topmost = nullptr;
    static constexpr int kImage = 7;
    static inline BROWSEINFOA info{};

    static LRESULT WINAPI Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        count += message == BFFM_SETSELECTIONA || message == BFFM_SETSELECTIONW;
        return ::SendMessageA(window, message, wParam, lParam);
    }
    static BOOL WINAPI Place(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
    {
        if (after == HWND_TOPMOST && flags == (SWP_NOMOVE | SWP_NOSIZE))
        {
            topmost = window;
        }
        return ::SetWindowPos(window, after, x, y, width, height, flags);
    }
    static ITEMIDLIST* WINAPI Browse(BROWSEINFOA* asked)
    {
        info = *asked;
        ITEMIDLIST* const list = ::SHBrowseForFolderA(asked);
        asked->iImage = kImage; // not every system's browser tells one
        return list;
    }
    static HRESULT WINAPI NoAllocator(IMalloc**) { return E_FAIL; }
    static BOOL WINAPI NoPath(ITEMIDLIST const*, char*) { return FALSE; }
};

class DlgSlctDir : public support::WindowTest
{
protected:
    /// The shell keeps the images of its folders once it has shown them.
    static void SetUpTestSuite()
    {
        const TempFolder folder;
        for (std::string const& start : {std::string("C:\\"), folder.Path(), std::string()})
        {
            CDlgSlctDir dialog(nullptr);
            dialog.m_strInitDir = start.c_str();
            Show(dialog, [](HWND first) {
                // A second one at a time has images of its own.
                CDlgSlctDir second(nullptr);
                const ModalHelper helper([first] { return BrowserBeside(first); }, Cancel);
                second.DoBrowse();
                Cancel(first);
            });
        }
    }
    void SetUp() override
    {
        WindowTest::SetUp();
        Clean();
        Selections::count = 0;
        Selections::topmost = nullptr;
    }
    void TearDown() override
    {
        Clean();
        WindowTest::TearDown();
    }

    static void Clean()
    {
        AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr); // the whole section
        DfltFldrs::DeleteInstance();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, kHistory);
    }

    static HWND BrowserBeside(HWND first)
    {
        HWND const browser = folderbrowser::Current();
        return browser != first ? browser : nullptr;
    }
    static bool IsAbove(HWND window, HWND other)
    {
        while (other && other != window)
        {
            other = ::GetWindow(other, GW_HWNDPREV);
        }
        return other != nullptr;
    }

    /// Asks, with something done while the browser is up.
    int Browse(CDlgSlctDir& dialog, std::function<void(HWND)> const& act) const
    {
        folderbrowser::Steady(m_folder);
        return Show(dialog, act);
    }
    static int Show(CDlgSlctDir& dialog, std::function<void(HWND)> const& act)
    {
        const ModalHelper helper([] { return folderbrowser::Current(); }, act);
        const int result = dialog.DoBrowse();
        EXPECT_TRUE(helper.Done()) << "the browser never came";
        return result;
    }

    static CString Stored(char const* key = kKey) { return AfxGetApp()->GetProfileString(kSection, key, "(nothing)"); }
    static std::vector<std::string> History()
    {
        DVectorSafe<DString> folders;
        DfltFldrs::Instance()->GetDirHist(kKey, folders, false, true);
        std::vector<std::string> texts;
        for (int i = 0; i < folders.GetCount(); ++i)
        {
            texts.emplace_back(folders[i].c_str());
        }
        return texts;
    }

    /// A path without its closing separator.
    static std::string Bare(std::string path)
    {
        while (path.ends_with('\\'))
        {
            path.pop_back();
        }
        return path;
    }

    support::TestFrame m_frame;
    TempFolder m_folder;
};

TEST_F(DlgSlctDir, BeginsWithNothingButATitleAndTheOfferOfANewFolder)
{
    CDlgSlctDir const dialog(m_frame);
    EXPECT_THAT(dialog.m_strPath, StrEq(""));
    EXPECT_THAT(dialog.m_strInitDir, StrEq(""));
    EXPECT_THAT(dialog.m_strTitle, StrEq("Open"));
    EXPECT_THAT(dialog.m_strKey, StrEq(""));
    EXPECT_THAT(dialog.m_strFilePttr, StrEq(""));
    EXPECT_EQ(dialog.m_bNewFolder, 1);
    EXPECT_EQ(dialog.m_hWndOwner, m_frame.m_hWnd);
    EXPECT_THAT(CDlgSlctDir::strPrtclDir, StrEq("Protocol Operation Folder"));
    static_assert(std::has_virtual_destructor_v<CDlgSlctDir>);
}

TEST_F(DlgSlctDir, ACopyHasAllItsMembers)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strPath = "p";
    dialog.m_strInitDir = "i";
    dialog.m_strTitle = "t";
    dialog.m_strKey = "k";
    dialog.m_strFilePttr = "f";
    dialog.m_nImage = 7;
    dialog.m_bNewFolder = 0;
    CDlgSlctDir const copy(dialog);
    CDlgSlctDir assigned(nullptr);
    assigned = dialog;
    for (CDlgSlctDir const* one : {&copy, static_cast<CDlgSlctDir const*>(&assigned)})
    {
        EXPECT_THAT(one->m_strPath + one->m_strInitDir + one->m_strTitle + one->m_strKey + one->m_strFilePttr,
                    StrEq("pitkf"));
        EXPECT_EQ(one->m_nImage, 7);
        EXPECT_EQ(one->m_bNewFolder, 0);
        EXPECT_EQ(one->m_hWndOwner, m_frame.m_hWnd);
    }
}

TEST_F(DlgSlctDir, TheFolderChosenIsTheResultAndIsStoredButNotPutIntoTheHistory)
{
    std::string const wanted = m_folder.MakeFolder("wanted");
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    dialog.m_strInitDir = m_folder.Path().c_str();
    dialog.m_strTitle = "Pick one";
    EXPECT_EQ(Browse(dialog,
                     [&](HWND browser) {
                         EXPECT_EQ(TextOf(FindControl(browser, kTitle)), "Pick one");
                         EXPECT_TRUE(::IsWindowVisible(FindControl(browser, kEdit)));
                         EXPECT_TRUE(::IsWindowVisible(FindControl(browser, kNewFolder)));
                         EXPECT_EQ(::GetWindow(browser, GW_OWNER), m_frame.m_hWnd);
                         SelectPath(browser, wanted);
                         Accept(browser);
                     }),
              1);
    EXPECT_THAT(std::string(dialog.m_strPath), StrCaseEq(wanted));
    EXPECT_EQ(Stored(), dialog.m_strPath);
    EXPECT_THAT(History(), IsEmpty());
}

TEST_F(DlgSlctDir, WithoutAKeyTheFolderChosenIsntStored)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.MakeFolder("sub").c_str();
    EXPECT_EQ(Browse(dialog, Accept), 1);
    EXPECT_EQ(Stored(""), "(nothing)");
    EXPECT_EQ(Stored(), "(nothing)");
}

TEST_F(DlgSlctDir, CancelGivesNothingAndStoresNothing)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    dialog.m_strInitDir = m_folder.Path().c_str();
    dialog.m_strPath = "before";
    EXPECT_EQ(Browse(dialog, Cancel), 0);
    EXPECT_THAT(dialog.m_strPath, StrEq("before"));
    EXPECT_EQ(Stored(), "(nothing)");
}

TEST_F(DlgSlctDir, AGivenFolderIsStartedInAndTheStoredOneIsntRead)
{
    std::string const given = m_folder.MakeFolder("given");
    AfxGetApp()->WriteProfileString(kSection, kKey, m_folder.MakeFolder("stored").c_str());
    // Seen at the call: the style doesn't take on the browser of every system.
    const ImportHook place("TavKit.dll", "user32.dll", "SetWindowPos", reinterpret_cast<void*>(&Selections::Place));
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    dialog.m_strInitDir = given.c_str();
    EXPECT_EQ(Browse(dialog,
                     [](HWND browser) {
                         EXPECT_EQ(SelectedLabel(browser), "given");
                         EXPECT_EQ(Selections::topmost, browser);
                         Cancel(browser);
                     }),
              0);
    EXPECT_THAT(std::string(dialog.m_strInitDir), StrEq(given));
}

TEST_F(DlgSlctDir, AFolderThatNobodyHasLookedIntoForLongIsStartedInToo)
{
    std::string const outer = m_folder.MakeFolder("outer");
    std::string const inner = m_folder.MakeFolder("outer\\a long name inside");
    for (std::string const& folder : {Bare(m_folder.Path()), outer, inner})
    {
        HANDLE const handle = ::CreateFileA(folder.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                            nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        ASSERT_NE(handle, INVALID_HANDLE_VALUE);
        SYSTEMTIME const longAgo{2020, 1, 3, 1, 0, 0, 0, 0};
        FILETIME time;
        ::SystemTimeToFileTime(&longAgo, &time);
        EXPECT_TRUE(::SetFileTime(handle, nullptr, &time, nullptr));
        ::CloseHandle(handle);
    }
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = inner.c_str();
    EXPECT_EQ(Browse(dialog,
                     [](HWND browser) {
                         EXPECT_EQ(SelectedLabel(browser), "a long name inside");
                         Accept(browser);
                     }),
              1);
    EXPECT_THAT(std::string(dialog.m_strPath), StrCaseEq(inner));
    ::RemoveDirectoryA(inner.c_str());
}

TEST_F(DlgSlctDir, TheStoredFolderComesBeforeTheHistory)
{
    std::string const stored = m_folder.MakeFolder("stored");
    AfxGetApp()->WriteProfileString(kSection, kKey, stored.c_str());
    DfltFldrs::Instance()->SaveDirHist(kKey, m_folder.MakeFolder("history").c_str());
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    Browse(dialog, [](HWND browser) {
        EXPECT_EQ(SelectedLabel(browser), "stored");
        Cancel(browser);
    });
    EXPECT_THAT(std::string(dialog.m_strInitDir), StrEq(stored));
}

TEST_F(DlgSlctDir, TheNewestFolderOfTheHistoryIsStartedInWhenNoneIsStored)
{
    DfltFldrs::Instance()->SaveDirHist(kKey, m_folder.MakeFolder("older").c_str());
    DfltFldrs::Instance()->SaveDirHist(kKey, m_folder.MakeFolder("newest").c_str());
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    Browse(dialog, [](HWND browser) {
        EXPECT_EQ(SelectedLabel(browser), "newest");
        Cancel(browser);
    });
}

TEST_F(DlgSlctDir, ADefaultFolderOfTheCategoryIsStartedInWithoutAHistory)
{
    DfltFldrs::Instance()->SetDfltFldrs(kKey, m_folder.MakeFolder("default").c_str());
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    Browse(dialog, [](HWND browser) {
        EXPECT_EQ(SelectedLabel(browser), "default");
        Cancel(browser);
    });
}

TEST_F(DlgSlctDir, WithNothingRememberedTheBrowserStartsWhereItLikes)
{
    const ImportHook send("TavKit.dll", "user32.dll", "SendMessageA", reinterpret_cast<void*>(&Selections::Send));
    const ImportHook place("TavKit.dll", "user32.dll", "SetWindowPos", reinterpret_cast<void*>(&Selections::Place));
    for (char const* const key : {"", kKey})
    {
        CDlgSlctDir dialog(m_frame);
        dialog.m_strKey = key;
        EXPECT_EQ(Browse(dialog,
                         [](HWND browser) {
                             EXPECT_EQ(Selections::topmost, nullptr);
                             Cancel(browser);
                         }),
                  0);
        EXPECT_THAT(dialog.m_strInitDir, StrEq(""));
        EXPECT_EQ(Selections::count, 0);
    }
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.Path().c_str();
    Browse(dialog, Cancel);
    EXPECT_EQ(Selections::count, 1) << "the count counts";
}

TEST_F(DlgSlctDir, AVanishedFolderToStartInLeavesTheBrowserWhereItLikes)
{
    for (std::string const& gone : {m_folder.Path("gone"), m_folder.Path(std::string(400, 'x')), std::string("<>|")})
    {
        CDlgSlctDir dialog(m_frame);
        dialog.m_strInitDir = gone.c_str();
        EXPECT_EQ(Browse(dialog, Cancel), 0) << gone;
        EXPECT_THAT(std::string(dialog.m_strInitDir), StrEq(gone));
    }
}

TEST_F(DlgSlctDir, OkIsForFoldersThatHoldAWantedFile)
{
    std::string const with = m_folder.MakeFolder("with");
    std::string const without = m_folder.MakeFolder("without");
    std::string const file = with + "\\actions.alx";
    TempFolder const& folder = m_folder;
    folder.Write("with\\actions.alx", "x");
    CDlgSlctDir dialog(m_frame);
    dialog.m_strFilePttr = "*.alx";
    dialog.m_strInitDir = without.c_str();
    EXPECT_EQ(Browse(dialog,
                     [&](HWND browser) {
                         EXPECT_TRUE(support::PumpUntil([browser] { return !IsOkEnabled(browser); }));
                         SelectPath(browser, with);
                         EXPECT_TRUE(support::PumpUntil([browser] { return IsOkEnabled(browser); }));
                         SelectPath(browser, without);
                         EXPECT_TRUE(support::PumpUntil([browser] { return !IsOkEnabled(browser); }));
                         SelectPath(browser, with);
                         Accept(browser);
                     }),
              1);
    EXPECT_THAT(std::string(dialog.m_strPath), StrCaseEq(with));
    ::DeleteFileA(file.c_str());
}

TEST_F(DlgSlctDir, TheRootOfADriveIsLookedIntoWithOneSeparator)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strFilePttr = "windows";
    dialog.m_strInitDir = m_folder.Path().c_str();
    Browse(dialog, [&](HWND browser) {
        EXPECT_TRUE(support::PumpUntil([browser] { return !IsOkEnabled(browser); }));
        SelectPath(browser, "C:\\");
        EXPECT_TRUE(support::PumpUntil([browser] { return IsOkEnabled(browser); }));
        Cancel(browser);
    });
}

TEST_F(DlgSlctDir, WithoutAPatternOkIsLeftAlone)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.Path().c_str();
    std::string const other = m_folder.MakeFolder("other");
    Browse(dialog, [&](HWND browser) {
        ::SendMessageA(browser, BFFM_ENABLEOK, 0, FALSE);
        SelectPath(browser, other);
        ::SendMessageA(browser, BFFM_ENABLEOK, 0, TRUE);
        EXPECT_TRUE(support::PumpUntil([browser] { return IsOkEnabled(browser); }));
        Cancel(browser);
    });
}

TEST_F(DlgSlctDir, TheNewFolderButtonCanBeLeftOut)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.Path().c_str();
    dialog.m_bNewFolder = 0;
    Browse(dialog, [&](HWND browser) {
        HWND const button = FindControl(browser, kNewFolder);
        EXPECT_TRUE(!button || !::IsWindowVisible(button));
        Cancel(browser);
    });
}

TEST_F(DlgSlctDir, TheBrowserIsAskedForWithTheseFlags)
{
    const ImportHook hook("TavKit.dll", "shell32.dll", "SHBrowseForFolderA",
                          reinterpret_cast<void*>(&Selections::Browse));
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.Path().c_str();
    Browse(dialog, Cancel);
    EXPECT_EQ(Selections::info.ulFlags, 0x59U);
    EXPECT_EQ(Selections::info.iImage, -1);
    EXPECT_EQ(Selections::info.pidlRoot, nullptr);
    EXPECT_EQ(Selections::info.hwndOwner, m_frame.m_hWnd);
    EXPECT_NE(dialog.m_nImage, Selections::kImage) << "nothing was chosen";
    dialog.m_bNewFolder = 0;
    Browse(dialog, Accept);
    EXPECT_EQ(Selections::info.ulFlags, 0x259U);
    EXPECT_EQ(dialog.m_nImage, Selections::kImage);
}

TEST_F(DlgSlctDir, WithoutTheShellsAllocatorNothingIsReadAndNoBrowserComes)
{
    AfxGetApp()->WriteProfileString(kSection, kKey, m_folder.Path().c_str());
    const ImportHook hook("TavKit.dll", "shell32.dll", "SHGetMalloc",
                          reinterpret_cast<void*>(&Selections::NoAllocator));
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    EXPECT_EQ(dialog.DoBrowse(), 0);
    EXPECT_THAT(dialog.m_strInitDir, StrEq(""));
}

TEST_F(DlgSlctDir, AnAnswerThatIsNoFolderIsNoneAndNothingIsStored)
{
    const ImportHook hook("TavKit.dll", "shell32.dll", "SHGetPathFromIDListA",
                          reinterpret_cast<void*>(&Selections::NoPath));
    CDlgSlctDir dialog(m_frame);
    dialog.m_strKey = kKey;
    dialog.m_strInitDir = m_folder.Path().c_str();
    dialog.m_strPath = "before";
    EXPECT_EQ(Browse(dialog, Accept), 0);
    EXPECT_THAT(dialog.m_strPath, StrEq("before"));
    EXPECT_THAT(Stored(), StrEq("(nothing)"));
}

TEST_F(DlgSlctDir, AnItemThatIsNoFolderLeavesOkAsItIs)
{
    const ImportHook hook("TavKit.dll", "shell32.dll", "SHGetPathFromIDListA",
                          reinterpret_cast<void*>(&Selections::NoPath));
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.Path().c_str();
    dialog.m_strFilePttr = "*.alx"; // there is none
    Browse(dialog, [&](HWND browser) {
        support::Settle();
        EXPECT_TRUE(IsOkEnabled(browser));
        Cancel(browser);
    });
}

TEST_F(DlgSlctDir, ASecondBrowserBringsTheFirstToTheTopInstead)
{
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = m_folder.Path().c_str();
    CDlgSlctDir second(m_frame);
    second.m_strKey = kKey;
    AfxGetApp()->WriteProfileString(kSection, kKey, m_folder.Path().c_str());
    EXPECT_EQ(Browse(dialog,
                     [&](HWND browser) {
                         support::TestFrame above;
                         above.BringWindowToTop();
                         EXPECT_TRUE(IsAbove(above, browser));
                         EXPECT_EQ(second.DoBrowse(), 0);
                         EXPECT_TRUE(IsAbove(browser, above));
                         EXPECT_THAT(second.m_strInitDir, StrEq("")) << "nothing is read for it";
                         EXPECT_EQ(folderbrowser::Current(), browser);
                         Accept(browser);
                     }),
              1);
    EXPECT_EQ(Browse(second, Cancel), 0) << "a browser comes again once the first is gone";
}

TEST_F(DlgSlctDir, BesideABrowserThatStartedNowhereAnotherOneComes)
{
    CDlgSlctDir dialog(m_frame);
    CDlgSlctDir second(nullptr);
    second.m_strInitDir = m_folder.Path().c_str();
    int inner = -1;
    EXPECT_EQ(Browse(dialog,
                     [&](HWND first) {
                         const ModalHelper helper(
                             [first] {
                                 HWND const other = folderbrowser::Current();
                                 return other != first ? other : nullptr;
                             },
                             Accept);
                         inner = second.DoBrowse();
                         EXPECT_TRUE(helper.Done());
                         Cancel(first);
                     }),
              0);
    EXPECT_EQ(inner, 1);
    AllowGdiGrowth("the shell keeps more images when two browsers are up at a time");
}

TEST_F(DlgSlctDir, AnOwnerThatIsDestroyedEndsTheBrowser)
{
    auto* const owner = new support::TestFrame;
    CDlgSlctDir dialog(*owner);
    dialog.m_strInitDir = m_folder.Path().c_str();
    dialog.m_strKey = kKey;
    EXPECT_EQ(Browse(dialog, [&](HWND) { delete owner; }), 0);
    EXPECT_EQ(Stored(), "(nothing)");
    CDlgSlctDir next(m_frame);
    next.m_strInitDir = m_folder.Path().c_str();
    EXPECT_EQ(Browse(next, Accept), 1) << "the browser that went is forgotten";
}

TEST_F(DlgSlctDir, APathOfTheGreatestLengthComesBackWhole)
{
    // A name of at most 255 characters at the end, so that 259 come together.
    std::string const base = Bare(m_folder.Path());
    std::string const longest = base + '\\' + std::string(MAX_PATH - 1 - base.size() - 1, 'n');
    ASSERT_TRUE(::CreateDirectoryW((L"\\\\?\\" + std::wstring(longest.begin(), longest.end())).c_str(), nullptr));
    CDlgSlctDir dialog(m_frame);
    dialog.m_strInitDir = longest.c_str();
    dialog.m_strKey = kKey;
    EXPECT_EQ(Browse(dialog, Accept), 1);
    EXPECT_EQ(dialog.m_strPath.GetLength(), MAX_PATH - 1);
    EXPECT_THAT(std::string(dialog.m_strPath), StrCaseEq(longest));
    EXPECT_EQ(Stored(), dialog.m_strPath);
}

} // namespace
