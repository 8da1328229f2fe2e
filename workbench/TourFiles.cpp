// TourFiles.cpp - the part of the tour that asks for files and folders
#include "workbench/Tour.h"

#include "automation/Controls.h"
#include "automation/Input.h"
#include "tavkit/resources/resource.h"
#include "workbench/resource.h"

#include <shlobj.h>

#include <fstream>

namespace workbench
{
using automation::Click;
using automation::PressKey;
using automation::TypeText;

namespace
{
// Controls of the dialogs.
constexpr int kNameId = 1148; // cmb13 of the system's dialog
constexpr int kFolderTreeId = 14145;
constexpr int kFolderEditId = 14149;

constexpr char kImportImages[] = "Import Image Layers...";
constexpr char kPage[] = "slides.tif, page=1"; ///< as it is shown when it was imported
} // namespace

HWND Tour::NameInDialog(const char* title, const std::string& path)
{
    HWND dialog = nullptr;
    if (!Await([&] { return (dialog = Popup(kDialogClass, title)) != nullptr && ::IsWindowEnabled(dialog); },
               std::string("the system's dialog \"") + title + "\" opens"))
    {
        return nullptr;
    }
    HWND name = ::GetDlgItem(dialog, kNameId);
    Await([&] { return Focus() == name || ::IsChild(name, Focus()); }, "the file name has the focus");
    TypeText(path);
    Await([&] { return TextOf(name) == path; }, "the file's name can be typed");
    return dialog;
}

void Tour::OpenInDialog(const char* title, const std::string& path, const char* pictureName, const char* caption)
{
    if (HWND dialog = NameInDialog(title, path))
    {
        Picture(pictureName, caption);
        PressKey(VK_RETURN);
        Await([&] { return !::IsWindow(dialog); }, "Enter closes the system's dialog");
    }
}

void Tour::OpenFolder(const std::filesystem::path& folder, const std::string& name, const char* pictureName,
                      const char* caption)
{
    const std::string path = folder.string();
    // One shell tells folders apart also by when they were looked into last, which this settles.
    ::ILFree(::ILCreateFromPathA(path.c_str()));
    PressKey('O', {VK_CONTROL});
    HWND browser = nullptr;
    if (!Await(
            [&] {
                browser = Popup(kDialogClass, nullptr);
                return browser != nullptr && ::GetDlgItem(browser, kFolderTreeId) != nullptr &&
                       ::GetForegroundWindow() == browser;
            },
            "the system's folder browser opens"))
    {
        return;
    }
    Await(
        [&] {
            Ask(browser, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
            return TextOf(automation::FindControl(browser, kFolderEditId)) == folder.filename().string();
        },
        "a folder can be chosen");
    Picture(pictureName, caption);
    PressKey(VK_RETURN);
    Await([&] { return !::IsWindow(browser); }, "Enter closes the folder browser");
    Await([&] { return TreeText(TreeNext(nullptr, TVGN_ROOT)) == folder.filename().string(); }, "the project is there");
    Ask(m_frame, WM_NULL, 0, 0); // its pictures are listed, too, when the program answers again
    ULONGLONG next = 0;          // two clicks in short order would be a double click
    Await(
        [&] {
            int row = ListCount() - 1;
            while (row >= 0 && ListText(row) != name)
            {
                --row;
            }
            if (StatusText(0) != name && row >= 0 && ::GetTickCount64() >= next)
            {
                Click(CellPoint(Part(IDC_PICTURE_LIST), row, 0));
                next = ::GetTickCount64() + 2ULL * ::GetDoubleClickTime();
            }
            return StatusText(0) == name;
        },
        name + " is listed and shown");
    AwaitChosen(name, name + " is chosen in the project");
}

void Tour::VisitFiles()
{
    std::error_code error;
    const auto samples = ShownFolder();
    const auto folder =
        std::filesystem::temp_directory_path(error) / ("workbench-files-" + std::to_string(::GetCurrentProcessId()));
    std::filesystem::create_directories(folder / "more", error);
    std::filesystem::copy_file(samples / "tissue.png", folder / "tissue.png", error);
    std::filesystem::copy_file(samples / "slides.tif", folder / "more" / "slides.tif", error);
    std::filesystem::copy_file(samples / "nuclei.csv", folder / "more" / "nuclei.csv", error);
    std::ofstream(folder / "more" / "cells.shp") << "stands for vector data";
    OpenFolder(folder, "tissue.png", "folder", "Opening a folder: the browser of the system.");

    VisitImports(folder);
    VisitWorkspace(folder);

    OpenFolder(samples, "cell16.tif", "folder-back", "Back to the samples once more.");
    std::filesystem::remove_all(folder, error);
}

void Tour::VisitImports(const std::filesystem::path& folder)
{
    const std::string slides = (folder / "more" / "slides.tif").string();
    PressKey('I', {VK_CONTROL});
    HWND dialog = NameInDialog(kImportImages, slides);
    HWND options = automation::FindControl(dialog, IDC_OPTIONS);
    if (!Check(options != nullptr, "the dialog has a field for options"))
    {
        return;
    }
    Click(options);
    Await([&] { return Focus() == options; }, "the field for options takes the focus");
    TypeText("page=2");
    Await([&] { return TextOf(options) == "page=2"; }, "options can be typed");
    Picture("import-images", "Importing an image layer: folders used before, and options of the layer.");
    PressKey(VK_RETURN);
    AwaitChosen("slides.tif, page=2", "the page is chosen in the project");
    Check(StatusText(0) == "slides.tif, page=2", "the status bar tells the options");
    Picture("imported", "A page that was imported by its number: the options are a part of the layer.");

    PressKey('I', {VK_CONTROL});
    dialog = NameInDialog(kImportImages, slides);
    PressKey(VK_RETURN);
    HWND selector = nullptr;
    if (!Await(
            [&] {
                selector = Popup(kDialogClass, nullptr);
                return selector != nullptr && ::GetDlgItem(selector, IDC_SELECTOR_LIST) != nullptr &&
                       ::GetForegroundWindow() == selector;
            },
            "a slide of several pages asks which ones"))
    {
        return;
    }
    HWND list = ::GetDlgItem(selector, IDC_SELECTOR_LIST);
    Await([&] { return RowCount(list) > 1; }, "the pages are listed");
    Click(CellPoint(list, 1, 0));
    Await([&] { return SelectedRow(list) == 1; }, "a page can be chosen");
    Picture("import-pages", "The pages of a slide to choose from.");
    PressKey(VK_RETURN);
    Await([&] { return !::IsWindow(selector); }, "Enter closes the selector");
    AwaitChosen(kPage, "the page is chosen in the project");

    ::PostMessageA(m_frame, WM_COMMAND, IDM_FILE_IMPORT_THEMATIC, 0);
    OpenInDialog("Import Thematic Layer...", (folder / "more" / "cells.shp").string(), "import-thematic",
                 "Importing a thematic layer.");
    AwaitChosen("cells.shp", "the layer is chosen in the project");
    PressKey('T', {VK_CONTROL});
    OpenInDialog("Load Table...", (folder / "more" / "nuclei.csv").string(), "load-table", "Loading a table.");
    Await([&] { return TreeRow("nuclei.csv") != nullptr; }, "the table is in the project");
    Click(TreePoint(kPage));
    AwaitChosen(kPage, "the page is chosen again");
    Picture("imported-all", "A page, vector data and a table beside what lies in the folder.");
}

void Tour::VisitWorkspace(const std::filesystem::path& folder)
{
    const std::string workspace = (folder / "tissue.tkw").string();
    ::PostMessageA(m_frame, WM_COMMAND, IDM_FILE_SAVE_WORKSPACE, 0);
    OpenInDialog("Save Workspace as...", workspace, "save-workspace", "Saving the workspace.");
    Await([&] { return std::filesystem::exists(workspace); }, "the workspace is written");
    const std::string project = (folder / "tissue.tkp").string();
    ::PostMessageA(m_frame, WM_COMMAND, IDM_FILE_SAVE_PROJECT, 0);
    OpenInDialog("Save Project as...", project, "save-project", "Saving the project.");
    Await([&] { return std::filesystem::exists(project); }, "the project is written");
    ::PostMessageA(m_frame, WM_COMMAND, IDM_FILE_OPEN_PROJECT, 0);
    OpenInDialog("Open Project...", project, "open-project", "Opening a project.");
    Await([&] { return StatusText(0) == "tissue.png"; }, "the project's first picture is shown");
    ::PostMessageA(m_frame, WM_COMMAND, IDM_FILE_OPEN_WORKSPACE, 0);
    OpenInDialog("Open Workspace...", workspace, "open-workspace",
                 "Opening a workspace: for its project alone, or read-only.");
    Await([&] { return StatusText(0) == kPage; }, "what was shown is shown again");
    PressKey('C', {VK_MENU});
    Await([this] { return Focus() == Part(IDC_PICTURE_LIST); }, "Alt+C goes to the list");
    const std::string contents = (folder / "pictures.csv").string();
    PressKey('S', {VK_CONTROL});
    OpenInDialog("Save contents", contents, "save-contents", "Saving what the list shows as a table.");
    Await([&] { return std::filesystem::exists(contents); }, "the contents are written");
}
} // namespace workbench
