// ScaleBar.h - length and label of the scale bar over a picture
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench
{
/// Unit in which the user gives the size of a pixel, in the ANSI code page.
inline constexpr char kPixelUnit[] = "\xB5m per pixel";

/// A bar of a round length: 1, 2 or 5 times a power of ten.
struct ScaleBar
{
    int pixels = 0;    ///< length on the screen
    std::string label; ///< length with its unit in the ANSI code page, such as "20 \xB5m"

    bool operator==(const ScaleBar&) const = default;
};

/// Bars shorter than this many screen pixels say nothing, so rooms narrower than this get none.
inline constexpr int kNarrowestBarRoom = 24;

/// Reads the size of a picture's pixel as the user types it: digits with at most one decimal point.
/// @return micrometres, above 0; none for a text without a number (empty, "."), for 0, for any other character, for a
///         second point and for a number beyond the range of double.
[[nodiscard]] std::optional<double> ParsePixelSize(std::string_view text);

/// The longest round bar that fits.
/// @param pixelSize  of a picture pixel, in micrometres
/// @param zoom       screen pixels per picture pixel
/// @param room       screen pixels that the bar may cover at most
/// @return none when one of them is not above 0 or not finite, when the room is too narrow, and for lengths below a
///         picometre or of a thousand kilometres and more.
[[nodiscard]] std::optional<ScaleBar> MakeScaleBar(double pixelSize, double zoom, int room);
} // namespace workbench
