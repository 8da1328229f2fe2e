// DrawImg.h - shows a raster file
#pragma once

#include <afxwin.h>
#include "tavkit/frame/Export.h"

/// Draws a raster file into `rect`, its aspect kept, centred, its contrast stretched so that data of any pixel type can
/// be seen: three channels as red, green and blue, fewer as the first one in grey. The room around the picture isn't
/// painted. The file is read anew at every call, at the size shown.
/// @return false if the file can't be opened; later failures of the raster driver leave the picture black.
TAVKIT_API bool DrawImgToDC(const char* pszFile, CDC* pDC, const CRect& rect);
