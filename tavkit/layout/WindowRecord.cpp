#include "tavkit/layout/WindowRecord.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tavkit
{

namespace
{

// Records come from a store that anybody can write to, so the arithmetic is done wide.

constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();

LONG Clamped(std::int64_t value) { return static_cast<LONG>(std::clamp(value, kLeast, kMost)); }

/// Whether the sides are numbers that a window's place is told in, its width and height among them.
bool IsWindowSized(std::int64_t first, std::int64_t second)
{
    return first >= kLeast && second <= kMost && second - first <= kMost;
}

} // namespace

RECT NormalizedRect(const RECT& rect) noexcept
{
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom), std::max(rect.left, rect.right),
            std::max(rect.top, rect.bottom)};
}

bool IsReachable(const RECT& rect, const RECT& screen) noexcept
{
    if (!IsWindowSized(rect.left, rect.right) || !IsWindowSized(rect.top, rect.bottom))
    {
        return false;
    }
    if (screen.right <= screen.left || screen.bottom <= screen.top)
    {
        return true;
    }
    return std::max(rect.left, screen.left + kScreenMargin) < std::min(rect.right, screen.right - kScreenMargin) &&
           std::max(rect.top, screen.top + kScreenMargin) < std::min(rect.bottom, screen.bottom - kScreenMargin);
}

std::optional<RECT> StretchedRect(const RECT& rect, SIZE growth) noexcept
{
    const std::int64_t cx = growth.cx;
    const std::int64_t cy = growth.cy;
    const std::int64_t left = rect.left - cx / 2;
    const std::int64_t top = rect.top - cy / 2;
    const std::int64_t right = rect.right + (cx + 1) / 2;
    const std::int64_t bottom = rect.bottom + (cy + 1) / 2;
    if (left >= right || top >= bottom || !IsWindowSized(left, right) || !IsWindowSized(top, bottom))
    {
        return std::nullopt;
    }
    return RECT{static_cast<LONG>(left), static_cast<LONG>(top), static_cast<LONG>(right), static_cast<LONG>(bottom)};
}

SIZE PercentOf(SIZE size, int percent) noexcept
{
    return {Clamped(static_cast<std::int64_t>(size.cx) * percent / 100),
            Clamped(static_cast<std::int64_t>(size.cy) * percent / 100)};
}

} // namespace tavkit
