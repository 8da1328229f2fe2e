// BlockDecoder.h - unpacks a stored block of a picture from its start to its end, a few bytes at a time
#pragma once

#include <array>
#include <memory>

#include "host/ByteSource.h"
#include "host/raster/TiffDirectory.h"

namespace raster
{

/// Bytes of a stored block, one after the other.
class ByteReader
{
public:
    /// @param source  borrowed; lives longer than this object.
    ByteReader(host::ByteSource& source, std::uint64_t offset, std::uint64_t count) noexcept
        : m_source(source), m_offset(offset), m_left(count)
    {
    }

    /// Takes the next byte.
    /// @return false at the end of the block, or if the source couldn't be read.
    [[nodiscard]] bool Next(std::uint8_t& byte) noexcept
    {
        if (m_at == m_end && !Fill())
        {
            return false;
        }
        byte = std::to_integer<std::uint8_t>(m_buffer[m_at++]);
        return true;
    }

    /// Looks at the next eight bytes, the first of them lowest, if they are at hand without another reading.
    [[nodiscard]] bool Peek(std::uint64_t& word) const noexcept
    {
        if (m_end - m_at < sizeof word)
        {
            return false;
        }
        word = 0;
        for (std::size_t i = sizeof word; i-- > 0;)
        {
            word = word << 8 | std::to_integer<std::uint64_t>(m_buffer[m_at + i]);
        }
        return true;
    }

    /// Passes over bytes that Peek() has shown.
    void Skip(std::size_t count) noexcept { m_at += count; }

private:
    [[nodiscard]] bool Fill() noexcept;

    static constexpr std::size_t kBuffer = 16384;

    host::ByteSource& m_source; // not owned
    std::uint64_t m_offset;
    std::uint64_t m_left;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    std::array<std::byte, kBuffer> m_buffer{};
};

/// A block being unpacked. It takes no more room than its scheme needs, however large the block is.
class BlockDecoder
{
public:
    virtual ~BlockDecoder() = default;

    /// Unpacks the next bytes.
    /// @return false if the block ends before `into` is full, or is damaged; nothing can be read afterwards.
    [[nodiscard]] virtual bool Read(std::span<std::byte> into) noexcept = 0;
};

/// True if MakeDecoder() knows a scheme.
[[nodiscard]] bool IsKnown(TiffCompression compression) noexcept;

/// @return how many bytes one stored byte can stand for at the most, rounded up; 1 for an unknown scheme.
[[nodiscard]] std::uint64_t MostPerByte(TiffCompression compression) noexcept;

/// Begins to unpack a block.
/// @param source  borrowed; lives longer than the decoder.
/// @return null for an unknown scheme and for blocks that are stored as they are.
[[nodiscard]] std::unique_ptr<BlockDecoder> MakeDecoder(TiffCompression compression, host::ByteSource& source,
                                                        std::uint64_t offset, std::uint64_t count);

} // namespace raster
