#include "CountedTest.h"

using support::Settle;
using support::TestFrame;

namespace
{
using ComboBoxTest = CountedTest;

constexpr UINT kId = 42;
constexpr DWORD kEditable = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL;
constexpr DWORD kListOnly = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST;
const CRect kPlace(10, 10, 160, 210);

TEST_F(ComboBoxTest, StringsAreAddedInsertedAndDeleted)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly, kPlace, &frame, kId));
    EXPECT_EQ(combo.AddString("b"), 0);
    EXPECT_EQ(combo.InsertString(0, "a"), 0);
    EXPECT_EQ(combo.InsertString(-1, "c"), 2);
    EXPECT_EQ(combo.InsertString(9, "d"), CB_ERR);
    EXPECT_EQ(combo.GetCount(), 3);
    EXPECT_EQ(combo.DeleteString(0), 2);
    EXPECT_EQ(combo.DeleteString(9), CB_ERR);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
}

TEST_F(ComboBoxTest, TheCurrentItemIsSetAndTakenAway)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kEditable, kPlace, &frame, kId));
    combo.AddString("alpha");
    combo.AddString("beta");
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(combo.SetCurSel(1), 1);
    CString text;
    combo.GetWindowText(text);
    EXPECT_STREQ(text, "beta");
    combo.SetCurSel(-1);
    combo.GetWindowText(text);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(combo.SetCurSel(5), CB_ERR);
}

TEST_F(ComboBoxTest, ItemDataHoldsAPointer)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly, kPlace, &frame, kId));
    combo.AddString("x");
    const auto value = DWORD_PTR(0x123456789ABCDEF0);
    EXPECT_NE(combo.SetItemData(0, value), CB_ERR);
    EXPECT_EQ(combo.GetItemData(0), value);
    EXPECT_NE(combo.SetItemDataPtr(0, &frame), CB_ERR);
    EXPECT_EQ(combo.GetItemDataPtr(0), &frame);
    EXPECT_EQ(combo.GetItemData(4), DWORD_PTR(CB_ERR));
    EXPECT_EQ(combo.GetItemDataPtr(4), reinterpret_cast<void*>(DWORD_PTR(CB_ERR)));
    EXPECT_EQ(combo.SetItemData(4, value), CB_ERR);
}

TEST_F(ComboBoxTest, TextsOfAnyLengthAreReadAndAWrongIndexEmpties)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly, kPlace, &frame, kId));
    const CString longText('z', 5000);
    combo.AddString(longText);
    combo.AddString("short");
    CString text;
    EXPECT_EQ(combo.GetLBTextLen(0), 5000);
    combo.GetLBText(0, text);
    EXPECT_TRUE(text == longText);
    char buffer[16] = "";
    EXPECT_EQ(combo.GetLBText(1, buffer), 5);
    EXPECT_STREQ(buffer, "short");
    combo.GetLBText(2, text);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(combo.GetLBTextLen(2), CB_ERR);
}

TEST_F(ComboBoxTest, SearchesGoRoundAndIgnoreCase)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly, kPlace, &frame, kId));
    for (const char* text : {"apple", "apricot", "banana", "app"})
    {
        combo.AddString(text);
    }
    EXPECT_EQ(combo.FindString(-1, "AP"), 0);
    EXPECT_EQ(combo.FindString(0, "ap"), 1);
    EXPECT_EQ(combo.FindString(3, "ap"), 0);
    EXPECT_EQ(combo.FindString(-1, "cherry"), CB_ERR);
    EXPECT_EQ(combo.FindStringExact(-1, "APP"), 3);
    EXPECT_EQ(combo.FindStringExact(-1, "ap"), CB_ERR);
    EXPECT_EQ(combo.SelectString(-1, "ban"), 2);
    EXPECT_EQ(combo.GetCurSel(), 2);
    EXPECT_EQ(combo.SelectString(-1, "cherry"), CB_ERR);
    EXPECT_EQ(combo.GetCurSel(), 2);
}

TEST_F(ComboBoxTest, TheEditFieldHasASelectionAndAListHasNone)
{
    TestFrame frame;
    CComboBox editable;
    CComboBox list;
    ASSERT_TRUE(editable.Create(kEditable, kPlace, &frame, kId));
    ASSERT_TRUE(list.Create(kListOnly, CRect(200, 10, 300, 200), &frame, kId + 1));
    editable.SetWindowText("0123456789");
    EXPECT_TRUE(editable.SetEditSel(2, 6));
    EXPECT_EQ(editable.GetEditSel(), DWORD(MAKELONG(2, 6)));
    EXPECT_TRUE(editable.SetEditSel(0, -1)) << "all of it";
    EXPECT_EQ(editable.GetEditSel(), DWORD(MAKELONG(0, 10)));
    EXPECT_FALSE(list.SetEditSel(0, 1));
    EXPECT_EQ(list.GetEditSel(), DWORD(CB_ERR));
}

TEST_F(ComboBoxTest, TheListDropsDownAndCloses)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly, kPlace, &frame, kId));
    combo.AddString("a");
    EXPECT_FALSE(combo.GetDroppedState());
    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    EXPECT_EQ(frame.CountCommand(kId, CBN_DROPDOWN), 1);
    combo.ShowDropDown(FALSE);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(frame.CountCommand(kId, CBN_CLOSEUP), 1);
}

TEST_F(ComboBoxTest, TheDroppedListHasAPlaceAndALeastWidth)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly, kPlace, &frame, kId));
    CRect window;
    combo.GetWindowRect(&window);
    CRect dropped;
    combo.GetDroppedControlRect(&dropped);
    EXPECT_EQ(dropped.TopLeft(), window.TopLeft());
    EXPECT_GT(dropped.Height(), window.Height());
    EXPECT_NE(combo.SetDroppedWidth(300), CB_ERR);
    EXPECT_EQ(combo.GetDroppedWidth(), 300);
}

TEST_F(ComboBoxTest, ItemHeightsAreSet)
{
    TestFrame frame;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, kPlace, &frame, kId));
    EXPECT_GT(combo.GetItemHeight(-1), 0);
    EXPECT_NE(combo.SetItemHeight(-1, 30), CB_ERR);
    const int lower = combo.GetItemHeight(-1); // some systems count the field's edges too
    EXPECT_NE(combo.SetItemHeight(-1, 40), CB_ERR);
    EXPECT_EQ(combo.GetItemHeight(-1), lower + 10);
    EXPECT_NE(combo.SetItemHeight(0, 22), CB_ERR);
    EXPECT_EQ(combo.GetItemHeight(0), 22);
}

class DrawnComboBox : public CComboBox
{
public:
    static constexpr UINT kHeight = 26;
    int m_draws = 0;
    std::vector<int> m_measured;
    int m_compares = 0;
    std::vector<ULONG_PTR> m_deleted;

    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        ++m_draws;
        CDC::FromHandle(item->hDC)->FillSolidRect(&item->rcItem, colour::kRed);
    }
    void MeasureItem(LPMEASUREITEMSTRUCT item) override
    {
        m_measured.push_back(static_cast<int>(item->itemID));
        item->itemHeight = kHeight;
    }
    int CompareItem(LPCOMPAREITEMSTRUCT item) override
    {
        ++m_compares;
        return item->itemData1 < item->itemData2 ? -1 : item->itemData1 > item->itemData2;
    }
    void DeleteItem(LPDELETEITEMSTRUCT item) override { m_deleted.push_back(item->itemData); }
};

TEST_F(ComboBoxTest, AnOwnerDrawnComboBoxIsMeasuredWhileItIsBeingMade)
{
    TestFrame frame;
    DrawnComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly | CBS_OWNERDRAWFIXED, kPlace, &frame, kId));
    EXPECT_FALSE(combo.m_measured.empty());
    EXPECT_EQ(combo.GetItemHeight(0), int(DrawnComboBox::kHeight));
}

TEST_F(ComboBoxTest, AnOwnerDrawnComboBoxDrawsItself)
{
    TestFrame frame;
    DrawnComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, kPlace, &frame, kId));
    combo.AddString("a");
    combo.SetCurSel(0);
    Settle();
    EXPECT_GT(combo.m_draws, 0);
    EXPECT_EQ(support::ClientPixel(combo, 20, 12), colour::kRed);
}

TEST_F(ComboBoxTest, AComboBoxWithoutStringsIsSortedByItsMemberAndTellsWhatGoes)
{
    TestFrame frame;
    DrawnComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly | CBS_OWNERDRAWFIXED | CBS_SORT, kPlace, &frame, kId));
    for (const ULONG_PTR value : {30, 10, 20})
    {
        combo.AddString(reinterpret_cast<LPCTSTR>(value));
    }
    EXPECT_GT(combo.m_compares, 0);
    EXPECT_EQ(combo.GetItemData(0), 10U);
    EXPECT_EQ(combo.GetItemData(2), 30U);
    combo.DeleteString(0);
    EXPECT_THAT(combo.m_deleted, testing::ElementsAre(10U));
    combo.ResetContent();
    EXPECT_THAT(combo.m_deleted, testing::UnorderedElementsAre(10U, 20U, 30U));
}

TEST_F(ComboBoxTest, TheTextOfAnItemWithoutStringsStaysInsideItsBuffer)
{
    TestFrame frame;
    DrawnComboBox combo;
    ASSERT_TRUE(combo.Create(kListOnly | CBS_OWNERDRAWFIXED, kPlace, &frame, kId));
    combo.AddString(reinterpret_cast<LPCTSTR>(ULONG_PTR(0x4141414141414141)));
    CString text;
    combo.GetLBText(0, text);
    EXPECT_LE(text.GetLength(), int(sizeof(ULONG_PTR)));
}
} // namespace
