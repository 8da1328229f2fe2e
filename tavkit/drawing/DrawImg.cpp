#include "tavkit/drawing/DrawImg.h"

#include "tavkit/drawing/ContrastStretch.h"
#include "tavkit/drawing/ImageFit.h"
#include "tavkit/drawing/MemDC.h"
#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DCanvas.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/RDIDriver.h"
#include "tavkit/frame/services/RDIDriverMngr.h"

#include <array>
#include <new>
#include <vector>

namespace
{

constexpr int kColorChannels = 3;
constexpr unsigned int kResampleMode = 3;

// A raster file that is open to the end of the block.
class RasterFile
{
public:
    explicit RasterFile(char const* file)
    {
        DError error;
        if (!RDIDriverMngr::Instance()->OpenFile(BDIMoniker(file, nullptr), &m_driver, &m_file, "", &error, nullptr))
        {
            error.ClearError();
            m_driver = nullptr;
        }
    }
    ~RasterFile()
    {
        if (m_driver != nullptr)
        {
            m_driver->CloseFile(m_file);
        }
    }
    RasterFile(RasterFile const&) = delete;
    RasterFile& operator=(RasterFile const&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_driver != nullptr; }
    [[nodiscard]] int ChannelCount() const { return m_driver->GetNumChnl(m_file); }

    // Size of the picture in logical pixels.
    [[nodiscard]] SIZE Size() const
    {
        RDIGeoCoo steps;
        m_driver->GetChnlGeoCode(m_file, 0, &steps);
        return {tavkit::LogicalSize(m_driver->GetChnlSizeX(m_file, 0), steps.m_nStepX),
                tavkit::LogicalSize(m_driver->GetChnlSizeY(m_file, 0), steps.m_nStepY)};
    }

    // A channel in 8 bits, one byte a pixel, at the size asked for; black if it can't be read.
    [[nodiscard]] std::vector<unsigned char> ReadStretched(int channel, SIZE picture, SIZE size) const
    {
        auto const type = static_cast<tavkit::PixelType>(m_driver->GetChnlDataType(m_file, channel));
        std::size_t const pixels = static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
        auto const bytes = static_cast<std::size_t>(tavkit::BytesPerPixel(type));
        std::vector<unsigned char> buffer(pixels * std::max<std::size_t>(bytes, 1));
        if (bytes == 0)
        {
            return buffer;
        }
        if (!m_driver->ReadBlockRsmpl(m_file, channel, 0.0, 0.0, picture.cx, picture.cy, buffer.data(), size.cx,
                                      size.cy, kResampleMode, true))
        {
            buffer.assign(buffer.size(), 0);
        }
        tavkit::StretchContrast(buffer.data(), pixels, type);
        return buffer;
    }

private:
    RDIDriver* m_driver = nullptr;
    void* m_file = nullptr;
};

using Planes = std::array<std::vector<unsigned char>, kColorChannels>;

// Red, green and blue; with one channel its plane stands for all three.
void FillCanvas(DCanvas& canvas, Planes const& planes, bool color)
{
    auto const* red = planes[0].data();
    auto const* green = planes[color ? 1 : 0].data();
    auto const* blue = planes[color ? 2 : 0].data();
    for (int y = 0; y < canvas.m_nHeight; ++y)
    {
        unsigned char* out = canvas.GetDataLine(y);
        for (int x = 0; x < canvas.m_nWidth; ++x)
        {
            *out++ = *blue++;
            *out++ = *green++;
            *out++ = *red++;
        }
    }
}

void Show(DCanvas const& canvas, CDC* pDC, CRect const& rect, SIZE size)
{
    CMemDC buffer;
    buffer.SetCanvasScaled(pDC, canvas, size.cx, size.cy);
    POINT const at = tavkit::CentreIn(rect, size);
    pDC->BitBlt(at.x, at.y, size.cx, size.cy, &buffer.m_dc, 0, 0, SRCCOPY);
}

} // namespace

bool DrawImgToDC(const char* pszFile, CDC* pDC, const CRect& rect)
{
    try
    {
        DCanvas canvas;
        SIZE size{};
        bool color = false;
        Planes planes;
        {
            RasterFile const file(pszFile);
            if (!file.IsOpen())
            {
                return false;
            }
            SIZE const picture = file.Size();
            size = tavkit::FitInto(picture, rect.Size());
            if (pDC == nullptr || size.cx == 0 || size.cy == 0)
            {
                return true;
            }
            color = file.ChannelCount() >= kColorChannels;
            for (int channel = 0; channel < (color ? kColorChannels : 1); ++channel)
            {
                planes[static_cast<std::size_t>(channel)] = file.ReadStretched(channel, picture, size);
            }
        }
        if (canvas.SetSize(size.cx, size.cy))
        {
            FillCanvas(canvas, planes, color);
            planes = {};
            Show(canvas, pDC, rect, size);
        }
    }
    catch (std::bad_alloc const&)
    {
        // The file was opened, but the rectangle is too large to be filled: it stays as it is.
    }
    return true;
}
