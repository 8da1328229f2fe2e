#include "workbench/ProjectStore.h"

#include "host/FileBytes.h"
#include "host/PathText.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/XMLNode.h"

#include <windows.h>

#include <algorithm>
#include <memory>

namespace workbench
{
namespace
{
constexpr ULONGLONG kMostBytes = 64ULL * 1024 * 1024; ///< far more than a project with paths of usual lengths takes
constexpr int kMostAttributes = 16; ///< of an element; the workbench writes fewer, and each is looked for by its name

/// The folder of a file, without a separator at the end save for a root's.
[[nodiscard]] std::string HomeOf(const std::string& path)
{
    std::string folder(host::SplitPath(path).folder);
    while (folder.size() > 3 && host::EndsFolder(folder.back()))
    {
        folder.pop_back();
    }
    return folder;
}

/// The parser allows no more than 255 levels.
[[nodiscard]] FileElement ElementOf(const XMLNode& node)
{
    FileElement element{node.GetName(), {}, {}};
    const int count = std::min(node.GetNumAttr(), kMostAttributes);
    for (int i = 0; i < count; ++i)
    {
        const DString name = node.GetAttrName(i);
        element.attributes.emplace_back(name.c_str(), node.GetAttrStr(name.c_str()).c_str());
    }
    for (const XMLNode* child = node.m_pFrstChld; child; child = child->m_pNext)
    {
        element.children.push_back(ElementOf(*child));
    }
    return element;
}

[[nodiscard]] std::unique_ptr<XMLNode> NodeOf(const FileElement& element)
{
    auto node = std::make_unique<XMLNode>(element.name.c_str());
    for (const auto& [name, value] : element.attributes)
    {
        node->AddAttr(name.c_str(), value.c_str());
    }
    for (const FileElement& child : element.children)
    {
        node->AddChld(NodeOf(child).release());
    }
    return node;
}

/// @return a problem, as a sentence; empty on success
[[nodiscard]] std::string LoadElement(const std::string& path, FileElement& result)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(host::WidePath(path).c_str(), GetFileExInfoStandard, &data))
    {
        return "It isn't there.";
    }
    if ((ULONGLONG{data.nFileSizeHigh} << 32 | data.nFileSizeLow) > kMostBytes)
    {
        return "It is far too large.";
    }
    XMLNode root(nullptr);
    if (!root.Load(DFile(path.c_str()), nullptr))
    {
        return "It can't be read, or it isn't well-formed XML.";
    }
    result = ElementOf(root);
    return {};
}
} // namespace

std::string LoadProject(const std::string& path, ProjectContent& result)
{
    FileElement root;
    const std::string problem = LoadElement(path, root);
    return problem.empty() ? ReadProject(root, HomeOf(path), result) : problem;
}

std::string LoadWorkspace(const std::string& path, WorkspaceContent& result)
{
    FileElement root;
    const std::string problem = LoadElement(path, root);
    return problem.empty() ? ReadWorkspace(root, HomeOf(path), result) : problem;
}

bool SaveProject(const std::string& path, const ProjectContent& project)
{
    return NodeOf(WriteProject(project, HomeOf(path)))->Save(DFile(path.c_str()));
}

bool SaveWorkspace(const std::string& path, const WorkspaceContent& workspace)
{
    return NodeOf(WriteWorkspace(workspace, HomeOf(path)))->Save(DFile(path.c_str()));
}
} // namespace workbench
