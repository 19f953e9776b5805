#include "tests/companions/jobproperty/x100_catalogue.h"

#include <limits>
#include <optional>

namespace jobproperty {
namespace {

std::optional<std::int64_t> Parsed(std::string_view name, std::string_view text) {
    return ParseNumber(InfoOf(name), text);
}

std::string Formatted(std::string_view name, std::int64_t value) {
    return FormatNumber(InfoOf(name), value);
}

using Number = std::optional<std::int64_t>;

TEST(FormatNumber, ShowsWholeNumbersAsTheyAre) {
    EXPECT_EQ(Formatted("Copies", 1), "1");
    EXPECT_EQ(Formatted("Copies", 9999), "9999");
    EXPECT_EQ(Formatted("AutoJobStartElapsedDays", 0), "0");
}

TEST(FormatNumber, ShowsThousandthsOfAMillimetreAsMillimetres) {
    EXPECT_EQ(Formatted("CustomPaperWidth", 210000), "210");
    EXPECT_EQ(Formatted("CustomPaperWidth", 210500), "210.5");
    EXPECT_EQ(Formatted("CustomPaperWidth", 100003), "100.003");
}

TEST(FormatNumber, Shows14400thsOfAnInchAsMillimetres) {
    EXPECT_EQ(Formatted("PaginationDistanceX", 0), "0");
    EXPECT_EQ(Formatted("PaginationDistanceX", 2835), "5");
    EXPECT_EQ(Formatted("PaginationDistanceX", 14400), "25.4");
    EXPECT_EQ(Formatted("TrimmerFinishedSize", 114520), "202");
    EXPECT_EQ(Formatted("FormPositionWidth", -2835), "-5");
    EXPECT_EQ(Formatted("FormPositionWidth", -1), "-0.002");
}

// The standard sheet is one unit short of 297 mm.
TEST(FormatNumber, ShowsNeighboursApart) {
    EXPECT_EQ(Formatted("FinishedSizeHeight", 168378), "297");
    EXPECT_EQ(Formatted("FinishedSizeHeight", 168377), "296.998");
    EXPECT_EQ(Formatted("PaginationDistanceX", 2834), "4.999");
}

TEST(FormatNumber, ShowsTenthsAndThousandths) {
    EXPECT_EQ(Formatted("Magnification", 1000), "100");
    EXPECT_EQ(Formatted("Magnification", 1005), "100.5");
    EXPECT_EQ(Formatted("PrintPositionFrontWidthMag", -5), "-0.5");
    EXPECT_EQ(Formatted("HairLineWarningPoint", 90), "0.09");
    EXPECT_EQ(Formatted("HairLineWarningPoint", 1), "0.001");
}

TEST(FormatNumber, ShowsANumberOutOfRangeToo) {
    EXPECT_EQ(Formatted("Copies", -1), "-1");
    EXPECT_EQ(Formatted("Copies", 4294967295), "4294967295");
    EXPECT_EQ(Formatted("FinishedSizeHeight", 4294967295), "7575845.09");
    EXPECT_EQ(Formatted("FormPositionWidth", std::numeric_limits<std::int32_t>::min()), "-3787922.546");
    EXPECT_EQ(Formatted("FormPositionWidth", std::numeric_limits<std::int64_t>::min()),
              "-9223372036854775808");
    EXPECT_EQ(Formatted("FormPositionWidth", std::numeric_limits<std::int64_t>::max()),
              "9223372036854775807");
}

TEST(ParseNumber, TakesWhatUsersWrite) {
    EXPECT_EQ(Parsed("Copies", "12"), Number(12));
    EXPECT_EQ(Parsed("Copies", " 12 "), Number(12));
    EXPECT_EQ(Parsed("Copies", "0012"), Number(12));
    EXPECT_EQ(Parsed("Copies", "+12"), Number(12));
    EXPECT_EQ(Parsed("Copies", "12.0"), Number(12));
    EXPECT_EQ(Parsed("Magnification", "70.5"), Number(705));
    EXPECT_EQ(Parsed("Magnification", "70.50"), Number(705));
    EXPECT_EQ(Parsed("CustomPaperWidth", "210."), Number(210000));
    EXPECT_EQ(Parsed("CustomPaperWidth", "100.003"), Number(100003));
    EXPECT_EQ(Parsed("PaginationDistanceX", "5"), Number(2835));
    EXPECT_EQ(Parsed("PaginationDistanceX", "25.4"), Number(14400));
    EXPECT_EQ(Parsed("FormPositionWidth", "-5"), Number(-2835));
    EXPECT_EQ(Parsed("PaginationEndPage", "-0"), Number(0));
}

TEST(ParseNumber, TakesFullWidthForms) {
    EXPECT_EQ(Parsed("Copies", "１２"), Number(12));
    EXPECT_EQ(Parsed("Magnification", "７０．５"), Number(705));
    EXPECT_EQ(Parsed("FormPositionWidth", "－５"), Number(-2835));
    EXPECT_EQ(Parsed("Copies", "　３　"), Number(3));
}

TEST(ParseNumber, TakesTheEndsOfARangeAndNothingBeyond) {
    EXPECT_EQ(Parsed("Copies", "1"), Number(1));
    EXPECT_EQ(Parsed("Copies", "9999"), Number(9999));
    EXPECT_EQ(Parsed("Copies", "0"), Number());
    EXPECT_EQ(Parsed("Copies", "10000"), Number());
    EXPECT_EQ(Parsed("Copies", "-1"), Number());
    EXPECT_EQ(Parsed("CustomPaperWidth", "89"), Number(89000));
    EXPECT_EQ(Parsed("CustomPaperWidth", "88.999"), Number());
    EXPECT_EQ(Parsed("CustomPaperWidth", "320"), Number(320000));
    EXPECT_EQ(Parsed("CustomPaperWidth", "320.001"), Number());
    EXPECT_EQ(Parsed("FormPositionWidth", "-1200"), Number(-680315));
    EXPECT_EQ(Parsed("FormPositionWidth", "1200"), Number(680315));
    EXPECT_EQ(Parsed("FormPositionWidth", "1200.01"), Number());
}

TEST(ParseNumber, RefusesMoreDecimalsThanTheSettingHas) {
    EXPECT_EQ(Parsed("Copies", "1.5"), Number());
    EXPECT_EQ(Parsed("Magnification", "70.55"), Number());
    EXPECT_EQ(Parsed("PaginationDistanceX", "5.0001"), Number());
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
    for (const char* text : {"",
                             " ",
                             "-",
                             "+",
                             ".",
                             ".5",
                             "1,5",
                             "1 2",
                             "12abc",
                             "0x10",
                             "1e3",
                             "--1",
                             "+-1",
                             "1.2.3",
                             "nan",
                             "inf",
                             "一",
                             "１２部",
                             "\x82",
                             "1\x82",
                             "\xFF",
                             "99999999999999999999999999",
                             "-99999999999999999999999999",
                             "999999999999",
                             "9999999999999"}) {
        EXPECT_EQ(Parsed("Copies", text), Number()) << text;
        EXPECT_EQ(Parsed("Magnification", text), Number()) << text;
        EXPECT_EQ(Parsed("CreasePosition1", text), Number()) << text;
    }
    EXPECT_EQ(Parsed("Copies", std::string(1 << 20, '9')), Number());
    EXPECT_EQ(Parsed("Copies", std::string("1\0", 2)), Number());
}

TEST(ParseNumber, TakesManyZerosInFront) {
    EXPECT_EQ(Parsed("Copies", std::string(1000, '0') + "7"), Number(7));
    EXPECT_EQ(Parsed("Magnification", std::string(1000, '0') + "70.5" + std::string(1000, '0')), Number(705));
}

// Showing a stored value must not change it. The units of all settings are those of these four.
TEST(ShownNumber, ComesBackAsItWasAllOverARange) {
    for (const char* name :
         {"CustomPaperWidth", "PaginationDistanceX", "Magnification", "MinimumLineWidthValue"}) {
        const SettingInfo& setting = InfoOf(name);
        // Of wide ranges a prime step meets every last digit.
        const std::int64_t step = setting.most - setting.least > 20'000 ? 97 : 1;
        for (std::int64_t value = setting.least; value <= setting.most; value += step)
            ASSERT_EQ(ParseNumber(setting, FormatNumber(setting, value)), Number(value)) << name;
    }
}

TEST(ShownNumber, ComesBackAsItWasNearTheEndsOfAllRanges) {
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        if (setting.kind != SettingKind::Number)
            continue;
        for (std::int64_t step = 0; step <= 100 && step <= setting.most - setting.least; ++step) {
            const std::int64_t low = setting.least + step;
            const std::int64_t high = setting.most - step;
            ASSERT_EQ(ParseNumber(setting, FormatNumber(setting, low)), Number(low)) << setting.name;
            ASSERT_EQ(ParseNumber(setting, FormatNumber(setting, high)), Number(high)) << setting.name;
        }
    }
}

} // namespace
} // namespace jobproperty
