#include "session/datamanager.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <string>

namespace {

void BankGetter(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_SetCurrent(200, 7);
    int keyword = 0;
    std::uint32_t value = 0;
    for (auto _ : state) {
        ExportedFunc_GetCurrent(keyword, &value);
        benchmark::DoNotOptimize(value);
        keyword = keyword < 326 ? keyword + 1 : 0;
    }
}
BENCHMARK(BankGetter);

void NumberGetter(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    std::uint32_t value = 0;
    for (auto _ : state) {
        ExportedFunc_GetBleedSize(&value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(NumberGetter);

// The longest text that a field of 100 bytes, the usual width, holds.
void TextGetter(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_SetFormName(std::string(99, 'x').c_str());
    std::array<char, 100> text{};
    for (auto _ : state) {
        ExportedFunc_GetFormName(text.data());
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(TextGetter);

void BankSetter(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    std::uint32_t value = 0;
    for (auto _ : state)
        ExportedFunc_SetCurrent(200, ++value);
}
BENCHMARK(BankSetter);

void TextSetter(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    std::array<std::string, 2> texts{std::string(99, 'x'), std::string(99, 'y')};
    std::size_t turn = 0;
    for (auto _ : state)
        ExportedFunc_SetFormName(texts[++turn % 2].c_str());
}
BENCHMARK(TextSetter);

} // namespace
