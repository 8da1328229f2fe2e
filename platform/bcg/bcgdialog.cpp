#include "bcgdialog.h"

IMPLEMENT_DYNAMIC(CBCGDialog, CDialog)

BEGIN_MESSAGE_MAP(CBCGDialog, CDialog)
END_MESSAGE_MAP()

CBCGDialog::CBCGDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(nIDTemplate, pParentWnd) {}
CBCGDialog::CBCGDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd) : CDialog(lpszTemplateName, pParentWnd) {}
