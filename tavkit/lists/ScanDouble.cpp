#include "tavkit/lists/ScanDouble.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace tavkit
{
namespace
{

constexpr int kFarExponent = 1'000'000; // beyond any number; keeps sums within the range of int

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char const* SkipBlanks(char const* text)
{
    while (IsBlank(*text))
    {
        ++text;
    }
    return text;
}

char const* SkipDigits(char const* text)
{
    while (IsDigit(*text))
    {
        ++text;
    }
    return text;
}

int Count(char const* begin, char const* end)
{
    return static_cast<int>(std::min<std::ptrdiff_t>(end - begin, kFarExponent));
}

// The parts of an unsigned number; all empty if there is none.
struct NumberText
{
    char const* begin = nullptr;
    char const* point = nullptr; // the end of the digits before it
    char const* fraction = nullptr;
    char const* fractionEnd = nullptr;
    char const* exponent = nullptr; // its digits or its sign
    char const* end = nullptr;

    // Power of ten of the first digit that isn't 0, so far as it tells a huge number from a tiny one.
    [[nodiscard]] int Magnitude() const
    {
        int power = 0;
        if (exponent != nullptr)
        {
            bool const negative = *exponent == '-';
            auto const result = std::from_chars(exponent + (negative || *exponent == '+'), end, power);
            power = result.ec == std::errc() ? std::min(power, kFarExponent) : kFarExponent;
            power = negative ? -power : power;
        }
        char const* const first = std::find_if(begin, point, [](char c) { return c != '0'; });
        if (first != point)
        {
            return power + Count(first, point);
        }
        return power - Count(fraction, std::find_if(fraction, fractionEnd, [](char c) { return c != '0'; }));
    }
};

NumberText Split(char const* text)
{
    NumberText number;
    number.begin = text;
    number.point = SkipDigits(text);
    number.fraction = *number.point == '.' ? number.point + 1 : number.point;
    number.fractionEnd = *number.point == '.' ? SkipDigits(number.fraction) : number.fraction;
    number.end = number.fractionEnd;
    if (number.point == number.begin && number.fractionEnd == number.fraction)
    {
        return {};
    }
    if (*number.end == 'e' || *number.end == 'E')
    {
        char const* const exponent = number.end + 1;
        char const* const digits = exponent + (*exponent == '+' || *exponent == '-');
        if (IsDigit(*digits))
        {
            number.exponent = exponent;
            number.end = SkipDigits(digits);
        }
    }
    return number;
}

} // namespace

std::optional<double> ScanDouble(char const* text) noexcept
{
    if (text == nullptr)
    {
        return std::nullopt;
    }
    text = SkipBlanks(text);
    bool const negative = *text == '-';
    NumberText const number = Split(text + (negative || *text == '+'));
    if (number.end == nullptr)
    {
        return std::nullopt;
    }
    double value = 0.0;
    if (std::from_chars(number.begin, number.end, value).ec == std::errc::result_out_of_range)
    {
        value = number.Magnitude() > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return negative ? -value : value;
}

double ToDouble(char const* text) noexcept { return ScanDouble(text).value_or(0.0); }

int ToInt(char const* text) noexcept
{
    if (text == nullptr)
    {
        return 0;
    }
    text = SkipBlanks(text);
    bool const negative = *text == '-';
    char const* const digits = text + (negative || *text == '+');
    char const* const end = SkipDigits(digits);
    int value = 0;
    if (std::from_chars(negative ? text : digits, end, value).ec == std::errc::result_out_of_range)
    {
        value = negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return value;
}

} // namespace tavkit
