// NodeNames.cpp
#include "host/repository/NodeNames.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "host/tables/TableFormat.h"

namespace repository
{
namespace
{
constexpr std::array<std::string_view, 7> kPictureExtensions{"tif", "tiff", "png", "jpg", "jpeg", "bmp", "gif"};
constexpr std::array<std::string_view, 1> kVectorExtensions{"shp"};

constexpr std::string_view kPageOption = "page=";
[[nodiscard]] constexpr unsigned char Folded(char c) noexcept
{
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

[[nodiscard]] bool IsOneOf(std::span<const std::string_view> known, std::string_view extension) noexcept
{
    return std::ranges::any_of(known, [&](std::string_view each) { return SameName(each, extension); });
}

} // namespace

std::span<const std::string_view> PictureExtensions() noexcept { return kPictureExtensions; }

unsigned int KindOfFile(std::string_view name) noexcept
{
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
    {
        return 0;
    }
    const std::string_view extension = name.substr(dot + 1);
    return IsOneOf(kPictureExtensions, extension)  ? bdiRaster
           : table::FormatOfExtension(extension)   ? bdiTable
           : IsOneOf(kVectorExtensions, extension) ? bdiVector
                                                   : 0u;
}

bool NameComesBefore(std::string_view a, std::string_view b) noexcept
{
    const auto [inA, inB] = std::ranges::mismatch(a, b, {}, Folded, Folded);
    if (inA != a.end() && inB != b.end())
    {
        return Folded(*inA) < Folded(*inB);
    }
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

bool SameName(std::string_view a, std::string_view b) noexcept { return std::ranges::equal(a, b, {}, Folded, Folded); }

bool NameHolds(std::string_view name, std::string_view text) noexcept
{
    const auto same = [](char a, char b) { return Folded(a) == Folded(b); };
    return text.empty() || std::search(name.begin(), name.end(), text.begin(), text.end(), same) != name.end();
}

bool ComesBefore(const NodeRecord& a, const NodeRecord& b) noexcept
{
    const bool isContainerA = (a.kind & bdiContainer) != 0;
    const bool isContainerB = (b.kind & bdiContainer) != 0;
    return isContainerA != isContainerB ? isContainerA : NameComesBefore(a.display, b.display);
}

std::string PageId(std::string_view file, unsigned int page)
{
    return std::string(file).append("?").append(kPageOption).append(std::to_string(page));
}

PageOption FindPage(std::string_view options) noexcept
{
    constexpr std::string_view kOptionEnds = "?&";
    PageOption result;
    for (std::size_t at = 0; at < options.size();)
    {
        const std::size_t end = std::min(options.find_first_of(kOptionEnds, at), options.size());
        const std::string_view option = options.substr(at, end - at);
        at = end + 1;
        if (!option.starts_with(kPageOption))
        {
            continue;
        }
        const std::string_view number = option.substr(kPageOption.size());
        unsigned int page = 0;
        const auto [stop, error] = std::from_chars(number.data(), number.data() + number.size(), page);
        if (error != std::errc() || stop != number.data() + number.size() || (result.page && *result.page != page))
        {
            return {std::nullopt, false};
        }
        result.page = page;
    }
    return result;
}
} // namespace repository
