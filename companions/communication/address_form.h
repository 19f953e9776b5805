// The form of a print server's address as a user may enter it. It stands on a command line behind "-ip" and
// in the name of a folder behind "10_", so it has no blank, and no colon: an IPv6 address can't be one.
#pragma once

#include <cstddef>
#include <string_view>

// Who reads the address keeps it in 128 bytes.
inline constexpr std::size_t kMostAddressBytes = 127;

enum class AddressFault {
    None,
    TooLong,
    IpV6,
    Character, // none that a host name may have; the system's names for computers may have a "_"
    IpV4,      // of digits and periods, but no IPv4 address
    Label      // a host name with a part that is empty, too long or begins or ends with a hyphen
};

// What was pasted may have blanks around it that nobody sees.
std::wstring_view WithoutBlanksAround(std::wstring_view text);

// The first fault in this order. "" is the form of no address.
AddressFault FaultOfAddress(std::string_view address);
