#include "TreeFixture.h"

using support::Button;

void TreeTest::TearDown()
{
    m_tree.reset();
    m_frame.reset();
    EXPECT_EQ(CursorCount(), 0) << "the cursor was left hidden, or shown too often";
    EXPECT_FALSE(ImageDragRuns());
    WindowTest::TearDown();
}

void TreeTest::Open(DWORD style)
{
    m_frame = std::make_unique<TreeParent>();
    m_tree = std::make_unique<HookTree>();
    ASSERT_TRUE(m_tree->Create(style, kTreePlace, m_frame.get(), kTreeId));
    m_tree->SetFocus();
    support::Settle();
}

HTREEITEM TreeTest::Add(char const* text, HTREEITEM parent, DWORD_PTR data)
{
    return m_tree->AddItem(text, data, parent, TVI_LAST);
}

CPoint TreeTest::ClientPlaceOf(HTREEITEM item) const
{
    CRect rect;
    EXPECT_TRUE(m_tree->GetItemRect(item, rect, TRUE));
    return rect.CenterPoint();
}

POINT TreeTest::PlaceOf(HTREEITEM item) const
{
    CPoint const point = ClientPlaceOf(item);
    return ScreenPlace(point.x, point.y);
}

void TreeTest::Click(POINT place, Button button)
{
    // From a second thread: the control waits in a loop of its own for what becomes of the press.
    m_tree->m_pressed = false;
    HookTree const* const tree = m_tree.get();
    std::atomic<bool> released = false;
    support::InputThread const input({[=] { support::MoveMouse(place); }, [=] { support::Press(button); },
                                      [=] { EXPECT_TRUE(support::WaitFor([=] { return tree->m_pressed.load(); })); },
                                      [=, &released] {
                                          support::Release(button);
                                          released = true;
                                      }});
    EXPECT_TRUE(support::PumpUntil([&] { return released.load(); }));
    support::Settle();
}

void TreeTest::Pull(HTREEITEM item, Button button)
{
    POINT const place = PlaceOf(item);
    m_tree->m_pressed = false;
    HookTree const* const tree = m_tree.get();
    int const before = m_frame->CountNotify(TVN_BEGINDRAG) + m_frame->CountNotify(TVN_BEGINRDRAG);
    std::atomic<bool> moved = false;
    support::InputThread const input({[=] { support::MoveMouse(place); }, [=] { support::Press(button); },
                                      [=] { EXPECT_TRUE(support::WaitFor([=] { return tree->m_pressed.load(); })); },
                                      [=, &moved] {
                                          support::MoveMouse({place.x + 12, place.y});
                                          moved = true;
                                      }});
    EXPECT_TRUE(support::PumpUntil(
        [&] { return moved && m_frame->CountNotify(TVN_BEGINDRAG) + m_frame->CountNotify(TVN_BEGINRDRAG) > before; }));
    support::Settle();
}

void TreeTest::MoveTo(POINT place)
{
    support::MoveMouse(place);
    support::Settle();
}

void TreeTest::Release(Button button)
{
    support::Release(button);
    support::Settle();
}

int TreeTest::CursorCount()
{
    ::ShowCursor(TRUE);
    return ::ShowCursor(FALSE);
}

bool TreeTest::ImageDragRuns() { return ::ImageList_GetDragImage(nullptr, nullptr) != nullptr; }
