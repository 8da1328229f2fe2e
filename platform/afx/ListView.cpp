// ListView.cpp - the list view: look and rows
#include "afxlist.h"

#include "impl/CommonControls.h"
#include "impl/ControlMessages.h"

IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNCREATE(CListCtrl, CWnd)

BEGIN_MESSAGE_MAP(CListCtrl, CWnd)
    ON_WM_NCDESTROY()
END_MESSAGE_MAP()

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControls();
    return CreateControl(*this, WC_HEADER, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CHeaderCtrl::GetItemCount() const { return AskInt(*this, HDM_GETITEMCOUNT); }

// Here rather than in the base: the window must die while this class still sees its messages.
CListCtrl::~CListCtrl() { DestroyWindow(); }

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControls();
    return CreateControl(*this, WC_LISTVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

// The control destroys its lists with itself; those that an object owns are taken away from it first.
void CListCtrl::OnNcDestroy()
{
    for (const int type : {LVSIL_NORMAL, LVSIL_SMALL, LVSIL_STATE})
    {
        const auto list = reinterpret_cast<HIMAGELIST>(Ask(*this, LVM_GETIMAGELIST, type));
        if (CImageList::FromHandlePermanent(list) != nullptr)
        {
            Ask(*this, LVM_SETIMAGELIST, type, 0);
        }
    }
    CWnd::OnNcDestroy();
}

// Look

COLORREF CListCtrl::GetBkColor() const { return static_cast<COLORREF>(Ask(*this, LVM_GETBKCOLOR)); }

BOOL CListCtrl::SetBkColor(COLORREF cr) { return AskInt(*this, LVM_SETBKCOLOR, 0, cr); }

COLORREF CListCtrl::GetTextColor() const { return static_cast<COLORREF>(Ask(*this, LVM_GETTEXTCOLOR)); }

BOOL CListCtrl::SetTextColor(COLORREF cr) { return AskInt(*this, LVM_SETTEXTCOLOR, 0, cr); }

COLORREF CListCtrl::GetTextBkColor() const { return static_cast<COLORREF>(Ask(*this, LVM_GETTEXTBKCOLOR)); }

BOOL CListCtrl::SetTextBkColor(COLORREF cr) { return AskInt(*this, LVM_SETTEXTBKCOLOR, 0, cr); }

CImageList* CListCtrl::GetImageList(int nImageListType) const
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(Ask(*this, LVM_GETIMAGELIST, nImageListType)));
}

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageListType)
{
    return CImageList::FromHandle(
        reinterpret_cast<HIMAGELIST>(Ask(*this, LVM_SETIMAGELIST, nImageListType, pImageList->GetSafeHandle())));
}

DWORD CListCtrl::GetExtendedStyle() const { return static_cast<DWORD>(Ask(*this, LVM_GETEXTENDEDLISTVIEWSTYLE)); }

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle)
{
    return static_cast<DWORD>(Ask(*this, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, dwNewStyle));
}

// Rows

int CListCtrl::GetItemCount() const { return AskInt(*this, LVM_GETITEMCOUNT); }

void CListCtrl::SetItemCount(int nItems) { Ask(*this, LVM_SETITEMCOUNT, nItems); }

BOOL CListCtrl::SetItemCountEx(int iCount, DWORD dwFlags) { return AskInt(*this, LVM_SETITEMCOUNT, iCount, dwFlags); }

BOOL CListCtrl::GetItem(LVITEM* pItem) const { return AskInt(*this, LVM_GETITEM, 0, pItem); }

BOOL CListCtrl::SetItem(const LVITEM* pItem) { return AskInt(*this, LVM_SETITEM, 0, pItem); }

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam)
{
    LVITEM item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    return SetItem(&item);
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const
{
    return static_cast<UINT>(Ask(*this, LVM_GETITEMSTATE, nItem, nMask));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEM item = {};
    item.state = nState;
    item.stateMask = nMask;
    return AskInt(*this, LVM_SETITEMSTATE, nItem, &item);
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    return ReadText([=, this](LPTSTR buffer, int room) -> LPCTSTR {
        LVITEM item = {};
        item.iSubItem = nSubItem;
        item.pszText = buffer;
        item.cchTextMax = room;
        Ask(*this, LVM_GETITEMTEXT, nItem, &item);
        return item.pszText; // the control may point to a text of its own instead of copying
    });
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    if (lpszText == nullptr || nLen <= 0)
    {
        return 0;
    }
    lpszText[0] = '\0';
    LVITEM item = {};
    item.iSubItem = nSubItem;
    item.pszText = lpszText;
    item.cchTextMax = nLen;
    Ask(*this, LVM_GETITEMTEXT, nItem, &item);
    if (item.pszText != lpszText && item.pszText != LPSTR_TEXTCALLBACK)
    {
        ::lstrcpyn(lpszText, item.pszText, nLen); // the control pointed to a text of its own
    }
    lpszText[nLen - 1] = '\0'; // a text that is cut need not come with its zero
    return ::lstrlen(lpszText);
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    LVITEM item = {};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszText);
    return AskInt(*this, LVM_SETITEMTEXT, nItem, &item);
}

int CListCtrl::InsertItem(const LVITEM* pItem) { return AskInt(*this, LVM_INSERTITEM, 0, pItem); }

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem) { return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0); }

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam)
{
    LVITEM item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    return InsertItem(&item);
}

BOOL CListCtrl::DeleteItem(int nItem) { return AskInt(*this, LVM_DELETEITEM, nItem); }

BOOL CListCtrl::DeleteAllItems() { return AskInt(*this, LVM_DELETEALLITEMS); }

int CListCtrl::GetNextItem(int nItem, int nFlags) const
{
    return AskInt(*this, LVM_GETNEXTITEM, nItem, MAKELPARAM(nFlags, 0));
}

// A position is the row's index plus one, so that null is the end of the walk.

namespace
{
POSITION PositionOf(int row) { return reinterpret_cast<POSITION>(static_cast<INT_PTR>(row) + 1); }

int RowAt(POSITION position) { return static_cast<int>(reinterpret_cast<INT_PTR>(position) - 1); }
} // namespace

POSITION CListCtrl::GetFirstSelectedItemPosition() const { return PositionOf(GetNextItem(-1, LVNI_SELECTED)); }

int CListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    const int row = RowAt(pos);
    if (row >= 0)
    {
        pos = PositionOf(GetNextItem(row, LVNI_SELECTED));
    }
    return row;
}

UINT CListCtrl::GetSelectedCount() const { return static_cast<UINT>(Ask(*this, LVM_GETSELECTEDCOUNT)); }

BOOL CListCtrl::SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
{
    return AskInt(*this, LVM_SORTITEMS, dwData, pfnCompare);
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult)
{
    if (message != WM_DRAWITEM)
    {
        return CWnd::OnChildNotify(message, wParam, lParam, pLResult);
    }
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}
