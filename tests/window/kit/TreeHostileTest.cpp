// TreeHostileTest.cpp - hooks that take away the items, the selection or the tree under their callers' feet

#include "TreeFixture.h"

using support::Button;
using Pair = HookTree::Pair;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// How a hook ends the tree.
enum class End
{
    window, ///< the object lives on without its window
    object, ///< the object goes, and its window with it
    frame   ///< the parent's window, and all in it
};

class TreeHostile : public TreeTest
{
protected:
    void SetUp() override
    {
        TreeTest::SetUp();
        Begin();
    }

    /// A new tree; a press in it isn't taken for the second of a double click, however soon it comes.
    void Begin()
    {
        Open(kTreeStyle | TVS_EDITLABELS);
        m_a = Add("alpha", TVI_ROOT, 1);
        m_b = Add("beta", m_a, 2);
        m_c = Add("gamma", m_a, 3);
        m_d = Add("delta", TVI_ROOT, 4);
        m_tree->Expand(m_a, TVE_EXPAND);
        m_tree->EnableLeftDrag(true);
        m_tree->EnableRghtDrag(true);
        m_tree->EnableRghtSlct(true);
        m_tree->EnableEdit(true);
        support::Settle();
    }

    void EndTree(End end)
    {
        switch (end)
        {
        case End::window:
            m_tree->DestroyWindow();
            break;
        case End::object:
            m_tree.reset();
            break;
        case End::frame:
            m_frame->DestroyWindow();
            break;
        }
    }

    void ExpectIdle() const
    {
        EXPECT_FALSE(m_tree->IsInDragMode());
        EXPECT_FALSE(m_tree->IsLeftDrag());
        EXPECT_FALSE(m_tree->IsRghtDrag());
        EXPECT_NE(::GetCapture(), m_tree->m_hWnd);
        EXPECT_EQ(CursorCount(), 0);
        EXPECT_FALSE(ImageDragRuns());
    }

    HTREEITEM m_a = nullptr;
    HTREEITEM m_b = nullptr;
    HTREEITEM m_c = nullptr;
    HTREEITEM m_d = nullptr;
};

// --- items that go during a drag

TEST_F(TreeHostile, TheEndOfTheDraggedItemEndsItsDragWithoutADrop)
{
    for (int kind = 0; kind < 4; ++kind)
    {
        Pull(m_b);
        ASSERT_TRUE(m_tree->IsInDragMode()) << kind;
        m_tree->m_askedTargets.clear();
        switch (kind)
        {
        case 0:
            m_tree->DeleteItem(m_b);
            break;
        case 1:
            m_tree->DeleteItem(m_a); // with all below it
            break;
        case 2:
            m_tree->DeleteAllItems();
            break;
        default:
            m_tree->Expand(m_a, TVE_COLLAPSE | TVE_COLLAPSERESET);
            break;
        }
        ExpectIdle();
        EXPECT_THAT(m_tree->m_askedTargets, IsEmpty());
        Release();
        EXPECT_THAT(m_tree->m_drops, IsEmpty());
        Begin();
    }
}

TEST_F(TreeHostile, TheEndOfAnotherItemLeavesTheDragAlone)
{
    Pull(m_b);
    m_tree->DeleteItem(m_c);
    EXPECT_EQ(m_tree->GetDragItem(), m_b);
    m_tree->DeleteItem(m_d);
    EXPECT_EQ(m_tree->GetDragItem(), m_b);
    MoveTo(PlaceOf(m_a));
    Release();
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_a)));
    ExpectIdle();
}

TEST_F(TreeHostile, AHookMayDeleteTheTargetDuringAMove)
{
    m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM target) {
        if (target == m_d)
        {
            m_tree->DeleteItem(m_d);
        }
        return true;
    };
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    EXPECT_EQ(m_tree->GetDropHilightItem(), nullptr);
    EXPECT_TRUE(m_tree->IsInDragMode());
    EXPECT_EQ(m_tree->GetCount(), 3U);
    MoveTo(EmptyPlace());
    Release();
    ExpectIdle();
}

TEST_F(TreeHostile, AHookMayDeleteTheDraggedItemDuringAMove)
{
    Pull(m_b);
    m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM) {
        m_tree->DeleteAllItems();
        return true;
    };
    MoveTo(EmptyPlace());
    ExpectIdle();
    m_tree->m_isDragTrgt = nullptr;
    Release();
    EXPECT_THAT(m_tree->m_drops, IsEmpty());
}

TEST_F(TreeHostile, AHookMayDeleteAnItemAtTheDropWhichThenIsNone)
{
    for (bool const dragged : {true, false})
    {
        Pull(m_b);
        MoveTo(PlaceOf(m_d));
        m_tree->m_isDragTrgt = [&](HTREEITEM item, HTREEITEM target) {
            m_tree->DeleteItem(dragged ? item : target);
            return true;
        };
        Release();
        EXPECT_THAT(m_tree->m_drops, IsEmpty()) << (dragged ? "the dragged one" : "the target");
        ExpectIdle();
        m_tree->m_isDragTrgt = nullptr;
        Begin();
    }
}

TEST_F(TreeHostile, TheDropHookMayDeleteTheDraggedItemAsAMoveDoes)
{
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    m_tree->m_onDragEnd = [&](HTREEITEM item, HTREEITEM target) {
        m_tree->AddItem(m_tree->GetItemText(item), m_tree->GetItemData(item), target, TVI_LAST);
        m_tree->DeleteItem(item);
        EXPECT_EQ(m_tree->GetDragItem(), nullptr);
        EXPECT_EQ(m_tree->GetDragData(), 0U);
        EXPECT_TRUE(m_tree->IsLeftDrag()) << "the drop still is under way";
    };
    Release();
    ExpectIdle();
    EXPECT_STREQ(m_tree->GetItemText(m_tree->GetChildItem(m_d)), "beta");
    EXPECT_EQ(m_tree->GetCount(), 4U);
}

TEST_F(TreeHostile, AHookMayDeleteTheItemThatIsAboutToBeDragged)
{
    m_tree->m_isDragItem = [&](HTREEITEM item) {
        m_tree->DeleteItem(item);
        return true;
    };
    Pull(m_b);
    ExpectIdle();
    EXPECT_EQ(m_tree->GetCount(), 3U);
    Release();
}

TEST_F(TreeHostile, TheSelectionHookMayDeleteTheItemUnderARightClick)
{
    m_tree->m_slctChg = [&](HTREEITEM, HTREEITEM item, LRESULT*) {
        if (item == m_c)
        {
            m_tree->m_slctChg = nullptr;
            m_tree->DeleteItem(m_c);
        }
        return true;
    };
    Click(PlaceOf(m_c), Button::right);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
    EXPECT_EQ(m_tree->GetCount(), 3U);
}

TEST_F(TreeHostile, TheClickedItemIsForgottenWithItsEnd)
{
    Click(PlaceOf(m_b));
    ASSERT_EQ(m_tree->GetClickItem(), m_b);
    m_tree->DeleteItem(m_c);
    EXPECT_EQ(m_tree->GetClickItem(), m_b);
    m_tree->DeleteItem(m_a);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
}

TEST_F(TreeHostile, ThePressHookMayDeleteThePressedItem)
{
    m_tree->m_lButtonDown = [&](HTREEITEM item, unsigned int, CPoint) {
        m_tree->DeleteItem(item);
        return false;
    };
    Click(PlaceOf(m_b));
    EXPECT_EQ(m_tree->GetCount(), 3U);
    EXPECT_EQ(m_tree->GetClickItem(), nullptr);
}

TEST_F(TreeHostile, ANameOf300CharactersIsDraggedAsAPictureOfBoundedWidth)
{
    constexpr int kMostWidth = 600;
    for (bool const hasImages : {false, true})
    {
        Begin();
        if (hasImages)
        {
            m_tree->InitImages();
        }
        HTREEITEM const wide = Add(std::string(300, 'w').c_str());
        support::Settle();
        m_tree->MoveScroll(0, 0);
        CRect text;
        ASSERT_TRUE(m_tree->GetItemRect(wide, text, TRUE));
        ASSERT_GT(text.Width(), kMostWidth);
        POINT const place = ScreenPlace(text.left + 10, text.CenterPoint().y);
        support::MoveMouse(place);
        support::Press();
        support::MoveMouse({place.x + 12, place.y});
        ASSERT_TRUE(support::PumpUntil([&] { return m_tree->IsInDragMode(); }));
        int width = 0;
        int height = 0;
        ::ImageList_GetIconSize(::ImageList_GetDragImage(nullptr, nullptr), &width, &height);
        EXPECT_GT(width, 200);
        EXPECT_LT(width, kMostWidth);
        Release();
        EXPECT_EQ(m_tree->m_drops.size(), 0U) << "dropped on itself";
        ExpectIdle();
    }
}

TEST_F(TreeHostile, AHostThatEndsTheDragWhenItLosesTheCaptureDropsOnce)
{
    /// Ends its drag as the capture goes, however it goes.
    class CarefulTree : public HookTree
    {
    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_CAPTURECHANGED)
            {
                EndDrag(nullptr);
            }
            return HookTree::WindowProc(message, wParam, lParam);
        }
    };
    auto careful = std::make_unique<CarefulTree>();
    ASSERT_TRUE(careful->Create(kTreeStyle, kTreePlace, m_frame.get(), kTreeId + 1));
    m_tree = std::move(careful);
    m_a = Add("alpha");
    m_b = Add("beta");
    m_tree->EnableLeftDrag(true);
    support::Settle();
    Pull(m_a);
    MoveTo(PlaceOf(m_b));
    Release();
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_a, m_b)));
    ExpectIdle();
}

// --- hooks that select

TEST_F(TreeHostile, TheSelectionHookMaySelectAnotherItem)
{
    m_tree->m_slctChg = [&](HTREEITEM, HTREEITEM item, LRESULT*) {
        if (item == m_c)
        {
            m_tree->SelectItem(m_d);
        }
        return false;
    };
    m_tree->SelectItem(m_c);
    EXPECT_EQ(m_tree->GetSelectedItem(), m_d);
    Click(PlaceOf(m_b));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_b);
    Click(PlaceOf(m_c));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_d);
}

TEST_F(TreeHostile, TheDropHookMaySelectAnotherItem)
{
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM) {
        m_tree->SelectItem(m_c);
        return true;
    };
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM target) { m_tree->SelectItem(target); };
    Release();
    EXPECT_THAT(m_tree->m_drops, ElementsAre(Pair(m_b, m_d)));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_d);
    ExpectIdle();
}

TEST_F(TreeHostile, ADropHookThatThrowsLeavesTheTreeIdle)
{
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    m_tree->m_onDragEnd = [](HTREEITEM, HTREEITEM) { AfxThrowUserException(); };
    Release();
    EXPECT_EQ(m_tree->m_drops.size(), 1U);
    ExpectIdle();
}

// --- trees that go

struct TreeEnd : TreeHostile, testing::WithParamInterface<End>
{
    /// The tree is gone, and nothing of a drag is left.
    void ExpectGone()
    {
        EXPECT_EQ(CursorCount(), 0);
        EXPECT_FALSE(ImageDragRuns());
        EXPECT_EQ(::GetCapture(), nullptr);
        if (m_tree != nullptr)
        {
            EXPECT_EQ(m_tree->m_hWnd, nullptr);
            EXPECT_FALSE(m_tree->IsInDragMode());
            EXPECT_FALSE(m_tree->IsLeftDrag() || m_tree->IsRghtDrag());
            EXPECT_EQ(m_tree->GetClickItem(), nullptr);
        }
        support::Release(Button::left);
        support::Release(Button::right);
        support::Settle();
    }
};

TEST_P(TreeEnd, DuringADragCallsNoHook)
{
    int asked = 0;
    Pull(m_b);
    m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM) { return ++asked != 0; };
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM) { ++asked; };
    EndTree(GetParam());
    EXPECT_EQ(asked, 0);
    if (GetParam() == End::object)
    {
        // The destructor leaves a running drag alone: only the end of the window ends it.
        EXPECT_EQ(CursorCount(), -1);
        EXPECT_TRUE(ImageDragRuns());
        ::ShowCursor(TRUE);
        CImageList::EndDrag();
    }
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfAMove)
{
    Pull(m_b);
    if (GetParam() == End::object)
    {
        m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM) {
            m_tree->DestroyWindow();
            m_tree.reset();
            return true;
        };
    }
    else
    {
        m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM) {
            EndTree(GetParam());
            return true;
        };
    }
    MoveTo(EmptyPlace());
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheTargetHookOfTheDrop)
{
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    m_tree->m_isDragTrgt = [&](HTREEITEM, HTREEITEM) {
        EndTree(GetParam());
        return true;
    };
    Release();
    if (m_tree != nullptr)
    {
        EXPECT_THAT(m_tree->m_drops, IsEmpty());
    }
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheDropHook)
{
    Pull(m_b);
    MoveTo(PlaceOf(m_d));
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM) { EndTree(GetParam()); };
    Release();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheDropHookOfARightDrag)
{
    Pull(m_b, Button::right);
    MoveTo(PlaceOf(m_d));
    m_tree->m_onDragEnd = [&](HTREEITEM, HTREEITEM) { EndTree(GetParam()); };
    Release(Button::right);
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfAPress)
{
    m_tree->m_lButtonDown = [&](HTREEITEM, unsigned int, CPoint) {
        EndTree(GetParam());
        return false;
    };
    support::Click(PlaceOf(m_b));
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookThatAllowsADrag)
{
    m_tree->m_isDragItem = [&](HTREEITEM) {
        EndTree(GetParam());
        return true;
    };
    POINT const place = PlaceOf(m_b);
    support::MoveMouse(place);
    support::Press();
    support::MoveMouse({place.x + 12, place.y});
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfASelection)
{
    m_tree->m_slctChg = [&](HTREEITEM, HTREEITEM, LRESULT*) {
        EndTree(GetParam());
        return true;
    };
    support::Click(PlaceOf(m_d));
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfASelectionByARightClick)
{
    m_tree->m_slctChg = [&](HTREEITEM, HTREEITEM, LRESULT*) {
        EndTree(GetParam());
        return true;
    };
    support::Click(PlaceOf(m_d), Button::right);
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfAKey)
{
    m_tree->m_keyDown = [&](unsigned short, LRESULT*) { EndTree(GetParam()); };
    support::PressKey(VK_F7);
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfADoubleClick)
{
    m_tree->m_dblClck = [&](HTREEITEM, LRESULT* result) {
        EndTree(GetParam());
        *result = 1;
        return true;
    };
    support::DoubleClick(PlaceOf(m_a));
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookOfAMenu)
{
    m_tree->m_cntxMenu = [&](HTREEITEM, CPoint, LRESULT* result) {
        EndTree(GetParam());
        *result = 1;
        return true;
    };
    support::Click(PlaceOf(m_d), Button::right);
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookThatOpensAnEditor)
{
    m_tree->m_beginLabelEdit = [&](NMHDR*, LRESULT* result) {
        EndTree(GetParam());
        *result = 1;
    };
    ::SendMessageA(m_tree->m_hWnd, TVM_EDITLABELA, 0, reinterpret_cast<LPARAM>(m_d));
    support::Settle();
    ExpectGone();
}

TEST_P(TreeEnd, MayComeInTheHookThatClosesAnEditor)
{
    m_tree->m_endLabelEdit = [&](NMHDR*, LRESULT*) { EndTree(GetParam()); };
    ASSERT_NE(m_tree->EditLabel(m_d), nullptr);
    support::PressKey(VK_RETURN);
    support::Settle();
    ExpectGone();
}

INSTANTIATE_TEST_SUITE_P(All, TreeEnd, testing::Values(End::window, End::object, End::frame), [](auto const& info) {
    return std::string(info.param == End::window ? "Window" : info.param == End::object ? "Object" : "Frame");
});

} // namespace
