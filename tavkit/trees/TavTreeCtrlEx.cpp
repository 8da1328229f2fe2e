#include "tavkit/trees/TavTreeCtrlEx.h"

CTreeCursor CTavTreeCtrlEx::GetNextItem(HTREEITEM item, unsigned int code)
{
    return {CTreeCtrl::GetNextItem(item, code), this};
}

CTreeCursor CTavTreeCtrlEx::GetChildItem(HTREEITEM item) { return GetNextItem(item, TVGN_CHILD); }

CTreeCursor CTavTreeCtrlEx::GetNextSiblingItem(HTREEITEM item) { return GetNextItem(item, TVGN_NEXT); }

CTreeCursor CTavTreeCtrlEx::GetPrevSiblingItem(HTREEITEM item) { return GetNextItem(item, TVGN_PREVIOUS); }

CTreeCursor CTavTreeCtrlEx::GetParentItem(HTREEITEM item) { return GetNextItem(item, TVGN_PARENT); }

CTreeCursor CTavTreeCtrlEx::GetFirstVisibleItem() { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }

CTreeCursor CTavTreeCtrlEx::GetNextVisibleItem(HTREEITEM item) { return GetNextItem(item, TVGN_NEXTVISIBLE); }

CTreeCursor CTavTreeCtrlEx::GetPrevVisibleItem(HTREEITEM item) { return GetNextItem(item, TVGN_PREVIOUSVISIBLE); }

CTreeCursor CTavTreeCtrlEx::GetSelectedItem() { return GetNextItem(nullptr, TVGN_CARET); }

CTreeCursor CTavTreeCtrlEx::GetDropHilightItem() { return GetNextItem(nullptr, TVGN_DROPHILITE); }

CTreeCursor CTavTreeCtrlEx::GetRootItem() { return GetNextItem(nullptr, TVGN_ROOT); }

CTreeCursor CTavTreeCtrlEx::InsertItem(TVINSERTSTRUCT* info)
{
    return {info != nullptr ? CTreeCtrl::InsertItem(info) : nullptr, this};
}

CTreeCursor CTavTreeCtrlEx::InsertItem(unsigned int mask, char const* text, int image, int selectedImage,
                                       unsigned int state, unsigned int stateMask, LPARAM param, HTREEITEM parent,
                                       HTREEITEM after)
{
    return {CTreeCtrl::InsertItem(mask, text != nullptr ? text : "", image, selectedImage, state, stateMask, param,
                                  parent, after),
            this};
}

CTreeCursor CTavTreeCtrlEx::InsertItem(char const* text, HTREEITEM parent, HTREEITEM after)
{
    return InsertItem(TVIF_TEXT, text, 0, 0, 0, 0, 0, parent, after);
}

CTreeCursor CTavTreeCtrlEx::InsertItem(char const* text, int image, int selectedImage, HTREEITEM parent,
                                       HTREEITEM after)
{
    return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, text, image, selectedImage, 0, 0, 0, parent, after);
}

CTreeCursor CTavTreeCtrlEx::HitTest(CPoint point, unsigned int* flags)
{
    return {CTreeCtrl::HitTest(point, flags), this};
}

CTreeCursor CTavTreeCtrlEx::HitTest(TVHITTESTINFO* info) { return {CTreeCtrl::HitTest(info), this}; }

CImageList* CTavTreeCtrlEx::SetImageList(CImageList* list, int kind) { return CTreeCtrl::SetImageList(list, kind); }
