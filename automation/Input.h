// Input.h - mouse and keyboard input that the system can't tell from a hand's
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

namespace automation
{
enum class Button
{
    left,
    right
};

/// Puts the mouse on a point in screen pixels; the window there gets a real WM_MOUSEMOVE.
void MoveMouse(POINT screen);

/// The point in screen pixels of a place in a window's client area.
[[nodiscard]] POINT ScreenPoint(HWND window, int x, int y);

/// The middle of a window in screen pixels.
[[nodiscard]] POINT CenterOf(HWND window);

void Press(Button button = Button::left);
void Release(Button button = Button::left);

/// Moves there, presses and releases.
void Click(POINT screen, Button button = Button::left);
void DoubleClick(POINT screen);

/// Clicks the middle of a window.
void Click(HWND window, Button button = Button::left);

/// Turns the wheel by whole notches; away from the user is positive.
void TurnWheel(int notches);

void KeyDown(WORD key);
void KeyUp(WORD key);

/// Presses and releases a key while the modifiers are held.
void PressKey(WORD key, std::initializer_list<WORD> modifiers = {});

/// Types characters of the ANSI code page.
void TypeText(std::string_view text);
} // namespace automation
