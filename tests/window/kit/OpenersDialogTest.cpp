// OpenersDialogTest.cpp - every opener through the system's own dialog: where it begins and what is remembered
#include "PluginOpenerFixture.h"
#include "support/SystemFileDialog.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace
{

using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kHistory[] = "Software\\TavKit\\Workbench\\DefaultFolders";

/// An opener and what it remembers.
struct Case
{
    char const* name;
    std::function<bool(FileDlg& dlg, DIOPluginMngr& mngr)> open;
    char const* folderKey; ///< in the profile; null: none
    char const* category;  ///< of the history; null: none
    char const* caption;
};

template <bool (FileDlg::*Open)(int)>
bool Load(FileDlg& dlg, DIOPluginMngr&)
{
    return (dlg.*Open)(0);
}

template <bool (FileDlg::*Open)(int, CString const&)>
bool LoadLabelled(FileDlg& dlg, DIOPluginMngr&)
{
    return (dlg.*Open)(0, "Cells");
}

const Case kCases[] = {
    {"AnlySltn", Load<&FileDlg::OpenAnlySltn>, "AnlySltnDir", "SolutionFolders", "Load Analysis Solution..."},
    {"DMDatabase", Load<&FileDlg::OpenDMDatabase>, "DMDatabase", "WorkspaceFolders", "Open DM Database..."},
    {"Workspace", Load<&FileDlg::OpenWorkspace>, "Workspace", "WorkspaceFolders", "Open Workspace..."},
    {"TMAMatch", Load<&FileDlg::OpenTMAMatch>, "TMAMatching", "WorkspaceFolders", "Open TMA matching..."},
    {"TMAGridLayt", Load<&FileDlg::OpenTMAGridLayt>, "TMAGridLayouts", "WorkspaceFolders", "Open TMA Grid Layouts..."},
    {"PltLayt", Load<&FileDlg::OpenPltLayt>, "PlateLayout", "WorkspaceFolders", "Open Plate Layout..."},
    {"TextSttng", Load<&FileDlg::OpenTextSttng>, "TextRenderSettings", "WorkspaceFolders",
     "Open Text Rendering Settings..."},
    {"DoseDilutionSec", Load<&FileDlg::OpenDoseDilutionSec>, "DoseDilutionSequence", "WorkspaceFolders",
     "Open Dilution Sequence..."},
    {"Prjct", Load<&FileDlg::OpenPrjct>, "Project", "ProjectFolders", "Open Project..."},
    {"ClssHrchy", Load<&FileDlg::OpenClssHrchy>, "RuleBase", "RulesetFolders", "Load Class Hierarchy..."},
    {"ClssHrchyUser", Load<&FileDlg::OpenClssHrchyUser>, "RuleBase", "RulesetFolders", "Load Class Hierarchy..."},
    {"Process", Load<&FileDlg::OpenProcess>, "Process", "RulesetFolders", "Load Process..."},
    {"JobSqnce", Load<&FileDlg::OpenJobSqnce>, "Job_Sequence", "RulesetFolders", "Load Job Sequence..."},
    {"Prtcl", Load<&FileDlg::OpenPrtcl>, nullptr, "RulesetFolders", "Load Protocol..."},
    {"UserProps", Load<&FileDlg::OpenUserProps>, nullptr, "RulesetFolders", "Load Customized Features..."},
    {"ParamSet", [](FileDlg& dlg, DIOPluginMngr&) { return dlg.OpenParamSet(0, nullptr); }, "ParamSetDir",
     "RulesetFolders", "Load Parameter Set..."},
    {"Wzrd", [](FileDlg& dlg, DIOPluginMngr&) { return dlg.OpenWzrd(); }, "WizardCurrentDir", "RulesetFolders",
     "Load Wizard Definition ..."},
    {"AllRuleset", [](FileDlg& dlg, DIOPluginMngr&) { return dlg.OpenAllRuleset(0, true); }, "Ruleset",
     "RulesetFolders", "Load Rule Set..."},
    {"Offer", [](FileDlg& dlg, DIOPluginMngr&) { return dlg.Open(0, FileDlg::frmtCSV, nullptr, "C:\\windows", "Key"); },
     "Key", nullptr, "Load Data..."},
    {"File", [](FileDlg& dlg, DIOPluginMngr&) { return dlg.Open(0, "data.own", "C:\\windows", "Key"); }, "Key", nullptr,
     "Load Data..."},
    {"TableData", LoadLabelled<&FileDlg::OpenTableData>, nullptr, "ImageFolders", "Load Cells..."},
    {"TiffData", LoadLabelled<&FileDlg::OpenTiffData>, nullptr, "ImageFolders", "Load Cells..."},
    {"ArcSDEConnFile", LoadLabelled<&FileDlg::OpenArcSDEConnFile>, nullptr, "ThematicFolders", "Load Cells..."},
    {"SaveCSV", [](FileDlg& dlg, DIOPluginMngr&) { return dlg.OpenSaveCSV("Save Contents..."); }, nullptr,
     "ImageFolders", "Save Contents..."},
    {"RasterData", [](FileDlg& dlg, DIOPluginMngr& mngr) { return dlg.OpenRasterData(&mngr, 0, true, true, nullptr); },
     "Raster Files", "ImageFolders", "Import Image Layers..."},
    {"GisObjects", [](FileDlg& dlg, DIOPluginMngr& mngr) { return dlg.OpenGisObjects(&mngr, 0, true); }, "Projects",
     "ThematicFolders", "Import Thematic Layer..."},
    {"AttrData", [](FileDlg& dlg, DIOPluginMngr& mngr) { return dlg.OpenAttrData(&mngr, 0, "Table"); },
     "ThematicFolders", "ThematicFolders", "Load Table..."},
    {"MetaData", [](FileDlg& dlg, DIOPluginMngr& mngr) { return dlg.OpenMetaData(&mngr, nullptr, nullptr, nullptr); },
     nullptr, "ImageFolders", "Import MetaData..."},
};

class RealOpener : public PluginOpenerTest, public testing::WithParamInterface<Case>
{
protected:
    void SetUp() override
    {
        support::WarmUpFileDialogs();
        Forget();
        PluginOpenerTest::SetUp();
        for (DFileFrmt** const format :
             {&FileDlg::pFrmt_workspace, &FileDlg::pFrmt_dm_dbfile, &FileDlg::pFrmt_prjct, &FileDlg::pFrmt_clss_hrchy,
              &FileDlg::pFrmt_clss_hrchy_user, &FileDlg::pFrmt_prtcl, &FileDlg::pFrmt_user_prop, &FileDlg::pFrmt_proc,
              &FileDlg::pFrmt_wzrd, &FileDlg::pFrmt_paramset, &FileDlg::pFrmt_anly, &FileDlg::pFrmt_jobsqnce,
              &FileDlg::pFrmt_platelayout, &FileDlg::pFrmt_TMAlayout, &FileDlg::pFrmt_TMAmatch,
              &FileDlg::pFrmt_dosedilutionsec, &FileDlg::pFrmt_textsttng})
        {
            *format = &m_format;
        }
        m_file = m_folder.Write("data.own", "x");
    }
    void TearDown() override
    {
        Forget();
        PluginOpenerTest::TearDown();
    }

    /// Opens the real dialog and acts in it.
    bool Ask(FileDlg& dlg, std::function<void(HWND)> const& act)
    {
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [&](HWND dialog) {
                      char title[200] = "";
                      ::GetWindowTextA(dialog, title, sizeof title);
                      EXPECT_STREQ(title, GetParam().caption);
                      act(dialog);
                  })
            .Start();
        const bool answer = GetParam().open(dlg, m_mngr);
        EXPECT_TRUE(script.Done());
        return answer;
    }

    static std::vector<std::string> History(char const* category)
    {
        DVectorSafe<DString> folders;
        DfltFldrs::Instance()->GetDirHist(category, folders, false, true);
        std::vector<std::string> texts;
        for (DString const& folder : folders)
        {
            texts.emplace_back(folder.c_str());
        }
        return texts;
    }
    static void Forget()
    {
        DfltFldrs::DeleteInstance();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, kHistory);
    }

    support::TempFolder m_folder;
    std::string m_file;
    DFileFrmt m_format{"OWN", "Own files", "*.own"};
};

INSTANTIATE_TEST_SUITE_P(All, RealOpener, testing::ValuesIn(kCases),
                         [](auto const& info) { return std::string(info.param.name); });

} // namespace

TEST_P(RealOpener, BeginsInTheFolderUsedLastAndRemembersTheNextOne)
{
    const support::TempFolder before;
    before.Write("before.own", "x");
    if (GetParam().folderKey)
    {
        Store(GetParam().folderKey, before.Path().c_str());
    }
    else
    {
        DfltFldrs::Instance()->SaveDirHist(GetParam().category, before.Path().c_str());
    }
    const Settings settings = Stored();

    FileDlg cancelled;
    EXPECT_FALSE(Ask(cancelled, [&](HWND dialog) {
        EXPECT_EQ(support::ShownFolder(dialog) + "\\", before.Path());
        PressButton(dialog, IDCANCEL);
    }));
    EXPECT_EQ(cancelled.GetNumSlctFiles(), 0);
    EXPECT_EQ(Stored(), settings) << "cancelled";
    if (GetParam().category)
    {
        EXPECT_EQ(History(GetParam().category).empty(), GetParam().folderKey != nullptr) << "cancelled";
    }

    FileDlg dlg;
    dlg.ShowOverwritePrompt(false);
    EXPECT_TRUE(Ask(dlg, [&](HWND dialog) {
        support::SetFileName(dialog, m_file);
        PressButton(dialog, IDOK);
    }));
    ASSERT_EQ(dlg.GetNumSlctFiles(), 1);
    EXPECT_EQ(dlg.GetFile(0)->GetMoniker(), m_file.c_str());
    if (GetParam().folderKey)
    {
        EXPECT_EQ(Stored()[GetParam().folderKey], m_folder.Path());
    }
    if (GetParam().category)
    {
        ASSERT_FALSE(History(GetParam().category).empty());
        EXPECT_EQ(History(GetParam().category)[0], m_folder.Path());
    }
    else
    {
        for (char const* category : {"ImageFolders", "ThematicFolders", "ProjectFolders", "WorkspaceFolders",
                                     "RulesetFolders", "SolutionFolders"})
        {
            EXPECT_THAT(History(category), IsEmpty());
        }
    }
}

namespace
{

class RealWorkspace : public RealOpener
{
};

INSTANTIATE_TEST_SUITE_P(Only, RealWorkspace, testing::Values(kCases[2]),
                         [](auto const& info) { return std::string(info.param.name); });

} // namespace

TEST_P(RealWorkspace, WithNothingStoredBeginsInTheNewestFolderOfTheHistoryWithoutAName)
{
    DfltFldrs::Instance()->SaveDirHist("WorkspaceFolders", "C:\\windows\\");
    DfltFldrs::Instance()->SaveDirHist("WorkspaceFolders", m_folder.Path().c_str());
    FileDlg dlg;
    EXPECT_FALSE(Ask(dlg, [&](HWND dialog) {
        EXPECT_EQ(support::ShownFolder(dialog) + "\\", m_folder.Path());
        EXPECT_EQ(support::FileName(dialog), "");
        EXPECT_THAT(support::FilterTexts(dialog), ElementsAre("Own files"));
        PressButton(dialog, IDCANCEL);
    }));
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_P(RealWorkspace, OfAFolderThatIsntThereTheSystemsOwnChoiceHolds)
{
    DfltFldrs::Instance()->SaveDirHist("WorkspaceFolders", m_folder.Path().c_str());
    for (std::string const& gone : {m_folder.Path("gone"), m_folder.Path(std::string(400, 'x')) + "\\"})
    {
        Store("Workspace", (gone + "\\").c_str());
        FileDlg dlg;
        EXPECT_FALSE(Ask(dlg, [&](HWND dialog) {
            EXPECT_NE(support::ShownFolder(dialog), gone);
            EXPECT_NE(support::ShownFolder(dialog) + "\\", m_folder.Path()) << "no further candidate is tried";
            PressButton(dialog, IDCANCEL);
        }));
    }
}
