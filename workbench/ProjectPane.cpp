#include "workbench/ProjectPane.h"

#include "workbench/resource.h"

#include <algorithm>

namespace workbench
{
namespace
{
constexpr wchar_t kCue[] = L"Find"; // in the empty field

// Dialog units.
constexpr int kLabelWidth = 32;
constexpr int kLabelHeight = 8;
constexpr int kLabelDrop = 3; // puts the label's text on the base line of the field's
constexpr int kFieldHeight = 13;
constexpr int kGap = 3;

constexpr int kMostText = 260;
} // namespace

BEGIN_MESSAGE_MAP(ProjectPane, CWnd)
    ON_WM_SIZE()        // places its parts
    ON_WM_SETFOCUS()    // goes on to the tree
    ON_WM_CONTEXTMENU() // asked for in the tree
END_MESSAGE_MAP()

BOOL ProjectPane::Create(const RECT& rect, CWnd* parent, UINT id, CFont* font, const DialogUnits& units)
{
    m_units = units;
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW),
                                                    reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_3DFACE + 1)));
    constexpr DWORD kPart = WS_CHILD | WS_VISIBLE;
    if (!CWnd::CreateEx(WS_EX_CONTROLPARENT, windowClass, "", kPart | WS_CLIPCHILDREN, rect, parent, id))
    {
        return FALSE;
    }
    // The order is that of the Tab key.
    if (!m_label.Create("Pro&ject:", kPart, CRect(), this, IDC_PROJECT_LABEL) ||
        !m_field.CreateEx(WS_EX_CLIENTEDGE, "EDIT", "", kPart | WS_TABSTOP | ES_AUTOHSCROLL, CRect(), this,
                          IDC_PROJECT_FIND) ||
        !m_tree.Create(CRect(), this, IDC_PROJECT_TREE, font))
    {
        return FALSE;
    }
    m_label.SetFont(font, FALSE);
    m_field.SetFont(font, FALSE);
    m_field.LimitText(kMostText);
    m_field.SendMessage(EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(kCue));
    PlaceParts();
    return TRUE;
}

void ProjectPane::PlaceParts()
{
    CRect client;
    GetClientRect(client);
    const int fieldLeft = std::min<int>(m_units.X(kLabelWidth), client.right);
    const int fieldBottom = m_units.Y(kFieldHeight);
    const int treeTop = fieldBottom + m_units.Y(kGap);
    m_label.MoveWindow(0, m_units.Y(kLabelDrop), fieldLeft, m_units.Y(kLabelHeight));
    m_field.MoveWindow(fieldLeft, 0, client.right - fieldLeft, fieldBottom);
    m_tree.MoveWindow(0, treeTop, client.right, std::max<int>(0, client.bottom - treeTop));
}

void ProjectPane::GoToField()
{
    m_field.SetFocus();
    m_field.SetSel(0, -1);
}

void ProjectPane::FindNext()
{
    CString text;
    m_field.GetWindowText(text);
    if (text.IsEmpty())
    {
        GoToField();
        return;
    }
    const std::string wanted = static_cast<LPCTSTR>(text);
    const SearchEnd end = m_tree.FindNext(wanted);
    m_problem = end == SearchEnd::missing       ? "There is no \"" + wanted + "\" in the project."
                : end == SearchEnd::interrupted ? "No \"" + wanted + "\" so far. F3 goes on."
                                                : "";
    if (end != SearchEnd::found)
    {
        ::MessageBeep(MB_ICONEXCLAMATION);
        Tell(projectSearched);
    }
}

BOOL ProjectPane::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_KEYDOWN && message->hwnd == m_field.GetSafeHwnd() &&
        (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE))
    {
        if (message->wParam == VK_RETURN)
        {
            FindNext();
        }
        else
        {
            m_tree.SetFocus();
        }
        return TRUE;
    }
    return CWnd::PreTranslateMessage(message);
}

BOOL ProjectPane::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(wParam) == IDC_PROJECT_TREE)
    {
        Tell(HIWORD(wParam));
        return TRUE;
    }
    if (LOWORD(wParam) == IDC_PROJECT_FIND && HIWORD(wParam) == EN_SETFOCUS)
    {
        Tell(projectFieldFocus);
        return TRUE;
    }
    return CWnd::OnCommand(wParam, lParam);
}

void ProjectPane::OnSize(UINT, int, int)
{
    if (m_tree.GetSafeHwnd() != nullptr)
    {
        PlaceParts();
    }
}

void ProjectPane::OnSetFocus(CWnd*)
{
    if (m_tree.IsWindowVisible()) // a tree that goes away hands the focus back to its parent, and so for ever
    {
        m_tree.SetFocus();
    }
}

void ProjectPane::OnContextMenu(CWnd*, CPoint point)
{
    constexpr CPoint kByKeyboard(-1, -1);
    m_menuPlace = point == kByKeyboard ? m_tree.MenuPlace() : point;
    Tell(projectMenu);
}

void ProjectPane::Tell(int notice)
{
    GetParent()->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), notice), reinterpret_cast<LPARAM>(m_hWnd));
}
} // namespace workbench
