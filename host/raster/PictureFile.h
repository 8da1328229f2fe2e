// PictureFile.h - what is looked at before a decoder gets a file: its kind, its size and whether its claims can be true
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/ByteSource.h"

namespace raster
{

/// A file's name and the page in it that is meant, as a text like "slides.tif?page=2" names them.
struct PictureName
{
    std::string path;
    unsigned page = 0; ///< counted from 0
};

/// Takes a picture's name apart.
/// @param text  path, then perhaps "?" and options, several of them separated by "&". The only option is "page", a
///              number counted from 0. The prefix "\\?\" of long paths is part of the path.
/// @return nothing if the path is empty or an option is unknown, is given twice or has no proper number.
[[nodiscard]] std::optional<PictureName> ParsePictureName(std::string_view text);

/// Reads options as they stand behind the "?", into a name.
/// @param options  "page=2", or "" for none.
/// @return false if an option is unknown, is given twice or has no proper number; `name` is unchanged then.
[[nodiscard]] bool ParsePictureOptions(std::string_view options, PictureName& name);

/// File formats that are read.
enum class PictureFormat
{
    Bmp,
    Gif,
    Jpeg,
    Png,
    Tiff
};

/// Looks at the first bytes of a file, and where a decoder would make room for the whole picture at once, at what the
/// picture would take.
/// @return nothing if the file is of another kind, is cut off within its header, or claims a picture that a file of its
///         size can't hold: nobody shall make room for it.
[[nodiscard]] std::optional<PictureFormat> RecognisePicture(host::ByteSource& source);

/// True if blocks of a compressed TIFF page can be as large as claimed, given the bytes that stand for them.
[[nodiscard]] bool IsPlausibleBlock(std::uint64_t decodedBytes, std::uint64_t storedBytes) noexcept;

} // namespace raster
