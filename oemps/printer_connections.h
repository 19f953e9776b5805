// The user's connections to printers, as the registry has them: a subkey of "Printers\Connections" for each,
// its name the server's and the printer's with commas, its value "GuidPrinter" the printer's id.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

inline constexpr char kConnectionsKey[] = "Printers\\Connections";

// The names of the subkeys of a key below HKEY_CURRENT_USER in the order of enumeration, each of which is
// logged. Empty if the key can't be opened, which is not logged. Names over 1023 bytes are left out.
std::vector<std::string> ListConnections(const char* rootKey);

// Never null.
using ConnectionNames = std::shared_ptr<const std::vector<std::string>>;

// The same for the merge of a record, which comes often. While there is no log, the same list is given till a
// name changes, and the key stays open: not for the events, which run in the spooler's process, where an open
// key would keep the user's profile from being unloaded.
ConnectionNames KeptConnections(const char* rootKey);

// The key below HKEY_CURRENT_USER of the user's connection of this name.
std::string ConnectionKey(std::string_view connection);

// Reads the value "GuidPrinter" of a key below HKEY_CURRENT_USER, which is made if it is not there, as text
// whatever its type. `out` is "" where it can't be read, and where it has over 256 bytes or 256 without a
// NUL.
void GetGuidPrinter(const char* key, std::span<char, 256> out);

// The name of the key that holds the user's data for a printer: its short name, and the GUID of the first
// connection whose name contains that. Without such a connection the short name alone.
std::string PrinterKeyName(std::string_view printerName);
