// TreeFixture.h - a tree whose hooks are recorded and can be given something to do, in a frame that sees what is left
#pragma once

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

inline constexpr int kTreeId = 77;
inline constexpr DWORD kTreeStyle = WS_CHILD | WS_VISIBLE | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT;
inline const CRect kTreePlace(20, 20, 220, 220);

/// Does what the test gave a hook to do, or else what the hook does by itself. A copy of it runs, since it may end the
/// tree.
template <class Own, class Base, class... Args>
auto DoHook(Own own, Base base, Args... args)
{
    return own ? own(args...) : base();
}

/// The tree under test. Every hook notes its call, then does what the test gave it to do, or else what it does by
/// itself.
class HookTree : public CTavTreeCtrl
{
public:
    using CTavTreeCtrl::EndDrag;
    using CTavTreeCtrl::GetDragData;
    using CTavTreeCtrl::GetDragItem;
    using CTavTreeCtrl::IsInDragMode;
    using CTavTreeCtrl::OnSelchanged;

    using Pair = std::pair<HTREEITEM, HTREEITEM>;

    bool IsDragItem(HTREEITEM item) override
    {
        m_askedItems.push_back(item);
        return DoHook(
            m_isDragItem, [&] { return CTavTreeCtrl::IsDragItem(item); }, item);
    }
    bool IsDragTrgt(HTREEITEM dragItem, HTREEITEM target) override
    {
        m_askedTargets.emplace_back(dragItem, target);
        return DoHook(
            m_isDragTrgt, [&] { return CTavTreeCtrl::IsDragTrgt(dragItem, target); }, dragItem, target);
    }
    void OnDragEnd(HTREEITEM dragItem, HTREEITEM target) override
    {
        m_drops.emplace_back(dragItem, target);
        DoHook(
            m_onDragEnd, [&] { return CTavTreeCtrl::OnDragEnd(dragItem, target); }, dragItem, target);
    }
    bool DTCDblClck(HTREEITEM item, LRESULT* result) override
    {
        m_dblClicks.push_back(item);
        return DoHook(
            m_dblClck, [&] { return CTavTreeCtrl::DTCDblClck(item, result); }, item, result);
    }
    bool DTCSlctChg(HTREEITEM oldItem, HTREEITEM newItem, LRESULT* result) override
    {
        m_slctChanges.emplace_back(oldItem, newItem);
        return DoHook(
            m_slctChg, [&] { return CTavTreeCtrl::DTCSlctChg(oldItem, newItem, result); }, oldItem, newItem, result);
    }
    void DTCKeyDown(unsigned short key, LRESULT* result) override
    {
        m_keys.push_back(key);
        DoHook(
            m_keyDown, [&] { return CTavTreeCtrl::DTCKeyDown(key, result); }, key, result);
    }
    bool DTCCntxMenu(HTREEITEM item, CPoint point, LRESULT* result) override
    {
        m_menus.emplace_back(item, point);
        m_selectedAtMenu = GetSelectedItem();
        return DoHook(
            m_cntxMenu, [&] { return CTavTreeCtrl::DTCCntxMenu(item, point, result); }, item, point, result);
    }
    void DTCEndLabelEdit(NMHDR* header, LRESULT* result) override
    {
        LPCSTR const text = reinterpret_cast<NMTVDISPINFO*>(header)->item.pszText;
        m_editsEnded.emplace_back(text != nullptr ? text : "(given up)");
        DoHook(
            m_endLabelEdit, [&] { return CTavTreeCtrl::DTCEndLabelEdit(header, result); }, header, result);
    }
    void DTCBeginLabelEdit(NMHDR* header, LRESULT* result) override
    {
        ++m_editsBegun;
        DoHook(
            m_beginLabelEdit, [&] { return CTavTreeCtrl::DTCBeginLabelEdit(header, result); }, header, result);
    }
    bool DTCLButtonDown(HTREEITEM item, unsigned int flags, CPoint point) override
    {
        m_presses.emplace_back(item, point);
        m_pressFlags = flags;
        m_clickAtPress = GetClickItem();
        m_pressed = true;
        return DoHook(
            m_lButtonDown, [&] { return CTavTreeCtrl::DTCLButtonDown(item, flags, point); }, item, flags, point);
    }

    std::function<bool(HTREEITEM)> m_isDragItem;
    std::function<bool(HTREEITEM, HTREEITEM)> m_isDragTrgt;
    std::function<void(HTREEITEM, HTREEITEM)> m_onDragEnd;
    std::function<bool(HTREEITEM, LRESULT*)> m_dblClck;
    std::function<bool(HTREEITEM, HTREEITEM, LRESULT*)> m_slctChg;
    std::function<void(unsigned short, LRESULT*)> m_keyDown;
    std::function<bool(HTREEITEM, CPoint, LRESULT*)> m_cntxMenu;
    std::function<void(NMHDR*, LRESULT*)> m_endLabelEdit;
    std::function<void(NMHDR*, LRESULT*)> m_beginLabelEdit;
    std::function<bool(HTREEITEM, unsigned int, CPoint)> m_lButtonDown;

    std::vector<HTREEITEM> m_askedItems;
    std::vector<Pair> m_askedTargets;
    std::vector<Pair> m_drops;
    std::vector<HTREEITEM> m_dblClicks;
    std::vector<Pair> m_slctChanges;
    std::vector<unsigned short> m_keys;
    std::vector<std::pair<HTREEITEM, CPoint>> m_menus;
    HTREEITEM m_selectedAtMenu = nullptr;
    std::vector<std::string> m_editsEnded;
    int m_editsBegun = 0;
    std::vector<std::pair<HTREEITEM, CPoint>> m_presses;
    unsigned int m_pressFlags = 0;
    HTREEITEM m_clickAtPress = nullptr;

    /// Messages that reached the control, in order; those of interest only.
    std::vector<std::pair<UINT, WPARAM>> m_reached;
    [[nodiscard]] int Reached(UINT message) const
    {
        int count = 0;
        for (auto const& [number, param] : m_reached)
        {
            count += number == message;
        }
        return count;
    }
    bool m_enabledAtPaint = false;
    /// Set by the press of a button, for a thread that sends input.
    std::atomic<bool> m_pressed = false;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_PAINT)
        {
            m_enabledAtPaint = IsWindowEnabled() != FALSE;
        }
        if (message < WM_USER || message >= TV_FIRST)
        {
            m_reached.emplace_back(message, wParam);
        }
        m_pressed =
            m_pressed || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK;
        return CTavTreeCtrl::DefWindowProc(message, wParam, lParam);
    }
};

/// The tree's parent. What it sees of the notifications is what the tree has left to it.
class TreeParent : public support::TestFrame
{
public:
    /// Notifications that arrived here after the tree had its turn.
    [[nodiscard]] int Saw(UINT code) const
    {
        int count = 0;
        for (UINT const seen : m_seen)
        {
            count += seen == code;
        }
        return count;
    }
    std::map<UINT, LRESULT> m_results; ///< by notification, what the tree had set its result to
    int m_menusAsked = 0;              ///< WM_CONTEXTMENU
    bool m_takesKeys = false;          ///< eats WM_KEYDOWN and WM_CHAR before anybody else, as a dialog does
    int m_keysTaken = 0;
    std::function<void(NMHDR*)> m_notified; ///< at every notification, before the tree

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (m_takesKeys && (pMsg->message == WM_KEYDOWN || pMsg->message == WM_CHAR))
        {
            ++m_keysTaken;
            return TRUE;
        }
        return TestFrame::PreTranslateMessage(pMsg);
    }

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        if (auto const notified = m_notified)
        {
            notified(reinterpret_cast<NMHDR*>(lParam));
        }
        return TestFrame::OnNotify(wParam, lParam, pResult);
    }
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override
    {
        if (HIWORD(nCode) == WM_NOTIFY && pExtra != nullptr)
        {
            m_seen.push_back(static_cast<AFX_NOTIFY*>(pExtra)->pNMHDR->code);
            m_results[m_seen.back()] = *static_cast<AFX_NOTIFY*>(pExtra)->pResult;
        }
        return TestFrame::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_menusAsked += message == WM_CONTEXTMENU;
        return TestFrame::WindowProc(message, wParam, lParam);
    }

private:
    std::vector<UINT> m_seen;
};

class TreeTest : public support::WindowTest
{
protected:
    void TearDown() override;

    /// A frame with a tree in it, which has the focus.
    void Open(DWORD style = kTreeStyle);
    HTREEITEM Add(char const* text, HTREEITEM parent = TVI_ROOT, DWORD_PTR data = 0);

    /// Middle of an item's text on the screen.
    [[nodiscard]] POINT PlaceOf(HTREEITEM item) const;
    /// The same in client coordinates.
    [[nodiscard]] CPoint ClientPlaceOf(HTREEITEM item) const;
    /// A place in the tree's client area on the screen.
    [[nodiscard]] POINT ScreenPlace(int x, int y) const { return support::ScreenPoint(m_tree->m_hWnd, x, y); }
    /// A place beside all items.
    [[nodiscard]] POINT EmptyPlace() const { return ScreenPlace(150, 190); }

    /// Presses a button on a place, releases it once the tree has heard of it, and lets everything settle.
    void Click(POINT place, support::Button button = support::Button::left);
    /// Presses a button on an item and pulls until the control tells of a drag.
    void Pull(HTREEITEM item, support::Button button = support::Button::left);
    void MoveTo(POINT place);
    void Release(support::Button button = support::Button::left);

    /// How many times the cursor was shown more often than hidden.
    [[nodiscard]] static int CursorCount();
    [[nodiscard]] static bool ImageDragRuns();

    std::unique_ptr<TreeParent> m_frame;
    std::unique_ptr<HookTree> m_tree;
};
