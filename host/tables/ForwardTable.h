// ForwardTable.h - what all readers share: a table that is read once, row by row, and keeps only the row it stands on
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "tavkit/frame/services/IAttrData.h"

namespace table
{

/// Name and type of a column.
struct Column
{
    std::string name;
    ADIColType type = adiString;
};

/// Rows a column's type is recognised from at the most.
constexpr std::size_t kSampleRows = 100;
/// A table with more columns isn't opened.
constexpr std::size_t kMostColumns = 65536;

/// Code pages of a table's texts.
constexpr unsigned kSystemCodePage = 0;
constexpr unsigned kUtf8CodePage = 65001;

/// Base of the readers. A row can be moved to once it is reached: rows in front of it are gone, rows between are read
/// and passed over. After the first failure no row can be read any more.
class ForwardTable : public IAttrData
{
public:
    int GetNumCol(int nReserved) override;
    bool ReadRow(int row, int nReserved) override;
    char const* GetColName(int col, int nReserved) override;
    ADIColType GetColType(int col, int nReserved) override;
    char const* GetCellText(int row, int col, int nReserved) override;

    /// Code page of names and cells; kSystemCodePage if they are to be taken as they are.
    [[nodiscard]] unsigned CodePage() const noexcept { return m_codePage; }

protected:
    /// Moves to the next row and puts the texts of its cells into m_cells.
    /// @return false behind the last row, and if the row can't be read whole.
    [[nodiscard]] virtual bool ReadNextRow() = 0;

    std::vector<Column> m_columns;
    std::vector<char const*> m_cells; ///< one for each column, never null; valid until the next row is read
    unsigned m_codePage = kSystemCodePage;

private:
    static constexpr int kNoRow = std::numeric_limits<int>::min();

    [[nodiscard]] bool IsColumn(int col) const noexcept;

    int m_row = -1;       ///< how far the table is read
    int m_shown = kNoRow; ///< the row whose cells are there
    bool m_ended = false;
};

} // namespace table
