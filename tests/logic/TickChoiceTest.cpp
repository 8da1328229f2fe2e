// TickChoiceTest.cpp - limits and ticks of an axis, chosen from the data

#include "workbench/TickChoice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

namespace
{
using workbench::Axis;
using workbench::ChooseAxis;

void ExpectAxis(const Axis& axis, double min, double max, double tick)
{
    const double rounding = tick * 1e-6;
    EXPECT_NEAR(axis.min, min, rounding);
    EXPECT_NEAR(axis.max, max, rounding);
    EXPECT_NEAR(axis.tick, tick, rounding);
}

TEST(TickChoice, TakesOneTwoOrFiveTimesAPowerOfTen)
{
    ExpectAxis(ChooseAxis(0, 10, 10), 0, 10, 1);
    ExpectAxis(ChooseAxis(0, 13, 10), 0, 14, 2);
    ExpectAxis(ChooseAxis(0, 40, 10), 0, 40, 5);
    ExpectAxis(ChooseAxis(0, 70, 10), 0, 70, 10);
    ExpectAxis(ChooseAxis(0, 0.0371, 8), 0, 0.04, 0.005);
    ExpectAxis(ChooseAxis(0, 512, 8), 0, 600, 100);
    ExpectAxis(ChooseAxis(0, 1.2e7, 8), 0, 1.2e7, 2e6);
}

TEST(TickChoice, PutsTheLimitsOnTicks)
{
    ExpectAxis(ChooseAxis(3.2, 96.7, 10), 0, 100, 10);
    ExpectAxis(ChooseAxis(-17, 23, 10), -20, 25, 5);
    ExpectAxis(ChooseAxis(-9, -3, 6), -9, -3, 1);
}

TEST(TickChoice, TakesTheNextStepWhenWholeTicksWouldBeTooMany)
{
    ExpectAxis(ChooseAxis(-8.1, -3.9, 5), -10, -2, 2); // from -9 to -3 by 1 would be six
}

TEST(TickChoice, GivesValuesWithoutExtentRoomAround)
{
    const Axis zero = ChooseAxis(0, 0, 8);
    EXPECT_LT(zero.min, 0);
    EXPECT_GT(zero.max, 0);
    const Axis seven = ChooseAxis(7, 7, 8);
    EXPECT_LT(seven.min, 7);
    EXPECT_GT(seven.max, 7);
    const Axis nearly = ChooseAxis(1e6, 1e6 + 1e-9, 8);
    EXPECT_LT(nearly.min, 1e6);
    EXPECT_GT(nearly.max, 1e6);
}

TEST(TickChoice, HoldsAnyValuesWithFewTicks)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> exponent(-200, 200);
    std::uniform_real_distribution<double> unit(-1, 1);
    for (int i = 0; i < 20000; ++i)
    {
        const double scale = std::pow(10.0, exponent(random));
        const double a = unit(random) * scale;
        const double b = i % 2 == 0 ? unit(random) * scale : a + unit(random) * scale * 1e-6;
        const double lowest = std::min(a, b);
        const double highest = std::max(a, b);
        const int most = 2 + i % 12;
        const Axis axis = ChooseAxis(lowest, highest, most);
        const double rounding = axis.tick * 1e-6;
        ASSERT_GT(axis.tick, 0) << lowest << ", " << highest;
        ASSERT_LE(axis.min, lowest + rounding) << lowest << ", " << highest;
        ASSERT_GE(axis.max, highest - rounding) << lowest << ", " << highest;
        ASSERT_LT(axis.min, axis.max);
        ASSERT_LE((axis.max - axis.min) / axis.tick, std::max(most, 3) + 0.01) << lowest << ", " << highest;
    }
}

TEST(TickChoice, TakesTheLargestAndTheSmallestNumbers)
{
    constexpr double kMost = std::numeric_limits<double>::max();
    for (const auto& [lowest, highest] : {std::pair{-kMost, kMost}, std::pair{0.0, kMost}, std::pair{-kMost, -kMost},
                                          std::pair{0.0, std::numeric_limits<double>::denorm_min()},
                                          std::pair{-std::numeric_limits<double>::min(), 0.0}})
    {
        const Axis axis = ChooseAxis(lowest, highest, 8);
        EXPECT_TRUE(std::isfinite(axis.min) && std::isfinite(axis.max) && std::isfinite(axis.max - axis.min));
        EXPECT_GT(axis.tick, 0);
        EXPECT_LT(axis.min, axis.max);
    }
}

TEST(TickChoice, AsksForTwoTicksAtLeast) { ExpectAxis(ChooseAxis(0, 10, 0), 0, 10, 5); }
} // namespace
