// Which address reaches a print server from another machine. Texts are in the ANSI code page.
#pragma once

#include <cstdint>
#include <string_view>

// The value of a printer's data that the address is stored in.
inline constexpr char kPrinterPortAddress[] = "PrinterPortAddress";

// The address, or, where a print server names itself by a local one, its machine name: what stands behind the
// last backslash of `serverName`. A server name of "" or "(null)" leaves the address as it is.
std::string_view ReachableAddress(std::string_view address, std::string_view serverName);

// What the question for the stored address's type and size means.
enum class StoredAddress {
    Readable,
    Unusable, // there is a value, but no text
    NotHad,
};
// `status` and `type` are the platform's: of the question, which takes no data, and of the value.
StoredAddress JudgeStoredAddress(std::uint32_t status, std::uint32_t type);
