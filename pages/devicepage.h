// The page "初期設定" of the printer's own sheet. It shows its frame; the print server's address and the
// buttons to the authentication and communication settings will stand on it.
#pragma once

#include <windows.h>

INT_PTR CALLBACK DevicePropPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
