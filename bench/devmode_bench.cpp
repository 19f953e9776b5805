// The operations of the private DEVMODE: under 5 us each is wanted.
#include "oemps/devmode.h"
#include "session/record_routes.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

namespace {

std::unique_ptr<PrivateDevMode> MakeDefault() {
    auto record = std::make_unique<PrivateDevMode>();
    CDevMode(*record).SetDefault(kDevModeSize);
    return record;
}

// A record whose every byte behind the header is `fill`.
std::unique_ptr<PrivateDevMode> MakeFilled(int fill) {
    auto record = MakeDefault();
    std::memset(reinterpret_cast<char*>(record.get()) + kDevModeHeaderSize, fill,
                kDevModeSize - kDevModeHeaderSize);
    return record;
}

void Default(benchmark::State& state) {
    const auto record = MakeDefault();
    for (auto _ : state) {
        CDevMode(*record).SetDefault(kDevModeSize);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Default);

void Convert(benchmark::State& state) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    for (auto _ : state) {
        CDevMode::Convert(*target, source.get());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Convert);

void Merge(benchmark::State& state) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    for (auto _ : state) {
        CDevMode::Merge(*target, source.get());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Merge);

// What the driver's merge request asks for.
void ConvertThenMerge(benchmark::State& state) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    for (auto _ : state) {
        CDevMode::Convert(*target, source.get());
        CDevMode::Merge(*target, source.get());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ConvertThenMerge);

void MergeOfBlockWithoutNul(benchmark::State& state) {
    const auto source = MakeFilled('x');
    const auto target = MakeDefault();
    for (auto _ : state) {
        CDevMode::Merge(*target, source.get());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MergeOfBlockWithoutNul);

void MergeOfControlCharacters(benchmark::State& state) {
    const auto source = MakeFilled('\n');
    const auto target = MakeDefault();
    for (auto _ : state) {
        CDevMode::Merge(*target, source.get());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MergeOfControlCharacters);

void StoreEveryRoute(benchmark::State& state) {
    const auto record = MakeDefault();
    for (auto _ : state) {
        for (const int id : kApplyRouteOrder)
            StoreByRoute(*record, id, 1);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(StoreEveryRoute);

} // namespace
