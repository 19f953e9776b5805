// Labels and option texts: under 1 us each is wanted.
#include "options/PrintOptionSetting.h"

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

namespace {

constexpr int kLastOption = 49;

// A list from its first to its last option, as a combo box asks for it; the figure is that of one text.
void OptionText(benchmark::State& state) {
    const int item = static_cast<int>(state.range(0));
    int count = 0;
    GetPrintOptionStringList(&item, nullptr, 0, &count);
    std::array<char, 256> text;
    int option = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetPrintOptionStringList(&item, text.data(), text.size(), &option));
        benchmark::ClobberMemory();
        option = option + 1 < count ? option + 1 : 0;
    }
}
BENCHMARK(OptionText)
    ->ArgName("item")
    ->Arg(keyword::ChgPrintPaperSizeType)
    ->Arg(keyword::PaperTypeD)
    ->Arg(keyword::StapleMode)
    ->Arg(option_item::JobNameChoice);

void LastPaperSize(benchmark::State& state) {
    const int item = keyword::ChgPrintPaperSizeType;
    int option = kLastOption;
    std::array<char, 256> text;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetPrintOptionStringList(&item, text.data(), text.size(), &option));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(LastPaperSize);

void OptionCount(benchmark::State& state) {
    const int item = keyword::ChgPrintPaperSizeType;
    int count = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetPrintOptionStringList(&item, nullptr, 0, &count));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(OptionCount);

void LabelWithAccelerator(benchmark::State& state) {
    const int item = keyword::OffsetMode;
    std::array<char, 64> text;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetPrintOptionString(&item, text.data(), text.size()));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(LabelWithAccelerator);

void LabelWithoutAccelerator(benchmark::State& state) {
    std::array<char, 64> text;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            UICommon::GetKeywordTranslation(keyword::OffsetMode, text.data(), text.size()));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(LabelWithoutAccelerator);

void WholeStringList(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::string> texts;
        UICommon::GetStringList_ChgPrintPaperSizeType(texts);
        benchmark::DoNotOptimize(texts.data());
    }
}
BENCHMARK(WholeStringList);

} // namespace
