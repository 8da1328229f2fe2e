// TableText.h - tables of the tests: opened from a text, and read whole
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/tables/TableFormat.h"
#include "tests/support/TextSource.h"

namespace tabletest
{
using Row = std::vector<std::string>;

/// So small that every cell is cut into pieces: nothing may depend on where a reading ends.
constexpr table::WindowSizes kTinyWindow{1, 1, std::size_t{1} << 20};

/// A table in a text; null if it doesn't open.
/// @param source  receives the text's bytes, borrowed from the table.
inline std::unique_ptr<table::ForwardTable> Open(std::string text, table::TableFormat format,
                                                 table::WindowSizes sizes = table::kTableWindow,
                                                 support::TextSource** source = nullptr)
{
    auto bytes = std::make_unique<support::TextSource>(std::move(text));
    if (source != nullptr)
    {
        *source = bytes.get();
    }
    return table::OpenTable(std::move(bytes), format, nullptr, sizes);
}

inline Row Names(IAttrData& table)
{
    Row names;
    for (int col = 0; col < table.GetNumCol(0); ++col)
    {
        names.emplace_back(table.GetColName(col, 0));
    }
    return names;
}

inline Row Cells(IAttrData& table, int row)
{
    Row cells;
    for (int col = 0; col < table.GetNumCol(0); ++col)
    {
        cells.emplace_back(table.GetCellText(row, col, 0));
    }
    return cells;
}

/// All rows from the first to the last.
inline std::vector<Row> Rows(IAttrData& table)
{
    std::vector<Row> rows;
    for (int row = 0; table.ReadRow(row, 0); ++row)
    {
        rows.push_back(Cells(table, row));
    }
    return rows;
}

inline std::vector<ADIColType> Types(IAttrData& table)
{
    std::vector<ADIColType> types;
    for (int col = 0; col < table.GetNumCol(0); ++col)
    {
        types.push_back(table.GetColType(col, 0));
    }
    return types;
}
} // namespace tabletest
