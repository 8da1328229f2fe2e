// afxfrm.h - CFrameWnd: a program's main window
#pragma once

#include <afxcoll.h>
#include <afxwnd.h>

/// A top-level window with a menu, accelerators, a status bar and a pane that fills the rest. The object must have been
/// made with new: it deletes itself when its window is gone.
class TAVAFX_API CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)

public:
    CFrameWnd();
    ~CFrameWnd() override;

    static const CRect rectDefault; ///< place and size are the system's choice

    BOOL m_bAutoMenuEnable = TRUE; ///< menu items whose command has no handler are greyed

    /// Creates the frame. @param lpszMenuName  menu resource, found through the resource chain; null for none
    /// @return FALSE if the window wasn't made.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr, LPCTSTR lpszMenuName = nullptr,
                        DWORD dwExStyle = 0, CCreateContext* pContext = nullptr);
    /// Loads the accelerator table. FALSE if there is none or one is loaded already.
    BOOL LoadAccelTable(LPCTSTR lpszResourceName);

    /// Lays the children out: bars that answer WM_SIZEPARENT, the status bar (AFX_IDW_STATUS_BAR) along the bottom, and
    /// the pane AFX_IDW_PANE_FIRST over the rest. A call from inside is ignored.
    virtual void RecalcLayout(BOOL bNotify = TRUE);
    /// RecalcLayout at the next idle time.
    void DelayRecalcLayout(BOOL bNotify = TRUE);
    /// The frame that works at present: this one.
    virtual CFrameWnd* GetActiveFrame();
    /// Text of the status bar's first part; null empties it. Does nothing without a status bar.
    void SetMessageText(LPCTSTR lpszText);
    void SetMessageText(UINT nID);
    /// Text of a command for the status bar: its string up to the line break, or "".
    virtual void GetMessageString(UINT nID, CString& rMessage) const;
    /// Work at idle time: a layout that was put off.
    virtual void OnIdleUpdate();

    BOOL IsFrameWnd() const override;
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Own map, then the application.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    void PostNcDestroy() override;

protected:
    void OnSize(UINT nType, int cx, int cy);
    void OnSetFocus(CWnd* pOldWnd);
    void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
    LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
    void OnDestroy();

    HACCEL m_hAccelTable = nullptr;
    CPtrList m_listControlBars;     ///< bars that belong to the frame
    HWND m_hWndFocusLast = nullptr; ///< window with the focus when the frame was left

    DECLARE_MESSAGE_MAP()

private:
    bool m_inRecalcLayout = false;
    bool m_layoutPending = false;
    BOOL m_notifyPending = FALSE;
};
