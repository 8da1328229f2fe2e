#include "tavkit/charts/PlotGeometry.h"

#include <algorithm>

namespace tavkit
{
namespace
{

constexpr double kRadiansPerDegree = 0.017453292522222223; // 3.141592654 / 180; texts lie where this value puts them
constexpr int kClipMargin = 64;                            // pixels; a clipped line ends out of sight
constexpr double kHalf = 0.5;

} // namespace

std::vector<double> TickValues(double first, double last, double step)
{
    std::vector<double> values;
    for (double v = first; v <= last && values.size() < kMostTicks; v += step)
    {
        if (!values.empty() && !(v > values.back()))
        {
            break;
        }
        values.push_back(v);
    }
    return values;
}

bool IsCrowded(double ticks) noexcept { return !(std::trunc(ticks) < kCrowdedTicks); }

RECT XLabelPlace(RECT const& area, int x, int width) noexcept
{
    return {ToPixels(x - width * kHalf), area.bottom + kXLabelTop, ToPixels(x + width * kHalf),
            area.bottom + kXLabelBottom};
}

RECT YLabelPlace(RECT const& area, int y) noexcept
{
    return {area.left - kYLabelLeft, y - kYLabelHalf, area.left - kYLabelRight, y + kYLabelHalf};
}

RECT TitlePlace(RECT const& area) noexcept { return {area.left, kTitleTop, area.right, area.top - kTitleGap}; }

RECT XCaptionPlace(RECT const& area) noexcept
{
    return {area.left, area.bottom + kXCaptionTop, area.right, area.bottom + kXCaptionBottom};
}

RECT YCaptionPlace(RECT const& area) noexcept
{
    return {area.left - kYCaptionLeft, area.top, area.left - kYCaptionRight, area.bottom};
}

POINT RotatedTextStart(RECT const& rect, SIZE extent, double degrees) noexcept
{
    const double angle = degrees * kRadiansPerDegree;
    const int halfX = extent.cx / 2;
    const int halfY = extent.cy / 2;
    const int dx = ToPixels(halfX * std::cos(angle) - halfY * std::sin(angle));
    const int dy = ToPixels(std::sin(angle) * halfX + std::cos(angle) * halfY);
    return {rect.left + (rect.right - rect.left) / 2 - dx, rect.top + (rect.bottom - rect.top) / 2 + dy};
}

bool ClipLine(RECT const& rect, FarPoint from, FarPoint to, POINT& start, POINT& end) noexcept
{
    if (!std::isfinite(from.x) || !std::isfinite(from.y) || !std::isfinite(to.x) || !std::isfinite(to.y))
    {
        return false;
    }
    // How far along the line it enters and leaves; distances are halved, since they may be past the largest double.
    double enter = 0.0;
    double leave = 1.0;
    const auto cut = [&](double a, double b, double low, double high) {
        const double half = b / 2 - a / 2;
        if (half == 0.0)
        {
            return a >= low && a <= high;
        }
        const double t0 = (low / 2 - a / 2) / half;
        const double t1 = (high / 2 - a / 2) / half;
        enter = std::max(enter, std::min(t0, t1));
        leave = std::min(leave, std::max(t0, t1));
        return enter <= leave;
    };
    if (!cut(from.x, to.x, rect.left - kClipMargin, rect.right + kClipMargin) ||
        !cut(from.y, to.y, rect.top - kClipMargin, rect.bottom + kClipMargin))
    {
        return false;
    }
    start = {ToPixels(std::lerp(from.x, to.x, enter)), ToPixels(std::lerp(from.y, to.y, enter))};
    end = {ToPixels(std::lerp(from.x, to.x, leave)), ToPixels(std::lerp(from.y, to.y, leave))};
    return true;
}

} // namespace tavkit
