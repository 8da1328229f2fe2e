// FormatOfferTest.cpp - the formats on offer and the filter text
#include "tavkit/filedlg/FormatCatalogue.h"
#include "tavkit/filedlg/FormatOffer.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

using namespace tavkit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::StrEq;

std::vector<std::string> Names(FormatOffer const& offer)
{
    std::vector<std::string> names;
    for (DFileFrmt const* format : offer)
    {
        names.emplace_back(format->m_strName.c_str());
    }
    return names;
}

/// Formats that live as long as the test.
class FormatOfferTest : public testing::Test
{
protected:
    DFileFrmt* New(char const* id, char const* name, char const* pattern = "*.x")
    {
        m_formats.push_back(std::make_unique<DFileFrmt>(id, name, pattern));
        return m_formats.back().get();
    }

    FormatOffer m_offer;
    std::vector<std::unique_ptr<DFileFrmt>> m_formats;
};

} // namespace

TEST(FormatCatalogue, HoldsTheLibrarysFormats)
{
    struct Expected
    {
        DFileFrmt const& format;
        char const* id;
        char const* name;
        char const* pattern;
    };
    const Expected table[] = {
        {FileFrmtAll, "ALL", "All Files", "*.*"},
        {FileFrmtAscii, "", "Ascii text files", "*.txt"},
        {FileFrmtCSV, "CSV", "Comma separated list files", "*.csv"},
        {FileFrmtTCSV, "TCSV", "Comma separated list files (Transposed)", "*.tcsv"},
        {FileFrmtTiff, "", "Tagged image files", "*.tif"},
        {FileFrmtShape, "", "Shape files", "*.shp"},
        {FileFrmtDBase, "", "DBase files", "*.dbf"},
        {FileFrmtConn, "ZRC", "ArcSDE connection files", "*.zrc"},
        {FileFrmtAperio, "APERIO_VDI", "Aperio annotation files", "*.xml"},
        {FileFrmtXML, "", "XML files", "*.xml"},
        {FileFrmtHTML, "HTML", "HTML files", "*.htm"},
        {FileFrmtSnippet, "Snippets", "Snippet files", "*.slb"},
    };
    for (Expected const& each : table)
    {
        EXPECT_THAT(each.format.m_strId.c_str(), StrEq(each.id));
        EXPECT_THAT(each.format.m_strName.c_str(), StrEq(each.name));
        EXPECT_THAT(each.format.m_strPattern.c_str(), StrEq(each.pattern));
    }
}

TEST_F(FormatOfferTest, SortedFormatsKeepTheOrderOfArrivalAmongEquals)
{
    AddSorted(m_offer, New("1", "b"));
    AddSorted(m_offer, New("2", "a"));
    AddSorted(m_offer, New("3", "a"));
    EXPECT_THAT(Names(m_offer), ElementsAre("a", "a", "b"));
    EXPECT_THAT(m_offer[0]->m_strId.c_str(), StrEq("2"));
    EXPECT_THAT(m_offer[1]->m_strId.c_str(), StrEq("3"));
}

TEST_F(FormatOfferTest, SortingGoesByBytesAndANameThatIsMissingComesFirst)
{
    AddSorted(m_offer, New("", "a"));
    AddSorted(m_offer, New("", "B"));
    AddSorted(m_offer, New("", "\xE4"));
    AddSorted(m_offer, New("", nullptr));
    EXPECT_THAT(Names(m_offer), ElementsAre("", "B", "a", "\xE4"));
}

TEST_F(FormatOfferTest, ASortedFormatMayLandAheadOfAnUnsortedOne)
{
    m_offer.Append(&FileFrmtAll);
    AddSorted(m_offer, New("", "Aha"));
    AddSorted(m_offer, New("", "Bmp"));
    EXPECT_THAT(Names(m_offer), ElementsAre("Aha", "All Files", "Bmp"));
}

TEST_F(FormatOfferTest, TheVeryFormatIsRemovedOnceAndTheRestKeepsItsOrder)
{
    DFileFrmt* const twice = New("", "t");
    for (DFileFrmt* format : {New("", "a"), twice, New("", "b"), twice})
    {
        m_offer.Append(format);
    }
    RemoveFormat(m_offer, twice);
    EXPECT_THAT(Names(m_offer), ElementsAre("a", "b", "t"));
    RemoveFormat(m_offer, New("", "a"));
    EXPECT_THAT(Names(m_offer), ElementsAre("a", "b", "t")) << "one of the same name isn't the same";
    RemoveFormat(m_offer, nullptr);
    EXPECT_THAT(Names(m_offer), ElementsAre("a", "b", "t"));
}

TEST_F(FormatOfferTest, TheFirstExactMatchIsFound)
{
    m_offer.Append(&FileFrmtCSV);
    m_offer.Append(&FileFrmtAscii);
    m_offer.Append(New("CSV", "second"));
    EXPECT_EQ(FindById(m_offer, "CSV"), &FileFrmtCSV);
    EXPECT_THAT(FindById(m_offer, "csv"), IsNull());
    EXPECT_EQ(FindById(m_offer, ""), &FileFrmtAscii);
    EXPECT_EQ(FindById(m_offer, nullptr), &FileFrmtAscii);
    EXPECT_EQ(FindByName(m_offer, "Ascii text files"), &FileFrmtAscii);
    EXPECT_THAT(FindByName(m_offer, "Ascii"), IsNull());
    EXPECT_THAT(FindByName(m_offer, nullptr), IsNull());
    EXPECT_THAT(FindByName(FormatOffer(), "x"), IsNull());
}

TEST(ImportPattern, IsTheExtensionWithoutStarsAtItsEnd)
{
    EXPECT_THAT(ImportPattern("*_d0.tif*").c_str(), StrEq("*.tif"));
    EXPECT_THAT(ImportPattern("*.tif***").c_str(), StrEq("*.tif"));
    EXPECT_THAT(ImportPattern("a.*").c_str(), StrEq("*.*"));
    EXPECT_THAT(ImportPattern("a.**").c_str(), StrEq("*."));
    EXPECT_THAT(ImportPattern("a.t*f").c_str(), StrEq("*.t*f"));
    EXPECT_THAT(ImportPattern("C:\\x.y\\a.png").c_str(), StrEq("*.png"));
    EXPECT_THAT(ImportPattern("noext").c_str(), StrEq("*."));
    EXPECT_THAT(ImportPattern("").c_str(), StrEq("*."));
}

TEST_F(FormatOfferTest, PluginFormatsAreOfferedSortedBehindTheMarkedOnes)
{
    for (const bool load : {true, false})
    {
        FormatOffer offer;
        DList<DFileFrmt*> list;
        DFileFrmt* const marked = New("m", "zz any raster", kRasterMarker);
        DFileFrmt* const markedToo = New("m2", "yy any raster", kRasterMarker);
        for (DFileFrmt* format : {marked, markedToo, New("", "png"), New("", "bmp"), New("", "x", "RSTR_FRMT2")})
        {
            list.AddTail(format);
        }
        offer.Append(&FileFrmtAll);
        OfferPluginFormats(offer, list, load);
        if (load)
        {
            EXPECT_THAT(Names(offer), ElementsAre("All Files", "bmp", "png", "x", "zz any raster", "yy any raster"));
        }
        else
        {
            EXPECT_THAT(Names(offer), ElementsAre("All Files", "bmp", "png", "x"));
        }
        EXPECT_EQ(list.GetCount(), 3) << "marked formats leave the list either way";
        EXPECT_THAT(marked->m_strName.c_str(), StrEq("zz any raster")) << "and aren't deleted";
    }
}

TEST_F(FormatOfferTest, TheFilterTextHasEveryFormatAndAClosingBar)
{
    char buffer[256];
    EXPECT_EQ(BuildFilterText(FormatOffer(), buffer), 0);
    EXPECT_THAT(buffer, StrEq("|"));
    m_offer.Append(&FileFrmtCSV);
    m_offer.Append(New("", nullptr, nullptr));
    m_offer.Append(&FileFrmtAll);
    m_offer.Append(&FileFrmtAll);
    EXPECT_EQ(BuildFilterText(m_offer, buffer), 4);
    EXPECT_THAT(buffer, StrEq("Comma separated list files|*.csv|||All Files|*.*|All Files|*.*||"));
}

TEST_F(FormatOfferTest, AFilterTextIsBegunAndEndedByHandTheSameWay)
{
    char buffer[256] = "left over";
    InitFilterText(buffer);
    EXPECT_THAT(buffer, StrEq(""));
    FileFrmtCSV.GetFilter(buffer);
    FinishFilterText(buffer);
    EXPECT_THAT(buffer, StrEq("Comma separated list files|*.csv||"));
}

TEST_F(FormatOfferTest, AFilterTextThatDoesNotFitIsCutAtAWholeFormat)
{
    m_offer.Append(New("", "abc", "*.a"));
    m_offer.Append(New("", "def", "*.d"));
    m_offer.Append(New("", "g", "h"));
    const std::string whole = "abc|*.a|def|*.d|g|h||";
    for (std::size_t size = 2; size <= whole.size() + 2; ++size)
    {
        std::vector<char> memory(size + 1, '\x7F'); // the last one is none of the text's
        const int taken = BuildFilterText(m_offer, std::span(memory.data(), size));
        const std::string text = memory.data();
        EXPECT_EQ(memory[size], '\x7F') << size;
        EXPECT_LT(text.size(), size);
        const int expected = size > whole.size() ? 3 : size > 17 ? 2 : size > 9 ? 1 : 0;
        EXPECT_EQ(taken, expected) << size;
        EXPECT_EQ(text, taken == 3 ? whole : taken == 2 ? "abc|*.a|def|*.d||" : taken == 1 ? "abc|*.a||" : "|") << size;
    }
}

TEST_F(FormatOfferTest, NothingInThePlaceOfAPluginsFormatIsPassedOver)
{
    DList<DFileFrmt*> formats;
    for (DFileFrmt* const format : {static_cast<DFileFrmt*>(nullptr), New("1", "a"), static_cast<DFileFrmt*>(nullptr)})
    {
        formats.AddTail(format);
    }
    OfferPluginFormats(m_offer, formats, true);
    EXPECT_THAT(Names(m_offer), ElementsAre("a"));
    EXPECT_EQ(formats.GetCount(), 1);
}

TEST_F(FormatOfferTest, AFormatIsFoundByItsWholePattern)
{
    m_offer.Append(New("1", "a", "*.csv"));
    m_offer.Append(New("2", "b", "csv"));
    m_offer.Append(New("3", "c", "csv"));
    m_offer.Append(New("4", "d", ""));
    EXPECT_EQ(FindByPattern(m_offer, "csv"), m_offer[1]);
    EXPECT_EQ(FindByPattern(m_offer, ""), m_offer[3]);
    EXPECT_EQ(FindByPattern(m_offer, nullptr), m_offer[3]);
    EXPECT_THAT(FindByPattern(m_offer, "CSV"), IsNull());
}

TEST_F(FormatOfferTest, ANameHasThePlaceOfItsFirstFormatOrTheFirstPlace)
{
    EXPECT_EQ(IndexOfName(m_offer, 0, "a"), 0);
    for (char const* name : {"a", "b", "b", "c"})
    {
        m_offer.Append(New("", name));
    }
    EXPECT_EQ(IndexOfName(m_offer, 4, "b"), 1);
    EXPECT_EQ(IndexOfName(m_offer, 4, "c"), 3);
    EXPECT_EQ(IndexOfName(m_offer, 4, "C"), 0);
    EXPECT_EQ(IndexOfName(m_offer, 4, nullptr), 0);
    EXPECT_EQ(IndexOfName(m_offer, 3, "c"), 0) << "it isn't in the filter";
    EXPECT_EQ(IndexOfName(m_offer, 40, "d"), 0);
}

TEST_F(FormatOfferTest, PatternsAreJoinedWithoutThoseOfAllFiles)
{
    EXPECT_THAT(JoinPatterns(m_offer).c_str(), StrEq(""));
    m_offer.Append(New("", "all", "*.*"));
    EXPECT_THAT(JoinPatterns(m_offer).c_str(), StrEq(""));
    m_offer.Append(New("", "a", "*.a;*.*"));
    m_offer.Append(New("", "all", "*.*"));
    m_offer.Append(New("", "empty", ""));
    m_offer.Append(New("", "b", "*.b"));
    EXPECT_THAT(JoinPatterns(m_offer).c_str(), StrEq("*.a;*.*;;*.b"));
}

TEST(FilterIndex, CountsThePairsInFrontOfTheFirstPatternWithTheText)
{
    struct Case
    {
        char const* filter;
        char const* text;
        int index;
    };
    for (Case const& each :
         {Case{"A|*.a|B|*.b|", "a", 0}, Case{"A|*.a|B|*.b|", "b", 1}, Case{"A|*.a|B|*.b|", "B", 2},
          Case{"A|*.a|B|*.b||", "B", 2}, Case{"A|*.a|B|*.b", "b", 1}, Case{"A|*.a|B|", "B", 1}, Case{"A", "A", 0},
          Case{"A|*.a;*.b|B|*.b|", "*.b", 0}, Case{"A|*.a|B|*.b|", "", 0}, Case{"A|*.a|B|*.b|", nullptr, 0},
          Case{"A||B|*.b|", "", 1}, Case{"A||B||", "", 2}, Case{"|*.a|", "a", 0}, Case{"A|*.a|", "a|", 1},
          Case{"", "", 0}, Case{nullptr, "a", 0}, Case{"|", "", 0}, Case{"||||", "a", 2}})
    {
        EXPECT_EQ(FilterIndexOf(each.filter, each.text), each.index)
            << (each.filter ? each.filter : "(null)") << " " << (each.text ? each.text : "(null)");
    }
}
