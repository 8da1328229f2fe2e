#include "host/raster/PictureFile.h"

#include <array>
#include <charconv>
#include <cstdlib>

namespace raster
{
namespace
{

// What one stored byte can stand for at the most, by the format's own rules, rounded up.
constexpr std::uint64_t kMostByDeflate = 1040; // a copy of 258 bytes in two bits
constexpr std::uint64_t kMostByLzw = 4096;     // the longest entry of the code table, in twelve bits
constexpr std::uint64_t kMostByJpeg = 2048;    // an empty block of 8 by 8 pixels in one bit, three samples each
constexpr std::uint64_t kMostByRuns = 128;     // a run of 255 pixels in two bytes

/// Pictures up to this size are let through whatever the file's size.
constexpr std::uint64_t kAlwaysPlausible = std::uint64_t{16} << 20;

constexpr std::uint64_t kBitsOfByte = 8;

[[nodiscard]] constexpr bool CanHold(std::uint64_t decodedBytes, std::uint64_t storedBytes, std::uint64_t most) noexcept
{
    return decodedBytes <= kAlwaysPlausible || decodedBytes / most <= storedBytes;
}

class Header
{
public:
    explicit Header(host::ByteSource& source) : m_source(source)
    {
        m_count = static_cast<std::size_t>(std::min<std::uint64_t>(source.Size(), m_bytes.size()));
        m_isRead = source.Read(0, std::span(m_bytes).first(m_count));
    }

    [[nodiscard]] bool IsRead() const noexcept { return m_isRead; }
    [[nodiscard]] bool Has(std::size_t count) const noexcept { return count <= m_count; }

    [[nodiscard]] bool StartsWith(std::string_view text) const noexcept
    {
        return Has(text.size()) && std::ranges::equal(std::span(m_bytes).first(text.size()), text, {}, {},
                                                      [](char c) { return static_cast<std::byte>(c); });
    }

    /// Numbers of `bytes` bytes, which the header has.
    [[nodiscard]] std::uint32_t Little(std::size_t at, std::size_t bytes) const noexcept
    {
        std::uint32_t number = 0;
        for (std::size_t i = bytes; i-- > 0;)
        {
            number = number << 8 | std::to_integer<std::uint32_t>(m_bytes[at + i]);
        }
        return number;
    }
    [[nodiscard]] std::uint32_t Big(std::size_t at, std::size_t bytes) const noexcept
    {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < bytes; ++i)
        {
            number = number << 8 | std::to_integer<std::uint32_t>(m_bytes[at + i]);
        }
        return number;
    }

    [[nodiscard]] host::ByteSource& Source() const noexcept { return m_source; }

private:
    host::ByteSource& m_source; // not owned
    std::array<std::byte, 64> m_bytes{};
    std::size_t m_count = 0;
    bool m_isRead = false;
};

[[nodiscard]] bool IsPlausiblePng(const Header& header)
{
    constexpr std::size_t kEnd = 33; // signature and the whole first chunk
    constexpr std::size_t kWidthAt = 16;
    constexpr std::size_t kHeightAt = 20;
    constexpr std::size_t kDepthAt = 24;
    constexpr std::uint64_t kMostSamples = 4;
    if (!header.Has(kEnd))
    {
        return false;
    }
    const std::uint64_t width = header.Big(kWidthAt, 4);
    const std::uint64_t height = header.Big(kHeightAt, 4);
    constexpr std::uint64_t kMostSide = 0x7FFFFFFF;
    if (width == 0 || height == 0 || width > kMostSide || height > kMostSide)
    {
        return false;
    }
    const std::uint32_t colourType = header.Big(kDepthAt + 1, 1);
    constexpr std::array<std::uint64_t, 7> samplesOfType = {1, 1, 3, 1, 2, 1, kMostSamples};
    const std::uint64_t samples = colourType < samplesOfType.size() ? samplesOfType[colourType] : kMostSamples;
    const std::uint64_t rowBytes = width * samples * header.Big(kDepthAt, 1) / kBitsOfByte + 1;
    return height <= kMostSide * kMostSide / rowBytes &&
           CanHold(rowBytes * height, header.Source().Size(), kMostByDeflate);
}

[[nodiscard]] bool IsPlausibleBmp(const Header& header)
{
    constexpr std::size_t kEnd = 26; // through the shortest form of the second header
    constexpr std::size_t kInfoAt = 14;
    constexpr std::uint32_t kCoreInfo = 12;
    constexpr std::size_t kBitsEnd = 34;
    if (!header.Has(kEnd))
    {
        return false;
    }
    const bool core = header.Little(kInfoAt, 4) == kCoreInfo;
    if (!core && !header.Has(kBitsEnd))
    {
        return false;
    }
    const std::size_t sideBytes = core ? 2 : 4;
    const std::size_t sizeAt = kInfoAt + 4;
    const auto width = static_cast<std::int64_t>(static_cast<std::int32_t>(header.Little(sizeAt, sideBytes)));
    const auto height =
        static_cast<std::int64_t>(static_cast<std::int32_t>(header.Little(sizeAt + sideBytes, sideBytes)));
    const std::uint64_t bits = header.Little(sizeAt + 2 * sideBytes + 2, 2);
    const std::uint32_t packing = core ? 0 : header.Little(sizeAt + 2 * sideBytes + 4, 4);
    if (width <= 0 || height == 0)
    {
        return false;
    }
    constexpr std::uint32_t kRuns8 = 1;
    constexpr std::uint32_t kRuns4 = 2;
    const std::uint64_t rowBytes = (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
    const std::uint64_t rows = static_cast<std::uint64_t>(std::abs(height));
    if (packing == kRuns8 || packing == kRuns4)
    {
        return CanHold(rowBytes * rows, header.Source().Size(), kMostByRuns);
    }
    // Stored as they are: all rows must be there.
    const std::uint64_t pixelsAt = header.Little(10, 4);
    return pixelsAt <= header.Source().Size() &&
           (rowBytes == 0 || rows <= (header.Source().Size() - pixelsAt) / rowBytes);
}

[[nodiscard]] bool IsPlausibleGif(const Header& header)
{
    constexpr std::size_t kEnd = 13;
    return header.Has(kEnd) && CanHold(static_cast<std::uint64_t>(header.Little(6, 2)) * header.Little(8, 2),
                                       header.Source().Size(), kMostByLzw);
}

/// Walks the segments up to the one that tells the picture's size.
[[nodiscard]] bool IsPlausibleJpeg(host::ByteSource& source)
{
    constexpr std::uint32_t kMark = 0xFF;
    constexpr std::uint32_t kFirstFrame = 0xC0;
    constexpr std::uint32_t kLastFrame = 0xCF;
    constexpr std::uint32_t kHuffmanTables = 0xC4;
    constexpr std::uint32_t kReserved = 0xC8;
    constexpr std::uint32_t kArithmeticTables = 0xCC;
    constexpr std::uint32_t kScan = 0xDA;
    constexpr std::uint32_t kEnd = 0xD9;
    std::uint64_t at = 2;
    while (true)
    {
        std::array<std::byte, 10> segment{}; // mark, code, length, precision, height, width, number of samples
        const auto size = source.Size();
        if (at > size || size - at < 4 ||
            !source.Read(at, std::span(segment).first(
                                 static_cast<std::size_t>(std::min<std::uint64_t>(segment.size(), size - at)))))
        {
            return false;
        }
        const auto number = [&](std::size_t place) { return std::to_integer<std::uint32_t>(segment[place]); };
        const std::uint32_t code = number(1);
        if (number(0) != kMark || code == kScan || code == kEnd)
        {
            return false;
        }
        if (code == kMark)
        {
            ++at; // filling
            continue;
        }
        if (code >= kFirstFrame && code <= kLastFrame && code != kHuffmanTables && code != kReserved &&
            code != kArithmeticTables)
        {
            const std::uint64_t height = number(5) << 8 | number(6);
            const std::uint64_t width = number(7) << 8 | number(8);
            return size - at >= segment.size() && height != 0 && width != 0 &&
                   CanHold(width * height * number(9), size, kMostByJpeg);
        }
        const std::uint32_t length = number(2) << 8 | number(3);
        if (length < 2)
        {
            return false;
        }
        at += 2 + length;
    }
}

} // namespace

bool ParsePictureOptions(std::string_view options, PictureName& name)
{
    constexpr std::string_view kPage = "page=";
    if (options.empty())
    {
        return true;
    }
    unsigned page = 0;
    if (!options.starts_with(kPage))
    {
        return false;
    }
    // There is one option only, so a second one is unknown or given twice.
    const auto number = options.substr(kPage.size());
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), page);
    if (error != std::errc() || end != number.data() + number.size())
    {
        return false;
    }
    name.page = page;
    return true;
}

std::optional<PictureName> ParsePictureName(std::string_view text)
{
    constexpr std::string_view kLongPath = "\\\\?\\";
    const auto mark = text.find('?', text.starts_with(kLongPath) ? kLongPath.size() : 0);
    PictureName name{std::string(text.substr(0, mark)), 0};
    if (name.path.empty() || (mark != std::string_view::npos && !ParsePictureOptions(text.substr(mark + 1), name)))
    {
        return std::nullopt;
    }
    return name;
}

std::optional<PictureFormat> RecognisePicture(host::ByteSource& source)
{
    using namespace std::string_view_literals;
    const Header header(source);
    const auto ifPlausible = [](PictureFormat format, bool plausible) {
        return plausible ? std::optional(format) : std::nullopt;
    };
    if (!header.IsRead())
    {
        return std::nullopt;
    }
    if (header.StartsWith("II\x2A\0"sv) || header.StartsWith("MM\0\x2A"sv) || header.StartsWith("II\x2B\0"sv) ||
        header.StartsWith("MM\0\x2B"sv))
    {
        return PictureFormat::Tiff;
    }
    if (header.StartsWith("\x89PNG\r\n\x1A\n"sv))
    {
        return ifPlausible(PictureFormat::Png, IsPlausiblePng(header));
    }
    if (header.StartsWith("\xFF\xD8\xFF"sv))
    {
        return ifPlausible(PictureFormat::Jpeg, IsPlausibleJpeg(source));
    }
    if (header.StartsWith("GIF87a"sv) || header.StartsWith("GIF89a"sv))
    {
        return ifPlausible(PictureFormat::Gif, IsPlausibleGif(header));
    }
    if (header.StartsWith("BM"sv))
    {
        return ifPlausible(PictureFormat::Bmp, IsPlausibleBmp(header));
    }
    return std::nullopt;
}

bool IsPlausibleBlock(std::uint64_t decodedBytes, std::uint64_t storedBytes) noexcept
{
    return CanHold(decodedBytes, storedBytes, kMostByLzw);
}

} // namespace raster
