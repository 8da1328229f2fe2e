// Inflater.h - unpacks the "deflate" scheme
#pragma once

#include "host/raster/BlockDecoder.h"

namespace raster
{

/// A block in the zlib form: two bytes of header, then deflated data. The check sum at the end is not looked at, since
/// a picture is seldom read to its end.
class Inflater final : public BlockDecoder
{
public:
    /// @param input  the stored block.
    explicit Inflater(const ByteReader& input) noexcept : m_input(input) {}

    [[nodiscard]] bool Read(std::span<std::byte> into) noexcept override;

private:
    static constexpr unsigned kMostBits = 15;
    static constexpr unsigned kFastBits = 10;
    static constexpr std::size_t kMostSymbols = 288;
    static constexpr std::size_t kWindow = 32768;

    enum class State
    {
        Header,
        BlockStart,
        Stored,
        Codes,
        End,
        Damaged
    };

    /// A canonical prefix code.
    struct Code
    {
        std::array<std::uint16_t, kMostBits + 1> counts;  ///< how many codes have each length
        std::array<std::uint16_t, kMostSymbols> symbols;  ///< in the order of their codes
        std::array<std::uint16_t, 1U << kFastBits> quick; ///< symbol and length of codes that are short enough
    };

    [[nodiscard]] static bool Build(Code& code, std::span<const std::uint8_t> lengths) noexcept;
    void Refill() noexcept;
    [[nodiscard]] bool Bits(unsigned count, unsigned& value) noexcept;
    [[nodiscard]] bool Symbol(const Code& code, unsigned& symbol) noexcept;
    [[nodiscard]] bool ReadHeader() noexcept;
    [[nodiscard]] bool StartBlock() noexcept;
    [[nodiscard]] bool ReadCodes() noexcept;
    [[nodiscard]] bool UseFixedCodes() noexcept;
    [[nodiscard]] bool StartMatch(unsigned symbol) noexcept;
    [[nodiscard]] bool Advance(std::byte*& out, const std::byte* end) noexcept;
    void Put(std::byte*& out, std::byte byte) noexcept
    {
        *out++ = byte;
        m_window[m_written++ % kWindow] = byte;
    }

    ByteReader m_input;
    State m_state = State::Header;
    bool m_isLast = false;
    std::uint64_t m_hold = 0; ///< bits that were taken from the input, the next one lowest
    unsigned m_held = 0;      ///< how many they are
    unsigned m_pending = 0;   ///< bytes of a stored block or a match that are still to be put out
    std::size_t m_distance = 0;
    std::uint64_t m_written = 0;
    Code m_literals;
    Code m_distances;
    std::array<std::byte, kWindow> m_window;
};

} // namespace raster
