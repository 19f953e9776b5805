// Names by which a printer and its user's data are found in the registry.
#pragma once

#include <span>
#include <string>
#include <string_view>

// The printer's name without its server: what follows the last backslash behind the first character. A name
// with no such backslash is used whole.
std::string_view ShortPrinterName(std::string_view printerName);

// The first of the user's printer connections, in the order of enumeration, whose key name contains the short
// name's bytes; "" if none does.
std::string_view FindConnection(std::span<const std::string> connections, std::string_view shortName);

// The name of a printer's key, which is its short name and its GUID, and the part of that key in which the
// user's data stand.
std::string UserInfoText(std::string_view printerKeyName);

// The path below HKEY_CURRENT_USER of a text that UserInfoText gave.
std::string UserInfoKey(std::string_view userInfoText);
