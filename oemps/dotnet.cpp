#include "oemps/dotnet.h"

#include "Common/log.h"
#include "Common/win_handles.h"

#include <windows.h>

#include <array>
#include <cstdlib>

namespace {

constexpr char kVersionsKey[] = "Software\\Microsoft\\NET Framework Setup\\NDP";
constexpr long kFirstMajorVersion = 4;

// A version's subkey is named by "v" and its number, as in "v2.0.50727" and "v4".
bool IsRecent(const char* subkey) {
    return (subkey[0] == 'v' || subkey[0] == 'V') &&
           std::strtol(subkey + 1, nullptr, 10) >= kFirstMajorVersion;
}

} // namespace

bool IsDotNet4Present() {
    ZR_LOG_ENTRY();
    UniqueRegistryKey versions;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kVersionsKey, 0, KEY_READ, versions.Receive()) != ERROR_SUCCESS)
        return false;
    for (DWORD index = 0;; ++index) {
        std::array<char, 256> name;
        DWORD length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExA(versions.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return false;
        if (IsRecent(name.data()))
            return true;
    }
}
