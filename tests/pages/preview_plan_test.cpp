#include "pages/preview_plan.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <random>
#include <vector>

void PrintTo(const PlacedBitmap& placed, std::ostream* out) {
    *out << placed.bitmap << " at " << placed.x << "," << placed.y;
}

void PrintTo(const TargetRectangle& place, std::ostream* out) {
    *out << place.width << "x" << place.height << " at " << place.x << "," << place.y;
}

namespace {

using Bitmaps = std::vector<PlacedBitmap>;

Bitmaps Symbols(const SymbolSettings& settings) {
    const PreviewSymbols symbols = ComposeSymbols(settings);
    return {symbols.List().begin(), symbols.List().end()};
}

Bitmaps Plan(const SymbolSettings& symbols, const PreviewSettings& picture) {
    const PreviewPlan plan = PlanPreview(symbols, picture);
    return {plan.List().begin(), plan.List().end()};
}

TEST(PreviewPlan, TheOrientationStandsAtTheTop) {
    EXPECT_EQ(Symbols({.pageOrientation = 0}).front(), (PlacedBitmap{1056, 0, 0}));
    EXPECT_EQ(Symbols({.pageOrientation = 1}).front(), (PlacedBitmap{1057, 0, 0}));
    EXPECT_EQ(Symbols({.pageOrientation = 2}).front(), (PlacedBitmap{1058, 0, 0}));
}

TEST(PreviewPlan, AnOrientationWithoutSymbolIsLeftOut) {
    EXPECT_EQ(Symbols({.pageOrientation = 3}), (Bitmaps{{1063, 0, 40}}));
}

TEST(PreviewPlan, CollatingIsShownOnOrOff) {
    EXPECT_EQ(Symbols({.collate = 0}), (Bitmaps{{1056, 0, 0}, {1063, 0, 40}}));
    EXPECT_EQ(Symbols({.collate = 1}), (Bitmaps{{1056, 0, 0}, {1062, 0, 40}}));
    EXPECT_EQ(Symbols({.collate = 0x80000000}), (Bitmaps{{1056, 0, 0}, {1062, 0, 40}}));
}

TEST(PreviewPlan, EachFoldHasItsBitmap) {
    const std::vector<int> folds{1101, 1099, 1102, 1108, 1107, 1107, 1104, 1103, 1106, 1105};
    for (std::uint32_t fold = 1; fold <= 10; ++fold)
        EXPECT_EQ(Symbols({.fold = fold}).back(), (PlacedBitmap{folds[fold - 1], 0, 80})) << fold;
}

TEST(PreviewPlan, NoFoldDrawsNoFoldBitmap) {
    EXPECT_EQ(Symbols({.fold = 0}).size(), 2u);
}

TEST(PreviewPlan, AFoldWithoutBitmapIsLeftOut) {
    EXPECT_EQ(Symbols({.fold = 11}).size(), 2u);
    EXPECT_EQ(Symbols({.fold = std::numeric_limits<std::uint32_t>::max()}).size(), 2u);
}

TEST(PreviewPlan, LayersStand62ToTheRightAnd10Up) {
    EXPECT_EQ(PlaceLayer(1), (PlacedBitmap{7001, 62, 8}));
    EXPECT_EQ(PlaceLayer(668), (PlacedBitmap{7666, 62, -6}));
    EXPECT_EQ(PlaceLayer(930), (PlacedBitmap{7930, 104, 94}));
    EXPECT_EQ(PlaceLayer(1079), (PlacedBitmap{8080, 62, 8}));
}

TEST(PreviewPlan, ALayerThatIsNotInUseHasNoBitmap) {
    for (const int layer : {0, -1, 327, 915, 1087, std::numeric_limits<int>::max()})
        EXPECT_EQ(PlaceLayer(layer).bitmap, 0) << layer;
}

TEST(PreviewPlan, SymbolsComeBeforeTheLayers) {
    EXPECT_EQ(Plan({.pageOrientation = 0, .collate = 1, .fold = 1}, {.colorMode = 1, .stapleMode = 1}),
              (Bitmaps{{1056, 0, 0},
                       {1062, 0, 40},
                       {1101, 0, 80},
                       {7001, 62, 8},
                       {7011, 62, 8},
                       {7012, 62, 8},
                       {7678, 62, 8}}));
}

TEST(PreviewPlan, ThePictureIsWhatFollowsTheSymbols) {
    const PreviewPlan plan = PlanPreview({.fold = 1}, {.stapleMode = 1});
    EXPECT_EQ(Bitmaps(plan.Symbols().begin(), plan.Symbols().end()),
              (Bitmaps{{1056, 0, 0}, {1063, 0, 40}, {1101, 0, 80}}));
    EXPECT_EQ(Bitmaps(plan.Picture().begin(), plan.Picture().end()),
              (Bitmaps{{7001, 62, 8}, {7011, 62, 8}, {7678, 62, 8}}));
}

TEST(PreviewPlan, APaintHasAtMostElevenBitmaps) {
    EXPECT_EQ(
        Plan({.fold = 10}, {.duplexMode = 1, .colorMode = 1, .stapleMode = 1, .punchHoles = 1, .punch = 1})
            .size(),
        11u);
}

TEST(PreviewPlan, OnlyBitmapsThatAreThereAreLoaded) {
    EXPECT_EQ(CountBitmaps(PlanPreview({}, {})), 4u);
    EXPECT_EQ(CountBitmaps(PlanPreview({}, {.nup = 6, .colorMode = 1})), 4u); // its grey layer is none
    EXPECT_EQ(
        CountBitmaps(PlanPreview(
            {.fold = 10}, {.duplexMode = 1, .colorMode = 1, .stapleMode = 1, .punchHoles = 1, .punch = 1})),
        11u);
}

TEST(PreviewPlan, AnyNumbersInTheBankCanBePlanned) {
    std::mt19937 random(3);
    for (int i = 0; i < 100000; ++i) {
        const auto value = [&]() -> std::uint32_t { return random() % 2 ? random() % 24 : random(); };
        const SymbolSettings symbols{value(), value(), value()};
        const PreviewSettings picture{value(), value(), value(), value(), value(), value(), value()};
        ASSERT_LE(Plan(symbols, picture).size(), 11u);
    }
}

TEST(PreviewPlan, At96DpiNothingIsScaled) {
    EXPECT_EQ(ScaleToDevice(62, 8, 120, 120, 96, 96), (TargetRectangle{62, 8, 120, 120}));
}

TEST(PreviewPlan, At144DpiEverythingIsHalfAsLargeAgain) {
    EXPECT_EQ(ScaleToDevice(62, 8, 120, 120, 144, 144), (TargetRectangle{93, 12, 180, 180}));
    EXPECT_EQ(ScaleToDevice(0, 40, 32, 32, 144, 144), (TargetRectangle{0, 60, 48, 48}));
    EXPECT_EQ(ScaleToDevice(101, 39, 25, 25, 144, 144), (TargetRectangle{151, 58, 37, 37}));
}

TEST(PreviewPlan, BothDirectionsHaveTheirOwnResolution) {
    EXPECT_EQ(ScaleToDevice(62, 8, 120, 25, 192, 120), (TargetRectangle{124, 10, 240, 31}));
}

TEST(PreviewPlan, APositionIsCutTowardsZero) {
    EXPECT_EQ(ScaleToDevice(63, -6, 32, 32, 120, 120), (TargetRectangle{78, -7, 40, 40}));
}

TEST(PreviewPlan, PositionAndSizeOfTheSameNumberMayDifferByAPixel) {
    EXPECT_EQ(ScaleToDevice(108, 108, 108, 108, 104, 104), (TargetRectangle{116, 116, 117, 117}));
}

} // namespace
