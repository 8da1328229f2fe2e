// PathText.cpp
#include "host/PathText.h"

namespace host
{
namespace
{
/// Introduces a path that the system takes as it is; its question mark begins no options.
constexpr std::string_view kVerbatimPrefix = "\\\\?\\";
constexpr std::size_t kDriveColon = 1; ///< place of the colon of "C:"
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
} // namespace host
