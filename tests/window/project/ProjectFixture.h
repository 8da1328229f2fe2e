// ProjectFixture.h - a project tree over a folder of a test's own, used by mouse and keyboard
#pragma once

#include "host/repository/StandardDrivers.h"
#include "support/TempFolder.h"
#include "support/WindowTest.h"
#include "workbench/ProjectTree.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>

inline constexpr UINT kTreeId = 77;

/// The tree under test; notes what a thread that sends input waits for.
class WatchedTree : public workbench::ProjectTree
{
public:
    std::atomic<bool> m_pressed = false;
    std::atomic<int> m_dragsBegun = 0;

    [[nodiscard]] bool IsDragging() const { return IsInDragMode(); }

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult) override;
};

/// A folder "project" with the folder "sub" (x.tif, y.tif), the pictures a.tif and b.png, "stack.tif" of three pages
/// and the table t.csv. Every test ends with nothing left open in the drivers.
class ProjectTest : public support::WindowTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Opens the folder in a new tree.
    void Open();
    /// Opens the tree's window alone.
    void OpenWindow();

    /// The rows in one line: labels, what stands under them in brackets; "+" behind what can be unfolded.
    [[nodiscard]] std::string Rows() const;
    /// The first row with a label; null without one.
    [[nodiscard]] HTREEITEM Row(const char* label) const;
    [[nodiscard]] std::string Chosen() const;

    /// Middle of a row's label on the screen.
    [[nodiscard]] POINT PlaceOf(const char* label) const;
    /// A place beside all rows.
    [[nodiscard]] POINT EmptyPlace() const;
    /// Clicks on a row and waits until it is chosen.
    void Choose(const char* label);
    void Unfold(const char* label);
    /// Presses a button on a row and pulls until the tree drags.
    void Pull(const char* label, support::Button button);
    void MoveTo(POINT place);
    void Release(support::Button button);
    /// Drags a row with the left button.
    void Drag(const char* label, POINT to);
    /// Drags a row with the right button and answers the menu with a key.
    void RightDrag(const char* label, POINT to, WORD answer);

    void CloseWindows();

    std::string FilePath(const char* name) const { return m_root + "\\" + name; }
    [[nodiscard]] int Told(workbench::ProjectNotice notice) const { return m_frame->CountCommand(kTreeId, notice); }

    support::TempFolder m_temp;
    std::string m_root;
    std::optional<repository::StandardDrivers> m_drivers;
    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<WatchedTree> m_tree;
    CFont m_font;

private:
    bool WarmUp();
};
