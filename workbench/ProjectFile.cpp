#include "workbench/ProjectFile.h"

#include "host/PathText.h"
#include "host/repository/NodeNames.h"
#include "tavkit/frame/services/BDIDrvr.h"

#include <algorithm>
#include <array>

namespace workbench
{
namespace
{
constexpr char kWorkspace[] = "Workspace";
constexpr char kProject[] = "Project";
constexpr char kFolder[] = "folder";
constexpr char kPath[] = "path";
constexpr char kPicture[] = "picture";
constexpr char kTable[] = "table";
constexpr char kPixelSize[] = "pixelSize";
constexpr char kScaleBar[] = "scaleBar";
constexpr char kNo[] = "false";
constexpr std::size_t kMostPixelSize = 100; ///< characters, far more than the field takes

/// The element of each kind of what is imported.
struct NamedKind
{
    const char* name;
    unsigned int kind;
};
constexpr std::array<NamedKind, 3> kKinds{{{"Picture", bdiRaster}, {"Table", bdiTable}, {"Vector", bdiVector}}};

/// "" for an attribute that isn't there.
[[nodiscard]] std::string Attribute(const FileElement& element, std::string_view name)
{
    const auto found = std::find_if(element.attributes.begin(), element.attributes.end(),
                                    [&](const auto& attribute) { return attribute.first == name; });
    return found == element.attributes.end() ? std::string() : found->second;
}

/// False for what no path is, whatever the disk holds.
[[nodiscard]] bool MayBePath(std::string_view path)
{
    return path.size() <= kMostPath &&
           std::none_of(path.begin(), path.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

[[nodiscard]] bool IsAbsolute(std::string_view path)
{
    return (!path.empty() && (path[0] == '\\' || path[0] == '/')) || (path.size() > 1 && path[1] == ':');
}

[[nodiscard]] std::string Absolute(std::string_view home, std::string_view path)
{
    return path.empty() || IsAbsolute(path) ? std::string(path)
           : path == "."                    ? std::string(home)
                                            : host::JoinPath(home, path);
}

[[nodiscard]] std::string Relative(std::string_view home, std::string_view path)
{
    const std::string base = host::JoinPath(home, {});
    if (repository::SameName(path, home) || repository::SameName(path, base))
    {
        return ".";
    }
    const bool isWithin = path.size() > base.size() && repository::SameName(path.substr(0, base.size()), base);
    return std::string(isWithin ? path.substr(base.size()) : path);
}

[[nodiscard]] const NamedKind* KindOf(std::string_view name)
{
    const auto* const found =
        std::find_if(kKinds.begin(), kKinds.end(), [&](const NamedKind& kind) { return kind.name == name; });
    return found == kKinds.end() ? nullptr : found;
}
} // namespace

std::string ReadProject(const FileElement& root, std::string_view home, ProjectContent& result)
{
    if (root.name != kProject)
    {
        return "It isn't a project.";
    }
    ProjectContent project;
    const std::string folder = Attribute(root, kFolder);
    if (folder.empty() || !MayBePath(folder))
    {
        return "It doesn't say which folder the project is over.";
    }
    project.folder = Absolute(home, folder);
    for (const FileElement& element : root.children)
    {
        const NamedKind* const kind = KindOf(element.name);
        if (!kind)
        {
            continue;
        }
        const std::string path = Attribute(element, kPath);
        if (path.empty() || !MayBePath(path))
        {
            return "Something in it has no path that could be one.";
        }
        if (project.imported.size() == kMostImported)
        {
            return "It holds more than " + std::to_string(kMostImported) + " layers and tables.";
        }
        const std::string moniker = Absolute(home, path);
        project.imported.push_back({kind->kind, moniker, ImportedLabel(moniker)});
    }
    result = std::move(project);
    return {};
}

std::string ReadWorkspace(const FileElement& root, std::string_view home, WorkspaceContent& result)
{
    if (root.name != kWorkspace)
    {
        return "It isn't a workspace.";
    }
    const auto project = std::find_if(root.children.begin(), root.children.end(),
                                      [](const FileElement& child) { return child.name == kProject; });
    if (project == root.children.end())
    {
        return "There is no project in it.";
    }
    WorkspaceContent workspace;
    if (std::string problem = ReadProject(*project, home, workspace.project); !problem.empty())
    {
        return problem;
    }
    workspace.picture = Attribute(root, kPicture);
    workspace.table = Attribute(root, kTable);
    workspace.pixelSize = Attribute(root, kPixelSize);
    if (!MayBePath(workspace.picture) || !MayBePath(workspace.table) || workspace.pixelSize.size() > kMostPixelSize ||
        !MayBePath(workspace.pixelSize))
    {
        return "What it says of the picture and the table that are shown makes no sense.";
    }
    workspace.picture = Absolute(home, workspace.picture);
    workspace.table = Absolute(home, workspace.table);
    workspace.scaleBar = Attribute(root, kScaleBar) != kNo;
    result = std::move(workspace);
    return {};
}

FileElement WriteProject(const ProjectContent& project, std::string_view home)
{
    FileElement root{kProject, {{kFolder, Relative(home, project.folder)}}, {}};
    for (const repository::NodeRecord& imported : project.imported)
    {
        const auto* const kind = std::find_if(kKinds.begin(), kKinds.end(),
                                              [&](const NamedKind& each) { return (each.kind & imported.kind) != 0; });
        if (kind != kKinds.end())
        {
            root.children.push_back({kind->name, {{kPath, Relative(home, imported.id)}}, {}});
        }
    }
    return root;
}

FileElement WriteWorkspace(const WorkspaceContent& workspace, std::string_view home)
{
    return {kWorkspace,
            {{kPicture, Relative(home, workspace.picture)},
             {kTable, Relative(home, workspace.table)},
             {kPixelSize, workspace.pixelSize},
             {kScaleBar, workspace.scaleBar ? "true" : kNo}},
            {WriteProject(workspace.project, home)}};
}

std::string ImportedLabel(std::string_view moniker)
{
    const host::PathParts parts = host::SplitPath(moniker);
    std::string label(parts.name);
    if (parts.options.size() > 1)
    {
        label += ", ";
        label += parts.options.substr(1);
    }
    return label;
}
} // namespace workbench
