// DHstg.cpp
#include "tavkit/frame/services/DHstg.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <numeric>
#include <stdexcept>
#include <type_traits>

namespace
{
constexpr int kMaxCount = std::numeric_limits<int>::max();

int ToCount(std::uint64_t count) { return static_cast<int>(std::min(count, static_cast<std::uint64_t>(kMaxCount))); }

template <class T>
constexpr bool IsUsable([[maybe_unused]] T value)
{
    if constexpr (std::is_floating_point_v<T>)
    {
        return std::isfinite(value);
    }
    else
    {
        return true;
    }
}

/// Makes a histogram of values of one type; null when none of them is usable.
template <class T>
std::unique_ptr<DHstg> Count(std::span<T const> values, int slots)
{
    T lowest{};
    T highest{};
    bool any = false;
    for (T const value : values)
    {
        if (IsUsable(value))
        {
            lowest = any ? std::min(lowest, value) : value;
            highest = any ? std::max(highest, value) : value;
            any = true;
        }
    }
    if (!any)
    {
        return nullptr;
    }
    const std::vector<int> none(static_cast<std::size_t>(slots));
    const DHstg ruler(lowest, highest, none); // the same arithmetic for counting as for asking later
    std::vector<std::uint64_t> counts(static_cast<std::size_t>(slots));
    for (T const value : values)
    {
        if (IsUsable(value))
        {
            ++counts[static_cast<std::size_t>(ruler.GetSlotIndx(value))];
        }
    }
    std::vector<int> kept(counts.size());
    std::ranges::transform(counts, kept.begin(), ToCount);
    return std::make_unique<DHstg>(lowest, highest, kept);
}

template <class T>
std::unique_ptr<DHstg> Count(void const* values, std::size_t count, int slots)
{
    return Count(std::span(static_cast<T const*>(values), count), slots);
}
} // namespace

DHstg::DHstg(double lowest, double highest, std::span<int const> counts)
    : m_nSlots(static_cast<int>(counts.size())), m_dMin(std::min(lowest, highest)), m_dMax(std::max(lowest, highest)),
      m_vecCount(counts.begin(), counts.end())
{
    if (!std::isfinite(lowest) || !std::isfinite(highest))
    {
        m_dMin = 0.0;
        m_dMax = 0.0;
    }
    for (int& count : m_vecCount)
    {
        count = std::max(count, 0);
    }
}

DHstg::~DHstg() = default;

std::unique_ptr<DHstg> DHstg::FromValues(DMITypes::RDIDataType type, void const* values, std::size_t count, int slots)
{
    if (!values || count == 0 || slots < 1 || slots > kMaxSlots)
    {
        return nullptr;
    }
    try
    {
        switch (type)
        {
        case DMITypes::rdiUInt8:
            return Count<std::uint8_t>(values, count, slots);
        case DMITypes::rdiUInt16:
            return Count<std::uint16_t>(values, count, slots);
        case DMITypes::rdiInt16:
            return Count<std::int16_t>(values, count, slots);
        case DMITypes::rdiUInt32:
            return Count<std::uint32_t>(values, count, slots);
        case DMITypes::rdiInt32:
            return Count<std::int32_t>(values, count, slots);
        case DMITypes::rdiFloat32:
            return Count<float>(values, count, slots);
        }
    }
    catch (std::bad_alloc const&)
    {
        // No memory: no histogram.
    }
    return nullptr;
}

int DHstg::GetMaxVal() const { return m_vecCount.empty() ? 0 : *std::ranges::max_element(m_vecCount); }

int DHstg::GetHstgSum() const
{
    return ToCount(std::accumulate(m_vecCount.begin(), m_vecCount.end(), std::uint64_t{0}));
}

int DHstg::GetSlotVal(int slot) const
{
    return slot >= 0 && slot < m_nSlots ? m_vecCount[static_cast<std::size_t>(slot)] : 0;
}

double DHstg::GetSlotClss(int slot) const
{
    if (slot <= 0)
    {
        return m_dMin;
    }
    return slot >= m_nSlots ? m_dMax : std::lerp(m_dMin, m_dMax, static_cast<double>(slot) / m_nSlots);
}

int DHstg::GetSlotIndx(double value) const
{
    if (m_nSlots < 1 || std::isnan(value))
    {
        return -1;
    }
    if (value >= m_dMax)
    {
        return m_nSlots - 1;
    }
    if (value <= m_dMin)
    {
        return 0;
    }
    // Halves, because the distance of two doubles may be past the largest double.
    const double share = (value / 2 - m_dMin / 2) / (m_dMax / 2 - m_dMin / 2);
    int slot = std::clamp(static_cast<int>(share * m_nSlots), 0, m_nSlots - 1);
    // The limits that are shown decide, not the rounding of the division.
    while (slot > 0 && value < GetSlotClss(slot))
    {
        --slot;
    }
    while (slot + 1 < m_nSlots && value >= GetSlotClss(slot + 1))
    {
        ++slot;
    }
    return slot;
}
