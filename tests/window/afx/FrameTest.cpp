// FrameTest.cpp - frames: layout, routing, menus and accelerators, idle work, wait cursor

#include "DialogTemplate.h"
#include "support/WindowTest.h"

#include <afxpriv.h>

using testing::ElementsAre;

namespace
{
constexpr UINT kRun = 40001;
constexpr UINT kOff = 40002;
constexpr UINT kOrphan = 40003;
constexpr UINT kRangeFirst = 40010;
constexpr UINT kRangeLast = 40012;
constexpr UINT kSmall = 300; // below the range of commands

class Frame : public CFrameWnd
{
public:
    std::vector<std::string> m_calls;
    bool m_enableOff = false;
    int m_layouts = 0;
    bool* m_gone = nullptr;

    ~Frame() override
    {
        if (m_gone != nullptr)
        {
            *m_gone = true;
        }
    }
    void RecalcLayout(BOOL notify = TRUE) override
    {
        ++m_layouts;
        CFrameWnd::RecalcLayout(notify);
    }

    void UseAccelerators(HACCEL table) { m_hAccelTable = table; }

protected:
    void OnRun() { m_calls.emplace_back("run"); }
    void OnOff() { m_calls.emplace_back("off"); }
    void OnUpdateOff(CCmdUI* ui) { ui->Enable(m_enableOff); }
    void OnUpdateRun(CCmdUI* ui)
    {
        ui->SetCheck(1);
        ui->SetText("Running");
    }
    void OnRange(UINT id) { m_calls.push_back("range " + std::to_string(id)); }
    void OnSmall() { m_calls.emplace_back("small"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Frame, CFrameWnd)
    ON_COMMAND(kRun, &Frame::OnRun)
    ON_COMMAND(kOff, &Frame::OnOff)
    ON_UPDATE_COMMAND_UI(kOff, &Frame::OnUpdateOff)
    ON_UPDATE_COMMAND_UI(kRun, &Frame::OnUpdateRun)
    ON_COMMAND_RANGE(kRangeFirst, kRangeLast, &Frame::OnRange)
    ON_COMMAND(kSmall, &Frame::OnSmall)
END_MESSAGE_MAP()

class FrameTest : public support::WindowTest
{
protected:
    /// The first frame loads its icon, the first wait the hourglass, for the life of the process.
    static void SetUpTestSuite()
    {
        auto* const warm = new Frame;
        ASSERT_TRUE(warm->Create(nullptr, "warm", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(50, 50, 250, 150)));
        {
            const CWaitCursor wait;
            support::Settle();
        }
        warm->DestroyWindow();
    }
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = new Frame;
        m_frame->m_gone = &m_gone;
        ASSERT_TRUE(m_frame->Create(nullptr, "frame test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(50, 50, 450, 350)));
    }
    void TearDown() override
    {
        if (!m_gone)
        {
            m_frame->DestroyWindow();
        }
        WindowTest::TearDown();
    }
    Frame* m_frame = nullptr;
    bool m_gone = false;
};

class ChildDialog : public CDialog
{
};
} // namespace

TEST_F(FrameTest, TheObjectGoesWithItsWindow)
{
    EXPECT_TRUE(m_frame->DestroyWindow());
    EXPECT_TRUE(m_gone);
}

TEST_F(FrameTest, ClosingDestroysIt)
{
    m_frame->SendMessage(WM_CLOSE);
    EXPECT_TRUE(m_gone);
}

TEST_F(FrameTest, AMissingMenuMakesNoWindow)
{
    bool gone = false;
    auto* const frame = new Frame;
    frame->m_gone = &gone;
    EXPECT_FALSE(frame->Create(nullptr, "", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr, "NO_SUCH_MENU"));
    EXPECT_TRUE(gone);
}

TEST_F(FrameTest, ThePaneFillsWhatTheStatusBarLeaves)
{
    CWnd pane;
    CWnd bar;
    ASSERT_TRUE(pane.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 1, 1), m_frame, AFX_IDW_PANE_FIRST));
    ASSERT_TRUE(bar.Create(STATUSCLASSNAMEA, "", WS_VISIBLE, CRect(0, 0, 0, 0), m_frame, AFX_IDW_STATUS_BAR));
    m_frame->MoveWindow(50, 50, 500, 300);
    CRect client;
    CRect paneRect;
    CRect barRect;
    m_frame->GetClientRect(&client);
    pane.GetWindowRect(&paneRect);
    bar.GetWindowRect(&barRect);
    m_frame->ScreenToClient(&paneRect);
    EXPECT_GT(barRect.Height(), 0);
    EXPECT_EQ(paneRect, CRect(0, 0, client.right, client.bottom - barRect.Height()));
    m_frame->SetMessageText("hello");
    char text[32] = "";
    bar.SendMessage(SB_GETTEXTA, 0, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, "hello");
}

TEST_F(FrameTest, ALayoutPutOffIsDoneAtIdleOnce)
{
    const int before = m_frame->m_layouts;
    m_frame->DelayRecalcLayout();
    EXPECT_EQ(m_frame->m_layouts, before);
    AfxGetThread()->OnIdle(0);
    EXPECT_EQ(m_frame->m_layouts, before + 1);
    AfxGetThread()->OnIdle(0);
    EXPECT_EQ(m_frame->m_layouts, before + 1);
}

TEST_F(FrameTest, ACommandReachesItsHandlerAndARangeItsOwn)
{
    m_frame->SendMessage(WM_COMMAND, kRun);
    m_frame->SendMessage(WM_COMMAND, kRangeLast);
    m_frame->SendMessage(WM_COMMAND, kRangeLast + 1);
    EXPECT_THAT(m_frame->m_calls, ElementsAre("run", "range 40012"));
}

TEST_F(FrameTest, ACommandThatIsDisabledDoesNotRun)
{
    m_frame->SendMessage(WM_COMMAND, kOff);
    EXPECT_TRUE(m_frame->m_calls.empty());
    m_frame->m_enableOff = true;
    m_frame->SendMessage(WM_COMMAND, kOff);
    EXPECT_THAT(m_frame->m_calls, ElementsAre("off"));
}

TEST_F(FrameTest, AMenuShowsTheStateOfItsCommandsWhenItOpens)
{
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, kRun, "Run");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, kOff, "Off");
    menu.AppendMenu(MF_STRING, kOrphan, "Orphan");
    m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.m_hMenu), MAKELPARAM(0, FALSE));
    EXPECT_NE(menu.GetMenuState(kRun, MF_BYCOMMAND) & MF_CHECKED, 0u);
    EXPECT_EQ(menu.GetMenuState(kRun, MF_BYCOMMAND) & MF_GRAYED, 0u);
    CString text;
    menu.GetMenuString(kRun, text, MF_BYCOMMAND);
    EXPECT_STREQ(text, "Running");
    EXPECT_NE(menu.GetMenuState(kOff, MF_BYCOMMAND) & MF_GRAYED, 0u);
    EXPECT_NE(menu.GetMenuState(kOrphan, MF_BYCOMMAND) & MF_GRAYED, 0u);
}

TEST_F(FrameTest, WithoutAutomaticGreyingAnOrphanStaysEnabled)
{
    m_frame->m_bAutoMenuEnable = FALSE;
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, kOrphan, "Orphan");
    m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.m_hMenu), MAKELPARAM(0, FALSE));
    EXPECT_EQ(menu.GetMenuState(kOrphan, MF_BYCOMMAND) & MF_GRAYED, 0u);
}

TEST_F(FrameTest, AHandlerCanBeAskedForWithoutBeingCalled)
{
    AFX_CMDHANDLERINFO info;
    EXPECT_TRUE(m_frame->OnCmdMsg(kRun, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(info.pTarget, m_frame);
    EXPECT_NE(info.pmf, nullptr);
    EXPECT_FALSE(m_frame->OnCmdMsg(kOrphan, CN_COMMAND, nullptr, &info));
    EXPECT_TRUE(m_frame->m_calls.empty());
}

TEST_F(FrameTest, ADialogPassesCommandsItDoesNotKnowToItsParent)
{
    DialogTemplate made("child", WS_CHILD);
    ChildDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(made.Get(), m_frame));
    dialog.SendMessage(WM_COMMAND, kRun);
    dialog.SendMessage(WM_COMMAND, kSmall);
    EXPECT_THAT(m_frame->m_calls, ElementsAre("run", "small"));
}

TEST_F(FrameTest, ADialogKeepsNotificationsOfControlsWithCommandIds)
{
    DialogTemplate made("child", WS_CHILD);
    made.Item("BUTTON", "x", static_cast<WORD>(kRun), 0, 0, 0);
    ChildDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(made.Get(), m_frame));
    const LPARAM button = reinterpret_cast<LPARAM>(::GetDlgItem(dialog.m_hWnd, static_cast<int>(kRun)));
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(kRun, BN_SETFOCUS), button);
    EXPECT_TRUE(m_frame->m_calls.empty());
}

TEST_F(FrameTest, TheNearestFrameAboveAWindowIsFound)
{
    CWnd pane;
    CWnd inner;
    ASSERT_TRUE(pane.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame, AFX_IDW_PANE_FIRST));
    ASSERT_TRUE(inner.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 20, 20), &pane, 3));
    EXPECT_EQ(inner.GetParentFrame(), m_frame);
    EXPECT_EQ(inner.GetTopLevelParent(), m_frame);
    EXPECT_EQ(inner.GetTopLevelFrame(), m_frame);
    EXPECT_EQ(m_frame->GetParentFrame(), nullptr);
    EXPECT_EQ(m_frame->GetDescendantWindow(3, TRUE), &inner);
    EXPECT_EQ(m_frame->GetDescendantWindow(4, TRUE), nullptr);
}

TEST_F(FrameTest, PreTranslationWalksFromTheWindowUpToTheMainWindowAndStopsAtTheFirstTaker)
{
    class Step : public CWnd
    {
    public:
        std::vector<int>* m_order = nullptr;
        int m_number = 0;
        BOOL m_take = FALSE;
        BOOL PreTranslateMessage(MSG*) override
        {
            m_order->push_back(m_number);
            return m_take;
        }
    };
    std::vector<int> order;
    Step outer;
    Step inner;
    outer.m_order = inner.m_order = &order;
    outer.m_number = 1;
    inner.m_number = 2;
    ASSERT_TRUE(outer.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame, 1));
    ASSERT_TRUE(inner.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 20, 20), &outer, 2));
    MSG msg = {};
    msg.hwnd = inner.m_hWnd;
    msg.message = WM_KEYDOWN;
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(m_frame->m_hWnd, &msg));
    EXPECT_THAT(order, ElementsAre(2, 1));
    order.clear();
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(inner.m_hWnd, &msg));
    EXPECT_THAT(order, ElementsAre(2));
    order.clear();
    inner.m_take = TRUE;
    EXPECT_TRUE(CWnd::WalkPreTranslateTree(m_frame->m_hWnd, &msg));
    EXPECT_THAT(order, ElementsAre(2));
}

TEST_F(FrameTest, IdleUpdatesReachTheMainWindowAndThoseBelowIt)
{
    class Bar : public CWnd
    {
    public:
        int m_updates = 0;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            m_updates += message == WM_IDLEUPDATECMDUI && wParam == TRUE ? 1 : 0;
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } bar;
    ASSERT_TRUE(bar.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame, 1));
    CWinThread* const thread = AfxGetThread();
    thread->m_pMainWnd = m_frame;
    EXPECT_TRUE(thread->OnIdle(0));
    EXPECT_EQ(bar.m_updates, 1);
    EXPECT_FALSE(thread->OnIdle(1));
    EXPECT_EQ(bar.m_updates, 1);
    thread->m_pMainWnd = nullptr;
}

TEST_F(FrameTest, PaintAndMovesToTheSamePlaceLeadToNoIdleWork)
{
    CWinThread* const thread = AfxGetThread();
    MSG msg = {};
    msg.message = WM_PAINT;
    EXPECT_FALSE(thread->IsIdleMessage(&msg));
    msg.message = WM_MOUSEMOVE;
    msg.pt = {1, 2};
    EXPECT_TRUE(thread->IsIdleMessage(&msg));
    EXPECT_FALSE(thread->IsIdleMessage(&msg));
    msg.pt = {1, 3};
    EXPECT_TRUE(thread->IsIdleMessage(&msg));
    msg.message = WM_KEYDOWN;
    EXPECT_TRUE(thread->IsIdleMessage(&msg));
}

TEST_F(FrameTest, TheHourglassIsCountedAndTheFormerCursorComesBack)
{
    const HCURSOR arrow = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    const HCURSOR hourglass = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32514));
    ::SetCursor(arrow);
    {
        CWaitCursor outer;
        EXPECT_EQ(::GetCursor(), hourglass);
        {
            CWaitCursor inner;
            ::SetCursor(arrow);
            inner.Restore();
            EXPECT_EQ(::GetCursor(), hourglass);
        }
        EXPECT_EQ(::GetCursor(), hourglass);
    }
    EXPECT_EQ(::GetCursor(), arrow);
    m_frame->EndWaitCursor(); // one too many
    m_frame->BeginWaitCursor();
    EXPECT_EQ(::GetCursor(), hourglass);
    m_frame->EndWaitCursor();
    EXPECT_EQ(::GetCursor(), arrow);
}

TEST_F(FrameTest, AnAcceleratorKeySendsItsCommandUnlessItIsDisabled)
{
    ACCEL keys[] = {{FVIRTKEY, VK_F5, static_cast<WORD>(kRun)}, {FVIRTKEY, VK_F6, static_cast<WORD>(kOff)}};
    const HACCEL table = ::CreateAcceleratorTableA(keys, 2);
    m_frame->UseAccelerators(table);
    m_frame->SetFocus();
    support::PressKey(VK_F6);
    support::PressKey(VK_F5);
    EXPECT_TRUE(support::PumpUntil([&] { return !m_frame->m_calls.empty(); }));
    EXPECT_THAT(m_frame->m_calls, ElementsAre("run"));
    m_frame->UseAccelerators(nullptr);
    ::DestroyAcceleratorTable(table);
}

TEST_F(FrameTest, ADisabledControlOfACommandPassesTheFocusOn)
{
    DialogTemplate made("child", WS_CHILD | WS_VISIBLE);
    made.Item("BUTTON", "first", 71, WS_TABSTOP, 0, 0).Item("BUTTON", "second", 72, WS_TABSTOP, 0, 20);
    ChildDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(made.Get(), m_frame));
    CWnd* const first = dialog.GetDlgItem(71);
    first->SetFocus();
    ASSERT_EQ(::GetFocus(), first->m_hWnd);
    CCmdUI ui;
    ui.m_nID = 71;
    ui.m_pOther = first;
    ui.Enable(FALSE);
    EXPECT_FALSE(first->IsWindowEnabled());
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog.m_hWnd, 72));
}
