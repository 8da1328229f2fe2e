// RepositoryDrvr.cpp
#include "host/repository/RepositoryDrvr.h"

#include "host/PathText.h"

#include <cassert>
#include <exception>
#include <utility>

namespace repository
{
namespace
{
/// Runs what may throw; nothing leaves the driver, whose callers know no exceptions.
template <class Work>
[[nodiscard]] auto NullIfThrown(const Work& work) noexcept -> decltype(work())
{
    try
    {
        return work();
    }
    catch (const std::exception&)
    {
        return nullptr; // memory ran out
    }
}
} // namespace

/// A walk over children.
struct RepositoryDrvr::Walk
{
    Shared repository;
    std::vector<NodeRecord> children;
    std::size_t next = 0;
};

RepositoryDrvr::RepositoryDrvr(Opener open) : m_open(std::move(open)) {}

RepositoryDrvr::~RepositoryDrvr() { assert(m_live == LiveCounts{} && "whoever gets a node gives it back"); }

void* RepositoryDrvr::OpenRepository(char const* path, BDINode** root)
{
    if (root)
    {
        *root = nullptr;
    }
    return NullIfThrown([&]() -> Shared* {
        std::unique_ptr<Shared> opened;
        // Whoever asks by a moniker asks for the file: what its options mean is said of nodes.
        const std::string_view whole = path ? path : "";
        const std::string_view file = whole.substr(0, whole.size() - host::SplitPath(whole).options.size());
        if (Shared repository = path ? Shared(m_open(file)) : nullptr)
        {
            opened = std::make_unique<Shared>(std::move(repository));
            if (root)
            {
                *root = NewNode(*opened, (*opened)->Root());
            }
            ++m_live.repositories;
        }
        return opened.release();
    });
}

void RepositoryDrvr::CloseRepository(void* hRepository)
{
    if (hRepository)
    {
        const std::unique_ptr<Shared> closing(static_cast<Shared*>(hRepository));
        assert(closing->use_count() == 1 && "nodes and walks are closed before their repository");
        --m_live.repositories;
    }
}

BDINode* RepositoryDrvr::OpenNode(void* hRepository, char const* id)
{
    return NullIfThrown([&]() -> BDINode* {
        if (!hRepository || !id)
        {
            return nullptr;
        }
        const Shared& repository = *static_cast<Shared*>(hRepository);
        const auto found = repository->Find(id);
        return found ? NewNode(repository, *found) : nullptr;
    });
}

void RepositoryDrvr::CloseNode(BDINode* node)
{
    if (node)
    {
        delete static_cast<Shared*>(node->m_pDrvrData);
        delete node;
        --m_live.nodes;
    }
}

void* RepositoryDrvr::FindFirstChildNode(BDINode const* node, int mask)
{
    return NullIfThrown([&]() -> Walk* {
        if (!node)
        {
            return nullptr;
        }
        const Shared& repository = *static_cast<Shared*>(node->m_pDrvrData);
        auto children = repository->Children(*node, static_cast<unsigned int>(mask));
        if (children.empty())
        {
            return nullptr;
        }
        auto* const walk = new Walk{repository, std::move(children)};
        ++m_live.walks;
        return walk;
    });
}

BDINode* RepositoryDrvr::FindNextChildNode(void*& hFind)
{
    return NullIfThrown([&]() -> BDINode* {
        auto* const walk = static_cast<Walk*>(hFind);
        if (!walk || walk->next == walk->children.size())
        {
            return nullptr;
        }
        BDINode* const node = NewNode(walk->repository, walk->children[walk->next]);
        ++walk->next;
        return node;
    });
}

void RepositoryDrvr::FindClose(void* hFind)
{
    if (hFind)
    {
        delete static_cast<Walk*>(hFind);
        --m_live.walks;
    }
}

DString RepositoryDrvr::GetDriverParameterString(BDINode const* node)
{
    try
    {
        return node ? DString((*static_cast<Shared*>(node->m_pDrvrData))->Parameters(*node).c_str()) : DString();
    }
    catch (const std::exception&)
    {
        return {};
    }
}

BDINode* RepositoryDrvr::NewNode(const Shared& repository, const NodeRecord& record)
{
    auto node = std::make_unique<BDINode>();
    node->m_nKind = record.kind;
    node->m_strId = record.id.c_str();
    node->m_strDisplay = record.display.c_str();
    node->m_pDrvrData = new Shared(repository);
    ++m_live.nodes;
    return node.release();
}
} // namespace repository
