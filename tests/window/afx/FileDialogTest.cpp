// FileDialogTest.cpp - the system's dialog for files behind CFileDialog

#include "support/SystemFileDialog.h"
#include "support/TempFolder.h"
#include "support/WindowTest.h"

#include <afxdlgs.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace
{
using support::FindBoxOver;
using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

constexpr int kReadOnlyBox = 1040; // control of the file dialog
constexpr char kTitle[] = "Choose a file of the test";
constexpr char kFilter[] = "Pictures|*.tif|Tables|*.csv|All Files|*.*||";

/// Writes down what the dialog tells it.
class SpiedDialog : public CFileDialog
{
public:
    using CFileDialog::CFileDialog;
    using CFileDialog::m_strFilter;

    std::vector<std::string> m_told;
    int m_refusals = 0;          ///< how many choices are refused
    std::string m_actAt;         ///< what m_act runs at
    std::function<void()> m_act; ///< runs inside the notification, once

    BOOL OnInitDialog() override
    {
        Tell("init dialog");
        return CFileDialog::OnInitDialog();
    }

protected:
    BOOL OnFileNameOK() override
    {
        Tell("ok");
        return m_refusals-- > 0 ? TRUE : CFileDialog::OnFileNameOK();
    }
    void OnInitDone() override { Tell("init done"); }
    void OnFolderChange() override { Tell("folder"); }
    void OnFileNameChange() override { Tell("selection"); }
    void OnTypeChange() override { Tell("type"); }

private:
    void Tell(char const* what)
    {
        m_told.emplace_back(what);
        if (m_act && m_actAt == what)
        {
            std::exchange(m_act, nullptr)();
        }
    }
};

class FileDialog : public support::WindowTest
{
protected:
    support::TempFolder m_folder;
    support::CurrentFolderScope m_current; // back before the folder goes

    void SetUp() override
    {
        support::WarmUpFileDialogs();
        WindowTest::SetUp();
        for (const char* name : {"a.tif", "b.tif", "c.csv"})
        {
            m_folder.Write(name, "x");
        }
        m_start = m_folder.Path();
    }

    void Prepare(CFileDialog& dialog)
    {
        dialog.m_ofn.lpstrInitialDir = m_start.c_str();
        dialog.m_ofn.lpstrTitle = kTitle;
    }

    /// Shows the dialog, acts in it and presses OK.
    INT_PTR ChooseBy(CFileDialog& dialog, const support::ModalHelper::Act& act)
    {
        Prepare(dialog);
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [&](HWND found) {
                      act(found);
                      PressButton(found, IDOK);
                  })
            .Start();
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(script.Done());
        return result;
    }

private:
    std::string m_start;
};

/// Selects the first file of the list.
void SelectFirst(HWND dialog)
{
    LVITEMA item = {};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    ::SendMessageA(support::FileListOf(dialog), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
}

std::vector<std::string> PathsOf(const CFileDialog& dialog)
{
    std::vector<std::string> paths;
    for (POSITION pos = dialog.GetStartPosition(); pos != nullptr;)
    {
        paths.emplace_back(dialog.GetNextPathName(pos));
    }
    return paths;
}
} // namespace

TEST_F(FileDialog, GivesThePathOfOneFile)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, OFN_HIDEREADONLY, kFilter);
    EXPECT_EQ(ChooseBy(dialog, [](HWND found) { support::SetFileName(found, "a.tif"); }), IDOK);
    EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(m_folder.Path("a.tif")));
    EXPECT_THAT(PathsOf(dialog), ElementsAre(m_folder.Path("a.tif")));
    EXPECT_EQ(dialog.m_ofn.nFilterIndex, 1U);
}

TEST_F(FileDialog, GivesThePathsOfSeveralFiles)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, OFN_HIDEREADONLY | OFN_ALLOWMULTISELECT, kFilter);
    EXPECT_EQ(ChooseBy(dialog, [](HWND found) { support::SetFileName(found, "\"a.tif\" \"b.tif\""); }), IDOK);
    EXPECT_THAT(PathsOf(dialog), ElementsAre(m_folder.Path("a.tif"), m_folder.Path("b.tif")));
}

TEST_F(FileDialog, GivesTheOnePathWhereSeveralMayBePicked)
{
    CFileDialog dialog(TRUE, nullptr, "a longer name to begin with.tif", OFN_ALLOWMULTISELECT, kFilter);
    EXPECT_EQ(ChooseBy(dialog, [](HWND found) { support::SetFileName(found, "b.tif"); }), IDOK);
    EXPECT_THAT(PathsOf(dialog), ElementsAre(m_folder.Path("b.tif")));
}

TEST_F(FileDialog, CancelGivesNothing)
{
    CFileDialog dialog(TRUE);
    Prepare(dialog);
    ModalScript script;
    script.Then(FindFileDialog, [](HWND found) { PressButton(found, IDCANCEL); }).Start();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(::CommDlgExtendedError(), 0U);
}

TEST_F(FileDialog, TheObjectIsThePanelInTheSystemsDialog)
{
    SpiedDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    EXPECT_EQ(ChooseBy(dialog,
                       [&](HWND found) {
                           EXPECT_NE(dialog.m_hWnd, found);
                           EXPECT_EQ(CWnd::FromHandlePermanent(dialog.m_hWnd), &dialog);
                           EXPECT_EQ(dialog.GetParent()->m_hWnd, found);
                           support::SetFileName(found, "b.tif");
                           EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(m_folder.Path("b.tif")));
                       }),
              IDOK);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(FileDialog, TellsWhenItStandsAndWhatTheUserDoes)
{
    SpiedDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    EXPECT_EQ(ChooseBy(dialog,
                       [&](HWND found) {
                           EXPECT_THAT(dialog.m_told, testing::IsSupersetOf({"init dialog", "init done", "folder"}));
                           EXPECT_EQ(dialog.m_told.front(), "init dialog");
                           EXPECT_EQ(std::count(dialog.m_told.begin(), dialog.m_told.end(), "init done"), 1);
                           dialog.m_told.clear();
                           support::ChooseFilter(found, 1);
                           EXPECT_THAT(dialog.m_told, Contains("type"));
                           EXPECT_THAT(support::FileListTexts(found), ElementsAre("c.csv"));
                           dialog.m_told.clear();
                           SelectFirst(found);
                           EXPECT_THAT(dialog.m_told, Contains("selection"));
                           dialog.m_told.clear();
                       }),
              IDOK);
    EXPECT_THAT(dialog.m_told, Contains("ok"));
    EXPECT_EQ(dialog.m_ofn.nFilterIndex, 2U);
    EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(m_folder.Path("c.csv")));
}

TEST_F(FileDialog, ARefusedChoiceKeepsItOpen)
{
    SpiedDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    dialog.m_refusals = 1;
    Prepare(dialog);
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND found) {
                  support::SetFileName(found, "a.tif");
                  PressButton(found, IDOK);
              })
        .Then([&] { return dialog.m_refusals == 0 ? FindFileDialog() : nullptr; },
              [](HWND found) {
                  support::SetFileName(found, "b.tif");
                  PressButton(found, IDOK);
              })
        .Start();
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(m_folder.Path("b.tif")));
}

TEST_F(FileDialog, SavesUnderANewNameWithTheDefaultExtension)
{
    CFileDialog dialog(FALSE, "csv", "table", OFN_OVERWRITEPROMPT, "Tables|*.csv||");
    EXPECT_EQ(ChooseBy(dialog, [](HWND found) { EXPECT_THAT(support::FileName(found), StrEq("table")); }), IDOK);
    EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(m_folder.Path("table.csv")));
}

TEST_F(FileDialog, AsksBeforeAFileIsOverwritten)
{
    CFileDialog dialog(FALSE, nullptr, "a.tif", OFN_OVERWRITEPROMPT, kFilter);
    Prepare(dialog);
    ModalScript script;
    script.Then(FindFileDialog, [](HWND found) { PressButton(found, IDOK); })
        .Then([] { return FindBoxOver(FindFileDialog()); }, [](HWND box) { PressButton(box, IDYES); })
        .Start();
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(script.Done());
    AllowGdiGrowth("the icon of message boxes");
}

TEST_F(FileDialog, ShowsTheFiltersOfItsText)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    dialog.m_ofn.nFilterIndex = 2;
    EXPECT_EQ(ChooseBy(dialog,
                       [](HWND found) {
                           EXPECT_EQ(support::FilterTexts(found).size(), 3U);
                           EXPECT_EQ(support::ChosenFilter(found), 1);
                           support::SetFileName(found, "c.csv");
                       }),
              IDOK);
}

TEST_F(FileDialog, AFilterTextWithoutFormatsOrWithoutItsEndIsTaken)
{
    for (const char* const text : {"|", "||", "", "Tables|*.csv", "Tables|*.csv|", "Tables|", "Tables"})
    {
        CFileDialog dialog(TRUE, nullptr, nullptr, 0, text);
        EXPECT_EQ(ChooseBy(dialog, [](HWND found) { support::SetFileName(found, "c.csv"); }), IDOK) << text;
        EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(m_folder.Path("c.csv"))) << text;
    }
}

TEST_F(FileDialog, FilterBarsBecomeZeros)
{
    SpiedDialog dialog(TRUE, nullptr, nullptr, 0, "Tables|*.csv||");
    const std::string text(dialog.m_ofn.lpstrFilter, 14);
    EXPECT_EQ(text, std::string("Tables\0*.csv\0\0", 14));
    EXPECT_EQ(dialog.m_strFilter.Find('|'), -1);
    EXPECT_EQ(CFileDialog(TRUE).m_ofn.lpstrFilter, nullptr);
}

TEST_F(FileDialog, ANameThatIsTooLongIsLeftOut)
{
    const std::string name(300, 'n');
    CFileDialog dialog(TRUE, nullptr, name.c_str());
    EXPECT_STREQ(dialog.m_ofn.lpstrFile, "");
}

TEST_F(FileDialog, TellsWhatTheReadOnlyBoxSays)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, OFN_READONLY, kFilter);
    EXPECT_EQ(ChooseBy(dialog, [](HWND found) { support::SetFileName(found, "a.tif"); }), IDOK);
    EXPECT_TRUE(dialog.GetReadOnlyPref());
    EXPECT_FALSE(CFileDialog(TRUE).GetReadOnlyPref());
}

TEST_F(FileDialog, ASelectionThatIsTooLongFailsAndSaysSo)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    char buffer[8] = "";
    dialog.m_ofn.lpstrFile = buffer;
    dialog.m_ofn.nMaxFile = sizeof buffer;
    EXPECT_EQ(ChooseBy(dialog, [](HWND found) { support::SetFileName(found, "a.tif"); }), IDCANCEL);
    EXPECT_EQ(::CommDlgExtendedError(), DWORD{FNERR_BUFFERTOOSMALL});
}

TEST_F(FileDialog, ItsOwnerIsDisabledMeanwhileAndHasTheFocusAgain)
{
    support::TestFrame frame;
    frame.SetFocus();
    CFileDialog dialog(TRUE, nullptr, nullptr, 0, kFilter, &frame);
    Prepare(dialog);
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND found) {
                  EXPECT_FALSE(frame.IsWindowEnabled());
                  EXPECT_EQ(::GetWindow(found, GW_OWNER), frame.m_hWnd);
                  PressButton(found, IDCANCEL);
              })
        .Start();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(frame.IsWindowEnabled());
    EXPECT_EQ(::GetFocus(), frame.m_hWnd);
}

TEST_F(FileDialog, MayRunAgainAndInsideAnother)
{
    SpiedDialog outer(TRUE, nullptr, nullptr, 0, kFilter);
    Prepare(outer);
    SpiedDialog inner(TRUE, nullptr, nullptr, 0, kFilter, &outer);
    Prepare(inner);
    inner.m_ofn.lpstrTitle = "Inner";
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND) {
                  EXPECT_EQ(inner.DoModal(), IDOK);
                  PressButton(FindFileDialog(), IDCANCEL);
              })
        .Then("Inner",
              [&](HWND found) {
                  EXPECT_EQ(inner.GetParent()->m_hWnd, found);
                  EXPECT_NE(outer.GetParent()->m_hWnd, found);
                  support::SetFileName(found, "a.tif");
                  PressButton(found, IDOK);
              })
        .Start();
    EXPECT_EQ(outer.DoModal(), IDCANCEL);
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(std::string(inner.GetPathName()), StrEq(m_folder.Path("a.tif")));
    EXPECT_EQ(ChooseBy(outer, [](HWND found) { support::SetFileName(found, "b.tif"); }), IDOK);
    EXPECT_THAT(std::string(outer.GetPathName()), StrEq(m_folder.Path("b.tif")));
}

TEST_F(FileDialog, ADialogDestroyedFromOutsideEndsQuietly)
{
    SpiedDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    Prepare(dialog);
    ModalScript script;
    script.Then(FindFileDialog, [](HWND found) { ::DestroyWindow(found); }).Start();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(FileDialog, ADialogThatGoesInsideANotificationGivesNothing)
{
    struct Row
    {
        char const* when;
        std::string how;
        std::function<void(HWND)> end;
    };
    const auto endDialog = [](HWND found) { ::EndDialog(found, 0); };
    const auto destroy = [](HWND found) { ::DestroyWindow(found); };
    // The system itself needs its dialog after a choice, so that one isn't destroyed there.
    const Row table[] = {
        {"init done", "ended", endDialog},   {"ok", "ended", endDialog},          {"selection", "ended", endDialog},
        {"init done", "destroyed", destroy}, {"selection", "destroyed", destroy},
    };
    for (Row const& row : table)
    {
        const std::string what = row.how + " at " + row.when;
        SpiedDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
        dialog.m_actAt = row.when;
        dialog.m_refusals = 1; // a choice that is taken ends it once more, with that
        dialog.m_act = [&] { row.end(dialog.GetParent()->m_hWnd); };
        Prepare(dialog);
        ModalScript script;
        if (dialog.m_actAt != "init done")
        {
            // The system may have told of a selection before this.
            script.Then(FindFileDialog, [&](HWND found) {
                SelectFirst(found);
                if (dialog.m_act)
                {
                    PressButton(found, IDOK);
                }
            });
        }
        script.Start();
        EXPECT_EQ(dialog.DoModal(), IDCANCEL) << what;
        EXPECT_FALSE(dialog.m_act) << what;
        EXPECT_EQ(dialog.m_hWnd, nullptr) << what;
    }
}

TEST_F(FileDialog, APathThatDoesNotFitIsNotGivenWhileItRuns)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, 0, kFilter);
    char buffer[8] = "";
    dialog.m_ofn.lpstrFile = buffer;
    dialog.m_ofn.nMaxFile = sizeof buffer;
    Prepare(dialog);
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND found) {
                  support::SetFileName(found, "a.tif");
                  EXPECT_THAT(std::string(dialog.GetPathName()), StrEq(""));
                  PressButton(found, IDCANCEL);
              })
        .Start();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(script.Done());
}

TEST_F(FileDialog, BehindTheLastPathThereIsNone)
{
    const CFileDialog dialog(TRUE, nullptr, "a.tif");
    POSITION pos = nullptr;
    EXPECT_THAT(std::string(dialog.GetNextPathName(pos)), StrEq(""));
    EXPECT_EQ(pos, nullptr);
}

TEST_F(FileDialog, TheReadOnlyBoxIsHiddenIfAskedFor)
{
    for (const DWORD flags : {DWORD{0}, DWORD{OFN_HIDEREADONLY}})
    {
        CFileDialog dialog(TRUE, nullptr, nullptr, flags, kFilter);
        EXPECT_EQ(ChooseBy(dialog,
                           [&](HWND found) {
                               const HWND box = ::GetDlgItem(found, kReadOnlyBox);
                               EXPECT_EQ(box != nullptr && ::IsWindowVisible(box), flags == 0);
                               support::SetFileName(found, "a.tif");
                           }),
                  IDOK);
    }
}
