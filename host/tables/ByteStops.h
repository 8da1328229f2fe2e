// ByteStops.h - finds the next of a few bytes
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include <emmintrin.h>

namespace table
{

/// Bytes at which a search stops; a NUL is always one of them. So many bytes are looked at at a time that kBlock must
/// be readable from the first stop on.
class ByteStops
{
public:
    static constexpr std::size_t kBlock = 64;
    static constexpr std::size_t kMost = 4; ///< bytes besides the NUL

    /// @param bytes  1 to kMost of them
    explicit ByteStops(std::string_view bytes) noexcept
    {
        for (std::size_t i = 0; i < kMost; ++i)
        {
            m_bytes[i] = _mm_set1_epi8(bytes[i < bytes.size() ? i : 0]);
        }
    }

    /// The stops among the bytes of a block: bit n stands for byte n.
    [[nodiscard]] std::uint64_t InBlock(const char* block) const noexcept
    {
        std::uint64_t found = 0;
        for (std::size_t part = 0; part < kBlock; part += kStep)
        {
            found |= std::uint64_t{InStep(block + part)} << part;
        }
        return found;
    }

    /// The first stop from a byte on, that byte included.
    [[nodiscard]] char* FindIn(char* from) const noexcept
    {
        for (;; from += kStep)
        {
            if (const std::uint32_t found = InStep(from); found != 0)
            {
                return from + std::countr_zero(found);
            }
        }
    }

private:
    static constexpr std::size_t kStep = sizeof(__m128i);

    [[nodiscard]] std::uint32_t InStep(const char* from) const noexcept
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        const __m128i ends = _mm_or_si128(_mm_cmpeq_epi8(bytes, m_bytes[0]), _mm_cmpeq_epi8(bytes, m_bytes[1]));
        const __m128i others = _mm_or_si128(_mm_cmpeq_epi8(bytes, m_bytes[2]), _mm_cmpeq_epi8(bytes, m_bytes[3]));
        const __m128i nul = _mm_cmpeq_epi8(bytes, _mm_setzero_si128());
        return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_or_si128(_mm_or_si128(ends, others), nul)));
    }

    __m128i m_bytes[kMost];
};

} // namespace table
