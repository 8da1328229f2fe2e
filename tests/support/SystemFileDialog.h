// SystemFileDialog.h - works the system's dialog for files from inside its modal loop
#pragma once

#include "Modal.h"

#include <windows.h>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace support
{
/// Steps done one after the other inside modal loops: each waits until its window is there and then acts on it. A step
/// may open another loop; the next one then runs inside that. A window that doesn't come, and a loop that doesn't end
/// after the last step, have their dialogs closed when the deadline has passed.
class ModalScript
{
public:
    ModalScript() = default;
    ModalScript(const ModalScript&) = delete;
    ModalScript& operator=(const ModalScript&) = delete;

    ModalScript& Then(ModalHelper::Find find, ModalHelper::Act act);
    /// Waits for a dialog by its title.
    ModalScript& Then(const char* title, ModalHelper::Act act);
    /// Begins; call once, before the loop.
    void Start();
    /// True when all steps were done.
    [[nodiscard]] bool Done() const;

private:
    void Arm();

    std::vector<std::pair<ModalHelper::Find, ModalHelper::Act>> m_steps;
    std::vector<std::unique_ptr<ModalHelper>> m_helpers; // kept: one is still running when the next is made
    size_t m_done = 0;
};

/// Puts the current folder back at its end: a file dialog leaves the one that it has shown.
class CurrentFolderScope
{
public:
    CurrentFolderScope();
    ~CurrentFolderScope();
    CurrentFolderScope(const CurrentFolderScope&) = delete;
    CurrentFolderScope& operator=(const CurrentFolderScope&) = delete;

private:
    std::string m_folder;
};

/// The current folder, without a closing separator.
[[nodiscard]] std::string CurrentFolder();

/// Opens, once per process, what the system keeps for the life of a process after its first file dialogs: icons, lists
/// and window contexts. Call before the leaks of a test are counted.
void WarmUpFileDialogs();

inline constexpr int kFileNameBox = 1148; ///< control of the file dialog
inline constexpr int kFilterBox = 1136;   ///< control of the file dialog

/// The file dialog of this thread once it shows its list of files; null before.
[[nodiscard]] HWND FindFileDialog();
/// The list of the files; the system makes a new one for every folder.
[[nodiscard]] HWND FileListOf(HWND dialog);
/// A dialog over the file dialog, a message box for instance; null when there is none.
[[nodiscard]] HWND FindBoxOver(HWND dialog);
/// What a message box says.
[[nodiscard]] std::string BoxText(HWND box);

/// Texts of the list's rows.
[[nodiscard]] std::vector<std::string> FileListTexts(HWND dialog);
/// The folder that the dialog shows.
[[nodiscard]] std::string ShownFolder(HWND dialog);
/// What stands in the file name box.
[[nodiscard]] std::string FileName(HWND dialog);
void SetFileName(HWND dialog, const std::string& name);
/// Chooses a filter as a click in its list does.
/// @param index  from 0
void ChooseFilter(HWND dialog, int index);
/// The filter that is chosen, from 0.
[[nodiscard]] int ChosenFilter(HWND dialog);
/// Texts of the filters.
[[nodiscard]] std::vector<std::string> FilterTexts(HWND dialog);
} // namespace support
