#include "bench/Surface.h"

#include "bench/Bench.h"

namespace bench
{

Surface::Surface(int width, int height) : m_width(width), m_height(height), m_dc(::CreateCompatibleDC(nullptr))
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    m_bitmap = ::CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    m_pixels = static_cast<DWORD*>(pixels);
    if (m_bitmap == nullptr)
    {
        ::DeleteDC(m_dc);
        throw WorkError("no memory for a picture to draw on");
    }
    m_oldBitmap = ::SelectObject(m_dc, m_bitmap);
}

Surface::~Surface()
{
    ::SelectObject(m_dc, m_oldBitmap);
    ::DeleteObject(m_bitmap);
    ::DeleteDC(m_dc);
}

std::span<const DWORD> Surface::Pixels() const noexcept
{
    ::GdiFlush();
    return {m_pixels, static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)};
}

void Surface::Fill(COLORREF color) noexcept
{
    const RECT all{0, 0, m_width, m_height};
    const HBRUSH brush = ::CreateSolidBrush(color);
    ::FillRect(m_dc, &all, brush);
    ::DeleteObject(brush);
}

} // namespace bench
