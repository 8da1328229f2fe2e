#include "host/raster/TiffDirectory.h"

#include <array>
#include <limits>
#include <unordered_set>

namespace raster
{
namespace
{

constexpr std::uint16_t kMagicClassic = 42;
constexpr std::uint16_t kMagicLarge = 43;
constexpr std::size_t kClassicHeader = 8;
constexpr std::uint64_t kClassicEntry = 12;
constexpr std::uint64_t kLargeEntry = 20;
constexpr std::uint64_t kMostEntries = 0xFFFF; // what the classic form can count; no large file has more in earnest
constexpr std::uint64_t kMostPixels = std::numeric_limits<std::int32_t>::max(); // along one side
constexpr std::uint64_t kAllRows = 0xFFFFFFFF; // "rows per strip" of a page in one strip
constexpr std::uint64_t kReversed = 2;         // "fill order"
constexpr std::uint64_t kPlanar = 2;           // "planar configuration"
constexpr std::uint64_t kAssociatedAlpha = 1;  // "extra samples"
constexpr std::uint64_t kPlainAlpha = 2;

enum class Tag : std::uint16_t
{
    Width = 256,
    Height = 257,
    Bits = 258,
    Compression = 259,
    Photometric = 262,
    FillOrder = 266,
    StripOffsets = 273,
    Samples = 277,
    RowsPerStrip = 278,
    StripByteCounts = 279,
    Planar = 284,
    Predictor = 317,
    TileWidth = 322,
    TileHeight = 323,
    TileOffsets = 324,
    TileByteCounts = 325,
    ExtraSamples = 338,
    SampleFormat = 339
};

constexpr std::array kKnownTags = {
    Tag::Width,          Tag::Height,       Tag::Bits,         Tag::Compression,     Tag::Photometric,
    Tag::FillOrder,      Tag::StripOffsets, Tag::Samples,      Tag::RowsPerStrip,    Tag::Planar,
    Tag::Predictor,      Tag::TileWidth,    Tag::TileHeight,   Tag::StripByteCounts, Tag::TileOffsets,
    Tag::TileByteCounts, Tag::ExtraSamples, Tag::SampleFormat,
};

/// @return bytes of one whole number of a field type; 0 for the types that are none.
[[nodiscard]] constexpr unsigned BytesOfType(std::uint16_t type) noexcept
{
    constexpr std::uint16_t kByte = 1;
    constexpr std::uint16_t kShort = 3;
    constexpr std::uint16_t kLong = 4;
    constexpr std::uint16_t kDirectory = 13;
    constexpr std::uint16_t kLong8 = 16;
    constexpr std::uint16_t kDirectory8 = 18;
    switch (type)
    {
    case kByte:
        return 1;
    case kShort:
        return 2;
    case kLong:
    case kDirectory:
        return 4;
    case kLong8:
    case kDirectory8:
        return 8;
    default:
        return 0;
    }
}

[[nodiscard]] std::uint64_t Assemble(std::span<const std::byte> bytes, bool bigEndian) noexcept
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        number = number << 8 | std::to_integer<std::uint64_t>(bytes[bigEndian ? i : bytes.size() - 1 - i]);
    }
    return number;
}

[[nodiscard]] constexpr std::uint64_t DivideUp(std::uint64_t number, std::uint64_t by) noexcept
{
    return number / by + (number % by != 0 ? 1 : 0);
}

} // namespace

struct TiffDirectory::Tags
{
    std::array<std::optional<Entry>, kKnownTags.size()> entries;
    std::uint64_t end = 0; ///< where the place of the next page stands

    [[nodiscard]] static std::size_t IndexOf(Tag tag) noexcept
    {
        return static_cast<std::size_t>(std::ranges::find(kKnownTags, tag) - kKnownTags.begin());
    }
    [[nodiscard]] const std::optional<Entry>& operator[](Tag tag) const noexcept { return entries[IndexOf(tag)]; }
};

TiffDirectory::TiffDirectory(host::ByteSource& source) noexcept : m_source(source)
{
    std::array<std::byte, kClassicHeader> header{};
    if (!source.Read(0, header))
    {
        return;
    }
    const bool little = header[0] == std::byte{'I'} && header[1] == std::byte{'I'};
    m_bigEndian = header[0] == std::byte{'M'} && header[1] == std::byte{'M'};
    if (!little && !m_bigEndian)
    {
        return;
    }
    const auto magic = Assemble(std::span(header).subspan(2, 2), m_bigEndian);
    const auto sizes = Assemble(std::span(header).subspan(4, 4), m_bigEndian);
    const std::uint64_t sizesOfLarge = m_bigEndian ? 0x00080000 : 0x00000008; // places of 8 bytes, then a constant 0
    if (magic == kMagicClassic)
    {
        m_kind = Kind::Classic;
    }
    else if (magic == kMagicLarge && sizes == sizesOfLarge)
    {
        m_kind = Kind::Large;
    }
}

std::optional<std::uint64_t> TiffDirectory::Number(std::uint64_t offset, unsigned bytes) const
{
    std::array<std::byte, sizeof(std::uint64_t)> buffer{};
    const auto part = std::span(buffer).first(bytes);
    if (!m_source.Read(offset, part))
    {
        return std::nullopt;
    }
    return Assemble(part, m_bigEndian);
}

std::optional<std::uint64_t> TiffDirectory::FirstPage() const
{
    switch (m_kind)
    {
    case Kind::Classic:
        return Number(4, 4);
    case Kind::Large:
        return Number(8, 8);
    default:
        return std::nullopt;
    }
}

std::optional<std::uint64_t> TiffDirectory::PageAfter(std::uint64_t directory) const
{
    const bool large = m_kind == Kind::Large;
    const unsigned countBytes = large ? 8 : 2;
    const auto count = Number(directory, countBytes);
    if (!count || *count > kMostEntries)
    {
        return std::nullopt;
    }
    return Number(directory + countBytes + *count * (large ? kLargeEntry : kClassicEntry), large ? 8 : 4);
}

std::optional<std::uint64_t> TiffDirectory::FindPage(unsigned page) const
{
    std::unordered_set<std::uint64_t> seen;
    auto directory = FirstPage();
    for (unsigned index = 0; directory && *directory != 0 && seen.insert(*directory).second; ++index)
    {
        if (index == page)
        {
            return directory;
        }
        directory = PageAfter(*directory);
    }
    return std::nullopt;
}

unsigned TiffDirectory::CountPages(unsigned most) const
{
    std::unordered_set<std::uint64_t> seen;
    auto directory = FirstPage();
    while (seen.size() < most && directory && *directory != 0 && Number(*directory, m_kind == Kind::Large ? 8 : 2) &&
           seen.insert(*directory).second)
    {
        directory = PageAfter(*directory);
    }
    return static_cast<unsigned>(seen.size());
}

std::optional<TiffDirectory::Tags> TiffDirectory::ReadTags(std::uint64_t directory) const
{
    const bool large = m_kind == Kind::Large;
    const unsigned countBytes = large ? 8 : 2;
    const unsigned wordBytes = large ? 8 : 4;
    const std::uint64_t entryBytes = large ? kLargeEntry : kClassicEntry;
    const auto count = Number(directory, countBytes);
    if (!count || *count > kMostEntries)
    {
        return std::nullopt;
    }
    const std::uint64_t start = directory + countBytes;
    const std::uint64_t bytes = *count * entryBytes;
    if (start > m_source.Size() || bytes > m_source.Size() - start)
    {
        return std::nullopt;
    }
    std::vector<std::byte> table(static_cast<std::size_t>(bytes));
    if (!m_source.Read(start, table))
    {
        return std::nullopt;
    }
    Tags tags;
    tags.end = start + bytes;
    for (std::uint64_t i = 0; i < *count; ++i)
    {
        const auto record = std::span(table).subspan(static_cast<std::size_t>(i * entryBytes), entryBytes);
        const auto index = Tags::IndexOf(static_cast<Tag>(Assemble(record.first(2), m_bigEndian)));
        if (index == kKnownTags.size() || tags.entries[index])
        {
            continue; // of a tag that comes twice the first one counts
        }
        Entry entry;
        entry.type = static_cast<std::uint16_t>(Assemble(record.subspan(2, 2), m_bigEndian));
        entry.count = Assemble(record.subspan(4, wordBytes), m_bigEndian);
        const std::uint64_t ownPlace = start + i * entryBytes + 4 + wordBytes;
        const bool fits = entry.count <= wordBytes && entry.count * BytesOfType(entry.type) <= wordBytes;
        entry.place = fits ? ownPlace : Assemble(record.subspan(4 + wordBytes, wordBytes), m_bigEndian);
        tags.entries[index] = entry;
    }
    return tags;
}

std::optional<std::vector<std::uint64_t>> TiffDirectory::Values(const Entry& entry, std::uint64_t most) const
{
    const unsigned each = BytesOfType(entry.type);
    const std::uint64_t count = std::min(entry.count, most);
    if (each == 0 || entry.place > m_source.Size() || count > (m_source.Size() - entry.place) / each)
    {
        return std::nullopt;
    }
    std::vector<std::byte> bytes(static_cast<std::size_t>(count * each));
    if (!m_source.Read(entry.place, bytes))
    {
        return std::nullopt;
    }
    std::vector<std::uint64_t> values(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        values[i] = Assemble(std::span(bytes).subspan(i * each, each), m_bigEndian);
    }
    return values;
}

bool TiffDirectory::ReadValue(const std::optional<Entry>& entry, std::uint64_t ifMissing, std::uint64_t& value) const
{
    value = ifMissing;
    if (!entry)
    {
        return true;
    }
    const auto values = Values(*entry, 1);
    if (!values || values->empty())
    {
        return false;
    }
    value = values->front();
    return true;
}

bool TiffDirectory::ReadSamples(const Tags& tags, TiffPage& page) const
{
    const auto read = [&](Tag tag, std::uint64_t ifMissing, std::uint64_t most, auto& field) {
        std::uint64_t value = 0;
        if (!ReadValue(tags[tag], ifMissing, value) || value > most)
        {
            return false;
        }
        field = static_cast<std::remove_reference_t<decltype(field)>>(value);
        return true;
    };
    constexpr std::uint64_t most16 = std::numeric_limits<std::uint16_t>::max();
    std::uint32_t fillOrder = 0;
    std::uint32_t planar = 0;
    if (!read(Tag::Width, 0, kMostPixels, page.width) || !read(Tag::Height, 0, kMostPixels, page.height) ||
        page.width == 0 || page.height == 0 || !read(Tag::Samples, 1, most16, page.samples) || page.samples == 0 ||
        !read(Tag::Bits, 1, most16, page.bits) || !read(Tag::Compression, 1, most16, page.compression) ||
        !read(Tag::SampleFormat, 1, most16, page.format) || !read(Tag::FillOrder, 1, most16, fillOrder) ||
        !read(Tag::Planar, 1, most16, planar) || !read(Tag::Predictor, 1, most16, page.predictor))
    {
        return false;
    }
    // A page that forgets to say it: light grey levels, or colours where there are three samples and more.
    const bool colour = page.samples >= 3;
    if (!read(Tag::Photometric,
              static_cast<std::uint64_t>(colour ? TiffPhotometric::Rgb : TiffPhotometric::BlackIsZero), most16,
              page.photometric))
    {
        return false;
    }
    page.reversedBits = fillOrder == kReversed;
    page.planar = planar == kPlanar && page.samples > 1;

    // Bits and formats are given for each sample; some writers give them once for all.
    const auto same = [&](Tag tag) {
        const auto values = tags[tag] ? Values(*tags[tag], page.samples) : std::vector<std::uint64_t>();
        return values && std::ranges::adjacent_find(*values, std::ranges::not_equal_to()) == values->end();
    };
    if (!same(Tag::Bits))
    {
        page.bits = 0;
    }
    if (!same(Tag::SampleFormat))
    {
        page.format = TiffSampleFormat::Undefined;
    }
    if (const auto& extra = tags[Tag::ExtraSamples])
    {
        const auto kinds = Values(*extra, page.samples);
        if (!kinds)
        {
            return false;
        }
        for (auto kind = kinds->rbegin();
             kind != kinds->rend() && (*kind == kAssociatedAlpha || *kind == kPlainAlpha) &&
             page.alphas + 1 < page.samples;
             ++kind)
        {
            ++page.alphas;
        }
    }
    return true;
}

bool TiffDirectory::ReadBlocks(const Tags& tags, TiffPage& page) const
{
    const bool tiled = tags[Tag::TileWidth] || tags[Tag::TileHeight];
    if (tiled)
    {
        std::uint64_t width = 0;
        std::uint64_t height = 0;
        if (!ReadValue(tags[Tag::TileWidth], 0, width) || !ReadValue(tags[Tag::TileHeight], 0, height) || width == 0 ||
            height == 0 || width > kMostPixels || height > kMostPixels)
        {
            return false;
        }
        page.blockWidth = static_cast<std::uint32_t>(width);
        page.blockHeight = static_cast<std::uint32_t>(height);
    }
    else
    {
        std::uint64_t rows = 0;
        if (!ReadValue(tags[Tag::RowsPerStrip], kAllRows, rows) || rows == 0)
        {
            return false;
        }
        page.blockWidth = page.width;
        page.blockHeight = static_cast<std::uint32_t>(std::min<std::uint64_t>(rows, page.height));
    }
    page.blocksAcross = static_cast<std::uint32_t>(DivideUp(page.width, page.blockWidth));
    page.blocksDown = static_cast<std::uint32_t>(DivideUp(page.height, page.blockHeight));

    const auto& offsets = tags[tiled && tags[Tag::TileOffsets] ? Tag::TileOffsets : Tag::StripOffsets];
    const auto& counts = tags[tiled && tags[Tag::TileByteCounts] ? Tag::TileByteCounts : Tag::StripByteCounts];
    const std::uint64_t inPlane = static_cast<std::uint64_t>(page.blocksAcross) * page.blocksDown;
    if (!offsets || inPlane > m_source.Size())
    {
        return false;
    }
    const std::uint64_t blocks = inPlane * (page.planar ? page.samples : 1);
    auto places = Values(*offsets, blocks);
    if (!places || places->size() < blocks)
    {
        return false;
    }
    page.offsets = std::move(*places);
    if (counts)
    {
        auto sizes = Values(*counts, blocks);
        if (!sizes || sizes->size() < blocks)
        {
            return false;
        }
        page.byteCounts = std::move(*sizes);
        for (std::size_t i = 0; page.compression != TiffCompression::None && i < page.offsets.size(); ++i)
        {
            if (page.offsets[i] > m_source.Size() || page.byteCounts[i] > m_source.Size() - page.offsets[i])
            {
                return false; // cut off
            }
        }
        return true;
    }
    // Only blocks that are stored as they are can be found without their sizes.
    return page.compression == TiffCompression::None;
}

std::optional<TiffPage> TiffDirectory::ReadPage(unsigned page) const
{
    const auto directory = FindPage(page);
    const auto tags = directory ? ReadTags(*directory) : std::nullopt;
    TiffPage result;
    if (!tags || !ReadSamples(*tags, result) || !ReadBlocks(*tags, result))
    {
        return std::nullopt;
    }
    return result;
}

} // namespace raster
