#include "Common/log.h"
#include "oemps/authentication_data.h"

#include <windows.h>

#include <lmcons.h>

#include <array>

std::string LoggedInUser() {
    std::array<char, UNLEN + 1> name{};
    DWORD size = static_cast<DWORD>(name.size());
    if (!GetUserNameA(name.data(), &size)) {
        ZR_LOG("GetUserName error=%lu\n", GetLastError());
        return {};
    }
    return name.data();
}
