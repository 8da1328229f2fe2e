#include "automation/Screenshot.h"

#include <objidl.h>

#include <algorithm>
#include <set>
using std::max; // GDI+ headers count on these names
using std::min;
#include <gdiplus.h>

namespace automation
{
namespace
{
/// The PNG encoder of GDI+ has this fixed class id.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
constexpr int kBitsPerPixel = 32;
constexpr std::uint32_t kColourMask = 0x00FFFFFF;

std::wstring Widen(const std::string& text)
{
    std::wstring wide(static_cast<size_t>(::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// GDI+ for as long as the block lives. Starts are counted by the system, so the program may have its own.
class Graphics
{
public:
    Graphics()
    {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
    }
    ~Graphics() { Gdiplus::GdiplusShutdown(m_token); }
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

private:
    ULONG_PTR m_token = 0;
};
} // namespace

RECT Screenshot::ScreenRect() { return {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)}; }

Screenshot::Screenshot(const RECT& rect)
{
    const RECT screen = ScreenRect();
    RECT part{};
    if (!::IntersectRect(&part, &rect, &screen))
    {
        return;
    }
    m_width = part.right - part.left;
    m_height = part.bottom - part.top;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = m_width;
    info.bmiHeader.biHeight = -m_height; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = kBitsPerPixel;
    void* bits = nullptr;
    HDC source = ::GetDC(nullptr);
    HDC memory = ::CreateCompatibleDC(source);
    HBITMAP bitmap = ::CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (memory != nullptr && bitmap != nullptr)
    {
        HGDIOBJ old = ::SelectObject(memory, bitmap);
        ::BitBlt(memory, 0, 0, m_width, m_height, source, part.left, part.top, SRCCOPY);
        ::GdiFlush();
        const auto* const first = static_cast<const std::uint32_t*>(bits);
        m_pixels.assign(first, first + static_cast<size_t>(m_width) * static_cast<size_t>(m_height));
        std::ranges::for_each(m_pixels, [](std::uint32_t& pixel) { pixel &= kColourMask; });
        ::SelectObject(memory, old);
    }
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, source);
}

COLORREF Screenshot::ColourAt(int x, int y) const
{
    const std::uint32_t pixel =
        m_pixels[static_cast<size_t>(y) * static_cast<size_t>(m_width) + static_cast<size_t>(x)];
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

int Screenshot::Colours(int limit) const
{
    std::set<std::uint32_t> colours;
    for (const auto pixel : m_pixels)
    {
        colours.insert(pixel);
        if (static_cast<int>(colours.size()) >= limit)
        {
            break;
        }
    }
    return static_cast<int>(colours.size());
}

bool Screenshot::SavePng(const std::string& path) const
{
    if (IsEmpty())
    {
        return false;
    }
    const Graphics graphics;
    constexpr int kBytesPerPixel = kBitsPerPixel / 8;
    // GDI+ only reads here; its interface knows no constant pixels.
    auto* const pixels = reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(m_pixels.data()));
    Gdiplus::Bitmap image(m_width, m_height, m_width * kBytesPerPixel, PixelFormat32bppRGB, pixels);
    return image.Save(Widen(path).c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}
} // namespace automation
