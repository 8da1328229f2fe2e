// WndModal.cpp - CWnd: pre-translation, the modal loop, exchange with members

#include <afxpriv.h>
#include <afxwin.h>

#include "impl/WndMap.h"

namespace
{
/// The system's own timer message (caret, menus).
constexpr UINT kSystemTimer = 0x0118;

/// Lets a window's controls notify in vain while it lives.
class LockoutScope
{
public:
    explicit LockoutScope(HWND hWnd) : m_state(AfxGetThreadState()), m_previous(m_state->m_hLockoutNotifyWindow)
    {
        m_state->m_hLockoutNotifyWindow = hWnd;
    }
    ~LockoutScope() { m_state->m_hLockoutNotifyWindow = m_previous; }
    LockoutScope(const LockoutScope&) = delete;
    LockoutScope& operator=(const LockoutScope&) = delete;

private:
    AFX_THREAD_STATE* m_state;
    HWND m_previous;
};

bool IsInput(UINT message) noexcept
{
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}
} // namespace

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd != nullptr; hWnd = ::GetParent(hWnd))
    {
        CWnd* const wnd = FromHandlePermanent(hWnd);
        if (wnd != nullptr && wnd->PreTranslateMessage(pMsg))
        {
            return TRUE;
        }
        if (hWnd == hWndStop)
        {
            break;
        }
    }
    return FALSE;
}

BOOL CWnd::PreTranslateInput(LPMSG lpMsg) { return IsInput(lpMsg->message) && IsDialogMessage(lpMsg); }

BOOL CWnd::IsDialogMessage(LPMSG lpMsg) { return ::IsDialogMessageA(m_hWnd, lpMsg); }

int CWnd::RunModalLoop(DWORD dwFlags)
{
    const HWND hWnd = m_hWnd;
    if (hWnd == nullptr)
    {
        return -1;
    }
    m_bInModalLoop = true;
    m_bContinueModal = true;
    m_nModalResult = -1;
    const HWND parent = ::GetParent(hWnd);
    bool showWhenIdle = (dwFlags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
    const auto show = [&] {
        showWhenIdle = false;
        // A window that came back maximised or minimised, and hidden, shows as what it is.
        ShowWindow(IsZoomed() || IsIconic() ? SW_SHOW : SW_SHOWNORMAL);
        ::UpdateWindow(hWnd);
    };
    bool idle = true;
    LONG idleCount = 0;
    MSG waiting;
    for (;;)
    {
        while (idle && ContinueModal() && !::PeekMessageA(&waiting, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (showWhenIdle)
            {
                show();
            }
            if ((dwFlags & MLF_NOIDLEMSG) == 0 && parent != nullptr && idleCount == 0)
            {
                ::SendMessageA(parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(hWnd));
            }
            if ((dwFlags & MLF_NOKICKIDLE) != 0 || ::SendMessageA(hWnd, WM_KICKIDLE, MSGF_DIALOGBOX, idleCount++) == 0)
            {
                idle = false;
            }
        }
        do
        {
            if (!ContinueModal())
            {
                m_bInModalLoop = false;
                m_bContinueModal = false;
                return m_nModalResult;
            }
            if (!AfxPumpMessage())
            {
                // The program ends: the outer loops must see it too.
                AfxPostQuitMessage(static_cast<int>(AfxGetThreadState()->m_msgCur.wParam));
                m_bInModalLoop = false;
                m_bContinueModal = false;
                return -1;
            }
            MSG& handled = AfxGetThreadState()->m_msgCur;
            if (showWhenIdle && (handled.message == kSystemTimer || handled.message == WM_SYSKEYDOWN))
            {
                show();
            }
            CWinThread* const thread = AfxGetThread();
            if (thread == nullptr || thread->IsIdleMessage(&handled))
            {
                idle = true;
                idleCount = 0;
            }
        } while (::PeekMessageA(&waiting, nullptr, 0, 0, PM_NOREMOVE));
    }
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if (m_bContinueModal)
    {
        m_bContinueModal = false;
        PostMessage(WM_NULL); // the loop may be waiting for a message
    }
}

BOOL CWnd::ContinueModal() { return m_bContinueModal; }

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    if (!::IsWindow(GetSafeHwnd()))
    {
        return FALSE;
    }
    CDataExchange dx(this, bSaveAndValidate);
    const LockoutScope lockout(m_hWnd);
    try
    {
        DoDataExchange(&dx);
        return TRUE;
    }
    catch (CUserException* e)
    {
        e->Delete(); // the user has been told
    }
    catch (CException* e)
    {
        e->ReportError(MB_ICONEXCLAMATION);
        e->Delete();
    }
    return FALSE;
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        CWnd* const control = FromHandle(child);
        CCmdUI state;
        state.m_nID = static_cast<WORD>(::GetDlgCtrlID(child));
        state.m_pOther = control;
        // Only buttons stand for commands: an edit without update handler isn't a dead command.
        const bool button = (::SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
        const LONG_PTR kind = ::GetWindowLongPtrA(child, GWL_STYLE) & BS_TYPEMASK;
        const bool command = button && kind != BS_AUTOCHECKBOX && kind != BS_AUTO3STATE && kind != BS_AUTORADIOBUTTON &&
                             kind != BS_GROUPBOX;
        state.DoUpdate(pTarget, bDisableIfNoHndler && command);
    }
}
