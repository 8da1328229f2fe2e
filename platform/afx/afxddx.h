// afxddx.h - exchange of values between the controls of a dialog and the members of its object
#pragma once

#include <afxwnd.h>

/// One exchange under way; handed to DoDataExchange.
class TAVAFX_API CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    BOOL m_bSaveAndValidate; ///< TRUE moves from the controls to the members
    CWnd* m_pDlgWnd;         ///< the dialog
    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;

    /// The control of that id, noted as the last one. Throws CNotSupportedException if the dialog has none.
    HWND PrepareCtrl(int nIDC);
    /// The same for a control whose text is selected when the value is refused.
    HWND PrepareEditCtrl(int nIDC);
    /// Refuses the value of the last control: gives it the focus and throws CUserException.
    [[noreturn]] void Fail();
};

/// Ties an object to a control: subclasses it at the first exchange, while the object has no handle.
TAVAFX_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
/// Text of an edit or static; the control is written only when its text differs.
TAVAFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
