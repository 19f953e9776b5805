#include "pages/print_server_address.h"

#include "Common/text.h"

#include <algorithm>

namespace {

constexpr std::string_view kLocalAddresses[] = {"localhost", "127.0.0.1", "."};

constexpr std::uint32_t kSuccess = 0;
constexpr std::uint32_t kAlreadyExists = 183;
constexpr std::uint32_t kMoreData = 234;
constexpr std::uint32_t kTextType = 1; // REG_SZ

} // namespace

std::string_view ReachableAddress(std::string_view address, std::string_view serverName) {
    if (serverName.empty() || serverName == "(null)" || std::ranges::count(kLocalAddresses, address) == 0)
        return address;
    const std::size_t backslash = FindLastCharacter(serverName, '\\');
    return backslash == std::string_view::npos ? serverName : serverName.substr(backslash + 1);
}

StoredAddress JudgeStoredAddress(std::uint32_t status, std::uint32_t type) {
    const bool isThere = status == kSuccess || status == kMoreData || status == kAlreadyExists;
    if (isThere && type == kTextType)
        return StoredAddress::Readable;
    return status == kSuccess ? StoredAddress::Unusable : StoredAddress::NotHad;
}
