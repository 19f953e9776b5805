// Links that the system under Wine has: made by its own program, and seen as reparse points.
#pragma once

#include "Common/win_handles.h"
#include "host/module_function.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

// The paths are in the ANSI code page.
namespace system_link {

// False where there is no program that makes them.
inline bool CanBeMade() {
    return GetFileAttributesA("Z:\\bin\\ln") != INVALID_FILE_ATTRIBUTES;
}

inline std::string UnixPath(const std::string& path) {
    using Function = char*(CDECL*)(LPCWSTR);
    const auto function = FunctionOf<Function>(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name");
    std::wstring wide(path.size() + 1, L'\0');
    MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return function ? function(wide.c_str()) : "";
}

// The link's own path: what it leads to must not take its place.
inline std::string UnixLink(const std::string& link) {
    const std::size_t name = link.find_last_of('\\');
    return UnixPath(link.substr(0, name)) + "/" + link.substr(name + 1);
}

inline bool IsThere(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// The end of such a program can't be waited for, so its work is.
inline void RunUntil(std::string command, const std::string& link, bool isThere) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    ASSERT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &started));
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
    for (int attempt = 0; attempt < 500 && IsThere(link) != isThere; ++attempt)
        Sleep(10);
    ASSERT_EQ(IsThere(link), isThere) << command;
}

// The link's name has no character whose second byte is a backslash.
inline void Make(const std::string& target, const std::string& link) {
    RunUntil("Z:\\bin\\ln -s " + UnixPath(target) + " " + UnixLink(link), link, true);
}

// One that is left could be followed by whoever clears the folder.
inline void Remove(const std::string& link) {
    RunUntil("Z:\\bin\\rm -f " + UnixLink(link), link, false);
}

} // namespace system_link
