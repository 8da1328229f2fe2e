// OpenersFilesTest.cpp - the questions for files of any kind, for data with a label, and for tables and reports
#include "OpenerFixture.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace tavkit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::Pair;
using testing::SizeIs;

class FilesOpener : public OpenerTest
{
};

/// The texts of the result.
std::vector<std::string> Files(FileDlg const& dlg)
{
    std::vector<std::string> files;
    for (int i = 0; i < dlg.GetNumSlctFiles(); ++i)
    {
        files.emplace_back(dlg.GetFile(i)->GetMoniker().c_str());
    }
    return files;
}

} // namespace

// The step that all of them end in

TEST_F(FilesOpener, ADialogIsShownWithItsFilterPatternAndCategory)
{
    ScriptedDlg dlg;
    dlg.AddDscr(&FileFrmtHTML, false);
    dlg.AddDscr(&FileFrmtCSV, false);
    EXPECT_TRUE(dlg.ShowFileDlg(2, "ImageFolders"));
    EXPECT_EQ(dlg.Last().mode, 2);
    EXPECT_EQ(dlg.Last().filter, "HTML files|*.htm|Comma separated list files|*.csv||");
    EXPECT_EQ(dlg.Last().index, 0);
    EXPECT_EQ(dlg.Last().defExt, "*.htm");
    EXPECT_EQ(dlg.Last().category, "ImageFolders");
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(FilesOpener, WithNothingOnOfferTheUserIsWarned)
{
    ScriptedDlg dlg;
    dlg.m_vecFiles.Append(new BDIMoniker("of the question before", nullptr));
    dlg.PickFormat(&FileFrmtCSV);
    EXPECT_FALSE(dlg.ShowFileDlg(0, ""));
    EXPECT_THAT(dlg.m_asked, IsEmpty());
    EXPECT_EQ(dlg.GetNumSlctFiles(), 0);
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes));
}

TEST_F(FilesOpener, TheFormatWhosePatternIsTheInitialFilesExtensionIsPreselected)
{
    DFileFrmt exact("", "Exactly", "own");
    DFileFrmt again("", "Again", "own");
    struct Case
    {
        char const* file;
        int index;
    };
    for (Case const& each : {Case{"C:\\a.own", 1}, Case{"a.b.own?x.y", 1}, Case{"a.OWN", 0}, Case{"a.csv", 0},
                             Case{"", 0}, Case{"own", 0}})
    {
        ScriptedDlg dlg;
        dlg.AddDscr(&FileFrmtHTML, false);
        dlg.AddDscr(&exact, false);
        dlg.AddDscr(&again, false);
        dlg.AddDscr(&FileFrmtCSV, false);
        dlg.SetInitFile(each.file);
        EXPECT_TRUE(dlg.ShowFileDlg(0, ""));
        EXPECT_EQ(dlg.Last().index, each.index) << each.file;
        EXPECT_EQ(dlg.Last().defExt, dlg.m_vecDscr[each.index]->m_strPattern.c_str());
    }
}

TEST_F(FilesOpener, TheChosenFormatIsPreselectedByItsName)
{
    DFileFrmt sameName("", "HTML files", "*.html");
    DFileFrmt unknown("", "Unknown", "*.unk");
    DFileFrmt own("", "own", "x");
    for (auto const& [format, index] : {std::pair(&FileFrmtHTML, 1), {&sameName, 1}, {&unknown, 0}, {&FileFrmtCSV, 2}})
    {
        ScriptedDlg dlg;
        dlg.AddDscr(&own, false);
        dlg.AddDscr(&FileFrmtHTML, false);
        dlg.AddDscr(&FileFrmtCSV, false);
        dlg.AddDscr(&sameName, false);
        dlg.SetInitFile("a.x");
        dlg.PickFormat(format);
        EXPECT_TRUE(dlg.ShowFileDlg(0, ""));
        EXPECT_EQ(dlg.Last().index, index) << format->m_strName.c_str();
        EXPECT_EQ(dlg.Last().defExt, format->m_strPattern.c_str()) << "its own pattern, on offer or not";
    }
}

TEST_F(FilesOpener, TheResultOfTheQuestionBeforeGoesAndTheNewOneIsSorted)
{
    ScriptedDlg dlg;
    dlg.m_picked = {"x\\b", "y\\B", "z\\a"};
    EXPECT_TRUE(dlg.OpenAll(0));
    EXPECT_THAT(Files(dlg), ElementsAre("y\\B", "z\\a", "x\\b"));
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.OpenAll(0));
    EXPECT_THAT(Files(dlg), IsEmpty());
}

// A filter text of the caller's

TEST_F(FilesOpener, ACallersFilterIsHandedOnWithTheFirstPatternThatContainsTheExtension)
{
    constexpr char kFilter[] = "Text|*.txt;*.text|Tables|*.CSV|More|*.csv|";
    struct Case
    {
        char const* defExt;
        char const* file;
        int index;
    };
    for (Case const& each : {Case{"csv", "a.txt", 2}, Case{".text", "", 0}, Case{"", "a.csv", 0},
                             Case{nullptr, "a.csv", 2}, Case{nullptr, "a.CSV", 1}, Case{nullptr, "", 0},
                             Case{"Text", "", 3}, Case{"t|T", "", 3}, Case{nullptr, "a.unk", 3}})
    {
        ScriptedDlg dlg;
        dlg.SetInitFile(each.file);
        EXPECT_TRUE(dlg.OpenFileDlg(1, kFilter, each.defExt));
        EXPECT_EQ(dlg.Last().index, each.index) << (each.defExt ? each.defExt : each.file);
        EXPECT_EQ(dlg.Last().filter, kFilter);
        EXPECT_EQ(dlg.Last().defExt, each.defExt ? std::optional<std::string>(each.defExt) : std::nullopt);
        EXPECT_EQ(dlg.Last().category, "") << "no history";
        EXPECT_EQ(dlg.Last().mode, 1);
        EXPECT_EQ(dlg.Last().caption, "");
        EXPECT_THAT(dlg.Last().offer, IsEmpty());
        EXPECT_THAT(dlg.Chosen(), IsNull());
    }
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(FilesOpener, WithoutAFilterTextTheFirstFilterIsAskedFor)
{
    ScriptedDlg dlg;
    dlg.m_picked = {"b", "a"};
    EXPECT_TRUE(dlg.OpenFileDlg(0, nullptr, nullptr));
    EXPECT_EQ(dlg.Last().filter, std::nullopt);
    EXPECT_EQ(dlg.Last().defExt, std::nullopt);
    EXPECT_EQ(dlg.Last().index, 0);
    EXPECT_THAT(Files(dlg), ElementsAre("a", "b"));
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.OpenFileDlg(0, nullptr, nullptr));
    EXPECT_THAT(Files(dlg), IsEmpty());
}

// Ready-made offers

TEST_F(FilesOpener, AReadyMadeOfferComesWithAllFiles)
{
    struct Case
    {
        FileDlg::EFormat format;
        int mode;
        std::vector<DFileFrmt*> offer;
        char const* caption;
    };
    for (Case const& each :
         {Case{FileDlg::frmtAscii,
               0,
               {&FileFrmtAscii, &FileFrmtDBase, &FileFrmtCSV, &FileFrmtAll, &FileFrmtAll},
               "Load Data..."},
          Case{FileDlg::frmtCSV, 1, {&FileFrmtCSV, &FileFrmtTCSV, &FileFrmtAscii, &FileFrmtAll}, "Save Data..."},
          Case{FileDlg::frmtShape, 2, {&FileFrmtShape, &FileFrmtAll}, "Mine"},
          Case{FileDlg::frmtHTML, 1, {&FileFrmtHTML, &FileFrmtAll}, "Save Data..."},
          Case{FileDlg::frmtSnippet, 0, {&FileFrmtSnippet, &FileFrmtAll}, "Load Data..."},
          Case{static_cast<FileDlg::EFormat>(9), 0, {&FileFrmtAll}, "Load Data..."}})
    {
        ScriptedDlg dlg(CString("Mine"));
        EXPECT_TRUE(dlg.Open(each.mode, each.format, "a", "C:\\dir", "Key"));
        EXPECT_EQ(dlg.Last().offer, each.offer);
        EXPECT_EQ(dlg.Last().caption, each.caption);
        EXPECT_EQ(dlg.Last().format, each.offer[0]);
        EXPECT_EQ(dlg.Last().index, 0);
        EXPECT_EQ(dlg.Last().category, "");
        EXPECT_EQ(dlg.Last().mode, each.mode);
        EXPECT_EQ(dlg.Chosen(), each.offer[0]);
        Store("Key", nullptr);
    }
}

TEST_F(FilesOpener, AStoredFolderGoesBeforeTheCallers)
{
    struct Case
    {
        char const* stored;
        char const* file;
        char const* dir;
        char const* key;
        char const* begin;
    };
    for (Case const& each :
         {Case{"C:\\b", "", "C:\\a", "Key", "C:\\b\\"}, Case{"C:\\b", "f.csv", "C:\\a", "", "C:\\a\\f.csv"},
          Case{"C:\\b", "f.csv", "C:\\a", "Other", "C:\\a\\f.csv"}, Case{"C:\\b\\", "f", "", "Key", "C:\\b\\f"},
          Case{"C:\\b", "f.csv", "", "", "f.csv"}, Case{"C:\\b", "f", "C:/a/", "", "C:/a/\\f"},
          Case{"C:\\b", "f", "C:", "", "C:\\f"}, Case{"C:\\b", nullptr, "C:\\a", "", "C:\\a\\"},
          Case{"C:\\b", nullptr, nullptr, "", ""}, Case{"", "f", "C:\\a", "Key", "f"}})
    {
        for (const bool byFile : {false, true})
        {
            Store("Key", each.stored);
            ScriptedDlg dlg;
            dlg.m_ok = false;
            dlg.SetInitFile("D:\\set before");
            EXPECT_FALSE(byFile ? dlg.Open(0, each.file, each.dir, each.key)
                                : dlg.Open(0, FileDlg::frmtCSV, each.file, each.dir, each.key));
            EXPECT_EQ(dlg.Last().initFile, each.begin) << byFile;
        }
    }
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.Open(0, FileDlg::frmtCSV, "f", "C:\\a", nullptr));
    EXPECT_EQ(dlg.Last().initFile, "C:\\a\\f");
    EXPECT_FALSE(dlg.Open(0, "f", "C:\\a", nullptr));
    EXPECT_EQ(dlg.Last().initFile, "C:\\a\\f");
}

TEST_F(FilesOpener, TheFolderIsStoredUnderTheCallersKeyAfterOKAlone)
{
    for (char const* key : {"", "Key"})
    {
        for (const bool byFile : {false, true})
        {
            for (const bool ok : {false, true})
            {
                AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr);
                ScriptedDlg dlg;
                dlg.m_ok = ok;
                EXPECT_EQ(
                    byFile ? dlg.Open(1, "f.csv", "C:\\a", key) : dlg.Open(1, FileDlg::frmtCSV, "f", "C:\\a", key), ok);
                EXPECT_EQ(Stored(), ok && *key ? (Settings{{"Key", "C:\\picked\\"}}) : Settings{});
            }
        }
    }
}

TEST_F(FilesOpener, AFilesNameGivesTheFormat)
{
    struct Case
    {
        char const* file;
        char const* pattern;
    };
    for (Case const& each : {Case{"a.own", "*.own"}, Case{"a.b.tif?page=1", "*.tif"}, Case{"a", "*."}, Case{"", "*."},
                             Case{nullptr, "*."}})
    {
        ScriptedDlg dlg(CString("Mine"));
        dlg.SetMultipleFiles();
        EXPECT_TRUE(dlg.Open(0, each.file, "C:\\x.y", ""));
        EXPECT_EQ(dlg.Last().filter, "|" + std::string(each.pattern) + "|All Files|*.*||");
        EXPECT_EQ(dlg.Last().index, 0);
        EXPECT_EQ(dlg.Last().defExt, each.pattern);
        EXPECT_EQ(dlg.Last().category, "");
        EXPECT_EQ(dlg.Last().caption, "Load Data...");
        ASSERT_THAT(dlg.Last().offer, SizeIs(2));
        EXPECT_EQ(dlg.m_vecDscr.GetCount(), 1) << "the file's own format is gone again";
        EXPECT_EQ(dlg.m_vecDscr[0], &FileFrmtAll);
    }
}

TEST_F(FilesOpener, TheFormatOfAFileGoesAfterCancelTooAndAnotherQuestionDoesNoHarm)
{
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.Open(1, "a.one", "", ""));
    EXPECT_EQ(dlg.m_vecDscr.GetCount(), 1);
    EXPECT_EQ(dlg.Last().caption, "Save Data...");
    dlg.m_ok = true;
    EXPECT_TRUE(dlg.Open(2, "a.two", "", ""));
    EXPECT_EQ(dlg.Last().filter, "All Files|*.*||*.two|All Files|*.*||");
    EXPECT_EQ(dlg.Last().index, 1) << "the format without a name, as before";
    EXPECT_EQ(dlg.Last().defExt, "*.two");
    EXPECT_EQ(dlg.Last().caption, "Save Data...");
    EXPECT_TRUE(dlg.OpenAll(0));
    EXPECT_EQ(dlg.Last().defExt, "*.two");
}

TEST_F(FilesOpener, ACopyAsksOnWhenTheOriginalIsGone)
{
    auto original = std::make_unique<ScriptedDlg>();
    original->m_ok = false;
    EXPECT_FALSE(original->Open(0, "a.one", "", ""));
    ScriptedDlg copy(*original);
    original.reset();
    copy.m_ok = true;
    EXPECT_TRUE(copy.OpenAll(0));
    EXPECT_EQ(copy.Last().defExt, "*.one");
}

TEST_F(FilesOpener, AllFilesAreOfferedAloneAndNothingIsStored)
{
    char const* const captions[] = {"Load Data...", "Save Data...", "Mine"};
    for (const int mode : {0, 1, 2})
    {
        ScriptedDlg dlg(CString("Mine"));
        EXPECT_TRUE(dlg.OpenAll(mode));
        EXPECT_EQ(dlg.Last().filter, "All Files|*.*||");
        EXPECT_EQ(dlg.Last().defExt, "*.*");
        EXPECT_EQ(dlg.Last().category, "");
        EXPECT_EQ(dlg.Last().caption, captions[mode]);
        EXPECT_EQ(dlg.Last().initFile, "");
        EXPECT_EQ(dlg.Chosen(), &FileFrmtAll);
        EXPECT_THAT(Stored(), IsEmpty());
    }
}

// Data with a label

namespace
{

struct Labelled
{
    char const* name;
    bool (FileDlg::*open)(int, CString const&);
    std::vector<DFileFrmt*> load;
    std::vector<DFileFrmt*> save;
    char const* category;
    int nodeType;
};

class LabelledOpener : public OpenerTest, public testing::WithParamInterface<Labelled>
{
};

INSTANTIATE_TEST_SUITE_P(
    All, LabelledOpener,
    testing::Values(
        Labelled{"TableData",
                 &FileDlg::OpenTableData,
                 {&FileFrmtAscii, &FileFrmtDBase, &FileFrmtCSV, &FileFrmtAll},
                 {&FileFrmtAscii, &FileFrmtDBase},
                 "ImageFolders",
                 8},
        Labelled{"TiffData", &FileDlg::OpenTiffData, {&FileFrmtTiff}, {&FileFrmtTiff}, "ImageFolders", 77},
        Labelled{"XMLData", &FileDlg::OpenXMLData, {&FileFrmtXML}, {&FileFrmtXML}, "", 77},
        Labelled{
            "ArcSDEConnFile", &FileDlg::OpenArcSDEConnFile, {&FileFrmtConn}, {&FileFrmtConn}, "ThematicFolders", 77}),
    [](auto const& info) { return std::string(info.param.name); });

} // namespace

TEST_P(LabelledOpener, OffersItsFormatsUnderItsLabelAndStoresNothing)
{
    for (const int mode : {0, 1, 2})
    {
        for (const bool ok : {true, false})
        {
            ScriptedDlg dlg(CString("Mine"));
            dlg.m_ok = ok;
            dlg.m_nNodeType = 77;
            EXPECT_EQ((dlg.*GetParam().open)(mode, "Cells"), ok);
            EXPECT_EQ(dlg.Last().offer, mode == 0 ? GetParam().load : GetParam().save);
            EXPECT_EQ(dlg.Last().format, GetParam().load[0]);
            EXPECT_EQ(dlg.Last().index, 0);
            EXPECT_EQ(dlg.Last().category, GetParam().category);
            EXPECT_EQ(dlg.Last().nodeType, GetParam().nodeType);
            EXPECT_EQ(dlg.Last().caption, mode == 0 ? "Load Cells..." : mode == 1 ? "Save Cells..." : "Mine");
            EXPECT_EQ(dlg.Last().initFile, "");
            EXPECT_EQ(dlg.Last().mode, mode);
            EXPECT_THAT(Stored(), IsEmpty());
        }
    }
}

TEST_P(LabelledOpener, TakesAnEmptyLabelAndTheCaptionItselfForOne)
{
    ScriptedDlg dlg(CString("Mine"));
    EXPECT_TRUE((dlg.*GetParam().open)(0, ""));
    EXPECT_EQ(dlg.Last().caption, "Load ...");
    EXPECT_TRUE((dlg.*GetParam().open)(1, dlg.m_strCaption));
    EXPECT_EQ(dlg.Last().caption, "Save Load ......");
}

TEST_F(FilesOpener, TablesBeginWithTextWhateverWasChosenBeforeAndTheOthersKeepTheChoice)
{
    ScriptedDlg dlg;
    dlg.PickFormat(&FileFrmtCSV);
    EXPECT_TRUE(dlg.OpenTableData(0, "x"));
    EXPECT_EQ(dlg.Last().format, &FileFrmtAscii);
    DFileFrmt other("", "Other", "*.oth");
    ScriptedDlg tiff;
    tiff.PickFormat(&other);
    EXPECT_TRUE(tiff.OpenTiffData(0, "x"));
    EXPECT_EQ(tiff.Last().defExt, "*.oth");
}

// What is only saved

TEST_F(FilesOpener, ATableIsSavedAsCSVFirst)
{
    for (const bool ok : {true, false})
    {
        ScriptedDlg dlg(CString("Mine"));
        dlg.m_ok = ok;
        dlg.SetInitFile("C:\\a.unk");
        EXPECT_EQ(dlg.OpenSaveCSV("Save Contents..."), ok);
        EXPECT_EQ(dlg.Last().mode, 1);
        EXPECT_EQ(dlg.Last().filter, "Comma separated list files|*.csv|Ascii text files|*.txt|"
                                     "Comma separated list files (Transposed)|*.tcsv||");
        EXPECT_EQ(dlg.Last().index, 0);
        EXPECT_EQ(dlg.Last().defExt, "*.csv");
        EXPECT_EQ(dlg.Last().caption, "Save Contents...");
        EXPECT_EQ(dlg.Last().category, "ImageFolders");
        EXPECT_EQ(dlg.Last().initFile, "C:\\a.unk");
        EXPECT_THAT(Stored(), IsEmpty());
    }
    ScriptedDlg text;
    text.PickFormat(&FileFrmtAscii);
    EXPECT_TRUE(text.OpenSaveCSV("x"));
    EXPECT_EQ(text.Last().index, 1);
}

TEST_F(FilesOpener, AReportIsSavedAsHTML)
{
    for (const bool ok : {true, false})
    {
        ScriptedDlg dlg(CString("Mine"));
        dlg.m_ok = ok;
        EXPECT_EQ(dlg.OpenSaveHTML("Save Report..."), ok);
        EXPECT_EQ(dlg.Last().mode, 1);
        EXPECT_EQ(dlg.Last().filter, "HTML files|*.htm||");
        EXPECT_EQ(dlg.Last().caption, "Save Report...");
        EXPECT_EQ(dlg.Last().category, "");
        EXPECT_THAT(Stored(), IsEmpty());
    }
}

TEST_F(FilesOpener, ANullCaptionIsAnEmptyOne)
{
    ScriptedDlg dlg(CString("Mine"));
    EXPECT_TRUE(dlg.OpenSaveCSV(nullptr));
    EXPECT_EQ(dlg.Last().caption, "");
    EXPECT_TRUE(dlg.OpenSaveHTML(nullptr));
    EXPECT_EQ(dlg.Last().caption, "");
}
