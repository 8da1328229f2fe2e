// PictureDriver.h - the raster driver for picture files on disk
#pragma once

#include "host/raster/Resample.h"
#include "tavkit/frame/services/RDIDriver.h"

namespace raster
{

/// Reads PNG, JPEG, BMP, GIF and TIFF files, each with all its pages: "slides.tif?page=2" is the third one, since pages
/// count from 0; without an option page 0 is meant. A page that isn't there can't be opened.
///
/// Grey levels and colours of 8 and 16 bits, of 32-bit floating point and, in uncompressed TIFF, of 32-bit whole
/// numbers keep their type, with the sign that the file gives them; signed samples of 8 bits are delivered with 16. All
/// else (palettes, single bits, CMYK, opacity) becomes one grey or three colour channels of 8 bits.
///
/// Modes of reading: kModeNearest takes the pixel under each target pixel's centre, kModeAverage the mean of what the
/// target pixel covers, kModeAny is the driver's choice and takes the nearest, which reads only what is shown and keeps
/// the values as they are. Any other mode is refused. Without resampling allowed the window must be as large as the
/// target. What lies outside the picture reads as 0. After a failure the buffer is all zero, if it was usable at all.
///
/// A handle belongs to the thread that opened it: COM stays initialised there until the file is closed.
class PictureDriver final : public RDIDriver
{
public:
    static constexpr unsigned kModeNearest = 1;
    static constexpr unsigned kModeAverage = 2;
    static constexpr unsigned kModeAny = 3;

    bool Accepts(BDIMoniker const& moniker) const override;
    void* OpenFile(BDIMoniker const& moniker, DError* error) override;
    int GetNumChnl(void* hFile) override;
    int GetChnlSizeX(void* hFile, int chnl) override;
    int GetChnlSizeY(void* hFile, int chnl) override;
    bool GetChnlGeoCode(void* hFile, int chnl, RDIGeoCoo* geoCoo) override;
    DMITypes::RDIDataType GetChnlDataType(void* hFile, int chnl) override;
    bool ReadBlockRsmpl(void* hFile, int chnl, double left, double top, double right, double bottom, void* buffer,
                        int width, int height, unsigned int mode, bool bRsmpl) override;
    void CloseFile(void* hFile) override;
};

} // namespace raster
