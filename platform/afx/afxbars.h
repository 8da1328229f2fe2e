// afxbars.h - the smaller common controls
// Classes in this file: CToolInfo, CToolTipCtrl, CSliderCtrl, CTabCtrl, CStatusBarCtrl
#pragma once

#include "afxwin.h"

/// The description of one tool, with room for its text. Its size is the one that every version of the common controls
/// takes, not that of the whole structure.
class TAVAFX_API CToolInfo : public TOOLINFO
{
public:
    static constexpr int kTextSize = 256; ///< characters with the zero; the control itself hands out at most 80

    TCHAR szText[kTextSize]; ///< text of the tool

    CToolInfo();
    CToolInfo(const CToolInfo& other);
    CToolInfo& operator=(const CToolInfo& other);
};

/// A tool tip control. Tools are named by their window and number; number 0 names the window itself as the tool.
class TAVAFX_API CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)
public:
    /// @param pParentWnd  window that owns the tips; null is allowed
    /// @param dwStyle     TTS_ALWAYSTIP ...
    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    void Activate(BOOL bActivate);
    /// @param dwDuration  TTDT_AUTOMATIC, TTDT_RESHOW, TTDT_AUTOPOP or TTDT_INITIAL
    /// @param iTime       milliseconds, at most 32767; -1 for the control's default
    void SetDelayTime(DWORD dwDuration, int iTime);

    /// @param lpszText     LPSTR_TEXTCALLBACK lets the tool's window be asked (the parent if nIDTool is 0)
    /// @param lpRectTool   place in the client area of pWnd; null if the whole window is the tool
    /// @param nIDTool      0 for the whole window, else the number of the tool in it
    /// @return FALSE if the control refused
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    /// Nothing happens if there is no such tool.
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    int GetToolCount() const;
    /// @return FALSE if there is no such tool
    BOOL GetToolInfo(CToolInfo& toolInfo, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    /// @param lpToolInfo  its window and number name the tool
    void SetToolInfo(LPTOOLINFO lpToolInfo);

    /// Hands a mouse message of a tool to the control. Messages of other kinds are ignored.
    void RelayEvent(LPMSG lpMsg);
    /// Repaints the tip that is shown.
    void Update();
    /// Takes the tip off the screen.
    void Pop();

private:
    static void FillToolInfo(TOOLINFO& info, CWnd* pWnd, UINT_PTR nIDTool);
};

/// A slider (track bar).
class TAVAFX_API CSliderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CSliderCtrl)
public:
    /// @return FALSE if the parent has no window
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    void SetRange(int nMin, int nMax, BOOL bRedraw = FALSE);
    int GetRangeMin() const;
    int GetRangeMax() const;
    int GetPos() const;
    /// A position outside the range is brought to its nearer end.
    void SetPos(int nPos);
    /// @param nFreq  one tick for so many positions, with TBS_AUTOTICKS
    void SetTicFreq(int nFreq);
    /// Step of an arrow key. @return the step before
    int SetLineSize(int nSize);
    /// Step of a page key or a click beside the thumb. @return the step before
    int SetPageSize(int nSize);
    /// @return the tool tip control, a temporary object; null without TBS_TOOLTIPS
    CToolTipCtrl* GetToolTips() const;
};

/// A row of tabs.
class TAVAFX_API CTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTabCtrl)
public:
    /// @return FALSE if the parent has no window
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const;
    /// @return -1 if no tab is selected
    int GetCurSel() const;
    /// Selects a tab without notifying the parent. @return the tab before; -1 if there was none
    int SetCurSel(int nItem);
    /// @return index of the new tab; -1 on failure
    int InsertItem(int nItem, TCITEM* pTabCtrlItem);
    int InsertItem(int nItem, LPCTSTR lpszItem);
    BOOL DeleteItem(int nItem);
    /// @param bLarger  TRUE: from the display area to the control's rectangle; FALSE: the other way round
    void AdjustRect(BOOL bLarger, LPRECT lpRect);
};

/// A status bar: a row of text panes at the lower edge of its parent.
class TAVAFX_API CStatusBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CStatusBarCtrl)
public:
    /// The bar finds its own place at the lower edge when it gets a WM_SIZE; the rectangle is that before the first.
    /// @return FALSE if the parent has no window
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    /// @param pWidths  right edges of the panes in pixels; -1 reaches to the end of the bar
    BOOL SetParts(int nParts, const int* pWidths);
    int GetPartCount() const;
    /// @param nType  0 for a sunken pane, SBT_NOBORDERS, SBT_POPOUT
    BOOL SetText(LPCTSTR lpszText, int nPane, int nType = 0);
    /// @param pType  receives the type; may be null
    /// @return text of any length; empty for a wrong pane
    CString GetText(int nPane, int* pType = nullptr) const;
    /// The place of a pane in the bar's client area.
    BOOL GetRect(int nPane, LPRECT lpRect) const;
    /// Shows one text across the whole bar, or the panes.
    void SetSimple(BOOL bSimple = TRUE);
    BOOL IsSimple() const;
};
