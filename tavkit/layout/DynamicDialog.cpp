#include "tavkit/layout/DynamicDialog.h"

IMPLEMENT_DYNAMIC(cdxCDynamicDialog, CBCGDialog)

BEGIN_MESSAGE_MAP(cdxCDynamicDialog, CBCGDialog)
    ON_WM_DESTROY()       // stores the place
    ON_WM_PARENTNOTIFY()  // a child goes away
    ON_WM_GETMINMAXINFO() // limits of sizing
    ON_WM_SIZE()          // places the children
    ON_WM_SIZING()        // anti-flicker begins
    ON_WM_TIMER()         // anti-flicker ends
END_MESSAGE_MAP()

cdxCDynamicDialog::cdxCDynamicDialog(UINT id, CWnd* pParent, Freedom freedom, UINT nFlags)
    : CBCGDialog(id, pParent), cdxCDynamicWndEx(freedom, nFlags)
{
    if (id != 0)
    {
        ActivateAutoPos(id);
    }
}

cdxCDynamicDialog::cdxCDynamicDialog(char const* name, CWnd* pParent, Freedom freedom, UINT nFlags)
    : CBCGDialog(name, pParent), cdxCDynamicWndEx(freedom, nFlags)
{
    if (name != nullptr && *name != 0)
    {
        ActivateAutoPos(CString(name));
    }
}

cdxCDynamicDialog::~cdxCDynamicDialog() { DoOnDestroy(); }

BOOL cdxCDynamicDialog::OnInitDialog()
{
    const BOOL result = CBCGDialog::OnInitDialog();
    DoInitWindow(*this);
    return result;
}

BOOL cdxCDynamicDialog::DestroyWindow()
{
    DoOnDestroy();
    return CBCGDialog::DestroyWindow();
}

BOOL cdxCDynamicDialog::CheckAutoCenter() { return FALSE; }

void cdxCDynamicDialog::OnDestroy()
{
    DoOnDestroy();
    CBCGDialog::OnDestroy();
}

void cdxCDynamicDialog::OnParentNotify(UINT message, LPARAM lParam)
{
    CBCGDialog::OnParentNotify(message, lParam);
    DoOnParentNotify(message, lParam);
}

void cdxCDynamicDialog::OnGetMinMaxInfo(MINMAXINFO* pMMI)
{
    Default();
    DoOnGetMinMaxInfo(pMMI);
}

void cdxCDynamicDialog::OnSize(UINT nType, int cx, int cy)
{
    Default();
    DoOnSize(nType, cx, cy);
}

void cdxCDynamicDialog::OnSizing(UINT fwSide, RECT* pRect)
{
    Default();
    DoOnSizing(fwSide, pRect);
}

void cdxCDynamicDialog::OnTimer(UINT_PTR nID)
{
    Default();
    DoOnTimer(nID);
}
