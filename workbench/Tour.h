// Tour.h - drives the workbench through all its states by real input, and takes their pictures
#pragma once

#include "automation/Input.h"
#include "workbench/TourPage.h"

#include <windows.h>
#include <commctrl.h>

#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace workbench
{
// Classes of the system's windows.
inline constexpr char kMenuClass[] = "#32768";
inline constexpr char kDialogClass[] = "#32770";

/// The tour. A thread of its own moves the mouse and presses keys, so that menus and dialogs, which run loops of the
/// system, are driven like everything else. Each state is checked before its picture is taken; at the end the page is
/// written and the main window closed.
class Tour
{
public:
    /// Starts at once.
    /// @param frame   the main window, shown
    /// @param folder  where pictures and page go; made if it isn't there
    Tour(HWND frame, std::string folder);
    ~Tour();
    Tour(const Tour&) = delete;
    Tour& operator=(const Tour&) = delete;

    /// Waits for the end. Call it when the main window is gone.
    /// @return true when every state was as expected and every file was written.
    [[nodiscard]] bool Wait();

private:
    void Run();
    void VisitStart();
    void VisitPictures();
    void VisitTable();
    void VisitClasses();
    void VisitHistogram();
    void VisitPlot();
    void VisitNames();
    void VisitProject();
    void VisitProjectRows(const std::filesystem::path& folder);
    void VisitProjectDrags();
    void VisitLayers();
    void VisitProjectSearch(const std::filesystem::path& folder);
    void VisitSizes();
    void VisitPixelSize();
    void VisitMenus();
    void VisitSettings();
    void VisitDelete();
    void VisitAbout();
    void VisitDetails();
    void VisitFiles();
    void VisitImports(const std::filesystem::path& folder);
    void VisitWorkspace(const std::filesystem::path& folder);
    void VisitBadFiles();
    void Leave();
    void WritePage();

    /// Notes and prints a failure unless `ok`. @param what  the expectation, as a sentence
    bool Check(bool ok, const std::string& what);
    /// Waits until the condition holds; a failure when it doesn't in time.
    bool Await(const std::function<bool()>& condition, const std::string& what);
    /// Takes a picture of the windows when their painting has come to rest.
    void Picture(const std::string& name, const std::string& caption);
    /// Drags with the left button from one point to another, in steps as a hand does.
    void Drag(POINT from, POINT to);
    /// Drags the lower right corner until the window has that size, or the smallest above it.
    void DragCorner(HWND window, SIZE size);
    /// Waits until a dialog is in front; null when it doesn't come in time.
    HWND AwaitDialog(const char* title);
    /// Waits until no window of the program has the input of a menu or drag any more.
    bool AwaitIdle();
    [[nodiscard]] bool IsIdle() const;

    /// Sends a message to the program's thread without waiting for ever.
    static LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] HWND Part(int id) const;
    [[nodiscard]] std::string TextOf(HWND window) const;
    [[nodiscard]] std::string ViewText() const;
    [[nodiscard]] std::string StatusText(int part) const;
    /// The folder of the picture that is shown.
    [[nodiscard]] std::filesystem::path ShownFolder() const;
    /// Rows of the list of pictures, and the name in one of them.
    [[nodiscard]] int ListCount() const;
    [[nodiscard]] std::string ListText(int row) const;
    // Of any list.
    [[nodiscard]] static int RowCount(HWND list);
    [[nodiscard]] static std::string CellText(HWND list, int row, int column);
    /// The selected row; -1 without one.
    [[nodiscard]] static int SelectedRow(HWND list);
    [[nodiscard]] static POINT CellPoint(HWND list, int row, int column);
    /// A place on a column's caption. @param nth  two clicks on the same place would be a double click
    [[nodiscard]] static POINT CaptionPoint(HWND list, int column, int nth);
    // Of the project's tree; only rows that aren't folded away are found.
    [[nodiscard]] HWND Tree() const;
    /// The window of the layers while it is shown, else null.
    [[nodiscard]] HWND LayerWindow() const;
    [[nodiscard]] HTREEITEM TreeNext(HTREEITEM row, WPARAM relation) const;
    [[nodiscard]] std::string TreeText(HTREEITEM row) const;
    [[nodiscard]] HTREEITEM TreeRow(const std::string& label) const;
    [[nodiscard]] POINT TreePoint(const std::string& label) const;
    /// Waits until the row of that label is the chosen one.
    bool AwaitChosen(const std::string& label, const std::string& what);
    /// Pulls a row onto another until that is marked as the target; the button stays down.
    void PullRow(const std::string& label, const std::string& onto, automation::Button button);
    /// Types the name of a file into the system's dialog that is on the screen. @return the dialog; null without one
    HWND NameInDialog(const char* title, const std::string& path);
    /// Answers the system's dialog that is on the screen by the name of a file.
    void OpenInDialog(const char* title, const std::string& path, const char* pictureName, const char* caption);
    /// Opens a folder by Ctrl+O and chooses one of its pictures.
    void OpenFolder(const std::filesystem::path& folder, const std::string& name, const char* pictureName,
                    const char* caption);
    [[nodiscard]] HWND Focus() const;
    /// A visible top-level window of the program, by class and, unless null, title; null when there is none.
    [[nodiscard]] HWND Popup(const char* className, const char* title) const;
    /// Waits until a window of that title is shown over the main window; null when it doesn't come in time.
    HWND AwaitPane(const char* title);
    /// The picture area, its border left out.
    [[nodiscard]] RECT ViewRect() const;
    [[nodiscard]] RECT FrameRect() const;
    [[nodiscard]] static RECT PlaceOf(HWND window);

    HWND m_frame;
    DWORD m_uiThread;
    std::string m_folder;
    std::vector<TourStop> m_stops;
    std::vector<std::string> m_failures;
    std::thread m_thread;
};
} // namespace workbench
