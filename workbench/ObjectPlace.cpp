#include "workbench/ObjectPlace.h"

#include "tavkit/lists/ScanDouble.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace workbench
{
namespace
{
[[nodiscard]] bool EqualsIgnoringCase(std::string_view text, std::string_view lower) noexcept
{
    constexpr auto toLower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(text, lower, {}, toLower);
}

[[nodiscard]] std::string NumberText(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}
} // namespace

ObjectColumns FindObjectColumns(const std::vector<std::string>& names)
{
    const auto find = [&](std::string_view wanted) {
        const auto found =
            std::ranges::find_if(names, [&](const std::string& name) { return EqualsIgnoringCase(name, wanted); });
        return found == names.end() ? -1 : static_cast<int>(found - names.begin());
    };
    return {find("x"), find("y"), find("class")};
}

std::optional<ObjectPlace> ParsePlace(const char* x, const char* y)
{
    const auto left = tavkit::ScanDouble(x);
    const auto top = tavkit::ScanDouble(y);
    return left && top ? std::optional(ObjectPlace{*left, *top}) : std::nullopt;
}

std::optional<POINT> PointOfPlace(const ObjectPlace& place, SIZE picture, const RECT& shown)
{
    constexpr double kHalf = 0.5; // from the middle of a pixel to its corner
    const double across = (place.x + kHalf) / picture.cx;
    const double down = (place.y + kHalf) / picture.cy;
    if (!(across >= 0 && across <= 1 && down >= 0 && down <= 1)) // also for what is no number
    {
        return std::nullopt;
    }
    return POINT{shown.left + static_cast<LONG>(std::floor(across * (shown.right - shown.left))),
                 shown.top + static_cast<LONG>(std::floor(down * (shown.bottom - shown.top)))};
}

std::string PlaceText(const ObjectPlace& place) { return NumberText(place.x) + ", " + NumberText(place.y); }

void ClassNames::Note(std::string_view name)
{
    if (m_names.size() < kMost && m_names.find(name) == m_names.end())
    {
        m_names.emplace(name);
    }
}
} // namespace workbench
