// CellScanner.cpp
#include "host/tables/CellScanner.h"

#include <cstring>

namespace table
{

namespace
{
constexpr char kEndMark = 0x1A; ///< old programs close a text with it

[[nodiscard]] constexpr bool IsBlankChar(char c) noexcept { return c == ' ' || c == '\t'; }
} // namespace

CellScanner::CellScanner(host::ByteSource& source, std::uint64_t from, CellStyle style, WindowSizes sizes) noexcept
    : m_window(source, from, sizes), m_style(style), m_separator(style == CellStyle::Comma ? ','
                                                                 : style == CellStyle::Tab ? '\t'
                                                                                           : '\0'),
      m_stops(style == CellStyle::Comma ? ",\r\n"
              : style == CellStyle::Tab ? "\t\r\n"
                                        : " \t\r\n")
{
}

void CellScanner::Forget() noexcept
{
    m_window.Drop(m_at);
    m_at = 0;
    m_cell = 0;
}

bool CellScanner::BeginLine() noexcept
{
    if (m_skipFeed && HasByte(m_at))
    {
        m_at += m_window.Begin()[m_at] == '\n' ? 1 : 0;
        m_skipFeed = false;
    }
    if (m_style == CellStyle::Blanks)
    {
        SkipBlanks();
    }
    return HasByte(m_at) && m_window.Begin()[m_at] != kEndMark;
}

CellEnd CellScanner::NextCell() noexcept
{
    m_cell = m_at;
    m_quoted = HasByte(m_at) && m_window.Begin()[m_at] == '"';
    if (m_quoted)
    {
        return ReadQuotedCell();
    }
    const std::size_t end = ScanTo(m_stops, m_at);
    return EndCell(end, end);
}

CellEnd CellScanner::ReadQuotedCell() noexcept
{
    static const ByteStops kQuoteStops("\"");
    std::size_t at = m_at + 1;
    m_cell = at;
    std::size_t out = at; // the text moves forward over the quotes that are taken out
    for (;;)
    {
        const std::size_t stop = ScanTo(kQuoteStops, at);
        Move(out, at, stop);
        out += stop - at;
        if (m_window.Begin()[stop] != '"')
        {
            return CellEnd::Broken;
        }
        at = stop + 1;
        if (!HasByte(at) || m_window.Begin()[at] != '"')
        {
            break;
        }
        m_window.Begin()[out++] = '"';
        ++at;
    }
    const std::size_t end = ScanTo(m_stops, at);
    Move(out, at, end);
    return EndCell(out + (end - at), end);
}

/// Ends the cell's text and steps over what ended the cell.
/// @param at  the place of that: a stop, or the end of the text.
CellEnd CellScanner::EndCell(std::size_t textEnd, std::size_t at) noexcept
{
    char* const begin = m_window.Begin();
    const bool isTextOver = begin + at == m_window.End();
    const char stop = begin[at];
    begin[textEnd] = '\0';
    m_at = at;
    if (isTextOver)
    {
        return m_window.Failed() ? CellEnd::Broken : CellEnd::Line;
    }
    if (stop == '\0')
    {
        return CellEnd::Broken;
    }
    ++m_at;
    if (stop == '\r' || stop == '\n')
    {
        return EndLine(stop);
    }
    if (m_style == CellStyle::Blanks)
    {
        SkipBlanks();
        if (!HasByte(m_at))
        {
            return m_window.Failed() ? CellEnd::Broken : CellEnd::Line;
        }
        if (const char next = m_window.Begin()[m_at]; next == '\r' || next == '\n')
        {
            ++m_at;
            return EndLine(next);
        }
    }
    return CellEnd::Cell;
}

CellEnd CellScanner::EndLine(char lineEnd) noexcept
{
    m_skipFeed = lineEnd == '\r';
    return CellEnd::Line;
}

bool CellScanner::HasByte(std::size_t at) noexcept
{
    return m_window.Begin() + at != m_window.End() || m_window.More();
}

/// The place of the first stop from `at` on; the end of the text if there is none.
std::size_t CellScanner::ScanTo(const ByteStops& stops, std::size_t at) noexcept
{
    for (;;)
    {
        char* const begin = m_window.Begin();
        char* const found = stops.FindIn(begin + at);
        at = static_cast<std::size_t>(found - begin);
        if (found != m_window.End() || !m_window.More())
        {
            return at;
        }
    }
}

void CellScanner::Move(std::size_t to, std::size_t from, std::size_t end) noexcept
{
    if (to != from)
    {
        char* const begin = m_window.Begin();
        std::memmove(begin + to, begin + from, end - from);
    }
}

void CellScanner::SkipBlanks() noexcept
{
    while (HasByte(m_at) && IsBlankChar(m_window.Begin()[m_at]))
    {
        ++m_at;
    }
}

} // namespace table
