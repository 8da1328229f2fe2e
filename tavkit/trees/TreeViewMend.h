// TreeViewMend.h - what the tree view of some platforms lacks, mended in one place
#pragma once

#include <afxcmn.h>

namespace tavkit
{

/// Wine's tree view falls short of the system's own in what follows. Each is mended by what can be seen of the control,
/// so that nothing happens where the control does it right:
/// - the selected item can become neither the drop highlight nor the first visible item;
/// - taking the drop highlight away leaves it where it is;
/// - an item that was dragged, or has lost its highlight, goes on being told as the drop highlight;
/// - the list made for a drag holds no image;
/// - a key pressed with Alt goes no further, so that Alt+F4 closes nothing and F10 opens no menu;
/// - an edit that ends by message ends twice, the second time with the text although the user gave up.
class TreeViewMend
{
public:
    /// Looks at what the control has answered. @return the answer to hand on
    [[nodiscard]] LRESULT Answer(CTreeCtrl& tree, UINT message, WPARAM wParam, LPARAM lParam, LRESULT answer);

    /// The item that was highlighted in the control's place; null if there is none.
    [[nodiscard]] HTREEITEM OwnHilight() const { return m_hHilight; }
    /// Call before that item goes.
    void ForgetHilight() { m_hHilight = nullptr; }

    /// An image of the item, icon and text, to be dragged; null if none can be made.
    [[nodiscard]] static HIMAGELIST DrawDragImage(CTreeCtrl const& tree, HTREEITEM item);

    /// Call when a label's editor opens.
    void EditBegins() { m_hEnded = nullptr; }
    /// Call when it closes.
    /// @param edit  the editor that is open; null if none is
    /// @return false if the same editor has closed before
    [[nodiscard]] bool EditEnds(HWND edit);

private:
    void Hilight(CTreeCtrl& tree, HTREEITEM item);

    HTREEITEM m_hHilight = nullptr;
    HWND m_hEnded = nullptr;
};

} // namespace tavkit
