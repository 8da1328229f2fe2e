#include "workbench/ChartPane.h"

#include <algorithm>

namespace workbench
{
namespace
{
// All in dialog units.
constexpr int kMargin = 4;
constexpr int kBoxHeight = 14;
constexpr int kLabelDrop = 3; // puts the label's text on the base line of the box's
constexpr int kTextHeight = 8;
constexpr int kLabelWidth = 32;
constexpr int kBoxWidth = 92;
constexpr int kDroppedHeight = 110;
constexpr int kOverlap = 40; // of the main window's width
constexpr int kFromEnd = 32; // of the main window's side
} // namespace

BEGIN_MESSAGE_MAP(ChartPane, CWnd)
    ON_WM_CLOSE()    // hides it
    ON_WM_SETFOCUS() // goes on to the first choice
    ON_WM_SIZE()     // places its parts
END_MESSAGE_MAP()

BOOL ChartPane::CreatePane(const char* title, CWnd* owner, UINT id, CFont* font, const DialogUnits& units, SIZE size,
                           Side side)
{
    m_owner = owner;
    m_id = id;
    m_font = font;
    m_units = units;
    m_side = side;
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW),
                                                    reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_3DFACE + 1)));
    constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
    return CWnd::CreateEx(WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT, windowClass, title, kStyle, 0, 0, units.X(size.cx),
                          units.Y(size.cy), owner->m_hWnd, nullptr);
}

BOOL ChartPane::CreateChoice(CStatic& label, const char* text, CComboBox& box, UINT boxId)
{
    constexpr DWORD kPart = WS_CHILD | WS_VISIBLE;
    if (!label.Create(text, kPart, CRect(), this) ||
        !box.Create(kPart | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, CRect(), this, boxId))
    {
        return FALSE;
    }
    label.SetFont(m_font, FALSE);
    box.SetFont(m_font, FALSE);
    return TRUE;
}

void ChartPane::PlaceChoice(CStatic& label, CComboBox& box, int slot)
{
    const int left = m_units.X(kMargin + slot * (kLabelWidth + kBoxWidth + 2 * kMargin));
    const int boxLeft = left + m_units.X(kLabelWidth);
    label.MoveWindow(left, m_units.Y(kMargin + kLabelDrop), m_units.X(kLabelWidth), m_units.Y(kTextHeight));
    box.MoveWindow(boxLeft, m_units.Y(kMargin), m_units.X(kBoxWidth), m_units.Y(kDroppedHeight));
}

CRect ChartPane::ChartRect() const
{
    CRect client;
    GetClientRect(client);
    client.top += m_units.Y(2 * kMargin + kBoxHeight);
    client.bottom = client.bottom < client.top ? client.top : client.bottom;
    return client;
}

void ChartPane::Tell(int notice)
{
    m_owner->SendMessage(WM_COMMAND, MAKEWPARAM(m_id, notice), reinterpret_cast<LPARAM>(m_hWnd));
}

void ChartPane::Toggle() { Show(!IsShown()); }

void ChartPane::Show(bool show)
{
    if (show && !m_isPlaced)
    {
        CRect owner;
        m_owner->GetWindowRect(owner);
        CRect place;
        GetWindowRect(place);
        CRect work;
        ::SystemParametersInfoA(SPI_GETWORKAREA, 0, static_cast<LPRECT>(work), 0);
        const int left = std::min(owner.right - m_units.X(kOverlap), work.right - place.Width());
        const int down = m_units.Y(kFromEnd);
        const int top = m_side == Side::upper ? owner.top + down : owner.bottom - down - place.Height();
        SetWindowPos(nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        m_isPlaced = true;
    }
    ShowWindow(show ? SW_SHOW : SW_HIDE);
    OnShown();
}

BOOL ChartPane::PreTranslateMessage(MSG* message)
{
    // In a box that is dropped down Esc closes that.
    if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE &&
        ::SendMessageA(message->hwnd, CB_GETDROPPEDSTATE, 0, 0) == 0)
    {
        Show(false);
        return TRUE;
    }
    if (message->message == WM_KEYDOWN && message->wParam == VK_TAB && ::IsDialogMessageA(m_hWnd, message))
    {
        return TRUE;
    }
    return CWnd::PreTranslateMessage(message);
}

void ChartPane::OnSetFocus(CWnd*) { ::SetFocus(::GetNextDlgTabItem(m_hWnd, nullptr, FALSE)); }

void ChartPane::OnClose() { Show(false); }

void ChartPane::OnSize(UINT type, int width, int height)
{
    CWnd::OnSize(type, width, height);
    PlaceParts();
}
} // namespace workbench
