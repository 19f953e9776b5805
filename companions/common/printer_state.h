// Whether a printer is still there.
#pragma once

#include <windows.h>

// ERROR_SUCCESS, or the status that tells that the printer has gone or never was.
DWORD PrinterGoneStatus(HANDLE printer);

// True for a status with which the spooler tells that.
bool TellsPrinterGone(DWORD status);
