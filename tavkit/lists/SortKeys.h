// SortKeys.h - comparison of the keys that a list is sorted by, and the room for those keys
#pragma once

#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <span>
#include <utility>

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

/// One block for the texts of all rows, each cut to the size of a slot. The texts stand close together, since a sort
/// jumps between them all the time; a slot is what none of them takes up more than.
class TextBlock
{
public:
    /// Halves the slots until there is memory for all of them.
    /// @param allocate  (std::size_t bytes) -> std::unique_ptr<char[]>; null when there is no memory
    template <class Allocate>
    TextBlock(std::size_t count, Allocate allocate)
    {
        for (m_slot = kTextRoom; m_slot > 0; m_slot /= 2)
        {
            if (count <= std::numeric_limits<std::size_t>::max() / m_slot && (m_block = allocate(m_slot * count)))
            {
                m_next = m_block.get();
                return;
            }
        }
    }

    /// False when there was no memory for even the smallest slots.
    explicit operator bool() const noexcept { return m_block != nullptr; }
    /// Room for the next text.
    [[nodiscard]] std::span<char> Room() const noexcept { return {m_next, m_slot}; }
    /// Keeps the text that was written into Room(), and moves on; to be called once for each of the texts at most.
    char const* Keep() noexcept { return std::exchange(m_next, m_next + std::strlen(m_next) + 1); }

private:
    std::unique_ptr<char[]> m_block;
    char* m_next = nullptr;
    std::size_t m_slot = 0;
};

} // namespace tavkit
