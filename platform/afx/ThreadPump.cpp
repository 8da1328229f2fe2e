// ThreadPump.cpp - CWinThread: the message loop, idle work, what happens to exceptions of handlers

#include <afxpriv.h>
#include <afxwin.h>

#include "impl/HandlerGuard.h"
#include "impl/WndMap.h"

#include <algorithm>
#include <vector>

namespace
{
/// The system's own timer message (caret, menus).
constexpr UINT kSystemTimer = 0x0118;

/// What a handler threw that isn't the framework's, in the framework's shape.
class ForeignException : public CException
{
public:
    explicit ForeignException(const char* what) : CException(FALSE), m_text(what) {}

    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) override
    {
        if (pnHelpContext != nullptr)
        {
            *pnHelpContext = 0;
        }
        if (lpszError == nullptr || nMaxError == 0)
        {
            return FALSE;
        }
        ::lstrcpynA(lpszError, m_text, static_cast<int>(nMaxError));
        return TRUE;
    }

private:
    CString m_text;
};

/// The answers that do no further harm, without a word to the user.
LRESULT PlainAnswer(const MSG& msg)
{
    switch (msg.message)
    {
    case WM_CREATE:
        return -1; // the window isn't made
    case WM_PAINT:
        ::ValidateRect(msg.hwnd, nullptr); // or the message would come again at once, for ever
        return 0;
    default:
        return 0;
    }
}

BOOL PumpPlainly()
{
    MSG& msg = AfxGetThreadState()->m_msgCur;
    if (::GetMessageA(&msg, nullptr, 0, 0) <= 0)
    {
        return FALSE;
    }
    // A handler inside may pump as well and overwrite the state's message, even while it looks at this one.
    const MSG taken = msg;
    MSG offered = msg;
    if (taken.message != WM_KICKIDLE && !AfxPreTranslateMessage(&offered))
    {
        ::TranslateMessage(&offered);
        ::DispatchMessageA(&offered);
    }
    msg = taken;
    return TRUE;
}
} // namespace

LRESULT AfxProcessHandlerException(CException* e, const MSG& msg)
{
    CWinThread* const thread = AfxGetThread();
    return thread == nullptr ? PlainAnswer(msg) : thread->ProcessWndProcException(e, &msg);
}

LRESULT AfxProcessForeignException(const char* what, const MSG& msg)
{
    ForeignException e(what);
    return AfxProcessHandlerException(&e, msg);
}

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

CWinThread::CWinThread() : m_ptCursorLast(-1, -1)
{
    m_hThread = ::GetCurrentThread();
    m_nThreadID = ::GetCurrentThreadId();
    AfxGetThreadState()->m_pCurrentWinThread = this;
}

CWinThread::~CWinThread()
{
    AFX_THREAD_STATE* const state = AfxGetThreadState();
    if (state->m_pCurrentWinThread == this)
    {
        state->m_pCurrentWinThread = nullptr;
    }
}

BOOL CWinThread::InitInstance() { return TRUE; }

int CWinThread::ExitInstance() { return static_cast<int>(AfxGetThreadState()->m_msgCur.wParam); }

int CWinThread::Run()
{
    MSG waiting;
    bool idle = true;
    LONG idleCount = 0;
    for (;;)
    {
        while (idle && !::PeekMessageA(&waiting, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (!OnIdle(idleCount++))
            {
                idle = false;
            }
        }
        do
        {
            if (!PumpMessage())
            {
                return ExitInstance();
            }
            if (IsIdleMessage(&AfxGetThreadState()->m_msgCur))
            {
                idle = true;
                idleCount = 0;
            }
        } while (::PeekMessageA(&waiting, nullptr, 0, 0, PM_NOREMOVE));
    }
}

CWnd* CWinThread::GetMainWnd() { return m_pActiveWnd != nullptr ? m_pActiveWnd : m_pMainWnd; }

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    return CWnd::WalkPreTranslateTree(GetMainWnd()->GetSafeHwnd(), pMsg);
}

BOOL CWinThread::PumpMessage() { return PumpPlainly(); }

BOOL CWinThread::OnIdle(LONG lCount)
{
    if (lCount <= 0)
    {
        CWnd* const main = m_pMainWnd;
        const HWND hMain = main->GetSafeHwnd();
        if (hMain != nullptr)
        {
            AfxCallWndProc(main, hMain, WM_IDLEUPDATECMDUI, TRUE, 0);
            CWnd::SendMessageToDescendants(hMain, WM_IDLEUPDATECMDUI, TRUE, 0, TRUE, TRUE);
        }
        // A copy: idle work of one frame may end another.
        const std::vector<CFrameWnd*> frames = AfxGetThreadState()->m_frames;
        for (CFrameWnd* const frame : frames)
        {
            const std::vector<CFrameWnd*>& alive = AfxGetThreadState()->m_frames;
            if (std::find(alive.begin(), alive.end(), frame) != alive.end() && frame->m_hWnd != nullptr)
            {
                frame->OnIdleUpdate();
            }
        }
    }
    else
    {
        AfxLockTempMaps();
        AfxUnlockTempMaps();
    }
    return lCount < 1;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    if (pMsg->message == WM_MOUSEMOVE || pMsg->message == WM_NCMOUSEMOVE)
    {
        // A move to the same place comes when windows move below the mouse.
        if (m_ptCursorLast == CPoint(pMsg->pt) && pMsg->message == m_nMsgLast)
        {
            return FALSE;
        }
        m_ptCursorLast = pMsg->pt;
        m_nMsgLast = pMsg->message;
        return TRUE;
    }
    return pMsg->message != WM_PAINT && pMsg->message != kSystemTimer;
}

BOOL CWinThread::ProcessMessageFilter(int, LPMSG) { return FALSE; }

LRESULT CWinThread::ProcessWndProcException(CException*, const MSG* pMsg) { return PlainAnswer(*pMsg); }

CWinThread* AFXAPI AfxGetThread() { return AfxGetThreadState()->m_pCurrentWinThread; }

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* const thread = AfxGetThread();
    return thread == nullptr ? nullptr : thread->GetMainWnd();
}

BOOL AFXAPI AfxPumpMessage()
{
    CWinThread* const thread = AfxGetThread();
    return thread == nullptr ? PumpPlainly() : thread->PumpMessage();
}

BOOL AFXAPI AfxPreTranslateMessage(MSG* pMsg)
{
    // A message whose pre-translation failed counts as handled.
    BOOL eaten = TRUE;
    const MSG msg = *pMsg;
    AfxGuardHandler(msg, [&] {
        CWinThread* const thread = AfxGetThread();
        eaten = thread == nullptr ? CWnd::WalkPreTranslateTree(nullptr, pMsg) : thread->PreTranslateMessage(pMsg);
        return LRESULT{0};
    });
    return eaten;
}

void AFXAPI AfxPostQuitMessage(int nExitCode) { ::PostQuitMessage(nExitCode); }
