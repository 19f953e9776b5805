#include "pages/preview_layers.h"
#include "resources/images/image_set.h"
#include "resources/images/preview_geometry.h"
#include "resources/images/preview_layer_set.h"

#include <utility>

namespace {

bool IsOfBooklet(int bitmap) {
    return bitmap >= 7911 && bitmap <= 7938;
}

int BitmapSize(int bitmap) {
    return IsOfBooklet(bitmap) ? kBookletLayerSize : kLayerSize;
}

} // namespace

void AddLayer(BitmapSet& bitmaps, int layer, Canvas picture) {
    if (const auto bitmap = FindLayerBitmap(layer))
        bitmaps.insert_or_assign(bitmap->bitmap, std::move(picture));
}

std::vector<NumberedBitmap> DrawPreviewBitmaps() {
    BitmapSet drawn;
    DrawPreviewSheets(drawn);
    DrawPreviewMarks(drawn);
    DrawPreviewBooklets(drawn);

    // A layer that no table names has an empty bitmap.
    for (const LayerBitmap& row : LayerBitmaps())
        drawn.try_emplace(row.bitmap, BitmapSize(row.bitmap), BitmapSize(row.bitmap));

    std::vector<NumberedBitmap> bitmaps;
    while (!drawn.empty()) {
        auto bitmap = drawn.extract(drawn.begin());
        bitmaps.push_back({bitmap.key(), std::move(bitmap.mapped()),
                           IsOfBooklet(bitmap.key()) ? BitmapDepth::Bits32 : BitmapDepth::Bits24});
    }
    return bitmaps;
}
