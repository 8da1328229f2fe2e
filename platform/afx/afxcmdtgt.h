// afxcmdtgt.h - objects that answer messages and commands: message maps, CCmdTarget, CCmdUI
#pragma once

#include <afx.h>

class CCmdTarget;
class CCmdUI;
class CMenu;
class CWnd;

/// Notification code of a plain command (menu item, accelerator, button).
constexpr int CN_COMMAND = 0;
/// Notification code that asks how a command's menu item or button should look.
constexpr int CN_UPDATE_COMMAND_UI = -1;
/// Added to a message number when the parent hands it back to the control that it came from.
constexpr UINT WM_REFLECT_BASE = 0xBC00;
/// Message number of a map entry whose real number stands in a variable (RegisterWindowMessage).
constexpr UINT AFX_REGISTERED_MESSAGE = 0xC000;
/// All colour requests of controls are looked up under this one number when no entry names the request itself.
constexpr UINT WM_CTLCOLOR = 0x0019;

/// One message or command under way, as a thunk of a message map reads it.
struct AfxMsg
{
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;     ///< what the window procedure answers when the handler took the message
    UINT nID = 0;           ///< id of the command or control, for commands and notifications
    int nCode = 0;          ///< notification code, for commands and notifications
    void* pExtra = nullptr; ///< CCmdUI* or AFX_NOTIFY*, for commands and notifications

    UINT Low() const noexcept { return LOWORD(lParam); }
    UINT High() const noexcept { return HIWORD(lParam); }
    int X() const noexcept { return static_cast<short>(LOWORD(lParam)); }
    int Y() const noexcept { return static_cast<short>(HIWORD(lParam)); }
    UINT Flags() const noexcept { return static_cast<UINT>(wParam); }
    BOOL Truth() const noexcept { return wParam != 0; }
    HWND Handle() const noexcept { return reinterpret_cast<HWND>(wParam); }
    HWND LowHandle() const noexcept { return reinterpret_cast<HWND>(lParam); }
    HDC Dc() const noexcept { return reinterpret_cast<HDC>(wParam); }
    template <typename T>
    T* Data() const noexcept
    {
        return reinterpret_cast<T*>(lParam);
    }
};

/// Calls one handler. The answer is false when the handler wants the search to go on.
using AfxMsgThunk = bool (*)(CCmdTarget* target, AfxMsg& msg);

/// Pointer to a member function of C with the shape F, for the casts in message maps.
template <typename C, typename F>
using AfxMember = F C::*;

/// One line of a message map.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;            ///< message number, or AFX_REGISTERED_MESSAGE
    UINT nCode;               ///< notification code, or 0
    UINT nID;                 ///< first id, or 0 for plain messages
    UINT nLastID;             ///< last id of a range
    const UINT* pnRegistered; ///< variable with the number of a registered message, or null
    AfxMsgThunk pfn;          ///< null ends the map
};

/// The message map of one class. The base map is reached by a function, so that the base may live in another module.
struct AFX_MSGMAP
{
    const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

/// Who would handle a command: filled by OnCmdMsg in place of calling the handler.
struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget = nullptr;
    AfxMsgThunk pmf = nullptr;
};

/// A WM_NOTIFY on its way through OnCmdMsg.
struct AFX_NOTIFY
{
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

/// Declares the message map of a class; the class has a matching BEGIN_MESSAGE_MAP in its source.
#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* PASCAL GetThisMessageMap();                                                               \
    virtual const AFX_MSGMAP* GetMessageMap() const;

/// Base of everything that takes part in command routing.
class TAVAFX_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    CCmdTarget();
    ~CCmdTarget() override;

    /// Offers a command, a notification (code in the low word, WM_NOTIFY or a reflected number in the high word) or an
    /// update request (CN_UPDATE_COMMAND_UI with a CCmdUI* in pExtra) to this object's message map.
    /// @param pHandlerInfo  when not null, nothing is called and the handler that was found is noted there.
    /// @return TRUE when a handler took it.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    /// Shows the hourglass until the matching EndWaitCursor; calls nest.
    void BeginWaitCursor();
    /// Takes back one BeginWaitCursor; the last one restores the cursor that was shown before.
    void EndWaitCursor();
    /// Shows the hourglass again after something else (a message box) has changed the cursor.
    void RestoreWaitCursor();

    DECLARE_MESSAGE_MAP()
};

/// How one menu item, button or control that stands for a command should look; handed to update handlers.
class TAVAFX_API CCmdUI
{
public:
    CCmdUI() = default;
    virtual ~CCmdUI() = default;

    UINT m_nID = 0;                ///< the command
    UINT m_nIndex = 0;             ///< position of the item in its menu
    UINT m_nIndexMax = 0;          ///< number of items in that menu
    CMenu* m_pMenu = nullptr;      ///< menu that the item stands in, or null
    CMenu* m_pSubMenu = nullptr;   ///< pop-up menu under the item, or null
    CWnd* m_pOther = nullptr;      ///< control that stands for the command, or null
    BOOL m_bEnableChanged = FALSE; ///< Enable was called during this update
    BOOL m_bContinueRouting = FALSE;

    /// Enables or greys the item. A disabled control that has the focus passes it on.
    virtual void Enable(BOOL bOn = TRUE);
    /// Sets the check mark: 0 off, 1 on, 2 undetermined (menus show 2 as on).
    virtual void SetCheck(int nCheck = 1);
    /// Checks the item with a dot in place of a tick.
    virtual void SetRadio(BOOL bOn = TRUE);
    /// Replaces the text; null is ignored.
    virtual void SetText(LPCTSTR lpszText);

    /// Lets the update go on to the next object of the route.
    void ContinueRouting() { m_bContinueRouting = TRUE; }
    /// Runs the update handlers of the route that begins at pTarget.
    /// @param bDisableIfNoHndler  greys the item when no update handler enabled it and no command handler exists.
    /// @return TRUE when an update handler took it (also for separators, which have none).
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);
};
