#include "afxtree.h"

#include "afxbars.h"
#include "impl/CommonControls.h"
#include "impl/ControlMessages.h"
#include <memory>

IMPLEMENT_DYNCREATE(CTreeCtrl, CWnd)

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControls();
    return CreateControl(*this, WC_TREEVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

// Items

HTREEITEM CTreeCtrl::InsertItem(LPTVINSERTSTRUCT lpInsertStruct)
{
    return reinterpret_cast<HTREEITEM>(Ask(*this, TVM_INSERTITEM, 0, lpInsertStruct));
}

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                                UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    TVINSERTSTRUCT insert = {};
    insert.hParent = hParent;
    insert.hInsertAfter = hInsertAfter;
    insert.item.mask = nMask;
    insert.item.pszText = const_cast<LPTSTR>(lpszItem);
    insert.item.iImage = nImage;
    insert.item.iSelectedImage = nSelectedImage;
    insert.item.state = nState;
    insert.item.stateMask = nStateMask;
    insert.item.lParam = lParam;
    return InsertItem(&insert);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    return InsertItem(TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0, hParent, hInsertAfter);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent,
                                HTREEITEM hInsertAfter)
{
    return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, lpszItem, nImage, nSelectedImage, 0, 0, 0, hParent,
                      hInsertAfter);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM hItem) { return AskInt(*this, TVM_DELETEITEM, 0, hItem); }

BOOL CTreeCtrl::DeleteAllItems() { return AskInt(*this, TVM_DELETEITEM, 0, TVI_ROOT); }

UINT CTreeCtrl::GetCount() const { return static_cast<UINT>(Ask(*this, TVM_GETCOUNT)); }

BOOL CTreeCtrl::GetItem(TVITEM* pItem) const { return AskInt(*this, TVM_GETITEM, 0, pItem); }

BOOL CTreeCtrl::SetItem(TVITEM* pItem) { return AskInt(*this, TVM_SETITEM, 0, pItem); }

BOOL CTreeCtrl::SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                        UINT nStateMask, LPARAM lParam)
{
    TVITEM item = {};
    item.mask = nMask;
    item.hItem = hItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.iSelectedImage = nSelectedImage;
    item.lParam = lParam;
    return SetItem(&item);
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    return ReadText([=, this](LPTSTR buffer, int room) -> LPCTSTR {
        TVITEM item = {};
        item.mask = TVIF_TEXT;
        item.hItem = hItem;
        item.pszText = buffer;
        item.cchTextMax = room;
        return GetItem(&item) ? item.pszText : nullptr; // the control may point to a text of its own
    });
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem)
{
    return SetItem(hItem, TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEM item = {};
    item.mask = TVIF_PARAM;
    item.hItem = hItem;
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData)
{
    return SetItem(hItem, TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(dwData));
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const
{
    TVITEM item = {};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = hItem;
    if (!GetItem(&item))
    {
        return FALSE;
    }
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
    return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage)
{
    return SetItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE, nullptr, nImage, nSelectedImage, 0, 0, 0);
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const
{
    TVITEM item = {};
    item.mask = TVIF_STATE;
    item.hItem = hItem;
    item.stateMask = nStateMask;
    return GetItem(&item) ? item.state & nStateMask : 0; // the control answers with bits outside the mask too
}

BOOL CTreeCtrl::SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask)
{
    return SetItem(hItem, TVIF_STATE, nullptr, 0, 0, nState, nStateMask, 0);
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const
{
    TVITEM item = {};
    item.mask = TVIF_CHILDREN;
    item.hItem = hItem;
    return GetItem(&item) && item.cChildren != 0;
}

// Relatives

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM hItem, UINT nCode) const
{
    return reinterpret_cast<HTREEITEM>(Ask(*this, TVM_GETNEXTITEM, nCode, hItem));
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }

HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }

HTREEITEM CTreeCtrl::GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }

HTREEITEM CTreeCtrl::GetNextVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXTVISIBLE); }

HTREEITEM CTreeCtrl::GetPrevVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUSVISIBLE); }

HTREEITEM CTreeCtrl::GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }

HTREEITEM CTreeCtrl::GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }

HTREEITEM CTreeCtrl::GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }

// Places and state of the view

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    // The item is handed over in the first bytes of the rectangle.
    static_assert(sizeof(HTREEITEM) <= sizeof(RECT));
    std::memcpy(lpRect, &hItem, sizeof(hItem));
    return AskInt(*this, TVM_GETITEMRECT, bTextOnly, lpRect);
}

BOOL CTreeCtrl::Expand(HTREEITEM hItem, UINT nCode) { return AskInt(*this, TVM_EXPAND, nCode, hItem); }

BOOL CTreeCtrl::Select(HTREEITEM hItem, UINT nCode) { return AskInt(*this, TVM_SELECTITEM, nCode, hItem); }

BOOL CTreeCtrl::SelectItem(HTREEITEM hItem) { return Select(hItem, TVGN_CARET); }

BOOL CTreeCtrl::SelectDropTarget(HTREEITEM hItem) { return Select(hItem, TVGN_DROPHILITE); }

BOOL CTreeCtrl::SelectSetFirstVisible(HTREEITEM hItem) { return Select(hItem, TVGN_FIRSTVISIBLE); }

BOOL CTreeCtrl::EnsureVisible(HTREEITEM hItem) { return AskInt(*this, TVM_ENSUREVISIBLE, 0, hItem); }

BOOL CTreeCtrl::SortChildren(HTREEITEM hItem) { return AskInt(*this, TVM_SORTCHILDREN, 0, hItem); }

HTREEITEM CTreeCtrl::HitTest(TVHITTESTINFO* pHitTestInfo) const
{
    return reinterpret_cast<HTREEITEM>(Ask(*this, TVM_HITTEST, 0, pHitTestInfo));
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    TVHITTESTINFO info = {};
    info.pt = pt;
    const HTREEITEM item = HitTest(&info);
    if (pFlags != nullptr)
    {
        *pFlags = info.flags;
    }
    return item;
}

// Editor, pictures, tips

CEdit* CTreeCtrl::EditLabel(HTREEITEM hItem)
{
    return static_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, TVM_EDITLABEL, 0, hItem))));
}

CEdit* CTreeCtrl::GetEditControl() const
{
    return static_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, TVM_GETEDITCONTROL))));
}

CImageList* CTreeCtrl::CreateDragImage(HTREEITEM hItem)
{
    auto list = std::make_unique<CImageList>();
    return list->Attach(reinterpret_cast<HIMAGELIST>(Ask(*this, TVM_CREATEDRAGIMAGE, 0, hItem))) ? list.release()
                                                                                                 : nullptr;
}

CImageList* CTreeCtrl::GetImageList(UINT nImageListType) const
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(Ask(*this, TVM_GETIMAGELIST, nImageListType)));
}

CImageList* CTreeCtrl::SetImageList(CImageList* pImageList, int nImageListType)
{
    return CImageList::FromHandle(
        reinterpret_cast<HIMAGELIST>(Ask(*this, TVM_SETIMAGELIST, nImageListType, pImageList->GetSafeHandle())));
}

CToolTipCtrl* CTreeCtrl::GetToolTips() const
{
    return static_cast<CToolTipCtrl*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, TVM_GETTOOLTIPS))));
}
