#include "host/driver_data_file.h"

#include <winspool.h>

#include <vector>

std::optional<std::wstring> DriverDataFile(HANDLE printer) {
    DWORD needed = 0;
    GetPrinterDriverW(printer, nullptr, 3, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    if (needed < sizeof(DRIVER_INFO_3W) ||
        !GetPrinterDriverW(printer, nullptr, 3, buffer.data(), needed, &needed))
        return std::nullopt;
    const auto* driver = reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data());
    return driver->pDataFile ? driver->pDataFile : L"";
}
