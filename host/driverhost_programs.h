// The programs that a sheet starts. While it waits for one of them its own thread answers nothing, and a user
// works in that program's windows. Nothing here sends a message.
#pragma once

#include <string>

#include <windows.h>

namespace driverhost {

// The window that a user can work on of a program which this process has started; a disabled one while the
// program is just opening another above it. Null if no such program shows a window.
HWND FindProgramWindow();

// How many processes run whose file has this name, in whatever case.
int CountRunning(const std::wstring& fileName);

// Ends the process of the window at once. Returns "" or why it could not.
std::string EndProgramOf(HWND window);

} // namespace driverhost
