// bcgdialog.h - CBCGDialog: the toolkit's dialog
#pragma once

#include <afxwin.h>

#include "bcgdefs.h"

/// The dialog that dialogs of the toolkit's users derive from. It behaves as CDialog does.
class TAVBCG_API CBCGDialog : public CDialog
{
    DECLARE_DYNAMIC(CBCGDialog)
public:
    CBCGDialog() = default;
    /// @param nIDTemplate  dialog template, searched in the application first and then in the extension modules
    explicit CBCGDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    explicit CBCGDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);

protected:
    DECLARE_MESSAGE_MAP()
};
