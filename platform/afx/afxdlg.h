// afxdlg.h - CDialog: dialogs from templates, modal and modeless
#pragma once

#include <afxddx.h>

/// A dialog. Modal: construct with the template, DoModal. Modeless: construct without, Create; the object must outlive
/// the window or delete itself in PostNcDestroy.
class TAVAFX_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    /// For modeless dialogs and InitModalIndirect.
    CDialog();
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    /// Shows the template without waiting. A null parent stands for the main window.
    /// @return FALSE if there is no such template or the window wasn't made.
    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    /// The same from a template in memory, which is read during the call only.
    BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr, void* lpDialogInit = nullptr);
    BOOL CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = nullptr);
    /// Names a template in memory for DoModal; it stays the caller's and must live until DoModal returns.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr, void* lpDialogInit = nullptr);
    BOOL InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = nullptr);

    /// Disables the top-level parent, runs the dialog in the framework's own loop, enables and activates the parent.
    /// May be called again when it has returned.
    /// @return what EndDialog was given; -1 if the dialog couldn't be shown or its window died.
    virtual INT_PTR DoModal();
    /// Ends a modal dialog with that result; the window goes when the loop has ended.
    void EndDialog(int nResult);

    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* pWndCtrl);
    void SetDefID(UINT nID);
    DWORD GetDefID() const;
    /// Dialog units to pixels.
    void MapDialogRect(LPRECT lpRect) const;

    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Own map; then, for commands and for ids below 0x8000, the parent and the application. A notification that was
    /// handed back to the dialog goes no further.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

    /// Loads the members into the controls; ends the dialog with -1 if that fails. TRUE lets the system set the focus
    /// to the first control.
    virtual BOOL OnInitDialog();
    /// Takes the controls' values and ends with IDOK; stays if a value is refused.
    virtual void OnOK();
    /// Ends with IDCANCEL.
    virtual void OnCancel();

protected:
    /// Asked when OnInitDialog has left the dialog hidden where its template put it.
    /// @return TRUE to centre it as CenterWindow does; here: if the template puts it at (0, 0) and has no style that
    /// says otherwise (DS_CENTER, DS_CENTERMOUSE, DS_ABSALIGN).
    virtual BOOL CheckAutoCenter();

    LPCTSTR m_lpszTemplateName = nullptr;        ///< name or number of the template, or null
    HGLOBAL m_hDialogTemplate = nullptr;         ///< template in a memory handle, or null
    LPCDLGTEMPLATE m_lpDialogTemplate = nullptr; ///< template in memory, or null
    CWnd* m_pParentWnd = nullptr;

    /// Finds the owner for DoModal and disables its top-level window. @return the owner, or null.
    HWND PreModal();
    /// Enables what PreModal disabled.
    void PostModal();

    DECLARE_MESSAGE_MAP()

private:
    static INT_PTR CALLBACK DialogProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);

    CString m_strTemplateName; ///< holds a template name that is a text
    bool m_bPlaceOpen = false; ///< the template leaves the place to the framework
    HWND m_hWndTop = nullptr;  ///< top-level parent that PreModal disabled
};
