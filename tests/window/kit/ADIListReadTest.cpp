// ADIListReadTest.cpp - the attribute list: columns, reading on demand, filters, hooks that end it

#include "ADIListFixture.h"

#include <cstdlib>
#include <cstring>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using Value = HookedADIList::Value;

class ADIListRead : public ADIListTest
{
};

// Columns

TEST_F(ADIListRead, TheFirstColumnIsTheIDAndTheOthersAreTheTables)
{
    Open({"Name", "Area"}, {});
    m_list->AddAllColumns();
    ASSERT_EQ(m_list->GetNumCol(), 3);
    EXPECT_STREQ(m_list->GetColCaption(0), "ID");
    EXPECT_STREQ(m_list->GetColCaption(1), "Name");
    EXPECT_STREQ(m_list->GetColCaption(2), "Area");
    EXPECT_EQ(m_list->GetColumnWidth(0), 50);
    EXPECT_EQ(m_list->GetColumnWidth(1), 100);
    EXPECT_EQ(m_list->GetColumnWidth(2), 100);
    for (int col = 0; col < 3; ++col)
    {
        EXPECT_EQ(m_list->GetColType(col), adiString);
        LVCOLUMN column = {};
        column.mask = LVCF_FMT;
        EXPECT_TRUE(m_list->GetColumn(col, &column));
        EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
    }
}

TEST_F(ADIListRead, AColumnMayBeHiddenOrRenamed)
{
    Open({"a", "b", "c"}, {{"1", "2", "3"}});
    std::vector<std::string> names;
    m_list->m_filterCol = [&](int col, DString& name) {
        names.emplace_back(name.c_str());
        name = col == 2 ? "other" : "never shown";
        return col != 1 && col != 0;
    };
    m_list->AddAllColumns();
    EXPECT_THAT(names, ElementsAre("a", "b", "c"));
    ASSERT_EQ(m_list->GetNumCol(), 2);
    EXPECT_STREQ(m_list->GetColCaption(1), "other");
    m_list->ReadAllRows();
    EXPECT_EQ(Text(0, 1), "3");
    EXPECT_THAT(m_notes.m_cellsRead, ElementsAre(2)) << "a hidden column's cells aren't even read";
}

TEST_F(ADIListRead, WithoutAReaderThereIsTheIDAlone)
{
    OpenOver(nullptr);
    m_list->AddAllColumns();
    EXPECT_EQ(m_list->GetNumCol(), 1);
    m_list->SetNumRow(5);
    EXPECT_EQ(Text(0, 0), "");
    EXPECT_EQ(m_list->GetNumRow(), 5) << "nothing to read";
    m_list->ReadAllRows();
    EXPECT_EQ(m_list->GetNumRow(), 0);
    m_list->Sort(0, true);
    EXPECT_EQ(m_list->GetID(0), -1);
}

// Reading on demand

TEST_F(ADIListRead, TheFirstCellReadsUpToTheDeclaredEndAndTheLengthDoubles)
{
    OpenCounted(10);
    m_list->SetNumRow(4);
    EXPECT_EQ(Text(0, 1), "0a");
    EXPECT_THAT(m_notes.m_rowsRead, ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(m_list->GetNumRow(), 8);
    EXPECT_EQ(m_list->GetItemCount(), 8);
    for (int row = 1; row < 4; ++row)
    {
        EXPECT_EQ(Text(row, 2), std::to_string(row) + "b");
    }
    EXPECT_EQ(m_list->GetCacheRows(), 4) << "cached rows read nothing";
    EXPECT_EQ(m_list->GetNumRow(), 8);
}

TEST_F(ADIListRead, TheLengthGrowsUntilItIsExact)
{
    OpenCounted(10);
    m_list->SetNumRow(4);
    Text(0, 0);
    Text(4, 0);
    EXPECT_EQ(m_list->GetCacheRows(), 8);
    EXPECT_EQ(m_list->GetNumRow(), 16);
    EXPECT_EQ(m_notes.m_alive, 1);
    EXPECT_EQ(Text(8, 1), "8a");
    EXPECT_EQ(m_list->GetCacheRows(), 10);
    EXPECT_EQ(m_list->GetNumRow(), 10);
    EXPECT_EQ(m_list->GetItemCount(), 10);
    EXPECT_EQ(m_notes.m_alive, 0) << "the reader goes with the last row";
    EXPECT_EQ(Text(10, 0), "");
    EXPECT_EQ(m_list->GetNumRow(), 10);
}

TEST_F(ADIListRead, ARowPastTheDeclaredEndReadsTheWholeTable)
{
    OpenCounted(10);
    m_list->SetNumRow(4);
    EXPECT_EQ(Text(4, 1), "4a");
    EXPECT_EQ(m_list->GetCacheRows(), 10);
    EXPECT_EQ(m_list->GetNumRow(), 10);
    EXPECT_EQ(m_notes.m_alive, 0);
}

TEST_F(ADIListRead, ATableThatEndsAtTheDeclaredLengthIsFoundOutLater)
{
    OpenCounted(4);
    m_list->SetNumRow(4);
    Text(0, 0);
    EXPECT_EQ(m_list->GetNumRow(), 8) << "nobody knows yet";
    EXPECT_EQ(Text(4, 0), "");
    EXPECT_EQ(m_list->GetNumRow(), 4);
    EXPECT_EQ(m_notes.m_alive, 0);
}

TEST_F(ADIListRead, ATableWithoutRowsEndsAtTheFirstRead)
{
    Open({"A"}, {});
    m_list->AddAllColumns();
    m_list->SetNumRow(20);
    EXPECT_EQ(Text(0, 0), "");
    EXPECT_EQ(m_list->GetNumRow(), 0);
    EXPECT_EQ(m_list->GetItemCount(), 0);
    EXPECT_EQ(m_notes.m_alive, 0);
    EXPECT_THAT(m_notes.m_rowsRead, ElementsAre(0));
}

TEST_F(ADIListRead, CellsOutsideAreEmpty)
{
    OpenCounted(2);
    m_list->ReadAllRows();
    EXPECT_EQ(Text(-1, 0), "");
    EXPECT_EQ(Text(0, 3), "") << "not the next row's first cell";
    EXPECT_EQ(Text(1, -1), "") << "not a cell of the row before";
    EXPECT_EQ(Text(2, 1), "");
}

TEST_F(ADIListRead, OnlySoManyRowsAreRead)
{
    OpenCounted(10);
    m_list->SetNumRow(99);
    EXPECT_TRUE(m_list->ReadRows(3));
    EXPECT_EQ(m_list->GetCacheRows(), 3);
    EXPECT_EQ(m_list->GetNumRow(), 99) << "only the end of the table changes it";
    EXPECT_TRUE(m_list->ReadRows(7));
    EXPECT_EQ(m_list->GetCacheRows(), 10);
    EXPECT_EQ(m_notes.m_alive, 1);
    EXPECT_FALSE(m_list->ReadRows(1));
    EXPECT_EQ(m_list->GetNumRow(), 10);
    EXPECT_EQ(m_notes.m_alive, 0);
}

TEST_F(ADIListRead, ACountOfNothingReadsAll)
{
    OpenCounted(10);
    EXPECT_FALSE(m_list->ReadRows(0));
    EXPECT_EQ(m_list->GetCacheRows(), 10);
    OpenCounted(10);
    EXPECT_FALSE(m_list->ReadRows(-3));
    EXPECT_EQ(m_list->GetCacheRows(), 10);
}

TEST_F(ADIListRead, ReadingAllWithoutAReaderReStatesTheNumberOfRows)
{
    OpenCounted(3);
    m_list->ReadAllRows();
    ASSERT_EQ(m_notes.m_alive, 0);
    const std::size_t read = m_notes.m_rowsRead.size();
    m_list->SetNumRow(50);
    m_list->ReadAllRows();
    EXPECT_EQ(m_list->GetNumRow(), 3);
    EXPECT_EQ(m_list->GetItemCount(), 3);
    EXPECT_EQ(m_notes.m_rowsRead.size(), read);
}

TEST_F(ADIListRead, TheReaderGoesWithTheList)
{
    OpenCounted(3);
    m_list->ReadRows(1);
    EXPECT_EQ(m_notes.m_alive, 1);
    m_list.reset();
    EXPECT_EQ(m_notes.m_alive, 0);
}

TEST_F(ADIListRead, TheWaitCursorIsShownWhileRowsAreRead)
{
    OpenCounted(3);
    const HCURSOR before = ::GetCursor();
    HCURSOR meanwhile = nullptr;
    m_notes.m_atRow = [&](int) { meanwhile = ::GetCursor(); };
    m_list->ReadRows(1);
    EXPECT_EQ(meanwhile, ::LoadCursor(nullptr, IDC_WAIT));
    EXPECT_EQ(::GetCursor(), before);
}

// Filters and values

TEST_F(ADIListRead, ARefusedRowTakesNoNumber)
{
    OpenCounted(4);
    m_list->m_filterRow = [](int tableRow) { return tableRow >= 2; };
    m_list->ReadAllRows();
    EXPECT_THAT(Column(0), ElementsAre("0", "1"));
    EXPECT_THAT(Column(1), ElementsAre("2a", "3a"));
    EXPECT_EQ(m_list->GetID(0), 0);
    EXPECT_EQ(m_list->GetNumRow(), 2);
}

TEST_F(ADIListRead, ARefusedRowIsNotCountedAndNoneOfItsCellsIsRead)
{
    OpenCounted(10);
    m_list->m_filterRow = [](int tableRow) { return tableRow % 2 == 1; };
    EXPECT_TRUE(m_list->ReadRows(2));
    EXPECT_THAT(m_notes.m_rowsRead, ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(m_notes.m_cellsRead.size(), 4U);
    EXPECT_THAT(m_list->m_values, ElementsAre(Value{1, 0, 0}, Value{1, 1, 0}, Value{3, 0, 1}, Value{3, 1, 1}));
}

TEST_F(ADIListRead, ValuesAreToldOfHiddenColumnsTooBeforeTheirCellIsCopied)
{
    Open({"a", "b", "c"}, {{"1", "2", "3"}});
    m_list->m_filterCol = [](int col, DString&) { return col != 1; };
    m_list->AddAllColumns();
    m_list->m_value = [&](Value value) {
        if (value.tableCol == 2)
        {
            EXPECT_STREQ(m_list->GetCacheItem(value.cacheRow, 0), "1");
            EXPECT_EQ(m_list->GetCacheItem(value.cacheRow, 1), nullptr);
        }
    };
    m_list->ReadAllRows();
    EXPECT_THAT(m_list->m_values, ElementsAre(Value{0, 0, 0}, Value{0, 1, 0}, Value{0, 2, 0}));
    EXPECT_EQ(Text(0, 2), "3");
}

TEST_F(ADIListRead, ATableWithAllRowsRefusedIsEmpty)
{
    OpenCounted(5);
    m_list->m_filterRow = [](int) { return false; };
    EXPECT_FALSE(m_list->ReadRows(1));
    EXPECT_EQ(m_list->GetNumRow(), 0);
    EXPECT_TRUE(m_list->m_values.empty());
}

// The cache

TEST_F(ADIListRead, ARowThatIsNotReadHasNoID)
{
    OpenCounted(5);
    m_list->SetNumRow(5);
    EXPECT_EQ(m_list->GetID(0), -1);
    m_list->ReadRows(2);
    EXPECT_EQ(m_list->GetID(1), 1);
    EXPECT_EQ(m_list->GetID(2), -1);
    EXPECT_EQ(m_list->GetID(-1), -1);
}

TEST_F(ADIListRead, CachedCellsLieRowByRowAndMayBeReplaced)
{
    OpenCounted(3);
    m_list->ReadAllRows();
    const char** const first = &m_list->GetCacheItem(0, 0);
    EXPECT_EQ(&m_list->GetCacheItem(0, 1), first + 1);
    EXPECT_EQ(&m_list->GetCacheItem(1, 0), first + 2);
    EXPECT_STREQ(m_list->GetCacheItem(2, 1), "2b");
    std::free(const_cast<char*>(std::exchange(m_list->GetCacheItem(2, 1), _strdup("replaced"))));
    EXPECT_EQ(Text(2, 2), "replaced");
    EXPECT_EQ(m_list->GetCacheItem(9, 0), nullptr) << "made when it is asked for";
    EXPECT_EQ(m_list->GetCacheRows(), 3);
}

TEST_F(ADIListRead, AListWithoutAWindowReadsAsWell)
{
    HookedADIList list(new MemoryTable(m_notes, {"A"}, {{"1"}, {"2"}}));
    list.AddAllColumns();
    list.ReadAllRows();
    EXPECT_EQ(list.GetCacheRows(), 2);
    EXPECT_EQ(list.GetNumRow(), 2);
    EXPECT_STREQ(list.OnGetItemText(1, 1).c_str(), "2");
    list.Sort(1, true);
    EXPECT_EQ(list.GetID(0), 1);
}

// In sight

TEST_F(ADIListRead, KeysToTheEndReadTheTableToItsEnd)
{
    OpenCounted(1000);
    m_list->SetNumRow(10);
    m_list->ShowWindow(SW_SHOW);
    m_list->SetFocus();
    support::Settle();
    EXPECT_LT(m_list->GetCacheRows(), 1000) << "at first only what is in sight, and some more";
    EXPECT_TRUE(support::PumpUntil([&] {
        support::PressKey(VK_END);
        support::Settle();
        return m_notes.m_alive == 0 && m_list->GetFrstSlct() == 999;
    }));
    EXPECT_EQ(m_list->GetNumRow(), 1000);
    EXPECT_EQ(m_list->GetItemCount(), 1000);
    EXPECT_EQ(m_list->GetItemText(999, 1), "999a");
    EXPECT_EQ(m_notes.m_rowsRead.size(), 1001U) << "each row once, and the end";
}

TEST_F(ADIListRead, APaintedPageReadsNoMoreThanAFewPages)
{
    OpenCounted(5000);
    m_list->SetNumRow(20);
    m_list->ShowWindow(SW_SHOW);
    support::Settle();
    m_list->UpdateWindow();
    EXPECT_GE(m_list->GetCacheRows(), m_list->GetCountPerPage());
    EXPECT_LE(m_list->GetCacheRows(), 8 * m_list->GetCountPerPage());
}

TEST_F(ADIListRead, AFileIsReadThroughTheHost)
{
    const std::string path = support::SamplePath("nuclei.csv");
    OpenOver(OpenAttrData(BDIMoniker(path.c_str(), nullptr), nullptr, nullptr).release());
    m_list->AddAllColumns();
    EXPECT_STREQ(m_list->GetColCaption(8), "Class");
    m_list->m_filterRow = nullptr;
    m_list->ReadAllRows();
    EXPECT_EQ(m_list->GetNumRow(), 490);
    EXPECT_EQ(Text(0, 8), "Nucleus, large");
    EXPECT_EQ(Text(489, 1), "490");
}

// Bad input

TEST_F(ADIListRead, TenThousandColumnsAreShown)
{
    constexpr int kCols = 10'000;
    std::vector<std::string> names;
    std::vector<std::string> row;
    for (int col = 0; col < kCols; ++col)
    {
        names.push_back("c" + std::to_string(col));
        row.push_back(std::to_string(col));
    }
    Open(names, {row, row, row});
    m_list->AddAllColumns();
    ASSERT_EQ(m_list->GetNumCol(), kCols + 1);
    EXPECT_STREQ(m_list->GetColCaption(kCols), "c9999");
    m_list->ReadAllRows();
    EXPECT_EQ(Text(2, kCols), "9999");
    m_list->Sort(kCols, true);
    m_list->EnlargeCol(3, false);
    EXPECT_EQ(m_list->GetColumnWidth(4), 100);
}

// A reader that has no text for anything.
class NullTable : public IAttrData
{
public:
    int GetNumCol(int) override { return 2; }
    bool ReadRow(int row, int) override { return row < 2; }
    char const* GetColName(int, int) override { return nullptr; }
    char const* GetCellText(int, int, int) override { return nullptr; }
};

TEST_F(ADIListRead, MissingTextsAreEmpty)
{
    OpenOver(new NullTable);
    m_list->AddAllColumns();
    EXPECT_EQ(m_list->GetNumCol(), 3);
    EXPECT_STREQ(m_list->GetColCaption(1), "");
    m_list->ReadAllRows();
    EXPECT_EQ(m_list->GetNumRow(), 2);
    EXPECT_EQ(Text(1, 1), "");
    m_list->Sort(1, true);
    EXPECT_EQ(Text(0, 2), "");
}

// A reader that counts below nothing.
class ColumnlessTable : public NullTable
{
public:
    int GetNumCol(int) override { return -4; }
};

TEST_F(ADIListRead, ANegativeNumberOfColumnsIsNone)
{
    OpenOver(new ColumnlessTable);
    m_list->AddAllColumns();
    EXPECT_EQ(m_list->GetNumCol(), 1);
    m_list->ReadAllRows();
    EXPECT_EQ(Text(1, 0), "1");
    EXPECT_EQ(Text(1, 1), "");
}

TEST_F(ADIListRead, AHookThatAsksForRowsWhileRowsAreReadGetsThoseThatAreThere)
{
    OpenCounted(4);
    std::string seen;
    m_list->SetNumRow(4);
    m_list->m_value = [&](Value value) {
        if (value.tableRow == 1 && value.tableCol == 0)
        {
            EXPECT_TRUE(m_list->ReadRows(2));
            m_list->ReadAllRows();
            seen = Text(0, 1) + "," + Text(1, 1) + "," + Text(3, 1);
            m_list->Sort(1, false);
        }
    };
    m_list->ReadAllRows();
    EXPECT_EQ(seen, "0a,,");
    EXPECT_THAT(m_notes.m_rowsRead, ElementsAre(0, 1, 2, 3, 4));
    m_list->Sort(0, false);
    EXPECT_THAT(Column(1), ElementsAre("0a", "1a", "2a", "3a"));
    EXPECT_THAT(Column(2), ElementsAre("0b", "1b", "2b", "3b"));
}

TEST_F(ADIListRead, AWindowThatIsDestroyedWhileRowsAreReadLeavesTheRowsReadable)
{
    OpenCounted(4);
    m_list->m_value = [&](Value value) {
        if (value.tableRow == 1)
        {
            m_list->DestroyWindow();
        }
    };
    m_list->ReadAllRows();
    EXPECT_EQ(m_list->m_hWnd, nullptr);
    EXPECT_EQ(m_list->GetCacheRows(), 4);
    EXPECT_EQ(Text(3, 2), "3b");
    m_list->Sort(0, true);
    EXPECT_EQ(m_list->GetID(0), 3);
}

// Where the end of the list is brought about, and by which operation.
struct EndCase
{
    const char* name;
    std::function<void(HookedADIList&, MemoryTable::Notes&, std::function<void()>)> prepare;
    std::function<void(HookedADIList&)> act;
};

void PrintTo(const EndCase& c, std::ostream* out) { *out << c.name; }

class ADIListEnds : public ADIListTest, public testing::WithParamInterface<EndCase>
{
};

TEST_P(ADIListEnds, UnderItsOwnOperation)
{
    Open({"A", "B"}, {{"1", "2"}, {"3", "4"}, {"5", "6"}});
    m_list->AddAllColumns();
    m_list->SetNumRow(2);
    GetParam().prepare(*m_list, m_notes, [&] {
        m_list.reset();
        EXPECT_EQ(m_notes.m_alive, 1) << "a reader at work lives on until it is done";
    });
    GetParam().act(*m_list);
    EXPECT_EQ(m_list, nullptr);
    EXPECT_EQ(m_notes.m_alive, 0);
}

void InTheReadersRow(HookedADIList&, MemoryTable::Notes& notes, std::function<void()> end)
{
    notes.m_atRow = [end](int row) {
        if (row == 1)
        {
            end();
        }
    };
}

void InTheReadersCell(HookedADIList&, MemoryTable::Notes& notes, std::function<void()> end)
{
    notes.m_atCell = [end](int col) {
        if (col == 1)
        {
            end();
        }
    };
}

void InAValue(HookedADIList& list, MemoryTable::Notes&, std::function<void()> end)
{
    list.m_value = [end](Value) {
        const std::function<void()> act = end; // the hook goes with the list
        act();
    };
}

void InARowsFilter(HookedADIList& list, MemoryTable::Notes&, std::function<void()> end)
{
    list.m_filterRow = [end](int) {
        const std::function<void()> act = end;
        act();
        return true;
    };
}

void InAColumnsFilter(HookedADIList& list, MemoryTable::Notes&, std::function<void()> end)
{
    list.m_filterCol = [end](int, DString&) {
        const std::function<void()> act = end;
        act();
        return true;
    };
}

void ReadAll(HookedADIList& list) { list.ReadAllRows(); }
void Sort(HookedADIList& list) { list.Sort(1, true); }
void GetText(HookedADIList& list) { EXPECT_STREQ(list.OnGetItemText(0, 1).c_str(), ""); }

INSTANTIATE_TEST_SUITE_P(All, ADIListEnds,
                         testing::Values(EndCase{"ReaderRowReadAll", InTheReadersRow, ReadAll},
                                         EndCase{"ReaderRowSort", InTheReadersRow, Sort},
                                         EndCase{"ReaderRowText", InTheReadersRow, GetText},
                                         EndCase{"ReaderCellReadAll", InTheReadersCell, ReadAll},
                                         EndCase{"ReaderCellText", InTheReadersCell, GetText},
                                         EndCase{"ValueReadAll", InAValue, ReadAll},
                                         EndCase{"ValueSort", InAValue, Sort}, EndCase{"ValueText", InAValue, GetText},
                                         EndCase{"FilterRowReadAll", InARowsFilter, ReadAll},
                                         EndCase{"FilterColAddAllColumns", InAColumnsFilter,
                                                 [](HookedADIList& list) { list.AddAllColumns(); }}));

} // namespace
