// afxmsg_.h - the macros of message maps
//
// Each entry holds a thunk that the compiler makes from the handler's shape: a handler of the wrong shape doesn't
// compile, and nothing is cast at run time. Inside a map ThisClass names the class that the map belongs to.
#pragma once

#include <afxcmdtgt.h>

/// Opens the message map of theClass, which derives (directly or not) from baseClass.
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                                  \
    const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap()                                                             \
    {                                                                                                                  \
        using ThisClass [[maybe_unused]] = theClass;                                                                   \
        using TheBaseClass = baseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY afxEntries[] = {

/// Closes a message map.
#define END_MESSAGE_MAP()                                                                                              \
    {                                                                                                                  \
        0, 0, 0, 0, nullptr, nullptr                                                                                   \
    }                                                                                                                  \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP afxMap = {&TheBaseClass::GetThisMessageMap, afxEntries};                                   \
    return &afxMap;                                                                                                    \
    }

// The building stones: a call through the handler's exact type, and the three ways to treat its answer.
#define AFX_CALL_(shape, fn) (static_cast<ThisClass*>(afxTarget)->*static_cast<AfxMember<ThisClass, shape>>(fn))
#define AFX_THUNK_(...) [](CCmdTarget* afxTarget, [[maybe_unused]] AfxMsg& afxMsg) -> bool { __VA_ARGS__ }
#define AFX_DONE_(call) AFX_THUNK_(call; return true;)
#define AFX_RESULT_(call) AFX_THUNK_(afxMsg.result = (LRESULT)(call); return true;)
#define AFX_UNLESS_ZERO_(call) AFX_THUNK_(afxMsg.result = (LRESULT)(call); return afxMsg.result != 0;)
#define AFX_ASK_(call) AFX_THUNK_(return (call) != FALSE;)
#define AFX_PLAIN_(message, thunk) {message, 0, 0, 0, nullptr, thunk},
#define AFX_NUMBERED_(message, code, first, last, thunk)                                                               \
    {message, static_cast<WORD>(static_cast<int>(code)), static_cast<UINT>(first), static_cast<UINT>(last), nullptr,   \
     thunk},

// --- windows: life, size, state ---------------------------------------------------------------------------------
#define ON_WM_NCCREATE()                                                                                               \
    AFX_PLAIN_(WM_NCCREATE,                                                                                            \
               AFX_RESULT_(AFX_CALL_(BOOL(LPCREATESTRUCT), &ThisClass::OnNcCreate)(afxMsg.Data<CREATESTRUCT>())))
#define ON_WM_CREATE()                                                                                                 \
    AFX_PLAIN_(WM_CREATE,                                                                                              \
               AFX_RESULT_(AFX_CALL_(int(LPCREATESTRUCT), &ThisClass::OnCreate)(afxMsg.Data<CREATESTRUCT>())))
#define ON_WM_DESTROY() AFX_PLAIN_(WM_DESTROY, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnDestroy)()))
#define ON_WM_NCDESTROY() AFX_PLAIN_(WM_NCDESTROY, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnNcDestroy)()))
#define ON_WM_CLOSE() AFX_PLAIN_(WM_CLOSE, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnClose)()))
#define ON_WM_QUERYENDSESSION()                                                                                        \
    AFX_PLAIN_(WM_QUERYENDSESSION, AFX_RESULT_(AFX_CALL_(BOOL(), &ThisClass::OnQueryEndSession)()))
#define ON_WM_ENDSESSION()                                                                                             \
    AFX_PLAIN_(WM_ENDSESSION, AFX_DONE_(AFX_CALL_(void(BOOL), &ThisClass::OnEndSession)(afxMsg.Truth())))
#define ON_WM_SIZE()                                                                                                   \
    AFX_PLAIN_(WM_SIZE, AFX_DONE_(AFX_CALL_(void(UINT, int, int), &ThisClass::OnSize)(                                 \
                            afxMsg.Flags(), static_cast<int>(afxMsg.Low()), static_cast<int>(afxMsg.High()))))
#define ON_WM_MOVE()                                                                                                   \
    AFX_PLAIN_(WM_MOVE, AFX_DONE_(AFX_CALL_(void(int, int), &ThisClass::OnMove)(afxMsg.X(), afxMsg.Y())))
#define ON_WM_SIZING()                                                                                                 \
    AFX_PLAIN_(WM_SIZING,                                                                                              \
               AFX_DONE_(AFX_CALL_(void(UINT, LPRECT), &ThisClass::OnSizing)(afxMsg.Flags(), afxMsg.Data<RECT>())))
#define ON_WM_MOVING()                                                                                                 \
    AFX_PLAIN_(WM_MOVING,                                                                                              \
               AFX_DONE_(AFX_CALL_(void(UINT, LPRECT), &ThisClass::OnMoving)(afxMsg.Flags(), afxMsg.Data<RECT>())))
#define ON_WM_GETMINMAXINFO()                                                                                          \
    AFX_PLAIN_(WM_GETMINMAXINFO,                                                                                       \
               AFX_DONE_(AFX_CALL_(void(MINMAXINFO*), &ThisClass::OnGetMinMaxInfo)(afxMsg.Data<MINMAXINFO>())))
#define ON_WM_WINDOWPOSCHANGING()                                                                                      \
    AFX_PLAIN_(WM_WINDOWPOSCHANGING,                                                                                   \
               AFX_DONE_(AFX_CALL_(void(WINDOWPOS*), &ThisClass::OnWindowPosChanging)(afxMsg.Data<WINDOWPOS>())))
#define ON_WM_WINDOWPOSCHANGED()                                                                                       \
    AFX_PLAIN_(WM_WINDOWPOSCHANGED,                                                                                    \
               AFX_DONE_(AFX_CALL_(void(WINDOWPOS*), &ThisClass::OnWindowPosChanged)(afxMsg.Data<WINDOWPOS>())))
#define ON_WM_ENTERSIZEMOVE() AFX_PLAIN_(WM_ENTERSIZEMOVE, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnEnterSizeMove)()))
#define ON_WM_EXITSIZEMOVE() AFX_PLAIN_(WM_EXITSIZEMOVE, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnExitSizeMove)()))
#define ON_WM_ENABLE() AFX_PLAIN_(WM_ENABLE, AFX_DONE_(AFX_CALL_(void(BOOL), &ThisClass::OnEnable)(afxMsg.Truth())))
#define ON_WM_SHOWWINDOW()                                                                                             \
    AFX_PLAIN_(WM_SHOWWINDOW, AFX_DONE_(AFX_CALL_(void(BOOL, UINT), &ThisClass::OnShowWindow)(                         \
                                  afxMsg.Truth(), static_cast<UINT>(afxMsg.lParam))))
#define ON_WM_ACTIVATE()                                                                                               \
    AFX_PLAIN_(WM_ACTIVATE,                                                                                            \
               AFX_DONE_(AFX_CALL_(void(UINT, CWnd*, BOOL), &ThisClass::OnActivate)(                                   \
                   LOWORD(afxMsg.wParam), CWnd::FromHandle(afxMsg.LowHandle()), HIWORD(afxMsg.wParam) != 0)))
#define ON_WM_ACTIVATEAPP()                                                                                            \
    AFX_PLAIN_(WM_ACTIVATEAPP, AFX_DONE_(AFX_CALL_(void(BOOL, DWORD), &ThisClass::OnActivateApp)(                      \
                                   afxMsg.Truth(), static_cast<DWORD>(afxMsg.lParam))))
#define ON_WM_MOUSEACTIVATE()                                                                                          \
    AFX_PLAIN_(WM_MOUSEACTIVATE, AFX_RESULT_(AFX_CALL_(int(CWnd*, UINT, UINT), &ThisClass::OnMouseActivate)(           \
                                     CWnd::FromHandle(afxMsg.Handle()), afxMsg.Low(), afxMsg.High())))
#define ON_WM_CANCELMODE() AFX_PLAIN_(WM_CANCELMODE, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnCancelMode)()))
#define ON_WM_CAPTURECHANGED()                                                                                         \
    AFX_PLAIN_(WM_CAPTURECHANGED,                                                                                      \
               AFX_DONE_(AFX_CALL_(void(CWnd*), &ThisClass::OnCaptureChanged)(CWnd::FromHandle(afxMsg.LowHandle()))))
#define ON_WM_SETTINGCHANGE()                                                                                          \
    AFX_PLAIN_(WM_SETTINGCHANGE, AFX_DONE_(AFX_CALL_(void(UINT, LPCTSTR), &ThisClass::OnSettingChange)(                \
                                     afxMsg.Flags(), afxMsg.Data<const TCHAR>())))
#define ON_WM_SYSCOLORCHANGE()                                                                                         \
    AFX_PLAIN_(WM_SYSCOLORCHANGE, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnSysColorChange)()))
#define ON_WM_TIMER()                                                                                                  \
    AFX_PLAIN_(WM_TIMER,                                                                                               \
               AFX_DONE_(AFX_CALL_(void(UINT_PTR), &ThisClass::OnTimer)(static_cast<UINT_PTR>(afxMsg.wParam))))
#define ON_WM_DROPFILES()                                                                                              \
    AFX_PLAIN_(WM_DROPFILES,                                                                                           \
               AFX_DONE_(AFX_CALL_(void(HDROP), &ThisClass::OnDropFiles)(reinterpret_cast<HDROP>(afxMsg.wParam))))

// --- painting -----------------------------------------------------------------------------------------------------
#define ON_WM_PAINT() AFX_PLAIN_(WM_PAINT, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnPaint)()))
#define ON_WM_ERASEBKGND()                                                                                             \
    AFX_PLAIN_(WM_ERASEBKGND,                                                                                          \
               AFX_RESULT_(AFX_CALL_(BOOL(CDC*), &ThisClass::OnEraseBkgnd)(CDC::FromHandle(afxMsg.Dc()))))
#define ON_WM_CTLCOLOR()                                                                                               \
    AFX_PLAIN_(WM_CTLCOLOR, AFX_RESULT_(AFX_CALL_(HBRUSH(CDC*, CWnd*, UINT), &ThisClass::OnCtlColor)(                  \
                                CDC::FromHandle(afxMsg.Dc()), CWnd::FromHandle(afxMsg.LowHandle()), afxMsg.nID)))
#define ON_WM_DRAWITEM()                                                                                               \
    AFX_PLAIN_(WM_DRAWITEM, AFX_DONE_(AFX_CALL_(void(int, LPDRAWITEMSTRUCT), &ThisClass::OnDrawItem)(                  \
                                static_cast<int>(afxMsg.wParam), afxMsg.Data<DRAWITEMSTRUCT>())))
#define ON_WM_MEASUREITEM()                                                                                            \
    AFX_PLAIN_(WM_MEASUREITEM, AFX_DONE_(AFX_CALL_(void(int, LPMEASUREITEMSTRUCT), &ThisClass::OnMeasureItem)(         \
                                   static_cast<int>(afxMsg.wParam), afxMsg.Data<MEASUREITEMSTRUCT>())))
#define ON_WM_COMPAREITEM()                                                                                            \
    AFX_PLAIN_(WM_COMPAREITEM, AFX_RESULT_(AFX_CALL_(int(int, LPCOMPAREITEMSTRUCT), &ThisClass::OnCompareItem)(        \
                                   static_cast<int>(afxMsg.wParam), afxMsg.Data<COMPAREITEMSTRUCT>())))
#define ON_WM_DELETEITEM()                                                                                             \
    AFX_PLAIN_(WM_DELETEITEM, AFX_DONE_(AFX_CALL_(void(int, LPDELETEITEMSTRUCT), &ThisClass::OnDeleteItem)(            \
                                  static_cast<int>(afxMsg.wParam), afxMsg.Data<DELETEITEMSTRUCT>())))

// --- the frame around the client area -------------------------------------------------------------------------------
#define ON_WM_NCHITTEST()                                                                                              \
    AFX_PLAIN_(WM_NCHITTEST,                                                                                           \
               AFX_RESULT_(AFX_CALL_(LRESULT(CPoint), &ThisClass::OnNcHitTest)(CPoint(afxMsg.X(), afxMsg.Y()))))
#define ON_WM_NCPAINT() AFX_PLAIN_(WM_NCPAINT, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnNcPaint)()))
#define ON_WM_NCCALCSIZE()                                                                                             \
    AFX_PLAIN_(WM_NCCALCSIZE, AFX_DONE_(AFX_CALL_(void(BOOL, NCCALCSIZE_PARAMS*), &ThisClass::OnNcCalcSize)(           \
                                  afxMsg.Truth(), afxMsg.Data<NCCALCSIZE_PARAMS>())))
#define ON_WM_NCACTIVATE()                                                                                             \
    AFX_PLAIN_(WM_NCACTIVATE, AFX_RESULT_(AFX_CALL_(BOOL(BOOL), &ThisClass::OnNcActivate)(afxMsg.Truth())))
#define AFX_NC_MOUSE_(message, fn)                                                                                     \
    AFX_PLAIN_(message, AFX_DONE_(AFX_CALL_(void(UINT, CPoint), fn)(afxMsg.Flags(), CPoint(afxMsg.X(), afxMsg.Y()))))
#define ON_WM_NCMOUSEMOVE() AFX_NC_MOUSE_(WM_NCMOUSEMOVE, &ThisClass::OnNcMouseMove)
#define ON_WM_NCLBUTTONDOWN() AFX_NC_MOUSE_(WM_NCLBUTTONDOWN, &ThisClass::OnNcLButtonDown)
#define ON_WM_NCLBUTTONUP() AFX_NC_MOUSE_(WM_NCLBUTTONUP, &ThisClass::OnNcLButtonUp)
#define ON_WM_NCLBUTTONDBLCLK() AFX_NC_MOUSE_(WM_NCLBUTTONDBLCLK, &ThisClass::OnNcLButtonDblClk)
#define ON_WM_NCRBUTTONDOWN() AFX_NC_MOUSE_(WM_NCRBUTTONDOWN, &ThisClass::OnNcRButtonDown)

// --- mouse ----------------------------------------------------------------------------------------------------------
#define ON_WM_SETCURSOR()                                                                                              \
    AFX_PLAIN_(WM_SETCURSOR, AFX_RESULT_(AFX_CALL_(BOOL(CWnd*, UINT, UINT), &ThisClass::OnSetCursor)(                  \
                                 CWnd::FromHandle(afxMsg.Handle()), afxMsg.Low(), afxMsg.High())))
#define ON_WM_MOUSEMOVE() AFX_NC_MOUSE_(WM_MOUSEMOVE, &ThisClass::OnMouseMove)
#define ON_WM_MOUSELEAVE() AFX_PLAIN_(WM_MOUSELEAVE, AFX_DONE_(AFX_CALL_(void(), &ThisClass::OnMouseLeave)()))
/// OnMouseWheel answers FALSE to leave the message to the default, which passes it to the parent.
#define ON_WM_MOUSEWHEEL()                                                                                             \
    AFX_PLAIN_(WM_MOUSEWHEEL,                                                                                          \
               AFX_UNLESS_ZERO_(AFX_CALL_(BOOL(UINT, short, CPoint), &ThisClass::OnMouseWheel)(                        \
                   LOWORD(afxMsg.wParam), static_cast<short>(HIWORD(afxMsg.wParam)), CPoint(afxMsg.X(), afxMsg.Y()))))
#define ON_WM_LBUTTONDOWN() AFX_NC_MOUSE_(WM_LBUTTONDOWN, &ThisClass::OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_NC_MOUSE_(WM_LBUTTONUP, &ThisClass::OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_NC_MOUSE_(WM_LBUTTONDBLCLK, &ThisClass::OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_NC_MOUSE_(WM_RBUTTONDOWN, &ThisClass::OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_NC_MOUSE_(WM_RBUTTONUP, &ThisClass::OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_NC_MOUSE_(WM_RBUTTONDBLCLK, &ThisClass::OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_NC_MOUSE_(WM_MBUTTONDOWN, &ThisClass::OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_NC_MOUSE_(WM_MBUTTONUP, &ThisClass::OnMButtonUp)

// --- keyboard -------------------------------------------------------------------------------------------------------
#define ON_WM_SETFOCUS()                                                                                               \
    AFX_PLAIN_(WM_SETFOCUS,                                                                                            \
               AFX_DONE_(AFX_CALL_(void(CWnd*), &ThisClass::OnSetFocus)(CWnd::FromHandle(afxMsg.Handle()))))
#define ON_WM_KILLFOCUS()                                                                                              \
    AFX_PLAIN_(WM_KILLFOCUS,                                                                                           \
               AFX_DONE_(AFX_CALL_(void(CWnd*), &ThisClass::OnKillFocus)(CWnd::FromHandle(afxMsg.Handle()))))
#define AFX_KEY_(message, fn)                                                                                          \
    AFX_PLAIN_(message, AFX_DONE_(AFX_CALL_(void(UINT, UINT, UINT), fn)(afxMsg.Flags(), afxMsg.Low(), afxMsg.High())))
#define ON_WM_CHAR() AFX_KEY_(WM_CHAR, &ThisClass::OnChar)
#define ON_WM_KEYDOWN() AFX_KEY_(WM_KEYDOWN, &ThisClass::OnKeyDown)
#define ON_WM_KEYUP() AFX_KEY_(WM_KEYUP, &ThisClass::OnKeyUp)
#define ON_WM_SYSCHAR() AFX_KEY_(WM_SYSCHAR, &ThisClass::OnSysChar)
#define ON_WM_SYSKEYDOWN() AFX_KEY_(WM_SYSKEYDOWN, &ThisClass::OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_KEY_(WM_SYSKEYUP, &ThisClass::OnSysKeyUp)
#define ON_WM_GETDLGCODE() AFX_PLAIN_(WM_GETDLGCODE, AFX_RESULT_(AFX_CALL_(UINT(), &ThisClass::OnGetDlgCode)()))

// --- scroll bars, menus, children
// -------------------------------------------------------------------------------------
#define AFX_SCROLL_(message, fn)                                                                                       \
    AFX_PLAIN_(message, AFX_DONE_(AFX_CALL_(void(UINT, UINT, CScrollBar*),                                             \
                                            fn)(LOWORD(afxMsg.wParam), HIWORD(afxMsg.wParam),                          \
                                                static_cast<CScrollBar*>(CWnd::FromHandle(afxMsg.LowHandle())))))
#define ON_WM_HSCROLL() AFX_SCROLL_(WM_HSCROLL, &ThisClass::OnHScroll)
#define ON_WM_VSCROLL() AFX_SCROLL_(WM_VSCROLL, &ThisClass::OnVScroll)
/// The handler's first argument is the whole wParam: the child's id stands in its high word.
#define ON_WM_PARENTNOTIFY()                                                                                           \
    AFX_PLAIN_(WM_PARENTNOTIFY,                                                                                        \
               AFX_DONE_(AFX_CALL_(void(UINT, LPARAM), &ThisClass::OnParentNotify)(afxMsg.Flags(), afxMsg.lParam)))
#define ON_WM_CONTEXTMENU()                                                                                            \
    AFX_PLAIN_(WM_CONTEXTMENU, AFX_DONE_(AFX_CALL_(void(CWnd*, CPoint), &ThisClass::OnContextMenu)(                    \
                                   CWnd::FromHandle(afxMsg.Handle()), CPoint(afxMsg.X(), afxMsg.Y()))))
#define ON_WM_INITMENU()                                                                                               \
    AFX_PLAIN_(WM_INITMENU, AFX_DONE_(AFX_CALL_(void(CMenu*), &ThisClass::OnInitMenu)(                                 \
                                CMenu::FromHandle(reinterpret_cast<HMENU>(afxMsg.wParam)))))
#define ON_WM_INITMENUPOPUP()                                                                                          \
    AFX_PLAIN_(WM_INITMENUPOPUP,                                                                                       \
               AFX_DONE_(AFX_CALL_(void(CMenu*, UINT, BOOL), &ThisClass::OnInitMenuPopup)(                             \
                   CMenu::FromHandle(reinterpret_cast<HMENU>(afxMsg.wParam)), afxMsg.Low(), afxMsg.High() != 0)))
#define ON_WM_MENUSELECT()                                                                                             \
    AFX_PLAIN_(WM_MENUSELECT,                                                                                          \
               AFX_DONE_(AFX_CALL_(void(UINT, UINT, HMENU), &ThisClass::OnMenuSelect)(                                 \
                   LOWORD(afxMsg.wParam), HIWORD(afxMsg.wParam), reinterpret_cast<HMENU>(afxMsg.lParam))))
#define ON_WM_SYSCOMMAND()                                                                                             \
    AFX_PLAIN_(WM_SYSCOMMAND,                                                                                          \
               AFX_DONE_(AFX_CALL_(void(UINT, LPARAM), &ThisClass::OnSysCommand)(afxMsg.Flags(), afxMsg.lParam)))

// --- messages by number
// -----------------------------------------------------------------------------------------------
/// LRESULT fn(WPARAM, LPARAM)
#define ON_MESSAGE(number, fn)                                                                                         \
    AFX_PLAIN_(number, AFX_RESULT_(AFX_CALL_(LRESULT(WPARAM, LPARAM), fn)(afxMsg.wParam, afxMsg.lParam)))
/// LRESULT fn(WPARAM, LPARAM); the entry holds the address of the variable, so its value may come later than the map.
#define ON_REGISTERED_MESSAGE(variable, fn)                                                                            \
    {AFX_REGISTERED_MESSAGE,                                                                                           \
     0,                                                                                                                \
     0,                                                                                                                \
     0,                                                                                                                \
     &variable,                                                                                                        \
     AFX_RESULT_(AFX_CALL_(LRESULT(WPARAM, LPARAM), fn)(afxMsg.wParam, afxMsg.lParam))},

// --- commands
// -----------------------------------------------------------------------------------------------------------
/// void fn()
#define ON_COMMAND(id, fn) AFX_NUMBERED_(WM_COMMAND, CN_COMMAND, id, id, AFX_DONE_(AFX_CALL_(void(), fn)()))
/// void fn(UINT id)
#define ON_COMMAND_RANGE(first, last, fn)                                                                              \
    AFX_NUMBERED_(WM_COMMAND, CN_COMMAND, first, last, AFX_DONE_(AFX_CALL_(void(UINT), fn)(afxMsg.nID)))
/// BOOL fn(UINT id); FALSE lets the command go on.
#define ON_COMMAND_EX(id, fn)                                                                                          \
    AFX_NUMBERED_(WM_COMMAND, CN_COMMAND, id, id, AFX_ASK_(AFX_CALL_(BOOL(UINT), fn)(afxMsg.nID)))
/// BOOL fn(UINT id); FALSE lets the command go on.
#define ON_COMMAND_EX_RANGE(first, last, fn)                                                                           \
    AFX_NUMBERED_(WM_COMMAND, CN_COMMAND, first, last, AFX_ASK_(AFX_CALL_(BOOL(UINT), fn)(afxMsg.nID)))
/// void fn(CCmdUI*)
#define ON_UPDATE_COMMAND_UI(id, fn) ON_UPDATE_COMMAND_UI_RANGE(id, id, fn)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, fn)                                                                    \
    {                                                                                                                  \
        WM_COMMAND, static_cast<UINT>(CN_UPDATE_COMMAND_UI), static_cast<UINT>(first), static_cast<UINT>(last),        \
            nullptr,                                                                                                   \
            AFX_THUNK_(CCmdUI* const afxUi = static_cast<CCmdUI*>(afxMsg.pExtra); afxUi->m_bContinueRouting = FALSE;   \
                       AFX_CALL_(void(CCmdUI*), fn)(afxUi); const bool afxTaken = afxUi->m_bContinueRouting == FALSE;  \
                       afxUi->m_bContinueRouting = FALSE; return afxTaken;)                                            \
    }                                                                                                                  \
    ,

// --- notifications of controls, in the parent
// ---------------------------------------------------------------------------
/// void fn()
#define ON_CONTROL(code, id, fn) AFX_NUMBERED_(WM_COMMAND, code, id, id, AFX_DONE_(AFX_CALL_(void(), fn)()))
/// void fn(UINT id)
#define ON_CONTROL_RANGE(code, first, last, fn)                                                                        \
    AFX_NUMBERED_(WM_COMMAND, code, first, last, AFX_DONE_(AFX_CALL_(void(UINT), fn)(afxMsg.nID)))
#define AFX_NOTIFY_ARGS_                                                                                               \
    static_cast<AFX_NOTIFY*>(afxMsg.pExtra)->pNMHDR, static_cast<AFX_NOTIFY*>(afxMsg.pExtra)->pResult
/// void fn(NMHDR*, LRESULT*)
#define ON_NOTIFY(code, id, fn)                                                                                        \
    AFX_NUMBERED_(WM_NOTIFY, code, id, id, AFX_DONE_(AFX_CALL_(void(NMHDR*, LRESULT*), fn)(AFX_NOTIFY_ARGS_)))
/// void fn(UINT id, NMHDR*, LRESULT*)
#define ON_NOTIFY_RANGE(code, first, last, fn)                                                                         \
    AFX_NUMBERED_(WM_NOTIFY, code, first, last,                                                                        \
                  AFX_DONE_(AFX_CALL_(void(UINT, NMHDR*, LRESULT*), fn)(afxMsg.nID, AFX_NOTIFY_ARGS_)))
/// BOOL fn(UINT id, NMHDR*, LRESULT*); FALSE lets the notification go on.
#define ON_NOTIFY_EX(code, id, fn) ON_NOTIFY_EX_RANGE(code, id, id, fn)
#define ON_NOTIFY_EX_RANGE(code, first, last, fn)                                                                      \
    AFX_NUMBERED_(WM_NOTIFY, code, first, last,                                                                        \
                  AFX_ASK_(AFX_CALL_(BOOL(UINT, NMHDR*, LRESULT*), fn)(afxMsg.nID, AFX_NOTIFY_ARGS_)))

#define ON_BN_CLICKED(id, fn) ON_CONTROL(BN_CLICKED, id, fn)
#define ON_BN_DOUBLECLICKED(id, fn) ON_CONTROL(BN_DOUBLECLICKED, id, fn)
#define ON_BN_SETFOCUS(id, fn) ON_CONTROL(BN_SETFOCUS, id, fn)
#define ON_BN_KILLFOCUS(id, fn) ON_CONTROL(BN_KILLFOCUS, id, fn)
#define ON_EN_CHANGE(id, fn) ON_CONTROL(EN_CHANGE, id, fn)
#define ON_EN_UPDATE(id, fn) ON_CONTROL(EN_UPDATE, id, fn)
#define ON_EN_SETFOCUS(id, fn) ON_CONTROL(EN_SETFOCUS, id, fn)
#define ON_EN_KILLFOCUS(id, fn) ON_CONTROL(EN_KILLFOCUS, id, fn)
#define ON_LBN_SELCHANGE(id, fn) ON_CONTROL(LBN_SELCHANGE, id, fn)
#define ON_LBN_DBLCLK(id, fn) ON_CONTROL(LBN_DBLCLK, id, fn)
#define ON_CBN_SELCHANGE(id, fn) ON_CONTROL(CBN_SELCHANGE, id, fn)
#define ON_CBN_SELENDOK(id, fn) ON_CONTROL(CBN_SELENDOK, id, fn)
#define ON_CBN_SELENDCANCEL(id, fn) ON_CONTROL(CBN_SELENDCANCEL, id, fn)
#define ON_CBN_EDITCHANGE(id, fn) ON_CONTROL(CBN_EDITCHANGE, id, fn)
#define ON_CBN_EDITUPDATE(id, fn) ON_CONTROL(CBN_EDITUPDATE, id, fn)
#define ON_CBN_DROPDOWN(id, fn) ON_CONTROL(CBN_DROPDOWN, id, fn)
#define ON_CBN_CLOSEUP(id, fn) ON_CONTROL(CBN_CLOSEUP, id, fn)
#define ON_STN_CLICKED(id, fn) ON_CONTROL(STN_CLICKED, id, fn)

// --- the same notifications, handed back to the control that sent them
// ---------------------------------------------------
/// void fn(); the parent doesn't see the notification.
#define ON_CONTROL_REFLECT(code, fn)                                                                                   \
    AFX_NUMBERED_(WM_REFLECT_BASE + WM_COMMAND, code, 0, 0, AFX_DONE_(AFX_CALL_(void(), fn)()))
/// BOOL fn(); FALSE lets the parent see it too.
#define ON_CONTROL_REFLECT_EX(code, fn)                                                                                \
    AFX_NUMBERED_(WM_REFLECT_BASE + WM_COMMAND, code, 0, 0, AFX_ASK_(AFX_CALL_(BOOL(), fn)()))
/// void fn(NMHDR*, LRESULT*); the parent doesn't see the notification.
#define ON_NOTIFY_REFLECT(code, fn)                                                                                    \
    AFX_NUMBERED_(WM_REFLECT_BASE + WM_NOTIFY, code, 0, 0,                                                             \
                  AFX_DONE_(AFX_CALL_(void(NMHDR*, LRESULT*), fn)(AFX_NOTIFY_ARGS_)))
/// BOOL fn(NMHDR*, LRESULT*); FALSE lets the parent see it too.
#define ON_NOTIFY_REFLECT_EX(code, fn)                                                                                 \
    AFX_NUMBERED_(WM_REFLECT_BASE + WM_NOTIFY, code, 0, 0,                                                             \
                  AFX_ASK_(AFX_CALL_(BOOL(NMHDR*, LRESULT*), fn)(AFX_NOTIFY_ARGS_)))
/// HBRUSH CtlColor(CDC*, UINT); a null brush leaves the colours to the parent.
#define ON_WM_CTLCOLOR_REFLECT()                                                                                       \
    AFX_PLAIN_(WM_REFLECT_BASE + WM_CTLCOLOR, AFX_UNLESS_ZERO_(AFX_CALL_(HBRUSH(CDC*, UINT), &ThisClass::CtlColor)(    \
                                                  CDC::FromHandle(afxMsg.Dc()), afxMsg.nID)))
/// void HScroll(UINT code, UINT position)
#define ON_WM_HSCROLL_REFLECT()                                                                                        \
    AFX_PLAIN_(WM_REFLECT_BASE + WM_HSCROLL, AFX_DONE_(AFX_CALL_(void(UINT, UINT), &ThisClass::HScroll)(               \
                                                 LOWORD(afxMsg.wParam), HIWORD(afxMsg.wParam))))
/// void VScroll(UINT code, UINT position)
#define ON_WM_VSCROLL_REFLECT()                                                                                        \
    AFX_PLAIN_(WM_REFLECT_BASE + WM_VSCROLL, AFX_DONE_(AFX_CALL_(void(UINT, UINT), &ThisClass::VScroll)(               \
                                                 LOWORD(afxMsg.wParam), HIWORD(afxMsg.wParam))))
/// void ParentNotify(UINT message, LPARAM)
#define ON_WM_PARENTNOTIFY_REFLECT()                                                                                   \
    AFX_PLAIN_(WM_REFLECT_BASE + WM_PARENTNOTIFY,                                                                      \
               AFX_DONE_(AFX_CALL_(void(UINT, LPARAM), &ThisClass::ParentNotify)(afxMsg.Flags(), afxMsg.lParam)))
