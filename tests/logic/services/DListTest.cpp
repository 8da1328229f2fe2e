// DListTest.cpp - the host's singly linked list
#include "tavkit/frame/services/DList.h"

#include <cstddef>

#include <gmock/gmock.h>

#include "tavkit/frame/services/DString.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
DList<int> Filled(std::initializer_list<int> values)
{
    DList<int> list;
    for (int value : values)
    {
        list.AddTail(value);
    }
    return list;
}

std::vector<int> Walked(DList<int> const& list)
{
    std::vector<int> values;
    for (int value : list)
    {
        values.push_back(value);
    }
    return values;
}
} // namespace

TEST(DListLayout, HeadTailAndCountStandInThisOrder)
{
    EXPECT_EQ(offsetof(DList<int>, m_pHead), 0u);
    EXPECT_EQ(offsetof(DList<int>, m_pTail), sizeof(void*));
    EXPECT_EQ(offsetof(DList<int>, m_nCount), 2 * sizeof(void*));
    using Node = DList<int*>::Node;
    EXPECT_EQ(offsetof(Node, m_val), 0u);
    EXPECT_EQ(offsetof(Node, m_pNext), sizeof(void*));
}

TEST(DListAdd, AppendsAtTheTail)
{
    const DList<int> list = Filled({1, 2, 3});
    EXPECT_THAT(Walked(list), ElementsAre(1, 2, 3));
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.m_pHead->m_val, 1);
    EXPECT_EQ(list.m_pTail->m_val, 3);
    EXPECT_EQ(list.m_pTail->m_pNext, nullptr);
}

TEST(DListRemove, TakesTheFirstEqualValueOnly)
{
    DList<int> list = Filled({1, 2, 1});
    EXPECT_TRUE(list.Remove(1));
    EXPECT_THAT(Walked(list), ElementsAre(2, 1));
    EXPECT_FALSE(list.Remove(7));
    EXPECT_EQ(list.GetCount(), 2);
}

TEST(DListRemove, MovesTheTailWhenTheLastGoes)
{
    DList<int> list = Filled({1, 2});
    EXPECT_TRUE(list.Remove(2));
    EXPECT_EQ(list.m_pTail, list.m_pHead);
    list.AddTail(3);
    EXPECT_THAT(Walked(list), ElementsAre(1, 3));
}

TEST(DListRemove, LeavesAnEmptyListUsable)
{
    DList<int> list = Filled({1});
    EXPECT_TRUE(list.Remove(1));
    EXPECT_EQ(list.m_pHead, nullptr);
    EXPECT_EQ(list.m_pTail, nullptr);
    EXPECT_TRUE(list.IsEmpty());
    list.AddTail(2);
    EXPECT_THAT(Walked(list), ElementsAre(2));
}

TEST(DListRemove, TheValueMayBeTheListsOwn)
{
    DList<DString> list;
    list.AddTail("a");
    list.AddTail("b");
    EXPECT_TRUE(list.Remove(list.m_pHead->m_val));
    EXPECT_TRUE(list.m_pHead->m_val == "b");
}

TEST(DListUnlink, GivesTheNeighbourWithWhichAWalkGoesOn)
{
    DList<int> list = Filled({1, 2, 3, 4});
    for (auto* node = list.m_pHead; node;)
    {
        node = node->m_val % 2 == 0 ? list.Unlink(node) : node->m_pNext;
    }
    EXPECT_THAT(Walked(list), ElementsAre(1, 3));
    EXPECT_EQ(list.m_pTail->m_val, 3);
}

TEST(DListUnlink, ANodeOfAnotherListIsLeftAlone)
{
    DList<int> list = Filled({1});
    DList<int> other = Filled({1});
    EXPECT_EQ(list.Unlink(other.m_pHead), nullptr);
    EXPECT_EQ(list.Unlink(nullptr), nullptr);
    EXPECT_EQ(list.GetCount(), 1);
    EXPECT_EQ(other.GetCount(), 1);
}

TEST(DListClear, FreesTheNodesAndNotWhatTheyPointTo)
{
    int value = 5;
    DList<int*> list;
    list.AddTail(&value);
    list.Clear();
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.m_pHead, nullptr);
    EXPECT_EQ(list.m_pTail, nullptr);
    EXPECT_EQ(value, 5);
}

TEST(DListClear, AMillionNodesNeedNoStack)
{
    DList<int> list;
    for (int i = 0; i < 1'000'000; ++i)
    {
        list.AddTail(i);
    }
    list.Clear();
    EXPECT_TRUE(list.IsEmpty());
}

TEST(DListValue, ACopyHasNodesOfItsOwn)
{
    DList<int> first = Filled({1, 2});
    DList<int> second(first);
    second.AddTail(3);
    EXPECT_THAT(Walked(first), ElementsAre(1, 2));
    first = second;
    second.Clear();
    EXPECT_THAT(Walked(first), ElementsAre(1, 2, 3));
    EXPECT_THAT(Walked(second), IsEmpty());
}
