// RecodedTable.cpp
#include "host/tables/RecodedTable.h"

#include <algorithm>
#include <cstring>
#include <span>

#include <windows.h>

namespace table
{

int RecodedTable::GetNumCol(int nReserved) { return m_table->GetNumCol(nReserved); }

bool RecodedTable::ReadRow(int row, int nReserved) { return m_table->ReadRow(row, nReserved); }

char const* RecodedTable::GetColName(int col, int nReserved) { return Recode(m_table->GetColName(col, nReserved)); }

ADIColType RecodedTable::GetColType(int col, int nReserved) { return m_table->GetColType(col, nReserved); }

char const* RecodedTable::GetCellText(int row, int col, int nReserved)
{
    return Recode(m_table->GetCellText(row, col, nReserved));
}

char const* RecodedTable::Recode(char const* text)
{
    constexpr auto isAscii = [](char c) { return static_cast<signed char>(c) >= 0; };
    const std::size_t length = std::strlen(text);
    if (std::ranges::all_of(std::span(text, length), isAscii))
    {
        return text;
    }
    // One character never becomes more than one unit in between, nor more than two bytes in any ANSI code page.
    constexpr std::size_t kMostBytes = 2;
    m_wide.resize(length);
    const int wide = ::MultiByteToWideChar(m_table->CodePage(), 0, text, static_cast<int>(length), m_wide.data(),
                                           static_cast<int>(m_wide.size()));
    m_text.resize(static_cast<std::size_t>(wide) * kMostBytes);
    const int bytes = ::WideCharToMultiByte(CP_ACP, 0, m_wide.data(), wide, m_text.data(),
                                            static_cast<int>(m_text.size()), "?", nullptr);
    m_text.resize(static_cast<std::size_t>(bytes));
    return m_text.c_str();
}

} // namespace table
