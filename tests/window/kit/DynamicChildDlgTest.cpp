// DynamicChildDlgTest.cpp - dialogs embedded in another window, with scroll bars worked by the real mouse

#include "../layoutproc/LayoutProc.h"

#include "support/Print.h"
#include "support/WindowTest.h"
#include "tavkit/layout/DynamicChildDlg.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace
{

constexpr UINT kGripId = 59936;

class Child : public cdxCDynamicChildDlg
{
public:
    using cdxCDynamicChildDlg::cdxCDynamicChildDlg;
    using cdxCDynamicChildDlg::m_bUseScrollPos;
    using cdxCDynamicChildDlg::m_strAutoPos;
    using cdxCDynamicChildDlg::m_szInitial;

    BOOL OnInitDialog() override
    {
        const BOOL result = cdxCDynamicChildDlg::OnInitDialog();
        EXPECT_TRUE(AllControls(TopLeft, false, true));
        return result;
    }
    CRect ChildPlace(UINT id) const
    {
        CRect rect;
        ::GetWindowRect(::GetDlgItem(m_hWnd, static_cast<int>(id)), rect);
        ScreenToClient(rect);
        return rect;
    }
    // Highest scroll position.
    int Last(int bar) const
    {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        ::GetScrollInfo(m_hWnd, bar, &info);
        return info.nMax - static_cast<int>(info.nPage) + 1;
    }
};

class DynamicChildDlg : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
        m_dialog = std::make_unique<Child>(UINT{IDD_LAYOUT_CHILD}, m_frame.get());
        ASSERT_TRUE(m_dialog->Create(IDD_LAYOUT_CHILD, m_frame.get()));
        m_text = m_dialog->ChildPlace(IDC_LAYOUT_TEXT);
        m_button = m_dialog->ChildPlace(IDC_LAYOUT_BUTTON);
        m_designed = m_dialog->m_szInitial;
    }
    void TearDown() override
    {
        m_dialog.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }
    // Makes the dialog that much smaller than it was designed.
    void Shrink(int dx, int dy)
    {
        CRect window;
        m_dialog->GetWindowRect(window);
        m_dialog->SetWindowPos(nullptr, 0, 0, window.Width() - dx, window.Height() - dy, SWP_NOMOVE | SWP_NOZORDER);
        support::Settle();
    }
    // A place on a scroll bar, by its share of the bar's length.
    POINT OnBar(int bar, int percent) const
    {
        SCROLLBARINFO info{};
        info.cbSize = sizeof info;
        ::GetScrollBarInfo(m_dialog->m_hWnd,
                           bar == SB_HORZ ? static_cast<LONG>(OBJID_HSCROLL) : static_cast<LONG>(OBJID_VSCROLL), &info);
        const CRect rect(info.rcScrollBar);
        return bar == SB_HORZ ? POINT{rect.left + rect.Width() * percent / 100, rect.CenterPoint().y}
                              : POINT{rect.CenterPoint().x, rect.top + rect.Height() * percent / 100};
    }
    // A click from a second thread: the bar runs a loop of its own while the button is down.
    void ClickBar(POINT point, int bar, int expected)
    {
        const support::InputThread click({
            [&] { support::MoveMouse(point); },
            [&] { support::Press(); },
            [&] { EXPECT_TRUE(support::WaitFor([&] { return ::GetScrollPos(m_dialog->m_hWnd, bar) == expected; })); },
            [&] { support::Release(); },
        });
        EXPECT_TRUE(support::PumpUntil(
            [&] { return ::GetAsyncKeyState(VK_LBUTTON) >= 0 && ::GetScrollPos(m_dialog->m_hWnd, bar) == expected; }));
    }

    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<Child> m_dialog;
    CRect m_text;
    CRect m_button;
    CSize m_designed;
};

TEST_F(DynamicChildDlg, KeepsNoPlaceAndScrolls)
{
    EXPECT_TRUE(m_dialog->m_strAutoPos.IsEmpty());
    EXPECT_TRUE(m_dialog->m_bUseScrollPos);
    Child named("name");
    EXPECT_TRUE(named.m_strAutoPos.IsEmpty());
    EXPECT_TRUE(named.m_bUseScrollPos);
    EXPECT_EQ(Child().GetFlags(), 2u);
    EXPECT_STREQ(m_dialog->GetRuntimeClass()->m_lpszClassName, "cdxCDynamicChildDlg");
    EXPECT_TRUE(m_dialog->IsKindOf(RUNTIME_CLASS(cdxCDynamicDialog)));
    EXPECT_EQ(::GetDlgItem(m_dialog->m_hWnd, kGripId), nullptr) << "no grip";
    m_dialog->DestroyWindow();
    EXPECT_EQ(AfxGetApp()->GetProfileInt("WindowPositions\\ID=0x0000106a", "(valid)", 7), 7u);
}

TEST_F(DynamicChildDlg, AtItsDesignedSizeItShowsEverything)
{
    EXPECT_EQ(m_dialog->Last(SB_HORZ), 0);
    EXPECT_EQ(m_dialog->Last(SB_VERT), 0);
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_BUTTON), m_button);
}

TEST_F(DynamicChildDlg, ASmallerOneShowsItsBarsAndDoesNotSqueeze)
{
    ASSERT_TRUE(m_dialog->AddSzControl(IDC_LAYOUT_BUTTON, cdxCDynamicWnd::BotRight, CSize(0, 0), false));
    Shrink(80, 60);
    EXPECT_NE(m_dialog->GetStyle() & WS_HSCROLL, 0u);
    EXPECT_NE(m_dialog->GetStyle() & WS_VSCROLL, 0u);
    EXPECT_EQ(m_dialog->Last(SB_HORZ), m_designed.cx - m_dialog->GetCurrentClientSize().cx);
    EXPECT_EQ(m_dialog->Last(SB_VERT), m_designed.cy - m_dialog->GetCurrentClientSize().cy);
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_BUTTON), m_button);
    Shrink(-80, -60);
    EXPECT_EQ(m_dialog->Last(SB_HORZ), 0);
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text);
}

TEST_F(DynamicChildDlg, ALargerOneGrowsItsChildren)
{
    ASSERT_TRUE(m_dialog->AddSzControl(IDC_LAYOUT_BUTTON, cdxCDynamicWnd::BotRight, CSize(0, 0), false));
    Shrink(-50, -40);
    const CSize growth = m_dialog->GetCurrentClientSize() - m_designed;
    EXPECT_GE(growth.cx, 50);
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_BUTTON), m_button + CPoint(growth.cx, growth.cy));
}

TEST_F(DynamicChildDlg, TheArrowsGoALine)
{
    Shrink(80, 80);
    for (const int bar : {SB_VERT, SB_HORZ})
    {
        ClickBar(OnBar(bar, 98), bar, cdxCDynamicChildDlg::ScrollLine);
        const CPoint offset =
            bar == SB_HORZ ? CPoint(cdxCDynamicChildDlg::ScrollLine, 0) : CPoint(0, cdxCDynamicChildDlg::ScrollLine);
        EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text - offset);
        ClickBar(OnBar(bar, 2), bar, 0);
        EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text);
    }
}

TEST_F(DynamicChildDlg, TheShaftGoesAPageAndStopsAtTheEnd)
{
    Shrink(0, 80);
    const int last = m_dialog->Last(SB_VERT);
    ASSERT_GT(last, 0);
    ASSERT_LT(last, m_dialog->GetCurrentClientSize().cy) << "one page is more than what is left";
    ClickBar(OnBar(SB_VERT, 80), SB_VERT, last);
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text - CPoint(0, last));
}

TEST_F(DynamicChildDlg, TheThumbCarriesTheChildrenAlong)
{
    Shrink(0, 100);
    const int last = m_dialog->Last(SB_VERT);
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    ::GetScrollBarInfo(m_dialog->m_hWnd, static_cast<LONG>(OBJID_VSCROLL), &info);
    const POINT thumb{CRect(info.rcScrollBar).CenterPoint().x,
                      info.rcScrollBar.top + (info.xyThumbTop + info.xyThumbBottom) / 2};
    {
        const support::InputThread drag({
            [&] { support::MoveMouse(thumb); },
            [&] { support::Press(); },
            [&] {
                support::MoveMouse({thumb.x, thumb.y + 2});
            },
            [&] {
                support::MoveMouse({thumb.x, info.rcScrollBar.bottom});
            },
            [&] {
                EXPECT_TRUE(support::WaitFor([&] {
                    return m_dialog->ChildPlace(IDC_LAYOUT_TEXT).top == m_text.top - last;
                })) << "while it is held";
            },
            [&] { support::Release(); },
        });
        EXPECT_TRUE(support::PumpUntil([&] { return ::GetScrollPos(m_dialog->m_hWnd, SB_VERT) == last; }));
    }
    support::Settle();
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text - CPoint(0, last));
}

TEST_F(DynamicChildDlg, TheWheelGoesAsManyLinesAsTheUserHasSet)
{
    Shrink(0, 100);
    UINT lines = 0;
    ::SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int last = m_dialog->Last(SB_VERT);
    const int notch = static_cast<int>(lines) * cdxCDynamicChildDlg::ScrollLine;
    ASSERT_GT(last, notch);
    CWnd* const button = m_dialog->GetDlgItem(IDC_LAYOUT_BUTTON);
    button->SetFocus();
    support::MoveMouse(support::ScreenPoint(m_dialog->m_hWnd, 30, 30));
    support::TurnWheel(-1);
    EXPECT_TRUE(support::PumpUntil([&] { return m_dialog->GetScrollPos(SB_VERT) == notch; }));
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text - CPoint(0, notch));
    support::TurnWheel(-20);
    EXPECT_TRUE(support::PumpUntil([&] { return m_dialog->GetScrollPos(SB_VERT) == last; }));
    support::TurnWheel(30);
    EXPECT_TRUE(support::PumpUntil([&] { return m_dialog->GetScrollPos(SB_VERT) == 0; }));
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text);
}

TEST_F(DynamicChildDlg, GrowingWhileScrolledBringsTheHiddenPartBack)
{
    Shrink(0, 100);
    m_dialog->SendMessage(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(m_dialog->GetScrollPos(SB_VERT), m_dialog->Last(SB_VERT));
    m_dialog->SendMessage(WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_EQ(m_dialog->GetScrollPos(SB_VERT), m_dialog->Last(SB_VERT));
    Shrink(0, -60);
    EXPECT_EQ(m_dialog->GetScrollPos(SB_VERT), m_dialog->Last(SB_VERT));
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT).top, m_text.top - m_dialog->Last(SB_VERT));
    Shrink(0, -40);
    EXPECT_EQ(m_dialog->ChildPlace(IDC_LAYOUT_TEXT), m_text);
}

TEST_F(DynamicChildDlg, AGroupBoxThatScrollsLeavesNothingBehind)
{
    CButton group;
    ASSERT_TRUE(group.Create("", WS_CHILD | WS_VISIBLE | BS_GROUPBOX, CRect(20, 40, 120, 140), m_dialog.get(), 7));
    CWnd mark;
    HBRUSH black = static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH));
    ASSERT_TRUE(mark.Create(AfxRegisterWndClass(0, nullptr, black), "", WS_CHILD | WS_VISIBLE, CRect(40, 70, 100, 90),
                            m_dialog.get(), 8));
    ASSERT_TRUE(m_dialog->AllControls(cdxCDynamicWnd::TopLeft, false, false));
    Shrink(0, 60);
    const COLORREF ground = support::ClientPixel(m_dialog->m_hWnd, 5, 90);
    // Rows in which something is drawn, in a column through the box and the mark; they begin below the text above.
    const auto drawn = [&](int from, int to) {
        std::vector<int> rows;
        support::Settle();
        for (int y = from; y < to; ++y)
        {
            if (support::ClientPixel(m_dialog->m_hWnd, 70, y) != ground)
            {
                rows.push_back(y);
            }
        }
        return rows;
    };
    constexpr int kLine = cdxCDynamicChildDlg::ScrollLine;
    constexpr int kFrom = 38;
    constexpr int kTo = 105;
    const std::vector<int> before = drawn(kFrom, kTo);
    EXPECT_GT(before.size(), 20u) << "the mark and the frame";
    m_dialog->SendMessage(WM_VSCROLL, SB_LINEDOWN);
    std::vector<int> after = drawn(kFrom - kLine, kTo - kLine);
    std::ranges::for_each(after, [](int& y) { y += kLine; });
    EXPECT_EQ(after, before);
    m_dialog->SendMessage(WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(drawn(kFrom, kTo), before);
    mark.DestroyWindow();
    group.DestroyWindow();
}

TEST_F(DynamicChildDlg, AScrollBarControlsMessagesAreNotTheWindowsOwn)
{
    Shrink(0, 100);
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | SBS_VERT, CRect(0, 0, 15, 60), m_dialog.get(), 9));
    m_dialog->SendMessage(WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_EQ(m_dialog->GetScrollPos(SB_VERT), 0);
    bar.DestroyWindow();
}

} // namespace
