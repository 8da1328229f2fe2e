// DelimitedTable.h - a table as text: a line of names, then a line for each row
#pragma once

#include "host/tables/CellScanner.h"
#include "host/tables/ForwardTable.h"
#include "host/tables/TextStart.h"

namespace table
{

/// Reads comma, tab or blank separated text. A row with fewer cells than there are names gets empty ones, further cells
/// are left out. Blank lines are passed over; in a comma or tab separated table of one column they are empty cells.
class DelimitedTable final : public ForwardTable
{
public:
    /// Reads the line of names and looks at some rows for the types of the columns.
    /// @param start  what FindTextStart() says of the source.
    /// @return null if there is no line of names, it is damaged or it has too many.
    [[nodiscard]] static std::unique_ptr<DelimitedTable> Open(std::unique_ptr<host::ByteSource> source,
                                                              const TextStart& start, CellStyle style,
                                                              WindowSizes sizes = kTableWindow);

protected:
    bool ReadNextRow() override;

private:
    DelimitedTable(std::unique_ptr<host::ByteSource> source, const TextStart& start, CellStyle style,
                   WindowSizes sizes);

    [[nodiscard]] bool ReadNames();
    void RecogniseTypes(CellStyle style);

    std::unique_ptr<host::ByteSource> m_source;
    CellScanner m_scanner;
    std::vector<std::size_t> m_places; ///< of the row's cells
    bool m_skipBlankLines = true;
};

} // namespace table
