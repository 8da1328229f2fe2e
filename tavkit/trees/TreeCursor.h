// TreeCursor.h - an item of a tree together with its tree
#pragma once

#include <afxcmn.h>
#include "tavkit/frame/Export.h"

class CTavTreeCtrlEx;

/// A small value that names an item and the tree that it is in, so that calls can be chained:
/// `tree.GetRootItem().GetChild().AddTail("leaf", -1)`. It doesn't keep its item alive: once the item is deleted, the
/// cursor dangles. Without a tree every operation does nothing and gives 0, null, an empty text or an empty cursor.
class TAVKIT_API CTreeCursor
{
public:
    static constexpr int kNoImage = -1; ///< for the insertions: an item without images of its own

    CTreeCursor() = default;
    /// @param item  null for no item
    /// @param tree  borrowed
    CTreeCursor(HTREEITEM item, CTavTreeCtrlEx* tree) : m_hItem(item), m_pTree(tree) {}
    CTreeCursor(CTreeCursor const&) = default;
    CTreeCursor& operator=(CTreeCursor const&) = default;
    ~CTreeCursor() = default;

    operator HTREEITEM() const { return m_hItem; }
    [[nodiscard]] CTavTreeCtrlEx* GetTree() const { return m_pTree; }

    // Navigation: a cursor in the same tree, without an item where there is none

    /// @param code  TVGN_CHILD, TVGN_NEXT ...
    [[nodiscard]] CTreeCursor GetNext(unsigned int code) const;
    [[nodiscard]] CTreeCursor GetChild() const;
    [[nodiscard]] CTreeCursor GetNextSibling() const;
    [[nodiscard]] CTreeCursor GetPrevSibling() const;
    [[nodiscard]] CTreeCursor GetParent() const;
    [[nodiscard]] CTreeCursor GetNextVisible() const;
    [[nodiscard]] CTreeCursor GetPrevVisible() const;
    /// The same from every item of the tree, as are the three below.
    [[nodiscard]] CTreeCursor GetFirstVisible() const;
    [[nodiscard]] CTreeCursor GetSelected() const;
    [[nodiscard]] CTreeCursor GetDropHilight() const;
    [[nodiscard]] CTreeCursor GetRoot() const;

    // Insertion under this item, at the top of the tree if there is none. Null texts are empty.

    /// @param after  the brother in front of the new item, TVI_FIRST, TVI_LAST or TVI_SORT
    /// @param image  both images, so that the item looks the same when it is selected; kNoImage for neither
    CTreeCursor InsertAfter(char const* text, HTREEITEM after, int image);
    CTreeCursor AddHead(char const* text, int image);
    CTreeCursor AddTail(char const* text, int image);

    // What the tree says of the item

    /// @param textOnly  0 for the whole line
    /// @return 0 if the item isn't in view of its parents; the rectangle is then undefined
    int GetRect(RECT* rect, int textOnly) const;
    [[nodiscard]] CString GetText() const;
    /// @return 0 if there is no item; the images are then left alone
    int GetImage(int& image, int& selectedImage) const;
    /// The image alone, whether the item is selected or not.
    [[nodiscard]] int GetImageID() const;
    /// @return those of the bits asked for that are set
    [[nodiscard]] unsigned int GetState(unsigned int mask) const;
    /// @return the caller's value; 0 for a null item, without asking any tree
    [[nodiscard]] DWORD_PTR GetData() const;
    [[nodiscard]] int HasChildren() const;
    [[nodiscard]] int IsExpanded() const;
    /// @return a new list that the caller deletes; null if none was made
    CImageList* CreateDragImage() const;

    // What is done to the item: 0 if the control refused

    int SetText(char const* text);
    int SetImage(int image, int selectedImage);
    int SetState(unsigned int state, unsigned int mask);
    int SetData(DWORD_PTR data);
    /// Deletes the item and all below it. Nothing happens without an item, though the control itself takes a null item
    /// for all there are.
    int Delete();
    /// @param code  TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE ...
    int Expand(unsigned int code);
    /// @param code  TVGN_CARET, TVGN_DROPHILITE or TVGN_FIRSTVISIBLE
    int Select(unsigned int code);
    int Select();
    int SelectDropTarget();
    int SelectSetFirstVisible();
    /// @return the editor, a temporary object; null if it didn't open
    CEdit* EditLabel();
    /// Sorts the items right below this one by their texts.
    int SortChildren();
    int EnsureVisible();

protected:
    CTreeCursor _Insert(char const* text, int image, HTREEITEM after);

private:
    template <class Question>
    auto Ask(Question question) const;

    HTREEITEM m_hItem = nullptr;
    CTavTreeCtrlEx* m_pTree = nullptr;
};
