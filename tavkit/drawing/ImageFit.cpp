#include "tavkit/drawing/ImageFit.h"

#include <algorithm>
#include <limits>

namespace tavkit
{

int RoundHalfAway(double value) noexcept
{
    constexpr double kHalf = 0.5;
    double const shifted = value < 0 ? value - kHalf : value + kHalf;
    if (!(shifted > std::numeric_limits<int>::min()))
    {
        return shifted < 0 ? std::numeric_limits<int>::min() : 0;
    }
    return shifted < std::numeric_limits<int>::max() ? static_cast<int>(shifted) : std::numeric_limits<int>::max();
}

int LogicalSize(int channelSize, int step) noexcept { return channelSize / std::max(step, 1); }

SIZE FitInto(SIZE picture, SIZE room) noexcept
{
    if (picture.cx <= 0 || picture.cy <= 0 || room.cx <= 0 || room.cy <= 0)
    {
        return {0, 0};
    }
    double const aspect = static_cast<double>(picture.cx) / picture.cy;
    double const width = room.cx;
    double const height = room.cy;
    if (width / height / aspect < 1)
    {
        return {room.cx, RoundHalfAway(width / aspect)};
    }
    return {RoundHalfAway(height * aspect), room.cy};
}

POINT CentreIn(RECT const& room, SIZE size) noexcept
{
    return {room.left + (room.right - room.left - size.cx) / 2, room.top + (room.bottom - room.top - size.cy) / 2};
}

} // namespace tavkit
