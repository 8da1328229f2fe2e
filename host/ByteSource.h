// ByteSource.h - bytes at a place, behind which stands a file or a piece of memory
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace host
{

/// Bytes that can be read at any place, in any order.
class ByteSource
{
public:
    virtual ~ByteSource() = default;

    /// @return number of bytes, as it was when the source was made.
    [[nodiscard]] virtual std::uint64_t Size() const noexcept = 0;

    /// Fills `into` with the bytes from `offset` on.
    /// @return false if not all of them are there or the reading failed; what `into` then holds is undefined.
    [[nodiscard]] virtual bool Read(std::uint64_t offset, std::span<std::byte> into) noexcept = 0;

protected:
    /// True if `count` bytes from `offset` on lie within the source; no sum that could overflow is formed.
    [[nodiscard]] bool Holds(std::uint64_t offset, std::uint64_t count) const noexcept
    {
        return offset <= Size() && count <= Size() - offset;
    }
};

/// The bytes of a piece of memory, which is borrowed.
class SpanSource final : public ByteSource
{
public:
    explicit SpanSource(std::span<const std::byte> bytes) noexcept : m_bytes(bytes) {}

    [[nodiscard]] std::uint64_t Size() const noexcept override { return m_bytes.size(); }

    [[nodiscard]] bool Read(std::uint64_t offset, std::span<std::byte> into) noexcept override
    {
        if (!Holds(offset, into.size()))
        {
            return false;
        }
        std::ranges::copy(m_bytes.subspan(static_cast<std::size_t>(offset), into.size()), into.begin());
        return true;
    }

private:
    std::span<const std::byte> m_bytes;
};

} // namespace host
