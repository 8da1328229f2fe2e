// TableBytes.h - a table in memory and the bytes that it makes in each format
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/tables/ForwardTable.h"
#include "host/tables/TableFormat.h"

namespace table
{

/// A cell that is written: its text, and whether it is a number.
struct WrittenCell
{
    std::string text;
    bool isNumber = false;
};

/// A table that is written row by row. A row may have fewer cells than there are columns; the missing ones are empty.
struct WrittenTable
{
    std::vector<Column> columns;
    std::vector<std::vector<WrittenCell>> rows;
};

/// A day, as a dBase file tells when it was written.
struct Day
{
    int year = 0;
    int month = 0;
    int day = 0;
};

/// The text of a number, without the user's language: it reads back as the same number. One that isn't finite is the
/// word "undefined", which stands for a number that isn't there.
[[nodiscard]] WrittenCell NumberCell(int value);
[[nodiscard]] WrittenCell NumberCell(double value);

/// The content of a file with the table.
///
/// Comma separated tables have lines that end with CR and LF, the first with the names; cells with commas, quotes or
/// line breaks stand in quotes, quotes in them twice. Transposed, each line is a column. Text is separated by tabs
/// instead. A dBase III file has number fields for numeric columns - a word in one leaves it blank - and text fields of
/// at most 254 bytes; names have 10 bytes, alike ones get a number.
/// @param today  for the head of a dBase file
/// @return nothing for a table that the format can't hold
[[nodiscard]] std::optional<std::string> TableBytes(WrittenTable const& table, TableFormat format, Day today);

} // namespace table
