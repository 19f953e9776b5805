// The look-ups of interchange tags: under 50 ns each, all names in both directions under 100 us.
#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"

#include <benchmark/benchmark.h>

#include <limits>

namespace {

// One look-up after the other, over every value number and a few beyond.
constexpr int kNumbers = 570;

void TagNumberOfEveryFirstOption(benchmark::State& state) {
    int number = 0;
    std::int32_t tag = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetTagNumberFromPreset(number, 0, &tag));
        number = number + 1 == kNumbers ? 0 : number + 1;
    }
}
BENCHMARK(TagNumberOfEveryFirstOption);

// The longest array and its last element.
void OptionIndexOfLastPaperType(benchmark::State& state) {
    int index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(GetOptionIndexFromTagNumber(keyword::PaperTypeD, 132, &index));
}
BENCHMARK(OptionIndexOfLastPaperType);

void TagThatNoOptionHas(benchmark::State& state) {
    int index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(GetOptionIndexFromTagNumber(
            keyword::PaperTypeD, std::numeric_limits<std::int32_t>::max(), &index));
}
BENCHMARK(TagThatNoOptionHas);

std::vector<std::string_view> Tags() {
    std::vector<std::string_view> tags;
    CTagTable().GetTagList(&tags);
    return tags;
}

std::vector<std::string_view> LongNames() {
    std::vector<std::string_view> names;
    CTagTable().GetLongNameList(&names);
    return names;
}

void TagInfo(benchmark::State& state) {
    const auto tags = Tags();
    std::string longName, description;
    std::size_t i = 0;
    for (auto _ : state) {
        CTagTable().GetTagInfo(tags[i], &longName, &description);
        i = i + 1 == tags.size() ? 0 : i + 1;
    }
}
BENCHMARK(TagInfo);

void TagFromLongName(benchmark::State& state) {
    const auto names = LongNames();
    std::string tag;
    std::size_t i = 0;
    for (auto _ : state) {
        CTagTable().GetTagFromLongName(names[i], &tag);
        i = i + 1 == names.size() ? 0 : i + 1;
    }
}
BENCHMARK(TagFromLongName);

void LongNameThatNoTagHas(benchmark::State& state) {
    std::string tag;
    for (auto _ : state)
        CTagTable().GetTagFromLongName("BlankPapersBackStkCustomPaperTypo", &tag);
}
BENCHMARK(LongNameThatNoTagHas);

void AllNamesInBothDirections(benchmark::State& state) {
    const auto tags = Tags();
    const auto names = LongNames();
    std::string longName, description, tag;
    for (auto _ : state) {
        for (const std::string_view text : tags)
            CTagTable().GetTagInfo(text, &longName, &description);
        for (const std::string_view text : names)
            CTagTable().GetTagFromLongName(text, &tag);
    }
}
BENCHMARK(AllNamesInBothDirections);

} // namespace
