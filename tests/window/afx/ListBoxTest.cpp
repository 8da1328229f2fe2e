#include "CountedTest.h"

using support::Settle;
using support::TestFrame;

namespace
{
using ListBoxTest = CountedTest;

constexpr UINT kId = 41;
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE | LBS_NOTIFY;
const CRect kPlace(10, 10, 160, 160);

TEST_F(ListBoxTest, StringsAreAddedInsertedAndDeleted)
{
    TestFrame frame;
    CListBox list;
    ASSERT_TRUE(list.Create(kChild, kPlace, &frame, kId));
    EXPECT_EQ(list.AddString("b"), 0);
    EXPECT_EQ(list.AddString("a"), 1);
    EXPECT_EQ(list.InsertString(0, "first"), 0);
    EXPECT_EQ(list.InsertString(-1, "last"), 3);
    EXPECT_EQ(list.InsertString(99, "nowhere"), LB_ERR);
    EXPECT_EQ(list.GetCount(), 4);
    EXPECT_EQ(list.DeleteString(1), 3);
    EXPECT_EQ(list.DeleteString(99), LB_ERR);
    CString text;
    list.GetText(1, text);
    EXPECT_STREQ(text, "a");
    list.ResetContent();
    EXPECT_EQ(list.GetCount(), 0);
}

TEST_F(ListBoxTest, ASortedListSortsWhatIsAdded)
{
    TestFrame frame;
    CListBox list;
    ASSERT_TRUE(list.Create(kChild | LBS_SORT, kPlace, &frame, kId));
    list.AddString("b");
    EXPECT_EQ(list.AddString("a"), 0);
}

TEST_F(ListBoxTest, TextsOfAnyLengthAreReadAndAWrongIndexEmpties)
{
    TestFrame frame;
    CListBox list;
    ASSERT_TRUE(list.Create(kChild, kPlace, &frame, kId));
    const CString longText('y', 5000);
    list.AddString(longText);
    CString text("old");
    EXPECT_EQ(list.GetTextLen(0), 5000);
    list.GetText(0, text);
    EXPECT_TRUE(text == longText);
    list.GetText(7, text);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(list.GetTextLen(7), LB_ERR);
    list.AddString("short");
    char buffer[16] = "";
    EXPECT_EQ(list.GetText(1, buffer), 5);
    EXPECT_STREQ(buffer, "short");
}

TEST_F(ListBoxTest, ItemDataHoldsAPointer)
{
    TestFrame frame;
    CListBox list;
    ASSERT_TRUE(list.Create(kChild, kPlace, &frame, kId));
    list.AddString("x");
    const auto value = DWORD_PTR(0x123456789ABCDEF0);
    EXPECT_EQ(list.GetItemData(0), 0U);
    EXPECT_NE(list.SetItemData(0, value), LB_ERR);
    EXPECT_EQ(list.GetItemData(0), value);
    EXPECT_EQ(list.GetItemData(3), DWORD_PTR(LB_ERR));
    EXPECT_EQ(list.SetItemData(3, value), LB_ERR);
}

TEST_F(ListBoxTest, ASingleSelectionIsSetAndTakenAway)
{
    TestFrame frame;
    CListBox list;
    ASSERT_TRUE(list.Create(kChild, kPlace, &frame, kId));
    list.AddString("a");
    list.AddString("b");
    EXPECT_EQ(list.GetCurSel(), LB_ERR);
    EXPECT_EQ(list.SetCurSel(1), 1);
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_GT(list.GetSel(1), 0);
    EXPECT_EQ(list.GetSel(0), 0);
    list.SetCurSel(-1);
    EXPECT_EQ(list.GetCurSel(), LB_ERR);
    EXPECT_EQ(list.GetSelCount(), LB_ERR);
}

TEST_F(ListBoxTest, SeveralItemsAreSelected)
{
    TestFrame frame;
    CListBox list;
    ASSERT_TRUE(list.Create(kChild | LBS_MULTIPLESEL, kPlace, &frame, kId));
    for (const char* text : {"a", "b", "c"})
    {
        list.AddString(text);
    }
    EXPECT_NE(list.SetSel(0), LB_ERR);
    list.SetSel(2, TRUE);
    EXPECT_EQ(list.GetSelCount(), 2);
    list.SetSel(0, FALSE);
    EXPECT_EQ(list.GetSelCount(), 1);
    list.SetSel(-1, TRUE);
    EXPECT_EQ(list.GetSelCount(), 3);
}

// Draws, measures, compares and is told of what goes.
class DrawnListBox : public CListBox
{
public:
    static constexpr UINT kHeight = 37;
    int m_draws = 0;
    int m_measures = 0;
    int m_compares = 0;
    std::vector<ULONG_PTR> m_deleted;

    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        ++m_draws;
        CDC::FromHandle(item->hDC)->FillSolidRect(&item->rcItem, colour::kBlue);
    }
    void MeasureItem(LPMEASUREITEMSTRUCT item) override
    {
        ++m_measures;
        item->itemHeight = kHeight;
    }
    int CompareItem(LPCOMPAREITEMSTRUCT item) override
    {
        ++m_compares;
        return item->itemData1 < item->itemData2 ? -1 : item->itemData1 > item->itemData2;
    }
    void DeleteItem(LPDELETEITEMSTRUCT item) override { m_deleted.push_back(item->itemData); }
};

TEST_F(ListBoxTest, AnOwnerDrawnListAsksItsOwnMembers)
{
    TestFrame frame;
    DrawnListBox list;
    ASSERT_TRUE(list.Create(kChild | LBS_OWNERDRAWFIXED | LBS_SORT | LBS_HASSTRINGS, kPlace, &frame, kId));
    EXPECT_EQ(list.m_measures, 1) << "while the window is being made";
    EXPECT_EQ(list.SendMessage(LB_GETITEMHEIGHT), LRESULT(DrawnListBox::kHeight));
    list.AddString("one");
    list.AddString("two");
    Settle();
    EXPECT_GT(list.m_draws, 0);
    EXPECT_EQ(support::ClientPixel(list, 20, 10), colour::kBlue);
}

TEST_F(ListBoxTest, AListWithoutStringsIsSortedByItsMember)
{
    TestFrame frame;
    DrawnListBox list;
    ASSERT_TRUE(list.Create(kChild | LBS_OWNERDRAWFIXED | LBS_SORT, kPlace, &frame, kId));
    for (const ULONG_PTR value : {30, 10, 20})
    {
        list.AddString(reinterpret_cast<LPCTSTR>(value));
    }
    EXPECT_GT(list.m_compares, 0);
    EXPECT_EQ(list.GetItemData(0), 10U);
    EXPECT_EQ(list.GetItemData(1), 20U);
    EXPECT_EQ(list.GetItemData(2), 30U);
    list.DeleteString(1);
    EXPECT_THAT(list.m_deleted, testing::ElementsAre(20U));
    list.DestroyWindow();
    EXPECT_THAT(list.m_deleted, testing::UnorderedElementsAre(20U, 10U, 30U));
}

TEST_F(ListBoxTest, TheTextOfAnItemWithoutStringsStaysInsideItsBuffer)
{
    TestFrame frame;
    DrawnListBox list;
    ASSERT_TRUE(list.Create(kChild | LBS_OWNERDRAWFIXED, kPlace, &frame, kId));
    list.AddString(reinterpret_cast<LPCTSTR>(ULONG_PTR(0x4141414141414141)));
    CString text;
    list.GetText(0, text);
    EXPECT_LE(text.GetLength(), int(sizeof(ULONG_PTR)));
}

TEST_F(ListBoxTest, TheBaseClassLetsEveryItemBeEqual)
{
    CListBox list;
    COMPAREITEMSTRUCT compare = {};
    EXPECT_EQ(list.CompareItem(&compare), 0);
    MEASUREITEMSTRUCT measure = {};
    measure.itemHeight = 12;
    list.MeasureItem(&measure);
    EXPECT_EQ(measure.itemHeight, 12U);
}
} // namespace
