// TiffRepositoryTest.cpp - the pages of TIFF files, whole and broken
#include <string>

#include <gmock/gmock.h>

#include "host/repository/RepositoryDrvr.h"
#include "host/repository/TiffRepository.h"
#include "tests/support/TiffWriter.h"

namespace
{
using namespace repository;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

constexpr char kPath[] = "C:\\d\\slides.tif";
constexpr unsigned int kAll = ~0u;

std::string Tiff(unsigned pages, support::TiffForm form = {})
{
    support::TiffWriter writer(form);
    for (unsigned page = 0; page < pages; ++page)
    {
        writer.AddPage({.width = 3, .height = 2});
    }
    return writer.Bytes();
}

std::unique_ptr<Repository> Open(const std::string& bytes, std::string_view path = kPath)
{
    host::SpanSource source(std::as_bytes(std::span(bytes)));
    return TiffRepository::Open(path, source);
}

BDINode NodeOf(const NodeRecord& record) { return {nullptr, record.kind, record.id.c_str(), record.display.c_str()}; }

std::vector<std::string> IdsBelowRoot(const Repository& repository, unsigned int mask)
{
    std::vector<std::string> ids;
    for (const NodeRecord& child : repository.Children(NodeOf(repository.Root()), mask))
    {
        ids.push_back(child.id);
    }
    return ids;
}
} // namespace

TEST(TiffRepository, SeveralPagesMakeAContainerOfPictures)
{
    for (const support::TiffForm form : {support::TiffForm{}, {true, false}, {false, true}, {true, true}})
    {
        const auto file = Open(Tiff(3, form));
        ASSERT_THAT(file, NotNull());
        const NodeRecord root = file->Root();
        EXPECT_EQ(root.kind, bdiContainer);
        EXPECT_EQ(root.id, kPath);
        EXPECT_EQ(root.display, "slides.tif");
        EXPECT_EQ(file->Parameters(NodeOf(root)), "");
        const auto pages = file->Children(NodeOf(root), kAll);
        ASSERT_EQ(pages.size(), 3u);
        EXPECT_EQ(pages[2].kind, bdiRaster);
        EXPECT_EQ(pages[2].id, "C:\\d\\slides.tif?page=2");
        EXPECT_EQ(pages[2].display, "Page 2");
        EXPECT_EQ(pages[0].display, "Page 0") << "the number is that of the option";
        EXPECT_THAT(file->Children(NodeOf(pages[2]), kAll), IsEmpty());
        EXPECT_EQ(file->Parameters(NodeOf(pages[2])), "");
    }
}

TEST(TiffRepository, PagesComeInTheOrderOfTheFile)
{
    const auto file = Open(Tiff(11));
    const auto ids = IdsBelowRoot(*file, bdiRaster);
    ASSERT_EQ(ids.size(), 11u);
    EXPECT_EQ(ids[2], std::string(kPath) + "?page=2");
    EXPECT_EQ(ids[10], std::string(kPath) + "?page=10");
}

TEST(TiffRepository, OnlyAMaskWithPicturesFindsPages)
{
    const auto file = Open(Tiff(2));
    EXPECT_THAT(IdsBelowRoot(*file, bdiContainer | bdiVector | bdiTable | bdiOther), IsEmpty());
    EXPECT_EQ(IdsBelowRoot(*file, bdiRaster).size(), 2u);
}

TEST(TiffRepository, OnePageIsThePictureItselfAndNeedsItsNumber)
{
    const auto file = Open(Tiff(1));
    ASSERT_THAT(file, NotNull());
    EXPECT_EQ(file->Root().kind, bdiRaster);
    EXPECT_THAT(IdsBelowRoot(*file, kAll), IsEmpty());
    EXPECT_EQ(file->Parameters(NodeOf(file->Root())), "page=0");
    const auto page = file->Find(std::string(kPath) + "?page=0");
    ASSERT_TRUE(page);
    EXPECT_EQ(page->kind, bdiRaster);
    EXPECT_EQ(file->Parameters(NodeOf(*page)), "") << "its text says already which page";
}

TEST(TiffRepository, FindsTheFileAndItsPagesByTheirIdentifiers)
{
    const auto file = Open(Tiff(3));
    EXPECT_EQ(file->Find(kPath)->kind, bdiContainer);
    EXPECT_EQ(file->Find("c:\\D\\SLIDES.tif")->id, kPath) << "names on disk have no case";
    EXPECT_EQ(file->Find(std::string(kPath) + "?page=2")->display, "Page 2");
    EXPECT_EQ(file->Find(std::string(kPath) + "?band=1&page=1")->id, std::string(kPath) + "?page=1");
    EXPECT_EQ(file->Find(std::string(kPath) + "?band=1")->kind, bdiContainer);
    for (const char* none : {"?page=3", "?page=-1", "?page=x", "?page=0&page=1"})
    {
        EXPECT_FALSE(file->Find(std::string(kPath) + none)) << none;
    }
    EXPECT_FALSE(file->Find("C:\\d\\other.tif"));
    EXPECT_FALSE(file->Find("C:\\d\\other.tif?page=0"));
    EXPECT_FALSE(file->Find(""));
}

TEST(TiffRepository, KnowsAPathWithThePrefixOfLongOnes)
{
    const std::string path = "\\\\?\\C:\\" + std::string(300, 'a') + ".tif";
    const auto file = Open(Tiff(2), path);
    EXPECT_EQ(file->Find(path + "?page=1")->id, path + "?page=1");
}

TEST(TiffRepository, IsNotOpenedOverWhatIsNoTiffOrHasNoPage)
{
    for (const std::string& bytes : {std::string(), std::string("II"), std::string("II*\0", 4), std::string("text"),
                                     std::string("II*\0\0\0\0\0", 8), std::string("II*\0\x08\0\0\0", 8), Tiff(0)})
    {
        EXPECT_THAT(Open(bytes), IsNull());
    }
}

TEST(TiffRepository, AFileCutOffAnywhereHasThePagesThatCanBeReached)
{
    const std::string whole = Tiff(3);
    std::size_t before = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        const auto file = Open(whole.substr(0, size));
        const std::size_t pages = file ? std::max<std::size_t>(1, IdsBelowRoot(*file, bdiRaster).size()) : 0;
        EXPECT_GE(pages, before) << size;
        EXPECT_LE(pages, 3u) << size;
        before = pages;
    }
    EXPECT_EQ(before, 3u);
}

TEST(TiffRepository, PagesInARingAreCountedOnce)
{
    std::string bytes = Tiff(2);
    // The last four bytes say where the next page stands: back at the first.
    bytes.replace(bytes.size() - 4, 4, bytes, 4, 4);
    EXPECT_EQ(IdsBelowRoot(*Open(bytes), bdiRaster).size(), 2u);
}

TEST(TiffRepository, EndlessPagesEndSomewhere)
{
    // Empty directories side by side: no entries, then the place of the next.
    constexpr unsigned kEach = 6;
    std::string bytes("II*\0\x08\0\0\0", 8);
    for (unsigned page = 0; page < TiffRepository::kMostPages + 100; ++page)
    {
        const auto next = static_cast<unsigned>(bytes.size()) + kEach;
        bytes += std::string(2, '\0');
        for (unsigned shift = 0; shift < 32; shift += 8)
        {
            bytes += static_cast<char>(next >> shift & 0xFF);
        }
    }
    EXPECT_EQ(IdsBelowRoot(*Open(bytes), bdiRaster).size(), TiffRepository::kMostPages);
}
