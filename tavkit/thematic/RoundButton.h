// RoundButton.h - the shapes that make up a round plus or minus button
#pragma once

#include "tavkit/thematic/ButtonState.h"

#include <array>

namespace tavkit::thematic
{

/// A line; its end point isn't painted.
struct Stroke
{
    POINT from;
    POINT to;
};

struct RoundButton
{
    bool shadowed;                 ///< the disc is painted
    RECT disc;                     ///< of the shadow
    RECT face;                     ///< of the button itself
    int corner;                    ///< width and height of the face's corners, which make it a circle
    bool lit;                      ///< the face is highlighted
    std::array<Stroke, 2> minus;   ///< a line two pixels thick, from left to right
    std::array<Stroke, 2> upright; ///< what a plus has more than a minus
};

[[nodiscard]] constexpr RECT Offset(RECT const& rect, int d) noexcept
{
    return {rect.left + d, rect.top + d, rect.right + d, rect.bottom + d};
}

/// @param state  bits of EButtonState. Hovering puts a shadow to the lower right of the button; pressing moves the
///               button onto the shadow. A press without hovering has no shadow and moves nothing.
[[nodiscard]] constexpr RoundButton ShapeRoundButton(RECT const& rect, int state) noexcept
{
    const bool hot = (state & stateHot) != 0;
    const bool pressed = (state & statePressed) != 0;
    RoundButton shape{};
    shape.shadowed = hot;
    shape.lit = hot || pressed;
    shape.disc = hot && !pressed ? Offset(rect, 1) : rect;
    shape.face = hot && pressed ? Offset(rect, 1) : rect;

    const RECT& r = shape.face;
    shape.corner = r.right - r.left - 1;
    const LONG arm = (r.right - r.left) / 4;
    const LONG cx = (r.left + r.right) / 2;
    const LONG cy = (r.top + r.bottom) / 2;
    shape.minus = {{{{cx - arm, cy}, {cx + arm, cy}}, {{cx - arm, cy - 1}, {cx + arm, cy - 1}}}};
    shape.upright = {{{{cx - 1, cy - arm}, {cx - 1, cy + arm}}, {{cx, cy - arm}, {cx, cy + arm}}}};
    return shape;
}

} // namespace tavkit::thematic
