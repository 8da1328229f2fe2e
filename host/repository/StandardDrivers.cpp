// StandardDrivers.cpp
#include "host/repository/StandardDrivers.h"

#include "host/FileSource.h"
#include "host/repository/FolderRepository.h"
#include "host/repository/TiffRepository.h"
#include "tavkit/frame/services/BDIDrvrMngr.h"

namespace repository
{
namespace
{
constexpr char kFolderFormats[] = "Folder";
/// "ALL" stands for any file: one that is no TIFF isn't opened and stays the plain file that it is.
constexpr char kPagesFormats[] = "TIF;TIFF;ALL";

[[nodiscard]] std::unique_ptr<Repository> OpenPages(std::string_view path)
{
    const auto source = host::FileSource::Open(std::string(path));
    return source ? TiffRepository::Open(path, *source) : nullptr;
}
} // namespace

StandardDrivers::StandardDrivers() : m_folders(FolderRepository::Open), m_pages(OpenPages)
{
    BDIDrvrMngr* const registry = BDIDrvrMngr::Instance();
    registry->Register(kFolderDriver, kFolderFormats, &m_folders);
    registry->Register(kPagesDriver, kPagesFormats, &m_pages);
}

StandardDrivers::~StandardDrivers()
{
    BDIDrvrMngr* const registry = BDIDrvrMngr::Instance();
    registry->Unregister(&m_folders);
    registry->Unregister(&m_pages);
}
} // namespace repository
