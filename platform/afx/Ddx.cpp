// Ddx.cpp - exchange of values between controls and members

#include <afxwin.h>

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd)
{
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    const HWND control = ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), nIDC);
    if (control == nullptr)
    {
        TRACE("The dialog has no control %d\n", nIDC);
        AfxThrowNotSupportedException();
    }
    m_hWndLastControl = control;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const HWND control = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail()
{
    // On the way to the controls there is nothing that the user could mend.
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr)
    {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
        {
            ::SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
        }
    }
    AfxThrowUserException();
}

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr)
    {
        return; // subclassed by an earlier exchange
    }
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (!rControl.SubclassWindow(control))
    {
        TRACE("Control %d has an object already\n", nIDC);
        AfxThrowNotSupportedException();
    }
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    const int length = ::GetWindowTextLengthA(control);
    CString text;
    const int copied = ::GetWindowTextA(control, text.GetBuffer(length), length + 1);
    text.ReleaseBuffer(copied);
    if (pDX->m_bSaveAndValidate)
    {
        value = text;
    }
    else if (text != value)
    {
        ::SetWindowTextA(control, value); // an equal text isn't written: it would move the caret and notify
    }
}
