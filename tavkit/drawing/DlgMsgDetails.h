// DlgMsgDetails.h - a short message whose details open on demand
#pragma once

#include <afxwin.h>

#include "tavkit/frame/Export.h"

/// A short message with a "Details..." button. At first the dialog shows the message alone; the button opens the
/// details below it, once. For errors with long technical text.
class TAVKIT_API DlgMsgDetails : public CDialog
{
    DECLARE_DYNAMIC(DlgMsgDetails)

public:
    /// Null texts count as empty.
    /// @param details  every line feed becomes a carriage return and a line feed, also one that has its return already
    DlgMsgDetails(char const* title, char const* message, char const* details, CWnd* pParent);
    ~DlgMsgDetails() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnBnClickedDetails();

    DECLARE_MESSAGE_MAP()

private:
    CString m_strTitle;
    CString m_strMessage;
    CString m_strDetails;
    CRect m_rectFull; ///< the whole dialog, screen pixels, as it was at first
};
