// TiffRepository.h - the pages of a TIFF file as a repository
#pragma once

#include <memory>

#include "host/ByteSource.h"
#include "host/repository/Repository.h"

namespace repository
{
/// A TIFF file. With several pages it is a container of pictures, "file?page=n" each, counted from 0 like the option;
/// with one page it is that picture itself and needs the parameter "page=0". A page counts as soon as it can be
/// reached: one that turns out damaged is found out by whoever reads it.
class TiffRepository final : public Repository
{
public:
    /// Pages that are looked for; the format's own numbers of pages end here.
    static constexpr unsigned int kMostPages = 0xFFFF;

    /// @param path    of the file, without options; it is the identifier of the root.
    /// @param source  the file's bytes; read during the call only.
    /// @return null if it is no TIFF file or its first page is out of reach.
    [[nodiscard]] static std::unique_ptr<Repository> Open(std::string_view path, host::ByteSource& source);

    [[nodiscard]] NodeRecord Root() const override;
    [[nodiscard]] std::optional<NodeRecord> Find(std::string_view id) const override;
    [[nodiscard]] std::vector<NodeRecord> Children(const BDINode& parent, unsigned int mask) const override;
    [[nodiscard]] std::string Parameters(const BDINode& node) const override;

private:
    TiffRepository(std::string_view path, unsigned int pages) : m_path(path), m_pages(pages) {}

    [[nodiscard]] NodeRecord Page(unsigned int page) const;
    [[nodiscard]] bool IsRoot(const BDINode& node) const noexcept;

    std::string m_path;
    unsigned int m_pages; ///< at least 1
};
} // namespace repository
