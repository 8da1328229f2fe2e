// HstgGeometryTest.cpp - scale, bars, ticks and labels of the histogram

#include "tavkit/charts/ChartPixels.h"
#include "tavkit/charts/HstgGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace
{

using namespace tavkit;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

// A client area of 300 by 200 with the usual margins.
constexpr HstgArea kArea{35, 20, 285, 180};

void ExpectRect(RECT const& rect, LONG left, LONG top, LONG right, LONG bottom)
{
    EXPECT_EQ(rect.left, left);
    EXPECT_EQ(rect.top, top);
    EXPECT_EQ(rect.right, right);
    EXPECT_EQ(rect.bottom, bottom);
}

TEST(ChartPixels, AreTruncatedTowardZero)
{
    EXPECT_EQ(ToPixels(2.99), 2);
    EXPECT_EQ(ToPixels(-2.99), -2);
    EXPECT_EQ(ToPixels(-0.5), 0);
    EXPECT_EQ(ToPixels(3.0), 3);
}

TEST(ChartPixels, AreWithinReachWhateverTheValueIs)
{
    EXPECT_EQ(ToPixels(kNoNumber), 0);
    EXPECT_EQ(ToPixels(kInfinity), kFarthestPixel);
    EXPECT_EQ(ToPixels(-kInfinity), -kFarthestPixel);
    EXPECT_EQ(ToPixels(1e300), kFarthestPixel);
    EXPECT_EQ(ToPixels(-1e300), -kFarthestPixel);
    EXPECT_EQ(ToPixels(kFarthestPixel - 1.0), kFarthestPixel - 1);
}

struct ScaleCase
{
    const char* name;
    int largest;
    int sum;
    double expected;
};

class AutoScaleTest : public testing::TestWithParam<ScaleCase>
{
};

TEST_P(AutoScaleTest, IsTheFirstStepThatHoldsTheLargestCount)
{
    EXPECT_EQ(AutoScale(GetParam().largest, GetParam().sum), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, AutoScaleTest,
    testing::Values(ScaleCase{"FourPerCent", 4, 100, 0.05}, ScaleCase{"ExactlyFive", 5, 100, 0.05},
                    ScaleCase{"JustAboveFive", 501, 10000, 0.1}, ScaleCase{"ExactlyTen", 10, 100, 0.1},
                    ScaleCase{"Twelve", 12, 100, 0.15}, ScaleCase{"ExactlyFifteen", 15, 100, 0.15},
                    ScaleCase{"Sixteen", 16, 100, 0.2}, ScaleCase{"ExactlyTwenty", 20, 100, 0.2},
                    ScaleCase{"TwentyOne", 21, 100, 0.25}, ScaleCase{"ExactlyTwentyFive", 25, 100, 0.25},
                    ScaleCase{"TwentySix", 26, 100, 0.5}, ScaleCase{"Half", 50, 100, 0.5},
                    ScaleCase{"MoreThanHalf", 51, 100, 1.0}, ScaleCase{"All", 100, 100, 1.0},
                    ScaleCase{"ASumOfZeroIsNoNumber", 0, 0, 1.0}, ScaleCase{"NothingButASum", 0, 100, 0.05}),
    [](const auto& info) { return info.param.name; });

std::vector<int> Percents(double maxPerc)
{
    std::vector<int> percents;
    for (int i = 0; i < kPercTicks; ++i)
    {
        percents.push_back(PercTickAt(kArea, i, maxPerc).percent);
    }
    return percents;
}

TEST(PercTick, IsLabelledInStepsOfAFifthOfTheScale)
{
    EXPECT_EQ(Percents(1.0), (std::vector{0, 20, 40, 60, 80, 100}));
    EXPECT_EQ(Percents(0.05), (std::vector{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(Percents(0.15), (std::vector{0, 3, 6, 9, 12, 15}));
    EXPECT_EQ(Percents(0.5), (std::vector{0, 10, 20, 30, 40, 50}));
}

TEST(PercTick, TruncatesItsLabel) { EXPECT_EQ(Percents(0.99), (std::vector{0, 19, 39, 59, 79, 99})); }

TEST(PercTick, ClimbsFromTheAxisToTheTop)
{
    EXPECT_EQ(PercTickAt(kArea, 0, 1.0).y, 180);
    EXPECT_EQ(PercTickAt(kArea, 1, 1.0).y, 148);
    EXPECT_EQ(PercTickAt(kArea, 5, 1.0).y, 20);
}

TEST(PercTick, TruncatesItsPlace)
{
    const HstgArea area{35, 20, 285, 183}; // steps of 32.6
    EXPECT_EQ(PercTickAt(area, 1, 1.0).y, 150);
    EXPECT_EQ(PercTickAt(area, 2, 1.0).y, 117);
    EXPECT_EQ(PercTickAt(area, 3, 1.0).y, 85);
}

TEST(PercTick, HasItsLabelLeftOfTheAxis) { ExpectRect(PercTickAt(kArea, 1, 1.0).label, 10, 143, 29, 153); }

TEST(PercTick, TakesAnyScale)
{
    EXPECT_EQ(PercTickAt(kArea, 1, kNoNumber).percent, 0);
    EXPECT_EQ(PercTickAt(kArea, 1, 1e300).percent, kFarthestPixel);
}

TEST(ClassTick, StandsAtTheTruncatedBorder)
{
    // 250 / 7 = 35.71...
    EXPECT_EQ(ClassTickAt(kArea, 7, 0).x, 35);
    EXPECT_EQ(ClassTickAt(kArea, 7, 1).x, 70);
    EXPECT_EQ(ClassTickAt(kArea, 7, 2).x, 106);
    EXPECT_EQ(ClassTickAt(kArea, 7, 7).x, 285);
}

TEST(ClassTick, HasItsLabelTwoSlotsWideUnderTheMiddleOfTheSlot)
{
    // Slots of 25 pixels.
    ExpectRect(ClassTickAt(kArea, 10, 0).label, 22, 186, 72, 205);
    ExpectRect(ClassTickAt(kArea, 10, 4).label, 122, 186, 172, 205);
}

TEST(ClassTick, HasTheLastLabelRightOfTheChart) { ExpectRect(ClassTickAt(kArea, 10, 10).label, 272, 186, 322, 205); }

TEST(EndTick, HasALabelOfFixedWidthAtItsBorder)
{
    ExpectRect(EndTickAt(kArea, 10, 0).label, 23, 186, 47, 205);
    ExpectRect(EndTickAt(kArea, 10, 10).label, 273, 186, 297, 205);
    EXPECT_EQ(EndTickAt(kArea, 7, 2).x, 106);
    ExpectRect(EndTickAt(kArea, 7, 2).label, 94, 186, 118, 205); // 94.43 truncated, and 24 on
}

TEST(Bar, IsAsHighAsItsShareOfTheScale)
{
    ExpectRect(BarAt(kArea, 10, 0, 50, 100, 1.0), 35, 100, 60, 180);
    ExpectRect(BarAt(kArea, 10, 9, 100, 100, 1.0), 260, 20, 285, 180);
    ExpectRect(BarAt(kArea, 10, 3, 10, 100, 0.1), 110, 20, 135, 180);
    ExpectRect(BarAt(kArea, 10, 3, 0, 100, 0.1), 110, 180, 135, 180);
}

TEST(Bar, TruncatesItsHeightAndItsSides)
{
    // 160 * 1 / 3 = 53.3; 250 / 7 = 35.71
    ExpectRect(BarAt(kArea, 7, 1, 1, 3, 1.0), 70, 127, 106, 180);
}

TEST(Bar, RunsPastTheTopOfASmallScale) { ExpectRect(BarAt(kArea, 10, 0, 50, 100, 0.25), 35, -140, 60, 180); }

TEST(Bar, OfTheLargestCountsDoesNotOverflow)
{
    constexpr int kMost = std::numeric_limits<int>::max();
    ExpectRect(BarAt(kArea, 1, 0, kMost, kMost, 1.0), 35, 20, 285, 180);
}

TEST(Bar, OfASumOfZeroHasNoHeight) { ExpectRect(BarAt(kArea, 10, 0, 0, 0, 1.0), 35, 180, 60, 180); }

TEST(Bar, OfAScaleOfZeroIsOutOfSight)
{
    EXPECT_EQ(BarAt(kArea, 10, 0, 5, 100, 0.0).top, 180 - kFarthestPixel);
    EXPECT_EQ(BarAt(kArea, 10, 0, 0, 100, 0.0).top, 180);
    EXPECT_EQ(BarAt(kArea, 10, 0, 5, 100, kNoNumber).top, 180);
}

TEST(Bar, OfAnAreaTurnedInsideOutFollowsIt)
{
    const HstgArea area{35, 20, -15, -20}; // a client area without size
    ExpectRect(BarAt(area, 2, 0, 50, 100, 1.0), 35, 0, 10, -20);
}

TEST(Bar, HasItsCountAbove) { ExpectRect(FreqPlace({110, 100, 135, 180}), 110, 88, 135, 97); }

TEST(Sum, StandsInTheUpperRightCorner) { ExpectRect(SumPlace(kArea), 225, 20, 285, 32); }

TEST(HstgToDataXTest, GoesFromTheLowestToTheHighestValue)
{
    EXPECT_EQ(HstgToDataX(kArea, 35, 10.0, 60.0), 10.0);
    EXPECT_EQ(HstgToDataX(kArea, 285, 10.0, 60.0), 60.0);
    EXPECT_EQ(HstgToDataX(kArea, 160, -50.0, 50.0), 0.0);
    EXPECT_EQ(HstgToDataX(kArea, 36, 0.0, 250.0), 1.0);
}

TEST(HstgToDataXTest, IsNoNumberWithoutAWidth)
{
    EXPECT_TRUE(std::isnan(HstgToDataX({35, 20, 35, 180}, 35, 10.0, 60.0)));
}

} // namespace
