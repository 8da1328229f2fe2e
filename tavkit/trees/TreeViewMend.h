// TreeViewMend.h - what the tree view of some platforms lacks, mended in one place
#pragma once

#include <afxcmn.h>

namespace tavkit
{

/// Wine's tree view falls short of the system's own in four things. Each is mended here by what can be seen of the
/// control, so that nothing happens where the control does it right:
/// - taking the drop highlight away leaves it where it is;
/// - the drop highlight is told to be on an item that was dragged or had it before, without its state bit;
/// - the list made for a drag holds no image;
/// - an edit that ends by message ends twice, the second time with the text although the user gave up.
class TreeViewMend
{
public:
    /// Looks at what the control has answered. @return the answer to hand on
    [[nodiscard]] static LRESULT Answer(CTreeCtrl& tree, UINT message, WPARAM wParam, LPARAM lParam, LRESULT answer);

    /// An image of the item, icon and text, to be dragged; null if none can be made.
    [[nodiscard]] static HIMAGELIST DrawDragImage(CTreeCtrl const& tree, HTREEITEM item);

    /// Call when a label's editor opens.
    void EditBegins() { m_hEnded = nullptr; }
    /// Call when it closes.
    /// @param edit  the editor that is open; null if none is
    /// @return false if the same editor has closed before
    [[nodiscard]] bool EditEnds(HWND edit);

private:
    HWND m_hEnded = nullptr;
};

} // namespace tavkit
