// MenuTest.cpp - a frame's menu under the mouse: commands, the explaining text, states

#include "support/WindowTest.h"

#include <atomic>

using testing::Contains;
using testing::ElementsAre;

namespace
{
constexpr UINT kRun = 40001;
constexpr UINT kOff = 40002;
constexpr UINT kLink = 40003;

/// Notes the texts that the frame shows in its status bar.
class StatusBar : public CWnd
{
public:
    std::vector<std::string> m_texts;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == SB_SETTEXTA)
        {
            m_texts.emplace_back(reinterpret_cast<const char*>(lParam));
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class MenuFrame : public CFrameWnd
{
public:
    int m_runs = 0;
    int m_offs = 0;

    void GetMessageString(UINT id, CString& text) const override
    {
        if (id == kRun)
        {
            text = "Runs";
        }
        else if (id == kOff)
        {
            text = "Never runs";
        }
        else
        {
            CFrameWnd::GetMessageString(id, text);
        }
    }

protected:
    void OnRun() { ++m_runs; }
    void OnOff() { ++m_offs; }
    void OnUpdateOff(CCmdUI* ui) { ui->Enable(FALSE); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(MenuFrame, CFrameWnd)
    ON_COMMAND(kRun, &MenuFrame::OnRun)
    ON_COMMAND(kOff, &MenuFrame::OnOff)
    ON_UPDATE_COMMAND_UI(kOff, &MenuFrame::OnUpdateOff)
END_MESSAGE_MAP()

/// The middle of a menu item in screen pixels.
POINT MiddleOfItem(HWND frame, HMENU menu, UINT index)
{
    RECT rect = {};
    ::GetMenuItemRect(frame, menu, index, &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool PopupShows()
{
    const HWND popup = ::FindWindowA("#32768", nullptr);
    return popup != nullptr && ::IsWindowVisible(popup);
}

class FrameMenu : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = new MenuFrame;
        ASSERT_TRUE(m_frame->Create(nullptr, "menu test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(50, 50, 450, 350)));
        CMenu bar;
        ASSERT_TRUE(bar.CreateMenu());
        m_popup = ::CreatePopupMenu();
        ::AppendMenuA(m_popup, MF_STRING, kRun, "Run");
        ::AppendMenuA(m_popup, MF_STRING, kOff, "Off");
        bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(m_popup), "File");
        m_bar = bar.m_hMenu;
        ASSERT_TRUE(m_frame->SetMenu(&bar));
        bar.Detach(); // the window destroys it
        ASSERT_TRUE(m_status.Create(STATUSCLASSNAMEA, "", WS_VISIBLE, CRect(0, 0, 0, 0), m_frame, AFX_IDW_STATUS_BAR));
        ::SetForegroundWindow(m_frame->m_hWnd);
        support::Settle();
    }
    void TearDown() override
    {
        m_frame->DestroyWindow();
        AllowGdiGrowth("the first menu and the frame's icon stay for the life of the process");
        WindowTest::TearDown();
    }
    /// Opens the pop-up by a click, rests on an item until its text shows, and clicks it.
    void Choose(UINT index, const std::string& text)
    {
        const HWND frame = m_frame->m_hWnd;
        std::atomic<bool> opened = false;
        std::atomic<bool> explained = false;
        {
            const support::InputThread input({
                [&] { support::Click(MiddleOfItem(frame, m_bar, 0)); },
                [&] { opened = support::WaitFor(PopupShows); },
                [&] { support::MoveMouse(MiddleOfItem(frame, m_popup, index)); },
                [&] {
                    explained = support::WaitFor([&] {
                        const auto state = ::GetMenuState(m_popup, index, MF_BYPOSITION);
                        return (state & MF_HILITE) != 0;
                    });
                },
                [&] { support::Click(MiddleOfItem(frame, m_popup, index)); },
                [&] {
                    // A click on a greyed item leaves the menu open.
                    support::PressKey(VK_ESCAPE);
                    support::PressKey(VK_ESCAPE);
                },
            });
            EXPECT_TRUE(support::PumpUntil([&] { return opened && explained && !PopupShows(); }));
        }
        support::Settle();
        EXPECT_THAT(m_status.m_texts, Contains(text));
        EXPECT_EQ(m_status.m_texts.back(), "") << "a closed menu explains nothing";
    }

    MenuFrame* m_frame = nullptr;
    HMENU m_bar = nullptr;
    HMENU m_popup = nullptr;
    StatusBar m_status;
};
} // namespace

TEST_F(FrameMenu, AClickedItemRunsItsCommandAfterTheStatusBarExplainedIt)
{
    Choose(0, "Runs");
    EXPECT_EQ(m_frame->m_runs, 1);
    EXPECT_EQ(m_frame->m_offs, 0);
}

TEST_F(FrameMenu, AnItemThatIsGreyedAsTheMenuOpensIsExplainedButDoesNotRun)
{
    Choose(1, "Never runs");
    EXPECT_NE(::GetMenuState(m_popup, kOff, MF_BYCOMMAND) & MF_GRAYED, 0u);
    EXPECT_EQ(m_frame->m_offs, 0);
}

TEST_F(FrameMenu, SeparatorsPopUpsAndTheSystemMenuHaveNoText)
{
    m_frame->SetMessageText("old");
    m_frame->SendMessage(WM_MENUSELECT, MAKEWPARAM(kRun, MF_SYSMENU), 0);
    m_frame->SendMessage(WM_MENUSELECT, MAKEWPARAM(0, MF_POPUP | MF_HILITE), reinterpret_cast<LPARAM>(m_bar));
    m_frame->SendMessage(WM_MENUSELECT, MAKEWPARAM(0, MF_SEPARATOR), reinterpret_cast<LPARAM>(m_popup));
    m_frame->SendMessage(WM_MENUSELECT, MAKEWPARAM(kRun, MF_HILITE), reinterpret_cast<LPARAM>(m_popup));
    m_frame->SendMessage(WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
    EXPECT_THAT(m_status.m_texts, ElementsAre("old", "", "", "", "Runs", ""));
}

TEST_F(FrameMenu, AnUpdateWritesTheTextOfAControlOnlyWhenItDiffers)
{
    class Label : public CStatic
    {
    public:
        int m_written = 0;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            m_written += message == WM_SETTEXT ? 1 : 0;
            return CStatic::WindowProc(message, wParam, lParam);
        }
    } label;
    ASSERT_TRUE(label.Create("one", WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), m_frame, kLink));
    CCmdUI ui;
    ui.m_nID = kLink;
    ui.m_pOther = &label;
    ui.SetText("one");
    EXPECT_EQ(label.m_written, 0);
    ui.SetText("two");
    EXPECT_EQ(label.m_written, 1);
    ui.SetText(nullptr);
    EXPECT_EQ(label.m_written, 1);
}
