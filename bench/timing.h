// Times of the programs that run under Wine.
#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>

inline double Microseconds() {
    LARGE_INTEGER now;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Prints what one run takes, of 200, before each of which `prepare` is called outside the clock. Gives the
// median in microseconds.
template <class Run, class Prepare>
double Report(const char* what, Run run, Prepare prepare) {
    std::array<double, 200> times;
    for (double& time : times) {
        prepare();
        const double start = Microseconds();
        run();
        time = Microseconds() - start;
    }
    std::ranges::sort(times);
    const double median = times[times.size() / 2];
    std::printf("%-44s median %8.1f us, best %8.1f us, worst %8.1f us\n", what, median, times.front(),
                times.back());
    return median;
}

template <class Run>
double Report(const char* what, Run run) {
    return Report(what, run, [] {});
}
