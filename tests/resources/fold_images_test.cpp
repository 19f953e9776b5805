// Folded sheets, as the strip of the fold setting and the preview show them.
#include "tests/resources/bitmap_file.h"

#include <gtest/gtest.h>

namespace {

enum FoldImage {
    None,
    Half,
    HalfInside,
    HalfOutside,
    LetterInside,
    LetterOutside,
    AccordionInside,
    AccordionOutside,
    ZLeft,
    ZRight
};

BitmapFile Image(int image) {
    return ReadBitmap(1124).Part(image * 24, 24);
}

// The columns of blue lines.
std::vector<int> Folds(const BitmapFile& image) {
    std::vector<int> columns;
    for (const Area& line : Marks(image, kBlue)) {
        EXPECT_EQ(line.right - line.left, 1);
        EXPECT_GE(line.bottom - line.top, image.height / 3);
        columns.push_back(line.left);
    }
    return columns;
}

// The part of the picture in which nothing lies over the sheet's inner side, in the strip's pixels.
Area InnerSide(int image) {
    switch (image) {
    case HalfInside:
    case HalfOutside: return {4, 8, 10, 20};
    case LetterInside:
    case LetterOutside: return {9, 8, 15, 20};
    default: return {4, 12, 9, 21};
    }
}

constexpr std::pair<int, int> kPairs[] = {
    {HalfInside, HalfOutside}, {LetterInside, LetterOutside}, {AccordionInside, AccordionOutside}};

Area Scaled(const Area& area, int size) {
    return {area.left * size / 24, area.top * size / 24, area.right * size / 24, area.bottom * size / 24};
}

} // namespace

TEST(FoldStrip, HasALineForEachFold) {
    constexpr std::size_t kFolds[] = {0, 1, 1, 1, 2, 2, 2, 2, 2, 2};
    for (int image = None; image <= ZRight; ++image)
        EXPECT_EQ(Folds(Image(image)).size(), kFolds[image]) << image;
}

TEST(FoldStrip, FoldsInThreeAtBothEndsOfTheMiddlePart) {
    for (const int image : {LetterInside, LetterOutside}) {
        const std::vector<int> folds = Folds(Image(image));
        ASSERT_EQ(folds.size(), 2u);
        EXPECT_LT(folds[0], 4);
        EXPECT_GT(folds[1], 19);
    }
}

TEST(FoldStrip, FoldsToAndFroOverTheFirstPart) {
    for (const int image : {AccordionInside, AccordionOutside}) {
        const std::vector<int> folds = Folds(Image(image));
        ASSERT_EQ(folds.size(), 2u);
        EXPECT_GT(folds[0], 6);
        EXPECT_LT(folds[1], 20);
    }
}

TEST(FoldStrip, TellsThePrintedSideByTextOnItAndTheOtherByItsShade) {
    for (const auto& [inside, outside] : kPairs) {
        const Area area = InnerSide(inside);
        EXPECT_TRUE(Image(inside).Has(kText, area)) << inside;
        EXPECT_FALSE(Image(inside).Has(kShade, area)) << inside;
        EXPECT_FALSE(Image(outside).Has(kText, area)) << outside;
        EXPECT_TRUE(Image(outside).Has(kShade, area)) << outside;
        EXPECT_TRUE(Image(outside).Has(kText, {0, 0, 24, 24})) << outside;
    }
}

TEST(FoldStrip, HasNoTextOnASheetWhoseSidesDoNotMatter) {
    EXPECT_FALSE(Image(Half).Has(kText, {0, 0, 24, 24}));
}

TEST(FoldStrip, HasTheFlatHalfOfAZFoldAtItsBinding) {
    const BitmapFile left = Image(ZLeft);
    for (const int fold : Folds(left))
        EXPECT_GE(fold, 12);
    EXPECT_TRUE(left.Has(kText, {0, 0, 12, 24}));
    const BitmapFile right = Image(ZRight);
    for (const int fold : Folds(right))
        EXPECT_LT(fold, 12);
    EXPECT_TRUE(right.Has(kText, {12, 0, 24, 24}));
}

// By the values of the setting: the image of the row and the symbol.
TEST(FoldSymbols, ShowTheSheetOfTheirRow) {
    constexpr std::pair<int, int> kRows[] = {
        {HalfInside, 1101},    {HalfOutside, 1099},     {Half, 1102},
        {ZRight, 1108},        {ZLeft, 1107},           {LetterInside, 1104},
        {LetterOutside, 1103}, {AccordionInside, 1106}, {AccordionOutside, 1105}};
    for (const auto& [image, symbol] : kRows) {
        const std::vector<int> inStrip = Folds(Image(image));
        const std::vector<int> inSymbol = Folds(ReadBitmap(symbol));
        ASSERT_EQ(inSymbol.size(), inStrip.size()) << symbol;
        for (std::size_t fold = 0; fold < inStrip.size(); ++fold)
            EXPECT_NEAR(inSymbol[fold], inStrip[fold] * 4 / 3.0, 1.5) << symbol;
    }
    EXPECT_FALSE(ReadBitmap(1102).Has(kText, {0, 0, 32, 32}));
}

TEST(FoldSymbols, TellThePrintedSideAsTheirRowDoes) {
    constexpr std::pair<int, int> kSymbols[] = {{1101, 1099}, {1104, 1103}, {1106, 1105}};
    for (std::size_t pair = 0; pair < std::size(kPairs); ++pair) {
        const Area area = Scaled(InnerSide(kPairs[pair].first), 32);
        const auto& [inside, outside] = kSymbols[pair];
        EXPECT_TRUE(ReadBitmap(inside).Has(kText, area)) << inside;
        EXPECT_FALSE(ReadBitmap(outside).Has(kText, area)) << outside;
        EXPECT_TRUE(ReadBitmap(outside).Has(kShade, area)) << outside;
        EXPECT_TRUE(ReadBitmap(outside).Has(kText, {0, 0, 32, 32})) << outside;
    }
}

// Images 10 and 11 of the staples: a booklet printed inside and outside.
TEST(SaddleStapleStrip, TellsThePrintedSideAsAFoldDoes) {
    const Area area = InnerSide(HalfInside);
    const BitmapFile inside = ReadBitmap(1065).Part(10 * 24, 24);
    const BitmapFile outside = ReadBitmap(1065).Part(11 * 24, 24);
    EXPECT_TRUE(inside.Has(kText, area));
    EXPECT_FALSE(inside.Has(kShade, area));
    EXPECT_FALSE(outside.Has(kText, area));
    EXPECT_TRUE(outside.Has(kShade, area));
}
