// TablesTest.cpp - the table under the picture and the list of pictures, by mouse and keyboard
#include "WorkbenchFixture.h"

#include "automation/Screenshot.h"
#include "workbench/resource.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

namespace e2e
{
namespace
{
using support::Click;
using support::DoubleClick;
using support::PressKey;
using support::PumpUntil;
using support::TypeText;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr char kObjects[] = "Nr,X,Y,Area,Class\r\n"
                            "1,50,25,7,Star\r\n"
                            "2,150,75,30,\"Galaxy, round\"\r\n"
                            "3,20,80,100,Star\r\n"
                            "4,500,10,2,Star\r\n"; // outside a picture of 200 by 100
// Columns of the list.
constexpr int kId = 0;
constexpr int kNr = 1;
constexpr int kX = 2;
constexpr int kArea = 4;
constexpr int kClass = 5;
constexpr int kSize = 1;

constexpr COLORREF kRing = RGB(255, 255, 0);

/// The middle of all pixels of a colour in a window's client area; none if the colour isn't there.
std::optional<POINT> MiddleOfColor(HWND window, COLORREF color)
{
    RECT client{};
    ::GetClientRect(window, &client);
    ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    const automation::Screenshot shot(client);
    RECT found{shot.Width(), shot.Height(), -1, -1};
    for (int y = 0; y < shot.Height(); ++y)
    {
        for (int x = 0; x < shot.Width(); ++x)
        {
            if (shot.ColourAt(x, y) == color)
            {
                const RECT pixel{x, y, x + 1, y + 1};
                found = {std::min(found.left, pixel.left), std::min(found.top, pixel.top),
                         std::max(found.right, pixel.right), std::max(found.bottom, pixel.bottom)};
            }
        }
    }
    return found.right < 0 ? std::nullopt
                           : std::optional(POINT{(found.left + found.right) / 2, (found.top + found.bottom) / 2});
}

/// A workbench with a table of objects in its folder.
class TableTest : public WorkbenchTest
{
protected:
    /// Opens a table by Ctrl+T and the system's dialog.
    void OpenTable(const std::string& path)
    {
        PressKey('T', {VK_CONTROL});
        HWND dialog = nullptr;
        ASSERT_TRUE(PumpUntil([&] { return (dialog = Workbench().Popup(kDialogClass, "Load Table...")) != nullptr; }));
        HWND name = ::GetDlgItem(dialog, 1148);
        ASSERT_TRUE(PumpUntil([&] { return ::IsChild(name, Workbench().Focus()) != FALSE; }));
        TypeText(path);
        ASSERT_TRUE(PumpUntil([&] { return TextOf(name) == path; }));
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(dialog); }));
    }

    /// Starts with a picture of two colours and the table of its objects.
    void StartWithObjects()
    {
        WriteTwoColours("two.bmp", 200, 100);
        Start(WriteFile("two_objects.csv", kObjects));
        ASSERT_TRUE(PumpUntil([&] { return RowCount() == 4; }));
    }

    [[nodiscard]] int RowCount() { return Workbench().RowCount(Workbench().Table()); }
    [[nodiscard]] std::vector<std::string> Column(int column)
    {
        return Workbench().Column(Workbench().Table(), column, RowCount());
    }
    /// A place on a caption; two clicks on the same one would be a double click.
    [[nodiscard]] static POINT CaptionPoint(const RECT& caption, bool right)
    {
        const LONG quarter = (caption.right - caption.left) / 4;
        return {right ? caption.right - quarter : caption.left + quarter, (caption.top + caption.bottom) / 2};
    }
    [[nodiscard]] std::string TableName()
    {
        return TextOf(::GetDlgItem(::GetDlgItem(Workbench().Window(), IDC_TABLE_PANE), IDC_TABLE_NAME));
    }
    /// Waits until the place of the ring is that of a pixel of the picture.
    [[nodiscard]] bool RingIsAt(double x, double y, SIZE picture)
    {
        return PumpUntil([&] {
            const SIZE view = ClientSize(Workbench().View());
            const double zoom =
                std::min(static_cast<double>(view.cx) / picture.cx, static_cast<double>(view.cy) / picture.cy);
            const double left = (view.cx - zoom * picture.cx) / 2 + (x + 0.5) * zoom;
            const double top = (view.cy - zoom * picture.cy) / 2 + (y + 0.5) * zoom;
            constexpr double kRounding = 1.5;
            const auto ring = MiddleOfColor(Workbench().View(), kRing);
            return ring && std::abs(ring->x - left) <= kRounding && std::abs(ring->y - top) <= kRounding;
        });
    }
    [[nodiscard]] bool RingGoes()
    {
        return PumpUntil([&] {
            return Workbench().ViewText().find("object at") == std::string::npos &&
                   !MiddleOfColor(Workbench().View(), kRing);
        });
    }
    /// Answers a message box that tells a problem.
    void AnswerProblem(const std::string& text)
    {
        HWND box = nullptr;
        ASSERT_TRUE(PumpUntil([&] { return (box = Workbench().Popup(kDialogClass, kTitle)) != nullptr; }));
        constexpr int kMessageText = 65535;
        EXPECT_THAT(TextOf(::GetDlgItem(box, kMessageText)), HasSubstr(text));
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == box; }));
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(box); }));
    }
};

using WorkbenchTable = TableTest;
using WorkbenchClasses = TableTest;
using WorkbenchPictureList = TableTest;

TEST_F(WorkbenchTable, IsOpenedByCtrlTAndShowsItsCells)
{
    Start(Samples());
    EXPECT_EQ(RowCount(), 0);
    EXPECT_EQ(TableName(), "none; Ctrl+T opens one");
    OpenTable(support::SamplePath("nuclei.csv"));
    EXPECT_TRUE(PumpUntil([&] { return RowCount() == 490; }));
    EXPECT_EQ(TableName(), "nuclei.csv");
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 0, kId), "0");
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 0, kX), "15.9");
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 0, 8), "Nucleus, large");
}

TEST_F(WorkbenchTable, OnTheCommandLineBringsItsFolderAndThePictureOfItsName)
{
    WriteTwoColours("one.bmp", 100, 100);
    StartWithObjects();
    EXPECT_THAT(Workbench().Names(), ElementsAre("one.bmp", "two.bmp"));
    EXPECT_EQ(Workbench().Chosen(), "two.bmp");
    EXPECT_EQ(TableName(), "two_objects.csv");
    EXPECT_THAT(Column(kNr), ElementsAre("1", "2", "3", "4"));
}

TEST_F(WorkbenchTable, ItsSelectedRowIsMarkedInThePicture)
{
    StartWithObjects();
    constexpr SIZE kPicture{200, 100};
    EXPECT_TRUE(RingGoes());
    Workbench().ClickCell(Workbench().Table(), 0, kArea);
    ASSERT_TRUE(ViewHolds(", object at 50, 25"));
    EXPECT_TRUE(RingIsAt(50, 25, kPicture));
    PressKey(VK_DOWN);
    ASSERT_TRUE(ViewHolds(", object at 150, 75"));
    EXPECT_TRUE(RingIsAt(150, 75, kPicture));
    PressKey(VK_END);
    EXPECT_TRUE(RingGoes()) << "a place outside the picture can't be marked";
    PressKey(VK_HOME);
    EXPECT_TRUE(RingIsAt(50, 25, kPicture));
    DragCorner(Workbench(), Workbench().Window(), -80, 60);
    EXPECT_TRUE(RingIsAt(50, 25, kPicture)) << "the mark follows the picture";
}

TEST_F(WorkbenchTable, MarksOnlyInThePictureThatItWasOpenedBeside)
{
    WriteTwoColours("one.bmp", 200, 100);
    StartWithObjects();
    Workbench().ClickCell(Workbench().Table(), 0, kNr);
    ASSERT_TRUE(ViewHolds(", object at 50, 25"));
    Workbench().ClickLine(0);
    ASSERT_TRUE(ViewHolds("one.bmp"));
    EXPECT_TRUE(RingGoes());
    Workbench().ClickLine(1);
    EXPECT_TRUE(ViewHolds("two.bmp, object at 50, 25"));
}

TEST_F(WorkbenchTable, CaptionsSortBothWaysAndTakeTheMarkAway)
{
    StartWithObjects();
    Workbench().ClickCell(Workbench().Table(), 0, kNr);
    ASSERT_TRUE(ViewHolds(", object at 50, 25"));
    Click(CaptionPoint(Workbench().CaptionRect(Workbench().Table(), kArea), false));
    EXPECT_TRUE(PumpUntil([&] { return Column(kArea) == std::vector<std::string>{"100", "30", "7", "2"}; }));
    EXPECT_TRUE(RingGoes());
    Click(CaptionPoint(Workbench().CaptionRect(Workbench().Table(), kArea), true));
    EXPECT_TRUE(PumpUntil([&] { return Column(kArea) == std::vector<std::string>{"2", "7", "30", "100"}; }));
    Workbench().ClickCell(Workbench().Table(), 1, kNr);
    EXPECT_TRUE(ViewHolds(", object at 50, 25")) << "the row is marked wherever it stands";
}

TEST_F(WorkbenchTable, ItsLastColumnFillsTheWidth)
{
    StartWithObjects();
    const auto right = [&] {
        const RECT place = Workbench().CaptionRect(Workbench().Table(), kClass);
        return place.right - support::ScreenPoint(Workbench().Table(), 0, 0).x;
    };
    EXPECT_TRUE(PumpUntil([&] { return right() == ClientSize(Workbench().Table()).cx; }));
    DragCorner(Workbench(), Workbench().Window(), -80, 60);
    EXPECT_TRUE(PumpUntil([&] { return right() == ClientSize(Workbench().Table()).cx; }));
    DragCorner(Workbench(), Workbench().Window(), 120, 0);
    EXPECT_TRUE(PumpUntil([&] { return right() == ClientSize(Workbench().Table()).cx; }));
}

TEST_F(WorkbenchTable, IsReadAsFarAsItIsLookedAt)
{
    WriteTwoColours("two.bmp", 200, 100);
    std::string text = "Nr,X,Y\n";
    constexpr int kRows = 5000;
    for (int row = 1; row <= kRows; ++row)
    {
        text += std::to_string(row) + ",1,2\n";
    }
    Start(WriteFile("two_objects.csv", text));
    ASSERT_TRUE(PumpUntil([&] { return RowCount() > 0; }));
    EXPECT_LT(RowCount(), kRows) << "its length is a guess until its end was seen";
    PressKey('T', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Table(); }));
    PressKey(VK_HOME);
    constexpr int kMostGuesses = 6;
    for (int guess = 0; guess < kMostGuesses && RowCount() != kRows; ++guess)
    {
        const int rows = RowCount();
        PressKey(VK_END);
        ASSERT_TRUE(
            PumpUntil([&] { return RowCount() != rows || Workbench().SelectedRow(Workbench().Table()) == rows - 1; }));
    }
    EXPECT_EQ(RowCount(), kRows);
    PressKey(VK_END);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().SelectedRow(Workbench().Table()) == kRows - 1; }));
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), kRows - 1, kNr), "5000");
}

TEST_F(WorkbenchTable, ThatCantBeOpenedIsNamedAndTheOneBeforeStays)
{
    StartWithObjects();
    OpenTable(WriteFile("broken.csv", "A,\"B\n1,2\n"));
    AnswerProblem("broken.csv\" can't be opened as a table.");
    EXPECT_EQ(TableName(), "two_objects.csv");
    EXPECT_THAT(Column(kNr), ElementsAre("1", "2", "3", "4"));
    OpenTable(WriteTwoColours("picture.bmp", 20, 20));
    AnswerProblem("picture.bmp\" can't be opened as a table.");
    EXPECT_EQ(RowCount(), 4);
}

TEST_F(WorkbenchTable, OfHugeCellsAndManyColumnsIsShown)
{
    WriteTwoColours("two.bmp", 200, 100);
    constexpr int kColumns = 2000;
    std::string names = "c0";
    std::string cells = "0";
    for (int col = 1; col < kColumns; ++col)
    {
        names += ",c" + std::to_string(col);
        cells += "," + std::to_string(col);
    }
    Start(WriteFile("two_wide.csv", names + "\n" + cells + "\n" + cells + "\n"));
    ASSERT_TRUE(PumpUntil([&] { return RowCount() == 2; }));
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 1, kColumns), "1999");
    OpenTable(WriteFile("two_huge.csv", "A,B\n1,\"" + std::string(20'000'000, 'x') + "\"\n2,y\n"));
    ASSERT_TRUE(PumpUntil([&] { return TableName() == "two_huge.csv"; }));
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 1, 2), "y");
    EXPECT_THAT(Workbench().Cell(Workbench().Table(), 0, 2), StartsWith("xxxx"));
}

TEST_F(WorkbenchTable, WithoutPlacesAndClassesIsShownAllTheSame)
{
    WriteTwoColours("two.bmp", 200, 100);
    Start(WriteFile("two.txt", "Name\tValue\none\t1\n"));
    ASSERT_TRUE(PumpUntil([&] { return RowCount() == 1; }));
    EXPECT_EQ(Workbench().Cell(Workbench().Table(), 0, 2), "1");
    EXPECT_FALSE(::IsWindowEnabled(Workbench().ClassBox()));
    Workbench().ClickCell(Workbench().Table(), 0, 1);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().SelectedRow(Workbench().Table()) == 0; }));
    EXPECT_THAT(Workbench().ViewText(), Not(HasSubstr("object at")));
}

TEST_F(WorkbenchTable, FocusComesBackToTheTableFromAnotherWindow)
{
    StartWithObjects();
    Workbench().ClickCell(Workbench().Table(), 0, kNr);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Table(); }));
    {
        support::TestFrame other(200, 100);
        Click(other.m_hWnd);
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == other.m_hWnd; }));
        const RECT frame = WindowRect(Workbench().Window());
        Click(POINT{(frame.left + frame.right) / 2, frame.top + 12}); // the title
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == Workbench().Window(); }));
    }
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Table(); }));
}

TEST_F(WorkbenchClasses, AreChosenByMouseAndNumberTheRowsThatAreLeft)
{
    StartWithObjects();
    HWND box = Workbench().ClassBox();
    EXPECT_EQ(TextOf(box), "All classes");
    Click(box);
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
    HWND lines = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (lines = Workbench().Popup("ComboLBox")) != nullptr; }));
    const auto lineHeight = static_cast<int>(::SendMessageA(box, CB_GETITEMHEIGHT, 0, 0));
    Click(support::ScreenPoint(lines, 20, 2 * lineHeight + lineHeight / 2)); // behind all and "Galaxy, round"
    ASSERT_TRUE(PumpUntil([&] { return RowCount() == 3; }));
    EXPECT_EQ(TextOf(box), "Star");
    EXPECT_THAT(Column(kClass), Each("Star"));
    EXPECT_THAT(Column(kId), ElementsAre("0", "1", "2"));
    EXPECT_THAT(Column(kNr), ElementsAre("1", "3", "4"));
    Workbench().ClickCell(Workbench().Table(), 1, kNr);
    EXPECT_TRUE(ViewHolds(", object at 20, 80"));
}

TEST_F(WorkbenchClasses, AreChosenByKeysAndKeepWidthsAndOrder)
{
    StartWithObjects();
    Click(CaptionPoint(Workbench().CaptionRect(Workbench().Table(), kArea), false));
    ASSERT_TRUE(PumpUntil([&] { return Column(kArea).front() == "100"; }));
    const RECT caption = Workbench().CaptionRect(Workbench().Table(), kNr);
    const POINT divider{caption.right - 1, (caption.top + caption.bottom) / 2};
    support::MoveMouse(divider);
    support::Press();
    support::MoveMouse({divider.x + 20, divider.y});
    support::MoveMouse({divider.x + 40, divider.y});
    support::Release();
    const auto width = [&] {
        const RECT place = Workbench().CaptionRect(Workbench().Table(), kNr);
        return place.right - place.left;
    };
    ASSERT_TRUE(PumpUntil([&] { return width() == caption.right - caption.left + 40; }));

    PressKey('L', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().ClassBox(); }));
    PressKey(VK_END); // "Star"
    ASSERT_TRUE(PumpUntil([&] { return RowCount() == 3; }));
    EXPECT_THAT(Column(kArea), ElementsAre("100", "7", "2"));
    EXPECT_EQ(width(), caption.right - caption.left + 40);
    PressKey(VK_HOME);
    ASSERT_TRUE(PumpUntil([&] { return RowCount() == 4; }));
    EXPECT_THAT(Column(kArea), ElementsAre("100", "30", "7", "2"));
    Click(CaptionPoint(Workbench().CaptionRect(Workbench().Table(), kArea), true));
    EXPECT_TRUE(PumpUntil([&] { return Column(kArea).front() == "2"; })) << "the next click turns the order round";
}

TEST_F(WorkbenchClasses, OfATableThatHasVanishedCantBeChosen)
{
    StartWithObjects();
    std::filesystem::remove(Folder() / "two_objects.csv");
    PressKey('L', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().ClassBox(); }));
    PressKey(VK_END);
    AnswerProblem("two_objects.csv\" can't be opened as a table.");
    EXPECT_EQ(TextOf(Workbench().ClassBox()), "All classes");
    EXPECT_THAT(Column(kNr), ElementsAre("1", "2", "3", "4"));
}

TEST_F(WorkbenchPictureList, TellsSizesAndSortsThemAsSizes)
{
    Start(Samples());
    HWND list = Workbench().List();
    EXPECT_EQ(Workbench().Cell(list, 3, kSize), "1.62 MB");
    EXPECT_EQ(Workbench().Cell(list, 1, kSize), "355 KB");
    Click(CaptionPoint(Workbench().CaptionRect(list, kSize), false));
    EXPECT_TRUE(PumpUntil([&] {
        return Workbench().Names() == std::vector<std::string>{"slides.tif", "cell8.tif",      "tissue.png",
                                                               "cell16.tif", "cell_float.tif", "deepfield.tif"};
    }));
    EXPECT_EQ(Workbench().Chosen(), "cell16.tif") << "the picture shown stays selected";
    PressKey(VK_NEXT, {VK_CONTROL});
    EXPECT_TRUE(Shows(support::SamplePath("cell_float.tif"))) << "the next one is the one below";
    Click(CaptionPoint(Workbench().CaptionRect(list, kSize), true));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Names().front() == "deepfield.tif"; }));
    PressKey(VK_F5);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Chosen() == "cell_float.tif"; }));
    EXPECT_EQ(Workbench().Names().front(), "deepfield.tif") << "F5 keeps the order";
}

TEST_F(WorkbenchPictureList, NameIsEditedInPlaceAndTheFileGetsIt)
{
    WriteTwoColours("a.bmp", 20, 10);
    WriteTwoColours("b.bmp", 30, 10);
    Start(Folder().string());
    DoubleClick(Workbench().CellPoint(Workbench().List(), 1, 0));
    ASSERT_TRUE(PumpUntil([&] { return ::IsChild(Workbench().List(), Workbench().Focus()) != FALSE; }));
    EXPECT_EQ(TextOf(Workbench().Focus()), "b.bmp");
    TypeText("c.bmp");
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
    EXPECT_THAT(Workbench().Names(), ElementsAre("a.bmp", "c.bmp"));
    EXPECT_TRUE(std::filesystem::exists(Folder() / "c.bmp"));
    EXPECT_FALSE(std::filesystem::exists(Folder() / "b.bmp"));

    Workbench().ClickLine(0);
    ASSERT_TRUE(Shows((Folder() / "a.bmp").string()));
    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return ::IsChild(Workbench().List(), Workbench().Focus()) != FALSE; }));
    TypeText("d.bmp");
    PressKey(VK_RETURN);
    EXPECT_TRUE(Shows((Folder() / "d.bmp").string())) << "the picture that is shown goes on under its new name";
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusName) == "d.bmp"; }));

    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return ::IsChild(Workbench().List(), Workbench().Focus()) != FALSE; }));
    TypeText("e.bmp");
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
    EXPECT_THAT(Workbench().Names(), ElementsAre("d.bmp", "c.bmp"));
    EXPECT_TRUE(std::filesystem::exists(Folder() / "d.bmp"));
}

TEST_F(WorkbenchPictureList, NameThatCantBeIsRefusedAndTheOldOneComesBack)
{
    WriteTwoColours("a.bmp", 20, 10);
    WriteTwoColours("b.bmp", 30, 10);
    Start(Folder().string());
    for (const auto& [name, problem] :
         {std::pair{"a:b.bmp", "can't hold any of"}, std::pair{"a.xyz", "A picture's name ends with one of"},
          std::pair{"b.bmp", "There is a file \"b.bmp\" already."}})
    {
        PressKey(VK_F2);
        ASSERT_TRUE(PumpUntil([&] { return ::IsChild(Workbench().List(), Workbench().Focus()) != FALSE; }));
        TypeText(name);
        PressKey(VK_RETURN);
        AnswerProblem(problem);
        ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
        EXPECT_THAT(Workbench().Names(), ElementsAre("a.bmp", "b.bmp")) << name;
        EXPECT_EQ(Workbench().Popup(kDialogClass), nullptr) << "told once";
    }
    EXPECT_TRUE(std::filesystem::exists(Folder() / "a.bmp"));
}

TEST_F(WorkbenchPictureList, NameUnderEditIsKeptWhenF5ReadsTheFolderAnew)
{
    WriteTwoColours("a.bmp", 20, 10);
    Start(Folder().string());
    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return ::IsChild(Workbench().List(), Workbench().Focus()) != FALSE; }));
    TypeText("z.bmp");
    PressKey(VK_F5);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Names() == std::vector<std::string>{"z.bmp"}; }));
    EXPECT_TRUE(Shows((Folder() / "z.bmp").string()));
}

TEST_F(WorkbenchPictureList, WidthOfTheSizesIsRememberedAndTheNamesFillTheRest)
{
    Start(Samples());
    const auto width = [&](int column) {
        const RECT place = Workbench().CaptionRect(Workbench().List(), column);
        return place.right - place.left;
    };
    const LONG client = ClientSize(Workbench().List()).cx;
    ASSERT_TRUE(PumpUntil([&] { return width(0) + width(kSize) == client; }));
    const RECT caption = Workbench().CaptionRect(Workbench().List(), 0);
    const LONG before = width(kSize);
    const RECT sizes = Workbench().CaptionRect(Workbench().List(), kSize);
    const POINT divider{sizes.right - 1, (caption.top + caption.bottom) / 2};
    support::MoveMouse(divider);
    support::Press();
    support::MoveMouse({divider.x - 5, divider.y});
    support::MoveMouse({divider.x - 10, divider.y});
    support::Release();
    ASSERT_TRUE(PumpUntil([&] { return width(kSize) == before - 10; }));
    PressKey(VK_F5);
    EXPECT_TRUE(PumpUntil([&] { return width(0) + width(kSize) == client; })) << "the names take what is left";
    EXPECT_EQ(width(kSize), before - 10);
    Start(Samples());
    EXPECT_TRUE(PumpUntil([&] { return width(kSize) == before - 10; }));
    EXPECT_TRUE(PumpUntil([&] { return width(0) + width(kSize) == client; }));
}

TEST_F(WorkbenchPictureList, AClickBesideTheRowsLeavesThePicture)
{
    const std::string first = WriteTwoColours("a.bmp", 40, 40);
    const std::string second = WriteTwoColours("b.bmp", 40, 40);
    Start(Folder().string());
    const SIZE list = ClientSize(Workbench().List());
    Click(support::ScreenPoint(Workbench().List(), list.cx / 2, list.cy - 8));
    support::Settle();
    EXPECT_TRUE(Shows(first));
    PressKey(VK_NEXT, {VK_CONTROL});
    EXPECT_TRUE(Shows(second));
}
} // namespace
} // namespace e2e
