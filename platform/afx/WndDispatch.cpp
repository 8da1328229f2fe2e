// WndDispatch.cpp - the way of a message from the window procedure to a handler

#include <afxpriv.h>
#include <afxwin.h>

#include "impl/HandlerGuard.h"
#include "impl/WndMap.h"

namespace
{
/// Puts a message in the place of the one under way, and that one back at the end of the block.
class SentMsgScope
{
public:
    explicit SentMsgScope(const MSG& msg)
        : m_state(AfxGetThreadState()), m_previous(m_state->m_lastSentMsg), m_previousRan(m_state->m_bDefaultRan)
    {
        m_state->m_lastSentMsg = msg;
        m_state->m_bDefaultRan = false;
    }
    ~SentMsgScope()
    {
        m_state->m_lastSentMsg = m_previous;
        m_state->m_bDefaultRan = m_previousRan;
    }
    SentMsgScope(const SentMsgScope&) = delete;
    SentMsgScope& operator=(const SentMsgScope&) = delete;

private:
    AFX_THREAD_STATE* m_state;
    MSG m_previous;
    bool m_previousRan;
};

/// What asks a command's update handlers whether the command may run at present; draws nothing.
class TestCmdUI : public CCmdUI
{
public:
    BOOL m_bEnabled = TRUE;

    void Enable(BOOL bOn) override
    {
        m_bEnabled = bOn;
        m_bEnableChanged = TRUE;
    }
    void SetCheck(int) override {}
    void SetRadio(BOOL) override {}
    void SetText(LPCTSTR) override {}
};

/// CTLCOLOR_MSGBOX to CTLCOLOR_STATIC: the kind of control that asks for its colours.
UINT CtlColorKind(UINT message) noexcept { return message - WM_CTLCOLORMSGBOX; }

bool IsCtlColor(UINT message) noexcept { return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC; }

MSG MakeMsg(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    MSG msg = {};
    msg.hwnd = hWnd;
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = lParam;
    return msg;
}
} // namespace

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    CWnd* const wnd = CWnd::FromHandlePermanent(hWnd);
    if (wnd == nullptr)
    {
        return ::DefWindowProcA(hWnd, nMsg, wParam, lParam);
    }
    return AfxCallWndProc(wnd, hWnd, nMsg, wParam, lParam);
}

LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    const MSG msg = MakeMsg(hWnd, nMsg, wParam, lParam);
    const SentMsgScope scope(msg);
    const LRESULT result = AfxGuardHandler(msg, [&] { return pWnd->WindowProc(nMsg, wParam, lParam); });

    // The object may be gone now. One that still claims the handle of a dead window kept the base's handler from
    // running: it lets go here, or the next window with this handle would get its messages.
    if (nMsg == WM_NCDESTROY)
    {
        if (CWnd* const left = CWnd::FromHandlePermanent(hWnd))
        {
            left->Detach();
        }
    }
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result))
    {
        result = DefWindowProc(message, wParam, lParam);
    }
    return result;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC super = m_pfnSuper != nullptr ? m_pfnSuper : *GetSuperWndProcAddr();
    if (super == nullptr || super == &::DefWindowProcA)
    {
        return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
    }
    // A control of the system has a procedure for the other kind of texts, between which and ours CallWindowProc
    // translates. It leaves a control's own messages as they are, and costs as much as sending them.
    if (message >= WM_USER && super == m_pfnSuper && m_pfnDirect != nullptr)
    {
        return m_pfnDirect(m_hWnd, message, wParam, lParam);
    }
    return ::CallWindowProcA(super, m_hWnd, message, wParam, lParam);
}

WNDPROC* CWnd::GetSuperWndProcAddr() { return &m_pfnSuper; }

LRESULT CWnd::Default()
{
    AFX_THREAD_STATE* const state = AfxGetThreadState();
    const MSG msg = state->m_lastSentMsg;
    state->m_bDefaultRan = true;
    return DefWindowProc(msg.message, msg.wParam, msg.lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    MSG& msg = AfxGetThreadState()->m_lastSentMsg;
    msg.time = static_cast<DWORD>(::GetMessageTime());
    const DWORD pos = ::GetMessagePos();
    msg.pt = {static_cast<short>(LOWORD(pos)), static_cast<short>(HIWORD(pos))};
    return &msg;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    AfxMsg msg;
    if (message == WM_COMMAND)
    {
        if (OnCommand(wParam, lParam))
        {
            if (pResult != nullptr)
            {
                *pResult = 1;
            }
            return TRUE;
        }
        return FALSE;
    }
    if (message == WM_NOTIFY)
    {
        const auto* const header = reinterpret_cast<const NMHDR*>(lParam);
        LRESULT result = 0;
        if (header != nullptr && header->hwndFrom != nullptr && OnNotify(wParam, lParam, &result))
        {
            if (pResult != nullptr)
            {
                *pResult = result;
            }
            return TRUE;
        }
        return FALSE;
    }

    AfxMessageCache& cache = AfxGetThreadState()->m_messageCache;
    const AFX_MSGMAP* const map = GetMessageMap();
    const AFX_MSGMAP_ENTRY* entry = cache.Find(map, message);
    if (entry == nullptr && IsCtlColor(message))
    {
        entry = cache.Find(map, WM_CTLCOLOR);
    }
    if (entry == nullptr)
    {
        return FALSE;
    }
    if (IsCtlColor(message))
    {
        msg.nID = CtlColorKind(message);
    }
    else if (message == WM_REFLECT_BASE + WM_CTLCOLOR)
    {
        // The kind of control stands in the message that is handed back.
        msg.nID = CtlColorKind(AfxGetThreadState()->m_lastSentMsg.message);
    }
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = lParam;
    if (!entry->pfn(this, msg))
    {
        // Who declines a turn of the wheel leaves it to the default, unless the base's handler has run that already:
        // the parent would be told twice.
        if (message != WM_MOUSEWHEEL || !AfxGetThreadState()->m_bDefaultRan)
        {
            return FALSE;
        }
    }
    if (pResult != nullptr)
    {
        *pResult = msg.result;
    }
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT id = LOWORD(wParam);
    const HWND control = reinterpret_cast<HWND>(lParam);
    int code = HIWORD(wParam);
    if (control == nullptr)
    {
        if (id == 0)
        {
            return FALSE;
        }
        // An accelerator may name a command that is disabled at present.
        TestCmdUI state;
        state.m_nID = id;
        OnCmdMsg(id, CN_UPDATE_COMMAND_UI, &state, nullptr);
        if (!state.m_bEnabled)
        {
            return TRUE;
        }
        code = CN_COMMAND;
    }
    else
    {
        if (AfxGetThreadState()->m_hLockoutNotifyWindow == m_hWnd)
        {
            return TRUE;
        }
        const HWND window = m_hWnd;
        if (ReflectLastMsg(control) || FromHandlePermanent(window) != this)
        {
            return TRUE; // the control took it, or did away with this very window
        }
        if (id == 0)
        {
            return FALSE;
        }
    }
    return OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    auto* const header = reinterpret_cast<NMHDR*>(lParam);
    const HWND control = header->hwndFrom;
    // wParam and idFrom may speak of another window: the control itself says who it is.
    const UINT id = static_cast<WORD>(::GetDlgCtrlID(control));
    if (AfxGetThreadState()->m_hLockoutNotifyWindow == m_hWnd)
    {
        return TRUE;
    }
    const HWND window = m_hWnd;
    if (ReflectLastMsg(control, pResult) || FromHandlePermanent(window) != this)
    {
        return TRUE; // the control took it, or did away with this very window
    }
    LRESULT ignored = 0;
    AFX_NOTIFY notify = {pResult != nullptr ? pResult : &ignored, header};
    return OnCmdMsg(id, static_cast<int>(MAKELONG(header->code, WM_NOTIFY)), &notify, nullptr);
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* const child = FromHandlePermanent(hWndChild);
    return child != nullptr && child->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const MSG msg = AfxGetThreadState()->m_lastSentMsg;
    return OnChildNotify(msg.message, msg.wParam, msg.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT ignored = 0;
    LRESULT* const result = pResult != nullptr ? pResult : &ignored;
    switch (message)
    {
    case WM_COMMAND:
        return OnCmdMsg(0, static_cast<int>(MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND)), nullptr, nullptr);

    case WM_NOTIFY: {
        auto* const header = reinterpret_cast<NMHDR*>(lParam);
        AFX_NOTIFY notify = {result, header};
        return OnCmdMsg(0, static_cast<int>(MAKELONG(header->code, WM_REFLECT_BASE + WM_NOTIFY)), &notify, nullptr);
    }

    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_PARENTNOTIFY:
        return CWnd::OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, result);

    default:
        if (IsCtlColor(message))
        {
            return CWnd::OnWndMsg(WM_REFLECT_BASE + WM_CTLCOLOR, wParam, lParam, result);
        }
        return FALSE;
    }
}
