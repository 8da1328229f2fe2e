#include "automation/Input.h"
#include "workbench/MainFrame.h"
#include "workbench/Tour.h"
#include "workbench/resource.h"

#include <commctrl.h>

#include <cstring>
#include <filesystem>

namespace workbench
{
using automation::Button;
using automation::Click;
using automation::MoveMouse;
using automation::Press;
using automation::PressKey;
using automation::Release;
using automation::TypeText;

namespace
{
constexpr char kSubFolder[] = "Second Day";
constexpr char kGroup[] = "Tissue";

/// A folder of its own for the visit: samples, and one of them in a folder inside.
std::filesystem::path MakeProject(const std::filesystem::path& samples)
{
    std::error_code error;
    const auto folder =
        std::filesystem::temp_directory_path(error) / ("workbench-project-" + std::to_string(::GetCurrentProcessId()));
    std::filesystem::create_directories(folder / kSubFolder, error);
    for (const char* name : {"cell8.tif", "cell16.tif", "nuclei.csv", "slides.tif", "tissue.png"})
    {
        std::filesystem::copy_file(samples / name, folder / name, error);
    }
    std::filesystem::copy_file(samples / "deepfield.tif", folder / kSubFolder / "deepfield.tif", error);
    std::filesystem::copy_file(samples / "deepfield_objects.csv", folder / "cell8_objects.csv", error); // a result
    return folder;
}
} // namespace

HWND Tour::Tree() const { return ::GetDlgItem(Part(IDC_PROJECT_PANE), IDC_PROJECT_TREE); }

HTREEITEM Tour::TreeNext(HTREEITEM row, WPARAM relation) const
{
    return reinterpret_cast<HTREEITEM>(Ask(Tree(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(row)));
}

std::string Tour::TreeText(HTREEITEM row) const
{
    char text[MAX_PATH]{};
    TVITEMA item{};
    item.mask = TVIF_TEXT;
    item.hItem = row;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    return row != nullptr && Ask(Tree(), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)) != 0 ? item.pszText : "";
}

HTREEITEM Tour::TreeRow(const std::string& label) const
{
    for (HTREEITEM row = TreeNext(nullptr, TVGN_ROOT); row != nullptr; row = TreeNext(row, TVGN_NEXTVISIBLE))
    {
        if (TreeText(row) == label)
        {
            return row;
        }
    }
    return nullptr;
}

POINT Tour::TreePoint(const std::string& label) const
{
    const HTREEITEM row = TreeRow(label);
    RECT place{};
    std::memcpy(&place, &row, sizeof row); // the rectangle says which row is meant
    Ask(Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
    POINT point{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    ::ClientToScreen(Tree(), &point);
    return point;
}

bool Tour::AwaitChosen(const std::string& label, const std::string& what)
{
    return Await([&] { return TreeText(TreeNext(nullptr, TVGN_CARET)) == label; }, what);
}

void Tour::PullRow(const std::string& label, const std::string& onto, Button button)
{
    MoveMouse(TreePoint(label));
    Press(button);
    const HTREEITEM target = TreeRow(onto);
    const POINT to = TreePoint(onto);
    bool away = false;
    // The control takes up the drag at a move that comes while it waits for it, and marks the target at the next.
    Await(
        [&] {
            away = !away;
            MoveMouse({to.x + (away ? 1 : 0), to.y});
            const LRESULT state =
                Ask(Tree(), TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(target), LPARAM{TVIS_DROPHILITED});
            return (static_cast<UINT>(state) & TVIS_DROPHILITED) != 0;
        },
        "a drag of " + label + " marks " + onto);
}

void Tour::VisitProject()
{
    const auto samples = ShownFolder();
    const auto folder = MakeProject(samples);
    OpenFolder(folder, "cell8.tif", "open-project", "Opening a folder of its own.");
    AwaitChosen("cell8.tif", "the picture that is shown is chosen in the project");
    PressKey('J', {VK_MENU});
    Await([this] { return Focus() == Tree(); }, "Alt+J goes to the project");
    Picture("project", "The project over the folder: what is shown is chosen.");

    VisitLayers();
    VisitProjectRows(folder);
    VisitProjectDrags();
    VisitProjectSearch(folder);

    OpenFolder(samples, "cell16.tif", "open-samples-again", "Back to the samples again.");
    PressKey('C', {VK_MENU});
    Await([this] { return Focus() == Part(IDC_PICTURE_LIST); }, "Alt+C goes back to the list");
    std::error_code error;
    std::filesystem::remove_all(folder, error);
}

HWND Tour::LayerWindow() const
{
    HWND window = nullptr;
    while ((window = ::FindWindowExA(nullptr, window, nullptr, nullptr)) != nullptr)
    {
        if (::GetWindow(window, GW_OWNER) == m_frame && ::IsWindowVisible(window) &&
            ::GetDlgItem(window, IDC_LAYER_LIST) != nullptr)
        {
            return window;
        }
    }
    return nullptr;
}

void Tour::VisitLayers()
{
    PressKey('L', {VK_CONTROL});
    if (!Await([this] { return LayerWindow() != nullptr; }, "Ctrl+L shows the layers"))
    {
        return;
    }
    const auto hasTitle = [this](const char* title) { return TextOf(LayerWindow()) == title; };
    Await([&] { return hasTitle("Layers: 4 images, 1 table, 1 result"); }, "the layers of the project are counted");
    const HWND list = ::GetDlgItem(LayerWindow(), IDC_LAYER_LIST);
    const RECT place = PlaceOf(list);
    constexpr int kSecondRow = 52;
    constexpr int kCaption = 90;
    constexpr int kMinus = 21; // from the right
    MoveMouse({place.right - kMinus, place.top + kSecondRow});
    Picture("layers", "The layers of the project in groups; the mouse is over a minus.");
    Click(POINT{place.left + kCaption, place.top + kSecondRow});
    Await([this] { return ViewText().find("cell8.tif") != std::string::npos; }, "a card shows its picture");
    Click(POINT{place.right - kMinus, place.top + kSecondRow});
    Await([&] { return hasTitle("Layers: 3 images, 1 table, 1 result"); }, "the minus takes a layer out");
    Picture("layers-removed", "A layer is taken out; the plus of its group offers it again.");
    PressKey(VK_ESCAPE);
    Await([this] { return LayerWindow() == nullptr; }, "Esc hides the layers");
    PressKey('J', {VK_MENU});
    Await([this] { return Focus() == Tree(); }, "the project has the focus again");
}

void Tour::VisitProjectRows(const std::filesystem::path& folder)
{
    Check(TreeRow("deepfield.tif") == nullptr, "a folder isn't read before it is unfolded");
    Click(TreePoint(kSubFolder));
    AwaitChosen(kSubFolder, "a click chooses a folder");
    PressKey(VK_RIGHT);
    Await([this] { return TreeRow("deepfield.tif") != nullptr; }, "the right arrow unfolds it");
    Await([this] { return ListCount() == 1 && ListText(0) == "deepfield.tif"; }, "its pictures are listed");
    Picture("project-folder", "A folder is read when it is unfolded; its pictures are listed.");
    PressKey(VK_LEFT);
    Await([this] { return TreeRow("deepfield.tif") == nullptr; }, "the left arrow folds it up");

    Click(TreePoint("slides.tif"));
    AwaitChosen("slides.tif", "a click chooses a picture");
    PressKey(VK_RIGHT);
    Await([this] { return TreeRow("Page 1") != nullptr; }, "a picture of several pages is unfolded");
    Click(TreePoint("Page 1"));
    Await([&] { return ViewText().starts_with((folder / "slides.tif?page=1").string()); }, "its second page is shown");
    Check(StatusText(0) == "slides.tif, Page 1", "the status bar names the page");
    Picture("project-pages", "The pages of a TIFF file; one of them is shown.");
    PressKey(VK_LEFT);
    AwaitChosen("slides.tif", "the left arrow goes up to the file");
    PressKey(VK_LEFT);
    Await([this] { return TreeRow("Page 1") == nullptr; }, "and folds it up");

    HWND list = ::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_LIST);
    Click(TreePoint("nuclei.csv"));
    Await([&] { return ::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_LIST) != list; }, "a table is opened by a click");
    AwaitChosen("nuclei.csv", "the table is chosen");
    Picture("project-table", "A table chosen in the project is opened in the list.");

    Click(TreePoint("cell16.tif"));
    AwaitChosen("cell16.tif", "another picture is chosen");
    PressKey('H', {VK_CONTROL});
    Await([this] { return ViewText() == "\"cell16.tif\" is hidden. Ctrl+H shows it."; }, "Ctrl+H hides it");
    Picture("project-hidden", "A hidden picture has a barred glyph.");
    PressKey('H', {VK_CONTROL});
    Await([&] { return ViewText().starts_with((folder / "cell16.tif").string()); }, "Ctrl+H shows it again");

    Click(TreePoint("cell8.tif"), Button::right);
    Await([this] { return Popup(kMenuClass, nullptr) != nullptr; }, "a right click opens the menu");
    AwaitChosen("cell8.tif", "it chooses the row under the mouse");
    Picture("project-menu", "The menu of a right click.");
    PressKey(VK_ESCAPE);
    AwaitIdle();
}

void Tour::VisitProjectDrags()
{
    const auto isBefore = [this](const char* upper, const char* lower) {
        return TreeText(TreeNext(TreeRow(upper), TVGN_NEXT)) == lower;
    };
    PullRow("tissue.png", "cell16.tif", Button::left);
    Picture("project-drag", "A drag with the left button: the row under the mouse is where it goes.");
    Release();
    Await([&] { return isBefore("tissue.png", "cell16.tif"); }, "the drop changes the order");
    AwaitIdle();

    PressKey('G', {VK_CONTROL});
    HWND editor = nullptr;
    Await([&] { return (editor = reinterpret_cast<HWND>(Ask(Tree(), TVM_GETEDITCONTROL, 0, 0))) != nullptr; },
          "Ctrl+G makes a group and opens its label");
    TypeText(kGroup);
    Await([&] { return TextOf(editor) == kGroup; }, "the label can be typed");
    Picture("project-label", "A new group, its label being edited.");
    PressKey(VK_RETURN);
    Await([this] { return TreeRow(kGroup) != nullptr && Focus() == Tree(); }, "Enter ends the editing");

    PullRow("tissue.png", kGroup, Button::left);
    Release();
    Await([this] { return TreeNext(TreeRow("tissue.png"), TVGN_PARENT) == TreeRow(kGroup); },
          "a drop on the group puts the picture inside");
    Picture("project-group", "Grouped: files stay where they are on disk.");

    PullRow("cell16.tif", kGroup, Button::right);
    Release(Button::right);
    Await([this] { return Popup(kMenuClass, nullptr) != nullptr; }, "a right drag ends with a question");
    Picture("project-right-drag", "A drag with the right button asks what to do.");
    PressKey('C');
    AwaitIdle();
    Await([&] { return isBefore("tissue.png", "cell16.tif"); }, "C copies");
    Picture("project-copied", "The copy stands in the group.");
}

void Tour::VisitProjectSearch(const std::filesystem::path& folder)
{
    HWND field = ::GetDlgItem(Part(IDC_PROJECT_PANE), IDC_PROJECT_FIND);
    PressKey('F', {VK_CONTROL});
    Await([&] { return Focus() == field; }, "Ctrl+F goes to the field for a search");
    TypeText("deep");
    PressKey(VK_RETURN);
    AwaitChosen("deepfield.tif", "Enter finds a picture in a folder that is folded up");
    Await([&] { return ViewText().starts_with((folder / kSubFolder / "deepfield.tif").string()); },
          "what was found is shown");
    Picture("project-found", "Found by a part of its name, in a folder that was folded up.");
}
} // namespace workbench
