// Sheets and what is printed on them.
#include "tests/resources/preview_layer_files.h"
#include "tests/support/preview_listing.h"

#include <gtest/gtest.h>

namespace {

constexpr int kBooklet = 6;

struct SheetOfTable {
    int nup;
    int orientation;
    int sheet;
    std::vector<int> layers;
};

// All sheets but the booklet's.
std::vector<SheetOfTable> Sheets() {
    std::vector<SheetOfTable> sheets;
    for (const auto& [key, layers] : ReadListedTables().sheets) {
        if (std::get<0>(key) != kBooklet)
            sheets.push_back({std::get<0>(key), std::get<1>(key), std::get<2>(key), layers});
    }
    return sheets;
}

bool Touches(const BitmapFile& bitmap, const Area& area) {
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            if (bitmap.Visible(x, y))
                return true;
        }
    }
    return false;
}

bool LiesWithin(const BitmapFile& bitmap, const Area& area) {
    const auto extent = bitmap.Extent();
    return extent && extent->left >= area.left && extent->right <= area.right && extent->top >= area.top &&
           extent->bottom <= area.bottom;
}

} // namespace

TEST(PreviewSheets, AreAllListed) {
    EXPECT_EQ(Sheets().size(), 6u * 3 * 5);
}

TEST(FrontSheets, AreWhiteWithAGreyEdge) {
    for (const SheetOfTable& row : Sheets()) {
        if (row.sheet != 0)
            continue;
        const Area area = FrontSheetArea(row.nup, row.orientation);
        const BitmapFile& sheet = LayerFile(row.layers[0]);
        ASSERT_TRUE(LiesWithin(sheet, area)) << row.layers[0];
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                const bool edge =
                    x == area.left || x == area.right - 1 || y == area.top || y == area.bottom - 1;
                ASSERT_EQ(sheet.At(x, y), edge ? 0x59636Fu : 0xFFFFFFu) << row.layers[0];
            }
        }
    }
}

TEST(FrontSheets, HaveTheirContentsInsideTheEdge) {
    for (const SheetOfTable& row : Sheets()) {
        if (row.sheet != 0)
            continue;
        const Area area = FrontSheetArea(row.nup, row.orientation);
        const Area inside{area.left + 1, area.top + 1, area.right - 1, area.bottom - 1};
        EXPECT_TRUE(LiesWithin(LayerFile(row.layers[1]), inside)) << row.layers[1];
        EXPECT_TRUE(LiesWithin(LayerFile(row.layers[2]), inside)) << row.layers[2];
    }
}

TEST(FurtherSheets, DoNotTouchTheFrontSheet) {
    for (const SheetOfTable& row : Sheets()) {
        if (row.sheet == 0)
            continue;
        for (const int layer : row.layers) {
            if (layer != 0) {
                EXPECT_FALSE(Touches(LayerFile(layer), FrontSheetArea(row.nup, row.orientation))) << layer;
            }
        }
    }
}

// Of the long and the short edge, first the near one is bound, then the one opposite.
TEST(FurtherSheets, ShowAtTheSideOppositeTheirBinding) {
    for (const SheetOfTable& row : Sheets()) {
        if (row.sheet == 0)
            continue;
        const Area front = FrontSheetArea(row.nup, row.orientation);
        const bool turned = front.right - front.left > front.bottom - front.top;
        const Area right{front.right, front.top, 120, front.bottom};
        const Area left{0, front.top, front.left, front.bottom};
        const Area above{front.left, 0, front.right, front.top};
        const Area below{front.left, front.bottom, front.right, 120};
        const Area upright[] = {right, below, left, above};
        const Area lying[] = {below, right, above, left};
        const Area& side = (turned ? lying : upright)[row.sheet - 1];
        for (const int layer : row.layers) {
            if (layer != 0) {
                EXPECT_TRUE(LiesWithin(LayerFile(layer), side)) << layer;
            }
        }
    }
}

TEST(FurtherSheets, HaveTheirContentsOnThem) {
    for (const SheetOfTable& row : Sheets()) {
        if (row.sheet == 0)
            continue;
        const BitmapFile& sheet = LayerFile(row.layers[0]);
        for (const int layer : {row.layers[1], row.layers[2]}) {
            if (layer == 0)
                continue;
            const BitmapFile& contents = LayerFile(layer);
            for (int y = 0; y < 120; ++y) {
                for (int x = 0; x < 120; ++x) {
                    if (contents.Visible(x, y)) {
                        ASSERT_EQ(sheet.At(x, y), 0xE1E5EAu) << layer << ": " << x << ", " << y;
                    }
                }
            }
        }
    }
}

TEST(ColorLayers, PaintTheGreyPictureInOtherColors) {
    for (const SheetOfTable& row : Sheets()) {
        if (row.layers[2] == 0)
            continue;
        const BitmapFile& grey = LayerFile(row.layers[1]);
        const BitmapFile& color = LayerFile(row.layers[2]);
        int changed = 0;
        for (std::size_t pixel = 0; pixel < grey.pixels.size(); ++pixel) {
            if (color.pixels[pixel] == kMagenta)
                continue;
            ASSERT_NE(grey.pixels[pixel], kMagenta) << row.layers[2];
            ASSERT_NE(grey.pixels[pixel], color.pixels[pixel]) << row.layers[2];
            ++changed;
        }
        EXPECT_GT(changed, 0) << row.layers[2];
    }
}

// In colour and in grey they are the same, so nothing on them may be missed in either.
TEST(FurtherSheets, WithoutALayerForColorShowTheEndsOfTextOnly) {
    int sheets = 0;
    for (const SheetOfTable& row : Sheets()) {
        if (row.layers[2] != 0)
            continue;
        ++sheets;
        for (const std::uint32_t pixel : LayerFile(row.layers[1]).pixels)
            ASSERT_TRUE(pixel == kMagenta || pixel == kText) << row.layers[1];
    }
    EXPECT_EQ(sheets, 6 * 3);
}

TEST(RotatedContents, AreThoseOfALandscapePageTurnedAround) {
    const auto tables = ReadListedTables();
    for (int nup = 0; nup < kBooklet; ++nup) {
        for (const std::size_t layer : {1u, 2u}) {
            const BitmapFile& landscape = LayerFile(tables.sheets.at({nup, 1, 0}).at(layer));
            const BitmapFile& rotated = LayerFile(tables.sheets.at({nup, 2, 0}).at(layer));
            EXPECT_EQ(rotated.pixels, landscape.TurnedAround().pixels) << nup;
            EXPECT_NE(rotated.pixels, landscape.pixels) << nup;
        }
    }
}

// A cell has a frame of its own: at the upper left corner one of its colour begins.
TEST(GreyContents, HaveACellForEachPage) {
    constexpr std::uint32_t kFrame = 0xC3C9D0;
    constexpr int kPages[] = {1, 2, 4, 6, 9, 16};
    for (const SheetOfTable& row : Sheets()) {
        if (row.sheet != 0 || row.nup == 0 || row.orientation == 2)
            continue;
        const BitmapFile& grey = LayerFile(row.layers[1]);
        const auto frame = [&grey](int x, int y) { return grey.At(x, y) == kFrame; };
        int cells = 0;
        for (int y = 1; y < 118; ++y) {
            for (int x = 1; x < 118; ++x) {
                // A corner has nothing inside it but the cell's own white.
                cells += frame(x, y) && frame(x + 1, y) && frame(x, y + 1) && !frame(x - 1, y) &&
                         !frame(x, y - 1) && !grey.Visible(x + 1, y + 1);
            }
        }
        EXPECT_EQ(cells, kPages[row.nup]) << row.layers[1];
    }
}
