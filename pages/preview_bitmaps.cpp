// The layers' bitmaps.
#include "pages/preview_layers.h"

#include <algorithm>

namespace {

struct LayerRange {
    int first;
    int last;
};

// The layers in use.
constexpr LayerRange kRanges[] = {
    {1, 326}, {645, 695}, {911, 914}, {916, 921}, {923, 928}, {930, 935}, {937, 938}, {1071, 1086},
};
constexpr std::size_t kLayerCount = 417;

// What a layer has if no row below says otherwise.
constexpr LayerBitmap Usual(int layer) {
    return {layer, 7000 + layer, 0, 18};
}

constexpr LayerBitmap kExceptions[] = {
    {649, 7647, 0, 18},   {658, 7656, 0, 22},  {661, 7659, 4, 18},  {668, 7666, 0, 4},   {671, 7669, 4, 18},
    {680, 7678, 0, 18},   {681, 7679, 0, 18},  {688, 7687, 0, 21},  {691, 7690, 3, 18},  {911, 7911, 34, 26},
    {912, 7912, 38, 35},  {913, 7913, 38, 35}, {914, 7914, 38, 69}, {916, 7916, 32, 49}, {917, 7916, 67, 78},
    {918, 7918, 48, 26},  {919, 7919, 73, 35}, {920, 7920, 73, 35}, {921, 7921, 73, 69}, {923, 7923, 101, 49},
    {924, 7923, 66, 78},  {925, 7925, 19, 51}, {926, 7926, 28, 77}, {927, 7927, 28, 77}, {928, 7928, 39, 99},
    {930, 7930, 42, 104}, {931, 7930, 71, 69}, {932, 7932, 19, 42}, {933, 7933, 24, 47}, {934, 7934, 38, 47},
    {935, 7935, 27, 69},  {937, 7937, 42, 40}, {938, 7937, 72, 75}, {1079, 8080, 0, 18}, {1080, 8079, 0, 18},
    {1081, 8082, 0, 18},  {1082, 8081, 0, 18}, {1083, 8084, 0, 18}, {1084, 8083, 0, 18}, {1085, 8086, 0, 18},
    {1086, 8085, 0, 18},
};
static_assert(std::ranges::is_sorted(kExceptions, {}, &LayerBitmap::layer));

constexpr LayerBitmap BitmapOf(int layer) {
    const LayerBitmap* exception = std::ranges::lower_bound(kExceptions, layer, {}, &LayerBitmap::layer);
    return exception != std::ranges::end(kExceptions) && exception->layer == layer ? *exception
                                                                                   : Usual(layer);
}

constexpr std::size_t CountLayers() {
    std::size_t count = 0;
    for (const LayerRange& range : kRanges)
        count += static_cast<std::size_t>(range.last - range.first + 1);
    return count;
}
static_assert(CountLayers() == kLayerCount);

constexpr std::array<LayerBitmap, kLayerCount> kBitmaps = [] {
    std::array<LayerBitmap, kLayerCount> bitmaps{};
    std::size_t row = 0;
    for (const LayerRange& range : kRanges) {
        for (int layer = range.first; layer <= range.last; ++layer)
            bitmaps[row++] = BitmapOf(layer);
    }
    return bitmaps;
}();

} // namespace

std::span<const LayerBitmap> LayerBitmaps() {
    return kBitmaps;
}

std::optional<LayerBitmap> FindLayerBitmap(int layer) {
    const auto found = std::ranges::lower_bound(kBitmaps, layer, {}, &LayerBitmap::layer);
    if (found == kBitmaps.end() || found->layer != layer)
        return std::nullopt;
    return *found;
}
