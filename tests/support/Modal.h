// Modal.h - acts inside a running modal loop: a message box, a dialog, a menu
#pragma once

#include <windows.h>
#include <functional>
#include <memory>
#include <string>

namespace support
{
/// The visible top-level window of this thread with that class and title; null when there is none.
/// @param className  "#32770" for dialogs and message boxes; null matches all.
/// @param title      null matches all.
[[nodiscard]] HWND FindThreadWindow(const char* className, const char* title);

/// Waits, from a timer that every modal loop serves, until a window shows, and then acts on it once. When the window
/// has not come before the deadline, all modal dialogs of the thread are closed, so that the test goes on and fails.
class ModalHelper
{
public:
    using Find = std::function<HWND()>;
    using Act = std::function<void(HWND)>;

    ModalHelper(Find find, Act act);
    /// The usual case: a dialog or message box with that title.
    ModalHelper(const char* title, Act act);
    ~ModalHelper();
    ModalHelper(const ModalHelper&) = delete;
    ModalHelper& operator=(const ModalHelper&) = delete;

    /// True when the window came and was acted on.
    [[nodiscard]] bool Done() const;

private:
    struct State;
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD);
    std::unique_ptr<State> m_state;
};

/// Presses a button of a dialog or message box as its own click would.
void PressButton(HWND dialog, int id);
} // namespace support
