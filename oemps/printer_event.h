// What is done when a printer comes or goes. Texts are in the ANSI code page, which should be 932: the names
// of the events are converted to that one, and elsewhere a Japanese name is taken for other characters.
#pragma once

#include <windows.h>

#include <span>

// A printer was connected or made: the print server's address is kept with it, once. Only the name's part
// behind its last backslash counts.
void PrinterAdded(PCWSTR printerName);

// A printer is about to be deleted: the user's authentication data for it go.
void PrinterDeleted(PCWSTR printerName);

// Deletes the authentication data of the printer that the name's part behind its first backslash tells. 1 if
// there were any and they are gone, else 0.
//
// The store is prepared first, as at the start of a sheet, so an open sheet of the same process loses the
// values that it keeps there.
int hrOEMPrinterEvent(const char* printerName);

inline constexpr std::size_t kKeyNameSize = 1024;

// The name of the key that holds a printer's authentication data.
void GetAuthenticatInfo(const char* printerName, std::span<char, kKeyNameSize> out);
// The same for a connection whose jobs the client renders: its name ends in a GUID, and the printer's name is
// that of the connection with this GUID. Without such a connection, or without a GUID, "".
void GetClientAuthenticatInfo(const char* printerName, std::span<char, kKeyNameSize> out);
