// FolderBrowser.h - works the shell's folder browser from inside its loop
#pragma once

#include "support/WindowTest.h"

#include <shlobj.h>

#include <string>

namespace folderbrowser
{

inline constexpr int kTree = 14145;
inline constexpr int kTitle = 14146;
inline constexpr int kEdit = 14149;
inline constexpr int kNewFolder = 14150;

/// The browser of this thread once it has its tree; null before.
inline HWND Current()
{
    HWND const dialog = support::FindThreadWindow("#32770", nullptr);
    return dialog && ::GetDlgItem(dialog, kTree) ? dialog : nullptr;
}

/// A control anywhere below a window; null if there is none.
inline HWND Find(HWND parent, int id)
{
    struct Search
    {
        int id;
        HWND found;
    } search{id, nullptr};
    ::EnumChildWindows(
        parent,
        [](HWND child, LPARAM param) {
            auto& wanted = *reinterpret_cast<Search*>(param);
            if (::GetDlgCtrlID(child) == wanted.id)
            {
                wanted.found = child;
            }
            return BOOL(wanted.found == nullptr);
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

inline std::string TextOf(HWND window)
{
    char text[MAX_PATH + 1] = "";
    ::SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

inline void SelectPath(HWND dialog, std::string const& path)
{
    ::SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
}

inline bool IsOkEnabled(HWND dialog) { return ::IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE; }
inline void Cancel(HWND dialog) { support::PressButton(dialog, IDCANCEL); }
inline void Accept(HWND dialog) { support::PressButton(dialog, IDOK); }

} // namespace folderbrowser
