// WndCreate.cpp - CWnd: the tie between object and window: maps, creation, subclassing, end

#include <afxcount.h>
#include <afxwin.h>

#include "impl/HandlerGuard.h"
#include "impl/WndMap.h"

#include <mutex>
#include <set>
#include <string>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

namespace
{
/// Answer of a creation hook that keeps the window from being made.
constexpr LRESULT kRefuseCreation = 1;

/// The input method's window, which the system makes by itself in front of a thread's first window.
bool IsInputMethodWindow(HWND hWnd)
{
    char name[8] = "";
    ::GetClassNameA(hWnd, name, sizeof name);
    return ::lstrcmpiA(name, "IME") == 0;
}

void DropCreateHook(AFX_THREAD_STATE& state)
{
    if (state.m_hHookCreate != nullptr)
    {
        ::UnhookWindowsHookEx(state.m_hHookCreate);
        state.m_hHookCreate = nullptr;
    }
}

/// Gives the waiting object its window before the window's first message.
LRESULT CALLBACK CreateHook(int code, WPARAM wParam, LPARAM lParam)
{
    AFX_THREAD_STATE& state = *AfxGetThreadState();
    const LRESULT result = ::CallNextHookEx(state.m_hHookCreate, code, wParam, lParam);
    const HWND hWnd = reinterpret_cast<HWND>(wParam);
    if (code != HCBT_CREATEWND || state.m_pWndInit == nullptr || IsInputMethodWindow(hWnd))
    {
        return result;
    }
    CWnd* const wnd = state.m_pWndInit;
    state.m_pWndInit = nullptr;
    DropCreateHook(state); // the children that the window makes needn't pass through here
    bool attached = false;
    MSG msg = {};
    msg.hwnd = hWnd;
    msg.message = WM_NCCREATE;
    AfxGuardHandler(msg, [&] {
        attached = wnd->SubclassWindow(hWnd) != FALSE;
        return LRESULT{0};
    });
    if (!attached)
    {
        if (wnd->m_hWnd == hWnd)
        {
            wnd->UnsubclassWindow();
        }
        state.m_pWndInit = wnd; // it is still without a window
        return kRefuseCreation;
    }
    return result;
}
} // namespace

CWnd::CWnd() = default;

CWnd::CWnd(HWND hWndSpecial) : m_special(true) { m_hWnd = hWndSpecial; }

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && !m_special)
    {
        DestroyWindow();
        if (m_hWnd != nullptr)
        {
            UnsubclassWindow(); // a window in the midst of its end, or another thread's, outlives the object
        }
    }
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd) { return AfxWndMap().FromHandle(hWnd); }

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd)
{
    return hWnd == nullptr ? nullptr : AfxWndMap().LookupPermanent(hWnd);
}

BOOL CWnd::Attach(HWND hWnd)
{
    if (hWnd == nullptr || FromHandlePermanent(hWnd) != nullptr)
    {
        return FALSE;
    }
    ASSERT(m_hWnd == nullptr);
    m_hWnd = hWnd;
    AfxWndMap().SetPermanent(hWnd, this);
    AfxCountCreated(AfxResource::Window);
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND hWnd = m_hWnd;
    if (FromHandlePermanent(hWnd) == this)
    {
        AfxWndMap().RemoveHandle(hWnd);
        AfxCountReleased(AfxResource::Window);
    }
    m_hWnd = nullptr;
    return hWnd;
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
    {
        return FALSE;
    }
    PreSubclassWindow();
    const auto direct = reinterpret_cast<WNDPROC>(::IsWindowUnicode(hWnd) ? ::GetWindowLongPtrW(hWnd, GWLP_WNDPROC)
                                                                          : ::GetWindowLongPtrA(hWnd, GWLP_WNDPROC));
    const auto before =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (before != &AfxWndProc)
    {
        *GetSuperWndProcAddr() = before;
        m_pfnDirect = direct;
    }
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    return SubclassWindow(::GetDlgItem(pParent->GetSafeHwnd(), static_cast<int>(nID)));
}

HWND CWnd::UnsubclassWindow()
{
    WNDPROC* const super = GetSuperWndProcAddr();
    if (m_hWnd != nullptr && *super != nullptr)
    {
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*super));
        *super = nullptr;
        m_pfnDirect = nullptr;
    }
    return Detach();
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, CCreateContext* pContext)
{
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd->GetSafeHwnd(),
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    ASSERT(m_hWnd == nullptr);
    CREATESTRUCTA cs = {};
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = static_cast<LONG>(dwStyle);
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs))
    {
        PostNcDestroy();
        return FALSE;
    }
    AfxHookWindowCreate(this);
    const HWND hWnd = ::CreateWindowExA(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x,
                                        cs.y, cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    // A window that refused to be created has run OnNcDestroy: the object may be gone. Only one that never met its
    // window is still there for certain.
    if (!AfxUnhookWindowCreate())
    {
        PostNcDestroy();
    }
    return hWnd != nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
    {
        cs.lpszClass =
            AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)));
    }
    return cs.lpszClass != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr)
    {
        return FALSE;
    }
    const bool permanent = FromHandlePermanent(m_hWnd) == this;
    const BOOL destroyed = ::DestroyWindow(m_hWnd);
    if (!permanent)
    {
        m_hWnd = nullptr; // a temporary object isn't told; a permanent one may be gone by now
    }
    return destroyed;
}

void CWnd::PostNcDestroy() {}

void AFXAPI AfxHookWindowCreate(CWnd* pWnd)
{
    AFX_THREAD_STATE& state = *AfxGetThreadState();
    state.m_pWndInit = pWnd;
    if (state.m_hHookCreate == nullptr)
    {
        state.m_hHookCreate = ::SetWindowsHookExA(WH_CBT, &CreateHook, nullptr, ::GetCurrentThreadId());
    }
    if (state.m_hHookCreate == nullptr)
    {
        state.m_pWndInit = nullptr;
        AfxThrowMemoryException();
    }
}

BOOL AFXAPI AfxUnhookWindowCreate()
{
    AFX_THREAD_STATE& state = *AfxGetThreadState();
    DropCreateHook(state);
    const bool attached = state.m_pWndInit == nullptr;
    state.m_pWndInit = nullptr;
    return attached;
}

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass)
{
    WNDCLASSA known;
    if (::GetClassInfoA(lpWndClass->hInstance, lpWndClass->lpszClassName, &known))
    {
        return TRUE;
    }
    return ::RegisterClassA(lpWndClass) != 0;
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    CString name;
    name.Format("TavAfx:%p:%x:%p:%p:%p", static_cast<void*>(AfxGetInstanceHandle()), nClassStyle,
                static_cast<void*>(hCursor), static_cast<void*>(hbrBackground), static_cast<void*>(hIcon));
    WNDCLASSA cls = {};
    cls.style = nClassStyle;
    cls.lpfnWndProc = &::DefWindowProcA;
    cls.hInstance = AfxGetInstanceHandle();
    cls.hIcon = hIcon;
    cls.hCursor = hCursor;
    cls.hbrBackground = hbrBackground;
    cls.lpszClassName = name;
    if (!AfxRegisterClass(&cls))
    {
        AfxThrowResourceException();
    }
    static std::mutex mutex;
    static std::set<std::string, std::less<>> names; // their texts stay where they are
    const std::lock_guard lock(mutex);
    return names.emplace(static_cast<LPCTSTR>(name)).first->c_str();
}
