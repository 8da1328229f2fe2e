// TreeIndexTest.cpp - the image of a tree's items, against a plain list of them

#include "tavkit/trees/TreeIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace
{

using tavkit::TreeIndex;

/// A handle as the control would give it out: some address.
TreeIndex::Item Handle(std::size_t number) { return reinterpret_cast<TreeIndex::Item>(number * 48); }

TEST(TreeIndex, KnowsTheOnlyItemOfAValue)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 10));
    ASSERT_TRUE(index.Insert(Handle(2), Handle(1), 20));
    EXPECT_EQ(index.Find(20).count, 1U);
    EXPECT_EQ(index.Find(20).item, Handle(2));
    EXPECT_EQ(index.Find(30).count, 0U);
    EXPECT_EQ(index.Find(30).item, nullptr);
}

TEST(TreeIndex, CountsTheItemsThatShareAValueAndKnowsTheOneThatIsLeft)
{
    TreeIndex index;
    for (std::size_t i = 1; i <= 3; ++i)
    {
        ASSERT_TRUE(index.Insert(Handle(i), nullptr, 7));
    }
    EXPECT_EQ(index.Find(7).count, 3U);
    EXPECT_EQ(index.Find(7).item, nullptr);
    ASSERT_TRUE(index.Erase(Handle(1)));
    ASSERT_TRUE(index.SetValue(Handle(3), 8));
    EXPECT_EQ(index.Find(7).count, 1U);
    EXPECT_EQ(index.Find(7).item, Handle(2));
    EXPECT_EQ(index.Find(8).item, Handle(3));
}

TEST(TreeIndex, TakesOutAWholeBranch)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 1));
    ASSERT_TRUE(index.Insert(Handle(2), Handle(1), 2));
    ASSERT_TRUE(index.Insert(Handle(3), Handle(2), 3));
    ASSERT_TRUE(index.Insert(Handle(4), Handle(1), 4));
    ASSERT_TRUE(index.Erase(Handle(2)));
    EXPECT_EQ(index.Count(), 2U);
    EXPECT_EQ(index.Find(3).count, 0U);
    EXPECT_EQ(index.Find(4).item, Handle(4));
    ASSERT_TRUE(index.Erase(Handle(1)));
    EXPECT_EQ(index.Count(), 0U);
}

TEST(TreeIndex, TakesOutWhatStandsUnderAnItem)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 1));
    ASSERT_TRUE(index.Insert(Handle(2), Handle(1), 2));
    ASSERT_TRUE(index.Insert(Handle(3), Handle(2), 3));
    ASSERT_TRUE(index.Insert(Handle(4), Handle(1), 4));
    ASSERT_TRUE(index.Insert(Handle(5), nullptr, 5));
    ASSERT_TRUE(index.EraseBelow(Handle(1)));
    EXPECT_EQ(index.Count(), 2U);
    EXPECT_EQ(index.Find(1).item, Handle(1));
    EXPECT_EQ(index.Find(3).count, 0U);
    EXPECT_TRUE(index.EraseBelow(Handle(5))) << "a leaf loses nothing";
    EXPECT_FALSE(index.EraseBelow(Handle(4))) << "it is gone";
    EXPECT_EQ(index.Count(), 2U);
}

TEST(TreeIndex, TellsWhatStandsBelowWhat)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 0));
    ASSERT_TRUE(index.Insert(Handle(2), Handle(1), 0));
    ASSERT_TRUE(index.Insert(Handle(3), nullptr, 0));
    EXPECT_TRUE(index.IsWithin(Handle(2), Handle(1)));
    EXPECT_TRUE(index.IsWithin(Handle(2), Handle(2)));
    EXPECT_FALSE(index.IsWithin(Handle(1), Handle(2)));
    EXPECT_FALSE(index.IsWithin(Handle(2), Handle(3)));
    EXPECT_FALSE(index.IsWithin(Handle(2), Handle(9))) << "an unknown root";
    EXPECT_FALSE(index.IsWithin(Handle(9), Handle(1))) << "an unknown item";
    EXPECT_FALSE(index.IsWithin(nullptr, nullptr));
    EXPECT_EQ(index.Parent(Handle(2)), Handle(1));
    EXPECT_EQ(index.Parent(Handle(1)), nullptr);
    EXPECT_EQ(index.Parent(Handle(9)), nullptr);
}

TEST(TreeIndex, RefusesWhatContradictsItAndStaysAsItWas)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 5));
    EXPECT_FALSE(index.Insert(Handle(1), nullptr, 6)) << "known already";
    EXPECT_FALSE(index.Insert(Handle(2), Handle(9), 6)) << "under an unknown parent";
    EXPECT_FALSE(index.Insert(nullptr, nullptr, 6));
    EXPECT_FALSE(index.SetValue(Handle(2), 6));
    EXPECT_FALSE(index.Erase(Handle(2)));
    EXPECT_EQ(index.Count(), 1U);
    EXPECT_EQ(index.Find(5).item, Handle(1));
    EXPECT_EQ(index.Find(6).count, 0U);
}

TEST(TreeIndex, SetsTheValueThatAnItemHasAlready)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 5));
    ASSERT_TRUE(index.SetValue(Handle(1), 5));
    EXPECT_EQ(index.Find(5).count, 1U);
    EXPECT_EQ(index.Find(5).item, Handle(1));
}

TEST(TreeIndex, ForgetsEverything)
{
    TreeIndex index;
    ASSERT_TRUE(index.Insert(Handle(1), nullptr, 5));
    index.Clear();
    EXPECT_EQ(index.Count(), 0U);
    EXPECT_EQ(index.Find(5).count, 0U);
    EXPECT_TRUE(index.Insert(Handle(1), nullptr, 6));
}

TEST(TreeIndex, TakesOutABranchDeeperThanAnyStack)
{
    TreeIndex index;
    constexpr std::size_t kDepth = 300'000;
    for (std::size_t i = 1; i <= kDepth; ++i)
    {
        ASSERT_TRUE(index.Insert(Handle(i), i == 1 ? nullptr : Handle(i - 1), i));
    }
    EXPECT_TRUE(index.IsWithin(Handle(kDepth), Handle(1)));
    ASSERT_TRUE(index.Erase(Handle(2)));
    EXPECT_EQ(index.Count(), 1U);
}

/// The same tree as a plain list of what was put in.
struct PlainTree
{
    struct Record
    {
        TreeIndex::Item parent;
        TreeIndex::Value value;
    };
    std::map<TreeIndex::Item, Record> records;

    [[nodiscard]] bool IsWithin(TreeIndex::Item item, TreeIndex::Item root) const
    {
        while (item != nullptr && item != root)
        {
            item = records.at(item).parent;
        }
        return item == root;
    }
    void Erase(TreeIndex::Item root)
    {
        std::vector<TreeIndex::Item> doomed;
        for (auto const& [item, record] : records)
        {
            if (IsWithin(item, root))
            {
                doomed.push_back(item);
            }
        }
        for (TreeIndex::Item const item : doomed)
        {
            records.erase(item);
        }
    }
    [[nodiscard]] TreeIndex::Match Find(TreeIndex::Value value) const
    {
        TreeIndex::Match match{0, nullptr};
        for (auto const& [item, record] : records)
        {
            if (record.value == value)
            {
                match = {match.count + 1, match.count == 0 ? item : nullptr};
            }
        }
        return match;
    }
};

TEST(TreeIndex, AgreesWithAPlainListAfterAnyChanges)
{
    constexpr TreeIndex::Value kValues = 12; // few, so that many are shared
    std::mt19937 random(17);
    auto const pick = [&](std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
    };
    for (int round = 0; round < 20; ++round)
    {
        TreeIndex index;
        PlainTree plain;
        std::vector<TreeIndex::Item> freed; // handles come back, as addresses do
        std::size_t made = 0;
        auto const any = [&] {
            return std::next(plain.records.begin(), static_cast<long>(pick(plain.records.size())))->first;
        };
        for (int step = 0; step < 400; ++step)
        {
            std::size_t const action = plain.records.empty() ? 0 : pick(8);
            if (action < 4)
            {
                TreeIndex::Item item = Handle(made + 1);
                if (!freed.empty() && pick(2) == 0)
                {
                    item = freed.back();
                    freed.pop_back();
                }
                else
                {
                    ++made;
                }
                TreeIndex::Item const parent = plain.records.empty() || pick(4) == 0 ? nullptr : any();
                TreeIndex::Value const value = pick(kValues);
                ASSERT_TRUE(index.Insert(item, parent, value));
                plain.records[item] = {parent, value};
            }
            else if (action < 7)
            {
                TreeIndex::Item const item = any();
                TreeIndex::Value const value = pick(kValues);
                ASSERT_TRUE(index.SetValue(item, value));
                plain.records[item].value = value;
            }
            else
            {
                auto const before = plain.records;
                TreeIndex::Item const item = any();
                ASSERT_TRUE(index.Erase(item));
                plain.Erase(item);
                for (auto const& [old, record] : before)
                {
                    if (!plain.records.contains(old))
                    {
                        freed.push_back(old);
                    }
                }
            }
            ASSERT_EQ(index.Count(), plain.records.size());
            for (TreeIndex::Value value = 0; value < kValues; ++value)
            {
                ASSERT_EQ(index.Find(value).count, plain.Find(value).count);
                ASSERT_EQ(index.Find(value).item, plain.Find(value).item);
            }
            if (!plain.records.empty())
            {
                TreeIndex::Item const item = any();
                TreeIndex::Item const root = any();
                ASSERT_EQ(index.IsWithin(item, root), plain.IsWithin(item, root));
            }
        }
    }
}

} // namespace
