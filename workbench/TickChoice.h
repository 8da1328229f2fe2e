// TickChoice.h - limits and ticks of an axis, chosen from the data
#pragma once

namespace workbench
{
/// An axis: what it shows, and how far its ticks are apart.
struct Axis
{
    double min = 0;
    double max = 1;
    double tick = 1; ///< above 0

    bool operator==(const Axis&) const = default;
};

/// An axis that holds all values: its ticks are 1, 2 or 5 times a power of ten apart, and its limits are multiples of
/// that. Values of no extent get an axis around them.
/// @param lowest, highest  finite; of the data
/// @param mostTicks        intervals between ticks, at least 2
[[nodiscard]] Axis ChooseAxis(double lowest, double highest, int mostTicks) noexcept;
} // namespace workbench
