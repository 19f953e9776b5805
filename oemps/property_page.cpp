#include "oemps/property_page.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "oemps/device_sheet.h"
#include "oemps/document_sheet.h"
#include "oemps/printer_names.h"
#include "oemps/sheet_state.h"

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr char kConnectionsKey[] = "Printers\\Connections";

void LogSubkey(const char* name, const FILETIME& lastWrite) {
    SYSTEMTIME time{};
    FileTimeToSystemTime(&lastWrite, &time);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%04d/%02d/%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay,
                  time.wHour, time.wMinute, time.wSecond);
    WriteLog("SubkeyName: %s, LastWriteTime: %s\n", name, stamp);
}

std::vector<std::string> ListConnections() {
    UniqueRegistryKey key;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kConnectionsKey, 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
        return {};
    std::vector<std::string> names;
    for (DWORD index = 0;; ++index) {
        std::array<char, 1024> name;
        DWORD length = static_cast<DWORD>(name.size());
        FILETIME lastWrite{};
        const LSTATUS status =
            RegEnumKeyExA(key.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, &lastWrite);
        if (status == ERROR_MORE_DATA)
            continue;
        if (status != ERROR_SUCCESS)
            return names;
        names.emplace_back(name.data(), length);
        LogSubkey(names.back().c_str(), lastWrite);
    }
}

void FindUserInfoKey(std::string_view printerName) {
    const std::string_view shortName = ShortPrinterName(printerName);
    const std::vector<std::string> connections = ListConnections();
    const std::string connection(FindConnection(connections, shortName));

    std::array<char, 256> guid{};
    GetGuidPrinter((std::string(kConnectionsKey) + "\\" + connection).c_str(), guid);
    CopyText(g_UserInfoKey, UserInfoKey(shortName, guid.data()));
}

} // namespace

void GetGuidPrinter(const char* key, std::span<char, 256> out) {
    ZR_LOG_ENTRY();
    out[0] = '\0';
    UniqueRegistryKey handle;
    const LSTATUS opened = RegCreateKeyExA(HKEY_CURRENT_USER, key, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           KEY_READ | KEY_WRITE, nullptr, handle.Receive(), nullptr);
    if (opened != ERROR_SUCCESS) {
        ZR_LOG("RegCreateKeyEx %s failed, status=%ld\n", key, opened);
        return;
    }
    std::array<char, 256> value{};

    DWORD size = static_cast<DWORD>(value.size());
    const LSTATUS read = RegQueryValueExA(handle.Get(), "GuidPrinter", nullptr, nullptr,
                                          reinterpret_cast<LPBYTE>(value.data()), &size);
    if (read != ERROR_SUCCESS || size == 0)
        return;
    CopyText(out, FieldText({value.data(), size}));
}

HRESULT hrOEMPropertyPage(DWORD mode, OEMCUIPPARAM* param) {
    ZR_LOG_ENTRY();
    if (!param) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return E_FAIL;
    }
    PrinterInfo info;
    info.Fetch(param->hPrinter, 2);
    const auto* printer = info.As<PRINTER_INFO_2A>();
    if (!printer) {
        ZR_LOG("no printer information\n");
        return E_FAIL;
    }
    FindUserInfoKey(printer->pPrinterName ? printer->pPrinterName : "");

    switch (mode) {
    case OEMCUIP_DOCPROP: return hrDocumentPropertyPage(param);
    case OEMCUIP_PRNPROP: g_hPrinter = param->hPrinter; return hrPrinterPropertyPage(param);
    default: SetLastError(ERROR_INVALID_PARAMETER); return E_FAIL;
    }
}
