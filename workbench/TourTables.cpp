#include "automation/Input.h"
#include "tavkit/lists/ScanDouble.h"
#include "workbench/MainFrame.h"
#include "workbench/Tour.h"
#include "workbench/resource.h"

#include <algorithm>
#include <filesystem>

namespace workbench
{
using automation::Click;
using automation::DoubleClick;
using automation::PressKey;
using automation::TypeText;

namespace
{
constexpr char kTableTitle[] = "Load Table...";
// Columns of the sample tables in the list, behind that of the row numbers.
constexpr int kColumnX = 2;
constexpr int kColumnArea = 4;
constexpr int kColumnClass = 8;
constexpr int kNuclei = 490;
constexpr int kObjects = 2350;
} // namespace

void Tour::VisitTable()
{
    const auto samples = ShownFolder();
    // The list is another window after each opening and each choice of a class.
    const auto list = [this] { return ::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_LIST); };
    const auto number = [&](int row, int column) { return tavkit::ToDouble(CellText(list(), row, column).c_str()); };
    PressKey('T', {VK_CONTROL});
    OpenInDialog(kTableTitle, (samples / "nuclei.csv").string(), "table-open", "Opening a table by its name.");
    Await([&] { return RowCount(list()) == kNuclei; }, "the table has as many rows as its file");
    Check(TextOf(::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_NAME)) == "nuclei.csv", "the table's name is told");
    Check(CellText(list(), 0, kColumnClass) == "Nucleus, large", "a cell in quotes may hold a comma");
    Picture("table", "The table of what was found in a picture, under the picture.");

    Click(CaptionPoint(list(), kColumnArea, 0));
    Await(
        [&] {
            return number(0, kColumnArea) >= number(1, kColumnArea) &&
                   number(0, kColumnArea) > number(kNuclei - 1, kColumnArea);
        },
        "a click on the caption sorts numbers from high to low");
    Picture("table-sorted", "Sorted by area, the largest first.");

    Click(CellPoint(list(), 0, kColumnArea));
    Await([this] { return ViewText().find(", object at ") != std::string::npos; }, "a click on a row marks its object");
    Check(SelectedRow(list()) == 0, "the row is selected");
    Picture("table-marked", "The object of the selected row is marked in the picture.");

    Click(CaptionPoint(list(), kColumnArea, 1));
    Await([&] { return number(0, kColumnArea) < number(kNuclei - 1, kColumnArea); },
          "a second click turns the order round");
    Check(SelectedRow(list()) < 0 && ViewText().find(", object at ") == std::string::npos,
          "sorting takes selection and mark away");
    Picture("table-sorted-back", "Sorted by area, the smallest first.");

    PressKey('T', {VK_MENU});
    Await([&] { return Focus() == list(); }, "Alt+T goes to the table");
    PressKey(VK_END);
    Await([&] { return SelectedRow(list()) == kNuclei - 1; }, "End goes to the last row");
    Await([this] { return ViewText().find(", object at ") != std::string::npos; }, "its object is marked");
    Picture("table-end", "Scrolled to the end; the largest object is marked.");

    PressKey('T', {VK_CONTROL});
    OpenInDialog(kTableTitle, (samples / "deepfield_objects.csv").string(), "table-open-next",
                 "Opening another table.");
    Await([&] { return TextOf(::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_NAME)) == "deepfield_objects.csv"; },
          "the other table is shown");
    Await([this] { return ViewText().find("deepfield.tif") != std::string::npos; }, "its picture comes with it");
    // The length is a guess until the end is reached, and each look at the guessed end makes it longer.
    PressKey('T', {VK_MENU});
    Await([&] { return Focus() == list(); }, "Alt+T goes to the other table");
    constexpr int kMostGuesses = 8;
    for (int guess = 0; guess < kMostGuesses && RowCount(list()) != kObjects; ++guess)
    {
        const int rows = RowCount(list());
        PressKey(VK_END);
        Await([&] { return RowCount(list()) != rows || SelectedRow(list()) == rows - 1; }, "End goes on");
        PressKey(VK_HOME);
        Await([&] { return SelectedRow(list()) == 0; }, "Home goes back");
    }
    Check(RowCount(list()) == kObjects, "the table is read to its end");
    Click(CaptionPoint(list(), kColumnArea, 0));
    Await([&] { return number(0, kColumnArea) > number(kObjects - 1, kColumnArea); }, "the other table is sorted");
    Click(CellPoint(list(), 1, kColumnX));
    Await([this] { return ViewText().find(", object at ") != std::string::npos; }, "a galaxy is marked");
    Picture("table-galaxies", "Another table came with its own picture, going by their names.");
    VisitClasses();
}

void Tour::VisitClasses()
{
    const auto list = [this] { return ::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_LIST); };
    HWND box = ::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_CLASS);
    const auto isDropped = [&] { return Ask(box, CB_GETDROPPEDSTATE, 0, 0) != 0; };
    PressKey('L', {VK_MENU});
    Await([&] { return Focus() == box; }, "Alt+L goes to the classes");
    PressKey(VK_F4);
    Await(isDropped, "F4 drops the classes down");
    Picture("classes", "The classes of the objects.");
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    Await([&] { return !isDropped() && RowCount(list()) > 0 && RowCount(list()) < kObjects; },
          "a class is chosen by keys and shows fewer rows");
    const std::string chosen = TextOf(box);
    bool all = true;
    for (int row = 0; row < std::min(RowCount(list()), kNuclei); ++row)
    {
        all = all && CellText(list(), row, kColumnClass) == chosen;
    }
    Check(all, "all rows are of the class that was chosen");
    Picture("class-chosen", "Only the objects of one class: " + chosen + ".");
    PressKey(VK_HOME);
    Await([&] { return TextOf(box) == "All classes" && RowCount(list()) > kNuclei; }, "Home brings all classes back");
}

void Tour::VisitNames()
{
    std::error_code error;
    const auto samples = ShownFolder();
    const auto folder =
        std::filesystem::temp_directory_path(error) / ("workbench-names-" + std::to_string(::GetCurrentProcessId()));
    std::filesystem::create_directories(folder, error);
    for (const char* name : {"cell8.tif", "deepfield.tif", "slides.tif", "tissue.png"})
    {
        std::filesystem::copy_file(samples / name, folder / name, error);
        Check(!error, std::string(name) + " can be copied");
    }
    HWND list = Part(IDC_PICTURE_LIST);
    OpenFolder(folder, "cell8.tif", "open-copy", "Opening a copy of the samples.");
    constexpr int kCopies = 4;
    Await([&] { return ListCount() == kCopies && ViewText().find(folder.string()) != std::string::npos; },
          "the copies are listed");

    constexpr int kSizeColumn = 1;
    Click(CaptionPoint(list, kSizeColumn, 0));
    Await([&] { return ListText(0) == "slides.tif" && ListText(kCopies - 1) == "deepfield.tif"; },
          "a click on the caption sorts the sizes");
    Check(CellText(list, kCopies - 1, kSizeColumn) == "1.62 MB", "a large size is told in megabytes");
    Picture("pictures-sorted", "Pictures sorted by size, the smallest first.");
    Click(CaptionPoint(list, kSizeColumn, 1));
    Await([&] { return ListText(0) == "deepfield.tif"; }, "a second click turns the order round");
    Picture("pictures-sorted-back", "Pictures sorted by size, the largest first.");

    DoubleClick(CellPoint(list, 0, 0));
    Await([&] { return Focus() != list && ::IsChild(list, Focus()); }, "a double click on a name opens it for editing");
    const std::string before = TextOf(Focus());
    PressKey(VK_HOME);
    TypeText("my ");
    Await([&] { return TextOf(Focus()) == "my " + before; }, "the name can be changed");
    Picture("name-edited", "A name is edited in place.");
    PressKey(VK_RETURN);
    Await([&] { return Focus() == list && ListText(0) == "my " + before; }, "Enter ends the editing");
    Check(std::filesystem::exists(folder / ("my " + before)) && !std::filesystem::exists(folder / before),
          "the file has the new name");
    Await([&] { return StatusText(0) == "my " + before; }, "the picture is shown under its new name");

    PressKey(VK_F2);
    Await([&] { return Focus() != list && ::IsChild(list, Focus()); }, "F2 opens the name for editing");
    TypeText("a:b.tif");
    PressKey(VK_RETURN);
    HWND box = AwaitDialog(kTitle);
    Picture("name-refused", "A name that no file can have is refused.");
    PressKey(VK_RETURN);
    Await([&] { return !::IsWindow(box) && ListText(0) == "my " + before; }, "the old name is back");
    Await([&] { return Focus() == list; }, "the focus is back in the list of names");

    OpenFolder(samples, "cell16.tif", "open-samples", "Back to the samples.");
    std::filesystem::remove_all(folder, error);
}
} // namespace workbench
