// ViewColors.h - the colours that the user may choose for the picture view
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <optional>

namespace workbench
{
/// Colours of the picture view.
struct ViewColors
{
    std::optional<COLORREF> background;     ///< around the picture; none for the system's colour of a work space
    COLORREF bar = RGB(0, 0, 0);            ///< the scale bar and its label
    COLORREF plate = RGB(0xFF, 0xFF, 0xFF); ///< under the scale bar, so that it can be read on every picture

    bool operator==(const ViewColors&) const = default;
};
} // namespace workbench
