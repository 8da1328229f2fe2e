#include "host/raster/PixelLayout.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace raster
{
namespace
{

template <class Word>
void PickWords(const PixelLayout& layout, const std::byte* row, int firstColumn, std::span<const int> columns,
               ChannelRange channels, std::byte* pixels, std::size_t pixelBytes) noexcept
{
    const std::byte* const start = row + layout.first + channels.first * layout.step;
    for (const int column : columns)
    {
        const std::byte* sample = start + static_cast<std::size_t>(column - firstColumn) * layout.stride;
        std::byte* out = pixels;
        for (int channel = 0; channel < channels.count; ++channel, sample += layout.step)
        {
            Word word;
            std::memcpy(&word, sample, sizeof word);
            if (layout.swap)
            {
                word = Swapped(word);
            }
            if (layout.invert)
            {
                word = static_cast<Word>(~word);
            }
            if (layout.widen)
            {
                const auto wide = static_cast<std::int16_t>(static_cast<std::make_signed_t<Word>>(word));
                std::memcpy(out, &wide, sizeof wide);
                out += sizeof wide;
            }
            else
            {
                std::memcpy(out, &word, sizeof word);
                out += sizeof word;
            }
        }
        pixels += pixelBytes;
    }
}

[[nodiscard]] bool IsPlainCopy(const PixelLayout& layout, std::span<const int> columns, ChannelRange channels,
                               std::size_t pixelBytes) noexcept
{
    const auto sampleBytes = static_cast<std::ptrdiff_t>(layout.sampleBytes);
    return !layout.swap && !layout.invert && !layout.widen && layout.step == sampleBytes &&
           pixelBytes == layout.stride &&
           static_cast<std::size_t>(channels.count) * layout.sampleBytes == layout.stride &&
           columns.back() - columns.front() == static_cast<std::ptrdiff_t>(columns.size()) - 1 &&
           std::ranges::adjacent_find(columns) == columns.end();
}

} // namespace

void PickRow(const PixelLayout& layout, const std::byte* row, int firstColumn, std::span<const int> columns,
             ChannelRange channels, std::byte* pixels, std::size_t pixelBytes) noexcept
{
    if (columns.empty())
    {
        return;
    }
    if (IsPlainCopy(layout, columns, channels, pixelBytes))
    {
        std::memcpy(pixels, row + static_cast<std::size_t>(columns.front() - firstColumn) * layout.stride,
                    columns.size() * layout.stride);
        return;
    }
    switch (layout.sampleBytes)
    {
    case 1:
        PickWords<std::uint8_t>(layout, row, firstColumn, columns, channels, pixels, pixelBytes);
        break;
    case 2:
        PickWords<std::uint16_t>(layout, row, firstColumn, columns, channels, pixels, pixelBytes);
        break;
    default:
        PickWords<std::uint32_t>(layout, row, firstColumn, columns, channels, pixels, pixelBytes);
        break;
    }
}

} // namespace raster
