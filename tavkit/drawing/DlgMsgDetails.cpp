#include "tavkit/drawing/DlgMsgDetails.h"

#include "tavkit/drawing/DetailsFold.h"
#include "tavkit/resources/resource.h"

IMPLEMENT_DYNAMIC(DlgMsgDetails, CDialog)

BEGIN_MESSAGE_MAP(DlgMsgDetails, CDialog)
    ON_BN_CLICKED(IDC_SHOW_DETAILS, OnBnClickedDetails) // opens the details for good
END_MESSAGE_MAP()

DlgMsgDetails::DlgMsgDetails(char const* title, char const* message, char const* details, CWnd* pParent)
    : CDialog(IDD_MSG_DETAILS, pParent), m_strTitle(title), m_strMessage(message), m_strDetails(details)
{
    // The edit control breaks lines at the pair only. What stands before a line feed isn't looked at, on purpose.
    m_strDetails.Replace("\n", "\r\n");
}

DlgMsgDetails::~DlgMsgDetails() = default;

void DlgMsgDetails::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_MESSAGE, m_strMessage);
    DDX_Text(pDX, IDC_DETAILS, m_strDetails);
}

BOOL DlgMsgDetails::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetWindowText(m_strTitle);
    GetWindowRect(m_rectFull);
    CRect message;
    CRect details;
    GetDlgItem(IDC_MESSAGE)->GetWindowRect(message);
    GetDlgItem(IDC_DETAILS)->GetWindowRect(details);
    const int height = tavkit::FoldedHeight(m_rectFull.Height(), message.Height(), details.Height());
    SetWindowPos(nullptr, 0, 0, m_rectFull.Width(), height, SWP_NOMOVE | SWP_NOZORDER);
    return TRUE;
}

void DlgMsgDetails::OnBnClickedDetails()
{
    // A disabled button keeps the focus and swallows the keys, Esc with them.
    CWnd* const details = GetDlgItem(IDC_DETAILS);
    GotoDlgCtrl(details);
    details->SendMessage(EM_SETSEL, 0, 0);
    GetDlgItem(IDC_SHOW_DETAILS)->EnableWindow(FALSE);
    SetWindowPos(nullptr, 0, 0, m_rectFull.Width(), m_rectFull.Height(), SWP_NOMOVE | SWP_NOZORDER);
}
