// OpenersTest.cpp - the questions for the workbench's own data
#include "OpenerFixture.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::Pair;
using testing::SizeIs;

enum class Rule
{
    Always,
    LoadAndSave,
    IfEmpty
};

/// What is told of an opener of the common kind.
struct Opener
{
    char const* name;
    bool (FileDlg::*open)(int);
    DFileFrmt** format;
    char const* folderKey; ///< null: none
    char const* category;
    char const* load;
    char const* save;
    Rule rule;

    /// The caption of a dialog that had @p before.
    [[nodiscard]] std::string Caption(int mode, std::string const& before) const
    {
        switch (rule)
        {
        case Rule::Always:
            return mode == 0 ? load : save;
        case Rule::IfEmpty:
            if (!before.empty())
            {
                return before;
            }
            [[fallthrough]];
        case Rule::LoadAndSave:
            break;
        }
        return mode == 0 ? load : mode == 1 ? save : before;
    }
};

const Opener kOpeners[] = {
    {"AnlySltn", &FileDlg::OpenAnlySltn, &FileDlg::pFrmt_anly, "AnlySltnDir", "SolutionFolders",
     "Load Analysis Solution...", "Save Analysis Solution...", Rule::Always},
    {"DMDatabase", &FileDlg::OpenDMDatabase, &FileDlg::pFrmt_dm_dbfile, "DMDatabase", "WorkspaceFolders",
     "Open DM Database...", "Save DM Database as...", Rule::IfEmpty},
    {"Workspace", &FileDlg::OpenWorkspace, &FileDlg::pFrmt_workspace, "Workspace", "WorkspaceFolders",
     "Open Workspace...", "Save Workspace as...", Rule::IfEmpty},
    {"TMAMatch", &FileDlg::OpenTMAMatch, &FileDlg::pFrmt_TMAmatch, "TMAMatching", "WorkspaceFolders",
     "Open TMA matching...", "Save TMA matching...", Rule::IfEmpty},
    {"TMAGridLayt", &FileDlg::OpenTMAGridLayt, &FileDlg::pFrmt_TMAlayout, "TMAGridLayouts", "WorkspaceFolders",
     "Open TMA Grid Layouts...", "Save TMA Grid Layouts...", Rule::IfEmpty},
    {"PltLayt", &FileDlg::OpenPltLayt, &FileDlg::pFrmt_platelayout, "PlateLayout", "WorkspaceFolders",
     "Open Plate Layout...", "Save Plate Layout...", Rule::IfEmpty},
    {"TextSttng", &FileDlg::OpenTextSttng, &FileDlg::pFrmt_textsttng, "TextRenderSettings", "WorkspaceFolders",
     "Open Text Rendering Settings...", "Save Text Rendering Settings...", Rule::IfEmpty},
    {"DoseDilutionSec", &FileDlg::OpenDoseDilutionSec, &FileDlg::pFrmt_dosedilutionsec, "DoseDilutionSequence",
     "WorkspaceFolders", "Open Dilution Sequence...", "Save Dilution Sequence...", Rule::IfEmpty},
    {"Prjct", &FileDlg::OpenPrjct, &FileDlg::pFrmt_prjct, "Project", "ProjectFolders", "Open Project...",
     "Save Project as...", Rule::IfEmpty},
    {"ClssHrchy", &FileDlg::OpenClssHrchy, &FileDlg::pFrmt_clss_hrchy, "RuleBase", "RulesetFolders",
     "Load Class Hierarchy...", "Save Class Hierarchy...", Rule::LoadAndSave},
    {"ClssHrchyUser", &FileDlg::OpenClssHrchyUser, &FileDlg::pFrmt_clss_hrchy_user, "RuleBase", "RulesetFolders",
     "Load Class Hierarchy...", "Save Class Hierarchy...", Rule::LoadAndSave},
    {"Process", &FileDlg::OpenProcess, &FileDlg::pFrmt_proc, "Process", "RulesetFolders", "Load Process...",
     "Save Process...", Rule::LoadAndSave},
    {"JobSqnce", &FileDlg::OpenJobSqnce, &FileDlg::pFrmt_jobsqnce, "Job_Sequence", "RulesetFolders",
     "Load Job Sequence...", "Save Job Sequence...", Rule::LoadAndSave},
    {"Prtcl", &FileDlg::OpenPrtcl, &FileDlg::pFrmt_prtcl, nullptr, "RulesetFolders", "Load Protocol...",
     "Save Protocol...", Rule::LoadAndSave},
    {"UserProps", &FileDlg::OpenUserProps, &FileDlg::pFrmt_user_prop, nullptr, "RulesetFolders",
     "Load Customized Features...", "Save Customized Features...", Rule::LoadAndSave},
};

/// The openers of the common kind, one after the other.
class OwnDataOpener : public OpenerTest, public testing::WithParamInterface<Opener>
{
protected:
    void SetUp() override
    {
        OpenerTest::SetUp();
        *GetParam().format = &m_format;
    }
    [[nodiscard]] bool Open(ScriptedDlg& dlg, int mode) const { return (dlg.*GetParam().open)(mode); }

    DFileFrmt m_format{"OWN", "Own files", "*.own"};
};

INSTANTIATE_TEST_SUITE_P(All, OwnDataOpener, testing::ValuesIn(kOpeners),
                         [](auto const& info) { return std::string(info.param.name); });

class OwnData : public OpenerTest
{
protected:
    DFileFrmt m_format{"OWN", "Own files", "*.own"};
};

} // namespace

TEST_P(OwnDataOpener, OffersItsFormatAloneInItsCategory)
{
    for (const int mode : {0, 1, 2})
    {
        ScriptedDlg dlg;
        EXPECT_TRUE(Open(dlg, mode));
        ASSERT_THAT(dlg.m_asked, SizeIs(1));
        EXPECT_EQ(dlg.Last().mode, mode);
        EXPECT_EQ(dlg.Last().filter, "Own files|*.own||");
        EXPECT_EQ(dlg.Last().index, 0);
        EXPECT_EQ(dlg.Last().defExt, "*.own");
        EXPECT_EQ(dlg.Last().category, GetParam().category);
        EXPECT_EQ(dlg.Last().nodeType, 0);
        EXPECT_EQ(dlg.Chosen(), &m_format);
        EXPECT_EQ(dlg.GetNumSlctFiles(), 1);
    }
}

TEST_P(OwnDataOpener, CallsTheDialogByItsRule)
{
    for (const int mode : {0, 1, 2, -1})
    {
        for (char const* before : {"", "Mine"})
        {
            ScriptedDlg dlg{CString(before)};
            EXPECT_TRUE(Open(dlg, mode));
            EXPECT_EQ(dlg.Last().caption, GetParam().Caption(mode, before)) << mode;
        }
    }
}

TEST_P(OwnDataOpener, BeginsInTheStoredFolderUnlessAFileIsSet)
{
    Store("Other", "C:\\other");
    if (GetParam().folderKey)
    {
        Store(GetParam().folderKey, "C:\\stored\\");
    }
    for (const int mode : {0, 1, 2})
    {
        ScriptedDlg dlg;
        dlg.m_ok = false;
        EXPECT_FALSE(Open(dlg, mode));
        EXPECT_EQ(dlg.Last().initFile, GetParam().folderKey ? "C:\\stored\\" : "");
        dlg.SetInitFile("D:\\mine\\a.own");
        EXPECT_FALSE(Open(dlg, mode));
        EXPECT_EQ(dlg.Last().initFile, "D:\\mine\\a.own");
    }
}

TEST_P(OwnDataOpener, WithNothingStoredBeginsWithADot)
{
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(Open(dlg, 0));
    EXPECT_EQ(dlg.Last().initFile, GetParam().folderKey ? "." : "");
}

TEST_P(OwnDataOpener, StoresTheFolderOfTheFirstResultAfterOK)
{
    ScriptedDlg dlg;
    dlg.m_picked = {"D:\\last\\b.own?x=1", "C:\\first\\a.own?y=2"};
    EXPECT_TRUE(Open(dlg, 1));
    EXPECT_STREQ(dlg.GetPhysFile(), "C:\\first\\a.own?y=2") << "sorted by name";
    const Settings expected = GetParam().folderKey ? Settings{{GetParam().folderKey, "C:\\first\\"}} : Settings{};
    EXPECT_EQ(Stored(), expected);
}

TEST_P(OwnDataOpener, StoresNothingAfterCancel)
{
    if (GetParam().folderKey)
    {
        Store(GetParam().folderKey, "C:\\stored");
    }
    const Settings before = Stored();
    ScriptedDlg dlg;
    dlg.m_vecFiles.Append(new BDIMoniker("C:\\of the question before", nullptr));
    dlg.m_ok = false;
    EXPECT_FALSE(Open(dlg, 0));
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(dlg.GetNumSlctFiles(), 0);
}

TEST_P(OwnDataOpener, WithoutItsFormatAnswersFalseAndShowsNothing)
{
    *GetParam().format = nullptr;
    for (const int mode : {0, 1, 2})
    {
        ScriptedDlg dlg(CString("Mine"));
        dlg.SetInitFile("a");
        dlg.SetDlgTmplId(7);
        dlg.AddDscr(&tavkit::FileFrmtAll, false);
        EXPECT_FALSE(Open(dlg, mode));
        EXPECT_THAT(dlg.m_asked, IsEmpty());
        EXPECT_STREQ(dlg.m_strCaption, "Mine");
        EXPECT_EQ(dlg.m_nDlgTmplId, 7);
        EXPECT_EQ(dlg.m_vecDscr.GetCount(), 1);
    }
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_P(OwnDataOpener, AnAnswerWithoutFilesStoresNothing)
{
    ScriptedDlg dlg;
    dlg.m_picked.clear();
    EXPECT_TRUE(Open(dlg, 0));
    EXPECT_EQ(dlg.GetNumSlctFiles(), 0);
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(OwnData, AFileWithoutAFolderStoresNothing)
{
    FileDlg::pFrmt_prjct = &m_format;
    for (char const* file : {"a.own", ".", ""})
    {
        ScriptedDlg dlg;
        dlg.m_picked = {file};
        EXPECT_TRUE(dlg.OpenPrjct(0));
        EXPECT_THAT(Stored(), IsEmpty()) << file;
    }
}

TEST_F(OwnData, AWorkspaceIsLoadedWithTheProjectEditPanelAndSavedWithWhateverWasSet)
{
    FileDlg::pFrmt_workspace = &m_format;
    for (const int before : {0, 6102, 7})
    {
        for (const int mode : {0, 1, 2})
        {
            ScriptedDlg dlg;
            dlg.SetDlgTmplId(before);
            EXPECT_TRUE(dlg.OpenWorkspace(mode));
            EXPECT_EQ(dlg.Last().tmplId, mode == 0 ? 6103 : before);
        }
    }
}

TEST_F(OwnData, FormatsOfTheQuestionBeforeStayOnOffer)
{
    DFileFrmt other("OTHER", "Other files", "*.oth");
    FileDlg::pFrmt_prjct = &m_format;
    FileDlg::pFrmt_proc = &other;
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenProcess(0));
    EXPECT_TRUE(dlg.OpenPrjct(0));
    EXPECT_EQ(dlg.Last().filter, "Other files|*.oth|Own files|*.own||");
    EXPECT_EQ(dlg.Last().index, 0) << "the format chosen before is preselected";
    EXPECT_EQ(dlg.Last().caption, "Load Process...") << "a caption that is there stays";
}

TEST_F(OwnData, AParameterSetIsCalledAsToldOrByItsMode)
{
    FileDlg::pFrmt_paramset = &m_format;
    for (const int mode : {0, 1, 2})
    {
        for (char const* before : {"", "Mine"})
        {
            ScriptedDlg dlg{CString(before)};
            EXPECT_TRUE(dlg.OpenParamSet(mode, nullptr));
            EXPECT_EQ(dlg.Last().caption, mode == 0 ? "Load Parameter Set..." : "Save Parameter Set...");
            EXPECT_EQ(dlg.Last().mode, mode);
            EXPECT_EQ(dlg.Last().filter, "Own files|*.own||");
            EXPECT_EQ(dlg.Last().category, "RulesetFolders");
            EXPECT_TRUE(dlg.OpenParamSet(mode, "Told"));
            EXPECT_EQ(dlg.Last().caption, "Told");
            EXPECT_TRUE(dlg.OpenParamSet(mode, ""));
            EXPECT_EQ(dlg.Last().caption, "");
        }
    }
}

TEST_F(OwnData, AParameterSetWithoutAFolderIsLookedForInTheStoredOne)
{
    FileDlg::pFrmt_paramset = &m_format;
    struct Case
    {
        char const* stored;
        char const* file;
        char const* begin;
    };
    for (Case const& each :
         {Case{"C:\\sets", "a.own", "C:\\sets\\a.own"}, Case{"C:\\sets\\", "", "C:\\sets\\"},
          Case{"C:\\sets", "a.own?x=1", "C:\\sets\\a.own?x=1"}, Case{"C:\\sets", "D:\\b\\a.own", "D:\\b\\a.own"},
          Case{"C:\\sets", ".\\a", ".\\a"}, Case{nullptr, "a.own", "a.own"}, Case{nullptr, "", ""}})
    {
        Store("ParamSetDir", each.stored ? each.stored : "gone");
        if (!each.stored)
        {
            Store("ParamSetDir", nullptr);
        }
        ScriptedDlg dlg;
        dlg.SetInitFile(each.file);
        EXPECT_TRUE(dlg.OpenParamSet(0, nullptr));
        EXPECT_EQ(dlg.Last().initFile, each.begin);
    }
}

TEST_F(OwnData, AParameterSetStoresItsFolderAfterOKAlone)
{
    ScriptedDlg without;
    EXPECT_FALSE(without.OpenParamSet(0, "x"));
    EXPECT_THAT(without.m_asked, IsEmpty());
    FileDlg::pFrmt_paramset = &m_format;
    ScriptedDlg cancelled;
    cancelled.m_ok = false;
    EXPECT_FALSE(cancelled.OpenParamSet(1, nullptr));
    EXPECT_THAT(Stored(), IsEmpty());
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenParamSet(1, nullptr));
    EXPECT_THAT(Stored(), ElementsAre(Pair("ParamSetDir", "C:\\picked\\")));
}

TEST_F(OwnData, AWizardIsLoadedFromTheFolderUsedLastOrTheDefaultOne)
{
    FileDlg::pFrmt_wzrd = &m_format;
    struct Case
    {
        char const* current;
        char const* dflt;
        char const* set;
        char const* begin;
    };
    for (Case const& each : {Case{nullptr, nullptr, "", "."}, Case{nullptr, "C:\\dflt", "", "C:\\dflt"},
                             Case{".", "C:\\dflt", "", "C:\\dflt"}, Case{"C:\\crnt", "C:\\dflt", "", "C:\\crnt"},
                             Case{"C:\\crnt", "C:\\dflt", "D:\\a.own", "D:\\a.own"}})
    {
        AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr);
        for (auto const& [key, value] : {std::pair("WizardCurrentDir", each.current), {"WizardDefaultDir", each.dflt}})
        {
            if (value)
            {
                Store(key, value);
            }
        }
        Settings expected = Stored();
        ScriptedDlg cancelled;
        cancelled.m_ok = false;
        cancelled.SetInitFile(each.set);
        EXPECT_FALSE(cancelled.OpenWzrd());
        EXPECT_EQ(Stored(), expected);
        ScriptedDlg dlg(CString("Mine"));
        dlg.SetInitFile(each.set);
        EXPECT_TRUE(dlg.OpenWzrd());
        EXPECT_EQ(dlg.Last().initFile, each.begin);
        EXPECT_EQ(dlg.Last().mode, 0);
        EXPECT_EQ(dlg.Last().caption, "Load Wizard Definition ...");
        EXPECT_EQ(dlg.Last().category, "RulesetFolders");
        EXPECT_EQ(dlg.Last().filter, "Own files|*.own||");
        expected["WizardCurrentDir"] = "C:\\picked\\";
        EXPECT_EQ(Stored(), expected) << "the default folder is only read";
    }
    FileDlg::pFrmt_wzrd = nullptr;
    ScriptedDlg without;
    EXPECT_FALSE(without.OpenWzrd());
    EXPECT_THAT(without.m_asked, IsEmpty());
}

namespace
{

/// Rule sets of all kinds.
class AllRuleSets : public OpenerTest
{
protected:
    void SetUp() override
    {
        OpenerTest::SetUp();
        FileDlg::pFrmt_proc = &m_proc;
        FileDlg::pFrmt_prtcl = &m_prtcl;
        FileDlg::pFrmt_anly = &m_anly;
        FileDlg::pFrmt_jobsqnce = &m_job;
    }

    DFileFrmt m_proc{"DCP", "Processes", "*.dcp"};
    DFileFrmt m_prtcl{"DPT", "Protocols", "*.dpt;*.dpx"};
    DFileFrmt m_anly{"DAX", "Solutions", "*.*"};
    DFileFrmt m_job{"JSQ", "Job sequences", "*.jsq"};
};

} // namespace

TEST_F(AllRuleSets, AreOfferedTogetherAheadOfEachKind)
{
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenAllRuleset(0, true));
    EXPECT_EQ(dlg.Last().filter, "All rule sets|*.dcp;*.dpt;*.dpx;*.jsq|Processes|*.dcp|Protocols|*.dpt;*.dpx|"
                                 "Solutions|*.*|Job sequences|*.jsq||");
    EXPECT_EQ(dlg.Last().index, 0);
    EXPECT_EQ(dlg.Last().defExt, "*.dcp;*.dpt;*.dpx;*.jsq");
    EXPECT_EQ(dlg.Last().category, "RulesetFolders");
    ASSERT_THAT(dlg.Last().offer, SizeIs(5));
    EXPECT_EQ(dlg.m_vecDscr.GetCount(), 4) << "the joint format is gone again";
    EXPECT_EQ(dlg.m_vecDscr[0], &m_proc);
    ScriptedDlg without;
    EXPECT_TRUE(without.OpenAllRuleset(0, false));
    EXPECT_EQ(without.Last().filter,
              "All rule sets|*.dcp;*.dpt;*.dpx|Processes|*.dcp|Protocols|*.dpt;*.dpx|Solutions|*.*||");
}

TEST_F(AllRuleSets, JoinWhatWasOnOfferBefore)
{
    ScriptedDlg dlg;
    dlg.AddDscr(&tavkit::FileFrmtXML, false);
    dlg.PickFormat(&m_prtcl);
    EXPECT_TRUE(dlg.OpenAllRuleset(1, false));
    EXPECT_EQ(dlg.Last().filter, "All rule sets|*.xml;*.dcp;*.dpt;*.dpx|XML files|*.xml|Processes|*.dcp|"
                                 "Protocols|*.dpt;*.dpx|Solutions|*.*||");
    EXPECT_EQ(dlg.Last().index, 3);
    EXPECT_EQ(dlg.Last().defExt, "*.dpt;*.dpx");
}

TEST_F(AllRuleSets, ShowADialogEvenWithoutAnyKind)
{
    FileDlg::pFrmt_proc = FileDlg::pFrmt_prtcl = FileDlg::pFrmt_anly = FileDlg::pFrmt_jobsqnce = nullptr;
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenAllRuleset(0, true));
    EXPECT_EQ(dlg.Last().filter, "All rule sets|||");
    EXPECT_EQ(dlg.Last().defExt, "");
    EXPECT_TRUE(dlg.m_vecDscr.IsEmpty());
}

TEST_F(AllRuleSets, LeaveNoChosenFormat)
{
    for (const bool ok : {true, false})
    {
        for (const int filter : {0, 1})
        {
            ScriptedDlg dlg;
            dlg.m_ok = ok;
            dlg.m_filter = filter;
            EXPECT_EQ(dlg.OpenAllRuleset(0, true), ok);
            EXPECT_THAT(dlg.Chosen(), IsNull());
            EXPECT_EQ(dlg.m_vecDscr.GetCount(), 4);
        }
    }
}

TEST_F(AllRuleSets, KeepACaptionAndAFile)
{
    char const* const captions[] = {"Load Rule Set...", "Save Rule Set...", ""};
    for (const int mode : {0, 1, 2})
    {
        ScriptedDlg dlg;
        EXPECT_TRUE(dlg.OpenAllRuleset(mode, true));
        EXPECT_EQ(dlg.Last().caption, captions[mode]);
        EXPECT_EQ(dlg.Last().mode, mode);
        ScriptedDlg titled(CString("Mine"));
        titled.SetInitFile("D:\\a.dcp");
        EXPECT_TRUE(titled.OpenAllRuleset(mode, true));
        EXPECT_EQ(titled.Last().caption, "Mine");
        EXPECT_EQ(titled.Last().initFile, "D:\\a.dcp");
    }
}

TEST_F(AllRuleSets, BeginInTheStoredFolderAndStoreItAfterOKAlone)
{
    ScriptedDlg cancelled;
    cancelled.m_ok = false;
    EXPECT_FALSE(cancelled.OpenAllRuleset(0, true));
    EXPECT_EQ(cancelled.Last().initFile, ".");
    EXPECT_THAT(Stored(), IsEmpty());
    Store("Ruleset", "C:\\rules");
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenAllRuleset(0, true));
    EXPECT_EQ(dlg.Last().initFile, "C:\\rules");
    EXPECT_THAT(Stored(), ElementsAre(Pair("Ruleset", "C:\\picked\\")));
}
