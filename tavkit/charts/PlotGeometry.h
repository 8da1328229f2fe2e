// PlotGeometry.h - where the points, ticks and labels of a plot lie
#pragma once

#include "tavkit/charts/ChartPixels.h"
#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

#include <cmath>
#include <cstdlib>
#include <vector>

namespace tavkit
{

constexpr int kPlotTickLength = 5;   ///< pixels
constexpr int kXLabelTop = 6;        ///< pixels from the x axis to the near side of its labels
constexpr int kXLabelBottom = 16;    ///< and to their far side
constexpr int kYLabelLeft = 46;      ///< pixels from the y axis to the far side of its labels
constexpr int kYLabelRight = 6;      ///< and to their near side
constexpr int kYLabelHalf = 6;       ///< half of a label's height
constexpr int kTitleTop = 10;        ///< pixels from the upper edge of the window to the title
constexpr int kTitleGap = 10;        ///< and from the title to the plot
constexpr int kXCaptionTop = 18;     ///< pixels from the x axis to its caption
constexpr int kXCaptionBottom = 30;  ///< and to the caption's far side
constexpr int kYCaptionLeft = 60;    ///< pixels from the y axis to the far side of its caption
constexpr int kYCaptionRight = 50;   ///< and to the near side
constexpr int kCrowdedTicks = 45;    ///< from so many x ticks on their labels are smaller
constexpr int kPointRadius = 3;      ///< pixels
constexpr int kSlctRadius = 4;       ///< of the selected point
constexpr int kReach = 5;            ///< pixels to the side of a point in which a click selects it
constexpr double kNoDistance = 1e12; ///< in data units; no point as far away as this is ever the nearest
constexpr int kMostTicks = 16384;    ///< of an axis: more than a screen has pixels, and few enough to be drawn

/// The part of the data that the plot shows.
struct DataWindow
{
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;

    bool operator==(DataWindow const&) const = default;

    /// True if the point lies in it, on its limits included; false for what is no number.
    [[nodiscard]] bool Contains(double x, double y) const noexcept
    {
        return x >= minX && x <= maxX && y >= minY && y <= maxY;
    }
};

/// From data to client pixels and back. Equal limits, or an area without width or height, make one of the two ways
/// meaningless; the answer is then some pixel or other, or a value that is no number.
struct PlotMap
{
    RECT area; ///< the plot without its labels; the y axis stands at `left`, the x axis at `bottom`
    DataWindow data;

    [[nodiscard]] int Width() const noexcept { return area.right - area.left; }
    [[nodiscard]] int Height() const noexcept { return area.bottom - area.top; }
    [[nodiscard]] int ToWndX(double v) const noexcept { return area.left + ToPixels(OffsetX(v)); }
    /// y grows upward.
    [[nodiscard]] int ToWndY(double v) const noexcept { return area.bottom - ToPixels(OffsetY(v)); }
    [[nodiscard]] double ToDataX(int p) const noexcept
    {
        return static_cast<double>(p - area.left) / Width() * (data.maxX - data.minX) + data.minX;
    }
    [[nodiscard]] double ToDataY(int p) const noexcept
    {
        return static_cast<double>(area.bottom - p) / Height() * (data.maxY - data.minY) + data.minY;
    }
    /// A length, not a position.
    [[nodiscard]] int ToWndSX(double d) const noexcept { return ToPixels(PixelsX(d)); }
    [[nodiscard]] int ToWndSY(double d) const noexcept { return ToPixels(Height() / (data.maxY - data.minY) * d); }

    /// True if a point that is `distance` away in x is out of a click's reach.
    [[nodiscard]] bool IsOutOfReach(double distance) const noexcept { return std::trunc(PixelsX(distance)) > kReach; }
    /// True for a pixel in the area, its limits included.
    [[nodiscard]] bool IsInside(POINT p) const noexcept
    {
        return p.x >= area.left && p.x <= area.right && p.y >= area.top && p.y <= area.bottom;
    }

    /// Pixels from the y axis, to the right, before they become whole.
    [[nodiscard]] double OffsetX(double v) const noexcept
    {
        return Width() * ((v - data.minX) / (data.maxX - data.minX));
    }
    /// Pixels from the x axis, upward, before they become whole.
    [[nodiscard]] double OffsetY(double v) const noexcept
    {
        return Height() * ((v - data.minY) / (data.maxY - data.minY));
    }

private:
    [[nodiscard]] double PixelsX(double d) const noexcept { return Width() / (data.maxX - data.minX) * d; }
};

/// The values of an axis that get a tick: `first` and on from there by `step`, each sum rounded as it comes, up to
/// `last`. One tick alone if the step isn't above 0 or too small to count; at most kMostTicks. None if a limit is no
/// number or `first` is above `last`.
[[nodiscard]] TAVKIT_API std::vector<double> TickValues(double first, double last, double step);

/// True if the x labels need the smaller font.
/// @param ticks  as a fraction too: the range over the distance of ticks
[[nodiscard]] TAVKIT_API bool IsCrowded(double ticks) noexcept;

/// Where the label of an x tick stands.
/// @param x      pixel of the tick
/// @param width  pixels from tick to tick
[[nodiscard]] TAVKIT_API RECT XLabelPlace(RECT const& area, int x, int width) noexcept;
/// Where the label of a y tick stands.
[[nodiscard]] TAVKIT_API RECT YLabelPlace(RECT const& area, int y) noexcept;
/// Where the title stands; without height while the margin above the plot is the usual one.
[[nodiscard]] TAVKIT_API RECT TitlePlace(RECT const& area) noexcept;
[[nodiscard]] TAVKIT_API RECT XCaptionPlace(RECT const& area) noexcept;
/// The rectangle in whose middle the y caption stands.
[[nodiscard]] TAVKIT_API RECT YCaptionPlace(RECT const& area) noexcept;

/// Where a text begins that is turned about the middle of a rectangle.
/// @param extent   of the text, not turned
/// @param degrees  anticlockwise
[[nodiscard]] TAVKIT_API POINT RotatedTextStart(RECT const& rect, SIZE extent, double degrees) noexcept;

/// A point that may lie anywhere, in client pixels; not a number if the data aren't.
struct FarPoint
{
    double x;
    double y;
};

/// The part of a line that is near the rectangle, for lines whose ends are too far away for the system to draw. The
/// ends become whole pixels.
/// @return false if no part of it is near, or an end isn't finite
[[nodiscard]] TAVKIT_API bool ClipLine(RECT const& rect, FarPoint from, FarPoint to, POINT& start, POINT& end) noexcept;

/// The point that is nearest in x, the first among equals, whatever their y; null if none is nearer than kNoDistance.
/// @param points    pointers to records with a field `x`
/// @param distance  out: how far away it is
template <class Points>
[[nodiscard]] auto NearestInX(Points const& points, double x, double& distance)
{
    typename Points::value_type nearest = nullptr;
    distance = kNoDistance;
    for (auto const point : points)
    {
        const double d = std::fabs(x - point->x);
        if (d < distance)
        {
            distance = d;
            nearest = point;
        }
    }
    return nearest;
}

/// The point whose disc lies under a pixel, the one on top of several; null if there is none.
/// @param points  pointers to records with fields `x` and `y`
template <class Points>
[[nodiscard]] auto PointUnder(Points const& points, PlotMap const& map, POINT pixel)
{
    typename Points::value_type under = nullptr;
    for (auto const point : points)
    {
        if (map.data.Contains(point->x, point->y) && std::abs(map.ToWndX(point->x) - pixel.x) <= kPointRadius &&
            std::abs(map.ToWndY(point->y) - pixel.y) <= kPointRadius)
        {
            under = point;
        }
    }
    return under;
}

} // namespace tavkit
