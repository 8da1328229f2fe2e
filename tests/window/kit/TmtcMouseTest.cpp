// TmtcMouseTest.cpp - the thematic list under a real mouse

#include "ThematicFixture.h"

#include "tavkit/frame/ModuleHandle.h"
#include "tavkit/resources/resource.h"

namespace
{

using support::Button;
using SlctChange = std::pair<Elmt*, Elmt*>;

/// A group of two editable items, of which the first is selected.
class TmtcMouse : public ThematicTest
{
protected:
    void SetUp() override
    {
        ThematicTest::SetUp();
        Open();
        m_group = AddGroup(2);
        m_first = m_group->Get(0);
        m_second = m_group->Get(1);
        List().OnSlctChng(nullptr, m_first);
        Paint();
        Forget();
    }
    void Forget()
    {
        List().m_slctChanges.clear();
        List().m_paints = 0;
    }
    [[nodiscard]] int StateAt(CPoint place)
    {
        auto const* const button = dynamic_cast<Elmt::ButtonBase*>(Hit(place.x, place.y).pDrawElmt);
        return button != nullptr ? button->GetState() : -1;
    }

    Group* m_group = nullptr;
    Item* m_first = nullptr;
    Item* m_second = nullptr;
    const CPoint m_firstText{100, 18};
    const CPoint m_secondText{100, 52};
    const CPoint m_firstRmv{179, 18};
    const CPoint m_secondRmv{179, 52};
    const CPoint m_firstDown{194, 28};
    const CPoint m_secondUp{194, 42};
    const CPoint m_add{20, 15};
    const CPoint m_bar{20, 50};
    const CPoint m_below{100, 200};
};

TEST_F(TmtcMouse, AButtonLightsUpUnderTheMouseAndGoesOutBeside)
{
    MoveTo(m_firstRmv);
    EXPECT_EQ(StateAt(m_firstRmv), 1);
    EXPECT_EQ(StateAt(m_secondRmv), 0);
    EXPECT_EQ(List().m_paints, 1);
    EXPECT_EQ(PixelAt(179, 12), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    MoveTo(m_firstText);
    EXPECT_EQ(StateAt(m_firstRmv), 0);
    EXPECT_EQ(List().m_paints, 2);
}

TEST_F(TmtcMouse, MovesThatChangeNoButtonRepaintNothing)
{
    MoveTo(m_firstText);
    MoveTo(m_secondText);
    MoveTo(m_bar);
    MoveTo(m_below);
    EXPECT_EQ(List().m_paints, 0);
    MoveTo(m_firstRmv);
    Forget();
    MoveTo(m_firstRmv + CSize(2, 2));
    EXPECT_EQ(List().m_paints, 0) << "within the button";
}

TEST_F(TmtcMouse, AButtonGoesOutWhenTheMouseLeavesTheList)
{
    MoveTo(m_secondRmv);
    ASSERT_EQ(StateAt(m_secondRmv), 1);
    support::MoveMouse({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
    EXPECT_TRUE(support::PumpUntil([&] { return StateAt(m_secondRmv) == 0; }));
    MoveTo(m_secondRmv);
    EXPECT_EQ(StateAt(m_secondRmv), 1) << "the mouse is followed again";
    support::MoveMouse({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
    EXPECT_TRUE(support::PumpUntil([&] { return StateAt(m_secondRmv) == 0; })) << "and its leaving is told again";
}

TEST_F(TmtcMouse, AWindowThatIsMadeAnewFollowsTheMouseAgain)
{
    MoveTo(m_firstRmv);
    List().DestroyWindow();
    Open();
    MoveTo(m_below);
    MoveTo(m_firstRmv);
    ASSERT_EQ(StateAt(m_firstRmv), 1);
    support::MoveMouse({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
    EXPECT_TRUE(support::PumpUntil([&] { return StateAt(m_firstRmv) == 0; }));
}

TEST_F(TmtcMouse, APressStaysUntilTheReleaseWhereverTheMouseGoes)
{
    PressAt(m_firstRmv);
    EXPECT_EQ(StateAt(m_firstRmv), 3);
    MoveTo(m_firstText);
    EXPECT_EQ(StateAt(m_firstRmv), 2);
    support::Release();
    support::Settle();
    EXPECT_EQ(StateAt(m_firstRmv), 0);
    EXPECT_TRUE(List().m_removals.empty()) << "released beside";
}

TEST_F(TmtcMouse, AReleaseClearsEveryButton)
{
    PressAt(m_firstRmv);
    ReleaseAt(m_below);
    EXPECT_EQ(StateAt(m_firstRmv), 0);
    EXPECT_EQ(StateAt(m_secondRmv), 0);
    EXPECT_EQ(StateAt(m_add), 0);
}

TEST_F(TmtcMouse, ThePressOnAButtonDoesNotSelect)
{
    PressAt(m_secondRmv);
    EXPECT_TRUE(List().m_slctChanges.empty());
    EXPECT_EQ(List().GetSlctItem(), m_first);
    ReleaseAt(m_below);
}

TEST_F(TmtcMouse, ALeftClickSelectsTheItem)
{
    ClickAt(m_secondText);
    EXPECT_EQ(List().m_slctChanges, (std::vector<SlctChange>{{m_first, m_second}}));
    EXPECT_EQ(List().GetSlctItem(), m_second);
    EXPECT_GE(List().m_paints, 1);
    EXPECT_EQ(PixelAt(100, 36), kGold);
    EXPECT_EQ(PixelAt(100, 2), kOutlineGrey);
}

TEST_F(TmtcMouse, AClickOnTheSelectedItemReportsNothing)
{
    ClickAt(m_firstText);
    EXPECT_TRUE(List().m_slctChanges.empty());
    EXPECT_EQ(List().GetSlctItem(), m_first);
}

TEST_F(TmtcMouse, AClickBesideAllElementsKeepsTheSelection)
{
    ClickAt(m_below);
    EXPECT_TRUE(List().m_slctChanges.empty());
    EXPECT_EQ(List().GetSlctItem(), m_first);
}

TEST_F(TmtcMouse, AGroupIsSelectedOnlyOnRequest)
{
    EXPECT_FALSE(List().GetEnblGrpSlct());
    ClickAt(m_bar);
    EXPECT_EQ(List().GetSlctElmt(), m_first);
    List().SetEnblGrpSlct(true);
    EXPECT_TRUE(List().GetEnblGrpSlct());
    ClickAt(m_bar - CSize(8, 12)); // not a double click
    EXPECT_EQ(List().m_slctChanges, (std::vector<SlctChange>{{m_first, m_group}}));
    EXPECT_TRUE(m_group->IsSlct());
    EXPECT_EQ(PixelAt(20, 68), kGold) << "the bar's outline at the bottom";
    EXPECT_EQ(PixelAt(100, 2), kOutlineGrey);
}

TEST_F(TmtcMouse, ARightClickSelectsEvenOnAButton)
{
    ClickAt(m_secondRmv, Button::right);
    EXPECT_EQ(List().GetSlctItem(), m_second);
    EXPECT_TRUE(List().m_removals.empty());
    EXPECT_EQ(StateAt(m_secondRmv) & 2, 0) << "nor is the button pressed";
}

TEST_F(TmtcMouse, ARightClickGoesOnToTheContextMenu)
{
    m_frame->Clear();
    ClickAt(m_firstText, Button::right);
    EXPECT_EQ(m_frame->Count(WM_CONTEXTMENU), 1);
}

TEST_F(TmtcMouse, AClickOnTheRemoveButtonRemovesAndLightsTheNext)
{
    ClickAt(m_firstRmv);
    EXPECT_EQ(List().m_removals, (std::vector<std::pair<Group*, Item*>>{{m_group, m_first}}));
    ASSERT_EQ(m_group->GetNumItem(), 1);
    EXPECT_EQ(m_group->Get(0), m_second);
    EXPECT_EQ(List().GetSlctElmt(), nullptr) << "it was the selected one";
    EXPECT_EQ(Hit(100, 18).pItem, m_second) << "it moved up";
    EXPECT_EQ(StateAt(m_firstRmv), 1) << "and is lit without a move of the mouse";
    ClickAt(m_firstRmv);
    EXPECT_EQ(m_group->GetNumItem(), 0);
}

TEST_F(TmtcMouse, ClicksOnTheArrowsMoveTheItem)
{
    ClickAt(m_firstDown);
    EXPECT_EQ(List().m_moves, (std::vector<HookList::Move>{{m_group, m_first, false}}));
    EXPECT_EQ(m_group->Get(0), m_second);
    EXPECT_EQ(Hit(100, 18).pItem, m_second) << "painted anew";
    List().m_moves.clear();
    ClickAt(m_secondUp);
    EXPECT_EQ(List().m_moves, (std::vector<HookList::Move>{{m_group, m_first, true}}));
    EXPECT_EQ(m_group->Get(0), m_first);
    EXPECT_EQ(List().GetSlctItem(), m_first);
}

TEST_F(TmtcMouse, ClicksOnTheAddButtonAskForAnItem)
{
    ClickAt(m_add);
    EXPECT_EQ(List().m_additions, (std::vector<Group*>{m_group}));
    EXPECT_EQ(m_group->GetNumItem(), 2) << "the list adds nothing itself";
}

TEST_F(TmtcMouse, AClickOnTheLinkOfAnEmptyGroupAsksForAnItem)
{
    Group* const empty = AddGroup(0, "empty");
    Paint();
    ClickAt({116, 86}); // the middle of the space
    EXPECT_EQ(List().m_additions, (std::vector<Group*>{empty}));
    empty->SetEnblAdd(false);
    ClickAt({116, 86});
    EXPECT_EQ(List().m_additions.size(), 1U);
}

TEST_F(TmtcMouse, AReleaseOverAButtonFiresItWhereverThePressWas)
{
    PressAt(m_below);
    ReleaseAt(m_add);
    EXPECT_EQ(List().m_additions.size(), 1U);
    PressAt(m_add);
    ReleaseAt(m_secondRmv);
    EXPECT_EQ(List().m_additions.size(), 1U);
    EXPECT_EQ(List().m_removals, (std::vector<std::pair<Group*, Item*>>{{m_group, m_second}}));
}

TEST_F(TmtcMouse, AButtonWithAnotherCommandDoesNothing)
{
    dynamic_cast<Elmt::ButtonBase*>(Hit(m_add.x, m_add.y).pDrawElmt)->SetID(105);
    ClickAt(m_add);
    dynamic_cast<Elmt::ButtonBase*>(Hit(m_add.x, m_add.y).pDrawElmt)->SetID(100);
    ClickAt(m_add);
    EXPECT_TRUE(List().m_additions.empty());
    EXPECT_TRUE(List().m_removals.empty());
    EXPECT_TRUE(List().m_moves.empty());
}

TEST_F(TmtcMouse, ShowsAHandOverWhatCanBeClicked)
{
    const HCURSOR hand = ::LoadCursorA(tavkit::ModuleInstance(), MAKEINTRESOURCE(IDC_TMTC_HAND));
    ASSERT_NE(hand, nullptr);
    MoveTo(m_add);
    EXPECT_EQ(::GetCursor(), hand);
    MoveTo(m_firstText);
    EXPECT_NE(::GetCursor(), hand);
    MoveTo(m_secondUp);
    EXPECT_EQ(::GetCursor(), hand);
    MoveTo({194, 7}); // where the first item has no arrow
    EXPECT_NE(::GetCursor(), hand);
    MoveTo({150, 18}); // the place of the right icon
    EXPECT_NE(::GetCursor(), hand);
}

TEST_F(TmtcMouse, HiddenElementsHearOfEventsButHiddenItemsOfAGroupDoNot)
{
    Item* const top = NewItem();
    List().AddTail(top);
    Paint();
    const CRect topRmv = ButtonOf(nullptr, top, TmtcListCtrl::idRmv);
    top->SetVisible(false);
    EXPECT_TRUE(List().ProcessMouseEvent(TmtcListCtrl::mouseMove, topRmv.CenterPoint()));
    EXPECT_TRUE(List().ProcessMouseEvent(TmtcListCtrl::mouseLeave, CPoint(0, 0)));
    m_first->SetVisible(false);
    EXPECT_FALSE(List().ProcessMouseEvent(TmtcListCtrl::mouseMove, m_firstRmv));
}

} // namespace
