// TiffWriter.h - small TIFF pictures made in memory: any sample kind, strips or tiles, both byte orders, several pages
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace support
{

/// Meaning of the samples, with the file format's numbers.
enum class TiffKind : unsigned
{
    Unsigned = 1,
    Signed = 2,
    Float = 3
};

/// How the blocks are stored. Only LZW makes anything smaller: the other packed forms are there so that a reader has to
/// unpack them.
enum class TiffPacking : unsigned
{
    None = 1,
    Lzw = 5,
    Deflate = 8,
    PackBits = 32773
};

/// One page to write.
struct TiffPageSpec
{
    unsigned width = 1;
    unsigned height = 1;
    unsigned samples = 1; ///< of each pixel; 3 and more are written as RGB and extra samples
    unsigned bits = 8;    ///< 8, 16 or 32
    TiffKind kind = TiffKind::Unsigned;
    TiffPacking packing = TiffPacking::None;
    unsigned tileWidth = 0; ///< multiple of 16; 0 for strips
    unsigned tileHeight = 0;
    unsigned rowsPerStrip = 0; ///< 0 puts the whole page into one strip
    bool planar = false;
    bool whiteIsZero = false;
    unsigned predictor = 1;  ///< 2: samples as distances from their left neighbours; 3: the same for floating point
    bool alpha = false;      ///< the last sample is opacity
    bool sharedTile = false; ///< all blocks stand at the same place, which holds the first of them
    /// Value of a sample at (x, y, channel), in the range of its type.
    std::function<double(unsigned, unsigned, unsigned)> value = [](unsigned, unsigned, unsigned) { return 0.0; };
};

/// Form of the file.
struct TiffForm
{
    bool bigEndian = false;
    bool large = false; ///< places of 64 bits ("BigTIFF")
};

/// Writes pages one behind the other into a piece of memory.
class TiffWriter
{
public:
    explicit TiffWriter(TiffForm form = {}) : m_form(form)
    {
        m_bytes += form.bigEndian ? "MM" : "II";
        Put(m_bytes, form.large ? 43 : 42, 2);
        if (form.large)
        {
            Put(m_bytes, 8, 2);
            Put(m_bytes, 0, 2);
        }
        m_link = m_bytes.size();
        Put(m_bytes, 0, PlaceBytes());
    }

    /// Appends a page.
    void AddPage(const TiffPageSpec& page)
    {
        std::vector<std::uint64_t> places;
        std::vector<std::uint64_t> sizes;
        const bool tiled = page.tileWidth != 0;
        const unsigned blockWidth = tiled ? page.tileWidth : page.width;
        const unsigned blockHeight = tiled ? page.tileHeight : page.rowsPerStrip != 0 ? page.rowsPerStrip : page.height;
        const unsigned planes = page.planar ? page.samples : 1;
        for (unsigned plane = 0; plane < planes; ++plane)
        {
            for (unsigned top = 0; top < page.height; top += blockHeight)
            {
                for (unsigned left = 0; left < page.width; left += blockWidth)
                {
                    if (page.sharedTile && !places.empty())
                    {
                        places.push_back(places.front());
                        sizes.push_back(sizes.front());
                        continue;
                    }
                    const unsigned rows = tiled ? blockHeight : std::min(blockHeight, page.height - top);
                    const std::string block = Pack(Block(page, left, top, blockWidth, rows, plane), page.packing);
                    places.push_back(m_bytes.size());
                    sizes.push_back(block.size());
                    m_bytes += block;
                }
            }
        }
        WriteDirectory(page, blockHeight, places, sizes);
    }

    /// @return the file as it stands.
    [[nodiscard]] const std::string& Bytes() const noexcept { return m_bytes; }

    /// Writes the file to disk.
    /// @return false if it couldn't be written whole.
    [[nodiscard]] bool Save(const std::string& path) const
    {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (file == nullptr)
        {
            return false;
        }
        const bool written = std::fwrite(m_bytes.data(), 1, m_bytes.size(), file) == m_bytes.size();
        return std::fclose(file) == 0 && written;
    }

private:
    struct Field
    {
        unsigned tag;
        unsigned type; // 3: 16 bits, 4: 32 bits, 16: 64 bits
        std::vector<std::uint64_t> values;
    };
    static constexpr unsigned kShort = 3;
    static constexpr unsigned kLong = 4;
    static constexpr unsigned kLong8 = 16;

    [[nodiscard]] unsigned PlaceBytes() const { return m_form.large ? 8 : 4; }

    void Put(std::string& out, std::uint64_t number, unsigned bytes) const
    {
        for (unsigned i = 0; i < bytes; ++i)
        {
            const unsigned shift = 8 * (m_form.bigEndian ? bytes - 1 - i : i);
            out += static_cast<char>(number >> shift & 0xFF);
        }
    }

    void PutSample(std::string& out, const TiffPageSpec& page, double value) const
    {
        if (page.kind == TiffKind::Float)
        {
            Put(out, std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
        }
        else
        {
            Put(out, static_cast<std::uint64_t>(static_cast<std::int64_t>(value)), page.bits / 8);
        }
    }

    /// Turns the rows of a block into distances, from the right to the left so that no value is lost.
    void Predict(std::string& block, const TiffPageSpec& page, unsigned width) const
    {
        const std::size_t samples = page.planar ? 1 : page.samples;
        const std::size_t each = page.bits / 8;
        const std::size_t rowBytes = width * samples * each;
        for (std::size_t row = 0; row < block.size(); row += rowBytes)
        {
            if (page.predictor == 3)
            {
                std::string planes(rowBytes, '\0');
                for (std::size_t at = 0; at < rowBytes; ++at)
                {
                    const std::size_t weight = m_form.bigEndian ? at % each : each - 1 - at % each;
                    planes[weight * width * samples + at / each] = block[row + at];
                }
                for (std::size_t at = rowBytes - 1; at >= samples; --at)
                {
                    planes[at] = static_cast<char>(planes[at] - planes[at - samples]);
                }
                block.replace(row, rowBytes, planes);
                continue;
            }
            for (std::size_t at = rowBytes - each; at >= samples * each; at -= each)
            {
                const std::uint64_t distance = Get(block, row + at, each) - Get(block, row + at - samples * each, each);
                std::string bytes;
                Put(bytes, distance, static_cast<unsigned>(each));
                block.replace(row + at, each, bytes);
            }
        }
    }

    [[nodiscard]] std::uint64_t Get(const std::string& text, std::size_t at, std::size_t bytes) const
    {
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < bytes; ++i)
        {
            number = number << 8 | static_cast<unsigned char>(text[at + (m_form.bigEndian ? i : bytes - 1 - i)]);
        }
        return number;
    }

    [[nodiscard]] std::string Block(const TiffPageSpec& page, unsigned left, unsigned top, unsigned width,
                                    unsigned rows, unsigned plane) const
    {
        std::string block;
        const unsigned firstSample = page.planar ? plane : 0;
        const unsigned endSample = page.planar ? plane + 1 : page.samples;
        block.reserve(static_cast<std::size_t>(width) * rows * (endSample - firstSample) * page.bits / 8);
        for (unsigned y = top; y < top + rows; ++y)
        {
            for (unsigned x = left; x < left + width; ++x)
            {
                for (unsigned sample = firstSample; sample < endSample; ++sample)
                {
                    // Tiles reach past the page; what stands there is never shown.
                    PutSample(block, page, x < page.width && y < page.height ? page.value(x, y, sample) : 0.0);
                }
            }
        }
        if (page.predictor != 1)
        {
            Predict(block, page, width);
        }
        return block;
    }

    [[nodiscard]] static std::string Pack(std::string block, TiffPacking packing)
    {
        if (packing == TiffPacking::None)
        {
            return block;
        }
        if (packing == TiffPacking::Lzw)
        {
            return PackLzw(block);
        }
        std::string packed;
        const std::size_t most = packing == TiffPacking::PackBits ? 128 : 0xFFFF;
        std::uint32_t a = 1;
        std::uint32_t b = 0;
        if (packing == TiffPacking::Deflate)
        {
            packed += "\x78\x01";
        }
        for (std::size_t at = 0; at < block.size(); at += most)
        {
            const std::string part = block.substr(at, most);
            if (packing == TiffPacking::PackBits)
            {
                packed += static_cast<char>(part.size() - 1);
            }
            else
            {
                const auto size = static_cast<std::uint16_t>(part.size());
                packed += at + most >= block.size() ? '\1' : '\0';
                packed += static_cast<char>(size & 0xFF);
                packed += static_cast<char>(size >> 8);
                packed += static_cast<char>(~size & 0xFF);
                packed += static_cast<char>(~size >> 8 & 0xFF);
            }
            packed += part;
            for (const char c : part)
            {
                constexpr std::uint32_t kAdler = 65521;
                a = (a + static_cast<unsigned char>(c)) % kAdler;
                b = (b + a) % kAdler;
            }
        }
        if (packing == TiffPacking::Deflate)
        {
            for (const std::uint32_t word : {b, a})
            {
                packed += static_cast<char>(word >> 8);
                packed += static_cast<char>(word & 0xFF);
            }
        }
        return packed;
    }

    [[nodiscard]] static std::string PackLzw(const std::string& block)
    {
        constexpr unsigned kClear = 256;
        constexpr unsigned kEnd = 257;
        constexpr unsigned kLeastBits = 9;
        constexpr unsigned kLast = 4094; // the last entry before the table is cleared
        std::string packed;
        std::uint32_t hold = 0;
        unsigned held = 0;
        unsigned bits = kLeastBits;
        std::map<std::pair<unsigned, unsigned char>, unsigned> table; // an entry, prolonged by one byte
        unsigned next = 0;
        const auto put = [&](unsigned code) {
            hold = hold << bits | code;
            for (held += bits; held >= 8; held -= 8)
            {
                packed += static_cast<char>(hold >> (held - 8) & 0xFF);
            }
        };
        const auto clear = [&] {
            put(kClear);
            bits = kLeastBits;
            next = kEnd + 1;
            table.clear();
        };
        clear();
        unsigned text = static_cast<unsigned char>(block.front());
        for (std::size_t at = 1; at < block.size(); ++at)
        {
            const auto byte = static_cast<unsigned char>(block[at]);
            const auto known = table.find({text, byte});
            if (known != table.end())
            {
                text = known->second;
                continue;
            }
            put(text);
            table[{text, byte}] = next++;
            text = byte;
            if (next == kLast)
            {
                clear();
            }
            else if (next == 1U << bits)
            {
                ++bits;
            }
        }
        put(text);
        if (++next == 1U << bits)
        {
            ++bits;
        }
        put(kEnd);
        if (held > 0)
        {
            packed += static_cast<char>(hold << (8 - held) & 0xFF);
        }
        return packed;
    }

    void WriteDirectory(const TiffPageSpec& page, unsigned blockHeight, const std::vector<std::uint64_t>& places,
                        const std::vector<std::uint64_t>& sizes)
    {
        const bool tiled = page.tileWidth != 0;
        const unsigned placeType = m_form.large ? kLong8 : kLong;
        constexpr unsigned kRgb = 2;
        const unsigned photometric = page.samples >= 3 ? kRgb : page.whiteIsZero ? 0 : 1;
        const unsigned colours = photometric == kRgb ? 3 : 1;
        std::vector<Field> fields = {
            {256, kLong, {page.width}},
            {257, kLong, {page.height}},
            {258, kShort, std::vector<std::uint64_t>(page.samples, page.bits)},
            {259, kShort, {static_cast<unsigned>(page.packing)}},
            {262, kShort, {photometric}},
        };
        if (!tiled)
        {
            fields.push_back({273, placeType, places});
        }
        fields.push_back({277, kShort, {page.samples}});
        if (!tiled)
        {
            fields.push_back({278, kLong, {blockHeight}});
            fields.push_back({279, placeType, sizes});
        }
        fields.push_back({284, kShort, {page.planar ? 2U : 1U}});
        fields.push_back({317, kShort, {page.predictor}});
        if (tiled)
        {
            fields.push_back({322, kLong, {page.tileWidth}});
            fields.push_back({323, kLong, {page.tileHeight}});
            fields.push_back({324, placeType, places});
            fields.push_back({325, placeType, sizes});
        }
        if (page.samples > colours)
        {
            std::vector<std::uint64_t> extra(page.samples - colours, 0);
            if (page.alpha)
            {
                extra.back() = 2;
            }
            fields.push_back({338, kShort, extra});
        }
        fields.push_back({339, kShort, std::vector<std::uint64_t>(page.samples, static_cast<unsigned>(page.kind))});

        // Values that don't fit into their entry stand before the directory.
        std::string entries;
        for (const Field& field : fields)
        {
            const unsigned each = field.type == kShort ? 2 : field.type == kLong ? 4 : 8;
            std::string values;
            for (const std::uint64_t value : field.values)
            {
                Put(values, value, each);
            }
            Put(entries, field.tag, 2);
            Put(entries, field.type, 2);
            Put(entries, field.values.size(), PlaceBytes());
            if (values.size() <= PlaceBytes())
            {
                values.resize(PlaceBytes());
                entries += values;
            }
            else
            {
                Align();
                Put(entries, m_bytes.size(), PlaceBytes());
                m_bytes += values;
            }
        }
        Align();
        std::string link;
        Put(link, m_bytes.size(), PlaceBytes());
        m_bytes.replace(m_link, link.size(), link);
        Put(m_bytes, fields.size(), m_form.large ? 8 : 2);
        m_bytes += entries;
        m_link = m_bytes.size();
        Put(m_bytes, 0, PlaceBytes());
    }

    void Align() { m_bytes.resize((m_bytes.size() + 1) / 2 * 2); }

    TiffForm m_form;
    std::string m_bytes;
    std::size_t m_link = 0; ///< where the place of the next directory stands
};

/// @return a file with one page.
[[nodiscard]] inline TiffWriter OnePage(const TiffPageSpec& page, TiffForm form = {})
{
    TiffWriter writer(form);
    writer.AddPage(page);
    return writer;
}

} // namespace support
