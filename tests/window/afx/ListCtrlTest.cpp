#include "CountedTest.h"

#include <afxcmn.h>
#include <map>

using support::Settle;
using support::TestFrame;
using testing::ElementsAre;

namespace
{
constexpr UINT kId = 43;
constexpr DWORD kReport = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS;
const CRect kPlace(0, 0, 400, 200);

class ListCtrlTest : public CountedTest
{
protected:
    // A report with two columns and three rows.
    void Fill(CListCtrl& list, TestFrame& frame, DWORD style = kReport)
    {
        ASSERT_TRUE(list.Create(style, kPlace, &frame, kId));
        ASSERT_EQ(list.InsertColumn(0, "name", LVCFMT_LEFT, 120), 0);
        ASSERT_EQ(list.InsertColumn(1, "size", LVCFMT_RIGHT, 80, 1), 1);
        for (const char* text : {"alpha", "beta", "gamma"})
        {
            ASSERT_GE(list.InsertItem(list.GetItemCount(), text), 0);
        }
    }
};

std::vector<std::string> Texts(const CListCtrl& list)
{
    std::vector<std::string> texts;
    for (int row = 0; row < list.GetItemCount(); ++row)
    {
        texts.emplace_back(list.GetItemText(row, 0).GetString());
    }
    return texts;
}

TEST_F(ListCtrlTest, NoListIsMadeWithoutAParent)
{
    CListCtrl list;
    EXPECT_FALSE(list.Create(kReport, kPlace, nullptr, kId));
}

TEST_F(ListCtrlTest, RowsAreInsertedAndDeleted)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_EQ(list.InsertItem(1, "between"), 1);
    EXPECT_THAT(Texts(list), ElementsAre("alpha", "between", "beta", "gamma"));
    EXPECT_EQ(list.InsertItem(0, "pictured", 5), 0);
    LVITEM item = {};
    item.mask = LVIF_IMAGE;
    EXPECT_TRUE(list.GetItem(&item));
    EXPECT_EQ(item.iImage, 5);
    EXPECT_TRUE(list.DeleteItem(0));
    EXPECT_FALSE(list.DeleteItem(99));
    EXPECT_EQ(list.GetItemCount(), 4);
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(ListCtrlTest, ARowIsInsertedWithEverythingAtOnce)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_EQ(list.InsertItem(LVIF_TEXT | LVIF_PARAM | LVIF_STATE, 0, "all", LVIS_SELECTED, LVIS_SELECTED, 0, 77), 0);
    EXPECT_EQ(list.GetItemData(0), 77U);
    EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED), UINT(LVIS_SELECTED));
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = 1;
    item.lParam = 88;
    EXPECT_EQ(list.InsertItem(&item), 1);
    EXPECT_EQ(list.GetItemData(1), 88U);
}

TEST_F(ListCtrlTest, CellsHoldTextsOfAnyLength)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_TRUE(list.SetItemText(1, 1, "12"));
    EXPECT_STREQ(list.GetItemText(1, 1), "12");
    EXPECT_STREQ(list.GetItemText(0, 1), "");
    EXPECT_STREQ(list.GetItemText(9, 0), "") << "wrong row";
    const CString longText('q', 5000);
    ASSERT_TRUE(list.SetItemText(0, 0, longText));
    EXPECT_TRUE(list.GetItemText(0, 0) == longText);
    const CString edge('e', 255); // just the room that is tried first, with its zero
    ASSERT_TRUE(list.SetItemText(0, 0, edge));
    EXPECT_TRUE(list.GetItemText(0, 0) == edge);
    char buffer[4] = "";
    list.SetItemText(2, 0, "gamma");
    EXPECT_EQ(list.GetItemText(2, 0, buffer, sizeof buffer), 3);
    EXPECT_STREQ(buffer, "gam");
    EXPECT_EQ(list.GetItemText(9, 0, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "") << "wrong row";
    EXPECT_EQ(list.GetItemText(2, 0, nullptr, 4), 0);
    EXPECT_EQ(list.GetItemText(2, 0, buffer, 0), 0);
}

// Answers for every cell.
class AnsweringFrame : public TestFrame
{
public:
    CString m_text;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == UINT(LVN_GETDISPINFOA))
        {
            auto* info = reinterpret_cast<NMLVDISPINFOA*>(lParam);
            if ((info->item.mask & LVIF_TEXT) != 0)
            {
                info->item.pszText = const_cast<char*>(m_text.GetString()); // a text of its own, not copied
            }
            return 0;
        }
        return TestFrame::WindowProc(message, wParam, lParam);
    }
};

TEST_F(ListCtrlTest, ATextThatTheParentAnswersIsReadWhole)
{
    AnsweringFrame frame;
    frame.m_text = CString('w', 3000);
    CListCtrl list;
    Fill(list, frame);
    ASSERT_TRUE(list.SetItemText(0, 0, LPSTR_TEXTCALLBACK));
    EXPECT_TRUE(list.GetItemText(0, 0) == frame.m_text);
    char buffer[8] = "";
    EXPECT_EQ(list.GetItemText(0, 0, buffer, sizeof buffer), 7);
    EXPECT_STREQ(buffer, "wwwwwww");
}

TEST_F(ListCtrlTest, ACallbackTextThatNobodyAnswersIsEmpty)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    ASSERT_TRUE(list.SetItemText(0, 0, LPSTR_TEXTCALLBACK));
    EXPECT_STREQ(list.GetItemText(0, 0), "");
}

TEST_F(ListCtrlTest, ItemDataHoldsAPointer)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    const auto value = DWORD_PTR(0x123456789ABCDEF0);
    EXPECT_EQ(list.GetItemData(0), 0U);
    EXPECT_TRUE(list.SetItemData(0, value));
    EXPECT_EQ(list.GetItemData(0), value);
    EXPECT_EQ(list.GetItemData(9), 0U);
    EXPECT_FALSE(list.SetItemData(9, value));
}

TEST_F(ListCtrlTest, SetItemChangesOnlyWhatTheMaskNames)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_TRUE(list.SetItem(1, 0, LVIF_PARAM, "unused", 0, 0, 0, 5));
    EXPECT_STREQ(list.GetItemText(1, 0), "beta");
    EXPECT_EQ(list.GetItemData(1), 5U);
    EXPECT_TRUE(list.SetItem(1, 1, LVIF_TEXT, "cell", 0, 0, 0, 0));
    EXPECT_STREQ(list.GetItemText(1, 1), "cell");
}

TEST_F(ListCtrlTest, RowMinusOneSetsTheStateOfAllRows)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_TRUE(list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.GetSelectedCount(), 3U);
    EXPECT_TRUE(list.SetItemState(1, 0, LVIS_SELECTED));
    EXPECT_EQ(list.GetItemState(1, LVIS_SELECTED), 0U);
    EXPECT_EQ(list.GetSelectedCount(), 2U);
}

TEST_F(ListCtrlTest, TheSelectedRowsAreWalkedInOrder)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_EQ(list.GetFirstSelectedItemPosition(), nullptr);
    POSITION none = nullptr;
    EXPECT_EQ(list.GetNextSelectedItem(none), -1);
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    std::vector<int> rows;
    for (POSITION position = list.GetFirstSelectedItemPosition(); position != nullptr;)
    {
        rows.push_back(list.GetNextSelectedItem(position));
    }
    EXPECT_THAT(rows, ElementsAre(0, 2));
    EXPECT_EQ(list.GetNextItem(0, LVNI_SELECTED), 2);
    EXPECT_EQ(list.GetNextItem(2, LVNI_SELECTED), -1);
}

TEST_F(ListCtrlTest, ColumnsAreInsertedChangedAndDeleted)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    ASSERT_NE(list.GetHeaderCtrl(), nullptr);
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 2);
    EXPECT_EQ(list.GetColumnWidth(0), 120);
    EXPECT_TRUE(list.SetColumnWidth(0, 90));
    EXPECT_EQ(list.GetColumnWidth(0), 90);
    char text[32] = "";
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
    column.pszText = text;
    column.cchTextMax = sizeof text;
    ASSERT_TRUE(list.GetColumn(1, &column));
    EXPECT_STREQ(text, "size");
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(column.iSubItem, 1);
    column.mask = LVCF_WIDTH;
    column.cx = 33;
    EXPECT_TRUE(list.SetColumn(1, &column));
    EXPECT_EQ(list.GetColumnWidth(1), 33);
    EXPECT_EQ(list.InsertColumn(2, "third"), 2);
    EXPECT_TRUE(list.DeleteColumn(2));
    EXPECT_FALSE(list.DeleteColumn(9));
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 2);
}

TEST_F(ListCtrlTest, AColumnFitsItselfToItsTexts)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    list.SetItemText(0, 0, "a text that is much wider than the column was before it was fitted");
    EXPECT_TRUE(list.SetColumnWidth(0, LVSCW_AUTOSIZE));
    EXPECT_GE(list.GetColumnWidth(0), list.GetStringWidth(list.GetItemText(0, 0)));
}

TEST_F(ListCtrlTest, RectanglesAndHitsAgree)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    CRect row;
    CRect cell;
    ASSERT_TRUE(list.GetItemRect(1, &row, LVIR_BOUNDS));
    ASSERT_TRUE(list.GetSubItemRect(1, 1, LVIR_BOUNDS, cell));
    EXPECT_EQ(cell.top, row.top);
    EXPECT_EQ(cell.Width(), 80);
    EXPECT_FALSE(list.GetItemRect(9, &row, LVIR_BOUNDS));
    LVHITTESTINFO info = {};
    info.pt = cell.CenterPoint();
    EXPECT_EQ(list.SubItemHitTest(&info), 1);
    EXPECT_EQ(info.iSubItem, 1);
    ASSERT_TRUE(list.GetItemRect(1, &row, LVIR_LABEL));
    UINT flags = 0;
    EXPECT_EQ(list.HitTest(CPoint(row.left + 4, row.top + 4), &flags), 1);
    EXPECT_NE(flags & LVHT_ONITEM, 0U);
    EXPECT_EQ(list.HitTest(CPoint(5, 190)), -1);
    info.pt = CPoint(row.left + 4, row.top + 4);
    EXPECT_EQ(list.HitTest(&info), 1);
}

TEST_F(ListCtrlTest, TheViewScrollsToARow)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    list.SetItemCount(200);
    for (int i = 0; i < 100; ++i)
    {
        list.InsertItem(i, "row");
    }
    EXPECT_EQ(list.GetTopIndex(), 0);
    EXPECT_GT(list.GetCountPerPage(), 3);
    EXPECT_TRUE(list.EnsureVisible(90, FALSE));
    EXPECT_GT(list.GetTopIndex(), 0);
    EXPECT_LE(list.GetTopIndex(), 90);
    EXPECT_FALSE(list.EnsureVisible(1000, FALSE));
}

TEST_F(ListCtrlTest, RowsAreRepaintedOnRequest)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    Settle();
    list.ValidateRect(nullptr);
    EXPECT_TRUE(list.RedrawItems(0, 2));
    EXPECT_TRUE(::GetUpdateRect(list, nullptr, FALSE));
    list.ValidateRect(nullptr);
    EXPECT_TRUE(list.Update(1));
    EXPECT_TRUE(::GetUpdateRect(list, nullptr, FALSE));
}

int CALLBACK ByValue(LPARAM first, LPARAM second, LPARAM direction)
{
    return static_cast<int>((first < second ? -1 : first > second) * direction);
}

TEST_F(ListCtrlTest, RowsAreSortedByTheFunctionGiven)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    list.SetItemData(0, 3);
    list.SetItemData(1, 1);
    list.SetItemData(2, 2);
    EXPECT_TRUE(list.SortItems(&ByValue, 1));
    EXPECT_THAT(Texts(list), ElementsAre("beta", "gamma", "alpha"));
    EXPECT_TRUE(list.SortItems(&ByValue, DWORD_PTR(-1)));
    EXPECT_THAT(Texts(list), ElementsAre("alpha", "gamma", "beta"));
}

// Never says "before": ascending keys that tie come out reversed, which library code relies on.
int CALLBACK NeverNegative(LPARAM first, LPARAM second, LPARAM ascending)
{
    return ascending != 0 ? first >= second : first < second;
}

TEST_F(ListCtrlTest, TheSortTakesTheRightElementFirstExactlyWhenTheAnswerIsAboveZero)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    for (int row = 0; row < 3; ++row)
    {
        list.SetItemData(row, 7);
    }
    list.SortItems(&NeverNegative, TRUE);
    EXPECT_THAT(Texts(list), ElementsAre("gamma", "beta", "alpha"));
    list.SortItems(&NeverNegative, FALSE);
    EXPECT_THAT(Texts(list), ElementsAre("gamma", "beta", "alpha"));
}

TEST_F(ListCtrlTest, ColoursAreKept)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_TRUE(list.SetBkColor(colour::kGreen));
    EXPECT_TRUE(list.SetTextColor(colour::kRed));
    EXPECT_TRUE(list.SetTextBkColor(colour::kBlue));
    EXPECT_EQ(list.GetBkColor(), colour::kGreen);
    EXPECT_EQ(list.GetTextColor(), colour::kRed);
    EXPECT_EQ(list.GetTextBkColor(), colour::kBlue);
    list.Invalidate();
    Settle();
    EXPECT_EQ(support::ClientPixel(list, 300, 180), colour::kGreen);
}

TEST_F(ListCtrlTest, ExtendedStylesAnswerWithThoseBefore)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame);
    EXPECT_EQ(list.SetExtendedStyle(LVS_EX_FULLROWSELECT), 0U);
    EXPECT_EQ(list.SetExtendedStyle(LVS_EX_GRIDLINES), DWORD(LVS_EX_FULLROWSELECT));
    EXPECT_EQ(list.GetExtendedStyle(), DWORD(LVS_EX_GRIDLINES));
}

TEST_F(ListCtrlTest, AnOwnerDataListHasAsManyRowsAsItIsTold)
{
    TestFrame frame;
    CListCtrl list;
    ASSERT_TRUE(list.Create(kReport | LVS_OWNERDATA, kPlace, &frame, kId));
    EXPECT_TRUE(list.SetItemCountEx(1000000));
    EXPECT_EQ(list.GetItemCount(), 1000000);
    list.SetItemCount(5);
    EXPECT_EQ(list.GetItemCount(), 5);
}

TEST_F(ListCtrlTest, AListThatAnObjectOwnsOutlivesTheControl)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 2, 2));
    {
        TestFrame frame;
        CListCtrl list;
        Fill(list, frame);
        EXPECT_EQ(list.SetImageList(&images, LVSIL_SMALL), nullptr);
        EXPECT_EQ(list.GetImageList(LVSIL_SMALL), &images);
        EXPECT_EQ(list.GetImageList(LVSIL_STATE), nullptr);
    }
    int width = 0;
    int height = 0;
    EXPECT_TRUE(::ImageList_GetIconSize(images, &width, &height)) << "the control destroyed a list that is not its own";
    EXPECT_EQ(width, 16);
}

TEST_F(ListCtrlTest, AListIsTakenAwayWithNull)
{
    TestFrame frame;
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 2, 2));
    CListCtrl list;
    Fill(list, frame);
    list.SetImageList(&images, LVSIL_SMALL);
    EXPECT_EQ(list.SetImageList(nullptr, LVSIL_SMALL), &images);
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL), nullptr);
}

TEST_F(ListCtrlTest, TheLabelEditorOpensAndIsFound)
{
    TestFrame frame;
    CListCtrl list;
    Fill(list, frame, kReport | LVS_EDITLABELS);
    list.SetFocus();
    EXPECT_EQ(list.GetEditControl(), nullptr);
    CEdit* edit = list.EditLabel(1);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(list.GetEditControl()->m_hWnd, edit->m_hWnd);
    CString text;
    edit->GetWindowText(text);
    EXPECT_STREQ(text, "beta");
    list.SendMessage(LVM_CANCELEDITLABEL);
    EXPECT_EQ(list.GetEditControl(), nullptr);
}

class DrawnListCtrl : public CListCtrl
{
public:
    std::map<UINT, int> m_draws;
    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        ++m_draws[item->itemID];
        CDC::FromHandle(item->hDC)->FillSolidRect(&item->rcItem, colour::kRed);
    }
};

TEST_F(ListCtrlTest, AnOwnerDrawnListDrawsItsRows)
{
    TestFrame frame;
    DrawnListCtrl list;
    Fill(list, frame, kReport | LVS_OWNERDRAWFIXED);
    Settle();
    EXPECT_EQ(list.m_draws.size(), 3U);
    CRect row;
    list.GetItemRect(1, &row, LVIR_BOUNDS);
    EXPECT_EQ(support::ClientPixel(list, row.left + 20, row.top + 3), colour::kRed);
}
} // namespace
