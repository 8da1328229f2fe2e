// SortKeys.h - comparison of the keys that a list is sorted by, and the room for those keys
#pragma once

#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <span>

namespace tavkit
{

/// Stands for a cell that holds no number: behind every number in ascending order.
inline constexpr double kNoNumber = std::numeric_limits<double>::max();

/// Characters of a number cell that count, with the zero that ends them.
inline constexpr int kNumberRoom = 25;

/// Characters of a text cell that count, with the zero that ends them, as long as memory suffices.
inline constexpr std::size_t kTextRoom = 256;

/// Order of two numbers. It is never negative, on purpose: what becomes of equal keys is for the sort to say that calls
/// it. Two answers of 0 in both directions mean that one of them is not a number.
[[nodiscard]] constexpr int CompareNumbers(double first, double second, bool ascending) noexcept
{
    return ascending ? first >= second : first < second;
}

/// Order of two texts by their bytes; otherwise as CompareNumbers().
[[nodiscard]] inline int CompareTexts(char const* first, char const* second, bool ascending) noexcept
{
    int const order = std::strcmp(first, second);
    return ascending ? order >= 0 : order < 0;
}

/// One block of slots of the same size for the texts of all rows.
class TextSlots
{
public:
    /// Halves the slots until there is memory for all of them.
    /// @param allocate  (std::size_t bytes) -> std::unique_ptr<char[]>; null when there is no memory
    template <class Allocate>
    TextSlots(std::size_t count, Allocate allocate)
    {
        for (m_size = kTextRoom; m_size > 0; m_size /= 2)
        {
            if (count <= std::numeric_limits<std::size_t>::max() / m_size && (m_block = allocate(m_size * count)))
            {
                return;
            }
        }
    }

    /// False when there was no memory for even the smallest slots.
    explicit operator bool() const noexcept { return m_block != nullptr; }
    [[nodiscard]] std::span<char> operator[](std::size_t index) const noexcept
    {
        return {m_block.get() + index * m_size, m_size};
    }

private:
    std::unique_ptr<char[]> m_block;
    std::size_t m_size = 0;
};

} // namespace tavkit
