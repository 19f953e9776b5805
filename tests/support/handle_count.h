// The kernel handles that the process holds.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

template <typename Function>
Function NtFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), name)));
}

// GetProcessHandleCount gives 0 under Wine, so the system's list of all handles is searched.
inline int CountHandles() {
    constexpr int kExtendedHandles = 64;
    constexpr std::size_t kFirst = 16;
    constexpr std::size_t kEntry = 40;
    constexpr std::size_t kProcess = 8;
    std::vector<unsigned char> list(1 << 22);
    ULONG used = 0;
    const auto query = NtFunction<LONG(NTAPI*)(int, void*, ULONG, ULONG*)>("NtQuerySystemInformation");
    if (query(kExtendedHandles, list.data(), static_cast<ULONG>(list.size()), &used) != 0)
        return -1;
    const auto handles = *reinterpret_cast<const std::uint64_t*>(list.data());
    int count = 0;
    for (std::uint64_t i = 0; i < handles; ++i) {
        const auto* owner =
            reinterpret_cast<const std::uint64_t*>(list.data() + kFirst + i * kEntry + kProcess);
        count += *owner == GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}
