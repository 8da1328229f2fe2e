// ThematicFixture.h - a thematic list whose hooks are recorded and can be given something to do, in a frame
#pragma once

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

using Elmt = TmtcListCtrl::Elmt;
using Item = TmtcListCtrl::Item;
using Group = TmtcListCtrl::Group;
using HITTEST = TmtcListCtrl::HITTEST;

inline constexpr int kGreenIcon = 7101;
inline constexpr COLORREF kGold = RGB(255, 215, 0);
inline constexpr COLORREF kOutlineGrey = RGB(160, 160, 160);

/// Every hook notes its call, then does what the test gave it to do, or else what it does by itself. What the test gave
/// is copied before it runs, since it may end the list.
class HookList : public TmtcListCtrl
{
public:
    using TmtcListCtrl::GetHead;
    using TmtcListCtrl::GetTail;
    using TmtcListCtrl::HitTest;
    using TmtcListCtrl::MoveElmnt;
    using TmtcListCtrl::OnMoveItem;
    using TmtcListCtrl::ProcessMouseEvent;
    using TmtcListCtrl::RmvHead;
    using TmtcListCtrl::RmvTail;
    using TmtcListCtrl::SlctItem;

    void OnSlctChng(Elmt* pOld, Elmt* pNew) override
    {
        m_slctChanges.emplace_back(pOld, pNew);
        if (auto const own = m_slctChng)
        {
            return own(pOld, pNew);
        }
        TmtcListCtrl::OnSlctChng(pOld, pNew);
    }
    void OnRmvItem(Group* pGrp, Item* pItem) override
    {
        m_removals.emplace_back(pGrp, pItem);
        if (auto const own = m_rmvItem)
        {
            return own(pGrp, pItem);
        }
        TmtcListCtrl::OnRmvItem(pGrp, pItem);
    }
    Item* OnAddToGroup(Group* pGrp) override
    {
        m_additions.push_back(pGrp);
        if (auto const own = m_addToGroup)
        {
            return own(pGrp);
        }
        return TmtcListCtrl::OnAddToGroup(pGrp);
    }
    bool Get3DLook() const override
    {
        ++m_looksAsked;
        auto const own = m_look;
        return own ? own() : TmtcListCtrl::Get3DLook();
    }
    bool OnMoveItem(Group* pGrp, Item* pItem, bool bUp) override
    {
        m_moves.push_back({pGrp, pItem, bUp});
        if (auto const own = m_moveItem)
        {
            return own(pGrp, pItem, bUp);
        }
        return TmtcListCtrl::OnMoveItem(pGrp, pItem, bUp);
    }

    struct Move
    {
        Group* group;
        Item* item;
        bool up;
        bool operator==(Move const&) const = default;
    };

    std::function<void(Elmt*, Elmt*)> m_slctChng;
    std::function<void(Group*, Item*)> m_rmvItem;
    std::function<Item*(Group*)> m_addToGroup;
    std::function<bool()> m_look;
    std::function<bool(Group*, Item*, bool)> m_moveItem;

    std::vector<std::pair<Elmt*, Elmt*>> m_slctChanges;
    std::vector<std::pair<Group*, Item*>> m_removals;
    std::vector<Group*> m_additions;
    std::vector<Move> m_moves;
    mutable int m_looksAsked = 0;
    int m_paints = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_PAINT)
        {
            ++m_paints;
        }
        return TmtcListCtrl::WindowProc(message, wParam, lParam);
    }
};

class ThematicTest : public support::WindowTest
{
protected:
    static constexpr int kWidth = 200; ///< of the list's client area
    static constexpr int kHeight = 320;

    static void SetUpTestSuite() { TavKitInit(); }
    static void TearDownTestSuite() { TavKitShutdown(); }
    void SetUp() override;
    void TearDown() override;

    /// Makes the window of the list, which is filled before or after.
    void Open(int width = kWidth, int height = kHeight);
    /// Waits until everything is painted.
    void Paint();

    [[nodiscard]] HookList& List() { return *m_list; }
    static Item* NewItem(const char* text = "Item", bool editable = true, DWORD_PTR data = 0)
    {
        return Item::Create(text, -1, data, editable);
    }
    static Group* NewGroup(const char* text = "Layers", const char* id = "layers")
    {
        return Group::Create(text, id, RGB(250, 10, 20), RGB(30, 40, 240), 0);
    }
    /// A group at the end of the list with that many editable items.
    Group* AddGroup(int items, const char* id = "layers");

    [[nodiscard]] HITTEST Hit(int x, int y);
    /// The rectangle of the draw element at a place; empty if there is none.
    [[nodiscard]] CRect PartAt(int x, int y);
    /// The place of the button with a command, of a group (item null), an item of a group, or an item at the top level
    /// (group null); empty if it can't be hit anywhere.
    [[nodiscard]] CRect ButtonOf(Group* group, Item* item, unsigned long id);
    [[nodiscard]] COLORREF PixelAt(int x, int y) { return support::ClientPixel(m_list->m_hWnd, x, y); }

    void MoveTo(CPoint client);
    void PressAt(CPoint client, support::Button button = support::Button::left);
    void ReleaseAt(CPoint client, support::Button button = support::Button::left);
    void ClickAt(CPoint client, support::Button button = support::Button::left);

    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<HookList> m_list;
};
