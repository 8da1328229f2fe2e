#include "host/raster/Inflater.h"

namespace raster
{
namespace
{

constexpr unsigned kEndOfBlock = 256;
constexpr unsigned kFirstLength = 257;
constexpr std::array<std::uint16_t, 29> kLengthBase = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                                       31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr std::array<std::uint8_t, 29> kLengthBits = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                      2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr std::array<std::uint16_t, 30> kDistanceBase = {1,    2,    3,    4,    5,    7,    9,    13,    17,    25,
                                                         33,   49,   65,   97,   129,  193,  257,  385,   513,   769,
                                                         1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr std::array<std::uint8_t, 30> kDistanceBits = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                                        6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
constexpr unsigned kLengthShift = 4; // of an entry of the quick table: the code's length stands below the symbol

} // namespace

bool Inflater::Build(Code& code, std::span<const std::uint8_t> lengths) noexcept
{
    code.counts.fill(0);
    code.quick.fill(0);
    for (const std::uint8_t length : lengths)
    {
        ++code.counts[length];
    }
    const auto used = lengths.size() - code.counts[0];
    int left = 1;
    for (unsigned length = 1; length <= kMostBits; ++length)
    {
        left = left * 2 - code.counts[length];
        if (left < 0)
        {
            return false; // more codes than there can be
        }
    }
    // A code with gaps is damaged, unless it is the one code of a picture that needs no other.
    if (left > 0 && !(used <= 1 && code.counts[1] == used))
    {
        return false;
    }
    std::array<std::uint16_t, kMostBits + 2> starts{};
    std::array<unsigned, kMostBits + 2> nextCode{};
    for (unsigned length = 1; length <= kMostBits; ++length)
    {
        starts[length + 1] = static_cast<std::uint16_t>(starts[length] + code.counts[length]);
        nextCode[length + 1] = (nextCode[length] + code.counts[length]) << 1;
    }
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
    {
        const unsigned length = lengths[symbol];
        if (length == 0)
        {
            continue;
        }
        code.symbols[starts[length]++] = static_cast<std::uint16_t>(symbol);
        const unsigned bits = nextCode[length]++;
        if (length > kFastBits)
        {
            continue;
        }
        unsigned reversed = 0;
        for (unsigned i = 0; i < length; ++i)
        {
            reversed |= (bits >> i & 1) << (length - 1 - i);
        }
        for (unsigned index = reversed; index < code.quick.size(); index += 1U << length)
        {
            code.quick[index] = static_cast<std::uint16_t>(symbol << kLengthShift | length);
        }
    }
    return true;
}

void Inflater::Refill() noexcept
{
    constexpr unsigned kByte = 8;
    constexpr unsigned kRoom = 56;
    std::uint64_t word = 0;
    if (m_held <= kRoom && m_input.Peek(word))
    {
        // Whole bytes only: the bits above them are taken again with the next word.
        const unsigned bytes = (kRoom + kByte - 1 - m_held) / kByte;
        m_hold |= (word & ((std::uint64_t{1} << (bytes * kByte)) - 1)) << m_held;
        m_held += bytes * kByte;
        m_input.Skip(bytes);
        return;
    }
    std::uint8_t byte = 0;
    while (m_held <= kRoom && m_input.Next(byte))
    {
        m_hold |= static_cast<std::uint64_t>(byte) << m_held;
        m_held += kByte;
    }
}

bool Inflater::Bits(unsigned count, unsigned& value) noexcept
{
    if (m_held < count)
    {
        Refill();
        if (m_held < count)
        {
            return false;
        }
    }
    value = static_cast<unsigned>(m_hold & ((std::uint64_t{1} << count) - 1));
    m_hold >>= count;
    m_held -= count;
    return true;
}

bool Inflater::Symbol(const Code& code, unsigned& symbol) noexcept
{
    if (m_held < kMostBits)
    {
        Refill();
    }
    const unsigned entry = code.quick[m_hold & (code.quick.size() - 1)];
    if (entry != 0)
    {
        const unsigned length = entry & ((1U << kLengthShift) - 1);
        if (length > m_held)
        {
            return false;
        }
        m_hold >>= length;
        m_held -= length;
        symbol = entry >> kLengthShift;
        return true;
    }
    // Longer codes, bit by bit: the codes of one length follow one another.
    unsigned bits = 0;
    unsigned first = 0;
    unsigned index = 0;
    for (unsigned length = 1; length <= kMostBits && length <= m_held; ++length)
    {
        bits |= static_cast<unsigned>(m_hold >> (length - 1) & 1);
        const unsigned count = code.counts[length];
        if (bits - first < count)
        {
            m_hold >>= length;
            m_held -= length;
            symbol = code.symbols[index + (bits - first)];
            return true;
        }
        index += count;
        first = (first + count) << 1;
        bits <<= 1;
    }
    return false;
}

bool Inflater::ReadHeader() noexcept
{
    constexpr unsigned kDeflate = 8;
    constexpr unsigned kCheck = 31;
    constexpr unsigned kPresetDictionary = 0x20;
    unsigned method = 0;
    unsigned flags = 0;
    return Bits(8, method) && Bits(8, flags) && (method & 0xF) == kDeflate && (method << 8 | flags) % kCheck == 0 &&
           (flags & kPresetDictionary) == 0;
}

bool Inflater::UseFixedCodes() noexcept
{
    std::array<std::uint8_t, kMostSymbols> lengths;
    std::ranges::fill(std::span(lengths).first(144), std::uint8_t{8});
    std::ranges::fill(std::span(lengths).subspan(144, 112), std::uint8_t{9});
    std::ranges::fill(std::span(lengths).subspan(256, 24), std::uint8_t{7});
    std::ranges::fill(std::span(lengths).subspan(280), std::uint8_t{8});
    std::array<std::uint8_t, 32> distances; // the last two are never used, but complete the code
    distances.fill(5);
    return Build(m_literals, lengths) && Build(m_distances, distances);
}

bool Inflater::ReadCodes() noexcept
{
    constexpr std::array<std::uint8_t, 19> kOrder = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    constexpr unsigned kMostLiterals = 286;
    constexpr unsigned kMostDistances = 30;
    constexpr unsigned kRepeatLast = 16;
    constexpr unsigned kRepeatZero = 17;
    unsigned literals = 0;
    unsigned distances = 0;
    unsigned lengthCodes = 0;
    if (!Bits(5, literals) || !Bits(5, distances) || !Bits(4, lengthCodes))
    {
        return false;
    }
    literals += kFirstLength;
    distances += 1;
    lengthCodes += 4;
    if (literals > kMostLiterals || distances > kMostDistances)
    {
        return false;
    }
    std::array<std::uint8_t, kMostLiterals + kMostDistances> lengths{};
    for (unsigned i = 0; i < lengthCodes; ++i)
    {
        unsigned length = 0;
        if (!Bits(3, length))
        {
            return false;
        }
        lengths[kOrder[i]] = static_cast<std::uint8_t>(length);
    }
    if (!Build(m_literals, std::span(lengths).first(kOrder.size())))
    {
        return false;
    }
    const Code& codeOfLengths = m_literals; // until the literals' own code is known
    lengths.fill(0);
    for (unsigned i = 0; i < literals + distances;)
    {
        unsigned symbol = 0;
        if (!Symbol(codeOfLengths, symbol))
        {
            return false;
        }
        if (symbol < kRepeatLast)
        {
            lengths[i++] = static_cast<std::uint8_t>(symbol);
            continue;
        }
        unsigned repeat = 0;
        std::uint8_t value = 0;
        if (symbol == kRepeatLast)
        {
            if (i == 0 || !Bits(2, repeat))
            {
                return false;
            }
            value = lengths[i - 1];
            repeat += 3;
        }
        else if (symbol == kRepeatZero)
        {
            if (!Bits(3, repeat))
            {
                return false;
            }
            repeat += 3;
        }
        else
        {
            if (!Bits(7, repeat))
            {
                return false;
            }
            repeat += 11;
        }
        if (repeat > literals + distances - i)
        {
            return false;
        }
        for (; repeat > 0; --repeat)
        {
            lengths[i++] = value;
        }
    }
    return lengths[kEndOfBlock] != 0 && Build(m_literals, std::span(lengths).first(literals)) &&
           Build(m_distances, std::span(lengths).subspan(literals, distances));
}

bool Inflater::StartBlock() noexcept
{
    constexpr unsigned kStored = 0;
    constexpr unsigned kFixed = 1;
    constexpr unsigned kDynamic = 2;
    if (m_isLast)
    {
        m_state = State::End;
        return true;
    }
    unsigned last = 0;
    unsigned kind = 0;
    if (!Bits(1, last) || !Bits(2, kind))
    {
        return false;
    }
    m_isLast = last != 0;
    if (kind == kStored)
    {
        unsigned skipped = 0;
        unsigned length = 0;
        unsigned inverse = 0;
        if (!Bits(m_held % 8, skipped) || !Bits(16, length) || !Bits(16, inverse) || length != (~inverse & 0xFFFF))
        {
            return false;
        }
        m_pending = length;
        m_state = State::Stored;
        return true;
    }
    m_state = State::Codes;
    return (kind == kFixed && UseFixedCodes()) || (kind == kDynamic && ReadCodes());
}

bool Inflater::StartMatch(unsigned symbol) noexcept
{
    symbol -= kFirstLength;
    unsigned extra = 0;
    if (symbol >= kLengthBase.size() || !Bits(kLengthBits[symbol], extra))
    {
        return false;
    }
    m_pending = kLengthBase[symbol] + extra;
    if (!Symbol(m_distances, symbol) || symbol >= kDistanceBase.size() || !Bits(kDistanceBits[symbol], extra))
    {
        return false;
    }
    m_distance = kDistanceBase[symbol] + extra;
    return m_distance <= m_written;
}

bool Inflater::Advance(std::byte*& out, const std::byte* end) noexcept
{
    switch (m_state)
    {
    case State::Header:
        m_state = State::BlockStart;
        return ReadHeader();
    case State::BlockStart:
        return StartBlock();
    case State::Stored:
        for (; m_pending > 0 && out != end; --m_pending)
        {
            unsigned held = 0;
            std::uint8_t byte = 0;
            if (m_held > 0 ? !Bits(8, held) : !m_input.Next(byte))
            {
                return false;
            }
            Put(out, static_cast<std::byte>(held | byte));
        }
        if (m_pending == 0)
        {
            m_state = State::BlockStart;
        }
        return true;
    case State::Codes:
        while (out != end)
        {
            for (; m_pending > 0 && out != end; --m_pending)
            {
                Put(out, m_window[(m_written - m_distance) % kWindow]);
            }
            if (out == end)
            {
                break;
            }
            unsigned symbol = 0;
            if (!Symbol(m_literals, symbol))
            {
                return false;
            }
            if (symbol < kEndOfBlock)
            {
                Put(out, static_cast<std::byte>(symbol));
            }
            else if (symbol == kEndOfBlock)
            {
                m_state = State::BlockStart;
                break;
            }
            else if (!StartMatch(symbol))
            {
                return false;
            }
        }
        return true;
    default:
        return false;
    }
}

bool Inflater::Read(std::span<std::byte> into) noexcept
{
    std::byte* out = into.data();
    const std::byte* const end = out + into.size();
    while (out != end)
    {
        if (!Advance(out, end))
        {
            m_state = State::Damaged;
            return false;
        }
    }
    return true;
}

} // namespace raster
