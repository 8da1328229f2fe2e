// afxwnd.h - CWnd, the object of a window; CWaitCursor
#pragma once

#include <afxcmdtgt.h>
#include <afxgeom.h>
#include <afxmenu.h>

class CDataExchange;
class CDC;
class CFont;
class CFrameWnd;
class CRgn;
class CScrollBar;
class CWinThread;
struct CCreateContext;

// Flags of CWnd::RunModalLoop.
constexpr DWORD MLF_NOIDLEMSG = 0x0001;  ///< the parent gets no WM_ENTERIDLE
constexpr DWORD MLF_NOKICKIDLE = 0x0002; ///< the window gets no WM_KICKIDLE
constexpr DWORD MLF_SHOWONIDLE = 0x0004; ///< the window is shown once the queue is empty

// Flags of CWnd::RepositionBars.
constexpr UINT reposDefault = 0; ///< the pane that is left gets the rest of the room
constexpr UINT reposQuery = 1;   ///< only tells the rest of the room
constexpr UINT reposExtra = 2;   ///< as reposDefault, with the borders of lpRectParam kept free around the pane

/// The object of a window. A window that an object created or attached belongs to it: the object's destructor destroys
/// the window, and a window that dies first leaves the object without a handle. FromHandle and everything that answers
/// through it gives either that object or a temporary one, which must not be kept across messages.
class TAVAFX_API CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)

public:
    HWND m_hWnd = nullptr;

    CWnd();
    ~CWnd() override;

    static const CWnd wndTop;       ///< HWND_TOP for SetWindowPos
    static const CWnd wndBottom;    ///< HWND_BOTTOM
    static const CWnd wndTopMost;   ///< HWND_TOPMOST
    static const CWnd wndNoTopMost; ///< HWND_NOTOPMOST

    // --- handle
    /// The handle, or null; may be asked of a null object.
    HWND GetSafeHwnd() const { return this == nullptr ? nullptr : m_hWnd; }
    operator HWND() const { return GetSafeHwnd(); }
    /// The object of the handle, a temporary one if there is none of its own; null for a null handle.
    static CWnd* PASCAL FromHandle(HWND hWnd);
    /// The object that the handle belongs to, or null. Never makes one.
    static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
    /// Takes the window over without seeing its messages. FALSE for null and for a handle that has an object.
    BOOL Attach(HWND hWnd);
    /// Lets go of the window and gives its handle to the caller; null if there was none.
    HWND Detach();
    /// Runs when the object has its handle and before it sees messages; for classes that get ready there.
    virtual void PreSubclassWindow();
    /// Takes the window over and sees its messages from now on; the former window procedure stays the default.
    BOOL SubclassWindow(HWND hWnd);
    /// SubclassWindow for a child of pParent. FALSE if there is no such child.
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    /// Puts the former window procedure back and lets go of the window.
    HWND UnsubclassWindow();

    // --- life
    /// Creates a child window. A null class name asks PreCreateWindow for the framework's own class.
    /// @return FALSE if the window wasn't made; PostNcDestroy has run then.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, CCreateContext* pContext = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                  int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
    /// Last look at what the window is made from; FALSE refuses the creation.
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    /// Destroys the window; the object stays (unless PostNcDestroy deletes it). FALSE if there was no window.
    virtual BOOL DestroyWindow();
    /// The last call for this window, with the handle gone; the place for `delete this`.
    virtual void PostNcDestroy();

    // --- style, text, font
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    /// Takes style bits away and adds others. A non-zero nFlags is given to SetWindowPos with the bits that keep place,
    /// size, order and activation.
    /// @return FALSE if the style had those bits already.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    void SetWindowText(LPCTSTR lpszString);
    /// Copies at most nMaxCount - 1 characters; returns their number.
    int GetWindowText(LPTSTR lpszString, int nMaxCount) const;
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const;
    /// Null stands for the system font. The font stays the caller's and must outlive its use.
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetFont() const;
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);

    // --- geometry
    void GetWindowRect(LPRECT lpRect) const;
    void GetClientRect(LPRECT lpRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl);
    void ClientToScreen(LPPOINT lpPoint) const;
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    void ScreenToClient(LPRECT lpRect) const;
    /// Null stands for the screen.
    void MapWindowPoints(CWnd* pWndTo, LPRECT lpRect) const;
    void MapWindowPoints(CWnd* pWndTo, LPPOINT lpPoint, UINT nCount) const;
    /// Centres a child in its parent, and a top-level window over pAlternateOwner or its owner if that is visible, else
    /// in the work area; always inside the work area of its monitor.
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    void BringWindowToTop();
    BOOL IsIconic() const;
    BOOL IsZoomed() const;
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const;
    /// Lays out the children with ids from nIDFirst to nIDLast that answer WM_SIZEPARENT, and gives the child
    /// nIDLeftOver the room that is left.
    /// @param lpRectParam  receives the rest for reposQuery, is the border for reposExtra
    /// @param lpRectClient  room to lay out in; null for the client area
    void RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlags = reposDefault,
                        LPRECT lpRectParam = nullptr, LPCRECT lpRectClient = nullptr, BOOL bStretch = TRUE);

    // --- painting
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* pDC);
    CDC* BeginPaint(LPPAINTSTRUCT lpPaint);
    void EndPaint(LPPAINTSTRUCT lpPaint);
    void UpdateWindow();
    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
    void ValidateRect(LPCRECT lpRect);
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL bRedraw = TRUE);
    BOOL LockWindowUpdate();
    void UnlockWindowUpdate();

    // --- state
    /// @return TRUE if the window was disabled before.
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;
    /// @return the window that had the focus, or null.
    CWnd* SetFocus();
    static CWnd* PASCAL GetFocus();
    CWnd* SetCapture();
    static CWnd* PASCAL GetCapture();
    CWnd* SetActiveWindow();
    static CWnd* PASCAL GetActiveWindow();
    BOOL SetForegroundWindow();
    static CWnd* PASCAL GetForegroundWindow();
    /// @param nElapse  milliseconds; @return the timer's id, 0 if it couldn't be set.
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer);
    BOOL KillTimer(UINT_PTR nIDEvent);
    int GetScrollPos(int nBar) const;
    int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE);
    void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const;
    void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    CMenu* GetMenu() const;
    BOOL SetMenu(CMenu* pMenu);
    void DrawMenuBar();
    CMenu* GetSystemMenu(BOOL bRevert) const;
    void DragAcceptFiles(BOOL bAccept = TRUE);
    /// @return the button that ended the box, 0 if it couldn't be shown. A null caption is the application's name.
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);

    // --- dialog items, relatives
    CWnd* GetDlgItem(int nID) const;
    void GetDlgItem(int nID, HWND* phWnd) const;
    int GetDlgCtrlID() const;
    /// @return the former id.
    int SetDlgCtrlID(int nID);
    UINT IsDlgButtonChecked(int nIDButton) const;
    void CheckDlgButton(int nIDButton, UINT nCheck);
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
    void SetDlgItemText(int nID, LPCTSTR lpszString);
    int GetDlgItemText(int nID, LPTSTR lpszString, int nMaxCount) const;
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const;
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// Parent of a child window, owner of another.
    CWnd* GetParent() const;
    CWnd* SetParent(CWnd* pWndNewParent);
    CWnd* GetWindow(UINT nCmd) const;
    /// The window that SetOwner named, else the parent.
    CWnd* GetOwner() const;
    void SetOwner(CWnd* pOwnerWnd);
    /// The last window met on the way up through parents and owners; itself if it has none.
    CWnd* GetTopLevelParent() const;
    /// The nearest frame window above this one, or null.
    CFrameWnd* GetParentFrame() const;
    /// The frame around everything: the nearest frame above each frame in turn.
    CFrameWnd* GetTopLevelFrame() const;
    virtual BOOL IsFrameWnd() const;
    BOOL IsChild(const CWnd* pWnd) const;
    static CWnd* PASCAL GetDesktopWindow();
    CWnd* GetLastActivePopup() const;
    /// Finds a window with that id anywhere below this one; nearer windows first among those of one branch.
    /// @param bOnlyPerm  only windows that have an object of their own
    CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;
    static CWnd* PASCAL WindowFromPoint(POINT point);

    // --- messages
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// @param bDeep  children of children too; @param bOnlyPerm  only windows with an object, by direct call
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                  BOOL bOnlyPerm = FALSE);
    static void PASCAL SendMessageToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep,
                                                BOOL bOnlyPerm);
    /// The message under way on this thread, with the time and cursor position it was posted with.
    static const MSG* PASCAL GetCurrentMessage();
    /// Gives the message under way to the default procedure, with the parameters that it came with.
    LRESULT Default();
    /// First look at a message of the queue for this window or one below it; TRUE eats the message.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Offers a message to PreTranslateMessage of each object from the message's window up to hWndStop (included).
    static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    /// Dialog navigation for mouse and key messages; FALSE for all others.
    BOOL PreTranslateInput(LPMSG lpMsg);
    BOOL IsDialogMessage(LPMSG lpMsg);
    /// Runs the framework's pump until EndModalLoop, the end of the window or WM_QUIT (which is posted again).
    /// @return what EndModalLoop was given, -1 otherwise.
    int RunModalLoop(DWORD dwFlags);
    virtual void EndModalLoop(int nResult);
    virtual BOOL ContinueModal();
    /// Moves values between controls and members through DoDataExchange. What the controls notify the window of
    /// meanwhile is ignored.
    /// @return FALSE if a value was refused.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    /// Updates every control of a dialog through its command's update handler.
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);
    /// Hands the message under way to OnChildNotify of this control.
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// The former window procedure of a subclassed window, else the system's default.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Routes one message; TRUE if it was handled and *pResult is the answer.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// A notification of this control, before its parent handles it; TRUE eats it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Looks a notification up in this control's own message map.
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Hands the message under way back to the child that sent it, if it has an object of its own.
    static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
    virtual void DoDataExchange(CDataExchange* pDX);
    virtual WNDPROC* GetSuperWndProcAddr();

    // --- default handlers: what happens is the default of the window, save where it says otherwise
    BOOL OnNcCreate(LPCREATESTRUCT lpCreateStruct);
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnDestroy();
    /// Ends the object's tie to its window, then calls PostNcDestroy.
    void OnNcDestroy();
    void OnClose();
    BOOL OnQueryEndSession();
    void OnEndSession(BOOL bEnding);
    void OnSize(UINT nType, int cx, int cy);
    void OnMove(int x, int y);
    void OnSizing(UINT fwSide, LPRECT pRect);
    void OnMoving(UINT fwSide, LPRECT pRect);
    void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    void OnWindowPosChanging(WINDOWPOS* lpwndpos);
    void OnWindowPosChanged(WINDOWPOS* lpwndpos);
    void OnEnterSizeMove();
    void OnExitSizeMove();
    void OnEnable(BOOL bEnable);
    void OnShowWindow(BOOL bShow, UINT nStatus);
    void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    void OnActivateApp(BOOL bActive, DWORD dwThreadID);
    int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    void OnCancelMode();
    void OnCaptureChanged(CWnd* pWnd);
    void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    void OnSysColorChange();
    void OnTimer(UINT_PTR nIDEvent);
    void OnDropFiles(HDROP hDropInfo);
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* pDC);
    /// Asks the control's own CtlColor first.
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);          ///< lets the control draw itself first
    void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct); ///< lets the control measure first
    int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct);  ///< lets the control compare first
    void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct);    ///< tells the control first
    LRESULT OnNcHitTest(CPoint point);
    void OnNcPaint();
    void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp);
    BOOL OnNcActivate(BOOL bActive);
    void OnNcMouseMove(UINT nHitTest, CPoint point);
    void OnNcLButtonDown(UINT nHitTest, CPoint point);
    void OnNcLButtonUp(UINT nHitTest, CPoint point);
    void OnNcLButtonDblClk(UINT nHitTest, CPoint point);
    void OnNcRButtonDown(UINT nHitTest, CPoint point);
    /// The default asks the parent first.
    BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnMouseLeave();
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    void OnLButtonDblClk(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    void OnRButtonUp(UINT nFlags, CPoint point);
    void OnRButtonDblClk(UINT nFlags, CPoint point);
    void OnMButtonDown(UINT nFlags, CPoint point);
    void OnMButtonUp(UINT nFlags, CPoint point);
    void OnSetFocus(CWnd* pOldWnd);
    void OnKillFocus(CWnd* pNewWnd);
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    UINT OnGetDlgCode();
    void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar); ///< tells the scroll bar control first
    void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar); ///< tells the scroll bar control first
    /// @param message  the whole wParam: WM_CREATE, WM_DESTROY or a button message below, the child's id above
    void OnParentNotify(UINT message, LPARAM lParam);
    void OnContextMenu(CWnd* pWnd, CPoint pos);
    void OnInitMenu(CMenu* pMenu);
    void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
    void OnSysCommand(UINT nID, LPARAM lParam);

    WNDPROC m_pfnSuper = nullptr; ///< window procedure that was there before ours, or null
    /// The same without the system's conversion of texts, for messages that the system doesn't know; or null.
    WNDPROC m_pfnDirect = nullptr;
    int m_nModalResult = -1;
    bool m_bInModalLoop = false;   ///< RunModalLoop is running
    bool m_bContinueModal = false; ///< the modal loop goes on, or is about to begin

    DECLARE_MESSAGE_MAP()

private:
    explicit CWnd(HWND hWndSpecial);

    friend LRESULT AFXAPI AfxCallWndProc(CWnd*, HWND, UINT, WPARAM, LPARAM);

    HWND m_hWndOwner = nullptr; ///< owner that SetOwner named
    bool m_special = false;     ///< one of the SetWindowPos constants; the handle is no window
};

/// Shows the hourglass for as long as it lives.
class TAVAFX_API CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    /// Shows the hourglass again after something else has changed the cursor.
    void Restore();
};
