#include "host/raster/BlockDecoder.h"

#include "host/raster/Inflater.h"

namespace raster
{
namespace
{

/// Runs and pieces, each behind a byte that tells its length.
class PackBitsDecoder final : public BlockDecoder
{
public:
    explicit PackBitsDecoder(const ByteReader& input) noexcept : m_input(input) {}

    [[nodiscard]] bool Read(std::span<std::byte> into) noexcept override
    {
        for (std::byte& out : into)
        {
            while (m_pending == 0)
            {
                std::uint8_t head = 0;
                if (!m_input.Next(head))
                {
                    return false;
                }
                if (head == kNothing)
                {
                    continue;
                }
                m_isRun = head > kNothing;
                m_pending = m_isRun ? kRunBase - head : head + 1U;
                if (m_isRun && !m_input.Next(m_byte))
                {
                    m_pending = 0;
                    return false;
                }
            }
            if (!m_isRun && !m_input.Next(m_byte))
            {
                return false;
            }
            --m_pending;
            out = std::byte{m_byte};
        }
        return true;
    }

private:
    static constexpr std::uint8_t kNothing = 128;
    static constexpr unsigned kRunBase = 257;

    ByteReader m_input;
    unsigned m_pending = 0;
    bool m_isRun = false;
    std::uint8_t m_byte = 0;
};

/// Codes of 9 to 12 bits, highest bit first, that stand for entries of a growing table.
class LzwDecoder final : public BlockDecoder
{
public:
    explicit LzwDecoder(const ByteReader& input) noexcept : m_input(input)
    {
        for (unsigned code = 0; code < kClear; ++code)
        {
            m_entries[code] = {kNone, static_cast<std::uint8_t>(code), 1};
        }
        Clear();
    }

    [[nodiscard]] bool Read(std::span<std::byte> into) noexcept override
    {
        for (std::byte& out : into)
        {
            if (m_pending == 0 && !NextEntry())
            {
                return false;
            }
            out = std::byte{m_text[--m_pending]};
        }
        return true;
    }

private:
    static constexpr unsigned kClear = 256;
    static constexpr unsigned kEnd = 257;
    static constexpr unsigned kFirstFree = 258;
    static constexpr unsigned kLeastBits = 9;
    static constexpr unsigned kMostBits = 12;
    static constexpr std::size_t kTable = 1U << kMostBits;
    static constexpr std::uint16_t kNone = 0xFFFF;

    struct Entry
    {
        std::uint16_t before = kNone; ///< entry that this one prolongs by one byte
        std::uint8_t last = 0;
        std::uint16_t length = 0;
    };

    void Clear() noexcept
    {
        m_next = kFirstFree;
        m_bits = kLeastBits;
        m_before = kNone;
    }

    [[nodiscard]] bool NextCode(unsigned& code) noexcept
    {
        while (m_held < m_bits)
        {
            std::uint8_t byte = 0;
            if (!m_input.Next(byte))
            {
                return false;
            }
            m_hold = m_hold << 8 | byte;
            m_held += 8;
        }
        m_held -= m_bits;
        code = m_hold >> m_held & ((1U << m_bits) - 1);
        return true;
    }

    /// Puts the bytes of an entry into m_text, the last one first.
    void Spell(unsigned code) noexcept
    {
        m_pending = m_entries[code].length;
        for (std::size_t i = 0; i < m_pending; ++i, code = m_entries[code].before)
        {
            m_text[i] = m_entries[code].last;
        }
    }

    [[nodiscard]] bool NextEntry() noexcept
    {
        unsigned code = 0;
        do
        {
            if (!NextCode(code) || code == kEnd)
            {
                return false;
            }
            if (code == kClear)
            {
                Clear();
            }
        } while (code == kClear);
        if (m_before == kNone)
        {
            if (code >= kClear)
            {
                return false; // the table holds single bytes only
            }
            Spell(code);
        }
        else
        {
            if (code > m_next || (code == m_next && m_next == kTable))
            {
                return false;
            }
            // The one entry that isn't there yet is the one before, prolonged by its own first byte.
            Spell(code < m_next ? code : m_before);
            const std::uint8_t first = m_text[m_pending - 1];
            if (m_next < kTable)
            {
                m_entries[m_next] = {static_cast<std::uint16_t>(m_before), first,
                                     static_cast<std::uint16_t>(m_entries[m_before].length + 1)};
                ++m_next;
            }
            if (code == m_next - 1)
            {
                Spell(code);
            }
        }
        m_before = static_cast<std::uint16_t>(code);
        // The width grows one code early: a slip of the first writers that became the rule.
        if (m_next + 1 >= 1U << m_bits && m_bits < kMostBits)
        {
            ++m_bits;
        }
        return true;
    }

    ByteReader m_input;
    std::uint32_t m_hold = 0;
    unsigned m_held = 0;
    unsigned m_bits = kLeastBits;
    unsigned m_next = kFirstFree;
    std::uint16_t m_before = kNone;
    std::size_t m_pending = 0; ///< bytes of m_text that are still to be put out
    std::array<Entry, kTable> m_entries;
    std::array<std::uint8_t, kTable> m_text;
};

} // namespace

bool ByteReader::Fill() noexcept
{
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(m_left, m_buffer.size()));
    if (count == 0 || !m_source.Read(m_offset, std::span(m_buffer).first(count)))
    {
        m_left = 0;
        return false;
    }
    m_offset += count;
    m_left -= count;
    m_at = 0;
    m_end = count;
    return true;
}

bool IsKnown(TiffCompression compression) noexcept { return MostPerByte(compression) > 1; }

std::uint64_t MostPerByte(TiffCompression compression) noexcept
{
    constexpr std::uint64_t kDeflate = 1040; // a copy of 258 bytes in two bits
    constexpr std::uint64_t kLzw = 4096;     // the longest entry of the table, in twelve bits
    constexpr std::uint64_t kPackBits = 64;  // a run of 128 bytes in two bytes
    switch (compression)
    {
    case TiffCompression::Deflate:
    case TiffCompression::OldDeflate:
        return kDeflate;
    case TiffCompression::Lzw:
        return kLzw;
    case TiffCompression::PackBits:
        return kPackBits;
    default:
        return 1;
    }
}

std::unique_ptr<BlockDecoder> MakeDecoder(TiffCompression compression, host::ByteSource& source, std::uint64_t offset,
                                          std::uint64_t count)
{
    const ByteReader input(source, offset, count);
    switch (compression)
    {
    case TiffCompression::Deflate:
    case TiffCompression::OldDeflate:
        return std::make_unique<Inflater>(input);
    case TiffCompression::Lzw:
        return std::make_unique<LzwDecoder>(input);
    case TiffCompression::PackBits:
        return std::make_unique<PackBitsDecoder>(input);
    default:
        return nullptr;
    }
}

} // namespace raster
