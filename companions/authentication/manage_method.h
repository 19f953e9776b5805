// The printer's authentication mode, printer data that is kept for all of its users.
#pragma once

#include <windows.h>

// 0, which is off, if none can be read.
BYTE ReadManageMethod(HANDLE printer);

// 0, or why the spooler did not store it.
DWORD WriteManageMethod(HANDLE printer, BYTE mode);
