// ImageFitTest.cpp - fitting a picture into a rectangle

#include "tavkit/drawing/ImageFit.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using tavkit::CentreIn;
using tavkit::FitInto;
using tavkit::LogicalSize;
using tavkit::RoundHalfAway;

struct FitCase
{
    const char* name;
    SIZE picture;
    SIZE room;
    SIZE expected;
};

class FitIntoTest : public testing::TestWithParam<FitCase>
{
};

TEST_P(FitIntoTest, KeepsTheAspect)
{
    const SIZE size = FitInto(GetParam().picture, GetParam().room);
    EXPECT_EQ(size.cx, GetParam().expected.cx);
    EXPECT_EQ(size.cy, GetParam().expected.cy);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FitIntoTest,
    testing::Values(FitCase{"ASquareInAWideRoomTakesItsHeight", {100, 100}, {400, 300}, {300, 300}},
                    FitCase{"ASquareInAHighRoomTakesItsWidth", {100, 100}, {300, 400}, {300, 300}},
                    FitCase{"TheSameAspectFillsTheRoom", {800, 600}, {400, 300}, {400, 300}},
                    FitCase{"AWidePictureTakesTheWidth", {200, 100}, {300, 300}, {300, 150}},
                    FitCase{"AHighPictureTakesTheHeight", {100, 200}, {300, 300}, {150, 300}},
                    FitCase{"ASmallPictureGrows", {1, 1}, {50, 60}, {50, 50}},
                    FitCase{"HalfAPixelOfHeightRoundsUp", {200, 100}, {5, 300}, {5, 3}}, // 2.5
                    FitCase{"LessThanHalfRoundsDown", {300, 100}, {100, 300}, {100, 33}},
                    FitCase{"MoreThanHalfRoundsUp", {300, 200}, {100, 300}, {100, 67}},
                    FitCase{"HalfAPixelOfWidthRoundsUp", {100, 200}, {300, 5}, {3, 5}}, // 2.5
                    FitCase{"AStripMayLoseItsHeight", {10000, 1}, {100, 100}, {100, 0}},
                    FitCase{"AnEmptyPictureIsEmpty", {0, 100}, {400, 300}, {0, 0}},
                    FitCase{"APictureWithoutHeightIsEmpty", {100, 0}, {400, 300}, {0, 0}},
                    FitCase{"NothingFitsIntoAnEmptyRoom", {100, 100}, {0, 300}, {0, 0}},
                    FitCase{"NothingFitsIntoARoomTurnedInsideOut", {100, 100}, {-400, 300}, {0, 0}}),
    [](const auto& info) { return info.param.name; });

TEST(CentreInTest, PutsTheOddPixelAtTheEnd)
{
    const POINT even = CentreIn({10, 20, 410, 320}, {300, 300});
    EXPECT_EQ(even.x, 60);
    EXPECT_EQ(even.y, 20);
    const POINT odd = CentreIn({10, 20, 411, 321}, {300, 300});
    EXPECT_EQ(odd.x, 60);
    EXPECT_EQ(odd.y, 20);
}

TEST(RoundHalfAwayTest, AddsAHalfAndTruncatesAndMirrorsBelowZero)
{
    EXPECT_EQ(RoundHalfAway(0), 0);
    EXPECT_EQ(RoundHalfAway(2.4), 2);
    EXPECT_EQ(RoundHalfAway(2.5), 3);
    EXPECT_EQ(RoundHalfAway(-2.4), -2);
    EXPECT_EQ(RoundHalfAway(-2.5), -3);
    EXPECT_EQ(RoundHalfAway(-0.4), 0);
}

TEST(RoundHalfAwayTest, StaysInTheRangeOfInt)
{
    EXPECT_EQ(RoundHalfAway(1e20), std::numeric_limits<int>::max());
    EXPECT_EQ(RoundHalfAway(-1e20), std::numeric_limits<int>::min());
    EXPECT_EQ(RoundHalfAway(std::numeric_limits<double>::infinity()), std::numeric_limits<int>::max());
    EXPECT_EQ(RoundHalfAway(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(LogicalSizeTest, DividesByTheStepButNeverByLessThanOne)
{
    EXPECT_EQ(LogicalSize(100, 1), 100);
    EXPECT_EQ(LogicalSize(100, 2), 50);
    EXPECT_EQ(LogicalSize(101, 2), 50);
    EXPECT_EQ(LogicalSize(100, 0), 100);
    EXPECT_EQ(LogicalSize(100, -3), 100);
}

} // namespace
