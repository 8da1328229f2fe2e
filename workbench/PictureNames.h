// PictureNames.h - which file names are pictures or tables, and in which order they stand in a list
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench
{
/// True for a name with the extension of a kind of picture that the workbench reads; upper and lower case are the same.
[[nodiscard]] bool IsPictureName(std::string_view name);

/// True for a name with the extension of a kind of table that the workbench reads.
[[nodiscard]] bool IsTableName(std::string_view name);

/// Sorts names without regard to the case of ASCII letters; names that differ in nothing else keep a fixed order.
void SortNames(std::vector<std::string>& names);

/// The index of a name without regard to the case of ASCII letters; -1 when it isn't there.
[[nodiscard]] int IndexOfName(const std::vector<std::string>& names, std::string_view name);

/// The picture that a table was measured from, going by their names: the one whose name without extension the table's
/// begins with, as "cell.tif" and "cell_objects.csv"; the longest of several. -1 when there is none.
[[nodiscard]] int PictureOfTable(const std::vector<std::string>& pictures, std::string_view table);

/// Why a picture can't have that name, as a sentence; empty when it can.
[[nodiscard]] std::string NameProblem(std::string_view name);
} // namespace workbench
