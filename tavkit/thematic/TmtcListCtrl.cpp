#include "tavkit/thematic/TmtcListCtrl.h"

#include "tavkit/drawing/MemDC.h"
#include "tavkit/frame/ModuleHandle.h"
#include "tavkit/resources/resource.h"
#include "tavkit/thematic/CardLayout.h"
#include "tavkit/thematic/CardOrder.h"
#include "tavkit/thematic/HandledElmts.h"
#include "tavkit/thematic/TmtcGroup.h"

#include <algorithm>
#include <memory>

using namespace tavkit::thematic;

BEGIN_MESSAGE_MAP(TmtcListCtrl, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()                      // left to the painting, which covers everything
    ON_WM_SETCURSOR()                       // a hand over buttons
    ON_WM_MOUSEMOVE()                       // buttons light up
    ON_MESSAGE(WM_MOUSELEAVE, OnMouseLeave) // and go out
    ON_WM_LBUTTONDOWN()                     // presses a button, or selects
    ON_WM_LBUTTONUP()                       // carries out what the button stands for
    ON_WM_RBUTTONDOWN()                     // selects, before a context menu
    ON_WM_GETDLGCODE()                      // arrows select, on request
    ON_WM_KEYDOWN()                         // selects, on request
END_MESSAGE_MAP()

TmtcListCtrl::TmtcListCtrl() { m_font.CreateStockObject(DEFAULT_GUI_FONT); }

TmtcListCtrl::~TmtcListCtrl()
{
    for (Elmt* const element : m_vecElmt)
    {
        delete element;
    }
}

int TmtcListCtrl::Create(unsigned long dwStyle, const RECT& rect, CWnd* pParent, unsigned int nID)
{
    m_bTrackMouse = false; // a window that went away while the mouse was over it never heard that it left
    return CWnd::Create(nullptr, kTitle, dwStyle, rect, pParent, nID);
}

// Elements

int TmtcListCtrl::IndexOf(Elmt const* pElmt) const
{
    const auto found = std::ranges::find(m_vecElmt, pElmt);
    return found != m_vecElmt.end() ? static_cast<int>(found - m_vecElmt.begin()) : -1;
}

void TmtcListCtrl::AddTail(Elmt* pElmt) { AddPos(m_vecElmt.GetCount(), pElmt); }

void TmtcListCtrl::AddPos(int nPos, Elmt* pElmt)
{
    if (pElmt == nullptr)
    {
        return;
    }
    InsertAt(m_vecElmt, nPos, pElmt);
    if (m_pSlct.Get() == nullptr && IsItem(pElmt))
    {
        m_pSlct = pElmt;
        pElmt->m_bSlct = true;
        const Handled handled(*this, nullptr, pElmt);
        OnSlctChng(nullptr, pElmt);
    }
}

void TmtcListCtrl::Rmv(Elmt* pElmt)
{
    if (!RemoveAt(m_vecElmt, IndexOf(pElmt)))
    {
        return;
    }
    const Handled handled(*this, pElmt, nullptr);
    if (pElmt == m_pSlct.Get())
    {
        m_pSlct = nullptr;
        OnSlctChng(IsItem(pElmt) ? pElmt : nullptr, nullptr);
    }
    delete handled.First();
}

TmtcListCtrl::Elmt* TmtcListCtrl::Get(int nIndex)
{
    return nIndex >= 0 && nIndex < m_vecElmt.GetCount() ? m_vecElmt[nIndex] : nullptr;
}

bool TmtcListCtrl::IsGroup(Elmt* pElmt) { return dynamic_cast<Group*>(pElmt) != nullptr; }

bool TmtcListCtrl::IsItem(Elmt* pElmt) { return dynamic_cast<Item*>(pElmt) != nullptr; }

TmtcListCtrl::Elmt* TmtcListCtrl::GetSlctElmt() const { return m_pSlct.Get(); }

TmtcListCtrl::Item* TmtcListCtrl::GetSlctItem() const { return dynamic_cast<Item*>(m_pSlct.Get()); }

TmtcListCtrl::Group* TmtcListCtrl::FindGroup(const DString& strID)
{
    for (Elmt* const element : m_vecElmt)
    {
        auto* const group = dynamic_cast<Group*>(element);
        if (group != nullptr && group->GetID() == strID)
        {
            return group;
        }
    }
    return nullptr;
}

TmtcListCtrl::Group* TmtcListCtrl::FindGroup(Item* pItem)
{
    for (Elmt* const element : m_vecElmt)
    {
        auto* const group = dynamic_cast<Group*>(element);
        if (group != nullptr && group->HasItem(pItem))
        {
            return group;
        }
    }
    return nullptr;
}

bool TmtcListCtrl::Holds(Elmt const* pElmt) const
{
    return std::ranges::any_of(m_vecElmt, [pElmt](Elmt* element) {
        auto const* const group = dynamic_cast<Group*>(element);
        return element == pElmt ||
               (group != nullptr && std::ranges::find(group->m_vecItem, pElmt) != group->m_vecItem.end());
    });
}

template <class Search>
void TmtcListCtrl::ShowItems(Search& search)
{
    for (Elmt* const element : m_vecElmt)
    {
        if (auto* const item = dynamic_cast<Item*>(element))
        {
            if (search.Show(item, item->m_bVisible))
            {
                return;
            }
        }
        else if (auto const* const group = dynamic_cast<Group*>(element))
        {
            const auto show = [&search](Item* card) { return card != nullptr && search.Show(card, card->m_bVisible); };
            if (std::ranges::any_of(group->m_vecItem, show))
            {
                return;
            }
        }
    }
}

TmtcListCtrl::Item* TmtcListCtrl::GetNextItem(Item* pItem, bool bVisible, bool bBackward)
{
    NeighbourSearch<Item> search(pItem, bVisible, bBackward);
    ShowItems(search);
    return search.Result();
}

void TmtcListCtrl::ShowElement(Elmt*, bool)
{
    // Empty on purpose: callers show and hide through Elmt::SetVisible().
}

TmtcListCtrl::Elmt* TmtcListCtrl::GetHead() { return Get(0); }

TmtcListCtrl::Elmt* TmtcListCtrl::GetTail() { return Get(m_vecElmt.GetCount() - 1); }

TmtcListCtrl::Elmt* TmtcListCtrl::RmvHead()
{
    Elmt* const head = GetHead();
    RemoveAt(m_vecElmt, 0);
    return head;
}

TmtcListCtrl::Elmt* TmtcListCtrl::RmvTail()
{
    Elmt* const tail = GetTail();
    RemoveAt(m_vecElmt, m_vecElmt.GetCount() - 1);
    return tail;
}

bool TmtcListCtrl::MoveElmnt(Elmt* pElmt, bool bUp)
{
    const int index = IndexOf(pElmt);
    const auto target = MoveTarget(index, m_vecElmt.GetCount(), bUp);
    if (!target || !IsGroup(pElmt) || !IsGroup(m_vecElmt[*target]))
    {
        return false;
    }
    std::swap(m_vecElmt[index], m_vecElmt[*target]);
    return true;
}

// Placing and painting

void TmtcListCtrl::RepositionItems()
{
    CRect client;
    GetClientRect(&client);
    CardStack rows({kListLeft, kCardGap, client.right, client.bottom});
    for (Elmt* const element : m_vecElmt)
    {
        element->m_rect = element->m_bVisible ? rows.Take(element->ComputeHeight()) : rows.Running();
        element->RepositionElmts();
    }
}

void TmtcListCtrl::OnPaint()
{
    CRect client;
    GetClientRect(&client);
    CPaintDC paint(this);
    CMemDC buffer;
    buffer.Resize(&paint, client.Width(), client.Height());
    CDC& dc = buffer.m_dc;
    if (dc.GetSafeHdc() == nullptr)
    {
        RepositionItems(); // nothing to paint on, as in a window without an area
        return;
    }
    dc.FillSolidRect(client, ::GetSysColor(COLOR_BTNFACE));
    dc.SetBkMode(TRANSPARENT);
    const SelectScope font(dc, m_font);
    const CPen shadow(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW));
    const SelectScope pen(dc, shadow);

    RepositionItems();
    const LifeWatch life(m_life);
    for (int i = 0; i < m_vecElmt.GetCount(); ++i)
    {
        if (!m_vecElmt[i]->m_bVisible)
        {
            continue;
        }
        const LifePtr<Elmt> element(m_vecElmt[i]);
        const bool look = Get3DLook();
        if (life.IsGone())
        {
            return;
        }
        if (element.Get() != nullptr && IsInView(element.Get()->m_rect, client.top, client.bottom))
        {
            element.Get()->Draw(&dc, look);
        }
    }
    paint.BitBlt(0, 0, client.Width(), client.Height(), &dc, 0, 0, SRCCOPY);
}

BOOL TmtcListCtrl::OnEraseBkgnd(CDC*) { return FALSE; }

// The mouse

bool TmtcListCtrl::HitTest(const POINT& pt, HITTEST* pHit) const
{
    *pHit = {};
    return std::ranges::any_of(m_vecElmt,
                               [&](Elmt const* element) { return element->m_bVisible && element->HitTest(pt, pHit); });
}

bool TmtcListCtrl::ProcessMouseEvent(EMouseEvnt evnt, const POINT& pt)
{
    bool changed = false;
    for (Elmt* const element : m_vecElmt)
    {
        changed = element->MouseEvent(evnt, pt) || changed;
    }
    if (changed)
    {
        Invalidate(FALSE);
    }
    return changed;
}

void TmtcListCtrl::SlctItem(CPoint pt)
{
    HITTEST hit;
    HitTest(pt, &hit);
    Elmt* const candidate = hit.pItem != nullptr ? static_cast<Elmt*>(hit.pItem) : hit.pGroup;
    const bool selectable = candidate != nullptr && (hit.pItem != nullptr || m_bEnblGrpSlct);
    if (!selectable || ChangeSlct(candidate))
    {
        Invalidate(FALSE);
    }
}

bool TmtcListCtrl::ChangeSlct(Elmt* pNew)
{
    Elmt* const old = m_pSlct.Get();
    if (pNew == old)
    {
        return true;
    }
    const Handled handled(*this, old, pNew);
    OnSlctChng(old, pNew);
    return !handled.IsListGone();
}

void TmtcListCtrl::OnMouseMove(UINT, CPoint point)
{
    if (!m_bTrackMouse)
    {
        m_bTrackMouse = true;
        TRACKMOUSEEVENT track{sizeof track, TME_HOVER | TME_LEAVE, m_hWnd, HOVER_DEFAULT};
        ::TrackMouseEvent(&track);
    }
    ProcessMouseEvent(mouseMove, point);
}

LRESULT TmtcListCtrl::OnMouseLeave(WPARAM, LPARAM)
{
    ProcessMouseEvent(mouseLeave, CPoint(0, 0));
    m_bTrackMouse = false;
    return 0;
}

bool TmtcListCtrl::TakeFocus()
{
    const LifeWatch life(m_life); // whoever loses the focus may do anything
    if (m_bEnblKeySlct)
    {
        SetFocus();
    }
    return !life.IsGone() && m_hWnd != nullptr;
}

void TmtcListCtrl::OnLButtonDown(UINT, CPoint point)
{
    if (TakeFocus() && !ProcessMouseEvent(mouseLDown, point))
    {
        SlctItem(point);
    }
}

void TmtcListCtrl::OnLButtonUp(UINT, CPoint point)
{
    ProcessMouseEvent(mouseLUp, point);
    HITTEST hit;
    HitTest(point, &hit);
    auto const* const button = dynamic_cast<Elmt::ButtonBase*>(hit.pDrawElmt);
    if (button == nullptr)
    {
        return;
    }
    // Where the press took place doesn't matter. After the hook nothing may be touched.
    const Handled handled(*this, hit.pGroup, hit.pItem);
    switch (button->GetID())
    {
    case idAdd:
        OnAddToGroup(hit.pGroup);
        break;
    case idRmv:
        OnRmvItem(hit.pGroup, hit.pItem);
        break;
    case idUp:
    case idDown:
        OnMoveItem(hit.pGroup, hit.pItem, button->GetID() == idUp);
        break;
    default:
        break;
    }
}

void TmtcListCtrl::OnRButtonDown(UINT, CPoint point)
{
    const LifeWatch life(m_life);
    if (!TakeFocus())
    {
        return;
    }
    SlctItem(point);
    if (!life.IsGone() && m_hWnd != nullptr)
    {
        Default();
    }
}

BOOL TmtcListCtrl::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT nMessage)
{
    POINT point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    HITTEST hit;
    HitTest(point, &hit);
    auto const* const button = dynamic_cast<Elmt::ButtonBase*>(hit.pDrawElmt);
    if (button == nullptr || !button->IsAvailable())
    {
        return CWnd::OnSetCursor(pWnd, nHitTest, nMessage);
    }
    // From the library itself: a host's cursor of the same number is another one.
    static const HCURSOR s_hand = ::LoadCursor(tavkit::ModuleInstance(), MAKEINTRESOURCE(IDC_TMTC_HAND));
    ::SetCursor(s_hand);
    return TRUE;
}

// The keyboard

UINT TmtcListCtrl::OnGetDlgCode() { return static_cast<UINT>(Default()) | (m_bEnblKeySlct ? DLGC_WANTARROWS : 0U); }

TmtcListCtrl::Item* TmtcListCtrl::FindItemByKey(UINT nKey)
{
    switch (nKey)
    {
    case VK_UP:
        return GetNextItem(GetSlctItem(), true, true);
    case VK_DOWN:
        return GetNextItem(GetSlctItem(), true, false);
    case VK_HOME:
        return GetNextItem(nullptr, true, false);
    case VK_END: {
        NeighbourSearch<Item> search(nullptr, true, true);
        ShowItems(search);
        return search.Last();
    }
    default:
        return nullptr;
    }
}

void TmtcListCtrl::OnKeyDown(UINT nChar, UINT, UINT)
{
    Item* const item = m_bEnblKeySlct ? FindItemByKey(nChar) : nullptr;
    if (item == nullptr)
    {
        Default();
    }
    else if (ChangeSlct(item))
    {
        Invalidate(FALSE);
    }
}

// Hooks

bool TmtcListCtrl::IsLost(Elmt const* pElmt) const
{
    for (Handled const* handled = m_pHandled; handled != nullptr; handled = handled->Outer())
    {
        // Where the lost one stood there may be another by now.
        if (handled->HasLost(pElmt))
        {
            return !Holds(pElmt);
        }
    }
    return false;
}

void TmtcListCtrl::OnSlctChng(Elmt* pOld, Elmt* pNew)
{
    if (IsLost(pNew))
    {
        pNew = nullptr;
    }
    m_pSlct = pNew;
    if (pOld != nullptr && !IsLost(pOld))
    {
        pOld->m_bSlct = false;
    }
    if (pNew != nullptr)
    {
        pNew->m_bSlct = true;
    }
}

TmtcListCtrl::Item* TmtcListCtrl::FindRplcItem(Group& group, Item* pItem)
{
    Item* const next = group.FindRplcItem(pItem);
    const int index = next == nullptr && group.GetNumItem() > 1 ? IndexOf(&group) : -1;
    if (index < 0)
    {
        return next;
    }
    Elmt* const below = Get(index + 1);
    if (auto const* const groupBelow = dynamic_cast<Group*>(below))
    {
        return groupBelow->m_vecItem.IsEmpty() ? nullptr : groupBelow->m_vecItem.m_pData[0];
    }
    return dynamic_cast<Item*>(below);
}

void TmtcListCtrl::ShowRplcItem(Item* pRplc, Item const* pRmvd)
{
    if (pRplc != nullptr)
    {
        if (Elmt::ButtonBase* const button = pRplc->FindButton(idRmv))
        {
            button->SetState(Elmt::ButtonBase::stateHot);
        }
        Invalidate(TRUE);
        m_pRplcItem = pRplc;
    }
    else if (m_pRplcItem == pRmvd)
    {
        m_pRplcItem = nullptr;
    }
}

void TmtcListCtrl::OnRmvItem(Group* pGrp, Item* pItem)
{
    if (pItem == nullptr || IsLost(pItem) || IsLost(pGrp))
    {
        return;
    }
    if (pGrp != nullptr)
    {
        ShowRplcItem(FindRplcItem(*pGrp, pItem), pItem);
    }
    const Handled handled(*this, pGrp, pItem);
    if (pItem == m_pSlct.Get())
    {
        OnSlctChng(pItem, nullptr);
    }
    if (pGrp == nullptr)
    {
        if (!handled.IsListGone() && handled.Second() != nullptr)
        {
            Rmv(pItem);
        }
    }
    else if (handled.First() != nullptr && handled.Second() != nullptr)
    {
        pGrp->RmvItem(pItem, true);
    }
}

TmtcListCtrl::Item* TmtcListCtrl::OnAddToGroup(Group*) { return nullptr; }

bool TmtcListCtrl::Get3DLook() const { return true; }

bool TmtcListCtrl::OnMoveItem(Group* pGrp, Item* pItem, bool bUp)
{
    if (pGrp == nullptr || pItem == nullptr || IsLost(pGrp))
    {
        return false;
    }
    const bool moved = pGrp->MoveItem(pItem, bUp);
    Invalidate(FALSE);
    return moved;
}
