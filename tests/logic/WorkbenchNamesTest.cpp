#include "workbench/Options.h"
#include "workbench/PictureNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace
{
using namespace workbench;
using namespace std::string_view_literals;
using testing::ElementsAre;

Options Read(std::vector<const char*> arguments) { return ReadOptions(arguments); }

TEST(WorkbenchOptions, AreEmptyWithoutArguments) { EXPECT_EQ(Read({}), Options{}); }

TEST(WorkbenchOptions, TakeTheFolderOrFileToShow) { EXPECT_EQ(Read({"C:\\a b\\c.tif"}).path, "C:\\a b\\c.tif"); }

TEST(WorkbenchOptions, TakeTheFolderOfTheTourBeforeAndBehindThePath)
{
    EXPECT_EQ(Read({"--tour", "out", "in"}), (Options{.path = "in", .tourFolder = "out", .error = {}}));
    EXPECT_EQ(Read({"in", "--tour", "out"}), (Options{.path = "in", .tourFolder = "out", .error = {}}));
}

TEST(WorkbenchOptions, TakeAQuotedFolderThatEndsWithABackslash)
{
    // What the system hands over for "C:\Pictures\" in quotes.
    EXPECT_EQ(Read({"C:\\Pictures\\\""}).path, "C:\\Pictures\\");
}

TEST(WorkbenchOptions, SayWhenTheTourHasNoFolder)
{
    EXPECT_EQ(Read({"--tour"}).error, "The option --tour needs a folder.");
    EXPECT_EQ(Read({"--tour", ""}).error, "The option --tour needs a folder.");
}

TEST(WorkbenchOptions, RefuseWhatTheyDontKnowByName)
{
    EXPECT_EQ(Read({"--fast"}).error, "There is no option --fast.");
    EXPECT_EQ(Read({"a", "b"}).error, "Only one folder or file can be shown.");
}

TEST(PictureNames, AreKnownByTheirExtensionInAnyCase)
{
    for (const char* name : {"a.tif", "a.TIFF", "a.b.png", "x.Jpg", "x.jpeg", "x.bmp", "x.gif"})
    {
        EXPECT_TRUE(IsPictureName(name)) << name;
    }
    for (const char* name : {"", ".", "tif", ".tif", "a.", "a.tif.bak", "a.csv", "a.ti", "a.tifx"})
    {
        EXPECT_FALSE(IsPictureName(name)) << name;
    }
}

TEST(PictureNames, AreSortedWithoutRegardToCase)
{
    std::vector<std::string> names{"b.tif", "A.tif", "\xC4.tif", "a.png", "B.tif", "_.tif"};
    SortNames(names);
    EXPECT_THAT(names, ElementsAre("_.tif", "a.png", "A.tif", "B.tif", "b.tif", "\xC4.tif"));
}

TEST(PictureNames, AreFoundWithoutRegardToCase)
{
    const std::vector<std::string> names{"one.tif", "Two.tif"};
    EXPECT_EQ(IndexOfName(names, "TWO.TIF"), 1);
    EXPECT_EQ(IndexOfName(names, "three.tif"), -1);
    EXPECT_EQ(IndexOfName(names, ""), -1);
}

TEST(TableNames, AreKnownByTheirExtensionInAnyCase)
{
    for (const char* name : {"a.csv", "a.TCSV", "a.txt", "a.tsv", "a.tab", "a.Dbf"})
    {
        EXPECT_TRUE(IsTableName(name)) << name;
    }
    for (const char* name : {"", ".csv", "csv", "a.tif", "a.csv.bak"})
    {
        EXPECT_FALSE(IsTableName(name)) << name;
    }
}

TEST(TableNames, LeadToThePictureWhoseNameTheyBeginWith)
{
    const std::vector<std::string> pictures{"cell.tif", "Cell_2.png", "deepfield.tif", ".tif"};
    EXPECT_EQ(PictureOfTable(pictures, "deepfield_objects.csv"), 2);
    EXPECT_EQ(PictureOfTable(pictures, "CELL.csv"), 0);
    EXPECT_EQ(PictureOfTable(pictures, "cell_2_objects.csv"), 1) << "the longest name counts";
    EXPECT_EQ(PictureOfTable(pictures, "nuclei.csv"), -1);
    EXPECT_EQ(PictureOfTable(pictures, "cel.csv"), -1);
    EXPECT_EQ(PictureOfTable({}, "cell.csv"), -1);
}

TEST(NameProblem, RefusesWhatNoPictureCanBeCalled)
{
    EXPECT_EQ(NameProblem("a b.tif"), "");
    EXPECT_EQ(NameProblem("a.b.PNG"), "");
    for (const char* name : {"a\\b.tif", "a/b.tif", "c:a.tif", "a?.tif", "a\n.tif", "a|b.tif"})
    {
        EXPECT_EQ(NameProblem(name), "The name of a file can't hold any of \\/:*?\"<>|.") << name;
    }
    for (const char* name : {"", "a", "a.csv", ".tif"})
    {
        EXPECT_EQ(NameProblem(name), "A picture's name ends with one of *.tif;*.tiff;*.png;*.jpg;*.jpeg;*.bmp;*.gif.")
            << name;
    }
}
} // namespace
