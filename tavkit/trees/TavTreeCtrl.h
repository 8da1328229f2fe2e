// TavTreeCtrl.h - tree with drag and drop, glyphs, lookups, and hooks for what the user does in it
#pragma once

#include <afxcmn.h>
#include <afxwin.h>
#include <memory>
#include "tavkit/drawing/TavImageList.h"
#include "tavkit/frame/Export.h"

namespace tavkit
{
class TreeFinder;
class TreeViewMend;
enum class DragButton;
enum class DragKind : int;
} // namespace tavkit

/// The library's tree. A derived class overrides the hooks, most of which begin with DTC, to hear of selection, keys,
/// context menus, label edits and clicks, and to allow and carry out drags.
///
/// Drag and drop is off until EnableLeftDrag() or EnableRghtDrag(). A drag then begins as the control finds that an
/// item is pulled, follows the mouse with the drop target highlighted, scrolls by one item for each mouse move outside
/// the client area, and ends with the release of the button that began it. Meanwhile the tree holds the mouse capture
/// and hides the cursor. Another window that takes the capture away doesn't end it: the next release over the tree
/// does. Only when the tree's window or the dragged item goes away does a drag end without any hook.
///
/// What there is no hook for goes to the parent as from any tree: TVN_ITEMEXPANDING, for one, where a host fills a
/// branch as it is opened.
///
/// Every hook may delete items, select others, run a loop of its own (a menu that asks what to do with the drop) or
/// destroy the tree. Nothing is reported to the user; what the control refuses is ignored. All of it belongs on the
/// thread of the window.
class TAVKIT_API CTavTreeCtrl : public CTreeCtrl
{
public:
    CTavTreeCtrl();
    /// Doesn't end a running drag. The end of the window does, so destroy that first.
    ~CTavTreeCtrl() override;
    CTavTreeCtrl(CTavTreeCtrl const&) = delete;
    CTavTreeCtrl& operator=(CTavTreeCtrl const&) = delete;

    /// The window, or null; may be asked of a null object.
    operator HWND() const { return GetSafeHwnd(); }

    // What the tree lets the user do; all four are off at first

    /// A right click on an item selects it before a context menu is asked for.
    void EnableRghtSlct(bool enable) { m_bRghtSlct = enable; }
    void EnableLeftDrag(bool enable) { m_bLeftDrag = enable; }
    void EnableRghtDrag(bool enable) { m_bRghtDrag = enable; }
    /// Label edits are told to the hooks and leave the horizontal scroll position where it was. Whether labels may be
    /// edited at all is the control's style TVS_EDITLABELS.
    void EnableEdit(bool enable) { m_bEdit = enable; }

    // Items

    /// Inserts an item; if the tree has a normal image list, with the default image of its glyphs.
    /// @param data   the caller's value, wide enough for a pointer
    /// @param after  TVI_FIRST, TVI_LAST, TVI_SORT or a brother
    /// @return null if the control refused
    HTREEITEM AddItem(CString const& text, DWORD_PTR data, HTREEITEM parent, HTREEITEM after);
    /// @return the item's value; 0 for null
    [[nodiscard]] DWORD_PTR GetItemData(HTREEITEM item) const;
    /// @return the value of the selected item; 0 if none is
    [[nodiscard]] DWORD_PTR GetCrntData() const;
    /// The item under the last press of a mouse button, from the press to the release; null if there was none.
    [[nodiscard]] HTREEITEM GetClickItem() const { return m_hClickItem; }
    [[nodiscard]] bool IsLeftDrag() const;
    [[nodiscard]] bool IsRghtDrag() const;

    // Lookups give the first match, an item coming before what stands under it and that before its next brother; null
    // if there is none. Those by data find at once, whatever is changed and however, as long as one item has the value;
    // among several the first is walked to, and so are all in a window that was taken over with its items, until the
    // tree has been learned.

    HTREEITEM FindItem(DWORD_PTR data);
    /// @param start  searches this item and what stands under it; null and TVI_ROOT search the whole tree
    HTREEITEM FindItem(DWORD_PTR data, HTREEITEM start);
    /// By the whole text, upper and lower case being different. Items whose texts the parent supplies are asked for.
    HTREEITEM FindItem(CString const& text);
    /// Select what FindItem() finds, or nothing if it finds nothing.
    void SlctItem(DWORD_PTR data);
    void SlctItem(DWORD_PTR data, HTREEITEM start);
    void SlctItem(CString const& text);

    using CTreeCtrl::GetItem;
    /// The item at a place on the screen, whatever part of its line is there; null outside the window.
    HTREEITEM GetItem(CPoint const& screenPoint);

    /// Scrolls to a position as if the thumb had been dragged there.
    /// @param vertical  0 for the horizontal bar
    void MoveScroll(int vertical, int pos);

    // Glyphs: small images in an item's line. Without a normal image list in the tree nothing is drawn.

    /// Makes the tree's own image list unless there is one, and gives it to the tree, which only borrows it.
    void InitImages();
    /// The same from a bitmap resource.
    /// @param width  of one image; the height is the bitmap's
    /// @param grow   images by which the list grows
    /// @param mask   colour that becomes transparent; CLR_NONE for no mask
    void InitImages(unsigned int bitmapId, int width, int grow, COLORREF mask);
    /// Removes all images. Items keep their numbers, so draw them anew.
    void ClearImages();
    /// @param barred  crosses the circle with a red line, as for what is hidden
    void DrawCircle(HTREEITEM item, COLORREF color, COLORREF border, bool barred);
    /// Has the size of the first circle that was drawn in these colours, of whichever kind.
    void DrawCircleSmall(HTREEITEM item, COLORREF color, COLORREF border);
    void DrawRect(HTREEITEM item, COLORREF color, COLORREF border);
    /// @param iconId  resource number in the low 16 bits
    /// @param file    module with the icon; null or "" for the program and its extension modules
    /// @return false if there is no such icon; the item then keeps its image. True in a tree without an image list.
    bool DrawIcon(HTREEITEM item, unsigned int iconId, char const* file);
    /// As DrawIcon(), but a file that doesn't exist is looked for by its name in the folder "plugins" of the
    /// installation.
    bool DrawPluginIcon(HTREEITEM item, unsigned int iconId, char const* file);

    // Hooks. Where there is a `result`, it is 0 on entry, and the parent sees the notification unless it is set to
    // something else. What a double click or a context menu hook returns becomes the answer to the control; it counts
    // if the notification is kept from the parent, or if the parent handles it without an answer of its own.

    /// May this item be dragged? Asked once, before a drag begins.
    virtual bool IsDragItem(HTREEITEM item);
    /// May `dragItem` be dropped there? Asked at every move of a drag, and once more at the drop. By default yes,
    /// unless it is the item itself.
    /// @param target  null beside all items
    virtual bool IsDragTrgt(HTREEITEM dragItem, HTREEITEM target);
    /// A drop that IsDragTrgt() allowed. The tree still counts as dragging, but capture and cursor are free.
    /// IsRghtDrag() tells a drop that should ask the user, as with TrackPopupMenu.
    /// @param target  null beside all items
    virtual void OnDragEnd(HTREEITEM dragItem, HTREEITEM target);
    /// @param item  null beside all items
    /// @return true keeps the control from expanding or collapsing the item
    virtual bool DTCDblClck(HTREEITEM item, LRESULT* result);
    /// The selection changed; either item may be null.
    /// @return true keeps the change from the parent, as a `result` does
    virtual bool DTCSlctChg(HTREEITEM oldItem, HTREEITEM newItem, LRESULT* result);
    /// @param key  virtual key code
    virtual void DTCKeyDown(unsigned short key, LRESULT* result);
    /// A context menu is asked for with the mouse.
    /// @param item  null beside all items
    /// @return true keeps the control from asking the parent for a menu with WM_CONTEXTMENU
    virtual bool DTCCntxMenu(HTREEITEM item, CPoint screenPoint, LRESULT* result);
    /// Editing ends; only with EnableEdit().
    /// @param header  an NMTVDISPINFO whose text is null if the user gave up
    /// @param result  the control takes the text if it is set to 1
    virtual void DTCEndLabelEdit(NMHDR* header, LRESULT* result);
    /// Editing begins; only with EnableEdit().
    /// @param result  1 keeps the editor from opening
    virtual void DTCBeginLabelEdit(NMHDR* header, LRESULT* result);
    /// The left button was pressed.
    /// @param item   null beside all items
    /// @param flags  MK_ bits; @param point  client coordinates
    /// @return true keeps the press from the control, which then neither selects nor drags
    virtual bool DTCLButtonDown(HTREEITEM item, unsigned int flags, CPoint point);

    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// The tree takes a window over, with whatever is in it.
    void PreSubclassWindow() override;

protected:
    [[nodiscard]] bool IsInDragMode() const { return m_hDragItem != nullptr; }
    /// Null when no drag runs, and after the item was deleted.
    [[nodiscard]] HTREEITEM GetDragItem() const { return m_hDragItem; }
    [[nodiscard]] DWORD_PTR GetDragData() const;
    /// Ends a running drag with a drop.
    /// @param target  null for beside all items
    void EndDrag(HTREEITEM target);

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    /// The last door before the control. Everything that changes items passes through it; an override has to call it.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    afx_msg void OnPaint();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnBeginLabelEdit(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnEndLabelEdit(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnBegindrag(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnBeginrdrag(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnKeydown(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnSelchanged(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnRclick(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnDblclk(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    class ItemWatch;

    /// Begins a drag if one may begin.
    /// @param kind  1 for the left button, 2 for the right
    virtual void InitDrag(NMTREEVIEW* info, int kind);

    void ShowDragImage(CPoint point);
    void HideDragImage();
    void DragTo(CPoint point);
    void ScrollWithDrag(LONG y);
    void AbandonDrag();
    void ReleaseDrag();
    void ResetDrag();
    void ReleaseButton(tavkit::DragButton button, CPoint point);
    LRESULT ChangeItems(UINT message, WPARAM wParam, LPARAM lParam);
    void ForgetItems(HTREEITEM root, bool rootToo);
    void SetGlyph(HTREEITEM item, int image);
    [[nodiscard]] bool HasImages();

    tavkit::DragKind m_nDragKind;
    CTavImageList m_imgList;
    HTREEITEM m_hClickItem = nullptr;
    HTREEITEM m_hDragItem = nullptr; ///< not null exactly while a drag runs and its item lives
    std::unique_ptr<CImageList> m_pDragImage;
    CPoint m_ptDrag; ///< where the drag began, in client coordinates
    bool m_bRghtSlct = false;
    bool m_bLeftDrag = false;
    bool m_bRghtDrag = false;
    bool m_bEdit = false;
    int m_nScrollPos = 0; ///< horizontal, as the label edit under way found it

    bool m_bImageShown = false;       ///< the drag image stands in the window
    bool m_bDropping = false;         ///< the hooks of the drop are running
    ItemWatch* m_pTopWatch = nullptr; ///< the innermost of those on the stack
    std::unique_ptr<tavkit::TreeFinder> m_pFinder;
    std::unique_ptr<tavkit::TreeViewMend> m_pMend;
};
