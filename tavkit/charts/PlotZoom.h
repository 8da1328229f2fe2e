// PlotZoom.h - a closer look at a part of the plot; an addition, over and above what the plot itself does
#pragma once

#include "tavkit/charts/PlotGeometry.h"
#include "tavkit/frame/Export.h"

namespace tavkit
{

constexpr double kZoomPerNotch = 1.25; ///< of the wheel
constexpr double kClosestLook = 1e-6;  ///< of the whole range

/// A part of `view` that is smaller by a factor, or a larger one for a factor below 1, and in which a place keeps its
/// pixel. It never leaves `home`, and is never smaller than kClosestLook of it.
/// @param x, y    the place in data units
[[nodiscard]] TAVKIT_API DataWindow ZoomAt(DataWindow const& view, DataWindow const& home, double x, double y,
                                           double factor) noexcept;

/// `view` moved by a distance in data units, but not out of `home`.
[[nodiscard]] TAVKIT_API DataWindow PanBy(DataWindow const& view, DataWindow const& home, double dx,
                                          double dy) noexcept;

/// The ticks of one axis.
struct TickAxis
{
    double first;
    double step;
};

/// Ticks for a part of an axis, as close together on the screen as those of the whole: their step is halved as often as
/// the part goes, doubled, into the whole, and they stay among the multiples that begin at the whole's lower limit.
/// @param step  of the whole; what isn't above 0 stays as it is
[[nodiscard]] TAVKIT_API TickAxis ZoomTicks(double homeMin, double homeMax, double step, double min,
                                            double max) noexcept;

} // namespace tavkit
