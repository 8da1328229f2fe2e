// TreeDragTest.cpp - drag and drop in a tree, with a real mouse

#include "TreeFixture.h"

using support::Button;
using Pair = HookTree::Pair;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// a
// +- b     (open)
// +- c
// d
class TreeDrag : public TreeTest
{
protected:
    void SetUp() override
    {
        TreeTest::SetUp();
        Open();
        m_a = Add("alpha", TVI_ROOT, 10);
        m_b = Add("beta", m_a, 20);
        m_c = Add("gamma", m_a, 30);
        m_d = Add("delta", TVI_ROOT, 40);
        m_tree->Expand(m_a, TVE_EXPAND);
        support::Settle();
    }

    /// Many more items than fit; returns them.
    std::vector<HTREEITEM> FillWithRows(int count = 60)
    {
        m_tree->DeleteAllItems();
        std::vector<HTREEITEM> rows;
        for (int i = 0; i < count; ++i)
        {
            rows.push_back(Add(("row " + std::to_string(i)).c_str(), TVI_ROOT, static_cast<DWORD_PTR>(i)));
        }
        support::Settle();
        return rows;
    }

    void ExpectIdle() const
    {
        EXPECT_FALSE(m_tree->IsInDragMode());
        EXPECT_FALSE(m_tree->IsLeftDrag());
        EXPECT_FALSE(m_tree->IsRghtDrag());
        EXPECT_EQ(m_tree->GetDragItem(), nullptr);
        EXPECT_EQ(m_tree->GetDragData(), 0U);
        EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
        EXPECT_NE(::GetCapture(), m_tree->m_hWnd);
        EXPECT_EQ(CursorCount(), 0);
        EXPECT_FALSE(ImageDragRuns());
    }

    /// Pixels of that kind in a part of the client area, on the screen. A dragged picture lets what is below shine
    /// through, so its colours are not exact.
    [[nodiscard]] int Count(CRect const& part, bool (*is)(COLORREF)) const
    {
        int count = 0;
        for (int x = part.left; x < part.right; ++x)
        {
            for (int y = part.top; y < part.bottom; ++y)
            {
                count += is(support::ClientPixel(m_tree->m_hWnd, x, y));
            }
        }
        return count;
    }
    static bool IsDark(COLORREF color) { return GetRValue(color) < 100 && GetGValue(color) < 100; }
    static bool IsReddish(COLORREF color) { return GetRValue(color) > 200 && GetGValue(color) < 100; }
    static bool IsNotWindow(COLORREF color) { return color != ::GetSysColor(COLOR_WINDOW); }

    HTREEITEM m_a = nullptr;
    HTREEITEM m_b = nullptr;
    HTREEITEM m_c = nullptr;
    HTREEITEM m_d = nullptr;
};

TEST_F(TreeDrag, WithBothKindsOffATreeStaysIdle)
{
    for (Button const button : {Button::left, Button::right})
    {
        Pull(m_b, button);
        ExpectIdle();
        EXPECT_THAT(m_tree->m_askedItems, IsEmpty());
        MoveTo(PlaceOf(m_d));
        Release(button);
        ExpectIdle();
    }
    EXPECT_THAT(m_tree->m_askedTargets, IsEmpty());
    EXPECT_THAT(m_tree->m_drops, IsEmpty());
}

TEST_F(TreeDrag, EachKindIsSwitchedOnByItself)
{
    m_tree->EnableRghtDrag(true);
    Pull(m_b, Button::left);
    ExpectIdle();
    Release(Button::left);
    m_tree->EnableRghtDrag(false);
    m_tree->EnableLeftDrag(true);
    Pull(m_b, Button::right);
    ExpectIdle();
    Release(Button::right);
}

TEST_F(TreeDrag, BeginsByPullingAnItemAndHoldsCaptureCursorAndImage)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    EXPECT_TRUE(m_tree->IsInDragMode());
    EXPECT_TRUE(m_tree->IsLeftDrag());
    EXPECT_FALSE(m_tree->IsRghtDrag());
    EXPECT_EQ(m_tree->GetDragItem(), m_b);
    EXPECT_EQ(m_tree->GetDragData(), 20U);
    EXPECT_THAT(m_tree->m_askedItems, ElementsAre(m_b));
    EXPECT_EQ(::GetCapture(), m_tree->m_hWnd);
    EXPECT_EQ(CursorCount(), -1);
    EXPECT_TRUE(ImageDragRuns());
    Release();
    ExpectIdle();
}

TEST_F(TreeDrag, WithTheRightButtonIsOfTheOtherKind)
{
    m_tree->EnableRghtDrag(true);
    Pull(m_b, Button::right);
    EXPECT_TRUE(m_tree->IsRghtDrag());
    EXPECT_FALSE(m_tree->IsLeftDrag());
    EXPECT_EQ(m_tree->GetDragItem(), m_b);
    EXPECT_EQ(::GetCapture(), m_tree->m_hWnd);
    EXPECT_EQ(CursorCount(), -1);
    MoveTo(PlaceOf(m_d));
    Release(Button::right);
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_d)));
    ExpectIdle();
}

TEST_F(TreeDrag, OfAnItemThatMayNotBeDraggedDoesNotBegin)
{
    m_tree->EnableLeftDrag(true);
    m_tree->m_isDragItem = [&](HTREEITEM item) { return item != m_b; };
    Pull(m_b);
    EXPECT_THAT(m_tree->m_askedItems, ElementsAre(m_b));
    ExpectIdle();
    Release();
    Pull(m_c);
    EXPECT_EQ(m_tree->GetDragItem(), m_c);
    Release();
}

TEST_F(TreeDrag, DoesNotBeginWithoutAButtonThatIsDown)
{
    m_tree->EnableLeftDrag(true);
    NMTREEVIEW info{};
    info.hdr = {m_tree->m_hWnd, kTreeId, static_cast<UINT>(TVN_BEGINDRAG)};
    info.itemNew.hItem = m_b;
    m_frame->SendMessage(WM_NOTIFY, kTreeId, reinterpret_cast<LPARAM>(&info));
    EXPECT_THAT(m_tree->m_askedItems, IsEmpty());
    ExpectIdle();
}

TEST_F(TreeDrag, DoesNotBeginWithoutAnItemOrWhileOneRuns)
{
    m_tree->EnableLeftDrag(true);
    MoveTo(ScreenPlace(0, -400)); // beside the tree, so that the press means nothing to it
    support::Press(Button::right);
    support::Settle();
    NMTREEVIEW info{};
    info.hdr = {m_tree->m_hWnd, kTreeId, static_cast<UINT>(TVN_BEGINDRAG)};
    auto const tell = [&] { m_frame->SendMessage(WM_NOTIFY, kTreeId, reinterpret_cast<LPARAM>(&info)); };
    tell();
    EXPECT_THAT(m_tree->m_askedItems, IsEmpty());
    ExpectIdle();

    info.itemNew.hItem = m_b;
    info.ptDrag = ClientPlaceOf(m_b);
    tell();
    EXPECT_EQ(m_tree->GetDragItem(), m_b) << "either button counts";
    info.itemNew.hItem = m_c;
    tell();
    EXPECT_EQ(m_tree->GetDragItem(), m_b);
    EXPECT_THAT(m_tree->m_askedItems, ElementsAre(m_b));
    EXPECT_EQ(CursorCount(), -1) << "hidden once";
    Release(Button::right);
    m_tree->EndDrag(nullptr);
    ExpectIdle();
}

TEST_F(TreeDrag, HighlightsATargetAndClearsTheHighlightElsewhere)
{
    m_tree->EnableLeftDrag(true);
    m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM target) { return target == m_d || target == m_c; };
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    EXPECT_EQ(m_tree->m_askedTargets.back(), Pair(m_b, m_d));
    EXPECT_EQ(m_tree->GetDropHilightItem(), m_d);
    EXPECT_NE(m_tree->GetItemState(m_d, TVIS_DROPHILITED), 0U);
    MoveTo(PlaceOf(m_c));
    EXPECT_EQ(m_tree->GetDropHilightItem(), m_c);
    EXPECT_EQ(m_tree->GetItemState(m_d, TVIS_DROPHILITED), 0U);
    MoveTo(PlaceOf(m_a));
    EXPECT_EQ(m_tree->m_askedTargets.back(), Pair(m_b, m_a));
    EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
    EXPECT_EQ(m_tree->GetItemState(m_c, TVIS_DROPHILITED), 0U);
    MoveTo(PlaceOf(m_d));
    EXPECT_EQ(m_tree->GetDropHilightItem(), m_d);
    MoveTo(EmptyPlace());
    EXPECT_EQ(m_tree->m_askedTargets.back(), Pair(m_b, nullptr));
    EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
    Release();
    EXPECT_THAT(m_tree->m_drops, IsEmpty());
    ExpectIdle();
}

TEST_F(TreeDrag, HighlightsTheSelectedItemLikeAnyOther)
{
    m_tree->SelectItem(m_d);
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    for (HTREEITEM const target : {m_c, m_d, m_a, m_d})
    {
        MoveTo(PlaceOf(target));
        EXPECT_EQ(m_tree->GetDropHilightItem(), target);
        for (HTREEITEM const item : {m_a, m_b, m_c, m_d})
        {
            EXPECT_EQ(m_tree->GetItemState(item, TVIS_DROPHILITED) != 0, item == target);
        }
    }
    MoveTo(EmptyPlace());
    EXPECT_EQ(m_tree->GetItemState(m_d, TVIS_DROPHILITED), 0U);
    MoveTo(PlaceOf(m_d));
    m_tree->DeleteItem(m_d);
    EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
    Release();
    ExpectIdle();
}

TEST_F(TreeDrag, ScrollsPastTheSelectedItem)
{
    std::vector<HTREEITEM> const rows = FillWithRows();
    m_tree->SelectItem(rows[2]);
    m_tree->EnableLeftDrag(true);
    Pull(rows[5]);
    for (int i = 1; i <= 4; ++i)
    {
        MoveTo(ScreenPlace(40 + i, 300));
        EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[static_cast<std::size_t>(i)]);
    }
    for (int i = 3; i >= 0; --i)
    {
        MoveTo(ScreenPlace(40 + i, -10));
        EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[static_cast<std::size_t>(i)]);
    }
    Release();
    m_tree->SelectItem(rows.back());
    m_tree->EnsureVisible(rows.back());
    HTREEITEM const first = m_tree->GetFirstVisibleItem();
    for (HTREEITEM const item : {rows.back(), rows[58], rows[57]})
    {
        m_tree->SelectItem(item);
        m_tree->SelectSetFirstVisible(item);
        EXPECT_EQ(m_tree->GetFirstVisibleItem(), first) << "never past the end";
    }
}

TEST_F(TreeDrag, DropsOnATarget)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    bool dragging = false;
    HWND capture = nullptr;
    int cursor = 1;
    HTREEITEM hilight = m_d;
    bool image = true;
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM) {
        image = ImageDragRuns();
        dragging = m_tree->IsInDragMode() && m_tree->IsLeftDrag() && m_tree->GetDragItem() == m_b;
        capture = ::GetCapture();
        cursor = CursorCount();
        hilight = m_tree->GetDropHilightItem();
    };
    Release();
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_d)));
    EXPECT_EQ(m_tree->m_askedTargets.back(), Pair(m_b, m_d)) << "asked once more at the drop";
    EXPECT_TRUE(dragging) << "the tree counts as dragging in the hook";
    EXPECT_EQ(capture, nullptr);
    EXPECT_EQ(cursor, 0);
    EXPECT_EQ(hilight, nullptr);
    EXPECT_FALSE(image);
    ExpectIdle();
}

TEST_F(TreeDrag, PaintsTheWholeWindowAnewAtItsBeginAndBeforeTheDrop)
{
    m_tree->EnableLeftDrag(true);
    MoveTo(ScreenPlace(0, -400));
    support::Press(Button::right);
    support::Settle();
    auto const isAllToBePainted = [&] {
        CRect client;
        m_tree->GetClientRect(client);
        CRect update;
        bool const all = ::GetUpdateRect(m_tree->m_hWnd, update, FALSE) && update == client;
        int const erased = m_tree->Reached(WM_ERASEBKGND);
        ::GetUpdateRect(m_tree->m_hWnd, nullptr, TRUE); // erases what is to be erased
        return all && m_tree->Reached(WM_ERASEBKGND) > erased;
    };
    EXPECT_FALSE(isAllToBePainted());
    NMTREEVIEW info{};
    info.hdr = {m_tree->m_hWnd, kTreeId, static_cast<UINT>(TVN_BEGINDRAG)};
    info.itemNew.hItem = m_b;
    info.ptDrag = ClientPlaceOf(m_b);
    m_frame->SendMessage(WM_NOTIFY, kTreeId, reinterpret_cast<LPARAM>(&info));
    EXPECT_TRUE(isAllToBePainted());
    support::Settle();
    EXPECT_FALSE(isAllToBePainted());
    bool atDrop = false;
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM) { atDrop = isAllToBePainted(); };
    Release(Button::right);
    m_tree->EndDrag(nullptr);
    EXPECT_TRUE(atDrop);
}

TEST_F(TreeDrag, OnItselfEndsWithoutADrop)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    MoveTo(PlaceOf(m_b));
    EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
    Release();
    EXPECT_EQ(m_tree->m_askedTargets.back(), Pair(m_b, m_b));
    EXPECT_THAT(m_tree->m_drops, IsEmpty());
    ExpectIdle();
}

TEST_F(TreeDrag, BesideAllItemsDropsOnNull)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    MoveTo(EmptyPlace());
    Release();
    EXPECT_EQ(m_tree->m_askedTargets.back(), Pair(m_b, nullptr));
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, nullptr)));
    ExpectIdle();
}

TEST_F(TreeDrag, OutsideTheWindowDropsOnNull)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    MoveTo(ScreenPlace(400, 50));
    Release();
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, nullptr)));
    ExpectIdle();
}

TEST_F(TreeDrag, IsNotEndedByTheOtherButton)
{
    m_tree->EnableLeftDrag(true);
    m_tree->EnableRghtDrag(true);
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    m_tree->m_reached.clear();
    m_tree->SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_TRUE(m_tree->IsLeftDrag());
    EXPECT_EQ(m_tree->Reached(WM_RBUTTONUP), 1) << "takes its default path";
    Release();
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_d)));

    Pull(m_b, Button::right);
    MoveTo(PlaceOf(m_d));
    m_tree->m_reached.clear();
    m_tree->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_TRUE(m_tree->IsRghtDrag());
    EXPECT_EQ(m_tree->Reached(WM_LBUTTONUP), 1);
    Release(Button::right);
    EXPECT_EQ(m_tree->m_drops.size(), 2U);
    ExpectIdle();
}

TEST_F(TreeDrag, OnlyTheReleaseOfARightDragIsKeptFromTheControl)
{
    m_tree->EnableLeftDrag(true);
    m_tree->EnableRghtDrag(true);
    Pull(m_b);
    m_tree->m_reached.clear();
    Release();
    EXPECT_EQ(m_tree->Reached(WM_LBUTTONUP), 1);

    Pull(m_b, Button::right);
    m_tree->m_reached.clear();
    int const menusBefore = m_frame->m_menusAsked;
    Release(Button::right);
    EXPECT_EQ(m_tree->Reached(WM_RBUTTONUP), 0);
    EXPECT_EQ(m_tree->Reached(WM_CONTEXTMENU), 0);
    EXPECT_EQ(m_frame->m_menusAsked, menusBefore) << "no context menu opens over the drop";
    ExpectIdle();

    m_tree->m_reached.clear();
    m_tree->SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(m_tree->Reached(WM_RBUTTONUP), 1) << "without a drag a right release goes on";
}

TEST_F(TreeDrag, EveryMoveGoesOnToTheControl)
{
    m_tree->EnableLeftDrag(true);
    m_tree->SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(m_tree->Reached(WM_MOUSEMOVE), 1);
    Pull(m_b);
    m_tree->m_reached.clear();
    m_tree->SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(m_tree->Reached(WM_MOUSEMOVE), 1);
    Release();
}

TEST_F(TreeDrag, ScrollsOneItemDownForEachMoveBelowTheClientArea)
{
    std::vector<HTREEITEM> const rows = FillWithRows();
    m_tree->EnableLeftDrag(true);
    Pull(rows[2]);
    CRect client;
    m_tree->GetClientRect(client);
    ASSERT_EQ(m_tree->GetFirstVisibleItem(), rows[0]);
    for (int i = 1; i <= 3; ++i)
    {
        MoveTo(ScreenPlace(40 + i, client.bottom + 10));
        EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[static_cast<std::size_t>(i)]);
    }
    support::Settle();
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[3]) << "holding the mouse still scrolls nothing";
    MoveTo(ScreenPlace(40, client.bottom - 5));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[3]) << "nor does a move inside";
    Release();
}

TEST_F(TreeDrag, ScrollsOneItemUpForEachMoveAboveTheClientArea)
{
    std::vector<HTREEITEM> const rows = FillWithRows();
    m_tree->EnableLeftDrag(true);
    m_tree->SelectSetFirstVisible(rows[10]);
    support::Settle();
    Pull(rows[12]);
    for (int i = 1; i <= 3; ++i)
    {
        MoveTo(ScreenPlace(40 + i, -10));
        EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[static_cast<std::size_t>(10 - i)]);
    }
    support::Settle();
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[7]);
    MoveTo(ScreenPlace(40, 5));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[7]);
    Release();
}

TEST_F(TreeDrag, StopsScrollingAtBothEnds)
{
    std::vector<HTREEITEM> const rows = FillWithRows();
    m_tree->EnableLeftDrag(true);
    Pull(rows[2]);
    MoveTo(ScreenPlace(40, -10));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[0]);
    m_tree->EnsureVisible(rows.back());
    HTREEITEM const first = m_tree->GetFirstVisibleItem();
    MoveTo(ScreenPlace(41, 300));
    MoveTo(ScreenPlace(42, 300));
    CRect last;
    EXPECT_TRUE(m_tree->GetItemRect(rows.back(), last, FALSE));
    CRect client;
    m_tree->GetClientRect(client);
    EXPECT_LE(last.bottom, client.bottom) << "the last row stays in view";
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), first);
    Release();
}

TEST_F(TreeDrag, ScrollsUpToThePreviousBrotherPastWhatStandsOpenUnderIt)
{
    std::vector<HTREEITEM> const rows = FillWithRows(30);
    HTREEITEM const inner = m_tree->AddItem("inner", 1, rows[4], TVI_LAST);
    HTREEITEM const innermost = m_tree->AddItem("innermost", 1, inner, TVI_LAST);
    m_tree->Expand(rows[4], TVE_EXPAND);
    m_tree->Expand(inner, TVE_EXPAND);
    m_tree->EnableLeftDrag(true);
    m_tree->SelectSetFirstVisible(rows[5]);
    support::Settle();
    Pull(rows[6]);
    MoveTo(ScreenPlace(40, -10));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), rows[4]) << "not the open item just above";
    m_tree->SelectSetFirstVisible(innermost);
    MoveTo(ScreenPlace(41, -10));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), inner) << "without a brother the parent";
    Release();
}

TEST_F(TreeDrag, ScrollsNothingWhenEverythingFits)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    MoveTo(ScreenPlace(40, -10));
    MoveTo(ScreenPlace(40, 300));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), m_a);
    Release();
}

TEST_F(TreeDrag, OutlivesTheLossOfTheCapture)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    m_frame->SetCapture();
    EXPECT_EQ(::GetCapture(), m_frame->m_hWnd);
    EXPECT_TRUE(m_tree->IsLeftDrag());
    EXPECT_EQ(CursorCount(), -1);
    MoveTo(PlaceOf(m_d));
    Release(); // goes to the frame
    EXPECT_TRUE(m_tree->IsLeftDrag());
    EXPECT_THAT(m_tree->m_drops, IsEmpty());
    CPoint const place = ClientPlaceOf(m_d);
    m_tree->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_d)));
    EXPECT_EQ(::GetCapture(), m_frame->m_hWnd) << "what another window holds isn't the tree's to release";
    ::ReleaseCapture();
    ExpectIdle();
}

TEST_F(TreeDrag, TheItemFollowsTheMouseAsAPicture)
{
    m_tree->EnableLeftDrag(true);
    Pull(m_b);
    POINT where{};
    MoveTo(ScreenPlace(60, 150));
    HIMAGELIST const image = ::ImageList_GetDragImage(&where, nullptr);
    EXPECT_EQ(CPoint(where), CPoint(60, 150)) << "held at its upper left corner";
    int width = 0;
    int height = 0;
    EXPECT_TRUE(::ImageList_GetIconSize(image, &width, &height));
    CRect text;
    m_tree->GetItemRect(m_b, text, TRUE);
    EXPECT_GE(width, text.Width() - 8);
    EXPECT_GE(height, 10);
    EXPECT_GT(Count(CRect(CPoint(60, 150), CSize(width, height)), IsDark), 10) << "the text";
    EXPECT_EQ(Count(CRect(text.right + 1, text.top, kTreePlace.Width(), text.bottom), IsNotWindow), 0)
        << "nothing is left where the drag began";
    Release();
    EXPECT_EQ(Count(CRect(CPoint(60, 150), CSize(width, height)), IsNotWindow), 0) << "the end takes it away";
}

TEST_F(TreeDrag, TheControlsOwnPictureIsUsedWhenItHasOne)
{
    m_tree->InitImages();
    m_tree->DrawCircle(m_b, RGB(255, 0, 0), RGB(0, 0, 255), false);
    m_tree->EnableLeftDrag(true);
    std::unique_ptr<CImageList> const made(m_tree->CreateDragImage(m_b));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetImageCount(), 1) << "a list without its picture can't be dragged";
    Pull(m_b);
    EXPECT_TRUE(ImageDragRuns());
    MoveTo(ScreenPlace(60, 150));
    EXPECT_GT(Count(CRect(60, 150, 80, 170), IsReddish), 30) << "the item's glyph is dragged along";
    Release();
    ExpectIdle();
}

TEST_F(TreeDrag, EndDragWithoutADragDoesNothing)
{
    m_tree->EndDrag(m_a);
    EXPECT_THAT(m_tree->m_askedTargets, IsEmpty());
    EXPECT_THAT(m_tree->m_drops, IsEmpty());
    ExpectIdle();
}

TEST_F(TreeDrag, AMenuInTheDropHookNeitherDropsAgainNorMovesTheHighlight)
{
    m_tree->EnableRghtDrag(true);
    Pull(m_b, Button::right);
    MoveTo(PlaceOf(m_d));
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM) {
        // What a menu's loop may dispatch meanwhile.
        CPoint const place = ClientPlaceOf(m_a);
        m_tree->SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
        EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
        m_tree->SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(place.x, place.y));
        m_tree->EndDrag(m_a);
        EXPECT_TRUE(m_tree->IsRghtDrag());
    };
    Release(Button::right);
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_d)));
    ExpectIdle();
}

} // namespace
