// DeviceContextDraw.cpp - shapes, text and pictures on a device context
#include "afxdc.h"

// Shapes

CPoint CDC::MoveTo(int x, int y)
{
    POINT before = {};
    if (m_hDC != m_hAttribDC)
    {
        ::MoveToEx(m_hDC, x, y, &before);
    }
    if (m_hAttribDC != nullptr)
    {
        ::MoveToEx(m_hAttribDC, x, y, &before);
    }
    return before;
}

BOOL CDC::LineTo(int x, int y)
{
    if (m_hAttribDC != nullptr && m_hDC != m_hAttribDC)
    {
        ::MoveToEx(m_hAttribDC, x, y, nullptr); // the positions stay the same; only the output draws
    }
    return ::LineTo(m_hDC, x, y);
}

BOOL CDC::Rectangle(LPCRECT lpRect) { return Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }

BOOL CDC::Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }

BOOL CDC::Ellipse(LPCRECT lpRect) { return Ellipse(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }

BOOL CDC::Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }

BOOL CDC::RoundRect(LPCRECT lpRect, POINT point)
{
    return RoundRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, point.x, point.y);
}

BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}

BOOL CDC::Arc(LPCRECT lpRect, POINT ptStart, POINT ptEnd)
{
    return Arc(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x, ptStart.y, ptEnd.x, ptEnd.y);
}

BOOL CDC::Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return ::Arc(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }

BOOL CDC::FloodFill(int x, int y, COLORREF crColor) { return ::FloodFill(m_hDC, x, y, crColor); }

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FrameRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    // The background colour stays changed: callers draw text on the area afterwards and rely on it.
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const RECT rect = {x, y, x + cx, y + cy};
    FillSolidRect(&rect, clr);
}

void CDC::DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }

BOOL CDC::DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState)
{
    return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
}

BOOL CDC::DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }

// Text

int CDC::DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
{
    if (lpszString == nullptr)
    {
        lpszString = "";
        nCount = -1; // an empty text is measured only when its length isn't told
    }
    return ::DrawText(m_hDC, lpszString, nCount, lpRect, nFormat & ~UINT(DT_MODIFYSTRING));
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
{
    return DrawText(str, str.GetLength(), lpRect, nFormat);
}

BOOL CDC::TextOut(int x, int y, LPCTSTR lpszString, int nCount) { return ::TextOut(m_hDC, x, y, lpszString, nCount); }

BOOL CDC::TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount, LPINT lpDxWidths)
{
    return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths)
{
    return ExtTextOut(x, y, nOptions, lpRect, str, static_cast<UINT>(str.GetLength()), lpDxWidths);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    SIZE size = {};
    if (lpszString == nullptr || !::GetTextExtentPoint32(m_hAttribDC, lpszString, nCount, &size))
    {
        return CSize(0, 0);
    }
    return size;
}

CSize CDC::GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }

BOOL CDC::GetTextMetrics(LPTEXTMETRIC lpMetrics) const { return ::GetTextMetrics(m_hAttribDC, lpMetrics); }

// Pictures

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, dwRop);
}

BOOL CDC::PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop)
{
    return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
}

COLORREF CDC::GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }

COLORREF CDC::SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
