// The print server's address, as the key that the port monitor keeps for a Standard TCP/IP port tells it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

inline constexpr std::size_t kPortAddressSize = 128;

// The values of a port's key, which are text in the ANSI code page.
class PortKey {
  public:
    virtual ~PortKey() = default;
    // The size of a value in bytes; nothing if the key can't tell.
    virtual std::optional<std::uint32_t> SizeOf(const std::string& value) = 0;
    // False if the value can't be read or has grown out of `bytes`.
    virtual bool Read(const std::string& value, std::span<char> bytes) = 0;
};

// The path of a port's key below HKEY_LOCAL_MACHINE; nothing for one of more than 259 bytes.
std::optional<std::string> PortKeyPath(std::string_view port);

// Writes the address of a port that has a key, cut at 127 bytes on a character boundary, and gives 1: the
// host's name, else the IP address, else the machine's own. A port whose key has no host name, not even an
// empty one, has its own name for an address. 0 if the IP address can't be read or, where there is one, the
// host's name.
int AddressOfPort(PortKey& key, std::string_view port, std::span<char, kPortAddressSize> out);
