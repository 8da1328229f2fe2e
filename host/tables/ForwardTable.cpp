// ForwardTable.cpp
#include "host/tables/ForwardTable.h"

namespace table
{

int ForwardTable::GetNumCol(int /*nReserved*/) { return static_cast<int>(m_columns.size()); }

bool ForwardTable::ReadRow(int row, int /*nReserved*/)
{
    if (row < m_row || row < 0)
    {
        return false; // gone; the row that the table stands on stays
    }
    while (!m_ended && m_row < row)
    {
        m_ended = !ReadNextRow();
        m_row += m_ended ? 0 : 1;
        m_shown = m_ended ? kNoRow : m_row;
    }
    return !m_ended;
}

char const* ForwardTable::GetColName(int col, int /*nReserved*/)
{
    return IsColumn(col) ? m_columns[static_cast<std::size_t>(col)].name.c_str() : "";
}

ADIColType ForwardTable::GetColType(int col, int /*nReserved*/)
{
    return IsColumn(col) ? m_columns[static_cast<std::size_t>(col)].type : adiNone;
}

char const* ForwardTable::GetCellText(int row, int col, int /*nReserved*/)
{
    return row == m_shown && IsColumn(col) ? m_cells[static_cast<std::size_t>(col)] : "";
}

bool ForwardTable::IsColumn(int col) const noexcept
{
    return static_cast<std::size_t>(col) < m_cells.size(); // below 0 becomes more than any table has
}

} // namespace table
