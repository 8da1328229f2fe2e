#include "afxbars.h"

#include "impl/CommonControls.h"
#include "impl/ControlMessages.h"
#include <cstring>

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

CToolInfo::CToolInfo() : TOOLINFO{}, szText{}
{
    cbSize = TTTOOLINFOA_V2_SIZE; // versions before 6 refuse the whole structure
    lpszText = szText;
}

CToolInfo::CToolInfo(const CToolInfo& other) : CToolInfo() { *this = other; }

CToolInfo& CToolInfo::operator=(const CToolInfo& other)
{
    if (this != &other)
    {
        static_cast<TOOLINFO&>(*this) = other;
        std::memcpy(szText, other.szText, sizeof(szText));
        if (other.lpszText == other.szText)
        {
            lpszText = szText; // the copy shows its own text
        }
    }
    return *this;
}

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    AfxInitCommonControls();
    return CreateEx(0, TOOLTIPS_CLASS, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                    CW_USEDEFAULT, pParentWnd->GetSafeHwnd(), nullptr);
}

void CToolTipCtrl::Activate(BOOL bActivate) { Ask(*this, TTM_ACTIVATE, bActivate); }

void CToolTipCtrl::SetDelayTime(DWORD dwDuration, int iTime) { Ask(*this, TTM_SETDELAYTIME, dwDuration, iTime); }

void CToolTipCtrl::FillToolInfo(TOOLINFO& info, CWnd* pWnd, UINT_PTR nIDTool)
{
    const HWND window = pWnd->GetSafeHwnd();
    info.cbSize = TTTOOLINFOA_V2_SIZE;
    if (nIDTool == 0)
    {
        info.hwnd = ::GetParent(window);
        info.uFlags = TTF_IDISHWND;
        info.uId = reinterpret_cast<UINT_PTR>(window);
    }
    else
    {
        info.hwnd = window;
        info.uId = nIDTool;
    }
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    TOOLINFO info = {};
    FillToolInfo(info, pWnd, nIDTool);
    if (lpRectTool != nullptr)
    {
        info.rect = *lpRectTool;
    }
    info.lpszText = const_cast<LPTSTR>(lpszText);
    return AskInt(*this, TTM_ADDTOOL, 0, &info);
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO info = {};
    FillToolInfo(info, pWnd, nIDTool);
    Ask(*this, TTM_DELTOOL, 0, &info);
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO info = {};
    FillToolInfo(info, pWnd, nIDTool);
    info.lpszText = const_cast<LPTSTR>(lpszText);
    Ask(*this, TTM_UPDATETIPTEXT, 0, &info);
}

int CToolTipCtrl::GetToolCount() const { return AskInt(*this, TTM_GETTOOLCOUNT); }

BOOL CToolTipCtrl::GetToolInfo(CToolInfo& toolInfo, CWnd* pWnd, UINT_PTR nIDTool) const
{
    toolInfo = CToolInfo();
    FillToolInfo(toolInfo, pWnd, nIDTool);
    return AskInt(*this, TTM_GETTOOLINFO, 0, static_cast<TOOLINFO*>(&toolInfo));
}

void CToolTipCtrl::SetToolInfo(LPTOOLINFO lpToolInfo) { Ask(*this, TTM_SETTOOLINFO, 0, lpToolInfo); }

void CToolTipCtrl::RelayEvent(LPMSG lpMsg) { Ask(*this, TTM_RELAYEVENT, 0, lpMsg); }

void CToolTipCtrl::Update() { Ask(*this, TTM_UPDATE); }

void CToolTipCtrl::Pop() { Ask(*this, TTM_POP); }
