// CustomFileDlg.cpp
#include "tavkit/filedlg/CustomFileDlg.h"
#include "tavkit/filedlg/FileQuestion.h"
#include "tavkit/filedlg/SystemDialogIds.h"

#include "tavkit/frame/ModuleHandle.h"
#include "tavkit/frame/services/Report.h"

#include <io.h>

#include <array>
#include <cstring>

namespace
{

/// True if the window is of that class.
[[nodiscard]] bool IsOfClass(HWND window, char const* lowerCase) noexcept
{
    std::array<char, CCustomFileDlg::ClassSize> name{};
    ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return _stricmp(name.data(), lowerCase) == 0;
}

/// The folder without separators at its end.
[[nodiscard]] DString Bare(DString folder)
{
    folder.TrimRight("\\");
    return folder;
}

} // namespace

HHOOK CCustomFileDlg::s_hook = nullptr;
bool CCustomFileDlg::s_bToolBarKnown = false;
HWND CCustomFileDlg::s_toolBar = nullptr;

BEGIN_MESSAGE_MAP(CCustomFileDlg, CFileDialog)
    ON_WM_SIZE()                                   // the system's dialog was resized, the panel with it
    ON_CBN_SELENDOK(IDC_FOLDERS, OnGoToFolder)     // a folder was picked
    ON_BN_CLICKED(IDC_READ_ONLY, OnReadOnly)       // excludes "Project-Edit"
    ON_BN_CLICKED(IDC_PROJECT_EDIT, OnProjectEdit) // excludes "Read-Only"
END_MESSAGE_MAP()

CCustomFileDlg::CCustomFileDlg(BOOL bOpen, char const* defExt, char const* file, char const* filter, CWnd* parent,
                               UINT tmplId)
    : CFileDialog(bOpen, defExt, file,
                  OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_ENABLESIZING | OFN_ENABLETEMPLATE, filter,
                  parent)
{
    m_ofn.hInstance = tavkit::ModuleInstance();
    m_ofn.lpTemplateName = MAKEINTRESOURCEA(tmplId != 0 ? tmplId : DefaultTemplate);
}

CCustomFileDlg::~CCustomFileDlg()
{
    Unlock();
    s_bToolBarKnown = false;
}

void CCustomFileDlg::DoDataExchange(CDataExchange* pDX)
{
    CFileDialog::DoDataExchange(pDX);
    if (GetDlgItem(IDC_FOLDERS)) // a template of the host's may do without
    {
        DDX_Control(pDX, IDC_FOLDERS, m_cmbFolders);
    }
    if (GetDlgItem(IDC_FOLDERS_LABEL))
    {
        DDX_Control(pDX, IDC_FOLDERS_LABEL, m_lblFolders);
    }
    if (GetDlgItem(IDC_OPTIONS))
    {
        DDX_Text(pDX, IDC_OPTIONS, m_strOptions);
    }
}

BOOL CCustomFileDlg::OnInitDialog()
{
    if (IsLocked())
    {
        Lock();
    }
    m_bInitDone = false;
    m_cxLast = 0;
    m_cyLast = 0;
    return CFileDialog::OnInitDialog();
}

void CCustomFileDlg::Lock()
{
    for (HWND child = ::GetWindow(::GetParent(m_hWnd), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if (::GetDlgCtrlID(child) == tavkit::kLookInCombo)
        {
            ::EnableWindow(child, FALSE);
        }
    }
    if (!s_hook)
    {
        s_hook = ::SetWindowsHookExA(WH_CALLWNDPROC, &CCustomFileDlg::LockProc, nullptr, ::GetCurrentThreadId());
        m_bHooked = s_hook != nullptr;
    }
}

void CCustomFileDlg::Unlock()
{
    if (m_bHooked) // one inside another leaves the lock to it
    {
        ::UnhookWindowsHookEx(s_hook);
        s_hook = nullptr;
        m_bHooked = false;
    }
}

/// Sees every message that is sent to a window of the thread. What it sends itself comes here too, so nothing may be
/// held across a call.
LRESULT CALLBACK CCustomFileDlg::LockProc(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HC_ACTION)
    {
        auto const& sent = *reinterpret_cast<CWPSTRUCT const*>(lParam);
        if (!s_bToolBarKnown && IsOfClass(sent.hwnd, tavkit::kToolBarClass))
        {
            // The first one is taken for the one with the buttons, whichever it is.
            s_toolBar = sent.hwnd;
            s_bToolBarKnown = true;
        }
        else if (IsOfClass(sent.hwnd, tavkit::kListClass))
        {
            if (sent.message == WM_NCPAINT || sent.message == LVM_GETSELECTEDCOUNT)
            {
                PruneList(sent.hwnd);
            }
            HideButtons();
        }
    }
    return ::CallNextHookEx(s_hook, code, wParam, lParam);
}

void CCustomFileDlg::PruneList(HWND list)
{
    const int count = static_cast<int>(::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row)
    {
        std::array<char, ItemSize> text{};
        LVITEMA item{};
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        ::SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        // The dialog's folder is the current one, so a name is enough. One that can't be asked for has all attributes,
        // and goes too. The row behind one that goes is passed over; the next message takes it.
        if ((::GetFileAttributesA(text.data()) & FILE_ATTRIBUTE_DIRECTORY) != 0)
        {
            ::SendMessageA(list, LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
        }
    }
}

void CCustomFileDlg::HideButtons()
{
    if (!s_bToolBarKnown)
    {
        return;
    }
    for (const int button : {tavkit::kButtonUp, tavkit::kButtonNewFolder})
    {
        TBBUTTONINFOA info{};
        info.cbSize = sizeof info;
        info.dwMask = TBIF_STATE;
        info.fsState = TBSTATE_HIDDEN | TBSTATE_INDETERMINATE;
        ::SendMessageA(s_toolBar, TB_SETBUTTONINFOA, static_cast<WPARAM>(button), reinterpret_cast<LPARAM>(&info));
    }
}

void CCustomFileDlg::OnInitDone()
{
    CFileDialog::OnInitDone();
    const bool hasFolders = m_cmbFolders.m_hWnd && m_lblFolders.m_hWnd;
    if (hasFolders && m_bShowFolders)
    {
        FillFolders();
    }
    else if (hasFolders)
    {
        RemoveFolders();
    }
    m_bInitDone = true;
    LayOutPanel();
}

void CCustomFileDlg::FillFolders()
{
    m_cmbFolders.ResetContent();
    const DString initial = Bare(m_ofn.lpstrInitialDir);
    for (DString const& folder : m_vecFolders)
    {
        const int row = m_cmbFolders.AddString(folder);
        if (Bare(folder) == initial)
        {
            m_cmbFolders.SetCurSel(row);
        }
    }
}

void CCustomFileDlg::RemoveFolders()
{
    CRect combo;
    m_cmbFolders.GetWindowRect(combo);
    m_cmbFolders.ShowWindow(SW_HIDE);
    m_lblFolders.ShowWindow(SW_HIDE);
    // The other controls stay where they are, though the panel's end may cut them.
    CRect panel;
    GetWindowRect(panel);
    SetWindowPos(nullptr, 0, 0, panel.Width(), panel.Height() - combo.Height(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CCustomFileDlg::LayOutPanel()
{
    CRect client;
    ::GetClientRect(::GetParent(m_hWnd), client);
    if (m_cxLast == 0 || m_cyLast == 0)
    {
        m_cxLast = client.Width();
        m_cyLast = client.Height();
    }
    const int growth = client.Width() - m_cxLast;
    if (m_bShowFolders && m_cmbFolders.m_hWnd && growth != 0)
    {
        CRect combo;
        m_cmbFolders.GetWindowRect(combo);
        // The height of a closed combo box leaves that of its list alone.
        m_cmbFolders.SetWindowPos(nullptr, 0, 0, combo.Width() + growth, combo.Height(),
                                  SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        m_cmbFolders.Invalidate();
    }
    m_cxLast = client.Width();
    m_cyLast = client.Height();
}

void CCustomFileDlg::OnSize(UINT nType, int cx, int cy)
{
    CFileDialog::OnSize(nType, cx, cy);
    if (m_bInitDone)
    {
        LayOutPanel();
    }
}

void CCustomFileDlg::OnGoToFolder()
{
    const int row = m_cmbFolders.GetCurSel();
    CString folder;
    if (row != CB_ERR)
    {
        m_cmbFolders.GetLBText(row, folder);
    }
    if (folder.IsEmpty())
    {
        return;
    }
    if (_access(folder, static_cast<int>(tavkit::Access::Exists)) != 0)
    {
        Report::UserNotificationEnforced("Folder '%s' not found", static_cast<LPCTSTR>(folder));
        return;
    }
    // The dialog goes to a folder whose name is confirmed like that of a file; what the user typed comes back then.
    const HWND dialog = ::GetParent(m_hWnd);
    const int nameBox = tavkit::NameControl(dialog);
    std::array<char, NameSize> typed{};
    ::GetDlgItemTextA(dialog, nameBox, typed.data(), static_cast<int>(typed.size()));
    const auto write = [&](char const* text) {
        ::SendMessageA(dialog, CDM_SETCONTROLTEXT, static_cast<WPARAM>(nameBox), reinterpret_cast<LPARAM>(text));
    };
    write(folder);
    ::SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                   reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDOK)));
    if (::IsWindow(dialog))
    {
        write(typed.data());
    }
}

void CCustomFileDlg::OnReadOnly()
{
    m_bChckReadOnly = IsDlgButtonChecked(IDC_READ_ONLY) == BST_CHECKED;
    if (m_bChckReadOnly)
    {
        m_bChckEditOnly = false;
        CheckDlgButton(IDC_PROJECT_EDIT, BST_UNCHECKED);
    }
}

void CCustomFileDlg::OnProjectEdit()
{
    m_bChckEditOnly = IsDlgButtonChecked(IDC_PROJECT_EDIT) == BST_CHECKED;
    if (m_bChckEditOnly)
    {
        m_bChckReadOnly = false;
        CheckDlgButton(IDC_READ_ONLY, BST_UNCHECKED);
    }
}

BOOL CCustomFileDlg::OnFileNameOK()
{
    UpdateData(TRUE); // the options as they stand now
    return CFileDialog::OnFileNameOK();
}
