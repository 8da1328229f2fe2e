// ColumnWidths.cpp - widths of a list's columns, remembered by caption
#include "tavkit/lists/ColumnWidths.h"

namespace tavkit
{

void ColumnWidths::Save(int col, DString const& caption, int width) { m_widths[KeyOf(col, caption)] = width; }

std::optional<int> ColumnWidths::Find(int col, DString const& caption) const
{
    const auto entry = m_widths.find(KeyOf(col, caption));
    return entry != m_widths.end() && entry->second > 0 ? std::optional(entry->second) : std::nullopt;
}

DString ColumnWidths::KeyOf(int col, DString const& caption)
{
    return caption.IsEmpty() ? DString::Format("%d", col) : caption;
}

} // namespace tavkit
