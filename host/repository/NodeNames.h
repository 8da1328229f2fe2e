// NodeNames.h - what names tell about the nodes of a repository: kind, order, page; text only, the disk isn't asked
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/repository/Repository.h"

namespace repository
{
/// Extensions of the pictures that the raster service reads, in lower case, without the dot.
[[nodiscard]] TAVHOST_API std::span<const std::string_view> PictureExtensions() noexcept;

/// The kind of a file going by its extension: a bit of BDINodeKind, bdiRaster, bdiVector or bdiTable. Upper and lower
/// case are the same. 0 for a file that no repository shows, and for a name that is nothing but an extension.
[[nodiscard]] TAVHOST_API unsigned int KindOfFile(std::string_view name) noexcept;

/// The order of names wherever they are listed: without regard to the case of ASCII letters, so that it doesn't depend
/// on the user's language; names that differ in nothing else stand in the order of their bytes.
[[nodiscard]] TAVHOST_API bool NameComesBefore(std::string_view a, std::string_view b) noexcept;

/// True for names that differ at most in the case of ASCII letters.
[[nodiscard]] TAVHOST_API bool SameName(std::string_view a, std::string_view b) noexcept;

/// True if a name has a text in it, whatever the case of ASCII letters.
[[nodiscard]] TAVHOST_API bool NameHolds(std::string_view name, std::string_view text) noexcept;

/// The order of nodes in a folder: containers first, then by name.
[[nodiscard]] bool ComesBefore(const NodeRecord& a, const NodeRecord& b) noexcept;

/// The identifier of a page of a file, counted from 0: "slides.tif?page=2".
[[nodiscard]] std::string PageId(std::string_view file, unsigned int page);

/// What the options of a moniker say about the page that is meant.
struct PageOption
{
    std::optional<unsigned int> page; ///< counted from 0; nothing if the options don't name one
    bool valid = true;                ///< false if "page" has no proper number or is given twice with different ones
};

/// Looks for the page among options.
/// @param options  what stands behind a path, its "?" included; several options are separated by "&", and a further "?"
///                 separates like "&", since options are put behind others that way. Unknown options are passed over.
[[nodiscard]] PageOption FindPage(std::string_view options) noexcept;
} // namespace repository
