// OpenersActnLibTest.cpp - the question for an action library, over the shell's folder browser
#include "FolderBrowser.h"
#include "ImportHook.h"
#include "OpenerFixture.h"
#include "support/ScriptedDrvr.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace
{

using support::ModalHelper;
using support::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::StrCaseEq;

class ActnLibOpener : public OpenerTest
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
            const ModalHelper helper(folderbrowser::Current, folderbrowser::Cancel);
            dialog.DoBrowse();
        }
    }
    void SetUp() override
    {
        OpenerTest::SetUp();
        m_with = m_folder.MakeFolder("with");
        m_folder.Write("with\\actions.alx", "x");
    }
    void TearDown() override
    {
        ::DeleteFileA((m_with + "\\actions.alx").c_str());
        OpenerTest::TearDown();
    }

    /// Asks, with something done while the browser is up.
    bool Open(FileDlg& dlg, std::function<void(HWND)> const& act) const
    {
        folderbrowser::Steady(m_folder);
        const ModalHelper helper(folderbrowser::Current, act);
        const bool result = dlg.OpenActnLib(0);
        EXPECT_TRUE(helper.Done()) << "the browser never came";
        return result;
    }
    /// Picks the folder with the library.
    std::function<void(HWND)> Pick() const
    {
        return [this](HWND browser) {
            folderbrowser::SelectPath(browser, m_with);
            EXPECT_TRUE(support::PumpUntil([browser] { return folderbrowser::IsOkEnabled(browser); }));
            folderbrowser::Accept(browser);
        };
    }
    static std::string Result(FileDlg const& dlg, int index = 0) { return dlg.GetFile(index)->GetMoniker().c_str(); }

    TempFolder m_folder;
    std::string m_with; ///< folder with a library
};

} // namespace

TEST_F(ActnLibOpener, OnlyLoads)
{
    for (const int mode : {1, 2, -1})
    {
        ScriptedDlg dlg;
        dlg.m_vecFiles.Append(new BDIMoniker("before", nullptr));
        EXPECT_FALSE(dlg.OpenActnLib(mode)) << "and shows nothing: a browser would never end here";
        EXPECT_EQ(dlg.GetNumSlctFiles(), 1);
    }
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(ActnLibOpener, TakesTheLibraryOfTheFolderBehindTheResult)
{
    support::TestFrame frame;
    AfxGetApp()->m_pMainWnd = &frame;
    ScriptedDlg dlg(CString("Mine"));
    dlg.m_vecFiles.Append(new BDIMoniker("before", nullptr));
    std::string title;
    HWND owner = nullptr;
    EXPECT_TRUE(Open(dlg, [&](HWND browser) {
        title = folderbrowser::TextOf(automation::FindControl(browser, folderbrowser::kTitle));
        owner = ::GetWindow(browser, GW_OWNER);
        Pick()(browser);
    }));
    AfxGetApp()->m_pMainWnd = nullptr;
    EXPECT_EQ(title, "Load Action Library...");
    EXPECT_EQ(owner, frame.m_hWnd);
    ASSERT_EQ(dlg.GetNumSlctFiles(), 2) << "the result isn't emptied";
    EXPECT_EQ(Result(dlg), "before");
    EXPECT_THAT(Result(dlg, 1), StrCaseEq(m_with + "\\actions.alx"));
    EXPECT_THAT(dlg.GetFile(1)->GetDrvr(), IsNull());
    EXPECT_THAT(dlg.m_asked, IsEmpty());
    EXPECT_STREQ(dlg.m_strCaption, "Mine");
    ASSERT_EQ(Stored().size(), 1u);
    EXPECT_THAT(Stored()["ActnLibDir"], StrCaseEq(m_with));
}

TEST_F(ActnLibOpener, BeginsInTheStoredFolderAndAcceptsOnlyOneWithALibrary)
{
    const std::string without = m_folder.MakeFolder("without");
    Store("ActnLibDir", without.c_str());
    ScriptedDlg dlg;
    ASSERT_TRUE(Open(dlg, [&](HWND browser) {
        EXPECT_TRUE(support::PumpUntil([browser] { return !folderbrowser::IsOkEnabled(browser); }));
        Pick()(browser);
    }));
    EXPECT_THAT(Result(dlg), StrCaseEq(m_with + "\\actions.alx"));
}

TEST_F(ActnLibOpener, CancelAnswersFalseAndStoresNothing)
{
    ScriptedDlg dlg;
    EXPECT_FALSE(Open(dlg, folderbrowser::Cancel));
    EXPECT_EQ(dlg.GetNumSlctFiles(), 0);
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(ActnLibOpener, ALibraryThatVanishesMeanwhileIsNone)
{
    ScriptedDlg dlg;
    EXPECT_FALSE(Open(dlg, [&](HWND browser) {
        folderbrowser::SelectPath(browser, m_with);
        EXPECT_TRUE(support::PumpUntil([browser] { return folderbrowser::IsOkEnabled(browser); }));
        ::DeleteFileA((m_with + "\\actions.alx").c_str());
        folderbrowser::Accept(browser);
    }));
    EXPECT_EQ(dlg.GetNumSlctFiles(), 0);
}

TEST_F(ActnLibOpener, SeparatorsAtTheEndOfTheFolderAreOne)
{
    struct Shell
    {
        static BOOL WINAPI Path(LPCITEMIDLIST list, LPSTR path)
        {
            const BOOL isFolder = ::SHGetPathFromIDListA(list, path);
            std::strcat(path, isFolder ? "\\/\\" : "");
            return isFolder;
        }
    };
    const ImportHook hook("TavKit.dll", "shell32.dll", "SHGetPathFromIDListA", reinterpret_cast<void*>(&Shell::Path));
    ScriptedDlg dlg;
    ASSERT_TRUE(Open(dlg, Pick()));
    EXPECT_THAT(Result(dlg), StrCaseEq(m_with + "\\actions.alx"));
}

TEST_F(ActnLibOpener, WithAChosenFormatTheLibraryGetsTheDriverOfTheWorkbenchsOwn)
{
    support::ScriptedDrvr driver;
    const support::RegisteredDrvr registered("ALX", nullptr, driver);
    DFileFrmt known("ALX", "Action libraries", "*.alx");
    DFileFrmt unknown("???", "Action libraries", "*.alx");
    DFileFrmt other("OTHER", "Others", "*.oth");
    struct Case
    {
        DFileFrmt* chosen;
        DFileFrmt* own;
        BDIDrvr* driver;
    };
    for (Case const& each :
         {Case{nullptr, nullptr, nullptr}, Case{nullptr, &known, nullptr}, Case{&other, nullptr, nullptr},
          Case{&other, &known, &driver}, Case{&other, &unknown, nullptr}})
    {
        FileDlg::pFrmt_actnlib = each.own;
        ScriptedDlg dlg;
        dlg.PickFormat(each.chosen);
        ASSERT_TRUE(Open(dlg, Pick()));
        EXPECT_EQ(dlg.GetFile(0)->GetDrvr(), each.driver);
        EXPECT_EQ(dlg.Chosen(), each.chosen);
    }
}
