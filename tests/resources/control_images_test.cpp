// The images of combo boxes and of the preview's left edge.
#include "tests/resources/bitmap_file.h"

#include <gtest/gtest.h>

#include <set>

namespace {

struct ListedStrip {
    int number;
    int images;
    int size;
};
constexpr ListedStrip kStrips[] = {{1053, 2, 24},  {1054, 9, 24},  {1055, 3, 16}, {1059, 8, 24},
                                   {1061, 13, 24}, {1065, 20, 24}, {1124, 10, 24}};
constexpr int kSymbols[] = {1056, 1057, 1058, 1062, 1063, 1099, 1101,
                            1102, 1103, 1104, 1105, 1106, 1107, 1108};

unsigned Byte(const std::string& bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes.at(at));
}

} // namespace

TEST(Strips, HaveTheirImagesSideBySideIn24Bits) {
    for (const ListedStrip& listed : kStrips) {
        const BitmapFile& strip = ReadBitmap(listed.number);
        EXPECT_EQ(strip.width, listed.images * listed.size) << listed.number;
        EXPECT_EQ(strip.height, listed.size) << listed.number;
        EXPECT_EQ(strip.depth, 24) << listed.number;
    }
}

TEST(Strips, HaveNoEmptyImage) {
    for (const ListedStrip& listed : kStrips) {
        const BitmapFile& strip = ReadBitmap(listed.number);
        for (int image = 0; image < listed.images; ++image)
            EXPECT_FALSE(strip.Part(image * listed.size, listed.size).IsEmpty())
                << listed.number << ' ' << image;
    }
}

TEST(Strips, HaveNoImageTwice) {
    for (const ListedStrip& listed : kStrips) {
        const BitmapFile& strip = ReadBitmap(listed.number);
        std::set<std::vector<std::uint32_t>> images;
        for (int image = 0; image < listed.images; ++image)
            images.insert(strip.Part(image * listed.size, listed.size).pixels);
        EXPECT_EQ(images.size(), static_cast<std::size_t>(listed.images)) << listed.number;
    }
}

TEST(Strips, HaveOnlyTheColorsOfTheSet) {
    for (const ListedStrip& listed : kStrips)
        EXPECT_TRUE(ReadBitmap(listed.number).HasOnlyColorsOfTheSet()) << listed.number;
}

TEST(Symbols, Are32PixelsSquareIn24Bits) {
    for (const int number : kSymbols) {
        const BitmapFile& symbol = ReadBitmap(number);
        EXPECT_EQ(symbol.width, 32) << number;
        EXPECT_EQ(symbol.height, 32) << number;
        EXPECT_EQ(symbol.depth, 24) << number;
    }
}

TEST(Symbols, AreAllDifferentAndNotEmpty) {
    std::set<std::vector<std::uint32_t>> pictures;
    for (const int number : kSymbols) {
        const BitmapFile& symbol = ReadBitmap(number);
        EXPECT_FALSE(symbol.IsEmpty()) << number;
        EXPECT_TRUE(pictures.insert(symbol.pixels).second) << number;
    }
}

TEST(Symbols, HaveOnlyTheColorsOfTheSet) {
    for (const int number : kSymbols)
        EXPECT_TRUE(ReadBitmap(number).HasOnlyColorsOfTheSet()) << number;
}

TEST(Symbols, ShowARotatedPageAsALandscapePageTurnedAround) {
    EXPECT_EQ(ReadBitmap(1058).pixels, ReadBitmap(1057).TurnedAround().pixels);
}

// A letter on a page, above lines of text.
TEST(OrientationSymbols, ShowALetterOnAnUprightAndOnATurnedPage) {
    for (const int number : {1056, 1057}) {
        const BitmapFile& symbol = ReadBitmap(number);
        const Area page = symbol.Extent().value_or(Area{});
        EXPECT_EQ(page.bottom - page.top > page.right - page.left, number == 1056) << number;
        const std::vector<Area> letters = Marks(symbol, kBlue);
        ASSERT_EQ(letters.size(), 1u) << number;
        const Area& letter = letters[0];
        EXPECT_TRUE(symbol.Has(kText, {page.left, letter.bottom, page.right, page.bottom})) << number;
        EXPECT_FALSE(symbol.Has(kText, {page.left, page.top, page.right, letter.bottom})) << number;
        const auto blueIn = [&](int y) {
            int pixels = 0;
            for (int x = letter.left; x < letter.right; ++x)
                pixels += symbol.At(x, y) == kBlue;
            return pixels;
        };
        EXPECT_LT(blueIn(letter.top), blueIn(letter.bottom - 1)) << number;
    }
}

TEST(CollateSymbols, ShowTwoWholeSetsOrThePagesApart) {
    const std::vector<Area> sets = Marks(ReadBitmap(1062));
    const std::vector<Area> pages = Marks(ReadBitmap(1063));
    ASSERT_EQ(sets.size(), 2u);
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_GT(sets[0].right - sets[0].left, pages[0].right - pages[0].left);
}

TEST(WarningIcons, HoldTheirSizesIn32Bits) {
    const std::string small = ImageBytes("5.ico");
    ASSERT_GT(small.size(), 22u);
    EXPECT_EQ(Byte(small, 4), 1u);
    EXPECT_EQ(Byte(small, 6), 16u);
    EXPECT_EQ(Byte(small, 12), 32u);
    const std::string large = ImageBytes("19122.ico");
    ASSERT_GT(large.size(), 38u);
    EXPECT_EQ(Byte(large, 4), 2u);
    EXPECT_EQ(Byte(large, 6), 24u);
    EXPECT_EQ(Byte(large, 12), 32u);
    EXPECT_EQ(Byte(large, 22), 32u);
    EXPECT_EQ(Byte(large, 28), 32u);
}
