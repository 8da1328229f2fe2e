#include "tavkit/thematic/TmtcItem.h"

#include "tavkit/drawing/RoundRectGradient.h"
#include "tavkit/thematic/CardLayout.h"
#include "tavkit/thematic/CardOrder.h"

using namespace tavkit::thematic;

TmtcListCtrl::Item* TmtcListCtrl::Item::Create(const DString& strText, int nIconID, DWORD_PTR dwData, bool bEditable)
{
    auto* const item = new Item(strText, dwData, bEditable);
    item->SetIconLeft(nIconID);
    return item;
}

TmtcListCtrl::Item* TmtcListCtrl::Item::Create(const DString& strText, const char* pszIconFile, DWORD_PTR dwData,
                                               bool bEditable)
{
    auto* const item = new Item(strText, dwData, bEditable);
    if (pszIconFile != nullptr)
    {
        item->SetIconLeft(pszIconFile);
    }
    return item;
}

TmtcListCtrl::Item::Item(const char* pszText, DWORD_PTR dwData, bool bEditable)
    : Elmt(dwData), m_btnUp(idUp, BitmapButton::kImageUp), m_btnDown(idDown, BitmapButton::kImageDown),
      m_btnRmv(idRmv, false, ::GetSysColor(COLOR_WINDOW)), m_text(pszText), m_bReadOnly(!bEditable)
{
    m_btnUp.SetEnabled(bEditable);
    m_btnDown.SetEnabled(bEditable);
    m_btnRmv.SetEnabled(bEditable);
    for (DrawElmt* const element :
         std::initializer_list<DrawElmt*>{&m_btnRmv, &m_text, &m_btnUp, &m_btnDown, &m_bmpRight, &m_bmpLeft})
    {
        m_lstDraw.AddTail(element);
    }
}

TmtcListCtrl::Item::Item(Item const&) = default;
TmtcListCtrl::Item& TmtcListCtrl::Item::operator=(Item const&) = default;
TmtcListCtrl::Item::~Item() = default;

void TmtcListCtrl::Item::Draw(CDC* pDC, bool b3DLook) const
{
    if (!m_bVisible)
    {
        return;
    }
    RoundRectGradient(pDC->m_hDC, m_rect, kRadius, b3DLook ? kColorTop : kColorBottom, kColorBottom, true,
                      m_bSlct ? kOutlineSlct : kOutline, m_bSlct ? kColorOutlineSlct : kColorOutline);
    for (DrawElmt const* const element : m_lstDraw)
    {
        element->Draw(pDC, b3DLook);
    }
}

bool TmtcListCtrl::Item::HitTest(const POINT& pt, HITTEST* pHit) const
{
    if (!Contains(m_rect, pt))
    {
        return false;
    }
    pHit->pItem = const_cast<Item*>(this); // a hit test hands out what it found to be changed
    if (DrawElmt* const element = LastHit(m_lstDraw, pt))
    {
        pHit->pDrawElmt = element;
    }
    return true;
}

int TmtcListCtrl::Item::ComputeHeight() const { return kCardHeight; }

void TmtcListCtrl::Item::RepositionElmts()
{
    const CardParts parts = PlaceCard(m_rect, m_btnRmv.IsEnabled(), m_bmpRight.IsEnabled(), m_text.IsEnabled());
    m_bmpLeft.SetRect(parts.iconLeft);
    m_btnUp.SetRect(parts.up);
    m_btnDown.SetRect(parts.down);
    if (parts.remove)
    {
        m_btnRmv.SetRect(*parts.remove);
    }
    if (parts.iconRight)
    {
        m_bmpRight.SetRect(*parts.iconRight);
    }
    if (parts.caption)
    {
        m_text.SetRect(*parts.caption);
    }
}
