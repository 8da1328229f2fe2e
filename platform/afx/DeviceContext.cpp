// DeviceContext.cpp - the life of device contexts, what is selected in them, their attributes
#include "afxdc.h"

#include "afxcount.h"
#include "afxwnd.h"
#include "impl/GdiMaps.h"

IMPLEMENT_DYNCREATE(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

// Life

CDC::~CDC() { DeleteDC(); }

HDC CDC::GetSafeHdc() const { return this == nullptr ? nullptr : m_hDC; }

BOOL CDC::Attach(HDC hDC)
{
    if (hDC == nullptr)
    {
        return FALSE;
    }
    if (hDC != m_hDC)
    {
        DeleteDC();
    }
    m_hDC = m_hAttribDC = hDC;
    if (AfxEnterOwner(AfxDCMap(), hDC, this))
    {
        AfxCountCreated(AfxResource::DeviceContext);
    }
    return TRUE;
}

HDC CDC::Detach()
{
    const HDC hDC = m_hDC;
    m_hDC = m_hAttribDC = nullptr;
    if (hDC != nullptr && AfxLeaveOwner(AfxDCMap(), hDC, this))
    {
        AfxCountReleased(AfxResource::DeviceContext);
    }
    return hDC;
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    CDC* dc = AfxDCMap().FromHandle(hDC);
    if (dc != nullptr && dc->m_hDC == nullptr)
    {
        dc->m_hDC = dc->m_hAttribDC = hDC; // a temporary one that was detached since it was made
    }
    return dc;
}

BOOL CDC::CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return Attach(::CreateDC(lpszDriverName, lpszDeviceName, lpszOutput, static_cast<const DEVMODE*>(lpInitData)));
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(pDC->GetSafeHdc())); }

BOOL CDC::DeleteDC()
{
    const HDC hDC = Detach();
    return hDC != nullptr && ::DeleteDC(hDC);
}

int CDC::GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetDC(m_hWnd)))
    {
        AfxThrowResourceException();
    }
}

CClientDC::~CClientDC() { ::ReleaseDC(m_hWnd, Detach()); }

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetWindowDC(m_hWnd)))
    {
        AfxThrowResourceException();
    }
}

CWindowDC::~CWindowDC() { ::ReleaseDC(m_hWnd, Detach()); }

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps{}, m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
    {
        AfxThrowResourceException();
    }
}

CPaintDC::~CPaintDC()
{
    Detach();
    ::EndPaint(m_hWnd, &m_ps);
}

// What is set in both contexts when they differ; the answer is that of the attribute context, if there is one.

namespace
{
template <class TResult, class TSet>
TResult InBoth(const CDC& dc, TResult failed, TSet set)
{
    TResult result = failed;
    if (dc.m_hDC != dc.m_hAttribDC)
    {
        result = set(dc.m_hDC);
    }
    if (dc.m_hAttribDC != nullptr)
    {
        result = set(dc.m_hAttribDC);
    }
    return result;
}
} // namespace

int CDC::SaveDC()
{
    int saved = 0;
    if (m_hAttribDC != nullptr)
    {
        saved = ::SaveDC(m_hAttribDC);
    }
    if (m_hDC != m_hAttribDC && ::SaveDC(m_hDC) != 0)
    {
        saved = -1; // the two numbers may differ: only "the last state" means the same to both
    }
    return saved;
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    return InBoth(*this, FALSE, [nSavedDC](HDC hDC) { return ::RestoreDC(hDC, nSavedDC); });
}

HGDIOBJ CDC::SelectInBoth(HGDIOBJ hObject)
{
    if (hObject == nullptr)
    {
        return nullptr;
    }
    return InBoth(*this, HGDIOBJ(nullptr), [hObject](HDC hDC) { return ::SelectObject(hDC, hObject); });
}

CPen* CDC::SelectObject(CPen* pPen) { return CPen::FromHandle(static_cast<HPEN>(SelectInBoth(pPen->GetSafeHandle()))); }

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle(static_cast<HBRUSH>(SelectInBoth(pBrush->GetSafeHandle())));
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return CFont::FromHandle(static_cast<HFONT>(SelectInBoth(pFont->GetSafeHandle())));
}

// A bitmap fits into one context only, and that is where the output goes.
CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    const HGDIOBJ hBitmap = pBitmap->GetSafeHandle();
    return hBitmap == nullptr ? nullptr : CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, hBitmap)));
}

int CDC::SelectObject(CRgn* pRgn) { return pRgn->GetSafeHandle() == nullptr ? ERROR : SelectClipRgn(pRgn); }

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    return CGdiObject::FromHandle(SelectInBoth(::GetStockObject(nIndex)));
}

CPen* CDC::GetCurrentPen() const
{
    return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hAttribDC, OBJ_PEN)));
}

CBrush* CDC::GetCurrentBrush() const
{
    return CBrush::FromHandle(static_cast<HBRUSH>(::GetCurrentObject(m_hAttribDC, OBJ_BRUSH)));
}

CFont* CDC::GetCurrentFont() const
{
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hAttribDC, OBJ_FONT)));
}

CBitmap* CDC::GetCurrentBitmap() const
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(::GetCurrentObject(m_hDC, OBJ_BITMAP)));
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return InBoth(*this, COLORREF(CLR_INVALID), [crColor](HDC hDC) { return ::SetBkColor(hDC, crColor); });
}

COLORREF CDC::GetBkColor() const { return ::GetBkColor(m_hAttribDC); }

COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return InBoth(*this, COLORREF(CLR_INVALID), [crColor](HDC hDC) { return ::SetTextColor(hDC, crColor); });
}

COLORREF CDC::GetTextColor() const { return ::GetTextColor(m_hAttribDC); }

int CDC::SetBkMode(int nBkMode)
{
    return InBoth(*this, 0, [nBkMode](HDC hDC) { return ::SetBkMode(hDC, nBkMode); });
}

int CDC::GetBkMode() const { return ::GetBkMode(m_hAttribDC); }

int CDC::SetROP2(int nDrawMode)
{
    return InBoth(*this, 0, [nDrawMode](HDC hDC) { return ::SetROP2(hDC, nDrawMode); });
}

UINT CDC::SetTextAlign(UINT nFlags)
{
    return InBoth(*this, UINT(GDI_ERROR), [nFlags](HDC hDC) { return ::SetTextAlign(hDC, nFlags); });
}

UINT CDC::GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }

int CDC::IntersectClipRect(LPCRECT lpRect)
{
    return InBoth(*this, ERROR, [lpRect](HDC hDC) {
        return ::IntersectClipRect(hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
    });
}

int CDC::SelectClipRgn(CRgn* pRgn)
{
    const HRGN hRgn = static_cast<HRGN>(pRgn->GetSafeHandle());
    return InBoth(*this, ERROR, [hRgn](HDC hDC) { return ::SelectClipRgn(hDC, hRgn); });
}

int CDC::GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hDC, lpRect); }

// Scopes

SelectScope::SelectScope(CDC& dc, const CGdiObject& object) : m_dc(dc) { Select(object.GetSafeHandle()); }

SelectScope::SelectScope(CDC& dc, int stockObject) : m_dc(dc) { Select(::GetStockObject(stockObject)); }

void SelectScope::Select(HGDIOBJ object)
{
    if (object == nullptr)
    {
        return;
    }
    m_old = ::SelectObject(m_dc.m_hDC, object);
    if (m_dc.m_hAttribDC != m_dc.m_hDC && ::GetObjectType(object) != OBJ_BITMAP)
    {
        m_oldAttrib = ::SelectObject(m_dc.m_hAttribDC, object);
    }
}

SelectScope::~SelectScope()
{
    if (m_old != nullptr)
    {
        ::SelectObject(m_dc.m_hDC, m_old);
    }
    if (m_oldAttrib != nullptr)
    {
        ::SelectObject(m_dc.m_hAttribDC, m_oldAttrib);
    }
}
