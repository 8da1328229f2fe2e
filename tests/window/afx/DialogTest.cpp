// DialogTest.cpp - dialogs: creation, the modal run, exchange of values

#include "DialogTemplate.h"
#include "support/WindowTest.h"

#include <afxpriv.h>

#include <algorithm>
#include <stdexcept>

using testing::ElementsAre;

namespace
{
constexpr int kEdit = 101;
constexpr int kLabel = 102;
constexpr int kMissing = 999;

DialogTemplate Plain(DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU)
{
    DialogTemplate made("Plain dialog", style);
    made.Item("EDIT", "", kEdit, WS_BORDER | WS_TABSTOP, 5, 5)
        .Item("STATIC", "label", kLabel, 0, 5, 25)
        .Item("BUTTON", "OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, 5, 50)
        .Item("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, 60, 50);
    return made;
}

class TestDialog : public CDialog
{
public:
    std::function<BOOL(TestDialog&)> m_onInit;
    std::function<void(TestDialog&, CDataExchange*)> m_exchange;
    std::function<BOOL(MSG*)> m_preTranslate;
    std::vector<std::string> m_calls;

    BOOL OnInitDialog() override
    {
        m_calls.emplace_back("init");
        CDialog::OnInitDialog();
        return m_onInit ? m_onInit(*this) : TRUE;
    }
    void OnOK() override
    {
        m_calls.emplace_back("ok");
        CDialog::OnOK();
    }
    void OnCancel() override
    {
        m_calls.emplace_back("cancel");
        CDialog::OnCancel();
    }
    BOOL PreTranslateMessage(MSG* msg) override
    {
        return (m_preTranslate && m_preTranslate(msg)) || CDialog::PreTranslateMessage(msg);
    }

protected:
    void DoDataExchange(CDataExchange* dx) override
    {
        CDialog::DoDataExchange(dx);
        if (m_exchange)
        {
            m_exchange(*this, dx);
        }
    }
    void OnEditChange() { m_calls.emplace_back("edit change"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(TestDialog, CDialog)
    ON_EN_CHANGE(kEdit, &TestDialog::OnEditChange)
END_MESSAGE_MAP()

class Dialog : public support::WindowTest
{
protected:
    DialogTemplate m_plain = Plain();
    std::unique_ptr<support::TestFrame> m_frame;

    /// The first dialog and the first box load fonts, icons and a sound scheme for the life of the process.
    static void SetUpTestSuite()
    {
        const DialogTemplate made = Plain();
        for (int round = 0; round < 2; ++round)
        {
            TestDialog dialog;
            dialog.InitModalIndirect(made.Get());
            support::ModalHelper helper("Plain dialog", [](HWND h) { support::PressButton(h, IDOK); });
            dialog.DoModal();
            support::ModalHelper box(AfxGetApp()->m_pszAppName, [](HWND h) { support::PressButton(h, IDOK); });
            AfxMessageBox("warm");
        }
    }
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
    }
    void TearDown() override
    {
        m_frame.reset();
        WindowTest::TearDown();
    }
    INT_PTR Run(TestDialog& dialog, std::function<void(HWND)> act)
    {
        dialog.InitModalIndirect(m_plain.Get(), m_frame.get());
        support::ModalHelper helper("Plain dialog", std::move(act));
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(helper.Done());
        return result;
    }
};
} // namespace

TEST_F(Dialog, OkEndsWithItsIdAndCancelWithIts)
{
    TestDialog dialog;
    EXPECT_EQ(Run(dialog, [](HWND h) { support::PressButton(h, IDOK); }), IDOK);
    EXPECT_THAT(dialog.m_calls, ElementsAre("init", "ok"));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    TestDialog other;
    EXPECT_EQ(Run(other, [](HWND h) { support::PressButton(h, IDCANCEL); }), IDCANCEL);
    EXPECT_THAT(other.m_calls, ElementsAre("init", "cancel"));
    AllowGdiGrowth("the system's cache of window contexts grows at the first box or dialog of a kind, not again");
}

TEST_F(Dialog, TheSameObjectRunsTwice)
{
    TestDialog dialog;
    EXPECT_EQ(Run(dialog, [](HWND h) { support::PressButton(h, IDOK); }), IDOK);
    EXPECT_EQ(Run(dialog, [](HWND h) { support::PressButton(h, IDCANCEL); }), IDCANCEL);
}

TEST_F(Dialog, TheParentIsDisabledWhileItRunsAndActiveAfterwards)
{
    TestDialog dialog;
    BOOL enabled = TRUE;
    HWND owner = nullptr;
    Run(dialog, [&](HWND h) {
        enabled = m_frame->IsWindowEnabled();
        owner = ::GetWindow(h, GW_OWNER);
        support::PressButton(h, IDOK);
    });
    EXPECT_FALSE(enabled);
    EXPECT_EQ(owner, m_frame->m_hWnd);
    EXPECT_TRUE(m_frame->IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), m_frame->m_hWnd);
}

TEST_F(Dialog, AParentThatWasDisabledStaysSo)
{
    m_frame->EnableWindow(FALSE);
    TestDialog dialog;
    Run(dialog, [](HWND h) { support::PressButton(h, IDOK); });
    EXPECT_FALSE(m_frame->IsWindowEnabled());
}

TEST_F(Dialog, AMissingTemplateGivesMinusOneAndLeavesTheParentEnabled)
{
    TestDialog nameless;
    EXPECT_EQ(nameless.DoModal(), -1);
    CDialog missing("NO_SUCH_TEMPLATE", m_frame.get());
    EXPECT_EQ(missing.DoModal(), -1);
    CDialog missingNumber(64999u, m_frame.get());
    EXPECT_EQ(missingNumber.DoModal(), -1);
    EXPECT_FALSE(nameless.Create("NO_SUCH_TEMPLATE", m_frame.get()));
    EXPECT_FALSE(nameless.CreateIndirect(static_cast<LPCDLGTEMPLATE>(nullptr), m_frame.get()));
    EXPECT_TRUE(m_frame->IsWindowEnabled());
}

TEST_F(Dialog, AnUnknownControlClassGivesMinusOne)
{
    m_plain.Item("NoSuchControlClass", "", 5, 0, 0, 0);
    TestDialog dialog;
    dialog.InitModalIndirect(m_plain.Get(), m_frame.get());
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(m_frame->IsWindowEnabled());
}

TEST_F(Dialog, EndDialogInOnInitDialogKeepsTheLoopFromBeginning)
{
    TestDialog dialog;
    dialog.m_onInit = [](TestDialog& d) {
        d.EndDialog(42);
        return TRUE;
    };
    dialog.InitModalIndirect(m_plain.Get(), m_frame.get());
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Dialog, TheDialogMayTurnUpWithoutTheSystemsFocus)
{
    TestDialog dialog;
    HWND focus = nullptr;
    dialog.m_onInit = [](TestDialog& d) {
        ::SetFocus(::GetDlgItem(d.m_hWnd, IDCANCEL));
        return FALSE;
    };
    Run(dialog, [&](HWND h) {
        focus = ::GetFocus();
        EXPECT_EQ(focus, ::GetDlgItem(h, IDCANCEL));
        support::PressButton(h, IDOK);
    });
}

TEST_F(Dialog, TheLoopEndsWhenTheParentDies)
{
    auto* const parent = new support::TestFrame;
    TestDialog dialog;
    dialog.InitModalIndirect(m_plain.Get(), parent);
    support::ModalHelper helper("Plain dialog", [&](HWND) { parent->DestroyWindow(); });
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    delete parent;
    AllowGdiGrowth("the system's cache of window contexts grows at the first box or dialog of a kind, not again");
}

TEST_F(Dialog, QuitEndsTheLoopAndIsPostedAgainWithItsCode)
{
    TestDialog dialog;
    EXPECT_EQ(Run(dialog, [](HWND) { ::PostQuitMessage(17); }), -1);
    MSG msg = {};
    ASSERT_TRUE(::PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 17u);
    EXPECT_TRUE(m_frame->IsWindowEnabled());
}

TEST_F(Dialog, AnExceptionInOnInitDialogIsReportedAndDoesNotCrossTheSystem)
{
    TestDialog dialog;
    dialog.m_onInit = [](TestDialog& d) -> BOOL {
        d.EndDialog(3);
        throw std::runtime_error("no start");
    };
    dialog.InitModalIndirect(m_plain.Get(), m_frame.get());
    support::ModalHelper box(AfxGetApp()->m_pszAppName, [](HWND h) { support::PressButton(h, IDOK); });
    EXPECT_EQ(dialog.DoModal(), 3);
    EXPECT_TRUE(box.Done());
}

TEST_F(Dialog, KeysReachPreTranslateMessageBeforeTheDialogsNavigation)
{
    TestDialog dialog;
    bool tabSeen = false;
    HWND focusAfterTab = nullptr;
    dialog.m_preTranslate = [&](MSG* msg) -> BOOL {
        if (msg->message == WM_KEYDOWN && msg->wParam == VK_TAB)
        {
            tabSeen = true;
        }
        if (msg->message == WM_KEYUP && msg->wParam == VK_TAB)
        {
            focusAfterTab = ::GetFocus();
            dialog.EndDialog(8);
        }
        return FALSE;
    };
    HWND ok = nullptr;
    EXPECT_EQ(Run(dialog,
                  [&](HWND h) {
                      ok = ::GetDlgItem(h, IDOK);
                      support::PressKey(VK_TAB);
                  }),
              8);
    EXPECT_TRUE(tabSeen);
    EXPECT_EQ(focusAfterTab, ok);
}

TEST_F(Dialog, ReturnPressesTheDefaultButtonAndEscapeCancels)
{
    TestDialog dialog;
    EXPECT_EQ(Run(dialog, [](HWND) { support::PressKey(VK_RETURN); }), IDOK);
    TestDialog other;
    EXPECT_EQ(Run(other, [](HWND) { support::PressKey(VK_ESCAPE); }), IDCANCEL);
}

TEST_F(Dialog, AModelessDialogLivesUntilItIsDestroyed)
{
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    EXPECT_THAT(dialog.m_calls, ElementsAre("init"));
    EXPECT_TRUE(m_frame->IsWindowEnabled());
    EXPECT_TRUE(dialog.DestroyWindow());
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Dialog, ATemplateInAMemoryHandleIsRead)
{
    const HGLOBAL handle = ::GlobalAlloc(GMEM_MOVEABLE, m_plain.Bytes());
    std::memcpy(::GlobalLock(handle), m_plain.Get(), m_plain.Bytes());
    ::GlobalUnlock(handle);
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(handle, m_frame.get()));
    dialog.DestroyWindow();
    ::GlobalFree(handle);
}

TEST_F(Dialog, TextMovesBothWays)
{
    CString value = "from member";
    CString label = "new label";
    TestDialog dialog;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) {
        DDX_Text(dx, kEdit, value);
        DDX_Text(dx, kLabel, label);
    };
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    CString text;
    dialog.GetDlgItemText(kEdit, text);
    EXPECT_STREQ(text, "from member");
    dialog.GetDlgItemText(kLabel, text);
    EXPECT_STREQ(text, "new label");
    dialog.SetDlgItemText(kEdit, "typed");
    EXPECT_TRUE(dialog.UpdateData());
    EXPECT_STREQ(value, "typed");
}

TEST_F(Dialog, AnEqualTextIsNotWrittenAgain)
{
    CString value = "abc";
    TestDialog dialog;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) { DDX_Text(dx, kEdit, value); };
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    dialog.SendDlgItemMessage(kEdit, EM_SETSEL, 1, 2);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(dialog.SendDlgItemMessage(kEdit, EM_GETSEL), MAKELRESULT(1, 2)); // a write would have moved the caret
}

TEST_F(Dialog, NotificationsOfControlsAreIgnoredDuringAnExchange)
{
    CString value = "first";
    TestDialog dialog;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) { DDX_Text(dx, kEdit, value); };
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    dialog.m_calls.clear();
    value = "second";
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_TRUE(dialog.m_calls.empty());
    dialog.SetDlgItemText(kEdit, "third");
    EXPECT_THAT(dialog.m_calls, ElementsAre("edit change"));
}

TEST_F(Dialog, ARefusedValueKeepsTheDialogOpenWithTheControlSelected)
{
    CString value;
    int tries = 0;
    TestDialog dialog;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) {
        DDX_Text(dx, kEdit, value);
        if (dx->m_bSaveAndValidate && ++tries == 1)
        {
            dx->Fail();
        }
    };
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    dialog.ShowWindow(SW_SHOW);
    dialog.SetDlgItemText(kEdit, "wrong");
    ::SetFocus(::GetDlgItem(dialog.m_hWnd, IDOK));
    EXPECT_FALSE(dialog.UpdateData(TRUE));
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog.m_hWnd, kEdit));
    EXPECT_EQ(dialog.SendDlgItemMessage(kEdit, EM_GETSEL), MAKELRESULT(0, 5));
    EXPECT_TRUE(dialog.UpdateData(TRUE));
}

TEST_F(Dialog, AControlObjectIsTiedAtTheFirstExchangeOnly)
{
    CEdit edit;
    TestDialog dialog;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) { DDX_Control(dx, kEdit, edit); };
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    const HWND hWnd = ::GetDlgItem(dialog.m_hWnd, kEdit);
    EXPECT_EQ(edit.m_hWnd, hWnd);
    EXPECT_TRUE(dialog.UpdateData());
    EXPECT_EQ(edit.m_hWnd, hWnd);
    EXPECT_EQ(dialog.GetDlgItem(kEdit), &edit);
}

TEST_F(Dialog, AMissingControlThrowsNotSupported)
{
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    CDataExchange dx(&dialog, FALSE);
    bool thrown = false;
    try
    {
        dx.PrepareCtrl(kMissing);
    }
    catch (CNotSupportedException* e)
    {
        thrown = true;
        e->Delete();
    }
    EXPECT_TRUE(thrown);
}

TEST_F(Dialog, UpdateDataWithoutAWindowIsFalse)
{
    TestDialog dialog;
    EXPECT_FALSE(dialog.UpdateData());
}

TEST_F(Dialog, ValuesThatCantBeLoadedEndTheDialogBeforeItRuns)
{
    TestDialog dialog;
    CString text;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) { DDX_Text(dx, kMissing, text); };
    dialog.InitModalIndirect(m_plain.Get(), m_frame.get());
    const support::ModalHelper box(AfxGetApp()->m_pszAppName, [](HWND h) { support::PressButton(h, IDOK); });
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(box.Done());
    EXPECT_THAT(dialog.m_calls, ElementsAre("init"));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(m_frame->IsWindowEnabled());
    AllowGdiGrowth("the system's cache of window contexts grows at the first box or dialog of a kind, not again");
}

TEST_F(Dialog, ARefusalEndsTheExchangeAndNotificationsCountAgain)
{
    TestDialog dialog;
    bool reachedBehind = false;
    dialog.m_exchange = [&](TestDialog&, CDataExchange* dx) {
        if (dx->m_bSaveAndValidate)
        {
            dx->PrepareEditCtrl(kEdit);
            dx->Fail();
            reachedBehind = true;
        }
    };
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    EXPECT_FALSE(dialog.UpdateData(TRUE));
    EXPECT_FALSE(reachedBehind);
    dialog.m_calls.clear();
    dialog.GetDlgItem(kEdit)->SetWindowText("typed");
    EXPECT_THAT(dialog.m_calls, ElementsAre("edit change"));
}

TEST_F(Dialog, AControlThatHasAnObjectIsNotGivenToAnother)
{
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(m_plain.Get(), m_frame.get()));
    CEdit owner;
    ASSERT_TRUE(owner.SubclassDlgItem(kEdit, &dialog));
    CDataExchange dx(&dialog, FALSE);
    CEdit second;
    bool thrown = false;
    try
    {
        DDX_Control(&dx, kEdit, second);
    }
    catch (CNotSupportedException* e)
    {
        thrown = true;
        e->Delete();
    }
    EXPECT_TRUE(thrown);
    EXPECT_EQ(second.m_hWnd, nullptr);
    EXPECT_EQ(dialog.GetDlgItem(kEdit), &owner);
}

TEST_F(Dialog, AChildAsParentDisablesTheTopLevelWindowAboveIt)
{
    CWnd child;
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame.get(), 1));
    TestDialog dialog;
    dialog.InitModalIndirect(m_plain.Get(), &child);
    bool enabled = true;
    HWND owner = nullptr;
    const support::ModalHelper helper("Plain dialog", [&](HWND h) {
        enabled = m_frame->IsWindowEnabled() != FALSE;
        owner = ::GetWindow(h, GW_OWNER);
        support::PressButton(h, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(helper.Done());
    EXPECT_FALSE(enabled);
    EXPECT_EQ(owner, m_frame->m_hWnd);
    EXPECT_TRUE(m_frame->IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), m_frame->m_hWnd);
}

TEST_F(Dialog, TheLoopAsksForIdleWorkUntilTheDialogHasEnoughAndTellsTheParentOnce)
{
    class IdleDialog : public CDialog
    {
    public:
        std::vector<LPARAM> m_counts;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_KICKIDLE)
            {
                EXPECT_EQ(wParam, static_cast<WPARAM>(MSGF_DIALOGBOX));
                m_counts.push_back(lParam);
                if (lParam < 2)
                {
                    return TRUE;
                }
                EndDialog(IDOK);
                return FALSE;
            }
            return CDialog::WindowProc(message, wParam, lParam);
        }
    } dialog;
    dialog.InitModalIndirect(m_plain.Get(), m_frame.get());
    m_frame->Clear();
    EXPECT_EQ(dialog.DoModal(), IDOK);
    ASSERT_GE(dialog.m_counts.size(), 3u);
    EXPECT_EQ(dialog.m_counts.front(), 0);
    EXPECT_EQ(dialog.m_counts.back(), 2);
    EXPECT_EQ(m_frame->Count(WM_ENTERIDLE), static_cast<int>(std::ranges::count(dialog.m_counts, 0)))
        << "once for each time that the queue ran empty";
}

TEST(MessageBoxIcon, FollowsTheButtonsUnlessTheTypeNamesOne)
{
    const auto iconOf = [](UINT type) {
        HICON icon = nullptr;
        const support::ModalHelper helper(AfxGetApp()->m_pszAppName, [&icon](HWND box) {
            for (HWND child = ::GetWindow(box, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
            {
                const auto shown = reinterpret_cast<HICON>(::SendMessageA(child, STM_GETICON, 0, 0));
                icon = icon != nullptr || !::IsWindowVisible(child) ? icon : shown;
            }
            support::PressButton(box, ::GetDlgItem(box, IDOK) != nullptr      ? IDOK
                                      : ::GetDlgItem(box, IDNO) != nullptr    ? IDNO
                                      : ::GetDlgItem(box, IDABORT) != nullptr ? IDABORT
                                                                              : IDCANCEL);
        });
        AfxMessageBox("text", type);
        return icon;
    };
    const auto system = [](int id) { return ::LoadIconA(nullptr, MAKEINTRESOURCEA(id)); };
    constexpr int kQuestion = 32514;
    constexpr int kExclamation = 32515;
    constexpr int kHand = 32513;
    EXPECT_EQ(iconOf(MB_OK), system(kExclamation));
    EXPECT_EQ(iconOf(MB_OKCANCEL), system(kExclamation));
    EXPECT_EQ(iconOf(MB_YESNO), system(kQuestion));
    EXPECT_EQ(iconOf(MB_RETRYCANCEL), nullptr);
    EXPECT_EQ(iconOf(MB_ABORTRETRYIGNORE), nullptr);
    EXPECT_EQ(iconOf(MB_YESNO | MB_ICONSTOP), system(kHand));
}
