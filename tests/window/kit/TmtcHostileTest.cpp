// TmtcHostileTest.cpp - hooks that pull the ground from under the thematic list, and very many elements

#include "ThematicFixture.h"

#include "tavkit/frame/LifePtr.h"

#include <windows.h>

namespace
{

constexpr CPoint kText{100, 18};
constexpr CPoint kRmv{179, 18};
constexpr CPoint kDown{194, 28};
constexpr CPoint kAdd{20, 15};

class TmtcHostile : public ThematicTest
{
protected:
    void SetUp() override
    {
        ThematicTest::SetUp();
        Open();
        m_group = AddGroup(2);
        m_item = m_group->Get(0);
        Paint();
    }
    void EndList() { m_list.reset(); }
    /// A click without asking the list where anything is afterwards.
    static void Click(HWND list, CPoint place, support::Button button = support::Button::left)
    {
        support::MoveMouse(support::ScreenPoint(list, place.x, place.y));
        support::Settle();
        support::Press(button);
        support::Settle();
        support::Release(button);
        support::Settle();
    }

    Group* m_group = nullptr;
    Item* m_item = nullptr;
};

TEST_F(TmtcHostile, TheRemovalHookMayDeleteTheItemItself)
{
    List().m_rmvItem = [](Group* group, Item* item) { group->RmvItem(item, true); };
    Click(List().m_hWnd, kRmv);
    EXPECT_EQ(m_group->GetNumItem(), 1);
}

TEST_F(TmtcHostile, TheRemovalHookMayDeleteTheItemAndPassItOnAllTheSame)
{
    List().m_rmvItem = [this](Group* group, Item* item) {
        group->RmvItem(item, true);
        List().TmtcListCtrl::OnRmvItem(group, item);
    };
    Click(List().m_hWnd, kRmv);
    EXPECT_EQ(m_group->GetNumItem(), 1);
}

TEST_F(TmtcHostile, TheRemovalHookMayRemoveTheWholeGroupAndPassItOn)
{
    List().m_rmvItem = [this](Group* group, Item* item) {
        List().Rmv(group);
        List().TmtcListCtrl::OnRmvItem(group, item);
    };
    Click(List().m_hWnd, kRmv);
    EXPECT_EQ(List().GetNumElmt(), 0);
}

TEST_F(TmtcHostile, TheSelectionHookMayDeleteTheItemThatIsBeingRemoved)
{
    List().OnSlctChng(nullptr, m_item);
    List().m_slctChng = [this](Elmt* old, Elmt*) {
        if (old == m_item)
        {
            m_group->RmvItem(m_item, true);
        }
    };
    Click(List().m_hWnd, kRmv);
    EXPECT_EQ(m_group->GetNumItem(), 1);
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
}

TEST_F(TmtcHostile, TheSelectionHookMayRemoveTheGroupOfTheItemThatIsBeingRemoved)
{
    List().OnSlctChng(nullptr, m_item);
    List().m_slctChng = [this](Elmt*, Elmt*) { List().Rmv(m_group); };
    Click(List().m_hWnd, kRmv);
    EXPECT_EQ(List().GetNumElmt(), 0);
}

TEST_F(TmtcHostile, TheSelectionHookMayDeleteWhatIsBeingSelected)
{
    List().m_slctChng = [this](Elmt* old, Elmt* next) {
        m_group->RmvItem(dynamic_cast<Item*>(next), true);
        List().TmtcListCtrl::OnSlctChng(old, next);
    };
    Click(List().m_hWnd, kText);
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
    EXPECT_EQ(m_group->GetNumItem(), 1);
}

TEST_F(TmtcHostile, TheSelectionHookMayDeleteWhatWasSelected)
{
    Item* const second = m_group->Get(1);
    List().OnSlctChng(nullptr, second);
    List().m_slctChng = [this](Elmt* old, Elmt* next) {
        m_group->RmvItem(dynamic_cast<Item*>(old), true);
        List().TmtcListCtrl::OnSlctChng(old, next);
    };
    Click(List().m_hWnd, kText);
    EXPECT_EQ(List().GetSlctElmt(), m_item);
    EXPECT_TRUE(m_item->IsSlct());
}

TEST_F(TmtcHostile, TheSelectionHookOfARemovalMayDestroyTheList)
{
    List().AddTail(NewItem());
    List().OnSlctChng(nullptr, List().Get(1));
    const LifePtr<Elmt> life(List().Get(1));
    List().m_slctChng = [this](Elmt*, Elmt*) { EndList(); };
    m_list->Rmv(m_list->Get(1));
    EXPECT_EQ(m_list, nullptr);
    EXPECT_EQ(life.Get(), nullptr) << "what was being removed went all the same";
}

TEST_F(TmtcHostile, ANewElementWhereAnOldOneStoodIsNotTakenForIt)
{
    // An allocator gives the block of a deleted item to the next one more often than not.
    List().m_rmvItem = [this](Group* group, Item* item) {
        List().TmtcListCtrl::OnRmvItem(group, item);
        Item* const added = NewItem("new");
        List().AddTail(added);
        EXPECT_EQ(List().GetSlctElmt(), added);
        EXPECT_TRUE(added->IsSlct());
    };
    for (int i = 0; i < 2; ++i)
    {
        Click(List().m_hWnd, kRmv);
        List().OnSlctChng(List().GetSlctElmt(), nullptr);
    }
    EXPECT_EQ(List().GetNumElmt(), 3);
}

TEST_F(TmtcHostile, AHookMayEmptyTheListWhileItIsPainted)
{
    AddGroup(1, "second");
    AddGroup(1, "third");
    List().m_look = [this] {
        while (List().GetNumElmt() > 0)
        {
            List().Rmv(List().Get(0));
        }
        return true;
    };
    Paint();
    EXPECT_EQ(List().GetNumElmt(), 0);
}

struct Ending
{
    const char* name;
    CPoint place;
    support::Button button;
    void (*arm)(HookList&, std::function<void()> end);
};

class TmtcEnding : public TmtcHostile, public testing::WithParamInterface<Ending>
{
};

TEST_P(TmtcEnding, MayDestroyTheWindow)
{
    HookList& list = List();
    GetParam().arm(list, [&list] { list.DestroyWindow(); });
    Click(list.m_hWnd, GetParam().place, GetParam().button);
    list.Invalidate(FALSE);
    support::Settle();
    EXPECT_EQ(list.m_hWnd, nullptr);
}

TEST_P(TmtcEnding, MayDestroyTheObject)
{
    GetParam().arm(List(), [this] { EndList(); });
    List().Invalidate(FALSE);
    Click(List().m_hWnd, GetParam().place, GetParam().button);
    EXPECT_EQ(m_list, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Hook, TmtcEnding,
    testing::Values(
        Ending{"Selection", kText, support::Button::left,
               [](HookList& list, std::function<void()> end) { list.m_slctChng = [=](Elmt*, Elmt*) { end(); }; }},
        Ending{"SelectionByTheRightButton", kText, support::Button::right,
               [](HookList& list, std::function<void()> end) { list.m_slctChng = [=](Elmt*, Elmt*) { end(); }; }},
        Ending{"Removal", kRmv, support::Button::left,
               [](HookList& list, std::function<void()> end) { list.m_rmvItem = [=](Group*, Item*) { end(); }; }},
        Ending{"SelectionInARemoval", kRmv, support::Button::left,
               [](HookList& list, std::function<void()> end) {
                   HITTEST hit;
                   list.HitTest(kText, &hit);
                   list.OnSlctChng(nullptr, hit.pItem);
                   list.m_slctChng = [=](Elmt*, Elmt*) { end(); };
               }},
        Ending{"Move", kDown, support::Button::left,
               [](HookList& list, std::function<void()> end) {
                   list.m_moveItem = [=](Group*, Item*, bool) {
                       end();
                       return true;
                   };
               }},
        Ending{"Addition", kAdd, support::Button::left,
               [](HookList& list, std::function<void()> end) {
                   list.m_addToGroup = [=](Group*) -> Item* {
                       end();
                       return nullptr;
                   };
               }}),
    [](auto const& info) { return std::string(info.param.name); });

TEST_F(TmtcHostile, TheLookMayDestroyTheWindow)
{
    List().m_look = [this] {
        List().DestroyWindow();
        return true;
    };
    List().Invalidate(FALSE);
    support::Settle();
    EXPECT_EQ(List().m_hWnd, nullptr);
    List().m_look = nullptr;
    List().m_paints = 0;
    Open();
    EXPECT_GT(List().m_paints, 0) << "it can be opened again";
}

TEST_F(TmtcHostile, TheLookMayDestroyTheObject)
{
    List().m_look = [this] {
        EndList();
        return true;
    };
    List().Invalidate(FALSE);
    support::Settle();
    EXPECT_EQ(m_list, nullptr);
    m_list = std::make_unique<HookList>();
    Open();
    EXPECT_GT(List().m_paints, 0) << "another can be opened";
}

TEST_F(TmtcHostile, WithoutAWindowNothingIsPaintedAndNothingBreaks)
{
    List().DestroyWindow();
    List().RepositionItems();
    EXPECT_TRUE(List().OnMoveItem(m_group, m_item, false));
    List().SlctItem(CPoint(0, 0));
    List().OnRmvItem(m_group, m_item);
    EXPECT_EQ(m_group->GetNumItem(), 1);
}

TEST_F(TmtcHostile, AGroupMayHoldTenThousandItems)
{
    Group* const group = AddGroup(10'000, "many");
    Paint();
    EXPECT_EQ(group->ComputeHeight(), 339'998);
    EXPECT_EQ(Hit(100, 70 + 9'999 * 34 + 5).pItem, group->Get(9'999));
    EXPECT_EQ(List().GetNextItem(group->Get(9'999), true, true), group->Get(9'998));
    EXPECT_TRUE(group->MoveItem(group->Get(9'999), true));
    EXPECT_EQ(PixelAt(120, 70), kOutlineGrey) << "the first of them is painted";
}

/// Bytes that live blocks of the heap hold.
std::size_t HeapInUse()
{
    std::size_t bytes = 0;
    std::vector<HANDLE> heaps(::GetProcessHeaps(0, nullptr));
    heaps.resize(::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    for (HANDLE heap : heaps)
    {
        PROCESS_HEAP_ENTRY entry{};
        ::HeapLock(heap);
        while (::HeapWalk(heap, &entry))
        {
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
        ::HeapUnlock(heap);
    }
    return bytes;
}

TEST_F(TmtcHostile, TenThousandAdditionsAndRemovalsLeaveNothingBehind)
{
    const auto addAndRemove = [this](int rounds) {
        for (int i = 0; i < rounds; ++i)
        {
            Item* const inner = Item::Create("inner", kGreenIcon, 0, true);
            m_group->AddTail(inner);
            Item* const top = Item::Create("top", "no such file", 0, false);
            List().AddTail(top);
            Group* const group = NewGroup();
            group->AddTail(NewItem());
            List().AddPos(0, group);
            List().OnRmvItem(m_group, inner);
            List().Rmv(top);
            List().Rmv(group);
            List().m_removals = {};
            List().m_slctChanges = {};
        }
    };
    addAndRemove(100);
    Paint();
    const support::SystemCounts before = support::CountSystemObjects();
    const std::size_t heap = HeapInUse();
    addAndRemove(10'000);
    EXPECT_EQ(support::CountSystemObjects(), before);
    const std::size_t after = HeapInUse();
    EXPECT_LT(after, heap + 10'000) << "less than a byte for each addition";
    EXPECT_EQ(List().GetNumElmt(), 1);
    EXPECT_EQ(m_group->GetNumItem(), 2);
}

TEST_F(TmtcHostile, RepaintsLeaveNothingBehind)
{
    AddGroup(0, "empty");
    Paint();
    const support::SystemCounts before = support::CountSystemObjects();
    for (int i = 0; i < 200; ++i)
    {
        List().Invalidate(FALSE);
        List().UpdateWindow();
    }
    EXPECT_EQ(support::CountSystemObjects(), before);
}

} // namespace
