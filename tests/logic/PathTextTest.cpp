// PathTextTest.cpp - paths put together and taken apart
#include <gmock/gmock.h>

#include "host/PathText.h"

namespace
{
using namespace host;
using testing::ElementsAre;

std::string Named(std::size_t length) { return std::string(length, 'n'); }
} // namespace

TEST(JoinPath, SuppliesTheSeparatorThatIsMissing)
{
    EXPECT_EQ(JoinPath("C:\\d", "a"), "C:\\d\\a");
    EXPECT_EQ(JoinPath("C:\\d\\", "a"), "C:\\d\\a");
    EXPECT_EQ(JoinPath("d/", "a"), "d/a");
    EXPECT_EQ(JoinPath("C:", "a"), "C:a");
    EXPECT_EQ(JoinPath("", "a"), "a");
    EXPECT_EQ(JoinPath(".", "a"), ".\\a");
}

TEST(PathForSystem, LiftsTheLimitForLongAbsolutePathsOnly)
{
    const std::string name = Named(300);
    EXPECT_EQ(PathForSystem("C:\\short"), "C:\\short");
    EXPECT_EQ(PathForSystem("C:\\" + Named(244)), "C:\\" + Named(244)) << "247 characters are not too many";
    EXPECT_EQ(PathForSystem("C:\\" + Named(245)), "\\\\?\\C:\\" + Named(245));
    EXPECT_EQ(PathForSystem("C:\\d/" + name), "\\\\?\\C:\\d\\" + name);
    EXPECT_EQ(PathForSystem("\\\\server\\share\\" + name), "\\\\?\\UNC\\server\\share\\" + name);
    EXPECT_EQ(PathForSystem("\\\\?\\C:\\" + name), "\\\\?\\C:\\" + name) << "once is enough";
    EXPECT_EQ(PathForSystem("d\\" + name), "d\\" + name) << "not absolute";
    EXPECT_EQ(PathForSystem("C:" + name), "C:" + name) << "not absolute";
    EXPECT_EQ(PathForSystem("C:\\..\\" + name), "C:\\..\\" + name) << "the prefix would take the dots for a name";
    EXPECT_EQ(PathForSystem("C:\\.\\" + name), "C:\\.\\" + name);
}

TEST(FoldersAlong, BeginsAtTheDriveOrShare)
{
    EXPECT_THAT(FoldersAlong("C:\\a\\b"), ElementsAre("C:\\", "C:\\a", "C:\\a\\b"));
    EXPECT_THAT(FoldersAlong("C:/a\\b/"), ElementsAre("C:/", "C:/a", "C:/a\\b"));
    EXPECT_THAT(FoldersAlong("C:\\"), ElementsAre("C:\\"));
    EXPECT_THAT(FoldersAlong("\\\\server\\share\\a"), ElementsAre("\\\\server\\share\\", "\\\\server\\share\\a"));
    EXPECT_THAT(FoldersAlong("\\\\server\\share"), ElementsAre("\\\\server\\share"));
    EXPECT_THAT(FoldersAlong("\\\\server"), ElementsAre("\\\\server"));
    EXPECT_THAT(FoldersAlong("\\\\?\\C:\\a"), ElementsAre("\\\\?\\C:\\", "\\\\?\\C:\\a"));
    EXPECT_THAT(FoldersAlong("\\\\?\\UNC\\server\\share\\a"),
                ElementsAre("\\\\?\\UNC\\server\\share\\", "\\\\?\\UNC\\server\\share\\a"));
    EXPECT_THAT(FoldersAlong("\\a"), ElementsAre("\\", "\\a"));
    EXPECT_THAT(FoldersAlong("a\\\\b"), ElementsAre("a", "a\\\\b")) << "an empty part is none";
    EXPECT_THAT(FoldersAlong("."), ElementsAre("."));
    EXPECT_THAT(FoldersAlong(""), ElementsAre());
}

TEST(LiesWithin, HoldsForTheRootAndWhatIsBelow)
{
    EXPECT_TRUE(LiesWithin("C:\\d", "C:\\d"));
    EXPECT_TRUE(LiesWithin("C:\\d", "c:/D/"));
    EXPECT_TRUE(LiesWithin("C:\\d\\", "C:\\d\\a\\b.tif"));
    EXPECT_TRUE(LiesWithin("C:\\", "C:\\a"));
    EXPECT_TRUE(LiesWithin("C:", "C:a"));
    EXPECT_TRUE(LiesWithin(".", ".\\a"));
    EXPECT_TRUE(LiesWithin("..", "..\\a")) << "the root's own dots are its own business";
    EXPECT_TRUE(LiesWithin("C:\\d", "C:\\d\\..a"));
}

TEST(LiesWithin, FailsForWhatIsBesideOrClimbsOut)
{
    EXPECT_FALSE(LiesWithin("C:\\d", "C:\\da"));
    EXPECT_FALSE(LiesWithin("C:\\d", "C:\\"));
    EXPECT_FALSE(LiesWithin("C:\\d", "C:\\e\\a"));
    EXPECT_FALSE(LiesWithin("C:\\d", "C:\\d\\..\\e"));
    EXPECT_FALSE(LiesWithin("C:\\d", "C:\\d\\a\\.."));
    EXPECT_FALSE(LiesWithin("C:\\d", "C:\\d/../e"));
    EXPECT_FALSE(LiesWithin("C:\\d", ""));
    EXPECT_FALSE(LiesWithin("C:\\d", "a"));
}

TEST(DisplayName, IsTheLastPartOrTheWholeRoot)
{
    EXPECT_EQ(DisplayName("C:\\d\\a.tif"), "a.tif");
    EXPECT_EQ(DisplayName("C:\\d\\"), "d");
    EXPECT_EQ(DisplayName("C:\\"), "C:\\");
    EXPECT_EQ(DisplayName("\\\\?\\C:\\d"), "d");
    EXPECT_EQ(DisplayName("."), ".");
    EXPECT_EQ(DisplayName("a"), "a");
}
