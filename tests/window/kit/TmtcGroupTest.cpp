// TmtcGroupTest.cpp - items and groups of the thematic list: parts, places, order, ownership

#include "ThematicFixture.h"

#include "tavkit/frame/LifePtr.h"

namespace
{

class TmtcGroup : public ThematicTest
{
protected:
    /// The link has the command of the add button, which lies left of x 31.
    [[nodiscard]] CRect LinkPlace(Group* group)
    {
        CRect client;
        m_list->GetClientRect(&client);
        for (int y = 0; y < client.bottom; y += 4)
        {
            for (int x = 31; x < client.right; x += 4)
            {
                HITTEST const hit = Hit(x, y);
                if (hit.pGroup == group && hit.pItem == nullptr && hit.pDrawElmt != nullptr)
                {
                    return PartAt(x, y);
                }
            }
        }
        return {};
    }
};

// Places

TEST_F(TmtcGroup, ThePartsOfTwoEditableItemsStandWhereTheyAreMeantTo)
{
    Open();
    Group* const group = AddGroup(2);
    Item* const first = group->Get(0);
    EXPECT_EQ(Hit(34, 2).pItem, first);
    EXPECT_EQ(Hit(199, 33).pItem, first);
    EXPECT_EQ(Hit(33, 2).pItem, nullptr) << "left of the first item";
    EXPECT_EQ(Hit(100, 34).pItem, nullptr) << "between the items";
    EXPECT_EQ(Hit(100, 35).pItem, nullptr);
    EXPECT_EQ(Hit(100, 35).pGroup, group);
    EXPECT_EQ(Hit(34, 36).pItem, group->Get(1));
    EXPECT_EQ(Hit(199, 67).pItem, group->Get(1));
    EXPECT_EQ(Hit(100, 68).pGroup, nullptr) << "below the group";
    EXPECT_EQ(Hit(0, 10).pGroup, nullptr) << "left of the group";
    EXPECT_EQ(Hit(1, 2).pGroup, group);

    EXPECT_EQ(PartAt(50, 20), CRect(35, 2, 67, 34));
    EXPECT_EQ(PartAt(100, 20), CRect(67, 2, 137, 34));
    EXPECT_EQ(PartAt(150, 20), CRect(137, 2, 169, 34));
    EXPECT_EQ(PartAt(180, 20), CRect(170, 9, 188, 27));
    EXPECT_EQ(PartAt(194, 28), CRect(190, 24, 199, 32)) << "the arrow down";
    EXPECT_EQ(PartAt(194, 6), CRect(0, 0, 0, 0)) << "the first item has no arrow up";
    EXPECT_EQ(PartAt(194, 41), CRect(190, 38, 199, 46)) << "the second item's arrow up";
    EXPECT_EQ(PartAt(20, 10), CRect(11, 6, 29, 24)) << "the add button";
}

TEST_F(TmtcGroup, AReadOnlyItemHasNoButtonsAndAWiderCaption)
{
    Open();
    Group* const group = NewGroup();
    group->AddTail(NewItem("read", false));
    group->AddTail(NewItem("read", false));
    group->AddTail(NewItem("read", false));
    List().AddTail(group);
    List().RepositionItems();
    EXPECT_TRUE(group->Get(0)->GetReadOnly());
    EXPECT_EQ(PartAt(170, 20), CRect(157, 2, 189, 34)) << "the right icon";
    EXPECT_EQ(PartAt(100, 20), CRect(67, 2, 157, 34));
    for (const unsigned long id : {TmtcListCtrl::idRmv, TmtcListCtrl::idUp, TmtcListCtrl::idDown})
    {
        EXPECT_EQ(ButtonOf(group, group->Get(1), id), CRect(0, 0, 0, 0)) << id;
    }
}

TEST_F(TmtcGroup, OnlyInnerItemsHaveBothArrows)
{
    Open();
    Group* const group = AddGroup(3);
    const auto has = [&](int item, unsigned long id) { return !ButtonOf(group, group->Get(item), id).IsRectEmpty(); };
    EXPECT_FALSE(has(0, TmtcListCtrl::idUp));
    EXPECT_TRUE(has(0, TmtcListCtrl::idDown));
    EXPECT_TRUE(has(1, TmtcListCtrl::idUp));
    EXPECT_TRUE(has(1, TmtcListCtrl::idDown));
    EXPECT_TRUE(has(2, TmtcListCtrl::idUp));
    EXPECT_FALSE(has(2, TmtcListCtrl::idDown));
}

TEST_F(TmtcGroup, ASingleItemHasNoArrow)
{
    Open();
    Group* const group = AddGroup(1);
    EXPECT_EQ(ButtonOf(group, group->Get(0), TmtcListCtrl::idUp), CRect(0, 0, 0, 0));
    EXPECT_EQ(ButtonOf(group, group->Get(0), TmtcListCtrl::idDown), CRect(0, 0, 0, 0));
}

TEST_F(TmtcGroup, ArrowsGoByThePlaceAmongAllItemsNotByThatAmongTheVisible)
{
    Open();
    Group* const group = AddGroup(3);
    group->Get(0)->SetVisible(false);
    group->Get(2)->SetVisible(false);
    List().RepositionItems();
    EXPECT_EQ(Hit(100, 20).pItem, group->Get(1)) << "it moved up";
    EXPECT_FALSE(ButtonOf(group, group->Get(1), TmtcListCtrl::idUp).IsRectEmpty());
    EXPECT_FALSE(ButtonOf(group, group->Get(1), TmtcListCtrl::idDown).IsRectEmpty());
}

TEST_F(TmtcGroup, ArrowsFollowTheOrderOfTheItems)
{
    Open();
    Group* const group = AddGroup(2);
    Item* const first = group->Get(0);
    ASSERT_TRUE(group->MoveItem(first, false));
    List().RepositionItems();
    EXPECT_FALSE(ButtonOf(group, first, TmtcListCtrl::idUp).IsRectEmpty());
    EXPECT_TRUE(ButtonOf(group, first, TmtcListCtrl::idDown).IsRectEmpty());
}

TEST_F(TmtcGroup, AnItemIsThirtyTwoPixelsHigh)
{
    const std::unique_ptr<Item> item(NewItem());
    EXPECT_EQ(item->ComputeHeight(), 32);
}

TEST_F(TmtcGroup, AGroupIsAsHighAsItsVisibleItemsAndTheGapsBetweenThem)
{
    const std::unique_ptr<Group> group(NewGroup());
    EXPECT_EQ(group->ComputeHeight(), 32);
    group->AddTail(NewItem());
    EXPECT_EQ(group->ComputeHeight(), 32);
    group->AddTail(NewItem());
    group->AddTail(NewItem());
    EXPECT_EQ(group->ComputeHeight(), 100);
    group->Get(1)->SetVisible(false);
    EXPECT_EQ(group->ComputeHeight(), 66);
    EXPECT_EQ(group->GetNumVsblItem(), 2);
    EXPECT_EQ(group->GetNumItem(), 3);
    EXPECT_EQ(group->GetSize(), 3);
}

// The link of an empty group

TEST_F(TmtcGroup, AnEmptyGroupShowsALinkInTheMiddleOfItsSpace)
{
    Open();
    Group* const group = AddGroup(0);
    EXPECT_STREQ(group->GetHyperlinkText(), "Add Layers...");
    EXPECT_EQ(Hit(100, 33).pGroup, group);
    EXPECT_EQ(Hit(100, 34).pGroup, nullptr) << "32 pixels high";
    CClientDC dc(nullptr);
    const SelectScope font(dc, Elmt::Hyperlink::fontHyper);
    CRect text;
    dc.DrawText("Add Layers...", &text, DT_CALCRECT | DT_SINGLELINE);
    const int dx = (198 - 31 - text.Width()) / 2;
    const int dy = (32 - text.Height()) / 2;
    EXPECT_EQ(LinkPlace(group), CRect(31 + dx, 2 + dy, 31 + dx + text.Width(), 2 + dy + text.Height()));
}

TEST_F(TmtcGroup, AGroupThatTakesNoItemsSaysSoInThePlainFontWithoutAnAddButton)
{
    Open();
    Group* const group = AddGroup(0);
    EXPECT_TRUE(group->GetEnblAdd());
    group->SetEnblAdd(false);
    EXPECT_FALSE(group->GetEnblAdd());
    EXPECT_STREQ(group->GetHyperlinkText(), "No Layers items");
    List().RepositionItems();
    EXPECT_TRUE(ButtonOf(group, nullptr, TmtcListCtrl::idAdd).IsRectEmpty());
    Paint();
    bool black = false;
    for (int x = 34; x < 198; ++x)
    {
        for (int y = 5; y < 32; ++y)
        {
            EXPECT_NE(PixelAt(x, y), RGB(0, 0, 255));
            black = black || PixelAt(x, y) == RGB(0, 0, 0);
            if (HasFailure())
            {
                return;
            }
        }
    }
    EXPECT_TRUE(black);
    EXPECT_EQ(PixelAt(20, 14), PixelAt(20, 27)) << "nothing is in the bar";

    group->SetEnblAdd(true);
    EXPECT_STREQ(group->GetHyperlinkText(), "Add Layers...");
    List().RepositionItems();
    EXPECT_EQ(ButtonOf(group, nullptr, TmtcListCtrl::idAdd), CRect(11, 6, 29, 24));
}

TEST_F(TmtcGroup, ALinkThatIsTooWideBeginsAtTheSpaceAndEndsWithIt)
{
    Open();
    Group* const group = AddGroup(0);
    group->SetText("layers with a name that is far too long for the list that they are in");
    List().RepositionItems();
    const CRect place = LinkPlace(group);
    EXPECT_EQ(place.left, 31);
    EXPECT_EQ(place.right, 198);
}

TEST_F(TmtcGroup, AGroupOfHiddenItemsIsACardHighAndShowsNoLink)
{
    Open();
    Group* const group = AddGroup(2);
    group->Get(0)->SetVisible(false);
    group->Get(1)->SetVisible(false);
    List().RepositionItems();
    EXPECT_EQ(group->ComputeHeight(), 32);
    EXPECT_EQ(Hit(100, 33).pGroup, group);
    EXPECT_EQ(Hit(100, 34).pGroup, nullptr);
    EXPECT_EQ(LinkPlace(group), CRect(0, 0, 0, 0));
}

TEST_F(TmtcGroup, TheLinkFollowsTheName)
{
    const std::unique_ptr<Group> group(NewGroup("Images"));
    EXPECT_STREQ(group->GetText(), "Images");
    group->SetText("Tables");
    EXPECT_STREQ(group->GetText(), "Tables");
    EXPECT_STREQ(group->GetHyperlinkText(), "Add Tables...");
    group->SetText(nullptr);
    EXPECT_STREQ(group->GetText(), "");
    EXPECT_STREQ(group->GetHyperlinkText(), "Add ...");
}

TEST_F(TmtcGroup, APercentSignInTheNameIsOnlyAPercentSign)
{
    const std::unique_ptr<Group> group(NewGroup("100 %s %n"));
    EXPECT_STREQ(group->GetHyperlinkText(), "Add 100 %s %n...");
}

// Hits

TEST_F(TmtcGroup, AHitOnAnItemLeavesTheGroupsOwnElementsAlone)
{
    Open();
    Group* const group = AddGroup(2);
    const HITTEST hit = Hit(180, 20);
    EXPECT_EQ(hit.pGroup, group);
    EXPECT_EQ(hit.pItem, group->Get(0));
    EXPECT_EQ(dynamic_cast<Elmt::ButtonBase*>(hit.pDrawElmt)->GetID(), 102U);
    const HITTEST bar = Hit(20, 50);
    EXPECT_EQ(bar.pGroup, group);
    EXPECT_EQ(bar.pItem, nullptr);
    EXPECT_EQ(bar.pDrawElmt, nullptr);
    const HITTEST add = Hit(20, 15);
    EXPECT_EQ(add.pItem, nullptr);
    EXPECT_EQ(dynamic_cast<Elmt::ButtonBase*>(add.pDrawElmt)->GetID(), 101U);
}

TEST_F(TmtcGroup, AnElementWithNothingToShowIsHitAllTheSame)
{
    Open();
    AddGroup(1);
    const HITTEST hit = Hit(150, 20); // the right icon, which has no image
    ASSERT_NE(hit.pDrawElmt, nullptr);
    EXPECT_FALSE(hit.pDrawElmt->IsValid());
}

TEST_F(TmtcGroup, HiddenItemsAreNotHit)
{
    Open();
    Group* const group = AddGroup(2);
    group->Get(0)->SetVisible(false); // without placing anew: the rectangle is still there
    EXPECT_EQ(Hit(100, 20).pItem, nullptr);
    EXPECT_EQ(Hit(100, 20).pGroup, group);
}

TEST_F(TmtcGroup, AMissLeavesTheFieldsOfAnElementsHitTestAlone)
{
    Open();
    Group* const group = AddGroup(1);
    Item other(*group->Get(0));
    HITTEST hit;
    hit.pItem = &other;
    EXPECT_FALSE(group->Get(0)->HitTest(CPoint(0, 0), &hit));
    EXPECT_FALSE(group->HitTest(CPoint(0, 0), &hit));
    EXPECT_EQ(hit.pItem, &other);
    EXPECT_EQ(hit.pGroup, nullptr);
}

// Order

TEST_F(TmtcGroup, ItemsAreAddedAtTheEndOrInsertedAndLearnTheirGroup)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const a = NewItem("a");
    Item* const b = NewItem("b");
    Item* const c = NewItem("c");
    EXPECT_EQ(a->GetGrp(), nullptr);
    group->AddTail(a);
    group->AddTail(c);
    group->Insert(b, 1);
    EXPECT_EQ(group->Get(0), a);
    EXPECT_EQ(group->Get(1), b);
    EXPECT_EQ(group->Get(2), c);
    EXPECT_EQ(b->GetGrp(), group.get());
    EXPECT_TRUE(group->HasItem(b));
    EXPECT_FALSE(group->HasItem(nullptr));
}

TEST_F(TmtcGroup, AnItemMovesByOnePlaceAndNotBeyondTheEnds)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const a = NewItem("a");
    Item* const b = NewItem("b");
    group->AddTail(a);
    group->AddTail(b);
    EXPECT_FALSE(group->MoveItem(a, true));
    EXPECT_FALSE(group->MoveItem(b, false));
    EXPECT_EQ(group->Get(0), a);
    EXPECT_TRUE(group->MoveItem(b, true));
    EXPECT_EQ(group->Get(0), b);
    EXPECT_TRUE(group->MoveItem(b, false));
    EXPECT_EQ(group->Get(0), a);
    const std::unique_ptr<Item> stranger(NewItem());
    EXPECT_FALSE(group->MoveItem(stranger.get(), true));
    EXPECT_FALSE(group->MoveItem(stranger.get(), false));
    EXPECT_FALSE(group->MoveItem(nullptr, false));
}

TEST_F(TmtcGroup, AnItemIsReplacedByTheNextAndAStrangerByTheFirst)
{
    const std::unique_ptr<Group> group(NewGroup());
    EXPECT_EQ(group->FindRplcItem(nullptr), nullptr);
    Item* const a = NewItem("a");
    Item* const b = NewItem("b");
    group->AddTail(a);
    group->AddTail(b);
    EXPECT_EQ(group->FindRplcItem(a), b);
    EXPECT_EQ(group->FindRplcItem(b), nullptr);
    EXPECT_EQ(group->FindRplcItem(nullptr), a);
    const std::unique_ptr<Item> stranger(NewItem());
    EXPECT_EQ(group->FindRplcItem(stranger.get()), a);
}

// Ownership

TEST_F(TmtcGroup, AGroupDeletesItsItems)
{
    auto* const group = NewGroup();
    Item* const item = NewItem();
    const LifePtr<Elmt> life(item);
    group->AddTail(item);
    Group::Delete(group);
    EXPECT_EQ(life.Get(), nullptr);
    Group::Delete(nullptr);
}

TEST_F(TmtcGroup, AnItemIsTakenOutOrDeletedAsWell)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const kept = NewItem();
    Item* const gone = NewItem();
    const LifePtr<Elmt> keptLife(kept);
    const LifePtr<Elmt> goneLife(gone);
    group->AddTail(kept);
    group->AddTail(gone);
    group->RmvItem(kept, false);
    EXPECT_EQ(keptLife.Get(), kept);
    EXPECT_EQ(kept->GetGrp(), group.get()) << "it isn't told";
    group->RmvItem(gone, true);
    EXPECT_EQ(goneLife.Get(), nullptr);
    EXPECT_EQ(group->GetNumItem(), 0);
    group->RmvItem(kept, true);
    EXPECT_EQ(keptLife.Get(), nullptr) << "deleted though it wasn't there";
    group->RmvItem(nullptr, true);
}

TEST_F(TmtcGroup, TakesOverTheItemsOfAnotherWithoutTellingThem)
{
    const std::unique_ptr<Group> from(NewGroup("From"));
    const std::unique_ptr<Group> to(NewGroup("To"));
    const std::unique_ptr<Item> forgotten(NewItem("old"));
    Item* const item = NewItem("moved");
    from->AddTail(item);
    to->AddTail(forgotten.get());
    to->MoveChldr(*from);
    EXPECT_EQ(from->GetNumItem(), 0);
    ASSERT_EQ(to->GetNumItem(), 1);
    EXPECT_EQ(to->Get(0), item);
    EXPECT_EQ(item->GetGrp(), from.get());
    EXPECT_STREQ(forgotten->GetText(), "old") << "not deleted";
}

TEST_F(TmtcGroup, TakingOverItsOwnItemsChangesNothing)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const item = NewItem();
    group->AddTail(item);
    group->MoveChldr(*group);
    ASSERT_EQ(group->GetNumItem(), 1);
    EXPECT_EQ(group->Get(0), item);
}

TEST_F(TmtcGroup, ACopyNamesTheSameItems)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const item = NewItem();
    group->AddTail(item);
    {
        Group copy(*group);
        ASSERT_EQ(copy.GetNumItem(), 1);
        EXPECT_EQ(copy.Get(0), item);
        EXPECT_STREQ(copy.GetID(), "layers");
        copy.RmvItem(item, false); // or both would delete it
    }
    EXPECT_EQ(group->Get(0), item);
}

TEST_F(TmtcGroup, ACopyOfAnItemSharesItsIconAndIsFreeOfItsEnd)
{
    const std::unique_ptr<Item> item(Item::Create("text", kGreenIcon, 42, true));
    {
        const Item copy(*item);
        EXPECT_STREQ(copy.GetText(), "text");
        EXPECT_EQ(copy.GetData(), 42U);
    }
    item->SetIconLeft(-1);
    EXPECT_STREQ(item->GetText(), "text");
}

// What the host reads and writes

TEST_F(TmtcGroup, TheHostsValueIsWideEnoughForAPointer)
{
    const auto data = reinterpret_cast<DWORD_PTR>(this);
    const std::unique_ptr<Item> item(Item::Create("text", -1, data, true));
    const std::unique_ptr<Item> other(Item::Create("text", static_cast<const char*>(nullptr), data, true));
    const std::unique_ptr<Group> group(Group::Create("text", "id", 0, 0, data));
    EXPECT_EQ(item->GetData(), data);
    EXPECT_EQ(other->GetData(), data);
    EXPECT_EQ(group->GetData(), data);
}

TEST_F(TmtcGroup, ColoursAndKeyAreReadAndWritten)
{
    const std::unique_ptr<Group> group(Group::Create("text", "id", RGB(1, 2, 3), RGB(4, 5, 6), 0));
    EXPECT_EQ(group->GetStartColor(), RGB(1, 2, 3));
    EXPECT_EQ(group->GetEndColor(), RGB(4, 5, 6));
    group->SetStartColor(RGB(7, 8, 9));
    group->SetEndColor(RGB(10, 11, 12));
    EXPECT_EQ(group->GetStartColor(), RGB(7, 8, 9));
    EXPECT_EQ(group->GetEndColor(), RGB(10, 11, 12));
    EXPECT_STREQ(group->GetID(), "id");
    group->SetID("other");
    EXPECT_STREQ(group->GetID(), "other");
    group->SetID(nullptr);
    EXPECT_STREQ(group->GetID(), "");
}

TEST_F(TmtcGroup, AnotherEndColourLeavesTheShadowOfTheAddButton)
{
    Open();
    Group* const group = AddGroup(0);
    group->SetEndColor(RGB(1, 2, 3));
    auto const* const add = dynamic_cast<Elmt::Button*>(Hit(20, 15).pDrawElmt);
    ASSERT_NE(add, nullptr);
    EXPECT_EQ(add->GetShadowColor(), RGB(30, 40, 240)) << "the one that it was created with";
}

TEST_F(TmtcGroup, ACaptionMayBeMissing)
{
    const std::unique_ptr<Item> item(Item::Create(nullptr, -1, 0, true));
    EXPECT_STREQ(item->GetText(), "");
    item->SetText("x");
    item->SetText(nullptr);
    EXPECT_STREQ(item->GetText(), "");
}

TEST_F(TmtcGroup, AskingForThePlaceOfARemovedItemGivesNone)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const gone = NewItem();
    const std::unique_ptr<Item> kept(NewItem());
    group->AddTail(gone);
    group->AddTail(kept.get());
    group->RmvItem(gone, true);
    group->RmvItem(kept.get(), false);
    EXPECT_EQ(group->Get(1), nullptr);
    EXPECT_EQ(group->Get(0), nullptr);
    EXPECT_EQ(group->GetNumItem(), 2);
}

TEST_F(TmtcGroup, AskingPastTheEndGivesPlacesWithoutItemsThatAreSkipped)
{
    Open();
    Group* const group = AddGroup(1);
    EXPECT_EQ(group->Get(3), nullptr);
    EXPECT_EQ(group->GetNumItem(), 4);
    EXPECT_EQ(group->GetNumVsblItem(), 1);
    EXPECT_EQ(group->ComputeHeight(), 32);
    EXPECT_EQ(group->Get(-1), nullptr);
    Paint();
    EXPECT_EQ(Hit(100, 20).pItem, group->Get(0));
    EXPECT_FALSE(List().ProcessMouseEvent(TmtcListCtrl::mouseMove, CPoint(100, 20)));
    EXPECT_EQ(List().GetNextItem(group->Get(0), false, false), nullptr);
    group->AddTail(NewItem());
    EXPECT_EQ(group->GetNumItem(), 5);
}

TEST_F(TmtcGroup, NoItemIsNotAdded)
{
    const std::unique_ptr<Group> group(NewGroup());
    group->AddTail(nullptr);
    group->Insert(nullptr, 0);
    EXPECT_EQ(group->GetNumItem(), 0);
}

TEST_F(TmtcGroup, APlaceOutsideIsTakenToTheNearerEnd)
{
    const std::unique_ptr<Group> group(NewGroup());
    Item* const a = NewItem();
    Item* const b = NewItem();
    Item* const c = NewItem();
    group->Insert(a, 7);
    group->Insert(b, 7);
    group->Insert(c, -7);
    EXPECT_EQ(group->Get(0), c);
    EXPECT_EQ(group->Get(1), a);
    EXPECT_EQ(group->Get(2), b);
    EXPECT_EQ(group->GetNumItem(), 3);
}

} // namespace
