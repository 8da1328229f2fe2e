// ChartPixels.h - from data to whole pixels, whatever the data are
#pragma once

#include <cmath>

namespace tavkit
{

/// How far from 0 a pixel may lie: sums of a few such still fit into an int, and the system draws that far.
constexpr int kFarthestPixel = 1 << 26;

/// Truncated toward zero. What lies farther than kFarthestPixel is brought there; what is no number gives 0.
[[nodiscard]] inline int ToPixels(double value) noexcept
{
    if (value > -kFarthestPixel && value < kFarthestPixel)
    {
        return static_cast<int>(value);
    }
    return std::isnan(value) ? 0 : value < 0 ? -kFarthestPixel : kFarthestPixel;
}

} // namespace tavkit
