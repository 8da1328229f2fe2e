// TreeCursorTest.cpp - the tree that gives out cursors, and everything that a cursor forwards

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <memory>

namespace
{

constexpr UINT kId = 31;
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_EDITLABELS;

// a
// +- b
// |  +- c
// +- d
// e
class TreeCursorTest : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
        m_tree = std::make_unique<CTavTreeCtrlEx>();
        ASSERT_TRUE(m_tree->Create(kStyle, CRect(10, 10, 210, 210), m_frame.get(), kId));
        m_a = m_tree->InsertItem("a");
        m_b = m_a.AddTail("b", CTreeCursor::kNoImage);
        m_c = m_b.AddTail("c", CTreeCursor::kNoImage);
        m_d = m_a.AddTail("d", CTreeCursor::kNoImage);
        m_e = m_tree->InsertItem("e");
    }
    void TearDown() override
    {
        m_tree.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    void ExpectIs(CTreeCursor const& cursor, HTREEITEM item) const
    {
        EXPECT_EQ(static_cast<HTREEITEM>(cursor), item);
        EXPECT_EQ(cursor.GetTree(), m_tree.get());
    }

    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<CTavTreeCtrlEx> m_tree;
    CTreeCursor m_a;
    CTreeCursor m_b;
    CTreeCursor m_c;
    CTreeCursor m_d;
    CTreeCursor m_e;
};

// --- the value

TEST_F(TreeCursorTest, StartsWithoutItemAndTree)
{
    CTreeCursor const none;
    EXPECT_EQ(static_cast<HTREEITEM>(none), nullptr);
    EXPECT_EQ(none.GetTree(), nullptr);
    EXPECT_EQ(none.GetData(), 0U);
}

TEST_F(TreeCursorTest, WithoutATreeDoesNothing)
{
    CTreeCursor none;
    CRect rect;
    int image = 5;
    int selected = 6;
    for (CTreeCursor const& cursor :
         {none.GetNext(TVGN_NEXT), none.GetChild(), none.GetNextSibling(), none.GetPrevSibling(), none.GetParent(),
          none.GetNextVisible(), none.GetPrevVisible(), none.GetFirstVisible(), none.GetSelected(),
          none.GetDropHilight(), none.GetRoot(), none.AddHead("x", 1), none.AddTail("x", 1),
          none.InsertAfter("x", TVI_LAST, 1)})
    {
        EXPECT_EQ(static_cast<HTREEITEM>(cursor), nullptr);
        EXPECT_EQ(cursor.GetTree(), nullptr);
    }
    EXPECT_EQ(none.GetRect(rect, TRUE), 0);
    EXPECT_TRUE(none.GetText().IsEmpty());
    EXPECT_EQ(none.GetImage(image, selected), 0);
    EXPECT_EQ(image, 5);
    EXPECT_EQ(none.GetImageID(), 0);
    EXPECT_EQ(none.GetState(~0U), 0U);
    EXPECT_EQ(none.HasChildren(), 0);
    EXPECT_EQ(none.IsExpanded(), 0);
    EXPECT_EQ(none.CreateDragImage(), nullptr);
    EXPECT_EQ(none.SetText("x"), 0);
    EXPECT_EQ(none.SetImage(1, 2), 0);
    EXPECT_EQ(none.SetState(1, 1), 0);
    EXPECT_EQ(none.SetData(1), 0);
    EXPECT_EQ(none.Delete(), 0);
    EXPECT_EQ(none.Expand(TVE_EXPAND), 0);
    EXPECT_EQ(none.Select(TVGN_CARET), 0);
    EXPECT_EQ(none.Select(), 0);
    EXPECT_EQ(none.SelectDropTarget(), 0);
    EXPECT_EQ(none.SelectSetFirstVisible(), 0);
    EXPECT_EQ(none.EditLabel(), nullptr);
    EXPECT_EQ(none.SortChildren(), 0);
    EXPECT_EQ(none.EnsureVisible(), 0);
}

TEST_F(TreeCursorTest, HoldsItemAndTreeAndIsCopied)
{
    CTreeCursor const made(m_b, m_tree.get());
    ExpectIs(made, m_b);
    CTreeCursor const copy(made);
    ExpectIs(copy, m_b);
    CTreeCursor assigned;
    assigned = made;
    ExpectIs(assigned, m_b);
    CTreeCursor& self = assigned;
    assigned = self;
    ExpectIs(assigned, m_b);
}

TEST_F(TreeCursorTest, WithoutAnItemHasNoData)
{
    CTreeCursor const cursor(nullptr, m_tree.get());
    EXPECT_EQ(cursor.GetData(), 0U);
}

// --- navigation

TEST_F(TreeCursorTest, GoesToTheRelatives)
{
    ExpectIs(m_a.GetChild(), m_b);
    ExpectIs(m_b.GetNextSibling(), m_d);
    ExpectIs(m_d.GetPrevSibling(), m_b);
    ExpectIs(m_c.GetParent(), m_b);
    ExpectIs(m_a.GetNext(TVGN_CHILD), m_b);
    ExpectIs(m_a.GetNext(TVGN_NEXT), m_e);
    ExpectIs(m_a.GetNextVisible(), m_e);
    m_a.Expand(TVE_EXPAND);
    ExpectIs(m_a.GetNextVisible(), m_b);
    ExpectIs(m_e.GetPrevVisible(), m_d);
}

TEST_F(TreeCursorTest, WithoutARelativeStillNamesTheTree)
{
    ExpectIs(m_c.GetChild(), nullptr);
    ExpectIs(m_d.GetNextSibling(), nullptr);
    ExpectIs(m_b.GetPrevSibling(), nullptr);
    ExpectIs(m_a.GetParent(), nullptr);
    ExpectIs(m_a.GetPrevVisible(), nullptr);
    ExpectIs(m_e.GetNextVisible(), nullptr);
}

TEST_F(TreeCursorTest, GoesToThePlacesOfTheWholeTreeFromAnyItem)
{
    m_d.Select();
    m_b.SelectDropTarget();
    for (CTreeCursor const& cursor : {m_a, m_b, m_c, m_d, m_e, CTreeCursor(nullptr, m_tree.get())})
    {
        ExpectIs(cursor.GetRoot(), m_a);
        ExpectIs(cursor.GetFirstVisible(), m_a);
        ExpectIs(cursor.GetSelected(), m_d);
        ExpectIs(cursor.GetDropHilight(), m_b);
    }
    m_tree->SelectItem(nullptr);
    m_tree->SelectDropTarget(nullptr);
    ExpectIs(m_a.GetSelected(), nullptr);
    ExpectIs(m_a.GetDropHilight(), nullptr);
}

TEST_F(TreeCursorTest, IsWhatTheTreesNavigationGives)
{
    m_d.Select();
    m_b.SelectDropTarget();
    m_a.Expand(TVE_EXPAND);
    ExpectIs(m_tree->GetNextItem(m_a, TVGN_CHILD), m_b);
    ExpectIs(m_tree->GetChildItem(m_a), m_b);
    ExpectIs(m_tree->GetNextSiblingItem(m_b), m_d);
    ExpectIs(m_tree->GetPrevSiblingItem(m_d), m_b);
    ExpectIs(m_tree->GetParentItem(m_c), m_b);
    ExpectIs(m_tree->GetFirstVisibleItem(), m_a);
    ExpectIs(m_tree->GetNextVisibleItem(m_a), m_b);
    ExpectIs(m_tree->GetPrevVisibleItem(m_b), m_a);
    ExpectIs(m_tree->GetSelectedItem(), m_d);
    ExpectIs(m_tree->GetDropHilightItem(), m_b);
    ExpectIs(m_tree->GetRootItem(), m_a);
    ExpectIs(m_tree->GetChildItem(m_c), nullptr);
}

TEST_F(TreeCursorTest, IsWhatAHitTestGives)
{
    CRect text;
    ASSERT_NE(m_e.GetRect(text, TRUE), 0);
    unsigned int flags = 0;
    ExpectIs(m_tree->HitTest(text.CenterPoint(), &flags), m_e);
    EXPECT_EQ(flags, static_cast<unsigned int>(TVHT_ONITEMLABEL));
    ExpectIs(m_tree->HitTest(text.CenterPoint(), nullptr), m_e);
    TVHITTESTINFO info{};
    info.pt = text.CenterPoint();
    ExpectIs(m_tree->HitTest(&info), m_e);
    EXPECT_EQ(info.hItem, static_cast<HTREEITEM>(m_e));
    ExpectIs(m_tree->HitTest(CPoint(100, 190), &flags), nullptr);
}

TEST_F(TreeCursorTest, CallsAreChained)
{
    CTreeCursor const leaf = m_tree->GetRootItem().GetChild().AddTail("leaf", -1);
    ExpectIs(leaf.GetParent(), m_b);
    EXPECT_STREQ(leaf.GetText(), "leaf");
}

// --- insertion

TEST_F(TreeCursorTest, InsertsUnderItself)
{
    CTreeCursor const head = m_a.AddHead("head", -1);
    CTreeCursor const tail = m_a.AddTail("tail", -1);
    CTreeCursor const middle = m_a.InsertAfter("middle", m_b, -1);
    ExpectIs(head, m_tree->GetChildItem(m_a));
    ExpectIs(head.GetNextSibling(), m_b);
    ExpectIs(m_b.GetNextSibling(), middle);
    ExpectIs(m_d.GetNextSibling(), tail);
    ExpectIs(tail.GetParent(), m_a);
    EXPECT_STREQ(middle.GetText(), "middle");
    CTreeCursor top(nullptr, m_tree.get());
    CTreeCursor const topmost = top.AddHead("top", -1);
    ExpectIs(topmost, m_tree->GetRootItem());
}

/// Notes what an insertion asks of the control.
class WatchedTree : public CTavTreeCtrlEx
{
public:
    TVINSERTSTRUCT m_last{};

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == TVM_INSERTITEMA)
        {
            m_last = *reinterpret_cast<TVINSERTSTRUCT const*>(lParam);
        }
        return CTavTreeCtrlEx::WindowProc(message, wParam, lParam);
    }
};

TEST_F(TreeCursorTest, InsertsImagesOnlyWhenGivenOne)
{
    WatchedTree tree;
    ASSERT_TRUE(tree.Create(kStyle, CRect(0, 0, 50, 50), m_frame.get(), kId + 1));
    CTreeCursor root(nullptr, &tree);
    root.AddTail("x", -1);
    EXPECT_EQ(tree.m_last.item.mask, UINT(TVIF_TEXT));
    CTreeCursor const pictured = root.AddTail("x", 3);
    EXPECT_EQ(tree.m_last.item.mask, UINT(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE));
    EXPECT_EQ(tree.m_last.hInsertAfter, TVI_LAST);
    int image = 0;
    int selected = 0;
    EXPECT_NE(pictured.GetImage(image, selected), 0);
    EXPECT_EQ(image, 3);
    EXPECT_EQ(selected, 3);
    root.AddHead("x", 0);
    EXPECT_EQ(tree.m_last.item.mask, UINT(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE)) << "0 is an image";
    EXPECT_EQ(tree.m_last.hInsertAfter, TVI_FIRST);
}

TEST_F(TreeCursorTest, IsWhatTheTreesInsertionsGive)
{
    TVINSERTSTRUCT insert{};
    insert.hParent = m_a;
    insert.hInsertAfter = TVI_FIRST;
    CTreeCursor const inserted = m_tree->InsertItem(&insert);
    ExpectIs(inserted, m_tree->GetChildItem(m_a));
    ExpectIs(m_tree->InsertItem(static_cast<TVINSERTSTRUCT*>(nullptr)), nullptr);
    auto const pointer = reinterpret_cast<LPARAM>(this);
    CTreeCursor const full = m_tree->InsertItem(TVIF_TEXT | TVIF_PARAM | TVIF_STATE | TVIF_IMAGE | TVIF_SELECTEDIMAGE,
                                                "full", 4, 5, TVIS_BOLD, TVIS_BOLD, pointer, m_e, TVI_LAST);
    ExpectIs(full.GetParent(), m_e);
    EXPECT_STREQ(full.GetText(), "full");
    EXPECT_EQ(full.GetData(), static_cast<DWORD_PTR>(pointer)) << "as wide as a pointer";
    EXPECT_EQ(full.GetState(TVIS_BOLD), UINT(TVIS_BOLD));
    int image = 0;
    int selected = 0;
    full.GetImage(image, selected);
    EXPECT_EQ(image, 4);
    EXPECT_EQ(selected, 5);
    CTreeCursor const pictured = m_tree->InsertItem("pictured", 6, 7, m_e, full);
    ExpectIs(full.GetNextSibling(), pictured);
    pictured.GetImage(image, selected);
    EXPECT_EQ(image, 6);
    EXPECT_EQ(selected, 7);
    CTreeCursor const text = m_tree->InsertItem("text", m_e, TVI_FIRST);
    ExpectIs(text, m_tree->GetChildItem(m_e));
    ExpectIs(m_tree->InsertItem("last").GetPrevSibling(), m_e);
}

TEST_F(TreeCursorTest, TakesNullTextsAsEmptyAndLongOnesWhole)
{
    EXPECT_STREQ(m_a.AddTail(nullptr, -1).GetText(), "");
    EXPECT_STREQ(m_tree->InsertItem(static_cast<char const*>(nullptr)).GetText(), "");
    EXPECT_NE(m_b.SetText(nullptr), 0);
    EXPECT_STREQ(m_b.GetText(), "");
    CString const text('w', 300);
    EXPECT_TRUE(m_a.AddTail(text, -1).GetText() == text);
}

// --- forwarders

TEST_F(TreeCursorTest, TellsTheRectangles)
{
    CRect line;
    CRect text;
    EXPECT_NE(m_a.GetRect(line, FALSE), 0);
    EXPECT_NE(m_a.GetRect(text, TRUE), 0);
    EXPECT_GT(line.Width(), text.Width());
    EXPECT_EQ(m_b.GetRect(text, TRUE), 0) << "its parent is closed";
}

TEST_F(TreeCursorTest, TellsAndSetsTextImageStateAndData)
{
    EXPECT_NE(m_b.SetText("changed"), 0);
    EXPECT_STREQ(m_b.GetText(), "changed");
    EXPECT_NE(m_b.SetImage(8, 9), 0);
    int image = 0;
    int selected = 0;
    EXPECT_NE(m_b.GetImage(image, selected), 0);
    EXPECT_EQ(image, 8);
    EXPECT_EQ(selected, 9);
    EXPECT_EQ(m_b.GetImageID(), 8) << "also when the item is selected";
    m_b.Select();
    EXPECT_EQ(m_b.GetImageID(), 8);
    EXPECT_NE(m_b.SetState(TVIS_CUT | TVIS_BOLD, TVIS_CUT | TVIS_BOLD), 0);
    EXPECT_EQ(m_b.GetState(TVIS_CUT), UINT(TVIS_CUT));
    EXPECT_NE(m_b.SetState(0, TVIS_CUT), 0);
    EXPECT_EQ(m_b.GetState(TVIS_CUT | TVIS_BOLD), UINT(TVIS_BOLD));
    auto const pointer = reinterpret_cast<DWORD_PTR>(this);
    EXPECT_NE(m_b.SetData(pointer), 0);
    EXPECT_EQ(m_b.GetData(), pointer);
    EXPECT_EQ(m_tree->FindItem(pointer), static_cast<HTREEITEM>(m_b));
}

TEST_F(TreeCursorTest, TellsChildrenAndExpansion)
{
    EXPECT_NE(m_a.HasChildren(), 0);
    EXPECT_EQ(m_c.HasChildren(), 0);
    EXPECT_EQ(m_a.IsExpanded(), 0);
    EXPECT_NE(m_a.Expand(TVE_EXPAND), 0);
    EXPECT_EQ(m_a.IsExpanded(), TVIS_EXPANDED);
    EXPECT_NE(m_a.Expand(TVE_COLLAPSE), 0);
    EXPECT_EQ(m_a.IsExpanded(), 0);
}

TEST_F(TreeCursorTest, DeletesItsItemWithAllBelow)
{
    EXPECT_NE(m_b.Delete(), 0);
    EXPECT_EQ(m_tree->GetCount(), 3U);
    ExpectIs(m_a.GetChild(), m_d);
}

TEST_F(TreeCursorTest, DeletesNothingWithoutAnItem)
{
    EXPECT_EQ(m_c.GetChild().Delete(), 0) << "the control would take null for all items";
    EXPECT_EQ(m_tree->GetCount(), 5U);
}

TEST_F(TreeCursorTest, Selects)
{
    EXPECT_NE(m_c.Select(), 0);
    ExpectIs(m_tree->GetSelectedItem(), m_c);
    EXPECT_NE(m_e.Select(TVGN_CARET), 0);
    ExpectIs(m_tree->GetSelectedItem(), m_e);
    EXPECT_NE(m_a.SelectDropTarget(), 0);
    ExpectIs(m_tree->GetDropHilightItem(), m_a);
    for (int i = 0; i < 60; ++i)
    {
        m_tree->InsertItem("row");
    }
    support::Settle();
    EXPECT_NE(m_e.SelectSetFirstVisible(), 0);
    ExpectIs(m_tree->GetFirstVisibleItem(), m_e);
}

TEST_F(TreeCursorTest, BringsItsItemIntoView)
{
    EXPECT_EQ(m_a.IsExpanded(), 0);
    m_c.EnsureVisible();
    EXPECT_NE(m_a.IsExpanded(), 0);
    EXPECT_NE(m_b.IsExpanded(), 0);
    CRect rect;
    EXPECT_NE(m_c.GetRect(rect, TRUE), 0);
}

TEST_F(TreeCursorTest, SortsItsChildrenAndNoOthers)
{
    m_a.AddHead("z", -1);
    CTreeCursor const upper = m_d.AddTail("y", -1);
    CTreeCursor const lower = m_d.AddTail("x", -1);
    EXPECT_NE(m_a.SortChildren(), 0);
    ExpectIs(m_a.GetChild(), m_b);
    ExpectIs(m_b.GetNextSibling(), m_d);
    ExpectIs(m_d.GetChild(), upper);
    ExpectIs(upper.GetNextSibling(), lower);
}

TEST_F(TreeCursorTest, OpensTheEditor)
{
    m_tree->SetFocus();
    CEdit* const edit = m_e.EditLabel();
    ASSERT_NE(edit, nullptr);
    CString text;
    edit->GetWindowText(text);
    EXPECT_STREQ(text, "e");
    EXPECT_EQ(m_tree->GetEditControl()->m_hWnd, edit->m_hWnd);
    m_tree->SendMessage(TVM_ENDEDITLABELNOW, TRUE);
}

TEST_F(TreeCursorTest, MakesAnImageToDrag)
{
    m_tree->InitImages();
    std::unique_ptr<CImageList> const image(m_a.CreateDragImage());
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetImageCount(), 1);
}

TEST_F(TreeCursorTest, TheTreeGivesBackTheImageListThatItHad)
{
    CImageList first;
    CImageList second;
    ASSERT_TRUE(first.Create(16, 16, ILC_COLOR24, 1, 1));
    ASSERT_TRUE(second.Create(16, 16, ILC_COLOR24, 1, 1));
    EXPECT_EQ(m_tree->SetImageList(&first, TVSIL_NORMAL), nullptr);
    EXPECT_EQ(m_tree->SetImageList(&second, TVSIL_NORMAL), &first);
    EXPECT_EQ(m_tree->SetImageList(&first, TVSIL_STATE), nullptr);
    EXPECT_EQ(m_tree->GetImageList(TVSIL_STATE), &first);
    EXPECT_EQ(m_tree->SetImageList(nullptr, TVSIL_NORMAL), &second);
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL), nullptr);
}

} // namespace
