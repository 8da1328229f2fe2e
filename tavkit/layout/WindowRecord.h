// WindowRecord.h - arithmetic of a window's remembered place: reading a record, reaching it, growing it
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

#include <optional>

namespace tavkit
{

/// Pixels on every side of the virtual screen that don't count as reachable.
inline constexpr int kScreenMargin = 5;

/// The same rectangle with left not right of right and top not below bottom.
[[nodiscard]] TAVKIT_API RECT NormalizedRect(const RECT& rect) noexcept;

/// Whether a window there can be reached: some of it lies on the virtual screen, by more than the margin. A rectangle
/// whose width or height is beyond 32 bits is no window's.
/// @param screen  the virtual screen, pixels; one without width or height tells nothing and refuses nothing
[[nodiscard]] TAVKIT_API bool IsReachable(const RECT& rect, const RECT& screen) noexcept;

/// Grows a rectangle around its middle; an odd pixel goes to the right and to the bottom. Negative growth shrinks.
/// @return nothing when the result would be empty, inverted, or beyond 32 bits in any number
[[nodiscard]] TAVKIT_API std::optional<RECT> StretchedRect(const RECT& rect, SIZE growth) noexcept;

/// percent of a size, truncated towards zero.
[[nodiscard]] TAVKIT_API SIZE PercentOf(SIZE size, int percent) noexcept;

} // namespace tavkit
