// The page "初期設定" of the printer's own sheet.
#pragma once

#include <windows.h>

INT_PTR CALLBACK DevicePropPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
