#include "tavkit/lists/ColumnRecord.h"

#include <charconv>
#include <system_error>

namespace tavkit
{
namespace
{

// Takes a number without a sign off the front of a text.
std::optional<int> TakeNumber(std::string_view& text, int most)
{
    int value = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || text.front() == '-' || value > most)
    {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return value;
}

bool TakeCharacter(std::string_view& text, char c)
{
    if (!text.starts_with(c))
    {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

} // namespace

std::string ColumnsToText(std::vector<ColumnPlace> const& columns)
{
    std::string text;
    for (ColumnPlace const& column : columns)
    {
        text += (text.empty() ? "" : ",") + std::to_string(column.col) + ":" + std::to_string(column.width);
    }
    return text;
}

std::optional<std::vector<ColumnPlace>> ColumnsFromText(std::string_view text, int count)
{
    std::vector<ColumnPlace> columns;
    std::vector<bool> seen(static_cast<std::size_t>(count > 0 ? count : 0));
    while (columns.size() < seen.size())
    {
        if (!columns.empty() && !TakeCharacter(text, ','))
        {
            return std::nullopt;
        }
        auto const col = TakeNumber(text, count - 1);
        if (!col || seen[static_cast<std::size_t>(*col)] || !TakeCharacter(text, ':'))
        {
            return std::nullopt;
        }
        auto const width = TakeNumber(text, kMaxColumnWidth);
        if (!width)
        {
            return std::nullopt;
        }
        seen[static_cast<std::size_t>(*col)] = true;
        columns.push_back({*col, *width});
    }
    return text.empty() ? std::optional(columns) : std::nullopt;
}

} // namespace tavkit
