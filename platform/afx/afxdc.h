// afxdc.h - device contexts: drawing, and what is selected while one draws
// Classes in this file: CDC, CClientDC, CWindowDC, CPaintDC, SelectScope, SavedDCScope
#pragma once

#include "afxgdi.h"

class CWnd;

/// A device context. Output goes to m_hDC, questions go to m_hAttribDC; the two are the same handle unless somebody
/// sets them apart. The destructor deletes the context.
/// SelectObject() borrows what it is given and answers with what was selected before: a permanent object if one owns
/// that handle, else a temporary one that lives until idle; null if the object was null or refused.
class TAVAFX_API CDC : public CObject
{
    DECLARE_DYNCREATE(CDC)
public:
    HDC m_hDC = nullptr;       ///< where drawing goes
    HDC m_hAttribDC = nullptr; ///< where attributes, extents and device capabilities are asked

    CDC() = default;
    ~CDC() override;

    /// The output handle, or null; may be asked of a null object.
    HDC GetSafeHdc() const;
    operator HDC() const { return GetSafeHdc(); }

    /// Takes over a context as both output and attribute context.
    /// @return FALSE for a null handle
    BOOL Attach(HDC hDC);
    /// Hands the output handle back and empties both; the caller owns it.
    HDC Detach();
    /// The permanent object of a context, or a temporary one that dies at idle and deletes nothing. Null for null.
    static CDC* PASCAL FromHandle(HDC hDC);

    /// A context on a device by driver and device name.
    /// @return FALSE if the device can't be had; the object is then empty
    BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData);
    /// A memory context with a bitmap of one pixel.
    /// @param pDC  context to be compatible with; null for the screen
    BOOL CreateCompatibleDC(CDC* pDC);
    /// Deletes the context. What is still selected is released first and stays with its owner.
    BOOL DeleteDC();
    /// @return the capability of the attribute context; 0 if there is none
    int GetDeviceCaps(int nIndex) const;

    /// @return a number for RestoreDC(), -1 if output and attribute context differ, 0 on failure
    virtual int SaveDC();
    /// @param nSavedDC  what SaveDC() answered; -1 for the last state saved
    virtual BOOL RestoreDC(int nSavedDC);

    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    virtual CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    /// Makes a copy of a region the clipping region.
    /// @return NULLREGION, SIMPLEREGION, COMPLEXREGION or ERROR
    int SelectObject(CRgn* pRgn);
    /// @param nIndex  BLACK_PEN, NULL_BRUSH, DEFAULT_GUI_FONT ...
    virtual CGdiObject* SelectStockObject(int nIndex);
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;

    /// Each setter answers with the value before; CLR_INVALID or 0 on failure.
    virtual COLORREF SetBkColor(COLORREF crColor);
    COLORREF GetBkColor() const;
    virtual COLORREF SetTextColor(COLORREF crColor);
    COLORREF GetTextColor() const;
    /// @param nBkMode  OPAQUE or TRANSPARENT
    int SetBkMode(int nBkMode);
    int GetBkMode() const;
    int SetROP2(int nDrawMode);
    /// @param nFlags  TA_LEFT, TA_BASELINE ...; GDI_ERROR on failure
    UINT SetTextAlign(UINT nFlags);
    UINT GetTextAlign() const;

    /// @return the position before
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    /// Draws up to the end point, which stays unpainted.
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    /// Draws with the current pen and fills with the current brush; right and bottom are left out.
    BOOL Rectangle(LPCRECT lpRect);
    BOOL Rectangle(int x1, int y1, int x2, int y2);
    BOOL Ellipse(LPCRECT lpRect);
    BOOL Ellipse(int x1, int y1, int x2, int y2);
    /// @param point  width and height of the ellipse that rounds the corners
    BOOL RoundRect(LPCRECT lpRect, POINT point);
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3);
    /// An arc of the ellipse in a rectangle, anticlockwise from the ray through the first point to that of the second.
    BOOL Arc(LPCRECT lpRect, POINT ptStart, POINT ptEnd);
    BOOL Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    BOOL Polygon(const POINT* lpPoints, int nCount);
    /// Fills with the current brush from a point up to a border of the colour given.
    BOOL FloodFill(int x, int y, COLORREF crColor);

    void FillRect(LPCRECT lpRect, CBrush* pBrush);
    void FrameRect(LPCRECT lpRect, CBrush* pBrush);
    /// Fills with one colour, which remains the background colour of the context.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    void DrawFocusRect(LPCRECT lpRect);
    /// @param nEdge  EDGE_RAISED ...; nFlags BF_RECT ...; the rectangle shrinks with BF_ADJUST
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags);
    BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState);
    BOOL DrawIcon(int x, int y, HICON hIcon);
    BOOL DrawIcon(POINT point, HICON hIcon) { return DrawIcon(point.x, point.y, hIcon); }

    /// @param nCount  characters, or -1 for a text that ends with a zero
    /// @param nFormat DT_...; DT_MODIFYSTRING is ignored, since the text is the caller's
    /// @return height of the text in logical units; 0 on failure
    virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat);
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
    virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount);
    BOOL TextOut(int x, int y, const CString& str);
    /// @param lpRect  clipping or opaque rectangle as nOptions say; may be null
    /// @param lpDxWidths  distances of the character cells; null for the font's own
    virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                            LPINT lpDxWidths);
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths);
    /// Size of one line of text in logical units, in the font of the attribute context; (0, 0) on failure.
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const;
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const;

    /// Copies from another context; a null source is for operations that need none, such as WHITENESS.
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop);
    /// @return the colour of a pixel; CLR_INVALID outside the clipping region
    COLORREF GetPixel(int x, int y) const;
    COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }
    COLORREF SetPixel(int x, int y, COLORREF crColor);
    COLORREF SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }

    /// Narrows the clipping region. @return the kind of the region that results
    int IntersectClipRect(LPCRECT lpRect);
    /// @param pRgn  copied; null takes the clipping region away
    int SelectClipRgn(CRgn* pRgn);
    int GetClipBox(LPRECT lpRect) const;

private:
    HGDIOBJ SelectInBoth(HGDIOBJ hObject);
};

/// The client area of a window, for drawing outside WM_PAINT.
class TAVAFX_API CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)
public:
    /// @param pWnd  null for the whole screen
    /// @throws CResourceException if the window has no context to give
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

/// A whole window with caption and borders; (0, 0) is its upper left corner on the screen.
class TAVAFX_API CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)
public:
    /// @param pWnd  null for the whole screen
    /// @throws CResourceException if the window has no context to give
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};

/// BeginPaint() and EndPaint() around a WM_PAINT handler.
class TAVAFX_API CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)
public:
    PAINTSTRUCT m_ps; ///< what BeginPaint() told

    /// @throws CResourceException if the window is gone
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

protected:
    HWND m_hWnd;
};

/// Selects a pen, brush, font, bitmap or stock object, and selects the old one again at the end of the block.
/// Keeps handles only, so that it may stand across message loops.
class TAVAFX_API SelectScope
{
public:
    SelectScope(CDC& dc, const CGdiObject& object);
    /// @param stockObject  BLACK_PEN, NULL_BRUSH ...
    SelectScope(CDC& dc, int stockObject);
    ~SelectScope();
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;

private:
    void Select(HGDIOBJ object);

    CDC& m_dc;
    HGDIOBJ m_old = nullptr;
    HGDIOBJ m_oldAttrib = nullptr;
};

/// SaveDC() now, RestoreDC() at the end of the block.
class TAVAFX_API SavedDCScope
{
public:
    explicit SavedDCScope(CDC& dc) : m_dc(dc), m_saved(dc.SaveDC()) {}
    ~SavedDCScope()
    {
        if (m_saved != 0)
        {
            m_dc.RestoreDC(m_saved);
        }
    }
    SavedDCScope(const SavedDCScope&) = delete;
    SavedDCScope& operator=(const SavedDCScope&) = delete;

private:
    CDC& m_dc;
    int m_saved;
};
