// CardLayoutTest.cpp - where the cards of the thematic list and their parts stand

#include "tavkit/thematic/CardLayout.h"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

namespace
{

using namespace tavkit::thematic;

void ExpectRect(std::optional<RECT> const& rect, RECT const& expected)
{
    ASSERT_TRUE(rect);
    const auto sides = [](RECT const& r) { return std::tuple(r.left, r.top, r.right, r.bottom); };
    EXPECT_EQ(sides(*rect), sides(expected));
}

TEST(CardStack, PutsTwoPixelsBetweenRows)
{
    CardStack rows({34, 2, 200, 300});
    ExpectRect(rows.Take(32), {34, 2, 200, 34});
    ExpectRect(rows.Take(32), {34, 36, 200, 68});
    ExpectRect(rows.Take(66), {34, 70, 200, 136});
}

TEST(CardStack, GivesWhatTakesNoPlaceTheRunningRectangleAsItStands)
{
    CardStack rows({1, 2, 200, 300});
    ExpectRect(rows.Running(), {1, 2, 200, 300});
    rows.Take(32);
    ExpectRect(rows.Running(), {1, 36, 200, 34});
    ExpectRect(rows.Take(32), {1, 36, 200, 68});
}

TEST(PlaceCard, PutsAllPartsOfAnEditableCard)
{
    const CardParts parts = PlaceCard({34, 2, 200, 34}, true, true, true);
    ExpectRect(parts.iconLeft, {35, 2, 67, 34});
    ExpectRect(parts.up, {190, 4, 199, 12});
    ExpectRect(parts.down, {190, 24, 199, 32});
    ExpectRect(parts.remove, {170, 9, 188, 27});
    ExpectRect(parts.iconRight, {137, 2, 169, 34});
    ExpectRect(parts.caption, {67, 2, 137, 34});
}

TEST(PlaceCard, GivesTheCaptionThePlaceOfTheRemoveButton)
{
    const CardParts parts = PlaceCard({34, 2, 200, 34}, false, true, true);
    EXPECT_FALSE(parts.remove);
    ExpectRect(parts.up, {190, 4, 199, 12});
    ExpectRect(parts.iconRight, {157, 2, 189, 34});
    ExpectRect(parts.caption, {67, 2, 157, 34});
}

TEST(PlaceCard, GivesTheCaptionThePlaceOfARightIconThatIsSwitchedOff)
{
    const CardParts parts = PlaceCard({34, 2, 200, 34}, true, false, true);
    EXPECT_FALSE(parts.iconRight);
    ExpectRect(parts.caption, {67, 2, 170, 34});
}

TEST(PlaceCard, LeavesACaptionThatIsSwitchedOffWhereItWas)
{
    EXPECT_FALSE(PlaceCard({34, 2, 200, 34}, true, true, false).caption);
}

TEST(PlaceCard, MeasuresFromTheSidesOfTheCard)
{
    const CardParts parts = PlaceCard({1, 36, 300, 68}, true, true, true);
    ExpectRect(parts.iconLeft, {2, 36, 34, 68});
    ExpectRect(parts.up, {290, 38, 299, 46});
    ExpectRect(parts.down, {290, 58, 299, 66});
    ExpectRect(parts.remove, {270, 43, 288, 61});
    ExpectRect(parts.iconRight, {237, 36, 269, 68});
    ExpectRect(parts.caption, {34, 36, 237, 68});
}

TEST(GroupHeight, IsOneRowForEachVisibleCardWithTwoPixelsBetween)
{
    EXPECT_EQ(GroupHeight(1), 32);
    EXPECT_EQ(GroupHeight(2), 66);
    EXPECT_EQ(GroupHeight(10'000), 339'998);
}

TEST(GroupHeight, IsThatOfACardWithoutAVisibleOne)
{
    EXPECT_EQ(GroupHeight(0), 32);
    EXPECT_EQ(GroupHeight(-1), 32);
}

TEST(PlaceBar, IsThirtyTwoPixelsAtTheLeft) { ExpectRect(PlaceBar({1, 2, 200, 68}), {1, 2, 33, 68}); }

TEST(CutBar, LeavesABarInViewAsItIs) { ExpectRect(CutBar({1, 2, 33, 68}, 0, 100), {1, 2, 33, 68}); }

TEST(CutBar, KeepsTheCornersOfTheCutOutOfView)
{
    const RECT cut = CutBar({1, -5000, 33, 300'000}, 0, 700);
    EXPECT_LT(cut.top, -kPaintReach);
    EXPECT_GT(cut.bottom, 700 + kPaintReach);
    EXPECT_GT(cut.top, -100) << "no more than is worth it";
    EXPECT_LT(cut.bottom, 800);
    EXPECT_EQ(cut.left, 1);
    EXPECT_EQ(cut.right, 33);
}

TEST(PlaceAddButton, HasAFixedPlaceFromTheLeft)
{
    ExpectRect(PlaceAddButton({1, 2, 200, 68}), {11, 6, 29, 24});
    ExpectRect(PlaceAddButton({50, 100, 200, 168}), {11, 104, 29, 122});
}

TEST(PlaceLink, IsInTheMiddleOfTheSpaceBesideTheBar)
{
    // the space runs from 31 to 198; (167 - 60) / 2 = 53, (32 - 13) / 2 = 9
    ExpectRect(PlaceLink({1, 2, 200, 34}, {60, 13}), {84, 11, 144, 24});
}

TEST(PlaceLink, StartsAtTheSpaceAndEndsWithItWhenTheTextIsTooWide)
{
    ExpectRect(PlaceLink({1, 2, 200, 34}, {500, 13}), {31, 11, 198, 24});
    ExpectRect(PlaceLink({1, 2, 200, 34}, {167, 13}), {31, 11, 198, 24});
    ExpectRect(PlaceLink({1, 2, 200, 34}, {168, 13}), {31, 11, 198, 24});
}

TEST(PlaceLink, HalvesTowardsZeroWhenTheTextIsTooHigh)
{
    ExpectRect(PlaceLink({1, 2, 200, 34}, {60, 35}), {84, 1, 144, 36}); // (32 - 35) / 2 = -1
}

TEST(PlaceLink, IsTurnedInsideOutWhereThereIsNoSpace)
{
    ExpectRect(PlaceLink({1, 2, 0, 34}, {60, 13}), {31, 11, -2, 24});
}

TEST(IsInView, CountsWhatAnOutlineReaches)
{
    EXPECT_TRUE(IsInView({0, 0, 10, 32}, 0, 100));
    EXPECT_TRUE(IsInView({0, 100, 10, 132}, 0, 100)) << "its outline may show";
    EXPECT_TRUE(IsInView({0, -32, 10, 0}, 0, 100));
    EXPECT_FALSE(IsInView({0, 104, 10, 136}, 0, 100));
    EXPECT_FALSE(IsInView({0, -36, 10, -4}, 0, 100));
    EXPECT_TRUE(IsInView({0, -1000, 10, 1000}, 0, 100)) << "larger than the view";
}

} // namespace
