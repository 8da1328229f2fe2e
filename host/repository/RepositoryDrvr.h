// RepositoryDrvr.h - the host's repository driver: gives out nodes and walks of any kind of repository, and counts them
#pragma once

#include <functional>
#include <memory>

#include "host/repository/Repository.h"

namespace repository
{
/// What a driver has given out and not yet got back.
struct LiveCounts
{
    int repositories = 0;
    int nodes = 0;
    int walks = 0;

    bool operator==(const LiveCounts&) const = default;
};

/// A repository driver over one kind of repository. A walk holds the children as they were when it began, so a folder
/// that changes or vanishes meanwhile does it no harm. Nodes and walks that outlive their repository stay valid, though
/// they shouldn't: in debug builds closing it first asserts, and so does a driver that dies before it got all back.
class TAVHOST_API RepositoryDrvr : public BDIDrvr
{
public:
    /// Opens the repository at a path without options; null if there is none. May throw when memory runs out.
    using Opener = std::function<std::unique_ptr<Repository>(std::string_view path)>;

    explicit RepositoryDrvr(Opener open);
    ~RepositoryDrvr() override;

    void* OpenRepository(char const* path, BDINode** root) override;
    void CloseRepository(void* hRepository) override;
    BDINode* OpenNode(void* hRepository, char const* id) override;
    void CloseNode(BDINode* node) override;
    void* FindFirstChildNode(BDINode const* node, int mask) override;
    BDINode* FindNextChildNode(void*& hFind) override;
    void FindClose(void* hFind) override;
    DString GetDriverParameterString(BDINode const* node) override;

    /// What is open at this moment.
    [[nodiscard]] const LiveCounts& Live() const noexcept { return m_live; }

private:
    using Shared = std::shared_ptr<const Repository>;
    struct Walk;

    [[nodiscard]] BDINode* NewNode(const Shared& repository, const NodeRecord& record);

    Opener m_open;
    LiveCounts m_live;
};
} // namespace repository
