// FolderBrowser.h - works the shell's folder browser from inside its loop
#pragma once

#include "support/TempFolder.h"
#include "automation/Controls.h"
#include "support/WindowTest.h"

#include <commctrl.h>
#include <shlobj.h>

#include <string>
#include <vector>

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

inline std::string TextOf(HWND window)
{
    char text[MAX_PATH + 1] = "";
    ::SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

/// What the tree has selected, by its label.
inline std::string SelectedLabel(HWND dialog)
{
    HWND const tree = ::FindWindowExA(automation::FindControl(dialog, kTree), nullptr, WC_TREEVIEWA, nullptr);
    HWND const view = tree ? tree : automation::FindControl(dialog, kTree);
    char text[MAX_PATH + 1] = "";
    TVITEMA item{};
    item.mask = TVIF_TEXT;
    item.hItem = reinterpret_cast<HTREEITEM>(::SendMessageA(view, TVM_GETNEXTITEM, TVGN_CARET, 0));
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ::SendMessageA(view, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return text;
}

/// Gives a folder, those in it and the one around it a time of the last access that reading them doesn't change; call
/// before the browser reads them. The shell tells folders apart by that time too, and on a file system that notes only
/// the first access after a change, a folder that is new is another one once it was listed.
inline void Steady(support::TempFolder const& folder)
{
    constexpr ULONGLONG kHour = 36'000'000'000; // in units of 100 ns
    FILETIME now;
    ::GetSystemTimeAsFileTime(&now);
    ULARGE_INTEGER time{{now.dwLowDateTime, now.dwHighDateTime}};
    time.QuadPart += kHour; // behind any change, this one too
    const FILETIME later{time.LowPart, time.HighPart};
    std::vector<std::string> names = folder.Names();
    names.insert(names.end(), {"", ".."});
    for (std::string const& name : names)
    {
        HANDLE const file = ::CreateFileA(folder.Path(name).c_str(), FILE_WRITE_ATTRIBUTES,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        EXPECT_TRUE(file != INVALID_HANDLE_VALUE && ::SetFileTime(file, nullptr, &later, nullptr)) << folder.Path(name);
        ::CloseHandle(file);
    }
}

/// Selects a folder that was there before the browser came, and waits until the tree shows it. The root of a drive has
/// a label of its own and isn't waited for.
inline void SelectPath(HWND dialog, std::string const& path)
{
    const std::string label = path.substr(path.find_last_of('\\') + 1);
    ::SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
    EXPECT_TRUE(label.empty() || support::PumpUntil([&] { return SelectedLabel(dialog) == label; })) << path;
}

inline bool IsOkEnabled(HWND dialog) { return ::IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE; }
inline void Cancel(HWND dialog) { support::PressButton(dialog, IDCANCEL); }
inline void Accept(HWND dialog) { support::PressButton(dialog, IDOK); }

} // namespace folderbrowser
