// What the store's operations cost with a data setting key in use, in nanoseconds per call: getters in a loop
// while nothing changes from outside, setters that change nothing, setters that write through, and taking
// over a change.
#include "session/datamanager.h"
#include "session/keyword.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace {

double Nanoseconds() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(counter.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

template <typename Operation>
void Measure(const char* what, std::uint32_t calls, Operation operation) {
    const double start = Nanoseconds();
    for (std::uint32_t i = 0; i < calls; ++i)
        operation(i);
    std::printf("%-48s %10.1f ns\n", what, (Nanoseconds() - start) / calls);
}

std::uint32_t readNumber = 0;
std::array<char, 1024> readText{};

void ReadEverything() {
    for (int keyword = 0; keyword < kKeywordCount; ++keyword)
        ExportedFunc_GetCurrent(keyword, &readNumber);
}

void HandOver(const char* keyName, DWORD generation) {
    RegSetKeyValueA(HKEY_CURRENT_USER, keyName, "Generation", REG_DWORD, &generation, sizeof generation);
}

} // namespace

int main() {
    std::array<char, 260> keyName{};
    ExportedFunc_InitializeDataManager();
    ExportedFunc_CreateDataSettingRegistryKeyName(keyName.data());
    ExportedFunc_CreateDataSettingRegistryKey(keyName.data(), kKeywordCount);
    ExportedFunc_GetRegistryKeyName(readText.data());
    if (readText[0] == '\0') {
        std::puts("no data setting key could be made");
        return 1;
    }

    Measure("write 4 banks of 327", 4 * 327, [](std::uint32_t i) {
        const int keyword = static_cast<int>(i / 4);
        switch (i % 4) {
        case 0: ExportedFunc_SetCurrent(keyword, i + 1); break;
        case 1: ExportedFunc_SetDefault(keyword, i + 1); break;
        case 2: ExportedFunc_SetFavorite(keyword, i + 1); break;
        default: ExportedFunc_SetPreview(keyword, i + 1); break;
        }
    });
    const std::array<char, 100> full = [] {
        std::array<char, 100> text{};
        std::fill_n(text.begin(), 99, 'x');
        return text;
    }();
    ExportedFunc_SetFormName(full.data());

    constexpr std::uint32_t kCalls = 20'000;
    Measure("bank getter", kCalls,
            [](std::uint32_t i) { ExportedFunc_GetCurrent(static_cast<int>(i % 327), &readNumber); });
    Measure("number getter", kCalls, [](std::uint32_t) { ExportedFunc_GetBleedSize(&readNumber); });
    Measure("text getter, 99 bytes", kCalls,
            [](std::uint32_t) { ExportedFunc_GetFormName(readText.data()); });
    Measure("text setter, nothing changed", kCalls,
            [&](std::uint32_t) { ExportedFunc_SetFormName(full.data()); });
    Measure("number setter, nothing changed", kCalls, [](std::uint32_t) { ExportedFunc_SetBleedSize(0); });
    Measure("number setter, written through", 5'000,
            [](std::uint32_t i) { ExportedFunc_SetBleedSize(i + 1); });
    Measure("take over a change, 1300 values", 50, [&](std::uint32_t i) {
        HandOver(keyName.data(), i + 1);
        Sleep(1);
        ReadEverything();
    });
    ExportedFunc_DeleteRegistryKey(keyName.data());
    return 0;
}
