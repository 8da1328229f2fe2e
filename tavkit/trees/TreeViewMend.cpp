#include "tavkit/trees/TreeViewMend.h"

#include <algorithm>

namespace tavkit
{
namespace
{

constexpr int kTextGap = 3;         // pixels on either side of the text
constexpr int kMostTextWidth = 480; // pixels; a longer text is cut, or it would hide where it is dropped

} // namespace

LRESULT TreeViewMend::Answer(CTreeCtrl& tree, UINT message, WPARAM wParam, LPARAM lParam, LRESULT answer)
{
    switch (message)
    {
    case TVM_SELECTITEM:
        if (wParam == TVGN_DROPHILITE && lParam == 0)
        {
            if (HTREEITEM const left = tree.GetDropHilightItem())
            {
                tree.SetItemState(left, 0, TVIS_DROPHILITED);
            }
        }
        return answer;
    case TVM_GETNEXTITEM:
        if (wParam == TVGN_DROPHILITE && answer != 0 &&
            tree.GetItemState(reinterpret_cast<HTREEITEM>(answer), TVIS_DROPHILITED) == 0)
        {
            return 0;
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
