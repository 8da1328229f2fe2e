// ProjectSource.h - reads what the project tree shows: the opened folder, and the pages of its pictures
#pragma once

#include "workbench/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace workbench
{
/// How the reading of an item ended.
enum class ReadEnd
{
    read,
    gone,   ///< the item isn't there any more
    refused ///< the folder can't be read, at present at least
};

/// What lies in an item.
struct ReadResult
{
    ReadEnd end = ReadEnd::read;
    std::vector<repository::NodeRecord> children; ///< in the order in which they are shown
};

/// The repository of one folder, open until another takes its place. It is read through the drivers that the registry
/// has under the names of the host's own.
class ProjectSource
{
public:
    ProjectSource() = default;
    ~ProjectSource();
    ProjectSource(const ProjectSource&) = delete;
    ProjectSource& operator=(const ProjectSource&) = delete;

    /// Opens a folder in place of the one before.
    /// @return its node; nothing if it can't be opened, and no folder is open then
    std::optional<repository::NodeRecord> Open(const std::string& path);
    void Close();

    /// What lies in an item: files and folders, or the pages of a picture.
    [[nodiscard]] ReadResult Read(const ProjectItem& item) const;
    /// True for a picture file of several pages. It is opened for it.
    [[nodiscard]] static bool HasPages(const ProjectItem& item);
    /// True for an item that may turn out to have pages.
    [[nodiscard]] static bool MayHavePages(const ProjectItem& item);

private:
    BDIDrvr* m_folders = nullptr; ///< of what is open, borrowed
    void* m_repository = nullptr;
};
} // namespace workbench
