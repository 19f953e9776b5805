// A printer's authentication mode, as the printer's data have it.
#pragma once

#include <windows.h>

#include <optional>

// The mode is 0, which is off, where the printer's data don't tell one; the spooler's status then tells why.
struct ManageMethod {
    DWORD status = ERROR_SUCCESS;
    BYTE mode = 0;
};

// The first byte counts, as the spooler's ANSI side gives it, whatever the value's type and size. Nothing
// without the memory for the value.
std::optional<ManageMethod> ReadManageMethod(HANDLE printer);
