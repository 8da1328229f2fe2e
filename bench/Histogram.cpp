// Histogram.cpp - [histogram] a histogram of 256 slots: a redraw against the same GDI calls, a repaint against a copy
#include "bench/Bench.h"
#include "bench/ChartPages.h"
#include "tavkit/charts/HstgCtrl.h"

#include <cstdio>
#include <string>
#include <vector>

namespace bench
{
namespace
{

constexpr int kSlots = 256;
constexpr double kRedrawTarget = 1.10;
constexpr double kRepaintTarget = 1.10;
constexpr int kLeft = 35;
constexpr int kTop = 20;
constexpr int kRight = kChartSize.cx - 15;
constexpr int kBottom = kChartSize.cy - 20;
constexpr double kScale = 0.05;

void Line(HDC dc, int x1, int y1, int x2, int y2)
{
    ::MoveToEx(dc, x1, y1, nullptr);
    ::LineTo(dc, x2, y2);
}

void Text(HDC dc, const char* text, RECT place, UINT format) { ::DrawTextA(dc, text, -1, &place, format); }

/// What a program without the control would write.
void DrawByHand(HDC dc, const DHstg& hstg)
{
    char text[64];
    const int sum = hstg.GetHstgSum();
    const double slot = static_cast<double>(kRight - kLeft) / kSlots;
    const HPEN thin = ::CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    const HPEN thick = ::CreatePen(PS_SOLID, 2, RGB(0, 0, 0));
    const HBRUSH red = ::CreateSolidBrush(RGB(255, 0, 0));
    const HFONT font = PointFont(dc, 70, "Arial");
    const HGDIOBJ oldFont = ::SelectObject(dc, font);
    const HGDIOBJ oldPen = ::SelectObject(dc, thin);
    const HGDIOBJ oldBrush = ::SelectObject(dc, red);
    ::MoveToEx(dc, 0, 0, nullptr);
    ::LineTo(dc, kChartSize.cx - 1, 0);
    ::LineTo(dc, kChartSize.cx - 1, kChartSize.cy - 1);
    ::LineTo(dc, 0, kChartSize.cy - 1);
    ::LineTo(dc, 0, 0);
    ::SelectObject(dc, thick);
    ::MoveToEx(dc, kLeft, kTop - 5, nullptr);
    ::LineTo(dc, kLeft, kBottom);
    ::LineTo(dc, kRight, kBottom);
    ::SelectObject(dc, thin);
    for (int i = 0; i <= 5; ++i)
    {
        const int y = static_cast<int>(kBottom - i * (kBottom - kTop) * 0.2);
        Line(dc, kLeft, y, kLeft - 5, y);
        std::snprintf(text, sizeof text, "%d%%", static_cast<int>(20 * i * kScale));
        Text(dc, text, {kLeft - 25, y - 5, kLeft - 6, y + 5}, DT_CENTER);
    }
    for (int j = 0; j <= kSlots; ++j)
    {
        const int x = static_cast<int>(kLeft + j * slot);
        Line(dc, x, kBottom, x, kBottom + 5);
        std::snprintf(text, sizeof text, "%.1f", hstg.GetSlotClss(j));
        Text(dc, text,
             {static_cast<int>(kLeft + j * slot - slot * 0.5), kBottom + 6,
              static_cast<int>(kLeft + (j + 1) * slot + slot * 0.5), kBottom + 25},
             DT_CENTER);
    }
    for (int i = 0; i < kSlots; ++i)
    {
        const int count = hstg.GetSlotVal(i);
        const int left = static_cast<int>(kLeft + i * slot);
        const int right = static_cast<int>(kLeft + (i + 1) * slot);
        const int top = kBottom - static_cast<int>(static_cast<double>(kBottom - kTop) * count / (sum * kScale));
        ::Rectangle(dc, left, top, right, kBottom);
        std::snprintf(text, sizeof text, "%d", count);
        Text(dc, text, {left, top - 12, right, top - 3}, DT_CENTER);
    }
    std::snprintf(text, sizeof text, "Sum: %d", sum);
    Text(dc, text, {kRight - 60, kTop, kRight, kTop + 12}, DT_RIGHT);
    ::SelectObject(dc, oldBrush);
    ::SelectObject(dc, oldPen);
    ::SelectObject(dc, oldFont);
    for (const HGDIOBJ object : {HGDIOBJ(thin), HGDIOBJ(thick), HGDIOBJ(red), HGDIOBJ(font)})
    {
        ::DeleteObject(object);
    }
}

std::vector<int> Counts()
{
    std::vector<int> counts;
    for (int i = 0; i < kSlots; ++i)
    {
        counts.push_back(100 + i * 2654435761LL % 900);
    }
    return counts;
}

std::vector<Row> Run()
{
    const DHstg hstg(0.0, kSlots, Counts());
    PlainPage plain([&](HDC dc) { DrawByHand(dc, hstg); });
    CHstgCtrl ours;
    Require(ours.CreateEx(0, CHstgCtrl::ClassName, "", WS_POPUP | WS_VISIBLE, 0, 0, kChartSize.cx, kChartSize.cy,
                          nullptr, nullptr) != FALSE,
            "the histogram can't be made");
    ours.SetMaxPerc(kScale);
    ours.SetHstg(&hstg);
    RequireSamePixels(ours.m_hWnd, plain.Handle());
    const auto redraw = [&] {
        ours.Refresh();
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
    return {{"histogram", kSlots, drawn.ours, drawn.reference, kRedrawTarget},
            {"histogram.repaint", kChartRepaints, copied.ours, copied.reference, kRepaintTarget}};
}

const Registration registration("histogram", Run);

} // namespace
} // namespace bench
