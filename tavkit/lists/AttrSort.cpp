// AttrSort.cpp - order of the rows of an attribute list
#include "tavkit/lists/AttrSort.h"

#include "tavkit/lists/ScanDouble.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace tavkit
{
namespace
{

struct NumberKey
{
    double number;
    int id;
};

struct TextKey
{
    char const* text;
    int id;
};

/// Orders the rows of one number 0, which their texts tell apart.
void SortTexts(std::span<NumberKey> zeroes, bool ascending, CellOfRow const& cell)
{
    std::vector<TextKey> keys;
    keys.reserve(zeroes.size());
    for (NumberKey const& key : zeroes)
    {
        keys.push_back({cell(key.id), key.id});
    }
    std::ranges::stable_sort(keys, [ascending](TextKey const& left, TextKey const& right) {
        const int order = strcasecmp(left.text, right.text);
        return ascending ? order < 0 : order > 0;
    });
    std::ranges::transform(keys, zeroes.begin(), [](TextKey const& key) { return NumberKey{0.0, key.id}; });
}

} // namespace

void SortByCell(std::span<int> ids, bool ascending, CellOfRow const& cell)
{
    std::vector<NumberKey> keys;
    keys.reserve(ids.size());
    for (const int id : ids)
    {
        keys.push_back({ToDouble(cell(id)), id});
    }
    const auto before = [ascending](NumberKey const& left, NumberKey const& right) {
        return ascending ? left.number > right.number : left.number < right.number;
    };
    std::ranges::stable_sort(keys, before);
    const auto [firstZero, endOfZeroes] = std::equal_range(keys.begin(), keys.end(), NumberKey{0.0, 0}, before);
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
