// StringTest.cpp - the framework's string
#include <afx.h>
#include <gmock/gmock.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{
constexpr LPCTSTR kNull = nullptr;

std::string Bytes(const CString& string) { return {string.GetString(), static_cast<size_t>(string.GetLength())}; }
} // namespace

TEST(StringConstruction, OfAStringIsOnePointerWide) { EXPECT_EQ(sizeof(CString), sizeof(void*)); }

TEST(StringConstruction, AnEmptyStringIsNeverNullInside)
{
    const CString empty;
    EXPECT_NE(empty.GetString(), nullptr);
    EXPECT_STREQ(empty, "");
    EXPECT_EQ(empty.GetLength(), 0);
    EXPECT_TRUE(empty.IsEmpty());
}

TEST(StringConstruction, NullReadsAsTheEmptyText)
{
    EXPECT_STREQ(CString(kNull), "");
    EXPECT_STREQ(CString(kNull, 5), "");
    CString string("old");
    string = kNull;
    EXPECT_STREQ(string, "");
}

TEST(StringConstruction, OfARepeatedCharacter)
{
    EXPECT_EQ(CString('x'), "x");
    EXPECT_EQ(CString('x', 3), "xxx");
    EXPECT_EQ(CString('x', 0), "");
    EXPECT_EQ(CString('x', -1), "");
}

TEST(StringConstruction, OfAGivenLengthTakesZeroBytesToo)
{
    const CString string("a\0b", 3);
    EXPECT_EQ(Bytes(string), std::string("a\0b", 3));
    EXPECT_EQ(CString("abc", 2), "ab");
    EXPECT_EQ(CString("abc", -2), "");
}

TEST(StringConstruction, AMovedFromStringIsEmptyAndUsable)
{
    CString source("text");
    const CString target(std::move(source));
    EXPECT_EQ(target, "text");
    source = "again"; // NOLINT(bugprone-use-after-move): that is the question
    EXPECT_EQ(source, "again");
}

namespace
{
/// A class that turns itself into a string and into a plain text, as that of another library may.
struct Convertible
{
    operator CString() const { return "string"; }
    operator LPCTSTR() const { return "text"; }
};
} // namespace

TEST(StringConstruction, OfAClassThatAlsoTurnsIntoPlainTextTakesItsString)
{
    const Convertible source;
    CString made(source);
    EXPECT_STREQ(made, "string");
    const CString copied = source;
    EXPECT_STREQ(copied, "string");
    made = "old ";
    made += source;
    EXPECT_STREQ(made, "old string");
    made = source;
    EXPECT_STREQ(made, "string");
}

TEST(StringSharing, ACopySharesTheTextUntilOneOfThemWrites)
{
    CString first("text");
    const CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString());
    first.SetAt(0, 'n');
    EXPECT_EQ(first, "next");
    EXPECT_EQ(second, "text");
}

TEST(StringSharing, EveryWriterLeavesTheOtherAsItWas)
{
    using Writer = void (*)(CString&);
    const std::vector<Writer> writers = {
        [](CString& s) { s += "x"; },
        [](CString& s) { s += 'x'; },
        [](CString& s) { s = "x"; },
        [](CString& s) { s.Empty(); },
        [](CString& s) { s.MakeUpper(); },
        [](CString& s) { s.Replace('b', 'x'); },
        [](CString& s) { s.Replace("b", "x"); },
        [](CString& s) { s.Insert(1, "x"); },
        [](CString& s) { s.Delete(1); },
        [](CString& s) { s.Remove('b'); },
        [](CString& s) { s.TrimLeft('a'); },
        [](CString& s) { s.TrimRight('c'); },
        [](CString& s) { s.Format("%d", 1); },
        [](CString& s) { s.AppendFormat("%d", 1); },
        [](CString& s) { s.ReleaseBuffer(1); },
        [](CString& s) { s.GetBufferSetLength(2)[0] = 'x'; },
        [](CString& s) {
            s.GetBuffer(2)[1] = 'x';
            s.ReleaseBuffer();
        },
    };
    for (const Writer writer : writers)
    {
        CString changed("abc");
        const CString other(changed);
        writer(changed);
        EXPECT_EQ(other, "abc") << "writer " << (&writer - writers.data());
        EXPECT_NE(changed, "abc") << "writer " << (&writer - writers.data());
    }
}

TEST(StringSharing, CopiesOnSeveralThreadsKeepTheCountRight)
{
    const CString shared("shared");
    constexpr int kRounds = 20000;
    std::vector<std::thread> threads;
    for (int n = 0; n < 4; n++)
    {
        threads.emplace_back([&] {
            for (int round = 0; round < kRounds; round++)
            {
                CString copy(shared);
                copy += 'x';
            }
        });
    }
    for (auto& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(shared, "shared");
}

TEST(StringAssignment, FromItselfOrAPartOfItself)
{
    CString string("abcdef");
    string = *&string;
    EXPECT_EQ(string, "abcdef");
    string = string.GetString();
    EXPECT_EQ(string, "abcdef");
    string = string.GetString() + 2;
    EXPECT_EQ(string, "cdef");
    const CString sharer(string);
    string = string.GetString() + 2;
    EXPECT_EQ(string, "ef");
    EXPECT_EQ(sharer, "cdef");
}

TEST(StringAssignment, FromACharacter)
{
    CString string("abc");
    string = 'x';
    EXPECT_EQ(string, "x");
}

TEST(StringAppend, TakesStringsTextsAndCharacters)
{
    CString string;
    string += CString("ab");
    string += "cd";
    string += 'e';
    string += kNull;
    string += "";
    string.Append("fgh", 2);
    string.Append(kNull, 5);
    string.Append("xyz", -1);
    EXPECT_EQ(string, "abcdefg");
    EXPECT_EQ(string.GetLength(), 7);
}

TEST(StringAppend, OfItselfOrAPartOfItselfSurvivesTheNewBuffer)
{
    CString string("abc");
    string += string;
    EXPECT_EQ(string, "abcabc");
    string += string.GetString() + 4;
    EXPECT_EQ(string, "abcabcbc");
    CString large('x', 100);
    for (int n = 0; n < 10; n++)
    {
        large += large.GetString();
    }
    EXPECT_EQ(large, CString('x', 102400));
}

TEST(StringAppend, ManyCharactersInLinearTime)
{
    constexpr int kLength = 2'000'000;
    CString string;
    for (int n = 0; n < kLength; n++)
    {
        string += 'x';
    }
    EXPECT_EQ(string.GetLength(), kLength);
    EXPECT_EQ(std::strlen(string), static_cast<size_t>(kLength));
}

TEST(StringConcatenation, OfAllPairs)
{
    const CString ab("ab");
    EXPECT_EQ(ab + CString("cd"), "abcd");
    EXPECT_EQ(ab + "cd", "abcd");
    EXPECT_EQ("cd" + ab, "cdab");
    EXPECT_EQ(ab + 'c', "abc");
    EXPECT_EQ('c' + ab, "cab");
    EXPECT_EQ(ab + kNull, "ab");
    EXPECT_EQ(kNull + ab, "ab");
    EXPECT_EQ(CString() + CString(), "");
}

TEST(StringAccess, TheTerminatorMayBeReadAndNothingBehindIt)
{
    CString string("ab");
    EXPECT_EQ(string.GetAt(0), 'a');
    EXPECT_EQ(string[1], 'b');
    EXPECT_EQ(string[2], '\0');
    EXPECT_THROW(static_cast<void>(string.GetAt(3)), CInvalidArgException*);
    EXPECT_THROW(static_cast<void>(string[-1]), CInvalidArgException*);
}

TEST(StringAccess, SetAtRefusesTheTerminator)
{
    CString string("ab");
    string.SetAt(1, 'x');
    EXPECT_EQ(string, "ax");
    EXPECT_THROW(string.SetAt(2, 'y'), CInvalidArgException*);
    EXPECT_THROW(string.SetAt(-1, 'y'), CInvalidArgException*);
    EXPECT_EQ(string, "ax");
}

TEST(StringComparison, IsByBytes)
{
    const CString abc("abc");
    EXPECT_EQ(abc.Compare("abc"), 0);
    EXPECT_LT(abc.Compare("abd"), 0);
    EXPECT_GT(abc.Compare("ABC"), 0);
    EXPECT_GT(abc.Compare(kNull), 0);
    EXPECT_EQ(CString().Compare(kNull), 0);
    EXPECT_GT(CString("\xE4").Compare("z"), 0) << "bytes compare without sign";
}

TEST(StringComparison, WithoutCaseFoldsTheLettersOfTheCodePage)
{
    EXPECT_EQ(CString("AbC").CompareNoCase("aBc"), 0);
    EXPECT_EQ(CString("\xC4pfel").CompareNoCase("\xE4PFEL"), 0);
    EXPECT_LT(CString("abc").CompareNoCase("ABD"), 0);
    EXPECT_GT(CString("abc").CompareNoCase("AB"), 0);
    EXPECT_LT(CString("ab").CompareNoCase("ABC"), 0);
    EXPECT_EQ(CString().CompareNoCase(kNull), 0);
}

TEST(StringComparison, OperatorsTakeStringsAndTextsOnBothSides)
{
    const CString a("a"), b("b");
    EXPECT_TRUE(a == CString("a") && a == "a" && "a" == a);
    EXPECT_TRUE(a != b && a != "b" && "b" != a);
    EXPECT_TRUE(a < b && a < "b" && "a" < b);
    EXPECT_TRUE(b > a && b > "a" && "b" > a);
    EXPECT_TRUE(a <= b && a <= "a" && "a" <= a);
    EXPECT_TRUE(b >= a && b >= "b" && "b" >= b);
    EXPECT_FALSE(a == kNull);
    EXPECT_TRUE(CString() == kNull);
}

TEST(StringFind, OfACharacter)
{
    const CString string("abcab");
    EXPECT_EQ(string.Find('a'), 0);
    EXPECT_EQ(string.Find('a', 1), 3);
    EXPECT_EQ(string.Find('x'), -1);
    EXPECT_EQ(string.Find('a', 5), -1);
    EXPECT_EQ(string.Find('a', 99), -1);
    EXPECT_EQ(string.Find('a', -1), -1);
    EXPECT_EQ(string.Find('\0'), -1);
    EXPECT_EQ(string.ReverseFind('a'), 3);
    EXPECT_EQ(string.ReverseFind('x'), -1);
    EXPECT_EQ(CString().ReverseFind('a'), -1);
}

TEST(StringFind, OfAText)
{
    const CString string("abcab");
    EXPECT_EQ(string.Find("ab"), 0);
    EXPECT_EQ(string.Find("ab", 1), 3);
    EXPECT_EQ(string.Find("abd"), -1);
    EXPECT_EQ(string.Find("ab", 99), -1);
    EXPECT_EQ(string.Find("ab", -1), -1);
    EXPECT_EQ(string.Find("", 2), 2);
    EXPECT_EQ(string.Find("", 5), 5);
    EXPECT_EQ(string.Find("", 6), -1);
    EXPECT_EQ(string.Find(kNull), 0);
    EXPECT_EQ(string.FindOneOf("xc"), 2);
    EXPECT_EQ(string.FindOneOf("x"), -1);
    EXPECT_EQ(string.FindOneOf(kNull), -1);
}

TEST(StringParts, PositionsOutsideMoveToTheEnds)
{
    const CString string("abcdef");
    EXPECT_EQ(string.Mid(2), "cdef");
    EXPECT_EQ(string.Mid(2, 3), "cde");
    EXPECT_EQ(string.Mid(4, 99), "ef");
    EXPECT_EQ(string.Mid(99), "");
    EXPECT_EQ(string.Mid(-5, 2), "ab");
    EXPECT_EQ(string.Mid(2, -1), "");
    EXPECT_EQ(string.Mid(2, 0x7FFFFFFF), "cdef");
    EXPECT_EQ(string.Left(2), "ab");
    EXPECT_EQ(string.Left(99), "abcdef");
    EXPECT_EQ(string.Left(-1), "");
    EXPECT_EQ(string.Right(2), "ef");
    EXPECT_EQ(string.Right(99), "abcdef");
    EXPECT_EQ(string.Right(-1), "");
    EXPECT_EQ(string.Left(6).GetString(), string.GetString()) << "the whole text is shared";
}

TEST(StringParts, Spans)
{
    const CString string("aabbc");
    EXPECT_EQ(string.SpanIncluding("ab"), "aabb");
    EXPECT_EQ(string.SpanIncluding("abc"), "aabbc");
    EXPECT_EQ(string.SpanIncluding(""), "");
    EXPECT_EQ(string.SpanExcluding("c"), "aabb");
    EXPECT_EQ(string.SpanExcluding("x"), "aabbc");
    EXPECT_EQ(string.SpanExcluding(kNull), "aabbc");
}

TEST(StringTokenize, SkipsEmptyPartsAndEndsWithMinusOne)
{
    const CString string(",,one,two,,three");
    int start = 0;
    std::vector<CString> parts;
    for (CString part = string.Tokenize(",", start); start >= 0; part = string.Tokenize(",", start))
    {
        parts.push_back(part);
    }
    EXPECT_THAT(parts, testing::ElementsAre("one", "two", "three"));
    EXPECT_EQ(start, -1);
    EXPECT_EQ(string.Tokenize(",", start), "") << "and stays there";
    EXPECT_EQ(start, -1);
}

TEST(StringTokenize, WithoutSeparatorsTheWholeTextIsTheOnlyPart)
{
    const CString string("one,two");
    int start = 0;
    EXPECT_EQ(string.Tokenize(kNull, start), "one,two");
    EXPECT_EQ(string.Tokenize(kNull, start), "");
    EXPECT_EQ(start, -1);
}

TEST(StringFormat, WritesShortTexts)
{
    CString string;
    string.Format("%d|%s|%5.2f|%c", -7, "text", 3.14159, 'x');
    EXPECT_EQ(string, "-7|text| 3.14|x");
}

TEST(StringFormat, ReadsAStringAsItsPointer)
{
    const CString name("name");
    CString string;
    string.Format("<%s>", static_cast<LPCTSTR>(name));
    EXPECT_EQ(string, "<name>");
}

TEST(StringFormat, WritesTextsOfAnyLength)
{
    for (const int length : {254, 255, 256, 257, 100'000})
    {
        const CString source('y', length);
        CString string("old");
        string.Format("%s", source.GetString());
        EXPECT_EQ(string, source) << length;
    }
}

TEST(StringFormat, ArgumentsMayLieInTheStringItself)
{
    CString string("abc");
    string.Format("%s-%s", string.GetString(), string.GetString() + 1);
    EXPECT_EQ(string, "abc-bc");
    CString large('z', 1000);
    large.Format("%s%s", large.GetString(), large.GetString());
    EXPECT_EQ(large, CString('z', 2000));
}

TEST(StringFormat, OfNullIsEmpty)
{
    const LPCTSTR volatile nothing = nullptr; // the compiler mustn't see it
    CString string("old");
    string.Format(nothing, 1);
    EXPECT_EQ(string, "");
}

TEST(StringFormat, AppendsToTheText)
{
    CString string("a");
    string.AppendFormat("%d", 1);
    string.AppendFormat("%s", string.GetString());
    EXPECT_EQ(string, "a1a1");
}

TEST(StringReplace, OfTextsGoesLeftToRightAndDoesntSearchItsOwnResult)
{
    CString string("aaaaa");
    EXPECT_EQ(string.Replace("aa", "a"), 2);
    EXPECT_EQ(string, "aaa");
    EXPECT_EQ(string.Replace("a", "ba"), 3);
    EXPECT_EQ(string, "bababa");
    EXPECT_EQ(string.Replace("a", kNull), 3);
    EXPECT_EQ(string, "bbb");
    EXPECT_EQ(string.Replace("b", ""), 3);
    EXPECT_EQ(string, "");
}

TEST(StringReplace, OfAnEmptyTextChangesNothing)
{
    CString string("abc");
    EXPECT_EQ(string.Replace("", "x"), 0);
    EXPECT_EQ(string.Replace(kNull, "x"), 0);
    EXPECT_EQ(string.Replace("x", "y"), 0);
    EXPECT_EQ(string, "abc");
}

TEST(StringReplace, ArgumentsMayLieInTheStringItself)
{
    CString string("abab");
    EXPECT_EQ(string.Replace(string.GetString() + 2, string.GetString()), 2);
    EXPECT_EQ(string, "abababab");
}

TEST(StringReplace, OfCharacters)
{
    CString string("a.b.c");
    EXPECT_EQ(string.Replace('.', '-'), 2);
    EXPECT_EQ(string, "a-b-c");
    EXPECT_EQ(string.Replace('.', 'x'), 0);
    EXPECT_EQ(string.Replace('a', 'a'), 0);
}

TEST(StringEdit, InsertsDeletesAndRemoves)
{
    CString string("ad");
    EXPECT_EQ(string.Insert(1, "bc"), 4);
    EXPECT_EQ(string, "abcd");
    EXPECT_EQ(string.Insert(99, 'e'), 5);
    EXPECT_EQ(string.Insert(-1, '>'), 6);
    EXPECT_EQ(string, ">abcde");
    EXPECT_EQ(string.Insert(0, kNull), 6);
    EXPECT_EQ(string.Delete(0), 5);
    EXPECT_EQ(string.Delete(3, 99), 3);
    EXPECT_EQ(string, "abc");
    EXPECT_EQ(string.Delete(3), 3);
    EXPECT_EQ(string.Delete(1, -1), 3);
    EXPECT_EQ(string.Delete(0, 3), 0);
    string = "a-b-c";
    EXPECT_EQ(string.Remove('-'), 2);
    EXPECT_EQ(string, "abc");
    EXPECT_EQ(string.Remove('-'), 0);
}

TEST(StringTrim, WhiteSpaceCharactersAndSets)
{
    CString string(" \t\r\n\v\fa b \t\r\n\v\f");
    EXPECT_EQ(CString(string).TrimLeft(), "a b \t\r\n\v\f");
    EXPECT_EQ(CString(string).TrimRight(), " \t\r\n\v\fa b");
    EXPECT_EQ(string.Trim(), "a b");
    EXPECT_EQ(CString("\\\\a\\\\").TrimRight('\\'), "\\\\a");
    EXPECT_EQ(CString("xxa").TrimLeft('x'), "a");
    EXPECT_EQ(CString("a/\\/").TrimRight("\\/"), "a");
    EXPECT_EQ(CString("/\\a").TrimLeft("\\/"), "a");
    EXPECT_EQ(CString("   ").TrimRight(), "");
    EXPECT_EQ(CString("   ").TrimLeft(), "");
    EXPECT_EQ(CString(" a ").TrimRight(kNull), " a ");
    EXPECT_EQ(CString(" a ").TrimLeft(""), " a ");
    EXPECT_EQ(CString().Trim(), "");
}

TEST(StringCase, FoldsTheLettersOfTheCodePage)
{
    CString string("aB\xE4");
    EXPECT_EQ(string.MakeUpper(), "AB\xC4");
    EXPECT_EQ(string.MakeLower(), "ab\xE4");
    CString empty;
    EXPECT_EQ(empty.MakeUpper(), "");
}

TEST(StringBuffer, KeepsTheTextAndHasRoom)
{
    CString string("abc");
    LPTSTR buffer = string.GetBuffer(260);
    EXPECT_STREQ(buffer, "abc");
    std::memset(buffer, 'x', 260);
    buffer[260] = '\0';
    string.ReleaseBuffer();
    EXPECT_EQ(string, CString('x', 260));
}

TEST(StringBuffer, OfAnEmptyStringIsItsOwn)
{
    CString first, second;
    LPTSTR buffer = first.GetBuffer(0);
    EXPECT_NE(buffer, second.GetString());
    buffer[0] = '\0';
    first.ReleaseBuffer();
    EXPECT_EQ(second, "");
}

TEST(StringBuffer, ReleaseTakesTheLengthGivenOrTheFirstZeroByte)
{
    CString string;
    std::memcpy(string.GetBuffer(10), "abc\0def", 8);
    string.ReleaseBuffer();
    EXPECT_EQ(string, "abc");
    std::memcpy(string.GetBuffer(10), "abc\0def", 8);
    string.ReleaseBuffer(7);
    EXPECT_EQ(Bytes(string), std::string("abc\0def", 7));
    string.GetBuffer(10);
    string.ReleaseBuffer(0);
    EXPECT_TRUE(string.IsEmpty());
}

TEST(StringBuffer, ReleaseNeverReachesBehindTheRoomAskedFor)
{
    CString string;
    std::memset(string.GetBuffer(4), 'x', 5); // the terminator is overwritten
    string.ReleaseBuffer();
    EXPECT_EQ(string, "xxxx");
    string.ReleaseBuffer(99);
    EXPECT_EQ(string.GetLength(), 4);
}

TEST(StringBuffer, SetLengthCutsOrGrows)
{
    CString string("abcdef");
    EXPECT_STREQ(string.GetBufferSetLength(3), "abc");
    EXPECT_EQ(string.GetLength(), 3);
    LPTSTR buffer = string.GetBufferSetLength(5);
    buffer[3] = buffer[4] = 'x';
    string.ReleaseBuffer(5);
    EXPECT_EQ(string, "abcxx");
    string.GetBufferSetLength(-1);
    EXPECT_EQ(string, "");
}

TEST(StringMemory, AnAbsurdLengthThrowsAndLosesNothing)
{
    CString string("abc");
    EXPECT_THROW(string.GetBuffer(0x7FFFFFFF), CMemoryException*);
    EXPECT_EQ(string, "abc");
    EXPECT_THROW(string.Append("x", 0x7FFFFFFF), CMemoryException*);
    EXPECT_EQ(string, "abc");
}
