// TmtcPaintTest.cpp - what the thematic list looks like, by colour at a place

#include "Picture.h"
#include "ThematicFixture.h"

#include <cstdlib>
#include <string>

namespace
{

constexpr COLORREF kGrey = RGB(192, 192, 192);
constexpr COLORREF kBarStart = RGB(250, 10, 20);
constexpr COLORREF kBarEnd = RGB(30, 40, 240);

bool Near(COLORREF a, COLORREF b)
{
    constexpr int kTolerance = 12;
    return std::abs(GetRValue(a) - GetRValue(b)) <= kTolerance && std::abs(GetGValue(a) - GetGValue(b)) <= kTolerance &&
           std::abs(GetBValue(a) - GetBValue(b)) <= kTolerance;
}

class TmtcPaint : public ThematicTest
{
protected:
    /// The client area as it is on the screen.
    void Take(Picture& picture, int width = kWidth, int height = kHeight)
    {
        Paint();
        CClientDC dc(&List());
        picture.DC()->BitBlt(0, 0, width, height, &dc, 0, 0, SRCCOPY);
    }
};

TEST_F(TmtcPaint, AnEmptyListIsPlain)
{
    Open();
    const COLORREF back = ::GetSysColor(COLOR_BTNFACE);
    Picture picture(kWidth, kHeight, back);
    Take(picture);
    EXPECT_EQ(picture.Painted(), CRect(0, 0, 0, 0));
}

TEST_F(TmtcPaint, NothingIsErasedAheadOfPainting)
{
    Open();
    CClientDC dc(&List());
    EXPECT_EQ(List().SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC)), 0);
    dc.SetPixel(5, 5, RGB(1, 2, 3));
    List().SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC));
    EXPECT_EQ(dc.GetPixel(5, 5), RGB(1, 2, 3));
}

TEST_F(TmtcPaint, ACardIsShadedFromWhiteToGreyWithAGreyOutline)
{
    Open();
    AddGroup(1);
    Picture picture(kWidth, kHeight, 0);
    Take(picture);
    EXPECT_TRUE(Near(picture.At(100, 4), RGB(255, 255, 255)));
    EXPECT_TRUE(Near(picture.At(150, 32), kGrey));
    EXPECT_EQ(picture.At(120, 2), kOutlineGrey);
    EXPECT_EQ(picture.At(120, 34), kOutlineGrey);
    EXPECT_EQ(picture.At(34, 18), kOutlineGrey);
    EXPECT_EQ(picture.At(199, 18), kOutlineGrey);
    EXPECT_EQ(picture.At(120, 1), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.At(120, 36), ::GetSysColor(COLOR_BTNFACE));
}

TEST_F(TmtcPaint, WithoutTheShadedLookCardsAndBarsAreFlat)
{
    Open();
    Group* const group = AddGroup(2);
    List().m_look = [] { return false; };
    Picture picture(kWidth, kHeight, 0);
    Take(picture);
    EXPECT_EQ(picture.At(150, 5), kGrey);
    EXPECT_EQ(picture.At(150, 30), kGrey);
    EXPECT_TRUE(Near(picture.At(4, 50), kBarEnd));
    EXPECT_TRUE(Near(picture.At(30, 50), kBarEnd));
    EXPECT_EQ(group->GetStartColor(), kBarStart);
}

TEST_F(TmtcPaint, TheLookIsAskedForEachVisibleElement)
{
    Open();
    AddGroup(2);
    AddGroup(1);
    List().AddTail(NewItem());
    List().AddTail(NewItem());
    List().Get(3)->SetVisible(false);
    support::Settle();
    List().m_looksAsked = 0;
    List().m_paints = 0;
    Paint();
    ASSERT_EQ(List().m_paints, 1);
    EXPECT_EQ(List().m_looksAsked, 3);
}

TEST_F(TmtcPaint, ABarRunsFromItsFirstColourToItsSecond)
{
    Open();
    AddGroup(2);
    Picture picture(kWidth, kHeight, 0);
    Take(picture);
    EXPECT_TRUE(Near(picture.At(2, 50), kBarStart));
    EXPECT_TRUE(Near(picture.At(31, 50), kBarEnd));
    EXPECT_EQ(picture.At(1, 50), kOutlineGrey);
    EXPECT_EQ(picture.At(32, 50), kOutlineGrey) << "32 pixels wide, the right side counts one less";
    EXPECT_EQ(picture.At(33, 50), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.At(16, 68), kOutlineGrey);
}

TEST_F(TmtcPaint, AGroupWithItemsShowsNothingOfItsLink)
{
    Open();
    AddGroup(1)->SetEnblAdd(true);
    Picture picture(kWidth, kHeight, 0);
    Take(picture);
    for (int y = 0; y < kHeight; ++y)
    {
        for (int x = 0; x < kWidth; ++x)
        {
            ASSERT_NE(picture.At(x, y), RGB(0, 0, 255)) << x << ", " << y;
        }
    }
}

TEST_F(TmtcPaint, TheSelectedCardHasAGoldOutlineOfTwoPixels)
{
    Open();
    Item* const item = NewItem();
    List().AddTail(item);
    List().AddTail(NewItem());
    Picture picture(kWidth, kHeight, 0);
    Take(picture);
    EXPECT_EQ(picture.At(100, 2), kGold);
    EXPECT_EQ(picture.At(100, 1), kGold);
    EXPECT_EQ(picture.At(100, 0), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.At(1, 18), kGold);
    EXPECT_EQ(picture.At(100, 36), kOutlineGrey) << "not the other one";
}

TEST_F(TmtcPaint, ACardShowsItsPartsInTheirPlaces)
{
    Open();
    Group* const group = NewGroup();
    Item* const item = Item::Create("Caption", kGreenIcon, 0, true);
    group->AddTail(item);
    group->AddTail(NewItem());
    List().AddTail(group);
    Picture without(kWidth, kHeight, 0);
    item->SetText("");
    Take(without);
    item->SetText("Caption");
    Picture with(kWidth, kHeight, 0);
    Take(with);
    const CRect text = with.DifferenceTo(without);
    EXPECT_GE(text.left, 67);
    EXPECT_LE(text.right, 137);
    EXPECT_NEAR((text.top + text.bottom) / 2, 18, 4);

    item->SetIconRight(kGreenIcon);
    Picture right(kWidth, kHeight, 0);
    Take(right);
    const CRect icon = right.DifferenceTo(with);
    EXPECT_GE(icon.left, 137);
    EXPECT_LE(icon.right, 169);
    EXPECT_GT(icon.Width(), 20);

    item->SetIconLeft(-1);
    Picture none(kWidth, kHeight, 0);
    Take(none);
    const CRect left = none.DifferenceTo(right);
    EXPECT_GE(left.left, 35);
    EXPECT_LE(left.right, 67);

    EXPECT_EQ(right.At(175, 18), RGB(0, 0, 0)) << "the minus";
    EXPECT_NE(right.At(178, 14), RGB(0, 0, 0)) << "which is no plus";
    EXPECT_EQ(right.At(19, 11), RGB(0, 0, 0)) << "the plus in the bar";
    EXPECT_EQ(right.At(16, 15), RGB(0, 0, 0));
    EXPECT_EQ(right.At(194, 26), RGB(227, 227, 227)) << "the arrow down";
    EXPECT_EQ(right.At(194, 43), RGB(227, 227, 227)) << "the second item's arrow up";
}

TEST_F(TmtcPaint, TheRoundButtonsAreOutlinedInTheColourOfShadows)
{
    Open();
    AddGroup(2);
    Picture picture(kWidth, kHeight, 0);
    Take(picture);
    EXPECT_EQ(picture.At(20, 6), ::GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(picture.At(11, 15), ::GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(TmtcPaint, AHiddenElementIsNotPainted)
{
    Open();
    List().AddTail(NewItem());
    List().AddTail(NewItem());
    List().Get(0)->SetVisible(false);
    List().Get(1)->SetVisible(false);
    const COLORREF back = ::GetSysColor(COLOR_BTNFACE);
    Picture picture(kWidth, kHeight, back);
    Take(picture);
    EXPECT_EQ(picture.Painted(), CRect(0, 0, 0, 0));
}

// What lies outside the client area isn't painted. A window that is higher than all elements, and than the screen,
// tells whether that can be seen.

class TmtcInView : public TmtcPaint
{
protected:
    static constexpr int kAllHeight = 60 * 34 + 80;

    /// Where a list of that height differs from one that is high enough for all elements; "0 0 0 0" for nowhere.
    std::string DifferenceToAll(int height)
    {
        Picture all(kWidth, height, 0);
        Picture part(kWidth, height, 0);
        Open(kWidth, kAllHeight);
        Take(all, kWidth, height);
        List().DestroyWindow();
        Open(kWidth, height);
        Take(part, kWidth, height);
        List().DestroyWindow();
        const CRect r = part.DifferenceTo(all);
        return std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right) + " " +
               std::to_string(r.bottom);
    }
};

TEST_F(TmtcInView, WhatIsPartlyInViewLooksAsIfAllWerePainted)
{
    Group* const group = AddGroup(3);
    AddGroup(1);
    List().OnSlctChng(nullptr, group->Get(1));
    for (int height = 30; height < 75; ++height)
    {
        EXPECT_EQ(DifferenceToAll(height), "0 0 0 0") << height;
    }
}

TEST_F(TmtcInView, AGroupThatIsMuchHigherThanTheListLooksAsIfAllWerePainted)
{
    AddGroup(60);
    EXPECT_EQ(DifferenceToAll(kHeight), "0 0 0 0");
}

TEST_F(TmtcPaint, WhatLiesBelowTheListIsPlacedButNotReached)
{
    Open(kWidth, 50);
    AddGroup(3);
    HITTEST hit;
    EXPECT_TRUE(List().HitTest(CPoint(100, 80), &hit)) << "it has its place";
    EXPECT_EQ(hit.pItem, List().GetNextItem(hit.pGroup->Get(1), false, false));
}

TEST_F(TmtcPaint, AListWithoutAnAreaPlacesItsElements)
{
    Open(0, 0);
    Group* const group = AddGroup(2);
    AddGroup(0, "empty");
    Paint();
    List().RepositionItems();
    EXPECT_EQ(group->ComputeHeight(), 66);
    List().SetWindowPos(nullptr, 0, 0, 20, 3, SWP_NOMOVE | SWP_NOZORDER);
    Paint();
    List().SendMessage(WM_PAINT);
}

} // namespace
