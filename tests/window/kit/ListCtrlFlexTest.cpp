// ListCtrlFlexTest.cpp - columns, rows and sorting of the flexible list

#include "FlexFixture.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace
{

using flex_test::kListId;
using flex_test::kListStyle;
using testing::ElementsAre;

class ListCtrlFlex : public flex_test::FlexTest
{
protected:
    void SetUp() override
    {
        FlexTest::SetUp();
        AddColumns(3);
    }
};

// Columns

TEST_F(ListCtrlFlex, KeepsTypesByIndex)
{
    m_list->SetColType(0, adiInt, false);
    m_list->SetColType(1, adiDouble, true);
    EXPECT_EQ(m_list->GetColType(0), adiInt);
    EXPECT_EQ(m_list->GetColType(1), adiDouble);
    EXPECT_EQ(m_list->GetColType(2), adiString);
}

TEST_F(ListCtrlFlex, TakesColumnsOutsideItsTableForTexts)
{
    EXPECT_EQ(m_list->GetColType(-1), adiString);
    EXPECT_EQ(m_list->GetColType(3), adiString);
    EXPECT_EQ(m_list->GetColType(1'000'000), adiString);
}

TEST_F(ListCtrlFlex, GivesNoTypeToColumnsThatItsTableGrewBy)
{
    m_list->SetColType(6, adiInt, false);
    EXPECT_EQ(m_list->GetColType(3), adiNone);
    EXPECT_EQ(m_list->GetColType(5), adiNone);
    EXPECT_EQ(m_list->GetColType(6), adiInt);
    EXPECT_EQ(m_list->GetColType(7), adiString);
}

TEST_F(ListCtrlFlex, IgnoresTheTypeOfANegativeColumn)
{
    m_list->SetColType(-1, adiInt, true);
    EXPECT_EQ(m_list->GetColType(-1), adiString);
    EXPECT_EQ(m_list->GetColType(0), adiString);
}

TEST_F(ListCtrlFlex, OverwritesTheTypeAtAnInsertedColumnsIndexAndShiftsNone)
{
    m_list->SetColType(0, adiInt, false);
    m_list->SetColType(1, adiDouble, false);
    EXPECT_EQ(m_list->InsertColumn(0, adiString, "New", false, LVCFMT_RIGHT, 60, 3), 0);
    EXPECT_EQ(m_list->GetHeaderCtrl()->GetItemCount(), 4);
    EXPECT_EQ(m_list->GetColType(0), adiString);
    EXPECT_EQ(m_list->GetColType(1), adiDouble) << "not the type of the column that moved here";
    char caption[16] = "";
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = caption;
    column.cchTextMax = sizeof caption;
    ASSERT_TRUE(m_list->GetColumn(0, &column));
    EXPECT_STREQ(caption, "New");
    EXPECT_EQ(column.cx, 60);
}

TEST_F(ListCtrlFlex, RemovesAllColumnsWithTheirTypes)
{
    m_list->SetColType(0, adiInt, false);
    m_list->RmvAllCol();
    EXPECT_EQ(m_list->GetHeaderCtrl()->GetItemCount(), 0);
    EXPECT_EQ(m_list->GetColType(0), adiString);
    m_list->RmvAllCol();
    AddColumns(2);
    EXPECT_EQ(m_list->GetHeaderCtrl()->GetItemCount(), 2);
}

TEST_F(ListCtrlFlex, RemovesOneTypeWithEachColumnAndOneMore)
{
    m_list->SetColType(4, adiInt, false);
    m_list->RmvAllCol(); // three columns, five types: the refused fourth removal takes a type as well
    EXPECT_EQ(m_list->GetColType(0), adiInt);
    EXPECT_EQ(m_list->GetColType(1), adiString);
}

// Rows

TEST_F(ListCtrlFlex, InsertsRowsWithDataOfAPointersWidth)
{
    DWORD_PTR const data = static_cast<DWORD_PTR>(0x123456789ABCDEF0);
    EXPECT_EQ(m_list->InsertItem(0, "a", data, nullptr, 0, 0, 0), 0);
    EXPECT_EQ(m_list->InsertItem(0, "b", 4, 7, nullptr, 0, 0, 0), 0);
    EXPECT_EQ(m_list->InsertItem(99, "c", 8, nullptr, 0, 0, 0), 2);
    EXPECT_THAT(Column(), ElementsAre("b", "a", "c"));
    EXPECT_EQ(m_list->GetItemData(0), 7U);
    EXPECT_EQ(m_list->GetItemData(1), data);
    EXPECT_EQ(m_list->GetItemData(2), 8U);
    LVITEM item{};
    item.mask = LVIF_IMAGE;
    ASSERT_TRUE(m_list->GetItem(&item));
    EXPECT_EQ(item.iImage, 4);
}

TEST_F(ListCtrlFlex, TakesANullTextForAnEmptyOne)
{
    EXPECT_EQ(m_list->InsertItem(0, nullptr, 1, nullptr, 0, 0, 0), 0);
    EXPECT_EQ(m_list->InsertItem(1, nullptr, 3, 2, nullptr, 0, 0, 0), 1);
    EXPECT_THAT(Column(), ElementsAre("", ""));
    EXPECT_EQ(m_list->GetItemData(1), 2U);
}

TEST_F(ListCtrlFlex, ChangesTheDataOfARow)
{
    AddRows({"a", "b"});
    EXPECT_EQ(m_list->SetItemData(1, 55), 0);
    EXPECT_EQ(m_list->GetItemData(1), 55U);
    EXPECT_EQ(m_list->GetItemData(0), 0U);
    EXPECT_EQ(m_list->SetItemData(0, static_cast<DWORD_PTR>(-1)), 0);
    EXPECT_EQ(m_list->GetItemData(0), static_cast<DWORD_PTR>(-1));
}

TEST_F(ListCtrlFlex, HasNoDataForARowWithoutARecord)
{
    AddRows({"a"});
    EXPECT_EQ(m_list->GetItemData(1), 0U);
    EXPECT_EQ(m_list->GetItemData(-1), 0U);
    EXPECT_EQ(m_list->SetItemData(1, 5), -1);
    EXPECT_EQ(m_list->SetItemData(-1, 5), -1);
    m_list->CListCtrl::InsertItem(1, "bare");
    EXPECT_EQ(m_list->GetItemData(1), 0U);
    EXPECT_EQ(m_list->SetItemData(1, 5), -1);
}

TEST_F(ListCtrlFlex, TellsAParameterOfMinusOneAsItIs)
{
    AddRows({"a"});
    m_list->CListCtrl::SetItemData(0, static_cast<DWORD_PTR>(-1));
    EXPECT_EQ(m_list->GetItemData(0), static_cast<DWORD_PTR>(-1));
    EXPECT_EQ(m_list->SetItemData(0, 5), -1);
    EXPECT_EQ(m_list->CListCtrl::GetItemData(0), static_cast<DWORD_PTR>(-1));
    support::Settle(); // and draws the row as one without a record
}

TEST_F(ListCtrlFlex, RefusesRowsWithoutAWindow)
{
    CListCtrlFlex list;
    EXPECT_EQ(list.InsertItem(0, "a", 1, nullptr, 0, 0, 0), -1);
    EXPECT_EQ(list.GetItemData(0), 0U);
    EXPECT_EQ(list.InsertColumn(0, adiInt, "a", false, 0, 50, 0), 0) << "the framework's answer";
    list.Sort(0, true);
    list.OnEdit(0, 0, true);
    list.OnEdit(0, 0, false);
    EXPECT_EQ(list.SetBkColor(0x123456), 0);
    EXPECT_TRUE(list.IsBkColorSet());
}

TEST_F(ListCtrlFlex, SurvivesAParentThatDestroysItWhileARowIsInserted)
{
    m_frame->m_onNotify = [&](NMHDR& header) {
        if (header.code == static_cast<UINT>(LVN_INSERTITEM))
        {
            m_list.reset();
        }
    };
    CListCtrlFlex* const list = m_list.get();
    EXPECT_EQ(list->InsertItem(0, "a", 1, nullptr, 0, 0, 0), -1);
    EXPECT_EQ(m_list, nullptr);
}

// The last sort

TEST_F(ListCtrlFlex, WasNeverSortedAtFirst)
{
    CListCtrlFlex::LastSort const& sort = std::as_const(*m_list).GetLastSort();
    EXPECT_TRUE(sort.IsSortedAscnd());
    EXPECT_EQ(sort.GetCol(), -2);
    EXPECT_TRUE(sort.IsSortAscnd(0));
    EXPECT_FALSE(sort.IsSortAscnd(-2)) << "the opposite of the last, even there";
}

TEST_F(ListCtrlFlex, HandsItsLastSortOutForAssignment)
{
    AddRows({"b", "a"});
    ClickHeader(1);
    CListCtrlFlex::LastSort const kept = m_list->GetLastSort();
    EXPECT_EQ(kept.GetCol(), 1);
    m_list->GetLastSort() = CListCtrlFlex::LastSort();
    EXPECT_EQ(m_list->GetLastSort().GetCol(), -2);
    m_list->GetLastSort() = kept;
    EXPECT_EQ(m_list->GetLastSort().GetCol(), 1);
}

// Sorting by clicks

TEST_F(ListCtrlFlex, SortsAscendingAtTheFirstClickAndDescendingAtTheSecond)
{
    AddRows({"b", "c", "a"});
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("a", "b", "c"));
    EXPECT_TRUE(m_list->GetLastSort().IsSortedAscnd());
    EXPECT_EQ(m_list->GetLastSort().GetCol(), 0);
    EXPECT_FALSE(m_list->GetLastSort().IsSortAscnd(0));
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("c", "b", "a"));
    EXPECT_FALSE(m_list->GetLastSort().IsSortedAscnd());
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("a", "b", "c"));
}

TEST_F(ListCtrlFlex, SortsAscendingAgainAtAClickOnAnotherColumn)
{
    AddRows({"1", "2", "3"});
    m_list->SetItemText(0, 1, "y");
    m_list->SetItemText(1, 1, "z");
    m_list->SetItemText(2, 1, "x");
    ClickHeader(0);
    ClickHeader(1);
    EXPECT_THAT(Column(1), ElementsAre("x", "y", "z"));
    EXPECT_TRUE(m_list->GetLastSort().IsSortedAscnd());
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("1", "2", "3"));
    EXPECT_TRUE(m_list->GetLastSort().IsSortedAscnd());
}

TEST_F(ListCtrlFlex, KeepsTheClickFromTheParent)
{
    AddRows({"b", "a"});
    std::vector<UINT> passed;
    m_frame->m_onNotify = [&](NMHDR& header) { passed.push_back(header.code); };
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("a", "b"));
    EXPECT_THAT(passed, testing::Not(testing::Contains(static_cast<UINT>(LVN_COLUMNCLICK))));
}

TEST_F(ListCtrlFlex, RemembersAClickOnAnEmptyList)
{
    ClickHeader(2);
    EXPECT_EQ(m_list->GetLastSort().GetCol(), 2);
    EXPECT_TRUE(m_list->GetLastSort().IsSortedAscnd());
    EXPECT_EQ(m_list->GetItemCount(), 0);
}

TEST_F(ListCtrlFlex, FlipsTheNextDirectionEvenWhileSortingIsDisabled)
{
    AddRows({"b", "a"});
    m_list->EnblSort(false);
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("b", "a"));
    EXPECT_FALSE(m_list->GetLastSort().IsSortAscnd(0));
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("b", "a"));
    EXPECT_TRUE(m_list->GetLastSort().IsSortAscnd(0));
    m_list->EnblSort(true);
    ClickHeader(0);
    EXPECT_THAT(Column(), ElementsAre("a", "b"));
}

// A list that keeps account of what it is asked to sort.
class RecordingList : public CListCtrlFlex
{
public:
    std::vector<std::pair<int, bool>> m_sorts;

    void Sort(int col, bool ascending) override { m_sorts.emplace_back(col, ascending); }
};

TEST_F(ListCtrlFlex, AsksTheVirtualSortBeforeItRemembers)
{
    auto list = std::make_unique<RecordingList>();
    ASSERT_TRUE(list->Create(kListStyle, CRect(0, 0, 300, 100), m_frame.get(), kListId + 1));
    list->InsertColumn(0, adiInt, "a", false, 0, 50, 0);
    NMLISTVIEW click{};
    click.hdr = {list->m_hWnd, kListId + 1, static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iItem = -1;
    for (int const col : {0, 0, 1})
    {
        click.iSubItem = col;
        m_frame->SendMessage(WM_NOTIFY, kListId + 1, reinterpret_cast<LPARAM>(&click));
    }
    EXPECT_THAT(list->m_sorts, ElementsAre(std::pair(0, true), std::pair(0, false), std::pair(1, true)));
    EXPECT_EQ(list->GetLastSort().GetCol(), 1);
}

// Sorting

TEST_F(ListCtrlFlex, DoesNotSortByANegativeColumn)
{
    AddRows({"b", "a"});
    m_list->Sort(-1, true);
    m_list->Sort(-2, false);
    EXPECT_THAT(Column(), ElementsAre("b", "a"));
}

TEST_F(ListCtrlFlex, DoesNotTouchItsLastSortWhenSortedByTheHost)
{
    AddRows({"b", "a"});
    m_list->Sort(0, false);
    EXPECT_EQ(m_list->GetLastSort().GetCol(), -2);
}

TEST_F(ListCtrlFlex, SortsByTheTextsOfAColumnThatDoesNotExistAsOfEmptyOnes)
{
    AddRows({"b", "a"});
    m_list->Sort(17, false);
    EXPECT_THAT(Column(), ElementsAre("b", "a"));
}

TEST_F(ListCtrlFlex, SortsTextsByBytesWithCase)
{
    AddRows({"b", "B", "\xE4", "a10", "a9", "", "a"});
    m_list->Sort(0, true);
    EXPECT_THAT(Column(), ElementsAre("", "B", "a", "a10", "a9", "b", "\xE4"));
    m_list->Sort(0, false);
    EXPECT_THAT(Column(), ElementsAre("\xE4", "b", "a9", "a10", "a", "B", ""));
}

TEST_F(ListCtrlFlex, SortsColumnsOfNoTypeAsTexts)
{
    m_list->SetColType(0, adiNone, false);
    AddRows({"10", "9", "1"});
    m_list->Sort(0, true);
    EXPECT_THAT(Column(), ElementsAre("1", "10", "9"));
}

TEST_F(ListCtrlFlex, SortsIntegerAndFloatingPointColumnsAsNumbers)
{
    for (ADIColType const type : {adiInt, adiDouble})
    {
        Open(kListStyle);
        m_list->InsertColumn(0, type, "n", false, LVCFMT_RIGHT, 100, 0);
        AddRows({"10", "9.5", "-3", "1e2", " 7 cm"});
        m_list->Sort(0, true);
        EXPECT_THAT(Column(), ElementsAre("-3", " 7 cm", "9.5", "10", "1e2"));
        m_list->Sort(0, false);
        EXPECT_THAT(Column(), ElementsAre("1e2", "10", "9.5", " 7 cm", "-3"));
    }
}

TEST_F(ListCtrlFlex, PutsCellsWithoutANumberBehindAllAscendingAndFirstDescending)
{
    m_list->SetColType(0, adiInt, false);
    AddRows({"5", "nano", "1e300", "-2"});
    m_list->Sort(0, true);
    EXPECT_THAT(Column(), ElementsAre("-2", "5", "1e300", "nano"));
    m_list->Sort(0, false);
    EXPECT_THAT(Column(), ElementsAre("nano", "1e300", "5", "-2"));
}

TEST_F(ListCtrlFlex, ComparesTheFirst255CharactersOfATextAlone)
{
    std::string const same(255, 'x');
    AddRows({same + "b", same + "a", std::string(254, 'x') + "b", std::string(254, 'x') + "a"});
    m_list->Sort(0, false); // equal ones keep their order
    EXPECT_EQ(Text(0), same + "b");
    EXPECT_EQ(Text(1), same + "a");
    EXPECT_EQ(Text(2), std::string(254, 'x') + "b");
    EXPECT_EQ(Text(3), std::string(254, 'x') + "a");
}

TEST_F(ListCtrlFlex, ReadsTheFirst24CharactersOfANumberAlone)
{
    m_list->SetColType(0, adiDouble, false);
    std::string const zeros(22, '0');
    // 24 characters say 1 and 2; what follows would make 19 and 2e5 of them.
    AddRows({zeros + "01" + "9", zeros + "02", zeros + "02" + "e5", zeros + "03"});
    m_list->Sort(0, false);
    EXPECT_THAT(Column(), ElementsAre(zeros + "03", zeros + "02", zeros + "02e5", zeros + "019"));
}

TEST_F(ListCtrlFlex, SortsByAnyColumnAndKeepsRowsTogether)
{
    AddRows({"a", "b", "c"});
    for (int row = 0; row < 3; ++row)
    {
        m_list->SetItemText(row, 1, std::to_string(9 - row).c_str());
    }
    m_list->Sort(1, true);
    EXPECT_THAT(Column(0), ElementsAre("c", "b", "a"));
    EXPECT_THAT(Column(1), ElementsAre("7", "8", "9"));
    EXPECT_EQ(m_list->GetItemData(0), 2U);
    EXPECT_EQ(m_list->GetItemData(2), 0U);
}

int CALLBACK NeverNegative(LPARAM first, LPARAM second, LPARAM ascending)
{
    return ascending ? first / 10 >= second / 10 : first / 10 < second / 10;
}

TEST_F(ListCtrlFlex, LeavesTheOrderOfEqualCellsToTheControlsOwnSort)
{
    CListCtrl plain;
    ASSERT_TRUE(plain.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 100, 100), m_frame.get(), 5));
    plain.InsertColumn(0, "n", LVCFMT_LEFT, 100);
    m_list->SetColType(0, adiInt, false);
    int constexpr kRows = 300;
    for (int row = 0; row < kRows; ++row)
    {
        int const key = row * 7919 % 40; // many equal ones
        m_list->InsertItem(row, std::to_string(key).c_str(), DWORD_PTR(row), nullptr, 0, 0xFFFFFF, 0);
        plain.InsertItem(LVIF_PARAM, row, nullptr, 0, 0, 0, key * 10);
        plain.SetItemText(row, 0, std::to_string(row).c_str());
    }
    for (bool const ascending : {true, false, false, true})
    {
        m_list->Sort(0, ascending);
        plain.SortItems(&NeverNegative, ascending);
        for (int row = 0; row < kRows; ++row)
        {
            ASSERT_STREQ(plain.GetItemText(row, 0), std::to_string(m_list->GetItemData(row)).c_str()) << row;
        }
    }
}

TEST_F(ListCtrlFlex, FetchesEachCellOnceForASort)
{
    m_list->SetColType(1, adiInt, false);
    int constexpr kRows = 50;
    m_list->ShowWindow(SW_HIDE); // nothing is drawn meanwhile
    for (int row = 0; row < kRows; ++row)
    {
        m_list->InsertItem(row, LPSTR_TEXTCALLBACK, DWORD_PTR(row), nullptr, 0, 0xFFFFFF, 0);
        m_list->SetItemText(row, 1, LPSTR_TEXTCALLBACK);
    }
    std::map<std::pair<int, int>, int> asked;
    std::string text;
    m_frame->m_onDispInfo = [&](LVITEM& item) {
        ++asked[{item.iItem, item.iSubItem}];
        text = std::to_string((kRows - item.iItem) % 7);
        item.pszText = text.data();
    };
    for (int const col : {0, 1})
    {
        asked.clear();
        m_list->Sort(col, true);
        EXPECT_EQ(asked.size(), std::size_t{kRows});
        EXPECT_TRUE(std::ranges::all_of(
            asked, [&](auto const& entry) { return entry.first.second == col && entry.second == 1; }));
    }
}

TEST_F(ListCtrlFlex, DoesNotSortAListWithoutRowsOfItsOwn)
{
    Open(kListStyle | LVS_OWNERDATA);
    m_list->InsertColumn(0, adiString, "a", false, 0, 100, 0);
    m_list->ShowWindow(SW_HIDE);
    m_list->SetItemCount(10);
    int asked = 0;
    m_frame->m_onDispInfo = [&](LVITEM&) { ++asked; };
    m_list->Sort(0, true);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(m_list->GetItemCount(), 10);
}

TEST_F(ListCtrlFlex, SortsRowsWithoutARecordAsThoseWithoutAKey)
{
    AddRows({"b", "a"});
    m_list->CListCtrl::InsertItem(0, "bare");
    m_list->Sort(0, true);
    EXPECT_THAT(Column(), ElementsAre("bare", "a", "b"));
    m_list->SetColType(0, adiInt, false);
    m_list->SetItemText(1, 0, "1");
    m_list->SetItemText(2, 0, "2");
    m_list->Sort(0, true);
    EXPECT_THAT(Column(), ElementsAre("1", "2", "bare"));
}

TEST_F(ListCtrlFlex, KeepsSelectionAndFocusWithTheirRows)
{
    AddRows({"b", "c", "a"});
    m_list->SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_list->Sort(0, true);
    EXPECT_EQ(m_list->GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_EQ(m_list->GetItemState(1, LVIS_FOCUSED), UINT{LVIS_FOCUSED});
}

TEST_F(ListCtrlFlex, SurvivesACallbackThatDestroysItWhileItSorts)
{
    m_list->ShowWindow(SW_HIDE);
    AddRows({"a", "b", "c"});
    m_list->SetItemText(1, 0, LPSTR_TEXTCALLBACK);
    m_frame->m_onDispInfo = [&](LVITEM&) { m_list.reset(); };
    m_list->Sort(0, true);
    EXPECT_EQ(m_list, nullptr);
}

TEST_F(ListCtrlFlex, SortsAgainInANewWindowAfterACallbackDestroyedTheOldOneWhileItSorted)
{
    m_list->ShowWindow(SW_HIDE);
    AddRows({"a", "b", "c"});
    m_list->SetItemText(1, 0, LPSTR_TEXTCALLBACK);
    m_frame->m_onDispInfo = [&](LVITEM&) {
        m_frame->m_onDispInfo = nullptr;
        m_list->DestroyWindow();
    };
    m_list->Sort(0, true);
    ASSERT_EQ(m_list->m_hWnd, nullptr);
    ASSERT_TRUE(m_list->Create(kListStyle, CRect(0, 0, 300, 100), m_frame.get(), kListId));
    AddColumns(1);
    AddRows({"b", "a"});
    m_list->Sort(0, true);
    EXPECT_THAT(Column(), ElementsAre("a", "b"));
}

TEST_F(ListCtrlFlex, SurvivesACallbackThatChangesTheRowsAndSortsWhileItSorts)
{
    m_list->ShowWindow(SW_HIDE);
    AddRows({"d", "c", "b", "a"});
    m_list->Sort(0, true);
    m_list->SetItemText(1, 0, LPSTR_TEXTCALLBACK);
    m_frame->m_onDispInfo = [&](LVITEM& item) {
        item.pszText = const_cast<LPSTR>("bb");
        m_frame->m_onDispInfo = nullptr;
        m_list->Sort(0, false); // refused
        m_list->DeleteItem(0);
        m_list->InsertItem(0, "e", 9, nullptr, 0, 0xFFFFFF, 0);
        m_list->InsertItem(0, "f", 10, nullptr, 0, 0xFFFFFF, 0);
    };
    m_list->Sort(0, true);
    EXPECT_EQ(m_list->GetItemCount(), 5);
    m_list->SetItemText(0, 0, "x");
    m_list->Sort(0, true);
    EXPECT_TRUE(std::ranges::is_sorted(Column()));
}

} // namespace
