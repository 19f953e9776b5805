#include "oemps/printer_connections.h"

#include "Common/log.h"
#include "Common/text.h"
#include "Common/win_handles.h"

#include <array>
#include <cstdio>

namespace {

void LogSubkey(const char* name, const FILETIME& lastWrite) {
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
