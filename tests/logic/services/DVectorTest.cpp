// DVectorTest.cpp - the host's growable arrays
#include "tavkit/frame/services/DVector.h"

#include <cstddef>
#include <stdexcept>

#include <gmock/gmock.h>

#include "tavkit/frame/services/DString.h"

using testing::ElementsAre;

namespace
{
template <class T>
DVector<T> Filled(std::initializer_list<T> values)
{
    DVector<T> vec;
    for (T value : values)
    {
        vec.Append(value);
    }
    return vec;
}

DVectorSafe<DString> Texts(std::initializer_list<char const*> values)
{
    DVectorSafe<DString> vec;
    for (char const* value : values)
    {
        vec.Append(value);
    }
    return vec;
}

MATCHER_P(Reads, text, "") { return arg == static_cast<char const*>(text); }

/// Counts its live objects, and refuses to be copied on demand.
struct Counted
{
    static inline int live = 0;
    static inline int copies = 0;
    static inline int copiesUntilThrow = -1;

    Counted() { ++live; }
    explicit Counted(int v) : value(v) { ++live; }
    Counted(Counted const& other) : value(other.value)
    {
        if (copiesUntilThrow == 0)
        {
            throw std::runtime_error("copy refused");
        }
        copiesUntilThrow -= copiesUntilThrow > 0 ? 1 : 0;
        ++copies;
        ++live;
    }
    Counted& operator=(Counted const&) = default;
    ~Counted() { --live; }

    int value = 0;
};

class DVectorSafeLife : public testing::Test
{
protected:
    void SetUp() override
    {
        Counted::live = 0;
        Counted::copies = 0;
        Counted::copiesUntilThrow = -1;
    }
    void TearDown() override { EXPECT_EQ(Counted::live, 0) << "objects outlived their array"; }
};
} // namespace

TEST(DVectorLayout, FieldsStandInTheirOrder)
{
    EXPECT_EQ(offsetof(DVector<int>, m_nCount), 0u);
    EXPECT_EQ(offsetof(DVector<int>, m_nCapacity), sizeof(int));
    EXPECT_EQ(offsetof(DVector<int>, m_pData), 2 * sizeof(int));
    EXPECT_EQ(offsetof(DVector<int>, m_bZeroFill), 2 * sizeof(int) + sizeof(void*));
    EXPECT_EQ(offsetof(DVectorSafe<DString>, m_pData), 2 * sizeof(int));
    EXPECT_EQ(sizeof(DVectorSafe<DString>), 2 * sizeof(int) + sizeof(void*));
}

TEST(DVectorGrowth, OneThatHasNeverHeldAnythingHasNoCapacityThenSixteenThenThirtyTwo)
{
    DVector<int> vec;
    EXPECT_EQ(vec.m_nCapacity, 0);
    EXPECT_EQ(vec.m_pData, nullptr);
    vec.Append(1);
    EXPECT_EQ(vec.m_nCapacity, 16);
    for (int i = 2; i <= 16; ++i)
    {
        vec.Append(i);
    }
    EXPECT_EQ(vec.m_nCapacity, 16);
    vec.Append(17);
    EXPECT_EQ(vec.m_nCapacity, 32);
    EXPECT_EQ(vec.GetCount(), 17);
    EXPECT_EQ(vec[0], 1);
    EXPECT_EQ(vec[16], 17);
}

TEST(DVectorGrowth, DoublesUntilItHoldsTheNumberAskedFor)
{
    DVector<int> vec;
    vec.SetSize(100);
    EXPECT_EQ(vec.m_nCapacity, 128);
    EXPECT_EQ(vec.GetCount(), 100);
    vec.SetSize(129);
    EXPECT_EQ(vec.m_nCapacity, 256);
}

TEST(DVectorGrowth, SizingWithinTheCapacityKeepsTheBlock)
{
    DVector<int> vec;
    vec.SetSize(3);
    int const* const block = vec.m_pData;
    vec.SetSize(16);
    EXPECT_EQ(vec.m_pData, block);
    EXPECT_EQ(vec.GetCount(), 16);
}

TEST(DVectorGrowth, ASmallerSizeDoesNotShrink)
{
    DVector<int> vec = Filled({1, 2, 3});
    vec.SetSize(1);
    EXPECT_EQ(vec.GetCount(), 3);
    vec.SetSize(-5);
    EXPECT_EQ(vec.GetCount(), 3);
}

TEST(DVectorGrowth, TheNewPartOfABlockIsZeroedWithTheFlag)
{
    DVector<int> vec(true);
    vec.SetSize(2);
    vec[0] = 7;
    vec[1] = 8;
    vec.SetSize(40);
    EXPECT_EQ(vec[0], 7);
    EXPECT_EQ(vec[1], 8);
    for (int i = 2; i < vec.m_nCapacity; ++i)
    {
        EXPECT_EQ(vec.m_pData[i], 0) << i;
    }
}

TEST(DVectorGrowth, SlotsBehindALoweredCountKeepTheirValues)
{
    DVector<int> vec = Filled({1, 2, 3});
    SetCount(vec, 1);
    vec.SetSize(3);
    EXPECT_THAT(vec, ElementsAre(1, 2, 3));
}

TEST(DVectorGrowth, TheFlagCanBeClear)
{
    const DVector<int> vec(false);
    EXPECT_FALSE(vec.m_bZeroFill);
    EXPECT_TRUE(DVector<int>().m_bZeroFill);
}

TEST(DVectorGrowth, MoreThanIntCanCountThrowsAndLosesNothing)
{
    DVector<int> vec = Filled({1, 2});
    EXPECT_THROW(vec.SetSize(2147483647), std::bad_alloc);
    EXPECT_THROW(vec[2147483647], std::bad_alloc);
    EXPECT_THAT(vec, ElementsAre(1, 2));
}

TEST(DVectorAccess, ReadingElementTenOfThreeRaisesTheCountToEleven)
{
    DVector<int> vec = Filled({1, 2, 3});
    EXPECT_EQ(vec[10], 0);
    EXPECT_EQ(vec.GetCount(), 11);
}

TEST(DVectorAccess, AConstantArrayDoesNotGrow)
{
    const DVector<int> vec = Filled({1, 2, 3});
    EXPECT_EQ(vec[2], 3);
    EXPECT_EQ(vec[10], 0);
    EXPECT_EQ(vec[-1], 0);
    EXPECT_EQ(vec.GetCount(), 3);
}

TEST(DVectorAccess, AppendingAnElementOfItsOwnSurvivesTheGrowth)
{
    DVector<int> vec;
    for (int i = 0; i < 16; ++i)
    {
        vec.Append(100 + i);
    }
    vec.Append(vec[3]);
    EXPECT_EQ(vec[16], 103);
}

TEST(DVectorValue, ACopyHasABlockOfItsOwnWithTheSamePointers)
{
    int a = 1;
    DVector<int*> first = Filled<int*>({&a, nullptr});
    DVector<int*> second(first);
    EXPECT_NE(first.m_pData, second.m_pData);
    EXPECT_THAT(second, ElementsAre(&a, nullptr));
    second[0] = nullptr;
    EXPECT_EQ(first[0], &a);
    first = second;
    EXPECT_THAT(first, ElementsAre(nullptr, nullptr));
    const DVector<int*>& alias = first;
    first = alias;
    EXPECT_EQ(first.GetCount(), 2);
}

TEST(DVectorValue, ClearingFreesTheBlock)
{
    DVector<int> vec = Filled({1});
    vec.Clear();
    EXPECT_EQ(vec.m_nCount, 0);
    EXPECT_EQ(vec.m_nCapacity, 0);
    EXPECT_EQ(vec.m_pData, nullptr);
    vec.Clear();
}

TEST(DVectorEdit, InsertsAnywhereAndTakesPlacesOutsideToTheEnds)
{
    DVector<int> vec;
    InsertAt(vec, 0, 2);
    InsertAt(vec, 0, 1);
    InsertAt(vec, 2, 4);
    InsertAt(vec, 2, 3);
    InsertAt(vec, 99, 5);
    InsertAt(vec, -7, 0);
    EXPECT_THAT(vec, ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(DVectorEdit, InsertingIntoAFullBlockGrowsIt)
{
    DVector<int> vec;
    for (int i = 0; i < 16; ++i)
    {
        vec.Append(i);
    }
    InsertAt(vec, 0, vec[15]);
    EXPECT_EQ(vec.GetCount(), 17);
    EXPECT_EQ(vec[0], 15);
    EXPECT_EQ(vec[16], 15);
}

TEST(DVectorEdit, RemovesAnywhereAndRefusesPlacesOutside)
{
    DVector<int> vec = Filled({1, 2, 3});
    EXPECT_FALSE(RemoveAt(vec, 3));
    EXPECT_FALSE(RemoveAt(vec, -1));
    EXPECT_TRUE(RemoveAt(vec, 1));
    EXPECT_THAT(vec, ElementsAre(1, 3));
    EXPECT_TRUE(RemoveAt(vec, 1));
    EXPECT_TRUE(RemoveAt(vec, 0));
    EXPECT_FALSE(RemoveAt(vec, 0));
}

TEST(DVectorEdit, SettingTheCountKeepsTheBlock)
{
    DVector<int> vec = Filled({1, 2, 3});
    int const* const block = vec.m_pData;
    SetCount(vec, 0);
    EXPECT_EQ(vec.GetCount(), 0);
    EXPECT_EQ(vec.m_pData, block);
    SetCount(vec, 5);
    EXPECT_EQ(vec.GetCount(), 5);
    SetCount(vec, -1);
    EXPECT_EQ(vec.GetCount(), 5);
}

TEST(DVectorSafeGrowth, FollowsTheSameSizes)
{
    DVectorSafe<DString> vec;
    EXPECT_EQ(vec.m_nCapacity, 0);
    for (int i = 0; i < 17; ++i)
    {
        vec.Append(DString::Format("%d", i));
        EXPECT_EQ(vec.m_nCapacity, i < 16 ? 16 : 32);
    }
    EXPECT_THAT(vec[16], Reads("16"));
    EXPECT_THAT(vec[0], Reads("0"));
}

TEST(DVectorSafeGrowth, NewSlotsReadAsEmptyValues)
{
    DVectorSafe<DString> vec = Texts({"a"});
    EXPECT_THAT(vec[20], Reads(""));
    EXPECT_EQ(vec.GetCount(), 21);
    EXPECT_THAT(vec, testing::Contains(Reads("")).Times(20));
}

TEST(DVectorSafeGrowth, AConstantArrayDoesNotGrow)
{
    const DVectorSafe<DString> vec = Texts({"a"});
    EXPECT_THAT(vec[0], Reads("a"));
    EXPECT_THAT(vec[5], Reads(""));
    EXPECT_THAT(vec[-1], Reads(""));
    EXPECT_EQ(vec.GetCount(), 1);
}

TEST(DVectorSafeGrowth, AppendingAnElementOfItsOwnSurvivesTheGrowth)
{
    DVectorSafe<DString> vec;
    for (int i = 0; i < 16; ++i)
    {
        vec.Append(DString::Format("text %d", i));
    }
    vec.Append(vec[3]);
    EXPECT_THAT(vec[16], Reads("text 3"));
}

TEST_F(DVectorSafeLife, GrowingCopiesEveryElementAndDestroysTheOldOnes)
{
    DVectorSafe<Counted> vec;
    for (int i = 0; i < 16; ++i)
    {
        vec.Append(Counted(i));
    }
    Counted::copies = 0;
    vec.SetSize(17);
    EXPECT_EQ(Counted::copies, 16);
    EXPECT_EQ(Counted::live, 17);
    EXPECT_EQ(vec[15].value, 15);
}

TEST_F(DVectorSafeLife, ACopyThatThrowsLeavesTheArrayAsItWas)
{
    DVectorSafe<Counted> vec;
    for (int i = 0; i < 16; ++i)
    {
        vec.Append(Counted(i));
    }
    Counted::copiesUntilThrow = 9;
    EXPECT_THROW(vec.SetSize(17), std::runtime_error);
    EXPECT_EQ(vec.GetCount(), 16);
    EXPECT_EQ(vec[15].value, 15);
    EXPECT_EQ(Counted::live, 16);

    Counted::copiesUntilThrow = 9;
    EXPECT_THROW(DVectorSafe<Counted>{vec}, std::runtime_error);
    EXPECT_EQ(Counted::live, 16);
}

TEST_F(DVectorSafeLife, LoweringTheCountDestroysAndALaterAppendConstructsAnew)
{
    DVectorSafe<Counted> vec;
    vec.Append(Counted(1));
    vec.Append(Counted(2));
    Counted const* const block = vec.m_pData;
    SetCount(vec, 0);
    EXPECT_EQ(Counted::live, 0);
    EXPECT_EQ(vec.m_pData, block);
    vec.Append(Counted(3));
    EXPECT_EQ(Counted::live, 1);
    EXPECT_EQ(vec[0].value, 3);
}

TEST_F(DVectorSafeLife, ClearingDestroysAndFrees)
{
    DVectorSafe<Counted> vec;
    vec.SetSize(5);
    vec.Clear();
    EXPECT_EQ(Counted::live, 0);
    EXPECT_EQ(vec.m_pData, nullptr);
    EXPECT_EQ(vec.m_nCapacity, 0);
}

TEST(DVectorSafeEdit, RemovingTheLastReturnsIt)
{
    DVectorSafe<DString> vec = Texts({"a", "b"});
    EXPECT_THAT(vec.RemoveLast(), Reads("b"));
    EXPECT_THAT(vec.RemoveLast(), Reads("a"));
    EXPECT_THAT(vec.RemoveLast(), Reads(""));
    EXPECT_EQ(vec.GetCount(), 0);
}

TEST(DVectorSafeEdit, RemovingAtAnIndexReturnsItAndMovesTheFollowingDown)
{
    DVectorSafe<DString> vec = Texts({"a", "b", "c"});
    EXPECT_THAT(vec.RemoveAt(1), Reads("b"));
    EXPECT_THAT(vec, ElementsAre(Reads("a"), Reads("c")));
    EXPECT_THAT(vec.RemoveAt(2), Reads(""));
    EXPECT_THAT(vec.RemoveAt(-1), Reads(""));
    EXPECT_EQ(vec.GetCount(), 2);
}

TEST(DVectorSafeEdit, InsertsAtTheFrontAlsoOneOfItsOwn)
{
    DVectorSafe<DString> vec = Texts({"b", "c"});
    InsertAt(vec, 0, "a");
    EXPECT_THAT(vec, ElementsAre(Reads("a"), Reads("b"), Reads("c")));
    InsertAt(vec, 0, vec[2]);
    InsertAt(vec, 99, "z");
    EXPECT_THAT(vec, ElementsAre(Reads("c"), Reads("a"), Reads("b"), Reads("c"), Reads("z")));
    EXPECT_TRUE(RemoveAt(vec, 0));
    EXPECT_FALSE(RemoveAt(vec, 4));
    EXPECT_EQ(vec.GetCount(), 4);
}

TEST(DVectorSafeValue, ACopyHasElementsOfItsOwn)
{
    DVectorSafe<DString> first = Texts({"a", "b"});
    DVectorSafe<DString> second(first);
    second[0] = "x";
    EXPECT_THAT(first, ElementsAre(Reads("a"), Reads("b")));
    first = second;
    EXPECT_THAT(first, ElementsAre(Reads("x"), Reads("b")));
    const DVectorSafe<DString> empty{DVectorSafe<DString>()};
    EXPECT_EQ(empty.m_pData, nullptr);
}
