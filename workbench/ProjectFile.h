// ProjectFile.h - what a project and a workspace are in a file: a tree of elements with attributes, however it is
// stored
#pragma once

#include "host/repository/Repository.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench
{
/// An element of a file.
struct FileElement
{
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<FileElement> children;

    bool operator==(const FileElement&) const = default;
};

/// A folder, and what was imported beside what lies in it.
struct ProjectContent
{
    std::string folder;                           ///< absolute
    std::vector<repository::NodeRecord> imported; ///< one bit of BDINodeKind each; monikers with absolute paths

    bool operator==(const ProjectContent&) const = default;
};

/// A project, and how it is looked at. Empty texts stand for nothing shown.
struct WorkspaceContent
{
    ProjectContent project;
    std::string picture;   ///< moniker of the one that is shown
    std::string table;     ///< path of the one that is shown
    std::string pixelSize; ///< as the user typed it
    bool scaleBar = true;

    bool operator==(const WorkspaceContent&) const = default;
};

inline constexpr std::size_t kMostImported = 10'000; ///< a file that names more isn't one of the workbench's
inline constexpr std::size_t kMostPath = 32'767;     ///< characters of a path

// Reading: @p home is the folder of the file, from which relative paths go. Elements and attributes that aren't known
// are passed over, so that files of later versions can be read.
// @return why it can't be read, as a sentence; the result is as it was then. Empty on success.

[[nodiscard]] std::string ReadProject(const FileElement& root, std::string_view home, ProjectContent& result);
[[nodiscard]] std::string ReadWorkspace(const FileElement& root, std::string_view home, WorkspaceContent& result);

// Writing: what lies in @p home or below it gets a relative path, so that the folder can be moved as a whole.

[[nodiscard]] FileElement WriteProject(const ProjectContent& project, std::string_view home);
[[nodiscard]] FileElement WriteWorkspace(const WorkspaceContent& workspace, std::string_view home);

/// What the user reads for something imported: the name of its file, and the options behind it if there are any.
[[nodiscard]] std::string ImportedLabel(std::string_view moniker);
} // namespace workbench
