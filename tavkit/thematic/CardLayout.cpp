#include "tavkit/thematic/CardLayout.h"

#include <algorithm>

namespace tavkit::thematic
{
namespace
{

constexpr int kIconInset = 1;  // of the left icon from the left side, of the arrows and the right icon from their right
constexpr int kArrowInset = 2; // of the arrows from top and bottom
constexpr int kButtonInset = 2; // of the remove button from the arrows
constexpr int kAddLeft = 11;    // of the add button; fixed, like the indent of the cards
constexpr int kAddInset = 4;    // of the add button from the top
constexpr int kLinkInset = 2;   // of the link from the add button and from the right side

} // namespace

CardParts PlaceCard(RECT const& card, bool remove, bool iconRight, bool caption) noexcept
{
    const auto [left, top, right, bottom] = card;
    const LONG textLeft = left + kIconInset + kIconSize;
    LONG x = right - kIconInset - kArrowWidth;

    CardParts parts{};
    parts.iconLeft = {left + kIconInset, top, textLeft, bottom};
    parts.up = {x, top + kArrowInset, x + kArrowWidth, top + kArrowInset + kArrowHeight};
    parts.down = {x, bottom - kArrowInset - kArrowHeight, x + kArrowWidth, bottom - kArrowInset};
    if (remove)
    {
        const LONG y = top + (bottom - top - kButtonSize) / 2;
        const LONG buttonRight = x - kButtonInset;
        x = buttonRight - kButtonSize;
        parts.remove = {x, y, buttonRight, y + kButtonSize};
    }
    if (iconRight)
    {
        // Reserved even for an icon without an image, so that all captions end at one place.
        const LONG iconEnd = x - kIconInset;
        x = iconEnd - kIconSize;
        parts.iconRight = {x, top, iconEnd, bottom};
    }
    if (caption)
    {
        parts.caption = {textLeft, top, x, bottom};
    }
    return parts;
}

RECT CutBar(RECT const& bar, LONG top, LONG bottom) noexcept
{
    // The corners of what is cut away must lie out of sight, or they would show as corners of the bar.
    return {bar.left, std::max(bar.top, top - kCardHeight), bar.right, std::min(bar.bottom, bottom + kCardHeight)};
}

RECT PlaceAddButton(RECT const& group) noexcept
{
    const LONG top = group.top + kAddInset;
    return {kAddLeft, top, kAddLeft + kButtonSize, top + kButtonSize};
}

RECT PlaceLink(RECT const& group, SIZE text) noexcept
{
    const LONG spaceLeft = PlaceAddButton(group).right + kLinkInset;
    const LONG spaceRight = group.right - kLinkInset;
    const LONG left = spaceLeft + std::max<LONG>((spaceRight - spaceLeft - text.cx) / 2, 0);
    const LONG top = group.top + (group.bottom - group.top - text.cy) / 2;
    return {left, top, std::min(left + text.cx, spaceRight), top + text.cy};
}

} // namespace tavkit::thematic
