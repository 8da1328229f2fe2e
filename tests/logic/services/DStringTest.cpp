// DStringTest.cpp - the host's string value
#include "tavkit/frame/services/DString.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

namespace
{
char const* const kNull = nullptr;

/// The pointer that is the value's only field.
char const* RawPointer(DString const& text)
{
    char const* pointer = nullptr;
    std::memcpy(&pointer, static_cast<void const*>(&text), sizeof(pointer));
    return pointer;
}

std::vector<std::string> TokensOf(char const* text, char const* seps)
{
    std::vector<std::string> tokens;
    for (DString::Tokens walk(text, seps); !walk.Done(); walk.Next())
    {
        tokens.emplace_back(walk.Crnt().c_str());
    }
    return tokens;
}
} // namespace

TEST(DStringValue, OneThatWasNeverAssignedIsANullPointerAndReadsAsEmpty)
{
    const DString text;
    EXPECT_THAT(RawPointer(text), IsNull());
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(text == "");
    EXPECT_TRUE(text == kNull);
    EXPECT_THAT(text.c_str(), StrEq(""));
    EXPECT_EQ(text.GetAllocSize(), 0u);
}

TEST(DStringValue, ConvertsToPlainTextWhereverOneIsTaken)
{
    const DString none;
    const DString some("Tavia");
    EXPECT_EQ(std::strlen(none), 0u);
    EXPECT_EQ(std::strlen(some), 5u);
    char const* const text = some;
    EXPECT_THAT(text, StrEq("Tavia"));
    EXPECT_TRUE("Tavia" == some);
    EXPECT_TRUE(some != "tavia");
}

#ifdef _WIN32
TEST(DStringValue, ConvertsToTheFrameworksStringByCopying)
{
    const CString none = DString();
    EXPECT_TRUE(none.IsEmpty());
    CString some(DString("Tavia"));
    EXPECT_THAT(static_cast<LPCTSTR>(some), StrEq("Tavia"));
    some = DString("Tavi");
    some += DString("a");
    EXPECT_TRUE(DString("Tavia") == some);
    EXPECT_TRUE(DString("tavia") != some);
}
#endif

TEST(DStringValue, IsOnePointerWideAndCarriesItsAllocationSizeInFrontOfTheText)
{
    EXPECT_EQ(sizeof(DString), sizeof(char*));
    const DString text("abc");
    std::uint32_t size = 0;
    std::memcpy(&size, RawPointer(text) - 4, sizeof(size));
    EXPECT_EQ(size, 32u);
    EXPECT_EQ(text.GetAllocSize(), 32u);
}

TEST(DStringValue, ConstructionFromNullKeepsANullPointer)
{
    EXPECT_THAT(RawPointer(DString(kNull)), IsNull());
    EXPECT_THAT(RawPointer(DString(DString())), IsNull());
}

TEST(DStringValue, CopiesAreDeep)
{
    DString first("one");
    DString second(first);
    EXPECT_NE(RawPointer(first), RawPointer(second));
    first += "!";
    EXPECT_TRUE(second == "one");
    DString third;
    third = first;
    second = "two";
    EXPECT_TRUE(third == "one!");
}

TEST(DStringValue, AssigningItselfLeavesItUnchanged)
{
    DString text("self");
    DString const& alias = text;
    text = alias;
    EXPECT_TRUE(text == "self");
    text = text.c_str();
    EXPECT_TRUE(text == "self");
    text = text.c_str() + 2;
    EXPECT_TRUE(text == "lf");
}

TEST(DStringValue, AssigningNullOrEmptyKeepsTheAllocation)
{
    DString text("some text");
    char const* const block = RawPointer(text);
    text = kNull;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(RawPointer(text), block);
    text = "again";
    text = "";
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(RawPointer(text), block);
    text = "again";
    text = DString();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(RawPointer(text), block);
}

TEST(DStringValue, MovingHandsTheTextOver)
{
    DString from("text");
    char const* const block = RawPointer(from);
    DString to(std::move(from));
    EXPECT_EQ(RawPointer(to), block);
    DString third;
    third = std::move(to);
    EXPECT_EQ(RawPointer(third), block);
}

struct Growth
{
    int n;
    unsigned int bytes;
};

class DStringReserve : public testing::TestWithParam<Growth>
{
};

TEST_P(DStringReserve, TakesTheFirstBlockSizeThatHoldsTheTextItsNulAndTheSizeWord)
{
    DString text;
    text.Reserve(GetParam().n, true);
    EXPECT_EQ(text.GetAllocSize(), GetParam().bytes);
    EXPECT_TRUE(text == "");
    const std::string filled(static_cast<std::size_t>(GetParam().n), 'x');
    EXPECT_EQ(DString(filled.c_str()).GetAllocSize(), GetParam().n == 0 ? 0u : GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Sizes, DStringReserve,
                         testing::Values(Growth{0, 32}, Growth{1, 32}, Growth{27, 32}, Growth{28, 64}, Growth{59, 64},
                                         Growth{60, 128}, Growth{123, 128}, Growth{124, 256}, Growth{251, 256},
                                         Growth{252, 512}, Growth{100'000, 131'072}));

TEST(DStringReserve, DoesNothingWhenTheAllocationIsLargeEnough)
{
    DString text("abc");
    char const* const block = RawPointer(text);
    text.Reserve(27, false);
    EXPECT_EQ(RawPointer(text), block);
    EXPECT_TRUE(text == "abc");
    text.Reserve(0, false);
    EXPECT_TRUE(text == "abc");
}

TEST(DStringReserve, KeepsTheTextOrStartsEmptyAsAsked)
{
    DString kept("abc");
    kept.Reserve(28, true);
    EXPECT_TRUE(kept == "abc");
    DString dropped("abc");
    dropped.Reserve(28, false);
    EXPECT_TRUE(dropped == "");
}

TEST(DStringReserve, ANegativeNumberChangesNothing)
{
    DString text;
    text.Reserve(-1, true);
    EXPECT_THAT(RawPointer(text), IsNull());
}

TEST(DStringReserve, MoreThanASizeWordCanSayThrowsAndLosesNothing)
{
    DString text("abc");
    EXPECT_THROW(text.Reserve(2147483647, true), std::bad_alloc);
    EXPECT_TRUE(text == "abc");
}

TEST(DStringAssign, ANullSourceEmptiesTheTextAndKeepsTheAllocation)
{
    DString text("old");
    char const* const block = RawPointer(text);
    text.Assign(nullptr, 0, 5);
    EXPECT_TRUE(text == "");
    EXPECT_EQ(RawPointer(text), block);
}

TEST(DStringAssign, ACountOfZeroEmptiesTheTextEvenWithAStartPastTheEnd)
{
    DString text("old");
    text.Assign("abc", 99, 0);
    EXPECT_TRUE(text == "");
    EXPECT_THAT(RawPointer(text), NotNull());
}

TEST(DStringAssign, ANullTextStaysNullWhenItIsEmptied)
{
    DString text;
    text.Assign("abc", 0, 0);
    EXPECT_THAT(RawPointer(text), IsNull());
    text.Assign(nullptr, 0, 3);
    EXPECT_THAT(RawPointer(text), IsNull());
}

TEST(DStringAssign, AStartPastTheEndLeavesTheTargetAsItWas)
{
    DString text("old");
    text.Assign("abc", 3, 1);
    EXPECT_TRUE(text == "old");
    text.Assign("abc", 99, 1);
    EXPECT_TRUE(text == "old");
    DString empty;
    empty.Assign("abc", 3, 1);
    EXPECT_THAT(RawPointer(empty), IsNull());
}

TEST(DStringAssign, AnEmptySourceWithACountLeavesTheTargetAsItWas)
{
    DString text("old");
    text.Assign("", 0, 5);
    EXPECT_TRUE(text == "old");
}

TEST(DStringAssign, TheCountIsCutToWhatTheSourceHas)
{
    DString text;
    text.Assign("abcdef", 2, 3);
    EXPECT_TRUE(text == "cde");
    text.Assign("abcdef", 4, 99);
    EXPECT_TRUE(text == "ef");
    text.Assign("abcdef", 0, 2147483647);
    EXPECT_TRUE(text == "abcdef");
}

TEST(DStringAssign, NegativeNumbersLeaveTheTargetAsItWas)
{
    DString text("old");
    text.Assign("abc", -1, 2);
    text.Assign("abc", 0, -1);
    EXPECT_TRUE(text == "old");
}

TEST(DStringAssign, TakesAPartOfItself)
{
    DString text("abcdef");
    text.Assign(text.c_str(), 2, 3);
    EXPECT_TRUE(text == "cde");
}

TEST(DStringEquality, ComparesBytesAndCase)
{
    const DString text("Tavia");
    EXPECT_TRUE(text == "Tavia");
    EXPECT_TRUE("Tavia" == text);
    EXPECT_FALSE(text == "tavia");
    EXPECT_FALSE(text == "Tav");
    EXPECT_TRUE(text != "Taviab");
    EXPECT_TRUE(text == DString("Tavia"));
    EXPECT_TRUE(text != DString("\xE9"));
    EXPECT_FALSE(text == kNull);
}

TEST(DStringAppend, NullAndEmptyChangeNothing)
{
    DString text;
    text += kNull;
    text += "";
    text += DString();
    EXPECT_THAT(RawPointer(text), IsNull());
    text = "a";
    text += kNull;
    text += "";
    EXPECT_TRUE(text == "a");
}

TEST(DStringAppend, OnAnEmptyTargetIsAnAssignment)
{
    DString text;
    text += "abc";
    EXPECT_TRUE(text == "abc");
    EXPECT_EQ(text.GetAllocSize(), 32u);
}

TEST(DStringAppend, GrowsKeepingTheText)
{
    DString text("abc");
    const std::string tail(40, 'x');
    text += tail.c_str();
    EXPECT_THAT(text.c_str(), StrEq("abc" + tail));
    EXPECT_EQ(text.GetAllocSize(), 64u);
}

TEST(DStringAppend, TakesItselfWithAndWithoutGrowing)
{
    DString text("abcd");
    text += text;
    EXPECT_TRUE(text == "abcdabcd");
    text += text.c_str() + 4;
    EXPECT_TRUE(text == "abcdabcdabcd");
    DString grows("0123456789012345678901");
    grows += grows;
    EXPECT_TRUE(grows == "01234567890123456789010123456789012345678901");
}

TEST(DStringConcatenate, YieldsANewValue)
{
    const DString folder("C:\\data\\");
    EXPECT_TRUE(folder + "a.tif" == "C:\\data\\a.tif");
    EXPECT_TRUE(folder + DString("b") == "C:\\data\\b");
    EXPECT_TRUE("x" + folder == "xC:\\data\\");
    EXPECT_TRUE(folder + kNull == "C:\\data\\");
    EXPECT_TRUE(kNull + folder == "C:\\data\\");
    EXPECT_TRUE(DString() + DString() == "");
    EXPECT_TRUE(folder == "C:\\data\\");
}

TEST(DStringFormat, PrintsTheArguments)
{
    EXPECT_TRUE(DString::Format("%d of %s", 3, "five") == "3 of five");
    EXPECT_TRUE(DString::Format("%5.2f|%c", 1.5, 'x') == " 1.50|x");
    EXPECT_TRUE(DString::Format("plain") == "plain");
}

TEST(DStringFormat, MeasuresFirstSoThatNoLengthIsTooGreat)
{
    const std::string body(70'000, 'y');
    EXPECT_THAT(DString::Format("<%s>", body.c_str()).c_str(), StrEq("<" + body + ">"));
    const std::string justFits(27, 'z');
    EXPECT_EQ(DString::Format("%s", justFits.c_str()).GetAllocSize(), 32u);
}

TEST(DStringFormat, ExponentsOfAnyLengthArriveWhole)
{
    EXPECT_EQ(std::stod(DString::Format("%e", 1.5e300).c_str()), 1.5e300);
    EXPECT_EQ(std::stod(DString::Format("%g", -2.5e-8).c_str()), -2.5e-8);
}

TEST(DStringFormat, NothingToPrintGivesAnEmptyText)
{
    EXPECT_TRUE(DString::Format(kNull) == "");
    EXPECT_TRUE(DString::Format("%s", "") == "");
}

TEST(DStringTrimRight, RemovesTrailingCharactersOfTheSet)
{
    DString path("C:\\data\\/\\");
    path.TrimRight("/\\");
    EXPECT_TRUE(path == "C:\\data");
    path.TrimRight("/\\");
    EXPECT_TRUE(path == "C:\\data");
    DString all("///");
    all.TrimRight("/\\");
    EXPECT_TRUE(all == "");
}

TEST(DStringTrimRight, ANullOrEmptySetRemovesNothing)
{
    DString text("a//");
    text.TrimRight(nullptr);
    text.TrimRight("");
    EXPECT_TRUE(text == "a//");
    DString null;
    null.TrimRight("/");
    EXPECT_THAT(RawPointer(null), IsNull());
}

TEST(DStringReplace, ReturnsTheNumberReplaced)
{
    DString text("a/b/c");
    EXPECT_EQ(text.Replace("/", "\\"), 2);
    EXPECT_TRUE(text == "a\\b\\c");
    EXPECT_EQ(text.Replace("x", "y"), 0);
}

TEST(DStringReplace, NullArgumentsAndAnEmptySearchReplaceNothing)
{
    DString text("abc");
    EXPECT_EQ(text.Replace(nullptr, "x"), 0);
    EXPECT_EQ(text.Replace("a", nullptr), 0);
    EXPECT_EQ(text.Replace("", "x"), 0);
    EXPECT_TRUE(text == "abc");
    DString null;
    EXPECT_EQ(null.Replace("a", "b"), 0);
    EXPECT_THAT(RawPointer(null), IsNull());
}

TEST(DStringReplace, AnEmptyReplacementCutsOut)
{
    DString text("--a--b--");
    EXPECT_EQ(text.Replace("--", ""), 3);
    EXPECT_TRUE(text == "ab");
}

TEST(DStringReplace, GrowsWhenTheNewTextIsLonger)
{
    DString text("a.b.c.d.e.f.g.h");
    EXPECT_EQ(text.Replace(".", "<dot>"), 7);
    EXPECT_TRUE(text == "a<dot>b<dot>c<dot>d<dot>e<dot>f<dot>g<dot>h");
    EXPECT_EQ(text.GetAllocSize(), 64u);
}

TEST(DStringReplace, DoesNotSearchWhatItPutIn)
{
    DString text("aa");
    EXPECT_EQ(text.Replace("a", "aa"), 2);
    EXPECT_TRUE(text == "aaaa");
}

TEST(DStringReplace, TakesOverlappingOccurrencesFromTheLeft)
{
    DString text("aaaaa");
    EXPECT_EQ(text.Replace("aa", "b"), 2);
    EXPECT_TRUE(text == "bba");
    DString longer("aaaaa");
    EXPECT_EQ(longer.Replace("aa", "xyz"), 2);
    EXPECT_TRUE(longer == "xyzxyza");
}

TEST(DStringReplace, TheArgumentsMayBePartsOfTheTextItself)
{
    DString text("ab");
    EXPECT_EQ(text.Replace(text.c_str() + 1, text.c_str()), 1);
    EXPECT_TRUE(text == "aab");
    EXPECT_EQ(text.Replace(text.c_str(), ""), 1);
    EXPECT_TRUE(text == "");
}

TEST(DStringParts, LeftAndRightGiveNewValuesAndTheWholeTextWhenAskedForMore)
{
    const DString text("abcdef");
    EXPECT_TRUE(text.Left(2) == "ab");
    EXPECT_TRUE(text.Right(2) == "ef");
    EXPECT_TRUE(text.Left(6) == "abcdef");
    EXPECT_TRUE(text.Left(99) == "abcdef");
    EXPECT_TRUE(text.Right(99) == "abcdef");
    EXPECT_TRUE(text.Left(0) == "");
    EXPECT_TRUE(text.Right(0) == "");
    EXPECT_TRUE(text.Left(-3) == "");
    EXPECT_TRUE(text.Right(-3) == "");
    EXPECT_TRUE(DString().Left(3) == "");
    EXPECT_TRUE(DString().Right(3) == "");
}

TEST(DStringTokens, AnEmptyTextHasNoToken)
{
    EXPECT_THAT(TokensOf("", ";"), IsEmpty());
    EXPECT_THAT(TokensOf(nullptr, ";"), IsEmpty());
}

TEST(DStringTokens, ATextWithoutSeparatorIsOneToken)
{
    EXPECT_THAT(TokensOf("abc", ";"), ElementsAre("abc"));
    EXPECT_THAT(TokensOf("a;b", nullptr), ElementsAre("a;b"));
    EXPECT_THAT(TokensOf("a;b", ""), ElementsAre("a;b"));
}

TEST(DStringTokens, EmptyTokensStandBetweenNeighbouringSeparatorsAndInFront)
{
    EXPECT_THAT(TokensOf("a;;b", ";"), ElementsAre("a", "", "b"));
    EXPECT_THAT(TokensOf(";a", ";"), ElementsAre("", "a"));
    EXPECT_THAT(TokensOf(";", ";"), ElementsAre(""));
}

TEST(DStringTokens, ASeparatorAtTheEndOpensNoFurtherToken)
{
    EXPECT_THAT(TokensOf("a;b;", ";"), ElementsAre("a", "b"));
    EXPECT_THAT(TokensOf("All files|*.*||", "|"), ElementsAre("All files", "*.*", ""));
}

TEST(DStringTokens, EveryCharacterOfTheSetSeparates)
{
    EXPECT_THAT(TokensOf("a;b,c", ",;"), ElementsAre("a", "b", "c"));
}

TEST(DStringTokens, StaysAtItsEndAndGoesBackToTheFirst)
{
    DString::Tokens walk("a;b", ";");
    walk.Next();
    walk.Next();
    EXPECT_TRUE(walk.Done());
    EXPECT_TRUE(walk.Crnt() == "");
    walk.Next();
    EXPECT_TRUE(walk.Done());
    walk.First();
    EXPECT_TRUE(walk.Crnt() == "a");
}

TEST(DStringTokens, OutlivesTheTextItWalks)
{
    auto text = std::make_unique<DString>("a;b");
    DString::Tokens walk(*text, ";");
    text.reset();
    walk.Next();
    EXPECT_TRUE(walk.Crnt() == "b");
}

TEST(DStringOrder, IsOfBytesWithNullAsEmpty)
{
    const DStringLess less;
    EXPECT_TRUE(less(DString("A"), DString("a")));
    EXPECT_TRUE(less(DString("z"), DString("\xE9")));
    EXPECT_FALSE(less(DString(), DString("")));
    EXPECT_FALSE(less(DString(""), DString()));
    EXPECT_TRUE(less(DString(), "a"));
    EXPECT_FALSE(less(kNull, DString()));
    std::map<DString, int, DStringLess> map{{"Images", 1}};
    EXPECT_NE(map.find("Images"), map.end());
    EXPECT_EQ(map.find("images"), map.end());
}
