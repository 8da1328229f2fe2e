// RoundRectGradient.h - rounded rectangle with a colour gradient
#pragma once

#include <afxwin.h>
#include "tavkit/frame/Export.h"

/// Fills a rectangle with rounded corners with a gradient and draws its outline. GDI+ must have been started.
/// @param rect       pixels; the right side counts one pixel less
/// @param nRadius    of the corners, in pixels
/// @param crStart    colour (0x00BBGGRR) at the left, or at the top if `bVertical`
/// @param crEnd      colour at the other end
/// @param nPenWidth  of the outline, in world units; 0 or less draws none
/// @param crPen      colour of the outline
/// Failures of GDI+ leave the rectangle unpainted; nothing is reported.
TAVKIT_API void RoundRectGradient(HDC hdc, CRect rect, int nRadius, unsigned long crStart, unsigned long crEnd,
                                  bool bVertical, int nPenWidth, unsigned long crPen);
