#include "host/driver_data_file.h"

#include <winspool.h>

#include <vector>

namespace {

std::optional<std::wstring> DriverFile(HANDLE printer, LPWSTR DRIVER_INFO_3W::*file) {
    DWORD needed = 0;
    GetPrinterDriverW(printer, nullptr, 3, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    if (needed < sizeof(DRIVER_INFO_3W) ||
        !GetPrinterDriverW(printer, nullptr, 3, buffer.data(), needed, &needed))
        return std::nullopt;
    const wchar_t* path = reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data())->*file;
    return path ? path : L"";
}

} // namespace

std::optional<std::wstring> DriverDataFile(HANDLE printer) {
    return DriverFile(printer, &DRIVER_INFO_3W::pDataFile);
}

std::optional<std::wstring> DriverConfigFile(HANDLE printer) {
    return DriverFile(printer, &DRIVER_INFO_3W::pConfigFile);
}
