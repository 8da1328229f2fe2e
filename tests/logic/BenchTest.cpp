// BenchTest.cpp - the frame of the measurements: medians, rounds, table

#include "bench/Bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace
{

using bench::Interleave;
using bench::Median;
using bench::Row;
using bench::TableText;

TEST(BenchMedian, IsTheMiddleWhateverTheOrder)
{
    EXPECT_DOUBLE_EQ(Median({9, 1, 5}), 5);
    EXPECT_DOUBLE_EQ(Median({3}), 3);
}

TEST(BenchMedian, OfAnEvenNumberIsTheMeanOfTheTwoInTheMiddle) { EXPECT_DOUBLE_EQ(Median({8, 1, 2, 100}), 5); }

TEST(BenchMedian, OfNothingIsZero) { EXPECT_DOUBLE_EQ(Median({}), 0); }

TEST(BenchInterleave, WarmsUpThenTakesTurnsAndTheBeginnerAlternates)
{
    std::string order;
    (void)Interleave({.run = [&] { order += 'o'; }}, {.run = [&] { order += 'r'; }}, 5);
    EXPECT_EQ(order, "or"
                     "orroorroor");
}

TEST(BenchInterleave, PreparesBeforeAndChecksAfterEachRun)
{
    std::string order;
    (void)Interleave({.run = [&] { order += 'R'; }, .prepare = [&] { order += 'P'; }, .check = [&] { order += 'C'; }},
                     {.run = [] {}}, 5);
    EXPECT_EQ(order, "PRCPRCPRCPRCPRCPRC");
}

TEST(BenchInterleave, AFailedCheckEndsTheMeasurement)
{
    EXPECT_THROW((void)Interleave({.run = [] {}, .check = [] { bench::Require(false, "wrong"); }}, {.run = [] {}}),
                 bench::WorkError);
}

TEST(BenchInterleave, MeasuresTheRunAlone)
{
    // What the preparation takes is many times what the empty run takes.
    const auto idle = [] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(5);
        while (std::chrono::steady_clock::now() < end)
        {
        }
    };
    const bench::Medians medians = Interleave({.run = [] {}, .prepare = idle, .check = idle}, {.run = idle}, 5);
    EXPECT_LT(medians.ours, 2.5);
    EXPECT_GE(medians.reference, 5);
}

TEST(BenchRow, MissesItsTargetOnlyAboveIt)
{
    EXPECT_TRUE((Row{"a", 1, 3, 2, 1.5}).MeetsTarget());
    EXPECT_FALSE((Row{"a", 1, 3.1, 2, 1.5}).MeetsTarget());
    EXPECT_TRUE((Row{"a", 1, 100, 1, std::nullopt}).MeetsTarget());
}

TEST(BenchTable, HasAHeadLineAndAnEmptyTargetWhereNothingIsPromised)
{
    EXPECT_EQ(TableText({{"cards", 200, 2.5, 2, 1.05}, {"stretch.u8", 16, 1, 4, std::nullopt}}),
              "task\tn\tours_ms\treference_ms\tratio\ttarget\n"
              "cards\t200\t2.500\t2.000\t1.250\t1.05\n"
              "stretch.u8\t16\t1.000\t4.000\t0.250\t\n");
}

TEST(BenchTasks, AreSortedByName)
{
    const bench::Registration late("zebra", [] { return std::vector<Row>{}; });
    const bench::Registration early("aardvark", [] { return std::vector<Row>{}; });
    const std::vector<bench::Task> tasks = bench::Tasks();
    std::vector<std::string> names;
    for (const bench::Task& task : tasks)
    {
        names.emplace_back(task.name);
    }
    EXPECT_THAT(names, testing::IsSupersetOf({"aardvark", "zebra"}));
    EXPECT_TRUE(std::ranges::is_sorted(names));
}

} // namespace
