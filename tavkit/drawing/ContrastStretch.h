// ContrastStretch.h - turns pixels of any type into 8 bits, so that data of any range can be seen
#pragma once

#include <cstddef>
#include "tavkit/frame/Export.h"

namespace tavkit
{

/// The pixel types of a raster channel, by the raster service's data type codes.
enum class PixelType : int
{
    Unsigned8 = 1,
    Unsigned16 = 2,
    Signed16 = 4,
    Unsigned32 = 8,
    Signed32 = 16,
    Float32 = 32
};

/// Bytes of one pixel; 0 for a code that is no pixel type.
[[nodiscard]] TAVKIT_API int BytesPerPixel(PixelType type) noexcept;

/// Stretches `count` pixels to 8 bits in place: pixel i goes to byte i of the same buffer. The window is three standard
/// deviations around the mean of the pixels that aren't zero, clipped to the data; below it lies 0, above it 255. When
/// all pixels that aren't zero are equal they become 255 and the bytes of zero pixels keep what they held.
/// @param pixels  `count` times BytesPerPixel(type) bytes, aligned for the type. An unknown type, null and a count of 0
///                change nothing.
TAVKIT_API void StretchContrast(void* pixels, std::size_t count, PixelType type) noexcept;

} // namespace tavkit
