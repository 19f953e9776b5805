// The user's connections to printers, as the registry has them: a subkey of "Printers\Connections" for each,
// its name the server's and the printer's with commas, its value "GuidPrinter" the printer's id.
#pragma once

#include <span>
#include <string>
#include <vector>

inline constexpr char kConnectionsKey[] = "Printers\\Connections";

// The names of the subkeys of a key below HKEY_CURRENT_USER in the order of enumeration, each of which is
// logged. Empty if the key can't be opened. Names over 1023 bytes are left out.
std::vector<std::string> ListConnections(const char* rootKey);

// Reads the value "GuidPrinter" of a key below HKEY_CURRENT_USER, which is made if it is not there, as text
// whatever its type. Without a value of 1 to 256 bytes `out` is "".
void GetGuidPrinter(const char* key, std::span<char, 256> out);
