// ChartPage.h - what the windows of all charts share
#pragma once

#include <afxwin.h>

namespace tavkit
{

constexpr COLORREF kPageColor = RGB(255, 255, 255);
constexpr COLORREF kInkColor = RGB(0, 0, 0);

/// Registers a chart's window class in the application's instance, unless it is there already. The class has the cursor
/// of the file "arrow_r.cur" in the current folder, and none if there is no such file.
/// @throws CResourceException if the system refuses
void RegisterChartClass(LPCTSTR name);

/// A thin black line along the inside of the page.
void DrawChartFrame(CDC* pDC, CSize page);

/// Invalidates a window that may not have been made yet.
void InvalidateChart(CWnd& chart, bool erase);

/// The client size; (0, 0) without a window.
[[nodiscard]] CSize ClientSize(CWnd const& chart);

} // namespace tavkit
