#include "oemps/dotnet.h"

#include "Common/log.h"
#include "Common/win_handles.h"

#include <windows.h>

#include <array>
#include <string>
#include <vector>

namespace {

constexpr char kVersionsKey[] = "Software\\Microsoft\\NET Framework Setup\\NDP";
constexpr int kNeededVersion = 4;

// What the editions' keys say; the one that is read last counts.
struct Edition {
    int version = 0; // the first digit of its version
    DWORD install = 0;
};

constexpr int DigitOf(char c) {
    return c >= '0' && c <= '9' ? c - '0' : 0;
}

// A version's key is named by "v" and its number, as in "v2.0.50727" and "v4".
bool IsRecent(const std::string& version) {
    return version.size() >= 2 && version[0] == 'v' && DigitOf(version[1]) >= kNeededVersion;
}

std::vector<std::string> SubkeysOf(HKEY key) {
    std::vector<std::string> names;
    for (DWORD index = 0;; ++index) {
        std::array<char, 1024> name;
        DWORD length = static_cast<DWORD>(name.size());
        const LSTATUS status =
            RegEnumKeyExA(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_SUCCESS)
            names.emplace_back(name.data(), length);
        else if (status != ERROR_MORE_DATA)
            return names;
    }
}

void ReadEdition(HKEY versions, const std::string& path, Edition& last) {
    UniqueRegistryKey key;
    if (RegOpenKeyExA(versions, path.c_str(), 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
        return;
    std::array<char, 256> version{};
    DWORD size = static_cast<DWORD>(version.size());
    if (RegQueryValueExA(key.Get(), "Version", nullptr, nullptr, reinterpret_cast<LPBYTE>(version.data()),
                         &size) == ERROR_SUCCESS)
        last.version = DigitOf(version[0]);
    DWORD install = 0;
    size = sizeof install;
    DWORD type = REG_NONE;
    if (RegQueryValueExA(key.Get(), "Install", nullptr, &type, reinterpret_cast<LPBYTE>(&install), &size) ==
            ERROR_SUCCESS &&
        type == REG_DWORD)
        last.install = install;
}

} // namespace

bool IsDotNet4Present() {
    ZR_LOG_ENTRY();
    UniqueRegistryKey versions;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kVersionsKey, 0, KEY_READ, versions.Receive()) != ERROR_SUCCESS)
        return false;
    Edition last;
    for (const std::string& version : SubkeysOf(versions.Get())) {
        if (!IsRecent(version))
            continue;
        ReadEdition(versions.Get(), version + "\\Client", last);
        ReadEdition(versions.Get(), version + "\\Full", last);
    }
    return last.install == 1 && last.version >= kNeededVersion;
}
