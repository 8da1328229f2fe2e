// FileDlgTest.cpp - what a question for files offers, and what it answers
#include "support/ScriptedDrvr.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"
#include "tavkit/filedlg/FormatCatalogue.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::StrEq;

/// Reaches what is meant for derived classes.
class Question : public FileDlg
{
public:
    using FileDlg::AddDscr;
    using FileDlg::AddIOPluginFilters;
    using FileDlg::BuildFilter;
    using FileDlg::FileDlg;
    using FileDlg::FinishFilter;
    using FileDlg::GetFormat;
    using FileDlg::GetFormatByName;
    using FileDlg::InitFilter;
    using FileDlg::m_bChckEditOnly;
    using FileDlg::m_bChckReadOnly;
    using FileDlg::m_bMultiple;
    using FileDlg::m_bNoChangeDir;
    using FileDlg::m_bOverwritePrompt;
    using FileDlg::m_lstPluginFrmts;
    using FileDlg::m_nDataType;
    using FileDlg::m_nDlgTmplId;
    using FileDlg::m_nNodeType;
    using FileDlg::m_pFrmt;
    using FileDlg::m_strCaption;
    using FileDlg::m_strInitFile;
    using FileDlg::m_strInitFrmtId;
    using FileDlg::m_strOptions;
    using FileDlg::m_vecDscr;
    using FileDlg::m_vecFiles;
    using FileDlg::RmvDscr;
    using FileDlg::SetFormat;

    [[nodiscard]] std::vector<std::string> Offer() const
    {
        std::vector<std::string> names;
        for (DFileFrmt const* format : m_vecDscr)
        {
            names.emplace_back(format->m_strName.c_str());
        }
        return names;
    }
    [[nodiscard]] std::vector<std::string> Files() const
    {
        std::vector<std::string> texts;
        for (BDIMoniker const* moniker : m_vecFiles)
        {
            texts.emplace_back(moniker->GetMoniker().c_str());
        }
        return texts;
    }
    void Add(char const* file) { m_vecFiles.Append(new BDIMoniker(file, nullptr)); }
};

class Warnings : public Report::Receiver
{
public:
    void OnReport(Report::Kind kind, char const* text) override
    {
        EXPECT_EQ(kind, Report::Kind::Warning);
        m_texts.emplace_back(text);
    }
    std::vector<std::string> m_texts;
};

/// Hands out formats that a test made, and notes what it was asked.
class TestMngr : public DIOPluginMngr
{
public:
    void BuildFrmtList(DList<DFileFrmt*>* list, int mode, unsigned int dataType, ICheck<DString>* check) override
    {
        m_mode = mode;
        m_dataType = dataType;
        m_check = check;
        for (auto const& [name, pattern] : m_formats)
        {
            list->AddTail(new DFileFrmt(name, name, pattern));
            m_last = list->m_pTail->m_val;
        }
    }
    std::vector<std::pair<char const*, char const*>> m_formats;
    DFileFrmt* m_last = nullptr;
    int m_mode = -1;
    unsigned int m_dataType = 0;
    ICheck<DString>* m_check = nullptr;
};

class AnyFormat : public ICheck<DString>
{
public:
    bool Check(DString const&) override { return true; }
};

class FileDialog : public support::WindowTest
{
protected:
    void TearDown() override
    {
        Wksp::Close();
        WindowTest::TearDown();
    }

    /// Opens a workspace with one custom import.
    static void OpenWith(char const* name, char const* pattern, char const* id, char const* driver = nullptr)
    {
        CustImport::Dfntn definition;
        definition.m_strName = name;
        definition.m_strFrmtId = id;
        definition.m_vecParam.Append(pattern);
        if (driver)
        {
            for (char const* each : {driver, "second"})
            {
                ImportImgLayerData layer;
                layer.m_strDrvrId = each;
                definition.m_vecLayer.Append(layer);
            }
        }
        auto schema = std::make_unique<DataSchm>();
        schema->AddCustImport(definition);
        Wksp::Open(std::move(schema));
    }

    Warnings m_warnings;
    Report::ReceiverScope m_scope{m_warnings};
    Question m_dlg;
};

} // namespace

TEST_F(FileDialog, BeginsWithItsDefaults)
{
    EXPECT_TRUE(m_dlg.m_strInitFile == "");
    EXPECT_TRUE(m_dlg.m_strInitFrmtId == "");
    EXPECT_THAT(m_dlg.m_strCaption, StrEq(""));
    EXPECT_TRUE(m_dlg.m_strOptions == "");
    EXPECT_THAT(m_dlg.GetFormat(), IsNull());
    EXPECT_FALSE(m_dlg.m_bMultiple);
    EXPECT_FALSE(m_dlg.m_bNoChangeDir);
    EXPECT_EQ(m_dlg.m_nDataType, 0xFFFFFFFFu);
    EXPECT_EQ(m_dlg.m_nNodeType, 0);
    EXPECT_TRUE(m_dlg.m_bOverwritePrompt);
    EXPECT_EQ(m_dlg.m_nDlgTmplId, 0);
    EXPECT_FALSE(m_dlg.GetChckReadOnly());
    EXPECT_FALSE(m_dlg.GetChckEditOnly());
    EXPECT_EQ(m_dlg.GetNumSlctFiles(), 0);
    EXPECT_THAT(m_dlg.Offer(), IsEmpty());
    EXPECT_THAT(Question(CString("Which?")).m_strCaption, StrEq("Which?"));
}

TEST_F(FileDialog, TakesItsOptions)
{
    m_dlg.SetCaption("Caption");
    m_dlg.SetDataType(6);
    m_dlg.SetMultipleFiles();
    m_dlg.SetNoChangeDir();
    m_dlg.ShowOverwritePrompt(false);
    m_dlg.SetDlgTmplId(6103);
    DString options("a=1");
    m_dlg.SetOptions(options);
    m_dlg.SetInitFile("C:\\a.tif");
    m_dlg.SetInitFrmtId("TIF");
    static_cast<FileDlg&>(m_dlg).SetFormat(&tavkit::FileFrmtXML);
    EXPECT_THAT(m_dlg.m_strCaption, StrEq("Caption"));
    EXPECT_EQ(m_dlg.m_nDataType, 6u);
    EXPECT_TRUE(m_dlg.m_bMultiple);
    EXPECT_TRUE(m_dlg.m_bNoChangeDir);
    EXPECT_FALSE(m_dlg.m_bOverwritePrompt);
    EXPECT_EQ(m_dlg.m_nDlgTmplId, 6103);
    EXPECT_TRUE(m_dlg.m_strOptions == "a=1");
    EXPECT_TRUE(m_dlg.m_strInitFile == "C:\\a.tif");
    EXPECT_TRUE(m_dlg.m_strInitFrmtId == "TIF");
    EXPECT_EQ(static_cast<FileDlg const&>(m_dlg).GetFormat(), &tavkit::FileFrmtXML);
    m_dlg.SetInitFile(nullptr);
    m_dlg.SetInitFrmtId(nullptr);
    m_dlg.SetCaption(nullptr);
    EXPECT_TRUE(m_dlg.m_strInitFile == "");
    EXPECT_TRUE(m_dlg.m_strInitFrmtId == "");
    EXPECT_THAT(m_dlg.m_strCaption, StrEq(""));
    m_dlg.m_bChckReadOnly = true;
    m_dlg.m_bChckEditOnly = true;
    EXPECT_TRUE(m_dlg.GetChckReadOnly());
    EXPECT_TRUE(m_dlg.GetChckEditOnly());
}

TEST_F(FileDialog, TheWorkbenchsOwnFormatsAreNullUntilTheHostSetsThem)
{
    for (DFileFrmt* const* format :
         {&FileDlg::pFrmt_workspace, &FileDlg::pFrmt_dm_dbfile, &FileDlg::pFrmt_prjct, &FileDlg::pFrmt_clss_hrchy,
          &FileDlg::pFrmt_clss_hrchy_user, &FileDlg::pFrmt_prtcl, &FileDlg::pFrmt_user_prop, &FileDlg::pFrmt_proc,
          &FileDlg::pFrmt_wzrd, &FileDlg::pFrmt_paramset, &FileDlg::pFrmt_anly, &FileDlg::pFrmt_jobsqnce,
          &FileDlg::pFrmt_platelayout, &FileDlg::pFrmt_TMAlayout, &FileDlg::pFrmt_TMAmatch,
          &FileDlg::pFrmt_dosedilutionsec, &FileDlg::pFrmt_actnlib, &FileDlg::pFrmt_snpts, &FileDlg::pFrmt_textsttng})
    {
        EXPECT_THAT(*format, IsNull());
    }
}

TEST_F(FileDialog, ACopyOfAFreshQuestionHasItsOptions)
{
    m_dlg.SetCaption("Caption");
    m_dlg.AddDscr(&tavkit::FileFrmtCSV, false);
    const Question copy(m_dlg);
    EXPECT_THAT(copy.m_strCaption, StrEq("Caption"));
    EXPECT_THAT(copy.Offer(), ElementsAre("Comma separated list files"));
    Question assigned;
    assigned = m_dlg;
    EXPECT_THAT(assigned.Offer(), ElementsAre("Comma separated list files"));
}

TEST_F(FileDialog, FormatsAreAddedAtTheEndOrSortedAndRemovedByPointer)
{
    DFileFrmt a("", "Aha", "*.a");
    m_dlg.AddDscr(&tavkit::FileFrmtAll, false);
    m_dlg.AddDscr(&tavkit::FileFrmtAscii, false);
    m_dlg.AddDscr(&a, true);
    EXPECT_THAT(m_dlg.Offer(), ElementsAre("Aha", "All Files", "Ascii text files"));
    m_dlg.RmvDscr(&tavkit::FileFrmtAll);
    m_dlg.RmvDscr(&tavkit::FileFrmtAll);
    EXPECT_THAT(m_dlg.Offer(), ElementsAre("Aha", "Ascii text files"));
}

TEST_F(FileDialog, LookingForAFormatInAnEmptyOfferWarns)
{
    EXPECT_THAT(m_dlg.GetFormatByName("x"), IsNull());
    EXPECT_THAT(m_dlg.GetFormat("x"), IsNull());
    EXPECT_THAT(m_warnings.m_texts, ElementsAre("FileDlg::ShowFileDlg: no file types available",
                                                "FileDlg::ShowFileDlg: no file types available"));
    m_warnings.m_texts.clear();
    m_dlg.AddDscr(&tavkit::FileFrmtCSV, false);
    EXPECT_THAT(m_dlg.GetFormatByName("x"), IsNull());
    EXPECT_THAT(m_dlg.GetFormat("x"), IsNull());
    EXPECT_EQ(m_dlg.GetFormatByName("Comma separated list files"), &tavkit::FileFrmtCSV);
    EXPECT_EQ(m_dlg.GetFormat("CSV"), &tavkit::FileFrmtCSV);
    EXPECT_THAT(m_warnings.m_texts, IsEmpty());
}

TEST_F(FileDialog, AReadyMadeOfferChoosesItsFirstFormat)
{
    struct Case
    {
        FileDlg::EFormat format;
        int mode;
        DFileFrmt* chosen;
        std::vector<DFileFrmt*> offer;
    };
    using namespace tavkit;
    const Case cases[] = {
        {FileDlg::frmtAscii, 0, &FileFrmtAscii, {&FileFrmtAscii, &FileFrmtDBase, &FileFrmtCSV, &FileFrmtAll}},
        {FileDlg::frmtAscii, 1, &FileFrmtAscii, {&FileFrmtAscii, &FileFrmtDBase}},
        {FileDlg::frmtAscii, 2, &FileFrmtAscii, {&FileFrmtAscii, &FileFrmtDBase}},
        {FileDlg::frmtCSV, 0, &FileFrmtCSV, {&FileFrmtCSV, &FileFrmtTCSV}},
        {FileDlg::frmtCSV, 1, &FileFrmtCSV, {&FileFrmtCSV, &FileFrmtTCSV, &FileFrmtAscii}},
        {FileDlg::frmtShape, 0, &FileFrmtShape, {&FileFrmtShape}},
        {FileDlg::frmtHTML, 1, &FileFrmtHTML, {&FileFrmtHTML}},
        {FileDlg::frmtSnippet, 0, &FileFrmtSnippet, {&FileFrmtSnippet}},
        {static_cast<FileDlg::EFormat>(5), 0, nullptr, {}},
    };
    for (Case const& each : cases)
    {
        Question dlg;
        dlg.SetFormat(each.format, each.mode);
        EXPECT_EQ(static_cast<FileDlg const&>(dlg).GetFormat(), each.chosen) << each.format << each.mode;
        EXPECT_EQ(std::vector<DFileFrmt*>(dlg.m_vecDscr.begin(), dlg.m_vecDscr.end()), each.offer)
            << each.format << each.mode;
    }
}

TEST_F(FileDialog, PluginsAreAskedWithTheQuestionsDataType)
{
    TestMngr mngr;
    AnyFormat check;
    m_dlg.SetDataType(12);
    m_dlg.AddIOPluginFilters(&mngr, 1, &check);
    EXPECT_EQ(mngr.m_mode, 1);
    EXPECT_EQ(mngr.m_dataType, 12u);
    EXPECT_EQ(mngr.m_check, &check);
}

TEST_F(FileDialog, WhatPluginsOfferIsSortedAndOwned)
{
    TestMngr mngr;
    mngr.m_formats = {{"png", "*.png"}, {"Aha", "*.a"}, {"bmp", "*.bmp"}};
    m_dlg.AddDscr(&tavkit::FileFrmtAll, false);
    m_dlg.AddIOPluginFilters(&mngr, 0, nullptr);
    EXPECT_THAT(m_dlg.Offer(), ElementsAre("Aha", "All Files", "bmp", "png"));
    EXPECT_EQ(m_dlg.m_lstPluginFrmts.GetCount(), 3);
}

TEST_F(FileDialog, AMarkedFormatIsOfferedForLoadingOnlyAndNeverStaysInTheList)
{
    for (const int mode : {0, 1, 2})
    {
        TestMngr mngr;
        mngr.m_formats = {{"png", "*.png"}, {"Any", "RSTR_FRMT"}};
        Question dlg;
        dlg.AddDscr(&tavkit::FileFrmtHTML, false);
        dlg.AddIOPluginFilters(&mngr, mode, nullptr);
        const std::unique_ptr<DFileFrmt> marked(mngr.m_last); // nobody else deletes it
        EXPECT_EQ(dlg.Offer(), mode == 0 ? std::vector<std::string>({"HTML files", "Any", "png"})
                                         : std::vector<std::string>({"HTML files", "png"}));
        EXPECT_EQ(dlg.m_lstPluginFrmts.GetCount(), 1);
    }
}

TEST_F(FileDialog, WithoutAManagerTheCustomImportsOfTheWorkspaceAreOffered)
{
    m_dlg.AddIOPluginFilters(nullptr, 0, nullptr);
    EXPECT_THAT(m_dlg.Offer(), IsEmpty()) << "no workspace is open";
    Wksp::Open(nullptr);
    m_dlg.AddIOPluginFilters(nullptr, 0, nullptr);
    EXPECT_THAT(m_dlg.Offer(), IsEmpty()) << "it has no schema";
    for (auto const& [pattern, expected] : {std::pair{"*_d0.tif*", "*.tif"}, std::pair{"slide.*", "*.*"}})
    {
        OpenWith("Slides", pattern, "SLD");
        Question dlg;
        dlg.AddIOPluginFilters(nullptr, 0, nullptr);
        ASSERT_THAT(dlg.Offer(), ElementsAre("Slides"));
        EXPECT_THAT(dlg.m_vecDscr[0]->m_strId.c_str(), StrEq("SLD"));
        EXPECT_THAT(dlg.m_vecDscr[0]->m_strPattern.c_str(), StrEq(expected));
    }
}

TEST_F(FileDialog, TheRasterDriverIsThatOfTheImportsFirstLayerOrTheFormatsOwn)
{
    DFileFrmt format("FMT", "Slides", "*.tif");
    EXPECT_THAT(m_dlg.GetImgDrvrID().c_str(), StrEq(""));
    static_cast<FileDlg&>(m_dlg).SetFormat(&format);
    EXPECT_THAT(m_dlg.GetImgDrvrID().c_str(), StrEq("FMT"));
    OpenWith("Slides", "*.tif", "SLD");
    EXPECT_THAT(m_dlg.GetImgDrvrID().c_str(), StrEq("FMT")) << "the import has no layers";
    OpenWith("Slides", "*.tif", "SLD", "TIFF");
    EXPECT_THAT(m_dlg.GetImgDrvrID().c_str(), StrEq("TIFF"));
    OpenWith("slides", "*.tif", "SLD", "TIFF");
    EXPECT_THAT(m_dlg.GetImgDrvrID().c_str(), StrEq("FMT")) << "names are exact";
}

TEST_F(FileDialog, TheFilterTextIsBuiltInABufferOfAllQuestions)
{
    m_dlg.AddDscr(&tavkit::FileFrmtCSV, false);
    EXPECT_THAT(m_dlg.BuildFilter(), StrEq("Comma separated list files|*.csv||"));
    char buffer[64] = "left over";
    m_dlg.InitFilter(buffer);
    m_dlg.FinishFilter(buffer);
    EXPECT_THAT(buffer, StrEq("|"));
    Question other;
    EXPECT_THAT(other.BuildFilter(), StrEq("|"));
    EXPECT_EQ(other.BuildFilter(), m_dlg.BuildFilter());
    EXPECT_THAT(m_warnings.m_texts, IsEmpty());
}

TEST_F(FileDialog, AnOfferThatPassesTheBufferIsCutAtAWholeFormatWithOneWarning)
{
    constexpr int kFormats = 100;
    const std::string name(95, 'n');
    const DFileFrmt each("", name.c_str(), "*.x");
    const std::string text = name + "|*.x|"; // 100 characters
    std::vector<DFileFrmt> formats(kFormats, each);
    for (DFileFrmt& format : formats)
    {
        m_dlg.AddDscr(&format, false);
    }
    const std::string filter = m_dlg.BuildFilter();
    EXPECT_EQ(filter.size(), 81 * text.size() + 1) << "81 formats and the bar; 82 don't go into 8192 bytes";
    EXPECT_EQ(filter.substr(80 * text.size()), text + "|");
    EXPECT_THAT(m_warnings.m_texts,
                ElementsAre("FileDlg::ShowFileDlg: too many file types, the last 19 are not offered"));
    EXPECT_EQ(m_dlg.Offer().size(), std::size_t{kFormats}) << "the offer itself stays";
}

TEST_F(FileDialog, AFormatThatIsLargerThanTheBufferDoesNoHarm)
{
    const DFileFrmt huge("", std::string(20000, 'n').c_str(), "*.x");
    DFileFrmt format(huge);
    m_dlg.AddDscr(&tavkit::FileFrmtCSV, false);
    m_dlg.AddDscr(&format, false);
    EXPECT_THAT(m_dlg.BuildFilter(), StrEq("Comma separated list files|*.csv||"));
    EXPECT_THAT(m_warnings.m_texts, testing::SizeIs(1));
}

TEST_F(FileDialog, TheResultIsSortedByDisplayNameByteByByte)
{
    m_dlg.SortData();
    for (char const* file : {"z\\b", "y\\B", "x\\a", "w\\b", "v\\\xE4"})
    {
        m_dlg.Add(file);
    }
    m_dlg.SortData();
    EXPECT_THAT(m_dlg.Files(), ElementsAre("y\\B", "x\\a", "z\\b", "w\\b", "v\\\xE4"));
}

TEST_F(FileDialog, MonikersAreReadAndHandedOver)
{
    EXPECT_THAT(m_dlg.GetPhysFile(), StrEq("."));
    m_dlg.Add("C:\\a.tif?page=1");
    m_dlg.Add("b");
    m_dlg.Add("c");
    EXPECT_EQ(m_dlg.GetNumSlctFiles(), 3);
    EXPECT_THAT(m_dlg.GetPhysFile(), StrEq("C:\\a.tif?page=1"));
    EXPECT_THAT(m_dlg.GetFile(1)->GetMoniker().c_str(), StrEq("b"));
    const std::unique_ptr<BDIMoniker> middle(m_dlg.GetFileRmv(1));
    EXPECT_THAT(middle->GetMoniker().c_str(), StrEq("b"));
    EXPECT_THAT(m_dlg.Files(), ElementsAre("C:\\a.tif?page=1", "c"));
    const std::unique_ptr<BDIMoniker> last(m_dlg.GetFileRmv(1));
    EXPECT_THAT(last->GetMoniker().c_str(), StrEq("c"));
    EXPECT_THAT(m_dlg.Files(), ElementsAre("C:\\a.tif?page=1"));
    const std::unique_ptr<BDIMoniker> first(m_dlg.GetFileRmv(0));
    EXPECT_EQ(m_dlg.GetNumSlctFiles(), 0);
    EXPECT_THAT(m_dlg.GetPhysFile(), StrEq("."));
}

TEST_F(FileDialog, WhatIsLeftOfTheResultGoesWithTheQuestion)
{
    support::ScriptedDrvr driver({{"a.x", {bdiRaster, {}, "", ""}}});
    {
        Question dlg;
        dlg.m_vecFiles.Append(new BDIMoniker("a.x", &driver));
        ASSERT_NE(dlg.GetFile(0)->GetNode(), nullptr);
        EXPECT_EQ(driver.m_live.nodes, 1);
    }
    EXPECT_EQ(driver.m_live, support::ScriptedDrvr::Live{});
}
