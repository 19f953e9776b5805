// Pictures of windows.
#pragma once

#include <string>

#include <windows.h>

// True if the screen shows the window's content as the window itself has it: it is mapped, uncovered and
// painted.
bool IsOnScreen(HWND window);

// Writes what the window shows into a PNG file: all that it paints itself, and around it a frame that the
// window manager paints, as the screen has it.
// The window must belong to the calling thread, which lets it paint what is still to be painted first.
// Returns "" or why there is no picture.
std::string WriteScreenshot(HWND window, const std::wstring& file);
