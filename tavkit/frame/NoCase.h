// NoCase.h - texts without regard to the case of their letters
#pragma once

namespace tavkit
{

/// A byte as it is compared: a capital letter of seven bits as its small one, all others by their value. A run-time's
/// own comparison goes by signed bytes on one platform and by a locale on another.
[[nodiscard]] constexpr int FoldedByte(char c) noexcept
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : int{byte};
}

/// @return below 0, 0 or above 0, as @p left stands before, with or behind @p right
[[nodiscard]] constexpr int CompareNoCase(char const* left, char const* right) noexcept
{
    for (;; ++left, ++right)
    {
        const int order = FoldedByte(*left) - FoldedByte(*right);
        if (order != 0 || *left == '\0')
        {
            return order;
        }
    }
}

/// True if @p text begins with @p start.
[[nodiscard]] constexpr bool StartsWithNoCase(char const* text, char const* start) noexcept
{
    while (*start != '\0' && FoldedByte(*text) == FoldedByte(*start))
    {
        ++text;
        ++start;
    }
    return *start == '\0';
}

} // namespace tavkit
