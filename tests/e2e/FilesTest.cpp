// FilesTest.cpp - the commands of the File menu, in the system's own dialogs
#include "WorkbenchFixture.h"

#include "automation/Controls.h"
#include "workbench/resource.h"

#include <fstream>
#include <sstream>

namespace e2e
{
namespace
{
using support::Click;
using support::PressKey;
using support::PumpUntil;
using support::TypeText;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kHistory[] = "Software\\TavKit\\Workbench\\DefaultFolders";
constexpr char kLastFolders[] = "Software\\TavKit\\TavKit Workbench\\Settings";

// Titles of the dialogs.
constexpr char kOpenWorkspace[] = "Open Workspace...";
constexpr char kSaveWorkspace[] = "Save Workspace as...";
constexpr char kOpenProject[] = "Open Project...";
constexpr char kSaveProject[] = "Save Project as...";
constexpr char kImportImages[] = "Import Image Layers...";
constexpr char kImportThematic[] = "Import Thematic Layer...";
constexpr char kLoadTable[] = "Load Table...";
constexpr char kSaveContents[] = "Save contents";

// Controls of the dialogs.
constexpr int kFileName = 1148;
constexpr int kFolderTree = 14145;
constexpr int kSelectorTree = 1001;
constexpr int kSelectorList = 6004;
constexpr int kProjectEdit = 6010;
constexpr int kReadOnly = 6011;
constexpr int kOptions = 6012;
constexpr int kMessageText = 65535;

class FilesTest : public WorkbenchTest
{
protected:
    void SetUp() override
    {
        WorkbenchTest::SetUp();
        ::RegDeleteTreeA(HKEY_CURRENT_USER, kHistory);
    }
    void TearDown() override
    {
        WorkbenchTest::TearDown();
        ::RegDeleteTreeA(HKEY_CURRENT_USER, kHistory);
    }

    /// A picture in the project's folder, and a folder "more" beside the project with another one.
    void StartWithPictures()
    {
        std::filesystem::create_directories(Folder() / "project");
        std::filesystem::create_directories(Folder() / "more");
        WriteTwoColours("project\\a.bmp", 40, 40);
        m_more = WriteTwoColours("more\\b.bmp", 60, 30);
        Start((Folder() / "project").string());
        ASSERT_TRUE(TreeIs("project(a.bmp)"));
    }
    /// Does a command of the menu bar.
    void Command(UINT id) const { ::PostMessageA(Workbench().Window(), WM_COMMAND, id, 0); }
    [[nodiscard]] WorkbenchProcess& Workbench() const
    {
        return const_cast<FilesTest*>(this)->WorkbenchTest::Workbench();
    }
    [[nodiscard]] bool TreeIs(const std::string& rows)
    {
        const bool is = PumpUntil([&] { return Workbench().TreeRows() == rows; });
        EXPECT_EQ(Workbench().TreeRows(), rows);
        return is;
    }
    [[nodiscard]] bool StatusIs(const std::string& text)
    {
        const bool is = PumpUntil([&] { return Workbench().Status(statusName) == text; });
        EXPECT_EQ(Workbench().Status(statusName), text);
        return is;
    }

    /// Waits for a dialog for files, ready for a name.
    [[nodiscard]] HWND AwaitFileDialog(const char* title)
    {
        HWND dialog = nullptr;
        EXPECT_TRUE(PumpUntil([&] {
            dialog = Workbench().Popup(kDialogClass, title);
            HWND name = dialog ? ::GetDlgItem(dialog, kFileName) : nullptr;
            return name && ::IsChild(name, Workbench().Focus());
        })) << title;
        return dialog;
    }
    /// Types the name of a file into a dialog.
    void TypeName(HWND dialog, const std::string& name)
    {
        HWND field = ::GetDlgItem(dialog, kFileName);
        TypeText(name);
        ASSERT_TRUE(PumpUntil([&] { return TextOf(field) == name; }));
    }
    /// Answers a dialog by the name of a file and Enter.
    void Answer(const char* title, const std::string& name)
    {
        HWND dialog = AwaitFileDialog(title);
        ASSERT_NE(dialog, nullptr);
        TypeName(dialog, name);
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(dialog) || !::IsWindowVisible(dialog); }));
    }
    void Cancel(const char* title)
    {
        HWND dialog = AwaitFileDialog(title);
        ASSERT_NE(dialog, nullptr);
        PressKey(VK_ESCAPE);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(dialog); }));
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == Workbench().Window(); }));
    }
    /// Waits for a message box, checks what it says and closes it.
    void AnswerProblem(const std::string& text)
    {
        HWND box = nullptr;
        ASSERT_TRUE(PumpUntil([&] {
            box = Workbench().Popup(kDialogClass, kTitle);
            return box && ::GetForegroundWindow() == box;
        }));
        EXPECT_THAT(TextOf(::GetDlgItem(box, kMessageText)), HasSubstr(text));
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(box); }));
    }
    [[nodiscard]] HWND AwaitPart(int id)
    {
        HWND dialog = nullptr;
        EXPECT_TRUE(PumpUntil([&] {
            dialog = Workbench().Popup(kDialogClass, nullptr);
            return dialog && ::GetDlgItem(dialog, id) && ::GetForegroundWindow() == dialog;
        }));
        ::SendMessageA(dialog, WM_NULL, 0, 0); // it is done with opening
        support::Settle();
        return dialog;
    }
    void ImportWithOptions(const std::string& path, const std::string& text)
    {
        Command(IDM_FILE_IMPORT_IMAGES);
        HWND dialog = AwaitFileDialog(kImportImages);
        ASSERT_NE(dialog, nullptr);
        TypeName(dialog, path);
        HWND options = automation::FindControl(dialog, kOptions);
        ASSERT_NE(options, nullptr);
        ASSERT_TRUE(ClickUntil(options, [&] { return Workbench().Focus() == options; }));
        TypeText(text);
        ASSERT_TRUE(PumpUntil([&] { return TextOf(options) == text; }));
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(dialog); }));
    }
    /// Opens a workspace with one of the check boxes checked.
    void OpenWorkspaceWith(int box, const std::string& path)
    {
        Command(IDM_FILE_OPEN_WORKSPACE);
        HWND dialog = AwaitFileDialog(kOpenWorkspace);
        ASSERT_NE(dialog, nullptr);
        TypeName(dialog, path);
        HWND check = automation::FindControl(dialog, box);
        ASSERT_NE(check, nullptr);
        ASSERT_TRUE(ClickUntil(check, [&] { return ::SendMessageA(check, BM_GETCHECK, 0, 0) == BST_CHECKED; }));
        HWND name = ::GetDlgItem(dialog, kFileName);
        ASSERT_TRUE(ClickUntil(name, [&] { return ::IsChild(name, Workbench().Focus()) != FALSE; }));
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(dialog); }));
    }
    /// Answers the system's question whether a file is to be replaced by "Yes".
    void Replace(const char* title, const std::string& path)
    {
        HWND dialog = AwaitFileDialog(title);
        ASSERT_NE(dialog, nullptr);
        TypeName(dialog, path);
        PressKey(VK_RETURN);
        HWND box = nullptr;
        ASSERT_TRUE(PumpUntil([&] {
            box = ::GetForegroundWindow();
            return box != dialog && ::GetWindow(box, GW_OWNER) == dialog;
        }));
        PressKey('Y', {VK_MENU});
    }
    [[nodiscard]] std::string Bytes(const std::filesystem::path& path) const
    {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    std::string m_more; ///< a picture outside the project
};

using WorkbenchFiles = FilesTest;

TEST_F(WorkbenchFiles, AnImageLayerIsImportedIntoTheProjectAndShown)
{
    StartWithPictures();
    PressKey('I', {VK_CONTROL});
    Cancel(kImportImages);
    EXPECT_TRUE(TreeIs("project(a.bmp)")) << "Esc changes nothing";

    PressKey('I', {VK_CONTROL});
    Answer(kImportImages, m_more);
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))"));
    EXPECT_TRUE(Shows(m_more));
    EXPECT_EQ(Workbench().TreeChosen(), "b.bmp");

    PressKey(VK_F5);
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))")) << "it is there still";
    PressKey('I', {VK_CONTROL});
    Answer(kImportImages, m_more);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Popup(kDialogClass) == nullptr; }));
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))")) << "once is enough";
}

TEST_F(WorkbenchFiles, SeveralImageLayersAreImportedAtATime)
{
    StartWithPictures();
    WriteTwoColours("more\\c.bmp", 30, 30);
    WriteFile("more\\bad.bmp", "no picture");
    Command(IDM_FILE_IMPORT_IMAGES);
    HWND dialog = AwaitFileDialog(kImportImages);
    ASSERT_NE(dialog, nullptr);
    TypeName(dialog, (Folder() / "more").string());
    PressKey(VK_RETURN); // goes there
    ASSERT_TRUE(PumpUntil([&] { return TextOf(::GetDlgItem(dialog, kFileName)).empty(); }));
    TypeName(dialog, "\"b.bmp\" \"bad.bmp\" \"c.bmp\"");
    PressKey(VK_RETURN);
    AnswerProblem("wasn't imported:\n\nbad.bmp");
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp c.bmp))"));
    EXPECT_TRUE(Shows(m_more));
}

TEST_F(WorkbenchFiles, ASlideOfSeveralPagesAsksWhichOnes)
{
    StartWithPictures();
    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, support::SamplePath("slides.tif"));
    HWND selector = AwaitPart(kSelectorList);
    ASSERT_NE(selector, nullptr);
    HWND list = ::GetDlgItem(selector, kSelectorList);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().RowCount(list) > 1; }));
    const std::string second = Workbench().Cell(list, 1, 0);
    ASSERT_TRUE(::GetDlgItem(selector, kSelectorTree));
    Workbench().ClickCell(list, 1, 0);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().SelectedRow(list) == 1; }));
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(selector); }));
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(slides.tif, page=1))")) << second;
    EXPECT_TRUE(StatusIs("slides.tif, page=1"));
    EXPECT_TRUE(Shows(support::SamplePath("slides.tif") + "?page=1"));

    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, support::SamplePath("slides.tif"));
    selector = AwaitPart(kSelectorList);
    ASSERT_NE(selector, nullptr);
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(selector); }));

    ImportWithOptions(support::SamplePath("slides.tif"), "sharp");
    selector = AwaitPart(kSelectorList);
    ASSERT_NE(selector, nullptr);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().RowCount(::GetDlgItem(selector, kSelectorList)) > 1; }))
        << "whatever the options are";
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kDialogClass) == nullptr; }));
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(slides.tif, page=1))")) << "Esc changes nothing";
}

TEST_F(WorkbenchFiles, OptionsTypedIntoThePanelBecomeAPartOfTheLayer)
{
    StartWithPictures();
    const std::string slides = support::SamplePath("slides.tif");
    ImportWithOptions(slides, "page=2"); // which also says what is meant: nothing is asked
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(slides.tif, page=2))"));
    EXPECT_TRUE(StatusIs("slides.tif, page=2"));
    EXPECT_TRUE(Shows(slides + "?page=2"));

    ImportWithOptions(m_more, "sharp");
    AnswerProblem("wasn't imported:\n\nb.bmp, sharp");
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(slides.tif, page=2))")) << "an option that no picture has";
}

TEST_F(WorkbenchFiles, WhatCantBeReadIsToldAndNotImported)
{
    StartWithPictures();
    const std::string whole = Bytes(m_more);
    const std::string cut = WriteFile("more\\cut.bmp", whole.substr(0, whole.size() / 2));
    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, cut);
    AnswerProblem("wasn't imported:\n\ncut.bmp");
    EXPECT_TRUE(TreeIs("project(a.bmp)"));
    EXPECT_TRUE(Shows((Folder() / "project" / "a.bmp").string()));
    EXPECT_EQ(Bytes(cut).size(), whole.size() / 2);
}

TEST_F(WorkbenchFiles, AThematicLayerIsImportedIntoTheProject)
{
    StartWithPictures();
    const std::string cells = WriteFile("more\\cells.shp", "vector data");
    Command(IDM_FILE_IMPORT_THEMATIC);
    Cancel(kImportThematic);
    EXPECT_TRUE(TreeIs("project(a.bmp)"));
    Command(IDM_FILE_IMPORT_THEMATIC);
    Answer(kImportThematic, cells);
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(cells.shp))"));
    EXPECT_TRUE(ViewHolds("\"cells.shp\" holds vector data"));
}

TEST_F(WorkbenchFiles, ATableIsLoadedBesideThePictureAndIntoTheProject)
{
    StartWithPictures();
    const std::string table = WriteFile("more\\t.csv", "Name,Count\r\none,1\r\ntwo,2\r\n");
    Command(IDM_FILE_LOAD_TABLE);
    Cancel(kLoadTable);
    EXPECT_EQ(Workbench().RowCount(Workbench().Table()), 0);
    Command(IDM_FILE_LOAD_TABLE);
    Answer(kLoadTable, table);
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(t.csv))"));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().RowCount(Workbench().Table()) == 2; }));
    EXPECT_TRUE(Shows((Folder() / "project" / "a.bmp").string())) << "the picture stays";

    const std::string none = WriteFile("more\\none.dbf", "no table");
    Command(IDM_FILE_LOAD_TABLE);
    Answer(kLoadTable, none);
    AnswerProblem("can't be opened as a table");
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(t.csv))"));
    EXPECT_EQ(Workbench().RowCount(Workbench().Table()), 2) << "the table before stays";
}

TEST_F(WorkbenchFiles, TheContentsOfTheListThatHasTheKeyboardAreSaved)
{
    StartWithPictures();
    const auto out = Folder() / "out.csv";
    PressKey('S', {VK_CONTROL});
    Cancel(kSaveContents);
    EXPECT_FALSE(std::filesystem::exists(out));
    PressKey('S', {VK_CONTROL});
    Answer(kSaveContents, out.string());
    ASSERT_TRUE(PumpUntil([&] { return std::filesystem::exists(out); }));
    EXPECT_THAT(Bytes(out), HasSubstr("\r\na.bmp,")) << "the list of pictures";

    std::string rows = "Name,Count\r\n";
    for (int i = 0; i < 500; ++i)
    {
        rows += "row" + std::to_string(i) + "," + std::to_string(i) + "\r\n";
    }
    Command(IDM_FILE_LOAD_TABLE);
    Answer(kLoadTable, WriteFile("more\\t.csv", rows));
    ASSERT_TRUE(PumpUntil([&] { return Workbench().RowCount(Workbench().Table()) > 2; }));
    Workbench().ClickCell(Workbench().Table(), 0, 1);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Table(); }));
    const auto table = Folder() / "table.csv";
    PressKey('S', {VK_CONTROL});
    Answer(kSaveContents, table.string());
    ASSERT_TRUE(PumpUntil([&] { return std::filesystem::exists(table); }));
    EXPECT_THAT(Bytes(table), StartsWith("ID,Name,Count\r\n"));
    EXPECT_THAT(Bytes(table), testing::EndsWith(",row499,499\r\n")) << "also what nobody has looked at";
}

TEST_F(WorkbenchFiles, AProjectComesBackInTheNextProcess)
{
    StartWithPictures();
    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, m_more);
    ASSERT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))"));
    const auto file = Folder() / "p.tkp";
    Command(IDM_FILE_SAVE_PROJECT);
    Cancel(kSaveProject);
    Command(IDM_FILE_SAVE_PROJECT);
    Answer(kSaveProject, file.string());
    ASSERT_TRUE(PumpUntil([&] { return std::filesystem::exists(file); }));
    EXPECT_THAT(Bytes(file), HasSubstr("path=\"more\\b.bmp\""));

    Start(Samples());
    Command(IDM_FILE_OPEN_PROJECT);
    Cancel(kOpenProject);
    EXPECT_THAT(Workbench().TreeRows(), StartsWith("samples("));
    Command(IDM_FILE_OPEN_PROJECT);
    Answer(kOpenProject, file.string());
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))"));
    EXPECT_TRUE(Shows((Folder() / "project" / "a.bmp").string()));
}

TEST_F(WorkbenchFiles, AWorkspaceShowsWhatItShowed)
{
    StartWithPictures();
    Command(IDM_FILE_LOAD_TABLE);
    Answer(kLoadTable, WriteFile("more\\t.csv", "Name,Count\r\none,1\r\ntwo,2\r\n"));
    ASSERT_TRUE(TreeIs("project(a.bmp Imported(t.csv))"));
    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, m_more);
    ASSERT_TRUE(Shows(m_more));
    Click(Workbench().Field());
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
    PressKey(VK_END);
    const std::string pixelSize = Workbench().FieldText() + "7";
    TypeText("7");
    ASSERT_TRUE(PumpUntil([&] { return Workbench().FieldText() == pixelSize; }));
    const auto file = Folder() / "w.tkw";
    Command(IDM_FILE_SAVE_WORKSPACE);
    Answer(kSaveWorkspace, file.string());
    ASSERT_TRUE(PumpUntil([&] { return std::filesystem::exists(file); }));

    ::RegDeleteTreeA(HKEY_CURRENT_USER, kSettingsKey);
    Start(Samples());
    ASSERT_NE(Workbench().FieldText(), pixelSize);
    Command(IDM_FILE_OPEN_WORKSPACE);
    Cancel(kOpenWorkspace);
    Command(IDM_FILE_OPEN_WORKSPACE);
    Answer(kOpenWorkspace, file.string());
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(t.csv b.bmp))"));
    EXPECT_TRUE(Shows(m_more));
    EXPECT_EQ(Workbench().FieldText(), pixelSize);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().RowCount(Workbench().Table()) == 2; }));
}

TEST_F(WorkbenchFiles, AWorkspaceIsOpenedForItsProjectAloneOrReadOnly)
{
    StartWithPictures();
    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, m_more);
    ASSERT_TRUE(Shows(m_more));
    const std::string file = (Folder() / "w.tkw").string();
    Command(IDM_FILE_SAVE_WORKSPACE);
    Answer(kSaveWorkspace, file);
    ASSERT_TRUE(PumpUntil([&] { return std::filesystem::exists(file); }));

    OpenWorkspaceWith(kProjectEdit, file);
    EXPECT_TRUE(Shows((Folder() / "project" / "a.bmp").string())) << "not what the workspace showed";
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))"));

    OpenWorkspaceWith(kReadOnly, file);
    EXPECT_TRUE(Shows(m_more));
    const std::string before = Bytes(file);
    Command(IDM_FILE_SAVE_WORKSPACE);
    Replace(kSaveWorkspace, file);
    AnswerProblem("was opened read-only");
    EXPECT_EQ(Bytes(file), before);
}

TEST_F(WorkbenchFiles, BadProjectsAreToldAndChangeNothing)
{
    StartWithPictures();
    struct Bad
    {
        const char* name;
        std::string bytes;
        const char* told;
    };
    const std::string bomb = "<?xml version=\"1.0\"?><!DOCTYPE x [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;&a;\">]>"
                             "<Project folder=\"&b;\"/>";
    for (const Bad& bad :
         {Bad{"cut.tkp", "<Project folder=\"project\"><Picture", "well-formed XML"},
          Bad{"binary.tkp", std::string(1000, '\x7f'), "well-formed XML"}, Bad{"bomb.tkp", bomb, "well-formed XML"},
          Bad{"other.tkp", "<Product/>", "isn't a project"}, Bad{"empty.tkp", "<Project/>", "which folder"},
          Bad{"gone.tkp", "<Project folder=\"gone\"/>", "gone\" isn't there"}})
    {
        const std::string path = WriteFile(bad.name, bad.bytes);
        Command(IDM_FILE_OPEN_PROJECT);
        Answer(kOpenProject, path);
        AnswerProblem(bad.told);
        EXPECT_TRUE(TreeIs("project(a.bmp)")) << bad.name;
    }
    Command(IDM_FILE_OPEN_WORKSPACE);
    Answer(kOpenWorkspace, WriteFile("none.tkw", "<Workspace/>"));
    AnswerProblem("There is no project in it");
    EXPECT_TRUE(Shows((Folder() / "project" / "a.bmp").string()));
}

TEST_F(WorkbenchFiles, AFileThatCantBeWrittenIsTold)
{
    StartWithPictures();
    const std::string path = WriteFile("held.tkp", "old");
    const HANDLE held = ::CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    Command(IDM_FILE_SAVE_PROJECT);
    Replace(kSaveProject, path);
    AnswerProblem("can't be written");
    ::CloseHandle(held);
    EXPECT_EQ(Bytes(path), "old");
}

TEST_F(WorkbenchFiles, CtrlOOpensAFolderAndBeginsInTheLastOneInTheNextProcess)
{
    StartWithPictures();
    const std::string more = (Folder() / "more").string();
    ASSERT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, kLastFolders, "ImageFolders", REG_SZ, more.c_str(),
                                static_cast<DWORD>(more.size() + 1)),
              ERROR_SUCCESS);
    PressKey('O', {VK_CONTROL});
    HWND browser = AwaitPart(kFolderTree);
    ASSERT_NE(browser, nullptr);
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(browser); }));
    EXPECT_TRUE(TreeIs("project(a.bmp)")) << "Esc changes nothing";

    PressKey('O', {VK_CONTROL});
    browser = AwaitPart(kFolderTree);
    ASSERT_NE(browser, nullptr);
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(browser); }));
    EXPECT_TRUE(TreeIs("more(b.bmp)"));
    EXPECT_TRUE(Shows(m_more));

    Start((Folder() / "project").string());
    ASSERT_TRUE(TreeIs("project(a.bmp)"));
    PressKey('O', {VK_CONTROL});
    ASSERT_NE(browser = AwaitPart(kFolderTree), nullptr);
    PressKey(VK_RETURN);
    EXPECT_TRUE(TreeIs("more(b.bmp)")) << "the last folder is remembered";
}

TEST_F(WorkbenchFiles, TheLastFolderOfTheLayersComesBackInTheNextProcess)
{
    StartWithPictures();
    Command(IDM_FILE_IMPORT_IMAGES);
    Answer(kImportImages, m_more);
    ASSERT_TRUE(Shows(m_more));
    ASSERT_TRUE(CloseByKeys().has_value());

    Start((Folder() / "project").string());
    Command(IDM_FILE_IMPORT_IMAGES);
    HWND dialog = AwaitFileDialog(kImportImages);
    ASSERT_NE(dialog, nullptr);
    TypeName(dialog, "b.bmp"); // without its folder, which the dialog must know
    PressKey(VK_RETURN);
    EXPECT_TRUE(TreeIs("project(a.bmp Imported(b.bmp))"));
}

TEST_F(WorkbenchFiles, TheFirstEntryOfTheFileMenuAsksForAWorkspace)
{
    StartWithPictures();
    Click(support::ScreenPoint(Workbench().Window(), 12, -::GetSystemMetrics(SM_CYMENU) / 2));
    HWND popup = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (popup = Workbench().Popup(kMenuClass)) != nullptr; }));
    support::Settle();
    const RECT entries = WindowRect(popup);
    Click(POINT{(entries.left + entries.right) / 2, entries.top + ::GetSystemMetrics(SM_CYMENU) / 2});
    Cancel(kOpenWorkspace);
}
} // namespace
} // namespace e2e
