// TextBlockMarks.h - finds the words behind which a text block carries its trade mark sign
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>
#include "tavkit/frame/Export.h"

namespace tavkit
{

/// The word that is followed by the sign.
inline constexpr std::string_view kMarkerWord = "Corvaline222";
/// The registered sign in the ANSI code page.
inline constexpr char kRegisteredSign = '\xAE';

/// One place of the marker word; all places are byte offsets into the text.
struct TextMark
{
    int line;              ///< line feeds before the word
    std::size_t lineStart; ///< behind the last of them
    std::size_t end;       ///< behind the word

    bool operator==(TextMark const&) const = default;
};

/// All places of the marker word, in order. None for a null text.
[[nodiscard]] TAVKIT_API std::vector<TextMark> FindTextMarks(char const* text);

/// Height and weight of the small font that draws the sign.
struct SignFont
{
    int height;
    int weight;

    bool operator==(SignFont const&) const = default;
};

/// The small font for a block of this font height and weight: half the height, but at least 13, and thin below 15.
[[nodiscard]] TAVKIT_API SignFont SignFontOf(int blockHeight, int blockWeight) noexcept;

} // namespace tavkit
