// TourInput.h - mouse and keyboard input that the system can't tell from a hand's
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

namespace workbench
{
/// The middle of a window in screen pixels.
[[nodiscard]] POINT MiddleOf(HWND window);

void MoveMouse(POINT screen);
void Click(POINT screen);
void DoubleClick(POINT screen);
void PressMouse();
void ReleaseMouse();
/// Presses and releases a key while the modifiers are held.
void PressKey(WORD key, std::initializer_list<WORD> modifiers = {});
/// Types characters of the ANSI code page.
void TypeText(std::string_view text);
} // namespace workbench
