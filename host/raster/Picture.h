// Picture.h - an opened picture of which single pixels are asked for, so that it is never held whole
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace raster
{

/// Kinds of samples that a channel delivers.
enum class SampleType
{
    U8,
    U16,
    S16,
    U32,
    S32,
    F32
};

/// @return bytes of one sample.
[[nodiscard]] constexpr std::size_t BytesOf(SampleType type) noexcept
{
    switch (type)
    {
    case SampleType::U8:
        return 1;
    case SampleType::U16:
    case SampleType::S16:
        return 2;
    default:
        return 4;
    }
}

/// What is known of an opened picture.
struct PictureInfo
{
    int width = 0;                    ///< pixels, at least 1
    int height = 0;                   ///< pixels, at least 1
    int channels = 0;                 ///< at least 1; three stand for red, green and blue
    SampleType type = SampleType::U8; ///< of every channel
    int blockRows = 1; ///< rows that are decoded together: who reads all rows does well to take so many at once
};

/// The channels of a picture that are asked for together.
struct ChannelRange
{
    int first = 0;
    int count = 1;
};

/// A picture, open for reading.
class Picture
{
public:
    virtual ~Picture() = default;

    [[nodiscard]] virtual const PictureInfo& Info() const noexcept = 0;

    /// Reads the pixels at the crossings of the given columns and rows.
    /// @param columns   at least one, in ascending order, each within the picture; a column may occur more than once.
    /// @param rows      the same for the rows.
    /// @param channels  a range within the channels of the picture.
    /// @param pixels    gets the samples in the machine's byte order: row by row, in a row pixel by pixel, in a pixel
    ///                  channel by channel, without gaps; just large enough.
    /// @return false if the file couldn't be read; `pixels` is undefined then.
    [[nodiscard]] virtual bool Pick(std::span<const int> columns, std::span<const int> rows, ChannelRange channels,
                                    std::span<std::byte> pixels) = 0;
};

} // namespace raster
