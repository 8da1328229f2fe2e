// Dialog.cpp - CDialog: templates, modeless creation, the modal run

#include <afxwin.h>

#include "impl/HandlerGuard.h"
#include "impl/ThreadState.h"

#include <memory>

namespace
{
/// Ids from here on are commands of the program; below are controls.
constexpr UINT kFirstCommandId = 0x8000;
/// Result of a dialog that couldn't be shown.
constexpr int kNotShown = -1;

/// What the first words of a template say, plain or extended.
struct TemplatePlace
{
    DWORD style;
    POINT origin; ///< dialog units
};

TemplatePlace PlaceIn(LPCDLGTEMPLATE lpTemplate)
{
    // The extended form begins with these two words, which no style of the plain form is.
    constexpr WORD kVersion = 1;
    constexpr WORD kExtended = 0xFFFF;
    constexpr size_t kStyle = 6; // word indices in the extended form
    constexpr size_t kOrigin = 9;
    const auto* const words = reinterpret_cast<const WORD*>(lpTemplate);
    if (words[0] == kVersion && words[1] == kExtended)
    {
        return {MAKELONG(words[kStyle], words[kStyle + 1]),
                {static_cast<short>(words[kOrigin]), static_cast<short>(words[kOrigin + 1])}};
    }
    return {lpTemplate->style, {lpTemplate->x, lpTemplate->y}};
}

bool LeavesPlaceOpen(LPCDLGTEMPLATE lpTemplate)
{
    const TemplatePlace place = PlaceIn(lpTemplate);
    return (place.style & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN)) == 0 && place.origin.x == 0 &&
           place.origin.y == 0;
}

LPCDLGTEMPLATE FindTemplate(LPCTSTR name, HINSTANCE& instance)
{
    instance = AfxFindResourceHandle(name, RT_DIALOG);
    const HRSRC resource = ::FindResourceA(instance, name, RT_DIALOG);
    return resource == nullptr ? nullptr
                               : static_cast<LPCDLGTEMPLATE>(::LockResource(::LoadResource(instance, resource)));
}

/// A template in a memory handle, locked for as long as it is read.
class TemplateLock
{
public:
    explicit TemplateLock(HGLOBAL handle)
        : m_handle(handle), m_template(handle == nullptr ? nullptr : ::GlobalLock(handle))
    {
    }
    ~TemplateLock()
    {
        if (m_template != nullptr)
        {
            ::GlobalUnlock(m_handle);
        }
    }
    TemplateLock(const TemplateLock&) = delete;
    TemplateLock& operator=(const TemplateLock&) = delete;

    LPCDLGTEMPLATE Get() const { return static_cast<LPCDLGTEMPLATE>(m_template); }

private:
    HGLOBAL m_handle;
    void* m_template;
};

HWND TopLevelOf(HWND hWnd)
{
    HWND top = hWnd;
    for (HWND up = hWnd; up != nullptr; up = ::GetParent(up))
    {
        top = up;
    }
    return top;
}
} // namespace

/// Only WM_INITDIALOG comes this far: all else goes through the object's window procedure.
INT_PTR CALLBACK CDialog::DialogProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
    {
        return FALSE;
    }
    CWnd* const wnd = CWnd::FromHandlePermanent(hWnd);
    auto* const dialog = DYNAMIC_DOWNCAST(CDialog, wnd);
    if (dialog == nullptr)
    {
        return TRUE;
    }
    MSG msg = {};
    msg.hwnd = hWnd;
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = lParam;
    return AfxGuardHandler(msg, [&] {
        CRect before;
        ::GetWindowRect(hWnd, before);
        const BOOL result = dialog->OnInitDialog();
        CRect after;
        const bool alive = ::GetWindowRect(hWnd, after) && CWnd::FromHandlePermanent(hWnd) == dialog;
        if (alive && after.TopLeft() == before.TopLeft() && (dialog->GetStyle() & (WS_VISIBLE | WS_CHILD)) == 0 &&
            !::IsIconic(::GetWindow(hWnd, GW_OWNER)) && dialog->CheckAutoCenter())
        {
            dialog->CenterWindow();
        }
        return static_cast<LRESULT>(result);
    });
}

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog() = default;

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_lpszTemplateName(MAKEINTRESOURCEA(nIDTemplate)), m_pParentWnd(pParentWnd)
{
}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd) : m_pParentWnd(pParentWnd)
{
    if (IS_INTRESOURCE(lpszTemplateName))
    {
        m_lpszTemplateName = lpszTemplateName;
    }
    else
    {
        m_strTemplateName = lpszTemplateName;
        m_lpszTemplateName = m_strTemplateName;
    }
}

CDialog::~CDialog()
{
    if (m_hWnd != nullptr)
    {
        DestroyWindow();
    }
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) { return Create(MAKEINTRESOURCEA(nIDTemplate), pParentWnd); }

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    HINSTANCE instance = nullptr;
    const LPCDLGTEMPLATE found = FindTemplate(lpszTemplateName, instance);
    if (found == nullptr)
    {
        return FALSE;
    }
    return CreateDlgIndirect(found, pParentWnd, instance);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void*)
{
    return lpDialogTemplate != nullptr && CreateDlgIndirect(lpDialogTemplate, pParentWnd, AfxGetResourceHandle());
}

BOOL CDialog::CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    const TemplateLock lock(hDialogTemplate);
    return CreateIndirect(lock.Get(), pParentWnd);
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void*)
{
    m_lpDialogTemplate = lpDialogTemplate;
    if (pParentWnd != nullptr)
    {
        m_pParentWnd = pParentWnd;
    }
    return lpDialogTemplate != nullptr;
}

BOOL CDialog::InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    m_hDialogTemplate = hDialogTemplate;
    if (pParentWnd != nullptr)
    {
        m_pParentWnd = pParentWnd;
    }
    return hDialogTemplate != nullptr;
}

BOOL CDialog::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst)
{
    ASSERT(m_hWnd == nullptr);
    m_bPlaceOpen = LeavesPlaceOpen(lpDialogTemplate);
    const HWND parent = (pParentWnd != nullptr ? pParentWnd : AfxGetMainWnd())->GetSafeHwnd();
    AfxHookWindowCreate(this);
    const HWND hWnd = ::CreateDialogIndirectParamA(hInst, lpDialogTemplate, parent, &CDialog::DialogProc, 0);
    // Only an object that never met its window is still there for certain.
    if (!AfxUnhookWindowCreate())
    {
        PostNcDestroy();
    }
    return hWnd != nullptr;
}

HWND CDialog::PreModal()
{
    HWND owner = m_pParentWnd->GetSafeHwnd();
    if (owner == nullptr)
    {
        owner = AfxGetMainWnd()->GetSafeHwnd();
        if (owner != nullptr)
        {
            owner = ::GetLastActivePopup(owner);
        }
    }
    // The owner of a dialog is a top-level window.
    while (owner != nullptr && (::GetWindowLongPtrA(owner, GWL_STYLE) & WS_CHILD) != 0)
    {
        owner = ::GetParent(owner);
    }
    const HWND top = TopLevelOf(owner);
    m_hWndTop = nullptr;
    if (top != nullptr && top != owner && ::IsWindowEnabled(top))
    {
        m_hWndTop = top;
        ::EnableWindow(top, FALSE);
    }
    return owner;
}

void CDialog::PostModal()
{
    if (m_hWndTop != nullptr && ::IsWindow(m_hWndTop))
    {
        ::EnableWindow(m_hWndTop, TRUE);
    }
    m_hWndTop = nullptr;
}

INT_PTR CDialog::DoModal()
{
    HINSTANCE instance = AfxGetResourceHandle();
    const TemplateLock lock(m_hDialogTemplate);
    LPCDLGTEMPLATE found = lock.Get() != nullptr ? lock.Get() : m_lpDialogTemplate;
    if (found == nullptr && m_lpszTemplateName != nullptr)
    {
        found = FindTemplate(m_lpszTemplateName, instance);
    }
    m_nModalResult = kNotShown;
    if (found == nullptr)
    {
        return kNotShown;
    }

    const HWND owner = PreModal();
    AfxUnhookWindowCreate();
    const bool enableOwner = owner != nullptr && ::IsWindowEnabled(owner);
    if (enableOwner)
    {
        ::EnableWindow(owner, FALSE);
    }
    // Runs on every way out, in the order that gives the activation back to the owner: a window that is still disabled
    // when the dialog goes would lose it to another program.
    const auto finish = [&] {
        m_bContinueModal = false;
        m_bInModalLoop = false;
        if (m_hWnd != nullptr)
        {
            ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                           SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
        }
        if (enableOwner && ::IsWindow(owner))
        {
            ::EnableWindow(owner, TRUE);
        }
        PostModal();
        const HWND active = ::GetActiveWindow();
        if (owner != nullptr && ::IsWindow(owner) && (active == nullptr || active == m_hWnd))
        {
            ::SetActiveWindow(owner);
        }
        DestroyWindow();
    };
    try
    {
        m_bContinueModal = true; // EndDialog in OnInitDialog takes this back, and the loop doesn't begin
        if (CreateDlgIndirect(found, CWnd::FromHandle(owner), instance) && m_bContinueModal && m_hWnd != nullptr)
        {
            DWORD flags = MLF_SHOWONIDLE;
            if ((GetStyle() & DS_NOIDLEMSG) != 0)
            {
                flags |= MLF_NOIDLEMSG;
            }
            RunModalLoop(flags);
        }
    }
    catch (...)
    {
        finish();
        throw;
    }
    finish();
    return m_nModalResult;
}

void CDialog::EndDialog(int nResult)
{
    if (m_bInModalLoop || m_bContinueModal)
    {
        EndModalLoop(nResult);
    }
    else
    {
        ::EndDialog(m_hWnd, nResult);
    }
}

void CDialog::NextDlgCtrl() const { ::SendMessageA(m_hWnd, WM_NEXTDLGCTL, 0, FALSE); }
void CDialog::PrevDlgCtrl() const { ::SendMessageA(m_hWnd, WM_NEXTDLGCTL, 1, FALSE); }

void CDialog::GotoDlgCtrl(CWnd* pWndCtrl)
{
    ::SendMessageA(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->GetSafeHwnd()), TRUE);
}

void CDialog::SetDefID(UINT nID) { SendMessage(DM_SETDEFID, nID); }
DWORD CDialog::GetDefID() const { return static_cast<DWORD>(::SendMessageA(m_hWnd, DM_GETDEFID, 0, 0)); }
void CDialog::MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    // The walk has offered the message to the children before.
    return CWnd::PreTranslateMessage(pMsg) || PreTranslateInput(pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
    {
        return TRUE;
    }
    const bool isCommand = nCode == CN_COMMAND || nCode == CN_UPDATE_COMMAND_UI;
    // What a parent handed back to this dialog concerns the dialog alone: further up it would meet the handlers that
    // others have for their own notifications.
    const bool isReflected = !isCommand && HIWORD(nCode) >= WM_REFLECT_BASE;
    if (isReflected || (!isCommand && nID >= kFirstCommandId))
    {
        return FALSE;
    }
    CWnd* const parent = GetParent();
    if (parent != nullptr && parent->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
    {
        return TRUE;
    }
    CWinThread* const thread = AfxGetThread();
    return thread != nullptr && thread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CDialog::OnInitDialog()
{
    if (!UpdateData(FALSE))
    {
        EndDialog(kNotShown); // what failed has been reported
        return FALSE;
    }
    return TRUE;
}

BOOL CDialog::CheckAutoCenter() { return m_bPlaceOpen; }

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
    {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }
