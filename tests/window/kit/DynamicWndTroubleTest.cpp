// DynamicWndTroubleTest.cpp - what goes wrong in a pass of the layout engine: exceptions, a full batch, windows that
// die

#include "ImportHook.h"
#include "LayoutFixture.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace
{

using layout_test::Child;
using layout_test::Engine;
using layout_test::EngineFrame;
using layout_test::kFirstId;
using layout_test::kMoveFlags;
using testing::IsEmpty;
using testing::SizeIs;
using DynamicWndTrouble = layout_test::EngineTest;
using Dyn = cdxCDynamicWnd;

TEST_F(DynamicWndTrouble, AnExceptionEndsThePassWithWhatWasPlacedSoFar)
{
    AddChild(0);
    AddChild(1);
    AttachFollowing();
    E().Disable();
    m_frame->GrowBy(20, 0);
    HWND first = ::GetWindow(m_frame->m_hWnd, GW_CHILD);
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        if (child != first)
        {
            throw std::runtime_error("no");
        }
        return E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
    };
    EXPECT_THROW(E().Layout(), std::runtime_error);
    const int moved = At(0).m_hWnd == first ? 0 : 1;
    EXPECT_EQ(At(static_cast<std::size_t>(moved)).Place(), FirstPlace(moved) + CPoint(20, 0));
    EXPECT_EQ(At(static_cast<std::size_t>(1 - moved)).Place(), FirstPlace(1 - moved));
    E().m_onMove = nullptr;
    E().Layout();
    EXPECT_EQ(At(1).Place(), FirstPlace(1) + CPoint(20, 0));
    EXPECT_EQ(At(0).Place(), FirstPlace(0) + CPoint(20, 0));
}

// The batch that refuses a child, as the system does when it has no room.
struct RefusingBatch
{
    static inline int s_calls = 0;
    static inline int s_refused = 0; // number of the call that fails

    static HDWP WINAPI Defer(HDWP batch, HWND window, HWND after, int x, int y, int cx, int cy, UINT flags)
    {
        return ++s_calls == s_refused ? nullptr : ::DeferWindowPos(batch, window, after, x, y, cx, cy, flags);
    }

    explicit RefusingBatch(int refused)
        : m_hook("TavKit.dll", "user32.dll", "DeferWindowPos", reinterpret_cast<void*>(Defer))
    {
        s_calls = 0;
        s_refused = refused;
    }

private:
    ImportHook m_hook;
};

TEST_F(DynamicWndTrouble, WhenTheBatchBreaksTheSameChildAndAllBehindItAreMovedDirectly)
{
    AddChild(0);
    AddChild(1);
    AddChild(2);
    AttachFollowing();
    HWND second = ::GetWindow(::GetWindow(m_frame->m_hWnd, GW_CHILD), GW_HWNDNEXT);
    HWND third = ::GetWindow(second, GW_HWNDNEXT);
    const RefusingBatch batch(2);
    m_frame->GrowBy(20, 0);
    EXPECT_EQ(RefusingBatch::s_calls, 2) << "no deferred move behind the one that failed";
    for (const auto& child : m_children)
    {
        if (child->m_hWnd == second || child->m_hWnd == third)
        {
            EXPECT_EQ(child->Place().left, 30);
            ASSERT_THAT(child->m_moves, SizeIs(1));
            EXPECT_EQ(child->m_moves[0] & (kMoveFlags | SWP_NOCOPYBITS), kMoveFlags | SWP_NOCOPYBITS);
        }
    }
    EXPECT_EQ(std::ranges::count(E().m_asked, second), 2) << "it is processed once more";
    EXPECT_EQ(std::ranges::count(E().m_asked, third), 1);
}

TEST_F(DynamicWndTrouble, AChildDestroyedWhileItIsAskedAboutDoesNotStopThePass)
{
    AddChild(0);
    AddChild(1);
    AddChild(2);
    AttachFollowing();
    HWND first = ::GetWindow(m_frame->m_hWnd, GW_CHILD);
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        const bool placed = E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
        if (child == first)
        {
            ::DestroyWindow(child);
        }
        return placed;
    };
    m_frame->GrowBy(20, 0);
    int there = 0;
    for (int i = 0; i < 3; ++i)
    {
        const Child& child = At(static_cast<std::size_t>(i));
        if (child.m_hWnd != nullptr)
        {
            EXPECT_EQ(child.Place(), FirstPlace(i) + CPoint(20, 0)) << "child " << i;
            ++there;
        }
    }
    EXPECT_EQ(there, 2);
}

TEST_F(DynamicWndTrouble, TheNextChildDestroyedMeanwhileDoesNotStopThePass)
{
    AddChild(0);
    AddChild(1);
    AddChild(2);
    AttachFollowing();
    HWND first = ::GetWindow(m_frame->m_hWnd, GW_CHILD);
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        if (child == first)
        {
            ::DestroyWindow(::GetWindow(child, GW_HWNDNEXT));
        }
        return E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
    };
    m_frame->GrowBy(20, 0);
    for (int i = 0; i < 3; ++i)
    {
        const Child& child = At(static_cast<std::size_t>(i));
        if (child.m_hWnd != nullptr)
        {
            EXPECT_EQ(child.Place(), FirstPlace(i) + CPoint(20, 0)) << "child " << i;
        }
    }
}

TEST_F(DynamicWndTrouble, AChildThatDiesTogetherWithTheNextOneDoesNotStopThePass)
{
    for (int i = 0; i < 4; ++i)
    {
        AddChild(i);
    }
    AttachFollowing();
    HWND second = ::GetWindow(::GetWindow(m_frame->m_hWnd, GW_CHILD), GW_HWNDNEXT);
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        if (child == second)
        {
            ::DestroyWindow(::GetWindow(child, GW_HWNDNEXT));
            ::DestroyWindow(child);
        }
        return E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
    };
    m_frame->GrowBy(20, 0);
    int there = 0;
    for (int i = 0; i < 4; ++i)
    {
        const Child& child = At(static_cast<std::size_t>(i));
        if (child.m_hWnd != nullptr)
        {
            EXPECT_EQ(child.Place(), FirstPlace(i) + CPoint(20, 0)) << "child " << i;
            EXPECT_THAT(child.m_moves, SizeIs(1)) << "child " << i;
            ++there;
        }
    }
    EXPECT_EQ(there, 2);
}

TEST_F(DynamicWndTrouble, AWindowDestroyedDuringThePassEndsIt)
{
    AddChild(0);
    AddChild(1);
    AttachFollowing();
    E().m_onMove = [&](HWND, UINT, CRect& rect, const cdxCDynamicLayoutInfo&) {
        rect.OffsetRect(1, 1);
        m_frame->DestroyWindow();
        return true;
    };
    E().Layout();
    EXPECT_EQ(m_frame->m_hWnd, nullptr);
    EXPECT_FALSE(E().IsValid());
    EXPECT_THAT(E().m_asked, SizeIs(1));
}

TEST_F(DynamicWndTrouble, AChildThatDiesAfterItsMoveWasDeferredStopsNoOther)
{
    AddChild(0);
    AddChild(1);
    AddChild(2);
    AttachFollowing();
    HWND first = ::GetWindow(m_frame->m_hWnd, GW_CHILD);
    HWND last = ::GetWindow(first, GW_HWNDLAST);
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        if (child == last)
        {
            ::DestroyWindow(first);
        }
        return E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
    };
    m_frame->GrowBy(20, 0);
    int there = 0;
    for (int i = 0; i < 3; ++i)
    {
        const Child& child = At(static_cast<std::size_t>(i));
        if (child.m_hWnd != nullptr)
        {
            EXPECT_EQ(child.Place(), FirstPlace(i) + CPoint(20, 0)) << "child " << i;
            EXPECT_THAT(child.m_moves, SizeIs(1)) << "child " << i;
            ++there;
        }
    }
    EXPECT_EQ(there, 2);
}

TEST_F(DynamicWndTrouble, AllDeferredChildrenMayDieBeforeTheyAreMoved)
{
    AddChild(0);
    AddChild(1);
    AttachFollowing();
    HWND last = ::GetWindow(::GetWindow(m_frame->m_hWnd, GW_CHILD), GW_HWNDLAST);
    E().m_onMove = [&](HWND child, UINT id, CRect& rect, const cdxCDynamicLayoutInfo& info) {
        const bool placed = E().cdxCDynamicWnd::DoMoveCtrl(child, id, rect, info);
        if (child == last)
        {
            At(0).DestroyWindow();
            At(1).DestroyWindow();
        }
        return placed;
    };
    m_frame->GrowBy(20, 0);
    EXPECT_EQ(::GetWindow(m_frame->m_hWnd, GW_CHILD), nullptr);
    EXPECT_EQ(E().GetCtrlCount(), 0u);
}

TEST_F(DynamicWndTrouble, AWindowThatDiesWhileTheSnapshotIsTakenIsNotLaidOut)
{
    AddChild(0);
    AttachFollowing();
    m_frame->GrowBy(20, 0);
    ClearMoves();
    E().m_asked.clear();
    E().m_onInfo = [&] { m_frame->DestroyWindow(); };
    E().Layout();
    EXPECT_EQ(m_frame->m_hWnd, nullptr);
    EXPECT_FALSE(E().IsValid());
    EXPECT_THAT(E().m_asked, IsEmpty());
}

TEST_F(DynamicWndTrouble, AChildWhoseWindowDiesWhileTheSnapshotIsTakenIsNotPlaced)
{
    AddChild(0);
    AttachFollowing();
    m_frame->GrowBy(20, 0);
    HWND child = At(0).m_hWnd;
    E().m_asked.clear();
    E().m_onInfo = [&] { m_frame->DestroyWindow(); };
    E().UpdateControlPosition(child);
    EXPECT_FALSE(::IsWindow(child));
    EXPECT_THAT(E().m_asked, IsEmpty());
}

TEST_F(DynamicWndTrouble, SizesAtTheEdgeOfTheNumbersDoNoHarm)
{
    AddChild(0);
    for (const int edge : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    {
        Engine engine;
        engine.DoInitWindow(*m_frame, CSize(edge, edge));
        const Dyn::Position edgy{CRect(edge, edge, edge, edge), {100, 100, 100, 100}, CSize(edge, edge)};
        EXPECT_TRUE(engine.AddSzControl(At(0).m_hWnd, edgy, true));
        engine.Layout();
        MINMAXINFO limits{};
        engine.DoOnGetMinMaxInfo(&limits);
        EXPECT_TRUE(::IsWindow(At(0).m_hWnd));
    }
}

} // namespace
