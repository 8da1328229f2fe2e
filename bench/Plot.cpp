// Plot.cpp - [plot] a plot of 100,000 points: a redraw against one Ellipse a point, a repaint against a copy
#include "bench/Bench.h"
#include "bench/ChartPages.h"
#include "tavkit/charts/PlotCtrl.h"

#include <random>
#include <string>
#include <vector>

namespace bench
{
namespace
{

constexpr int kPoints = 100'000;
constexpr double kRedrawTarget = 1.0;
constexpr double kRepaintTarget = 1.10;
constexpr int kLeft = 60;
constexpr int kTop = 20;
constexpr int kRight = kChartSize.cx - 20;
constexpr int kBottom = kChartSize.cy - 32;

struct Point
{
    double x;
    double y;
};

/// Points as of two measures that go together: a cloud along the diagonal, crowded in its middle.
std::vector<Point> MakePoints()
{
    std::mt19937 random(42);
    std::normal_distribution<double> along(0.5, 0.2);
    std::normal_distribution<double> across(0.0, 0.1);
    std::vector<Point> points;
    while (points.size() < kPoints)
    {
        const double a = along(random);
        const Point point{a, a + across(random)};
        if (point.x >= 0 && point.x <= 1 && point.y >= 0 && point.y <= 1)
        {
            points.push_back(point);
        }
    }
    return points;
}

/// The page without ticks and texts, and one Ellipse a point.
void DrawByHand(HDC dc, const std::vector<Point>& points)
{
    const HPEN thin = ::CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    const HPEN thick = ::CreatePen(PS_SOLID, 2, RGB(0, 0, 0));
    const HPEN redPen = ::CreatePen(PS_SOLID, 1, RGB(230, 0, 0));
    const HBRUSH red = ::CreateSolidBrush(RGB(230, 0, 0));
    const HGDIOBJ oldPen = ::SelectObject(dc, thin);
    const HGDIOBJ oldBrush = ::SelectObject(dc, red);
    ::MoveToEx(dc, 0, 0, nullptr);
    ::LineTo(dc, kChartSize.cx - 1, 0);
    ::LineTo(dc, kChartSize.cx - 1, kChartSize.cy - 1);
    ::LineTo(dc, 0, kChartSize.cy - 1);
    ::LineTo(dc, 0, 0);
    ::SelectObject(dc, thick);
    ::MoveToEx(dc, kLeft, kTop, nullptr);
    ::LineTo(dc, kLeft, kBottom);
    ::LineTo(dc, kRight, kBottom);
    ::SelectObject(dc, redPen);
    for (const Point& point : points)
    {
        const int x = kLeft + static_cast<int>((kRight - kLeft) * point.x);
        const int y = kBottom - static_cast<int>((kBottom - kTop) * point.y);
        ::Ellipse(dc, x - 3, y - 3, x + 3, y + 3);
    }
    ::SelectObject(dc, oldPen);
    ::SelectObject(dc, oldBrush);
    for (const HGDIOBJ object : {HGDIOBJ(thin), HGDIOBJ(thick), HGDIOBJ(redPen), HGDIOBJ(red)})
    {
        ::DeleteObject(object);
    }
}

/// The part of both pages that has neither ticks nor texts.
void RequireSamePlots(HWND ours, HWND reference)
{
    BringToTop(ours);
    RepaintWindow(ours, 1);
    const std::vector<DWORD> pixels = WindowPixels(ours);
    BringToTop(reference);
    RepaintWindow(reference, 1);
    const std::vector<DWORD> expected = WindowPixels(reference);
    bool same = true;
    for (int y = 0; y < kBottom; ++y)
    {
        for (int x = kLeft; x < kChartSize.cx; ++x)
        {
            const auto at = static_cast<std::size_t>(y * kChartSize.cx + x);
            same = same && pixels[at] == expected[at];
        }
    }
    Require(same, "the two sides drew different pixels");
}

std::vector<Row> Run()
{
    const std::vector<Point> points = MakePoints();
    PlainPage plain([&](HDC dc) { DrawByHand(dc, points); });
    CPlotCtrl ours;
    Require(ours.CreateEx(0, CPlotCtrl::ClassName, "", WS_POPUP | WS_VISIBLE, 0, 0, kChartSize.cx, kChartSize.cy,
                          nullptr, nullptr) != FALSE,
            "the plot can't be made");
    ours.SetDataMaxX(1.0);
    ours.SetDataMaxY(1.0);
    ours.DrawGrid(false);
    for (const Point& point : points)
    {
        ours.AddData(point.x, point.y, nullptr, nullptr);
    }
    RequireSamePlots(ours.m_hWnd, plain.Handle());
    const auto redraw = [&] {
        ours.SetTickX(1.0); // nothing new, but drawn anew
        RepaintWindow(ours.m_hWnd, 1);
    };
    const auto redrawPlain = [&] {
        plain.Mark();
        RepaintWindow(plain.Handle(), 1);
    };
    const auto oursOnTop = [&] { BringToTop(ours.m_hWnd); };
    const auto plainOnTop = [&] { BringToTop(plain.Handle()); };
    const Medians drawn =
        Interleave({.run = redraw, .prepare = oursOnTop}, {.run = redrawPlain, .prepare = plainOnTop});
    const Medians copied =
        Interleave({.run = [&] { RepaintWindow(ours.m_hWnd, kChartRepaints); }, .prepare = oursOnTop},
                   {.run = [&] { RepaintWindow(plain.Handle(), kChartRepaints); }, .prepare = plainOnTop});
    ours.DestroyWindow();
    return {{"plot", kPoints, drawn.ours, drawn.reference, kRedrawTarget},
            {"plot.repaint", kChartRepaints, copied.ours, copied.reference, kRepaintTarget}};
}

const Registration registration("plot", Run);

} // namespace
} // namespace bench
