// NativeFileDlgTest.cpp - a question for files through the system's dialog: what is asked, and what comes of it
#include "NativeFileDlgFixture.h"

namespace
{

using support::FindBoxOver;
using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using support::SetFileName;
using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST_F(NativeFileDlg, GivesTheFileThatWasChosen)
{
    EXPECT_TRUE(Ask([](HWND dialog) {
        EXPECT_EQ(TextOf(dialog), kTitle);
        EXPECT_THAT(support::FileListTexts(dialog), ElementsAre("a.tif", "b.tif", "sub"));
        SetFileName(dialog, "b.tif");
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("b.tif")));
    EXPECT_EQ(m_dlg.GetFormat(), &m_pictures);
    EXPECT_THAT(m_told.m_texts, IsEmpty());
}

TEST_F(NativeFileDlg, TakesAFileFromTheKeyboardAtOnce)
{
    const auto nameHasFocus = [] {
        const HWND dialog = FindFileDialog();
        return ::IsChild(::GetDlgItem(dialog, support::kFileNameBox), ::GetFocus()) ? dialog : nullptr;
    };
    ModalScript script;
    script.Then(nameHasFocus, [](HWND) { support::TypeText("a.tif"); })
        .Then(
            [] {
                const HWND dialog = FindFileDialog();
                return support::FileName(dialog) == "a.tif" ? dialog : nullptr;
            },
            [](HWND) { support::PressKey(VK_RETURN); })
        .Start();
    EXPECT_TRUE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif")));
}

TEST_F(NativeFileDlg, GivesSeveralFilesIfAllowed)
{
    m_dlg.SetMultipleFiles();
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "\"a.tif\" \"b.tif\""); }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif"), m_folder.Path("b.tif")));
}

TEST_F(NativeFileDlg, LetsOneRowBeSelectedUnlessSeveralFilesAreAllowed)
{
    LookAt(
        [](HWND dialog) { EXPECT_NE(::GetWindowLongPtrA(support::FileListOf(dialog), GWL_STYLE) & LVS_SINGLESEL, 0); });
    m_dlg.SetMultipleFiles();
    LookAt(
        [](HWND dialog) { EXPECT_EQ(::GetWindowLongPtrA(support::FileListOf(dialog), GWL_STYLE) & LVS_SINGLESEL, 0); });
}

TEST_F(NativeFileDlg, CancelGivesNothingAndChangesNothing)
{
    m_dlg.SetFormat(&m_tables);
    m_dlg.m_bChckReadOnly = true;
    LookAt([](HWND dialog) { SetFileName(dialog, "a.tif"); });
    EXPECT_THAT(m_dlg.Files(), IsEmpty());
    EXPECT_EQ(m_dlg.GetFormat(), &m_tables);
    EXPECT_TRUE(m_dlg.GetChckReadOnly());
    EXPECT_EQ(History(), "(nothing)");
    EXPECT_THAT(m_told.m_texts, IsEmpty());
}

TEST_F(NativeFileDlg, TheFormatIsThatOfTheFilterAtTheEnd)
{
    EXPECT_TRUE(Ask(
        [](HWND dialog) {
            EXPECT_EQ(support::ChosenFilter(dialog), 1) << "the one to begin with";
            EXPECT_THAT(support::FileListTexts(dialog), ElementsAre("c.csv", "sub"));
            SetFileName(dialog, "c.csv");
        },
        FileDlg::kLoad, kKey, 1));
    EXPECT_EQ(m_dlg.GetFormat(), &m_tables);
    EXPECT_TRUE(Ask(
        [](HWND dialog) {
            support::ChooseFilter(dialog, 0);
            SetFileName(dialog, "a.tif");
        },
        FileDlg::kLoad, kKey, 1));
    EXPECT_EQ(m_dlg.GetFormat(), &m_pictures);
}

TEST_F(NativeFileDlg, AFilterBeyondTheOfferHasNoFormat)
{
    m_dlg.m_vecDscr.Clear();
    m_dlg.AddDscr(&m_pictures, false);
    EXPECT_TRUE(Ask(
        [](HWND dialog) {
            EXPECT_EQ(support::FilterTexts(dialog).size(), 2U);
            SetFileName(dialog, "c.csv");
        },
        FileDlg::kLoad, kKey, 1));
    EXPECT_EQ(m_dlg.GetFormat(), nullptr);
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("c.csv")));
}

TEST_F(NativeFileDlg, AFilterToBeginWithBeyondTheTextIsTaken)
{
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }, FileDlg::kLoad, kKey, 7));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif")));
}

TEST_F(NativeFileDlg, AQuestionWithoutAnyTextIsAsked)
{
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND dialog) {
                  SetFileName(dialog, "c.csv");
                  PressButton(dialog, IDOK);
              })
        .Start();
    EXPECT_TRUE(m_dlg.OpenMFCFileDlg(FileDlg::kLoad, nullptr, 0, nullptr, nullptr));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("c.csv")));
}

TEST_F(NativeFileDlg, BeginsWithTheNameOfTheFile)
{
    m_dlg.SetInitFile(m_folder.Path("b.tif?page=3").c_str());
    EXPECT_TRUE(Ask([](HWND dialog) { EXPECT_EQ(support::FileName(dialog), "b.tif"); }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("b.tif")));
}

TEST_F(NativeFileDlg, ADotIsNoNameToBeginWith)
{
    m_dlg.SetInitFile(".");
    SetFolders(m_folder.Path());
    LookAt([&](HWND dialog) {
        EXPECT_EQ(support::FileName(dialog), "");
        EXPECT_EQ(support::ShownFolder(dialog) + "\\", m_folder.Path()) << "the first folder of the category";
    });
}

TEST_F(NativeFileDlg, AFolderThatIsGoneIsNotWhereItBegins)
{
    m_dlg.SetInitFile("C:\\tavkit no such folder\\x.tif");
    SetFolders(m_folder.Path());
    LookAt([&](HWND dialog) {
        EXPECT_EQ(support::FileName(dialog), "x.tif");
        EXPECT_NE(support::ShownFolder(dialog) + "\\", m_folder.Path()) << "no other one is tried";
    });
    EXPECT_THAT(m_told.m_texts, IsEmpty()) << "dropped without a word";
}

TEST_F(NativeFileDlg, SavesUnderTheNameThatWasTyped)
{
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "new.tif"); }, FileDlg::kSave));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("new.tif")));
}

TEST_F(NativeFileDlg, GivesANameWithoutExtensionThatOfTheFilter)
{
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "new"); }, FileDlg::kSave));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("new.tif")));
}

TEST_F(NativeFileDlg, ANameWithoutExtensionTakesTheFirstOfSeveralPatternsAndNoneOfAllFiles)
{
    struct Row
    {
        char const* filter;
        char const* defExt;
        char const* name;
    };
    const Row table[] = {
        {"Rule sets|*.dcp;*.dpr||", "*.dcp;*.dpr", "new.dcp"},
        {"All Files|*.*||", "*.*", "new"},
        {"All Files|*.*||", "", "new"},
    };
    for (Row const& row : table)
    {
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [](HWND dialog) {
                      SetFileName(dialog, "new");
                      PressButton(dialog, IDOK);
                  })
            .Start();
        NativeQuestion question;
        question.SetInitFile(m_folder.Path().c_str());
        EXPECT_TRUE(question.OpenMFCFileDlg(FileDlg::kSave, row.filter, 0, row.defExt, kKey));
        EXPECT_THAT(question.Files(), ElementsAre(m_folder.Path(row.name))) << row.filter;
    }
}

TEST_F(NativeFileDlg, WithoutACaptionTheSystemHasATitleOfItsOwn)
{
    m_dlg.SetCaption("");
    LookAt([](HWND dialog) { EXPECT_NE(TextOf(dialog), ""); });
}

TEST_F(NativeFileDlg, EveryModeButLoadingSaves)
{
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "new.tif"); }, 2));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("new.tif")));
}

TEST_F(NativeFileDlg, AsksBeforeAFileIsOverwritten)
{
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND dialog) {
                  SetFileName(dialog, "a.tif");
                  PressButton(dialog, IDOK);
              })
        .Then([] { return FindBoxOver(FindFileDialog()); }, [](HWND box) { PressButton(box, IDNO); })
        .Then([] { return FindBoxOver(FindFileDialog()) ? nullptr : FindFileDialog(); },
              [](HWND dialog) {
                  SetFileName(dialog, "b.tif");
                  PressButton(dialog, IDOK);
              })
        .Then([] { return FindBoxOver(FindFileDialog()); }, [](HWND box) { PressButton(box, IDYES); })
        .Start();
    EXPECT_TRUE(Open(FileDlg::kSave));
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("b.tif")));
    AllowGdiGrowth("the icon of message boxes");
}

TEST_F(NativeFileDlg, DoesntAskBeforeAFileIsOverwrittenIfToldSo)
{
    m_dlg.ShowOverwritePrompt(false);
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }, FileDlg::kSave));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif")));
}

TEST_F(NativeFileDlg, OptionsAreShownAndThoseAtTheEndReachTheMonikers)
{
    DString options("page=1");
    m_dlg.SetOptions(options);
    EXPECT_TRUE(Ask([](HWND dialog) {
        EXPECT_EQ(TextOf(ControlOf(dialog, kOptions)), "page=1");
        ::SetWindowTextA(ControlOf(dialog, kOptions), "page=2");
        SetFileName(dialog, "a.tif");
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif?page=2")));
}

TEST_F(NativeFileDlg, OptionsReachEveryFile)
{
    m_dlg.SetMultipleFiles();
    EXPECT_TRUE(Ask([](HWND dialog) {
        ::SetWindowTextA(ControlOf(dialog, kOptions), "x=1");
        SetFileName(dialog, "\"a.tif\" \"b.tif\"");
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif?x=1"), m_folder.Path("b.tif?x=1")));
}

TEST_F(NativeFileDlg, APanelWithoutOptionsLeavesThemAsTheyWereSet)
{
    m_dlg.SetDlgTmplId(6103);
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif"))) << "nothing was set";
    DString options("page=1");
    m_dlg.SetOptions(options);
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "b.tif"); }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif"), m_folder.Path("b.tif?page=1")));
}

TEST_F(NativeFileDlg, TheFolderOfTheResultComesFirstInTheHistory)
{
    DfltFldrs::Instance()->SaveDirHist(kKey, "C:\\before");
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }));
    EXPECT_EQ(History(), m_folder.Path() + ";C:\\before");
}

TEST_F(NativeFileDlg, NoCategoryNoHistory)
{
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }, FileDlg::kLoad, ""));
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }, FileDlg::kLoad, nullptr));
    EXPECT_EQ(::RegGetValueA(HKEY_CURRENT_USER, "Software\\TavKit\\Workbench\\DefaultFolders", nullptr, RRF_RT_ANY,
                             nullptr, nullptr, nullptr),
              ERROR_FILE_NOT_FOUND);
}

TEST_F(NativeFileDlg, TheSystemsOwnReadOnlyBoxIsHidden)
{
    constexpr int kSystemReadOnly = 1040;
    LookAt([](HWND dialog) {
        const HWND box = ::GetDlgItem(dialog, kSystemReadOnly);
        EXPECT_FALSE(box && IsShown(box));
    });
}

TEST_F(NativeFileDlg, AHostMayReplaceTheWhole)
{
    class HostQuestion : public NativeQuestion
    {
        bool OpenMFCFileDlg(int, char const*, int, char const*, char const*) override
        {
            m_vecFiles.Append(new BDIMoniker("from the host", nullptr));
            return true;
        }
    };
    HostQuestion question;
    NativeQuestion& asked = question;
    EXPECT_TRUE(asked.OpenMFCFileDlg(FileDlg::kLoad, "", 0, "", ""));
    EXPECT_THAT(asked.Files(), ElementsAre("from the host"));
}
