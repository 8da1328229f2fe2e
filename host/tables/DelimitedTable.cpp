// DelimitedTable.cpp
#include "host/tables/DelimitedTable.h"

#include <algorithm>

#include "host/tables/ColumnTypeGuess.h"

namespace table
{
namespace
{

/// Rows for the types are sought in so many bytes: a cell that fills megabytes isn't read twice.
constexpr WindowSizes kSampleWindow{kTableWindow.first, std::size_t{64} << 10, std::size_t{64} << 10};

/// Goes over the cells of the next line that isn't blank.
/// @param take  gets the number of the cell in the line, and its place
/// @return false if there is no further line, or it can't be read whole.
template <class Take>
[[nodiscard]] bool ReadLine(CellScanner& scanner, bool skipBlankLines, Take take)
{
    for (;;)
    {
        scanner.Forget();
        std::size_t count = 0;
        if (!scanner.BeginLine() || !scanner.ReadLine([&](std::size_t place) { take(count++, place); }))
        {
            return false;
        }
        if (!skipBlankLines || count > 1 || !scanner.IsBlank())
        {
            return true;
        }
    }
}

} // namespace

DelimitedTable::DelimitedTable(std::unique_ptr<host::ByteSource> source, const TextStart& start, CellStyle style,
                               WindowSizes sizes)
    : m_source(std::move(source)), m_scanner(*m_source, start.at, style, sizes)
{
    m_codePage = start.codePage;
}

std::unique_ptr<DelimitedTable> DelimitedTable::Open(std::unique_ptr<host::ByteSource> source, const TextStart& start,
                                                     CellStyle style, WindowSizes sizes)
{
    std::unique_ptr<DelimitedTable> table(new DelimitedTable(std::move(source), start, style, sizes));
    if (!table->ReadNames())
    {
        return nullptr;
    }
    table->m_skipBlankLines = style == CellStyle::Blanks || table->m_columns.size() > 1;
    table->RecogniseTypes(style);
    return table;
}

bool DelimitedTable::ReadNames()
{
    std::size_t count = 0;
    const bool isRead = ReadLine(m_scanner, true, [&](std::size_t i, std::size_t place) {
        count = i + 1;
        m_columns.resize(std::min(count, kMostColumns));
        if (i < kMostColumns)
        {
            m_columns[i].name = m_scanner.CellAt(place);
        }
    });
    m_places.resize(m_columns.size());
    m_cells.assign(m_columns.size(), "");
    return isRead && count <= kMostColumns;
}

/// Reads some rows in a window of its own, so that the first row still comes first.
void DelimitedTable::RecogniseTypes(CellStyle style)
{
    if (!m_scanner.BeginLine())
    {
        return;
    }
    std::vector<ColumnTypeGuess> guesses(m_columns.size());
    CellScanner sample(*m_source, m_scanner.Position(), style, kSampleWindow);
    const std::uint64_t end = m_scanner.Position() + kSampleWindow.most;
    bool isRead = true;
    for (std::size_t row = 0; row < kSampleRows && isRead && sample.Position() < end; ++row)
    {
        isRead = ReadLine(sample, m_skipBlankLines, [&](std::size_t i, std::size_t place) {
            if (i < guesses.size())
            {
                guesses[i].Add(sample.CellAt(place));
            }
        });
    }
    std::ranges::transform(guesses, m_columns, m_columns.begin(), [](const ColumnTypeGuess& guess, Column column) {
        column.type = guess.Type();
        return column;
    });
}

bool DelimitedTable::ReadNextRow()
{
    std::size_t count = 0;
    const bool isRead = ReadLine(m_scanner, m_skipBlankLines, [&](std::size_t i, std::size_t place) {
        if (i < m_places.size())
        {
            m_places[i] = place;
            count = i + 1;
        }
    });
    // The places become pointers only now: the window may have moved while the row was read.
    const auto there = m_places.begin() + static_cast<std::ptrdiff_t>(isRead ? count : 0);
    const auto missing = std::transform(m_places.begin(), there, m_cells.begin(),
                                        [this](std::size_t at) { return m_scanner.CellAt(at); });
    std::fill(missing, m_cells.end(), "");
    return isRead;
}

} // namespace table
