// FrameWnd.cpp - CFrameWnd

#include <afxpriv.h>
#include <afxwin.h>

#include "impl/ThreadState.h"

#include <algorithm>

namespace
{
constexpr UINT kFirstFrameId = 0;
constexpr UINT kLastFrameId = 0xFFFF;
/// WM_MENUSELECT when a menu closes: all flags and no menu.
constexpr UINT kMenuClosed = 0xFFFF;

HWND StatusBarOf(HWND frame)
{
    const HWND bar = ::GetDlgItem(frame, AFX_IDW_STATUS_BAR);
    return bar != nullptr && (::GetWindowLongPtrA(bar, GWL_STYLE) & WS_VISIBLE) != 0 ? bar : nullptr;
}
} // namespace

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
    ON_WM_SIZE()          // the children follow
    ON_WM_SETFOCUS()      // the focus goes on to the pane
    ON_WM_ACTIVATE()      // the focus returns to where it was
    ON_WM_INITMENUPOPUP() // menu items show the state of their commands
    ON_WM_MENUSELECT()    // the status bar explains the item
    ON_WM_DESTROY()
    ON_MESSAGE(WM_SETMESSAGESTRING, &CFrameWnd::OnSetMessageString)
END_MESSAGE_MAP()

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

CFrameWnd::CFrameWnd() { AfxGetThreadState()->m_frames.push_back(this); }

CFrameWnd::~CFrameWnd() { std::erase(AfxGetThreadState()->m_frames, this); }

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                       LPCTSTR lpszMenuName, DWORD dwExStyle, CCreateContext* pContext)
{
    CMenu menu;
    if (lpszMenuName != nullptr && !menu.LoadMenu(lpszMenuName))
    {
        PostNcDestroy(); // as for every creation that fails: the object is done with
        return FALSE;
    }
    const bool isDefault = rect.left == CW_USEDEFAULT;
    const int width = isDefault ? CW_USEDEFAULT : rect.right - rect.left;
    const int height = isDefault ? CW_USEDEFAULT : rect.bottom - rect.top;
    const HMENU hMenu = menu.m_hMenu;
    if (!CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, width, height,
                  pParentWnd->GetSafeHwnd(), hMenu, pContext))
    {
        return FALSE;
    }
    menu.Detach(); // the window owns it now
    return TRUE;
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
    {
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)),
                                           reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1)),
                                           ::LoadIconA(nullptr, MAKEINTRESOURCEA(32512)));
    }
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR lpszResourceName)
{
    if (m_hAccelTable != nullptr)
    {
        return FALSE;
    }
    m_hAccelTable = ::LoadAcceleratorsA(AfxFindResourceHandle(lpszResourceName, RT_ACCELERATOR), lpszResourceName);
    return m_hAccelTable != nullptr;
}

void CFrameWnd::RecalcLayout(BOOL)
{
    if (m_inRecalcLayout || m_hWnd == nullptr)
    {
        return;
    }
    m_inRecalcLayout = true;
    m_layoutPending = false;
    RECT room;
    GetClientRect(&room);
    if (const HWND bar = StatusBarOf(m_hWnd))
    {
        ::SendMessageA(bar, WM_SIZE, SIZE_RESTORED, MAKELPARAM(room.right, room.bottom)); // it places itself
        RECT place;
        ::GetWindowRect(bar, &place);
        room.bottom = std::max<LONG>(room.top, room.bottom - (place.bottom - place.top));
    }
    RepositionBars(kFirstFrameId, kLastFrameId, AFX_IDW_PANE_FIRST, reposDefault, nullptr, &room);
    m_inRecalcLayout = false;
}

void CFrameWnd::DelayRecalcLayout(BOOL bNotify)
{
    m_layoutPending = true;
    m_notifyPending = bNotify;
}

void CFrameWnd::OnIdleUpdate()
{
    if (m_layoutPending)
    {
        m_layoutPending = false;
        RecalcLayout(m_notifyPending);
        UpdateWindow();
    }
}

CFrameWnd* CFrameWnd::GetActiveFrame() { return this; }

void CFrameWnd::SetMessageText(LPCTSTR lpszText)
{
    if (const HWND bar = ::GetDlgItem(m_hWnd, AFX_IDW_STATUS_BAR))
    {
        ::SendMessageA(bar, SB_SETTEXTA, 0, reinterpret_cast<LPARAM>(lpszText == nullptr ? "" : lpszText));
    }
}

void CFrameWnd::SetMessageText(UINT nID)
{
    CString text;
    GetMessageString(nID, text);
    SetMessageText(text);
}

void CFrameWnd::GetMessageString(UINT nID, CString& rMessage) const
{
    rMessage.Empty();
    if (nID != 0 && rMessage.LoadString(nID))
    {
        const int lineEnd = rMessage.Find('\n'); // behind it stands the tool tip
        if (lineEnd >= 0)
        {
            rMessage = rMessage.Left(lineEnd);
        }
    }
}

BOOL CFrameWnd::IsFrameWnd() const { return TRUE; }

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
    {
        return TRUE;
    }
    return pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST && m_hAccelTable != nullptr &&
           ::TranslateAcceleratorA(m_hWnd, m_hAccelTable, pMsg) != 0;
}

BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
    {
        return TRUE;
    }
    CWinApp* const app = AfxGetApp();
    return app != nullptr && app->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void CFrameWnd::PostNcDestroy() { delete this; }

void CFrameWnd::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    if (nType != SIZE_MINIMIZED)
    {
        RecalcLayout();
    }
}

void CFrameWnd::OnSetFocus(CWnd* pOldWnd)
{
    if (const HWND pane = ::GetDlgItem(m_hWnd, AFX_IDW_PANE_FIRST))
    {
        ::SetFocus(pane);
        return;
    }
    CWnd::OnSetFocus(pOldWnd);
}

void CFrameWnd::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized)
{
    if (nState == WA_INACTIVE)
    {
        const HWND focus = ::GetFocus();
        m_hWndFocusLast = ::IsChild(m_hWnd, focus) ? focus : nullptr;
        CWnd::OnActivate(nState, pWndOther, bMinimized);
        return;
    }
    if (!bMinimized && m_hWndFocusLast != nullptr && ::IsChild(m_hWnd, m_hWndFocusLast))
    {
        ::SetFocus(m_hWndFocusLast);
        return;
    }
    CWnd::OnActivate(nState, pWndOther, bMinimized);
}

void CFrameWnd::OnInitMenuPopup(CMenu* pPopupMenu, UINT, BOOL bSysMenu)
{
    if (bSysMenu || pPopupMenu == nullptr)
    {
        Default();
        return;
    }
    CCmdUI state;
    state.m_pMenu = pPopupMenu;
    state.m_nIndexMax = static_cast<UINT>(std::max(0, pPopupMenu->GetMenuItemCount()));
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex)
    {
        state.m_pSubMenu = nullptr;
        state.m_nID = pPopupMenu->GetMenuItemID(static_cast<int>(state.m_nIndex));
        if (state.m_nID == 0)
        {
            continue; // a separator
        }
        if (state.m_nID == static_cast<UINT>(-1))
        {
            // A pop-up stands for its first command, whose update handler may look after the whole pop-up.
            state.m_pSubMenu = pPopupMenu->GetSubMenu(static_cast<int>(state.m_nIndex));
            state.m_nID = state.m_pSubMenu == nullptr ? 0 : state.m_pSubMenu->GetMenuItemID(0);
            if (state.m_nID == 0 || state.m_nID == static_cast<UINT>(-1))
            {
                continue;
            }
            state.DoUpdate(this, FALSE);
        }
        else
        {
            state.DoUpdate(this, m_bAutoMenuEnable && state.m_nID < SC_SIZE);
        }
        // A handler may have added or taken away items.
        const auto count = static_cast<UINT>(std::max(0, pPopupMenu->GetMenuItemCount()));
        if (count < state.m_nIndexMax)
        {
            state.m_nIndex -= std::min(state.m_nIndexMax - count, state.m_nIndex);
        }
        state.m_nIndexMax = count;
    }
}

void CFrameWnd::OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu)
{
    const bool noCommand = (nFlags & (MF_SEPARATOR | MF_POPUP | MF_SYSMENU)) != 0 || nItemID == 0;
    if (nFlags == kMenuClosed)
    {
        SetMessageText(AFX_IDS_IDLEMESSAGE);
    }
    else
    {
        SetMessageText(noCommand ? 0 : nItemID);
    }
    CWnd::OnMenuSelect(nItemID, nFlags, hSysMenu);
}

LRESULT CFrameWnd::OnSetMessageString(WPARAM wParam, LPARAM lParam)
{
    if (lParam != 0)
    {
        SetMessageText(reinterpret_cast<LPCTSTR>(lParam));
    }
    else
    {
        SetMessageText(static_cast<UINT>(wParam));
    }
    return 0;
}

void CFrameWnd::OnDestroy()
{
    m_hAccelTable = nullptr; // a resource of its module: nobody destroys it
    CWnd::OnDestroy();
}
