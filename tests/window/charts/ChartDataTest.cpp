// ChartDataTest.cpp - what the workbench's charts make of tables and pictures

#include "workbench/ClassMark.h"
#include "workbench/NumberTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using workbench::ChannelValues;
using workbench::ClassMark;
using workbench::ColumnPair;
using workbench::FirstPair;
using workbench::NumberColumn;
using workbench::PixelsOf;
using workbench::ReadNumbers;

// A table in memory; cells that are missing are null.
class Cells : public IAttrData
{
public:
    Cells(std::vector<std::string> names, std::vector<std::vector<const char*>> rows)
        : m_names(std::move(names)), m_rows(std::move(rows))
    {
    }
    int GetNumCol(int) override { return static_cast<int>(m_names.size()); }
    bool ReadRow(int row, int) override { return row < static_cast<int>(m_rows.size()); }
    char const* GetColName(int col, int) override { return m_names[static_cast<std::size_t>(col)].c_str(); }
    char const* GetCellText(int row, int col, int) override
    {
        return m_rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
    }

private:
    std::vector<std::string> m_names;
    std::vector<std::vector<const char*>> m_rows;
};

std::vector<std::string> NamesOf(const std::vector<NumberColumn>& columns)
{
    std::vector<std::string> names;
    for (const NumberColumn& column : columns)
    {
        names.push_back(column.name);
    }
    return names;
}

std::vector<NumberColumn> Columns(const std::vector<std::string>& names)
{
    std::vector<NumberColumn> columns;
    for (const std::string& name : names)
    {
        columns.push_back({name, {1.0}});
    }
    return columns;
}

TEST(NumberTable, KeepsTheColumnsThatAreMostlyNumbers)
{
    Cells table({"Name", "Area", "Gaps", "Rare", "Empty"}, {{"a", "1.5", "7", "", ""},
                                                            {"2b", "-3", "", "x", ""},
                                                            {"c", "4e2", nullptr, "", ""},
                                                            {"d", "nan", "8", "5", ""}});
    const std::vector<NumberColumn> columns = ReadNumbers(table, 100);
    ASSERT_THAT(NamesOf(columns), ElementsAre("Area", "Gaps"));
    EXPECT_EQ(columns[0].values[0], 1.5);
    EXPECT_EQ(columns[0].values[2], 400.0);
    EXPECT_TRUE(std::isnan(columns[0].values[3])) << "the name of a number is none";
    EXPECT_EQ(columns[1].values[0], 7.0);
    EXPECT_TRUE(std::isnan(columns[1].values[1]));
    EXPECT_TRUE(std::isnan(columns[1].values[2]));
    EXPECT_EQ(columns[1].values.size(), 4U);
}

TEST(NumberTable, ReadsNoFurtherThanAsked)
{
    Cells table({"A"}, {{"1"}, {"2"}, {"3"}});
    EXPECT_THAT(ReadNumbers(table, 2)[0].values, ElementsAre(1.0, 2.0));
}

TEST(NumberTable, IsEmptyWithoutRowsOrColumns)
{
    Cells none({}, {});
    EXPECT_THAT(ReadNumbers(none, 100), IsEmpty());
    Cells noRows({"A", "B"}, {});
    EXPECT_THAT(ReadNumbers(noRows, 100), IsEmpty());
}

TEST(NumberTable, PlotsMeasuresFirst)
{
    EXPECT_EQ(FirstPair(Columns({"Nr", "X", "Y", "Area", "Mean"})), (ColumnPair{3, 4}));
    EXPECT_EQ(FirstPair(Columns({"Area", "X", "Y"})), (ColumnPair{0, 1}));
    EXPECT_EQ(FirstPair(Columns({"X", "Y"})), (ColumnPair{0, 1}));
    EXPECT_EQ(FirstPair(Columns({"Area"})), (ColumnPair{0, 0}));
    EXPECT_EQ(FirstPair({}), (ColumnPair{-1, -1}));
}

template <class T>
ChannelValues Values(DMITypes::RDIDataType type, SIZE size, const std::vector<T>& values)
{
    ChannelValues channel{type, size, std::vector<unsigned char>(values.size() * sizeof(T))};
    std::memcpy(channel.bytes.data(), values.data(), channel.bytes.size());
    return channel;
}

std::vector<std::vector<LONG>> Runs(const ClassMark& mark, const ChannelValues& values)
{
    std::vector<std::vector<LONG>> runs;
    for (const RECT& run : PixelsOf(mark, values))
    {
        EXPECT_EQ(run.bottom, run.top + 1);
        runs.push_back({run.top, run.left, run.right});
    }
    return runs;
}

class ClassMarkTest : public testing::Test
{
protected:
    // Slots of 10 from 0 to 40.
    std::shared_ptr<const DHstg> m_hstg = std::make_shared<DHstg>(0.0, 40.0, std::vector{1, 1, 1, 1});
};

TEST_F(ClassMarkTest, FindsTheRunsOfItsSlotInEveryType)
{
    const ClassMark mark{0, m_hstg, 1};
    const SIZE size{5, 2};
    const auto expected = ElementsAre(ElementsAre(0, 1, 3), ElementsAre(1, 0, 1), ElementsAre(1, 4, 5));
    const auto check = [&]<class T>(DMITypes::RDIDataType type, T) {
        EXPECT_THAT(Runs(mark, Values<T>(type, size, {0, 10, 19, 20, 40, 15, 0, 30, 0, 12})), expected) << type;
    };
    check(DMITypes::rdiUInt8, std::uint8_t{});
    check(DMITypes::rdiUInt16, std::uint16_t{});
    check(DMITypes::rdiInt16, std::int16_t{});
    check(DMITypes::rdiUInt32, std::uint32_t{});
    check(DMITypes::rdiInt32, std::int32_t{});
    check(DMITypes::rdiFloat32, float{});
}

TEST_F(ClassMarkTest, EndsItsRunsWithTheRow)
{
    const ClassMark mark{0, m_hstg, 0};
    EXPECT_THAT(Runs(mark, Values<std::uint8_t>(DMITypes::rdiUInt8, {2, 2}, {0, 1, 2, 3})),
                ElementsAre(ElementsAre(0, 0, 2), ElementsAre(1, 0, 2)));
}

TEST_F(ClassMarkTest, HasTheHighestValueInTheLastSlot)
{
    const ClassMark mark{0, m_hstg, 3};
    EXPECT_THAT(Runs(mark, Values<float>(DMITypes::rdiFloat32, {3, 1}, {29.9F, 40.0F, 30.0F})),
                ElementsAre(ElementsAre(0, 1, 3)));
}

TEST_F(ClassMarkTest, LeavesOutWhatIsNoNumber)
{
    const ClassMark mark{0, m_hstg, 0};
    EXPECT_THAT(
        Runs(mark, Values<float>(DMITypes::rdiFloat32, {2, 1}, {std::numeric_limits<float>::quiet_NaN(), 1.0F})),
        ElementsAre(ElementsAre(0, 1, 2)));
}

TEST_F(ClassMarkTest, FindsNothingInAnUnknownType)
{
    const ClassMark mark{0, m_hstg, 0};
    EXPECT_THAT(PixelsOf(mark, {static_cast<DMITypes::RDIDataType>(3), {2, 1}, {0, 0}}), IsEmpty());
}

TEST_F(ClassMarkTest, TellsItsLimits) { EXPECT_EQ(workbench::MarkText({0, m_hstg, 1}), "10 to 20"); }

} // namespace
