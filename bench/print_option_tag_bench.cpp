// Option tag access: fetching and storing by all 864 tags, under 200 us together.
#include "settings/InterchangeOptionTag.h"
#include "settings/print_option_access.h"
#include "settings/print_option_tag_access.h"
#include "settings/setting_info.h"

#include <benchmark/benchmark.h>

namespace {

class Setting : public CSettingInfo {
  public:
    // Every text full, every number long.
    Setting() {
        for (const ddb::FieldDescriptor& field : ddb::kFields) {
            if (field.IsText())
                SetText(PrintOption(), field, std::string(field.width - 1u, 'x'));
            else
                SetI32(PrintOption(), field, -123456789);
        }
    }
    int CreateSettingInfo() override { return 1; }
};

// The tags, NUL-terminated, each with a buffer for its value.
struct Access {
    std::string tag;
    std::vector<char> value;
};

std::vector<Access> Accesses() {
    std::vector<std::string_view> tags;
    CTagTable().GetTagList(&tags);
    std::vector<Access> accesses;
    for (const std::string_view tag : tags)
        accesses.push_back({std::string(tag), std::vector<char>(kOptionValueSize)});
    return accesses;
}

void AccessAll(std::vector<Access>& accesses, CSettingInfo& setting, int mode) {
    for (Access& access : accesses)
        benchmark::DoNotOptimize(AccessPrintOption(access.tag.c_str(), access.value.data(), &setting, mode));
}

void FetchAllTags(benchmark::State& state) {
    Setting setting;
    auto accesses = Accesses();
    for (auto _ : state)
        AccessAll(accesses, setting, kFetchOption);
}
BENCHMARK(FetchAllTags)->Unit(benchmark::kMicrosecond);

void StoreAllTags(benchmark::State& state) {
    Setting setting;
    auto accesses = Accesses();
    AccessAll(accesses, setting, kFetchOption);
    for (auto _ : state)
        AccessAll(accesses, setting, kStoreOption);
}
BENCHMARK(StoreAllTags)->Unit(benchmark::kMicrosecond);

void FetchAndStoreAllTags(benchmark::State& state) {
    Setting setting;
    auto accesses = Accesses();
    for (auto _ : state) {
        AccessAll(accesses, setting, kFetchOption);
        AccessAll(accesses, setting, kStoreOption);
    }
}
BENCHMARK(FetchAndStoreAllTags)->Unit(benchmark::kMicrosecond);

} // namespace
