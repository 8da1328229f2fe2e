// WorkbenchProcess.h - a running workbench, and what can be seen of it from outside
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

namespace e2e
{
inline constexpr char kTitle[] = "TavKit Workbench";
inline constexpr char kDialogClass[] = "#32770";
inline constexpr char kMenuClass[] = "#32768";

/// Parts of the status bar.
enum StatusPart
{
    statusName,
    statusSize,
    statusType,
    statusZoom
};

/// A workbench in a process of its own. The destructor ends the process if it still runs.
class WorkbenchProcess
{
public:
    /// Starts the program that lies beside this one, and waits for its window unless there is to be none.
    explicit WorkbenchProcess(const std::string& arguments, bool waitForWindow = true);
    ~WorkbenchProcess();
    WorkbenchProcess(const WorkbenchProcess&) = delete;
    WorkbenchProcess& operator=(const WorkbenchProcess&) = delete;

    /// The main window; null when it didn't come in time.
    [[nodiscard]] HWND Window() const { return m_window; }
    /// Exit code; none when the program still runs after the time.
    [[nodiscard]] std::optional<DWORD> WaitForExit(DWORD milliseconds) const;

    [[nodiscard]] HWND List() const;
    [[nodiscard]] HWND View() const;
    [[nodiscard]] HWND Field() const;
    [[nodiscard]] HWND Table() const;
    [[nodiscard]] HWND ClassBox() const;
    [[nodiscard]] HWND Tree() const;
    [[nodiscard]] HWND FindField() const;
    /// Names in the list of pictures, from its top.
    [[nodiscard]] std::vector<std::string> Names() const;
    /// Name that is chosen in the list; "" when none is.
    [[nodiscard]] std::string Chosen() const;
    /// What the view says it shows.
    [[nodiscard]] std::string ViewText() const;
    [[nodiscard]] std::string FieldText() const;
    [[nodiscard]] std::string Status(StatusPart part) const;
    [[nodiscard]] HWND Focus() const;
    /// A visible top-level window of the process by class and, unless null, title; null when there is none.
    [[nodiscard]] HWND Popup(const char* className, const char* title = nullptr) const;
    /// True while a menu or a drag of the system holds the program.
    [[nodiscard]] bool IsInModalLoop() const;

    /// The rows of the tree in one line: labels, what stands unfolded under them in brackets; "+" behind what can be
    /// unfolded.
    [[nodiscard]] std::string TreeRows() const;
    /// The first row in the order of the tree with a label; null without one.
    [[nodiscard]] HTREEITEM TreeRow(const std::string& label) const;
    /// True for a row that is marked as the one that a drop would go to.
    [[nodiscard]] bool IsTreeTarget(HTREEITEM row) const;
    /// Label of the chosen row; "" when none is.
    [[nodiscard]] std::string TreeChosen() const;
    /// Middle of a row's label on the screen, or a place near the begin of a long one.
    [[nodiscard]] POINT TreePlace(const std::string& label) const;

    // Of a list, that of the pictures or the table. Rows and columns count from 0.
    [[nodiscard]] int RowCount(HWND list) const;
    [[nodiscard]] std::string Cell(HWND list, int row, int column) const;
    /// The cells of a column in the first rows.
    [[nodiscard]] std::vector<std::string> Column(HWND list, int column, int rows) const;
    /// -1 when none is selected.
    [[nodiscard]] int SelectedRow(HWND list) const;
    /// Clicks on the text of a cell.
    void ClickCell(HWND list, int row, int column) const;
    [[nodiscard]] POINT CellPoint(HWND list, int row, int column) const;
    /// The place of a column's caption, in screen pixels.
    [[nodiscard]] RECT CaptionRect(HWND list, int column) const;
    /// Clicks on a line of the list of pictures.
    void ClickLine(int index) const { ClickCell(List(), index, 0); }

private:
    [[nodiscard]] HTREEITEM TreeNext(HTREEITEM row, WPARAM relation) const;
    [[nodiscard]] std::string TreeLabel(HTREEITEM row) const;
    [[nodiscard]] bool HasTreeState(HTREEITEM row, UINT state) const;
    [[nodiscard]] bool HasTreeButton(HTREEITEM row) const;
    [[nodiscard]] std::string TreeRowsFrom(HTREEITEM row) const;

    PROCESS_INFORMATION m_process{};
    HWND m_window = nullptr;
};

/// Text of a window of any process, controls included.
[[nodiscard]] std::string TextOf(HWND window);
} // namespace e2e
