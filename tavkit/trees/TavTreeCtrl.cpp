#include "tavkit/trees/TavTreeCtrl.h"

#include <afxctl.h>
#include "tavkit/trees/ItemWatch.h"
#include "tavkit/trees/TreeDrag.h"
#include "tavkit/trees/TreeFinder.h"
#include "tavkit/trees/TreeViewMend.h"

using tavkit::DragButton;
using tavkit::DragKind;

namespace
{

/// How the tool tip is raised: no move, no size, no activation, and nobody is asked.
constexpr UINT kRaiseTip =
    SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER | SWP_NOSENDCHANGING;

} // namespace

BEGIN_MESSAGE_MAP(CTavTreeCtrl, CTreeCtrl)
    ON_WM_PAINT()                                           // a disabled tree paints as if enabled
    ON_WM_LBUTTONDOWN()                                     // the hook may take the press
    ON_WM_LBUTTONUP()                                       // drops in a left drag
    ON_WM_RBUTTONDOWN()                                     // may select
    ON_WM_RBUTTONUP()                                       // drops in a right drag
    ON_WM_MOUSEMOVE()                                       // a drag moves on, or scrolls at the edge
    ON_NOTIFY_REFLECT(TVN_BEGINLABELEDIT, OnBeginLabelEdit) // the editor opens
    ON_NOTIFY_REFLECT(TVN_ENDLABELEDIT, OnEndLabelEdit)     // the editor closes
    ON_NOTIFY_REFLECT(TVN_BEGINDRAG, OnBegindrag)           // the left button pulled an item
    ON_NOTIFY_REFLECT(TVN_BEGINRDRAG, OnBeginrdrag)         // the right one did
    ON_NOTIFY_REFLECT_EX(TVN_KEYDOWN, OnKeydown)            // a key went down in the tree
    ON_NOTIFY_REFLECT_EX(TVN_SELCHANGED, OnSelchanged)      // another item is selected
    ON_NOTIFY_REFLECT_EX(NM_RCLICK, OnRclick)               // a right click asks for a menu
    ON_NOTIFY_REFLECT_EX(NM_DBLCLK, OnDblclk)               // a double click
END_MESSAGE_MAP()

CTavTreeCtrl::CTavTreeCtrl()
    : m_nDragKind(DragKind::none), m_pFinder(std::make_unique<tavkit::TreeFinder>()),
      m_pMend(std::make_unique<tavkit::TreeViewMend>())
{
}

CTavTreeCtrl::~CTavTreeCtrl()
{
    for (ItemWatch* watch = m_pTopWatch; watch != nullptr; watch = watch->m_pBelow)
    {
        watch->m_pTree = nullptr;
    }
}

void CTavTreeCtrl::MoveScroll(int vertical, int pos)
{
    SetScrollPos(vertical != 0 ? SB_VERT : SB_HORZ, pos, TRUE);
    SendMessage(vertical != 0 ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, pos), 0);
}

// What hooks do unless they are overridden

bool CTavTreeCtrl::IsDragItem(HTREEITEM) { return true; }

bool CTavTreeCtrl::IsDragTrgt(HTREEITEM dragItem, HTREEITEM target) { return dragItem != target; }

void CTavTreeCtrl::OnDragEnd(HTREEITEM, HTREEITEM) {}

bool CTavTreeCtrl::DTCDblClck(HTREEITEM, LRESULT* result)
{
    *result = 0;
    return false;
}

bool CTavTreeCtrl::DTCSlctChg(HTREEITEM, HTREEITEM, LRESULT* result)
{
    *result = 0;
    return false;
}

void CTavTreeCtrl::DTCKeyDown(unsigned short, LRESULT* result) { *result = 0; }

bool CTavTreeCtrl::DTCCntxMenu(HTREEITEM, CPoint, LRESULT* result)
{
    *result = 0;
    return false;
}

void CTavTreeCtrl::DTCEndLabelEdit(NMHDR*, LRESULT*) {}

void CTavTreeCtrl::DTCBeginLabelEdit(NMHDR*, LRESULT*) {}

bool CTavTreeCtrl::DTCLButtonDown(HTREEITEM, unsigned int, CPoint) { return false; }

// Messages on their way to the control

LRESULT CTavTreeCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (tavkit::TreeFinder::IsChange(message, wParam))
    {
        return ChangeItems(message, wParam, lParam);
    }
    if (message == WM_DESTROY)
    {
        AbandonDrag();
        m_hDragItem = nullptr;
        m_hClickItem = nullptr;
        m_pMend->ForgetHilight();
        m_pFinder->Restart();
    }
    ItemWatch const watch(*this);
    LRESULT const answer = CTreeCtrl::DefWindowProc(message, wParam, lParam);
    return watch.TreeIsThere() ? m_pMend->Answer(*this, message, wParam, lParam, answer) : answer;
}

LRESULT CTavTreeCtrl::ChangeItems(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == TVM_DELETEITEM || message == TVM_EXPAND)
    {
        ForgetItems(reinterpret_cast<HTREEITEM>(lParam), message == TVM_DELETEITEM);
    }
    tavkit::TreeFinder::Change const change = m_pFinder->Begin(tavkit::WindowTree(m_hWnd, m_pfnSuper), message, lParam);
    ItemWatch const watch(*this);
    LRESULT const answer = CTreeCtrl::DefWindowProc(message, wParam, lParam);
    if (watch.ObjectIsThere())
    {
        m_pFinder->End(tavkit::WindowTree(m_hWnd, m_pfnSuper), change, answer);
    }
    return answer;
}

BOOL CTavTreeCtrl::PreTranslateMessage(MSG* pMsg)
{
    // Keys of an open label editor go to it at once, before a dialog or the frame takes them for commands.
    if ((pMsg->message == WM_KEYDOWN || pMsg->message == WM_CHAR) && SendMessage(TVM_GETEDITCONTROL) != 0)
    {
        ::TranslateMessage(pMsg);
        ::DispatchMessageA(pMsg);
        return TRUE;
    }
    return CTreeCtrl::PreTranslateMessage(pMsg);
}

BOOL CTavTreeCtrl::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (pResult != nullptr)
    {
        *pResult = 1;
    }
    if (reinterpret_cast<NMHDR const*>(lParam)->code == static_cast<UINT>(TTN_SHOW))
    {
        if (CToolTipCtrl* const tips = GetToolTips())
        {
            tips->SetWindowPos(&wndTop, 0, 0, 0, 0, kRaiseTip);
        }
        return TRUE;
    }
    return CTreeCtrl::OnNotify(wParam, lParam, pResult);
}

void CTavTreeCtrl::OnPaint()
{
    ItemWatch const watch(*this); // owners may draw parts of it
    bool const isDisabled = !IsWindowEnabled();
    bool const hidesImage = m_bImageShown; // or it would put back what it covered before
    if (hidesImage)
    {
        CImageList::DragShowNolock(FALSE);
    }
    if (isDisabled)
    {
        EnableWindow(TRUE);
    }
    CTreeCtrl::OnPaint();
    if (!watch.TreeIsThere())
    {
        return;
    }
    if (isDisabled)
    {
        EnableWindow(FALSE);
        ValidateRect(nullptr); // both changes of state ask for another paint
    }
    if (hidesImage && m_bImageShown)
    {
        CImageList::DragShowNolock(TRUE);
    }
}

// Buttons

void CTavTreeCtrl::OnLButtonDown(UINT nFlags, CPoint point)
{
    ItemWatch const watch(*this);
    m_hClickItem = HitTest(point);
    if (!DTCLButtonDown(m_hClickItem, nFlags, point) && watch.TreeIsThere())
    {
        CTreeCtrl::OnLButtonDown(nFlags, point);
    }
}

void CTavTreeCtrl::OnLButtonUp(UINT, CPoint point) { ReleaseButton(DragButton::left, point); }

void CTavTreeCtrl::OnRButtonDown(UINT nFlags, CPoint point)
{
    ItemWatch const hit(*this, HitTest(point));
    if (m_bRghtSlct && hit.Item() != nullptr)
    {
        SelectItem(hit.Item());
    }
    if (hit.TreeIsThere())
    {
        m_hClickItem = hit.Item();
        CTreeCtrl::OnRButtonDown(nFlags, point);
    }
}

void CTavTreeCtrl::OnRButtonUp(UINT, CPoint point) { ReleaseButton(DragButton::right, point); }

void CTavTreeCtrl::ReleaseButton(DragButton button, CPoint point)
{
    ItemWatch const watch(*this);
    bool const goesOn = ReleaseGoesOn(m_nDragKind, button);
    if (EndsDrag(m_nDragKind, button))
    {
        EndDrag(HitTest(point));
    }
    if (goesOn && watch.TreeIsThere())
    {
        Default();
    }
    if (watch.TreeIsThere())
    {
        m_hClickItem = nullptr;
    }
}

// Notifications of the control, before its parent sees them

void CTavTreeCtrl::OnBeginLabelEdit(NMHDR* pNMHDR, LRESULT* pResult)
{
    m_pMend->EditBegins();
    if (m_bEdit)
    {
        m_nScrollPos = GetScrollPos(SB_HORZ);
        DTCBeginLabelEdit(pNMHDR, pResult);
    }
}

void CTavTreeCtrl::OnEndLabelEdit(NMHDR* pNMHDR, LRESULT* pResult)
{
    if (!m_pMend->EditEnds(reinterpret_cast<HWND>(SendMessage(TVM_GETEDITCONTROL))) || !m_bEdit)
    {
        return;
    }
    ItemWatch const watch(*this);
    DTCEndLabelEdit(pNMHDR, pResult);
    if (watch.TreeIsThere())
    {
        MoveScroll(0, m_nScrollPos);
    }
}

BOOL CTavTreeCtrl::OnKeydown(NMHDR* pNMHDR, LRESULT* pResult)
{
    LRESULT res = 0;
    DTCKeyDown(reinterpret_cast<NMTVKEYDOWN const*>(pNMHDR)->wVKey, &res);
    *pResult = 0;
    return res != 0;
}

BOOL CTavTreeCtrl::OnSelchanged(NMHDR* pNMHDR, LRESULT*)
{
    if (pNMHDR == nullptr)
    {
        return TRUE;
    }
    auto const* const info = reinterpret_cast<NMTREEVIEW const*>(pNMHDR);
    LRESULT res = 0;
    return DTCSlctChg(info->itemOld.hItem, info->itemNew.hItem, &res) || res != 0;
}

BOOL CTavTreeCtrl::OnRclick(NMHDR*, LRESULT* pResult)
{
    *pResult = 0;
    CPoint const point = GetCurrentMessage()->pt;
    CRect window;
    GetWindowRect(window);
    if (!window.PtInRect(point))
    {
        return FALSE;
    }
    LRESULT res = 0;
    *pResult = DTCCntxMenu(GetItem(point), point, &res) ? 1 : 0;
    return res != 0;
}

BOOL CTavTreeCtrl::OnDblclk(NMHDR*, LRESULT* pResult)
{
    CPoint point = GetCurrentMessage()->pt;
    ScreenToClient(&point);
    LRESULT res = 0;
    *pResult = DTCDblClck(HitTest(point), &res) ? 1 : 0;
    return res != 0;
}
