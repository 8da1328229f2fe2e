// FolderRepository.h - a folder on disk as a repository
#pragma once

#include <memory>

#include "host/repository/Repository.h"

namespace repository
{
/// A folder: its sub-folders are containers, its files are pictures, vector data and tables by their extensions, other
/// files aren't there. Identifiers are paths, as long or short as the path that the repository was opened by. A path to
/// a file opens a repository that is that file alone.
///
/// A link to a folder is a container like any other, unless it leads back to a folder on its own path: that one is of
/// the kind bdiOther and holds nothing, so that every walk comes to an end. So is a link that leads nowhere.
///
/// A file whose name the ANSI code page can't tell is named by its short name and shown with "?" in place of the
/// characters that are missing; without a short name it isn't there. Files that the system keeps for itself, hidden and
/// marked as its own, aren't there either.
class FolderRepository final : public Repository
{
public:
    /// @return null if there is no such folder or file.
    [[nodiscard]] static std::unique_ptr<Repository> Open(std::string_view path);

    [[nodiscard]] NodeRecord Root() const override { return m_root; }
    [[nodiscard]] std::optional<NodeRecord> Find(std::string_view id) const override;
    [[nodiscard]] std::vector<NodeRecord> Children(const BDINode& parent, unsigned int mask) const override;
    [[nodiscard]] std::string Parameters(const BDINode&) const override { return {}; }

private:
    explicit FolderRepository(NodeRecord root) : m_root(std::move(root)) {}

    NodeRecord m_root;
};
} // namespace repository
