// ChartPages.h - what the measurements of charts share: a window that a program draws by hand, and pictures of windows
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace bench
{

constexpr SIZE kChartSize{900, 500}; // pixels
constexpr int kChartRepaints = 50;   // of one run

/// A shown window that keeps its drawing in a bitmap and copies it from there, as one does without a class.
class PlainPage
{
public:
    using Draw = std::function<void(HDC)>;

    /// @param draw  draws the page, which is white, into the bitmap
    explicit PlainPage(Draw draw);
    ~PlainPage();
    PlainPage(const PlainPage&) = delete;
    PlainPage& operator=(const PlainPage&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_window; }
    /// Draws anew at the next repaint.
    void Mark() noexcept { m_dirty = true; }

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Paint();

    Draw m_draw;
    HWND m_window;
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
    bool m_dirty = true;
};

/// Repaints a window so many times, and waits until it is done.
void RepaintWindow(HWND window, int times);

/// Brings a window to the front, so that nothing of it is covered.
void BringToTop(HWND window);

/// The pixels of a window's client area as they stand on the screen.
[[nodiscard]] std::vector<DWORD> WindowPixels(HWND window);

/// Throws a WorkError if two windows differ in a pixel.
void RequireSamePixels(HWND ours, HWND reference);

/// A font by its size in tenths of a point.
[[nodiscard]] HFONT PointFont(HDC dc, int size, const char* face);

} // namespace bench
