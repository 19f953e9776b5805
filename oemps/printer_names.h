// Names by which a printer and its user's data are found in the registry.
#pragma once

#include <span>
#include <string>
#include <string_view>

// The printer's name without its server: what follows the last backslash behind the first character. A name
// with no such backslash is used whole.
std::string_view ShortPrinterName(std::string_view printerName);

// The first of the user's printer connections, in the order of enumeration, whose key name contains the short
// name;
// "" if none does.
std::string_view FindConnection(std::span<const std::string> connections, std::string_view shortName);

// The path below HKEY_CURRENT_USER of the user's data for a printer, told by its short name and its GUID.
std::string UserInfoKey(std::string_view shortName, std::string_view guidPrinter);
