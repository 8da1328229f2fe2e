// DynamicWnd.h - keeps the children of a window placed while its client area changes size
#pragma once

#include <afxtempl.h>
#include <afxwin.h>

#include "tavkit/frame/Export.h"
#include "tavkit/layout/DynamicLayoutInfo.h"
#include "tavkit/layout/SizeIconCtrl.h"

#include <memory>

/// A mix-in, not a window: attached to a window, it keeps the window's registered children placed. A window class that
/// uses it forwards the framework's messages to the DoOn... operations.
///
/// Every child carries its rectangle as it was when registered, and four percentages that say how much of the growth of
/// the client area its edges follow. All arithmetic is against the client size at DoInitWindow, never against the last
/// layout, so that no rounding error adds up.
class TAVKIT_API cdxCDynamicWnd
{
public:
    /// Directions in which the user may resize the window; a bit set, 0 for none.
    enum Freedom
    {
        FreedomX = 1,
        FreedomY = 2,
        FreedomXY = FreedomX | FreedomY
    };

    /// How a pair of opposite edges behaves: a shorthand for two percentages. Other values count as ModeStay.
    enum Mode
    {
        ModeStay = 0,    ///< does not move
        ModeStretch = 1, ///< grows with the window
        ModeFollow = 2,  ///< moves with the far edge
        ModeHalf = 3     ///< moves half the growth, size kept
    };

    /// Behaviour flags, a UINT bit set.
    enum Flags : UINT
    {
        FlagSizeIcon = 1,    ///< a size grip in the corner
        FlagAntiFlicker = 2, ///< the window class asks for no full redraws while the user makes the window larger
        FlagCopyBits = 4     ///< moved children keep their pixels
    };

    static constexpr UINT DefaultSizeIconId = AFX_IDW_SIZE_BOX; ///< control id of the grip
    static constexpr UINT AntiFlickerTimerId = 29028;
    static constexpr UINT AntiFlickerPeriod = 120; ///< milliseconds after which the class style comes back

    // The corners, each as {left, top, right, bottom}.
    static signed char const TopLeft[4];
    static signed char const TopRight[4];
    static signed char const BotLeft[4];
    static signed char const BotRight[4];

    /// What is known of a registered child.
    struct Position
    {
        CRect m_rect;             ///< client coordinates, when registered
        signed char m_percent[4]; ///< left, top, right, bottom; normally 0 to 100
        CSize m_szMin;            ///< a child that would be no larger is parked out of sight
    };

    /// One row of a declaration table.
    struct __dynEntry
    {
        int kind;       ///< 0 ends the table, 1 four percentages, 2 two modes
        UINT id;        ///< control id; 0 for all controls
        signed char b1; ///< left percentage, or horizontal Mode
        signed char b2; ///< top percentage, or vertical Mode
        signed char b3; ///< right percentage
        signed char b4; ///< bottom percentage
    };

    cdxCDynamicWnd(Freedom freedom, UINT nFlags);
    virtual ~cdxCDynamicWnd();

    // --- life and state
    void DoInitWindow(CWnd& rWnd);
    /// Attaches to a window and registers what the declaration table names.
    /// @param rszInitial  the client size that the children's rectangles belong to; also the least size from now on
    void DoInitWindow(CWnd& rWnd, CSize const& rszInitial);
    /// Lets go of the window for good. May be called again.
    void DoOnDestroy();
    bool IsValid() const { return m_pWnd != nullptr; }
    CWnd* Window() const { return m_pWnd; }
    operator CWnd*() const { return m_pWnd; }
    /// A window is attached and its handle is still a window.
    bool IsWindow() const;
    /// IsWindow, and the window is not minimised.
    bool IsUp() const;
    bool IsDisabled() const { return m_iDisabled > 0; }
    /// Stops the layout until the matching Enable; counted.
    void Disable() { ++m_iDisabled; }
    /// @return whether the layout works again
    bool Enable() { return --m_iDisabled < 1; }
    UINT GetFlags() const { return m_nFlags; }
    /// Removes first, then adds.
    /// @return the old flags
    UINT ModifyFlags(UINT add, UINT remove);
    /// Null when no window is up or there is no such child.
    HWND GetSafeChildHWND(UINT id);
    /// Window size less client size; (0, 0) when there is no window or it is minimised.
    CSize GetBorderSize() const;
    /// Number of registered children.
    virtual UINT GetCtrlCount() const;
    /// (0, 0) without a window.
    virtual CSize GetCurrentClientSize() const;

    // --- registering children: true when the child was registered
    /// Stores the position, replacing an earlier one. Fails unless both windows are there.
    /// @param bReposNow  places the child at once
    virtual bool AddSzControl(HWND hWnd, Position const& pos, bool bReposNow);
    bool AddSzControl(UINT id, Position const& pos, bool bReposNow);
    /// The child's present rectangle is the one that counts.
    /// @param percent  left, top, right, bottom
    bool AddSzControl(HWND hWnd, signed char const (&percent)[4], CSize const& szMin, bool bReposNow);
    bool AddSzControl(UINT id, signed char const (&percent)[4], CSize const& szMin, bool bReposNow);
    bool AddSzControl(HWND hWnd, signed char left, signed char top, signed char right, signed char bottom,
                      CSize const& szMin, bool bReposNow);
    bool AddSzControl(UINT id, signed char left, signed char top, signed char right, signed char bottom,
                      CSize const& szMin, bool bReposNow);
    bool AddSzControl(HWND hWnd, Mode horizontal, Mode vertical, CSize const& szMin, bool bReposNow);
    bool AddSzControl(UINT id, Mode horizontal, Mode vertical, CSize const& szMin, bool bReposNow);
    bool AddSzXControl(HWND hWnd, signed char left, signed char right, CSize const& szMin, bool bReposNow);
    bool AddSzXControl(UINT id, signed char left, signed char right, CSize const& szMin, bool bReposNow);
    bool AddSzXControl(HWND hWnd, Mode horizontal, CSize const& szMin, bool bReposNow);
    bool AddSzXControl(UINT id, Mode horizontal, CSize const& szMin, bool bReposNow);
    bool AddSzYControl(HWND hWnd, signed char top, signed char bottom, CSize const& szMin, bool bReposNow);
    bool AddSzYControl(UINT id, signed char top, signed char bottom, CSize const& szMin, bool bReposNow);
    bool AddSzYControl(HWND hWnd, Mode vertical, CSize const& szMin, bool bReposNow);
    bool AddSzYControl(UINT id, Mode vertical, CSize const& szMin, bool bReposNow);
    /// Copies the whole position of hLike, rectangle included. The third argument is ignored: the child is placed at
    /// once, on purpose.
    bool AddSzControl(HWND hWnd, HWND hLike, bool);
    bool AddSzControl(UINT id, HWND hLike, bool);
    /// Registers all direct children, in z-order.
    /// @param bOverwrite  also those that are registered already
    /// @return true when at least one was registered
    bool AllControls(signed char const (&percent)[4], bool bOverwrite, bool bReposNow);
    bool AllControls(signed char left, signed char top, signed char right, signed char bottom, bool bOverwrite,
                     bool bReposNow);
    bool AllControls(Mode horizontal, Mode vertical, bool bOverwrite, bool bReposNow);
    /// @param bMoveToInitial  puts the child back where it was registered first
    /// @return whether there was something to remove
    bool RemSzControl(HWND hWnd, bool bMoveToInitial);
    bool GetControlPosition(HWND hWnd, Position& pos);
    /// Places one child now. False unless both windows are there.
    bool UpdateControlPosition(HWND hWnd);

    /// Places all children in one batch.
    virtual void Layout();

    // --- forwarders of the window's messages
    void DoOnSize(UINT nType, int cx, int cy);
    void DoOnSizing(UINT fwSide, RECT* pRect);
    void DoOnParentNotify(UINT message, LPARAM lParam);
    void DoOnTimer(UINT_PTR nID);
    void DoOnGetMinMaxInfo(MINMAXINFO* pMMI);

    // --- what a derived class may do otherwise
    /// Gives a child's new place.
    /// @param id    control id; for derived classes
    /// @param rect  the child's rectangle; receives the new one
    /// @return false, with rect as it was, when the child is to stay where it is
    virtual bool DoMoveCtrl(HWND hWnd, UINT id, CRect& rect, cdxCDynamicLayoutInfo const& info);
    /// A child goes away.
    virtual void DoDestroyCtrl(HWND hWnd);
    /// At the end of DoInitWindow, before the first layout.
    virtual void OnInitialized() {}
    /// At the start of DoOnDestroy, with the window still there.
    virtual void OnDestroying() {}
    /// A new snapshot; the caller's to delete.
    virtual cdxCDynamicLayoutInfo* DoCreateLayoutInfo();
    /// Alters the class style until the timer has run out; a call while it runs only restarts the timer.
    /// @param bIsBigger  the window grows to the right or the bottom: no full redraws
    virtual void StartAntiFlickering(bool bIsBigger);
    /// The declaration table of a derived class, or null. The argument is null.
    virtual __dynEntry const* __getDynMap(__dynEntry const* pBase) const;

private:
    CWnd* m_pWnd = nullptr; ///< not owned
    std::unique_ptr<cdxCSizeIconCtrl> m_pSizeIcon;
    bool m_bClassStyleChanged = false;
    int m_iDisabled = 0;
    UINT m_nClassStyle = 0; ///< the two redraw bits of the class style as found

    friend class cdxCDynamicLayoutInfo;

protected:
    CMap<HWND, HWND, Position, const Position&> m_Map; ///< registered children
    Freedom m_Freedom;
    UINT m_nFlags;
    CSize m_szInitial; ///< client size at DoInitWindow
    CSize m_szMin;     ///< least client size; a derived class may set it after DoInitWindow
    CSize m_szMax;     ///< largest client size; 0 for no limit
    UINT m_idSizeIcon = DefaultSizeIconId;
    UINT m_idTimer = 0; ///< 0 turns the anti-flicker handling off
    bool m_bUseScrollPos = false;

private:
    cdxCDynamicWnd(cdxCDynamicWnd const&) = delete;
    cdxCDynamicWnd& operator=(cdxCDynamicWnd const&) = delete;

    void RegisterTable(__dynEntry const* pEntry);
    void CreateSizeIcon();
    /// @return false when the child is gone or stays where it is
    bool NewPlace(HWND hWnd, cdxCDynamicLayoutInfo const& info, CRect& rect);
};

static_assert(sizeof(cdxCDynamicWnd::Position) == 28);
static_assert(sizeof(cdxCDynamicWnd::__dynEntry) == 12);
