#include "tavkit/charts/PlotZoom.h"

#include <algorithm>
#include <cmath>

namespace tavkit
{
namespace
{

struct Range
{
    double min;
    double max;
};

/// The range at its place in `home`, or as near to it as it fits.
Range Fit(Range range, Range home)
{
    const double size = range.max - range.min;
    if (size >= home.max - home.min)
    {
        return home;
    }
    if (range.min < home.min)
    {
        return {home.min, home.min + size};
    }
    return range.max > home.max ? Range{home.max - size, home.max} : range;
}

Range ZoomRange(Range view, Range home, double at, double factor)
{
    const double closest = (home.max - home.min) * kClosestLook;
    const double size = std::max((view.max - view.min) / factor, closest);
    const double share = (at - view.min) / (view.max - view.min);
    const double min = at - share * size;
    return Fit({min, min + size}, home);
}

} // namespace

DataWindow ZoomAt(DataWindow const& view, DataWindow const& home, double x, double y, double factor) noexcept
{
    const Range rangeX = ZoomRange({view.minX, view.maxX}, {home.minX, home.maxX}, x, factor);
    const Range rangeY = ZoomRange({view.minY, view.maxY}, {home.minY, home.maxY}, y, factor);
    return {rangeX.min, rangeY.min, rangeX.max, rangeY.max};
}

DataWindow PanBy(DataWindow const& view, DataWindow const& home, double dx, double dy) noexcept
{
    const Range rangeX = Fit({view.minX + dx, view.maxX + dx}, {home.minX, home.maxX});
    const Range rangeY = Fit({view.minY + dy, view.maxY + dy}, {home.minY, home.maxY});
    return {rangeX.min, rangeY.min, rangeX.max, rangeY.max};
}

TickAxis ZoomTicks(double homeMin, double homeMax, double step, double min, double max) noexcept
{
    if (!(step > 0) || !(max > min))
    {
        return {min, step};
    }
    const double halvings = std::floor(std::log2((homeMax - homeMin) / (max - min)));
    const double closer = step * std::exp2(-std::max(halvings, 0.0));
    return {homeMin + std::ceil((min - homeMin) / closer) * closer, closer};
}

} // namespace tavkit
