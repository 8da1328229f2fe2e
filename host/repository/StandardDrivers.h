// StandardDrivers.h - the repository drivers that the host brings along, in the registry for as long as it needs them
#pragma once

#include "host/repository/RepositoryDrvr.h"

namespace repository
{
// Names of the drivers in the registry.
inline constexpr char kFolderDriver[] = "Folder"; ///< folders on disk
inline constexpr char kPagesDriver[] = "TIFF";    ///< the pages of TIFF files

/// Registers the drivers, and takes them out again when it dies. One at a time: the drivers of a second one stay out of
/// the registry. All that was opened through the drivers must be closed before.
class TAVHOST_API StandardDrivers
{
public:
    StandardDrivers();
    ~StandardDrivers();
    StandardDrivers(const StandardDrivers&) = delete;
    StandardDrivers& operator=(const StandardDrivers&) = delete;

    [[nodiscard]] RepositoryDrvr& Folders() noexcept { return m_folders; }
    [[nodiscard]] RepositoryDrvr& Pages() noexcept { return m_pages; }

private:
    RepositoryDrvr m_folders;
    RepositoryDrvr m_pages;
};
} // namespace repository
