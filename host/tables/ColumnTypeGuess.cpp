// ColumnTypeGuess.cpp
#include "host/tables/ColumnTypeGuess.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace table
{
namespace
{

[[nodiscard]] constexpr bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }
[[nodiscard]] constexpr char Lower(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] bool EqualsIgnoringCase(std::string_view text, std::string_view lower) noexcept
{
    return std::ranges::equal(text, lower, {}, Lower);
}

[[nodiscard]] std::string_view Trim(std::string_view text) noexcept
{
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

void SkipSign(std::string_view& text) noexcept
{
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
    {
        text.remove_prefix(1);
    }
}

/// @return how many digits there were.
std::size_t SkipDigits(std::string_view& text) noexcept
{
    const auto count = static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
    text.remove_prefix(count);
    return count;
}

/// Digits, perhaps with a sign, a point and an exponent; words like "nan" and "0x1F" are no numbers here.
[[nodiscard]] bool IsNumber(std::string_view text) noexcept
{
    SkipSign(text);
    std::size_t digits = SkipDigits(text);
    if (text.starts_with('.'))
    {
        text.remove_prefix(1);
        digits += SkipDigits(text);
    }
    if (digits > 0 && !text.empty() && Lower(text.front()) == 'e')
    {
        text.remove_prefix(1);
        SkipSign(text);
        digits = SkipDigits(text);
    }
    return digits > 0 && text.empty();
}

[[nodiscard]] bool IsInt(std::string_view text) noexcept
{
    if (text.starts_with('+') && text.size() > 1 && IsDigit(text[1]))
    {
        text.remove_prefix(1);
    }
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

void ColumnTypeGuess::Add(std::string_view cell) noexcept
{
    const std::string_view text = Trim(cell);
    if (text.empty() || text == "---" || EqualsIgnoringCase(text, "undefined"))
    {
        return;
    }
    m_type = std::max(m_type, IsInt(text) ? adiInt : IsNumber(text) ? adiDouble : adiString);
}

} // namespace table
