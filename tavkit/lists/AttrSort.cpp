// AttrSort.cpp - order of the rows of an attribute list
#include "tavkit/lists/AttrSort.h"
#include "tavkit/frame/NoCase.h"

#include "tavkit/lists/ScanDouble.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

namespace tavkit
{
namespace
{

using Bits = std::uint64_t;

/// A number as bits that are ordered as the wanted order of the numbers.
struct NumberKey
{
    Bits bits;
    int id;
};

struct TextKey
{
    char const* text;
    int id;
};

/// Bits that count up as the number does, or down. The two zeroes are one number.
Bits OrderedBits(double number, bool up) noexcept
{
    constexpr Bits kSign = Bits{1} << 63;
    const Bits bits = std::bit_cast<Bits>(number + 0.0); // makes +0 of -0
    const Bits rising = (bits & kSign) != 0 ? ~bits : bits | kSign;
    return up ? rising : ~rising;
}

/// Sorts by the bits, byte after byte from the lowest: a million keys take less than a third of the time that comparing
/// them takes. Equal keys keep their order.
void SortKeys(std::vector<NumberKey>& keys)
{
    constexpr std::size_t kBytes = sizeof(Bits);
    constexpr std::size_t kValues = 256; // of a byte
    const auto byteOf = [](Bits bits, std::size_t byte) {
        return static_cast<std::size_t>(bits >> (8 * byte)) % kValues;
    };
    std::vector<std::array<std::size_t, kValues>> counts(kBytes);
    for (NumberKey const& key : keys)
    {
        for (std::size_t byte = 0; byte < kBytes; ++byte)
        {
            ++counts[byte][byteOf(key.bits, byte)];
        }
    }
    std::vector<NumberKey> sorted(keys.size());
    for (std::size_t byte = 0; byte < kBytes; ++byte)
    {
        std::array<std::size_t, kValues>& places = counts[byte];
        if (std::ranges::find(places, keys.size()) != places.end())
        {
            continue; // all keys have the same byte there
        }
        std::size_t place = 0;
        for (std::size_t& count : places)
        {
            place += std::exchange(count, place);
        }
        for (NumberKey const& key : keys)
        {
            sorted[places[byteOf(key.bits, byte)]++] = key;
        }
        keys.swap(sorted);
    }
}

/// Orders the rows of the one number 0, which their texts tell apart.
void SortTexts(std::span<NumberKey> zeroes, bool ascending, CellOfRow const& cell)
{
    std::vector<TextKey> keys;
    keys.reserve(zeroes.size());
    for (NumberKey const& key : zeroes)
    {
        keys.push_back({cell(key.id), key.id});
    }
    std::ranges::stable_sort(keys, [ascending](TextKey const& left, TextKey const& right) {
        const int order = CompareNoCase(left.text, right.text);
        return ascending ? order < 0 : order > 0;
    });
    for (std::size_t i = 0; i < keys.size(); ++i)
    {
        zeroes[i].id = keys[i].id;
    }
}

} // namespace

void SortByCell(std::span<int> ids, bool ascending, CellOfRow const& cell)
{
    // The cells are read in the order in which they lie in memory, whatever the present order of the rows.
    std::vector<Bits> bits(ids.size());
    for (std::size_t id = 0; id < bits.size(); ++id)
    {
        bits[id] = OrderedBits(ToDouble(cell(static_cast<int>(id))), !ascending);
    }
    std::vector<NumberKey> keys;
    keys.reserve(ids.size());
    for (const int id : ids)
    {
        keys.push_back({bits[static_cast<std::size_t>(id)], id});
    }
    SortKeys(keys);
    const auto [firstZero, endOfZeroes] =
        std::equal_range(keys.begin(), keys.end(), NumberKey{OrderedBits(0.0, !ascending), 0},
                         [](NumberKey const& left, NumberKey const& right) { return left.bits < right.bits; });
    SortTexts({firstZero, endOfZeroes}, ascending, cell);
    std::ranges::transform(keys, ids.begin(), &NumberKey::id);
}

void SortById(std::span<int> ids, bool ascending)
{
    if (ascending)
    {
        std::ranges::sort(ids, std::greater<>());
    }
    else
    {
        std::ranges::sort(ids);
    }
}

} // namespace tavkit
