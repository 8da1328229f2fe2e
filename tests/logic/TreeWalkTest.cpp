// TreeWalkTest.cpp - the walking order of a tree, against a walk that recurses

#include "tavkit/trees/TreeWalk.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{

using tavkit::NextInWalk;

/// A tree of numbers from 1 on; 0 is no item and stands above the topmost ones.
class NumberTree
{
public:
    int Add(int parent)
    {
        m_parents.push_back(parent);
        m_children.emplace_back();
        int const item = static_cast<int>(m_parents.size()) - 1;
        m_children[static_cast<std::size_t>(parent)].push_back(item);
        return item;
    }
    [[nodiscard]] int Child(int item) const { return Children(item).empty() ? 0 : Children(item).front(); }
    [[nodiscard]] int Parent(int item) const { return m_parents[static_cast<std::size_t>(item)]; }
    [[nodiscard]] int Next(int item) const
    {
        std::vector<int> const& brothers = Children(Parent(item));
        for (std::size_t i = 0; i + 1 < brothers.size(); ++i)
        {
            if (brothers[i] == item)
            {
                return brothers[i + 1];
            }
        }
        return 0;
    }
    /// The item, unless it is 0, and all below it.
    void Recurse(int item, std::vector<int>& order) const
    {
        if (item != 0)
        {
            order.push_back(item);
        }
        for (int const child : Children(item))
        {
            Recurse(child, order);
        }
    }
    [[nodiscard]] std::vector<int> Walk(int root) const
    {
        std::vector<int> order;
        for (int item = root != 0 ? root : Child(0); item != 0; item = NextInWalk(*this, root, item))
        {
            order.push_back(item);
        }
        return order;
    }

private:
    [[nodiscard]] std::vector<int> const& Children(int item) const
    {
        return m_children[static_cast<std::size_t>(item)];
    }

    std::vector<int> m_parents{0};
    std::vector<std::vector<int>> m_children{1};
};

//  1        5
//  +- 2     +- 6
//  |  +- 3
//  +- 4
class TreeWalk : public testing::Test
{
protected:
    TreeWalk()
    {
        m_tree.Add(0);
        m_tree.Add(1);
        m_tree.Add(2);
        m_tree.Add(1);
        m_tree.Add(0);
        m_tree.Add(5);
    }
    NumberTree m_tree;
};

TEST_F(TreeWalk, GoesDownBeforeItGoesOnToTheNextBrother)
{
    EXPECT_EQ(m_tree.Walk(0), (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

TEST_F(TreeWalk, StaysBelowItsRootEvenWhenTheRootHasBrothers)
{
    EXPECT_EQ(m_tree.Walk(1), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(m_tree.Walk(2), (std::vector<int>{2, 3}));
    EXPECT_EQ(m_tree.Walk(5), (std::vector<int>{5, 6}));
}

TEST_F(TreeWalk, OfALeafIsTheLeafAlone)
{
    EXPECT_EQ(m_tree.Walk(3), (std::vector<int>{3})) << "3 has no brother, but its parent has";
    EXPECT_EQ(m_tree.Walk(4), (std::vector<int>{4}));
    EXPECT_EQ(m_tree.Walk(6), (std::vector<int>{6}));
}

TEST_F(TreeWalk, DoesNotBeginAgainOnceItHasEnded)
{
    EXPECT_EQ(NextInWalk(m_tree, 0, 6), 0);
    EXPECT_EQ(NextInWalk(m_tree, 0, 0), 0);
    EXPECT_EQ(NextInWalk(m_tree, 1, 0), 0);
}

TEST_F(TreeWalk, OfAnEmptyTreeIsEmpty) { EXPECT_TRUE(NumberTree().Walk(0).empty()); }

TEST_F(TreeWalk, ComesToTheSameOrderAsARecursionInAnyTree)
{
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round)
    {
        NumberTree tree;
        for (int last = 0; last < 60;)
        {
            last = tree.Add(std::uniform_int_distribution(0, last)(random));
        }
        for (int root = 0; root <= 60; ++root)
        {
            std::vector<int> order;
            tree.Recurse(root, order);
            ASSERT_EQ(tree.Walk(root), order) << "round " << round << ", root " << root;
        }
    }
}

} // namespace
