// ColumnTypeGuess.h - recognises the type of a column from the texts of some cells
#pragma once

#include <string_view>

#include "tavkit/frame/services/IAttrData.h"

namespace table
{

/// Looks at cells of one column. Whole numbers of 32 bits make an integer column, other numbers a floating point
/// column, anything else a text column; empty cells and the words "---" and "undefined", which stand for a number that
/// isn't there, say nothing. A column of which nothing is known is text.
class ColumnTypeGuess
{
public:
    void Add(std::string_view cell) noexcept;
    [[nodiscard]] ADIColType Type() const noexcept { return m_type == adiNone ? adiString : m_type; }

private:
    ADIColType m_type = adiNone; ///< adiNone until a cell says something; grows from integer to text only
};

} // namespace table
