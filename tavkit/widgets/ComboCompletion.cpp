#include "tavkit/widgets/ComboCompletion.h"

#include <algorithm>
#include <cstddef>

namespace tavkit
{
namespace
{

EditSelection Unpack(PackedSelection selection) noexcept
{
    constexpr int kHalfBits = 16;
    constexpr PackedSelection kHalfMask = 0xFFFF;
    return {static_cast<int>(selection & kHalfMask), static_cast<int>(selection >> kHalfBits)};
}

} // namespace

CaseFold FoldBytes(unsigned char (*lower)(unsigned char), bool byteIsChar)
{
    constexpr std::size_t kSevenBits = 0x80;
    CaseFold fold{};
    for (std::size_t i = 0; i < fold.size(); ++i)
    {
        auto const byte = static_cast<unsigned char>(i);
        fold[i] = byteIsChar || i < kSevenBits ? lower(byte) : byte;
    }
    return fold;
}

bool HasMatch(DVector<int> const& found) noexcept { return found.GetCount() > 0 && found[0] != kNoMatch; }

EditChange AfterMatch(TypedText const& typed) noexcept
{
    EditSelection const old = Unpack(typed.selection);
    if (typed.deleting)
    {
        return {true, old};
    }
    if (typed.selection != kNoSelection && old.end < typed.length)
    {
        return {false, old};
    }
    return {false, EditSelection{typed.length, EditSelection::kToEnd}};
}

EditChange AfterNoMatch(TypedText const& typed) noexcept
{
    if (typed.selection == kNoSelection)
    {
        return {true, std::nullopt};
    }
    return {true, Unpack(typed.selection)};
}

int DroppedWidth(DroppedMeasures const& measures) noexcept
{
    bool const scrolls = measures.listHeight < measures.entriesHeight + 2 * measures.edgeHeight;
    return measures.widest + (scrolls ? measures.scrollWidth : 0) + 2 * measures.edgeWidth;
}

int DroppedHeight(int entryHeight, int entries, int edgeHeight, int most) noexcept
{
    return std::min(entryHeight * entries + edgeHeight, most);
}

} // namespace tavkit
