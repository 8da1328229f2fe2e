// RowText.h - texts of a row list's rows: cells separated by bars, sizes in kilobytes
#pragma once

#include "tavkit/frame/Export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavkit
{

inline constexpr char kCellSeparator = '|';
inline constexpr int kKByteOfMByte = 1024;            ///< from here on a size is told in megabytes
inline constexpr double kMByteOfKByte = 0.0009765625; ///< one kilobyte in megabytes

/// Walk over the cells of a row. There is always a first cell; a bar at the end of the text opens no further one. A bar
/// can't be held in a cell.
class TAVKIT_API RowCells
{
public:
    /// @param text  not copied: it must outlive the walk
    explicit RowCells(std::string_view text) noexcept : m_text(text) {}

    /// Steps to the next cell, at first to the first one. False when there is none.
    bool Next() noexcept;

    // Place of the cell in the text.
    [[nodiscard]] std::size_t GetStart() const noexcept { return m_start; }
    [[nodiscard]] std::size_t GetLength() const noexcept { return m_length; }

private:
    std::string_view m_text;
    std::size_t m_start = 0;
    std::size_t m_length = 0;
    std::size_t m_next = 0; ///< where the next cell starts
    bool m_begun = false;
};

/// A size as lists show it: "1023 KB", from 1024 kilobytes on "1.00 MB".
[[nodiscard]] TAVKIT_API std::string KByteText(int kiloBytes);

} // namespace tavkit
