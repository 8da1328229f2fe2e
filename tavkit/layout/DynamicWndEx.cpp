#include "tavkit/layout/DynamicWndEx.h"

#include "tavkit/layout/WindowRecord.h"

namespace
{

// Keys of a record, in the order in which they are written. "(valid)" is written first and last.
constexpr char kValid[] = "(valid)";
constexpr char kLeft[] = "Left";
constexpr char kRight[] = "Right";
constexpr char kTop[] = "Top";
constexpr char kBottom[] = "Bottom";
constexpr char kVisibility[] = "Visibility";
constexpr char kState[] = "State";

// Values of "State".
constexpr int kMinimised = 0;
constexpr int kMaximised = 1;
constexpr int kNormal = -1;

/// No show command: the window stays as it is shown.
constexpr UINT kNoShowCommand = SW_SHOWNA;

constexpr UINT kMoveFlags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER;

/// The application, if it keeps a profile under a registry key.
CWinApp* AppWithKey()
{
    CWinApp* app = AfxGetApp();
    return app != nullptr && app->m_pszRegistryKey != nullptr && *app->m_pszRegistryKey != 0 ? app : nullptr;
}

bool IsEmpty(char const* text) { return text == nullptr || *text == 0; }

bool Placement(CWnd& window, WINDOWPLACEMENT& placement)
{
    placement = {};
    placement.length = sizeof placement;
    return window.GetWindowPlacement(&placement) != FALSE;
}

RECT VirtualScreen()
{
    const int left = ::GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = ::GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {left, top, left + ::GetSystemMetrics(SM_CXVIRTUALSCREEN), top + ::GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

int ProfileInt(CWinApp& app, char const* section, char const* key, int otherwise)
{
    return static_cast<int>(app.GetProfileInt(section, key, otherwise));
}

UINT ShowCommandOf(int state)
{
    switch (state)
    {
    case kMaximised:
        return SW_MAXIMIZE;
    case kMinimised:
        return SW_MINIMIZE;
    default:
        return kNoShowCommand;
    }
}

} // namespace

cdxCDynamicWndEx::cdxCDynamicWndEx(Freedom freedom, UINT nFlags) : cdxCDynamicWnd(freedom, nFlags) {}

cdxCDynamicWndEx::~cdxCDynamicWndEx() { DoOnDestroy(); }

void cdxCDynamicWndEx::ActivateAutoPos(UINT id) { m_strAutoPos.Format("ID=0x%08x", id); }

void cdxCDynamicWndEx::ActivateAutoPos(CString const& name) { m_strAutoPos = name; }

void cdxCDynamicWndEx::NoAutoPos() { m_strAutoPos.Empty(); }

CString cdxCDynamicWndEx::AutoPosSection() const
{
    CString section(M_lpszAutoPosProfileSection);
    if (section.Right(1) != "\\")
    {
        section += '\\';
    }
    return section + m_strAutoPos;
}

bool cdxCDynamicWndEx::StoreWindowPosition(char const* name)
{
    // A minimised window is stored as well: that is what state 0 is for.
    WINDOWPLACEMENT placement;
    if (!IsWindow() || IsEmpty(name) || !Placement(*Window(), placement))
    {
        return false;
    }
    const bool visible = Window()->IsWindowVisible() != FALSE;
    const int state = Window()->IsIconic() ? kMinimised : Window()->IsZoomed() ? kMaximised : kNormal;
    CWinApp* app = AppWithKey();
    if (app == nullptr)
    {
        return false;
    }
    const RECT& normal = placement.rcNormalPosition;
    const struct
    {
        char const* key;
        int value;
    } record[] = {{kValid, 0},
                  {kLeft, normal.left},
                  {kRight, normal.right},
                  {kTop, normal.top},
                  {kBottom, normal.bottom},
                  {kVisibility, visible ? 1 : 0},
                  {kState, state},
                  {kValid, 1}};
    for (const auto& entry : record)
    {
        if (!app->WriteProfileInt(name, entry.key, entry.value))
        {
            return false;
        }
    }
    return true;
}

bool cdxCDynamicWndEx::RestoreWindowPosition(char const* name, UINT nFlags)
{
    CWinApp* app = AppWithKey();
    WINDOWPLACEMENT placement;
    if (!IsWindow() || IsEmpty(name) || app == nullptr || ProfileInt(*app, name, kValid, 0) != 1 ||
        !Placement(*Window(), placement))
    {
        return false;
    }
    const int state = ProfileInt(*app, name, kState, kNormal);
    const RECT& present = placement.rcNormalPosition;
    const CRect rect = tavkit::NormalizedRect(
        {ProfileInt(*app, name, kLeft, present.left), ProfileInt(*app, name, kTop, present.top),
         ProfileInt(*app, name, kRight, present.right), ProfileInt(*app, name, kBottom, present.bottom)});
    const UINT show = (nFlags & RestoreState) != 0 ? ShowCommandOf(state) : kNoShowCommand;
    if (!tavkit::IsReachable(rect, VirtualScreen()))
    {
        return false;
    }
    Window()->MoveWindow(rect, show == kNoShowCommand);
    if (show != kNoShowCommand && IsWindow() && Placement(*Window(), placement))
    {
        placement.showCmd = show;
        Window()->SetWindowPlacement(&placement);
    }
    if ((nFlags & RestoreVisibility) != 0 && IsWindow())
    {
        switch (ProfileInt(*app, name, kVisibility, -1))
        {
        case 1:
            Window()->ShowWindow(SW_SHOW);
            break;
        case 0:
            Window()->ShowWindow(SW_HIDE);
            break;
        default:
            break;
        }
    }
    return true;
}

bool cdxCDynamicWndEx::StretchWindow(CSize const& sz)
{
    WINDOWPLACEMENT placement;
    if (!IsWindow() || !Placement(*Window(), placement))
    {
        return false;
    }
    const auto stretched = tavkit::StretchedRect(placement.rcNormalPosition, sz);
    if (!stretched)
    {
        return false;
    }
    const CRect rect(*stretched);
    return Window()->SetWindowPos(nullptr, rect.left, rect.top, rect.Width(), rect.Height(), kMoveFlags) != FALSE;
}

bool cdxCDynamicWndEx::StretchWindow(int nPercent)
{
    return IsWindow() && StretchWindow(CSize(tavkit::PercentOf(GetCurrentClientSize() + GetBorderSize(), nPercent)));
}

void cdxCDynamicWndEx::OnInitialized()
{
    if (m_strAutoPos.IsEmpty() || RestoreWindowPosition(AutoPosSection(), RestoreState | RestoreVisibility))
    {
        return;
    }
    if (IsWindow())
    {
        Window()->CenterWindow(nullptr);
        StretchWindow(FirstStretchPercent);
    }
}

void cdxCDynamicWndEx::OnDestroying()
{
    if (!m_strAutoPos.IsEmpty() && IsWindow())
    {
        StoreWindowPosition(AutoPosSection());
    }
}
