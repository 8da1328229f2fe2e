// WinApp.cpp - CWinApp: names, profile, resources of the program, message boxes, wait cursor

#include <afxwin.h>

#include "impl/Profile.h"
#include "impl/ThreadState.h"

namespace
{
constexpr int kMaxTitle = 256;

/// The icon that a message box gets when its type names none; 0 for none.
UINT DefaultIcon(UINT type)
{
    switch (type & MB_TYPEMASK)
    {
    case MB_OK:
    case MB_OKCANCEL:
        return MB_ICONEXCLAMATION;
    case MB_YESNO:
    case MB_YESNOCANCEL:
        return MB_ICONQUESTION;
    default:
        return 0; // a question about an error that recurs has no fitting icon of its own
    }
}

/// The window that a message box belongs to: the active one, unless another thread's.
HWND MessageBoxOwner()
{
    if (const HWND active = ::GetActiveWindow())
    {
        return active;
    }
    const HWND main = AfxGetMainWnd()->GetSafeHwnd();
    return main == nullptr ? nullptr : ::GetLastActivePopup(main);
}

int ShowBox(LPCTSTR text, LPCTSTR title, UINT type)
{
    if ((type & MB_ICONMASK) == 0)
    {
        type |= DefaultIcon(type);
    }
    return ::MessageBoxA(MessageBoxOwner(), text, title, type);
}
} // namespace

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

CWinApp::CWinApp(LPCTSTR lpszAppName) : m_strAppName(lpszAppName)
{
    ASSERT(AfxGetApp() == nullptr);
    m_hInstance = ::GetModuleHandleA(nullptr);

    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    m_strExeName = path;
    m_strExeName = m_strExeName.Mid(m_strExeName.ReverseFind('\\') + 1);
    const int dot = m_strExeName.ReverseFind('.');
    if (dot > 0)
    {
        m_strExeName = m_strExeName.Left(dot);
    }
    if (m_strAppName.IsEmpty())
    {
        char title[kMaxTitle] = "";
        m_strAppName =
            ::LoadStringA(m_hInstance, AFX_IDS_APP_TITLE, title, kMaxTitle) > 0 ? CString(title) : m_strExeName;
    }
    m_strProfileName = m_strExeName + ".ini";
    m_pszExeName = m_strExeName;
    m_pszAppName = m_strAppName;
    m_pszProfileName = m_strProfileName;

    AFX_MODULE_STATE* const state = AfxGetStaticModuleState();
    state->m_pCurrentWinApp = this;
    state->m_lpszCurrentAppName = m_pszAppName;
}

CWinApp::~CWinApp()
{
    AFX_MODULE_STATE* const state = AfxGetStaticModuleState();
    if (state->m_pCurrentWinApp == this)
    {
        state->m_pCurrentWinApp = nullptr;
        state->m_lpszCurrentAppName = nullptr;
    }
}

CWinApp* AFXAPI AfxGetApp() { return AfxGetStaticModuleState()->m_pCurrentWinApp; }

void CWinApp::SetRegistryKey(LPCTSTR lpszRegistryKey)
{
    m_strRegistryKey = lpszRegistryKey;
    m_pszRegistryKey = m_strRegistryKey.IsEmpty() ? nullptr : static_cast<LPCTSTR>(m_strRegistryKey);
    m_strProfileName = m_pszRegistryKey == nullptr ? m_strExeName + ".ini" : m_strAppName;
    m_pszProfileName = m_strProfileName;
}

// The profile follows the public members, which a program may set by itself.
HKEY CWinApp::GetAppRegistryKey() { return AfxProfile(m_pszRegistryKey, m_pszProfileName).OpenAppKey(); }

HKEY CWinApp::GetSectionKey(LPCTSTR lpszSection)
{
    return AfxProfile(m_pszRegistryKey, m_pszProfileName).OpenSectionKey(lpszSection);
}

UINT CWinApp::GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault)
{
    return AfxProfile(m_pszRegistryKey, m_pszProfileName).GetInt(lpszSection, lpszEntry, nDefault);
}

BOOL CWinApp::WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue)
{
    return AfxProfile(m_pszRegistryKey, m_pszProfileName).WriteInt(lpszSection, lpszEntry, nValue);
}

CString CWinApp::GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault)
{
    return AfxProfile(m_pszRegistryKey, m_pszProfileName).GetString(lpszSection, lpszEntry, lpszDefault);
}

BOOL CWinApp::WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue)
{
    return AfxProfile(m_pszRegistryKey, m_pszProfileName).WriteString(lpszSection, lpszEntry, lpszValue);
}

HCURSOR CWinApp::LoadCursor(UINT nIDResource) const { return LoadCursor(MAKEINTRESOURCEA(nIDResource)); }

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursorA(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HCURSOR CWinApp::LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursorA(nullptr, lpszCursorName); }
HICON CWinApp::LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCEA(nIDResource)); }

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIconA(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

HICON CWinApp::LoadStandardIcon(LPCTSTR lpszIconName) const { return ::LoadIconA(nullptr, lpszIconName); }

void CWinApp::DoWaitCursor(int nCode)
{
    static const HCURSOR hourglass = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32514));
    const bool waited = m_nWaitCursorCount > 0;
    m_nWaitCursorCount += nCode;
    if (m_nWaitCursorCount < 0)
    {
        m_nWaitCursorCount = 0; // one end too many doesn't spoil the next begin
    }
    if (m_nWaitCursorCount > 0)
    {
        const HCURSOR before = ::SetCursor(hourglass);
        if (!waited)
        {
            m_hcurWaitCursorRestore = before;
        }
    }
    else if (waited)
    {
        ::SetCursor(m_hcurWaitCursorRestore);
        m_hcurWaitCursorRestore = nullptr;
    }
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) { return ShowBox(lpszPrompt, m_pszAppName, nType); }

LRESULT CWinApp::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    // A box over a window that can't paint would make it paint again. A user exception has been told already.
    if (pMsg->message != WM_PAINT && !e->IsKindOf(RUNTIME_CLASS(CUserException)))
    {
        e->ReportError(MB_ICONEXCLAMATION);
    }
    return CWinThread::ProcessWndProcException(e, pMsg);
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    const LPCTSTR text = lpszText == nullptr ? "" : lpszText;
    if (CWinApp* const app = AfxGetApp())
    {
        return app->DoMessageBox(text, nType, nIDHelp);
    }
    return ShowBox(text, "", nType);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString text;
    text.LoadString(nIDPrompt);
    return AfxMessageBox(text, nType, nIDHelp);
}
