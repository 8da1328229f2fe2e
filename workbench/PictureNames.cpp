#include "workbench/PictureNames.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <span>

namespace workbench
{
namespace
{
constexpr std::array<std::string_view, 7> kPictures{"tif", "tiff", "png", "jpg", "jpeg", "bmp", "gif"};
constexpr std::array<std::string_view, 6> kTables{"csv", "tcsv", "txt", "tsv", "tab", "dbf"};

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
/// False for a name that is nothing but an extension: a hidden file.
bool HasExtension(std::string_view name, std::span<const std::string_view> extensions)
{
    const size_t dot = name.rfind('.');
    return dot != std::string_view::npos && dot != 0 && std::ranges::any_of(extensions, [&](std::string_view known) {
               return SameWithoutCase(known, name.substr(dot + 1));
           });
}

std::string_view WithoutExtension(std::string_view name) { return name.substr(0, name.rfind('.')); }

std::string Patterns(std::span<const std::string_view> extensions)
{
    std::string patterns;
    for (const auto extension : extensions)
    {
        patterns += patterns.empty() ? "*." : ";*.";
        patterns += extension;
    }
    return patterns;
}

std::string Filter(std::string_view kind, std::span<const std::string_view> extensions)
{
    const std::string patterns = Patterns(extensions);
    std::string filter(kind);
    filter += " (" + patterns + ")";
    filter += '\0';
    filter += patterns;
    filter += '\0';
    filter += "All files (*.*)";
    filter += '\0';
    filter += "*.*";
    filter += '\0';
    filter += '\0';
    return filter;
}
} // namespace

bool IsPictureName(std::string_view name) { return HasExtension(name, kPictures); }

bool IsTableName(std::string_view name) { return HasExtension(name, kTables); }

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

int PictureOfTable(const std::vector<std::string>& pictures, std::string_view table)
{
    const std::string_view whole = WithoutExtension(table);
    int best = -1;
    size_t longest = 0;
    for (size_t i = 0; i < pictures.size(); ++i)
    {
        const std::string_view stem = WithoutExtension(pictures[i]);
        if (stem.size() > longest && SameWithoutCase(whole.substr(0, stem.size()), stem))
        {
            best = static_cast<int>(i);
            longest = stem.size();
        }
    }
    return best;
}

std::string NameProblem(std::string_view name)
{
    constexpr std::string_view kForbidden = "\\/:*?\"<>|";
    const auto isForbidden = [&](char c) {
        return static_cast<unsigned char>(c) < ' ' || kForbidden.find(c) != std::string_view::npos;
    };
    if (std::ranges::any_of(name, isForbidden))
    {
        return "The name of a file can't hold any of \\/:*?\"<>|.";
    }
    return IsPictureName(name) ? "" : "A picture's name ends with one of " + Patterns(kPictures) + ".";
}

std::string PictureFilter() { return Filter("Pictures", kPictures); }

std::string TableFilter() { return Filter("Tables", kTables); }
} // namespace workbench
