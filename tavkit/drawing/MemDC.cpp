#include "tavkit/drawing/MemDC.h"

#include "tavkit/drawing/NearestScale.h"

#include <vector>

namespace
{

constexpr WORD kBitsPerPixel = 24;
constexpr std::size_t kScanLineUnit = 4; // scan lines of a bitmap are padded to a multiple of it

} // namespace

CMemDC::CMemDC() = default;

CMemDC::~CMemDC() { Release(); }

void CMemDC::Release()
{
    if (m_dc.GetSafeHdc() != nullptr)
    {
        if (m_hOldBitmap != nullptr)
        {
            ::SelectObject(m_dc.m_hDC, m_hOldBitmap);
            m_hOldBitmap = nullptr;
        }
        m_bitmap.DeleteObject();
        m_dc.DeleteDC();
    }
    m_pLine.reset();
    m_nWidth = 0;
    m_nHeight = 0;
}

void CMemDC::Resize(CDC* pDC, int w, int h)
{
    if (w == m_nWidth && h == m_nHeight)
    {
        return;
    }
    Release();
    if (pDC == nullptr || w <= 0 || h <= 0 || !m_dc.CreateCompatibleDC(pDC))
    {
        return;
    }
    if (!m_bitmap.CreateCompatibleBitmap(pDC, w, h))
    {
        m_dc.DeleteDC();
        return;
    }
    m_hOldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap.m_hObject);
    m_nWidth = w;
    m_nHeight = h;
    m_bmi = {};
    m_bmi.biSize = sizeof m_bmi;
    m_bmi.biWidth = w;
    m_bmi.biHeight = -h;
    m_bmi.biPlanes = 1;
    m_bmi.biBitCount = kBitsPerPixel;
    auto const bytes = static_cast<std::size_t>(w) * tavkit::kBytesPerCanvasPixel;
    m_pLine = std::make_unique<unsigned char[]>(bytes - bytes % kScanLineUnit + kScanLineUnit);
}

void CMemDC::SetLine(int y, void const* line)
{
    ::SetDIBits(m_dc.m_hDC, static_cast<HBITMAP>(m_bitmap.m_hObject), static_cast<UINT>(m_nHeight - y - 1), 1, line,
                reinterpret_cast<BITMAPINFO const*>(&m_bmi), DIB_RGB_COLORS);
}

void CMemDC::SetCanvas(CDC* pDC, const DCanvas& canvas)
{
    Resize(pDC, canvas.m_nWidth, canvas.m_nHeight);
    for (int y = 0; y < m_nHeight; ++y)
    {
        SetLine(y, canvas.GetDataLine(y));
    }
}

void CMemDC::SetCanvasScaled(CDC* pDC, const DCanvas& canvas, int w, int h)
{
    if (w == canvas.m_nWidth && h == canvas.m_nHeight)
    {
        SetCanvas(pDC, canvas);
        return;
    }
    Resize(pDC, w, h);
    if (canvas.m_nWidth <= 0 || canvas.m_nHeight <= 0 || m_nWidth == 0)
    {
        return;
    }
    std::vector<int> const offsets = tavkit::NearestOffsets(canvas.m_nWidth, w);
    // The system reads whole padded scan lines, so the line holds more than its pixels.
    std::vector<unsigned char> line(static_cast<std::size_t>(w) * tavkit::kBytesPerCanvasPixel + kScanLineUnit);
    for (int y = 0; y < h; ++y)
    {
        tavkit::ScaleLine(canvas.GetDataLine(tavkit::NearestSource(y, canvas.m_nHeight, h)), offsets, line.data());
        SetLine(y, line.data());
    }
}
