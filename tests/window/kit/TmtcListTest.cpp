// TmtcListTest.cpp - what a host does with the thematic list: fill it, walk it, select in it, remove from it

#include "ThematicFixture.h"

#include "tavkit/frame/LifePtr.h"

namespace
{

using TmtcList = ThematicTest;
using SlctChange = std::pair<Elmt*, Elmt*>;

TEST_F(TmtcList, HasItsTitleAndTheFrameworksDefaultClass)
{
    Open();
    CString title;
    List().GetWindowText(title);
    EXPECT_STREQ(title, "Thematic List Control");
    constexpr DWORD kStyle = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    EXPECT_EQ(::GetClassLongA(List().m_hWnd, GCL_STYLE) & kStyle, kStyle);
    EXPECT_EQ(::GetClassLongPtrA(List().m_hWnd, GCLP_HBRBACKGROUND), 0U);
}

TEST_F(TmtcList, AnEmptyListHasNoEnds)
{
    EXPECT_EQ(List().GetHead(), nullptr);
    EXPECT_EQ(List().GetTail(), nullptr);
    EXPECT_EQ(List().GetNumElmt(), 0);
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
    EXPECT_EQ(List().GetSlctItem(), nullptr);
    EXPECT_EQ(List().GetNextItem(nullptr, false, false), nullptr);
}

TEST_F(TmtcList, KeepsItsElementsInOrder)
{
    Item* const a = NewItem();
    Group* const b = NewGroup();
    Item* const c = NewItem();
    List().AddTail(a);
    List().AddTail(c);
    List().AddPos(1, b);
    EXPECT_EQ(List().GetNumElmt(), 3);
    EXPECT_EQ(List().Get(0), a);
    EXPECT_EQ(List().Get(1), b);
    EXPECT_EQ(List().Get(2), c);
    EXPECT_EQ(List().GetHead(), a);
    EXPECT_EQ(List().GetTail(), c);
}

TEST_F(TmtcList, AnIndexOutsideHasNoElement)
{
    List().AddTail(NewItem());
    EXPECT_EQ(List().Get(-1), nullptr);
    EXPECT_EQ(List().Get(1), nullptr);
    EXPECT_EQ(List().GetNumElmt(), 1) << "nothing grew";
}

TEST_F(TmtcList, APlaceOutsideIsTakenToTheNearerEndAndNoElementIsNotAdded)
{
    Item* const a = NewItem();
    Item* const b = NewItem();
    List().AddPos(9, a);
    List().AddPos(-9, b);
    List().AddTail(nullptr);
    List().AddPos(0, nullptr);
    EXPECT_EQ(List().Get(0), b);
    EXPECT_EQ(List().Get(1), a);
    EXPECT_EQ(List().GetNumElmt(), 2);
}

TEST_F(TmtcList, TellsItemsFromGroups)
{
    Item* const item = NewItem();
    Group* const group = NewGroup();
    List().AddTail(item);
    List().AddTail(group);
    EXPECT_TRUE(List().IsItem(item));
    EXPECT_FALSE(List().IsGroup(item));
    EXPECT_TRUE(List().IsGroup(group));
    EXPECT_FALSE(List().IsItem(group));
    EXPECT_FALSE(List().IsItem(nullptr));
    EXPECT_FALSE(List().IsGroup(nullptr));
}

TEST_F(TmtcList, FindsTheFirstGroupWithAKeyExactly)
{
    List().AddTail(NewItem("tables"));
    Group* const images = AddGroup(0, "Images");
    Group* const tables = AddGroup(0, "Tables");
    AddGroup(0, "Tables");
    EXPECT_EQ(List().FindGroup("Tables"), tables);
    EXPECT_EQ(List().FindGroup("Images"), images);
    EXPECT_EQ(List().FindGroup("tables"), nullptr);
    EXPECT_EQ(List().FindGroup("Table"), nullptr);
    EXPECT_EQ(List().FindGroup(""), nullptr);
    images->SetID(nullptr);
    EXPECT_EQ(List().FindGroup(""), images);
}

// The first selection

TEST_F(TmtcList, TheFirstItemIsSelectedAndReported)
{
    Item* const item = NewItem();
    List().AddTail(item);
    EXPECT_EQ(List().m_slctChanges, (std::vector<SlctChange>{{nullptr, item}}));
    EXPECT_EQ(List().GetSlctElmt(), item);
    EXPECT_EQ(List().GetSlctItem(), item);
    EXPECT_TRUE(item->IsSlct());
    Item* const second = NewItem();
    List().AddPos(0, second);
    EXPECT_EQ(List().GetSlctItem(), item);
    EXPECT_FALSE(second->IsSlct());
    EXPECT_EQ(List().m_slctChanges.size(), 1U);
}

TEST_F(TmtcList, AnItemIsSelectedEvenIfAnOverrideDoesNotCallTheBase)
{
    List().m_slctChng = [](Elmt*, Elmt*) {};
    Item* const item = NewItem();
    List().AddPos(0, item);
    EXPECT_EQ(List().GetSlctItem(), item);
    EXPECT_TRUE(item->IsSlct());
}

TEST_F(TmtcList, NeitherAGroupNorTheItemsInItAreSelectedByBeingAdded)
{
    Group* const group = AddGroup(2);
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
    EXPECT_TRUE(List().m_slctChanges.empty());
    EXPECT_FALSE(group->IsSlct());
    Item* const item = NewItem();
    List().AddTail(item);
    EXPECT_EQ(List().GetSlctElmt(), item) << "the first item behind a group";
}

TEST_F(TmtcList, ASelectionMovesTheMarkAlong)
{
    Item* const a = NewItem();
    Item* const b = NewItem();
    List().AddTail(a);
    List().AddTail(b);
    List().OnSlctChng(a, b);
    EXPECT_FALSE(a->IsSlct());
    EXPECT_TRUE(b->IsSlct());
    EXPECT_EQ(List().GetSlctElmt(), b);
    List().OnSlctChng(b, nullptr);
    EXPECT_FALSE(b->IsSlct());
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
}

TEST_F(TmtcList, ASelectedGroupIsNoSelectedItem)
{
    Group* const group = AddGroup(1);
    List().OnSlctChng(nullptr, group);
    EXPECT_EQ(List().GetSlctElmt(), group);
    EXPECT_EQ(List().GetSlctItem(), nullptr);
}

// Removal

TEST_F(TmtcList, RemovingDeletesAndReportsTheSelectedItem)
{
    Item* const item = NewItem();
    Item* const other = NewItem();
    List().AddTail(item);
    List().AddTail(other);
    List().m_slctChanges.clear();
    const LifePtr<Elmt> life(item);
    List().m_slctChng = [&](Elmt* old, Elmt* next) {
        EXPECT_EQ(List().GetSlctElmt(), nullptr) << "before the hook";
        EXPECT_EQ(life.Get(), old) << "not yet deleted";
        EXPECT_EQ(next, nullptr);
    };
    List().Rmv(item);
    EXPECT_EQ(life.Get(), nullptr);
    EXPECT_EQ(List().m_slctChanges.size(), 1U);
    EXPECT_EQ(List().GetSlctElmt(), nullptr) << "not the other one";
    List().m_slctChng = nullptr;
    List().Rmv(other);
    EXPECT_EQ(List().m_slctChanges.size(), 1U) << "it wasn't selected";
    EXPECT_EQ(List().GetNumElmt(), 0);
}

TEST_F(TmtcList, RemovingASelectedGroupReportsNoElement)
{
    Group* const group = AddGroup(1);
    List().OnSlctChng(nullptr, group);
    List().m_slctChanges.clear();
    List().Rmv(group);
    EXPECT_EQ(List().m_slctChanges, (std::vector<SlctChange>{{nullptr, nullptr}}));
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
}

TEST_F(TmtcList, WhatIsNotAtTheTopLevelIsNotRemoved)
{
    Group* const group = AddGroup(1);
    const std::unique_ptr<Item> stranger(NewItem());
    List().Rmv(group->Get(0));
    List().Rmv(stranger.get());
    List().Rmv(nullptr);
    EXPECT_EQ(group->GetNumItem(), 1);
    EXPECT_STREQ(stranger->GetText(), "Item");
}

TEST_F(TmtcList, TakingOutLeavesTheElementAndTheSelection)
{
    Item* const a = NewItem();
    Item* const b = NewItem();
    List().AddTail(a);
    List().AddTail(b);
    const std::unique_ptr<Elmt> head(List().RmvHead());
    EXPECT_EQ(head.get(), a);
    EXPECT_EQ(List().GetSlctElmt(), a) << "the selection isn't touched";
    EXPECT_TRUE(a->IsSlct());
    const std::unique_ptr<Elmt> tail(List().RmvTail());
    EXPECT_EQ(tail.get(), b);
    EXPECT_EQ(List().GetNumElmt(), 0);
}

TEST_F(TmtcList, ASelectedElementThatIsDeletedElsewhereIsNoLongerSelected)
{
    Group* const group = AddGroup(2);
    List().OnSlctChng(nullptr, group->Get(0));
    group->RmvItem(group->Get(0), true);
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
    EXPECT_EQ(List().GetSlctItem(), nullptr);
}

TEST_F(TmtcList, DeletesItsElementsAtItsEndWithoutReporting)
{
    Item* const item = NewItem();
    Group* const group = NewGroup();
    Item* const inner = NewItem();
    group->AddTail(inner);
    const LifePtr<Elmt> itemLife(item);
    const LifePtr<Elmt> groupLife(group);
    const LifePtr<Elmt> innerLife(inner);
    List().AddTail(item);
    List().AddTail(group);
    int reported = 0;
    List().m_slctChng = [&](Elmt*, Elmt*) { ++reported; };
    m_list.reset();
    EXPECT_EQ(itemLife.Get(), nullptr);
    EXPECT_EQ(groupLife.Get(), nullptr);
    EXPECT_EQ(innerLife.Get(), nullptr);
    EXPECT_EQ(reported, 0);
}

// The remove button's hook

TEST_F(TmtcList, RemovingFromAGroupTakesTheItemOutAndSelectsNobody)
{
    Open();
    Group* const group = AddGroup(2);
    Item* const item = group->Get(0);
    Item* const next = group->Get(1);
    List().OnSlctChng(nullptr, item);
    List().m_slctChanges.clear();
    List().OnRmvItem(group, item);
    EXPECT_EQ(group->GetNumItem(), 1);
    EXPECT_EQ(group->Get(0), next);
    EXPECT_EQ(List().m_slctChanges, (std::vector<SlctChange>{{item, nullptr}}));
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
    EXPECT_FALSE(next->IsSlct());
}

TEST_F(TmtcList, RemovingAnItemThatIsNotSelectedReportsNothing)
{
    Group* const group = AddGroup(2);
    List().OnSlctChng(nullptr, group->Get(0));
    List().m_slctChanges.clear();
    List().OnRmvItem(group, group->Get(1));
    EXPECT_TRUE(List().m_slctChanges.empty());
    EXPECT_EQ(List().GetSlctElmt(), group->Get(0));
}

TEST_F(TmtcList, RemovingAtTheTopLevelReportsOnceAndRemoves)
{
    Item* const item = NewItem();
    List().AddTail(item);
    List().m_slctChanges.clear();
    List().OnRmvItem(nullptr, item);
    EXPECT_EQ(List().m_slctChanges, (std::vector<SlctChange>{{item, nullptr}}));
    EXPECT_EQ(List().GetNumElmt(), 0);
}

TEST_F(TmtcList, RemovingNothingDoesNothing)
{
    Group* const group = AddGroup(1);
    List().OnRmvItem(nullptr, nullptr);
    List().OnRmvItem(group, nullptr);
    EXPECT_EQ(group->GetNumItem(), 1);
    EXPECT_TRUE(List().m_slctChanges.empty());
}

class TmtcReplacement : public ThematicTest
{
protected:
    /// State of the remove button of an item; -1 if it has none.
    int StateOf(Group* group, Item* item)
    {
        List().RepositionItems();
        const CRect rect = ButtonOf(group, item, TmtcListCtrl::idRmv);
        auto const* const button = dynamic_cast<Elmt::ButtonBase*>(Hit(rect.left, rect.top).pDrawElmt);
        return button != nullptr ? button->GetState() : -1;
    }
};

TEST_F(TmtcReplacement, TheItemBehindMovesUpWithItsRemoveButtonLit)
{
    Open();
    Group* const group = AddGroup(3);
    Item* const next = group->Get(1);
    List().OnRmvItem(group, group->Get(0));
    EXPECT_EQ(StateOf(group, next), 1);
    EXPECT_EQ(StateOf(group, group->Get(1)), 0);
}

TEST_F(TmtcReplacement, BehindTheLastItemTheNextGroupsFirstItemIsLit)
{
    Open();
    Group* const upper = AddGroup(2);
    Group* const lower = AddGroup(2);
    List().OnRmvItem(upper, upper->Get(1));
    EXPECT_EQ(StateOf(lower, lower->Get(0)), 1);
    EXPECT_EQ(StateOf(lower, lower->Get(1)), 0);
    EXPECT_EQ(StateOf(upper, upper->Get(0)), 0) << "not the items before it";
}

TEST_F(TmtcReplacement, BehindTheLastItemAnItemAtTheTopLevelIsLit)
{
    Open();
    Group* const group = AddGroup(2);
    Item* const item = NewItem();
    List().AddTail(item);
    List().OnRmvItem(group, group->Get(1));
    EXPECT_EQ(StateOf(nullptr, item), 1);
}

TEST_F(TmtcReplacement, TheOnlyItemOfAGroupHasNoReplacement)
{
    Open();
    Group* const upper = AddGroup(1);
    Group* const lower = AddGroup(1);
    List().OnRmvItem(upper, upper->Get(0));
    EXPECT_EQ(StateOf(lower, lower->Get(0)), 0);
}

TEST_F(TmtcReplacement, BehindAnEmptyGroupNothingIsLit)
{
    Open();
    Group* const upper = AddGroup(2);
    AddGroup(0);
    Group* const third = AddGroup(1);
    List().OnRmvItem(upper, upper->Get(1));
    EXPECT_EQ(StateOf(third, third->Get(0)), 0);
    EXPECT_EQ(upper->GetNumItem(), 1);
}

TEST_F(TmtcReplacement, AtTheEndOfTheListNothingIsLit)
{
    Open();
    Group* const group = AddGroup(2);
    List().OnRmvItem(group, group->Get(1));
    EXPECT_EQ(StateOf(group, group->Get(0)), 0);
}

// Moving

TEST_F(TmtcList, AnItemMovesWithinItsGroup)
{
    Group* const group = AddGroup(2);
    Item* const first = group->Get(0);
    EXPECT_TRUE(List().OnMoveItem(group, first, false));
    EXPECT_EQ(group->Get(1), first);
    EXPECT_FALSE(List().OnMoveItem(group, first, false));
    EXPECT_FALSE(List().OnMoveItem(nullptr, first, true));
    EXPECT_FALSE(List().OnMoveItem(group, nullptr, true));
}

TEST_F(TmtcList, AnItemAtTheTopLevelCantBeMovedByItsArrowsThoughTheyAreShown)
{
    Open();
    Item* const a = NewItem();
    Item* const b = NewItem();
    List().AddTail(a);
    List().AddTail(b);
    List().RepositionItems();
    const CRect down = ButtonOf(nullptr, a, TmtcListCtrl::idDown);
    ASSERT_FALSE(down.IsRectEmpty());
    ClickAt(down.CenterPoint());
    ASSERT_EQ(List().m_moves.size(), 1U);
    EXPECT_EQ(List().m_moves[0], (HookList::Move{nullptr, a, false}));
    EXPECT_EQ(List().Get(0), a);
}

TEST_F(TmtcList, AGroupChangesPlacesOnlyWithAGroup)
{
    Group* const a = AddGroup(0);
    Group* const b = AddGroup(0);
    Item* const item = NewItem();
    List().AddTail(item);
    EXPECT_FALSE(List().MoveElmnt(a, true)) << "nothing above";
    EXPECT_TRUE(List().MoveElmnt(a, false));
    EXPECT_EQ(List().Get(0), b);
    EXPECT_EQ(List().Get(1), a);
    EXPECT_FALSE(List().MoveElmnt(a, false)) << "an item below";
    EXPECT_FALSE(List().MoveElmnt(item, true)) << "an item";
    EXPECT_FALSE(List().MoveElmnt(nullptr, true));
    const std::unique_ptr<Group> stranger(NewGroup());
    EXPECT_FALSE(List().MoveElmnt(stranger.get(), false));
    EXPECT_TRUE(List().MoveElmnt(a, true));
    EXPECT_EQ(List().Get(0), a);
}

// Walking

TEST_F(TmtcList, WalksAllItemsInDisplayOrder)
{
    Item* const head = NewItem("head");
    List().AddTail(head);
    Group* const first = AddGroup(2);
    AddGroup(0);
    Group* const second = AddGroup(1);
    Item* const tail = NewItem("tail");
    List().AddTail(tail);
    const std::vector<Item*> order{head, first->Get(0), first->Get(1), second->Get(0), tail};
    Item* item = nullptr;
    for (Item* const expected : order)
    {
        item = List().GetNextItem(item, false, false);
        EXPECT_EQ(item, expected);
    }
    EXPECT_EQ(List().GetNextItem(item, false, false), nullptr);
    for (std::size_t i = order.size(); i-- > 1;)
    {
        EXPECT_EQ(List().GetNextItem(order[i], false, true), order[i - 1]);
    }
    EXPECT_EQ(List().GetNextItem(head, false, true), nullptr);
    EXPECT_EQ(List().GetNextItem(nullptr, false, true), nullptr);
}

TEST_F(TmtcList, WalksVisibleItemsOnRequest)
{
    Group* const group = AddGroup(3);
    group->Get(1)->SetVisible(false);
    EXPECT_EQ(List().GetNextItem(group->Get(0), true, false), group->Get(2));
    EXPECT_EQ(List().GetNextItem(group->Get(2), true, true), group->Get(0));
    EXPECT_EQ(List().GetNextItem(group->Get(1), true, true), group->Get(0));
    EXPECT_EQ(List().GetNextItem(group->Get(1), true, false), nullptr);
}

// Places

TEST_F(TmtcList, ElementsBeginAtTheTopLeftAndReachTheRightSide)
{
    Open();
    Item* const a = NewItem();
    Item* const b = NewItem();
    List().AddTail(a);
    List().AddTail(b);
    List().RepositionItems();
    EXPECT_EQ(Hit(1, 2).pItem, a);
    EXPECT_EQ(Hit(0, 2).pItem, nullptr);
    EXPECT_EQ(Hit(1, 1).pItem, nullptr);
    EXPECT_EQ(Hit(199, 33).pItem, a);
    EXPECT_EQ(Hit(100, 34).pItem, nullptr);
    EXPECT_EQ(Hit(1, 36).pItem, b);
}

TEST_F(TmtcList, AHiddenElementTakesNoPlaceAndIsNotHit)
{
    Open();
    Item* const a = NewItem();
    Item* const b = NewItem();
    List().AddTail(a);
    List().AddTail(b);
    a->SetVisible(false);
    List().RepositionItems();
    EXPECT_FALSE(a->IsVisible());
    EXPECT_EQ(Hit(100, 20).pItem, b);
    EXPECT_EQ(Hit(100, 40).pItem, nullptr);
}

TEST_F(TmtcList, ShowingElementsHasNoEffectWhateverTheArguments)
{
    Open();
    Item* const item = NewItem();
    List().AddTail(item);
    List().ShowElement(item, false);
    EXPECT_TRUE(item->IsVisible());
    item->SetVisible(false);
    List().ShowElement(item, true);
    EXPECT_FALSE(item->IsVisible());
    List().ShowElement(nullptr, true);
}

TEST_F(TmtcList, ResizingPlacesTheElementsAnew)
{
    Open();
    Group* const group = AddGroup(1);
    List().SetWindowPos(nullptr, 0, 0, 150, 100, SWP_NOMOVE | SWP_NOZORDER);
    Paint();
    EXPECT_EQ(PartAt(75, 20), CRect(67, 2, 87, 34)) << "the caption";
    EXPECT_EQ(Hit(149, 20).pItem, group->Get(0));
}

} // namespace
