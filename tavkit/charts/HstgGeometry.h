// HstgGeometry.h - where the bars, ticks and labels of a histogram lie
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

namespace tavkit
{

/// The chart without its labels, in client pixels: the y axis stands at `left`, the x axis at `bottom`, and the top of
/// the scale is at `top`. A client area smaller than the margins turns it inside out; everything follows, nothing
/// fails.
using HstgArea = RECT;

constexpr int kPercTicks = 6;         ///< from 0 % to the top of the scale
constexpr int kHstgTickLength = 5;    ///< pixels; also the overshoot of the y axis
constexpr int kPercLabelLeft = 25;    ///< pixels from the y axis to the far side of its labels
constexpr int kPercLabelRight = 6;    ///< and to their near side
constexpr int kPercLabelHalf = 5;     ///< half of a label's height
constexpr int kClassLabelTop = 6;     ///< pixels from the x axis to the near side of its labels
constexpr int kClassLabelBottom = 25; ///< and to their far side
constexpr int kEndLabelHalf = 12;     ///< half the width of the labels at the ends of the x axis
constexpr int kFreqTop = 12;          ///< pixels from a bar's top to the far side of its count
constexpr int kFreqBottom = 3;        ///< and to the near side
constexpr int kSumWidth = 60;         ///< of the sum's place
constexpr int kSumHeight = 12;

/// The share of the sum that the top of the scale stands for: the first of a few steps that the largest count doesn't
/// exceed; 1.0 if it exceeds them all, and for a sum of 0.
[[nodiscard]] TAVKIT_API double AutoScale(int largest, int sum) noexcept;

/// A tick of the y axis.
struct PercTick
{
    int y;
    int percent; ///< what its label says
    RECT label;  ///< place of the label
};

/// @param i  0 to kPercTicks - 1, from the bottom
[[nodiscard]] TAVKIT_API PercTick PercTickAt(HstgArea const& area, int i, double maxPerc) noexcept;

/// Width of a slot in pixels.
/// @param slots  at least 1
[[nodiscard]] TAVKIT_API double SlotWidth(HstgArea const& area, int slots) noexcept;

/// A tick of the x axis.
struct ClassTick
{
    int x;
    RECT label; ///< place of the label
};

/// The tick at border `j` of the slots, with room for a label that is centred under slot `j` and two slots wide: the
/// label of the last border lies right of the chart.
/// @param j  0 to `slots`, both included
[[nodiscard]] TAVKIT_API ClassTick ClassTickAt(HstgArea const& area, int slots, int j) noexcept;

/// The same with room for a label of fixed width at the border itself.
[[nodiscard]] TAVKIT_API ClassTick EndTickAt(HstgArea const& area, int slots, int j) noexcept;

/// The bar of slot `i`. Nothing keeps it below the top of the chart. A sum or a scale of 0 gives a bar of no height for
/// a count of 0, and one out of sight for another.
[[nodiscard]] TAVKIT_API RECT BarAt(HstgArea const& area, int slots, int i, int count, int sum,
                                    double maxPerc) noexcept;

/// Where the count above a bar stands.
[[nodiscard]] TAVKIT_API RECT FreqPlace(RECT const& bar) noexcept;

/// Where the sum stands, in the upper right corner.
[[nodiscard]] TAVKIT_API RECT SumPlace(HstgArea const& area) noexcept;

/// The value at a pixel; no number if the chart has no width.
[[nodiscard]] TAVKIT_API double HstgToDataX(HstgArea const& area, int x, double lowest, double highest) noexcept;

} // namespace tavkit
