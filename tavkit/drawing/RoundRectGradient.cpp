#include "tavkit/drawing/RoundRectGradient.h"

#include <objidl.h>
#include <gdiplus.h>

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace
{

constexpr int kTopEdgeGap = 50; // the top edge ends this far before its corner; the arc is joined to it by a line
constexpr REAL kQuarter = 90;   // degrees
constexpr REAL kFromLeft = 180; // angles count clockwise from the right
constexpr REAL kFromTop = 270;
constexpr REAL kFromRight = 0;
constexpr REAL kFromBottom = 90;

constexpr ARGB Opaque(unsigned long cr)
{
    return 0xFF000000 | GetRValue(cr) << 16 | GetGValue(cr) << 8 | GetBValue(cr);
}

} // namespace

void RoundRectGradient(HDC hdc, CRect rect, int nRadius, unsigned long crStart, unsigned long crEnd, bool bVertical,
                       int nPenWidth, unsigned long crPen)
{
    int const left = rect.left;
    int const top = rect.top;
    int const right = rect.right - 1;
    int const bottom = rect.bottom;
    int const d = 2 * nRadius;

    // Whatever can't be made stays null, and what draws with it does nothing.
    GpGraphics* graphics = nullptr;
    GpPath* path = nullptr;
    GpLineGradient* brush = nullptr;
    GdipCreateFromHDC(hdc, &graphics);
    GdipCreatePath(FillModeAlternate, &path);
    GdipAddPathLineI(path, left, bottom - nRadius, left, top + nRadius);
    GdipAddPathArcI(path, left, top, d, d, kFromLeft, kQuarter);
    GdipAddPathLineI(path, left + nRadius, top, right - nRadius - kTopEdgeGap, top);
    GdipAddPathArcI(path, right - d, top, d, d, kFromTop, kQuarter);
    GdipAddPathLineI(path, right, top + nRadius, right, bottom - nRadius);
    GdipAddPathArcI(path, right - d, bottom - d, d, d, kFromRight, kQuarter);
    GdipAddPathLineI(path, right - nRadius, bottom, left + nRadius, bottom);
    GdipAddPathArcI(path, left, bottom - d, d, d, kFromBottom, kQuarter);

    GpRect const box(left, top, right - left, bottom - top);
    GdipCreateLineBrushFromRectI(&box, Opaque(crStart), Opaque(crEnd),
                                 bVertical ? LinearGradientModeVertical : LinearGradientModeHorizontal, WrapModeTile,
                                 &brush);
    GdipFillPath(graphics, brush, path);
    if (nPenWidth > 0)
    {
        GpPen* pen = nullptr;
        GdipCreatePen1(Opaque(crPen), static_cast<REAL>(nPenWidth), UnitWorld, &pen);
        GdipDrawPath(graphics, pen, path);
        GdipDeletePen(pen);
    }
    GdipDeleteBrush(brush);
    GdipDeletePath(path);
    GdipDeleteGraphics(graphics);
}
