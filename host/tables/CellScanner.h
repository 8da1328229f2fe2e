// CellScanner.h - takes text apart into lines and cells
#pragma once

#include "host/tables/ByteStops.h"
#include "host/tables/ByteWindow.h"

namespace table
{

/// What separates the cells of a line.
enum class CellStyle
{
    Comma,
    Tab,
    Blanks ///< any number of blanks and tabs; those at the ends of a line separate nothing
};

/// What follows a cell.
enum class CellEnd
{
    Cell,  ///< another cell of the line
    Line,  ///< the line's end, or the end of the text
    Broken ///< nothing more can be read: a NUL, a quoted cell without an end, a failed reading
};

/// Walks over the cells of a text. Lines end with CR and LF, LF alone or CR alone; the last one needs no end. A
/// line that begins with the byte 0x1A is no line: the text ends in front of it. A cell that begins with a quote ends
/// with one; within it a separator and a line break are text, and two quotes stand for one. What follows the closing
/// quote up to the separator belongs to the cell, and a quote within a cell that doesn't begin with one is text.
class CellScanner
{
public:
    /// @param source  borrowed; lives longer than this object.
    /// @param from    where the first line begins.
    CellScanner(host::ByteSource& source, std::uint64_t from, CellStyle style, WindowSizes sizes) noexcept;

    /// Forgets the cells so far; their texts become invalid.
    void Forget() noexcept;

    /// Goes to the first cell of a line: called before the first line, and after each NextCell() that gave
    /// CellEnd::Line. Calling it again changes nothing.
    /// @return false at the end of the text, and once reading has Failed().
    [[nodiscard]] bool BeginLine() noexcept;

    /// Reads the next cell.
    [[nodiscard]] CellEnd NextCell() noexcept;

    /// Reads the cells up to the end of the line, as NextCell() would.
    /// @param take  gets the place of each cell, in order
    /// @return false if the line can't be read whole
    template <class Take>
    [[nodiscard]] bool ReadLine(Take take);

    /// The cell read last, or any other by its place; NUL-terminated. Valid until Forget(), and until more is read.
    [[nodiscard]] const char* Cell() noexcept { return CellAt(m_cell); }
    [[nodiscard]] const char* CellAt(std::size_t place) noexcept { return m_window.Begin() + place; }
    /// The place of the cell read last, valid until Forget().
    [[nodiscard]] std::size_t Place() const noexcept { return m_cell; }
    /// True if nothing at all stood for the cell read last, not even quotes.
    [[nodiscard]] bool IsBlank() noexcept { return !m_quoted && *Cell() == '\0'; }

    /// True after bytes of the source couldn't be read, or a line didn't fit into the window.
    [[nodiscard]] bool Failed() const noexcept { return m_window.Failed(); }

    /// Where reading goes on in the source.
    [[nodiscard]] std::uint64_t Position() noexcept { return m_window.OffsetOf(m_window.Begin() + m_at); }

private:
    [[nodiscard]] bool HasByte(std::size_t at) noexcept;
    [[nodiscard]] std::size_t ScanTo(const ByteStops& stops, std::size_t at) noexcept;
    void Move(std::size_t to, std::size_t from, std::size_t end) noexcept;
    void SkipBlanks() noexcept;
    template <class Take>
    [[nodiscard]] bool ReadPlainCells(Take take);
    [[nodiscard]] CellEnd ReadQuotedCell() noexcept;
    [[nodiscard]] CellEnd EndCell(std::size_t textEnd, std::size_t at) noexcept;
    [[nodiscard]] CellEnd EndLine(char lineEnd) noexcept;

    ByteWindow m_window;
    CellStyle m_style;
    char m_separator;       ///< between plain cells; NUL where that takes more than one byte
    ByteStops m_stops;      ///< what ends a cell without quotes
    std::size_t m_at = 0;   ///< what is read next, counted from the window's begin
    std::size_t m_cell = 0; ///< the cell read last, likewise
    bool m_quoted = false;
    bool m_skipFeed = false; ///< the line before ended with CR: an LF that follows belongs to it
};

template <class Take>
bool CellScanner::ReadLine(Take take)
{
    while (!ReadPlainCells(take))
    {
        const CellEnd end = NextCell();
        if (end == CellEnd::Broken)
        {
            return false;
        }
        take(m_cell);
        if (end == CellEnd::Line)
        {
            break;
        }
    }
    return true;
}

/// Reads cells that need no more than a NUL in place of what separates them, which nearly all are: stops are found for
/// many of them at a time.
/// @return true if the line's end was reached; else the next cell is one for NextCell()
template <class Take>
bool CellScanner::ReadPlainCells(Take take)
{
    const char separator = m_separator;
    if (separator == '\0')
    {
        return false;
    }
    const ByteStops stops = m_stops;
    char* const begin = m_window.Begin();
    char* cell = begin + m_at;
    char* block = cell;
    bool isLineOver = false;
    for (std::uint64_t found = stops.InBlock(block); !isLineOver; found &= found - 1)
    {
        while (found == 0) // never behind the end, where a stop stands
        {
            block += ByteStops::kBlock;
            found = stops.InBlock(block);
        }
        char* const stop = block + std::countr_zero(found);
        const bool isCrAndLf = *stop == '\r' && stop[1] == '\n';
        isLineOver = isCrAndLf || *stop == '\n';
        if (*cell == '"' || (*stop != separator && !isLineOver))
        {
            isLineOver = false;
            break;
        }
        *stop = '\0';
        m_cell = static_cast<std::size_t>(cell - begin);
        take(m_cell);
        cell = stop + (isCrAndLf ? 2 : 1);
        m_quoted = false;
    }
    m_at = static_cast<std::size_t>(cell - begin);
    return isLineOver;
}

} // namespace table
