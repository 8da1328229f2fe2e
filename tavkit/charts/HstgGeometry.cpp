#include "tavkit/charts/HstgGeometry.h"

#include "tavkit/charts/ChartPixels.h"

#include <algorithm>
#include <array>

namespace tavkit
{
namespace
{

constexpr std::array kScales{0.05, 0.1, 0.15, 0.2, 0.25, 0.5};
constexpr double kWholeScale = 1.0;
constexpr double kPercStep = 0.2;   // of the chart's height, from tick to tick
constexpr int kPercentPerTick = 20; // of the scale
constexpr double kHalfSlot = 0.5;

} // namespace

double AutoScale(int largest, int sum) noexcept
{
    // Without a sum the ratio is no number, and no scale holds it.
    const double ratio = static_cast<double>(largest) / static_cast<double>(sum);
    const auto* const scale = std::find_if(kScales.begin(), kScales.end(), [&](double s) { return ratio <= s; });
    return scale != kScales.end() ? *scale : kWholeScale;
}

PercTick PercTickAt(HstgArea const& area, int i, double maxPerc) noexcept
{
    const double step = (area.bottom - area.top) * kPercStep;
    const int y = ToPixels(area.bottom - i * step);
    return {y,
            ToPixels(kPercentPerTick * i * maxPerc),
            {area.left - kPercLabelLeft, y - kPercLabelHalf, area.left - kPercLabelRight, y + kPercLabelHalf}};
}

double SlotWidth(HstgArea const& area, int slots) noexcept
{
    return static_cast<double>(area.right - area.left) / slots;
}

ClassTick ClassTickAt(HstgArea const& area, int slots, int j) noexcept
{
    const double width = SlotWidth(area, slots);
    return {ToPixels(area.left + j * width),
            {ToPixels(area.left + j * width - width * kHalfSlot), area.bottom + kClassLabelTop,
             ToPixels(area.left + (j + 1) * width + width * kHalfSlot), area.bottom + kClassLabelBottom}};
}

ClassTick EndTickAt(HstgArea const& area, int slots, int j) noexcept
{
    const double at = area.left + j * SlotWidth(area, slots);
    const int left = ToPixels(at - kEndLabelHalf);
    return {ToPixels(at),
            {left, area.bottom + kClassLabelTop, left + 2 * kEndLabelHalf, area.bottom + kClassLabelBottom}};
}

RECT BarAt(HstgArea const& area, int slots, int i, int count, int sum, double maxPerc) noexcept
{
    const double width = SlotWidth(area, slots);
    const int height = ToPixels(static_cast<double>(area.bottom - area.top) * count / (sum * maxPerc));
    return {ToPixels(area.left + i * width), area.bottom - height, ToPixels(area.left + (i + 1) * width), area.bottom};
}

RECT FreqPlace(RECT const& bar) noexcept { return {bar.left, bar.top - kFreqTop, bar.right, bar.top - kFreqBottom}; }

RECT SumPlace(HstgArea const& area) noexcept
{
    return {area.right - kSumWidth, area.top, area.right, area.top + kSumHeight};
}

double HstgToDataX(HstgArea const& area, int x, double lowest, double highest) noexcept
{
    return static_cast<double>(x - area.left) / (area.right - area.left) * (highest - lowest) + lowest;
}

} // namespace tavkit
