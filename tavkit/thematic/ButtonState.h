// ButtonState.h - mouse events of the thematic list, its commands, and how a button answers to the mouse
#pragma once

#include "tavkit/frame/WinTypes.h"

namespace tavkit::thematic
{

/// The mouse events that the list passes down to its elements.
enum EMouseEvnt : int
{
    mouseMove = 1,  ///< every move over the list
    mouseLDown = 2, ///< left button down
    mouseLUp = 3,   ///< left button up
    mouseLeave = 5  ///< the mouse left the window
};

/// Bits of a button's state.
enum EButtonState : int
{
    stateHot = 1,    ///< the mouse is over it
    statePressed = 2 ///< the left button went down over it
};

/// What a button stands for.
enum ECommand : unsigned long
{
    idAdd = 101, ///< add to the group
    idRmv = 102, ///< remove the item
    idUp = 103,  ///< move the item up
    idDown = 104 ///< move the item down
};

/// Right and bottom don't belong to a rectangle; nothing lies in an empty one.
[[nodiscard]] constexpr bool Contains(RECT const& rect, POINT const& pt) noexcept
{
    return pt.x >= rect.left && pt.x < rect.right && pt.y >= rect.top && pt.y < rect.bottom;
}

/// The state after an event.
/// @param evnt       a number that is none of the events changes nothing
/// @param inside     the mouse is over the button
/// @param available  it can be clicked
[[nodiscard]] constexpr int NextButtonState(int state, EMouseEvnt evnt, bool inside, bool available) noexcept
{
    switch (evnt)
    {
    case mouseMove:
        // Over a button that can't be clicked even a hot look stays as it is.
        if (inside)
        {
            return available ? state | stateHot : state;
        }
        return state & ~stateHot; // a press stays until the release, wherever the mouse goes
    case mouseLDown:
        return inside && available ? state | statePressed : state;
    case mouseLUp:
    case mouseLeave:
        return 0;
    }
    return state;
}

/// Which image of a strip of triples a button shows. @param first  of its triple: normal, hot, pressed
[[nodiscard]] constexpr int ButtonImage(int first, int state) noexcept
{
    if ((state & statePressed) != 0)
    {
        return first + 2;
    }
    return (state & stateHot) != 0 ? first + 1 : first;
}

} // namespace tavkit::thematic
