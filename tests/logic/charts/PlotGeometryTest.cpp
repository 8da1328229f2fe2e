// PlotGeometryTest.cpp - transforms, ticks, places and the nearest point of the plot

#include "tavkit/charts/PlotGeometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace
{

using namespace tavkit;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

// A client area of 480 by 252 with the usual margins: 400 by 200 pixels.
constexpr RECT kArea{60, 20, 460, 220};
constexpr PlotMap kMap{kArea, {0.0, -1.0, 10.0, 1.0}};

void ExpectRect(RECT const& rect, LONG left, LONG top, LONG right, LONG bottom)
{
    EXPECT_EQ(rect.left, left);
    EXPECT_EQ(rect.top, top);
    EXPECT_EQ(rect.right, right);
    EXPECT_EQ(rect.bottom, bottom);
}

// Transforms

TEST(PlotMapTest, PutsTheLimitsOntoTheSidesOfTheArea)
{
    EXPECT_EQ(kMap.ToWndX(0.0), 60);
    EXPECT_EQ(kMap.ToWndX(10.0), 460);
    EXPECT_EQ(kMap.ToWndY(-1.0), 220);
    EXPECT_EQ(kMap.ToWndY(1.0), 20);
}

TEST(PlotMapTest, GrowsUpward)
{
    EXPECT_EQ(kMap.ToWndY(0.0), 120);
    EXPECT_EQ(kMap.ToWndY(0.5), 70);
}

TEST(PlotMapTest, TruncatesTheWayFromTheAxisTowardZero)
{
    EXPECT_EQ(kMap.ToWndX(0.049), 61);   // 1.96
    EXPECT_EQ(kMap.ToWndX(-0.049), 59);  // -1.96, left of the axis
    EXPECT_EQ(kMap.ToWndX(-0.02), 60);   // -0.8
    EXPECT_EQ(kMap.ToWndY(-0.981), 219); // 1.9 above the axis
    EXPECT_EQ(kMap.ToWndY(-1.019), 221); // 1.9 below it
}

TEST(PlotMapTest, GoesBackToTheData)
{
    EXPECT_EQ(kMap.ToDataX(60), 0.0);
    EXPECT_EQ(kMap.ToDataX(460), 10.0);
    EXPECT_EQ(kMap.ToDataX(160), 2.5);
    EXPECT_EQ(kMap.ToDataX(20), -1.0);
    EXPECT_EQ(kMap.ToDataY(220), -1.0);
    EXPECT_EQ(kMap.ToDataY(20), 1.0);
    EXPECT_EQ(kMap.ToDataY(70), 0.5);
}

TEST(PlotMapTest, MeasuresLengths)
{
    EXPECT_EQ(kMap.ToWndSX(1.0), 40);
    EXPECT_EQ(kMap.ToWndSX(0.099), 3);
    EXPECT_EQ(kMap.ToWndSX(-0.099), -3);
    EXPECT_EQ(kMap.ToWndSY(1.0), 100);
    EXPECT_EQ(kMap.ToWndSY(0.019), 1);
}

TEST(PlotMapTest, WorksInNegativeRanges)
{
    constexpr PlotMap map{kArea, {-30.0, -7.0, -10.0, -5.0}};
    EXPECT_EQ(map.ToWndX(-30.0), 60);
    EXPECT_EQ(map.ToWndX(-20.0), 260);
    EXPECT_EQ(map.ToWndY(-5.0), 20);
    EXPECT_EQ(map.ToDataX(260), -20.0);
}

TEST(PlotMapTest, AnswersForEqualLimits)
{
    constexpr PlotMap map{kArea, {}};
    EXPECT_EQ(map.ToWndX(0.0), 60);
    EXPECT_EQ(map.ToWndY(0.0), 220);
    EXPECT_EQ(map.ToWndX(1.0), 60 + kFarthestPixel);
    EXPECT_EQ(map.ToWndSX(1.0), kFarthestPixel);
    EXPECT_EQ(map.ToDataX(100), 0.0);
}

TEST(PlotMapTest, AnswersForWhatIsNoNumber)
{
    EXPECT_EQ(kMap.ToWndX(kNoNumber), 60);
    EXPECT_EQ(kMap.ToWndX(kInfinity), 60 + kFarthestPixel);
    EXPECT_EQ(kMap.ToWndY(-kInfinity), 220 + kFarthestPixel);
    constexpr PlotMap endless{kArea, {0.0, 0.0, kInfinity, kInfinity}};
    EXPECT_EQ(endless.ToWndX(5.0), 60);
    EXPECT_EQ(endless.ToWndX(kInfinity), 60);
}

TEST(PlotMapTest, AnswersForAnAreaTurnedInsideOut)
{
    constexpr PlotMap map{{60, 20, -20, -32}, {0.0, 0.0, 10.0, 10.0}}; // a client area without size
    EXPECT_EQ(map.ToWndX(5.0), 20);
    EXPECT_EQ(map.ToWndY(5.0), -6);
    EXPECT_FALSE(map.IsInside({20, -6}));
}

TEST(PlotMapTest, CountsItsSidesAsInside)
{
    EXPECT_TRUE(kMap.IsInside({60, 20}));
    EXPECT_TRUE(kMap.IsInside({460, 220}));
    EXPECT_FALSE(kMap.IsInside({59, 100}));
    EXPECT_FALSE(kMap.IsInside({461, 100}));
    EXPECT_FALSE(kMap.IsInside({100, 19}));
    EXPECT_FALSE(kMap.IsInside({100, 221}));
}

TEST(PlotMapTest, ReachesFivePixelsAndAFraction)
{
    EXPECT_FALSE(kMap.IsOutOfReach(0.125)); // 5.0
    EXPECT_FALSE(kMap.IsOutOfReach(0.149)); // 5.96
    EXPECT_TRUE(kMap.IsOutOfReach(0.15));   // 6.0
    EXPECT_TRUE(kMap.IsOutOfReach(kNoDistance));
}

TEST(DataWindowTest, ContainsItsLimits)
{
    constexpr DataWindow window{0.0, -1.0, 10.0, 1.0};
    EXPECT_TRUE(window.Contains(0.0, -1.0));
    EXPECT_TRUE(window.Contains(10.0, 1.0));
    EXPECT_FALSE(window.Contains(-0.01, 0.0));
    EXPECT_FALSE(window.Contains(10.01, 0.0));
    EXPECT_FALSE(window.Contains(5.0, -1.01));
    EXPECT_FALSE(window.Contains(5.0, 1.01));
    EXPECT_FALSE(window.Contains(kNoNumber, 0.0));
    EXPECT_FALSE(window.Contains(0.0, kNoNumber));
    EXPECT_FALSE(window.Contains(kInfinity, 0.0));
}

// Ticks

TEST(TickValuesTest, StepFromTheLowerLimitToTheUpper)
{
    EXPECT_THAT(TickValues(0.0, 10.0, 2.5), ElementsAre(0.0, 2.5, 5.0, 7.5, 10.0));
    EXPECT_THAT(TickValues(-3.0, 1.5, 2.0), ElementsAre(-3.0, -1.0, 1.0));
}

TEST(TickValuesTest, AddUpWithAllRounding)
{
    // Ten tenths are a little less than 1: the last tick is there, and not at 1.
    const std::vector<double> values = TickValues(0.0, 1.0, 0.1);
    ASSERT_THAT(values, SizeIs(11));
    EXPECT_NE(values.back(), 1.0);
    EXPECT_THAT(values.back(), DoubleNear(1.0, 1e-12));
    // Three tenths are a little more than 0.3, and the tick at the upper limit is missed.
    EXPECT_THAT(TickValues(0.0, 0.3, 0.1), SizeIs(3));
}

TEST(TickValuesTest, AreOneForEqualLimits) { EXPECT_THAT(TickValues(4.0, 4.0, 1.0), ElementsAre(4.0)); }

TEST(TickValuesTest, AreOneWithoutAStep)
{
    EXPECT_THAT(TickValues(0.0, 10.0, 0.0), ElementsAre(0.0));
    EXPECT_THAT(TickValues(0.0, 10.0, -1.0), ElementsAre(0.0));
    EXPECT_THAT(TickValues(0.0, 10.0, kNoNumber), ElementsAre(0.0));
    EXPECT_THAT(TickValues(1e17, 2e17, 1.0), ElementsAre(1e17)) << "too small a step to count";
    EXPECT_THAT(TickValues(-kInfinity, 10.0, 1.0), ElementsAre(-kInfinity));
}

TEST(TickValuesTest, AreNoneForLimitsThatAreNone)
{
    EXPECT_THAT(TickValues(1.0, 0.0, 1.0), IsEmpty());
    EXPECT_THAT(TickValues(kNoNumber, 10.0, 1.0), IsEmpty());
    EXPECT_THAT(TickValues(0.0, kNoNumber, 1.0), IsEmpty());
}

TEST(TickValuesTest, EndSomewhereInAnEndlessRange) { EXPECT_THAT(TickValues(0.0, kInfinity, 1.0), SizeIs(kMostTicks)); }

TEST(IsCrowdedTest, BeginsAtFortyFive)
{
    EXPECT_FALSE(IsCrowded(44.0));
    EXPECT_FALSE(IsCrowded(44.99));
    EXPECT_TRUE(IsCrowded(45.0));
    EXPECT_FALSE(IsCrowded(0.0));
    EXPECT_TRUE(IsCrowded(kInfinity));
}

// Places

TEST(PlotPlaces, OfLabelsCaptionsAndTitle)
{
    ExpectRect(XLabelPlace(kArea, 160, 40), 140, 226, 180, 236);
    ExpectRect(XLabelPlace(kArea, 160, 41), 139, 226, 180, 236); // 139.5 and 180.5
    ExpectRect(YLabelPlace(kArea, 70), 14, 64, 54, 76);
    ExpectRect(TitlePlace(kArea), 60, 10, 460, 10);
    ExpectRect(TitlePlace({60, 30, 460, 220}), 60, 10, 460, 20);
    ExpectRect(XCaptionPlace(kArea), 60, 238, 460, 250);
    ExpectRect(YCaptionPlace(kArea), 0, 20, 10, 220);
}

TEST(PlotPlaces, OfATextTurnedUpright)
{
    // The middle of the place is (5, 120). Half the extent is (20, 5), turned to (-5, 20) less a trace, since the
    // radians of a degree are rounded; the trace costs a pixel.
    const POINT start = RotatedTextStart({0, 20, 10, 220}, {41, 11}, 90.0);
    EXPECT_EQ(start.x, 5 + 5);
    EXPECT_EQ(start.y, 120 + 19);
}

TEST(PlotPlaces, OfATextThatIsNotTurned)
{
    const POINT start = RotatedTextStart({0, 20, 11, 221}, {41, 11}, 0.0);
    EXPECT_EQ(start.x, 5 - 20);
    EXPECT_EQ(start.y, 120 + 5);
}

// Lines

TEST(ClipLineTest, KeepsWhatIsNear)
{
    POINT start{};
    POINT end{};
    ASSERT_TRUE(ClipLine({0, 0, 100, 100}, {10.9, 20.0}, {30.0, 40.9}, start, end));
    EXPECT_EQ(start.x, 10);
    EXPECT_EQ(start.y, 20);
    EXPECT_EQ(end.x, 30);
    EXPECT_EQ(end.y, 40);
}

TEST(ClipLineTest, KeepsTheSlopeOfALineFromFarAway)
{
    POINT start{};
    POINT end{};
    ASSERT_TRUE(ClipLine({0, 0, 100, 100}, {-1e9, -1e9}, {1e12, 1e12}, start, end));
    EXPECT_EQ(start.x, -64);
    EXPECT_EQ(start.y, -64);
    EXPECT_EQ(end.x, 164);
    EXPECT_EQ(end.y, 164);
}

TEST(ClipLineTest, TakesTheLongestLines)
{
    constexpr double kMost = std::numeric_limits<double>::max();
    POINT start{};
    POINT end{};
    ASSERT_TRUE(ClipLine({0, 0, 100, 100}, {-kMost, 50.0}, {kMost, 50.0}, start, end));
    EXPECT_EQ(start.y, 50);
    EXPECT_EQ(end.y, 50);
    EXPECT_LE(start.x, 0);
    EXPECT_GE(end.x, 0);
}

TEST(ClipLineTest, DropsWhatPasses)
{
    POINT start{};
    POINT end{};
    EXPECT_FALSE(ClipLine({0, 0, 100, 100}, {-1e9, 300.0}, {1e9, 300.0}, start, end));
    EXPECT_FALSE(ClipLine({0, 0, 100, 100}, {-1000.0, 0.0}, {0.0, 1000.0}, start, end));
    EXPECT_FALSE(ClipLine({0, 0, 100, 100}, {kNoNumber, 0.0}, {0.0, 50.0}, start, end));
    EXPECT_FALSE(ClipLine({0, 0, 100, 100}, {0.0, 0.0}, {kInfinity, 50.0}, start, end));
}

// Selection

struct Point
{
    double x;
};

const Point* Nearest(std::vector<Point> const& points, double x, double& distance)
{
    std::vector<const Point*> pointers;
    for (const Point& point : points)
    {
        pointers.push_back(&point);
    }
    return NearestInX(pointers, x, distance);
}

TEST(NearestInXTest, FindsTheNearest)
{
    const std::vector<Point> points{{1.0}, {5.0}, {2.0}};
    double distance = 0.0;
    EXPECT_EQ(Nearest(points, 2.4, distance), &points[2]);
    EXPECT_THAT(distance, DoubleNear(0.4, 1e-12));
}

TEST(NearestInXTest, TakesTheFirstOfEquals)
{
    const std::vector<Point> points{{5.0}, {3.0}, {3.0}, {1.0}};
    double distance = 0.0;
    EXPECT_EQ(Nearest(points, 3.0, distance), &points[1]);
    EXPECT_EQ(Nearest(points, 2.0, distance), &points[1]) << "as far from 1 as from 3";
}

TEST(NearestInXTest, FindsNoneFarAway)
{
    const std::vector<Point> points{{2e12}, {kNoNumber}, {kInfinity}};
    double distance = 0.0;
    EXPECT_EQ(Nearest(points, 0.0, distance), nullptr);
    EXPECT_EQ(distance, kNoDistance);
    EXPECT_EQ(Nearest({}, 0.0, distance), nullptr);
}

} // namespace
