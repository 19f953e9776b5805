#include "options/restriction.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <benchmark/benchmark.h>

namespace {

void CheckWithoutConflict(benchmark::State& state) {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_SetCurrent(keyword::StapleMode, 1);
    ExportedFunc_SetCurrent(keyword::DuplexMode, 1);
    int result = -1;
    int keywordInWay = -1;
    int asked = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckRestriction(nullptr, nullptr, restriction_group::StapleMode, &result,
                                                  &keywordInWay, &asked));
}
BENCHMARK(CheckWithoutConflict);

void SetFoldAcrossPunch() {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_SetCurrent(keyword::Fold, 1);
    ExportedFunc_SetCurrent(keyword::Punch, 1);
    ExportedFunc_SetCurrent(keyword::PunchHoles, 1);
}

void CheckWithConflict(benchmark::State& state) {
    SetFoldAcrossPunch();
    int result = -1;
    int keywordInWay = -1;
    int asked = 1;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CheckRestriction(nullptr, nullptr, restriction_group::Fold, &result, &keywordInWay, &asked));
}
BENCHMARK(CheckWithConflict);

// As before the box: nobody answers here.
void CheckWithConflictAndMessage(benchmark::State& state) {
    SetFoldAcrossPunch();
    int result = -1;
    int keywordInWay = -1;
    for (auto _ : state) {
        int asked = 0;
        benchmark::DoNotOptimize(
            CheckRestriction(nullptr, nullptr, restriction_group::Fold, &result, &keywordInWay, &asked));
    }
}
BENCHMARK(CheckWithConflictAndMessage);

} // namespace
