// AppStart.cpp - start and end of a program

#include <afxwin.h>

#include "impl/CommonControls.h"
#include "impl/HandlerGuard.h"
#include "impl/ThreadState.h"

namespace
{
/// Shows the thread object what the system's own loops (menus, dialogs, scroll bars) are about to handle.
LRESULT CALLBACK MsgFilterHook(int code, WPARAM wParam, LPARAM lParam)
{
    const HHOOK hook = AfxGetThreadState()->m_hHookMsgFilter;
    CWinThread* const thread = AfxGetThread();
    if (code >= 0 && thread != nullptr)
    {
        auto* const msg = reinterpret_cast<MSG*>(lParam);
        BOOL eaten = FALSE;
        AfxGuardHandler(*msg, [&] {
            eaten = thread->ProcessMessageFilter(code, msg);
            return LRESULT{0};
        });
        if (eaten)
        {
            return TRUE;
        }
    }
    return ::CallNextHookEx(hook, code, wParam, lParam);
}
} // namespace

BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow)
{
    // No box of the system's about a drive without a disk.
    ::SetErrorMode(::SetErrorMode(0) | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    AFX_MODULE_STATE* const module = AfxGetStaticModuleState();
    module->m_hCurrentInstanceHandle = hInstance;
    module->m_hCurrentResourceHandle = hInstance;
    if (CWinApp* const app = AfxGetApp())
    {
        app->m_hInstance = hInstance;
        app->m_lpCmdLine = lpCmdLine;
        app->m_nCmdShow = nCmdShow;
    }
    AfxInitCommonControls();
    AFX_THREAD_STATE* const state = AfxGetThreadState();
    if (state->m_hHookMsgFilter == nullptr)
    {
        state->m_hHookMsgFilter = ::SetWindowsHookExA(WH_MSGFILTER, &MsgFilterHook, nullptr, ::GetCurrentThreadId());
    }
    return state->m_hHookMsgFilter != nullptr;
}

void AFXAPI AfxWinTerm()
{
    AFX_THREAD_STATE* const state = AfxGetThreadState();
    if (state->m_hHookMsgFilter != nullptr)
    {
        ::UnhookWindowsHookEx(state->m_hHookMsgFilter);
        state->m_hHookMsgFilter = nullptr;
    }
    AfxUnhookWindowCreate();
    AfxLockTempMaps();
    AfxUnlockTempMaps();
}

int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    constexpr int kFailed = -1;
    int result = kFailed;
    CWinApp* const app = AfxGetApp();
    ASSERT(app != nullptr); // the program has no application object
    if (app != nullptr && AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow))
    {
        if (app->InitInstance())
        {
            result = app->Run();
        }
        else
        {
            if (app->m_pMainWnd != nullptr)
            {
                app->m_pMainWnd->DestroyWindow();
            }
            result = app->ExitInstance();
        }
    }
    AfxWinTerm();
    return result;
}
