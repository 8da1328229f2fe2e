#include "DialogTemplate.h"

#include "support/WindowTest.h"

#include <bcgcb.h>

namespace
{
using BcgDialogTest = support::WindowTest;

constexpr UINT kMissingTemplate = 31999;
constexpr int kEdit = 70;
constexpr const char* kTitle = "Toolkit dialog";

// Overrides what a user of the toolkit's dialog overrides, and calls the base each time.
class DerivedDialog : public CBCGDialog
{
public:
    using CBCGDialog::CBCGDialog;
    int m_inits = 0;
    int m_commands = 0;
    int m_destroys = 0;
    int m_preTranslated = 0;

    BOOL OnInitDialog() override
    {
        ++m_inits;
        return CBCGDialog::OnInitDialog();
    }
    BOOL DestroyWindow() override
    {
        ++m_destroys;
        return CBCGDialog::DestroyWindow();
    }
    BOOL PreTranslateMessage(MSG* msg) override
    {
        ++m_preTranslated;
        return CBCGDialog::PreTranslateMessage(msg);
    }

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        ++m_commands;
        return CBCGDialog::OnCommand(wParam, lParam);
    }
    void OnDestroy()
    {
        ++m_destroys;
        CBCGDialog::OnDestroy();
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(DerivedDialog, CBCGDialog)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

TEST_F(BcgDialogTest, ItIsADialogOfTheFrameworkWithAClassOfItsOwn)
{
    CBCGDialog dialog;
    EXPECT_TRUE(dialog.IsKindOf(RUNTIME_CLASS(CDialog)));
    EXPECT_STREQ(dialog.GetRuntimeClass()->m_lpszClassName, "CBCGDialog");
}

TEST_F(BcgDialogTest, AMissingTemplateGivesMinusOneByNumberAndByName)
{
    CBCGDialog byNumber(kMissingTemplate);
    CBCGDialog byName("NOSUCHTEMPLATE");
    EXPECT_EQ(byNumber.DoModal(), -1);
    EXPECT_EQ(byName.DoModal(), -1);
}

TEST_F(BcgDialogTest, EveryMemberThatADerivedDialogCallsAsItsBaseWorks)
{
    support::TestFrame frame;
    DialogTemplate made(kTitle);
    made.Item("EDIT", "", kEdit, WS_BORDER | WS_TABSTOP, 5, 5).Item("BUTTON", "OK", IDOK, BS_DEFPUSHBUTTON, 5, 50);
    DerivedDialog dialog;
    ASSERT_TRUE(dialog.InitModalIndirect(made.Get(), &frame));
    support::ModalHelper helper(kTitle, [](HWND window) {
        ::PostMessageA(::GetDlgItem(window, kEdit), WM_CHAR, 'x', 1);
        support::PressButton(window, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(dialog.m_inits, 1);
    EXPECT_GE(dialog.m_commands, 1);
    EXPECT_GT(dialog.m_preTranslated, 0);
    EXPECT_GE(dialog.m_destroys, 2) << "the operation and the message";
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    AllowGdiGrowth("the system's cache of window contexts grows at the first box or dialog of a kind, not again");
}
} // namespace
