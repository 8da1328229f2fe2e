#include "tavkit/thematic/TmtcGroup.h"

#include "tavkit/drawing/RoundRectGradient.h"
#include "tavkit/thematic/CardLayout.h"
#include "tavkit/thematic/CardOrder.h"

#include <algorithm>
#include <limits>
#include <memory>

using namespace tavkit::thematic;

TmtcListCtrl::Group* TmtcListCtrl::Group::Create(const DString& strText, const DString& strID, unsigned long crStart,
                                                 unsigned long crEnd, DWORD_PTR dwData)
try
{
    return new Group(strText, strID, crStart, crEnd, dwData);
}
catch (std::bad_alloc const&)
{
    return nullptr;
}

void TmtcListCtrl::Group::Delete(Group* pGroup) { delete pGroup; }

TmtcListCtrl::Group::Group(const char* pszText, DString const& strID, unsigned long crStart, unsigned long crEnd,
                           DWORD_PTR dwData)
    : Elmt(dwData), m_crStart(crStart), m_crEnd(crEnd), m_strID(strID), m_btnAdd(idAdd, true, crEnd), m_text(pszText),
      m_lnkAdd(idAdd)
{
    m_lnkAdd.SetText(GetHyperlinkText());
    m_lstDraw.AddTail(&m_btnAdd);
    m_lstDraw.AddTail(&m_lnkAdd);
}

TmtcListCtrl::Group::Group(Group const&) = default;
TmtcListCtrl::Group& TmtcListCtrl::Group::operator=(Group const&) = default;

TmtcListCtrl::Group::~Group()
{
    for (Item* const item : m_vecItem)
    {
        delete item;
    }
}

void TmtcListCtrl::Group::SetText(const char* pszText)
{
    m_text.SetText(pszText);
    m_lnkAdd.SetText(GetHyperlinkText());
}

void TmtcListCtrl::Group::SetEnblAdd(bool bEnabled)
{
    m_btnAdd.SetEnabled(bEnabled);
    m_lnkAdd.SetText(GetHyperlinkText());
    m_lnkAdd.SetEnabled(bEnabled);
}

DString TmtcListCtrl::Group::GetHyperlinkText() const
{
    return GetEnblAdd() ? DString::Format("Add %s...", GetText()) : DString::Format("No %s items", GetText());
}

int TmtcListCtrl::Group::GetNumVsblItem() const
{
    return static_cast<int>(
        std::ranges::count_if(m_vecItem, [](Item const* item) { return item != nullptr && item->m_bVisible; }));
}

int TmtcListCtrl::Group::IndexOf(Item const* pItem) const
{
    const auto found = std::ranges::find(m_vecItem, pItem);
    return found != m_vecItem.end() ? static_cast<int>(found - m_vecItem.begin()) : -1;
}

TmtcListCtrl::Item* TmtcListCtrl::Group::Get(int nIndex) { return nIndex >= 0 ? m_vecItem[nIndex] : nullptr; }

void TmtcListCtrl::Group::AddTail(Item* pItem) { Insert(pItem, m_vecItem.GetCount()); }

void TmtcListCtrl::Group::Insert(Item* pItem, int nPos)
{
    if (pItem != nullptr)
    {
        pItem->SetGrp(this);
        InsertAt(m_vecItem, nPos, pItem);
    }
}

void TmtcListCtrl::Group::RmvItem(Item* pItem, bool bDelete)
{
    if (RemoveAt(m_vecItem, IndexOf(pItem)))
    {
        m_vecItem.m_pData[m_vecItem.GetCount()] = nullptr; // Get() may ask for the place that became free
    }
    if (bDelete)
    {
        delete pItem;
    }
}

TmtcListCtrl::Item* TmtcListCtrl::Group::FindRplcItem(Item* pItem)
{
    const auto replacement = ReplacementOf(pItem != nullptr ? IndexOf(pItem) : -1, m_vecItem.GetCount());
    return replacement ? m_vecItem[*replacement] : nullptr;
}

bool TmtcListCtrl::Group::MoveItem(Item* pItem, bool bUp)
{
    const int index = IndexOf(pItem);
    const auto target = MoveTarget(index, m_vecItem.GetCount(), bUp);
    if (target)
    {
        std::swap(m_vecItem[index], m_vecItem[*target]);
    }
    return target.has_value();
}

void TmtcListCtrl::Group::MoveChldr(Group& other)
{
    if (&other != this)
    {
        m_vecItem = std::move(other.m_vecItem);
        other.m_vecItem = DVector<Item*>();
    }
}

void TmtcListCtrl::Group::Draw(CDC* pDC, bool b3DLook) const
{
    if (!m_bVisible)
    {
        return;
    }
    RECT view{};
    if (pDC->GetClipBox(&view) == ERROR)
    {
        view.top = m_rect.top;
        view.bottom = m_rect.bottom;
    }
    for (Item const* const item : m_vecItem)
    {
        if (item != nullptr && item->m_bVisible && IsInView(item->m_rect, view.top, view.bottom))
        {
            item->Draw(pDC, b3DLook);
        }
    }
    RoundRectGradient(pDC->m_hDC, CutBar(PlaceBar(m_rect), view.top, view.bottom), Item::kRadius,
                      b3DLook ? m_crStart : m_crEnd, m_crEnd, false, m_bSlct ? Item::kOutlineSlct : Item::kOutline,
                      m_bSlct ? Item::kColorOutlineSlct : Item::kColorOutline);
    for (DrawElmt const* const element : m_lstDraw)
    {
        element->Draw(pDC, b3DLook);
    }
}

bool TmtcListCtrl::Group::HitTest(const POINT& pt, HITTEST* pHit) const
{
    if (!Contains(m_rect, pt))
    {
        return false;
    }
    pHit->pGroup = const_cast<Group*>(this); // a hit test hands out what it found to be changed
    for (Item const* const item : m_vecItem)
    {
        if (item != nullptr && item->m_bVisible && item->HitTest(pt, pHit))
        {
            return true;
        }
    }
    if (DrawElmt* const element = LastHit(m_lstDraw, pt))
    {
        pHit->pDrawElmt = element;
    }
    return true;
}

int TmtcListCtrl::Group::ComputeHeight() const { return GroupHeight(GetNumVsblItem()); }

bool TmtcListCtrl::Group::MouseEvent(EMouseEvnt evnt, const POINT& pt)
{
    bool changed = false;
    for (Item* const item : m_vecItem)
    {
        if (item != nullptr && item->m_bVisible)
        {
            changed = item->MouseEvent(evnt, pt) || changed;
        }
    }
    return Elmt::MouseEvent(evnt, pt) || changed;
}

void TmtcListCtrl::Group::RepositionElmts()
{
    CardStack rows({kGroupIndent, m_rect.top, m_rect.right, m_rect.bottom});
    const int count = m_vecItem.GetCount();
    for (int i = 0; i < count; ++i)
    {
        Item* const item = m_vecItem[i];
        if (item == nullptr)
        {
            continue;
        }
        if (item->m_bVisible)
        {
            item->m_rect = rows.Take(item->ComputeHeight());
            item->RepositionElmts();
        }
        // The place among all items decides, not that among the visible ones: a first visible item behind a hidden one
        // keeps its arrow.
        if (ButtonBase* const up = item->FindButton(idUp))
        {
            up->SetEnabled(!item->GetReadOnly() && i != 0);
        }
        if (ButtonBase* const down = item->FindButton(idDown))
        {
            down->SetEnabled(!item->GetReadOnly() && i != count - 1);
        }
    }
    m_btnAdd.SetRect(PlaceAddButton(m_rect));
    PlaceLink();
}

void TmtcListCtrl::Group::PlaceLink()
{
    if (!m_vecItem.IsEmpty())
    {
        m_lnkAdd.SetRect({});
        return;
    }
    CClientDC dc(AfxGetMainWnd());
    const SelectScope font(dc, *m_lnkAdd.GetFont());
    CRect text;
    dc.DrawText(m_lnkAdd.GetText(), &text, DT_CALCRECT | DT_SINGLELINE);
    m_lnkAdd.SetRect(tavkit::thematic::PlaceLink(m_rect, text.Size()));
}
