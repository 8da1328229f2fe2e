// TextStart.cpp
#include "host/tables/TextStart.h"

#include <array>
#include <string_view>

#include "host/tables/ForwardTable.h"

namespace table
{
namespace
{
constexpr std::size_t kBytesLookedAt = 4096;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr char kEndMark = 0x1A; ///< old programs close a text with it

/// True for control characters that stand in no text; a UTF-16 file has NULs, or a mark of two such bytes in front.
[[nodiscard]] bool IsBinary(char c) noexcept
{
    constexpr std::string_view kLayout = "\t\n\v\f\r";
    constexpr unsigned char kFirstPrintable = 0x20;
    return static_cast<unsigned char>(c) < kFirstPrintable && kLayout.find(c) == std::string_view::npos;
}

/// The first line, with what is within quotes left out of the search for its end.
[[nodiscard]] std::string_view FirstLine(std::string_view text) noexcept
{
    const std::size_t start = text.find_first_not_of("\r\n");
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        quoted = quoted != (text[i] == '"');
        if (!quoted && (text[i] == '\r' || text[i] == '\n'))
        {
            return text.substr(0, i);
        }
    }
    return text;
}

[[nodiscard]] bool HasOutsideQuotes(std::string_view line, char wanted) noexcept
{
    bool quoted = false;
    for (const char c : line)
    {
        quoted = quoted != (c == '"');
        if (!quoted && c == wanted)
        {
            return true;
        }
    }
    return false;
}
} // namespace

TextStart FindTextStart(host::ByteSource& source)
{
    std::array<char, kBytesLookedAt> bytes;
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(source.Size(), bytes.size()));
    if (count == 0 || !source.Read(0, std::as_writable_bytes(std::span(bytes).first(count))))
    {
        return {};
    }
    std::string_view text(bytes.data(), count);
    TextStart start;
    if (text.starts_with(kUtf8Mark))
    {
        start.at = kUtf8Mark.size();
        start.codePage = kUtf8CodePage;
        text.remove_prefix(kUtf8Mark.size());
    }
    if (count == source.Size() && text.ends_with(kEndMark))
    {
        text.remove_suffix(1);
    }
    start.isText = std::ranges::none_of(text, IsBinary);
    const std::string_view line = FirstLine(text);
    start.hasTab = HasOutsideQuotes(line, '\t');
    start.hasComma = HasOutsideQuotes(line, ',');
    return start;
}

} // namespace table
