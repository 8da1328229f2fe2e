// PathText.h - takes file names apart; text only, the disk isn't asked
#pragma once

#include <string_view>

namespace host
{
/// The parts of a file name, as views into it; put together in this order they are the name again.
struct PathParts
{
    std::string_view folder;  ///< with its closing separator; "" without one
    std::string_view name;    ///< behind the folder
    std::string_view options; ///< from the "?" on; "" without one
};

[[nodiscard]] PathParts SplitPath(std::string_view path) noexcept;

/// What stands behind the last dot of a file name without folder; "" without a dot, and for "." and "..".
[[nodiscard]] std::string_view ExtensionOf(std::string_view name) noexcept;

/// True for the characters that end a folder: "\", "/" and the colon of a drive.
[[nodiscard]] constexpr bool EndsFolder(char c) noexcept { return c == '\\' || c == '/' || c == ':'; }
} // namespace host
