// PlaceTest.cpp - where windows go: centring, bars around a pane

#include "support/WindowTest.h"

#include <afxpriv.h>

namespace
{
constexpr UINT kPane = 50;
constexpr UINT kFirstBar = 60;
constexpr UINT kLastBar = 69;
constexpr UINT kOutsideBar = 70;

class Place : public support::WindowTest
{
protected:
    /// A top-level window of the size 200 by 100, owned by a window or by none.
    static void OpenPopup(CWnd& popup, const CWnd* owner)
    {
        ASSERT_TRUE(popup.CreateEx(0, AfxRegisterWndClass(0), "popup", WS_POPUP | WS_BORDER, 3, 4, 200, 100,
                                   owner->GetSafeHwnd(), nullptr));
    }
    static CRect RectOf(const CWnd& wnd)
    {
        CRect rect;
        wnd.GetWindowRect(&rect);
        return rect;
    }
    static CRect WorkArea()
    {
        CRect area;
        ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
        return area;
    }
    /// Where a window of 200 by 100 stands when it is in the middle of a rectangle.
    static CRect MiddleOf(const CRect& room)
    {
        const CPoint corner((room.left + room.right) / 2 - 100, (room.top + room.bottom) / 2 - 50);
        return {corner, CSize(200, 100)};
    }
};

/// A bar that takes a strip off the upper or the left side of what is left.
class Bar : public CWnd
{
public:
    int m_thickness = 0;
    bool m_onTop = true;
    std::vector<UINT>* m_order = nullptr;

protected:
    LRESULT OnSizeParent(WPARAM, LPARAM lParam)
    {
        auto* const layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
        if (m_order != nullptr)
        {
            m_order->push_back(static_cast<UINT>(GetDlgCtrlID()));
        }
        CRect mine(layout->rect);
        if (m_onTop)
        {
            mine.bottom = mine.top + m_thickness;
            layout->rect.top += m_thickness;
        }
        else
        {
            mine.right = mine.left + m_thickness;
            layout->rect.left += m_thickness;
        }
        if (layout->hDWP != nullptr)
        {
            layout->hDWP = ::DeferWindowPos(layout->hDWP, m_hWnd, nullptr, mine.left, mine.top, mine.Width(),
                                            mine.Height(), SWP_NOACTIVATE | SWP_NOZORDER);
        }
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Bar, CWnd)
    ON_MESSAGE(WM_SIZEPARENT, &Bar::OnSizeParent)
END_MESSAGE_MAP()

class Bars : public Place
{
protected:
    void SetUp() override
    {
        Place::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
        Open(m_top, kFirstBar, 20, true);
        Open(m_left, kLastBar, 30, false);
        Open(m_outside, kOutsideBar, 40, true);
        ASSERT_TRUE(m_pane.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 5, 5), m_frame.get(), kPane));
        m_frame->GetClientRect(&m_client);
    }
    void TearDown() override
    {
        m_frame.reset();
        Place::TearDown();
    }
    void Open(Bar& bar, UINT id, int thickness, bool onTop)
    {
        bar.m_thickness = thickness;
        bar.m_onTop = onTop;
        bar.m_order = &m_order;
        ASSERT_TRUE(bar.Create(nullptr, "", WS_VISIBLE, CRect(1, 2, 4, 6), m_frame.get(), id));
    }
    CRect InFrame(const CWnd& wnd) const
    {
        CRect rect = RectOf(wnd);
        m_frame->ScreenToClient(&rect);
        return rect;
    }

    std::unique_ptr<support::TestFrame> m_frame;
    Bar m_top;
    Bar m_left;
    Bar m_outside;
    CWnd m_pane;
    CRect m_client;
    std::vector<UINT> m_order;
};
} // namespace

TEST_F(Place, ATopLevelWindowIsCentredOverItsVisibleOwner)
{
    support::TestFrame owner;
    CWnd popup;
    OpenPopup(popup, &owner);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup), MiddleOf(RectOf(owner)));
}

TEST_F(Place, AHiddenOwnerLeavesItInTheWorkArea)
{
    support::TestFrame owner;
    CWnd popup;
    OpenPopup(popup, &owner);
    owner.ShowWindow(SW_HIDE);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup), MiddleOf(WorkArea()));
}

TEST_F(Place, AnIconicOwnerLeavesItInTheWorkArea)
{
    support::TestFrame owner;
    CWnd popup;
    OpenPopup(popup, &owner);
    owner.ShowWindow(SW_MINIMIZE);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup), MiddleOf(WorkArea()));
}

TEST_F(Place, WithoutAnOwnerItGoesIntoTheMiddleOfTheWorkArea)
{
    CWnd popup;
    OpenPopup(popup, nullptr);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup), MiddleOf(WorkArea()));
}

TEST_F(Place, AnotherWindowMayStandForTheOwner)
{
    support::TestFrame owner;
    support::TestFrame other;
    other.SetWindowPos(nullptr, 500, 400, 300, 240, SWP_NOZORDER);
    CWnd popup;
    OpenPopup(popup, &owner);
    popup.CenterWindow(&other);
    EXPECT_EQ(RectOf(popup), MiddleOf(RectOf(other)));
}

TEST_F(Place, OverAnOwnerAtTheEdgeItStaysInTheWorkArea)
{
    const CRect area = WorkArea();
    support::TestFrame owner;
    CWnd popup;
    OpenPopup(popup, &owner);
    owner.SetWindowPos(nullptr, area.right - 20, area.bottom - 20, 400, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup).BottomRight(), area.BottomRight());
    owner.SetWindowPos(nullptr, area.left - 380, area.top - 280, 400, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup).TopLeft(), area.TopLeft());
    EXPECT_EQ(RectOf(popup).Size(), CSize(200, 100));
}

TEST_F(Bars, EachTakesItsStripInTurnAndThePaneGetsTheRest)
{
    m_frame->RepositionBars(kFirstBar, kLastBar, kPane);
    EXPECT_THAT(m_order, testing::UnorderedElementsAre(kFirstBar, kLastBar));
    EXPECT_EQ(InFrame(m_pane), CRect(30, 20, m_client.right, m_client.bottom));
    EXPECT_EQ(InFrame(m_top).Height(), 20);
    EXPECT_EQ(InFrame(m_left).Width(), 30);
    EXPECT_EQ(InFrame(m_outside), CRect(1, 2, 4, 6)) << "its id lies outside the range";
}

TEST_F(Bars, AQueryMovesNothingAndTellsTheRest)
{
    CRect rest;
    m_frame->RepositionBars(kFirstBar, kLastBar, kPane, reposQuery, &rest);
    EXPECT_EQ(rest, CRect(30, 20, m_client.right, m_client.bottom));
    EXPECT_EQ(InFrame(m_top), CRect(1, 2, 4, 6));
    EXPECT_EQ(InFrame(m_pane), CRect(0, 0, 5, 5));
}

TEST_F(Bars, AnExtraBorderStaysFreeAroundThePane)
{
    CRect border(1, 2, 3, 4);
    m_frame->RepositionBars(kFirstBar, kLastBar, kPane, reposExtra, &border);
    EXPECT_EQ(InFrame(m_pane), CRect(31, 22, m_client.right - 3, m_client.bottom - 4));
}

TEST_F(Bars, TheRoomMayBeAnotherThanTheClientArea)
{
    const CRect room(100, 100, 300, 250);
    m_frame->RepositionBars(kFirstBar, kLastBar, kPane, reposDefault, nullptr, &room);
    EXPECT_EQ(InFrame(m_pane), CRect(130, 120, 300, 250));
}

TEST_F(Bars, RoomThatIsUsedUpLeavesAPaneWithoutSize)
{
    const CRect room(0, 0, 10, 10);
    m_frame->RepositionBars(kFirstBar, kLastBar, kPane, reposDefault, nullptr, &room);
    EXPECT_EQ(InFrame(m_pane).Size(), CSize(0, 0));
}

TEST_F(Place, TheTopLevelParentIsReachedThroughOwnersOfOverlappedWindowsToo)
{
    support::TestFrame owner;
    CWnd owned;
    CWnd child;
    ASSERT_TRUE(
        owned.CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, owner.m_hWnd, nullptr));
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 9, 9), &owned, 1));
    EXPECT_EQ(owned.GetParent(), nullptr);
    EXPECT_EQ(child.GetTopLevelParent(), &owner);
    EXPECT_EQ(owner.GetTopLevelParent(), &owner);
    owned.DestroyWindow();
}
