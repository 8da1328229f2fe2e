#include "workbench/PictureNames.h"

#include "host/repository/NodeNames.h"

#include <algorithm>

namespace workbench
{
namespace
{
std::string_view WithoutExtension(std::string_view name) { return name.substr(0, name.rfind('.')); }

/// "*.tif;*.tiff" and so on.
std::string PicturePatterns()
{
    std::string patterns;
    for (const auto extension : repository::PictureExtensions())
    {
        patterns += patterns.empty() ? "*." : ";*.";
        patterns += extension;
    }
    return patterns;
}
} // namespace

bool IsPictureName(std::string_view name) { return repository::KindOfFile(name) == bdiRaster; }

bool IsTableName(std::string_view name) { return repository::KindOfFile(name) == bdiTable; }

void SortNames(std::vector<std::string>& names) { std::ranges::sort(names, repository::NameComesBefore); }

int IndexOfName(const std::vector<std::string>& names, std::string_view name)
{
    const auto found =
        std::ranges::find_if(names, [&](const auto& other) { return repository::SameName(other, name); });
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
        if (stem.size() > longest && repository::SameName(whole.substr(0, stem.size()), stem))
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
    return IsPictureName(name) ? "" : "A picture's name ends with one of " + PicturePatterns() + ".";
}
} // namespace workbench
