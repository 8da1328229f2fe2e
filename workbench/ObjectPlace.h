// ObjectPlace.h - where the objects of a table lie in a picture, and of which class they are
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace workbench
{
/// Columns of a table that tell of objects, counted from 0; -1 for one that isn't there.
struct ObjectColumns
{
    int x = -1;
    int y = -1;
    int category = -1;

    [[nodiscard]] bool HavePlace() const noexcept { return x >= 0 && y >= 0; }
    bool operator==(const ObjectColumns&) const = default;
};

/// Finds the columns "X", "Y" and "Class" by their names, without regard to case; the first of several counts.
[[nodiscard]] ObjectColumns FindObjectColumns(const std::vector<std::string>& names);

/// A place in a picture, in its own pixels: whole numbers are the middles of pixels, (0, 0) that of the first.
struct ObjectPlace
{
    double x = 0;
    double y = 0;

    bool operator==(const ObjectPlace&) const = default;
};

/// The place that two cells tell; none unless both begin with a number.
[[nodiscard]] std::optional<ObjectPlace> ParsePlace(const char* x, const char* y);

/// Where a place is on the screen.
/// @param picture  size in its own pixels
/// @param shown    what the picture covers
/// @return none for a place outside the picture, and for an empty picture.
[[nodiscard]] std::optional<POINT> PointOfPlace(const ObjectPlace& place, SIZE picture, const RECT& shown);

/// "305.5, 0.5": as few digits as tell the place.
[[nodiscard]] std::string PlaceText(const ObjectPlace& place);

/// The classes that objects were seen to have, in the order of their names.
class ClassNames
{
public:
    /// A column with more different texts is none of classes; further ones are left out.
    static constexpr std::size_t kMost = 200;

    void Note(std::string_view name);
    void Clear() noexcept { m_names.clear(); }
    [[nodiscard]] const std::set<std::string, std::less<>>& All() const noexcept { return m_names; }

private:
    std::set<std::string, std::less<>> m_names;
};
} // namespace workbench
