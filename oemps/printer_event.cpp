#include "oemps/printer_event.h"

#include "Common/error_message.h"
#include "Common/log.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "oemps/printer_connections.h"
#include "oemps/printer_event_names.h"
#include "oemps/server_address.h"
#include "session/datamanager.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <string>

namespace {

// False for a name that has characters of another language, or does not fit with its NUL.
bool ToMultiByte(PCWSTR wide, std::span<char> out) {
    // The whole process's from here on. The names are in code page 932 then, also where the system's own code
    // page, by which printers and keys are opened, is another one.
    std::setlocale(LC_CTYPE, "JPN");
    // Only the length tells that a name does not fit: the conversion ends in front of a double-byte character
    // that would be cut.
    return wide && std::wcstombs(nullptr, wide, 0) < out.size() &&
           std::wcstombs(out.data(), wide, out.size()) < out.size();
}

// Logs why if the printer can't be opened.
UniquePrinter OpenedPrinter(std::string name, PRINTER_DEFAULTSA* access) {
    UniquePrinter printer;
    if (OpenPrinterA(name.data(), printer.Receive(), access))
        return printer;
    const DWORD error = GetLastError();
    ZR_LOG("%s error=%lu %s\n", name.c_str(), error, ErrorMessage(error).c_str());
    return {};
}

void LogComputerName() {
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD size = static_cast<DWORD>(name.size());
    if (GetComputerNameA(name.data(), &size))
        ZR_LOG("%s\n", name.data());
    else
        ZR_LOG("GetComputerName failed.\n");
}

} // namespace

void PrinterAdded(PCWSTR printerName) {
    std::array<char, 512> name{};
    if (!ToMultiByte(printerName, name)) {
        ZR_LOG("the name can't be converted\n");
        return;
    }
    const std::string part(PartBehindLastBackslash(name.data()));
    UniquePrinter printer = OpenedPrinter(part, nullptr);
    if (!printer)
        return;
    std::array<char, kPortAddressSize> address{};
    if (PrinterPortAddressUpdateStep1(printer.Get(), address) == 0)
        return;
    printer.Reset();
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    printer = OpenedPrinter(part, &access);
    if (printer)
        PrintServerCommSettingChk(printer.Get(), address.data());
}

void PrinterDeleted(PCWSTR printerName) {
    LogComputerName();
    std::array<char, 1024> name{};
    if (!ToMultiByte(printerName, name)) {
        ZR_LOG("the name can't be converted, error=%lu\n", GetLastError());
        return;
    }
    hrOEMPrinterEvent(name.data());
}

int hrOEMPrinterEvent(const char* printerName) {
    ZR_LOG_ENTRY();
    if (!printerName) {
        ZR_LOG("no name\n");
        return 0;
    }
    // This clears the values of a sheet that is open in this process.
    ExportedFunc_InitializeDataManager();
    const std::string part(PartBehindFirstBackslash(printerName));
    ZR_LOG("%s\n", part.c_str());
    std::array<char, kKeyNameSize> key{};
    if (IsClientSideRendering(part))
        GetClientAuthenticatInfo(part.c_str(), key);
    else
        GetAuthenticatInfo(part.c_str(), key);
    ZR_LOG("%s\n", key.data());
    const int deleted = ExportedFunc_DeleteAuthMngRegistryKey(key.data());
    ZR_LOG("%s\n", deleted == 1 ? "the key is deleted" : "no key is deleted");
    return deleted;
}

void GetAuthenticatInfo(const char* printerName, std::span<char, kKeyNameSize> out) {
    ZR_LOG_ENTRY();
    CopyText(out, printerName ? PrinterKeyName(printerName) : "");
}

void GetClientAuthenticatInfo(const char* printerName, std::span<char, kKeyNameSize> out) {
    ZR_LOG_ENTRY();
    out[0] = '\0';
    const std::string_view wanted = BehindLast(printerName ? printerName : "", '\\');
    for (const std::string& connection : ListConnections(kConnectionsKey)) {
        std::array<char, 256> guid{};
        GetGuidPrinter(ConnectionKey(connection).c_str(), guid);
        // A connection without a GUID has none to compare, so that a name without one matches none.
        if (guid[0] == '\0' || wanted != guid.data())
            continue;
        CopyText(out, std::string(BehindLast(connection, ',')).append(wanted));
        return;
    }
}
