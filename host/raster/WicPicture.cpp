#include "host/raster/WicPicture.h"

#include <array>
#include <cstdio>
#include <limits>

#include "host/FileBytes.h"
#include "host/raster/TiffPicture.h"

using Microsoft::WRL::ComPtr;

namespace raster
{
namespace
{

constexpr std::uint64_t kMostRowBytes = std::uint64_t{1} << 28; // of one row of a block; more is no picture
constexpr std::size_t kPieceBytes = std::size_t{1} << 20;       // about what is copied at a time
constexpr int kPixelsOfByte = 8;  // at the most: pieces of narrow pixels begin at whole bytes
constexpr int kRowsTogether = 64; // of formats that know no blocks

/// A pixel format whose samples are delivered as they are.
struct PlainFormat
{
    const GUID* id;
    SampleType type;
    int channels;
    std::size_t stride; ///< bytes of a pixel
    int firstSample;    ///< which sample of a pixel is channel 0
    int step;           ///< samples from one channel to the next
};

constexpr std::array kPlainFormats = {
    PlainFormat{&GUID_WICPixelFormat8bppGray, SampleType::U8, 1, 1, 0, 1},
    PlainFormat{&GUID_WICPixelFormat16bppGray, SampleType::U16, 1, 2, 0, 1},
    PlainFormat{&GUID_WICPixelFormat32bppGrayFloat, SampleType::F32, 1, 4, 0, 1},
    PlainFormat{&GUID_WICPixelFormat24bppBGR, SampleType::U8, 3, 3, 2, -1},
    PlainFormat{&GUID_WICPixelFormat24bppRGB, SampleType::U8, 3, 3, 0, 1},
    PlainFormat{&GUID_WICPixelFormat32bppBGR, SampleType::U8, 3, 4, 2, -1},
    PlainFormat{&GUID_WICPixelFormat32bppBGRA, SampleType::U8, 3, 4, 2, -1},
    PlainFormat{&GUID_WICPixelFormat32bppRGBA, SampleType::U8, 3, 4, 0, 1},
    PlainFormat{&GUID_WICPixelFormat48bppRGB, SampleType::U16, 3, 6, 0, 1},
    PlainFormat{&GUID_WICPixelFormat48bppBGR, SampleType::U16, 3, 6, 2, -1},
    PlainFormat{&GUID_WICPixelFormat64bppRGBA, SampleType::U16, 3, 8, 0, 1},
    PlainFormat{&GUID_WICPixelFormat64bppBGRA, SampleType::U16, 3, 8, 2, -1},
    PlainFormat{&GUID_WICPixelFormat96bppRGBFloat, SampleType::F32, 3, 12, 0, 1},
    PlainFormat{&GUID_WICPixelFormat128bppRGBFloat, SampleType::F32, 3, 16, 0, 1},
    PlainFormat{&GUID_WICPixelFormat128bppRGBAFloat, SampleType::F32, 3, 16, 0, 1},
};

[[nodiscard]] const GUID& ContainerOf(PictureFormat format) noexcept
{
    switch (format)
    {
    case PictureFormat::Bmp:
        return GUID_ContainerFormatBmp;
    case PictureFormat::Gif:
        return GUID_ContainerFormatGif;
    case PictureFormat::Jpeg:
        return GUID_ContainerFormatJpeg;
    case PictureFormat::Png:
        return GUID_ContainerFormatPng;
    default:
        return GUID_ContainerFormatTiff;
    }
}

/// True if no block of a packed page claims more than the bytes stored for it can say.
[[nodiscard]] bool IsPlausible(const TiffPage& tags) noexcept
{
    constexpr std::uint64_t kMostBlock = std::uint64_t{1} << 30;
    constexpr std::uint64_t kBitsOfByte = 8;
    const std::uint64_t bits =
        static_cast<std::uint64_t>(tags.bits != 0 ? tags.bits : kBitsOfByte) * (tags.planar ? 1 : tags.samples);
    const std::uint64_t rowBytes = (tags.blockWidth * bits + kBitsOfByte - 1) / kBitsOfByte;
    if (rowBytes > kMostRowBytes || tags.blockHeight > kMostBlock / rowBytes)
    {
        return false;
    }
    const std::uint64_t stored = tags.byteCounts.empty() ? 0 : std::ranges::max(tags.byteCounts);
    return IsPlausibleBlock(rowBytes * tags.blockHeight, stored);
}

} // namespace

ComScope::ComScope() noexcept : m_leave(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

ComScope::~ComScope()
{
    if (m_leave)
    {
        ::CoUninitialize();
    }
}

std::unique_ptr<WicPicture> WicPicture::Open(const std::string& path, PictureFormat format, unsigned page,
                                             const std::optional<TiffPage>& tags, std::string& cause)
{
    if (tags && !IsPlausible(*tags))
    {
        cause = "The picture claims more than its file can hold.";
        return nullptr;
    }
    std::unique_ptr<WicPicture> picture(new WicPicture);
    HRESULT result = picture->OpenFrame(path, format, page);
    if (SUCCEEDED(result))
    {
        result = picture->ChooseSource(tags);
    }
    if (FAILED(result))
    {
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "The picture can't be decoded (0x%08lX).",
                      static_cast<unsigned long>(result));
        cause = text.data();
        return nullptr;
    }
    return picture;
}

HRESULT WicPicture::OpenFrame(const std::string& path, PictureFormat format, unsigned page)
{
    HRESULT result =
        ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&m_factory));
    ComPtr<IWICStream> stream;
    if (SUCCEEDED(result))
    {
        result = m_factory->CreateStream(&stream);
    }
    if (SUCCEEDED(result))
    {
        result = stream->InitializeFromFilename(host::WidePath(path).c_str(), GENERIC_READ);
    }
    ComPtr<IWICBitmapDecoder> decoder;
    if (SUCCEEDED(result))
    {
        result = m_factory->CreateDecoder(ContainerOf(format), nullptr, &decoder);
    }
    if (SUCCEEDED(result))
    {
        result = decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand);
    }
    UINT pages = 0;
    if (SUCCEEDED(result))
    {
        result = decoder->GetFrameCount(&pages);
    }
    if (SUCCEEDED(result))
    {
        result = page < pages ? decoder->GetFrame(page, &m_frame) : WINCODEC_ERR_FRAMEMISSING;
    }
    UINT width = 0;
    UINT height = 0;
    if (SUCCEEDED(result))
    {
        result = m_frame->GetSize(&width, &height);
    }
    constexpr UINT kMostPixels = std::numeric_limits<int>::max();
    if (SUCCEEDED(result) && (width == 0 || height == 0 || width > kMostPixels || height > kMostPixels))
    {
        result = WINCODEC_ERR_IMAGESIZEOUTOFRANGE;
    }
    m_info.width = static_cast<int>(width);
    m_info.height = static_cast<int>(height);
    return result;
}

HRESULT WicPicture::ChooseSource(const std::optional<TiffPage>& tags)
{
    WICPixelFormatGUID format;
    HRESULT result = m_frame->GetPixelFormat(&format);
    if (FAILED(result))
    {
        return result;
    }
    const auto plain =
        std::ranges::find_if(kPlainFormats, [&](const PlainFormat& candidate) { return *candidate.id == format; });
    if (plain == kPlainFormats.end())
    {
        result = ConvertTo8Bit(format);
    }
    else
    {
        m_source = m_frame;
        m_info.channels = plain->channels;
        m_info.type = plain->type;
        m_layout.sampleBytes = BytesOf(plain->type);
        m_layout.stride = plain->stride;
        const auto sampleBytes = static_cast<std::ptrdiff_t>(m_layout.sampleBytes);
        m_layout.first = plain->firstSample * sampleBytes;
        m_layout.step = plain->step * sampleBytes;
        // The imaging component tells no signs.
        const auto told = tags ? TypeOf(*tags) : std::nullopt;
        if (told == SampleType::S16 && m_info.type != SampleType::F32)
        {
            m_layout.widen = m_layout.sampleBytes == 1;
            m_info.type = SampleType::S16;
        }
    }
    m_blockWidth = m_info.width;
    m_info.blockRows = kRowsTogether;
    if (tags)
    {
        m_blockWidth = static_cast<int>(std::min<std::uint32_t>(tags->blockWidth, tags->width));
        m_info.blockRows = static_cast<int>(std::min<std::uint32_t>(tags->blockHeight, tags->height));
    }
    if (SUCCEEDED(result) && static_cast<std::uint64_t>(m_blockWidth) * m_layout.stride > kMostRowBytes)
    {
        result = WINCODEC_ERR_IMAGESIZEOUTOFRANGE;
    }
    return result;
}

HRESULT WicPicture::ConvertTo8Bit(const WICPixelFormatGUID& format)
{
    ComPtr<IWICFormatConverter> converter;
    HRESULT result = m_factory->CreateFormatConverter(&converter);
    if (SUCCEEDED(result))
    {
        result = converter->Initialize(m_frame.Get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr,
                                       0.0, WICBitmapPaletteTypeCustom);
    }
    const bool grey = format == GUID_WICPixelFormatBlackWhite || format == GUID_WICPixelFormat2bppGray ||
                      format == GUID_WICPixelFormat4bppGray || IsGreyPalette();
    m_source = converter;
    m_info.type = SampleType::U8;
    m_info.channels = grey ? 1 : 3;
    m_columnStep = kPixelsOfByte;
    m_layout.sampleBytes = 1;
    m_layout.stride = 4;
    m_layout.first = 2;
    m_layout.step = -1;
    return result;
}

bool WicPicture::IsGreyPalette() const
{
    ComPtr<IWICPalette> palette;
    UINT count = 0;
    if (FAILED(m_factory->CreatePalette(&palette)) || FAILED(m_frame->CopyPalette(palette.Get())) ||
        FAILED(palette->GetColorCount(&count)) || count == 0)
    {
        return false;
    }
    std::vector<WICColor> colours(count);
    if (FAILED(palette->GetColors(count, colours.data(), &count)))
    {
        return false;
    }
    return std::ranges::all_of(colours, [](WICColor colour) {
        constexpr WICColor kByte = 0xFF;
        return (colour & kByte) == (colour >> 8 & kByte) && (colour & kByte) == (colour >> 16 & kByte);
    });
}

bool WicPicture::Pick(std::span<const int> columns, std::span<const int> rows, ChannelRange channels,
                      std::span<std::byte> pixels)
{
    const std::size_t pixelBytes = m_layout.OutBytes() * static_cast<std::size_t>(channels.count);
    const std::size_t rowBytes = columns.size() * pixelBytes;
    // Block by block, since the decoder keeps just the last one.
    for (std::size_t row = 0; row < rows.size();)
    {
        const auto blockBottom = (static_cast<std::int64_t>(rows[row]) / m_info.blockRows + 1) * m_info.blockRows;
        const auto rowsEnd = static_cast<std::size_t>(std::ranges::lower_bound(rows, blockBottom) - rows.begin());
        for (std::size_t column = 0; column < columns.size();)
        {
            const auto blockRight = (static_cast<std::int64_t>(columns[column]) / m_blockWidth + 1) * m_blockWidth;
            const auto columnsEnd =
                static_cast<std::size_t>(std::ranges::lower_bound(columns, blockRight) - columns.begin());
            const auto part = columns.subspan(column, columnsEnd - column);
            const int left = part.front() - part.front() % m_columnStep;
            const int width = part.back() - left + 1;
            const std::size_t stride = static_cast<std::size_t>(width) * m_layout.stride;
            const auto most = static_cast<int>(std::max<std::size_t>(kPieceBytes / stride, 1));
            for (std::size_t first = row; first < rowsEnd;)
            {
                // Neighbouring rows are copied together.
                std::size_t last = first;
                while (last + 1 < rowsEnd && rows[last + 1] - rows[last] <= 1 && rows[last + 1] - rows[first] < most)
                {
                    ++last;
                }
                const WICRect rect{left, rows[first], width, rows[last] - rows[first] + 1};
                m_piece.resize(stride * static_cast<std::size_t>(rect.Height));
                if (FAILED(m_source->CopyPixels(&rect, static_cast<UINT>(stride), static_cast<UINT>(m_piece.size()),
                                                reinterpret_cast<BYTE*>(m_piece.data()))))
                {
                    return false;
                }
                for (std::size_t i = first; i <= last; ++i)
                {
                    PickRow(m_layout, m_piece.data() + static_cast<std::size_t>(rows[i] - rows[first]) * stride, left,
                            part, channels, pixels.data() + i * rowBytes + column * pixelBytes, pixelBytes);
                }
                first = last + 1;
            }
            column = columnsEnd;
        }
        row = rowsEnd;
    }
    return true;
}

} // namespace raster
