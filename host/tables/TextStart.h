// TextStart.h - what the first bytes of a file say about the text in it
#pragma once

#include <cstdint>

#include "host/ByteSource.h"

namespace table
{

/// Where the text of a file begins, and in which code page it is.
struct TextStart
{
    bool isText = false;  ///< false for an empty file, one in UTF-16 and one with bytes that no text has
    std::uint64_t at = 0; ///< behind the byte order mark
    unsigned codePage = 0;
    bool hasTab = false;   ///< in the first line
    bool hasComma = false; ///< in the first line
};

/// Looks at the first bytes of a file.
[[nodiscard]] TextStart FindTextStart(host::ByteSource& source);

} // namespace table
