// ImageFit.h - where a picture of one size lies in a rectangle of another
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

namespace tavkit
{

/// Nearest whole number; halves go away from zero. Values out of the range of int are limited to it, and what is no
/// number gives 0.
[[nodiscard]] TAVKIT_API int RoundHalfAway(double value) noexcept;

/// Size of a channel in logical pixels: its size divided by the step of its axis, which counts as at least 1.
[[nodiscard]] TAVKIT_API int LogicalSize(int channelSize, int step) noexcept;

/// The largest size of the picture's aspect that fits into the room. (0, 0) when the picture or the room is empty.
[[nodiscard]] TAVKIT_API SIZE FitInto(SIZE picture, SIZE room) noexcept;

/// The upper left corner that centres `size` in `room`; half a pixel goes to the right and to the bottom.
[[nodiscard]] TAVKIT_API POINT CentreIn(RECT const& room, SIZE size) noexcept;

} // namespace tavkit
