// Controls.h - finds the controls of a window
#pragma once

#include <windows.h>

namespace automation
{
/// The first control of that number in a window and all that it holds; null without one.
[[nodiscard]] HWND FindControl(HWND window, int id);
} // namespace automation
