// The comparison that each change of a control asks for, without the logs.
#include "session/datamanager.h"
#include "session/keyword.h"
#include "tests/support/all_tags.h"

#include <benchmark/benchmark.h>

static void ChangeFavorite(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetAllTags(manager);
    std::uint32_t copies = 0;
    for (auto _ : state) {
        ExportedFunc_SetCurrent(keyword::Copies, ++copies);
        benchmark::DoNotOptimize(manager.ChangeFavorite(-1));
    }
    CSettingManager::Destroy();
}
BENCHMARK(ChangeFavorite)->Unit(benchmark::kMicrosecond);
