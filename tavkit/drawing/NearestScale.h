// NearestScale.h - resampling by the nearest neighbour
#pragma once

#include <span>
#include <vector>
#include "tavkit/frame/Export.h"

namespace tavkit
{

/// Bytes of a pixel in a line of a canvas: blue, green, red.
inline constexpr int kBytesPerCanvasPixel = 3;

/// The source row or column of place `target` when `sourceSize` of them are spread over `targetSize`: truncated, and
/// limited to the last. All sizes are above 0.
[[nodiscard]] TAVKIT_API int NearestSource(int target, int sourceSize, int targetSize) noexcept;

/// The byte offsets in a source line from which the pixels of a target line are taken.
[[nodiscard]] TAVKIT_API std::vector<int> NearestOffsets(int sourceWidth, int targetWidth);

/// Fills `target` with the pixels of `source` that `offsets` names; `target` has room for all of them.
TAVKIT_API void ScaleLine(unsigned char const* source, std::span<int const> offsets, unsigned char* target) noexcept;

} // namespace tavkit
