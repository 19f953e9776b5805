// Punch holes and staples on the preview's front sheet.
#include "tests/resources/preview_layer_files.h"
#include "tests/support/preview_listing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

enum Side { Left, Right, Top, Bottom };

// A strip of the sheet inside its edge.
Area EdgeArea(const Area& sheet, Side side) {
    constexpr int kMargin = 11;
    switch (side) {
    case Left: return {sheet.left + 1, sheet.top + 1, sheet.left + kMargin, sheet.bottom - 1};
    case Right: return {sheet.right - kMargin, sheet.top + 1, sheet.right - 1, sheet.bottom - 1};
    case Top: return {sheet.left + 1, sheet.top + 1, sheet.right - 1, sheet.top + kMargin};
    default: return {sheet.left + 1, sheet.bottom - kMargin, sheet.right - 1, sheet.bottom - 1};
    }
}

bool Encloses(const Area& outer, const Area& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

// The marks keep the same distance from both ends of the edge.
bool LiesEvenly(const std::vector<Area>& marks, const Area& sheet, Side side) {
    int nearest = 120;
    int farthest = 0;
    const bool upright = side == Left || side == Right;
    for (const Area& mark : marks) {
        nearest = std::min(nearest, upright ? mark.top - sheet.top : mark.left - sheet.left);
        farthest = std::max(farthest, upright ? mark.bottom - sheet.top : mark.right - sheet.left);
    }
    return nearest == (upright ? sheet.bottom - sheet.top : sheet.right - sheet.left) - farthest;
}

const Area& SheetArea(bool turned) {
    return turned ? kTurnedSheet : kUprightSheet;
}

} // namespace

TEST(PunchLayers, HaveTheirNumberOfHolesAtTheNamedEdge) {
    const auto tables = ReadListedTables();
    for (const bool turned : {false, true}) {
        // The setting's values 1 to 3 are 2 to 4 holes.
        for (int holes = 1; holes <= 3; ++holes) {
            for (int punch = 1; punch <= 4; ++punch) {
                const int layer = tables.punch.at({turned, holes, punch});
                const auto side = static_cast<Side>(punch - 1);
                const std::vector<Area> marks = Marks(LayerFile(layer));
                EXPECT_EQ(marks.size(), static_cast<std::size_t>(holes + 1)) << layer;
                EXPECT_TRUE(LiesEvenly(marks, SheetArea(turned), side)) << layer;
                for (const Area& mark : marks)
                    EXPECT_TRUE(Encloses(EdgeArea(SheetArea(turned), side), mark)) << layer;
            }
        }
    }
}

TEST(StapleLayers, LieAcrossTheNamedCorner) {
    const auto tables = ReadListedTables();
    constexpr struct {
        int mode;
        bool left;
        bool top;
    } kCorners[] = {{1, true, true}, {2, false, true}, {3, true, false}, {4, false, false}, {5, true, true}};
    for (const bool turned : {false, true}) {
        const Area& sheet = SheetArea(turned);
        for (const auto& corner : kCorners) {
            const int layer = tables.staples.at({turned, corner.mode});
            const Area area{corner.left ? sheet.left + 1 : sheet.right - 21,
                            corner.top ? sheet.top + 1 : sheet.bottom - 21,
                            corner.left ? sheet.left + 21 : sheet.right - 1,
                            corner.top ? sheet.top + 21 : sheet.bottom - 1};
            const std::vector<Area> marks = Marks(LayerFile(layer));
            ASSERT_EQ(marks.size(), 1u) << layer;
            EXPECT_TRUE(Encloses(area, marks[0])) << layer;
        }
    }
}

TEST(StapleLayers, HaveTheirNumberOfStaplesAtTheNamedEdge) {
    const auto tables = ReadListedTables();
    constexpr struct {
        int mode;
        Side side;
        std::size_t staples;
    } kModes[] = {{6, Top, 2},  {7, Bottom, 2},  {8, Left, 2},  {9, Right, 2},
                  {14, Top, 1}, {15, Bottom, 1}, {16, Left, 1}, {17, Right, 1},
                  {18, Top, 4}, {19, Bottom, 4}, {20, Left, 4}, {21, Right, 4}};
    for (const bool turned : {false, true}) {
        for (const auto& row : kModes) {
            const int layer = tables.staples.at({turned, row.mode});
            const std::vector<Area> marks = Marks(LayerFile(layer));
            EXPECT_EQ(marks.size(), row.staples) << layer;
            EXPECT_TRUE(LiesEvenly(marks, SheetArea(turned), row.side)) << layer;
            for (const Area& mark : marks)
                EXPECT_TRUE(Encloses(EdgeArea(SheetArea(turned), row.side), mark)) << layer;
        }
    }
}

TEST(StapleLayers, OfASaddleLieOnTheFoldThatHalvesTheLongSide) {
    const auto tables = ReadListedTables();
    for (const bool turned : {false, true}) {
        for (const int mode : {11, 12, 13}) {
            const int layer = tables.staples.at({turned, mode});
            const BitmapFile& bitmap = LayerFile(layer);
            const Area& sheet = SheetArea(turned);
            const Area fold =
                turned ? Area{58, sheet.top, 62, sheet.bottom} : Area{sheet.left, 58, sheet.right, 62};
            const auto extent = bitmap.Extent();
            ASSERT_TRUE(extent) << layer;
            EXPECT_TRUE(Encloses(fold, *extent)) << layer;
            int staplePixels = 0;
            for (const std::uint32_t pixel : bitmap.pixels)
                staplePixels += pixel == 0x0B5CB8;
            EXPECT_GT(staplePixels, 0) << layer;
        }
    }
}

// A sheet that is stapled and punched at the same place shows both.
TEST(StapleLayers, HideNoHole) {
    const auto tables = ReadListedTables();
    for (const bool turned : {false, true}) {
        for (int holes = 1; holes <= 3; ++holes) {
            for (int punch = 1; punch <= 4; ++punch) {
                const int punchLayer = tables.punch.at({turned, holes, punch});
                const BitmapFile& punched = LayerFile(punchLayer);
                for (int mode = 1; mode <= 21; ++mode) {
                    const int stapleLayer = tables.staples.at({turned, mode});
                    const BitmapFile& stapled = LayerFile(stapleLayer);
                    int hidden = 0;
                    for (std::size_t pixel = 0; pixel < punched.pixels.size(); ++pixel)
                        hidden += punched.pixels[pixel] != kMagenta && stapled.pixels[pixel] != kMagenta;
                    EXPECT_EQ(hidden, 0) << punchLayer << ' ' << stapleLayer;
                }
            }
        }
    }
}
