// The job property application: 20 ms for its catalogue, and a search at each key press well below 1 ms.
#include "companions/jobproperty/job_settings.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <string>
#include <variant>

namespace {

using namespace jobproperty;

std::string DescriptionText() {
    std::ifstream file(ZR_RESOURCES_DIR "/x100.ppd", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const ppd::PpdFile& Device() {
    static const ppd::PpdFile device = std::get<ppd::PpdFile>(ppd::Parse(DescriptionText()));
    return device;
}

void ParseDescription(benchmark::State& state) {
    const std::string text = DescriptionText();
    for (auto _ : state)
        benchmark::DoNotOptimize(ppd::Parse(text));
}
BENCHMARK(ParseDescription)->Unit(benchmark::kMillisecond);

// The first one in a process also pays for what stays.
void FirstCatalogue(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Catalogue(Device()));
}
BENCHMARK(FirstCatalogue)->Iterations(1)->Unit(benchmark::kMillisecond);

void BuildCatalogue(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Catalogue(Device()));
}
BENCHMARK(BuildCatalogue)->Unit(benchmark::kMillisecond);

void BuildJobSettings(benchmark::State& state) {
    const Catalogue catalogue(Device());
    for (auto _ : state)
        benchmark::DoNotOptimize(JobSettings(catalogue, Device()));
}
BENCHMARK(BuildJobSettings)->Unit(benchmark::kMicrosecond);

void Search(benchmark::State& state, const char* query) {
    const Catalogue catalogue(Device());
    for (auto _ : state)
        benchmark::DoNotOptimize(catalogue.Search(query));
}
BENCHMARK_CAPTURE(Search, Common, "する")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, Rare, "ﾎﾁｷｽ")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, Nowhere, "zzzzzz")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, Words, "用紙 トレイ 自動 選択")->Unit(benchmark::kMicrosecond);

} // namespace
