// PlotZoomTest.cpp - a closer look at a part of the plot

#include "tavkit/charts/PlotZoom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace
{

using namespace tavkit;

constexpr DataWindow kHome{0.0, -10.0, 100.0, 10.0};

void ExpectWindow(DataWindow const& window, double minX, double minY, double maxX, double maxY)
{
    constexpr double kNear = 1e-9;
    EXPECT_NEAR(window.minX, minX, kNear);
    EXPECT_NEAR(window.minY, minY, kNear);
    EXPECT_NEAR(window.maxX, maxX, kNear);
    EXPECT_NEAR(window.maxY, maxY, kNear);
}

TEST(PlotZoomTest, KeepsThePlaceUnderTheMouse)
{
    ExpectWindow(ZoomAt(kHome, kHome, 50.0, 0.0, 2.0), 25.0, -5.0, 75.0, 5.0);
    ExpectWindow(ZoomAt(kHome, kHome, 0.0, 10.0, 2.0), 0.0, 0.0, 50.0, 10.0);
    ExpectWindow(ZoomAt({20.0, -5.0, 40.0, 5.0}, kHome, 25.0, 0.0, 4.0), 23.75, -1.25, 28.75, 1.25);
}

TEST(PlotZoomTest, GoesBackTheSameWay)
{
    const DataWindow there = ZoomAt(kHome, kHome, 30.0, 4.0, 1.25);
    ExpectWindow(ZoomAt(there, kHome, 30.0, 4.0, 1 / 1.25), 0.0, -10.0, 100.0, 10.0);
}

TEST(PlotZoomTest, NeverLeavesTheWhole)
{
    EXPECT_EQ(ZoomAt(kHome, kHome, 50.0, 0.0, 0.5), kHome);
    EXPECT_EQ(ZoomAt({80.0, 5.0, 100.0, 10.0}, kHome, 90.0, 7.0, 1e-9), kHome);
    ExpectWindow(ZoomAt({80.0, 5.0, 100.0, 10.0}, kHome, 80.0, 5.0, 0.5), 60.0, 0.0, 100.0, 10.0);
    ExpectWindow(ZoomAt({0.0, -10.0, 10.0, -9.0}, kHome, 10.0, -9.0, 0.5), 0.0, -10.0, 20.0, -8.0);
}

TEST(PlotZoomTest, HasAnEnd)
{
    DataWindow view = kHome;
    for (int i = 0; i < 1000; ++i)
    {
        view = ZoomAt(view, kHome, 50.0, 0.0, 1.25);
    }
    EXPECT_NEAR(view.maxX - view.minX, 100.0 * kClosestLook, 1e-9);
    EXPECT_NEAR(view.maxY - view.minY, 20.0 * kClosestLook, 1e-9);
}

TEST(PlotZoomTest, MovesWithinTheWhole)
{
    constexpr DataWindow view{20.0, -5.0, 40.0, 5.0};
    ExpectWindow(PanBy(view, kHome, 5.0, -2.0), 25.0, -7.0, 45.0, 3.0);
    ExpectWindow(PanBy(view, kHome, 1000.0, 1000.0), 80.0, 0.0, 100.0, 10.0);
    ExpectWindow(PanBy(view, kHome, -1000.0, -1000.0), 0.0, -10.0, 20.0, 0.0);
    EXPECT_EQ(PanBy(kHome, kHome, 5.0, 5.0), kHome);
}

TEST(PlotZoomTest, HalvesTheTicksAsOftenAsThePartIsDoubledIntoTheWhole)
{
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 10.0, 0.0, 100.0).step, 10.0);
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 10.0, 0.0, 51.0).step, 10.0);
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 10.0, 0.0, 50.0).step, 5.0);
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 10.0, 0.0, 13.0).step, 2.5);
}

TEST(PlotZoomTest, KeepsTheTicksWhereTheyWouldBeInTheWhole)
{
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 10.0, 21.0, 46.0).first, 22.5);
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 10.0, 20.0, 45.0).first, 20.0);
    EXPECT_EQ(ZoomTicks(-7.0, 93.0, 10.0, 1.0, 51.0).first, 3.0);
}

TEST(PlotZoomTest, LeavesAStepAloneThatIsNone)
{
    EXPECT_EQ(ZoomTicks(0.0, 100.0, 0.0, 20.0, 45.0).step, 0.0);
    EXPECT_EQ(ZoomTicks(0.0, 100.0, -1.0, 20.0, 45.0).step, -1.0);
    EXPECT_TRUE(std::isnan(ZoomTicks(0.0, 100.0, std::nan(""), 20.0, 45.0).step));
}

struct Point
{
    double x;
    double y;
};

TEST(PointUnderTest, FindsTheDiscOnTop)
{
    constexpr PlotMap map{{60, 20, 460, 220}, {0.0, 0.0, 10.0, 10.0}};
    const std::vector<Point> points{{5.0, 5.0}, {5.05, 5.0}, {20.0, 5.0}, {std::nan(""), 5.0}};
    std::vector<const Point*> pointers;
    for (const Point& point : points)
    {
        pointers.push_back(&point);
    }
    EXPECT_EQ(PointUnder(pointers, map, {260, 120}), &points[1]) << "drawn over the first";
    EXPECT_EQ(PointUnder(pointers, map, {257, 117}), &points[0]) << "at the edge of the first alone";
    EXPECT_EQ(PointUnder(pointers, map, {256, 120}), nullptr);
    EXPECT_EQ(PointUnder(pointers, map, {260, 124}), nullptr);
    EXPECT_EQ(PointUnder(pointers, map, {860, 120}), nullptr) << "outside what is shown";
}

} // namespace
