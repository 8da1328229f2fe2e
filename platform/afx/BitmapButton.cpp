#include "afxext.h"

IMPLEMENT_DYNAMIC(CBitmapButton, CButton)

BOOL CBitmapButton::LoadBitmaps(UINT nIDBitmapResource, UINT nIDBitmapResourceSel, UINT nIDBitmapResourceFocus,
                                UINT nIDBitmapResourceDisabled)
{
    return LoadBitmaps(MAKEINTRESOURCE(nIDBitmapResource), MAKEINTRESOURCE(nIDBitmapResourceSel),
                       MAKEINTRESOURCE(nIDBitmapResourceFocus), MAKEINTRESOURCE(nIDBitmapResourceDisabled));
}

BOOL CBitmapButton::LoadBitmaps(LPCTSTR lpszBitmapResource, LPCTSTR lpszBitmapResourceSel,
                                LPCTSTR lpszBitmapResourceFocus, LPCTSTR lpszBitmapResourceDisabled)
{
    for (CBitmap* bitmap : {&m_bitmap, &m_bitmapSel, &m_bitmapFocus, &m_bitmapDisabled})
    {
        bitmap->DeleteObject();
    }
    if (!m_bitmap.LoadBitmap(lpszBitmapResource))
    {
        return FALSE; // without the normal bitmap the others are of no use
    }
    BOOL all = TRUE;
    const auto loadIfNamed = [&all](CBitmap& bitmap, LPCTSTR name) {
        if (name != nullptr && !bitmap.LoadBitmap(name))
        {
            all = FALSE;
        }
    };
    loadIfNamed(m_bitmapSel, lpszBitmapResourceSel);
    loadIfNamed(m_bitmapFocus, lpszBitmapResourceFocus);
    loadIfNamed(m_bitmapDisabled, lpszBitmapResourceDisabled);
    return all;
}

BOOL CBitmapButton::AutoLoad(UINT nID, CWnd* pParent)
{
    if (!SubclassDlgItem(nID, pParent))
    {
        return FALSE;
    }
    CString caption;
    GetWindowText(caption);
    LoadBitmaps(caption + "U", caption + "D", caption + "F", caption + "X");
    if (m_bitmap.m_hObject == nullptr)
    {
        return FALSE;
    }
    SizeToContent();
    return TRUE;
}

void CBitmapButton::SizeToContent()
{
    BITMAP info = {};
    if (m_bitmap.GetBitmap(&info) != 0)
    {
        SetWindowPos(nullptr, 0, 0, info.bmWidth, info.bmHeight,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE);
    }
}

void CBitmapButton::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (m_bitmap.m_hObject == nullptr)
    {
        return;
    }
    CBitmap* bitmap = &m_bitmap;
    const UINT state = lpDrawItemStruct->itemState;
    if ((state & ODS_SELECTED) != 0 && m_bitmapSel.m_hObject != nullptr)
    {
        bitmap = &m_bitmapSel;
    }
    else if ((state & ODS_FOCUS) != 0 && m_bitmapFocus.m_hObject != nullptr)
    {
        bitmap = &m_bitmapFocus;
    }
    else if ((state & ODS_DISABLED) != 0 && m_bitmapDisabled.m_hObject != nullptr)
    {
        bitmap = &m_bitmapDisabled;
    }

    CDC* dc = CDC::FromHandle(lpDrawItemStruct->hDC);
    CDC source;
    if (!source.CreateCompatibleDC(dc))
    {
        return;
    }
    const CRect item(lpDrawItemStruct->rcItem);
    const SelectScope selected(source, *bitmap);
    dc->BitBlt(item.left, item.top, item.Width(), item.Height(), &source, 0, 0, SRCCOPY);
}
