#include "datamanager/printer_settings.h"

#include "Common/log.h"

#include <windows.h>

#include <winspool.h>

namespace printer_settings {
namespace {

constexpr const wchar_t* kDriverData = L"PrinterDriverData";

// The bytes read; 0 if there is no such value of this type that fits.
DWORD Read(void* printer, const wchar_t* name, DWORD type, std::span<std::byte> data) {
    DWORD foundType = REG_NONE;
    DWORD size = 0;
    const DWORD status =
        GetPrinterDataExW(printer, kDriverData, name, &foundType, reinterpret_cast<BYTE*>(data.data()),
                          static_cast<DWORD>(data.size()), &size);
    if (status == ERROR_SUCCESS && foundType == type && size <= data.size())
        return size;
    ZR_LOG("GetPrinterDataEx=%lu type=%lu size=%lu %ls\n", status, foundType, size, name);
    return 0;
}

} // namespace

std::uint32_t ReadNumber(void* printer, const wchar_t* name) {
    DWORD value = 0;
    return Read(printer, name, REG_DWORD, std::as_writable_bytes(std::span(&value, 1))) == sizeof value
               ? value
               : 0;
}

void WriteNumber(void* printer, const wchar_t* name, std::uint32_t value) {
    const DWORD status = SetPrinterDataExW(printer, kDriverData, name, REG_DWORD,
                                           reinterpret_cast<BYTE*>(&value), sizeof value);
    if (status != ERROR_SUCCESS)
        ZR_LOG("SetPrinterDataEx=%lu %ls\n", status, name);
}

bool ReadAddress(void* printer, std::span<wchar_t, kAddressLength> address) {
    const DWORD size = Read(printer, kPrinterPortAddress, REG_SZ, std::as_writable_bytes(address));
    const std::size_t length = size / sizeof(wchar_t);
    // Stored data need not end in a NUL; where it fills the whole buffer without one it does not fit.
    if (length < address.size())
        address[length] = L'\0';
    else if (address.back() != L'\0')
        address[0] = L'\0';
    return address[0] != L'\0';
}

} // namespace printer_settings
