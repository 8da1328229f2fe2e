// afxgdi.h - pens, brushes, fonts, bitmaps and regions: objects that own one GDI handle
// Classes in this file: CGdiObject, CPen, CBrush, CFont, CBitmap, CRgn
#pragma once

#include "afx.h"
#include "afxgeom.h"

class CBitmap;
class CDC;

/// Owner of one GDI handle. The destructor deletes the handle; Detach() hands it to the caller instead. An object lives
/// and dies on one thread.
/// A creating member, or Attach(), that fails answers FALSE and leaves the object as it was. One that succeeds on an
/// object in use deletes what was held before, so that nothing is lost.
class TAVAFX_API CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)
public:
    HGDIOBJ m_hObject = nullptr; ///< the handle owned, null when empty

    CGdiObject() = default;
    ~CGdiObject() override;

    /// The handle, or null; may be asked of a null object.
    HGDIOBJ GetSafeHandle() const;

    /// The object that stands for a handle: the permanent one that owns it, or a temporary one of the class that fits
    /// the handle's kind. A temporary object dies at idle and never deletes the handle. Null for a null handle.
    static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);

    /// Takes over a handle, which the object owns from now on.
    /// @return FALSE for a null handle
    BOOL Attach(HGDIOBJ hObject);
    /// Hands the handle back; the caller owns it.
    HGDIOBJ Detach();

    /// Deletes the handle. Harmless on an empty object (FALSE) and on a stock object.
    /// A bitmap must not be selected in a device context at this moment.
    BOOL DeleteObject();

    /// Fills a buffer with the description of the object (LOGPEN, LOGBRUSH, LOGFONT, BITMAP).
    /// @param nCount  size of the buffer in bytes
    /// @return bytes written; 0 if the object is empty
    int GetObject(int nCount, LPVOID lpObject) const;

    /// Takes a stock object, such as BLACK_PEN or DEFAULT_GUI_FONT.
    BOOL CreateStockObject(int nIndex);

    BOOL operator==(const CGdiObject& other) const { return m_hObject == other.m_hObject; }
};

/// A pen. Owns its handle.
class TAVAFX_API CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)
public:
    CPen() = default;
    /// @param nPenStyle  PS_SOLID, PS_DOT ...
    /// @param nWidth     in logical units; 0 is one pixel whatever the mapping
    /// @throws CResourceException if the system has no pen to give
    CPen(int nPenStyle, int nWidth, COLORREF crColor);

    /// As the constructor, but answers FALSE instead of throwing.
    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
    BOOL CreatePenIndirect(LPLOGPEN lpLogPen);

    operator HPEN() const { return static_cast<HPEN>(GetSafeHandle()); }
    int GetLogPen(LOGPEN* pLogPen) const { return GetObject(sizeof(LOGPEN), pLogPen); }

    /// @see CGdiObject::FromHandle
    static CPen* PASCAL FromHandle(HPEN hPen) { return static_cast<CPen*>(CGdiObject::FromHandle(hPen)); }
};

/// A brush. Owns its handle.
class TAVAFX_API CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)
public:
    CBrush() = default;
    /// A solid brush.
    /// @throws CResourceException if the system has no brush to give
    CBrush(COLORREF crColor);

    BOOL CreateSolidBrush(COLORREF crColor);
    /// @param nIndex  HS_HORIZONTAL, HS_CROSS ...
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor);
    /// A brush that repeats a bitmap; the bitmap may be deleted afterwards.
    BOOL CreatePatternBrush(const CBitmap* pBitmap);
    /// The brush of a system colour (COLOR_WINDOW ...); follows changes of the colour and is never really deleted.
    BOOL CreateSysColorBrush(int nIndex);

    operator HBRUSH() const { return static_cast<HBRUSH>(GetSafeHandle()); }
    int GetLogBrush(LOGBRUSH* pLogBrush) const { return GetObject(sizeof(LOGBRUSH), pLogBrush); }

    /// @see CGdiObject::FromHandle
    static CBrush* PASCAL FromHandle(HBRUSH hBrush) { return static_cast<CBrush*>(CGdiObject::FromHandle(hBrush)); }
};

/// A font. Owns its handle.
class TAVAFX_API CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)
public:
    CFont() = default;

    /// @param nHeight  logical units: above 0 cell height, below 0 character height, 0 the default size
    /// @param lpszFacename  face name, cut at 31 characters; null or empty lets the other values choose
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    /// @return FALSE if the description is null or refused
    BOOL CreateFontIndirect(const LOGFONT* lpLogFont);

    /// A font of a size in points, in the default character set.
    /// @param nPointSize  tenths of a point: 120 is 12 point
    /// @param pDC  device context whose resolution and mapping count; null for the screen
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = nullptr);
    /// As CreatePointFont, with everything but the height taken from a description.
    /// @param lpLogFont  lfHeight in tenths of a point
    BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = nullptr);

    operator HFONT() const { return static_cast<HFONT>(GetSafeHandle()); }
    /// @return bytes written; 0 if the object is empty
    int GetLogFont(LOGFONT* pLogFont) const { return GetObject(sizeof(LOGFONT), pLogFont); }

    /// @see CGdiObject::FromHandle
    static CFont* PASCAL FromHandle(HFONT hFont) { return static_cast<CFont*>(CGdiObject::FromHandle(hFont)); }
};

/// A bitmap that depends on a device. Owns its handle.
class TAVAFX_API CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)
public:
    CBitmap() = default;

    /// Loads a bitmap resource, searched in the application first and then in the extension modules.
    /// @return FALSE if no module has it
    BOOL LoadBitmap(UINT nIDResource);
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    /// Loads one of the system's own bitmaps, such as OBM_CHECK (32760) or OBM_SIZE (32766).
    BOOL LoadOEMBitmap(UINT nIDBitmap);

    /// A bitmap in the format of a device context, with undefined content.
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    /// @param lpBits  rows padded to 16 bits, top row first; null leaves the content undefined
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits);

    operator HBITMAP() const { return static_cast<HBITMAP>(GetSafeHandle()); }
    /// @return bytes written; 0 if the object is empty
    int GetBitmap(BITMAP* pBitMap) const { return GetObject(sizeof(BITMAP), pBitMap); }

    /// @see CGdiObject::FromHandle
    static CBitmap* PASCAL FromHandle(HBITMAP hBitmap)
    {
        return static_cast<CBitmap*>(CGdiObject::FromHandle(hBitmap));
    }
};

/// A region. Owns its handle.
class TAVAFX_API CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)
public:
    CRgn() = default;

    BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
    BOOL CreateRectRgnIndirect(LPCRECT lpRect);
    /// @param nCombineMode  RGN_OR, RGN_DIFF ...; this region must exist already
    /// @return NULLREGION, SIMPLEREGION, COMPLEXREGION or ERROR
    int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode);
    BOOL PtInRegion(POINT point) const;
    /// @return as CombineRgn, and the smallest rectangle around the region
    int GetRgnBox(LPRECT lpRect) const;

    operator HRGN() const { return static_cast<HRGN>(GetSafeHandle()); }

    /// @see CGdiObject::FromHandle
    static CRgn* PASCAL FromHandle(HRGN hRgn) { return static_cast<CRgn*>(CGdiObject::FromHandle(hRgn)); }
};
