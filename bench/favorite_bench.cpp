// Reading a favourite from memory: at most twice the time that the bare parser needs for the same bytes.
#include "settings/FavoriteFileManager.h"
#include "tests/Common/memory_source.h"
#include "tests/settings/favorite_file_bytes.h"

#include <benchmark/benchmark.h>

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstdlib>
#include <string>

namespace {

void BareParse(benchmark::State& state) {
    const std::string bytes = FavoriteFileBytes();
    xmlInitParser();
    for (auto _ : state) {
        xmlDoc* document =
            xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, XML_PARSE_NONET);
        if (!document)
            std::abort();
        xmlFreeDoc(document);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(BareParse);

void ReadFavorite(benchmark::State& state) {
    const std::string bytes = FavoriteFileBytes();
    CFavoriteFileManager manager({});
    CFavoriteSetting setting;
    for (auto _ : state) {
        MemorySource source(bytes, bytes.size());
        if (manager.LoadFavorite(setting, source) != kFavoriteRead)
            std::abort();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(ReadFavorite);

} // namespace
