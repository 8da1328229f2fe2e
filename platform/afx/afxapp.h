// afxapp.h - CWinThread and CWinApp: the message loop, idle work, the profile; functions of the framework
#pragma once

#include <afxwnd.h>

class CFrameWnd;

/// A thread with windows: its message loop and its main window.
class TAVAFX_API CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread();
    ~CWinThread() override;

    HANDLE m_hThread = nullptr; ///< pseudo handle of the thread
    DWORD m_nThreadID = 0;
    CWnd* m_pMainWnd = nullptr;   ///< the end of this window ends the loop
    CWnd* m_pActiveWnd = nullptr; ///< stands in for the main window while set

    /// Makes the main window. FALSE ends the program.
    virtual BOOL InitInstance();
    /// @return the exit code.
    virtual int ExitInstance();
    /// Idle work while the queue is empty, then one message, until WM_QUIT.
    virtual int Run();
    /// m_pActiveWnd if set, else m_pMainWnd.
    virtual CWnd* GetMainWnd();
    /// Offers the message to the windows between its own and the main window. TRUE eats it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Waits for one message and handles it. FALSE when it was WM_QUIT.
    virtual BOOL PumpMessage();
    /// @param lCount  calls since the last message; 0 or less updates bars and frames, above that temporary objects die
    /// @return TRUE to be called again before the next message.
    virtual BOOL OnIdle(LONG lCount);
    /// FALSE for messages after which no idle work is due: paint, caret blink, mouse moves to the same place.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    /// A message that a menu, a dialog or a message box of the system is about to handle; TRUE eats it.
    virtual BOOL ProcessMessageFilter(int code, LPMSG lpMsg);
    /// An exception that no handler caught; the answer becomes the message's. The exception stays the caller's.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);

private:
    CPoint m_ptCursorLast; ///< where the mouse was at the last message that led to idle work
    UINT m_nMsgLast = WM_NULL;
};

/// The application. A program has one object of a class of its own, outside of all functions.
class TAVAFX_API CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    /// @param lpszAppName  null for the name of the program file
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    HINSTANCE m_hInstance = nullptr;
    LPTSTR m_lpCmdLine = nullptr;
    int m_nCmdShow = SW_SHOWNORMAL;
    LPCTSTR m_pszAppName = nullptr;
    LPCTSTR m_pszRegistryKey = nullptr; ///< null: the profile is an INI file
    LPCTSTR m_pszProfileName = nullptr; ///< key below m_pszRegistryKey, or name of the INI file
    LPCTSTR m_pszExeName = nullptr;     ///< program file without folder and extension

    /// Keeps the profile below HKEY_CURRENT_USER\Software\<key>\<application> from now on.
    void SetRegistryKey(LPCTSTR lpszRegistryKey);
    /// HKEY_CURRENT_USER\Software\<key>\<application>, opened or made; null without a registry key. The caller closes
    /// it.
    HKEY GetAppRegistryKey();
    /// The key of a section, opened or made; backslashes in the name nest keys. The caller closes it.
    HKEY GetSectionKey(LPCTSTR lpszSection);
    UINT GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault);
    BOOL WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue);
    /// A null default stands for "".
    CString GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault = nullptr);
    /// A null value deletes the entry, a null entry the whole section.
    BOOL WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue);

    /// Loads through the resource chain; null if there is none.
    HCURSOR LoadCursor(UINT nIDResource) const;
    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const;
    HICON LoadIcon(UINT nIDResource) const;
    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const;

    /// Counts the hourglass: 1 begins, -1 ends, 0 shows it again if one has begun.
    virtual void DoWaitCursor(int nCode);
    /// Shows a message box over the active window; replaceable.
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
    LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) override;

private:
    CString m_strAppName;
    CString m_strRegistryKey;
    CString m_strProfileName;
    CString m_strExeName;
    int m_nWaitCursorCount = 0;
    HCURSOR m_hcurWaitCursorRestore = nullptr;

    friend BOOL AFXAPI AfxWinInit(HINSTANCE, HINSTANCE, LPTSTR, int);
};

/// The application object; null in a program without one.
TAVAFX_API CWinApp* AFXAPI AfxGetApp();
/// The thread object of the calling thread; the application on its own thread; else null.
TAVAFX_API CWinThread* AFXAPI AfxGetThread();
/// Main window of the calling thread, or null.
TAVAFX_API CWnd* AFXAPI AfxGetMainWnd();
/// One round of the pump, with or without a thread object. FALSE for WM_QUIT.
TAVAFX_API BOOL AFXAPI AfxPumpMessage();
/// The pre-translation of the calling thread, with or without a thread object.
TAVAFX_API BOOL AFXAPI AfxPreTranslateMessage(MSG* pMsg);
TAVAFX_API void AFXAPI AfxPostQuitMessage(int nExitCode);

/// Registers (once) a window class with the framework's procedure and answers with its name, which stays valid.
TAVAFX_API LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                              HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
/// Registers a window class; one that is there already under the name counts as success.
TAVAFX_API BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);

/// Shows a message box with the application's name. @param nIDHelp  kept for the signature's sake
TAVAFX_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
TAVAFX_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));

/// Starts the framework in a program: instance, command line, common controls, message filter.
TAVAFX_API BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
/// Takes back what AfxWinInit set up for the thread.
TAVAFX_API void AFXAPI AfxWinTerm();
/// What WinMain does: start, InitInstance, Run, ExitInstance, end.
TAVAFX_API int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);

/// The window procedure of all windows of the framework.
TAVAFX_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
/// Runs one message through an object: notes it as the message under way, catches what handlers throw. The object may
/// be gone afterwards.
TAVAFX_API LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0);
/// The next window that this thread creates belongs to pWnd from its first message on.
TAVAFX_API void AFXAPI AfxHookWindowCreate(CWnd* pWnd);
/// Takes the hook back. FALSE if no window came.
TAVAFX_API BOOL AFXAPI AfxUnhookWindowCreate();
