// PathText.h - takes file names apart; text only, the disk isn't asked
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tavkit/frame/services/HostApi.h"

namespace host
{
/// The parts of a file name, as views into it; put together in this order they are the name again.
struct PathParts
{
    std::string_view folder;  ///< with its closing separator; "" without one
    std::string_view name;    ///< behind the folder
    std::string_view options; ///< from the "?" on; "" without one
};

[[nodiscard]] TAVHOST_API PathParts SplitPath(std::string_view path) noexcept;

/// What stands behind the last dot of a file name without folder; "" without a dot, and for "." and "..".
[[nodiscard]] TAVHOST_API std::string_view ExtensionOf(std::string_view name) noexcept;

/// True for the characters that end a folder: "\", "/" and the colon of a drive.
[[nodiscard]] constexpr bool EndsFolder(char c) noexcept { return c == '\\' || c == '/' || c == ':'; }
/// The path of a name in a folder; a separator is supplied where the folder ends without one.
[[nodiscard]] TAVHOST_API std::string JoinPath(std::string_view folder, std::string_view name);

/// The path that names the same place to the system whatever its length: one that is too long for the plain form gets
/// the prefix that switches the limit off, if it is absolute and has no "." or ".." in it.
[[nodiscard]] std::string PathForSystem(std::string_view path);

/// The folders that a path leads through, outermost first, the path itself last. Drives and shares are no folders of
/// their own: "C:\a\b" gives "C:\", "C:\a" and "C:\a\b". A separator at the end is left out, save for a root's.
[[nodiscard]] std::vector<std::string> FoldersAlong(std::string_view path);

/// True if @p path is @p root or lies below it, going by the text. A path that climbs by ".." behind the root lies
/// nowhere.
[[nodiscard]] bool LiesWithin(std::string_view root, std::string_view path) noexcept;

/// The name that a user reads for a folder or file: the last part of its path; a root as a whole.
[[nodiscard]] TAVHOST_API std::string DisplayName(std::string_view path);
} // namespace host
