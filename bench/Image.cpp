// Image.cpp - [image] a picture shown small against the platform's own scaled read of the same file; time and memory
#include "bench/Bench.h"
#include "bench/Surface.h"
#include "bench/TemporaryFile.h"
#include "tavkit/drawing/ContrastStretch.h"
#include "tavkit/drawing/DrawImg.h"
#include "tests/support/TiffWriter.h"

#include <afxwin.h>
#include <psapi.h>
#include <wincodec.h>

#include <array>
#include <cstdio>
#include <memory>

namespace bench
{
namespace
{

constexpr double kTarget = 1.5;
constexpr unsigned kSize = 4000;
constexpr unsigned kHugeSize = 20000;
constexpr int kViewWidth = 400;
constexpr int kViewHeight = 300;
/// A square picture fills the view's height.
constexpr unsigned kShown = kViewHeight;
constexpr std::size_t kShownPixels = std::size_t{kShown} * kShown;
constexpr COLORREF kGround = RGB(255, 0, 255);

constexpr unsigned kRowsPerStrip = 64;
constexpr unsigned kTile = 256;
/// A tile of the huge picture covers a whole number of the pixels shown: 20000 / 300 * 6.
constexpr unsigned kHugeTile = 400;

/// The huge picture is promised to be shown in less memory than its own pixels take.
constexpr double kHugeLimitMegabytes = 400;
constexpr double kMegabyte = 1 << 20;

/// Grey of a field of the pictures. Fields cover whole pixels of what is shown, so that every way to make a picture
/// smaller, picking or averaging, gives the same pixels. 0 doesn't occur: it would be no value.
unsigned FieldGrey(unsigned column, unsigned row) { return 1 + (column * 13 + row * 7) % 251; }

support::TiffPageSpec Striped()
{
    constexpr unsigned kField = kSize / 20;
    support::TiffPageSpec page;
    page.width = page.height = kSize;
    page.rowsPerStrip = kRowsPerStrip;
    page.value = [](unsigned x, unsigned y, unsigned) { return FieldGrey(x / kField, y / kField); };
    return page;
}

support::TiffPageSpec Tiled()
{
    support::TiffPageSpec page = Striped();
    page.tileWidth = page.tileHeight = kTile;
    return page;
}

/// All tiles are one, so that the file is small; reading it costs what its size says.
support::TiffPageSpec HugeTiled()
{
    constexpr unsigned kField = kHugeTile / 2;
    support::TiffPageSpec page;
    page.width = page.height = kHugeSize;
    page.tileWidth = page.tileHeight = kHugeTile;
    page.sharedTile = true;
    page.value = [](unsigned x, unsigned y, unsigned) { return FieldGrey(x / kField, 3 * (y / kField)); };
    return page;
}

/// A picture on disk.
class PictureFile : public TemporaryFile
{
public:
    explicit PictureFile(const support::TiffPageSpec& page)
    {
        Require(support::OnePage(page).Save(Path()), "the picture can't be written");
    }
};

struct ReleaseIt
{
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename T>
using ComPtr = std::unique_ptr<T, ReleaseIt>;

void Succeed(HRESULT result, const char* step)
{
    if (FAILED(result))
    {
        char text[128];
        std::snprintf(text, sizeof text, "the platform's read failed at \"%s\": %08lx", step, result);
        throw WorkError(text);
    }
}

/// The platform's reader. One object stands for all reads, so that its making isn't measured.
class ScaledReader
{
public:
    ScaledReader()
    {
        IWICImagingFactory* factory = nullptr;
        Succeed(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                   reinterpret_cast<void**>(&factory)),
                "factory");
        m_factory.reset(factory);
    }

    /// Reads the picture at the size shown: one grey byte a pixel.
    void Read(const std::string& path, std::span<BYTE> pixels) const
    {
        const std::wstring wide(path.begin(), path.end()); // names of temporary files are plain ASCII
        IWICBitmapDecoder* decoder = nullptr;
        Succeed(m_factory->CreateDecoderFromFilename(wide.c_str(), nullptr, GENERIC_READ,
                                                     WICDecodeMetadataCacheOnDemand, &decoder),
                "open");
        const ComPtr<IWICBitmapDecoder> ownDecoder(decoder);
        IWICBitmapFrameDecode* frame = nullptr;
        Succeed(decoder->GetFrame(0, &frame), "page");
        const ComPtr<IWICBitmapFrameDecode> ownFrame(frame);
        IWICBitmapScaler* scaler = nullptr;
        Succeed(m_factory->CreateBitmapScaler(&scaler), "scaler");
        const ComPtr<IWICBitmapScaler> ownScaler(scaler);
        Succeed(scaler->Initialize(frame, kShown, kShown, WICBitmapInterpolationModeNearestNeighbor), "size");
        Succeed(scaler->CopyPixels(nullptr, kShown, static_cast<UINT>(pixels.size()), pixels.data()), "pixels");
    }

private:
    ComPtr<IWICImagingFactory> m_factory;
};

void ShowOurs(const std::string& path, const Surface& view)
{
    CDC* const dc = CDC::FromHandle(view.Dc());
    Require(DrawImgToDC(path.c_str(), dc, CRect(0, 0, view.Width(), view.Height())), "DrawImgToDC can't open the file");
}

/// What must stand in the view: the pixels that the platform read, stretched, in the view's middle.
void RequireShown(const Surface& view, std::span<const BYTE> read)
{
    std::vector<BYTE> expected(read.begin(), read.end());
    tavkit::StretchContrast(expected.data(), expected.size(), tavkit::PixelType::Unsigned8);
    constexpr unsigned kLeft = (kViewWidth - kShown) / 2;
    constexpr DWORD kGrey = 0x010101;
    const std::span<const DWORD> pixels = view.Pixels();
    for (unsigned y = 0; y < kViewHeight; ++y)
    {
        for (unsigned x = 0; x < kViewWidth; ++x)
        {
            const bool inside = x >= kLeft && x < kLeft + kShown;
            const DWORD wanted = inside ? expected[y * kShown + x - kLeft] * kGrey : kGround;
            const DWORD got = pixels[y * kViewWidth + x] & RGB(255, 255, 255);
            if (got != wanted)
            {
                char text[128];
                std::snprintf(text, sizeof text, "pixel %u, %u came out as %06lx in place of %06lx", x, y, got, wanted);
                throw WorkError(text);
            }
        }
    }
}

/// What the platform must have read: the grey of the field that each pixel lies in.
void RequireRead(std::span<const BYTE> read, const support::TiffPageSpec& page)
{
    for (unsigned y = 0; y < kShown; ++y)
    {
        for (unsigned x = 0; x < kShown; ++x)
        {
            const auto middle = [](unsigned shown, unsigned size) { return (2 * shown + 1) * size / (2 * kShown); };
            unsigned column = middle(x, page.width);
            unsigned row = middle(y, page.height);
            if (page.sharedTile)
            {
                column %= page.tileWidth;
                row %= page.tileHeight;
            }
            if (read[y * kShown + x] != page.value(column, row, 0))
            {
                throw WorkError("the platform's read has a wrong pixel at " + std::to_string(x) + ", " +
                                std::to_string(y));
            }
        }
    }
}

Row MeasureTime(const char* name, const support::TiffPageSpec& page)
{
    const PictureFile file(page);
    const ScaledReader reader;
    std::vector<BYTE> expected(kShownPixels);
    reader.Read(file.Path(), expected);
    RequireRead(expected, page);

    Surface view(kViewWidth, kViewHeight);
    std::vector<BYTE> read(kShownPixels);
    const Medians medians =
        Interleave({.run = [&] { ShowOurs(file.Path(), view); },
                    .prepare = [&] { view.Fill(kGround); },
                    .check = [&] { RequireShown(view, expected); }},
                   {.run = [&] { reader.Read(file.Path(), read); },
                    .prepare = [&] { std::fill(read.begin(), read.end(), BYTE{}); },
                    .check = [&] { Require(read == expected, "the platform's read changed between rounds"); }});
    return {name, static_cast<long long>(page.width) * page.height, medians.ours, medians.reference, kTarget};
}

constexpr const char* kOursSide = "ours";
constexpr const char* kReferenceSide = "reference";

std::string Quoted(const std::string& text)
{
    std::string quoted(1, '"');
    quoted.append(text).append(1, '"');
    return quoted;
}

/// Peak memory of a process of its own that shows the picture once.
/// @return megabytes that were resident at most.
double PeakMegabytes(const char* side, const std::string& picture)
{
    const TemporaryFile result;
    char program[MAX_PATH];
    ::GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command = Quoted(program);
    command.append(" --peak ")
        .append(side)
        .append(" ")
        .append(Quoted(picture))
        .append(" ")
        .append(Quoted(result.Path()));
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    // Without handles to inherit its closing mark doesn't get among this program's lines.
    Require(::CreateProcessA(program, command.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr, nullptr,
                             &startup, &process) != FALSE,
            "the program can't start itself");
    ::WaitForSingleObject(process.hProcess, INFINITE);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);

    unsigned long long bytes = 0;
    char error[256] = "";
    if (std::FILE* const file = std::fopen(result.Path().c_str(), "r"))
    {
        if (std::fscanf(file, "%llu", &bytes) != 1)
        {
            bytes = 0;
            std::fgets(error, sizeof error, file);
        }
        std::fclose(file);
    }
    Require(bytes != 0, std::string("the process that shows the picture (") + side + ") failed. " + error);
    return static_cast<double>(bytes) / kMegabyte;
}

Row MeasurePeak(const char* name, const support::TiffPageSpec& page)
{
    const PictureFile file(page);
    return {name, static_cast<long long>(page.width) * page.height, PeakMegabytes(kOursSide, file.Path()),
            PeakMegabytes(kReferenceSide, file.Path()), std::nullopt};
}

std::vector<Row> Run()
{
    std::vector<Row> rows = {
        MeasureTime("image.striped", Striped()),
        MeasureTime("image.tiled", Tiled()),
        MeasurePeak("image.peak_mb.4000", Tiled()),
        MeasurePeak("image.peak_mb.20000", HugeTiled()),
    };
    const double huge = rows.back().ours;
    Require(huge < kHugeLimitMegabytes,
            "showing 20000 x 20000 pixels took " + std::to_string(huge) + " MB, which is more than promised");
    return rows;
}

const Registration registration("image", Run);

/// Shows the picture once, checks it, and answers with the most memory that this process held by then.
SIZE_T ShowAndMeasure(const std::string& side, const std::string& picture)
{
    if (side == kOursSide)
    {
        Surface view(kViewWidth, kViewHeight);
        view.Fill(kGround);
        ShowOurs(picture, view);
        constexpr std::size_t kCorner = (kViewWidth - kShown) / 2;
        Require(view.Pixels()[kCorner] != kGround, "nothing was drawn");
    }
    else
    {
        std::vector<BYTE> read(kShownPixels);
        ScaledReader().Read(picture, read);
        Require(read.front() != 0 && read.back() != 0, "nothing was read");
    }
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    Require(::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters) != FALSE &&
                counters.PeakWorkingSetSize != 0,
            "the system doesn't tell how much memory a process holds");
    return counters.PeakWorkingSetSize;
}

} // namespace

int RunPeak(const std::string& side, const std::string& picture, const std::string& result)
{
    std::string answer;
    int code = 0;
    try
    {
        answer = std::to_string(ShowAndMeasure(side, picture));
    }
    catch (const std::exception& error)
    {
        answer = error.what();
        code = 1;
    }
    std::FILE* const file = std::fopen(result.c_str(), "w");
    if (file == nullptr)
    {
        return 1;
    }
    std::fputs(answer.c_str(), file);
    return std::fclose(file) == 0 ? code : 1;
}

} // namespace bench
