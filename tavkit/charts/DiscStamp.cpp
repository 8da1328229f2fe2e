#include "tavkit/charts/DiscStamp.h"

#include <algorithm>
#include <cstring>

namespace tavkit
{

DiscStamp::DiscStamp(std::span<std::uint32_t const> picture, int size, std::uint32_t ground) : m_size(size)
{
    for (int y = 0; y < size; ++y)
    {
        for (int x = 0; x < size; ++x)
        {
            const std::uint32_t pixel =
                picture[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) + static_cast<std::size_t>(x)];
            if (pixel == ground)
            {
                continue;
            }
            if (m_runs.empty())
            {
                m_color = pixel;
            }
            if (m_runs.empty() || m_runs.back().y != y || m_runs.back().end != x)
            {
                m_runs.push_back({y, x, x});
            }
            m_runs.back().end = x + 1;
        }
    }
}

void DiscStamp::Put(PixelField const& field, int x, int y) const noexcept
{
    const bool whole = x >= 0 && y >= 0 && x <= field.width - m_size && y <= field.height - m_size;
    for (const Run& run : m_runs)
    {
        const int row = y + run.y;
        if (!whole && (row < 0 || row >= field.height))
        {
            continue;
        }
        const int begin = whole ? x + run.begin : std::clamp(x + run.begin, 0, field.width);
        const int end = whole ? x + run.end : std::clamp(x + run.end, 0, field.width);
        std::uint32_t* const line = field.pixels + static_cast<std::ptrdiff_t>(row) * field.width;
        std::fill(line + begin, line + end, m_color);
    }
}

DiscPlaces::DiscPlaces(RECT const& bounds)
    : m_left(bounds.left), m_top(bounds.top),
      m_width(static_cast<std::size_t>(std::max<std::int64_t>(0, std::int64_t{bounds.right} - bounds.left + 1))),
      m_height(static_cast<std::size_t>(std::max<std::int64_t>(0, std::int64_t{bounds.bottom} - bounds.top + 1))),
      m_taken(m_width * m_height)
{
}

void DiscPlaces::PutAll(PixelField const& field, DiscStamp const& stamp, POINT offset) const noexcept
{
    for (std::size_t row = 0; row < m_height; ++row)
    {
        const unsigned char* const line = m_taken.data() + row * m_width;
        for (std::size_t column = 0; column < m_width; ++column)
        {
            const void* const found = std::memchr(line + column, kTaken, m_width - column);
            if (!found)
            {
                break;
            }
            column = static_cast<std::size_t>(static_cast<const unsigned char*>(found) - line);
            stamp.Put(field, m_left + static_cast<int>(column) - offset.x, m_top + static_cast<int>(row) - offset.y);
        }
    }
}

} // namespace tavkit
