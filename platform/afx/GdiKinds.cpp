// GdiKinds.cpp - how each kind of GDI object is created
#include "afxgdi.h"

#include "afxdc.h"
#include "afxstat.h"
#include <cstdlib>

IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

// Pens

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    if (!CreatePen(nPenStyle, nWidth, crColor))
    {
        AfxThrowResourceException();
    }
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor)
{
    return Attach(::CreatePen(nPenStyle, nWidth, crColor));
}

BOOL CPen::CreatePenIndirect(LPLOGPEN lpLogPen) { return lpLogPen != nullptr && Attach(::CreatePenIndirect(lpLogPen)); }

// Brushes

CBrush::CBrush(COLORREF crColor)
{
    if (!CreateSolidBrush(crColor))
    {
        AfxThrowResourceException();
    }
}

BOOL CBrush::CreateSolidBrush(COLORREF crColor) { return Attach(::CreateSolidBrush(crColor)); }

BOOL CBrush::CreateHatchBrush(int nIndex, COLORREF crColor) { return Attach(::CreateHatchBrush(nIndex, crColor)); }

BOOL CBrush::CreatePatternBrush(const CBitmap* pBitmap)
{
    return Attach(::CreatePatternBrush(static_cast<HBITMAP>(pBitmap->GetSafeHandle())));
}

BOOL CBrush::CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }

// Fonts

namespace
{
constexpr long long kTenthsOfPointPerInch = 720;

// Logical height of a length in device pixels, whatever the mapping of the context.
int LogicalHeight(HDC hDC, int pixels)
{
    POINT ends[] = {{0, 0}, {0, pixels}};
    ::DPtoLP(hDC, ends, 2);
    return std::abs(ends[1].y - ends[0].y);
}
} // namespace

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                       BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename)
{
    return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline, cStrikeOut,
                               nCharSet, nOutPrecision, nClipPrecision, nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreateFontIndirect(const LOGFONT* lpLogFont)
{
    return lpLogFont != nullptr && Attach(::CreateFontIndirect(lpLogFont));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    LOGFONT logFont = {};
    logFont.lfCharSet = DEFAULT_CHARSET;
    logFont.lfHeight = nPointSize;
    ::lstrcpyn(logFont.lfFaceName, lpszFaceName != nullptr ? lpszFaceName : "", LF_FACESIZE);
    return CreatePointFontIndirect(&logFont, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC)
{
    if (lpLogFont == nullptr)
    {
        return FALSE;
    }
    const HDC hScreen = pDC == nullptr ? ::GetDC(nullptr) : nullptr;
    const HDC hDC = pDC == nullptr ? hScreen : pDC->m_hAttribDC;
    const long long pixels = ::GetDeviceCaps(hDC, LOGPIXELSY) * 1LL * lpLogFont->lfHeight / kTenthsOfPointPerInch;
    LOGFONT logFont = *lpLogFont;
    logFont.lfHeight = -LogicalHeight(hDC, static_cast<int>(pixels));
    if (hScreen != nullptr)
    {
        ::ReleaseDC(nullptr, hScreen);
    }
    return CreateFontIndirect(&logFont);
}

// Bitmaps

BOOL CBitmap::LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    return Attach(::LoadBitmap(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CBitmap::LoadOEMBitmap(UINT nIDBitmap) { return Attach(::LoadBitmap(nullptr, MAKEINTRESOURCE(nIDBitmap))); }

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->GetSafeHdc(), nWidth, nHeight));
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits)
{
    return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
}

// Regions

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2) { return Attach(::CreateRectRgn(x1, y1, x2, y2)); }

BOOL CRgn::CreateRectRgnIndirect(LPCRECT lpRect)
{
    return lpRect != nullptr && Attach(::CreateRectRgnIndirect(lpRect));
}

int CRgn::CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode)
{
    return ::CombineRgn(static_cast<HRGN>(m_hObject), static_cast<HRGN>(pRgn1->GetSafeHandle()),
                        static_cast<HRGN>(pRgn2->GetSafeHandle()), nCombineMode);
}

BOOL CRgn::PtInRegion(POINT point) const { return ::PtInRegion(static_cast<HRGN>(m_hObject), point.x, point.y); }

int CRgn::GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(static_cast<HRGN>(m_hObject), lpRect); }
