// FileDialog.cpp - CFileDialog: the system's dialog for opening and saving files

#include <afxdlgs.h>

#include "impl/HandlerGuard.h"
#include "impl/PickedFiles.h"
#include "impl/ThreadState.h"

#include <cstring>

namespace
{
/// Makes an object the one that the next panel of a file dialog on this thread belongs to.
class PanelScope
{
public:
    explicit PanelScope(CFileDialog* dialog) : m_state(AfxGetThreadState()), m_before(m_state->m_pFileDialogInit)
    {
        m_state->m_pFileDialogInit = dialog;
    }
    ~PanelScope() { m_state->m_pFileDialogInit = m_before; }
    PanelScope(const PanelScope&) = delete;
    PanelScope& operator=(const PanelScope&) = delete;

private:
    AFX_THREAD_STATE* m_state;
    CFileDialog* m_before;
};

/// Keeps a window disabled while a dialog comes up: the system pumps messages before it does so itself.
class DisabledScope
{
public:
    explicit DisabledScope(HWND hWnd) : m_hWnd(hWnd != nullptr && ::IsWindowEnabled(hWnd) ? hWnd : nullptr)
    {
        if (m_hWnd != nullptr)
        {
            ::EnableWindow(m_hWnd, FALSE);
        }
    }
    ~DisabledScope()
    {
        if (m_hWnd != nullptr && ::IsWindow(m_hWnd))
        {
            ::EnableWindow(m_hWnd, TRUE);
        }
    }
    DisabledScope(const DisabledScope&) = delete;
    DisabledScope& operator=(const DisabledScope&) = delete;

private:
    HWND m_hWnd;
};
} // namespace

IMPLEMENT_DYNAMIC(CCommonDialog, CDialog)

CCommonDialog::CCommonDialog(CWnd* pParentWnd) : CDialog(UINT{0}, pParentWnd) {}

void CCommonDialog::OnOK()
{
    if (UpdateData(TRUE))
    {
        Default();
    }
}

void CCommonDialog::OnCancel() { Default(); }

IMPLEMENT_DYNAMIC(CFileDialog, CCommonDialog)

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags,
                         LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD dwSize)
    : CCommonDialog(pParentWnd), m_ofn{}, m_bOpenFileDialog(bOpenFileDialog), m_strFilter(lpszFilter)
{
    m_ofn.lStructSize = dwSize != 0 ? dwSize : sizeof m_ofn;
    m_ofn.lpstrFile = m_szFileName;
    m_ofn.nMaxFile = sizeof m_szFileName;
    m_ofn.lpstrDefExt = lpszDefExt;
    m_ofn.lpstrFileTitle = m_szFileTitle;
    m_ofn.nMaxFileTitle = sizeof m_szFileTitle;
    m_ofn.Flags = dwFlags | OFN_EXPLORER | OFN_ENABLEHOOK;
    m_ofn.hInstance = AfxGetResourceHandle();
    m_ofn.lpfnHook = &CFileDialog::HookProc;
    // A name that is cut would be another file's.
    if (lpszFileName != nullptr && std::strlen(lpszFileName) < sizeof m_szFileName)
    {
        std::strcpy(m_szFileName, lpszFileName);
    }
    if (!m_strFilter.IsEmpty())
    {
        m_strFilter += '|'; // one zero more, for a text that isn't closed
        m_strFilter.Replace('|', '\0');
        m_ofn.lpstrFilter = m_strFilter;
    }
}

INT_PTR CFileDialog::DoModal()
{
    // The walk over several names needs zeros behind the name to begin with.
    if (const size_t used = m_ofn.lpstrFile != nullptr ? std::strlen(m_ofn.lpstrFile) + 1 : m_ofn.nMaxFile;
        used < m_ofn.nMaxFile)
    {
        std::memset(m_ofn.lpstrFile + used, 0, m_ofn.nMaxFile - used);
    }
    const HWND focus = ::GetFocus();
    m_ofn.hwndOwner = PreModal();
    AfxUnhookWindowCreate();
    BOOL ok = FALSE;
    {
        const DisabledScope disabled(m_ofn.hwndOwner);
        const PanelScope panel(this);
        ok = m_bOpenFileDialog ? ::GetOpenFileNameA(&m_ofn) : ::GetSaveFileNameA(&m_ofn);
    }
    if (::IsWindow(focus))
    {
        ::SetFocus(focus);
    }
    PostModal();
    return ok ? IDOK : IDCANCEL;
}

/// Ties the panel to its object; everything else goes through the object's window procedure.
UINT_PTR CALLBACK CFileDialog::HookProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    AFX_THREAD_STATE* const state = AfxGetThreadState();
    if (message != WM_INITDIALOG || state->m_pFileDialogInit == nullptr)
    {
        return 0;
    }
    CFileDialog* const dialog = state->m_pFileDialogInit;
    state->m_pFileDialogInit = nullptr; // a file dialog inside this one has an object of its own
    const MSG msg = {.hwnd = hWnd, .message = message, .wParam = wParam, .lParam = lParam, .time = 0, .pt = {}};
    AfxGuardHandler(msg, [&] {
        if (dialog->SubclassWindow(hWnd))
        {
            dialog->OnInitDialog();
        }
        return LRESULT{0};
    });
    return FALSE; // the focus is the system's to set: to the file name, not into the panel
}

CString CFileDialog::GetPathName() const
{
    if (m_hWnd == nullptr)
    {
        return m_ofn.lpstrFile;
    }
    CString path;
    const LPTSTR buffer = path.GetBufferSetLength(static_cast<int>(m_ofn.nMaxFile));
    const LRESULT size =
        ::SendMessageA(::GetParent(m_hWnd), CDM_GETFILEPATH, m_ofn.nMaxFile, reinterpret_cast<LPARAM>(buffer));
    if (size <= 0 || size > static_cast<LRESULT>(m_ofn.nMaxFile)) // there is none, or it would not fit
    {
        *buffer = '\0';
    }
    path.ReleaseBuffer();
    return path;
}

POSITION CFileDialog::GetStartPosition() const { return reinterpret_cast<POSITION>(m_ofn.lpstrFile); }

CString CFileDialog::GetNextPathName(POSITION& pos) const
{
    if (pos == nullptr)
    {
        return "";
    }
    const auto position = static_cast<size_t>(reinterpret_cast<LPCTSTR>(pos) - m_ofn.lpstrFile);
    const AfxPickedFile picked =
        AfxNextPickedFile({m_ofn.lpstrFile, m_ofn.nMaxFile}, position, (m_ofn.Flags & OFN_ALLOWMULTISELECT) != 0);
    pos = picked.next == 0 ? nullptr : reinterpret_cast<POSITION>(m_ofn.lpstrFile + picked.next);
    return picked.path.c_str();
}

BOOL CFileDialog::GetReadOnlyPref() const { return (m_ofn.Flags & OFN_READONLY) != 0; }

BOOL CFileDialog::OnFileNameOK() { return FALSE; }
void CFileDialog::OnInitDone() {}
void CFileDialog::OnFolderChange() {}
void CFileDialog::OnFileNameChange() {}
void CFileDialog::OnTypeChange() {}

BOOL CFileDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (CCommonDialog::OnNotify(wParam, lParam, pResult))
    {
        return TRUE; // answered by the message map
    }
    switch (reinterpret_cast<const NMHDR*>(lParam)->code)
    {
    case CDN_INITDONE:
        OnInitDone();
        return TRUE;
    case CDN_SELCHANGE:
        OnFileNameChange();
        return TRUE;
    case CDN_FOLDERCHANGE:
        OnFolderChange();
        return TRUE;
    case CDN_TYPECHANGE:
        OnTypeChange();
        return TRUE;
    case CDN_FILEOK: {
        const BOOL refused = OnFileNameOK();
        if (pResult != nullptr)
        {
            *pResult = refused;
        }
        return TRUE;
    }
    default:
        return FALSE;
    }
}
