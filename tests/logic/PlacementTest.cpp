// PlacementTest.cpp - where the children of a resized window go

#include "tavkit/layout/Placement.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

namespace
{

using tavkit::LayoutDelta;
using tavkit::PlaceRect;

struct PlaceCase
{
    const char* name;
    RECT rect;
    std::array<signed char, 4> percent;
    SIZE minSize;
    LayoutDelta layout;
    RECT expected;
};

class PlaceRectTest : public testing::TestWithParam<PlaceCase>
{
};

RECT Place(const PlaceCase& c)
{
    const signed char percent[4] = {c.percent[0], c.percent[1], c.percent[2], c.percent[3]};
    return PlaceRect(c.rect, percent, c.minSize, c.layout);
}

void ExpectRect(const RECT& actual, const RECT& expected)
{
    EXPECT_EQ(actual.left, expected.left);
    EXPECT_EQ(actual.top, expected.top);
    EXPECT_EQ(actual.right, expected.right);
    EXPECT_EQ(actual.bottom, expected.bottom);
}

TEST_P(PlaceRectTest, GivesTheRectangle) { ExpectRect(Place(GetParam()), GetParam().expected); }

constexpr RECT kWide{10, 10, 110, 30};

INSTANTIATE_TEST_SUITE_P(
    Table, PlaceRectTest,
    testing::Values(
        PlaceCase{"StayingEdgesDoNotMove", kWide, {0, 0, 0, 0}, {0, 0}, {{50, 70}, {}, false}, kWide},
        PlaceCase{
            "AStretchedChildGrowsToTheRight", kWide, {0, 0, 100, 0}, {0, 0}, {{50, 70}, {}, false}, {10, 10, 160, 30}},
        PlaceCase{
            "AStretchedChildGrowsDownwards", kWide, {0, 0, 0, 100}, {0, 0}, {{50, 70}, {}, false}, {10, 10, 110, 100}},
        PlaceCase{"AFollowingChildMovesByAllOfIt",
                  kWide,
                  {100, 100, 100, 100},
                  {0, 0},
                  {{50, 70}, {}, false},
                  {60, 80, 160, 100}},
        PlaceCase{
            "HalfOfMinusThreeIsMinusOne", kWide, {50, 50, 50, 50}, {0, 0}, {{-3, -3}, {}, false}, {9, 9, 109, 29}},
        PlaceCase{"HalfOfThreeIsOne", kWide, {50, 50, 50, 50}, {0, 0}, {{3, 3}, {}, false}, {11, 11, 111, 31}},
        PlaceCase{"EachEdgeHasItsOwnShare",
                  {0, 0, 100, 100},
                  {10, 20, 30, 40},
                  {0, 0},
                  {{10, 10}, {}, false},
                  {1, 2, 103, 104}},
        PlaceCase{
            "AChildOfNoWidthLeftIsParked", kWide, {0, 0, 100, 0}, {0, 0}, {{-100, 0}, {}, false}, {-10, 10, -10, 30}},
        PlaceCase{"AParkedChildKeepsItsMinimalWidth",
                  kWide,
                  {0, 0, 100, 0},
                  {20, 0},
                  {{-100, 0}, {}, false},
                  {-30, 10, -10, 30}},
        PlaceCase{"AChildExactlyAsWideAsItsMinimumIsParked",
                  kWide,
                  {0, 0, 100, 0},
                  {20, 0},
                  {{-80, 0}, {}, false},
                  {-30, 10, -10, 30}},
        PlaceCase{"AChildOnePixelWiderIsNot", kWide, {0, 0, 100, 0}, {20, 0}, {{-79, 0}, {}, false}, {10, 10, 31, 30}},
        PlaceCase{"AChildExactlyAsHighAsItsMinimumIsParked",
                  kWide,
                  {0, 0, 0, 0},
                  {0, 20},
                  {{0, 0}, {}, false},
                  {10, -30, 110, -10}},
        PlaceCase{"ScrollingShiftsBothAxes", kWide, {0, 0, 0, 0}, {0, 0}, {{0, 0}, {4, 5}, true}, {6, 5, 106, 25}},
        PlaceCase{"AScrolledWindowThatShrankDoesNotSqueeze",
                  kWide,
                  {0, 0, 100, 100},
                  {0, 0},
                  {{-50, -5}, {4, 5}, true},
                  {6, 5, 106, 25}},
        PlaceCase{"AScrolledWindowThatGrewStretches",
                  kWide,
                  {0, 0, 100, 100},
                  {0, 0},
                  {{50, 7}, {4, 5}, true},
                  {6, 5, 156, 32}},
        PlaceCase{"TheAxesAreJudgedApart", kWide, {0, 0, 100, 100}, {0, 0}, {{-50, 7}, {4, 5}, true}, {6, 5, 106, 32}},
        PlaceCase{"ScrollPositionsCountOnlyWhenUsed", kWide, {0, 0, 0, 0}, {0, 0}, {{0, 0}, {4, 5}, false}, kWide}),
    [](const auto& info) { return info.param.name; });

TEST(PlaceRect, AHalfMovingChildElevenWideStaysElevenWideForEveryDelta)
{
    for (int delta = -200; delta <= 200; ++delta)
    {
        const RECT placed = PlaceRect({500, 500, 511, 511}, {50, 50, 50, 50}, {0, 0}, {{delta, delta}, {}, false});
        ASSERT_EQ(placed.right - placed.left, 11) << delta;
        ASSERT_EQ(placed.bottom - placed.top, 11) << delta;
    }
}

TEST(PlaceRect, WrapsLikeA32BitWordInsteadOfTrapping)
{
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    // 3'000'000'000 is -1'294'967'296 in a word of 32 bits.
    const RECT placed = PlaceRect({0, 0, 10, 10}, {100, 0, 100, 0}, {0, 0}, {{30'000'000, 0}, {}, false});
    EXPECT_EQ(placed.left, -12'949'672);
    EXPECT_EQ(placed.right, -12'949'662);
    EXPECT_EQ(tavkit::details::Add(kMost, 1), std::numeric_limits<std::int32_t>::min());
}

TEST(PlaceRect, GrowthAndWindowSizesWrapAsWell)
{
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
    const SIZE growth = tavkit::GrowthOf({300, 200}, {100, 250});
    EXPECT_EQ(growth.cx, 200);
    EXPECT_EQ(growth.cy, -50);
    const SIZE widest = tavkit::GrowthOf({1, -2}, {kLeast, kMost});
    EXPECT_EQ(widest.cx, kLeast + 1);
    EXPECT_EQ(widest.cy, kMost);
    const SIZE window = tavkit::WindowSizeOf({kMost, 10}, {1, 4});
    EXPECT_EQ(window.cx, kLeast);
    EXPECT_EQ(window.cy, 14);
}

// --- the same rules once more, written for one axis from the sentences and with wide numbers

/// The number that a word of 32 bits holds of it.
long long Word(long long value)
{
    constexpr long long kRange = 1LL << 32;
    const long long rest = ((value % kRange) + kRange) % kRange;
    return rest >= kRange / 2 ? rest - kRange : rest;
}

struct Axis
{
    long long first;
    long long second;
};

long long TowardsZero(long long value, long long divisor)
{
    return (value < 0 ? -((-value) / divisor) : value / divisor);
}

Axis CheckAxis(Axis a, int firstPercent, int secondPercent, int minimum, int delta, int scroll, bool scrolled)
{
    if (scrolled)
    {
        a = {Word(a.first - scroll), Word(a.second - scroll)};
    }
    const bool grows = !(scrolled && delta < 0);
    if (grows)
    {
        a.first = Word(a.first + TowardsZero(Word(static_cast<long long>(firstPercent) * delta), 100));
        a.second = Word(a.second + TowardsZero(Word(static_cast<long long>(secondPercent) * delta), 100));
    }
    if (Word(a.first + minimum) >= a.second)
    {
        return {Word(-10LL - minimum), -10};
    }
    return a;
}

void ExpectAsChecked(const RECT& rect, const signed char (&percent)[4], SIZE minSize, const LayoutDelta& layout)
{
    const RECT placed = PlaceRect(rect, percent, minSize, layout);
    const Axis x = CheckAxis({rect.left, rect.right}, percent[0], percent[2], minSize.cx, layout.delta.cx,
                             layout.scroll.x, layout.useScrollPos);
    const Axis y = CheckAxis({rect.top, rect.bottom}, percent[1], percent[3], minSize.cy, layout.delta.cy,
                             layout.scroll.y, layout.useScrollPos);
    ASSERT_EQ(placed.left, x.first);
    ASSERT_EQ(placed.right, x.second);
    ASSERT_EQ(placed.top, y.first);
    ASSERT_EQ(placed.bottom, y.second);
}

TEST(PlaceRect, AgreesWithAnIndependentReadingOfTheRulesOnRandomInput)
{
    std::mt19937 random(20260101);
    const auto pick = [&random](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    for (int round = 0; round < 200'000; ++round)
    {
        const int left = pick(-300, 3000);
        const int top = pick(-300, 3000);
        const RECT rect{left, top, left + pick(-5, 500), top + pick(-5, 500)};
        const signed char percent[4] = {static_cast<signed char>(pick(0, 100)), static_cast<signed char>(pick(0, 100)),
                                        static_cast<signed char>(pick(0, 100)), static_cast<signed char>(pick(0, 100))};
        const SIZE minSize{pick(0, 60), pick(0, 60)};
        const LayoutDelta layout{{pick(-3000, 3000), pick(-3000, 3000)}, {pick(0, 800), pick(0, 800)}, pick(0, 1) == 1};
        ASSERT_NO_FATAL_FAILURE(ExpectAsChecked(rect, percent, minSize, layout)) << "round " << round;
    }
}

TEST(PlaceRect, AgreesWithItAtTheEdgesOfTheNumbersToo)
{
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    std::mt19937 random(20260102);
    const auto pick = [&random](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    const auto number = [&] {
        constexpr std::array kEdges{kLeast, kLeast + 1, -1, 0, 1, kMost - 1, kMost};
        switch (pick(0, 2))
        {
        case 0:
            return kEdges[static_cast<size_t>(pick(0, static_cast<int>(kEdges.size()) - 1))];
        case 1:
            return pick(-1000, 1000);
        default:
            return pick(kLeast, kMost);
        }
    };
    const auto percentage = [&] { return static_cast<signed char>(pick(-128, 127)); };
    for (int round = 0; round < 200'000; ++round)
    {
        const RECT rect{number(), number(), number(), number()};
        const signed char percent[4] = {percentage(), percentage(), percentage(), percentage()};
        const SIZE minSize{number(), number()};
        const LayoutDelta layout{{number(), number()}, {number(), number()}, pick(0, 1) == 1};
        ASSERT_NO_FATAL_FAILURE(ExpectAsChecked(rect, percent, minSize, layout)) << "round " << round;
    }
}

} // namespace
