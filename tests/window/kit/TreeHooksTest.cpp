// TreeHooksTest.cpp - what a tree tells its hooks and what it leaves to its parent; buttons, keys, label edits, paint

#include "TreeFixture.h"

#include "Picture.h"

using support::Button;
using Pair = HookTree::Pair;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr UINT kFromChild = static_cast<UINT>(-2222); // a notification that a child of the tree might send
constexpr int kChildId = 5;

class TreeHooks : public TreeTest
{
protected:
    void SetUp() override
    {
        TreeTest::SetUp();
        Open(kTreeStyle | TVS_EDITLABELS);
        m_a = Add("alpha");
        m_b = Add("beta", m_a);
        m_c = Add("gamma");
        m_tree->Expand(m_a, TVE_EXPAND);
        m_tree->SelectItem(m_a);
        support::Settle();
        m_tree->m_slctChanges.clear();
        m_frame->Clear();
    }

    HTREEITEM m_a = nullptr;
    HTREEITEM m_b = nullptr;
    HTREEITEM m_c = nullptr;
};

/// What a hook answers, and what the parent sees of it.
struct Answer
{
    const char* name;
    bool returned;
    LRESULT result;
    bool parentSees;
};

constexpr LRESULT kWide = LRESULT{1} << 40; // no bit in the lower half

// --- selection

struct TreeSelection : TreeHooks, testing::WithParamInterface<Answer>
{
};

TEST_P(TreeSelection, ReachesTheParentUnlessTheHookKeepsIt)
{
    LRESULT entry = -1;
    m_tree->m_slctChg = [&](HTREEITEM, HTREEITEM, LRESULT* result) {
        entry = *result;
        *result = GetParam().result;
        return GetParam().returned;
    };
    int const seen = m_frame->Saw(TVN_SELCHANGED);
    m_tree->SelectItem(m_c);
    EXPECT_THAT(m_tree->m_slctChanges, ElementsAre(Pair(m_a, m_c)));
    EXPECT_EQ(entry, 0);
    EXPECT_EQ(m_frame->Saw(TVN_SELCHANGED) - seen, GetParam().parentSees ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(All, TreeSelection,
                         testing::Values(Answer{"Nothing", false, 0, true}, Answer{"True", true, 0, false},
                                         Answer{"Result", false, 1, false}, Answer{"WideResult", false, kWide, false}),
                         [](auto const& info) { return std::string(info.param.name); });

TEST_F(TreeHooks, BothItemsOfASelectionMayBeNull)
{
    m_tree->SelectItem(nullptr);
    m_tree->SelectItem(m_b);
    EXPECT_THAT(m_tree->m_slctChanges, ElementsAre(Pair(m_a, nullptr), Pair(nullptr, m_b)));
}

TEST_F(TreeHooks, ASelectionWithoutItsHeaderIsKeptFromTheParent)
{
    LRESULT result = 0;
    EXPECT_TRUE(m_tree->OnSelchanged(nullptr, &result));
    EXPECT_THAT(m_tree->m_slctChanges, IsEmpty());
}

TEST_F(TreeHooks, ByThemselvesTheHooksLeaveEverythingToTheParent)
{
    HookTree& tree = *m_tree;
    LRESULT result = 7;
    EXPECT_FALSE(tree.CTavTreeCtrl::DTCSlctChg(m_a, m_b, &result));
    EXPECT_EQ(result, 0);
    result = 7;
    EXPECT_FALSE(tree.CTavTreeCtrl::DTCDblClck(m_a, &result));
    EXPECT_EQ(result, 0);
    result = 7;
    EXPECT_FALSE(tree.CTavTreeCtrl::DTCCntxMenu(m_a, CPoint(0, 0), &result));
    EXPECT_EQ(result, 0);
    result = 7;
    tree.CTavTreeCtrl::DTCKeyDown('X', &result);
    EXPECT_EQ(result, 0);
    result = 7;
    tree.CTavTreeCtrl::DTCBeginLabelEdit(nullptr, &result);
    tree.CTavTreeCtrl::DTCEndLabelEdit(nullptr, &result);
    EXPECT_EQ(result, 7);
    EXPECT_FALSE(tree.CTavTreeCtrl::DTCLButtonDown(m_a, 0, CPoint(0, 0)));
    EXPECT_TRUE(tree.CTavTreeCtrl::IsDragItem(nullptr));
    EXPECT_TRUE(tree.CTavTreeCtrl::IsDragTrgt(m_a, m_b));
    EXPECT_TRUE(tree.CTavTreeCtrl::IsDragTrgt(m_a, nullptr));
    EXPECT_FALSE(tree.CTavTreeCtrl::IsDragTrgt(m_a, m_a));
}

// --- keys

TEST_F(TreeHooks, AKeyReachesTheParentUnlessTheResultKeepsIt)
{
    for (LRESULT const answer : {LRESULT{0}, LRESULT{1}, kWide})
    {
        m_tree->m_keys.clear();
        LRESULT entry = -1;
        m_tree->m_keyDown = [&](unsigned short, LRESULT* result) {
            entry = *result;
            *result = answer;
        };
        int const seen = m_frame->Saw(TVN_KEYDOWN);
        support::PressKey(VK_F5);
        support::Settle();
        EXPECT_THAT(m_tree->m_keys, ElementsAre(VK_F5));
        EXPECT_EQ(entry, 0);
        EXPECT_EQ(m_frame->Saw(TVN_KEYDOWN) - seen, answer == 0 ? 1 : 0);
    }
}

TEST_F(TreeHooks, AKeyIsAlwaysLeftToTheControl)
{
    m_tree->m_keyDown = [](unsigned short, LRESULT* result) { *result = 1; };
    support::PressKey(VK_DOWN);
    support::Settle();
    EXPECT_EQ(m_tree->GetSelectedItem(), m_b) << "the notification's own result is 0";
}

// --- double clicks

struct TreeDoubleClick : TreeHooks, testing::WithParamInterface<Answer>
{
};

TEST_P(TreeDoubleClick, ExpandsAndReachesTheParentUnlessTheHookKeepsIt)
{
    LRESULT entry = -1;
    m_tree->m_dblClck = [&](HTREEITEM, LRESULT* result) {
        entry = *result;
        *result = GetParam().result;
        return GetParam().returned;
    };
    POINT const place = PlaceOf(m_a);
    Click(place);
    Click(place);
    ASSERT_TRUE(support::PumpUntil([&] { return !m_tree->m_dblClicks.empty(); }));
    EXPECT_THAT(m_tree->m_dblClicks, ElementsAre(m_a));
    EXPECT_EQ(entry, 0);
    EXPECT_EQ(m_frame->Saw(static_cast<UINT>(NM_DBLCLK)), GetParam().parentSees ? 1 : 0);
    if (GetParam().parentSees)
    {
        EXPECT_EQ(m_frame->m_results.at(static_cast<UINT>(NM_DBLCLK)), GetParam().returned ? 1 : 0);
    }
    else
    {
        // The result counts as nobody else answers the control.
        bool const isOpen = m_tree->GetItemState(m_a, TVIS_EXPANDED) != 0;
        EXPECT_EQ(isOpen, GetParam().returned) << "a result of 1 keeps the control from closing the item";
    }
}

INSTANTIATE_TEST_SUITE_P(All, TreeDoubleClick,
                         testing::Values(Answer{"Nothing", false, 0, true}, Answer{"True", true, 0, true},
                                         Answer{"Result", false, 1, false}, Answer{"Both", true, kWide, false}),
                         [](auto const& info) { return std::string(info.param.name); });

TEST_F(TreeHooks, ADoubleClickBesideAllItemsHasNone)
{
    support::MoveMouse(EmptyPlace());
    support::Settle();
    NMHDR header{m_tree->m_hWnd, kTreeId, static_cast<UINT>(NM_DBLCLK)};
    m_frame->SendMessage(WM_NOTIFY, kTreeId, reinterpret_cast<LPARAM>(&header));
    EXPECT_THAT(m_tree->m_dblClicks, ElementsAre(nullptr));
}

// --- context menus

struct TreeMenu : TreeHooks, testing::WithParamInterface<Answer>
{
};

TEST_P(TreeMenu, IsAskedOfTheParentUnlessTheHookKeepsIt)
{
    LRESULT entry = -1;
    m_tree->m_cntxMenu = [&](HTREEITEM, CPoint, LRESULT* result) {
        entry = *result;
        *result = GetParam().result;
        return GetParam().returned;
    };
    POINT const place = PlaceOf(m_c);
    Click(place, Button::right);
    ASSERT_EQ(m_tree->m_menus.size(), 1U);
    EXPECT_EQ(m_tree->m_menus[0].first, m_c);
    EXPECT_EQ(m_tree->m_menus[0].second, CPoint(place)) << "on the screen";
    EXPECT_EQ(entry, 0);
    EXPECT_EQ(m_frame->Saw(static_cast<UINT>(NM_RCLICK)), GetParam().parentSees ? 1 : 0);
    if (GetParam().parentSees)
    {
        EXPECT_EQ(m_frame->m_results.at(static_cast<UINT>(NM_RCLICK)), GetParam().returned ? 1 : 0);
    }
    else
    {
        // The result counts as nobody else answers the control.
        EXPECT_EQ(m_frame->m_menusAsked, GetParam().returned ? 0 : 1)
            << "a result of 1 keeps it from asking for a menu";
    }
}

INSTANTIATE_TEST_SUITE_P(All, TreeMenu,
                         testing::Values(Answer{"Nothing", false, 0, true}, Answer{"True", true, 0, true},
                                         Answer{"Result", false, 1, false}, Answer{"Both", true, kWide, false}),
                         [](auto const& info) { return std::string(info.param.name); });

TEST_F(TreeHooks, AMenuBesideAllItemsHasNone)
{
    Click(EmptyPlace(), Button::right);
    ASSERT_EQ(m_tree->m_menus.size(), 1U);
    EXPECT_EQ(m_tree->m_menus[0].first, nullptr);
}

TEST_F(TreeHooks, ARightClickOutsideTheWindowAsksNoHook)
{
    MoveTo(ScreenPlace(-10, 50));
    NMHDR header{m_tree->m_hWnd, kTreeId, static_cast<UINT>(NM_RCLICK)};
    EXPECT_EQ(m_frame->SendMessage(WM_NOTIFY, kTreeId, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_THAT(m_tree->m_menus, IsEmpty());
    EXPECT_EQ(m_frame->Saw(static_cast<UINT>(NM_RCLICK)), 1) << "the parent sees it";
}

// --- buttons

TEST_F(TreeHooks, ARightClickSelectsOnlyWhenThatIsEnabled)
{
    Click(PlaceOf(m_c), Button::right);
    EXPECT_EQ(m_tree->GetSelectedItem(), m_a);
    m_tree->EnableRghtSlct(true);
    Click(PlaceOf(m_b), Button::right);
    EXPECT_EQ(m_tree->GetSelectedItem(), m_b);
}

TEST_F(TreeHooks, ARightClickSelectsBeforeAMenuIsAskedFor)
{
    m_tree->EnableRghtSlct(true);
    Click(PlaceOf(m_c), Button::right);
    ASSERT_EQ(m_tree->m_menus.size(), 1U);
    EXPECT_EQ(m_tree->m_selectedAtMenu, m_c);
}

TEST_F(TreeHooks, ARightClickBesideAllItemsKeepsTheSelection)
{
    m_tree->EnableRghtSlct(true);
    Click(EmptyPlace(), Button::right);
    EXPECT_EQ(m_tree->GetSelectedItem(), m_a);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
}

TEST_F(TreeHooks, ThePressOfEitherButtonNotesTheItemAndTheReleaseForgetsIt)
{
    CPoint const place = ClientPlaceOf(m_c);
    LPARAM const where = MAKELPARAM(place.x, place.y);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
    Click(PlaceOf(m_c));
    EXPECT_EQ(m_tree->m_clickAtPress, m_c) << "the hook sees it already";
    m_tree->SendMessage(WM_LBUTTONUP, 0, where);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
    EXPECT_EQ(m_tree->m_reached.back().first, UINT(WM_LBUTTONUP)) << "goes on to the control";

    Click(PlaceOf(m_c), Button::right);
    EXPECT_EQ(m_tree->GetClickItem(), m_c) << "the control's own wait for a drag swallowed the release";
    m_tree->SendMessage(WM_RBUTTONUP, 0, where);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
}

TEST_F(TreeHooks, TheHookMayKeepAPressFromTheControl)
{
    m_tree->m_lButtonDown = [](HTREEITEM, unsigned int, CPoint) { return true; };
    Click(PlaceOf(m_c));
    ASSERT_EQ(m_tree->m_presses.size(), 1U);
    EXPECT_EQ(m_tree->m_presses[0].first, m_c);
    EXPECT_EQ(m_tree->m_presses[0].second, ClientPlaceOf(m_c));
    EXPECT_EQ(m_tree->m_pressFlags, static_cast<unsigned int>(MK_LBUTTON));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_a);
    EXPECT_EQ(m_tree->Reached(WM_LBUTTONDOWN), 0);
    m_tree->m_lButtonDown = nullptr;
    Click(PlaceOf(m_b)); // elsewhere, or it would be a double click
    EXPECT_EQ(m_tree->GetSelectedItem(), m_b);
    EXPECT_EQ(m_tree->Reached(WM_LBUTTONDOWN), 1);
}

TEST_F(TreeHooks, APressBesideAllItemsHasNone)
{
    Click(EmptyPlace());
    ASSERT_EQ(m_tree->m_presses.size(), 1U);
    EXPECT_EQ(m_tree->m_presses[0].first, nullptr);
}

// --- label edits

class TreeLabelEdit : public TreeHooks
{
protected:
    void SetUp() override
    {
        TreeHooks::SetUp();
        m_tree->EnableEdit(true);
    }
    [[nodiscard]] HWND OpenEditor(HTREEITEM item)
    {
        CEdit const* const edit = m_tree->EditLabel(item);
        support::Settle();
        return edit != nullptr ? edit->m_hWnd : nullptr;
    }
    [[nodiscard]] bool IsOpen() const { return m_tree->GetEditControl() != nullptr; }
};

TEST_F(TreeLabelEdit, IsToldToTheHooksAndTakenIfTheHookSaysSo)
{
    m_tree->m_endLabelEdit = [](NMHDR*, LRESULT* result) { *result = 1; };
    ASSERT_NE(OpenEditor(m_c), nullptr);
    EXPECT_EQ(m_tree->m_editsBegun, 1);
    support::TypeText("delta");
    support::PressKey(VK_RETURN);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_THAT(m_tree->m_editsEnded, ElementsAre("delta"));
    EXPECT_STREQ(m_tree->GetItemText(m_c), "delta");
}

TEST_F(TreeLabelEdit, IsNotTakenByItself)
{
    ASSERT_NE(OpenEditor(m_c), nullptr);
    support::TypeText("delta");
    support::PressKey(VK_RETURN);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_THAT(m_tree->m_editsEnded, ElementsAre("delta"));
    EXPECT_STREQ(m_tree->GetItemText(m_c), "gamma");
}

TEST_F(TreeLabelEdit, GivenUpHasNoText)
{
    m_tree->m_endLabelEdit = [](NMHDR*, LRESULT* result) { *result = 1; };
    ASSERT_NE(OpenEditor(m_c), nullptr);
    support::TypeText("delta");
    support::PressKey(VK_ESCAPE);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_THAT(m_tree->m_editsEnded, ElementsAre("(given up)"));
    EXPECT_STREQ(m_tree->GetItemText(m_c), "gamma");
}

TEST_F(TreeLabelEdit, EndedByMessageIsToldOnceAndGivenUpAllTheSame)
{
    m_tree->m_endLabelEdit = [](NMHDR*, LRESULT* result) { *result = 1; };
    for (int round = 1; round <= 2; ++round)
    {
        HWND const edit = OpenEditor(m_c);
        ASSERT_NE(edit, nullptr);
        ::SetWindowTextA(edit, "delta");
        m_tree->SendMessage(TVM_ENDEDITLABELNOW, TRUE);
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(m_tree->m_editsEnded.size(), static_cast<std::size_t>(round));
        EXPECT_EQ(m_tree->m_editsEnded.back(), "(given up)");
        EXPECT_STREQ(m_tree->GetItemText(m_c), "gamma");
    }
}

TEST_F(TreeLabelEdit, CanBeForbiddenByTheHook)
{
    m_tree->m_beginLabelEdit = [](NMHDR*, LRESULT* result) { *result = 1; };
    EXPECT_EQ(OpenEditor(m_c), nullptr);
    EXPECT_EQ(m_tree->m_editsBegun, 1);
}

TEST_F(TreeLabelEdit, IsNotToldWhenItIsNotEnabled)
{
    m_tree->EnableEdit(false);
    ASSERT_NE(OpenEditor(m_c), nullptr) << "the style alone opens the editor";
    m_tree->m_reached.clear();
    support::TypeText("delta");
    support::PressKey(VK_RETURN);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_EQ(m_tree->m_editsBegun, 0);
    EXPECT_THAT(m_tree->m_editsEnded, IsEmpty());
    EXPECT_STREQ(m_tree->GetItemText(m_c), "gamma");
    EXPECT_EQ(m_tree->Reached(WM_HSCROLL), 0);
}

TEST_F(TreeLabelEdit, NeverReachesTheParent)
{
    ASSERT_NE(OpenEditor(m_c), nullptr);
    support::PressKey(VK_RETURN);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_EQ(m_frame->Saw(TVN_BEGINLABELEDIT) + m_frame->Saw(TVN_ENDLABELEDIT), 0);
}

TEST_F(TreeLabelEdit, LeavesTheHorizontalScrollPositionWhereItWas)
{
    HTREEITEM const wide = Add(std::string(300, 'w').c_str());
    support::Settle();
    int saved = 0;
    m_tree->m_beginLabelEdit = [&](NMHDR*, LRESULT*) { saved = m_tree->GetScrollPos(SB_HORZ); };
    m_tree->m_endLabelEdit = [&](NMHDR*, LRESULT*) {
        m_tree->MoveScroll(0, saved + 40); // as the editor may have, to show the caret
        m_tree->m_reached.clear();
    };
    m_tree->MoveScroll(0, 150);
    ASSERT_NE(OpenEditor(m_c), nullptr);
    ASSERT_GT(saved, 0);
    support::PressKey(VK_RETURN);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_EQ(m_tree->GetScrollPos(SB_HORZ), saved);
    EXPECT_THAT(m_tree->m_reached,
                testing::Contains(std::pair<UINT, WPARAM>(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, saved))));
    CRect text;
    m_tree->MoveScroll(0, 0);
    m_tree->GetItemRect(wide, text, TRUE);
    int const unscrolled = text.left;
    m_tree->MoveScroll(0, saved);
    m_tree->GetItemRect(wide, text, TRUE);
    EXPECT_EQ(text.left, unscrolled - saved) << "the view moves with the bar";
}

TEST_F(TreeLabelEdit, ItsKeysAreNotTakenForCommands)
{
    m_tree->m_endLabelEdit = [](NMHDR*, LRESULT* result) { *result = 1; };
    m_frame->m_takesKeys = true;
    HWND const edit = OpenEditor(m_c);
    ASSERT_NE(edit, nullptr);
    support::PressKey('X');
    support::PressKey('Y');
    support::Settle();
    char text[20] = "";
    ::GetWindowTextA(edit, text, sizeof text);
    EXPECT_STREQ(text, "xy") << "each key once";
    support::PressKey(VK_RETURN);
    ASSERT_TRUE(support::PumpUntil([&] { return !IsOpen(); }));
    EXPECT_EQ(m_frame->m_keysTaken, 0);
    EXPECT_STREQ(m_tree->GetItemText(m_c), "xy");
    support::PressKey('X');
    support::Settle();
    EXPECT_GT(m_frame->m_keysTaken, 0) << "without an editor others may take them";
}

TEST_F(TreeLabelEdit, OnlyPressedKeysAndCharactersAreKeptForTheEditor)
{
    ASSERT_NE(OpenEditor(m_c), nullptr);
    MSG message{};
    message.hwnd = m_tree->GetEditControl()->m_hWnd;
    for (UINT const other : {UINT(WM_KEYUP), UINT(WM_SYSKEYDOWN), UINT(WM_MOUSEMOVE), UINT(WM_SYSCHAR)})
    {
        message.message = other;
        EXPECT_FALSE(m_tree->PreTranslateMessage(&message)) << other;
    }
}

// --- scrolling

TEST_F(TreeHooks, MoveScrollMovesTheBarAndTheView)
{
    for (int i = 0; i < 60; ++i)
    {
        Add(std::string(300, 'w').c_str());
    }
    support::Settle();
    m_tree->m_reached.clear();
    m_tree->MoveScroll(1, 7);
    EXPECT_EQ(m_tree->GetScrollPos(SB_VERT), 7);
    EXPECT_THAT(m_tree->m_reached,
                testing::Contains(std::pair<UINT, WPARAM>(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 7))));
    EXPECT_EQ(m_tree->Reached(WM_HSCROLL), 0);
    EXPECT_NE(m_tree->GetFirstVisibleItem(), m_a);
    m_tree->m_reached.clear();
    m_tree->MoveScroll(0, 30);
    EXPECT_EQ(m_tree->GetScrollPos(SB_HORZ), 30);
    EXPECT_THAT(m_tree->m_reached,
                testing::Contains(std::pair<UINT, WPARAM>(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 30))));
    EXPECT_EQ(m_tree->Reached(WM_VSCROLL), 0);
}

// --- tool tips

/// Is window `upper` nearer to the user than window `lower`.
bool IsAbove(HWND upper, HWND lower)
{
    for (HWND window = ::GetWindow(upper, GW_HWNDNEXT); window != nullptr; window = ::GetWindow(window, GW_HWNDNEXT))
    {
        if (window == lower)
        {
            return true;
        }
    }
    return false;
}

TEST_F(TreeHooks, AToolTipThatShowsIsBroughtToTheTop)
{
    HWND const tips = m_tree->GetToolTips()->m_hWnd;
    CWnd other; // in the same layer of windows
    DWORD const layer = static_cast<DWORD>(::GetWindowLongA(tips, GWL_EXSTYLE)) & WS_EX_TOPMOST;
    ASSERT_TRUE(other.CreateEx(layer, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, CRect(300, 300, 320, 320),
                               nullptr, 0));
    ASSERT_TRUE(IsAbove(other, tips));
    CRect before;
    ::GetWindowRect(tips, before);
    HWND const active = ::GetActiveWindow();
    NMHDR header{tips, 0, static_cast<UINT>(TTN_SHOW)};
    EXPECT_EQ(m_tree->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 1);
    EXPECT_TRUE(IsAbove(tips, other));
    CRect after;
    ::GetWindowRect(tips, after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(::GetActiveWindow(), active);
    other.DestroyWindow();
}

TEST_F(TreeHooks, WithoutAToolTipWindowItsNotificationIsAnsweredAllTheSame)
{
    Open(kTreeStyle | TVS_NOTOOLTIPS);
    ASSERT_EQ(m_tree->GetToolTips(), nullptr);
    NMHDR header{m_tree->m_hWnd, 0, static_cast<UINT>(TTN_SHOW)};
    EXPECT_EQ(m_tree->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 1);
}

/// Handles a notification of a child of its own, and leaves the result as it comes.
class ParentTree : public HookTree
{
public:
    int m_heard = 0;

protected:
    afx_msg void OnChild(NMHDR*, LRESULT*) { ++m_heard; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(ParentTree, HookTree)
    ON_NOTIFY(kFromChild, kChildId, &ParentTree::OnChild)
END_MESSAGE_MAP()

TEST_F(TreeHooks, OtherNotificationsGoTheirWayWithAResultOfOne)
{
    ParentTree tree;
    ASSERT_TRUE(tree.Create(kTreeStyle, CRect(300, 20, 400, 120), m_frame.get(), kTreeId + 1));
    CStatic child;
    ASSERT_TRUE(child.Create("", WS_CHILD, CRect(0, 0, 10, 10), &tree, kChildId));
    NMHDR header{child.m_hWnd, kChildId, kFromChild};
    EXPECT_EQ(tree.SendMessage(WM_NOTIFY, kChildId, reinterpret_cast<LPARAM>(&header)), 1);
    EXPECT_EQ(tree.m_heard, 1);
    header.code = kFromChild - 1;
    EXPECT_EQ(tree.SendMessage(WM_NOTIFY, kChildId, reinterpret_cast<LPARAM>(&header)), 0) << "nobody handles this one";
}

// --- painting

/// The tree's client area as it stands on the screen.
std::unique_ptr<Picture> Photograph(CWnd& window)
{
    support::Settle();
    CRect client;
    window.GetClientRect(client);
    auto picture = std::make_unique<Picture>(client.Width(), client.Height(), RGB(255, 0, 255));
    CPoint corner(0, 0);
    window.ClientToScreen(&corner);
    (void)support::ScreenPixel(corner); // the screen has taken everything in
    CClientDC screen(nullptr);
    picture->DC()->BitBlt(0, 0, client.Width(), client.Height(), &screen, corner.x, corner.y, SRCCOPY);
    return picture;
}

TEST_F(TreeHooks, ADisabledTreePaintsAsIfEnabled)
{
    m_frame->SetFocus();
    auto const enabled = Photograph(*m_tree);
    m_tree->EnableWindow(FALSE);
    m_tree->Invalidate();
    m_tree->m_enabledAtPaint = false;
    auto const disabled = Photograph(*m_tree);
    EXPECT_TRUE(disabled->DifferenceTo(*enabled).IsRectEmpty());
    EXPECT_FALSE(disabled->Painted().IsRectEmpty());
    EXPECT_TRUE(m_tree->m_enabledAtPaint) << "the control paints an enabled window";
    EXPECT_FALSE(m_tree->IsWindowEnabled()) << "which is disabled again";
    m_tree->m_reached.clear();
    support::Settle();
    EXPECT_EQ(m_tree->Reached(WM_PAINT), 0) << "and doesn't ask for another paint for ever";
    EXPECT_FALSE(::GetUpdateRect(m_tree->m_hWnd, nullptr, FALSE));
}

TEST_F(TreeHooks, AnEnabledTreeIsNotSwitchedByPainting)
{
    m_tree->m_reached.clear();
    m_tree->Invalidate();
    support::Settle();
    EXPECT_GE(m_tree->Reached(WM_PAINT), 1);
    EXPECT_EQ(m_tree->Reached(WM_ENABLE), 0);
    EXPECT_TRUE(m_tree->IsWindowEnabled());
}

TEST_F(TreeHooks, TheHandleOfANullObjectIsNull)
{
    EXPECT_EQ(static_cast<HWND>(*m_tree), m_tree->m_hWnd);
    CTavTreeCtrl* volatile none = nullptr; // so that the compiler doesn't see it
    EXPECT_EQ(none->operator HWND(), nullptr);
}

} // namespace
