#include "workbench/TickChoice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace workbench
{
namespace
{
constexpr std::array kSteps{1.0, 2.0, 5.0, 10.0};
constexpr double kRounding = 1e-9; // of a tick: a limit that far off a multiple counts as one
constexpr double kNarrow = 1e-12;  // of the values' size: closer together they can't be told apart

/// The first of the steps times a power of ten that isn't below `least`.
double RoundStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    const auto* const step =
        std::find_if(kSteps.begin(), kSteps.end(), [&](double s) { return s * power >= least * (1 - kRounding); });
    return (step != kSteps.end() ? *step : kSteps.back()) * power;
}
} // namespace

Axis ChooseAxis(double lowest, double highest, int mostTicks) noexcept
{
    // Room for the sums below, whatever the values are.
    constexpr double kMost = std::numeric_limits<double>::max() / 16;
    constexpr double kLeast = std::numeric_limits<double>::min() * 1e16;
    lowest = std::clamp(lowest, -kMost, kMost);
    highest = std::clamp(highest, -kMost, kMost);
    const double size = std::max(std::fabs(lowest), std::fabs(highest));
    if (!(highest - lowest > std::max(size * kNarrow, kLeast)))
    {
        const double room = size > kLeast ? size / 2 : 0.5;
        lowest -= room;
        highest += room;
    }
    const int most = std::max(mostTicks, 2);
    Axis axis;
    // Widening to multiples may bring one interval too many; then the next step will do.
    for (double least = (highest - lowest) / most;; least = axis.tick * (1 + 2 * kRounding))
    {
        axis.tick = RoundStep(least);
        axis.min = std::floor(lowest / axis.tick + kRounding) * axis.tick;
        axis.max = std::ceil(highest / axis.tick - kRounding) * axis.tick;
        if ((axis.max - axis.min) / axis.tick <= most + kRounding || axis.tick > highest - lowest)
        {
            return axis;
        }
    }
}
} // namespace workbench
