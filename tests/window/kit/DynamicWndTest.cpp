// DynamicWndTest.cpp - the layout engine: moving children, limits of sizing, anti-flicker

#include "LayoutFixture.h"

#include <stdexcept>

namespace
{

using layout_test::Child;
using layout_test::Engine;
using layout_test::EngineFrame;
using layout_test::kFirstId;
using layout_test::kMoveFlags;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using DynamicWnd = layout_test::EngineTest;
using Dyn = cdxCDynamicWnd;

const CSize kNoMin(0, 0);

// --- a pass

TEST_F(DynamicWnd, EveryRegisteredChildIsMovedOnceByItsRule)
{
    AddChild(0);
    AddChild(1);
    E().DoInitWindow(*m_frame);
    ASSERT_TRUE(E().AddSzControl(kFirstId, Dyn::ModeStretch, Dyn::ModeStay, kNoMin, false));
    ASSERT_TRUE(E().AddSzControl(kFirstId + 1, Dyn::ModeHalf, Dyn::ModeFollow, kNoMin, false));
    ClearMoves();
    m_frame->GrowBy(51, 40);
    EXPECT_EQ(At(0).Place(), CRect(10, 10, 161, 30));
    EXPECT_EQ(At(1).Place(), CRect(35, 75, 135, 95));
    EXPECT_THAT(At(0).m_moves, SizeIs(1));
    EXPECT_THAT(At(1).m_moves, SizeIs(1));
}

TEST_F(DynamicWnd, AHalfFollowingEdgeTruncatesTowardsZero)
{
    AddChild(0);
    AttachFreely();
    ASSERT_TRUE(E().AddSzXControl(kFirstId, 0, 50, kNoMin, false));
    m_frame->GrowBy(-3, 0);
    EXPECT_EQ(At(0).Place().right, 109);
    m_frame->GrowBy(3, 0);
    EXPECT_EQ(At(0).Place().right, 111);
}

TEST_F(DynamicWnd, ManyResizesLeaveNoRoundingErrorBehind)
{
    AddChild(0);
    AttachFreely();
    ASSERT_TRUE(E().AddSzControl(kFirstId, 33, 33, 66, 66, kNoMin, false));
    for (int step = 1; step < 40; ++step)
    {
        m_frame->GrowBy(step * 7 % 31 - 15, step * 5 % 17 - 8);
    }
    m_frame->GrowBy(0, 0);
    EXPECT_EQ(At(0).Place(), FirstPlace(0));
}

TEST_F(DynamicWnd, AChildThatWouldFoldUpIsParkedAndComesBack)
{
    AddChild(0);
    AddChild(1);
    AttachFreely();
    ASSERT_TRUE(E().AddSzControl(kFirstId, 0, 0, 100, 0, kNoMin, false));
    ASSERT_TRUE(E().AddSzControl(kFirstId + 1, 0, 0, 100, 0, CSize(20, 0), false));
    m_frame->GrowBy(-100, 0);
    EXPECT_EQ(At(0).Place(), CRect(-10, 10, -10, 30));
    EXPECT_EQ(At(1).Place(), CRect(-30, 35, -10, 55));
    m_frame->GrowBy(-79, 0);
    EXPECT_EQ(At(1).Place(), CRect(10, 35, 31, 55)) << "one wider than its minimum";
    m_frame->GrowBy(-80, 0);
    EXPECT_EQ(At(1).Place(), CRect(-30, 35, -10, 55)) << "exactly its minimum";
    m_frame->GrowBy(0, 0);
    EXPECT_EQ(At(0).Place(), FirstPlace(0));
    EXPECT_EQ(At(1).Place(), FirstPlace(1));
}

TEST_F(DynamicWnd, AChildThatWasNeverRegisteredKeepsItsPlace)
{
    AddChild(0);
    AttachFollowing();
    AddChild(1);
    ClearMoves();
    m_frame->GrowBy(50, 50);
    EXPECT_EQ(At(1).Place(), FirstPlace(1));
    EXPECT_THAT(At(1).m_moves, IsEmpty());
    EXPECT_THAT(E().m_asked, Contains(At(1).m_hWnd)) << "a derived class may place it itself";
}

TEST_F(DynamicWnd, ADerivedClassMayPlaceAnyChildItself)
{
    AddChild(0);
    AttachFollowing();
    AddChild(1);
    UINT registered = 0;
    E().m_onMove = [&](HWND child, UINT, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        registered = info.m_nCtrlCnt;
        EXPECT_EQ(info.m_szDelta, CSize(50, 60));
        if (child != At(1).m_hWnd)
        {
            return false;
        }
        EXPECT_EQ(rect, FirstPlace(1));
        rect = CRect(1, 2, 3, 4);
        return true;
    };
    m_frame->GrowBy(50, 60);
    EXPECT_EQ(registered, 1u);
    EXPECT_EQ(At(0).Place(), FirstPlace(0));
    EXPECT_EQ(At(1).Place(), CRect(1, 2, 3, 4));
}

TEST_F(DynamicWnd, ChildrenAreAskedAboutInZOrderWithTheirIds)
{
    AddChild(0);
    AddChild(1);
    AddChild(2);
    ::SetWindowPos(At(2).m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    AttachFollowing();
    std::vector<HWND> inZOrder;
    for (HWND child = ::GetWindow(m_frame->m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        inZOrder.push_back(child);
    }
    E().Layout();
    EXPECT_EQ(E().m_asked, inZOrder);
    EXPECT_EQ(inZOrder.front(), At(2).m_hWnd);
    ASSERT_THAT(E().m_askedIds, SizeIs(3));
    EXPECT_EQ(E().m_askedIds[0], kFirstId + 2);
}

TEST_F(DynamicWnd, ThePassDoesNotChangeTheZOrder)
{
    AddChild(0);
    AddChild(1);
    AttachFollowing();
    HWND top = ::GetWindow(m_frame->m_hWnd, GW_CHILD);
    m_frame->GrowBy(20, 20);
    EXPECT_EQ(::GetWindow(m_frame->m_hWnd, GW_CHILD), top);
}

TEST_F(DynamicWnd, MovedChildrenLoseTheirPixelsUnlessTheyAreToBeKept)
{
    AddChild(0);
    AttachFollowing();
    m_frame->GrowBy(20, 0);
    ASSERT_THAT(At(0).m_moves, SizeIs(1));
    EXPECT_EQ(At(0).m_moves[0] & (kMoveFlags | SWP_NOCOPYBITS), kMoveFlags | SWP_NOCOPYBITS);
    ClearMoves();
    E().ModifyFlags(Dyn::FlagCopyBits, 0);
    m_frame->GrowBy(40, 0);
    ASSERT_THAT(At(0).m_moves, SizeIs(1));
    EXPECT_EQ(At(0).m_moves[0] & (kMoveFlags | SWP_NOCOPYBITS), kMoveFlags);
}

TEST_F(DynamicWnd, WhenNothingChangesNothingIsTouched)
{
    AddChild(0);
    AddChild(1);
    AttachFollowing();
    E().Layout();
    m_frame->GrowBy(20, 0);
    ClearMoves();
    E().Layout();
    m_frame->GrowBy(20, 35); // the children don't follow the lower edge
    EXPECT_THAT(At(0).m_moves, IsEmpty());
    EXPECT_THAT(At(1).m_moves, IsEmpty());
    EXPECT_EQ(E().m_asked.size(), 8u) << "they were looked at all the same";
}

TEST_F(DynamicWnd, ChildrenAreMovedTogetherAtTheEndOfThePass)
{
    AddChild(0);
    AddChild(1);
    AddChild(2);
    AttachFollowing();
    std::size_t movedMeanwhile = 0;
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        for (const auto& other : m_children)
        {
            movedMeanwhile += other->m_moves.size();
        }
        return E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
    };
    m_frame->GrowBy(20, 0);
    EXPECT_EQ(movedMeanwhile, 0u);
    EXPECT_EQ(At(2).Place(), FirstPlace(2) + CPoint(20, 0));
}

TEST_F(DynamicWnd, WithoutASnapshotThereIsNoPass)
{
    AddChild(0);
    AttachFollowing();
    E().m_noInfo = true;
    m_frame->GrowBy(20, 0);
    EXPECT_EQ(E().m_layouts, 1);
    EXPECT_THAT(E().m_asked, IsEmpty());
    EXPECT_FALSE(E().UpdateControlPosition(At(0).m_hWnd));
}

TEST_F(DynamicWnd, AWindowWithoutChildrenIsLaidOutWithoutHarm)
{
    E().DoInitWindow(*m_frame);
    m_frame->GrowBy(20, 0);
    EXPECT_EQ(E().m_layouts, 1);
    EXPECT_THAT(E().m_asked, IsEmpty());
}

TEST_F(DynamicWnd, GrandchildrenAreNotAskedAbout)
{
    AddChild(0);
    Child grandchild(At(0), 5, CRect(1, 1, 9, 9));
    AttachFollowing();
    m_frame->GrowBy(20, 0);
    EXPECT_THAT(E().m_asked, ElementsAre(At(0).m_hWnd));
    grandchild.DestroyWindow();
}

// --- one child

TEST_F(DynamicWnd, OneChildIsPlacedAtOnceAndKeepsItsPixels)
{
    AddChild(0);
    E().DoInitWindow(*m_frame);
    m_frame->GrowBy(20, 0);
    ASSERT_TRUE(E().AddSzControl(kFirstId, Dyn::TopRight, kNoMin, false));
    ClearMoves();
    EXPECT_TRUE(E().UpdateControlPosition(At(0).m_hWnd));
    EXPECT_EQ(At(0).Place(), FirstPlace(0) + CPoint(20, 0));
    ASSERT_THAT(At(0).m_moves, SizeIs(1));
    EXPECT_EQ(At(0).m_moves[0] & (kMoveFlags | SWP_NOCOPYBITS), kMoveFlags);
    EXPECT_TRUE(E().UpdateControlPosition(At(0).m_hWnd));
    EXPECT_THAT(At(0).m_moves, SizeIs(1)) << "it stands where it belongs";
}

TEST_F(DynamicWnd, OneChildIsPlacedOnlyWhileBothWindowsAreThere)
{
    AddChild(0);
    EXPECT_FALSE(E().UpdateControlPosition(At(0).m_hWnd));
    E().DoInitWindow(*m_frame);
    EXPECT_TRUE(E().UpdateControlPosition(At(0).m_hWnd)) << "in the initial state every child is where it belongs";
    EXPECT_THAT(E().m_asked, IsEmpty());
    m_frame->GrowBy(20, 0);
    ClearMoves();
    EXPECT_TRUE(E().UpdateControlPosition(At(0).m_hWnd)) << "it isn't registered, and so stays";
    EXPECT_THAT(At(0).m_moves, IsEmpty());
    HWND gone = At(0).m_hWnd;
    At(0).DestroyWindow();
    EXPECT_FALSE(E().UpdateControlPosition(gone));
    EXPECT_FALSE(E().UpdateControlPosition(nullptr));
}

TEST_F(DynamicWnd, AnExceptionWhileOneChildIsPlacedReachesTheCaller)
{
    AddChild(0);
    AttachFollowing();
    m_frame->GrowBy(20, 0);
    E().m_onMove = [](HWND, UINT, CRect&, const cdxCDynamicLayoutInfo&) -> bool { throw std::runtime_error("no"); };
    EXPECT_THROW(E().UpdateControlPosition(At(0).m_hWnd), std::runtime_error);
}

// --- which sizes count

TEST_F(DynamicWnd, ADisabledLayoutWaitsForTheMatchingEnable)
{
    AddChild(0);
    AttachFollowing();
    E().Disable();
    E().Disable();
    m_frame->GrowBy(20, 0);
    E().Enable();
    m_frame->GrowBy(30, 0);
    EXPECT_EQ(At(0).Place(), FirstPlace(0));
    E().Enable();
    m_frame->GrowBy(40, 0);
    EXPECT_EQ(At(0).Place(), FirstPlace(0) + CPoint(40, 0));
}

TEST_F(DynamicWnd, MinimisingLeavesTheChildrenAlone)
{
    AddChild(0);
    AttachFollowing();
    m_frame->GrowBy(20, 0);
    ClearMoves();
    const int layouts = E().m_layouts;
    m_frame->ShowWindow(SW_MINIMIZE);
    EXPECT_EQ(E().m_layouts, layouts);
    EXPECT_THAT(At(0).m_moves, IsEmpty());
    E().DoOnSize(SIZE_MINIMIZED, 0, 0);
    EXPECT_EQ(E().m_layouts, layouts);
    m_frame->ShowWindow(SW_RESTORE);
    EXPECT_EQ(E().GetCurrentClientSize(), CSize(EngineFrame::kWidth + 20, EngineFrame::kHeight));
    EXPECT_EQ(At(0).Place(), FirstPlace(0) + CPoint(20, 0));
}

// --- scrolling

TEST_F(DynamicWnd, AScrolledWindowThatIsTooSmallScrollsInsteadOfSqueezing)
{
    AddChild(0);
    m_frame->ModifyStyle(0, WS_VSCROLL, SWP_FRAMECHANGED);
    E().m_bUseScrollPos = true;
    E().DoInitWindow(*m_frame, CSize(EngineFrame::kWidth + 50, EngineFrame::kHeight + 50));
    ASSERT_TRUE(E().AddSzControl(kFirstId, 0, 0, 100, 100, kNoMin, false));
    SCROLLINFO range{};
    range.cbSize = sizeof range;
    range.fMask = SIF_RANGE | SIF_POS;
    range.nMax = 1000;
    range.nPos = 15;
    ::SetScrollInfo(m_frame->m_hWnd, SB_VERT, &range, TRUE);
    E().Layout();
    EXPECT_EQ(At(0).Place(), FirstPlace(0) - CPoint(0, 15));
}

// --- limits of sizing

struct LimitCase
{
    const char* name;
    Dyn::Freedom freedom;
    CSize max;
    bool lockedX;
    bool lockedY;
};

class DynamicWndLimits : public support::WindowTest, public testing::WithParamInterface<LimitCase>
{
};

INSTANTIATE_TEST_SUITE_P(Table, DynamicWndLimits,
                         testing::Values(LimitCase{"Both", Dyn::FreedomXY, CSize(0, 0), false, false},
                                         LimitCase{"BothWithLimits", Dyn::FreedomXY, CSize(500, 450), false, false},
                                         LimitCase{"WidthOnly", Dyn::FreedomX, CSize(500, 450), false, true},
                                         LimitCase{"HeightOnly", Dyn::FreedomY, CSize(500, 450), true, false},
                                         LimitCase{"None", static_cast<Dyn::Freedom>(0), CSize(500, 450), true, true}),
                         [](const auto& info) { return info.param.name; });

TEST_P(DynamicWndLimits, FollowFreedomAndLargestSize)
{
    const LimitCase& c = GetParam();
    EngineFrame frame(c.freedom);
    Engine& engine = frame.m_engine;
    engine.DoInitWindow(frame);
    engine.m_szMax = c.max;
    const CSize border = engine.GetBorderSize();
    constexpr LONG kUntouched = 12345;
    MINMAXINFO info{};
    info.ptMaxTrackSize = {kUntouched, kUntouched};
    engine.DoOnGetMinMaxInfo(&info);
    const CSize least = CSize(EngineFrame::kWidth, EngineFrame::kHeight) + border;
    EXPECT_EQ(CPoint(info.ptMinTrackSize), CPoint(least.cx, least.cy));
    EXPECT_EQ(info.ptMaxTrackSize.x, c.lockedX ? least.cx : c.max.cx > 0 ? c.max.cx + border.cx : kUntouched);
    EXPECT_EQ(info.ptMaxTrackSize.y, c.lockedY ? least.cy : c.max.cy > 0 ? c.max.cy + border.cy : kUntouched);

    // The system heeds it.
    frame.SetClient(100, 100);
    EXPECT_EQ(engine.GetCurrentClientSize(), CSize(EngineFrame::kWidth, EngineFrame::kHeight));
    frame.SetClient(480, 430);
    EXPECT_EQ(engine.GetCurrentClientSize(),
              CSize(c.lockedX ? EngineFrame::kWidth : 480, c.lockedY ? EngineFrame::kHeight : 430));
    if (c.max.cx > 0)
    {
        frame.SetClient(600, 600);
        EXPECT_EQ(engine.GetCurrentClientSize(),
                  CSize(c.lockedX ? EngineFrame::kWidth : c.max.cx, c.lockedY ? EngineFrame::kHeight : c.max.cy));
    }
}

TEST_F(DynamicWnd, LimitsAreNotSetWhileDisabledOrMinimised)
{
    E().DoInitWindow(*m_frame);
    MINMAXINFO info{};
    E().Disable();
    E().DoOnGetMinMaxInfo(&info);
    EXPECT_EQ(info.ptMinTrackSize.x, 0);
    E().Enable();
    m_frame->ShowWindow(SW_MINIMIZE);
    E().DoOnGetMinMaxInfo(&info);
    EXPECT_EQ(info.ptMinTrackSize.x, 0);
}

} // namespace
