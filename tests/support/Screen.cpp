#include "Screen.h"

#include "Pump.h"
#include "automation/Screenshot.h"

#include <cstdlib>

namespace support
{
namespace
{
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
    return automation::Screenshot(rect != nullptr ? *rect : automation::Screenshot::ScreenRect()).SavePng(path);
}

std::string OutputFolder()
{
    std::string folder = FromEnvironment("TAVKIT_OUT", "out");
    ::CreateDirectoryA(folder.c_str(), nullptr);
    return folder;
}

std::string SamplePath(const std::string& name) { return FromEnvironment("TAVKIT_SAMPLES", "samples") + "\\" + name; }
} // namespace support
