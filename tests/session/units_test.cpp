#include "session/units.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(RoundToDigits, RoundsHalvesUp) {
    EXPECT_EQ(RoundToDigits(2.5, 0), 3.0);
    EXPECT_EQ(RoundToDigits(-2.5, 0), -2.0);
    EXPECT_EQ(RoundToDigits(2.49, 0), 2.0);
    EXPECT_EQ(RoundToDigits(0.125, 2), 0.13);
    EXPECT_EQ(RoundToDigits(-0.125, 2), -0.12);
}

TEST(RoundToDigits, IsDefinedForEveryDigitCountAndNumber) {
    for (const int digits : {std::numeric_limits<int>::min(), -400, 400, std::numeric_limits<int>::max()})
        for (const double x : {0.0, 1.0, -1.0, std::numeric_limits<double>::max(), std::nan("")})
            static_cast<void>(RoundToDigits(x, digits));
}

TEST(Inch14400ToMicrons, GivesTheSizesOfPaperInThousandthsOfAMillimetre) {
    EXPECT_EQ(Inch14400ToMicrons(168378, 2), 297000u);
    EXPECT_EQ(Inch14400ToMicrons(119055, 2), 210000u);
    EXPECT_EQ(Inch14400ToMicrons(238110, 2), 420000u);
    EXPECT_EQ(Inch14400ToMicrons(14400, 2), 25400u);
    EXPECT_EQ(Inch14400ToMicrons(0, 2), 0u);
}

TEST(Inch14400ToMicrons, RoundsToHundredthsOfAMillimetre) {
    // 2 units are 0.003527 mm, 3 are 0.005291 mm.
    EXPECT_EQ(Inch14400ToMicrons(2, 2), 0u);
    EXPECT_EQ(Inch14400ToMicrons(3, 2), 10u);
}

TEST(Inch14400ToMicrons, RoundsToWholeMillimetresWithoutDigits) {
    EXPECT_EQ(Inch14400ToMicrons(168377, 0), 297000u);
    EXPECT_EQ(Inch14400ToMicrons(14400, 0), 25000u);
}

TEST(Inch14400ToMicrons, CutsWhatABinaryHundredthFallsShortOf) {
    // 1140 units are 2.0108 mm; 2.01 times 1000 is 2009.9999999999998.
    EXPECT_EQ(Inch14400ToMicrons(1140, 2), 2009u);
}

TEST(Inch14400ToMicrons, KeepsTheLow32BitsOfALargerResult) {
    // 7575845.09 mm are 7575845090 thousandths.
    EXPECT_EQ(Inch14400ToMicrons(4294967295u, 2), 3280877794u);
}

TEST(Inch14400ToMicrons, IsDefinedForEveryDigitCount) {
    EXPECT_EQ(Inch14400ToMicrons(4294967295u, 400), 0u);
    EXPECT_EQ(Inch14400ToMicrons(4294967295u, std::numeric_limits<int>::max()), 0u);
    EXPECT_EQ(Inch14400ToMicrons(4294967295u, std::numeric_limits<int>::min()), 0u);
}

TEST(MicronsToInch14400, DropsTheRemainder) {
    // 297000 thousandths of a millimetre are 168377.95 units.
    EXPECT_EQ(MicronsToInch14400(297000), 168377u);
    EXPECT_EQ(MicronsToInch14400(210000), 119055u);
    EXPECT_EQ(MicronsToInch14400(420000), 238110u);
    EXPECT_EQ(MicronsToInch14400(5000), 2834u);
    EXPECT_EQ(MicronsToInch14400(0), 0u);
    EXPECT_EQ(MicronsToInch14400(1), 0u);
    EXPECT_EQ(MicronsToInch14400(2), 1u);
}

TEST(MicronsToInch14400, IsNotTheInverse) {
    EXPECT_EQ(Inch14400ToMicrons(168377, 2), 297000u);
    EXPECT_EQ(Inch14400ToMicrons(168378, 2), 297000u);
    EXPECT_EQ(MicronsToInch14400(297000), 168377u);
}

TEST(MicronsToInch14400, KeepsTheLow32BitsBeforeItDivides) {
    // 7575757 * 14400 / 25.4 is 4294917354.33, 7575846 gives 4294967811.02, which is 515 beyond 32 bits.
    EXPECT_EQ(MicronsToInch14400(7575757), 4294917u);
    EXPECT_EQ(MicronsToInch14400(7575846), 0u);
    // 2434942088504 is 0x236EDDBB538, and 0xEDDBB538 is 3990598968.
    EXPECT_EQ(MicronsToInch14400(4294967295u), 3990598u);
}

} // namespace
