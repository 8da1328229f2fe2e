// AttrCache.cpp - what was read of an attribute table
#include "tavkit/lists/AttrCache.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace tavkit
{
namespace
{
constexpr long long kMostCells = std::numeric_limits<int>::max(); ///< an array counts with an int

void FreeText(char const* text) noexcept { std::free(const_cast<char*>(text)); }
} // namespace

int GrownLength(int cached) noexcept
{
    return cached > std::numeric_limits<int>::max() / 2 ? std::numeric_limits<int>::max() : 2 * cached;
}

AttrCache::~AttrCache()
{
    for (char const* const text : m_vecCell)
    {
        FreeText(text);
    }
}

int AttrCache::AddRow() noexcept
{
    const int row = GetNumRow();
    if (row == std::numeric_limits<int>::max() || IndexOf(row + 1, 0) > kMostCells)
    {
        return -1;
    }
    try
    {
        m_vecId.Append(row);
    }
    catch (const std::bad_alloc&)
    {
        return -1;
    }
    return row;
}

bool AttrCache::Store(int row, int col, char const* text) noexcept
{
    char* const copy = strdup(text ? text : "");
    if (!copy)
    {
        return false;
    }
    try
    {
        FreeText(std::exchange(GetSlot(row, col), copy));
    }
    catch (const std::bad_alloc&)
    {
        FreeText(copy);
        return false;
    }
    return true;
}

char const* AttrCache::GetText(int row, int col) const noexcept
{
    if (row < 0 || row >= GetNumRow() || col < 0 || col >= GetNumCol())
    {
        return "";
    }
    char const* const text = std::as_const(m_vecCell)[static_cast<int>(IndexOf(row, col))];
    return text ? text : "";
}

void AttrCache::SortByCol(int col, bool ascending)
{
    if (col >= 0 && col < GetNumCol())
    {
        SortByCell({m_vecId.begin(), m_vecId.end()}, ascending, [&](int id) { return GetText(id, col); });
    }
}

void AttrCache::SortByRow(bool ascending) { SortById({m_vecId.begin(), m_vecId.end()}, ascending); }

} // namespace tavkit
