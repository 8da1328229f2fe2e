// ColumnRecord.h - order and widths of a list's columns as one text
#pragma once

#include "tavkit/frame/Export.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavkit
{

/// A column as it stands in a list.
struct ColumnPlace
{
    int col;   ///< index, whatever the place
    int width; ///< pixels

    bool operator==(ColumnPlace const&) const = default;
};

/// The widest column that a record may hold, in pixels.
inline constexpr int kMaxColumnWidth = 32767;

/// The columns from left to right as a text: "2:80,0:120,1:60".
[[nodiscard]] TAVKIT_API std::string ColumnsToText(std::vector<ColumnPlace> const& columns);

/// The columns that a text tells.
/// @return no value unless the text holds each column from 0 to `count` - 1 once, with a width of 0 to kMaxColumnWidth,
///         and nothing else.
[[nodiscard]] TAVKIT_API std::optional<std::vector<ColumnPlace>> ColumnsFromText(std::string_view text, int count);

} // namespace tavkit
