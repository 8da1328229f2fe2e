// DelimitedText.h - rows of cells as text that other programs read
#pragma once

#include <string>
#include <string_view>

namespace tavkit
{

/// Builds tab-separated text or CSV (RFC 4180), row by row. A cell that holds the separator, a quotation mark or a line
/// break stands in quotation marks, its own ones doubled; every row ends with CR LF.
class DelimitedText
{
public:
    /// @param separator  a tab or a comma
    explicit DelimitedText(char separator) : m_separator(separator) {}

    /// Appends a cell to the row.
    void AddCell(std::string_view cell)
    {
        if (m_rowBegun)
        {
            m_text += m_separator;
        }
        m_rowBegun = true;
        char const special[] = {m_separator, '"', '\r', '\n'};
        if (cell.find_first_of(std::string_view(special, sizeof special)) == std::string_view::npos)
        {
            m_text += cell;
            return;
        }
        m_text += '"';
        for (char const c : cell)
        {
            m_text.append(c == '"' ? 2 : 1, c);
        }
        m_text += '"';
    }

    void EndRow()
    {
        m_text += "\r\n";
        m_rowBegun = false;
    }

    [[nodiscard]] std::string const& Text() const noexcept { return m_text; }

private:
    char m_separator;
    bool m_rowBegun = false;
    std::string m_text;
};

} // namespace tavkit
