// RowStyle.h - the few looks that a row list gives to its rows
#pragma once

#include "tavkit/frame/WinTypes.h"

namespace tavkit
{

// Bits of a row's style.
inline constexpr unsigned int kRowShaded = 1; ///< a shaded background
inline constexpr unsigned int kRowBold = 2;   ///< the bold font
inline constexpr unsigned int kRowGrayed = 4; ///< grey text, on a lighter shade if shaded too

inline constexpr COLORREF kShadedBk = RGB(230, 230, 215);
inline constexpr COLORREF kShadedGrayedBk = RGB(235, 235, 225);
inline constexpr COLORREF kGrayedText = RGB(128, 128, 128);

/// What a style comes to.
struct RowLook
{
    COLORREF text;
    COLORREF background;
    bool bold;

    bool operator==(RowLook const&) const = default;
};

/// @param text, background  colours of a row without any bit; other bits have no effect
[[nodiscard]] constexpr RowLook RowLookOf(unsigned int style, COLORREF text, COLORREF background) noexcept
{
    RowLook look{text, background, (style & kRowBold) != 0};
    const bool shaded = (style & kRowShaded) != 0;
    if (shaded)
    {
        look.background = kShadedBk;
    }
    if ((style & kRowGrayed) != 0)
    {
        look.text = kGrayedText;
        look.background = shaded ? kShadedGrayedBk : look.background;
    }
    return look;
}

} // namespace tavkit
