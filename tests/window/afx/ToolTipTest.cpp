#include "CountedTest.h"

#include <afxcmn.h>

using support::PumpUntil;
using support::Settle;
using support::TestFrame;

namespace
{
constexpr UINT kId = 45;

class ToolTipTest : public CountedTest
{
protected:
    void SetUp() override
    {
        CountedTest::SetUp();
        m_frame = std::make_unique<TestFrame>();
        m_button = std::make_unique<CButton>();
        ASSERT_TRUE(m_button->Create("tool", WS_CHILD | WS_VISIBLE, CRect(20, 20, 120, 60), m_frame.get(), kId));
        m_tips = std::make_unique<CToolTipCtrl>();
        ASSERT_TRUE(m_tips->Create(m_frame.get(), TTS_ALWAYSTIP));
        Settle();
    }

    void TearDown() override
    {
        m_tips.reset();
        m_button.reset();
        m_frame.reset();
        CountedTest::TearDown();
    }

    // Moves the mouse over the button, with its messages handed to the tips as a PreTranslateMessage would do. Every
    // move starts the tip's delay anew, so the next one comes only when the tip has had time to show.
    bool Hover()
    {
        support::MoveMouse(support::CenterOf(*m_button));
        support::Settle();
        std::chrono::steady_clock::time_point next;
        return PumpUntil([this, &next] {
            if (const auto now = std::chrono::steady_clock::now(); now >= next)
            {
                next = now + std::chrono::milliseconds(500);
                MSG message = {};
                message.hwnd = *m_button;
                message.message = WM_MOUSEMOVE;
                message.lParam = MAKELPARAM(50, 20);
                m_tips->RelayEvent(&message);
            }
            return m_tips->IsWindowVisible() != FALSE;
        });
    }

    std::unique_ptr<TestFrame> m_frame;
    std::unique_ptr<CButton> m_button;
    std::unique_ptr<CToolTipCtrl> m_tips;
};

TEST_F(ToolTipTest, TipsNeedNoParent)
{
    CToolTipCtrl alone;
    ASSERT_TRUE(alone.Create(nullptr));
    EXPECT_TRUE(::IsWindow(alone));
    EXPECT_NE(alone.GetStyle() & WS_POPUP, 0U);
}

TEST_F(ToolTipTest, ToolsAreAddedAndTakenAway)
{
    EXPECT_EQ(m_tips->GetToolCount(), 0);
    EXPECT_TRUE(m_tips->AddTool(m_button.get(), "the button"));
    EXPECT_TRUE(m_tips->AddTool(m_frame.get(), "a corner", CRect(0, 0, 10, 10), 1));
    EXPECT_EQ(m_tips->GetToolCount(), 2);
    m_tips->DelTool(m_frame.get(), 7);
    EXPECT_EQ(m_tips->GetToolCount(), 2) << "no such tool";
    m_tips->DelTool(m_frame.get(), 1);
    m_tips->DelTool(m_button.get());
    EXPECT_EQ(m_tips->GetToolCount(), 0);
}

TEST_F(ToolTipTest, ToolZeroIsTheWindowItself)
{
    m_tips->AddTool(m_button.get(), "the button");
    CToolInfo info;
    ASSERT_TRUE(m_tips->GetToolInfo(info, m_button.get()));
    EXPECT_EQ(info.uFlags & TTF_IDISHWND, UINT(TTF_IDISHWND));
    EXPECT_EQ(info.uId, reinterpret_cast<UINT_PTR>(m_button->m_hWnd));
    EXPECT_EQ(info.hwnd, m_frame->m_hWnd);
    EXPECT_STREQ(info.szText, "the button");
    EXPECT_EQ(info.cbSize, UINT(TTTOOLINFOA_V2_SIZE));
}

TEST_F(ToolTipTest, ANumberedToolHasARectangleInItsWindow)
{
    m_tips->AddTool(m_frame.get(), "corner", CRect(1, 2, 30, 40), 5);
    CToolInfo info;
    ASSERT_TRUE(m_tips->GetToolInfo(info, m_frame.get(), 5));
    EXPECT_EQ(info.hwnd, m_frame->m_hWnd);
    EXPECT_EQ(info.uId, 5U);
    EXPECT_EQ(info.uFlags & TTF_IDISHWND, 0U);
    EXPECT_EQ(CRect(info.rect), CRect(1, 2, 30, 40));
    EXPECT_FALSE(m_tips->GetToolInfo(info, m_frame.get(), 6));
}

TEST_F(ToolTipTest, TheTextAndThePlaceOfAToolChange)
{
    m_tips->AddTool(m_frame.get(), "before", CRect(1, 2, 30, 40), 5);
    m_tips->UpdateTipText("after", m_frame.get(), 5);
    CToolInfo info;
    ASSERT_TRUE(m_tips->GetToolInfo(info, m_frame.get(), 5));
    EXPECT_STREQ(info.szText, "after");
    info.rect = CRect(5, 6, 7, 8);
    m_tips->SetToolInfo(&info);
    CToolInfo second;
    ASSERT_TRUE(m_tips->GetToolInfo(second, m_frame.get(), 5));
    EXPECT_EQ(CRect(second.rect), CRect(5, 6, 7, 8));
}

TEST_F(ToolTipTest, AVeryLongTipStaysInsideTheRoomForItsText)
{
    m_tips->AddTool(m_button.get(), CString('l', 2000));
    CToolInfo info;
    ASSERT_TRUE(m_tips->GetToolInfo(info, m_button.get()));
    EXPECT_LT(strnlen(info.szText, sizeof info.szText), sizeof info.szText);
}

TEST_F(ToolTipTest, ACopyOfAToolInfoShowsItsOwnText)
{
    CToolInfo first;
    ::lstrcpy(first.szText, "text");
    const CToolInfo second(first);
    EXPECT_EQ(second.lpszText, second.szText);
    EXPECT_STREQ(second.lpszText, "text");
    char elsewhere[] = "elsewhere";
    first.lpszText = elsewhere;
    CToolInfo third;
    third = first;
    EXPECT_EQ(third.lpszText, elsewhere);
    EXPECT_EQ(third.cbSize, UINT(TTTOOLINFOA_V2_SIZE));
}

TEST_F(ToolTipTest, EveryDelayIsKeptOnItsOwn)
{
    m_tips->SetDelayTime(TTDT_INITIAL, 77);
    m_tips->SetDelayTime(TTDT_RESHOW, 88);
    m_tips->SetDelayTime(TTDT_AUTOPOP, 9900);
    EXPECT_EQ(m_tips->SendMessage(TTM_GETDELAYTIME, TTDT_INITIAL), 77);
    EXPECT_EQ(m_tips->SendMessage(TTM_GETDELAYTIME, TTDT_RESHOW), 88);
    EXPECT_EQ(m_tips->SendMessage(TTM_GETDELAYTIME, TTDT_AUTOPOP), 9900);
}

TEST_F(ToolTipTest, ATipShowsUnderTheMouseAndPops)
{
    m_tips->AddTool(m_button.get(), "shown");
    m_tips->SetDelayTime(TTDT_INITIAL, 1);
    m_tips->Activate(TRUE);
    ASSERT_TRUE(Hover());
    m_tips->Update();
    EXPECT_TRUE(m_tips->IsWindowVisible());
    m_tips->Pop();
    EXPECT_FALSE(m_tips->IsWindowVisible());
}

TEST_F(ToolTipTest, TipsThatAreNotActiveDoNotShow)
{
    m_tips->AddTool(m_button.get(), "hidden");
    m_tips->SetDelayTime(TTDT_INITIAL, 1);
    ASSERT_TRUE(Hover());
    m_tips->Activate(FALSE);
    EXPECT_FALSE(m_tips->IsWindowVisible()) << "switching off hides the tip";
}
} // namespace
