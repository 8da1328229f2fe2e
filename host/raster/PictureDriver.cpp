#include "host/raster/PictureDriver.h"

#include <memory>
#include <exception>
#include <optional>
#include <string>

#include "host/FileSource.h"
#include "host/raster/PictureFile.h"
#include "host/raster/TiffPicture.h"
#include "host/raster/WicPicture.h"
#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DError.h"

namespace raster
{
namespace
{

/// What a handle stands for.
struct OpenPicture
{
    explicit OpenPicture(std::unique_ptr<Picture> opened) : picture(std::move(opened)), reader(*picture) {}

    [[nodiscard]] bool Has(int channel) const noexcept { return channel >= 0 && channel < picture->Info().channels; }

    std::unique_ptr<Picture> picture;
    WindowReader reader;
};

[[nodiscard]] OpenPicture* PictureOf(void* hFile) noexcept { return static_cast<OpenPicture*>(hFile); }

[[nodiscard]] DMITypes::RDIDataType CodeOf(SampleType type) noexcept
{
    switch (type)
    {
    case SampleType::U8:
        return DMITypes::rdiUInt8;
    case SampleType::U16:
        return DMITypes::rdiUInt16;
    case SampleType::S16:
        return DMITypes::rdiInt16;
    case SampleType::U32:
        return DMITypes::rdiUInt32;
    case SampleType::S32:
        return DMITypes::rdiInt32;
    default:
        return DMITypes::rdiFloat32;
    }
}

/// Opens a page with the reader that fits; on failure the cause is a sentence.
[[nodiscard]] std::unique_ptr<Picture> Open(const std::string& name, std::string& cause)
{
    const auto parts = ParsePictureName(name);
    if (!parts)
    {
        cause = "The name of the picture is empty or its options are not understood.";
        return nullptr;
    }
    auto source = host::FileSource::Open(parts->path);
    if (!source)
    {
        cause = "The file is missing or can't be read.";
        return nullptr;
    }
    const auto format = RecognisePicture(*source);
    if (!format)
    {
        cause = "The file is no picture of a known kind, or it is damaged.";
        return nullptr;
    }
    std::optional<TiffPage> tags;
    if (format == PictureFormat::Tiff)
    {
        const TiffDirectory directory(*source);
        tags = directory.ReadPage(parts->page);
        if (!tags)
        {
            cause = "The file has no such page, or the page is damaged.";
            return nullptr;
        }
        if (TiffPicture::Reads(*tags))
        {
            auto picture = TiffPicture::Open(std::move(source), *std::move(tags), directory.IsBigEndian());
            if (!picture)
            {
                cause = "The file ends before its picture does.";
            }
            return picture;
        }
    }
    source.reset();
    return WicPicture::Open(parts->path, *format, parts->page, tags, cause);
}

} // namespace

bool PictureDriver::Accepts(BDIMoniker const&) const
{
    return true; // what a file is, its content tells
}

void* PictureDriver::OpenFile(BDIMoniker const& moniker, DError* error)
{
    std::string cause;
    try
    {
        if (auto picture = Open(moniker.GetMoniker().c_str(), cause))
        {
            return new OpenPicture(std::move(picture));
        }
    }
    catch (const std::exception&)
    {
        cause = "There is not enough memory for the picture.";
    }
    if (error != nullptr)
    {
        error->SetError(cause.c_str());
    }
    return nullptr;
}

int PictureDriver::GetNumChnl(void* hFile) { return hFile != nullptr ? PictureOf(hFile)->picture->Info().channels : 0; }

int PictureDriver::GetChnlSizeX(void* hFile, int chnl)
{
    return hFile != nullptr && PictureOf(hFile)->Has(chnl) ? PictureOf(hFile)->picture->Info().width : 0;
}

int PictureDriver::GetChnlSizeY(void* hFile, int chnl)
{
    return hFile != nullptr && PictureOf(hFile)->Has(chnl) ? PictureOf(hFile)->picture->Info().height : 0;
}

bool PictureDriver::GetChnlGeoCode(void* hFile, int chnl, RDIGeoCoo* geoCoo)
{
    if (hFile == nullptr || geoCoo == nullptr || !PictureOf(hFile)->Has(chnl))
    {
        return false;
    }
    // All channels of a picture file have the picture's own size.
    geoCoo->m_nStepX = 1;
    geoCoo->m_nStepY = 1;
    return true;
}

DMITypes::RDIDataType PictureDriver::GetChnlDataType(void* hFile, int chnl)
{
    return hFile != nullptr && PictureOf(hFile)->Has(chnl) ? CodeOf(PictureOf(hFile)->picture->Info().type)
                                                           : DMITypes::RDIDataType{};
}

bool PictureDriver::ReadBlockRsmpl(void* hFile, int chnl, double left, double top, double right, double bottom,
                                   void* buffer, int width, int height, unsigned int mode, bool bRsmpl)
{
    const SourceWindow window{left, top, right, bottom};
    if (hFile == nullptr || buffer == nullptr || width <= 0 || height <= 0 || !IsProper(window) ||
        !PictureOf(hFile)->Has(chnl) || (mode != kModeNearest && mode != kModeAverage && mode != kModeAny) ||
        (!bRsmpl && (right - left != width || bottom - top != height)))
    {
        return false;
    }
    OpenPicture& file = *PictureOf(hFile);
    const std::span target(static_cast<std::byte*>(buffer), static_cast<std::size_t>(width) *
                                                                static_cast<std::size_t>(height) *
                                                                BytesOf(file.picture->Info().type));
    try
    {
        return file.reader.Read(chnl, window, width, height,
                                mode == kModeAverage ? ResampleMethod::Average : ResampleMethod::Nearest, target);
    }
    catch (const std::exception&)
    {
        std::ranges::fill(target, std::byte{0});
        return false;
    }
}

void PictureDriver::CloseFile(void* hFile) { delete PictureOf(hFile); }

} // namespace raster
