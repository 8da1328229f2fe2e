// CellPlaces.h - where the texts of a row stand
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <algorithm>
#include <optional>

namespace tavkit
{

/// Free pixels around a cell's text, on each side.
inline constexpr int kCellInset = 1;

/// Pixels that an edit box is wider than its text, at least.
inline constexpr int kEditSpare = 5;

/// The place of a column's text in a row.
/// @param text   the part of the row that may hold text: behind indent and image
/// @param left   left edge of the column
/// @return no value if nothing of the column can be seen there.
[[nodiscard]] constexpr std::optional<RECT> TextPlace(RECT const& text, int left, int width) noexcept
{
    RECT const place{std::max<LONG>(text.left, left) + kCellInset, text.top + kCellInset,
                     std::min<LONG>(text.right, left + width) - kCellInset, text.bottom - kCellInset};
    return place.left < place.right && place.top < place.bottom ? std::optional(place) : std::nullopt;
}

/// The right edge that an edit box needs for its text, the list's right edge at most. A box never gets narrower.
/// @param listRight  right edge of the list's client area
[[nodiscard]] constexpr int GrownRight(int left, int right, int textWidth, int listRight) noexcept
{
    return textWidth + kEditSpare > right - left ? std::max(right, std::min(left + textWidth + kEditSpare, listRight))
                                                 : right;
}

} // namespace tavkit
