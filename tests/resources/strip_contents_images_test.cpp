// What the images of combo boxes show, one by one.
#include "tests/resources/bitmap_file.h"

#include <gtest/gtest.h>

#include <set>

namespace {

constexpr int kSize = 24;

BitmapFile Image(int strip, int image, int size = kSize) {
    return ReadBitmap(strip).Part(image * size, size);
}

int Width(const Area& area) {
    return area.right - area.left;
}
int Height(const Area& area) {
    return area.bottom - area.top;
}

bool Encloses(const Area& outer, const Area& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

// The two pages and what binds them.
struct Binding {
    Area pages;
    Area bar;
};

Binding BindingOf(int image) {
    BitmapFile picture = Image(1054, image);
    const std::vector<Area> bars = Marks(picture, kBlue);
    EXPECT_EQ(bars.size(), 1u) << image;
    for (std::uint32_t& pixel : picture.pixels) {
        if (pixel == kBlue)
            pixel = kMagenta;
    }
    return {picture.Extent().value_or(Area{}), bars.empty() ? Area{} : bars.front()};
}

// An arrow's head is its widest row.
bool PointsUp(const BitmapFile& image, const Area& arrow) {
    int widest = 0;
    int headY = 0;
    for (int y = arrow.top; y < arrow.bottom; ++y) {
        int width = 0;
        for (int x = arrow.left; x < arrow.right; ++x)
            width += image.At(x, y) == kBlue;
        if (width > widest) {
            widest = width;
            headY = y;
        }
    }
    return headY - arrow.top < arrow.bottom - 1 - headY;
}

} // namespace

TEST(ColorModeStrip, ShowsColorsInItsFirstImageOnly) {
    const std::set<std::uint32_t> colors{0xA8D8F5, 0x3FA34D, 0xF7B500, 0xC8322B, 0x5B8DC9};
    const BitmapFile& strip = ReadBitmap(1053);
    for (const std::uint32_t pixel : strip.Part(24, 24).pixels)
        EXPECT_FALSE(colors.contains(pixel));
    std::set<std::uint32_t> seen;
    for (const std::uint32_t pixel : strip.Part(0, 24).pixels) {
        if (colors.contains(pixel))
            seen.insert(pixel);
    }
    EXPECT_EQ(seen, colors);
}

TEST(NupStrip, ShowsAsManyCellsAsPagesForEachChoice) {
    constexpr std::uint32_t kCell = 0x5B8DC9;
    constexpr struct {
        int image;
        int pages;
    } kChoices[] = {{0, 1}, {1, 2}, {2, 4}, {3, 6}, {4, 8}, {5, 9}, {6, 16}};
    for (const auto& choice : kChoices) {
        const BitmapFile image = Image(1059, choice.image);
        int cells = 0;
        for (int y = 1; y < 24; ++y) {
            for (int x = 1; x < 24; ++x) {
                if (image.At(x, y) == kCell && image.At(x - 1, y) != kCell && image.At(x, y - 1) != kCell)
                    ++cells;
            }
        }
        EXPECT_EQ(cells, choice.pages) << choice.image;
    }
}

TEST(PunchStrip, ShowsTheHolesAtTheNamedEdge) {
    constexpr std::uint32_t kHole = 0x2A3038;
    const BitmapFile& strip = ReadBitmap(1061);
    // Image 0 is without; then 2, 3 and 4 holes, each left, right, top and bottom.
    constexpr Area kEdges[] = {{0, 0, 8, 24}, {16, 0, 24, 24}, {0, 0, 24, 8}, {0, 16, 24, 24}};
    for (int image = 0; image < 13; ++image) {
        int pixels = 0;
        for (int y = 0; y < 24; ++y) {
            for (int x = 0; x < 24; ++x) {
                if (strip.At(image * 24 + x, y) != kHole)
                    continue;
                ++pixels;
                EXPECT_TRUE(kEdges[(image + 3) % 4].Contains(x, y)) << image << ": " << x << ", " << y;
            }
        }
        const int holes = image == 0 ? 0 : 2 + (image - 1) / 4;
        EXPECT_EQ(pixels, holes * 4) << image;
    }
}

TEST(NupStrip, EndsWithABookletThatIsStapledAtItsFold) {
    const BitmapFile booklet = Image(1059, 7);
    EXPECT_FALSE(booklet.Has(0x5B8DC9, {0, 0, 24, 24}));
    const std::vector<Area> staples = Marks(booklet, kBlue);
    EXPECT_EQ(staples.size(), 2u);
    for (const Area& staple : staples)
        EXPECT_TRUE(Encloses({11, 4, 13, 20}, staple));
}

TEST(DuplexStrip, BeginsWithAnUprightAndATurnedSheetThatAreNotBound) {
    for (const int image : {0, 1}) {
        const BitmapFile sheet = Image(1054, image);
        EXPECT_FALSE(sheet.Has(kBlue, {0, 0, 24, 24})) << image;
        const Area extent = sheet.Extent().value_or(Area{});
        EXPECT_EQ(Height(extent) > Width(extent), image == 0);
    }
}

TEST(DuplexStrip, BindsTwoUprightPagesAtTheLongEdgeThenAtTheShortOne) {
    const Binding longEdge = BindingOf(2);
    EXPECT_GT(Height(longEdge.bar), Width(longEdge.bar));
    EXPECT_GT(Height(longEdge.pages), Width(longEdge.pages) / 2);
    EXPECT_EQ(longEdge.bar.left + longEdge.bar.right, longEdge.pages.left + longEdge.pages.right);
    const Binding shortEdge = BindingOf(4);
    EXPECT_GT(Width(shortEdge.bar), Height(shortEdge.bar));
    EXPECT_GT(Height(shortEdge.pages) / 2, Width(shortEdge.pages));
    EXPECT_EQ(shortEdge.bar.top + shortEdge.bar.bottom, shortEdge.pages.top + shortEdge.pages.bottom);
}

TEST(DuplexStrip, BindsTwoTurnedPagesAtTheLongEdgeThenAtTheShortOne) {
    const Binding longEdge = BindingOf(3);
    EXPECT_GT(Width(longEdge.bar), Height(longEdge.bar));
    EXPECT_GT(Width(longEdge.pages), Height(longEdge.pages) / 2);
    const Binding shortEdge = BindingOf(5);
    EXPECT_GT(Height(shortEdge.bar), Width(shortEdge.bar));
    EXPECT_GT(Width(shortEdge.pages) / 2, Height(shortEdge.pages));
}

TEST(DuplexStrip, EndsWithSidesWhoseHeadsAreAtTheSameEdgeAndAtOppositeOnes) {
    constexpr struct {
        int image;
        bool besideEachOther;
        bool secondPointsUp;
    } kSides[] = {{6, true, true}, {7, false, true}, {8, true, false}};
    for (const auto& sides : kSides) {
        const BitmapFile image = Image(1054, sides.image);
        const std::vector<Area> arrows = Marks(image, kBlue);
        ASSERT_EQ(arrows.size(), 2u) << sides.image;
        EXPECT_EQ(arrows[0].right <= arrows[1].left, sides.besideEachOther) << sides.image;
        EXPECT_TRUE(PointsUp(image, arrows[0])) << sides.image;
        EXPECT_EQ(PointsUp(image, arrows[1]), sides.secondPointsUp) << sides.image;
    }
}

TEST(FavoriteStrip, HasAStarThatHasChangedThenASheetThenAStar) {
    constexpr std::uint32_t kStar = 0xF7B500;
    constexpr std::uint32_t kChange = 0xC8322B;
    constexpr Area kWhole{0, 0, 16, 16};
    const BitmapFile changed = Image(1055, 0, 16);
    EXPECT_TRUE(changed.Has(kStar, kWhole));
    EXPECT_TRUE(changed.Has(kChange, {8, 8, 16, 16}));
    const BitmapFile standard = Image(1055, 1, 16);
    EXPECT_FALSE(standard.Has(kStar, kWhole));
    EXPECT_TRUE(standard.Has(kEdge, kWhole));
    const BitmapFile star = Image(1055, 2, 16);
    for (const std::uint32_t pixel : star.pixels)
        EXPECT_TRUE(pixel == kStar || pixel == kMagenta);
    EXPECT_FALSE(star.IsEmpty());
}

TEST(StapleStrip, HasTheNumberOfStaplesAtTheNamedPlace) {
    constexpr Area kTop{4, 2, 20, 6};
    constexpr Area kBottom{4, 18, 20, 22};
    constexpr Area kLeft{4, 2, 8, 22};
    constexpr Area kRight{16, 2, 20, 22};
    constexpr Area kFold{10, 3, 14, 21};
    constexpr Area kFoldOfABooklet{18, 5, 24, 22};
    constexpr struct {
        int image;
        Area area;
        std::size_t staples;
    } kPlaces[] = {
        {0, {}, 0},
        {1, {0, 0, 12, 12}, 1},
        {2, {12, 0, 24, 12}, 1},
        {3, {0, 12, 12, 24}, 1},
        {4, {12, 12, 24, 24}, 1},
        {5, kTop, 2},
        {6, kBottom, 2},
        {7, kLeft, 2},
        {8, kRight, 2},
        {9, kFold, 2},
        {10, kFoldOfABooklet, 2},
        {11, kFoldOfABooklet, 2},
        {12, kTop, 1},
        {13, kBottom, 1},
        {14, kLeft, 1},
        {15, kRight, 1},
        {16, kTop, 4},
        {17, kBottom, 4},
        {18, kLeft, 4},
        {19, kRight, 4},
    };
    for (const auto& place : kPlaces) {
        const std::vector<Area> staples = Marks(Image(1065, place.image), kBlue);
        EXPECT_EQ(staples.size(), place.staples) << place.image;
        for (const Area& staple : staples)
            EXPECT_TRUE(Encloses(place.area, staple)) << place.image;
    }
}

// Holes are square.
TEST(StapleStrip, HasStaplesThatAreLongerThanThick) {
    for (const int image : {5, 6, 7, 8, 12, 13, 14, 15, 16, 17, 18, 19}) {
        const bool lies =
            image == 5 || image == 6 || image == 12 || image == 13 || image == 16 || image == 17;
        for (const Area& staple : Marks(Image(1065, image), kBlue))
            EXPECT_EQ(Width(staple) > Height(staple), lies) << image;
    }
}
