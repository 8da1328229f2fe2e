// PickedFilesTest.cpp - the paths in the buffer of a file dialog
#include "platform/afx/impl/PickedFiles.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;

template <size_t N>
std::vector<std::string> Walk(char const (&buffer)[N], bool several)
{
    std::vector<std::string> paths;
    size_t position = 0;
    do
    {
        const AfxPickedFile picked = AfxNextPickedFile({buffer, N}, position, several);
        paths.push_back(picked.path);
        position = picked.next;
    } while (position != 0);
    return paths;
}

} // namespace

TEST(PickedFiles, OneFileIsThereAsItsFullPath)
{
    EXPECT_THAT(Walk("C:\\a\\b.tif\0", false), ElementsAre("C:\\a\\b.tif"));
    EXPECT_THAT(Walk("C:\\a\\b.tif\0", true), ElementsAre("C:\\a\\b.tif"));
}

TEST(PickedFiles, SeveralFilesFollowTheirFolder)
{
    EXPECT_THAT(Walk("C:\\a\0b.tif\0c d.tif\0", true), ElementsAre("C:\\a\\b.tif", "C:\\a\\c d.tif"));
}

TEST(PickedFiles, ARootHasItsSeparatorAlready)
{
    EXPECT_THAT(Walk("C:\\\0a.tif\0b.tif\0", true), ElementsAre("C:\\a.tif", "C:\\b.tif"));
}

TEST(PickedFiles, ABackslashThatIsHalfACharacterIsNoSeparator)
{
    EXPECT_THAT(Walk("C:\\\x95\\\0a.tif\0b.tif\0", true), ElementsAre("C:\\\x95\\\\a.tif", "C:\\\x95\\\\b.tif"));
}

TEST(PickedFiles, WhatStandsBehindTheOnlyFileMeansNothing)
{
    EXPECT_THAT(Walk("C:\\b.tif\0longer name.tif\0", false), ElementsAre("C:\\b.tif"));
}

TEST(PickedFiles, ABufferWithoutItsLastZerosIsReadToItsEnd)
{
    char const buffer[] = {'C', ':', '\\', 'a', '\0', 'b', '\0', 'c', 'd'};
    EXPECT_THAT(Walk(buffer, true), ElementsAre("C:\\a\\b", "C:\\a\\cd"));
    char const one[] = {'C', ':'};
    EXPECT_THAT(Walk(one, true), ElementsAre("C:"));
}

TEST(PickedFiles, AnEmptyBufferGivesAnEmptyPath) { EXPECT_THAT(Walk("", true), ElementsAre("")); }
