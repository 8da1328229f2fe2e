// ColumnWidths.h - widths of a list's columns: the one that fills the client width, and those remembered by caption
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"

#include <map>
#include <optional>

namespace tavkit
{

/// Width that the fill column gets.
/// @param client  width of the list's client area
/// @param own     width that the column's contents ask for
/// @param others  sum of the other columns' widths
/// @return the spare width in 16 bits, as the control's message takes it; nothing when it isn't more than @p own
[[nodiscard]] constexpr std::optional<int> FillWidth(int client, int own, long long others) noexcept
{
    const long long spare = client - others;
    return spare > own ? std::optional<int>(static_cast<short>(spare)) : std::nullopt;
}

/// Column widths in pixels under the columns' captions. They live as long as the object: no store keeps them.
class TAVKIT_API ColumnWidths
{
public:
    void Clear() noexcept { m_widths.clear(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_widths.empty(); }
    /// Remembers a width; columns with one caption share one entry, which the later column overwrites.
    void Save(int col, DString const& caption, int width);
    /// The width remembered for a column; nothing when there is none, or none above 0.
    [[nodiscard]] std::optional<int> Find(int col, DString const& caption) const;

private:
    /// The caption; the index in decimal digits for a column without one.
    static DString KeyOf(int col, DString const& caption);

    std::map<DString, int, DStringLess> m_widths;
};

} // namespace tavkit
