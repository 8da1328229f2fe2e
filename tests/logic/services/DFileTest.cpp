// DFileTest.cpp - file names taken apart and put together
#include "tavkit/frame/services/DFile.h"

#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "host/PathText.h"
#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/DFileFrmt.h"
#include "tavkit/frame/services/DVector.h"

using testing::StrEq;

namespace
{
struct NameParts
{
    char const* moniker;
    char const* folder;
    char const* name;
    char const* extension;
};

void PrintTo(NameParts const& parts, std::ostream* out) { *out << '"' << parts.moniker << '"'; }

class DFileParts : public testing::TestWithParam<NameParts>
{
};

struct FolderChange
{
    char const* before;
    char const* folder;
    char const* after;
};

void PrintTo(FolderChange const& change, std::ostream* out)
{
    *out << '"' << change.before << "\" to \"" << change.after << '"';
}

class DFileFolder : public testing::TestWithParam<FolderChange>
{
};
} // namespace

TEST_P(DFileParts, AreFolderNameAndExtensionOfThePhysicalPath)
{
    const DFile file(GetParam().moniker);
    EXPECT_THAT(file.GetMoniker().c_str(), StrEq(GetParam().moniker)) << "the text stays as given";
    EXPECT_THAT(file.GetPhysFilePath().c_str(), StrEq(GetParam().folder));
    EXPECT_THAT(file.GetPhysFileName().c_str(), StrEq(GetParam().name));
    EXPECT_THAT(file.GetPhysFileExtn().c_str(), StrEq(GetParam().extension));
}

INSTANTIATE_TEST_SUITE_P(Names, DFileParts,
                         testing::Values(NameParts{"C:\\data\\a.tif", "C:\\data\\", "a.tif", "tif"},
                                         NameParts{"C:/data/a.tif", "C:/data/", "a.tif", "tif"},
                                         NameParts{"C:\\data/sub\\a.b.csv", "C:\\data/sub\\", "a.b.csv", "csv"},
                                         NameParts{"a.tif", "", "a.tif", "tif"}, NameParts{"noext", "", "noext", ""},
                                         NameParts{"dir.d\\noext", "dir.d\\", "noext", ""}, NameParts{"", "", "", ""},
                                         NameParts{".", "", ".", ""}, NameParts{"..", "", "..", ""},
                                         NameParts{"*.tif*", "", "*.tif*", "tif*"}, NameParts{"name.", "", "name.", ""},
                                         NameParts{".profile", "", ".profile", "profile"},
                                         NameParts{"C:\\data\\", "C:\\data\\", "", ""},
                                         NameParts{"C:a.tif", "C:", "a.tif", "tif"}, NameParts{"C:", "C:", "", ""},
                                         NameParts{"\\\\server\\share\\a.tif", "\\\\server\\share\\", "a.tif", "tif"},
                                         NameParts{"d\\a.tif?page=2", "d\\", "a.tif", "tif"},
                                         NameParts{"a.tif?x=..\\b.csv", "", "a.tif", "tif"},
                                         NameParts{"?page=2", "", "", ""},
                                         NameParts{"\\\\?\\C:\\d\\a.tif?page=2", "\\\\?\\C:\\d\\", "a.tif", "tif"}));

TEST_P(DFileFolder, IsReplacedAndTheNameKept)
{
    DFile file(GetParam().before);
    file.ChngDir(GetParam().folder);
    EXPECT_THAT(file.GetMoniker().c_str(), StrEq(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(Changes, DFileFolder,
                         testing::Values(FolderChange{"a.tif", "D:\\new", "D:\\new\\a.tif"},
                                         FolderChange{"C:\\old\\a.tif", "D:\\new\\", "D:\\new\\a.tif"},
                                         FolderChange{"C:\\old\\a.tif", "D:/new/", "D:/new/a.tif"},
                                         FolderChange{"C:\\old\\a.tif", ".", "a.tif"},
                                         FolderChange{"C:\\old\\a.tif", "", "a.tif"},
                                         FolderChange{"C:\\old\\a.tif", nullptr, "a.tif"},
                                         FolderChange{"C:\\old\\a.tif?page=2", "D:\\new", "D:\\new\\a.tif?page=2"},
                                         FolderChange{"a.tif", "C:", "C:a.tif"},
                                         FolderChange{"", "D:\\new", "D:\\new\\"}));

TEST(DFileFolder, ReadFromANameAndPutBackGivesTheSameName)
{
    for (char const* moniker : {"C:\\d\\a.tif", "C:a.tif", "a.tif", "\\a.tif"})
    {
        DFile file(moniker);
        file.ChngDir(DFile(moniker).GetPhysFilePath().c_str());
        EXPECT_THAT(file.GetMoniker().c_str(), StrEq(moniker));
    }
}

TEST(DFileValue, NullIsAnEmptyNameAndCopiesAreTheirOwn)
{
    EXPECT_THAT(DFile(nullptr).GetMoniker().c_str(), StrEq(""));
    DFile first("a.tif");
    DFile second(first);
    second.ChngDir("d");
    EXPECT_THAT(first.GetMoniker().c_str(), StrEq("a.tif"));
    first = second;
    EXPECT_THAT(first.GetMoniker().c_str(), StrEq("d\\a.tif"));
}

TEST(DFileValue, TakesTheHostsStringAsItIs)
{
    const DString path("C:\\d\\a.tif");
    EXPECT_TRUE(DFile(path).GetPhysFilePath() == "C:\\d\\");
    DFile file("b.tif");
    file.ChngDir(DFile(path).GetPhysFilePath());
    EXPECT_TRUE(file.GetMoniker() == "C:\\d\\b.tif");
}

TEST(DFileValue, LivesInAGrowingArray)
{
    DVectorSafe<DFile> files;
    for (int i = 0; i < 20; ++i)
    {
        files.Append(DString::Format("%d.tif", i).c_str());
    }
    EXPECT_THAT(files[19].GetMoniker().c_str(), StrEq("19.tif"));
    EXPECT_THAT(files[0].GetMoniker().c_str(), StrEq("0.tif"));
    EXPECT_THAT(files[25].GetMoniker().c_str(), StrEq(""));
}

TEST(DFileValue, IsDestroyedThroughItsVirtualDestructor)
{
    struct Derived : DFile
    {
        explicit Derived(bool& gone) : DFile("x"), m_gone(gone) {}
        ~Derived() override { m_gone = true; }
        bool& m_gone;
    };
    bool gone = false;
    std::unique_ptr<DFile> file = std::make_unique<Derived>(gone);
    file.reset();
    EXPECT_TRUE(gone);
}

TEST(FileNames, TheFreeFunctionsGiveExtensionAndName)
{
    EXPECT_TRUE(StripExtn("C:\\d\\a.csv") == "csv");
    EXPECT_TRUE(StripExtn("a") == "");
    EXPECT_TRUE(StripExtn(DString()) == "");
    EXPECT_TRUE(StripPath("C:\\d\\a.csv") == "a.csv");
    EXPECT_TRUE(StripPath("a.csv") == "a.csv");
    EXPECT_TRUE(StripPath(DString()) == "");
}

TEST(DFileFrmtFilter, AppendsNameAndPatternEachWithABar)
{
    char filter[64] = "All|*.*|";
    DFileFrmt("TIFF", "TIFF pictures", "*.tif;*.tiff").GetFilter(filter);
    EXPECT_THAT(filter, StrEq("All|*.*|TIFF pictures|*.tif;*.tiff|"));
}

TEST(DFileFrmtFilter, MissingTextsLeaveTheBars)
{
    char filter[8] = "";
    DFileFrmt(nullptr, nullptr, nullptr).GetFilter(filter);
    EXPECT_THAT(filter, StrEq("||"));
    DFileFrmt("a", "b", "c").GetFilter(nullptr);
}

TEST(DFileFrmtFields, StandInTheirOrder)
{
    const DFileFrmt format(nullptr, "Text", "*.txt");
    EXPECT_TRUE(format.m_strId == "");
    EXPECT_TRUE(format.m_strName == "Text");
    EXPECT_TRUE(format.m_strPattern == "*.txt");
    EXPECT_EQ(static_cast<void const*>(&format), &format.m_strId);
    EXPECT_EQ(&format.m_strId + 1, &format.m_strName);
    EXPECT_EQ(&format.m_strName + 1, &format.m_strPattern);
    EXPECT_EQ(sizeof(DFileFrmt), 3 * sizeof(DString));
}
