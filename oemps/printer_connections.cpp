#include "oemps/printer_connections.h"

#include "Common/log.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "oemps/printer_names.h"

#include <array>
#include <cstdio>

namespace {

// A user may have hundreds of connections, and each merge of a record asks for them.
void LogSubkey(const char* name, const FILETIME& lastWrite) {
    if (!log_backend::IsOpenable(log_backend::Target::Main))
        return;
    SYSTEMTIME time{};
    FileTimeToSystemTime(&lastWrite, &time);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%04d/%02d/%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay,
                  time.wHour, time.wMinute, time.wSecond);
    WriteLog("SubkeyName: %s, LastWriteTime: %s\n", name, stamp);
}

} // namespace

std::vector<std::string> ListConnections(const char* rootKey) {
    UniqueRegistryKey key;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, rootKey, 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
        return {};
    const OpenMainLog log;
    std::vector<std::string> names;
    for (DWORD index = 0;; ++index) {
        std::array<char, 1024> name;
        DWORD length = static_cast<DWORD>(name.size());
        FILETIME lastWrite{};
        const LSTATUS status =
            RegEnumKeyExA(key.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, &lastWrite);
        if (status == ERROR_MORE_DATA)
            continue;
        if (status != ERROR_SUCCESS) {
            if (status != ERROR_NO_MORE_ITEMS)
                ZR_LOG("RegEnumKeyEx %s failed, status=%ld\n", rootKey, status);
            return names;
        }
        names.emplace_back(name.data(), length);
        LogSubkey(names.back().c_str(), lastWrite);
    }
}

std::string ConnectionKey(std::string_view connection) {
    return std::string(kConnectionsKey).append("\\").append(connection);
}

void GetGuidPrinter(const char* key, std::span<char, 256> out) {
    ZR_LOG_ENTRY();
    out[0] = '\0';
    UniqueRegistryKey handle;
    const LSTATUS opened = RegCreateKeyExA(HKEY_CURRENT_USER, key, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           KEY_ALL_ACCESS, nullptr, handle.Receive(), nullptr);
    if (opened != ERROR_SUCCESS) {
        ZR_LOG("RegCreateKeyEx %s failed, status=%ld\n", key, opened);
        return;
    }

    std::array<char, 256> value{};
    DWORD size = static_cast<DWORD>(value.size());
    LSTATUS read = RegQueryValueExA(handle.Get(), "GuidPrinter", nullptr, nullptr,
                                    reinterpret_cast<LPBYTE>(value.data()), &size);
    const std::string_view text = FieldText({value.data(), read == ERROR_SUCCESS ? size : 0});
    // A text that leaves no room for its NUL does not fit. Cut, it would be the id of another printer.
    if (text.size() == out.size())
        read = ERROR_MORE_DATA;
    if (read != ERROR_SUCCESS) {
        ZR_LOG("GuidPrinter of %s, status=%ld\n", key, read);
        return;
    }
    CopyText(out, text);
}

std::string PrinterKeyName(std::string_view printerName) {
    const std::string_view shortName = ShortPrinterName(printerName);
    const std::vector<std::string> connections = ListConnections(kConnectionsKey);
    std::array<char, 256> guid{};
    GetGuidPrinter(ConnectionKey(FindConnection(connections, shortName)).c_str(), guid);
    return std::string(shortName).append(guid.data());
}
