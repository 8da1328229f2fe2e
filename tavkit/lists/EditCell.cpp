#include "tavkit/lists/EditCell.h"

#include "tavkit/lists/CellPlaces.h"

#include <optional>

using tavkit::EditMove;

// What may take the focus away or tell the parent something may end this object: such a call stands last, or what
// follows asks first.

BEGIN_MESSAGE_MAP(CListCtrlFlex::CEditCell, CEdit)
    ON_WM_CREATE()     // shows the text and takes the focus
    ON_WM_KILLFOCUS()  // commits and closes
    ON_WM_CHAR()       // Tab, Enter, Escape; the box grows with its text
    ON_WM_KEYDOWN()    // moves by row, and to the first and the last one
    ON_WM_KEYUP()      // moves by page
    ON_WM_GETDLGCODE() // arrows and Tab are the box's own
END_MESSAGE_MAP()

namespace
{

bool IsDown(int key) { return ::GetKeyState(key) < 0; }

std::optional<EditMove> MoveOfKeyDown(UINT key)
{
    switch (key)
    {
    case VK_UP:
        return EditMove::RowAbove;
    case VK_DOWN:
        return EditMove::RowBelow;
    case VK_HOME:
        return IsDown(VK_CONTROL) ? std::optional(EditMove::FirstRow) : std::nullopt;
    case VK_END:
        return IsDown(VK_CONTROL) ? std::optional(EditMove::LastRow) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

CListCtrlFlex::CEditCell::CEditCell(CListCtrlFlex& list, tavkit::Cell cell, CString const& text)
    : m_list(list), m_cell(cell), m_strInitial(text)
{
}

CListCtrlFlex::CEditCell::~CEditCell() = default;

int CListCtrlFlex::CEditCell::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CEdit::OnCreate(lpCreateStruct) == -1)
    {
        return -1;
    }
    SetFont(m_list.GetFont());
    SetWindowText(m_strInitial);
    HWND const box = m_hWnd;
    SetFocus(); // the box that has the focus commits now, and the parent may destroy the list then
    if (!::IsWindow(box))
    {
        return -1;
    }
    SetSel(0, -1);
    return 0;
}

void CListCtrlFlex::CEditCell::PostNcDestroy()
{
    if (!m_bCommitting)
    {
        delete this;
    }
}

UINT CListCtrlFlex::CEditCell::OnGetDlgCode() { return CEdit::OnGetDlgCode() | DLGC_WANTARROWS | DLGC_WANTTAB; }

BOOL CListCtrlFlex::CEditCell::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN)
    {
        switch (pMsg->wParam)
        {
        case VK_RETURN:
        case VK_DELETE:
        case VK_ESCAPE:
        case VK_TAB:
        case VK_UP:
        case VK_DOWN:
            break;
        default:
            // The toggle bit counts as well, by design: every second press of Ctrl leaves it set.
            if (::GetKeyState(VK_CONTROL) == 0)
            {
                return CEdit::PreTranslateMessage(pMsg);
            }
            break;
        }
        ::TranslateMessage(pMsg);
        ::DispatchMessage(pMsg);
        return TRUE;
    }
    return CEdit::PreTranslateMessage(pMsg);
}

void CListCtrlFlex::CEditCell::Move(EditMove move)
{
    if (auto const to = tavkit::CellAfter(move, m_cell, m_list.GetItemCount(), m_list.GetCountPerPage()))
    {
        m_list.OnEdit(to->row, to->col, true);
    }
}

void CListCtrlFlex::CEditCell::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (auto const move = MoveOfKeyDown(nChar))
    {
        Move(*move);
        return;
    }
    CEdit::OnKeyDown(nChar, nRepCnt, nFlags);
}

// The page keys act when they are released, on purpose.
void CListCtrlFlex::CEditCell::OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    switch (nChar)
    {
    case VK_PRIOR:
        Move(EditMove::PageUp);
        break;
    case VK_NEXT:
        Move(EditMove::PageDown);
        break;
    default:
        CEdit::OnKeyUp(nChar, nRepCnt, nFlags);
        break;
    }
}

void CListCtrlFlex::CEditCell::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    switch (nChar)
    {
    case VK_TAB:
        Move(IsDown(VK_SHIFT) ? EditMove::PreviousCell : EditMove::NextCell);
        break;
    case VK_RETURN:
        if (Commit())
        {
            m_list.SetFocus(); // which commits once more, on purpose
        }
        break;
    case VK_ESCAPE:
        m_bCancelled = true;
        m_list.SetFocus();
        break;
    default: {
        HWND const box = m_hWnd;
        CEdit::OnChar(nChar, nRepCnt, nFlags);
        if (::IsWindow(box))
        {
            GrowToText();
        }
        break;
    }
    }
}

void CListCtrlFlex::CEditCell::GrowToText()
{
    CString text;
    GetWindowText(text);
    int textWidth = 0;
    {
        CClientDC dc(&m_list);
        std::optional<SelectScope> selected;
        if (CFont const* const font = m_list.GetFont())
        {
            selected.emplace(dc, *font);
        }
        textWidth = dc.GetTextExtent(text).cx;
    }
    CRect list;
    m_list.GetClientRect(list);
    CRect place;
    GetWindowRect(place);
    m_list.ScreenToClient(place);
    int const right = tavkit::GrownRight(place.left, place.right, textWidth, list.right);
    if (right != place.right)
    {
        place.right = right;
        MoveWindow(place, TRUE);
    }
}

void CListCtrlFlex::CEditCell::OnKillFocus(CWnd* pNewWnd)
{
    HWND const box = m_hWnd;
    CEdit::OnKillFocus(pNewWnd);
    if (::IsWindow(box) && Commit())
    {
        ::DestroyWindow(box);
    }
}

// Tells the parent the text. Returns false if the window went in the meantime: the object is gone then.
bool CListCtrlFlex::CEditCell::Commit()
{
    if (m_bCommitting)
    {
        return true;
    }
    CString text;
    GetWindowText(text);
    HWND const list = m_list.m_hWnd;
    NMLVDISPINFO info = {};
    info.hdr.hwndFrom = list;
    info.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    info.hdr.code = LVN_ENDLABELEDIT;
    info.item.mask = LVIF_TEXT;
    info.item.iItem = m_cell.row;
    info.item.iSubItem = m_cell.col;
    info.item.cchTextMax = text.GetLength();
    info.item.pszText = m_bCancelled ? nullptr : text.GetBuffer();
    m_bCommitting = true;
    ::SendMessage(::GetParent(list), WM_NOTIFY, static_cast<WPARAM>(::GetDlgCtrlID(list)),
                  reinterpret_cast<LPARAM>(&info));
    m_bCommitting = false;
    if (m_hWnd == nullptr)
    {
        delete this;
        return false;
    }
    return true;
}
