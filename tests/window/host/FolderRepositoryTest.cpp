// FolderRepositoryTest.cpp - folders and TIFF files on disk through the repository drivers
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "host/FileBytes.h"
#include "host/PathText.h"
#include "host/repository/StandardDrivers.h"
#include "tavkit/frame/services/BDIDrvrMngr.h"
#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/RDIDriverMngr.h"
#include "tests/support/FolderLink.h"
#include "tests/support/ManyFiles.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TiffWriter.h"

namespace
{
using namespace repository;
using support::FolderLink;
using support::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

constexpr int kAll = 31;
constexpr int kTreeMask = 17; ///< what a tree of containers asks for

/// A node's name with the letter of its kind in front.
std::string Described(BDINode const& node)
{
    const char letter = (node.m_nKind & bdiContainer) != 0 ? 'c'
                        : (node.m_nKind & bdiRaster) != 0  ? 'r'
                        : (node.m_nKind & bdiVector) != 0  ? 'v'
                        : (node.m_nKind & bdiTable) != 0   ? 't'
                                                           : 'o';
    return std::string(1, letter) + ":" + node.m_strDisplay.c_str();
}

/// Every test ends with nothing left open.
class FolderRepositoryTest : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(m_drivers.Folders().Live(), LiveCounts{});
        EXPECT_EQ(m_drivers.Pages().Live(), LiveCounts{});
    }

    /// A repository that is open for as long as the object lives.
    class Opened
    {
    public:
        Opened(BDIDrvr& driver, const std::string& path) : m_driver(driver)
        {
            m_repository = driver.OpenRepository(path.c_str(), &m_root);
        }
        Opened(const Opened&) = delete;
        Opened& operator=(const Opened&) = delete;
        ~Opened()
        {
            m_driver.CloseNode(m_root);
            m_driver.CloseRepository(m_repository);
        }

        [[nodiscard]] BDINode const* Root() const { return m_root; }
        [[nodiscard]] bool IsOpen() const { return m_repository != nullptr; }

        /// The children of a node by its identifier, each described.
        [[nodiscard]] std::vector<std::string> Names(const std::string& id, int mask = kAll) const
        {
            std::vector<std::string> names;
            Walk(id, mask, [&](BDINode const& child) { names.push_back(Described(child)); });
            return names;
        }
        [[nodiscard]] std::vector<std::string> Ids(const std::string& id, int mask = kAll) const
        {
            std::vector<std::string> ids;
            Walk(id, mask, [&](BDINode const& child) { ids.emplace_back(child.m_strId.c_str()); });
            return ids;
        }
        /// The node of an identifier, described; "" without one.
        [[nodiscard]] std::string Describe(const std::string& id) const
        {
            BDINode* const node = m_driver.OpenNode(m_repository, id.c_str());
            const std::string text = node ? Described(*node) : "";
            m_driver.CloseNode(node);
            return text;
        }

    private:
        template <class Visit>
        void Walk(const std::string& id, int mask, const Visit& visit) const
        {
            BDINode* const node = m_driver.OpenNode(m_repository, id.c_str());
            void* find = m_driver.FindFirstChildNode(node, mask);
            while (BDINode* const child = m_driver.FindNextChildNode(find))
            {
                visit(*child);
                m_driver.CloseNode(child);
            }
            m_driver.FindClose(find);
            m_driver.CloseNode(node);
        }

        BDIDrvr& m_driver;
        void* m_repository = nullptr;
        BDINode* m_root = nullptr;
    };

    StandardDrivers m_drivers;
    BDIDrvr& m_folders = m_drivers.Folders();
    TempFolder m_temp;
    std::string m_path = m_temp.Path().substr(0, m_temp.Path().size() - 1); ///< without a separator
};

/// Deletes a folder of nested folders and files, innermost first.
void DeleteAll(const std::string& path)
{
    std::error_code error;
    std::filesystem::remove_all(path, error);
}
} // namespace

TEST_F(FolderRepositoryTest, SortsOutWhatLiesInAFolder)
{
    m_temp.MakeFolder("zoo.tif");
    m_temp.MakeFolder("Area");
    for (const char* name : {"b.TIF", "a.png", "C.jpg", "t.csv", "T2.txt", "d.dbf", "v.shp", "x.exe", "noext", ".tif"})
    {
        m_temp.Write(name, "x");
    }
    const Opened opened(m_folders, m_path);
    ASSERT_THAT(opened.Root(), NotNull());
    EXPECT_EQ(opened.Root()->m_nKind, bdiContainer);
    EXPECT_TRUE(opened.Root()->m_strId == m_path.c_str());
    EXPECT_THAT(opened.Names(m_path), ElementsAre("c:Area", "c:zoo.tif", "r:a.png", "r:b.TIF", "r:C.jpg", "t:d.dbf",
                                                  "t:t.csv", "t:T2.txt", "v:v.shp"));
    EXPECT_THAT(opened.Names(m_path, kTreeMask), ElementsAre("c:Area", "c:zoo.tif"));
    EXPECT_THAT(opened.Names(m_path, bdiTable), ElementsAre("t:d.dbf", "t:t.csv", "t:T2.txt"));
    EXPECT_THAT(opened.Ids(m_path, bdiVector), ElementsAre(m_path + "\\v.shp"));
    EXPECT_THAT(opened.Names(m_path + "\\Area"), IsEmpty());
    DeleteAll(m_path);
}

TEST_F(FolderRepositoryTest, FindsNodesByPathInsideOfItOnly)
{
    m_temp.MakeFolder("sub");
    m_temp.Write("sub\\a.tif", "x");
    m_temp.Write("b.exe", "x");
    const Opened opened(m_folders, m_path);
    EXPECT_EQ(opened.Describe(m_path + "\\sub"), "c:sub");
    EXPECT_EQ(opened.Describe(m_path + "/SUB/A.TIF"), "r:A.TIF");
    EXPECT_EQ(opened.Describe(m_path + "\\sub\\a.tif?page=2"), "r:a.tif") << "options are no part of the path";
    EXPECT_EQ(opened.Describe(m_path + "\\"), Described(*opened.Root()));
    EXPECT_EQ(opened.Describe(m_path + "\\none"), "");
    EXPECT_EQ(opened.Describe(m_path + "\\b.exe"), "") << "no repository shows such files";
    EXPECT_EQ(opened.Describe(m_path + "\\sub\\..\\sub"), "") << "no climbing";
    EXPECT_EQ(opened.Describe("C:\\"), "");
    EXPECT_EQ(opened.Describe(""), "");
    DeleteAll(m_path);
}

TEST_F(FolderRepositoryTest, AFileIsARepositoryOfItsOwn)
{
    const std::string file = m_temp.Write("a.csv", "x");
    {
        const BDIMoniker moniker((file + "?delimiter=;").c_str(), &m_folders);
        ASSERT_THAT(moniker.GetNode(), NotNull());
        EXPECT_EQ(moniker.GetNode()->m_nKind, bdiTable);
        EXPECT_TRUE(moniker.GetDisplayName() == "a.csv");
        EXPECT_THAT(m_folders.FindFirstChildNode(moniker.GetNode(), kAll), IsNull());
        EXPECT_TRUE(m_folders.GetDriverParameterString(moniker.GetNode()) == "");
    }
    EXPECT_THAT(BDIMoniker(m_temp.Write("a.exe", "x").c_str(), &m_folders).GetNode(), IsNull());
}

TEST_F(FolderRepositoryTest, WhatIsNotThereCannotBeOpened)
{
    for (const std::string& path : {m_path + "\\none", std::string(), std::string("<|>"), std::string("Q:\\none"),
                                    std::string(40'000, 'x'), m_path + "\\*"})
    {
        const Opened opened(m_folders, path);
        EXPECT_FALSE(opened.IsOpen()) << path.substr(0, 80);
        EXPECT_THAT(opened.Root(), IsNull());
    }
}

TEST_F(FolderRepositoryTest, AFolderThatVanishesIsEmptyFromThenOn)
{
    const std::string sub = m_temp.MakeFolder("sub");
    m_temp.Write("sub\\a.tif", "x");
    const Opened opened(m_folders, sub);
    void* find = m_folders.FindFirstChildNode(opened.Root(), kAll);
    ASSERT_THAT(find, NotNull());
    DeleteAll(sub);
    EXPECT_EQ(opened.Describe(sub), "");
    EXPECT_THAT(m_folders.FindFirstChildNode(opened.Root(), kAll), IsNull());
    BDINode* const child = m_folders.FindNextChildNode(find);
    ASSERT_THAT(child, NotNull()) << "what a walk began with it ends with";
    EXPECT_EQ(Described(*child), "r:a.tif");
    m_folders.CloseNode(child);
    m_folders.FindClose(find);
}

TEST_F(FolderRepositoryTest, AFolderThatAFileHasReplacedHoldsNothing)
{
    const std::string sub = m_temp.MakeFolder("sub.tif");
    const Opened opened(m_folders, sub);
    DeleteAll(sub);
    m_temp.Write("sub.tif", "x");
    EXPECT_THAT(m_folders.FindFirstChildNode(opened.Root(), kAll), IsNull());
    EXPECT_EQ(opened.Describe(sub), "r:sub.tif");
}

TEST_F(FolderRepositoryTest, AFolderThatCannotBeReadHoldsNothing)
{
    const std::string sub = m_temp.MakeFolder("sub");
    m_temp.Write("sub\\a.tif", "x");
    const Opened opened(m_folders, m_path);
    {
        // Another program keeps the folder to itself.
        const host::FileHandle exclusive(::CreateFileA(sub.c_str(), FILE_LIST_DIRECTORY, 0, nullptr, OPEN_EXISTING,
                                                       FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        ASSERT_TRUE(exclusive.IsValid());
        EXPECT_THAT(opened.Names(m_path), ElementsAre("c:sub"));
        EXPECT_THAT(opened.Names(sub), IsEmpty());
    }
    EXPECT_THAT(opened.Names(sub), ElementsAre("r:a.tif"));
    DeleteAll(sub);
}

TEST_F(FolderRepositoryTest, ALinkElsewhereIsAContainer)
{
    const TempFolder elsewhere;
    elsewhere.Write("a.tif", "x");
    {
        const FolderLink link(m_path + "\\link", elsewhere.Path());
        const Opened opened(m_folders, m_path);
        EXPECT_THAT(opened.Names(m_path), ElementsAre("c:link"));
        EXPECT_THAT(opened.Names(link.Path()), ElementsAre("r:a.tif"));
    }
    EXPECT_THAT(elsewhere.Names(), ElementsAre("a.tif")) << "the link went, not what it led to";
}

TEST_F(FolderRepositoryTest, ALinkBackHoldsNothing)
{
    const std::string sub = m_temp.MakeFolder("sub");
    m_temp.Write("sub\\a.tif", "x");
    {
        const FolderLink self(sub + "\\self", sub);
        const FolderLink up(sub + "\\up", m_path);
        const Opened opened(m_folders, m_path);
        EXPECT_THAT(opened.Names(sub), ElementsAre("r:a.tif", "o:self", "o:up"));
        EXPECT_EQ(opened.Describe(self.Path()), "o:self");
        EXPECT_THAT(opened.Names(self.Path()), IsEmpty());
        EXPECT_THAT(opened.Names(up.Path()), IsEmpty());
    }
    DeleteAll(sub);
}

TEST_F(FolderRepositoryTest, LinksInACircleEndEveryWalk)
{
    const std::string a = m_temp.MakeFolder("a");
    const std::string b = m_temp.MakeFolder("b");
    m_temp.Write("a\\1.tif", "x");
    m_temp.Write("b\\2.tif", "x");
    {
        const FolderLink toB(a + "\\b", b);
        const FolderLink toA(b + "\\a", a);
        const Opened opened(m_folders, m_path);
        // Everything below, container by container.
        std::vector<std::string> seen;
        std::vector<std::string> waiting{m_path};
        constexpr std::size_t kFarTooMany = 100;
        while (!waiting.empty() && seen.size() < kFarTooMany)
        {
            const std::string folder = waiting.back();
            waiting.pop_back();
            for (const std::string& id : opened.Ids(folder, bdiRaster))
            {
                seen.push_back(id.substr(m_path.size() + 1));
            }
            for (const std::string& id : opened.Ids(folder, bdiContainer))
            {
                waiting.push_back(id);
            }
        }
        EXPECT_THAT(seen, testing::UnorderedElementsAre("a\\1.tif", "a\\b\\2.tif", "b\\2.tif", "b\\a\\1.tif"));
    }
    DeleteAll(a);
    DeleteAll(b);
}

TEST_F(FolderRepositoryTest, ALinkThatLeadsNowhereHoldsNothing)
{
    const TempFolder elsewhere;
    const std::string target = elsewhere.MakeFolder("target");
    const FolderLink link(m_path + "\\link", target);
    const Opened opened(m_folders, m_path);
    EXPECT_THAT(opened.Names(m_path), ElementsAre("c:link"));
    DeleteAll(target);
    EXPECT_THAT(opened.Names(link.Path()), IsEmpty());
    for (const std::string& name : opened.Names(m_path))
    {
        EXPECT_EQ(name, "o:link"); // unless the system doesn't list it at all
    }
}

TEST_F(FolderRepositoryTest, HiddenFilesAreThereButNotTheSystemsOwn)
{
    const std::string hidden = m_temp.Write("hidden.tif", "x");
    const std::string own = m_temp.Write("own.tif", "x");
    ::SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN);
    ::SetFileAttributesA(own.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    const Opened opened(m_folders, m_path);
    if ((::GetFileAttributesA(own.c_str()) & FILE_ATTRIBUTE_SYSTEM) == 0)
    {
        // A disk that keeps no attributes keeps nothing back either.
        EXPECT_THAT(opened.Names(m_path), ElementsAre("r:hidden.tif", "r:own.tif"));
        return;
    }
    EXPECT_THAT(opened.Names(m_path), ElementsAre("r:hidden.tif"));
}

TEST_F(FolderRepositoryTest, NamesOfEveryByteComeBackAsTheyAre)
{
    std::multiset<std::string> written;
    for (int c = 1; c < 256; ++c)
    {
        std::string name(1, static_cast<char>(c));
        name = "a" + name + ".tif";
        const std::string path = m_path + "\\" + name;
        // Separators and signs of patterns and devices are no part of a name.
        const host::FileHandle file(
            std::string_view("\\/:*?\"<>|").find(static_cast<char>(c)) != std::string_view::npos
                ? INVALID_HANDLE_VALUE
                : ::CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file.IsValid())
        {
            written.insert(path);
        }
    }
    ASSERT_GT(written.size(), 150u);
    {
        const Opened opened(m_folders, m_path);
        const auto ids = opened.Ids(m_path);
        EXPECT_EQ(std::multiset<std::string>(ids.begin(), ids.end()), written);
        for (const std::string& id : ids)
        {
            EXPECT_EQ(opened.Describe(id), "r:" + id.substr(m_path.size() + 1));
        }
    }
    DeleteAll(m_path);
}

TEST_F(FolderRepositoryTest, ANameOutsideTheCodePageIsOpenedByItsShortName)
{
    std::wstring path(m_path.begin(), m_path.end());
    path += L"\\\x4E2D\x6587 picture.tif";
    {
        const host::FileHandle file(
            ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(file.IsValid());
    }
    {
        const Opened opened(m_folders, m_path);
        const auto ids = opened.Ids(m_path);
        if (!ids.empty()) // a disk without short names can't name it at all
        {
            ASSERT_EQ(ids.size(), 1u);
            EXPECT_EQ(ids[0].find('?'), std::string::npos);
            EXPECT_TRUE(host::OpenForReading(ids[0].c_str()).IsValid()) << ids[0];
            EXPECT_THAT(opened.Names(m_path), ElementsAre("r:?? picture.tif"));
            EXPECT_NE(opened.Describe(ids[0]), "");
        }
    }
    ::DeleteFileW(path.c_str());
}

TEST_F(FolderRepositoryTest, PathsOfAnyLengthAreRead)
{
    // Three names of a hundred letters: far beyond what the plain form of a path may have.
    const std::string prefix = "\\\\?\\";
    std::string path = m_path;
    for (const char letter : {'a', 'b', 'c'})
    {
        path += "\\" + std::string(100, letter);
        ASSERT_TRUE(::CreateDirectoryW(host::Widen(prefix + path).c_str(), nullptr)) << path.size();
    }
    const std::string file = path + "\\" + std::string(200, 'd') + ".tif";
    support::TiffWriter writer;
    writer.AddPage({.width = 2, .height = 2});
    writer.AddPage({.width = 2, .height = 2});
    ASSERT_TRUE(writer.Save(m_temp.Path("d.tif")));
    ASSERT_TRUE(::MoveFileW(host::Widen(m_temp.Path("d.tif")).c_str(), host::Widen(prefix + file).c_str()));
    {
        const Opened opened(m_folders, m_path);
        EXPECT_THAT(opened.Names(path), ElementsAre("r:" + std::string(200, 'd') + ".tif"));
        EXPECT_EQ(opened.Describe(file), "r:" + std::string(200, 'd') + ".tif");
        const Opened deep(m_folders, path);
        EXPECT_THAT(deep.Ids(path), ElementsAre(file));
        const Opened pages(m_drivers.Pages(), file);
        EXPECT_EQ(pages.Ids(file).size(), 2u);
        EXPECT_TRUE(DFile(file.c_str()).Exist());
        RDIDriver* driver = nullptr;
        void* picture = nullptr;
        ASSERT_TRUE(RDIDriverMngr::Instance()->OpenFile(BDIMoniker((file + "?page=1").c_str(), &m_drivers.Pages()),
                                                        &driver, &picture, "", nullptr, nullptr));
        EXPECT_EQ(driver->GetChnlSizeX(picture, 0), 2);
        driver->CloseFile(picture);
    }
    DeleteAll(prefix + m_path);
}

TEST_F(FolderRepositoryTest, TenThousandFilesComeInOrder)
{
    constexpr int kFiles = 10'000;
    support::MakeManyFiles(m_path, kFiles);
    {
        const Opened opened(m_folders, m_path);
        const auto ids = opened.Ids(m_path, bdiRaster);
        ASSERT_EQ(ids.size(), static_cast<std::size_t>(kFiles));
        for (int i = 0; i < kFiles; ++i)
        {
            ASSERT_EQ(ids[static_cast<std::size_t>(i)], m_path + "\\" + support::ManyFilesName(i));
        }
    }
    DeleteAll(m_path);
}

TEST_F(FolderRepositoryTest, TheRegistryKnowsBothDriversForAsLongAsTheyLive)
{
    BDIDrvrMngr* const registry = BDIDrvrMngr::Instance();
    EXPECT_EQ(registry->GetDrvr(kFolderDriver), &m_drivers.Folders());
    EXPECT_EQ(registry->GetDrvr(kPagesDriver), &m_drivers.Pages());
    EXPECT_EQ(registry->FindDriverByFrmt("TIFF"), &m_drivers.Pages());
    EXPECT_EQ(registry->FindDriverByFrmt("ALL"), &m_drivers.Pages());
    EXPECT_EQ(registry->FindDriverByFrmt("Folder"), &m_drivers.Folders());
    {
        const StandardDrivers second;
        EXPECT_EQ(registry->GetDrvr(kFolderDriver), &m_drivers.Folders());
    }
    EXPECT_EQ(registry->GetDrvr(kFolderDriver), &m_drivers.Folders());
}

TEST(StandardDrivers, AreOutOfTheRegistryWhenTheyAreGone)
{
    {
        const StandardDrivers drivers;
    }
    EXPECT_THAT(BDIDrvrMngr::Instance()->GetDrvr(kFolderDriver), IsNull());
    EXPECT_THAT(BDIDrvrMngr::Instance()->FindDriverByFrmt("TIFF"), IsNull());
}

TEST_F(FolderRepositoryTest, ATiffFileOpensByItsPages)
{
    support::TiffWriter writer;
    for (int page = 0; page < 3; ++page)
    {
        writer.AddPage({.width = 4, .height = 3});
    }
    const std::string file = m_temp.Path("stack.tif");
    ASSERT_TRUE(writer.Save(file));
    const Opened stack(m_drivers.Pages(), file);
    EXPECT_EQ(stack.Root()->m_nKind, bdiContainer);
    EXPECT_THAT(stack.Names(file), ElementsAre("r:Page 0", "r:Page 1", "r:Page 2"));
    const BDIMoniker page((file + "?page=1").c_str(), &m_drivers.Pages());
    ASSERT_THAT(page.GetNode(), NotNull());
    EXPECT_TRUE(page.GetDisplayName() == "Page 1");
    EXPECT_THAT(BDIMoniker((file + "?page=3").c_str(), &m_drivers.Pages()).GetNode(), IsNull());
    EXPECT_TRUE(::DeleteFileA(file.c_str())) << "an opened repository doesn't hold the file";
    EXPECT_THAT(stack.Names(file).size(), 3u);
}

TEST_F(FolderRepositoryTest, ATruncatedTiffHasThePagesThatAreLeft)
{
    support::TiffWriter writer;
    writer.AddPage({.width = 4, .height = 3});
    const std::string one = writer.Bytes();
    writer.AddPage({.width = 4, .height = 3});
    writer.AddPage({.width = 4, .height = 3});
    const std::string cut = m_temp.Write("cut.tif", writer.Bytes().substr(0, one.size() + 1));
    {
        const Opened opened(m_drivers.Pages(), cut);
        ASSERT_TRUE(opened.IsOpen());
        EXPECT_EQ(opened.Root()->m_nKind, bdiRaster) << "one page is left";
        EXPECT_TRUE(m_drivers.Pages().GetDriverParameterString(opened.Root()) == "page=0");
    }
    for (const std::string& bytes : {std::string(), std::string("II*\0\x08\0\0\0", 8), std::string("\xFF\xD8\xFF")})
    {
        EXPECT_FALSE(Opened(m_drivers.Pages(), m_temp.Write("bad.tif", bytes)).IsOpen());
    }
    EXPECT_FALSE(Opened(m_drivers.Pages(), m_path).IsOpen()) << "a folder";
    EXPECT_FALSE(Opened(m_drivers.Pages(), m_path + "\\none.tif").IsOpen());
}

TEST_F(FolderRepositoryTest, TheSampleOfSlidesHasItsPages)
{
    const char* const samples = std::getenv("TAVKIT_SAMPLES");
    const std::string file = host::JoinPath(samples ? samples : "samples", "slides.tif");
    const Opened opened(m_drivers.Pages(), file);
    ASSERT_TRUE(opened.IsOpen()) << file;
    EXPECT_EQ(opened.Root()->m_nKind, bdiContainer);
    EXPECT_GT(opened.Names(file).size(), 1u);
}
