// NativeFileDlgPagesTest.cpp - a question for files whose answer has several items: who asks for them, and how
#include "NativeFileDlgFixture.h"

#include "host/repository/StandardDrivers.h"
#include "support/TiffWriter.h"

#include <commctrl.h>

namespace
{

using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using support::SetFileName;
using testing::ElementsAre;

constexpr int kSelectorList = 6004;

/// The dialog that asks for the items, once the one for the files is gone.
HWND FindSelector(char const* title) { return FindFileDialog() ? nullptr : support::FindThreadWindow("#32770", title); }

bool TakesOneItem(HWND selector)
{
    return (::GetWindowLongPtrA(::GetDlgItem(selector, kSelectorList), GWL_STYLE) & LVS_SINGLESEL) != 0;
}

/// A picture of two pages, the host's drivers, and a question for pictures.
class PagesFileDlg : public NativeFileDlg
{
protected:
    void SetUp() override
    {
        support::TiffWriter pages;
        pages.AddPage({});
        pages.AddPage({});
        m_folder.Write("pages.tif", pages.Bytes());
        m_pictures.m_strId = "TIF";
        m_question.SetCaption(kTitle);
        m_question.SetInitFile(m_folder.Path().c_str());
        m_question.AddDscr(&m_pictures, false);
        m_question.m_nNodeType = bdiRaster;
        NativeFileDlg::SetUp();
    }

    bool Choose(int mode, char const* defExt) { return m_question.OpenMFCFileDlg(mode, kFilter, 0, defExt, kKey); }

    /// Picks the file, looks at the dialog for the items and cancels it.
    void LookAtSelector(char const* defExt, support::ModalHelper::Act const& act)
    {
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [](HWND dialog) {
                      SetFileName(dialog, "pages.tif");
                      PressButton(dialog, IDOK);
                  })
            .Then([] { return FindSelector(kTitle); },
                  [&](HWND selector) {
                      act(selector);
                      PressButton(selector, IDCANCEL);
                  })
            .Start();
        EXPECT_FALSE(Choose(FileDlg::kLoad, defExt));
        EXPECT_TRUE(script.Done());
    }

    const repository::StandardDrivers m_drivers;
    NativeQuestion m_question; // gone before the drivers
};

} // namespace

TEST_F(PagesFileDlg, AnAnswerThatComesToNothingIsNotRemembered)
{
    LookAtSelector("*.tif", [](HWND) {});
    EXPECT_EQ(History(), "(nothing)");
    EXPECT_THAT(m_question.Files(), ElementsAre(m_folder.Path("pages.tif"))) << "what was picked stays";
    EXPECT_EQ(m_question.GetFormat(), &m_pictures) << "taken over before the files are looked at";
}

TEST_F(PagesFileDlg, SavingOverAFileOfSeveralItemsAsksForNone)
{
    m_question.ShowOverwritePrompt(false);
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND dialog) {
                  SetFileName(dialog, "pages.tif");
                  PressButton(dialog, IDOK);
              })
        .Start();
    EXPECT_TRUE(Choose(FileDlg::kSave, "*.tif"));
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_question.Files(), ElementsAre(m_folder.Path("pages.tif")));
}

TEST_F(PagesFileDlg, SeveralItemsMayBeSelected)
{
    LookAtSelector("*.tif", [](HWND selector) { EXPECT_FALSE(TakesOneItem(selector)); });
}

TEST_F(PagesFileDlg, OneItemMayBeSelectedForAConnection)
{
    LookAtSelector("*.zrc", [](HWND selector) { EXPECT_TRUE(TakesOneItem(selector)); });
}

TEST_F(PagesFileDlg, ALockedQuestionTakesNothingOffTheItems)
{
    m_question.SetNoChangeDir();
    LookAtSelector("*.tif", [](HWND selector) {
        const HWND list = ::GetDlgItem(selector, kSelectorList);
        const LRESULT rows = ::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
        EXPECT_EQ(rows, 2);
        ::SendMessageA(list, LVM_GETSELECTEDCOUNT, 0, 0);
        EXPECT_EQ(::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0), rows);
    });
}
