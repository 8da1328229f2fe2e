// TableFuzz.cpp - tables of every format from any bytes; what is read must not depend on how much is read at a time
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "host/tables/TableFormat.h"

namespace
{
using Text = std::vector<std::string>;

/// Names, types and all cells of a table, in reading order.
Text ReadAll(IAttrData& table)
{
    Text all;
    const int columns = table.GetNumCol(0);
    for (int col = 0; col < columns; ++col)
    {
        all.push_back(table.GetColName(col, 0) + std::to_string(table.GetColType(col, 0)));
    }
    for (int row = 0; table.ReadRow(row, 0); ++row)
    {
        for (int col = 0; col < columns; ++col)
        {
            all.emplace_back(table.GetCellText(row, col, 0));
        }
    }
    return all;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    using namespace table;
    constexpr TableFormat kFormats[] = {TableFormat::Csv, TableFormat::Transposed, TableFormat::Text,
                                        TableFormat::Dbase};
    constexpr WindowSizes kTiny{1, 3, std::size_t{1} << 20};
    const auto bytes = std::as_bytes(std::span(data, size));
    host::SpanSource content(bytes);
    (void)FormatOfContent(content);
    for (const TableFormat format : kFormats)
    {
        const auto table = OpenTable(std::make_unique<host::SpanSource>(bytes), format, nullptr);
        const auto tiny = OpenTable(std::make_unique<host::SpanSource>(bytes), format, nullptr, kTiny);
        if (!table != !tiny)
        {
            std::abort();
        }
        // Rows of many columns take little of the input but much time.
        constexpr int kMostColumns = 300;
        if (table && table->GetNumCol(0) <= kMostColumns && ReadAll(*table) != ReadAll(*tiny))
        {
            std::abort();
        }
    }
    return 0;
}
