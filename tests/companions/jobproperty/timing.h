// Measuring the program on a machine that may be busy with other things.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>

inline double Milliseconds() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// How many times longer the shortest program takes now than on an idle machine; at least 1, and at most 4, so
// that no limit that it stretches is out of reach. Asked right beside a measurement.
inline double Slowness() {
    constexpr double idle = 40.0;
    constexpr double most = 4.0;
    double best = 1e9;
    for (int round = 0; round < 3; ++round) {
        std::string line = "cmd /c exit";
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        const double before = Milliseconds();
        if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process))
            return 1.0;
        WaitForSingleObject(process.hProcess, INFINITE);
        best = std::min(best, Milliseconds() - before);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    return std::clamp(best / idle, 1.0, most);
}
