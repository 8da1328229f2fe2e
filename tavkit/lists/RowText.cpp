// RowText.cpp - texts of a row list's rows
#include "tavkit/lists/RowText.h"

#include <array>
#include <cstdio>

namespace tavkit
{

bool RowCells::Next() noexcept
{
    if (m_begun && m_next >= m_text.size())
    {
        return false;
    }
    m_begun = true;
    m_start = m_next;
    const std::size_t bar = m_text.find(kCellSeparator, m_start);
    const std::size_t end = bar == std::string_view::npos ? m_text.size() : bar;
    m_length = end - m_start;
    m_next = end + 1;
    return true;
}

std::string KByteText(int kiloBytes)
{
    std::array<char, 32> text;
    if (kiloBytes < kKByteOfMByte)
    {
        std::snprintf(text.data(), text.size(), "%d KB", kiloBytes);
    }
    else
    {
        std::snprintf(text.data(), text.size(), "%.2f MB", kiloBytes * kMByteOfKByte);
    }
    return text.data();
}

} // namespace tavkit
