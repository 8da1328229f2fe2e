// Screen.h - what stands on the screen: pixels and pictures of it
#pragma once

#include <windows.h>
#include <string>

namespace support
{
/// Colour of a pixel of the screen, as it stands there after everything pending was painted.
[[nodiscard]] COLORREF ScreenPixel(POINT screen);

/// Colour of a pixel of a window's client area, read from the screen.
[[nodiscard]] COLORREF ClientPixel(HWND window, int x, int y);

/// Saves a rectangle of the screen as a PNG file.
/// @param rect  screen pixels; null for the whole screen.
/// @return false when the file can't be written.
bool SaveScreenshot(const std::string& path, const RECT* rect = nullptr);

/// Folder for what tests leave behind for people; it exists.
[[nodiscard]] std::string OutputFolder();

/// Path of a sample file by its name.
[[nodiscard]] std::string SamplePath(const std::string& name);
} // namespace support
