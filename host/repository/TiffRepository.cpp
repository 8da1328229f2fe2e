// TiffRepository.cpp
#include "host/repository/TiffRepository.h"

#include "host/PathText.h"
#include "host/raster/TiffDirectory.h"
#include "host/repository/NodeNames.h"

namespace repository
{
namespace
{
constexpr char kOnlyPage[] = "page=0";
} // namespace

std::unique_ptr<Repository> TiffRepository::Open(std::string_view path, host::ByteSource& source)
{
    const unsigned int pages = raster::TiffDirectory(source).CountPages(kMostPages);
    return pages == 0 ? nullptr : std::unique_ptr<Repository>(new TiffRepository(path, pages));
}

NodeRecord TiffRepository::Root() const
{
    return {m_pages > 1 ? bdiContainer : bdiRaster, m_path, host::DisplayName(m_path)};
}

std::optional<NodeRecord> TiffRepository::Find(std::string_view id) const
{
    const host::PathParts parts = host::SplitPath(id);
    const std::string_view file = id.substr(0, parts.folder.size() + parts.name.size());
    const PageOption option = FindPage(parts.options);
    if (!SameName(file, m_path) || !option.valid || (option.page && *option.page >= m_pages))
    {
        return std::nullopt;
    }
    return option.page ? Page(*option.page) : Root();
}

std::vector<NodeRecord> TiffRepository::Children(const BDINode& parent, unsigned int mask) const
{
    std::vector<NodeRecord> pages;
    if (m_pages > 1 && IsRoot(parent) && (mask & bdiRaster) != 0)
    {
        pages.reserve(m_pages);
        for (unsigned int page = 0; page < m_pages; ++page)
        {
            pages.push_back(Page(page));
        }
    }
    return pages;
}

std::string TiffRepository::Parameters(const BDINode& node) const
{
    return m_pages == 1 && IsRoot(node) ? kOnlyPage : "";
}

NodeRecord TiffRepository::Page(unsigned int page) const
{
    return {bdiRaster, PageId(m_path, page), "Page " + std::to_string(page)};
}

bool TiffRepository::IsRoot(const BDINode& node) const noexcept { return m_path == node.m_strId.c_str(); }
} // namespace repository
