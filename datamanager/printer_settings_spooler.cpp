#include "datamanager/printer_settings.h"

#include "Common/log.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <utility>

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

DWORD Write(void* printer, const wchar_t* name, DWORD type, const void* data, std::size_t size) {
    const DWORD status =
        SetPrinterDataExW(printer, kDriverData, name, type, static_cast<BYTE*>(const_cast<void*>(data)),
                          static_cast<DWORD>(size));
    if (status != ERROR_SUCCESS)
        ZR_LOG("SetPrinterDataEx=%lu %ls\n", status, name);
    return status;
}

} // namespace

std::uint32_t ReadNumber(void* printer, const wchar_t* name) {
    DWORD value = 0;
    return Read(printer, name, REG_DWORD, std::as_writable_bytes(std::span(&value, 1))) == sizeof value
               ? value
               : 0;
}

std::uint32_t WriteNumber(void* printer, const wchar_t* name, std::uint32_t value) {
    return Write(printer, name, REG_DWORD, &value, sizeof value);
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

std::uint32_t WriteAddress(void* printer, const std::wstring& address) {
    return Write(printer, kPrinterPortAddress, REG_SZ, address.c_str(),
                 (address.size() + 1) * sizeof(wchar_t));
}

std::uint32_t ReadRaw(void* printer, const wchar_t* name, std::optional<RawData>& data) {
    data.reset();
    DWORD type = REG_NONE;
    DWORD size = 0;
    DWORD status = GetPrinterDataExW(printer, kDriverData, name, &type, nullptr, 0, &size);
    if (status == ERROR_FILE_NOT_FOUND)
        return ERROR_SUCCESS;
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
        return status;
    std::vector<std::byte> bytes(size);
    // No buffer is ever large enough for data of size 0.
    status = ERROR_SUCCESS;
    if (size > 0)
        status = GetPrinterDataExW(printer, kDriverData, name, &type, reinterpret_cast<BYTE*>(bytes.data()),
                                   static_cast<DWORD>(bytes.size()), &size);
    if (status != ERROR_SUCCESS)
        return status;
    bytes.resize(std::min<std::size_t>(bytes.size(), size));
    data = RawData{type, std::move(bytes)};
    return ERROR_SUCCESS;
}

std::uint32_t PutBack(void* printer, const wchar_t* name, const std::optional<RawData>& data) {
    if (data)
        return Write(printer, name, data->type, data->bytes.data(), data->bytes.size());
    const DWORD status = DeletePrinterDataExW(printer, kDriverData, name);
    if (status == ERROR_SUCCESS)
        return status;
    ZR_LOG("DeletePrinterDataEx=%lu %ls\n", status, name);
    // Wine removes no data; 0 is what readers take a missing number for.
    return WriteNumber(printer, name, 0);
}

} // namespace printer_settings
