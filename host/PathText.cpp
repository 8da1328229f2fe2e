// PathText.cpp
#include "host/PathText.h"

#include <algorithm>

namespace host
{
namespace
{
/// Introduces a path that the system takes as it is; its question mark begins no options.
constexpr std::string_view kVerbatimPrefix = "\\\\?\\";
constexpr std::size_t kDriveColon = 1; ///< place of the colon of "C:"
constexpr std::string_view kVerbatimShare = "UNC\\";
constexpr std::string_view kShareMark = "\\\\";
constexpr std::string_view kSeparators = "\\/";
/// The system's plain form ends at 260 characters, for a folder with room for a short name in it.
constexpr std::size_t kMostPlainPath = 247;
constexpr std::size_t kDriveRoot = 3; ///< characters of "C:\"

[[nodiscard]] constexpr bool IsSeparator(char c) noexcept { return c == '\\' || c == '/'; }

/// ASCII letters without their case, both separators as one.
[[nodiscard]] constexpr unsigned char FoldedPath(char c) noexcept
{
    return static_cast<unsigned char>(c == '/' ? '\\' : c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

[[nodiscard]] bool StartsWithDrive(std::string_view path) noexcept
{
    return path.size() >= kDriveRoot && path[kDriveColon] == ':' && IsSeparator(path[kDriveColon + 1]);
}

/// Where the next part of a path behind @p from ends.
[[nodiscard]] std::size_t EndOfPart(std::string_view path, std::size_t from) noexcept
{
    return std::min(path.find_first_of(kSeparators, from), path.size());
}

/// Length of what can't be climbed out of: a drive or a share, with its separator and the prefix of long paths.
[[nodiscard]] std::size_t RootLength(std::string_view path) noexcept
{
    std::size_t start = 0;
    bool share = false;
    if (path.starts_with(kVerbatimPrefix))
    {
        start = kVerbatimPrefix.size();
        share = path.substr(start).starts_with(kVerbatimShare);
        start += share ? kVerbatimShare.size() : 0;
    }
    else if (path.size() > kShareMark.size() && IsSeparator(path[0]) && IsSeparator(path[1]))
    {
        start = kShareMark.size();
        share = true;
    }
    if (share)
    {
        const std::size_t server = EndOfPart(path, start);
        const std::size_t end = server < path.size() ? EndOfPart(path, server + 1) : server;
        return std::min(end + 1, path.size());
    }
    const std::string_view rest = path.substr(start);
    if (StartsWithDrive(rest))
    {
        return start + kDriveRoot;
    }
    return start + (!rest.empty() && IsSeparator(rest[0]) ? 1 : 0);
}

/// True if a part of the path is "." or "..".
[[nodiscard]] bool HasDots(std::string_view path) noexcept
{
    for (std::size_t at = 0; at <= path.size();)
    {
        const std::size_t end = EndOfPart(path, at);
        const std::string_view part = path.substr(at, end - at);
        if (part == "." || part == "..")
        {
            return true;
        }
        at = end + 1;
    }
    return false;
}

[[nodiscard]] std::string_view WithoutSeparatorAtEnd(std::string_view path) noexcept
{
    const std::size_t root = RootLength(path);
    while (path.size() > root && IsSeparator(path.back()))
    {
        path.remove_suffix(1);
    }
    return path;
}
} // namespace

PathParts SplitPath(std::string_view path) noexcept
{
    const std::size_t searchFrom = path.starts_with(kVerbatimPrefix) ? kVerbatimPrefix.size() : 0;
    const std::size_t question = path.find('?', searchFrom);
    const std::string_view physical = path.substr(0, question);

    std::size_t nameStart = physical.find_last_of("\\/");
    nameStart = nameStart == std::string_view::npos ? 0 : nameStart + 1;
    if (nameStart == 0 && physical.size() > kDriveColon && physical[kDriveColon] == ':')
    {
        nameStart = kDriveColon + 1; // "C:name" lies in the drive's own current folder
    }
    return {physical.substr(0, nameStart), physical.substr(nameStart), path.substr(physical.size())};
}

std::string_view ExtensionOf(std::string_view name) noexcept
{
    if (name == "." || name == "..")
    {
        return {};
    }
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

std::string JoinPath(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    if (!path.empty() && !EndsFolder(path.back()))
    {
        path += '\\';
    }
    return path += name;
}

std::string PathForSystem(std::string_view path)
{
    std::string result(path);
    if (path.size() <= kMostPlainPath || path.starts_with(kVerbatimPrefix) || HasDots(path))
    {
        return result;
    }
    const bool share = IsSeparator(path[0]) && IsSeparator(path[1]);
    if (!share && !StartsWithDrive(path))
    {
        return result;
    }
    std::ranges::replace(result, '/', '\\'); // behind the prefix nothing is translated any more
    return share ? std::string(kVerbatimPrefix).append(kVerbatimShare).append(result, kShareMark.size())
                 : std::string(kVerbatimPrefix) + result;
}

std::vector<std::string> FoldersAlong(std::string_view path)
{
    std::vector<std::string> folders;
    path = WithoutSeparatorAtEnd(path);
    const std::size_t root = RootLength(path);
    if (root > 0)
    {
        folders.emplace_back(path.substr(0, root));
    }
    for (std::size_t at = root; at < path.size();)
    {
        const std::size_t end = EndOfPart(path, at);
        if (end > at)
        {
            folders.emplace_back(path.substr(0, end));
        }
        at = end + 1;
    }
    return folders;
}

bool LiesWithin(std::string_view root, std::string_view path) noexcept
{
    root = WithoutSeparatorAtEnd(root);
    path = WithoutSeparatorAtEnd(path);
    if (path.size() < root.size() || !std::ranges::equal(root, path.substr(0, root.size()), {}, FoldedPath, FoldedPath))
    {
        return false;
    }
    const std::string_view rest = path.substr(root.size());
    return rest.empty() || ((IsSeparator(rest[0]) || root.empty() || EndsFolder(root.back())) && !HasDots(rest));
}

std::string DisplayName(std::string_view path)
{
    path = WithoutSeparatorAtEnd(path);
    const PathParts parts = SplitPath(path);
    return std::string(parts.name.empty() ? path : parts.name);
}
} // namespace host
