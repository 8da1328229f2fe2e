// ScanDouble.h - numbers in the texts of cells
#pragma once

#include "tavkit/frame/Export.h"

#include <optional>

namespace tavkit
{

/// The number that a text begins with: blanks, a sign, digits with or without a point, an exponent with digits. Names
/// of numbers ("inf", "nan"), other bases and digits grouped by commas are no numbers, whatever the run-time library
/// makes of them. A number too large is infinite, one too small 0; what follows a number is ignored.
/// @param text  may be null
/// @return no value if the text doesn't begin with a number.
[[nodiscard]] TAVKIT_API std::optional<double> ScanDouble(char const* text) noexcept;

/// As ScanDouble(), 0 if the text doesn't begin with a number.
[[nodiscard]] TAVKIT_API double ToDouble(char const* text) noexcept;

/// The whole number that a text begins with: blanks, a sign, digits. What follows is ignored; a number too large is the
/// nearest that there is.
/// @param text  may be null
/// @return 0 if the text doesn't begin with a number.
[[nodiscard]] TAVKIT_API int ToInt(char const* text) noexcept;

} // namespace tavkit
