#include "CountedTest.h"

#include <afxcmn.h>
#include <memory>

using support::Settle;
using support::TestFrame;

namespace
{
constexpr UINT kId = 44;
constexpr DWORD kTree = WS_CHILD | WS_VISIBLE | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_EDITLABELS;
const CRect kPlace(0, 0, 300, 250);

// root "a" with children "c" and "b", and root "z".
class TreeCtrlTest : public CountedTest
{
protected:
    void Fill(DWORD style = kTree)
    {
        m_frame = std::make_unique<TestFrame>();
        m_tree = std::make_unique<CTreeCtrl>();
        ASSERT_TRUE(m_tree->Create(style, kPlace, m_frame.get(), kId));
        m_a = m_tree->InsertItem("a");
        m_c = m_tree->InsertItem("c", m_a);
        m_b = m_tree->InsertItem("b", m_a);
        m_z = m_tree->InsertItem("z");
        ASSERT_NE(m_z, nullptr);
    }

    void TearDown() override
    {
        m_tree.reset();
        m_frame.reset();
        CountedTest::TearDown();
    }

    std::unique_ptr<TestFrame> m_frame;
    std::unique_ptr<CTreeCtrl> m_tree;
    HTREEITEM m_a = nullptr;
    HTREEITEM m_b = nullptr;
    HTREEITEM m_c = nullptr;
    HTREEITEM m_z = nullptr;
};

TEST_F(TreeCtrlTest, NoTreeIsMadeWithoutAParent)
{
    CTreeCtrl tree;
    EXPECT_FALSE(tree.Create(kTree, kPlace, nullptr, kId));
}

TEST_F(TreeCtrlTest, ItemsKnowTheirRelatives)
{
    Fill();
    EXPECT_EQ(m_tree->GetCount(), 4U);
    EXPECT_EQ(m_tree->GetRootItem(), m_a);
    EXPECT_EQ(m_tree->GetChildItem(m_a), m_c);
    EXPECT_EQ(m_tree->GetChildItem(m_z), nullptr);
    EXPECT_EQ(m_tree->GetNextSiblingItem(m_c), m_b);
    EXPECT_EQ(m_tree->GetNextSiblingItem(m_b), nullptr);
    EXPECT_EQ(m_tree->GetPrevSiblingItem(m_b), m_c);
    EXPECT_EQ(m_tree->GetParentItem(m_b), m_a);
    EXPECT_EQ(m_tree->GetParentItem(m_a), nullptr);
    EXPECT_EQ(m_tree->GetNextItem(m_a, TVGN_NEXT), m_z);
    EXPECT_TRUE(m_tree->ItemHasChildren(m_a));
    EXPECT_FALSE(m_tree->ItemHasChildren(m_z));
}

TEST_F(TreeCtrlTest, ItemsAreInsertedWithPicturesAndValues)
{
    Fill();
    const HTREEITEM pictured = m_tree->InsertItem("p", 1, 2, m_z);
    int image = 0;
    int selected = 0;
    EXPECT_TRUE(m_tree->GetItemImage(pictured, image, selected));
    EXPECT_EQ(image, 1);
    EXPECT_EQ(selected, 2);
    EXPECT_TRUE(m_tree->SetItemImage(pictured, 3, 4));
    m_tree->GetItemImage(pictured, image, selected);
    EXPECT_EQ(image, 3);
    EXPECT_EQ(selected, 4);
    EXPECT_FALSE(m_tree->GetItemImage(nullptr, image, selected));
    const HTREEITEM whole =
        m_tree->InsertItem(TVIF_TEXT | TVIF_PARAM | TVIF_STATE, "w", 0, 0, TVIS_BOLD, TVIS_BOLD, 99, m_z, TVI_FIRST);
    EXPECT_EQ(m_tree->GetChildItem(m_z), whole);
    EXPECT_EQ(m_tree->GetItemData(whole), 99U);
    EXPECT_EQ(m_tree->GetItemState(whole, TVIS_BOLD), UINT(TVIS_BOLD));
    TVINSERTSTRUCT insert = {};
    insert.hParent = TVI_ROOT;
    insert.hInsertAfter = TVI_FIRST;
    EXPECT_NE(m_tree->InsertItem(&insert), nullptr);
}

TEST_F(TreeCtrlTest, DeletingAnItemDeletesWhatStandsUnderIt)
{
    Fill();
    EXPECT_TRUE(m_tree->DeleteItem(m_a));
    EXPECT_EQ(m_tree->GetCount(), 1U);
    EXPECT_TRUE(m_tree->DeleteAllItems());
    EXPECT_EQ(m_tree->GetCount(), 0U);
    EXPECT_EQ(m_tree->GetRootItem(), nullptr);
}

TEST_F(TreeCtrlTest, ItemsHoldTextsOfAnyLength)
{
    Fill();
    EXPECT_STREQ(m_tree->GetItemText(m_a), "a");
    EXPECT_TRUE(m_tree->SetItemText(m_a, "changed"));
    EXPECT_STREQ(m_tree->GetItemText(m_a), "changed");
    const CString longText('t', 3000);
    ASSERT_TRUE(m_tree->SetItemText(m_a, longText));
    EXPECT_TRUE(m_tree->GetItemText(m_a) == longText);
    EXPECT_STREQ(m_tree->GetItemText(nullptr), "");
}

TEST_F(TreeCtrlTest, ItemDataHoldsAPointer)
{
    Fill();
    const auto value = DWORD_PTR(0x123456789ABCDEF0);
    EXPECT_EQ(m_tree->GetItemData(m_a), 0U);
    EXPECT_TRUE(m_tree->SetItemData(m_a, value));
    EXPECT_EQ(m_tree->GetItemData(m_a), value);
    EXPECT_EQ(m_tree->GetItemData(nullptr), 0U);
    TVITEM item = {};
    item.mask = TVIF_PARAM;
    item.hItem = m_a;
    EXPECT_TRUE(m_tree->GetItem(&item));
    EXPECT_EQ(item.lParam, LPARAM(value));
    item.lParam = 5;
    EXPECT_TRUE(m_tree->SetItem(&item));
    EXPECT_EQ(m_tree->GetItemData(m_a), 5U);
}

TEST_F(TreeCtrlTest, AStateIsToldOnlyInTheBitsAskedFor)
{
    Fill();
    EXPECT_TRUE(m_tree->SetItemState(m_a, TVIS_BOLD | TVIS_CUT, TVIS_BOLD | TVIS_CUT));
    EXPECT_EQ(m_tree->GetItemState(m_a, TVIS_BOLD), UINT(TVIS_BOLD));
    EXPECT_EQ(m_tree->GetItemState(m_a, TVIS_EXPANDED), 0U);
    EXPECT_TRUE(m_tree->SetItemState(m_a, 0, TVIS_BOLD));
    EXPECT_EQ(m_tree->GetItemState(m_a, TVIS_BOLD | TVIS_CUT), UINT(TVIS_CUT));
    EXPECT_EQ(m_tree->GetItemState(nullptr, TVIS_BOLD), 0U);
}

TEST_F(TreeCtrlTest, ItemsExpandAndCollapse)
{
    Fill();
    EXPECT_EQ(m_tree->GetNextVisibleItem(m_a), m_z);
    EXPECT_TRUE(m_tree->Expand(m_a, TVE_EXPAND));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), m_a);
    EXPECT_EQ(m_tree->GetNextVisibleItem(m_a), m_c);
    EXPECT_EQ(m_tree->GetPrevVisibleItem(m_c), m_a);
    EXPECT_TRUE(m_tree->Expand(m_a, TVE_COLLAPSE));
    EXPECT_EQ(m_tree->GetNextVisibleItem(m_a), m_z);
}

TEST_F(TreeCtrlTest, ItemsAreSelected)
{
    Fill();
    EXPECT_TRUE(m_tree->SelectItem(m_b));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_b);
    EXPECT_NE(m_tree->GetItemState(m_a, TVIS_EXPANDED), 0U) << "selecting shows the item";
    EXPECT_TRUE(m_tree->Select(m_z, TVGN_CARET));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_z);
    EXPECT_TRUE(m_tree->SelectDropTarget(m_a));
    EXPECT_EQ(m_tree->GetDropHilightItem(), m_a);
    EXPECT_TRUE(m_tree->SelectItem(nullptr));
    EXPECT_EQ(m_tree->GetSelectedItem(), nullptr);
}

TEST_F(TreeCtrlTest, TheViewScrollsToAnItem)
{
    Fill();
    HTREEITEM last = nullptr;
    for (int i = 0; i < 60; ++i)
    {
        last = m_tree->InsertItem("row");
    }
    CRect rect;
    m_tree->EnsureVisible(last);
    EXPECT_NE(m_tree->GetFirstVisibleItem(), m_a);
    ASSERT_TRUE(m_tree->GetItemRect(last, &rect, FALSE));
    EXPECT_LE(rect.bottom, kPlace.bottom);
    EXPECT_TRUE(m_tree->SelectSetFirstVisible(m_a));
    EXPECT_EQ(m_tree->GetFirstVisibleItem(), m_a);
}

TEST_F(TreeCtrlTest, RectanglesAndHitsAgree)
{
    Fill();
    CRect line;
    CRect text;
    ASSERT_TRUE(m_tree->GetItemRect(m_a, &line, FALSE));
    ASSERT_TRUE(m_tree->GetItemRect(m_a, &text, TRUE));
    EXPECT_EQ(line.top, text.top);
    EXPECT_GT(line.Width(), text.Width());
    EXPECT_FALSE(m_tree->GetItemRect(m_b, &line, FALSE)) << "its parent is collapsed";
    UINT flags = 0;
    EXPECT_EQ(m_tree->HitTest(text.CenterPoint(), &flags), m_a);
    EXPECT_EQ(flags, UINT(TVHT_ONITEMLABEL));
    EXPECT_EQ(m_tree->HitTest(CPoint(50, 240)), nullptr);
    TVHITTESTINFO info = {};
    info.pt = text.CenterPoint();
    EXPECT_EQ(m_tree->HitTest(&info), m_a);
}

TEST_F(TreeCtrlTest, ChildrenAreSortedByTheirTexts)
{
    Fill();
    EXPECT_TRUE(m_tree->SortChildren(m_a));
    EXPECT_EQ(m_tree->GetChildItem(m_a), m_b);
    EXPECT_EQ(m_tree->GetNextSiblingItem(m_b), m_c);
    EXPECT_EQ(m_tree->GetRootItem(), m_a) << "those above stay";
}

TEST_F(TreeCtrlTest, TheLabelEditorOpensAndIsFound)
{
    Fill();
    m_tree->SetFocus();
    EXPECT_EQ(m_tree->GetEditControl(), nullptr);
    CEdit* edit = m_tree->EditLabel(m_z);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(m_tree->GetEditControl()->m_hWnd, edit->m_hWnd);
    CString text;
    edit->GetWindowText(text);
    EXPECT_STREQ(text, "z");
    m_tree->SendMessage(TVM_ENDEDITLABELNOW, TRUE);
    EXPECT_TRUE(support::PumpUntil([this] { return m_tree->GetEditControl() == nullptr; }));
}

TEST_F(TreeCtrlTest, AListThatAnObjectOwnsOutlivesTheTree)
{
    CImageList images;
    CImageList states;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 2, 2));
    ASSERT_TRUE(states.Create(16, 16, ILC_COLOR24, 2, 2));
    Fill();
    EXPECT_EQ(m_tree->SetImageList(&images, TVSIL_NORMAL), nullptr);
    m_tree->SetImageList(&states, TVSIL_STATE);
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL), &images);
    EXPECT_EQ(m_tree->GetImageList(TVSIL_STATE), &states);
    m_tree->DestroyWindow();
    for (const CImageList* list : {&images, &states})
    {
        int width = 0;
        int height = 0;
        EXPECT_TRUE(::ImageList_GetIconSize(*list, &width, &height));
        EXPECT_EQ(width, 16);
    }
}

TEST_F(TreeCtrlTest, ADragImageBelongsToTheCaller)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 2, 2));
    Fill();
    EXPECT_EQ(m_tree->CreateDragImage(m_a), nullptr) << "without pictures there is nothing to drag";
    m_tree->SetImageList(&images, TVSIL_NORMAL);
    const std::unique_ptr<CImageList> drag(m_tree->CreateDragImage(m_a));
    ASSERT_NE(drag, nullptr);
    EXPECT_EQ(CImageList::FromHandlePermanent(*drag), drag.get());
}

TEST_F(TreeCtrlTest, TheToolTipsOfTheTreeAreFoundUnlessItHasNone)
{
    Fill();
    ASSERT_NE(m_tree->GetToolTips(), nullptr);
    EXPECT_TRUE(::IsWindow(m_tree->GetToolTips()->m_hWnd));
    CTreeCtrl bare;
    ASSERT_TRUE(bare.Create(kTree | TVS_NOTOOLTIPS, kPlace, m_frame.get(), kId + 1));
    EXPECT_EQ(bare.GetToolTips(), nullptr);
}
} // namespace
