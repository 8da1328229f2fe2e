// NumberTable.h - the columns of a table that hold numbers
#pragma once

#include "tavkit/frame/services/IAttrData.h"

#include <string>
#include <vector>

namespace workbench
{
/// A column of numbers. What is no number in it is a NaN.
struct NumberColumn
{
    std::string name;
    std::vector<double> values; ///< one for each row of the table
};

/// Reads a table from its first row on.
/// @param mostRows  further ones are left out
/// @return the columns in which at least half of the cells are numbers
[[nodiscard]] std::vector<NumberColumn> ReadNumbers(IAttrData& table, int mostRows);

/// Two columns.
struct ColumnPair
{
    int x = -1; ///< -1 when there is none
    int y = -1;

    bool operator==(const ColumnPair&) const = default;
};

/// The two columns to be plotted against each other at first: measures rather than the objects' numbers and places.
[[nodiscard]] ColumnPair FirstPair(const std::vector<NumberColumn>& columns);
} // namespace workbench
