// NodeNamesTest.cpp - what names tell about the nodes of a repository
#include <algorithm>
#include <array>

#include <gmock/gmock.h>

#include "host/repository/NodeNames.h"

namespace
{
using namespace repository;
using testing::ElementsAre;

} // namespace

TEST(KindOfFile, GoesByTheExtensionInAnyCase)
{
    for (const char* name : {"a.tif", "a.TIFF", "a.Png", "a.jpg", "a.JPEG", "a.bmp", "a.gif", "a.csv.gif"})
    {
        EXPECT_EQ(KindOfFile(name), bdiRaster) << name;
    }
    for (const char* name : {"a.csv", "a.TXT", "a.dbf", "a.tcsv", "a.tsv", "a.tif.csv"})
    {
        EXPECT_EQ(KindOfFile(name), bdiTable) << name;
    }
    EXPECT_EQ(KindOfFile("a.shp"), bdiVector);
    EXPECT_EQ(KindOfFile("a.SHP"), bdiVector);
}

TEST(KindOfFile, IsNoneForOtherFilesAndForBareExtensions)
{
    for (const char* name : {"", ".", "..", "tif", ".tif", "a.", "a.ti", "a.tifx", "a.tif ", "a.exe", "a.tif.bak"})
    {
        EXPECT_EQ(KindOfFile(name), 0u) << name;
    }
}

TEST(PictureExtensions, AreAllRaster)
{
    ASSERT_FALSE(PictureExtensions().empty());
    for (const auto extension : PictureExtensions())
    {
        EXPECT_EQ(KindOfFile("a." + std::string(extension)), bdiRaster) << extension;
    }
}

TEST(NameOrder, IgnoresTheCaseOfLettersUnlessNothingElseDiffers)
{
    std::array names{"b", "a", "B", "A", "_", "a10", "a9", "", "Z\xE4", "z\xC4", "ab"};
    std::ranges::sort(names, NameComesBefore);
    EXPECT_THAT(names, ElementsAre("", "_", "A", "a", "a10", "a9", "ab", "B", "b", "z\xC4", "Z\xE4"));
}

TEST(NameOrder, IsStrictForNamesOfEveryByte)
{
    std::vector<std::string> names;
    for (int c = 1; c < 256; ++c)
    {
        names.emplace_back(300, static_cast<char>(c));
    }
    std::ranges::sort(names, NameComesBefore);
    for (std::size_t i = 1; i < names.size(); ++i)
    {
        EXPECT_TRUE(NameComesBefore(names[i - 1], names[i]));
        EXPECT_FALSE(NameComesBefore(names[i], names[i - 1]));
    }
    EXPECT_FALSE(NameComesBefore(names[7], names[7]));
}

TEST(NameHolds, FindsATextAnywhereInWhateverCase)
{
    EXPECT_TRUE(NameHolds("Nuclei.csv", "clei"));
    EXPECT_TRUE(NameHolds("Nuclei.csv", "NUC"));
    EXPECT_TRUE(NameHolds("Nuclei.csv", ".Csv"));
    EXPECT_TRUE(NameHolds("Nuclei.csv", ""));
    EXPECT_TRUE(NameHolds("", ""));
    EXPECT_FALSE(NameHolds("", "a"));
    EXPECT_FALSE(NameHolds("Nuclei.csv", "nuclei.csv2"));
    EXPECT_FALSE(NameHolds("a", "\xE1"));
}

TEST(NodeOrder, PutsContainersFirst)
{
    const NodeRecord folder{bdiContainer, "", "z"};
    const NodeRecord picture{bdiRaster, "", "a"};
    const NodeRecord table{bdiTable, "", "b"};
    EXPECT_TRUE(ComesBefore(folder, picture));
    EXPECT_FALSE(ComesBefore(picture, folder));
    EXPECT_TRUE(ComesBefore(picture, table));
    EXPECT_FALSE(ComesBefore(folder, folder));
}

TEST(PageId, PutsTheOptionBehindTheFile)
{
    EXPECT_EQ(PageId("C:\\a.tif", 0), "C:\\a.tif?page=0");
    EXPECT_EQ(PageId("a.tif", 4294967295u), "a.tif?page=4294967295");
}

TEST(FindPage, ReadsThePageFromAmongOtherOptions)
{
    EXPECT_EQ(FindPage("?page=2").page, 2u);
    EXPECT_EQ(FindPage("page=2").page, 2u);
    EXPECT_EQ(FindPage("?a=1&page=2&b").page, 2u);
    EXPECT_EQ(FindPage("?a=1?page=0").page, 0u) << "a parameter put behind options that were there";
    EXPECT_EQ(FindPage("?page=3&page=3").page, 3u);
    for (const char* none : {"", "?", "?a=1", "?pages=2", "?Page=2", "?xpage=2", "?page"})
    {
        EXPECT_EQ(FindPage(none).page, std::nullopt) << none;
        EXPECT_TRUE(FindPage(none).valid) << none;
    }
}

TEST(FindPage, RefusesWhatIsNoNumberAndWhatContradictsItself)
{
    for (const char* bad : {"?page=", "?page=x", "?page=-1", "?page=+1", "?page= 1", "?page=1x", "?page=0x1",
                            "?page=4294967296", "?page=1&page=2", "?page=1&page="})
    {
        EXPECT_FALSE(FindPage(bad).valid) << bad;
        EXPECT_EQ(FindPage(bad).page, std::nullopt) << bad;
    }
}
