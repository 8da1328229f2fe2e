// XMessageBox.h - message box with more sets of buttons, help and a check box
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

/// Style bit: a check box whose state comes back in the result.
inline constexpr unsigned int MB_DONOTASKAGAIN = 0x01000000;

// Sets of buttons beyond those of the system's message box.
inline constexpr unsigned int MB_FILECONFLICT =
    0x6; ///< "Keep existing" 2, "Override existing" 3, "Keep both" 1, "Keep recent" 4
inline constexpr unsigned int MB_CONTINUEABORT = 0x8; ///< "Continue" 10, "Abort" 3

/// Shows a message box and waits for its answer. One box at a time, on the thread of the user interface.
/// @param hwnd          owner; null for the desktop
/// @param pszText       the message; null counts as empty; at most 1023 bytes are shown
/// @param pszCaption    null or empty takes string 0xE000 of the application, or "Error"; at most 1023 bytes
/// @param nStyle        the bits of the system's message box, and those above
/// @param pszCheckText  text of the check box; null for "Don't ask me again"
/// @param nHelpID       context of the Help button; 0 opens the help at its key words
/// @return id of the button pressed, with MB_DONOTASKAGAIN added when the check box was asked for and is checked.
///   With MB_ICONHAND and MB_SYSTEMMODAL together the result of the system's own box, which is shown then. 2 when there
///   was no memory for the box; 0 when the owner is no window, or the box was destroyed before it was answered.
TAVKIT_API int XMessageBox(HWND hwnd, const char* pszText, const char* pszCaption, unsigned int nStyle,
                           const char* pszCheckText, unsigned int nHelpID);
