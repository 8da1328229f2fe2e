// DiscStamp.h - many equal discs into pixels in memory: drawn once, stamped everywhere
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tavkit
{

/// Pixels of 32 bits, row by row from the top.
struct PixelField
{
    std::uint32_t* pixels; ///< borrowed; width * height of them
    int width;
    int height;
};

/// A shape of one colour, as the runs of pixels that it covers.
class TAVKIT_API DiscStamp
{
public:
    /// @param picture  of `size` by `size` pixels
    /// @param ground   the pixel that is no part of the shape; all others are, and take the value of the first of them
    DiscStamp(std::span<std::uint32_t const> picture, int size, std::uint32_t ground);

    /// Puts the shape into the pixels, with its upper left corner at (x, y); what lies outside is left out.
    void Put(PixelField const& field, int x, int y) const noexcept;

    [[nodiscard]] int Size() const noexcept { return m_size; }

private:
    struct Run
    {
        int y;
        int begin;
        int end;
    };

    int m_size;
    std::uint32_t m_color = 0;
    std::vector<Run> m_runs;
};

/// The places at which discs are wanted, each kept once however often it is asked for.
class TAVKIT_API DiscPlaces
{
public:
    /// @param bounds  where places may lie, right and bottom included; others are dropped by Add().
    explicit DiscPlaces(RECT const& bounds);

    void Add(int x, int y) noexcept
    {
        const auto column = static_cast<std::size_t>(static_cast<std::int64_t>(x) - m_left);
        const auto row = static_cast<std::size_t>(static_cast<std::int64_t>(y) - m_top);
        if (column < m_width && row < m_height)
        {
            m_taken[row * m_width + column] = kTaken;
        }
    }
    /// Stamps a disc at all places.
    /// @param offset  is taken from a place to give the disc's upper left corner in the pixels
    void PutAll(PixelField const& field, DiscStamp const& stamp, POINT offset) const noexcept;

private:
    static constexpr unsigned char kTaken = 1;

    int m_left;
    int m_top;
    std::size_t m_width;
    std::size_t m_height;
    std::vector<unsigned char> m_taken; ///< row by row
};

} // namespace tavkit
