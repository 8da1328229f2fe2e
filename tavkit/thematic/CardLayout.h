// CardLayout.h - where the cards of the thematic list and their parts stand
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <optional>

namespace tavkit::thematic
{

// All in pixels.
inline constexpr int kCardHeight = 32;
inline constexpr int kCardGap = 2;    ///< between two cards, and in front of the first
inline constexpr int kListLeft = 1;   ///< left side of what stands in the list
inline constexpr int kIconSize = 32;  ///< both ways
inline constexpr int kArrowWidth = 9; ///< of an image in the strip of arrows
inline constexpr int kArrowHeight = 8;
inline constexpr int kButtonSize = 18;  ///< of a round button, both ways
inline constexpr int kBarWidth = 32;    ///< of a group's bar
inline constexpr int kGroupIndent = 34; ///< left side of a group's cards, wherever the group begins
inline constexpr int kPaintReach = 4;   ///< an element paints at most so far above and below its rectangle

/// Rows one under another.
class CardStack
{
public:
    /// @param area  left and right sides of all rows; the first begins at its top
    explicit constexpr CardStack(RECT const& area) noexcept : m_row(area) {}

    /// The next row. @param height  in pixels
    constexpr RECT Take(int height) noexcept
    {
        m_row.bottom = m_row.top + height;
        const RECT row = m_row;
        m_row.top = m_row.bottom + kCardGap;
        return row;
    }

    /// Where the next row begins, with the bottom of the last one: what an element that takes no place is given.
    [[nodiscard]] constexpr RECT const& Running() const noexcept { return m_row; }

private:
    RECT m_row;
};

/// The parts of a card. What isn't placed keeps the rectangle that it had.
struct CardParts
{
    RECT iconLeft;
    RECT up;
    RECT down;
    std::optional<RECT> remove;
    std::optional<RECT> iconRight;
    std::optional<RECT> caption;
};

/// The arrows keep their column whether they are shown or not; the other parts are placed if their flag is set.
[[nodiscard]] CardParts PlaceCard(RECT const& card, bool remove, bool iconRight, bool caption) noexcept;

/// Height of a group. @param visible  number of its visible cards; without one it is as high as a card
[[nodiscard]] constexpr int GroupHeight(int visible) noexcept
{
    return visible < 1 ? kCardHeight : visible * (kCardHeight + kCardGap) - kCardGap;
}

/// The coloured bar of a group.
[[nodiscard]] constexpr RECT PlaceBar(RECT const& group) noexcept
{
    return {group.left, group.top, group.left + kBarWidth, group.bottom};
}

/// The part of a bar that is worth painting: its pixels between `top` and `bottom` are those of the whole bar.
[[nodiscard]] RECT CutBar(RECT const& bar, LONG top, LONG bottom) noexcept;

/// The round button in the bar; its x is fixed.
[[nodiscard]] RECT PlaceAddButton(RECT const& group) noexcept;

/// The link of an empty group, in the middle of the space beside the bar; a text that is too wide is cut at the right.
/// @param text  size of the link's text
[[nodiscard]] RECT PlaceLink(RECT const& group, SIZE text) noexcept;

/// Whether something of an element may be seen between `top` and `bottom`.
[[nodiscard]] constexpr bool IsInView(RECT const& element, LONG top, LONG bottom) noexcept
{
    return element.top - kPaintReach < bottom && element.bottom + kPaintReach > top;
}

} // namespace tavkit::thematic
