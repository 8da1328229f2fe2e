#include "tavkit/thematic/TmtcDrawElmt.h"

#include "tavkit/frame/services/DFile.h"
#include "tavkit/resources/resource.h"
#include "tavkit/thematic/RoundButton.h"

#include <objidl.h>
#include <gdiplus.h>

using namespace tavkit::thematic;

TmtcListCtrl::Elmt::ButtonBase* TmtcListCtrl::Elmt::FindButton(ECommand id) const
{
    for (DrawElmt* const element : m_lstDraw)
    {
        auto* const button = dynamic_cast<ButtonBase*>(element);
        if (button != nullptr && button->GetID() == id)
        {
            return button;
        }
    }
    return nullptr;
}

// Bitmap

TmtcListCtrl::Elmt::Bitmap::Bitmap() = default;

TmtcListCtrl::Elmt::Bitmap::~Bitmap() = default;

void TmtcListCtrl::Elmt::Bitmap::SetBitmap(Gdiplus::Bitmap* pBitmap)
{
    if (pBitmap != m_pBitmap.get())
    {
        m_pBitmap.reset(pBitmap);
    }
}

void TmtcListCtrl::Elmt::Bitmap::SetBitmap(const char* pszFile)
{
    WCHAR name[kMaxFileName];
    const bool canLoad = pszFile != nullptr && *pszFile != '\0' && DFile(pszFile).CanRead() &&
                         ::MultiByteToWideChar(CP_ACP, 0, pszFile, -1, name, kMaxFileName) != 0;
    // What GDI+ made of the file stays inside the image, on purpose: a broken one is an image that shows nothing.
    SetBitmap(canLoad ? new Gdiplus::Bitmap(name) : nullptr);
}

void TmtcListCtrl::Elmt::Bitmap::SetBitmap(int nIconID)
{
    if (nIconID < 0)
    {
        m_pBitmap.reset();
        return;
    }
    const auto icon = static_cast<HICON>(::LoadImageA(AfxGetInstanceHandle(), MAKEINTRESOURCEA(LOWORD(nIconID)),
                                                      IMAGE_ICON, kIconSize, kIconSize, LR_SHARED));
    SetBitmap(new Gdiplus::Bitmap(icon));
}

void TmtcListCtrl::Elmt::Bitmap::Draw(CDC* pDC, bool) const
{
    if (IsAvailable())
    {
        Gdiplus::Graphics graphics(pDC->m_hDC);
        graphics.DrawImage(m_pBitmap.get(), static_cast<INT>(m_rect.left), static_cast<INT>(m_rect.top),
                           static_cast<INT>(m_rect.right - m_rect.left), static_cast<INT>(m_rect.bottom - m_rect.top));
    }
}

// Text

TmtcListCtrl::Elmt::Text::Text(const char* pszText) : m_strText(pszText) {}

TmtcListCtrl::Elmt::Text::~Text() = default;

void TmtcListCtrl::Elmt::Text::Draw(CDC* pDC, bool) const
{
    if (IsAvailable())
    {
        RECT rect = m_rect;
        pDC->DrawText(m_strText, &rect, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }
}

// ButtonBase

bool TmtcListCtrl::Elmt::ButtonBase::MouseEvent(EMouseEvnt evnt, const POINT& pt)
{
    const int old = m_nState;
    m_nState = NextButtonState(old, evnt, Contains(m_rect, pt), IsAvailable());
    return m_nState != old;
}

// BitmapButton

TmtcListCtrl::Elmt::BitmapButton::BitmapButton(unsigned long dwID, int nBitmapIndex)
    : ButtonBase(dwID), m_nBitmapIndex(nBitmapIndex)
{
    if (m_lstImg.GetSafeHandle() == nullptr || m_lstImg.GetImageCount() == 0)
    {
        m_lstImg.DeleteImageList();
        m_lstImg.Create(IDB_TMTC_ARROWS, sizeImage.cx, kStripGrowth, kStripMask);
    }
}

TmtcListCtrl::Elmt::BitmapButton::~BitmapButton() = default;

void TmtcListCtrl::Elmt::BitmapButton::Draw(CDC* pDC, bool) const
{
    if (IsAvailable())
    {
        ::ImageList_Draw(m_lstImg.GetSafeHandle(), ButtonImage(m_nBitmapIndex, m_nState), pDC->m_hDC, m_rect.left,
                         m_rect.top, ILD_NORMAL);
    }
}

// Hyperlink

namespace
{

void CreateLinkFont(CFont& font, bool underline)
{
    if (font.GetSafeHandle() != nullptr)
    {
        return;
    }
    LOGFONT description{};
    const HGDIOBJ stock = ::GetStockObject(DEFAULT_GUI_FONT);
    bool made = stock != nullptr && ::GetObject(stock, sizeof description, &description) != 0;
    if (made)
    {
        description.lfUnderline = underline;
        made = font.CreateFontIndirect(&description) != FALSE;
    }
    if (!made)
    {
        constexpr int kFallbackHeight = 12;
        font.CreateFont(kFallbackHeight, 0, 0, 0, FW_NORMAL, FALSE, underline, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0,
                        "Arial");
    }
}

} // namespace

TmtcListCtrl::Elmt::Hyperlink::Hyperlink(unsigned long dwID) : ButtonBase(dwID) { CreateHyperlinkFonts(); }

void TmtcListCtrl::Elmt::Hyperlink::CreateHyperlinkFonts()
{
    CreateLinkFont(fontHyper, true);
    CreateLinkFont(fontText, false);
}

void TmtcListCtrl::Elmt::Hyperlink::Draw(CDC* pDC, bool) const
{
    if (!IsValid())
    {
        return;
    }
    COLORREF oldColor = 0; // stays black for a link that isn't enabled, and is set below all the same: kept as it is
    if (m_bEnabled)
    {
        oldColor = pDC->SetTextColor(kLinkColor);
    }
    RECT rect = m_rect;
    if (!::IsRectEmpty(&rect)) // a place without size holds no text, but Wine underlines it there
    {
        const SelectScope font(*pDC, *GetFont());
        pDC->DrawText(m_strText, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    }
    pDC->SetTextColor(oldColor);
}

// Button

TmtcListCtrl::Elmt::Button::Button() : m_crShadow(::GetSysColor(COLOR_WINDOW)), m_bAdd(true) {}

TmtcListCtrl::Elmt::Button::Button(unsigned long dwID, bool bAdd, unsigned long crShadow)
    : ButtonBase(dwID), m_crShadow(crShadow), m_bAdd(bAdd)
{
}

TmtcListCtrl::Elmt::Button::~Button() = default;

void TmtcListCtrl::Elmt::Button::Draw(CDC* pDC, bool) const
{
    if (!IsAvailable())
    {
        return;
    }
    const RoundButton shape = ShapeRoundButton(m_rect, m_nState);
    if (shape.shadowed)
    {
        CPen pen(PS_SOLID, 1, m_crShadow);
        CBrush brush(m_crShadow);
        const SelectScope outline(*pDC, pen);
        const SelectScope fill(*pDC, brush);
        pDC->Ellipse(&shape.disc);
    }
    {
        CBrush brush(::GetSysColor(shape.lit ? COLOR_BTNHIGHLIGHT : COLOR_BTNFACE));
        const SelectScope fill(*pDC, brush);
        pDC->RoundRect(&shape.face, {shape.corner, shape.corner});
    }
    const SelectScope black(*pDC, BLACK_PEN);
    const auto draw = [pDC](auto const& strokes) {
        for (Stroke const& stroke : strokes)
        {
            pDC->MoveTo(stroke.from.x, stroke.from.y);
            pDC->LineTo(stroke.to.x, stroke.to.y);
        }
    };
    draw(shape.minus);
    if (m_bAdd)
    {
        draw(shape.upright);
    }
}
