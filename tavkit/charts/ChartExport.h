// ChartExport.h - charts as files and on the clipboard; an addition, over and above what the charts themselves do
#pragma once

#include <afxwin.h>

#include <functional>

namespace tavkit
{

/// Draws a page on any device context.
using PageDrawing = std::function<void(CDC&)>;

/// Writes a page as a PNG file, in place of the one that may be there.
/// @return false if the page is empty or the file can't be written. GetLastError() says why then, and the old file is
/// whole.
bool SavePagePng(char const* file, CSize page, PageDrawing const& draw);
/// The same as an enhanced metafile, which draws what the page drew.
bool SavePageEmf(char const* file, CSize page, PageDrawing const& draw);
/// Puts a page on the clipboard, as a bitmap and as an enhanced metafile.
/// @return false if the page is empty or can't be drawn, or the clipboard can't be had; it stays as it was then.
bool CopyPage(CWnd& owner, CSize page, PageDrawing const& draw);

} // namespace tavkit
