// ComboCompletion.h - which entries match what is typed into a combo box, and how a keystroke leaves its edit field
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "tavkit/frame/services/DVector.h"

namespace tavkit
{

/// For each byte the one that stands for it when case is ignored.
using CaseFold = std::array<unsigned char, 256>;

/// @param lower       the small form of one byte
/// @param byteIsChar  each byte is a character; else those beyond seven bits are parts of one, and stand for themselves
[[nodiscard]] CaseFold FoldBytes(unsigned char (*lower)(unsigned char), bool byteIsChar);

/// True if @p text begins with @p start, upper and lower case being equal. Every text begins with "".
/// What a user types goes by the letters of the code page; StartsWithNoCase() is for names of seven bits.
[[nodiscard]] inline bool BeginsWith(char const* text, char const* start, CaseFold const& fold) noexcept
{
    while (*start != '\0' && fold[static_cast<unsigned char>(*text)] == fold[static_cast<unsigned char>(*start)])
    {
        ++text;
        ++start;
    }
    return *start == '\0';
}

/// Appends the index of each item whose text begins with @p start, in the order of the items.
/// @param textOf  (item) -> char const*
template <class TItems, class TTextOf>
void AppendMatches(TItems const& items, TTextOf textOf, char const* start, CaseFold const& fold, DVector<int>& found)
{
    int index = 0;
    for (auto const& item : items)
    {
        if (BeginsWith(textOf(item), start, fold))
        {
            found.Append(index);
        }
        ++index;
    }
}

/// What a filter may give as its first result for "nothing matches".
constexpr int kNoMatch = -1;

/// True if what a filter gave names an entry to show.
[[nodiscard]] bool HasMatch(DVector<int> const& found) noexcept;

/// An edit field's selection in one word: its start in the low half, its end in the high half.
using PackedSelection = std::uint32_t;
/// In place of a selection: the field has none, or it lies beyond what the halves hold.
constexpr PackedSelection kNoSelection = 0xFFFFFFFF;

/// A range of an edit field, in characters.
struct EditSelection
{
    static constexpr int kToEnd = -1; ///< as `end`: the end of the field

    int start;
    int end;

    bool operator==(EditSelection const&) const = default;
};

/// An edit field as the user's keystroke has left it.
struct TypedText
{
    int length; ///< characters
    PackedSelection selection;
    bool deleting; ///< the key was Backspace or Delete
};

/// What is to be done with the edit field once the list shows what belongs to the keystroke.
struct EditChange
{
    bool putTextBack;                    ///< the text as it was typed replaces that of the selected entry
    std::optional<EditSelection> select; ///< then this is selected; nothing: the selection stays as it is

    bool operator==(EditChange const&) const = default;
};

/// After an entry was selected, whose text now stands in the field: a completed part behind the typed one is
/// highlighted, unless the user typed further inside. What the user has just removed isn't completed again.
[[nodiscard]] EditChange AfterMatch(TypedText const& typed) noexcept;

/// After nothing matched: the field is left as it was typed.
[[nodiscard]] EditChange AfterNoMatch(TypedText const& typed) noexcept;

/// What the width of a dropped list follows from, in pixels.
struct DroppedMeasures
{
    int widest;        ///< entry
    int entriesHeight; ///< of all entries together
    int listHeight;    ///< of the dropped control
    int edgeWidth;     ///< of one border at the side
    int edgeHeight;    ///< of one border at the top or bottom
    int scrollWidth;   ///< of a scroll bar
};

/// Width of a dropped list that shows every entry whole, beside a scroll bar if it needs one.
[[nodiscard]] int DroppedWidth(DroppedMeasures const& measures) noexcept;

/// Height of a dropped list that shows every entry.
/// @param most  it is no higher than this
[[nodiscard]] int DroppedHeight(int entryHeight, int entries, int edgeHeight, int most) noexcept;

} // namespace tavkit
