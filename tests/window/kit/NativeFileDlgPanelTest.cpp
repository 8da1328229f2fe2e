// NativeFileDlgPanelTest.cpp - the library's panel in the system's file dialog
#include "NativeFileDlgFixture.h"

#include <optional>

namespace
{

using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using support::SetFileName;
using testing::ElementsAre;
using testing::IsEmpty;

/// A control of a template: place in dialog units as left, top, width, height.
struct PanelControl
{
    int id;
    char const* className;
    char const* text;
    RECT place;
};

const std::vector<PanelControl> kOptionsPanel = {
    {6008, "ComboBox", "", {130, 0, 164, 0}}, // its height is the font's
    {6009, "Static", "Go to folder:", {68, 2, 44, 9}},
    {6011, "Static", "Options:", {68, 18, 44, 9}},
    {6012, "Edit", "", {130, 16, 164, 14}},
};
const std::vector<PanelControl> kCheckPanel = {
    {6008, "ComboBox", "", {130, 0, 164, 0}},
    {6009, "Static", "Go to folder:", {68, 2, 44, 9}},
    {6010, "Button", "Project-Edit", {305, 0, 53, 10}},
    {6011, "Button", "Read-Only", {305, 11, 50, 10}},
};

/// Compares the controls of a panel, which the system moves down together below its own.
void ExpectControls(HWND panel, std::vector<PanelControl> const& controls)
{
    int count = 0;
    for (HWND child = ::GetWindow(panel, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        ++count;
    }
    EXPECT_EQ(static_cast<size_t>(count), controls.size());
    std::optional<LONG> down;
    for (PanelControl const& each : controls)
    {
        const HWND control = ::GetDlgItem(panel, each.id);
        ASSERT_NE(control, nullptr) << each.id;
        char text[64] = "";
        ::GetClassNameA(control, text, sizeof text);
        EXPECT_STREQ(text, each.className) << each.id;
        text[0] = '\0';
        ::GetWindowTextA(control, text, sizeof text);
        EXPECT_STREQ(text, each.text) << each.id;
        RECT corner = {each.place.left, each.place.top, 0, 0};
        ::MapDialogRect(panel, &corner);
        RECT size = {0, 0, each.place.right, each.place.bottom};
        ::MapDialogRect(panel, &size);
        CRect place;
        ::GetWindowRect(control, place);
        ::MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(place.left, corner.left) << each.id;
        EXPECT_EQ(place.top - corner.top, down.value_or(place.top - corner.top)) << each.id;
        down = place.top - corner.top;
        EXPECT_EQ(place.Width(), size.right) << each.id;
        if (each.place.bottom != 0)
        {
            EXPECT_EQ(place.Height(), size.bottom) << each.id;
        }
    }
}

void Check(HWND box) { ::SendMessageA(box, BM_CLICK, 0, 0); }
bool IsChecked(HWND box) { return ::SendMessageA(box, BM_GETCHECK, 0, 0) == BST_CHECKED; }

} // namespace

TEST_F(NativeFileDlg, ThePanelHasFoldersAndOptionsByDefault)
{
    SetFolders("C:\\somewhere else");
    LookAt([](HWND dialog) {
        ExpectControls(PanelOf(dialog), kOptionsPanel);
        for (const int id : {kFolders, kFoldersLabel, kOptionsLabel, kOptions})
        {
            EXPECT_TRUE(IsShown(ControlOf(dialog, id))) << id;
        }
    });
}

TEST_F(NativeFileDlg, ThePanelOfWorkspacesHasFoldersAndCheckBoxes)
{
    m_dlg.SetDlgTmplId(6103);
    LookAt([](HWND dialog) {
        ExpectControls(PanelOf(dialog), kCheckPanel);
        EXPECT_FALSE(IsChecked(ControlOf(dialog, kReadOnly)));
        EXPECT_FALSE(IsChecked(ControlOf(dialog, kProjectEdit)));
    });
}

TEST_F(NativeFileDlg, TheFoldersAreOfferedUnsortedAsTheyAreStored)
{
    SetFolders("D:\\z;C:\\a\\;D:\\m");
    LookAt([&](HWND dialog) {
        EXPECT_THAT(FolderTexts(dialog), ElementsAre("D:\\z", "C:\\a\\", "D:\\m"));
        EXPECT_EQ(PickedFolder(dialog), CB_ERR) << "none of them is where it begins";
    });
}

TEST_F(NativeFileDlg, TheFolderToBeginWithIsPickedWhateverItsSeparators)
{
    const std::string bare = m_folder.Path().substr(0, m_folder.Path().size() - 1);
    for (std::string const& stored : {bare, m_folder.Path()})
    {
        SetFolders("C:\\other;" + stored);
        LookAt([&](HWND dialog) { EXPECT_EQ(PickedFolder(dialog), 1) << stored; });
    }
    std::string lower = bare;
    lower[0] = static_cast<char>(lower[0] ^ 0x20);
    SetFolders("C:\\other;" + lower);
    LookAt([&](HWND dialog) { EXPECT_EQ(PickedFolder(dialog), CB_ERR) << "another case is another text"; });
}

TEST_F(NativeFileDlg, WithoutACategoryTheFoldersAreHiddenAndThePanelIsShorter)
{
    int full = 0;
    std::vector<CRect> places;
    const std::vector<int> others = {kOptionsLabel, kOptions};
    LookAt([&](HWND dialog) {
        full = PlaceOf(PanelOf(dialog)).Height();
        for (const int id : others)
        {
            places.push_back(PlaceOf(ControlOf(dialog, id)));
        }
    });
    LookAt(
        [&](HWND dialog) {
            EXPECT_FALSE(IsShown(ControlOf(dialog, kFolders)));
            EXPECT_FALSE(IsShown(ControlOf(dialog, kFoldersLabel)));
            const int combo = PlaceOf(ControlOf(dialog, kFolders)).Height();
            EXPECT_GT(combo, 0);
            EXPECT_EQ(PlaceOf(PanelOf(dialog)).Height(), full - combo);
            for (size_t i = 0; i < others.size(); ++i)
            {
                EXPECT_TRUE(IsShown(ControlOf(dialog, others[i])));
                EXPECT_EQ(PlaceOf(ControlOf(dialog, others[i])), places[i]) << "the others keep their places";
            }
        },
        "");
}

TEST_F(NativeFileDlg, GoingToAFolderKeepsTheNameThatWasTyped)
{
    SetFolders(m_folder.Path() + ";" + m_sub);
    m_folder.Write("sub\\inside.tif", "x");
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND dialog) {
                  SetFileName(dialog, "inside.tif");
                  PickFolder(dialog, 1);
              })
        .Then(
            [&] {
                const HWND dialog = FindFileDialog();
                return dialog && support::ShownFolder(dialog) == m_sub ? dialog : nullptr;
            },
            [](HWND dialog) {
                EXPECT_EQ(support::FileName(dialog), "inside.tif");
                EXPECT_EQ(PickedFolder(dialog), 1);
                PressButton(dialog, IDOK);
            })
        .Start();
    EXPECT_TRUE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_sub + "\\inside.tif"));
    EXPECT_EQ(History(), m_sub + "\\");
    ::DeleteFileA((m_sub + "\\inside.tif").c_str());
}

TEST_F(NativeFileDlg, GoesToAFolderWhileSavingWithoutSaving)
{
    SetFolders(m_folder.Path() + ";" + m_sub);
    EXPECT_TRUE(Ask(
        [&](HWND dialog) {
            SetFileName(dialog, "new.tif");
            PickFolder(dialog, 1);
            EXPECT_EQ(support::ShownFolder(dialog), m_sub);
        },
        FileDlg::kSave));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_sub + "\\new.tif"));
}

TEST_F(NativeFileDlg, GoesToAFolderByTheMouse)
{
    SetFolders(m_folder.Path() + ";" + m_sub);
    ModalScript script;
    script.Then(FindFileDialog, [](HWND dialog) { support::Click(support::CenterOf(ControlOf(dialog, kFolders))); })
        .Then(
            [] {
                const HWND dialog = FindFileDialog();
                return ::SendMessageA(ControlOf(dialog, kFolders), CB_GETDROPPEDSTATE, 0, 0) ? dialog : nullptr;
            },
            [](HWND) {
                support::PressKey(VK_DOWN);
                support::PressKey(VK_RETURN);
            })
        .Then(
            [&] {
                const HWND dialog = FindFileDialog();
                return dialog && support::ShownFolder(dialog) == m_sub ? dialog : nullptr;
            },
            [](HWND dialog) { PressButton(dialog, IDCANCEL); })
        .Start();
    EXPECT_FALSE(Open());
    EXPECT_TRUE(script.Done());
    AllowGdiGrowth("the brush of dropped lists");
}

TEST_F(NativeFileDlg, AFolderThatIsGoneIsReportedAndTheDialogStays)
{
    SetFolders(m_folder.Path() + ";C:\\tavkit gone");
    EXPECT_TRUE(Ask([&](HWND dialog) {
        SetFileName(dialog, "a.tif");
        PickFolder(dialog, 1);
        EXPECT_THAT(m_told.m_texts, ElementsAre("notice: Folder 'C:\\tavkit gone' not found"));
        EXPECT_EQ(FindFileDialog(), dialog);
        EXPECT_EQ(PickedFolder(dialog), 1) << "the row stays selected";
        EXPECT_EQ(support::FileName(dialog), "a.tif");
        EXPECT_EQ(support::ShownFolder(dialog) + "\\", m_folder.Path());
    }));
}

TEST_F(NativeFileDlg, NoRowAndAnEmptyRowLeadNowhere)
{
    SetFolders("C:\\tavkit gone");
    EXPECT_TRUE(Ask([&](HWND dialog) {
        PickFolder(dialog, -1);
        ::SendMessageA(ControlOf(dialog, kFolders), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(""));
        PickFolder(dialog, 1);
        EXPECT_THAT(m_told.m_texts, IsEmpty());
        EXPECT_EQ(FindFileDialog(), dialog);
        SetFileName(dialog, "a.tif");
    }));
}

TEST_F(NativeFileDlg, TheCheckBoxesExcludeEachOther)
{
    m_dlg.SetDlgTmplId(6103);
    LookAt([](HWND dialog) {
        const HWND readOnly = ControlOf(dialog, kReadOnly);
        const HWND edit = ControlOf(dialog, kProjectEdit);
        Check(readOnly);
        EXPECT_TRUE(IsChecked(readOnly));
        Check(edit);
        EXPECT_TRUE(IsChecked(edit));
        EXPECT_FALSE(IsChecked(readOnly));
        Check(readOnly);
        EXPECT_FALSE(IsChecked(edit));
        Check(readOnly);
        EXPECT_FALSE(IsChecked(readOnly)) << "both may be clear";
        EXPECT_FALSE(IsChecked(edit));
    });
}

TEST_F(NativeFileDlg, TheCheckBoxesComeBack)
{
    struct Row
    {
        std::vector<int> clicks;
        bool readOnly;
        bool editOnly;
    };
    m_dlg.SetDlgTmplId(6103);
    const Row table[] = {
        {{kReadOnly}, true, false},
        {{kProjectEdit}, false, true},
        {{kReadOnly, kProjectEdit}, false, true},
        {{kProjectEdit, kReadOnly}, true, false},
        {{kReadOnly, kReadOnly}, false, false},
        {{}, false, false},
    };
    for (Row const& row : table)
    {
        EXPECT_TRUE(Ask([&](HWND dialog) {
            for (const int id : row.clicks)
            {
                Check(ControlOf(dialog, id));
            }
            SetFileName(dialog, "a.tif");
        }));
        EXPECT_EQ(m_dlg.GetChckReadOnly(), row.readOnly);
        EXPECT_EQ(m_dlg.GetChckEditOnly(), row.editOnly);
    }
}

TEST_F(NativeFileDlg, GrowingWidensTheFoldersAndNothingElse)
{
    LookAt([](HWND dialog) {
        const CRect combo = PlaceOf(ControlOf(dialog, kFolders));
        CRect dropped;
        ::SendMessageA(ControlOf(dialog, kFolders), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        std::vector<CRect> others;
        const std::vector<int> ids = {kFoldersLabel, kOptionsLabel, kOptions};
        for (const int id : ids)
        {
            others.push_back(PlaceOf(ControlOf(dialog, id)));
        }
        CRect window;
        ::GetWindowRect(dialog, window);
        // What the system moves down with the lower edge moves together.
        for (const CSize growth : {CSize(120, 60), CSize(40, 0), CSize(40, 90), CSize(0, 0)})
        {
            ::SetWindowPos(dialog, nullptr, 0, 0, window.Width() + growth.cx, window.Height() + growth.cy,
                           SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            const CRect now = PlaceOf(ControlOf(dialog, kFolders));
            const CPoint moved = now.TopLeft() - combo.TopLeft();
            EXPECT_EQ(moved.x, 0) << "the left edge stays";
            EXPECT_EQ(now.Width(), combo.Width() + growth.cx);
            EXPECT_EQ(now.Height(), combo.Height());
            for (size_t i = 0; i < ids.size(); ++i)
            {
                EXPECT_EQ(PlaceOf(ControlOf(dialog, ids[i])), others[i] + moved) << ids[i];
            }
        }
        CRect after;
        ::SendMessageA(ControlOf(dialog, kFolders), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&after));
        EXPECT_EQ(after.Height(), dropped.Height()) << "its list is as high as before";
    });
}

TEST_F(NativeFileDlg, GrowingLeavesHiddenFoldersAlone)
{
    LookAt(
        [](HWND dialog) {
            const CRect combo = PlaceOf(ControlOf(dialog, kFolders));
            CRect window;
            ::GetWindowRect(dialog, window);
            ::SetWindowPos(dialog, nullptr, 0, 0, window.Width() + 100, window.Height(),
                           SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            EXPECT_EQ(PlaceOf(ControlOf(dialog, kFolders)), combo);
        },
        "");
}

TEST_F(NativeFileDlg, ThePanelIsReachedByTheTabKeyAndEnterInItEndsTheDialog)
{
    const auto whenFocused = [](int id) {
        return [id] {
            const HWND dialog = FindFileDialog();
            return dialog && ::GetFocus() == ControlOf(dialog, id) ? dialog : nullptr;
        };
    };
    ModalScript script;
    script
        .Then(
            [] {
                const HWND dialog = FindFileDialog();
                return ::IsChild(::GetDlgItem(dialog, support::kFileNameBox), ::GetFocus()) ? dialog : nullptr;
            },
            [](HWND dialog) {
                SetFileName(dialog, "a.tif");
                ::SetFocus(ControlOf(dialog, kFolders));
                support::PressKey(VK_TAB);
            })
        .Then(whenFocused(kOptions), [](HWND) { support::TypeText("page=7"); })
        .Then(
            [] {
                const HWND dialog = FindFileDialog();
                return TextOf(ControlOf(dialog, kOptions)) == "page=7" ? dialog : nullptr;
            },
            [](HWND) { support::PressKey(VK_RETURN); })
        .Start();
    EXPECT_TRUE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif?page=7")));
}
