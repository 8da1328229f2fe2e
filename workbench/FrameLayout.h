// FrameLayout.h - where the parts of the main window lie before it grows
#pragma once

#include "tavkit/frame/WinTypes.h"

namespace workbench
{
/// Base units of a font, by which layouts stay in proportion to its text: a quarter of its average character's width
/// and an eighth of its height are one dialog unit.
struct DialogUnits
{
    int charWidth = 0;  ///< pixels
    int charHeight = 0; ///< pixels

    /// Horizontal dialog units in pixels, rounded.
    [[nodiscard]] int X(int units) const noexcept;
    /// Vertical dialog units in pixels, rounded.
    [[nodiscard]] int Y(int units) const noexcept;
};

/// The parts of the main window, in pixels of its client area.
struct FrameLayout
{
    SIZE client{}; ///< above the status bar
    RECT project{};
    RECT listLabel{};
    RECT list{};
    RECT view{};
    RECT pixelLabel{};
    RECT pixelSize{};
    RECT pixelUnit{};
    RECT table{};
};

/// Part of the window's growth in height that the picture gets; the table gets the rest.
inline constexpr signed char kViewPercent = 60;

/// Part of it that the project gets of what is at the side of the picture; the list under it gets the rest.
inline constexpr signed char kProjectPercent = 36;

/// The main window as it was designed, which is also the smallest in which all parts are of use: the project and the
/// list under it at the left, the view beside them, the field for the pixel's size under the view, and the table under
/// all of them. Larger windows are laid out from here.
[[nodiscard]] FrameLayout DesignFrame(const DialogUnits& units) noexcept;
} // namespace workbench
