#include "workbench/ProjectSource.h"

#include "host/FileBytes.h"
#include "host/PathText.h"
#include "host/repository/NodeNames.h"
#include "host/repository/StandardDrivers.h"
#include "tavkit/frame/services/BDIDrvrMngr.h"

namespace workbench
{
namespace
{
constexpr int kAllKinds = bdiContainer | bdiRaster | bdiVector | bdiTable | bdiOther;

[[nodiscard]] repository::NodeRecord RecordOf(const BDINode& node)
{
    return {node.m_nKind, node.m_strId.c_str(), node.m_strDisplay.c_str()};
}

[[nodiscard]] std::vector<repository::NodeRecord> ChildrenOf(BDIDrvr& driver, const BDINode* node)
{
    std::vector<repository::NodeRecord> children;
    void* find = driver.FindFirstChildNode(node, kAllKinds);
    while (BDINode* const child = driver.FindNextChildNode(find))
    {
        children.push_back(RecordOf(*child));
        driver.CloseNode(child);
    }
    driver.FindClose(find);
    return children;
}

/// False for a folder that the system keeps from us; one that is empty has entries all the same.
[[nodiscard]] bool CanBeListed(const std::string& folder)
{
    WIN32_FIND_DATAW entry;
    const HANDLE find = ::FindFirstFileW(host::WidePath(host::JoinPath(folder, "*")).c_str(), &entry);
    return find != INVALID_HANDLE_VALUE && ::FindClose(find);
}

/// A file of pages, open as long as the object lives.
class PageFile
{
public:
    explicit PageFile(const std::string& path)
        : m_driver(BDIDrvrMngr::Instance()->GetDrvr(repository::kPagesDriver)),
          m_repository(m_driver ? m_driver->OpenRepository(path.c_str(), &m_root) : nullptr)
    {
    }
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;
    ~PageFile()
    {
        if (m_repository)
        {
            m_driver->CloseNode(m_root);
            m_driver->CloseRepository(m_repository);
        }
    }

    [[nodiscard]] bool HasPages() const { return m_repository && (m_root->m_nKind & bdiContainer) != 0; }
    [[nodiscard]] std::vector<repository::NodeRecord> Pages() const
    {
        return HasPages() ? ChildrenOf(*m_driver, m_root) : std::vector<repository::NodeRecord>();
    }

private:
    BDINode* m_root = nullptr; // first: the repository's opening sets it
    BDIDrvr* m_driver;
    void* m_repository;
};
} // namespace

ProjectSource::~ProjectSource() { Close(); }

std::optional<repository::NodeRecord> ProjectSource::Open(const std::string& path)
{
    Close();
    BDIDrvr* const driver = BDIDrvrMngr::Instance()->GetDrvr(repository::kFolderDriver);
    BDINode* root = nullptr;
    void* const opened = driver ? driver->OpenRepository(path.c_str(), &root) : nullptr;
    if (!opened)
    {
        return std::nullopt;
    }
    m_folders = driver;
    m_repository = opened;
    auto record = RecordOf(*root);
    driver->CloseNode(root);
    return record;
}

void ProjectSource::Close()
{
    if (m_repository)
    {
        m_folders->CloseRepository(m_repository);
        m_repository = nullptr;
    }
}

ReadResult ProjectSource::Read(const ProjectItem& item) const
{
    if (MayHavePages(item))
    {
        return {ReadEnd::read, PageFile(item.moniker).Pages()};
    }
    BDINode* const node = m_repository ? m_folders->OpenNode(m_repository, item.moniker.c_str()) : nullptr;
    if (!node)
    {
        return {ReadEnd::gone, {}};
    }
    ReadResult result{ReadEnd::read, ChildrenOf(*m_folders, node)};
    if (result.children.empty() && (node->m_nKind & bdiContainer) != 0 && !CanBeListed(item.moniker))
    {
        result.end = ReadEnd::refused;
    }
    m_folders->CloseNode(node);
    return result;
}

bool ProjectSource::HasPages(const ProjectItem& item)
{
    return MayHavePages(item) && PageFile(item.moniker).HasPages();
}

bool ProjectSource::MayHavePages(const ProjectItem& item)
{
    const host::PathParts parts = host::SplitPath(item.moniker);
    const std::string_view extension = host::ExtensionOf(parts.name);
    return (item.kind & bdiRaster) != 0 && parts.options.empty() &&
           (repository::SameName(extension, "tif") || repository::SameName(extension, "tiff"));
}
} // namespace workbench
