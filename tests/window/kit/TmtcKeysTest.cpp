// TmtcKeysTest.cpp - the keyboard in the thematic list, an addition that is off until a host asks for it

#include "ThematicFixture.h"

namespace
{

/// Takes the focus before the list has it, and may do something when it loses it.
class FocusHolder : public CStatic
{
public:
    std::function<void()> m_lost;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (auto const lost = m_lost; message == WM_KILLFOCUS && lost)
        {
            lost();
        }
        return CStatic::WindowProc(message, wParam, lParam);
    }
};

class TmtcKeys : public ThematicTest
{
protected:
    void SetUp() override
    {
        ThematicTest::SetUp();
        Open();
        m_top = NewItem("top");
        List().AddTail(m_top);
        m_group = AddGroup(3);
        AddGroup(0, "empty");
        m_group->Get(1)->SetVisible(false);
        Paint();
        List().m_slctChanges.clear();
    }
    void Press(WORD key)
    {
        support::PressKey(key);
        support::Settle();
    }

    Item* m_top = nullptr;
    Group* m_group = nullptr;
};

TEST_F(TmtcKeys, NeitherAClickNorAKeyDoesAnythingUntilItIsSwitchedOn)
{
    EXPECT_FALSE(List().GetEnblKeySlct());
    const HWND focus = ::GetFocus();
    ClickAt({100, 18});
    EXPECT_EQ(::GetFocus(), focus);
    EXPECT_EQ(List().SendMessage(WM_GETDLGCODE), 0);
    List().SetFocus();
    Press(VK_DOWN);
    Press(VK_END);
    EXPECT_EQ(List().GetSlctItem(), m_top);
    EXPECT_TRUE(List().m_slctChanges.empty());
}

TEST_F(TmtcKeys, AClickGivesTheListTheFocus)
{
    List().SetEnblKeySlct(true);
    EXPECT_TRUE(List().GetEnblKeySlct());
    m_frame->SetFocus();
    ClickAt({100, 18});
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
    m_frame->SetFocus();
    ClickAt({100, 52}, support::Button::right);
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
    EXPECT_EQ(List().GetSlctItem(), m_group->Get(0));
    EXPECT_EQ(List().SendMessage(WM_GETDLGCODE), DLGC_WANTARROWS);
}

TEST_F(TmtcKeys, ArrowsGoThroughTheVisibleItems)
{
    List().SetEnblKeySlct(true);
    List().SetFocus();
    Press(VK_DOWN);
    EXPECT_EQ(List().GetSlctItem(), m_group->Get(0));
    EXPECT_EQ(PixelAt(120, 36), kGold) << "painted anew";
    Press(VK_DOWN);
    EXPECT_EQ(List().GetSlctItem(), m_group->Get(2)) << "past the hidden one";
    Press(VK_DOWN);
    EXPECT_EQ(List().GetSlctItem(), m_group->Get(2)) << "the last";
    Press(VK_UP);
    Press(VK_UP);
    EXPECT_EQ(List().GetSlctItem(), m_top);
    Press(VK_UP);
    EXPECT_EQ(List().GetSlctItem(), m_top) << "the first";
    EXPECT_EQ(List().m_slctChanges.size(), 4U);
}

TEST_F(TmtcKeys, HomeAndEndGoToTheFirstAndTheLastVisibleItem)
{
    List().SetEnblKeySlct(true);
    List().SetFocus();
    Press(VK_END);
    EXPECT_EQ(List().GetSlctItem(), m_group->Get(2));
    m_top->SetVisible(false);
    Press(VK_HOME);
    EXPECT_EQ(List().GetSlctItem(), m_group->Get(0));
}

TEST_F(TmtcKeys, WithoutASelectionTheArrowDownGoesToTheFirstItem)
{
    List().SetEnblKeySlct(true);
    List().SetFocus();
    List().OnSlctChng(m_top, nullptr);
    Press(VK_UP);
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
    Press(VK_DOWN);
    EXPECT_EQ(List().GetSlctItem(), m_top);
    List().OnSlctChng(m_top, m_group);
    Press(VK_DOWN);
    EXPECT_EQ(List().GetSlctItem(), m_top) << "a group counts as no selection";
}

TEST_F(TmtcKeys, OtherKeysAreLeftToTheWindow)
{
    List().SetEnblKeySlct(true);
    List().SetFocus();
    Press(VK_DELETE);
    Press(VK_SPACE);
    EXPECT_EQ(List().GetNumElmt(), 3);
    EXPECT_TRUE(List().m_slctChanges.empty());
}

TEST_F(TmtcKeys, AnEmptyListTakesKeys)
{
    List().SetEnblKeySlct(true);
    while (List().GetNumElmt() > 0)
    {
        List().Rmv(List().Get(0));
    }
    List().SetFocus();
    for (const WORD key : {WORD{VK_UP}, WORD{VK_DOWN}, WORD{VK_HOME}, WORD{VK_END}})
    {
        Press(key);
    }
    EXPECT_EQ(List().GetSlctElmt(), nullptr);
}

TEST_F(TmtcKeys, TheHookMayDestroyTheList)
{
    List().SetEnblKeySlct(true);
    List().SetFocus();
    List().m_slctChng = [this](Elmt*, Elmt*) { m_list.reset(); };
    Press(VK_DOWN);
    EXPECT_EQ(m_list, nullptr);
}

TEST_F(TmtcKeys, WhoLosesTheFocusMayDestroyTheList)
{
    List().SetEnblKeySlct(true);
    for (const support::Button button : {support::Button::left, support::Button::right})
    {
        FocusHolder holder;
        ASSERT_TRUE(holder.Create("", WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), m_frame.get()));
        holder.SetFocus();
        holder.m_lost = [this] { List().DestroyWindow(); };
        const POINT place = support::ScreenPoint(List().m_hWnd, 100, 18);
        support::Click(place, button);
        support::Settle();
        EXPECT_EQ(List().m_hWnd, nullptr);
        holder.m_lost = nullptr;
        holder.DestroyWindow();
        Open();
    }
}

} // namespace
