// CellScanner.h - takes text apart into lines and cells
#pragma once

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
    struct Stops;

    [[nodiscard]] bool HasByte(std::size_t at) noexcept;
    [[nodiscard]] std::size_t ScanTo(const Stops& stops, std::size_t at) noexcept;
    void Move(std::size_t to, std::size_t from, std::size_t end) noexcept;
    void SkipBlanks() noexcept;
    [[nodiscard]] CellEnd ReadQuotedCell() noexcept;
    [[nodiscard]] CellEnd EndCell(std::size_t textEnd, std::size_t at) noexcept;
    [[nodiscard]] CellEnd EndLine(char lineEnd) noexcept;

    ByteWindow m_window;
    const Stops* m_pStops; ///< what ends a cell without quotes
    CellStyle m_style;
    std::size_t m_at = 0;   ///< what is read next, counted from the window's begin
    std::size_t m_cell = 0; ///< the cell read last, likewise
    bool m_quoted = false;
    bool m_skipFeed = false; ///< the line before ended with CR: an LF that follows belongs to it
};

} // namespace table
