// AboutDlg.h - the box that says what the program is
#pragma once

#include <afxwin.h>

#include <string>

namespace workbench
{
/// The white area with the program's picture and name; a static control of the dialog's template.
class AboutArea : public CStatic
{
protected:
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()
};

/// The About box. The product's configuration may replace its text by a block named "About".
class AboutDlg : public CDialog
{
public:
    explicit AboutDlg(CWnd* parent);

protected:
    void DoDataExchange(CDataExchange* exchange) override;

private:
    AboutArea m_area;
    CString m_version;
};

/// The version of the running program as its version resource tells; "" when it has none.
[[nodiscard]] std::string ProgramVersion();
} // namespace workbench
