// The page "初期設定" of the printer's own sheet: the accounts that the printer is used with, how its print
// server is reached, and the job property application.
#pragma once

#include <windows.h>

// The page's dialog procedure. It works on the printer and the user data key of oemps/sheet_state.h.
INT_PTR CALLBACK DevicePropPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// The check of the page's communication mode has been clicked: shows it, enables or disables the job property
// application's button, and tells the sheet of the change.
void CommunicationMethod(HWND dialog);
