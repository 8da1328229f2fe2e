// WindowRecordTest.cpp - arithmetic of a window's remembered place

#include "tavkit/layout/ScrollSteps.h"
#include "tavkit/layout/WindowRecord.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using tavkit::IsReachable;
using tavkit::NextScrollPos;
using tavkit::NormalizedRect;
using tavkit::PercentOf;
using tavkit::ScrollRange;
using tavkit::ScrollStep;
using tavkit::StretchedRect;

constexpr RECT kScreen{0, 0, 1280, 1024};
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();

TEST(NormalizedRect, SwapsSidesThatStandTheWrongWayRound)
{
    const RECT rect = NormalizedRect({500, 400, 100, 50});
    EXPECT_EQ(rect.left, 100);
    EXPECT_EQ(rect.right, 500);
    EXPECT_EQ(rect.top, 50);
    EXPECT_EQ(rect.bottom, 400);
}

TEST(NormalizedRect, LeavesARightOneAlone)
{
    const RECT rect = NormalizedRect({1, 2, 3, 4});
    EXPECT_EQ(rect.left, 1);
    EXPECT_EQ(rect.top, 2);
    EXPECT_EQ(rect.right, 3);
    EXPECT_EQ(rect.bottom, 4);
}

TEST(IsReachable, AnOverlapOfExactlyTheMarginIsNotEnough)
{
    EXPECT_FALSE(IsReachable({-100, 100, 5, 200}, kScreen));
    EXPECT_FALSE(IsReachable({1275, 100, 1400, 200}, kScreen));
    EXPECT_FALSE(IsReachable({100, -100, 200, 5}, kScreen));
    EXPECT_FALSE(IsReachable({100, 1019, 200, 1100}, kScreen));
}

TEST(IsReachable, OnePixelMoreIs)
{
    EXPECT_TRUE(IsReachable({-100, 100, 6, 200}, kScreen));
    EXPECT_TRUE(IsReachable({1274, 100, 1400, 200}, kScreen));
    EXPECT_TRUE(IsReachable({100, -100, 200, 6}, kScreen));
    EXPECT_TRUE(IsReachable({100, 1018, 200, 1100}, kScreen));
}

TEST(IsReachable, AScreenThatHasGoneIsNotReached)
{
    EXPECT_FALSE(IsReachable({2000, 100, 2400, 500}, kScreen));
    EXPECT_TRUE(IsReachable({2000, 100, 2400, 500}, {0, 0, 2560, 1024}));
    EXPECT_TRUE(IsReachable({-900, 100, -400, 500}, {-1280, 0, 1280, 1024}));
}

TEST(IsReachable, AScreenOfNoSizeRefusesNothing)
{
    EXPECT_TRUE(IsReachable({2000, 2000, 2100, 2100}, {0, 0, 0, 0}));
    EXPECT_TRUE(IsReachable({2000, 2000, 2100, 2100}, {0, 0, 100, 0}));
}

TEST(IsReachable, AScreenNoLargerThanItsMarginsIsNeverReached)
{
    EXPECT_FALSE(IsReachable({0, 0, 10, 10}, {0, 0, 10, 10}));
    EXPECT_TRUE(IsReachable({0, 0, 11, 11}, {0, 0, 11, 11}));
}

TEST(IsReachable, ExtremeRecordsAreJudgedWithoutOverflow)
{
    EXPECT_FALSE(IsReachable({kMost, kMost, kMost, kMost}, kScreen));
    EXPECT_FALSE(IsReachable({kLeast, 0, kMost, 100}, kScreen)) << "no window is that wide";
    EXPECT_FALSE(IsReachable({0, kLeast, 100, kMost}, kScreen)) << "no window is that high";
    EXPECT_TRUE(IsReachable({-1, -1, kMost - 1, kMost - 1}, kScreen));
    EXPECT_FALSE(IsReachable({kLeast, kLeast, kLeast, kLeast}, kScreen));
}

TEST(StretchedRect, AnOddGrowthGoesToTheRightAndTheBottom)
{
    const auto rect = StretchedRect({100, 200, 300, 400}, {3, 3});
    ASSERT_TRUE(rect);
    EXPECT_EQ(rect->left, 99);
    EXPECT_EQ(rect->top, 199);
    EXPECT_EQ(rect->right, 302);
    EXPECT_EQ(rect->bottom, 402);
}

TEST(StretchedRect, AnOddShrinkingTruncatesTowardsZero)
{
    const auto rect = StretchedRect({100, 200, 300, 400}, {-3, -3});
    ASSERT_TRUE(rect);
    EXPECT_EQ(rect->left, 101);
    EXPECT_EQ(rect->top, 201);
    EXPECT_EQ(rect->right, 299);
    EXPECT_EQ(rect->bottom, 399);
}

TEST(StretchedRect, NothingIsLeftOfARectangleThatShrinksToNoWidthOrHeight)
{
    EXPECT_FALSE(StretchedRect({0, 0, 10, 10}, {-11, 0}));
    EXPECT_FALSE(StretchedRect({0, 0, 10, 10}, {0, -11}));
    EXPECT_FALSE(StretchedRect({0, 0, 10, 10}, {-40, 0}));
}

TEST(StretchedRect, AnEvenShrinkingTakesOnePixelLessFromTheRight)
{
    // (-10 + 1) / 2 is -4 and -10 / 2 is -5: kept as it is.
    const auto rect = StretchedRect({0, 0, 10, 10}, {-10, -10});
    ASSERT_TRUE(rect);
    EXPECT_EQ(rect->left, 5);
    EXPECT_EQ(rect->right, 6);
}

TEST(StretchedRect, NumbersBeyondWhatAWindowHasAreRefused)
{
    EXPECT_FALSE(StretchedRect({0, 0, 10, 10}, {kMost, 0}));
    EXPECT_FALSE(StretchedRect({0, 0, 10, 10}, {0, kMost}));
    EXPECT_FALSE(StretchedRect({kLeast, 0, kLeast + 10, 10}, {2, 0}));
    EXPECT_FALSE(StretchedRect({kMost - 10, 0, kMost, 10}, {2, 0}));
    EXPECT_FALSE(StretchedRect({kLeast, kLeast, kMost, kMost}, {0, 0}));
    const auto widest = StretchedRect({0, 0, 1, 10}, {kMost - 1, 0});
    ASSERT_TRUE(widest);
    EXPECT_EQ(widest->right - widest->left, kMost);
}

TEST(PercentOf, TruncatesTowardsZero)
{
    EXPECT_EQ(PercentOf({109, 199}, 10).cx, 10);
    EXPECT_EQ(PercentOf({109, 199}, 10).cy, 19);
    EXPECT_EQ(PercentOf({109, 199}, -10).cx, -10);
    EXPECT_EQ(PercentOf({109, 199}, -10).cy, -19);
    EXPECT_EQ(PercentOf({kMost, 1}, 1000).cx, kMost);
}

struct ScrollCase
{
    const char* name;
    ScrollStep step;
    int pos;
    int expected;
};

class ScrollTest : public testing::TestWithParam<ScrollCase>
{
};

TEST_P(ScrollTest, GivesThePosition)
{
    EXPECT_EQ(NextScrollPos({1000, 300}, GetParam().pos, GetParam().step, 16, 555), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Table, ScrollTest,
                         testing::Values(ScrollCase{"ALineOn", ScrollStep::lineOn, 100, 116},
                                         ScrollCase{"ALineBack", ScrollStep::lineBack, 100, 84},
                                         ScrollCase{"ALineBackStopsAtTheStart", ScrollStep::lineBack, 10, 0},
                                         ScrollCase{"ALineOnStopsAtTheEnd", ScrollStep::lineOn, 695, 700},
                                         ScrollCase{"APageOn", ScrollStep::pageOn, 100, 400},
                                         ScrollCase{"APageOnStopsAtTheEnd", ScrollStep::pageOn, 500, 700},
                                         ScrollCase{"APageBack", ScrollStep::pageBack, 400, 100},
                                         ScrollCase{"ToTheStart", ScrollStep::toStart, 400, 0},
                                         ScrollCase{"ToTheEnd", ScrollStep::toEnd, 400, 700},
                                         ScrollCase{"ToTheThumb", ScrollStep::toThumb, 400, 555}),
                         [](const auto& info) { return info.param.name; });

TEST(ScrollRange, AWindowThatShowsAllOfItDoesNotScroll)
{
    EXPECT_EQ((ScrollRange{100, 300}.Last()), 0);
    EXPECT_EQ(NextScrollPos({100, 300}, 0, ScrollStep::lineOn, 16, 0), 0);
    EXPECT_EQ(NextScrollPos({1000, 300}, 0, ScrollStep::toThumb, 16, kMost), 700);
}

} // namespace
