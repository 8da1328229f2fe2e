#include "tavkit/layout/DynamicWnd.h"

#include "tavkit/layout/Placement.h"

signed char const cdxCDynamicWnd::TopLeft[4] = {0, 0, 0, 0};
signed char const cdxCDynamicWnd::TopRight[4] = {100, 0, 100, 0};
signed char const cdxCDynamicWnd::BotLeft[4] = {0, 100, 0, 100};
signed char const cdxCDynamicWnd::BotRight[4] = {100, 100, 100, 100};

namespace
{

constexpr UINT kMoveFlags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER;
constexpr UINT kRedrawBits = CS_VREDRAW | CS_HREDRAW;

/// Kinds of rows in a declaration table.
enum : int
{
    kTableEnd = 0,
    kTablePercentages = 1,
    kTableModes = 2
};

struct EdgePair
{
    signed char first;
    signed char second;
};

EdgePair PercentagesOf(int mode)
{
    switch (mode)
    {
    case cdxCDynamicWnd::ModeStretch:
        return {0, 100};
    case cdxCDynamicWnd::ModeFollow:
        return {100, 100};
    case cdxCDynamicWnd::ModeHalf:
        return {50, 50};
    default:
        return {0, 0};
    }
}

/// A child's rectangle in its parent's client coordinates. False when the window is gone.
bool ChildRect(HWND hWnd, CRect& rect)
{
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!::GetWindowPlacement(hWnd, &placement))
    {
        return false;
    }
    rect = placement.rcNormalPosition;
    return true;
}

void MoveChild(HWND hWnd, const CRect& rect, UINT flags)
{
    ::SetWindowPos(hWnd, nullptr, rect.left, rect.top, rect.Width(), rect.Height(), flags);
}

/// Moves children in one batch for as long as the system has room for it, and one by one from there on.
class DeferredMoves
{
public:
    DeferredMoves(UINT count, UINT flags) : m_handle(::BeginDeferWindowPos(static_cast<int>(count))), m_flags(flags) {}
    ~DeferredMoves()
    {
        if (m_handle != nullptr)
        {
            ::EndDeferWindowPos(m_handle);
        }
    }
    DeferredMoves(const DeferredMoves&) = delete;
    DeferredMoves& operator=(const DeferredMoves&) = delete;

    /// @return false when the batch broke over this child, which is then to be tried once more
    [[nodiscard]] bool Move(HWND hWnd, const CRect& rect)
    {
        if (m_handle == nullptr)
        {
            MoveChild(hWnd, rect, m_flags);
            return true;
        }
        m_handle = ::DeferWindowPos(m_handle, hWnd, nullptr, rect.left, rect.top, rect.Width(), rect.Height(), m_flags);
        return m_handle != nullptr;
    }

private:
    HDWP m_handle;
    UINT m_flags;
};

} // namespace

cdxCDynamicWnd::cdxCDynamicWnd(Freedom freedom, UINT nFlags) : m_Freedom(freedom), m_nFlags(nFlags) {}

cdxCDynamicWnd::~cdxCDynamicWnd() { DoOnDestroy(); }

void cdxCDynamicWnd::DoInitWindow(CWnd& rWnd)
{
    m_pWnd = &rWnd;
    DoInitWindow(rWnd, GetCurrentClientSize());
}

void cdxCDynamicWnd::DoInitWindow(CWnd& rWnd, CSize const& rszInitial)
{
    m_pWnd = &rWnd;
    m_szInitial = rszInitial;
    m_szMin = rszInitial;
    const UINT before = GetCtrlCount();
    RegisterTable(__getDynMap(nullptr));
    if ((m_nFlags & FlagSizeIcon) != 0)
    {
        CreateSizeIcon();
    }
    m_bClassStyleChanged = false;
    m_idTimer = AntiFlickerTimerId;
    m_nClassStyle = ::GetClassLongA(rWnd.GetSafeHwnd(), GCL_STYLE) & kRedrawBits;
    OnInitialized();
    if (GetCtrlCount() > before)
    {
        Layout();
    }
}

void cdxCDynamicWnd::RegisterTable(__dynEntry const* pEntry)
{
    for (; pEntry != nullptr && pEntry->kind != kTableEnd; ++pEntry)
    {
        signed char percent[4] = {pEntry->b1, pEntry->b2, pEntry->b3, pEntry->b4};
        if (pEntry->kind == kTableModes)
        {
            const EdgePair horizontal = PercentagesOf(pEntry->b1);
            const EdgePair vertical = PercentagesOf(pEntry->b2);
            percent[0] = horizontal.first;
            percent[1] = vertical.first;
            percent[2] = horizontal.second;
            percent[3] = vertical.second;
        }
        else if (pEntry->kind != kTablePercentages)
        {
            continue;
        }
        if (pEntry->id == 0)
        {
            AllControls(percent, false, false);
        }
        else if (HWND child = GetSafeChildHWND(pEntry->id))
        {
            AddSzControl(child, percent, CSize(0, 0), false);
        }
    }
}

void cdxCDynamicWnd::CreateSizeIcon()
{
    m_pSizeIcon = std::make_unique<cdxCSizeIconCtrl>(true);
    if (m_pSizeIcon->Create(m_pWnd, m_idSizeIcon))
    {
        AddSzControl(m_pSizeIcon->GetSafeHwnd(), BotRight, CSize(0, 0), false);
        if (m_pSizeIcon) // an override may have destroyed the window
        {
            m_pSizeIcon->ShowWindow(SW_SHOW);
        }
    }
}

void cdxCDynamicWnd::DoOnDestroy()
{
    if (IsWindow())
    {
        OnDestroying();
    }
    m_iDisabled = 1;
    m_pWnd = nullptr;
    m_Map.RemoveAll();
    if (m_pSizeIcon)
    {
        m_pSizeIcon->DestroyWindow();
        m_pSizeIcon.reset();
    }
}

bool cdxCDynamicWnd::IsWindow() const { return m_pWnd != nullptr && ::IsWindow(m_pWnd->m_hWnd); }

bool cdxCDynamicWnd::IsUp() const { return IsWindow() && !m_pWnd->IsIconic(); }

UINT cdxCDynamicWnd::ModifyFlags(UINT add, UINT remove)
{
    const UINT old = m_nFlags;
    m_nFlags = (m_nFlags & ~remove) | add;
    return old;
}

HWND cdxCDynamicWnd::GetSafeChildHWND(UINT id)
{
    return IsUp() ? ::GetDlgItem(m_pWnd->m_hWnd, static_cast<int>(id)) : nullptr;
}

CSize cdxCDynamicWnd::GetBorderSize() const
{
    if (!IsUp())
    {
        return CSize(0, 0);
    }
    CRect window;
    m_pWnd->GetWindowRect(window);
    return window.Size() - GetCurrentClientSize();
}

CSize cdxCDynamicWnd::GetCurrentClientSize() const
{
    if (!IsWindow())
    {
        return CSize(0, 0);
    }
    CRect client;
    m_pWnd->GetClientRect(client);
    return client.Size();
}

UINT cdxCDynamicWnd::GetCtrlCount() const { return static_cast<UINT>(m_Map.GetCount()); }

// --- registering

bool cdxCDynamicWnd::AddSzControl(HWND hWnd, Position const& pos, bool bReposNow)
{
    if (!IsUp() || !::IsWindow(hWnd))
    {
        return false;
    }
    m_Map.SetAt(hWnd, pos);
    if (bReposNow)
    {
        UpdateControlPosition(hWnd);
    }
    return true;
}

bool cdxCDynamicWnd::AddSzControl(UINT id, Position const& pos, bool bReposNow)
{
    return AddSzControl(GetSafeChildHWND(id), pos, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(HWND hWnd, signed char const (&percent)[4], CSize const& szMin, bool bReposNow)
{
    CRect rect;
    if (!::IsWindow(hWnd) || !ChildRect(hWnd, rect))
    {
        return false;
    }
    return AddSzControl(hWnd, Position{rect, {percent[0], percent[1], percent[2], percent[3]}, szMin}, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(UINT id, signed char const (&percent)[4], CSize const& szMin, bool bReposNow)
{
    return AddSzControl(GetSafeChildHWND(id), percent, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(HWND hWnd, signed char left, signed char top, signed char right, signed char bottom,
                                  CSize const& szMin, bool bReposNow)
{
    const signed char percent[4] = {left, top, right, bottom};
    return AddSzControl(hWnd, percent, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(UINT id, signed char left, signed char top, signed char right, signed char bottom,
                                  CSize const& szMin, bool bReposNow)
{
    return AddSzControl(GetSafeChildHWND(id), left, top, right, bottom, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(HWND hWnd, Mode horizontal, Mode vertical, CSize const& szMin, bool bReposNow)
{
    const EdgePair x = PercentagesOf(horizontal);
    const EdgePair y = PercentagesOf(vertical);
    return AddSzControl(hWnd, x.first, y.first, x.second, y.second, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(UINT id, Mode horizontal, Mode vertical, CSize const& szMin, bool bReposNow)
{
    return AddSzControl(GetSafeChildHWND(id), horizontal, vertical, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzXControl(HWND hWnd, signed char left, signed char right, CSize const& szMin, bool bReposNow)
{
    return AddSzControl(hWnd, left, 0, right, 0, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzXControl(UINT id, signed char left, signed char right, CSize const& szMin, bool bReposNow)
{
    return AddSzXControl(GetSafeChildHWND(id), left, right, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzXControl(HWND hWnd, Mode horizontal, CSize const& szMin, bool bReposNow)
{
    return AddSzControl(hWnd, horizontal, ModeStay, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzXControl(UINT id, Mode horizontal, CSize const& szMin, bool bReposNow)
{
    return AddSzXControl(GetSafeChildHWND(id), horizontal, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzYControl(HWND hWnd, signed char top, signed char bottom, CSize const& szMin, bool bReposNow)
{
    return AddSzControl(hWnd, 0, top, 0, bottom, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzYControl(UINT id, signed char top, signed char bottom, CSize const& szMin, bool bReposNow)
{
    return AddSzYControl(GetSafeChildHWND(id), top, bottom, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzYControl(HWND hWnd, Mode vertical, CSize const& szMin, bool bReposNow)
{
    return AddSzControl(hWnd, ModeStay, vertical, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzYControl(UINT id, Mode vertical, CSize const& szMin, bool bReposNow)
{
    return AddSzYControl(GetSafeChildHWND(id), vertical, szMin, bReposNow);
}

bool cdxCDynamicWnd::AddSzControl(HWND hWnd, HWND hLike, bool)
{
    Position pos;
    return GetControlPosition(hLike, pos) && AddSzControl(hWnd, pos, true);
}

bool cdxCDynamicWnd::AddSzControl(UINT id, HWND hLike, bool bReposNow)
{
    return AddSzControl(GetSafeChildHWND(id), hLike, bReposNow);
}

bool cdxCDynamicWnd::AllControls(signed char const (&percent)[4], bool bOverwrite, bool bReposNow)
{
    if (!IsUp())
    {
        return false;
    }
    bool registered = false;
    Position known;
    for (HWND child = ::GetWindow(m_pWnd->m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if (bOverwrite || !m_Map.Lookup(child, known))
        {
            registered |= AddSzControl(child, percent, CSize(0, 0), false);
        }
    }
    if (registered && bReposNow)
    {
        Layout();
    }
    return registered;
}

bool cdxCDynamicWnd::AllControls(signed char left, signed char top, signed char right, signed char bottom,
                                 bool bOverwrite, bool bReposNow)
{
    const signed char percent[4] = {left, top, right, bottom};
    return AllControls(percent, bOverwrite, bReposNow);
}

bool cdxCDynamicWnd::AllControls(Mode horizontal, Mode vertical, bool bOverwrite, bool bReposNow)
{
    const EdgePair x = PercentagesOf(horizontal);
    const EdgePair y = PercentagesOf(vertical);
    return AllControls(x.first, y.first, x.second, y.second, bOverwrite, bReposNow);
}

bool cdxCDynamicWnd::RemSzControl(HWND hWnd, bool bMoveToInitial)
{
    if (!IsWindow() || !::IsWindow(hWnd))
    {
        return false;
    }
    if (bMoveToInitial)
    {
        Position pos;
        if (!m_Map.Lookup(hWnd, pos))
        {
            return false;
        }
        MoveChild(hWnd, pos.m_rect, kMoveFlags);
    }
    return m_Map.RemoveKey(hWnd);
}

bool cdxCDynamicWnd::GetControlPosition(HWND hWnd, Position& pos) { return m_Map.Lookup(hWnd, pos); }

// --- placing

bool cdxCDynamicWnd::DoMoveCtrl(HWND hWnd, UINT, CRect& rect, cdxCDynamicLayoutInfo const& info)
{
    Position pos;
    if (!m_Map.Lookup(hWnd, pos))
    {
        return false;
    }
    rect = tavkit::PlaceRect(pos.m_rect, pos.m_percent, pos.m_szMin,
                             {info.m_szDelta, {info.m_nScrollX, info.m_nScrollY}, info.m_bUseScrollPos});
    return true;
}

cdxCDynamicLayoutInfo* cdxCDynamicWnd::DoCreateLayoutInfo() { return new cdxCDynamicLayoutInfo(this); }

void cdxCDynamicWnd::Layout()
{
    if (!IsUp())
    {
        return;
    }
    const std::unique_ptr<cdxCDynamicLayoutInfo> info(DoCreateLayoutInfo());
    if (!info || !IsWindow()) // an override may have destroyed the window
    {
        return;
    }
    HWND child = ::GetWindow(m_pWnd->m_hWnd, GW_CHILD);
    if (child == nullptr)
    {
        return;
    }
    DeferredMoves moves(info->m_nCtrlCnt, kMoveFlags | ((m_nFlags & FlagCopyBits) == 0 ? SWP_NOCOPYBITS : 0));
    while (child != nullptr)
    {
        // The next one is read first: an override of DoMoveCtrl may destroy the child that it is asked about.
        HWND next = ::GetWindow(child, GW_HWNDNEXT);
        CRect rect;
        while (NewPlace(child, *info, rect) && !moves.Move(child, rect))
        {
        }
        // It may as well have destroyed the next one, or both: then the walk begins again.
        if (next != nullptr && !::IsWindow(next))
        {
            next = ::IsWindow(child) ? ::GetWindow(child, GW_HWNDNEXT)
                   : IsWindow()      ? ::GetWindow(m_pWnd->m_hWnd, GW_CHILD)
                                     : nullptr;
        }
        child = next;
    }
}

bool cdxCDynamicWnd::NewPlace(HWND hWnd, cdxCDynamicLayoutInfo const& info, CRect& rect)
{
    CRect old;
    if (!ChildRect(hWnd, old))
    {
        return false;
    }
    rect = old;
    return DoMoveCtrl(hWnd, static_cast<UINT>(::GetDlgCtrlID(hWnd)), rect, info) && rect != old;
}

bool cdxCDynamicWnd::UpdateControlPosition(HWND hWnd)
{
    if (!IsUp() || !::IsWindow(hWnd))
    {
        return false;
    }
    const std::unique_ptr<cdxCDynamicLayoutInfo> info(DoCreateLayoutInfo());
    if (!info || info->IsInitial())
    {
        return info != nullptr;
    }
    CRect rect;
    if (NewPlace(hWnd, *info, rect))
    {
        MoveChild(hWnd, rect, kMoveFlags);
    }
    return true;
}

// --- messages

void cdxCDynamicWnd::DoOnSize(UINT nType, int, int)
{
    if (!IsDisabled() && IsUp() && nType != SIZE_MINIMIZED)
    {
        Layout();
    }
}

void cdxCDynamicWnd::DoOnSizing(UINT fwSide, RECT*)
{
    if (m_idTimer != 0 && !IsDisabled() && IsUp() && (m_nFlags & FlagAntiFlicker) != 0)
    {
        StartAntiFlickering(fwSide == WMSZ_RIGHT || fwSide == WMSZ_BOTTOM || fwSide == WMSZ_BOTTOMRIGHT);
    }
}

void cdxCDynamicWnd::DoOnParentNotify(UINT message, LPARAM lParam)
{
    // The framework hands on the whole word, with the child's id in its high half.
    if (LOWORD(message) == WM_DESTROY && lParam != 0)
    {
        DoDestroyCtrl(reinterpret_cast<HWND>(lParam));
    }
}

void cdxCDynamicWnd::DoDestroyCtrl(HWND hWnd) { m_Map.RemoveKey(hWnd); }

void cdxCDynamicWnd::DoOnGetMinMaxInfo(MINMAXINFO* pMMI)
{
    if (pMMI == nullptr || !IsUp() || IsDisabled())
    {
        return;
    }
    // A window that is just being restored still has the size of its icon, which tells nothing of its border.
    if (GetCurrentClientSize() == CSize(0, 0))
    {
        return;
    }
    const CSize border = GetBorderSize();
    const SIZE least = tavkit::WindowSizeOf(m_szMin, border);
    const SIZE most = tavkit::WindowSizeOf(m_szMax, border);
    pMMI->ptMinTrackSize = {least.cx, least.cy};
    if ((m_Freedom & FreedomX) == 0)
    {
        pMMI->ptMaxTrackSize.x = pMMI->ptMinTrackSize.x;
    }
    else if (m_szMax.cx > 0)
    {
        pMMI->ptMaxTrackSize.x = most.cx;
    }
    if ((m_Freedom & FreedomY) == 0)
    {
        pMMI->ptMaxTrackSize.y = pMMI->ptMinTrackSize.y;
    }
    else if (m_szMax.cy > 0)
    {
        pMMI->ptMaxTrackSize.y = most.cy;
    }
}

void cdxCDynamicWnd::StartAntiFlickering(bool bIsBigger)
{
    if (!IsUp() || m_idTimer == 0)
    {
        return;
    }
    // Only the two redraw bits are set: the class loses its other styles while the timer runs, on purpose.
    const UINT style = bIsBigger ? m_nClassStyle & ~kRedrawBits : m_nClassStyle | kRedrawBits;
    m_pWnd->KillTimer(m_idTimer);
    m_pWnd->SetTimer(m_idTimer, AntiFlickerPeriod, nullptr);
    if (!m_bClassStyleChanged)
    {
        ::SetClassLongA(m_pWnd->m_hWnd, GCL_STYLE, static_cast<LONG>(style));
        m_bClassStyleChanged = true;
    }
}

void cdxCDynamicWnd::DoOnTimer(UINT_PTR nID)
{
    if (!IsUp() || nID != m_idTimer)
    {
        return;
    }
    m_pWnd->KillTimer(m_idTimer);
    if (m_bClassStyleChanged)
    {
        ::SetClassLongA(m_pWnd->m_hWnd, GCL_STYLE, static_cast<LONG>(m_nClassStyle));
        m_bClassStyleChanged = false;
    }
}

cdxCDynamicWnd::__dynEntry const* cdxCDynamicWnd::__getDynMap(__dynEntry const*) const { return nullptr; }
