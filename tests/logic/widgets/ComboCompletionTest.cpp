// ComboCompletionTest.cpp - matching, the edit field after a keystroke, measures of a dropped list
#include "tavkit/widgets/ComboCompletion.h"

#include <gmock/gmock.h>

#include <numeric>
#include <string>
#include <vector>

namespace
{

using namespace tavkit;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// Seven-bit letters as small ones, and one letter of a code page.
CaseFold Fold()
{
    CaseFold fold{};
    std::iota(fold.begin(), fold.end(), static_cast<unsigned char>(0));
    for (int c = 'A'; c <= 'Z'; ++c)
    {
        fold[static_cast<std::size_t>(c)] = static_cast<unsigned char>(c - 'A' + 'a');
    }
    fold[0xC4] = 0xE4;
    return fold;
}

std::vector<int> Matches(std::vector<std::string> const& texts, char const* typed)
{
    DVector<int> found(true);
    AppendMatches(
        texts, [](std::string const& text) { return text.c_str(); }, typed, Fold(), found);
    return {found.begin(), found.end()};
}

PackedSelection Pack(int start, int end)
{
    return static_cast<PackedSelection>(end) << 16 | static_cast<PackedSelection>(start);
}

bool HasMatchIn(std::initializer_list<int> results)
{
    DVector<int> found;
    for (int const result : results)
    {
        found.Append(result);
    }
    return HasMatch(found);
}

} // namespace

unsigned char OtherCase(unsigned char byte) { return byte ^ 0x20; }

TEST(ComboCompletion, FoldsEachByteOfAPageWithAByteACharacter)
{
    CaseFold const fold = FoldBytes(OtherCase, true);
    for (std::size_t i = 0; i < fold.size(); ++i)
    {
        EXPECT_EQ(fold[i], i ^ 0x20);
    }
}

TEST(ComboCompletion, LeavesPartsOfCharactersAlone)
{
    CaseFold const fold = FoldBytes(OtherCase, false);
    for (std::size_t i = 0; i < fold.size(); ++i)
    {
        EXPECT_EQ(fold[i], i < 0x80 ? i ^ 0x20 : i);
    }
}

TEST(ComboMatching, TakesEntriesThatBeginWithTheTextWhateverTheirCase)
{
    EXPECT_THAT(Matches({"Abc", "abd", "xyz", "ABsolute", "a", "cab", ""}, "ab"), ElementsAre(0, 1, 3));
    EXPECT_THAT(Matches({"Abc", "abd"}, "AB"), ElementsAre(0, 1));
}

TEST(ComboMatching, FoldsLettersBeyondSevenBitsByTheTable)
{
    EXPECT_THAT(Matches({"\xC4pfel", "\xE4rger", "\xDC"}, "\xE4"), ElementsAre(0, 1));
    EXPECT_THAT(Matches({"\xC4pfel"}, "\xDC"), IsEmpty());
}

TEST(ComboMatching, ComparesTheWholeTextAndNoMoreThanTheEntry)
{
    EXPECT_THAT(Matches({"abc"}, "abc"), ElementsAre(0));
    EXPECT_THAT(Matches({"abc"}, "abcd"), IsEmpty());
    EXPECT_THAT(Matches({"ab c"}, "ab "), ElementsAre(0));
    EXPECT_THAT(Matches({}, "a"), IsEmpty());
}

TEST(ComboMatching, EveryEntryBeginsWithNothing) { EXPECT_THAT(Matches({"a", ""}, ""), ElementsAre(0, 1)); }

TEST(ComboMatching, KeepsWhatTheResultHoldsAlready)
{
    DVector<int> found;
    found.Append(7);
    std::vector<std::string> const texts{"b", "a"};
    AppendMatches(
        texts, [](std::string const& text) { return text.c_str(); }, "a", Fold(), found);
    EXPECT_THAT(std::vector<int>(found.begin(), found.end()), ElementsAre(7, 1));
}

TEST(ComboMatching, GoesThroughEntriesOfAnyLengthAndNumber)
{
    std::vector<std::string> texts(10'000, std::string(50, 'q'));
    texts[9'999] = std::string(100'000, 'z');
    EXPECT_THAT(Matches(texts, std::string(99'999, 'Z').c_str()), ElementsAre(9'999));
    std::vector<int> all(9'999);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_THAT(Matches(texts, "qq"), ElementsAreArray(all));
}

TEST(ComboMatching, AFirstResultOfMinusOneIsNoMatch)
{
    EXPECT_FALSE(HasMatchIn({}));
    EXPECT_FALSE(HasMatchIn({-1}));
    EXPECT_FALSE(HasMatchIn({-1, 3}));
    EXPECT_TRUE(HasMatchIn({3, -1}));
    EXPECT_TRUE(HasMatchIn({0}));
}

namespace
{

/// One keystroke and what it leaves.
struct KeystrokeRow
{
    char const* name;
    TypedText typed;
    EditChange match;
    EditChange noMatch;
};

class ComboKeystroke : public testing::TestWithParam<KeystrokeRow>
{
};

void PrintTo(KeystrokeRow const& row, std::ostream* out) { *out << row.name; }

} // namespace

TEST_P(ComboKeystroke, LeavesTheFieldAfterAMatch) { EXPECT_EQ(AfterMatch(GetParam().typed), GetParam().match); }

TEST_P(ComboKeystroke, LeavesTheFieldWithoutAMatch) { EXPECT_EQ(AfterNoMatch(GetParam().typed), GetParam().noMatch); }

INSTANTIATE_TEST_SUITE_P(
    All, ComboKeystroke,
    testing::Values(
        // The caret behind the text: what was completed is highlighted.
        KeystrokeRow{"AtTheEnd",
                     {2, Pack(2, 2), false},
                     {false, EditSelection{2, EditSelection::kToEnd}},
                     {true, EditSelection{2, 2}}},
        KeystrokeRow{"ARangeUpToTheEnd",
                     {3, Pack(1, 3), false},
                     {false, EditSelection{3, EditSelection::kToEnd}},
                     {true, EditSelection{1, 3}}},
        // The caret inside the text: it stays there.
        KeystrokeRow{"InTheMiddle", {3, Pack(1, 1), false}, {false, EditSelection{1, 1}}, {true, EditSelection{1, 1}}},
        KeystrokeRow{
            "OneBeforeTheEnd", {3, Pack(0, 2), false}, {false, EditSelection{0, 2}}, {true, EditSelection{0, 2}}},
        KeystrokeRow{"AtTheFront", {1, Pack(0, 0), false}, {false, EditSelection{0, 0}}, {true, EditSelection{0, 0}}},
        // What was deleted stays deleted.
        KeystrokeRow{"Deleted", {2, Pack(2, 2), true}, {true, EditSelection{2, 2}}, {true, EditSelection{2, 2}}},
        KeystrokeRow{"DeletedInside", {5, Pack(1, 1), true}, {true, EditSelection{1, 1}}, {true, EditSelection{1, 1}}},
        // No selection to be had.
        KeystrokeRow{"WithoutSelection",
                     {2, kNoSelection, false},
                     {false, EditSelection{2, EditSelection::kToEnd}},
                     {true, std::nullopt}},
        KeystrokeRow{"LongWithoutSelection",
                     {70'000, kNoSelection, false},
                     {false, EditSelection{70'000, EditSelection::kToEnd}},
                     {true, std::nullopt}},
        // All that was typed is gone.
        KeystrokeRow{"Empty",
                     {0, Pack(0, 0), false},
                     {false, EditSelection{0, EditSelection::kToEnd}},
                     {true, EditSelection{0, 0}}},
        KeystrokeRow{"LargeHalves",
                     {65'000, Pack(64'000, 64'001), false},
                     {false, EditSelection{64'000, 64'001}},
                     {true, EditSelection{64'000, 64'001}}}),
    [](auto const& info) { return info.param.name; });

namespace
{

constexpr DroppedMeasures kMeasures{
    .widest = 100, .entriesHeight = 60, .listHeight = 64, .edgeWidth = 2, .edgeHeight = 2, .scrollWidth = 17};

} // namespace

TEST(DroppedList, IsAsWideAsItsWidestEntryWithBothEdges) { EXPECT_EQ(DroppedWidth(kMeasures), 104); }

TEST(DroppedList, HasRoomForAScrollBarOnceItsEntriesAndEdgesAreHigherThanItIs)
{
    DroppedMeasures measures = kMeasures;
    measures.entriesHeight = 61;
    EXPECT_EQ(DroppedWidth(measures), 121);
}

TEST(DroppedList, IsAsHighAsItsEntriesWithOneEdge) { EXPECT_EQ(DroppedHeight(13, 3, 2, 500), 41); }

TEST(DroppedList, IsNeverHigherThanItsBound)
{
    EXPECT_EQ(DroppedHeight(13, 100, 2, 200), 200);
    EXPECT_EQ(DroppedHeight(13, 3, 2, 41), 41);
    EXPECT_EQ(DroppedHeight(13, 3, 2, 40), 40);
}

TEST(DroppedList, OfNoEntriesIsAnEdge) { EXPECT_EQ(DroppedHeight(13, 0, 2, 500), 2); }
