#include "pages/custom_page_size.h"

#include "tests/support/decimal_comma.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kInch = 0;
constexpr int kMillimeter = 1;
constexpr int kPoint = 2;
constexpr std::uint32_t kMost = 4294967295u;

using Texts = std::array<std::string, 3>;

Texts TextsOf(const LengthByUnit& lengths) {
    return {LengthText(lengths[0]), LengthText(lengths[1]), LengthText(lengths[2])};
}

TEST(PageSizeLimits, AreThoseOfEachUnit) {
    struct Row {
        int unit;
        std::uint32_t widthMin, heightMin, widthMax, heightMax;
    };
    for (const Row& row :
         {Row{kInch, 3504, 3858, 12568, 47244}, Row{kMillimeter, 89000, 98000, 320000, 1200000},
          Row{kPoint, 252282, 277794, 907065, 3401568}}) {
        const PageSizeLimits limits = PageSizeLimitsOf(row.unit);
        EXPECT_EQ(limits.widthMin, row.widthMin) << row.unit;
        EXPECT_EQ(limits.heightMin, row.heightMin) << row.unit;
        EXPECT_EQ(limits.widthMax, row.widthMax) << row.unit;
        EXPECT_EQ(limits.heightMax, row.heightMax) << row.unit;
    }
}

TEST(PageSizeLimits, EndAtLessThanThreeHundredTwentyMillimetersInInches) {
    EXPECT_LT(ConvertLength(PageSizeLimitsOf(kInch).widthMax, kInch, kMillimeter).thousandths, 319300u);
}

TEST(PageSizeLimits, AreThoseOfMillimetersForANumberThatIsNoUnit) {
    for (const int unit : {-1, 3, 1000, -2147483647})
        EXPECT_EQ(PageSizeLimitsOf(unit).widthMax, 320000u) << unit;
}

TEST(PageSizeLimits, AreWrittenWithOneDecimal) {
    EXPECT_EQ(LengthLimitsText(89000, 320000), "(89.0, 320.0)");
    EXPECT_EQ(LengthLimitsText(98000, 1200000), "(98.0, 1200.0)");
    EXPECT_EQ(LengthLimitsText(3504, 12568), "(3.5, 12.6)");
    EXPECT_EQ(LengthLimitsText(3858, 47244), "(3.9, 47.2)");
    EXPECT_EQ(LengthLimitsText(252282, 907065), "(252.3, 907.1)");
    EXPECT_EQ(LengthLimitsText(277794, 3401568), "(277.8, 3401.6)");
}

TEST(Range, BelongsToItsLimits) {
    EXPECT_TRUE(IsInRange(89000, 89000, 320000));
    EXPECT_TRUE(IsInRange(320000, 89000, 320000));
    EXPECT_FALSE(IsInRange(88999, 89000, 320000));
    EXPECT_FALSE(IsInRange(320001, 89000, 320000));
    EXPECT_FALSE(IsInRange(0, 89000, 320000));
    EXPECT_FALSE(IsInRange(kMost, 89000, 320000));
}

TEST(LengthText, HasOneDecimal) {
    EXPECT_EQ(LengthText(100000u), "100.0");
    EXPECT_EQ(LengthText(0u), "0.0");
    EXPECT_EQ(LengthText(49u), "0.0");
    EXPECT_EQ(LengthText(51u), "0.1");
    EXPECT_EQ(LengthText(12568u), "12.6");
    EXPECT_EQ(LengthText(210049u), "210.0");
    EXPECT_EQ(LengthText(kMost), "4294967.5"); // the nearest 32-bit float
    EXPECT_EQ(LengthText(3.9F), "3.9");
}

TEST(LengthFromText, ReadsDecimalNumbers) {
    struct Row {
        const char* text;
        std::uint32_t thousandths;
    };
    for (const Row& row :
         {Row{"100", 100000}, Row{"100.0", 100000}, Row{"89.0", 89000}, Row{"12.6", 12600},
          Row{"12.568", 12568}, Row{"0", 0}, Row{"0.0", 0}, Row{".5", 500}, Row{"5.", 5000}, Row{"007", 7000},
          Row{"+5", 5000}, Row{"  12.6", 12600}, Row{"\t5\r\n", 5000}, Row{"1e2", 100000},
          Row{"1E+2", 100000}, Row{"25E-1", 2500}, Row{"12.6789", 12678}, Row{"0.0009", 0}})
        EXPECT_EQ(ThousandthsFromText(row.text), row.thousandths) << row.text;
}

TEST(LengthFromText, StopsWhereTheNumberEnds) {
    struct Row {
        const char* text;
        std::uint32_t thousandths;
    };
    for (const Row& row :
         {Row{"12.6inch", 12600}, Row{"12,6", 12000}, Row{"1.2.3", 1200}, Row{"1e", 1000}, Row{"1e+", 1000},
          Row{"1em", 1000}, Row{"2E-x", 2000}, Row{"100 mm", 100000}, Row{"0x1A", 0}, Row{"5-3", 5000}})
        EXPECT_EQ(ThousandthsFromText(row.text), row.thousandths) << row.text;
}

TEST(LengthFromText, ReadsWhatIsNoNumberAsZero) {
    for (const char* text :
         {"",    " ",    "abc",      ".",   "-",   "+",      "+-5",    "-+5", "e5",  ".e5", "inf",
          "INF", "+inf", "infinity", "nan", "NaN", "nan(1)", "１００", "幅",  "--5", "$5"})
        EXPECT_EQ(ThousandthsFromText(text), 0u) << text;
}

TEST(LengthFromText, ReadsNegativeNumbersAsZero) {
    for (const char* text : {"-5", "-0", "-0.001", "-1e30", "  -89.0", "-inf"})
        EXPECT_EQ(ThousandthsFromText(text), 0u) << text;
}

TEST(LengthFromText, TakesTheLargestForWhatIsTooLarge) {
    for (const char* text : {"4294967.296", "4294968", "1e7", "1e300", "1e308", "1e400", "1e99999999",
                             "99999999999999999999999999999999"})
        EXPECT_EQ(ThousandthsFromText(text), kMost) << text;
    EXPECT_EQ(ThousandthsFromText("4294967.25"), 4294967250u);
}

TEST(LengthFromText, TakesZeroForWhatIsTooSmall) {
    for (const char* text : {"1e-400", "1e-99999999", "0.00000000000000000000000000001"})
        EXPECT_EQ(ThousandthsFromText(text), 0u) << text;
}

TEST(LengthFromText, ReadsThirtyTwoCharactersOnly) {
    EXPECT_EQ(ThousandthsFromText(std::string(30, '0') + "123"), 12000u);
    EXPECT_EQ(ThousandthsFromText(std::string(29, '0') + "123"), 123000u);
    EXPECT_EQ(ThousandthsFromText(std::string(32, ' ') + "123"), 0u);
    EXPECT_EQ(ThousandthsFromText("12." + std::string(100000, '5')), 12555u);
    EXPECT_EQ(ThousandthsFromText(std::string(100000, '9')), kMost);
}

TEST(LengthFromText, DoesNotEndAtTheViewsMemory) {
    const std::string text = "12.67";
    EXPECT_EQ(ThousandthsFromText(std::string_view(text).substr(0, 4)), 12600u);
    EXPECT_EQ(ThousandthsFromText(std::string_view(text).substr(0, 2)), 12000u);
}

TEST(LengthFromText, ReadsNumbersAsTheLibraryDoes) {
    std::mt19937 random(7);
    const std::string characters = "0123456789012345678901234567890123456789.eE+- ";
    int nonZero = 0;
    for (int round = 0; round < 100000; ++round) {
        std::string text(random() % 40, '\0');
        for (char& c : text)
            c = characters[random() % characters.size()];
        const double thousandths = std::strtod(text.substr(0, 32).c_str(), nullptr) * 1000.0;
        const auto expected = static_cast<std::uint32_t>(std::clamp<double>(thousandths, 0, kMost));
        nonZero += expected != 0;
        ASSERT_EQ(ThousandthsFromText(text), expected) << text;
    }
    EXPECT_GT(nonZero, 10000);
}

TEST(LengthFromText, EndsAtEveryCharacterThatIsNotOfANumber) {
    for (int byte = 0; byte < 256; ++byte) {
        const auto c = static_cast<char>(byte);
        if (std::string("0123456789.eE").find(c) != std::string::npos)
            continue;
        EXPECT_EQ(ThousandthsFromText("12.5" + std::string(1, c) + "3"), 12500u) << byte;
    }
}

TEST(Lengths, DoNotDependOnTheLocale) {
    const DecimalCommaLocale locale;
    EXPECT_EQ(LengthText(12568u), "12.6");
    EXPECT_EQ(ThousandthsFromText("12.6"), 12600u);
    EXPECT_EQ(TextsOf(LengthInAllUnits(100000, kMillimeter)), (Texts{"3.9", "100.0", "283.5"}));
}

TEST(LengthInAllUnits, HoldsWhatAnEditWouldShow) {
    EXPECT_EQ(TextsOf(LengthInAllUnits(100000, kMillimeter)), (Texts{"3.9", "100.0", "283.5"}));
    EXPECT_EQ(TextsOf(LengthInAllUnits(210000, kMillimeter)), (Texts{"8.3", "210.0", "595.3"}));
    EXPECT_EQ(TextsOf(LengthInAllUnits(12600, kInch)), (Texts{"12.6", "320.0", "907.2"}));
    EXPECT_EQ(TextsOf(LengthInAllUnits(595000, kPoint)), (Texts{"8.3", "209.9", "595.0"}));
    EXPECT_EQ(TextsOf(LengthInAllUnits(0, kPoint)), (Texts{"0.0", "0.0", "0.0"}));
}

TEST(LengthInAllUnits, IsRoundedByItsText) {
    const LengthByUnit lengths = LengthInAllUnits(123456, kMillimeter);
    EXPECT_EQ(lengths[1], 123.5F);
    EXPECT_EQ(lengths[0], 4.9F);   // 4.860
    EXPECT_EQ(lengths[2], 350.0F); // 349.953
}

TEST(LengthInAllUnits, TakesTheFactorsOfTheTable) {
    constexpr double kFactors[3][3]{{1, 25.4, 72}, {0.03937, 1, 2.83464}, {0.01389, 0.35278, 1}};
    for (int from = 0; from < 3; ++from) {
        for (int to = 0; to < 3; ++to) {
            const float shown = LengthInAllUnits(1000000, from)[static_cast<std::size_t>(to)];
            EXPECT_NEAR(shown, 1000 * kFactors[from][to], 0.0501) << from << " " << to;
            EXPECT_NEAR(ConvertLength(1000000, from, to).thousandths, 1000000 * kFactors[from][to], 6.0)
                << from << " " << to;
        }
    }
}

TEST(ThousandthsFromShown, AreThoseOfTheOneDecimal) {
    EXPECT_EQ(ThousandthsFromShown(3.9F), 3900u);
    EXPECT_EQ(ThousandthsFromShown(100.0F), 100000u);
    EXPECT_EQ(ThousandthsFromShown(283.5F), 283500u);
    EXPECT_EQ(ThousandthsFromShown(0.0F), 0u);
    EXPECT_EQ(ThousandthsFromShown(3.0e38F), kMost);
}

TEST(ThousandthsFromShown, HoldForEveryTextWithinTheLimits) {
    for (std::uint32_t tenths = 0; tenths <= 34016; ++tenths) {
        const auto shown = static_cast<float>(tenths / 10.0);
        ASSERT_EQ(ThousandthsFromShown(shown), tenths * 100) << tenths;
    }
}

TEST(ConvertLength, KeepsEveryLengthOfTheSameUnit) {
    for (std::uint32_t length = 0; length <= 1300000; ++length)
        ASSERT_EQ(ConvertLength(length, kMillimeter, kMillimeter).thousandths, length);
}

TEST(ConvertLength, GivesMillimetersOfTheOtherUnits) {
    EXPECT_EQ(ConvertLength(12600, kInch, kMillimeter).thousandths, 320040u);
    EXPECT_EQ(ConvertLength(3500, kInch, kMillimeter).thousandths, 88900u);
    EXPECT_EQ(ConvertLength(1000, kInch, kMillimeter).thousandths, 25400u);
    EXPECT_EQ(ConvertLength(595000, kPoint, kMillimeter).thousandths, 209904u);
    EXPECT_EQ(LengthText(ConvertLength(595000, kPoint, kMillimeter).shown), "209.9");
    EXPECT_EQ(ConvertLength(0, kPoint, kMillimeter).thousandths, 0u);
}

TEST(ConvertLength, TakesTheLargestForWhatIsTooLarge) {
    EXPECT_EQ(ConvertLength(kMost, kInch, kMillimeter).thousandths, kMost);
    EXPECT_EQ(ConvertLength(kMost, kInch, kPoint).thousandths, kMost);
}

TEST(ConvertLength, TakesAnyNumbers) {
    std::mt19937 random(11);
    for (int round = 0; round < 20000; ++round) {
        const ConvertedLength converted = ConvertLength(
            static_cast<std::uint32_t>(random()), static_cast<int>(random()), static_cast<int>(random() % 5));
        EXPECT_TRUE(std::isfinite(converted.shown));
    }
}

TEST(DoubleWidthSheets, AreFourTags) {
    std::vector<std::uint32_t> tags;
    for (std::uint32_t tag = 0; tag < 300; ++tag) {
        if (IsDoubleWidthSheet(tag))
            tags.push_back(tag);
    }
    EXPECT_EQ(tags, (std::vector<std::uint32_t>{30, 38, 66, 104}));
    EXPECT_FALSE(IsDoubleWidthSheet(kMost));
}

TEST(DoubleWidthSheets, AreHalvedAndStandUprightForDirectionOne) {
    EXPECT_EQ(HalfOfDoubleWidthSheet({594000, 420000}, 1), (PageSize{297000, 420000}));
    EXPECT_EQ(HalfOfDoubleWidthSheet({900000, 300000}, 1), (PageSize{300000, 450000}));
}

TEST(DoubleWidthSheets, AreHalvedAndLieForAnyOtherDirection) {
    for (const std::uint32_t direction : {0u, 2u, kMost})
        EXPECT_EQ(HalfOfDoubleWidthSheet({594000, 420000}, direction), (PageSize{420000, 297000}))
            << direction;
}

TEST(DoubleWidthSheets, AreHalvedByAnIntegerDivision) {
    EXPECT_EQ(HalfOfDoubleWidthSheet({3, 0}, 0), (PageSize{1, 0}));
    EXPECT_EQ(HalfOfDoubleWidthSheet({kMost, kMost}, 1), (PageSize{2147483647, kMost}));
}

} // namespace
