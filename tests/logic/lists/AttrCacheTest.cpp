// AttrCacheTest.cpp - cells of an attribute table as they were read, and how far to read

#include "tavkit/lists/AttrCache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <utility>

namespace
{

using tavkit::AttrCache;
using tavkit::GrownLength;
using tavkit::RowsToRead;

constexpr int kMost = std::numeric_limits<int>::max();

TEST(RowsToRead, ReachesToTheDeclaredEnd)
{
    EXPECT_EQ(RowsToRead(4, 0), 4);
    EXPECT_EQ(RowsToRead(8, 4), 4);
    EXPECT_EQ(RowsToRead(4, 4), 0) << "from the end on the whole table";
    EXPECT_EQ(RowsToRead(4, 9), -5);
}

TEST(GrownLength, IsTwiceWhatIsCached)
{
    EXPECT_EQ(GrownLength(4), 8);
    EXPECT_EQ(GrownLength(kMost / 2), kMost - 1);
}

TEST(GrownLength, StopsAtTheLargestCount) { EXPECT_EQ(GrownLength(kMost / 2 + 1), kMost); }

TEST(AttrCache, RowsAreNumberedAsTheyCome)
{
    AttrCache cache;
    EXPECT_EQ(cache.GetNumRow(), 0);
    EXPECT_EQ(cache.AddRow(), 0);
    EXPECT_EQ(cache.AddRow(), 1);
    EXPECT_EQ(cache.GetNumRow(), 2);
    EXPECT_EQ(cache.GetId(0), 0);
    EXPECT_EQ(cache.GetId(1), 1);
}

TEST(AttrCache, ARowThatIsNotCachedHasNoNumber)
{
    AttrCache cache;
    EXPECT_EQ(cache.GetId(0), -1);
    cache.AddRow();
    EXPECT_EQ(cache.GetId(1), -1);
    EXPECT_EQ(cache.GetId(-1), -1);
    EXPECT_EQ(cache.GetId(kMost), -1);
}

TEST(AttrCache, KeepsTheTablesColumns)
{
    AttrCache cache;
    cache.AddCol(1);
    cache.AddCol(4);
    EXPECT_EQ(cache.GetNumCol(), 2);
    EXPECT_EQ(cache.GetTableCol(0), 1);
    EXPECT_EQ(cache.GetTableCol(1), 4);
    EXPECT_EQ(cache.GetTableCol(2), -1);
}

class FilledCache : public testing::Test
{
protected:
    // 3 rows of 2 columns: "00" to "21".
    FilledCache()
    {
        m_cache.AddCol(0);
        m_cache.AddCol(1);
        for (int row = 0; row < 3; ++row)
        {
            m_cache.AddRow();
            for (int col = 0; col < 2; ++col)
            {
                EXPECT_TRUE(m_cache.Store(row, col, (std::to_string(row) + std::to_string(col)).c_str()));
            }
        }
    }

    AttrCache m_cache;
};

TEST_F(FilledCache, GivesEachCellItsText)
{
    EXPECT_STREQ(m_cache.GetText(0, 0), "00");
    EXPECT_STREQ(m_cache.GetText(1, 0), "10");
    EXPECT_STREQ(m_cache.GetText(2, 1), "21");
}

TEST_F(FilledCache, SlotsLieRowByRow)
{
    const char** const first = &m_cache.GetSlot(0, 0);
    EXPECT_EQ(&m_cache.GetSlot(0, 1), first + 1);
    EXPECT_EQ(&m_cache.GetSlot(1, 0), first + 2);
    EXPECT_EQ(&m_cache.GetSlot(0, 3), first + 3) << "past the last column the next row goes on";
}

TEST_F(FilledCache, CellsOutsideAreEmpty)
{
    EXPECT_STREQ(m_cache.GetText(3, 0), "");
    EXPECT_STREQ(m_cache.GetText(-1, 0), "");
    EXPECT_STREQ(m_cache.GetText(0, 2), "") << "not the next row's cell";
    EXPECT_STREQ(m_cache.GetText(1, -1), "") << "not the row's before";
}

TEST_F(FilledCache, ASlotPastTheLastRowIsMadeEmpty)
{
    EXPECT_EQ(m_cache.GetSlot(10, 1), nullptr);
    EXPECT_EQ(m_cache.GetNumRow(), 3) << "a slot is no row";
}

TEST_F(FilledCache, ATextPutIntoASlotIsTheCells)
{
    std::free(const_cast<char*>(std::exchange(m_cache.GetSlot(1, 1), strdup("mine"))));
    EXPECT_STREQ(m_cache.GetText(1, 1), "mine");
    std::free(const_cast<char*>(std::exchange(m_cache.GetSlot(1, 1), nullptr)));
    EXPECT_STREQ(m_cache.GetText(1, 1), "");
}

TEST_F(FilledCache, ACellStoredTwiceKeepsTheLaterText) // and the first one isn't lost to the heap: address sanitizer
{
    EXPECT_TRUE(m_cache.Store(0, 0, "again"));
    EXPECT_STREQ(m_cache.GetText(0, 0), "again");
}

TEST_F(FilledCache, AMissingTextIsEmpty)
{
    EXPECT_TRUE(m_cache.Store(0, 0, nullptr));
    EXPECT_STREQ(m_cache.GetText(0, 0), "");
    EXPECT_NE(m_cache.GetSlot(0, 0), nullptr);
}

TEST_F(FilledCache, SortingOrdersTheShownRowsAndNotTheCells)
{
    m_cache.SortByCol(0, true);
    EXPECT_EQ(m_cache.GetId(0), 2);
    EXPECT_EQ(m_cache.GetId(2), 0);
    EXPECT_STREQ(m_cache.GetText(0, 0), "00");
    m_cache.SortByRow(false);
    EXPECT_EQ(m_cache.GetId(0), 0);
}

TEST_F(FilledCache, SortingByAColumnThatIsNotThereLeavesTheOrder)
{
    m_cache.SortByRow(true);
    m_cache.SortByCol(2, false);
    m_cache.SortByCol(-1, false);
    EXPECT_EQ(m_cache.GetId(0), 2);
}

TEST_F(FilledCache, CellsThatWereNeverStoredSortAsEmptyTexts)
{
    m_cache.AddRow();
    ASSERT_TRUE(m_cache.Store(0, 1, "word"));
    ASSERT_TRUE(m_cache.Store(1, 1, "Ant"));
    ASSERT_TRUE(m_cache.Store(2, 1, "zebra"));
    m_cache.SortByCol(1, true);
    EXPECT_EQ(m_cache.GetId(0), 3);
    EXPECT_EQ(m_cache.GetId(1), 1);
}

TEST(AttrCache, RowsOfNoColumnsAreCountedToo)
{
    AttrCache cache;
    EXPECT_EQ(cache.AddRow(), 0);
    EXPECT_STREQ(cache.GetText(0, 0), "");
}

TEST(AttrCache, TakesNoRowWhoseCellsNoIndexReaches)
{
    AttrCache cache;
    constexpr int kCols = 1 << 16;
    for (int col = 0; col < kCols; ++col)
    {
        cache.AddCol(col);
    }
    int rows = 0;
    while (rows < kCols && cache.AddRow() == rows)
    {
        ++rows;
    }
    EXPECT_EQ(rows, (1 << 15) - 1) << "the cells of one row more wouldn't be counted by an int";
    EXPECT_EQ(cache.GetNumRow(), rows);
}

} // namespace
