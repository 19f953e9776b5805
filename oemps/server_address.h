// The print server's address, as the port of a printer tells it. Texts are in the ANSI code page.
#pragma once

#include "oemps/port_address.h"

#include <windows.h>

#include <span>

// The address of a Standard TCP/IP port: 1, or 0 if it has none that can be read, or if its name is too long
// for a key's path, with "" in `out`. A port that is not that monitor's has its own name for an address. The
// key of such a port is made where the user may do so.
int GetIpAddressFromRegstry(const char* port, std::span<char, kPortAddressSize> out);

// The address of the printer's port. With a result of 0 `out` is left as it is.
int PrinterPortAddressUpdateStep1(HANDLE printer, std::span<char, kPortAddressSize> out);

// Logs the address and gives 0: the opening of a sheet records none.
int PrinterPortAddressUpdateStep2(HANDLE printer, const char* address);

// Looks for the address of the printer's port and gives 0, whether there is one or not.
int PrinterPortAddressUpdate(HANDLE printer);

// Keeps the address with the printer, unless one is kept there.
void PrintServerCommSettingChk(HANDLE printer, const char* address);
