// SystemDialogIds.h - what the library knows of the inside of the system's file dialog
#pragma once

#include <afxdlgs.h>

namespace tavkit
{

// Controls of the dialog. In the name box Windows and Wine differ with the dialog's age and flavour: today's dialog has
// a combo box there, number 1148, in which an edit field lies (in Wine all its windows have this number); dialogs
// before that have the edit field alone, 1152. Wine hasn't 1152 and ignores text that is meant for it. The rest is the
// same.

inline constexpr int kNameBox = 1148;     ///< combo box for the file name
inline constexpr int kNameEdit = 1152;    ///< edit field for the file name, where there is no combo box
inline constexpr int kLookInCombo = 1137; ///< folder that the dialog shows

/// The control for the file name.
[[nodiscard]] inline int NameControl(HWND dialog) noexcept
{
    return ::GetDlgItem(dialog, kNameBox) ? kNameBox : kNameEdit;
}

// The list of files and the tool bars have no numbers that hold: both systems make the list anew for every folder, and
// Wine numbers the tool bar with the buttons like the OK button. They are known by their classes, in lower case. The
// places may be a tool bar too, and which of the two is met first is the system's matter: in Wine it is the places.

inline constexpr char kListClass[] = "syslistview32";
inline constexpr char kToolBarClass[] = "toolbarwindow32";

// Buttons of the tool bar; commands, no windows.

inline constexpr int kButtonUp = 40961;        ///< one level up
inline constexpr int kButtonNewFolder = 40962; ///< makes a folder

} // namespace tavkit
