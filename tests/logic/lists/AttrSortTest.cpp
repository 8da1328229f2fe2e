// AttrSortTest.cpp - order of the rows of an attribute list, against the comparison of one pair after the other

#include "tavkit/lists/AttrSort.h"
#include "tavkit/lists/ScanDouble.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace
{

using tavkit::SortByCell;
using tavkit::SortById;
using tavkit::ToDouble;
using testing::ElementsAre;

std::vector<int> Numbered(std::size_t count)
{
    std::vector<int> ids(count);
    std::iota(ids.begin(), ids.end(), 0);
    return ids;
}

std::vector<std::string> Sorted(std::vector<std::string> cells, bool ascending)
{
    std::vector<int> ids = Numbered(cells.size());
    SortByCell(ids, ascending, [&](int id) { return cells[static_cast<std::size_t>(id)].c_str(); });
    std::vector<std::string> texts;
    for (const int id : ids)
    {
        texts.push_back(cells[static_cast<std::size_t>(id)]);
    }
    return texts;
}

TEST(SortByCell, AscendingPutsNumbersFromHighToLow)
{
    EXPECT_THAT(Sorted({"3", "20", "-1", "2.5"}, true), ElementsAre("20", "3", "2.5", "-1"));
    EXPECT_THAT(Sorted({"3", "20", "-1", "2.5"}, false), ElementsAre("-1", "2.5", "3", "20"));
}

TEST(SortByCell, AscendingPutsTextsFromAToZRegardlessOfCase)
{
    EXPECT_THAT(Sorted({"pear", "Apple", "banana", "Cherry"}, true), ElementsAre("Apple", "banana", "Cherry", "pear"));
    EXPECT_THAT(Sorted({"pear", "Apple", "banana", "Cherry"}, false), ElementsAre("pear", "Cherry", "banana", "Apple"));
}

TEST(SortByCell, AWordStandsAmongNumbersAsZero)
{
    EXPECT_THAT(Sorted({"word", "-2", "5"}, true), ElementsAre("5", "word", "-2"));
    EXPECT_THAT(Sorted({"word", "5", "-2"}, false), ElementsAre("-2", "word", "5"));
}

TEST(SortByCell, ZeroesInDigitsAreTextsAmongWords)
{
    EXPECT_THAT(Sorted({"zebra", "0.0", "-0", "ant", "0", "1"}, true),
                ElementsAre("1", "-0", "0", "0.0", "ant", "zebra"));
}

TEST(SortByCell, LettersBeyondSevenBitsFollowTheOthers)
{
    EXPECT_THAT(Sorted({"\xE4pfel", "zebra", ""}, true), ElementsAre("", "zebra", "\xE4pfel"));
}

TEST(SortByCell, EqualRowsKeepTheirPlaces)
{
    std::vector<int> ids = {3, 1, 2, 0};
    const std::vector<std::string> cells = {"1", "1.0", "a", "A"};
    SortByCell(ids, true, [&](int id) { return cells[static_cast<std::size_t>(id)].c_str(); });
    EXPECT_THAT(ids, ElementsAre(1, 0, 3, 2));
    SortByCell(ids, false, [&](int id) { return cells[static_cast<std::size_t>(id)].c_str(); });
    EXPECT_THAT(ids, ElementsAre(3, 2, 1, 0));
}

TEST(SortByCell, NoRowsAndOneRowAreSorted)
{
    EXPECT_TRUE(Sorted({}, true).empty());
    EXPECT_THAT(Sorted({"x"}, true), ElementsAre("x"));
}

TEST(SortById, AscendingPutsTheHighestFirst)
{
    std::vector<int> ids = {1, 3, 0, 2};
    SortById(ids, true);
    EXPECT_THAT(ids, ElementsAre(3, 2, 1, 0));
    SortById(ids, false);
    EXPECT_THAT(ids, ElementsAre(0, 1, 2, 3));
}

// The meaning of the order, one pair at a time: above 0 when the left row comes later.
int Compare(const std::string& left, const std::string& right, bool ascending)
{
    const std::string& first = ascending ? left : right;
    const std::string& second = ascending ? right : left;
    const double a = ToDouble(first.c_str());
    const double b = ToDouble(second.c_str());
    if (a == 0.0 && b == 0.0)
    {
        const auto folded = [](char c) {
            return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
        };
        std::string upTo[2];
        std::ranges::transform(first, std::back_inserter(upTo[0]), folded);
        std::ranges::transform(second, std::back_inserter(upTo[1]), folded);
        return upTo[0].compare(upTo[1]); // by bytes without a sign
    }
    return a < b ? 1 : (a == b ? 0 : -1);
}

class SortsAsPairs : public testing::TestWithParam<int>
{
};

TEST_P(SortsAsPairs, InBothDirections)
{
    static constexpr const char* kPool[] = {"",    "0",      "-0",  "0.0", "nano", "inf",   "-inf", "0x10", "Ant",
                                            "ant", "Bee",    "bee", "1e3", "1000", "-1",    "1",    "1.0",  "+1",
                                            "1e",  "-1e309", "12",  "7",   "-7.5", "1e309", "zoo",  "\xFC", "2 bees"};
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    std::vector<std::string> cells;
    for (int i = 0; i < 500; ++i)
    {
        cells.emplace_back(random() % 4 == 0 ? std::to_string(static_cast<int>(random() % 2000) - 1000)
                                             : kPool[random() % std::size(kPool)]);
    }
    for (const bool ascending : {true, false})
    {
        const std::vector<std::string> texts = Sorted(cells, ascending);
        ASSERT_TRUE(std::ranges::is_permutation(texts, cells));
        for (std::size_t i = 1; i < texts.size(); ++i)
        {
            ASSERT_LE(Compare(texts[i - 1], texts[i], ascending), 0)
                << "\"" << texts[i - 1] << "\" in front of \"" << texts[i] << "\"";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SortsAsPairs, testing::Range(0, 8));

} // namespace
