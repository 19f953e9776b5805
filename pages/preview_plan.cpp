#include "pages/preview_plan.h"

#include "resources/resource.h"

#include <algorithm>

namespace {

constexpr int kDesignDpi = 96;

constexpr int kCollateY = 40;
constexpr int kFoldY = 80;

// Where the picture of the job begins.
constexpr int kPictureX = 62;
constexpr int kPictureY = -10;

constexpr std::array kOrientations{IDB_ORIENTATION_PORTRAIT, IDB_ORIENTATION_LANDSCAPE,
                                   IDB_ORIENTATION_ROTATED};

// By Fold. Values 5 and 6 fold alike.
constexpr std::array kFolds{0, 1101, 1099, 1102, 1108, 1107, 1107, 1104, 1103, 1106, 1105};

int Scale(int position, int dpi) {
    return static_cast<int>(position * (dpi / static_cast<double>(kDesignDpi)));
}

} // namespace

PreviewSymbols ComposeSymbols(const SymbolSettings& settings) {
    PreviewSymbols symbols;
    if (settings.pageOrientation < kOrientations.size())
        symbols.Add({kOrientations[settings.pageOrientation], 0, 0});
    symbols.Add({settings.collate != 0 ? IDB_COLLATE_ON : IDB_COLLATE_OFF, 0, kCollateY});
    if (settings.fold != 0 && settings.fold < kFolds.size())
        symbols.Add({kFolds[settings.fold], 0, kFoldY});
    return symbols;
}

PlacedBitmap PlaceLayer(int layer) {
    const LayerBitmap found = FindLayerBitmap(layer).value_or(LayerBitmap{});
    return {found.bitmap, found.x + kPictureX, found.y + kPictureY};
}

PreviewPlan PlanPreview(const SymbolSettings& symbols, const PreviewSettings& picture) {
    PreviewPlan plan;
    const PreviewSymbols drawnFirst = ComposeSymbols(symbols);
    for (const PlacedBitmap& symbol : drawnFirst.List())
        plan.Add(symbol);
    plan.symbols = plan.count;
    const PreviewLayers layers = ComposePreview(picture);
    for (const int layer : layers.List())
        plan.Add(PlaceLayer(layer));
    return plan;
}

std::size_t CountBitmaps(const PreviewPlan& plan) {
    const auto missing = std::ranges::count(plan.List(), 0, &PlacedBitmap::bitmap);
    return plan.count - static_cast<std::size_t>(missing);
}

TargetRectangle ScaleToDevice(int x, int y, int width, int height, int dpiX, int dpiY) {
    return {Scale(x, dpiX), Scale(y, dpiY), width * dpiX / kDesignDpi, height * dpiY / kDesignDpi};
}
