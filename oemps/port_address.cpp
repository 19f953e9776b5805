#include "oemps/port_address.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "resources/resource.h"

#include <memory>
#include <new>

namespace {

// A path's MAX_PATH without its NUL: room for port names of up to 188 bytes.
constexpr std::size_t kPathLimit = 259;
constexpr char kOwnMachine[] = "127.0.0.1";

// Whatever the value's type, its bytes are taken as text, which need not end in a NUL.
bool ReadText(PortKey& key, const std::string& value, std::uint32_t size,
              std::span<char, kPortAddressSize> out) {
    const std::unique_ptr<char[]> bytes(new (std::nothrow) char[size]());
    if (!bytes) {
        ZR_LOG("no memory for %u bytes of %s\n", size, value.c_str());
        return false;
    }
    if (!key.Read(value, {bytes.get(), size}))
        return false;
    CopyText(out, FieldText({bytes.get(), size}));
    return true;
}

} // namespace

std::optional<std::string> PortKeyPath(std::string_view port) {
    std::string path = LoadText(IDS_PORTS_KEY);
    if (path.size() + port.size() > kPathLimit) {
        ZR_LOG("the name of the port is too long, length=%u\n", static_cast<unsigned>(port.size()));
        return std::nullopt;
    }
    return path.append(port);
}

int AddressOfPort(PortKey& key, std::string_view port, std::span<char, kPortAddressSize> out) {
    out[0] = '\0';
    const std::string hostName = LoadText(IDS_PORT_HOST_NAME);
    const std::optional<std::uint32_t> hostNameSize = key.SizeOf(hostName);
    if (!hostNameSize) {
        CopyText(out, port);
        return 1;
    }
    int result = ReadText(key, hostName, *hostNameSize, out) ? 1 : 0;
    if (out[0] != '\0')
        return result;

    const std::string ipAddress = LoadText(IDS_PORT_IP_ADDRESS);
    const std::optional<std::uint32_t> ipAddressSize = key.SizeOf(ipAddress);
    if (!ipAddressSize) {
        CopyText(out, kOwnMachine);
        // Even where the host's name could not be read.
        return 1;
    }
    if (!ReadText(key, ipAddress, *ipAddressSize, out))
        result = 0;
    return result;
}
