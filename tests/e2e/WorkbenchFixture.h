// WorkbenchFixture.h - a workbench for each test, and files for it to show
#pragma once

#include "WorkbenchProcess.h"
#include "support/WindowTest.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace e2e
{
/// A test with a folder of its own, and the user's settings put aside.
class WorkbenchTest : public support::WindowTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts a workbench; the one before is closed. The test fails without its window.
    void Start(const std::string& path);
    [[nodiscard]] WorkbenchProcess& Workbench() { return *m_workbench; }
    /// Ends the program as the user does; the answer is its exit code.
    [[nodiscard]] std::optional<DWORD> CloseByKeys();

    /// The test's folder, empty at the start.
    [[nodiscard]] const std::filesystem::path& Folder() const { return m_folder; }
    /// Writes a file into the test's folder.
    std::string WriteFile(const std::string& name, const std::string& bytes) const;
    /// Writes a picture of 24 bit whose left half is red and whose right half is blue.
    std::string WriteTwoColours(const std::string& name, int width, int height) const;

    /// Waits until the view says that, up to what follows behind a comma.
    [[nodiscard]] bool Shows(const std::string& text);
    /// Waits until the view's text holds that.
    [[nodiscard]] bool ViewHolds(const std::string& text);
    /// Clicks a window until it has taken the click: the screen may still be busy with showing it at the first.
    [[nodiscard]] static bool ClickUntil(HWND window, const std::function<bool()>& taken);

private:
    std::unique_ptr<WorkbenchProcess> m_workbench;
    std::filesystem::path m_folder;
};

/// Folder of the samples, without a separator at the end.
[[nodiscard]] std::string Samples();
[[nodiscard]] SIZE ClientSize(HWND window);
[[nodiscard]] RECT WindowRect(HWND window);
/// Waits until a place of a window's client area has a colour on the screen.
[[nodiscard]] bool Becomes(HWND window, int x, int y, COLORREF color);
/// Drags the lower right corner of a window by so many pixels.
void DragCorner(const WorkbenchProcess& workbench, HWND window, int dx, int dy);

/// Key of the workbench's profile under the user's part of the registry.
inline constexpr char kProfileKey[] = "Software\\TavKit\\TavKit Workbench";
/// Key of its settings.
inline constexpr char kSettingsKey[] = "Software\\TavKit\\TavKit Workbench\\Workbench";

/// A path as an argument of a command line.
[[nodiscard]] std::string Quoted(const std::filesystem::path& path);
} // namespace e2e
