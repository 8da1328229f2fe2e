// CollectionsTest.cpp - arrays, lists and maps
#include <afxcoll.h>
#include <gmock/gmock.h>

#include <set>
#include <vector>

using testing::ElementsAre;

namespace
{
template <class TArray>
auto Items(const TArray& array)
{
    std::vector<std::remove_cvref_t<decltype(array.GetAt(0))>> items;
    for (int n = 0; n < array.GetSize(); n++)
    {
        items.push_back(array[n]);
    }
    return items;
}

std::vector<int> Items(const CList<int, int>& list)
{
    std::vector<int> items;
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
    {
        items.push_back(list.GetNext(pos));
    }
    return items;
}

using WindowMap = CMap<HWND, HWND, int, int>;
HWND WindowOf(UINT_PTR value) { return reinterpret_cast<HWND>(value); }
} // namespace

TEST(Array, GrowsAndAnswersTheIndexOfWhatWasAdded)
{
    CDWordArray array;
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.Add(10), 0);
    EXPECT_EQ(array.Add(20), 1);
    array[0] = 11;
    array.SetAt(1, 21);
    EXPECT_THAT(Items(array), ElementsAre(11U, 21U));
    EXPECT_EQ(array.GetCount(), 2);
    EXPECT_EQ(array.GetAt(1), 21U);
}

TEST(Array, AnIndexOutsideThrowsAndChangesNothing)
{
    CDWordArray array;
    array.Add(1);
    EXPECT_THROW(array.GetAt(1), CInvalidArgException*);
    EXPECT_THROW(array.GetAt(-1), CInvalidArgException*);
    EXPECT_THROW(array[7] = 1, CInvalidArgException*);
    EXPECT_THROW(array.SetAt(1, 5), CInvalidArgException*);
    EXPECT_THROW(array.RemoveAt(1), CInvalidArgException*);
    EXPECT_THROW(array.RemoveAt(0, 2), CInvalidArgException*);
    EXPECT_THROW(array.RemoveAt(0, -1), CInvalidArgException*);
    EXPECT_THROW(array.InsertAt(-1, 5), CInvalidArgException*);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException*);
    EXPECT_THAT(Items(array), ElementsAre(1U));
}

TEST(Array, InsertsInFrontBehindAndBeyondTheEnd)
{
    CDWordArray array;
    array.InsertAt(0, 2);
    array.InsertAt(0, 1);
    array.InsertAt(2, 3, 2);
    EXPECT_THAT(Items(array), ElementsAre(1U, 2U, 3U, 3U));
    array.InsertAt(6, 9);
    EXPECT_THAT(Items(array), ElementsAre(1U, 2U, 3U, 3U, 0U, 0U, 9U));
}

TEST(Array, RemovesARange)
{
    CDWordArray array;
    for (DWORD n = 0; n < 5; n++)
    {
        array.Add(n);
    }
    array.RemoveAt(1, 2);
    EXPECT_THAT(Items(array), ElementsAre(0U, 3U, 4U));
    array.RemoveAt(0);
    EXPECT_THAT(Items(array), ElementsAre(3U, 4U));
    array.RemoveAt(2, 0);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(Array, ANewSizeKeepsWhatFitsAndZeroesTheRest)
{
    CDWordArray array;
    array.Add(1);
    array.SetSize(3);
    EXPECT_THAT(Items(array), ElementsAre(1U, 0U, 0U));
    array.SetSize(1, 10);
    EXPECT_THAT(Items(array), ElementsAre(1U));
    array.SetAtGrow(2, 7);
    EXPECT_THAT(Items(array), ElementsAre(1U, 0U, 7U));
}

TEST(Array, AnElementOfItselfMayBeAddedInsertedOrAppended)
{
    CArray<CString> array;
    array.Add("a");
    for (int n = 0; n < 20; n++)
    {
        array.Add(array[0]);
        array.InsertAt(0, array[n]);
    }
    array.SetAtGrow(60, array[0]);
    EXPECT_EQ(array[60], "a");
    array.SetSize(2);
    array.Append(array);
    EXPECT_THAT(Items(array), ElementsAre("a", "a", "a", "a"));
}

TEST(Array, CopiesAnother)
{
    CDWordArray source, target;
    source.Add(1);
    target.Add(9);
    target.Copy(source);
    EXPECT_THAT(Items(target), ElementsAre(1U));
    EXPECT_EQ(target.Append(source), 1);
    EXPECT_THAT(Items(target), ElementsAre(1U, 1U));
}

TEST(Array, OfPointersBorrowsWhatTheyPointTo)
{
    int value = 1;
    {
        CPtrArray array;
        EXPECT_EQ(array.Add(&value), 0);
        EXPECT_EQ(array[0], &value);
    }
    EXPECT_EQ(value, 1);
}

TEST(List, KeepsItsOrderAtBothEnds)
{
    CList<int, int> list;
    list.AddTail(2);
    list.AddHead(1);
    list.AddTail(3);
    EXPECT_THAT(Items(list), ElementsAre(1, 2, 3));
    EXPECT_EQ(list.GetHead(), 1);
    EXPECT_EQ(list.GetTail(), 3);
    EXPECT_EQ(list.RemoveHead(), 1);
    EXPECT_EQ(list.RemoveTail(), 3);
    EXPECT_EQ(list.GetCount(), 1);
    EXPECT_EQ(list.RemoveTail(), 2);
    EXPECT_TRUE(list.IsEmpty());
}

TEST(List, WalksBackwardsToo)
{
    CList<int, int> list;
    list.AddTail(1);
    list.AddTail(2);
    POSITION pos = list.GetTailPosition();
    EXPECT_EQ(list.GetPrev(pos), 2);
    EXPECT_EQ(list.GetPrev(pos), 1);
    EXPECT_EQ(pos, nullptr);
}

TEST(List, AWalkSurvivesTheRemovalOfTheElementJustReturned)
{
    CList<int, int> list;
    for (int n = 0; n < 6; n++)
    {
        list.AddTail(n);
    }
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
    {
        const POSITION current = pos;
        if (list.GetNext(pos) % 2 == 0)
        {
            list.RemoveAt(current);
        }
    }
    EXPECT_THAT(Items(list), ElementsAre(1, 3, 5));
}

TEST(List, FindsByValueAndByIndex)
{
    CList<int, int> list;
    list.AddTail(5);
    const POSITION second = list.AddTail(6);
    const POSITION third = list.AddTail(5);
    EXPECT_EQ(list.Find(5), list.GetHeadPosition());
    EXPECT_EQ(list.Find(5, list.GetHeadPosition()), third);
    EXPECT_EQ(list.Find(5, third), nullptr);
    EXPECT_EQ(list.Find(7), nullptr);
    EXPECT_EQ(list.FindIndex(1), second);
    EXPECT_EQ(list.FindIndex(3), nullptr);
    EXPECT_EQ(list.FindIndex(-1), nullptr);
}

TEST(List, InsertsBeforeAndAfterAPlace)
{
    CList<int, int> list;
    const POSITION middle = list.AddTail(5);
    list.InsertBefore(middle, 4);
    list.InsertAfter(middle, 6);
    list.InsertBefore(nullptr, 3);
    list.InsertAfter(nullptr, 7);
    EXPECT_THAT(Items(list), ElementsAre(3, 4, 5, 6, 7));
    list.SetAt(middle, 50);
    EXPECT_EQ(list.GetAt(middle), 50);
}

TEST(List, AnEmptyListAndANullPlaceThrow)
{
    CList<int, int> list;
    POSITION none = nullptr;
    EXPECT_THROW(list.GetHead(), CInvalidArgException*);
    EXPECT_THROW(list.GetTail(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveTail(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveAt(none), CInvalidArgException*);
    EXPECT_THROW(list.GetNext(none), CInvalidArgException*);
}

TEST(List, RemoveAllEndsEveryElement)
{
    static int alive = 0;
    struct Counted
    {
        Counted() { alive++; }
        Counted(const Counted&) { alive++; }
        ~Counted() { alive--; }
    };
    {
        CList<Counted> list;
        list.AddTail(Counted());
        list.AddTail(Counted());
        EXPECT_EQ(alive, 2);
        list.RemoveAll();
        EXPECT_EQ(alive, 0);
        list.AddTail(Counted());
    }
    EXPECT_EQ(alive, 0);
}

TEST(TypedList, GivesPointersOfItsType)
{
    class CThing : public CObject
    {
    };
    CThing first, second;
    CTypedPtrList<CObList, CThing*> list;
    list.AddTail(&second);
    const POSITION head = list.AddHead(&first);
    CThing* const thing = list.GetAt(head);
    EXPECT_EQ(thing, &first);
    POSITION pos = list.GetHeadPosition();
    EXPECT_EQ(list.GetNext(pos), &first);
    EXPECT_EQ(list.GetNext(pos), &second);
    EXPECT_EQ(pos, nullptr);
    EXPECT_EQ(list.Find(&first), head);
    EXPECT_EQ(list.RemoveHead(), &first);
    EXPECT_EQ(list.GetTail(), &second);

    int value = 0;
    CTypedPtrList<CPtrList, int*> values;
    values.AddTail(&value);
    *values.GetHead() = 7;
    EXPECT_EQ(value, 7);
}

TEST(Map, FindsWhatWasSet)
{
    WindowMap map;
    map.SetAt(WindowOf(0x10056), 1);
    map[WindowOf(0x10058)] = 2;
    int value = 99;
    EXPECT_TRUE(map.Lookup(WindowOf(0x10056), value));
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(map.Lookup(WindowOf(0x1005A), value));
    EXPECT_EQ(value, 1) << "an unknown key leaves the value";
    EXPECT_EQ(map.GetCount(), 2);
    map.SetAt(WindowOf(0x10056), 3);
    EXPECT_EQ(map[WindowOf(0x10056)], 3);
    EXPECT_EQ(map.GetCount(), 2);
}

TEST(Map, IndexingANewKeyMakesAnEmptyValue)
{
    WindowMap map;
    EXPECT_EQ(map[WindowOf(8)], 0);
    EXPECT_EQ(map.GetCount(), 1);
}

TEST(Map, RemovesKeys)
{
    WindowMap map;
    map[WindowOf(8)] = 1;
    EXPECT_TRUE(map.RemoveKey(WindowOf(8)));
    EXPECT_FALSE(map.RemoveKey(WindowOf(8)));
    EXPECT_TRUE(map.IsEmpty());
    map[WindowOf(8)] = 1;
    map.RemoveAll();
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
}

TEST(Map, AWalkSeesEveryPairOnce)
{
    WindowMap map;
    constexpr UINT_PTR kCount = 100;
    for (UINT_PTR n = 1; n <= kCount; n++)
    {
        map[WindowOf(n * 2)] = static_cast<int>(n);
    }
    std::set<HWND> seen;
    for (POSITION pos = map.GetStartPosition(); pos != nullptr;)
    {
        HWND key = nullptr;
        int value = 0;
        map.GetNextAssoc(pos, key, value);
        EXPECT_EQ(key, WindowOf(static_cast<UINT_PTR>(value) * 2));
        EXPECT_TRUE(seen.insert(key).second);
    }
    EXPECT_EQ(seen.size(), kCount);
}

TEST(Map, AWalkSurvivesTheRemovalOfThePairJustReturned)
{
    WindowMap map;
    constexpr UINT_PTR kCount = 100;
    for (UINT_PTR n = 1; n <= kCount; n++)
    {
        map[WindowOf(n)] = 1;
    }
    UINT_PTR steps = 0;
    for (POSITION pos = map.GetStartPosition(); pos != nullptr; steps++)
    {
        HWND key = nullptr;
        int value = 0;
        map.GetNextAssoc(pos, key, value);
        EXPECT_TRUE(map.RemoveKey(key));
    }
    EXPECT_EQ(steps, kCount);
    EXPECT_TRUE(map.IsEmpty());
}

TEST(Map, AWalkFromANullPlaceThrows)
{
    WindowMap map;
    POSITION none = nullptr;
    HWND key = nullptr;
    int value = 0;
    EXPECT_THROW(map.GetNextAssoc(none, key, value), CInvalidArgException*);
}

TEST(Map, HasSeventeenPlacesUntilAnotherNumberIsAskedFor)
{
    WindowMap map;
    EXPECT_EQ(map.GetHashTableSize(), 17U);
    map.InitHashTable(101);
    EXPECT_EQ(map.GetHashTableSize(), 101U);
    map[WindowOf(8)] = 1;
    EXPECT_EQ(map[WindowOf(8)], 1);
}

TEST(Map, HashOfAHandleShiftsBeforeItCutsToThirtyTwoBits)
{
    EXPECT_EQ(HashKey<HWND>(WindowOf(0x1'2345'6780)), 0x1234'5678U);
    EXPECT_EQ(HashKey<int>(0x30), 3U);
}

TEST(Map, StringsAreKeysByTheirText)
{
    CMap<CString, LPCTSTR, int, int> map;
    char key[] = "one";
    map[key] = 1;
    key[0] = 'x';
    int value = 0;
    EXPECT_TRUE(map.Lookup("one", value));
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(map.Lookup("xne", value));
    EXPECT_EQ(HashKey<LPCTSTR>("one"), HashKey<const CString&>(CString("one")));
}
