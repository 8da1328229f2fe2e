#include "tavkit/trees/TreeViewMend.h"

#include <algorithm>
#include <utility>

namespace tavkit
{
namespace
{

constexpr int kTextGap = 3;         // pixels on either side of the text
constexpr int kMostTextWidth = 480; // pixels; a longer text is cut, or it would hide where it is dropped

bool IsHilighted(CTreeCtrl const& tree, HTREEITEM item)
{
    return item != nullptr && tree.GetItemState(item, TVIS_DROPHILITED) != 0;
}

/// Lets the system see a key that was pressed with Alt. Only a close must not be asked for twice; what else comes of
/// such a key comes of it once.
LRESULT HandOnSystemKey(HWND tree, WPARAM wParam, LPARAM lParam)
{
    MSG close;
    if (::PeekMessageA(&close, ::GetAncestor(tree, GA_ROOT), WM_SYSCOMMAND, WM_SYSCOMMAND, PM_NOREMOVE) ||
        !::IsWindow(tree))
    {
        return 0;
    }
    return ::DefWindowProcA(tree, WM_SYSKEYDOWN, wParam, lParam);
}

/// Brings the selected item to the top by way of the next one.
void ScrollToSelected(CTreeCtrl& tree, HTREEITEM item)
{
    HTREEITEM const next = tree.GetNextVisibleItem(item);
    if (next == nullptr || tree.GetFirstVisibleItem() == item || tree.GetSelectedItem() != item)
    {
        return;
    }
    tree.SelectSetFirstVisible(next);
    if (tree.GetFirstVisibleItem() == next) // or else the end of the tree stands at the bottom already
    {
        tree.SendMessage(WM_VSCROLL, SB_LINEUP);
    }
}

} // namespace

LRESULT TreeViewMend::Answer(CTreeCtrl& tree, UINT message, WPARAM wParam, LPARAM lParam, LRESULT answer)
{
    switch (message)
    {
    case WM_SYSKEYDOWN:
        return HandOnSystemKey(tree.m_hWnd, wParam, lParam);
    case TVM_SELECTITEM:
        if (wParam == TVGN_DROPHILITE)
        {
            Hilight(tree, reinterpret_cast<HTREEITEM>(lParam));
        }
        else if (wParam == TVGN_FIRSTVISIBLE && lParam != 0)
        {
            ScrollToSelected(tree, reinterpret_cast<HTREEITEM>(lParam));
        }
        return answer;
    case TVM_GETNEXTITEM:
        if (wParam == TVGN_DROPHILITE && !IsHilighted(tree, reinterpret_cast<HTREEITEM>(answer)))
        {
            return reinterpret_cast<LRESULT>(m_hHilight);
        }
        return answer;
    case TVM_CREATEDRAGIMAGE: {
        auto const list = reinterpret_cast<HIMAGELIST>(answer);
        if (list == nullptr || ::ImageList_GetImageCount(list) != 0)
        {
            return answer;
        }
        ::ImageList_Destroy(list);
        return reinterpret_cast<LRESULT>(DrawDragImage(tree, reinterpret_cast<HTREEITEM>(lParam)));
    }
    default:
        return answer;
    }
}

void TreeViewMend::Hilight(CTreeCtrl& tree, HTREEITEM item)
{
    if (m_hHilight != nullptr && m_hHilight != item)
    {
        tree.SetItemState(std::exchange(m_hHilight, nullptr), 0, TVIS_DROPHILITED);
    }
    if (HTREEITEM const left = tree.GetDropHilightItem(); left != nullptr && left != item)
    {
        tree.SetItemState(left, 0, TVIS_DROPHILITED);
    }
    if (item != nullptr && !IsHilighted(tree, item) && tree.SetItemState(item, TVIS_DROPHILITED, TVIS_DROPHILITED))
    {
        m_hHilight = item;
    }
}

HIMAGELIST TreeViewMend::DrawDragImage(CTreeCtrl const& tree, HTREEITEM item)
{
    CString const text = tree.GetItemText(item);
    HIMAGELIST const icons = tree.GetImageList(TVSIL_NORMAL)->GetSafeHandle();
    int iconWidth = 0;
    int iconHeight = 0;
    int icon = -1;
    int selectedIcon = -1;
    if (icons != nullptr && tree.GetItemImage(item, icon, selectedIcon))
    {
        ::ImageList_GetIconSize(icons, &iconWidth, &iconHeight);
    }

    CClientDC window(const_cast<CTreeCtrl*>(&tree));
    CDC dc;
    dc.CreateCompatibleDC(&window);
    HGDIOBJ const font = reinterpret_cast<HGDIOBJ>(::SendMessageA(tree.m_hWnd, WM_GETFONT, 0, 0));
    SavedDCScope const saved(dc);
    ::SelectObject(dc, font != nullptr ? font : ::GetStockObject(SYSTEM_FONT));

    CSize const extent = dc.GetTextExtent(text);
    int const textWidth = std::min<int>(extent.cx, kMostTextWidth) + 2 * kTextGap;
    int const height = std::max<int>(extent.cy, iconHeight);
    CRect const whole(0, 0, iconWidth + textWidth, height);
    CBitmap bitmap;
    HIMAGELIST const list = ::ImageList_Create(whole.Width(), whole.Height(), ILC_COLOR24 | ILC_MASK, 1, 0);
    if (list == nullptr || !bitmap.CreateCompatibleBitmap(&window, whole.Width(), whole.Height()))
    {
        ::ImageList_Destroy(list);
        return nullptr;
    }
    COLORREF const clear = ::GetSysColor(COLOR_WINDOW);
    {
        SelectScope const selected(dc, bitmap);
        dc.FillSolidRect(&whole, clear);
        if (iconWidth != 0)
        {
            ::ImageList_Draw(icons, icon, dc, 0, (height - iconHeight) / 2, ILD_TRANSPARENT);
        }
        CRect place(iconWidth + kTextGap, 0, whole.right - kTextGap, height);
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
        dc.DrawText(text, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    ::ImageList_AddMasked(list, bitmap, clear);
    return list;
}

bool TreeViewMend::EditEnds(HWND edit)
{
    bool const first = edit == nullptr || edit != m_hEnded;
    m_hEnded = edit;
    return first;
}

} // namespace tavkit
