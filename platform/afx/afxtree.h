// afxtree.h - CTreeCtrl: the tree view
#pragma once

#include "afximgl.h"
#include "afxwin.h"

class CToolTipCtrl;

/// The tree view. Items are named by handles that the control makes; TVI_ROOT stands above the topmost ones.
class TAVAFX_API CTreeCtrl : public CWnd
{
    DECLARE_DYNCREATE(CTreeCtrl)
public:
    /// @return FALSE if the parent has no window
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items

    /// @return handle of the new item; null on failure
    HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct);
    /// @param nMask  TVIF_ bits of the arguments that count
    /// @param hInsertAfter  TVI_FIRST, TVI_LAST, TVI_SORT or a brother
    HTREEITEM InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState, UINT nStateMask,
                         LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
    HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST);
    /// Deletes an item with all that stands under it.
    BOOL DeleteItem(HTREEITEM hItem);
    BOOL DeleteAllItems();
    UINT GetCount() const;

    BOOL GetItem(TVITEM* pItem) const;
    BOOL SetItem(TVITEM* pItem);
    BOOL SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                 UINT nStateMask, LPARAM lParam);
    /// The text of an item, of any length; empty for a wrong item.
    CString GetItemText(HTREEITEM hItem) const;
    /// @param lpszItem  LPSTR_TEXTCALLBACK lets the parent be asked
    BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem);
    /// @return the caller's value; 0 for a wrong item
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
    BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
    /// @return those of the bits asked for that are set
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
    BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask);
    BOOL ItemHasChildren(HTREEITEM hItem) const;

    // Relatives: null if there is none

    /// @param nCode  TVGN_CHILD, TVGN_NEXT ...
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const;
    HTREEITEM GetChildItem(HTREEITEM hItem) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const;
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const;
    HTREEITEM GetParentItem(HTREEITEM hItem) const;
    HTREEITEM GetFirstVisibleItem() const;
    HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const;
    HTREEITEM GetPrevVisibleItem(HTREEITEM hItem) const;
    HTREEITEM GetSelectedItem() const;
    HTREEITEM GetDropHilightItem() const;
    HTREEITEM GetRootItem() const;

    // Places and state of the view

    /// @param bTextOnly  TRUE for the text, FALSE for the whole line
    /// @return FALSE if the item is not in view of its parents, the rectangle is then undefined
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;
    /// @param nCode  TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE ...
    BOOL Expand(HTREEITEM hItem, UINT nCode);
    /// @param nCode  TVGN_CARET, TVGN_DROPHILITE or TVGN_FIRSTVISIBLE
    BOOL Select(HTREEITEM hItem, UINT nCode);
    BOOL SelectItem(HTREEITEM hItem);
    BOOL SelectDropTarget(HTREEITEM hItem);
    BOOL SelectSetFirstVisible(HTREEITEM hItem);
    BOOL EnsureVisible(HTREEITEM hItem);
    /// Sorts the children of an item by their texts; those further below stay.
    BOOL SortChildren(HTREEITEM hItem);
    HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const;
    /// @param pFlags  receives TVHT_ bits; may be null
    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;

    // Editor, pictures, tips

    /// Opens the editor over an item. @return a temporary object; null if the editor did not open
    CEdit* EditLabel(HTREEITEM hItem);
    /// @return the editor that is open; null if none is
    CEdit* GetEditControl() const;
    /// @return a new list with the picture to drag, which the caller deletes; null if the control made none
    CImageList* CreateDragImage(HTREEITEM hItem);
    /// @param nImageListType  TVSIL_NORMAL or TVSIL_STATE
    /// @return a temporary object, unless one owns the list; null if there is none
    CImageList* GetImageList(UINT nImageListType) const;
    /// Lends a list to the control, which never destroys it. @return the list before
    CImageList* SetImageList(CImageList* pImageList, int nImageListType);
    /// @return the tool tip control of the tree; null with TVS_NOTOOLTIPS
    CToolTipCtrl* GetToolTips() const;
};
