// AttrCache.h - what was read of an attribute table: cells, the order of the rows, and how far to read
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DVector.h"
#include "tavkit/lists/AttrSort.h"

namespace tavkit
{

/// Rows to read when a row that isn't cached is asked for: up to the declared end of the list. 0 or less reads the
/// whole table.
[[nodiscard]] constexpr int RowsToRead(int declared, int row) noexcept { return declared - row; }

/// Declared length of a list whose table has more rows than those cached.
[[nodiscard]] TAVKIT_API int GrownLength(int cached) noexcept;

/// Cells of a table, row by row as they were read, and the order in which they are shown. It only grows. Cached rows
/// and columns count from 0.
class TAVKIT_API AttrCache
{
public:
    AttrCache() = default;
    AttrCache(AttrCache const&) = delete;
    AttrCache& operator=(AttrCache const&) = delete;
    ~AttrCache();

    /// Takes a table column as the next cached column.
    void AddCol(int tableCol) { m_vecCol.Append(tableCol); }
    [[nodiscard]] int GetNumCol() const noexcept { return m_vecCol.GetCount(); }
    /// The table's column behind a cached one; -1 for one that isn't cached.
    [[nodiscard]] int GetTableCol(int col) const noexcept { return col < GetNumCol() ? m_vecCol[col] : -1; }

    /// Takes the next row, shown last, with empty cells.
    /// @return its number; -1 when there is no room for it
    int AddRow() noexcept;
    [[nodiscard]] int GetNumRow() const noexcept { return m_vecId.GetCount(); }
    /// The cached row that is shown at @p row; -1 outside.
    [[nodiscard]] int GetId(int row) const noexcept { return row >= 0 && row < GetNumRow() ? m_vecId[row] : -1; }

    /// Copies the text of a cell; null is taken as "".
    /// @return false when there is no room for it
    bool Store(int row, int col, char const* text) noexcept;
    /// The text of a cell, "" for one that holds none or lies outside.
    [[nodiscard]] char const* GetText(int row, int col) const noexcept;
    /// Where the text of a cell lies: null or a block of malloc, which the cache frees. Grows up to that cell.
    char const*& GetSlot(int row, int col) { return m_vecCell[static_cast<int>(IndexOf(row, col))]; }

    /// Orders the shown rows by a cached column; see SortByCell. A column that isn't cached leaves the order.
    void SortByCol(int col, bool ascending);
    /// Orders the shown rows by the number of the cached row; see SortById.
    void SortByRow(bool ascending);

private:
    [[nodiscard]] long long IndexOf(int row, int col) const noexcept
    {
        return static_cast<long long>(row) * GetNumCol() + col;
    }

    DVector<char const*> m_vecCell; ///< row-major, owned, of malloc
    DVector<int> m_vecId;           ///< shown row to cached row
    DVector<int> m_vecCol;          ///< cached column to the table's column
};

} // namespace tavkit
