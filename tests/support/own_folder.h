// The folder of programs, where the modules under test stand beside the test.
#pragma once

#include <windows.h>

#include <array>
#include <filesystem>

inline std::filesystem::path OwnFolder() {
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return std::filesystem::path(path.data()).parent_path();
}
