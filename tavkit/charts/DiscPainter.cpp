#include "tavkit/charts/DiscPainter.h"

#include "tavkit/charts/ChartPage.h"

#include <algorithm>

namespace tavkit
{
namespace
{

constexpr int kStampFrom = 500; // discs; fewer are drawn sooner than the page's pixels are fetched and put back
constexpr WORD kBitsPerPixel = 32;
constexpr std::uint32_t kGround = 0x00FFFFFF;

} // namespace

/// A memory context on pixels of its own, white at first.
class DiscPainter::Pixels
{
public:
    Pixels(CDC& compatible, int width, int height) : m_field{nullptr, width, height}
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height; // rows from the top
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = kBitsPerPixel;
        void* bits = nullptr;
        m_bitmap.Attach(::CreateDIBSection(compatible.m_hDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        m_field.pixels = static_cast<std::uint32_t*>(bits);
        if (m_field.pixels == nullptr || !m_dc.CreateCompatibleDC(&compatible))
        {
            AfxThrowResourceException();
        }
        m_old = ::SelectObject(m_dc.m_hDC, m_bitmap.m_hObject);
    }
    ~Pixels() { ::SelectObject(m_dc.m_hDC, m_old); }
    Pixels(Pixels const&) = delete;
    Pixels& operator=(Pixels const&) = delete;

    [[nodiscard]] CDC& Dc() { return m_dc; }
    /// What was drawn is in them.
    [[nodiscard]] PixelField const& Field() const
    {
        ::GdiFlush();
        return m_field;
    }

private:
    CBitmap m_bitmap;
    CDC m_dc;
    PixelField m_field;
    HGDIOBJ m_old = nullptr;
};

DiscPainter::DiscPainter(CDC& dc, SIZE page, RECT const& area, int radius, int count) : m_dc(dc), m_radius(radius)
{
    CRect places(area);
    places.NormalizeRect();
    m_room = places;
    m_room.InflateRect(radius, radius);
    m_room.IntersectRect(m_room, CRect(CPoint(0, 0), page));
    // A printer or a metafile takes the discs themselves, and other depths round the colour in their own ways.
    if (count >= kStampFrom && !m_room.IsRectEmpty() && ::GetObjectType(dc.m_hDC) == OBJ_MEMDC &&
        dc.GetDeviceCaps(BITSPIXEL) == kBitsPerPixel)
    {
        m_places = std::make_unique<DiscPlaces>(places);
    }
}

void DiscPainter::Draw(CDC& dc, int x, int y) const
{
    dc.Ellipse(x - m_radius, y - m_radius, x + m_radius, y + m_radius);
}

DiscStamp DiscPainter::MakeStamp() const
{
    const int size = 2 * m_radius;
    Pixels one(m_dc, size, size);
    one.Dc().FillSolidRect(0, 0, size, size, kPageColor);
    const SelectScope pen(one.Dc(), *m_dc.GetCurrentPen());
    const SelectScope brush(one.Dc(), *m_dc.GetCurrentBrush());
    Draw(one.Dc(), m_radius, m_radius);
    const auto pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    return {std::span(one.Field().pixels, pixels), size, kGround};
}

void DiscPainter::Finish()
{
    if (!m_places)
    {
        return;
    }
    Pixels copy(m_dc, m_room.Width(), m_room.Height());
    copy.Dc().BitBlt(0, 0, m_room.Width(), m_room.Height(), &m_dc, m_room.left, m_room.top, SRCCOPY);
    m_places->PutAll(copy.Field(), MakeStamp(), CPoint(m_radius + m_room.left, m_radius + m_room.top));
    m_dc.BitBlt(m_room.left, m_room.top, m_room.Width(), m_room.Height(), &copy.Dc(), 0, 0, SRCCOPY);
}

} // namespace tavkit
