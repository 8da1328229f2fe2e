// ChartPages.cpp - what the measurements of charts share
#include "bench/ChartPages.h"

#include "bench/Bench.h"
#include "bench/Surface.h"

#include <cstring>
#include <utility>

namespace bench
{
namespace
{

constexpr const char* kPageClass = "TavKitBenchPage";
constexpr int kTenthsPerInch = 720;

} // namespace

PlainPage::PlainPage(Draw draw) : m_draw(std::move(draw))
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kPageClass;
    ::RegisterClassA(&windowClass); // refused from the second time on
    m_window = ::CreateWindowExA(0, kPageClass, "", WS_POPUP | WS_VISIBLE, 0, 0, kChartSize.cx, kChartSize.cy, nullptr,
                                 nullptr, windowClass.hInstance, nullptr);
    Require(m_window != nullptr, "the page can't be made");
    ::SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const HDC screen = ::GetDC(m_window);
    m_dc = ::CreateCompatibleDC(screen);
    m_bitmap = ::CreateCompatibleBitmap(screen, kChartSize.cx, kChartSize.cy);
    m_oldBitmap = ::SelectObject(m_dc, m_bitmap);
    ::ReleaseDC(m_window, screen);
}

PlainPage::~PlainPage()
{
    ::DestroyWindow(m_window);
    ::SelectObject(m_dc, m_oldBitmap);
    ::DeleteObject(m_bitmap);
    ::DeleteDC(m_dc);
}

LRESULT CALLBACK PlainPage::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const page = reinterpret_cast<PlainPage*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message == WM_PAINT && page != nullptr)
    {
        page->Paint();
        return 0;
    }
    return ::DefWindowProcA(window, message, wParam, lParam);
}

void PlainPage::Paint()
{
    PAINTSTRUCT paint{};
    const HDC dc = ::BeginPaint(m_window, &paint);
    if (std::exchange(m_dirty, false))
    {
        const RECT page{0, 0, kChartSize.cx, kChartSize.cy};
        ::FillRect(m_dc, &page, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
        m_draw(m_dc);
    }
    ::BitBlt(dc, 0, 0, kChartSize.cx, kChartSize.cy, m_dc, 0, 0, SRCCOPY);
    ::EndPaint(m_window, &paint);
}

void RepaintWindow(HWND window, int times)
{
    for (int i = 0; i < times; ++i)
    {
        ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
    ::GdiFlush();
}

void BringToTop(HWND window) { ::SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); }

std::vector<DWORD> WindowPixels(HWND window)
{
    const Surface copy(kChartSize.cx, kChartSize.cy);
    const HDC dc = ::GetDC(window);
    ::BitBlt(copy.Dc(), 0, 0, kChartSize.cx, kChartSize.cy, dc, 0, 0, SRCCOPY);
    ::ReleaseDC(window, dc);
    constexpr DWORD kColorMask = 0x00FFFFFF;
    std::vector<DWORD> pixels(copy.Pixels().begin(), copy.Pixels().end());
    for (DWORD& pixel : pixels)
    {
        pixel &= kColorMask;
    }
    return pixels;
}

void RequireSamePixels(HWND ours, HWND reference)
{
    BringToTop(ours);
    RepaintWindow(ours, 1);
    const std::vector<DWORD> pixels = WindowPixels(ours);
    BringToTop(reference);
    RepaintWindow(reference, 1);
    Require(pixels == WindowPixels(reference), "the two sides drew different pixels");
}

HFONT PointFont(HDC dc, int size, const char* face)
{
    LOGFONTA font{};
    font.lfHeight = -::MulDiv(::GetDeviceCaps(dc, LOGPIXELSY), size, kTenthsPerInch);
    font.lfCharSet = DEFAULT_CHARSET;
    std::strncpy(font.lfFaceName, face, sizeof font.lfFaceName - 1);
    return ::CreateFontIndirectA(&font);
}

} // namespace bench
