// The booklet on its small layers.
#include "tests/resources/preview_layer_files.h"

#include <gtest/gtest.h>

#include <set>

namespace {

constexpr std::uint32_t kPaper = 0xFFFFFF;
constexpr int kSmall = 25;

struct Place {
    int layer;
    int x;
    int y;
};
constexpr Place kUprightPages{911, 34, 26};
constexpr Place kTurnedPages{932, 19, 42};

// The pixel of the layer at a place of the preview, magenta beside it.
std::uint32_t PixelAt(const Place& place, int x, int y) {
    x -= place.x;
    y -= place.y;
    const bool inside = x >= 0 && y >= 0 && x < kSmall && y < kSmall;
    return inside ? LayerFile(place.layer).At(x, y) : kMagenta;
}

std::set<std::uint32_t> ColorsOf(int layer) {
    const BitmapFile& bitmap = LayerFile(layer);
    std::set<std::uint32_t> colors(bitmap.pixels.begin(), bitmap.pixels.end());
    colors.erase(kMagenta);
    return colors;
}

// What lies over the pages is on their paper.
bool LiesOnPages(const Place& over, const Place& pages) {
    for (int y = over.y; y < over.y + kSmall; ++y) {
        for (int x = over.x; x < over.x + kSmall; ++x) {
            const std::uint32_t under = PixelAt(pages, x, y);
            if (PixelAt(over, x, y) != kMagenta && (under == kMagenta || under == kEdge))
                return false;
        }
    }
    return true;
}

} // namespace

TEST(BookletPages, AreTwoWhitePagesWithAFoldBetweenThem) {
    for (const Place& place : {kUprightPages, kTurnedPages}) {
        const bool turned = place.layer == kTurnedPages.layer;
        const BitmapFile& pages = LayerFile(place.layer);
        const Area open = pages.Extent().value_or(Area{});
        // The frame of the open booklet and its fold enclose two areas of paper and text.
        const int middle = turned ? (open.top + open.bottom) / 2 : (open.left + open.right) / 2;
        for (int step = 0; step < (turned ? open.right - open.left : open.bottom - open.top); ++step) {
            EXPECT_EQ(turned ? pages.At(open.left + step, middle) : pages.At(middle, open.top + step), kEdge)
                << place.layer;
        }
        const Area first = turned ? Area{open.left, open.top, open.right, middle}
                                  : Area{open.left, open.top, middle, open.bottom};
        const Area second = turned ? Area{open.left, middle, open.right, open.bottom}
                                   : Area{middle, open.top, open.right, open.bottom};
        for (const Area& page : {first, second}) {
            EXPECT_TRUE(pages.Has(kPaper, page)) << place.layer;
            EXPECT_TRUE(pages.Has(0xC3C9D0, page)) << place.layer;
        }
        EXPECT_EQ(ColorsOf(place.layer), (std::set<std::uint32_t>{kPaper, kEdge, 0xC3C9D0}));
    }
}

TEST(BookletColors, LieOnThePagesInColor) {
    const std::set<std::uint32_t> colors{0xA8D8F5, 0x3FA34D, 0xF7B500};
    EXPECT_EQ(ColorsOf(913), colors);
    EXPECT_TRUE(LiesOnPages({913, 38, 35}, kUprightPages));
    EXPECT_EQ(ColorsOf(934), colors);
    EXPECT_TRUE(LiesOnPages({934, 38, 47}, kTurnedPages));
}

TEST(BookletColors, OfPagesTurnedAroundAreSwatchesBelowThem) {
    EXPECT_EQ(ColorsOf(935), (std::set<std::uint32_t>{0xC8322B, 0xF7B500, 0x3FA34D, 0x5B8DC9}));
    EXPECT_EQ(Marks(LayerFile(935)).size(), 4u);
}

TEST(BookletTitles, OfPagesTurnedAroundLieOnThem) {
    EXPECT_EQ(ColorsOf(933), std::set<std::uint32_t>{kEdge});
    EXPECT_EQ(Marks(LayerFile(933)).size(), 2u);
    EXPECT_TRUE(LiesOnPages({933, 24, 47}, kTurnedPages));
}

TEST(BookletStaples, ClaspTheEndOfTheFold) {
    for (const auto& [staple, pages] :
         {std::pair<Place, Place>{{916, 32, 49}, kUprightPages}, {{937, 42, 40}, kTurnedPages}}) {
        EXPECT_EQ(ColorsOf(staple.layer), std::set<std::uint32_t>{kBlue});
        EXPECT_EQ(Marks(LayerFile(staple.layer)).size(), 1u);
        const Area open = LayerFile(pages.layer).Extent().value_or(Area{});
        const bool turned = pages.layer == kTurnedPages.layer;
        const int endX = pages.x + (turned ? open.right - 1 : (open.left + open.right) / 2);
        const int endY = pages.y + (turned ? (open.top + open.bottom) / 2 : open.bottom - 1);
        EXPECT_EQ(PixelAt(staple, endX, endY), kBlue) << staple.layer;
    }
}
