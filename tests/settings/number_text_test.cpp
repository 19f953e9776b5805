#include "settings/number_text.h"

#include "tests/support/decimal_comma.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <sstream>

namespace {

constexpr std::int32_t kI32Min = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kI32Max = std::numeric_limits<std::int32_t>::max();

template <class Number>
Number FromStream(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    Number number = 0;
    stream >> number;
    return number;
}

void ExpectIntegersAsAStreamReadsThem(const std::string& text) {
    EXPECT_EQ(I32FromText(text), FromStream<std::int32_t>(text)) << '"' << text << '"';
    EXPECT_EQ(U32FromText(text), FromStream<std::uint32_t>(text)) << '"' << text << '"';
    EXPECT_EQ(I64FromText(text), FromStream<std::int64_t>(text)) << '"' << text << '"';
}

std::int32_t Hundredths(std::string_view text) {
    return FixedFromText(text, FixedScale::Hundredths);
}

std::int32_t Tenths(std::string_view text) {
    return FixedFromText(text, FixedScale::Tenths);
}

TEST(IntegerText, IsReadBehindWhiteSpaceAndASign) {
    for (const char* text :
         {"42", "+42", " 42", "\t\n\v\f\r 42", " +42", "0042", "+0000000000000000000042"}) {
        EXPECT_EQ(I32FromText(text), 42) << text;
        EXPECT_EQ(U32FromText(text), 42u) << text;
        EXPECT_EQ(I64FromText(text), 42) << text;
    }
    EXPECT_EQ(I32FromText(" -42"), -42);
    EXPECT_EQ(I64FromText(" -42"), -42);
}

TEST(IntegerText, IsReadUpToWhereItsDigitsEnd) {
    for (const char* text : {"42mm", "42.9", "42,000", "42 7", "42-7", "42e3", "42x"})
        EXPECT_EQ(I32FromText(text), 42) << text;
    EXPECT_EQ(I32FromText(std::string_view("42\0001", 4)), 42);
    EXPECT_EQ(I32FromText("0x10"), 0);
}

TEST(IntegerText, WithoutANumberIs0) {
    for (const char* text : {"", " ", "+", "-", "+-5", "-+5", "--5", "- 5", "+ 5", "abc", ".5", "\x82\x51",
                             "\xA0"
                             "5",
                             "inf", "nan"}) {
        EXPECT_EQ(I32FromText(text), 0) << text;
        EXPECT_EQ(U32FromText(text), 0u) << text;
        EXPECT_EQ(I64FromText(text), 0) << text;
    }
}

TEST(IntegerText, OutOfRangeIsTheNearestLimit) {
    EXPECT_EQ(I32FromText("2147483647"), kI32Max);
    EXPECT_EQ(I32FromText("2147483648"), kI32Max);
    EXPECT_EQ(I32FromText("4294967295"), kI32Max);
    EXPECT_EQ(I32FromText("4294967296"), kI32Max);
    EXPECT_EQ(I32FromText("-2147483648"), kI32Min);
    EXPECT_EQ(I32FromText("-2147483649"), kI32Min);
    EXPECT_EQ(I32FromText("-4294967297"), kI32Min);
    EXPECT_EQ(U32FromText("4294967295"), 0xFFFFFFFF);
    EXPECT_EQ(U32FromText("4294967296"), 0xFFFFFFFF);
    EXPECT_EQ(I64FromText("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(I64FromText("9223372036854775808"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(I64FromText("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(I64FromText("-9223372036854775809"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(I32FromText(std::string(5399, '9')), kI32Max);
    EXPECT_EQ(I64FromText("-" + std::string(5398, '9')), std::numeric_limits<std::int64_t>::min());
}

TEST(IntegerText, OfAnUnsignedNumberWithAMinusSignWraps) {
    EXPECT_EQ(U32FromText("-1"), 0xFFFFFFFF);
    EXPECT_EQ(U32FromText("-2147483648"), 0x80000000);
    EXPECT_EQ(U32FromText("-4294967295"), 1u);
    EXPECT_EQ(U32FromText("-0"), 0u);
}

TEST(IntegerText, OfAnUnsignedNumberBeyondTheRangeIsTheMaximumWithAMinusSignToo) {
    EXPECT_EQ(U32FromText("-4294967296"), 0xFFFFFFFF);
    EXPECT_EQ(U32FromText("-99999999999999999999"), 0xFFFFFFFF);
}

TEST(IntegerText, AroundEveryPowerOfTwoIsReadAsAStreamReadsIt) {
    for (int bits = 0; bits < 64; ++bits)
        for (const int around : {-2, -1, 0, 1, 2}) {
            const std::string magnitude =
                std::to_string((std::uint64_t{1} << bits) + static_cast<std::uint64_t>(around));
            for (const char* sign : {"", "-", "+"})
                ExpectIntegersAsAStreamReadsThem(sign + magnitude);
        }
}

TEST(IntegerText, OfRandomPiecesIsReadAsAStreamReadsIt) {
    const std::string pieces[] = {" ",
                                  "\t",
                                  "\n",
                                  "\v",
                                  "\f",
                                  "\r",
                                  "+",
                                  "-",
                                  "0",
                                  "00",
                                  "7",
                                  "13",
                                  "2147483647",
                                  "2147483648",
                                  "4294967295",
                                  "4294967296",
                                  "922337203685477580",
                                  ".",
                                  ",",
                                  "e5",
                                  "x",
                                  "a",
                                  "\x82\xA0",
                                  std::string(1, '\0')};
    std::mt19937 random(1);
    for (int i = 0; i < 100'000; ++i) {
        std::string text;
        for (auto count = random() % 7; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        ExpectIntegersAsAStreamReadsThem(text);
        if (HasFailure())
            return;
    }
}

TEST(IntegerText, OfANumberIsDecimal) {
    EXPECT_EQ(TextFromNumber(0), "0");
    EXPECT_EQ(TextFromNumber(-1), "-1");
    EXPECT_EQ(TextFromNumber(4294967295), "4294967295");
    EXPECT_EQ(TextFromNumber(kI32Min), "-2147483648");
    EXPECT_EQ(TextFromNumber(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(TextFromNumber(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(FixedText, OfHundredthsHasTwoDecimals) {
    EXPECT_EQ(TextFromFixed(1250, FixedScale::Hundredths), "12.50");
    EXPECT_EQ(TextFromFixed(1, FixedScale::Hundredths), "0.01");
    EXPECT_EQ(TextFromFixed(-1, FixedScale::Hundredths), "-0.01");
    EXPECT_EQ(TextFromFixed(-105, FixedScale::Hundredths), "-1.05");
    EXPECT_EQ(TextFromFixed(100, FixedScale::Hundredths), "1.00");
    EXPECT_EQ(TextFromFixed(kI32Max, FixedScale::Hundredths), "21474836.47");
    EXPECT_EQ(TextFromFixed(kI32Min, FixedScale::Hundredths), "-21474836.48");
}

TEST(FixedText, OfTenthsHasOneDecimal) {
    EXPECT_EQ(TextFromFixed(1005, FixedScale::Tenths), "100.5");
    EXPECT_EQ(TextFromFixed(1, FixedScale::Tenths), "0.1");
    EXPECT_EQ(TextFromFixed(-10, FixedScale::Tenths), "-1.0");
    EXPECT_EQ(TextFromFixed(kI32Max, FixedScale::Tenths), "214748364.7");
    EXPECT_EQ(TextFromFixed(kI32Min, FixedScale::Tenths), "-214748364.8");
}

TEST(FixedText, Of0HasOneDecimalInBothScales) {
    EXPECT_EQ(TextFromFixed(0, FixedScale::Hundredths), "0.0");
    EXPECT_EQ(TextFromFixed(0, FixedScale::Tenths), "0.0");
}

TEST(FixedText, IsReadAsADecimalNumber) {
    for (const char* text : {"12.5", "12.50", "+12.5", " \t\n\v\f\r12.5", "012.500", "1.25e1", "125E-1",
                             ".125e+2", "12.5mm", "12.5.7", "12.5,7"}) {
        EXPECT_EQ(Hundredths(text), 1250) << text;
        EXPECT_EQ(Tenths(text), 125) << text;
    }
    EXPECT_EQ(Hundredths("-12.5"), -1250);
    EXPECT_EQ(Hundredths("7"), 700);
    EXPECT_EQ(Hundredths("7."), 700);
    EXPECT_EQ(Hundredths("7,5"), 700);
    EXPECT_EQ(Hundredths("-.5"), -50);
}

TEST(FixedText, IsRoundedToTheNearestUnitAndHalvesUpwards) {
    EXPECT_EQ(Hundredths("0.004"), 0);
    EXPECT_EQ(Hundredths("0.005"), 1);
    EXPECT_EQ(Hundredths("0.125"), 13);
    EXPECT_EQ(Hundredths("-0.005"), 0);
    EXPECT_EQ(Hundredths("-0.125"), -12);
    EXPECT_EQ(Hundredths("-0.126"), -13);
    EXPECT_EQ(Tenths("0.25"), 3);
    EXPECT_EQ(Tenths("-0.25"), -2);
}

TEST(FixedText, WithoutAnExponentBehindItsLetterIs0) {
    for (const char* text : {"7e", "7E", "7e+", "7e-", "12.5em", "1e+-5", "7.e", ".7e", "-7e", " 7e 5", "0e",
                             "7ee5", "7e.5", "7e+ 5"}) {
        EXPECT_EQ(Hundredths(text), 0) << text;
        EXPECT_EQ(Tenths(text), 0) << text;
    }
    EXPECT_EQ(Hundredths(std::string(400, '9') + "e"), 0);
    EXPECT_EQ(Hundredths("7e" + std::string(1, '\0') + "5"), 0);
}

TEST(FixedText, IsReadUpToALetterBehindItsExponent) {
    for (const char* text : {"125e-1e", "1.25e1e5", "1.25e1E+", "1.25e1.5", "1.25e1-5"})
        EXPECT_EQ(Hundredths(text), 1250) << text;
}

// The double nearest to 1.005 lies below it.
TEST(FixedText, IsRoundedAsADouble) {
    EXPECT_EQ(Hundredths("1.005"), 100);
}

TEST(FixedText, WithoutANumberIs0) {
    for (const char* text :
         {"", " ", "+", "-", ".", "-.", "e5", ".e5", "+-5", "-+5", "--5", "- 5", "abc", ",5"}) {
        EXPECT_EQ(Hundredths(text), 0) << text;
        EXPECT_EQ(Tenths(text), 0) << text;
    }
}

TEST(FixedText, TakesNoWordsForNumbers) {
    for (const char* text : {"inf", "-inf", "INF", "infinity", "nan", "-nan", "NAN", "nan(7)", "nan(snan)"})
        EXPECT_EQ(Hundredths(text), 0) << text;
}

TEST(FixedText, TakesNoHexadecimalNumbers) {
    EXPECT_EQ(Hundredths("0x10"), 0);
    EXPECT_EQ(Hundredths("-0x1p4"), 0);
    EXPECT_EQ(Hundredths("A"), 0);
}

TEST(FixedText, OutOfRangeIsTheNearestLimit) {
    for (const char* text : {"21474836.47", "21474836.48", "3e9", "1e300", "1e307", "1e308", "1e309", "1e999",
                             "1e99999999999999999999", "0.00001e400"}) {
        EXPECT_EQ(Hundredths(text), kI32Max) << text;
        EXPECT_EQ(Hundredths(std::string("-") + text),
                  text == std::string("21474836.47") ? -kI32Max : kI32Min)
            << text;
    }
    EXPECT_EQ(Hundredths(std::string(5399, '9')), kI32Max);
    EXPECT_EQ(Hundredths("-" + std::string(5398, '9')), kI32Min);
}

TEST(FixedText, TooSmallForADoubleIs0) {
    const std::string zeros(400, '0');
    for (const std::string& text :
         {std::string("1e-400"), std::string("1e-99999999999999999999"), std::string("123456789e-400"),
          "0." + zeros + "1", "0." + zeros + "1e9"}) {
        EXPECT_EQ(Hundredths(text), 0) << text;
        EXPECT_EQ(Hundredths("-" + text), 0) << text;
    }
}

TEST(FixedText, WithManyDigitsAndAnExponentThatUndoesThemIsInRange) {
    const std::string zeros(400, '0');
    EXPECT_EQ(Hundredths("0." + zeros + "1e402"), 1000);
    EXPECT_EQ(Hundredths("1" + zeros + "e-400"), 100);
    EXPECT_EQ(Hundredths("0e999"), 0);
}

void ExpectFixedAsAStreamReadsIt(const std::string& text) {
    const double number = FromStream<double>(text);
    for (const auto& [scale, factor] : {std::pair{FixedScale::Hundredths, 100}, {FixedScale::Tenths, 10}}) {
        const double units = std::floor(number * factor + 0.5);
        const double expected = units < kI32Min ? kI32Min : units > kI32Max ? kI32Max : units;
        ASSERT_EQ(FixedFromText(text, scale), static_cast<std::int32_t>(expected))
            << '"' << text << "\" " << factor;
    }
}

TEST(FixedText, OfRandomPiecesIsReadAsAStreamReadsIt) {
    const std::string pieces[] = {
        " ",    "\t",    "+", "-", "0", "00", "7",  "13",  "21474836", "12.5",
        ".",    ",",     "e", "E", "e", "e+", "E-", "e5",  "e-3",      "E+1",
        "e400", "e-400", "x", "m", "p", "f",  "a",  "inf", "\x82\xA0", std::string(1, '\0')};
    std::mt19937 random(4);
    for (int i = 0; i < 200'000; ++i) {
        std::string text;
        for (auto count = random() % 7; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        ExpectFixedAsAStreamReadsIt(text);
        if (HasFailure())
            return;
    }
}

TEST(FixedText, OfRandomDecimalNumbersIsReadAsAStreamReadsIt) {
    std::mt19937 random(2);
    for (int i = 0; i < 100'000; ++i) {
        std::string text = random() % 2 ? "-" : "";
        text += std::to_string(random() % (random() % 2 ? 100u : 40'000'000u));
        if (random() % 4)
            text += "." + std::to_string(random() % 100'000);
        if (random() % 4 == 0)
            text += "e" + std::to_string(static_cast<int>(random() % 25) - 12);
        ExpectFixedAsAStreamReadsIt(text);
        if (HasFailure())
            return;
    }
}

void ExpectSurvivesTextAndBack(std::int32_t units) {
    EXPECT_EQ(Hundredths(TextFromFixed(units, FixedScale::Hundredths)), units);
    EXPECT_EQ(Tenths(TextFromFixed(units, FixedScale::Tenths)), units);
}

TEST(FixedText, OfEveryNumberGivesItBack) {
    for (std::int32_t away = 0; away < 50'000; ++away)
        for (const std::int32_t units : {away, -away, kI32Min + away, kI32Max - away})
            ExpectSurvivesTextAndBack(units);
    std::mt19937 random(3);
    for (int i = 0; i < 200'000; ++i)
        ExpectSurvivesTextAndBack(static_cast<std::int32_t>(random()));
}

class DecimalComma : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

void ExpectPointsInText() {
    EXPECT_EQ(Hundredths("12.5"), 1250);
    EXPECT_EQ(Hundredths("12,5"), 1200);
    EXPECT_EQ(TextFromFixed(123456789, FixedScale::Hundredths), "1234567.89");
    EXPECT_EQ(I32FromText("1.234"), 1);
    EXPECT_EQ(TextFromNumber(1234567), "1234567");
}

TEST(NumberTextLocale, OfTheStreamsChangesNothing) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    ExpectPointsInText();
    std::locale::global(before);
}

TEST(NumberTextLocale, OfTheProcessChangesNothing) {
    const DecimalCommaLocale locale;
    ExpectPointsInText();
}

} // namespace
