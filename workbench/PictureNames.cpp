#include "workbench/PictureNames.h"

#include <algorithm>
#include <array>
#include <ranges>

namespace workbench
{
namespace
{
constexpr std::array<std::string_view, 7> kExtensions{"tif", "tiff", "png", "jpg", "jpeg", "bmp", "gif"};

/// ASCII only, so that the order of a list doesn't depend on the user's language.
char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool LessWithoutCase(std::string_view a, std::string_view b)
{
    return std::ranges::lexicographical_compare(
        a, b, {}, [](char c) { return static_cast<unsigned char>(LowerCase(c)); },
        [](char c) { return static_cast<unsigned char>(LowerCase(c)); });
}

bool SameWithoutCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, LowerCase, LowerCase);
}
} // namespace

bool IsPictureName(std::string_view name)
{
    const size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
    {
        return false; // a name that is nothing but an extension is a hidden file
    }
    const auto extension = name.substr(dot + 1);
    return std::ranges::any_of(kExtensions, [&](std::string_view known) { return SameWithoutCase(known, extension); });
}

void SortNames(std::vector<std::string>& names)
{
    std::ranges::sort(names, [](const std::string& a, const std::string& b) {
        return SameWithoutCase(a, b) ? a < b : LessWithoutCase(a, b);
    });
}

int IndexOfName(const std::vector<std::string>& names, std::string_view name)
{
    const auto found = std::ranges::find_if(names, [&](const auto& other) { return SameWithoutCase(other, name); });
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

std::string PictureFilter()
{
    std::string pattern;
    for (const auto extension : kExtensions)
    {
        pattern += pattern.empty() ? "*." : ";*.";
        pattern += extension;
    }
    std::string filter = "Pictures (" + pattern + ")";
    filter += '\0';
    filter += pattern;
    filter += '\0';
    filter += "All files (*.*)";
    filter += '\0';
    filter += "*.*";
    filter += '\0';
    filter += '\0';
    return filter;
}
} // namespace workbench
