#include "oemps/server_address.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "pages/print_server_address.h"
#include "session/datamanager.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr char kDriverData[] = "PrinterDriverData";

class RegistryPortKey final : public PortKey {
  public:
    explicit RegistryPortKey(HKEY key) : m_key(key) {}

    std::optional<std::uint32_t> SizeOf(const std::string& value) override {
        DWORD size = 0;
        const LSTATUS status = RegQueryValueExA(m_key, value.c_str(), nullptr, nullptr, nullptr, &size);
        if (status == ERROR_SUCCESS)
            return size;
        ZR_LOG("the size of %s is not told, status=%ld\n", value.c_str(), status);
        return std::nullopt;
    }

    bool Read(const std::string& value, std::span<char> bytes) override {
        DWORD size = static_cast<DWORD>(bytes.size());
        const LSTATUS status = RegQueryValueExA(m_key, value.c_str(), nullptr, nullptr,
                                                reinterpret_cast<BYTE*>(bytes.data()), &size);
        if (status != ERROR_SUCCESS)
            ZR_LOG("%s can't be read, status=%ld\n", value.c_str(), status);
        return status == ERROR_SUCCESS;
    }

  private:
    HKEY m_key;
};

} // namespace

int GetIpAddressFromRegstry(const char* port, std::span<char, kPortAddressSize> out) {
    ZR_LOG_ENTRY();
    out[0] = '\0';
    const std::optional<std::string> path = PortKeyPath(port);
    if (!path)
        return 0;
    UniqueRegistryKey key;
    const LSTATUS status =
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, path->c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ,
                        nullptr, key.Receive(), nullptr);
    if (status != ERROR_SUCCESS) {
        ZR_LOG("RegCreateKeyEx %s failed, status=%ld\n", path->c_str(), status);
        CopyText(out, port);
        return 1;
    }
    RegistryPortKey values(key.Get());
    const int result = AddressOfPort(values, port, out);
    ZR_LOG("port=%s address=%s result=%d\n", port, out.data(), result);
    return result;
}

int PrinterPortAddressUpdateStep1(HANDLE printer, std::span<char, kPortAddressSize> out) {
    ZR_LOG_ENTRY();
    PrinterInfo info;
    info.Fetch(printer, 2);
    const auto* fetched = info.As<PRINTER_INFO_2A>();
    if (!fetched) {
        ZR_LOG("no printer information\n");
        return 0;
    }
    std::array<char, kPortAddressSize> address{};
    const int result = GetIpAddressFromRegstry(fetched->pPortName ? fetched->pPortName : "", address);
    if (result > 0)
        std::ranges::copy(address, out.begin());
    return result;
}

int PrinterPortAddressUpdateStep2(HANDLE, const char* address) {
    ZR_LOG("address=%s\n", address);
    return 0;
}

int PrinterPortAddressUpdate(HANDLE printer) {
    ZR_LOG_ENTRY();
    std::array<char, kPortAddressSize> address{};
    if (PrinterPortAddressUpdateStep1(printer, address) == 0)
        return 0;
    return PrinterPortAddressUpdateStep2(printer, address.data());
}

void PrintServerCommSettingChk(HANDLE printer, const char* address) {
    ZR_LOG_ENTRY();
    std::array<wchar_t, 260> kept{};
    if (ExportedFunc_GetPrinterPortAddress(printer, kept.data()) != 0)
        return;
    const DWORD size = static_cast<DWORD>(std::strlen(address) + 1);
    const DWORD status = SetPrinterDataExA(printer, kDriverData, kPrinterPortAddress, REG_SZ,
                                           const_cast<BYTE*>(reinterpret_cast<const BYTE*>(address)), size);
    if (status != ERROR_SUCCESS)
        ZR_LOG("SetPrinterDataEx %s failed, status=%lu\n", kPrinterPortAddress, status);
}
