// SavedCell.h - what a cell of a list becomes in a table file
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/IAttrData.h"

#include <variant>

namespace tavkit
{

/// A text, borrowed from the cell, or a number.
using SavedCell = std::variant<char const*, int, double>;

/// A column of integers or of floating point numbers saves numbers, an unreadable one as 0; but the words that stand
/// for no value, "---" and "undefined" in any case, stay words there. All other columns save texts.
/// @param text  may be null, which is ""
[[nodiscard]] TAVKIT_API SavedCell CellToSave(char const* text, ADIColType type) noexcept;

} // namespace tavkit
