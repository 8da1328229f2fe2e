// CardOrder.h - which card comes next, takes another's place, changes places with another, or lies under the mouse
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <optional>

namespace tavkit::thematic
{

/// Where an entry goes that moves by one place.
/// @param index  of the entry among `count`; -1 for one that isn't there
/// @return nothing if there is no such place
[[nodiscard]] constexpr std::optional<int> MoveTarget(int index, int count, bool up) noexcept
{
    const int target = up ? index - 1 : index + 1;
    return index >= 0 && index < count && target >= 0 && target < count ? std::optional(target) : std::nullopt;
}

/// The entry that takes another's place when it goes: the one behind it, which for an entry that isn't there (-1) is
/// the first.
/// @return nothing behind the last
[[nodiscard]] constexpr std::optional<int> ReplacementOf(int index, int count) noexcept
{
    return index + 1 < count ? std::optional(index + 1) : std::nullopt;
}

/// Finds the neighbour of a card among all cards, which are shown to it in display order.
template <class Card>
class NeighbourSearch
{
public:
    /// @param start        whose neighbour is looked for. Null is in front of the first card, and has nothing before
    /// it.
    /// @param visibleOnly  hidden cards count neither as a result nor as a card before the result
    NeighbourSearch(Card* start, bool visibleOnly, bool backward) noexcept
        : m_start(start), m_visibleOnly(visibleOnly), m_backward(backward), m_passed(start == nullptr)
    {
    }

    /// Shows the next card. @return true if the search is over
    bool Show(Card* card, bool visible) noexcept
    {
        const bool counts = visible || !m_visibleOnly;
        if (m_backward)
        {
            // The card itself is known even when it is hidden ...
            if (card == m_start)
            {
                m_result = m_last;
                return true;
            }
            m_last = counts ? card : m_last;
            return false;
        }
        // ... but forward a hidden one is never reached.
        if (!counts)
        {
            return false;
        }
        if (m_passed)
        {
            m_result = card;
            return true;
        }
        m_passed = card == m_start;
        return false;
    }

    /// Null if there is no neighbour, or the card wasn't shown.
    [[nodiscard]] Card* Result() const noexcept { return m_result; }
    /// Of a search backward, the last card shown so far that counts; null for none.
    [[nodiscard]] Card* Last() const noexcept { return m_last; }

private:
    Card* m_start;
    bool m_visibleOnly;
    bool m_backward;
    bool m_passed;
    Card* m_last = nullptr;
    Card* m_result = nullptr;
};

/// The last of some elements that is hit, since it is painted over the others; null if none is.
/// @param elements  pointers to things with a HitTest() of their own
template <class List>
[[nodiscard]] auto LastHit(List const& elements, POINT const& pt)
{
    std::remove_cvref_t<decltype(*elements.begin())> hit = nullptr;
    for (auto* element : elements)
    {
        if (element->HitTest(pt))
        {
            hit = element;
        }
    }
    return hit;
}

} // namespace tavkit::thematic
