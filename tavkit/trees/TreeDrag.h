// TreeDrag.h - what a drag in a tree decides: when it begins, where it scrolls, which release ends it
#pragma once

#include "tavkit/frame/WinTypes.h"

namespace tavkit
{

/// The numbers are those that InitDrag is given.
enum class DragKind : int
{
    none = 0,
    left = 1, ///< begun with the left button, and ended by its release
    right = 2 ///< the same with the right one
};

enum class DragButton
{
    left,
    right
};

/// May a drag begin: none runs, and a button is still held at this moment. A click that was released before the control
/// got round to telling of the drag begins none.
[[nodiscard]] constexpr bool MayBeginDrag(DragKind running, bool leftDown, bool rightDown) noexcept
{
    return running == DragKind::none && (leftDown || rightDown);
}

/// Does the release of that button end a drag of that kind.
[[nodiscard]] constexpr bool EndsDrag(DragKind running, DragButton released) noexcept
{
    return running == (released == DragButton::left ? DragKind::left : DragKind::right);
}

/// Does the control get to handle the release as well. The one that ends a right drag is kept from it, or a context
/// menu would open over the drop.
[[nodiscard]] constexpr bool ReleaseGoesOn(DragKind running, DragButton released) noexcept
{
    return !(running == DragKind::right && released == DragButton::right);
}

/// How far the view moves at one mouse move of a drag.
enum class DragScroll
{
    none,
    down, ///< the next visible item becomes the first one
    up    ///< the item before the first visible one does
};

/// The vertical scroll bar.
struct ScrollState
{
    int pos;
    int min;
    int max;
};

/// @param y       of the pointer, in client coordinates
/// @param bottom  of the client area
[[nodiscard]] constexpr DragScroll ScrollOfDrag(LONG y, LONG bottom, ScrollState const& bar) noexcept
{
    if (y > bottom && bar.pos < bar.max)
    {
        return DragScroll::down;
    }
    if (y < 0 && bar.pos > bar.min)
    {
        return DragScroll::up;
    }
    return DragScroll::none;
}

} // namespace tavkit
