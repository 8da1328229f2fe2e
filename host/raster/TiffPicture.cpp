#include "host/raster/TiffPicture.h"

#include <bit>
#include <cstring>
#include <utility>

namespace raster
{
namespace
{

constexpr std::uint64_t kMostRowBytes = std::uint64_t{1} << 26; // of one row of a block; more is no picture
constexpr std::size_t kGapBytes = std::size_t{1} << 14;         // read over rather than begin another reading
constexpr std::size_t kPieceBytes = std::size_t{1} << 20;       // about what is read at a time

/// Calls `use` with each sample of a row, as a word of its width.
template <class Word, class Use>
void ForEachWord(std::span<std::byte> row, Use use)
{
    for (std::size_t at = 0; at + sizeof(Word) <= row.size(); at += sizeof(Word))
    {
        Word word;
        std::memcpy(&word, row.data() + at, sizeof word);
        word = use(at, word);
        std::memcpy(row.data() + at, &word, sizeof word);
    }
}

/// Adds to each sample the one `step` bytes before it.
template <class Word>
void Accumulate(std::span<std::byte> row, std::size_t step)
{
    ForEachWord<Word>(row, [&](std::size_t at, Word word) {
        Word before = 0;
        if (at >= step)
        {
            std::memcpy(&before, row.data() + at - step, sizeof before);
        }
        return static_cast<Word>(word + before);
    });
}

} // namespace

std::optional<SampleType> TypeOf(const TiffPage& page) noexcept
{
    constexpr std::uint32_t kByte = 8;
    constexpr std::uint32_t kShort = 16;
    constexpr std::uint32_t kLong = 32;
    const bool isSigned = page.format == TiffSampleFormat::Signed;
    switch (page.format)
    {
    case TiffSampleFormat::Float:
        return page.bits == kLong ? std::optional(SampleType::F32) : std::nullopt;
    case TiffSampleFormat::Unsigned:
    case TiffSampleFormat::Signed:
    case TiffSampleFormat::Undefined:
        break;
    default:
        return std::nullopt;
    }
    switch (page.bits)
    {
    case kByte:
        return isSigned ? SampleType::S16 : SampleType::U8; // no channel has signed samples of 8 bits: widened
    case kShort:
        return isSigned ? SampleType::S16 : SampleType::U16;
    case kLong:
        return isSigned ? SampleType::S32 : SampleType::U32;
    default:
        return std::nullopt;
    }
}

bool TiffPicture::Reads(const TiffPage& page) noexcept
{
    const auto type = TypeOf(page);
    const bool colour = page.photometric == TiffPhotometric::BlackIsZero ||
                        page.photometric == TiffPhotometric::WhiteIsZero || page.photometric == TiffPhotometric::Rgb;
    const bool predictor = page.predictor == TiffPredictor::None || page.predictor == TiffPredictor::Difference ||
                           (page.predictor == TiffPredictor::FloatPlanes && type == SampleType::F32);
    return type.has_value() && colour && !page.reversedBits &&
           (page.compression == TiffCompression::None || (IsKnown(page.compression) && predictor)) &&
           static_cast<std::uint64_t>(page.blockWidth) * page.samples <= kMostRowBytes / sizeof(std::uint32_t);
}

TiffPicture::TiffPicture(std::unique_ptr<host::ByteSource> source, TiffPage page, bool bigEndian)
    : m_source(std::move(source)), m_page(std::move(page))
{
    constexpr std::uint32_t kBitsOfByte = 8;
    const bool swap = bigEndian != (std::endian::native == std::endian::big);
    m_swapRow = swap && m_page.compression != TiffCompression::None && m_page.predictor == TiffPredictor::Difference;
    const bool isNative =
        m_swapRow || (m_page.compression != TiffCompression::None && m_page.predictor == TiffPredictor::FloatPlanes);
    m_layout.sampleBytes = m_page.bits / kBitsOfByte;
    m_layout.step = static_cast<std::ptrdiff_t>(m_layout.sampleBytes);
    m_layout.stride = m_layout.sampleBytes * (m_page.planar ? 1 : m_page.samples);
    m_layout.swap = swap && !isNative;
    m_layout.widen = m_page.format == TiffSampleFormat::Signed && m_layout.sampleBytes == 1;
    m_layout.invert = m_page.photometric == TiffPhotometric::WhiteIsZero && m_page.format != TiffSampleFormat::Float;

    m_info.width = static_cast<int>(m_page.width);
    m_info.height = static_cast<int>(m_page.height);
    m_info.channels = static_cast<int>(m_page.samples - m_page.alphas);
    m_info.type = TypeOf(m_page).value_or(SampleType::U8);
    m_info.blockRows = static_cast<int>(std::min(m_page.blockHeight, m_page.height));
}

std::unique_ptr<TiffPicture> TiffPicture::Open(std::unique_ptr<host::ByteSource> source, TiffPage page, bool bigEndian)
{
    if (!Reads(page))
    {
        return nullptr;
    }
    auto picture = std::unique_ptr<TiffPicture>(new TiffPicture(std::move(source), std::move(page), bigEndian));
    return picture->IsWithinFile() ? std::move(picture) : nullptr;
}

std::uint64_t TiffPicture::RowBytes() const noexcept
{
    return static_cast<std::uint64_t>(m_page.blockWidth) * m_layout.stride;
}

bool TiffPicture::IsWithinFile() const noexcept
{
    const std::uint64_t size = m_source->Size();
    if (m_page.compression != TiffCompression::None)
    {
        constexpr std::uint64_t kAlwaysPlausible = std::uint64_t{16} << 20;
        const std::uint64_t most = std::max(kAlwaysPlausible, size * MostPerByte(m_page.compression));
        return m_page.height <=
               most / (static_cast<std::uint64_t>(m_page.width) * m_layout.sampleBytes) / m_page.samples;
    }
    const bool strips = m_page.blocksAcross == 1 && m_page.blockWidth == m_page.width;
    const std::uint64_t inPlane = static_cast<std::uint64_t>(m_page.blocksAcross) * m_page.blocksDown;
    for (std::size_t i = 0; i < m_page.offsets.size(); ++i)
    {
        // The last strip ends with the page, whereas tiles are always whole.
        const bool last = i % inPlane == inPlane - 1;
        const std::uint64_t rows =
            strips && last ? m_page.height - (m_page.blocksDown - 1ULL) * m_page.blockHeight : m_page.blockHeight;
        const std::uint64_t offset = m_page.offsets[i];
        if (offset > size || rows > (size - offset) / RowBytes())
        {
            return false;
        }
    }
    return true;
}

bool TiffPicture::Pick(std::span<const int> columns, std::span<const int> rows, ChannelRange channels,
                       std::span<std::byte> pixels)
{
    const std::size_t sampleBytes = m_layout.OutBytes();
    const std::size_t pixelBytes = sampleBytes * static_cast<std::size_t>(channels.count);
    Request all{columns, rows, channels, pixels.data(), pixelBytes, columns.size() * pixelBytes};
    if (!m_page.planar)
    {
        return PickPlane(0, all);
    }
    all.channels = {};
    for (int channel = 0; channel < channels.count; ++channel, all.pixels += sampleBytes)
    {
        if (!PickPlane(static_cast<std::uint32_t>(channels.first + channel), all))
        {
            return false;
        }
    }
    return true;
}

bool TiffPicture::PickPlane(std::uint32_t plane, const Request& all)
{
    const auto countBelow = [](std::span<const int> indices, std::uint64_t end) {
        return static_cast<std::size_t>(std::ranges::lower_bound(indices, static_cast<std::int64_t>(end)) -
                                        indices.begin());
    };
    Request rowsOfBlock = all;
    for (auto rows = all.rows; !rows.empty(); rows = rows.subspan(rowsOfBlock.rows.size()))
    {
        const std::uint32_t down = static_cast<std::uint32_t>(rows.front()) / m_page.blockHeight;
        rowsOfBlock.rows = rows.first(countBelow(rows, (down + 1ULL) * m_page.blockHeight));
        Request part = rowsOfBlock;
        for (auto columns = all.columns; !columns.empty(); columns = columns.subspan(part.columns.size()))
        {
            const std::uint32_t across = static_cast<std::uint32_t>(columns.front()) / m_page.blockWidth;
            part.columns = columns.first(countBelow(columns, (across + 1ULL) * m_page.blockWidth));
            const auto block = static_cast<std::size_t>(
                (static_cast<std::uint64_t>(plane) * m_page.blocksDown + down) * m_page.blocksAcross + across);
            if (m_page.compression == TiffCompression::None ? !PickStored(block, across, down, part)
                                                            : !PickPacked(block, across, down, part))
            {
                return false;
            }
            part.pixels += part.columns.size() * part.pixelBytes;
        }
        rowsOfBlock.pixels += rowsOfBlock.rows.size() * rowsOfBlock.rowBytes;
    }
    return true;
}

bool TiffPicture::PickStored(std::size_t block, std::uint32_t across, std::uint32_t down, const Request& request)
{
    const int blockLeft = static_cast<int>(across * m_page.blockWidth);
    const int blockTop = static_cast<int>(down * m_page.blockHeight);
    const int firstColumn = request.columns.front();
    const auto width = static_cast<std::size_t>(request.columns.back() - firstColumn + 1);
    const auto rowBytes = static_cast<std::size_t>(RowBytes());
    const std::uint64_t start =
        m_page.offsets[block] + static_cast<std::uint64_t>(firstColumn - blockLeft) * m_layout.stride;
    std::byte* out = request.pixels;
    for (std::size_t first = 0; first < request.rows.size();)
    {
        // Rows that lie near one another are read at once: a reading costs as much as some thousand bytes.
        const int firstRow = request.rows[first];
        std::size_t last = first;
        while (last + 1 < request.rows.size() &&
               static_cast<std::size_t>(request.rows[last + 1] - request.rows[last]) * rowBytes <=
                   kGapBytes + rowBytes &&
               static_cast<std::size_t>(request.rows[last + 1] - firstRow) * rowBytes <= kPieceBytes)
        {
            ++last;
        }
        const auto rows = static_cast<std::size_t>(request.rows[last] - firstRow);
        m_rows.resize(rows * rowBytes + width * m_layout.stride);
        if (!m_source->Read(start + static_cast<std::uint64_t>(firstRow - blockTop) * rowBytes, m_rows))
        {
            return false;
        }
        for (; first <= last; ++first, out += request.rowBytes)
        {
            PickRow(m_layout, m_rows.data() + static_cast<std::size_t>(request.rows[first] - firstRow) * rowBytes,
                    firstColumn, request.columns, request.channels, out, request.pixelBytes);
        }
    }
    return true;
}

bool TiffPicture::PickPacked(std::size_t block, std::uint32_t across, std::uint32_t down, const Request& request)
{
    const int blockLeft = static_cast<int>(across * m_page.blockWidth);
    const std::uint32_t blockTop = down * m_page.blockHeight;
    std::byte* out = request.pixels;
    for (const int row : request.rows)
    {
        if (!UnpackRow(block, static_cast<std::uint32_t>(row) - blockTop))
        {
            m_unpacking.decoder.reset();
            return false;
        }
        PickRow(m_layout, m_rows.data(), blockLeft, request.columns, request.channels, out, request.pixelBytes);
        out += request.rowBytes;
    }
    return true;
}

bool TiffPicture::UnpackRow(std::size_t block, std::uint32_t rowInBlock)
{
    if (!m_unpacking.decoder || m_unpacking.block != block || rowInBlock + 1 < m_unpacking.nextRow)
    {
        m_unpacking.decoder =
            MakeDecoder(m_page.compression, *m_source, m_page.offsets[block], m_page.byteCounts[block]);
        m_unpacking.block = block;
        m_unpacking.nextRow = 0;
        m_rows.resize(static_cast<std::size_t>(RowBytes()));
    }
    if (rowInBlock < m_unpacking.nextRow)
    {
        return true; // the row unpacked last
    }
    for (; m_unpacking.nextRow <= rowInBlock; ++m_unpacking.nextRow)
    {
        if (!m_unpacking.decoder->Read(m_rows))
        {
            return false;
        }
    }
    UndoPredictor();
    return true;
}

void TiffPicture::UndoPredictor()
{
    const std::size_t sampleBytes = m_layout.sampleBytes;
    if (m_page.predictor == TiffPredictor::Difference)
    {
        switch (sampleBytes)
        {
        case 1:
            Accumulate<std::uint8_t>(m_rows, m_layout.stride);
            break;
        case 2:
            if (m_swapRow)
            {
                ForEachWord<std::uint16_t>(m_rows, [](std::size_t, std::uint16_t word) { return Swapped(word); });
            }
            Accumulate<std::uint16_t>(m_rows, m_layout.stride);
            break;
        default:
            if (m_swapRow)
            {
                ForEachWord<std::uint32_t>(m_rows, [](std::size_t, std::uint32_t word) { return Swapped(word); });
            }
            Accumulate<std::uint32_t>(m_rows, m_layout.stride);
            break;
        }
    }
    else if (m_page.predictor == TiffPredictor::FloatPlanes)
    {
        // The distances run over the bytes of the whole row, the heaviest bytes of all samples first.
        Accumulate<std::uint8_t>(m_rows, m_layout.stride / sampleBytes);
        const std::size_t count = m_rows.size() / sampleBytes;
        m_planes.resize(m_rows.size());
        for (std::size_t plane = 0; plane < sampleBytes; ++plane)
        {
            const std::size_t place = std::endian::native == std::endian::big ? plane : sampleBytes - 1 - plane;
            for (std::size_t i = 0; i < count; ++i)
            {
                m_planes[i * sampleBytes + place] = m_rows[plane * count + i];
            }
        }
        m_rows.swap(m_planes);
    }
}

} // namespace raster
