// ListWindows.h - what the measurements of lists share: windows, rows of five columns, the control used without a class
#pragma once

#include <array>
#include <string>
#include <vector>

#include <afxwin.h>
#include <afxcmn.h>

namespace bench
{

constexpr int kListColumns = 5;
constexpr int kListColumnWidth = 120; // pixels

/// Where a list stands in its window.
constexpr RECT kListPlace{0, 0, 640, 480};

/// A shown window of the system's own behaviour around a plain list.
class PlainParent
{
public:
    PlainParent();
    ~PlainParent();
    PlainParent(const PlainParent&) = delete;
    PlainParent& operator=(const PlainParent&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_window; }

private:
    HWND m_window;
};

/// A shown window of the framework around a list of ours, which it hands its notifications back.
class ListParent : public CWnd
{
public:
    ListParent();
    ~ListParent() override;
};

/// One row as its cells and as one text.
struct ListRow
{
    std::array<std::string, kListColumns> cells;
    CString text; ///< the cells with bars between them
};

/// Rows as a dialog shows them: a name, a kind, two numbers and a date.
[[nodiscard]] std::vector<ListRow> MakeListRows(int count);

/// The control as a program uses it without any class: a report with five columns.
class PlainList
{
public:
    explicit PlainList(const PlainParent& parent);
    ~PlainList();
    PlainList(const PlainList&) = delete;
    PlainList& operator=(const PlainList&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_list; }
    void Fill(const std::vector<ListRow>& rows) const;

private:
    HWND m_list;
};

/// No painting until the end of the block.
class NoRedraw
{
public:
    explicit NoRedraw(HWND window) : m_window(window) { ::SendMessageA(m_window, WM_SETREDRAW, FALSE, 0); }
    ~NoRedraw() { ::SendMessageA(m_window, WM_SETREDRAW, TRUE, 0); }
    NoRedraw(const NoRedraw&) = delete;
    NoRedraw& operator=(const NoRedraw&) = delete;

private:
    HWND m_window;
};

/// The text of a cell, up to 255 characters.
[[nodiscard]] std::string CellText(HWND list, int row, int col);

} // namespace bench
