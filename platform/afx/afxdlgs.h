// afxdlgs.h - the system's common dialogs
#pragma once

#include <afxwin.h>
#include <commdlg.h>

/// A dialog that the system makes and runs. Its commands are the system's to answer.
class TAVAFX_API CCommonDialog : public CDialog
{
    DECLARE_DYNAMIC(CCommonDialog)

public:
    explicit CCommonDialog(CWnd* pParentWnd);

protected:
    /// Takes the controls' values; the system ends the dialog.
    void OnOK() override;
    /// Leaves the end of the dialog to the system.
    void OnCancel() override;
};

/// The system's dialog for opening or saving files, in its Explorer style. While it runs the object is the panel that
/// lies in it, made from the template that m_ofn names or empty; the dialog itself is GetParent().
class TAVAFX_API CFileDialog : public CCommonDialog
{
    DECLARE_DYNAMIC(CFileDialog)

public:
    /// @param bOpenFileDialog  TRUE opens, FALSE saves
    /// @param lpszDefExt   appended to a name without extension; must live as long as the dialog; may be null
    /// @param lpszFileName  what stands in the file name box; copied, longer ones than the buffer are left out
    /// @param lpszFilter   pairs of name and pattern, a bar behind each, and one more bar at the end; may be null
    /// @param pParentWnd   owner; null for the main window
    /// @param dwSize       of the structure that the system gets; 0 for all of it
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr, DWORD dwSize = 0);

    /// Shows the dialog and waits for its end.
    /// @return IDOK or IDCANCEL; the latter also for a dialog that failed, of which CommDlgExtendedError() tells more.
    INT_PTR DoModal() override;

    /// The path of the selected file; while the dialog runs, the one that it would give at this moment.
    CString GetPathName() const;
    /// Begins a walk over the paths that were picked.
    POSITION GetStartPosition() const;
    /// The path at the position, which moves on; null behind the last one, where there is no path.
    CString GetNextPathName(POSITION& pos) const;
    /// True if "Read only" was checked.
    BOOL GetReadOnlyPref() const;

    OPENFILENAMEA m_ofn; ///< what the system gets; may be changed before DoModal()
    BOOL m_bOpenFileDialog;
    CString m_strFilter; ///< the filter with zeros for bars
    TCHAR m_szFileTitle[64] = {};
    TCHAR m_szFileName[MAX_PATH] = {};

protected:
    /// The user has chosen. @return nonzero to refuse and keep the dialog open
    virtual BOOL OnFileNameOK();
    /// The dialog stands with all its controls.
    virtual void OnInitDone();
    virtual void OnFolderChange();
    /// The selection in the list has changed.
    virtual void OnFileNameChange();
    /// Another filter was chosen.
    virtual void OnTypeChange();
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

private:
    static UINT_PTR CALLBACK HookProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
};
