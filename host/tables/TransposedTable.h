// TransposedTable.h - a table as comma separated text that lies on its side: a line for each column
#pragma once

#include <deque>

#include "host/tables/CellScanner.h"
#include "host/tables/ForwardTable.h"
#include "host/tables/TextStart.h"

namespace table
{

/// Reads a table each of whose lines is a name followed by the cells of that column. Opening it goes over the whole
/// file once, since the last column begins near its end; then each column is read on its own, in small pieces. A column
/// with fewer cells than others goes on with empty ones. Blank lines are passed over.
class TransposedTable final : public ForwardTable
{
public:
    /// @param start  what FindTextStart() says of the source.
    /// @return null if there is no line, a line is damaged or there are too many.
    [[nodiscard]] static std::unique_ptr<TransposedTable> Open(std::unique_ptr<host::ByteSource> source,
                                                               const TextStart& start,
                                                               WindowSizes sizes = kTableWindow);

protected:
    bool ReadNextRow() override;

private:
    /// Reading place in one column.
    struct Cursor
    {
        Cursor(host::ByteSource& source, std::uint64_t from, WindowSizes sizes, bool isOver)
            : scanner(source, from, CellStyle::Comma, sizes), over(isOver)
        {
        }
        CellScanner scanner;
        bool over; ///< the column has no further cell
    };

    explicit TransposedTable(std::unique_ptr<host::ByteSource> source) : m_source(std::move(source)) {}

    [[nodiscard]] bool FindColumns(const TextStart& start, WindowSizes sizes);

    std::unique_ptr<host::ByteSource> m_source;
    std::deque<Cursor> m_cursors; ///< one for each column
};

} // namespace table
