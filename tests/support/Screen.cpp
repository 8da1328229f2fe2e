#include "Screen.h"

#include "Pump.h"

#include <objidl.h>
#include <algorithm>
using std::max; // GDI+ headers count on these names
using std::min;
#include <gdiplus.h>

#include <cstdlib>
#include <memory>

namespace support
{
namespace
{
/// The PNG encoder of GDI+ has this fixed class id.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

std::wstring Widen(const std::string& text)
{
    std::wstring wide(static_cast<size_t>(::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string FromEnvironment(const char* name, const char* otherwise)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value != 0 ? value : otherwise;
}
} // namespace

COLORREF ScreenPixel(POINT screen)
{
    Settle();
    HDC dc = ::GetDC(nullptr);
    const COLORREF color = ::GetPixel(dc, screen.x, screen.y);
    ::ReleaseDC(nullptr, dc);
    return color;
}

COLORREF ClientPixel(HWND window, int x, int y)
{
    ::UpdateWindow(window);
    POINT point{x, y};
    ::ClientToScreen(window, &point);
    return ScreenPixel(point);
}

bool SaveScreenshot(const std::string& path, const RECT* rect)
{
    Settle();
    const RECT screen{0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    RECT part = screen;
    if (rect != nullptr && !::IntersectRect(&part, rect, &screen))
    {
        return false;
    }
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    HDC source = ::GetDC(nullptr);
    HDC memory = ::CreateCompatibleDC(source);
    HBITMAP bitmap = ::CreateCompatibleBitmap(source, width, height);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, source, part.left, part.top, SRCCOPY);
    ::SelectObject(memory, old);

    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    bool saved = false;
    {
        Gdiplus::Bitmap image(bitmap, nullptr);
        saved = image.Save(Widen(path).c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);

    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, source);
    return saved;
}

std::string OutputFolder()
{
    std::string folder = FromEnvironment("TAVKIT_OUT", "out");
    ::CreateDirectoryA(folder.c_str(), nullptr);
    return folder;
}

std::string SamplePath(const std::string& name) { return FromEnvironment("TAVKIT_SAMPLES", "samples") + "\\" + name; }
} // namespace support
