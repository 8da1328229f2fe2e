#include "Picture.h"

#include <algorithm>

Picture::Picture(int width, int height, COLORREF background)
    : m_width(width), m_height(height), m_background(background)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    m_dc.CreateCompatibleDC(nullptr);
    m_bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    m_pixels = static_cast<RGBQUAD*>(pixels);
    m_oldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap);
    m_dc.FillSolidRect(0, 0, width, height, background);
}

Picture::~Picture()
{
    ::SelectObject(m_dc.m_hDC, m_oldBitmap);
    ::DeleteObject(m_bitmap);
}

COLORREF Picture::At(int x, int y) const
{
    ::GdiFlush();
    RGBQUAD const& pixel = m_pixels[y * m_width + x];
    return RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue);
}

template <class Differs>
CRect Picture::Bounds(Differs differs) const
{
    CRect bounds(m_width, m_height, 0, 0);
    for (int y = 0; y < m_height; ++y)
    {
        for (int x = 0; x < m_width; ++x)
        {
            if (differs(x, y))
            {
                bounds.left = std::min<LONG>(bounds.left, x);
                bounds.top = std::min<LONG>(bounds.top, y);
                bounds.right = std::max<LONG>(bounds.right, x + 1);
                bounds.bottom = std::max<LONG>(bounds.bottom, y + 1);
            }
        }
    }
    return bounds.left < bounds.right ? bounds : CRect(0, 0, 0, 0);
}

CRect Picture::Painted() const
{
    return Bounds([this](int x, int y) { return At(x, y) != m_background; });
}

CRect Picture::DifferenceTo(Picture const& other) const
{
    return Bounds([&](int x, int y) { return At(x, y) != other.At(x, y); });
}
