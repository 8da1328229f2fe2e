// TavTreeCtrlEx.h - tree that gives its items out as cursors
#pragma once

#include "tavkit/trees/TavTreeCtrl.h"
#include "tavkit/trees/TreeCursor.h"

/// A CTavTreeCtrl whose navigation and insertion give cursors, which know the tree that they come from. A cursor passes
/// for its item wherever one is asked for.
class TAVKIT_API CTavTreeCtrlEx : public CTavTreeCtrl
{
public:
    // Navigation: a cursor without an item where there is none

    /// @param code  TVGN_CHILD, TVGN_NEXT ...
    CTreeCursor GetNextItem(HTREEITEM item, unsigned int code);
    CTreeCursor GetChildItem(HTREEITEM item);
    CTreeCursor GetNextSiblingItem(HTREEITEM item);
    CTreeCursor GetPrevSiblingItem(HTREEITEM item);
    CTreeCursor GetParentItem(HTREEITEM item);
    CTreeCursor GetFirstVisibleItem();
    CTreeCursor GetNextVisibleItem(HTREEITEM item);
    CTreeCursor GetPrevVisibleItem(HTREEITEM item);
    CTreeCursor GetSelectedItem();
    CTreeCursor GetDropHilightItem();
    CTreeCursor GetRootItem();

    // Insertion: a cursor without an item if the control refused. Null texts are empty.

    /// @param info  null inserts nothing
    CTreeCursor InsertItem(TVINSERTSTRUCT* info);
    /// @param mask   TVIF_ bits of the arguments that count
    /// @param after  TVI_FIRST, TVI_LAST, TVI_SORT or a brother
    CTreeCursor InsertItem(unsigned int mask, char const* text, int image, int selectedImage, unsigned int state,
                           unsigned int stateMask, LPARAM param, HTREEITEM parent, HTREEITEM after);
    CTreeCursor InsertItem(char const* text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
    CTreeCursor InsertItem(char const* text, int image, int selectedImage, HTREEITEM parent = TVI_ROOT,
                           HTREEITEM after = TVI_LAST);

    /// @param flags  receives TVHT_ bits; may be null
    CTreeCursor HitTest(CPoint point, unsigned int* flags = nullptr);
    CTreeCursor HitTest(TVHITTESTINFO* info);

    /// Lends a list to the control, which never destroys it.
    /// @param list  null takes the list away
    /// @param kind  TVSIL_NORMAL or TVSIL_STATE
    /// @return the list before, a temporary object unless one owns it
    CImageList* SetImageList(CImageList* list, int kind);
};
