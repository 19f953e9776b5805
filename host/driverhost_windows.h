// The windows of a sheet's thread: the property sheet and what stands in front of it. Nothing here sends a
// message, so that any thread may ask, even while the sheet's own is busy.
#pragma once

#include <windows.h>

namespace driverhost {

// The property sheet that the thread shows; null if there is none.
HWND FindSheet(DWORD thread);

// What a user can work on: the window of a program that the sheet has started and waits for, else a message
// box or another dialog of the thread if one is up, else the sheet; null if there is none of them.
HWND FindFront(DWORD thread);

bool IsSheet(HWND window);
bool IsMessageBox(HWND window);

// The id of a message box's text.
inline constexpr int kMessageText = 0xFFFF;

} // namespace driverhost
