// DetailsFold.h - height of a details dialog that shows its message only
#pragma once

namespace tavkit
{

/// The three gaps of the dialog (above the message, between it and the details, under the details) are taken as equal:
/// the details go, and one gap goes with them. All in pixels.
[[nodiscard]] constexpr int FoldedHeight(int dialog, int message, int details) noexcept
{
    const int gap = (dialog - details - message) / 3;
    return dialog - details - gap;
}

} // namespace tavkit
