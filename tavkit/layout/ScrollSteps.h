// ScrollSteps.h - where a scroll bar goes: arithmetic of scrolling, without a window
#pragma once

#include <algorithm>
#include <cstdint>

namespace tavkit
{

/// What the user did to a scroll bar.
enum class ScrollStep
{
    lineBack,
    lineOn,
    pageBack,
    pageOn,
    toStart,
    toEnd,
    toThumb
};

/// Range of one scroll bar, in pixels.
struct ScrollRange
{
    int total = 0; ///< what there is to show
    int page = 0;  ///< what the window shows of it

    /// Highest position.
    [[nodiscard]] constexpr int Last() const noexcept { return std::max(0, total - page); }
};

/// The new position.
/// @param line   pixels of one line
/// @param thumb  where the user dragged the thumb; for ScrollStep::toThumb
[[nodiscard]] constexpr int NextScrollPos(const ScrollRange& range, int pos, ScrollStep step, int line,
                                          int thumb) noexcept
{
    std::int64_t next = pos;
    switch (step)
    {
    case ScrollStep::lineBack:
        next -= line;
        break;
    case ScrollStep::lineOn:
        next += line;
        break;
    case ScrollStep::pageBack:
        next -= range.page;
        break;
    case ScrollStep::pageOn:
        next += range.page;
        break;
    case ScrollStep::toStart:
        next = 0;
        break;
    case ScrollStep::toEnd:
        next = range.Last();
        break;
    case ScrollStep::toThumb:
        next = thumb;
        break;
    }
    return static_cast<int>(std::clamp<std::int64_t>(next, 0, range.Last()));
}

} // namespace tavkit
