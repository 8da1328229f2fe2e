// Painted.h - whether a page of a control stands on the screen
#pragma once

#include "bench/Bench.h"

#include <windows.h>

namespace bench
{

/// Throws a WorkError unless something other than the background of windows stands in the lowest eighth of a window's
/// client area.
/// @param width  pixels from the left that are looked at
inline void RequirePainted(HWND window, int width)
{
    constexpr int kPart = 8;
    RECT client;
    ::GetClientRect(window, &client);
    const HDC dc = ::GetDC(window);
    const COLORREF ground = ::GetSysColor(COLOR_WINDOW);
    bool painted = false;
    for (int y = client.bottom - client.bottom / kPart; y < client.bottom && !painted; ++y)
    {
        for (int x = 0; x < width && !painted; ++x)
        {
            painted = ::GetPixel(dc, x, y) != ground;
        }
    }
    ::ReleaseDC(window, dc);
    Require(painted, "the page isn't painted");
}

} // namespace bench
