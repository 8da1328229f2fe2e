// TransposedTable.cpp
#include "host/tables/TransposedTable.h"

#include <algorithm>

#include "host/tables/ColumnTypeGuess.h"

namespace table
{
namespace
{
/// All columns together hold about so many bytes of the file at a time.
constexpr std::size_t kBytesOfAllColumns = std::size_t{16} << 20;
constexpr std::size_t kLeastOfColumn = 512;

[[nodiscard]] WindowSizes ColumnWindow(WindowSizes sizes, std::size_t columns) noexcept
{
    const std::size_t share = std::max(kBytesOfAllColumns / columns, kLeastOfColumn);
    return {std::min(share, sizes.first), std::min(share, sizes.block), sizes.most};
}
} // namespace

std::unique_ptr<TransposedTable> TransposedTable::Open(std::unique_ptr<host::ByteSource> source, const TextStart& start,
                                                       WindowSizes sizes)
{
    std::unique_ptr<TransposedTable> table(new TransposedTable(std::move(source)));
    return table->FindColumns(start, sizes) ? std::move(table) : nullptr;
}

bool TransposedTable::FindColumns(const TextStart& start, WindowSizes sizes)
{
    struct Line
    {
        std::uint64_t cells; ///< where the cell behind the name begins
        bool hasCells;
    };
    std::vector<Line> lines;
    CellScanner scanner(*m_source, start.at, CellStyle::Comma, sizes);
    m_codePage = start.codePage;
    for (scanner.Forget(); scanner.BeginLine(); scanner.Forget())
    {
        CellEnd end = scanner.NextCell();
        if (end == CellEnd::Line && scanner.IsBlank())
        {
            continue;
        }
        if (lines.size() == kMostColumns)
        {
            return false;
        }
        Column column{scanner.Cell(), adiString};
        lines.push_back({scanner.Position(), end == CellEnd::Cell});
        ColumnTypeGuess guess;
        for (std::size_t row = 0; end == CellEnd::Cell; ++row)
        {
            scanner.Forget();
            end = scanner.NextCell();
            if (end != CellEnd::Broken && row < kSampleRows)
            {
                guess.Add(scanner.Cell());
            }
        }
        if (end == CellEnd::Broken)
        {
            return false;
        }
        column.type = guess.Type();
        m_columns.push_back(std::move(column));
    }
    for (const Line& line : lines)
    {
        m_cursors.emplace_back(*m_source, line.cells, ColumnWindow(sizes, lines.size()), !line.hasCells);
    }
    m_cells.assign(m_columns.size(), "");
    return !m_columns.empty() && !scanner.Failed();
}

bool TransposedTable::ReadNextRow()
{
    bool any = false;
    auto cell = m_cells.begin();
    for (Cursor& cursor : m_cursors)
    {
        *cell = "";
        if (!cursor.over)
        {
            cursor.scanner.Forget();
            const CellEnd end = cursor.scanner.NextCell();
            if (end == CellEnd::Broken)
            {
                return false; // the file has changed since it was opened
            }
            *cell = cursor.scanner.Cell();
            cursor.over = end == CellEnd::Line;
            any = true;
        }
        ++cell;
    }
    return any;
}

} // namespace table
