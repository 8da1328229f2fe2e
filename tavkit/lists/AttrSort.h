// AttrSort.h - order of the rows of an attribute list
#pragma once

#include "tavkit/frame/Export.h"

#include <functional>
#include <span>

namespace tavkit
{

/// The text of a row's cell, never null.
using CellOfRow = std::function<char const*(int id)>;

/// Orders row numbers by the texts of their cells. Each cell is read as a number once, not at every comparison; a text
/// that starts with no number counts as 0. Numbers go from high to low and, where both are 0, texts from A to Z
/// regardless of case. Without @p ascending both directions turn. That numbers and texts run against each other is
/// wanted.
///
/// Rows that compare equal keep their present order.
/// @param ids  the numbers from 0 to their count less 1, each once
TAVKIT_API void SortByCell(std::span<int> ids, bool ascending, CellOfRow const& cell);

/// Orders row numbers from high to low if @p ascending, against the word but as the numbers of a cell; else from low to
/// high.
TAVKIT_API void SortById(std::span<int> ids, bool ascending);

} // namespace tavkit
