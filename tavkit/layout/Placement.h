// Placement.h - where a child of a resized window goes: the arithmetic of the layout, without a window
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <cstdint>

namespace tavkit
{

/// How a window differs from the one that its children were registered in.
struct LayoutDelta
{
    SIZE delta{};              ///< client size now less the initial one, pixels
    POINT scroll{};            ///< scroll positions, pixels
    bool useScrollPos = false; ///< scroll instead of squeezing the children
};

/// Place, in pixels right and bottom of the client area's corner, of the far edge of a child that is parked.
inline constexpr std::int32_t kParkedEdge = -10;

namespace details
{

// Sums and products are 32-bit words that wrap, as the stored rectangles are: no size that a caller can pass is
// undefined behaviour.
constexpr std::int32_t Add(std::int32_t a, std::int32_t b) noexcept
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr std::int32_t Sub(std::int32_t a, std::int32_t b) noexcept
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

/// percent * delta / 100, truncated towards zero.
constexpr std::int32_t Share(signed char percent, std::int32_t delta) noexcept
{
    const auto product =
        static_cast<std::uint32_t>(static_cast<std::int32_t>(percent)) * static_cast<std::uint32_t>(delta);
    return static_cast<std::int32_t>(product) / 100;
}

constexpr void Park(LONG& first, LONG& second, std::int32_t minimum) noexcept
{
    if (Add(first, minimum) >= second)
    {
        second = kParkedEdge;
        first = Sub(kParkedEdge, minimum);
    }
}

} // namespace details

/// What a window has grown by, pixels; less than 0 where it shrank.
[[nodiscard]] constexpr SIZE GrowthOf(SIZE current, SIZE initial) noexcept
{
    return {details::Sub(current.cx, initial.cx), details::Sub(current.cy, initial.cy)};
}

/// Size of a whole window, pixels.
[[nodiscard]] constexpr SIZE WindowSizeOf(SIZE client, SIZE border) noexcept
{
    return {details::Add(client.cx, border.cx), details::Add(client.cy, border.cy)};
}

/// Places one child.
/// @param rect     the child's rectangle as it was registered, client coordinates
/// @param percent  share of the window's growth that the left, top, right and bottom edges follow, 0 to 100
/// @param minSize  a child that would be no larger than this is parked outside the client area, with this size
/// @return the rectangle in client coordinates
[[nodiscard]] constexpr RECT PlaceRect(const RECT& rect, const signed char (&percent)[4], SIZE minSize,
                                       const LayoutDelta& layout) noexcept
{
    using details::Add;
    using details::Share;
    using details::Sub;

    RECT placed = rect;
    if (layout.useScrollPos)
    {
        placed.left = Sub(placed.left, layout.scroll.x);
        placed.right = Sub(placed.right, layout.scroll.x);
        placed.top = Sub(placed.top, layout.scroll.y);
        placed.bottom = Sub(placed.bottom, layout.scroll.y);
    }
    // A scrolled window that is smaller than it was designed scrolls; it doesn't squeeze its children.
    if (!layout.useScrollPos || layout.delta.cx >= 0)
    {
        placed.left = Add(placed.left, Share(percent[0], layout.delta.cx));
        placed.right = Add(placed.right, Share(percent[2], layout.delta.cx));
    }
    if (!layout.useScrollPos || layout.delta.cy >= 0)
    {
        placed.top = Add(placed.top, Share(percent[1], layout.delta.cy));
        placed.bottom = Add(placed.bottom, Share(percent[3], layout.delta.cy));
    }
    details::Park(placed.left, placed.right, minSize.cx);
    details::Park(placed.top, placed.bottom, minSize.cy);
    return placed;
}

} // namespace tavkit
