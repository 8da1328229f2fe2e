// ListViewPlaces.cpp - the list view: columns, places, label editing
#include "afxlist.h"

#include "impl/ControlMessages.h"

// Columns

BOOL CListCtrl::GetColumn(int nCol, LVCOLUMN* pColumn) const { return AskInt(*this, LVM_GETCOLUMN, nCol, pColumn); }

BOOL CListCtrl::SetColumn(int nCol, const LVCOLUMN* pColumn) { return AskInt(*this, LVM_SETCOLUMN, nCol, pColumn); }

int CListCtrl::InsertColumn(int nCol, const LVCOLUMN* pColumn)
{
    return AskInt(*this, LVM_INSERTCOLUMN, nCol, pColumn);
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1)
    {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1)
    {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::DeleteColumn(int nCol) { return AskInt(*this, LVM_DELETECOLUMN, nCol); }

int CListCtrl::GetColumnWidth(int nCol) const { return AskInt(*this, LVM_GETCOLUMNWIDTH, nCol); }

BOOL CListCtrl::SetColumnWidth(int nCol, int cx) { return AskInt(*this, LVM_SETCOLUMNWIDTH, nCol, MAKELPARAM(cx, 0)); }

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const
{
    return static_cast<CHeaderCtrl*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, LVM_GETHEADER))));
}

// Places

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    lpRect->left = static_cast<LONG>(nCode); // that is how the control is told
    return AskInt(*this, LVM_GETITEMRECT, nItem, lpRect);
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const
{
    RECT rect = {nArea, iSubItem, 0, 0}; // that is how the control is told
    const BOOL found = AskInt(*this, LVM_GETSUBITEMRECT, iItem, &rect);
    if (found)
    {
        ref = rect;
    }
    return found;
}

int CListCtrl::SubItemHitTest(LPLVHITTESTINFO pInfo) { return AskInt(*this, LVM_SUBITEMHITTEST, 0, pInfo); }

int CListCtrl::HitTest(LVHITTESTINFO* pHitTestInfo) const { return AskInt(*this, LVM_HITTEST, 0, pHitTestInfo); }

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    LVHITTESTINFO info = {};
    info.pt = pt;
    const int row = HitTest(&info);
    if (pFlags != nullptr)
    {
        *pFlags = info.flags;
    }
    return row;
}

int CListCtrl::GetCountPerPage() const { return AskInt(*this, LVM_GETCOUNTPERPAGE); }

int CListCtrl::GetTopIndex() const { return AskInt(*this, LVM_GETTOPINDEX); }

BOOL CListCtrl::EnsureVisible(int nItem, BOOL bPartialOK)
{
    return AskInt(*this, LVM_ENSUREVISIBLE, nItem, MAKELPARAM(bPartialOK, 0));
}

int CListCtrl::GetStringWidth(LPCTSTR lpsz) const { return AskInt(*this, LVM_GETSTRINGWIDTH, 0, lpsz); }

BOOL CListCtrl::RedrawItems(int nFirst, int nLast) { return AskInt(*this, LVM_REDRAWITEMS, nFirst, nLast); }

BOOL CListCtrl::Update(int nItem) { return AskInt(*this, LVM_UPDATE, nItem); }

// Label editing

CEdit* CListCtrl::EditLabel(int nItem)
{
    return static_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, LVM_EDITLABEL, nItem))));
}

CEdit* CListCtrl::GetEditControl() const
{
    return static_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, LVM_GETEDITCONTROL))));
}
