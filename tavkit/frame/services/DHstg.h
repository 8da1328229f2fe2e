// DHstg.h - a histogram: how many values fall into each of a row of equal slots
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "tavkit/frame/services/HostApi.h"
#include "tavkit/frame/services/RDIDriver.h"

/// Counts of values in equal slots between a lowest and a highest value. Immutable after construction.
class TAVHOST_API DHstg
{
public:
    static constexpr int kMaxSlots = 65536; ///< one for each value of 16 bits; FromValues makes no more

    /// Takes the counts as they are; negative ones count as 0.
    /// @param lowest, highest  ends of the range; taken in order whichever way round they are given.
    DHstg(double lowest, double highest, std::span<int const> counts);
    DHstg(DHstg const&) = delete;
    DHstg& operator=(DHstg const&) = delete;
    ~DHstg();

    /// Counts the values of a raster channel between the lowest and the highest of them.
    /// @param type     type of the values; every element type of a channel.
    /// @param values   @p count values of that type, borrowed; floating values that aren't finite are left out.
    /// @param slots    number of slots, 1 to kMaxSlots.
    /// @return null for an unknown type, a number of slots outside, a null pointer with a count, or without a single
    /// finite value.
    static std::unique_ptr<DHstg> FromValues(DMITypes::RDIDataType type, void const* values, std::size_t count,
                                             int slots);

    /// The largest count of a slot; 0 without slots.
    [[nodiscard]] int GetMaxVal() const;
    /// The sum of all counts, at most the largest int.
    [[nodiscard]] int GetHstgSum() const;
    /// The count of the slot; 0 for an index outside.
    [[nodiscard]] int GetSlotVal(int slot) const;
    /// The lower limit of the slot. One past the last slot, and any above, gives the highest value; below 0 the lowest.
    [[nodiscard]] double GetSlotClss(int slot) const;
    /// The slot that @p value falls into. A slot holds its lower limit and not its upper, but the last one holds both;
    /// values outside the range fall into the slot at that end. -1 without slots, and for a value that is no number.
    [[nodiscard]] int GetSlotIndx(double value) const;

    // The fields are part of the interface, in this order.
    int m_nSlots;  ///< number of slots
    double m_dMin; ///< lowest value
    double m_dMax; ///< highest value

private:
    std::vector<int> m_vecCount;
};
