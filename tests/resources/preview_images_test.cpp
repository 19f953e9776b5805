// The bitmaps of the preview's layers as a set.
#include "tests/resources/bitmap_file.h"
#include "tests/support/preview_listing.h"

#include <gtest/gtest.h>

#include <set>

namespace {

std::string SizeOf(const BitmapFile& bitmap) {
    return std::to_string(bitmap.width) + 'x' + std::to_string(bitmap.height) + 'x' +
           std::to_string(bitmap.depth);
}

} // namespace

TEST(PreviewImages, AreThereForEachListedLayerWithItsSizeAndDepth) {
    const std::vector<ListedLayer> layers = ListedLayers();
    ASSERT_EQ(layers.size(), 417u);
    for (const ListedLayer& layer : layers)
        EXPECT_EQ(SizeOf(ReadBitmap(layer.bitmap)), layer.size) << layer.bitmap;
}

TEST(PreviewImages, Are384LargeAnd20SmallOnes) {
    std::set<int> large;
    std::set<int> small;
    for (const ListedLayer& layer : ListedLayers())
        (layer.size == "120x120x24" ? large : small).insert(layer.bitmap);
    EXPECT_EQ(large.size(), 384u);
    EXPECT_EQ(small.size(), 20u);
}

TEST(PreviewImages, ShowSomethingAtEachReachableLayer) {
    for (const ListedLayer& layer : ListedLayers()) {
        if (layer.reachable) {
            EXPECT_FALSE(ReadBitmap(layer.bitmap).IsEmpty()) << layer.bitmap;
        }
    }
}

TEST(PreviewImages, AreEmptyAtLayersThatNoJobShows) {
    std::set<int> shown;
    for (const ListedLayer& layer : ListedLayers()) {
        if (layer.reachable)
            shown.insert(layer.bitmap);
    }
    for (const ListedLayer& layer : ListedLayers()) {
        if (!shown.contains(layer.bitmap)) {
            EXPECT_TRUE(ReadBitmap(layer.bitmap).IsEmpty()) << layer.bitmap;
        }
    }
}

TEST(PreviewImages, HaveOnlyTheColorsOfTheSet) {
    for (const ListedLayer& layer : ListedLayers())
        EXPECT_TRUE(ReadBitmap(layer.bitmap).HasOnlyColorsOfTheSet()) << layer.bitmap;
}
