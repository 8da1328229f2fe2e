// EditMoves.h - from cell to cell of a list while one of them is edited
#pragma once

#include <algorithm>
#include <optional>

namespace tavkit
{

/// A cell of a list; row and column count from 0.
struct Cell
{
    int row = 0;
    int col = 0;

    bool operator==(Cell const&) const = default;
};

/// What a key asks for.
enum class EditMove
{
    FirstRow,
    LastRow,
    RowAbove,
    RowBelow,
    PageUp,
    PageDown,
    NextCell,
    PreviousCell
};

/// The column behind which the next cell is one of the next row, whatever the width of the list: it stays at that.
inline constexpr int kLastTabColumn = 2;

/// The cell that a move leads to, which need not exist: below the last row there is no row, and column 2 may be
/// missing.
/// @param rows     number of rows
/// @param perPage  rows that the list shows at once
/// @return no value if the move leads nowhere.
[[nodiscard]] constexpr std::optional<Cell> CellAfter(EditMove move, Cell at, int rows, int perPage) noexcept
{
    switch (move)
    {
    case EditMove::FirstRow:
        return Cell{0, at.col};
    case EditMove::LastRow:
        return Cell{rows - 1, at.col};
    case EditMove::RowAbove:
        return at.row > 0 ? std::optional(Cell{at.row - 1, at.col}) : std::nullopt;
    case EditMove::RowBelow:
        return Cell{at.row + 1, at.col};
    case EditMove::PageUp:
        return Cell{std::max(at.row - perPage, 0), at.col};
    case EditMove::PageDown:
        return Cell{std::min(at.row + perPage, rows - 1), at.col};
    case EditMove::NextCell:
        return at.col < kLastTabColumn ? Cell{at.row, at.col + 1} : Cell{at.row + 1, 0};
    case EditMove::PreviousCell:
        if (at.col > 0)
        {
            return Cell{at.row, at.col - 1};
        }
        return at.row > 0 ? std::optional(Cell{at.row - 1, kLastTabColumn}) : std::nullopt;
    }
    return std::nullopt;
}

/// The first cell from `from` on whose column may be edited, row by row.
/// @param isEditable  (int col) -> bool
/// @return no value if there is none, or `from` lies below the last row.
template <class IsEditable>
[[nodiscard]] constexpr std::optional<Cell> FindEditable(Cell from, int rows, int cols, IsEditable isEditable)
{
    if (from.row >= rows)
    {
        return std::nullopt;
    }
    for (int col = from.col; col < cols; ++col)
    {
        if (isEditable(col))
        {
            return Cell{from.row, col};
        }
    }
    // The columns are the same in every row, so that one row more decides.
    if (from.row + 1 < rows)
    {
        for (int col = 0; col < std::min(from.col, cols); ++col)
        {
            if (isEditable(col))
            {
                return Cell{from.row + 1, col};
            }
        }
    }
    return std::nullopt;
}

} // namespace tavkit
