// TavTreeCtrlDrag.cpp - CTavTreeCtrl: drag and drop
#include "tavkit/trees/ItemWatch.h"
#include "tavkit/trees/TavTreeCtrl.h"
#include "tavkit/trees/TreeDrag.h"
#include "tavkit/trees/TreeViewMend.h"

using tavkit::DragKind;
using tavkit::DragScroll;

namespace
{

bool IsDown(int button) { return ::GetAsyncKeyState(button) < 0; }

} // namespace

bool CTavTreeCtrl::IsLeftDrag() const { return m_nDragKind == DragKind::left; }

bool CTavTreeCtrl::IsRghtDrag() const { return m_nDragKind == DragKind::right; }

DWORD_PTR CTavTreeCtrl::GetDragData() const { return GetItemData(m_hDragItem); }

void CTavTreeCtrl::OnBegindrag(NMHDR* pNMHDR, LRESULT*)
{
    if (m_bLeftDrag)
    {
        InitDrag(reinterpret_cast<NMTREEVIEW*>(pNMHDR), static_cast<int>(DragKind::left));
    }
}

void CTavTreeCtrl::OnBeginrdrag(NMHDR* pNMHDR, LRESULT*)
{
    if (m_bRghtDrag)
    {
        InitDrag(reinterpret_cast<NMTREEVIEW*>(pNMHDR), static_cast<int>(DragKind::right));
    }
}

void CTavTreeCtrl::InitDrag(NMTREEVIEW* info, int kind)
{
    if (!MayBeginDrag(m_nDragKind, IsDown(VK_LBUTTON), IsDown(VK_RBUTTON)) || info == nullptr ||
        info->itemNew.hItem == nullptr)
    {
        return;
    }
    ItemWatch const item(*this, info->itemNew.hItem);
    if (!IsDragItem(item.Item()) || !item.ItemIsThere())
    {
        return;
    }
    std::unique_ptr<CImageList> image(CreateDragImage(item.Item()));
    if (image == nullptr) // the control makes none without an image list
    {
        image = std::make_unique<CImageList>();
        image->Attach(tavkit::TreeViewMend::DrawDragImage(*this, item.Item()));
    }
    if (!item.ItemIsThere())
    {
        return; // the parent was asked for the item's text and took it away
    }
    m_nDragKind = static_cast<DragKind>(kind);
    m_hDragItem = item.Item();
    m_ptDrag = info->ptDrag;
    m_pDragImage = std::move(image);
    m_pDragImage->BeginDrag(0, CPoint(0, 0));
    ShowDragImage(m_ptDrag);
    ::ShowCursor(FALSE);
    Invalidate(TRUE);
    SetCapture();
}

void CTavTreeCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    ItemWatch const watch(*this);
    if (IsInDragMode() && !m_bDropping)
    {
        DragTo(point);
    }
    if (watch.TreeIsThere())
    {
        CTreeCtrl::OnMouseMove(nFlags, point);
    }
}

void CTavTreeCtrl::ShowDragImage(CPoint point)
{
    CImageList::DragEnter(this, point);
    m_bImageShown = true;
}

void CTavTreeCtrl::HideDragImage()
{
    CImageList::DragLeave(this);
    m_bImageShown = false;
}

void CTavTreeCtrl::DragTo(CPoint point)
{
    CImageList::DragMove(point);
    ItemWatch const hit(*this, HitTest(point));
    HideDragImage(); // the window may be drawn on from here
    bool const isTarget = IsDragTrgt(m_hDragItem, hit.Item());
    if (!hit.TreeIsThere() || !IsInDragMode())
    {
        return; // the hook has ended the drag, one way or the other
    }
    SelectDropTarget(isTarget ? hit.Item() : nullptr);
    ScrollWithDrag(point.y);
    ShowDragImage(point);
}

void CTavTreeCtrl::ScrollWithDrag(LONG y)
{
    CRect client;
    GetClientRect(client);
    tavkit::ScrollState bar{GetScrollPos(SB_VERT), 0, 0};
    GetScrollRange(SB_VERT, &bar.min, &bar.max);
    HTREEITEM const first = GetFirstVisibleItem();
    HTREEITEM wanted = nullptr;
    switch (ScrollOfDrag(y, client.bottom, bar))
    {
    case DragScroll::none:
        break;
    case DragScroll::down:
        wanted = GetNextVisibleItem(first);
        break;
    case DragScroll::up:
        // What stands open under the brother is passed over in one step, by design.
        wanted = GetPrevSiblingItem(first);
        if (wanted == nullptr)
        {
            wanted = GetParentItem(first);
        }
        break;
    }
    if (wanted != nullptr)
    {
        SelectSetFirstVisible(wanted);
    }
}

void CTavTreeCtrl::EndDrag(HTREEITEM target)
{
    if (!IsInDragMode() || m_bDropping)
    {
        return;
    }
    ItemWatch const drop(*this, target);
    struct Reset // also when a hook throws
    {
        CTavTreeCtrl& tree;
        ItemWatch const& watch;
        ~Reset()
        {
            if (watch.ObjectIsThere())
            {
                tree.ResetDrag();
            }
        }
    } const reset{*this, drop};

    m_bDropping = true; // first: losing the capture may bring a host back here
    ReleaseDrag();
    if (IsDragTrgt(m_hDragItem, target) && drop.ItemIsThere() && m_hDragItem != nullptr)
    {
        OnDragEnd(m_hDragItem, target);
    }
}

void CTavTreeCtrl::AbandonDrag()
{
    if (IsInDragMode() && !m_bDropping)
    {
        m_bDropping = true;
        ReleaseDrag();
        ResetDrag();
    }
}

void CTavTreeCtrl::ReleaseDrag()
{
    SelectDropTarget(nullptr);
    HideDragImage();
    CImageList::EndDrag();
    m_pDragImage.reset();
    ::ShowCursor(TRUE);
    Invalidate(TRUE);
    if (GetCapture() == this)
    {
        ::ReleaseCapture();
    }
}

void CTavTreeCtrl::ResetDrag()
{
    m_hDragItem = nullptr;
    m_nDragKind = DragKind::none;
    m_bDropping = false;
}
