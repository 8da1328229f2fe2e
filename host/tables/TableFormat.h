// TableFormat.h - the formats of tables, and how a file's is found
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "host/tables/ForwardTable.h"
#include "host/tables/ByteWindow.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/HostApi.h"

namespace table
{

enum class TableFormat
{
    Csv,        ///< "CSV": comma separated, a line for each row
    Transposed, ///< "TCSV": comma separated, a line for each column
    Text,       ///< "TXT": tab separated if there is a tab in the first line, otherwise separated by blanks
    Dbase       ///< "DBASE"
};

/// The format with an identifier; nothing for an unknown one. Case doesn't matter.
[[nodiscard]] std::optional<TableFormat> FormatOfId(std::string_view id);

/// The format that files with an extension are in; nothing for one that tells nothing. Case doesn't matter.
/// @param extension  without the dot.
[[nodiscard]] std::optional<TableFormat> FormatOfExtension(std::string_view extension);

/// Extensions of the files that tell their format by them, in lower case, without the dot.
[[nodiscard]] TAVHOST_API std::span<const std::string_view> TableExtensions() noexcept;

/// The format that the first bytes of a file look like; nothing if no table begins so.
[[nodiscard]] std::optional<TableFormat> FormatOfContent(host::ByteSource& source);

/// Opens a table.
/// @param error  receives the cause of a failure; may be null.
/// @return null if the source holds no table of that format.
[[nodiscard]] std::unique_ptr<ForwardTable> OpenTable(std::unique_ptr<host::ByteSource> source, TableFormat format,
                                                      DError* error, WindowSizes sizes = kTableWindow);

} // namespace table
