#include "tavkit/layout/SizeIconCtrl.h"

IMPLEMENT_DYNAMIC(cdxCSizeIconCtrl, CScrollBar)

BEGIN_MESSAGE_MAP(cdxCSizeIconCtrl, CScrollBar)
    ON_WM_PAINT()         // the system's grip picture
    ON_WM_SETCURSOR()     // the sizing arrow
    ON_WM_LBUTTONDOWN()   // sizes the parent
    ON_WM_LBUTTONDBLCLK() // nothing: the control's own answer would be to maximise
END_MESSAGE_MAP()

namespace
{

constexpr UINT kListFlags = ILC_COLOR16 | ILC_MASK;
constexpr DWORD kGripStyle = WS_CHILD | SBS_SIZEBOX | SBS_SIZEBOXBOTTOMRIGHTALIGN;

} // namespace

cdxCSizeIconCtrl::AutoOEMImageList::AutoOEMImageList(UINT nBitmapId, COLORREF crMask) : m_szImage(0, 0)
{
    CBitmap bitmap;
    BITMAP info{};
    if (!bitmap.LoadOEMBitmap(nBitmapId) || bitmap.GetBitmap(&info) == 0)
    {
        return;
    }
    m_szImage = CSize(info.bmWidth, info.bmHeight);
    if (Create(m_szImage.cx, m_szImage.cy, kListFlags, 0, 1))
    {
        Add(&bitmap, crMask);
    }
}

cdxCSizeIconCtrl::cdxCSizeIconCtrl(bool bAutoHide) : m_bAutoHide(bAutoHide) {}

cdxCSizeIconCtrl::~cdxCSizeIconCtrl() = default;

int cdxCSizeIconCtrl::Create(CWnd* pParent, UINT id)
{
    if (pParent == nullptr || !::IsWindow(pParent->m_hWnd))
    {
        return 0;
    }
    CRect client;
    pParent->GetClientRect(client);
    if (!CScrollBar::Create(kGripStyle, client, pParent, id))
    {
        return 0;
    }
    ModifyStyleEx(0, WS_EX_TRANSPARENT);
    return 1;
}

bool cdxCSizeIconCtrl::IsHidden(const CWnd* parent) const { return m_bAutoHide && parent->IsZoomed(); }

void cdxCSizeIconCtrl::OnPaint()
{
    CPaintDC dc(this);
    const CWnd* parent = GetParent();
    if (parent == nullptr || IsHidden(parent))
    {
        return;
    }
    CRect client;
    GetClientRect(client);
    const CSize size = M_ilImage.m_szImage;
    M_ilImage.Draw(&dc, 0, CPoint(client.right - size.cx, client.bottom - size.cy), ILD_TRANSPARENT);
}

BOOL cdxCSizeIconCtrl::OnSetCursor(CWnd*, UINT nHitTest, UINT)
{
    const CWnd* parent = GetParent();
    if (!m_bAutoHide || (parent != nullptr && !parent->IsZoomed()))
    {
        ::SetCursor(nHitTest == HTCLIENT ? M_hcSize : nullptr);
    }
    return TRUE;
}

void cdxCSizeIconCtrl::OnLButtonDown(UINT, CPoint point)
{
    // The size box answers the mouse on some systems only in its other style, so the sizing begins here on all of them.
    CWnd* const parent = GetParent();
    if (parent != nullptr && !IsHidden(parent))
    {
        ClientToScreen(&point);
        parent->SendMessage(WM_SYSCOMMAND, SC_SIZE | WMSZ_BOTTOMRIGHT, MAKELPARAM(point.x, point.y));
    }
}

void cdxCSizeIconCtrl::OnLButtonDblClk(UINT, CPoint) {}
