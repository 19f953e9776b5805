// The printer's stored DEVMODE, for the log.
#pragma once

#include <windows.h>

// Logs the sizes of the per-user DEVMODE, or of the printer's own where the user has none. False if there is
// no memory for the latter.
bool LogStoredDevMode(HANDLE printer, PCWSTR printerName);
