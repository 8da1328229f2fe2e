// BaseFuncs.cpp - numbers and names; InstallDir.cpp knows where the program lies
#include "tavkit/frame/services/BaseFuncs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "tavkit/frame/services/DFile.h"

namespace
{
constexpr int kMaxDigits = 100;
/// Sign, the digits of the largest double, point, decimals, NUL.
constexpr std::size_t kNumberText = 1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + kMaxDigits + 1;

using NumberText = std::array<char, kNumberText>;

/// Prints without the run-time's printf: its words for infinity and its rounding differ from one to the next.
char* PrintNumber(NumberText& text, double value, std::chars_format format, int digits)
{
    char* const end = std::to_chars(text.data(), text.data() + text.size() - 1, value, format, digits).ptr;
    *end = '\0';
    return end;
}
} // namespace

DString FormatDouble(double value, int digits)
{
    NumberText text;
    PrintNumber(text, value, std::chars_format::fixed, std::clamp(digits, 0, kMaxDigits));
    return text.data();
}

double RoundTo(double value, int digits, int mode)
{
    const bool significant = mode == roundSignificant;
    if (!std::isfinite(value) || (!significant && mode != roundDecimals) || digits < (significant ? 1 : 0))
    {
        return value;
    }
    digits = std::min(digits, kMaxDigits);
    NumberText text;
    // Rounding the decimal text has no error of its own; scaling by a power of ten and back has.
    char const* const end = significant ? PrintNumber(text, value, std::chars_format::scientific, digits - 1)
                                        : PrintNumber(text, value, std::chars_format::fixed, digits);
    double rounded = value;
    std::from_chars(text.data(), end, rounded);
    return rounded;
}

DString StripExtn(DString const& file) { return DFile(file.c_str()).GetPhysFileExtn(); }

DString StripPath(DString const& file) { return DFile(file.c_str()).GetPhysFileName(); }
