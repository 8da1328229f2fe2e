#include "tavkit/charts/ChartPage.h"

namespace tavkit
{
namespace
{

constexpr const char* kCursorFile = "arrow_r.cur";

} // namespace

void RegisterChartClass(LPCTSTR name)
{
    const HINSTANCE instance = AfxGetInstanceHandle();
    WNDCLASSA windowClass{};
    if (::GetClassInfoA(instance, name, &windowClass))
    {
        return;
    }
    windowClass = {};
    windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = ::DefWindowProcA;
    windowClass.hInstance = instance;
    windowClass.hCursor =
        static_cast<HCURSOR>(::LoadImageA(nullptr, kCursorFile, IMAGE_CURSOR, 0, 0, LR_LOADFROMFILE | LR_DEFAULTSIZE));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = name;
    if (::RegisterClassA(&windowClass) == 0)
    {
        AfxThrowResourceException();
    }
}

void DrawChartFrame(CDC* pDC, CSize page)
{
    const CPen pen(PS_SOLID, 1, kInkColor);
    const SelectScope selected(*pDC, pen);
    pDC->MoveTo(0, 0);
    pDC->LineTo(page.cx - 1, 0);
    pDC->LineTo(page.cx - 1, page.cy - 1);
    pDC->LineTo(0, page.cy - 1);
    pDC->LineTo(0, 0);
}

void InvalidateChart(CWnd& chart, bool erase)
{
    if (chart.m_hWnd != nullptr)
    {
        chart.Invalidate(erase);
    }
}

CSize ClientSize(CWnd const& chart)
{
    CRect client(0, 0, 0, 0);
    if (chart.m_hWnd != nullptr)
    {
        chart.GetClientRect(client);
    }
    return client.Size();
}

} // namespace tavkit
