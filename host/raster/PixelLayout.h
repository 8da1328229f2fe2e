// PixelLayout.h - how the pixels of a decoded row lie in memory, and the way from there to plain samples
#pragma once

#include "host/raster/Picture.h"

namespace raster
{

/// Where the samples of a pixel stand in a decoded row, and what is to be done to each of them.
struct PixelLayout
{
    std::size_t stride = 1;      ///< bytes from one pixel to the next
    std::size_t sampleBytes = 1; ///< 1, 2 or 4
    std::ptrdiff_t first = 0;    ///< place of channel 0 within the pixel, in bytes
    std::ptrdiff_t step = 1;     ///< bytes from one channel to the next; negative where blue comes first
    bool swap = false;           ///< the samples are in the other byte order
    bool invert = false;         ///< integer samples that count from white: every bit is turned over
    bool widen = false;          ///< signed samples of 8 bits, delivered with 16

    /// @return bytes of one sample as delivered.
    [[nodiscard]] std::size_t OutBytes() const noexcept { return widen ? 2 * sampleBytes : sampleBytes; }
};

/// @return a word of 1, 2 or 4 bytes with its bytes in the other order.
template <class Word>
[[nodiscard]] constexpr Word Swapped(Word word) noexcept
{
    if constexpr (sizeof(Word) == 1)
    {
        return word;
    }
    else if constexpr (sizeof(Word) == 2)
    {
        return static_cast<Word>((word >> 8) | (word << 8));
    }
    else
    {
        return ((word & 0xFFU) << 24) | ((word & 0xFF00U) << 8) | ((word >> 8) & 0xFF00U) | (word >> 24);
    }
}

/// Takes the pixels of the given columns out of a decoded piece of a row.
/// @param row          the piece; holds whole pixels, the first of them being column `firstColumn`.
/// @param columns      ascending; all of them lie in the piece.
/// @param pixels       gets `columns.size() * channels.count` samples.
/// @param pixelBytes   distance of the pixels in `pixels`; more than the samples' own bytes where other channels are
///                     put between.
void PickRow(const PixelLayout& layout, const std::byte* row, int firstColumn, std::span<const int> columns,
             ChannelRange channels, std::byte* pixels, std::size_t pixelBytes) noexcept;

} // namespace raster
