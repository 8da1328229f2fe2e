// ProjectTest.cpp - the workbench's project, driven by mouse and keyboard
#include "WorkbenchFixture.h"

#include "host/FileBytes.h"
#include "support/FolderLink.h"
#include "support/TiffWriter.h"
#include "workbench/resource.h"

#include <filesystem>

namespace e2e
{
namespace
{
using support::Button;
using support::Click;
using support::PressKey;
using support::PumpUntil;
using support::TypeText;
using testing::ElementsAre;

/// As many characters of a label the control hands over at least.
constexpr std::size_t kLongestEdited = 259;

/// A folder with the pictures a.bmp and b.bmp, a stack of two pages, a table and the folder "more" with c.bmp.
class WorkbenchProject : public WorkbenchTest
{
protected:
    void SetUp() override
    {
        WorkbenchTest::SetUp();
        WriteTwoColours("a.bmp", 40, 40);
        WriteTwoColours("b.bmp", 60, 40);
        WriteFile("t.csv", "x,y\r\n1,2\r\n");
        support::TiffWriter stack;
        stack.AddPage({.width = 20, .height = 10});
        stack.AddPage({.width = 30, .height = 10});
        ASSERT_TRUE(stack.Save((Folder() / "stack.tif").string()));
        std::filesystem::create_directory(Folder() / "more");
        WriteTwoColours("more\\c.bmp", 40, 40);
        Start(Folder().string());
        m_name = Folder().filename().string();
        ASSERT_TRUE(HasRows("(more+ a.bmp b.bmp stack.tif+ t.csv)"));
    }

    /// Waits until the tree shows that under the opened folder.
    [[nodiscard]] bool HasRows(const std::string& rows)
    {
        return PumpUntil([&] { return Workbench().TreeRows() == m_name + rows; });
    }
    [[nodiscard]] bool IsChosen(const std::string& label)
    {
        return PumpUntil([&] { return Workbench().TreeChosen() == label; });
    }
    /// Clicks on a row and waits until it is chosen.
    void Choose(const std::string& label)
    {
        Click(Workbench().TreePlace(label));
        EXPECT_TRUE(IsChosen(label)) << label;
    }
    /// Pulls a row onto another until that is marked as the target; the button stays down.
    void Pull(const std::string& label, const std::string& onto, Button button)
    {
        const HTREEITEM target = Workbench().TreeRow(onto);
        const POINT to = Workbench().TreePlace(onto);
        support::MoveMouse(Workbench().TreePlace(label));
        support::Press(button);
        bool away = false;
        // The control takes up the drag at a move that comes while it waits for it, and marks the target at the next.
        EXPECT_TRUE(PumpUntil([&] {
            away = !away;
            support::MoveMouse({to.x + (away ? 1 : 0), to.y});
            return Workbench().IsTreeTarget(target);
        }));
    }
    void Drag(const std::string& label, const std::string& onto)
    {
        Pull(label, onto, Button::left);
        support::Release(Button::left);
    }
    void RightDrag(const std::string& label, const std::string& onto, WORD answer)
    {
        Pull(label, onto, Button::right);
        support::Release(Button::right);
        ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
        PressKey(answer);
        ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) == nullptr; }));
    }
    [[nodiscard]] std::string Path(const std::string& name) const { return Folder().string() + "\\" + name; }

    std::string m_name;
};

TEST_F(WorkbenchProject, APictureChosenInTheTreeIsShownAndChosenInTheList)
{
    Choose("b.bmp");
    EXPECT_TRUE(Shows(Path("b.bmp")));
    EXPECT_EQ(Workbench().Chosen(), "b.bmp");
    EXPECT_EQ(Workbench().Status(statusName), "b.bmp");
    EXPECT_EQ(Workbench().Status(statusSize), "60 x 40 pixels");
}

TEST_F(WorkbenchProject, APictureChosenInTheListIsChosenInTheTree)
{
    EXPECT_TRUE(IsChosen("a.bmp")) << "from the start";
    Workbench().ClickLine(1);
    EXPECT_TRUE(IsChosen("b.bmp"));
    PressKey(VK_NEXT, {VK_CONTROL});
    EXPECT_TRUE(IsChosen("stack.tif"));
}

TEST_F(WorkbenchProject, AFolderIsListedAndItsPicturesAreShown)
{
    Choose("more");
    EXPECT_TRUE(Shows("One picture in \"more\"."));
    EXPECT_THAT(Workbench().Names(), ElementsAre("c.bmp"));
    EXPECT_EQ(Workbench().Chosen(), "");
    PressKey(VK_RIGHT);
    ASSERT_TRUE(HasRows("(more(c.bmp) a.bmp b.bmp stack.tif+ t.csv)"));
    PressKey(VK_RIGHT);
    EXPECT_TRUE(IsChosen("c.bmp"));
    EXPECT_TRUE(Shows(Path("more\\c.bmp")));
    EXPECT_EQ(Workbench().Chosen(), "c.bmp");
    Choose("a.bmp");
    EXPECT_TRUE(Shows(Path("a.bmp")));
    EXPECT_THAT(Workbench().Names(), ElementsAre("a.bmp", "b.bmp", "stack.tif"));
}

TEST_F(WorkbenchProject, ATableChosenInTheTreeOpensInTheList)
{
    Choose("t.csv");
    ASSERT_TRUE(PumpUntil([&] { return Workbench().RowCount(Workbench().Table()) == 1; }));
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 0, 1), "1") << "behind the number of the row";
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 0, 2), "2");
    EXPECT_EQ(Workbench().TreeChosen(), "t.csv");
    EXPECT_TRUE(Shows(Path("a.bmp"))) << "the picture stays";
}

TEST_F(WorkbenchProject, APictureThatIsRenamedInTheListIsStillFoundByTheTree)
{
    Workbench().ClickLine(1);
    ASSERT_TRUE(IsChosen("b.bmp"));
    PressKey(VK_F2);
    TypeText("new.bmp");
    PressKey(VK_RETURN);
    ASSERT_TRUE(HasRows("(more+ a.bmp new.bmp stack.tif+ t.csv)"));
    Choose("a.bmp");
    Choose("new.bmp");
    EXPECT_TRUE(Shows(Path("new.bmp")));
}

TEST_F(WorkbenchProject, PagesOfAStackAreShownOneByOne)
{
    Choose("stack.tif");
    PressKey(VK_RIGHT);
    ASSERT_TRUE(HasRows("(more+ a.bmp b.bmp stack.tif(Page 0 Page 1) t.csv)"));
    Choose("Page 1");
    EXPECT_TRUE(Shows(Path("stack.tif?page=1")));
    EXPECT_EQ(Workbench().Status(statusSize), "30 x 10 pixels");
    EXPECT_EQ(Workbench().Status(statusName), "stack.tif, Page 1");
    EXPECT_EQ(Workbench().Chosen(), "stack.tif");
    Choose("Page 0");
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusSize) == "20 x 10 pixels"; }));
}

TEST_F(WorkbenchProject, ItemsAreDraggedToReorderAndToGroup)
{
    Drag("b.bmp", "a.bmp");
    ASSERT_TRUE(HasRows("(more+ b.bmp a.bmp stack.tif+ t.csv)"));
    Drag("t.csv", "more");
    ASSERT_TRUE(HasRows("(more(c.bmp t.csv) b.bmp a.bmp stack.tif+)"));
    Choose("a.bmp");
    PressKey('G', {VK_CONTROL});
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageA(Workbench().Tree(), TVM_GETEDITCONTROL, 0, 0) != 0; }));
    TypeText("Cells");
    PressKey(VK_RETURN);
    ASSERT_TRUE(HasRows("(more(c.bmp t.csv) b.bmp Cells a.bmp stack.tif+)"));
    EXPECT_TRUE(Shows("0 items in \"Cells\"."));
    Drag("a.bmp", "Cells");
    Drag("b.bmp", "Cells");
    ASSERT_TRUE(HasRows("(more(c.bmp t.csv) Cells(a.bmp b.bmp) stack.tif+)"));
    EXPECT_TRUE(Shows(Path("b.bmp")));
    EXPECT_TRUE(std::filesystem::exists(Folder() / "a.bmp")) << "files stay where they are";
}

TEST_F(WorkbenchProject, ARightDragAsks)
{
    RightDrag("a.bmp", "more", VK_ESCAPE); // a second press on the same row would be a double click
    EXPECT_TRUE(HasRows("(more+ a.bmp b.bmp stack.tif+ t.csv)"));
    RightDrag("b.bmp", "more", 'C');
    EXPECT_TRUE(PumpUntil(
        [&] { return Workbench().TreeRows() == m_name + "(more(c.bmp b.bmp) a.bmp b.bmp stack.tif+ t.csv)"; }));
    RightDrag("a.bmp", "more", 'M');
    EXPECT_TRUE(HasRows("(more(c.bmp b.bmp a.bmp) b.bmp stack.tif+ t.csv)"));
}

TEST_F(WorkbenchProject, LabelsAreEdited)
{
    Choose("b.bmp");
    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageA(Workbench().Tree(), TVM_GETEDITCONTROL, 0, 0) != 0; }));
    TypeText("second");
    PressKey(VK_RETURN);
    EXPECT_TRUE(HasRows("(more+ a.bmp second stack.tif+ t.csv)"));
    EXPECT_TRUE(Shows(Path("b.bmp"))) << "the same picture";
}

TEST_F(WorkbenchProject, TheContextMenuActsOnTheRowUnderTheMouse)
{
    Click(Workbench().TreePlace("b.bmp"), Button::right);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    EXPECT_TRUE(IsChosen("b.bmp"));
    PressKey('R'); // Remove from Project
    EXPECT_TRUE(HasRows("(more+ a.bmp stack.tif+ t.csv)"));
    EXPECT_TRUE(std::filesystem::exists(Folder() / "b.bmp"));
    PressKey(VK_F5);
    EXPECT_TRUE(HasRows("(more+ a.bmp b.bmp stack.tif+ t.csv)")) << "reloading brings it back";
}

TEST_F(WorkbenchProject, TheContextMenuComesByTheKeyboardToo)
{
    Choose("b.bmp");
    PressKey(VK_APPS);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    const RECT menu = WindowRect(Workbench().Popup(kMenuClass));
    const POINT row = Workbench().TreePlace("b.bmp");
    EXPECT_LT(std::abs(menu.top - row.y), 30);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) == nullptr; }));
}

TEST_F(WorkbenchProject, EnterTellsTheDetailsOfWhatCannotBeRead)
{
    Choose("a.bmp");
    PressKey(VK_RETURN); // there is nothing to tell
    WriteFile("broken.tif", "II*");
    PressKey(VK_F5);
    ASSERT_TRUE(HasRows("(more+ a.bmp b.bmp broken.tif stack.tif+ t.csv)"));
    Choose("broken.tif");
    EXPECT_TRUE(Shows("\"broken.tif\" can't be read."));
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kDialogClass, kTitle) != nullptr; }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Popup(kDialogClass) == nullptr; }));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Tree(); }));
}

TEST_F(WorkbenchProject, WhatIsHiddenIsNotShown)
{
    Choose("b.bmp");
    PressKey('H', {VK_CONTROL});
    EXPECT_TRUE(Shows("\"b.bmp\" is hidden. Ctrl+H shows it."));
    PressKey('H', {VK_CONTROL});
    EXPECT_TRUE(Shows(Path("b.bmp")));
}

TEST_F(WorkbenchProject, CtrlArrowsMoveAnItemStepByStep)
{
    Choose("b.bmp");
    PressKey(VK_UP, {VK_CONTROL});
    EXPECT_TRUE(HasRows("(more+ b.bmp a.bmp stack.tif+ t.csv)"));
    PressKey(VK_DOWN, {VK_CONTROL});
    PressKey(VK_DOWN, {VK_CONTROL});
    EXPECT_TRUE(HasRows("(more+ a.bmp stack.tif+ b.bmp t.csv)"));
}

TEST_F(WorkbenchProject, IsSearchedFromTheFieldAndByF3)
{
    PressKey('F', {VK_CONTROL});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().FindField(); }));
    TypeText("BMP");
    PressKey(VK_RETURN);
    EXPECT_TRUE(IsChosen("b.bmp")) << "the next behind the one that is shown";
    EXPECT_TRUE(Shows(Path("b.bmp")));
    PressKey(VK_F3);
    EXPECT_TRUE(IsChosen("c.bmp")) << "from the top again, in a folder that was never unfolded";
    EXPECT_TRUE(Shows(Path("more\\c.bmp")));
    PressKey('F', {VK_CONTROL});
    TypeText("nowhere");
    PressKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusName) == "There is no \"nowhere\" in the project."; }));
    EXPECT_EQ(Workbench().TreeChosen(), "c.bmp");
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Tree(); }));
}

TEST_F(WorkbenchProject, AFolderThatVanishesIsTold)
{
    std::filesystem::remove_all(Folder() / "more");
    Choose("more");
    EXPECT_TRUE(ViewHolds("There is no folder or file"));
    PressKey(VK_RIGHT);
    EXPECT_TRUE(HasRows("(more a.bmp b.bmp stack.tif+ t.csv)"));
    EXPECT_TRUE(
        PumpUntil([&] { return Workbench().Status(statusName) == "The folder \"more\" isn't there any more."; }));
    EXPECT_EQ(CloseByKeys(), 0u);
}

TEST_F(WorkbenchProject, APictureThatVanishesLeavesTheOthersListed)
{
    Choose("more");
    std::filesystem::remove(Folder() / "b.bmp");
    Choose("b.bmp");
    EXPECT_TRUE(Shows("\"b.bmp\" isn't there any more."));
    EXPECT_THAT(Workbench().Names(), ElementsAre("a.bmp", "stack.tif"));
    EXPECT_EQ(Workbench().Chosen(), "");
    Choose("a.bmp");
    EXPECT_TRUE(Shows(Path("a.bmp")));
}

TEST_F(WorkbenchProject, AFolderThatCannotBeReadIsToldAndReadLater)
{
    {
        // Another program keeps the folder to itself.
        const host::FileHandle exclusive(::CreateFileA(Path("more").c_str(), FILE_LIST_DIRECTORY, 0, nullptr,
                                                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        ASSERT_TRUE(exclusive.IsValid());
        Choose("more");
        EXPECT_TRUE(Shows("The folder \"" + Path("more") + "\" can't be read."));
        PressKey(VK_RIGHT);
        EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusName) == "The folder \"more\" can't be read."; }));
        EXPECT_TRUE(HasRows("(more+ a.bmp b.bmp stack.tif+ t.csv)"));
    }
    PressKey(VK_RIGHT);
    EXPECT_TRUE(HasRows("(more(c.bmp) a.bmp b.bmp stack.tif+ t.csv)"));
}

TEST_F(WorkbenchProject, AFolderThatContainsItselfByALinkIsNotUnfoldedForEver)
{
    const support::FolderLink link(Path("more\\back"), Folder().string());
    Choose("more");
    PressKey(VK_RIGHT);
    ASSERT_TRUE(HasRows("(more(back c.bmp) a.bmp b.bmp stack.tif+ t.csv)"));
    Choose("back");
    EXPECT_TRUE(Shows("\"back\" is a link that leads to no other folder."));
    PressKey(VK_RIGHT);
    PressKey('F', {VK_CONTROL});
    TypeText("nowhere");
    PressKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusName) == "There is no \"nowhere\" in the project."; }));
    EXPECT_TRUE(HasRows("(more(back c.bmp) a.bmp b.bmp stack.tif+ t.csv)"));
}

TEST_F(WorkbenchProject, PicturesAreShownWhateverTheLengthOfTheirPathAndTheBytesOfTheirName)
{
    // A few characters to a name, since some file systems take several bytes for each.
    constexpr std::size_t kMostBytes = 48;
    constexpr std::string_view kNotInNames = "\\/:*?\"<>|\x7F\x81\x8D\x8F\x90\x9D";
    std::vector<std::string> names;
    for (int c = ' '; c < 256; ++c)
    {
        if (kNotInNames.find(static_cast<char>(c)) == std::string_view::npos)
        {
            if (names.empty() || names.back().size() == kMostBytes)
            {
                names.push_back("name ");
            }
            names.back() += static_cast<char>(c);
        }
    }
    const std::string folder = "l" + std::string(199, 'o');
    const std::string name = std::string(200, 'n') + ".bmp";
    const std::wstring from = host::WidePath(Path("b.bmp"));
    ASSERT_TRUE(::CreateDirectoryW(host::WidePath(Path(folder)).c_str(), nullptr));
    ASSERT_TRUE(::CopyFileW(from.c_str(), host::WidePath(Path(folder + "\\" + name)).c_str(), TRUE));
    for (std::string& each : names)
    {
        each += ".bmp";
        ASSERT_TRUE(::CopyFileW(from.c_str(), host::WidePath(Path(each)).c_str(), TRUE)) << each;
    }
    PressKey(VK_F5);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().TreeRow(names.back()) != nullptr; }));
    Choose("b.bmp");
    for (const std::string& each : names) // the tree scrolls sideways to long labels, away from the mouse
    {
        PressKey(VK_DOWN);
        EXPECT_TRUE(IsChosen(each));
        EXPECT_TRUE(Shows(Path(each)));
        EXPECT_EQ(Workbench().Chosen(), each);
    }
    PressKey(VK_HOME);
    PressKey(VK_DOWN);
    EXPECT_TRUE(IsChosen(folder));
    PressKey(VK_RIGHT);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().TreeRow(name) != nullptr; }));
    PressKey(VK_RIGHT);
    EXPECT_TRUE(IsChosen(name));
    EXPECT_TRUE(Shows(Path(folder + "\\" + name)));
    EXPECT_EQ(Workbench().Chosen(), name);
    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageA(Workbench().Tree(), TVM_GETEDITCONTROL, 0, 0) != 0; }));
    const std::string label(300, 'x');
    TypeText(label);
    PressKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return label.starts_with(Workbench().TreeChosen()); }));
    EXPECT_GE(Workbench().TreeChosen().size(), kLongestEdited);
    EXPECT_EQ(CloseByKeys(), 0u);
}

TEST_F(WorkbenchProject, TheOpenedFolderMayVanish)
{
    std::filesystem::remove_all(Folder());
    Choose("more");
    PressKey(VK_RIGHT);
    EXPECT_TRUE(ViewHolds("There is no folder or file \"" + Path("more")));
    Choose("stack.tif");
    PressKey(VK_RIGHT);
    EXPECT_TRUE(Shows("\"stack.tif\" isn't there any more."));
    PressKey(VK_F5);
    EXPECT_TRUE(Shows("There is no folder or file \"" + Folder().string() + "\"."));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().TreeRows().empty(); }));
    EXPECT_EQ(CloseByKeys(), 0u);
}
} // namespace
} // namespace e2e
