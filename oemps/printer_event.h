// Events of printers and of the driver's installation.
#pragma once

#include <windows.h>

// Stand where the data directories are made and removed as printers and the driver come and go. Until those
// actions exist the answer is E_NOTIMPL, by which the driver acts alone.
HRESULT hrOEMPrinterEvent(PWSTR printerName, INT event, DWORD flags, LPARAM param);
HRESULT hrOEMDriverEvent(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM param);
