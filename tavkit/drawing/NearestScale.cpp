#include "tavkit/drawing/NearestScale.h"

#include <algorithm>
#include <cstdint>

namespace tavkit
{

int NearestSource(int target, int sourceSize, int targetSize) noexcept
{
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{target} * sourceSize / targetSize, sourceSize - 1));
}

std::vector<int> NearestOffsets(int sourceWidth, int targetWidth)
{
    std::vector<int> offsets(static_cast<std::size_t>(targetWidth));
    for (int x = 0; x < targetWidth; ++x)
    {
        offsets[static_cast<std::size_t>(x)] = kBytesPerCanvasPixel * NearestSource(x, sourceWidth, targetWidth);
    }
    return offsets;
}

void ScaleLine(unsigned char const* source, std::span<int const> offsets, unsigned char* target) noexcept
{
    for (int const offset : offsets)
    {
        target = std::copy_n(source + offset, kBytesPerCanvasPixel, target);
    }
}

} // namespace tavkit
