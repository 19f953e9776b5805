#include "options/restriction_tables.h"

#include "tests/options/restriction_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using namespace restriction_table;

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

std::string FinishingRow(int fold, int staple) {
    std::string flags;
    for (int punch = 0; punch < 7; ++punch)
        flags += FinishingConflictTable(fold, staple, punch) ? '1' : '0';
    return flags;
}

TEST(FinishingConflictTable, HoldsAll1694Entries) {
    const auto& expected = restriction_rules::FinishingTable();
    std::size_t flat = 0;
    for (int fold = 0; fold < 11; ++fold)
        for (int staple = 0; staple < 22; ++staple)
            for (int punch = 0; punch < 7; ++punch)
                EXPECT_EQ(FinishingConflictTable(fold, staple, punch), expected[flat++])
                    << fold << " " << staple << " " << punch;
}

TEST(FinishingConflictTable, HasTheFlagsOfTheUnfoldedBlock) {
    const std::array<const char*, 22> rows{"000000", "001010", "010010", "001100", "010100", "000000",
                                           "011010", "011100", "001110", "010110", "000000", "011110",
                                           "011010", "011100", "011010", "011100", "001110", "010110",
                                           "011010", "011100", "001110", "010110"};
    for (int staple = 0; staple < 22; ++staple)
        EXPECT_EQ(FinishingRow(0, staple), std::string(rows[static_cast<std::size_t>(staple)]) + "0")
            << staple;
}

TEST(FinishingConflictTable, HasOneBlockForSevenFolds) {
    for (const int fold : {1, 2, 3, 7, 8, 9, 10}) {
        EXPECT_EQ(FinishingRow(fold, 0), "0111100") << fold;
        EXPECT_EQ(FinishingRow(fold, 5), "0000000") << fold;
        EXPECT_EQ(FinishingRow(fold, 10), "0000000") << fold;
        for (const int staple : {1, 2, 3, 4, 6, 7, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21})
            EXPECT_EQ(FinishingRow(fold, staple), "1111100") << fold << " " << staple;
    }
}

TEST(FinishingConflictTable, HasTheFlagsOfFolds4And5) {
    const std::array<const char*, 22> fold4{"010100", "111110", "010110", "011100", "010100", "000000",
                                            "111110", "011100", "111110", "010110", "000000", "111110",
                                            "111110", "111110", "111110", "011100", "111110", "010110",
                                            "111110", "011100", "111110", "010110"};
    const std::array<const char*, 22> fold5{"001010", "001010", "011010", "001110", "111110", "000000",
                                            "011010", "111110", "001110", "111110", "000000", "111110",
                                            "111110", "111110", "011010", "111110", "001110", "111110",
                                            "011010", "111110", "001110", "111110"};
    for (int staple = 0; staple < 22; ++staple) {
        const auto row = static_cast<std::size_t>(staple);
        EXPECT_EQ(FinishingRow(4, staple), std::string(fold4[row]) + "0") << staple;
        EXPECT_EQ(FinishingRow(5, staple), std::string(fold5[row]) + "0") << staple;
    }
}

TEST(FinishingConflictTable, HasNoConflictForFold6) {
    for (int staple = 0; staple < 22; ++staple)
        EXPECT_EQ(FinishingRow(6, staple), "0000000") << staple;
}

TEST(FinishingConflictTable, GivesTheSecondAndThirdSaddleThePatternOfTwoTopAndTwoBottom) {
    EXPECT_EQ(FinishingRow(0, 11), "0111100");
    EXPECT_EQ(FinishingRow(0, 12), FinishingRow(0, 6));
    EXPECT_EQ(FinishingRow(0, 13), FinishingRow(0, 7));
}

TEST(FinishingConflictTable, ReadsByFlatIndexWithinAndZeroOutside) {
    const auto& expected = restriction_rules::FinishingTable();
    for (int flat = -2000; flat < 4000; ++flat) {
        const bool inside = flat >= 0 && flat < 1694;
        const bool entry = inside && expected[static_cast<std::size_t>(flat)];
        EXPECT_EQ(FinishingConflictTable(0, 0, flat), entry) << flat;
        EXPECT_EQ(FinishingConflictTable(1, -22, flat), entry) << flat;
        EXPECT_EQ(FinishingConflictTable(-1, 21, flat + 7), entry) << flat;
        EXPECT_EQ(FinishingConflictTable(0, -3, flat + 21), entry) << flat;
    }
}

TEST(FinishingConflictTable, ReadsColumn0OfTheNextRowForPunch7) {
    EXPECT_TRUE(FinishingConflictTable(1, 0, 7));   // two rows on: Fold 1, StapleMode 1, Punch 0
    EXPECT_FALSE(FinishingConflictTable(0, 0, 7));  // Fold 0, StapleMode 1, Punch 0
    EXPECT_FALSE(FinishingConflictTable(0, 21, 7)); // Fold 1, StapleMode 0, Punch 0
    EXPECT_FALSE(FinishingConflictTable(10, 21, 7)) << "behind the table";
}

TEST(StapleMixTable, HoldsAll44Entries) {
    for (int staple = 0; staple < 22; ++staple) {
        const bool mixed = staple == 5 || staple == 10;
        EXPECT_EQ(StapleMixTable(staple, 0), mixed) << staple;
        EXPECT_EQ(StapleMixTable(staple, 1), !mixed && staple != 0) << staple;
    }
}

TEST(PunchMixTable, HoldsAll16Entries) {
    const std::array<bool, 8> off{false, false, false, false, false, true, false, false};
    const std::array<bool, 8> on{false, true, true, true, true, false, true, false};
    for (int punch = 0; punch < 8; ++punch) {
        EXPECT_EQ(PunchMixTable(punch, 0), off[static_cast<std::size_t>(punch)]) << punch;
        EXPECT_EQ(PunchMixTable(punch, 1), on[static_cast<std::size_t>(punch)]) << punch;
    }
}

TEST(FoldMixTable, HoldsAll24Entries) {
    for (int fold = 0; fold < 12; ++fold) {
        EXPECT_EQ(FoldMixTable(fold, 0), fold == 6) << fold;
        EXPECT_EQ(FoldMixTable(fold, 1), (fold >= 1 && fold <= 5) || (fold >= 7 && fold <= 10)) << fold;
    }
}

TEST(MixTables, ReadByFlatIndexWithinAndZeroOutside) {
    for (int flat = -50; flat < 100; ++flat) {
        const bool inside = flat >= 0;
        EXPECT_EQ(StapleMixTable(0, flat), inside && flat < 44 && StapleMixTable(flat / 2, flat % 2)) << flat;
        EXPECT_EQ(PunchMixTable(0, flat), inside && flat < 16 && PunchMixTable(flat / 2, flat % 2)) << flat;
        EXPECT_EQ(FoldMixTable(0, flat), inside && flat < 24 && FoldMixTable(flat / 2, flat % 2)) << flat;
    }
    EXPECT_TRUE(StapleMixTable(4, 2)) << "StapleMode 5 with MixSizePrint 0";
    EXPECT_TRUE(StapleMixTable(2, -1)) << "StapleMode 1 with MixSizePrint 1";
    EXPECT_FALSE(StapleMixTable(22, 0));
    EXPECT_FALSE(PunchMixTable(8, 0));
    EXPECT_FALSE(FoldMixTable(12, 0));
    EXPECT_FALSE(StapleMixTable(0, -1));
}

TEST(HolesConflictTable, HoldsAll1210Entries) {
    for (int fold = 0; fold < 11; ++fold)
        for (int staple = 0; staple < 22; ++staple)
            for (int holes = 0; holes < 5; ++holes)
                EXPECT_EQ(HolesConflictTable(fold, staple, holes), holes == 4 && (fold > 0 || staple > 0))
                    << fold << " " << staple << " " << holes;
}

TEST(HolesConflictTable, ReadsByFlatIndexWithinAndZeroOutside) {
    for (int flat = -300; flat < 2000; ++flat) {
        const bool entry = flat > 4 && flat < 1210 && flat % 5 == 4;
        EXPECT_EQ(HolesConflictTable(0, 0, flat), entry) << flat;
        EXPECT_EQ(HolesConflictTable(1, -22, flat), entry) << flat;
    }
}

TEST(MediaConflictTable, HoldsNoConflictWithinOrOutsideIts1188Entries) {
    for (int duplex = -1; duplex < 3; ++duplex)
        for (int paper = -1; paper < 60; ++paper)
            for (int weight = -1; weight < 13; ++weight)
                EXPECT_FALSE(MediaConflictTable(duplex, paper, weight))
                    << duplex << " " << paper << " " << weight;
}

TEST(ColorTables, ConflictOnlyForGrayScaleWithTheOtherSettingOn) {
    for (const auto table : {SpotColorConflictTable, TwoColorConflictTable}) {
        EXPECT_FALSE(table(0, 0));
        EXPECT_TRUE(table(0, 1));
        EXPECT_FALSE(table(1, 0));
        EXPECT_FALSE(table(1, 1));
    }
}

TEST(ColorTables, ReadByFlatIndexWithinAndZeroOutside) {
    for (const auto table : {SpotColorConflictTable, TwoColorConflictTable}) {
        for (int color = -5; color < 6; ++color)
            for (int setting = -9; setting < 10; ++setting)
                EXPECT_EQ(table(color, setting), 2 * color + setting == 1) << color << " " << setting;
        EXPECT_TRUE(table(1, -1));
    }
}

TEST(ImpositionConflictTable, HoldsAll450Entries) {
    for (int size = 0; size < 50; ++size)
        for (int mode = 0; mode < 3; ++mode)
            for (int custom = 0; custom < 3; ++custom)
                EXPECT_EQ(ImpositionConflictTable(size, mode, custom), size == 0 && mode == 2 && custom != 0)
                    << size << " " << mode << " " << custom;
}

TEST(ImpositionConflictTable, ReadsByFlatIndexWithinAndZeroOutside) {
    for (int flat = -20; flat < 600; ++flat) {
        EXPECT_EQ(ImpositionConflictTable(0, 0, flat), flat == 7 || flat == 8) << flat;
        EXPECT_EQ(ImpositionConflictTable(1, -3, flat), flat == 7 || flat == 8) << flat;
    }
    EXPECT_FALSE(ImpositionConflictTable(50, 2, 1));
}

TEST(PunchComboTable, HoldsAll24Entries) {
    const int expected[4][6]{
        {0, 0, 0, 0, 0, 0}, {0, 1, 2, 3, 4, 13}, {0, 5, 6, 7, 8, 14}, {0, 9, 10, 11, 12, 15}};
    for (int holes = 0; holes < 4; ++holes)
        for (int punch = 0; punch < 6; ++punch)
            for (const int fold : {0, 1})
                EXPECT_EQ(PunchComboTable(holes, punch, fold), expected[holes][punch])
                    << holes << " " << punch;
}

TEST(PunchComboTable, FlagsPunch0ForPunchHoles4) {
    EXPECT_GT(PunchComboTable(4, 0, 0), 0);
    EXPECT_GT(PunchComboTable(4, 0, 1), 0);
}

TEST(PunchComboTable, FlagsPunch1ForPunchHoles4OnlyIfFolded) {
    EXPECT_EQ(PunchComboTable(4, 1, 0), 0);
    EXPECT_EQ(PunchComboTable(4, 1, -1), 0);
    EXPECT_GT(PunchComboTable(4, 1, 1), 0);
    EXPECT_GT(PunchComboTable(4, 1, 10), 0);
}

TEST(PunchComboTable, FlagsNoOtherPunchForPunchHoles4) {
    for (int punch = 2; punch < 40; ++punch)
        EXPECT_EQ(PunchComboTable(4, punch, 1), 0) << punch;
}

TEST(PunchComboTable, ReadsByFlatIndexWithinAndZeroOutside) {
    EXPECT_EQ(PunchComboTable(0, 7, 0), 1);
    EXPECT_EQ(PunchComboTable(1, 11, 0), 14);
    EXPECT_EQ(PunchComboTable(2, -1, 0), 13);
    EXPECT_EQ(PunchComboTable(4, -1, 0), 15);
    EXPECT_GT(PunchComboTable(3, 6, 0), 0) << "the place of PunchHoles 4, Punch 0";
    EXPECT_EQ(PunchComboTable(-1, 0, 1), 0);
    EXPECT_EQ(PunchComboTable(0, -1, 1), 0);
    EXPECT_EQ(PunchComboTable(5, 0, 1), 0);
}

TEST(RestrictionTables, HoldZeroForTheFarthestIndices) {
    for (const std::int32_t a : {kLowest, kHighest}) {
        for (const std::int32_t b : {kLowest, 0, kHighest}) {
            for (const std::int32_t c : {kLowest, 0, kHighest}) {
                EXPECT_FALSE(FinishingConflictTable(a, b, c)) << a << " " << b << " " << c;
                EXPECT_FALSE(HolesConflictTable(a, b, c)) << a << " " << b << " " << c;
                EXPECT_FALSE(MediaConflictTable(a, b, c)) << a << " " << b << " " << c;
                EXPECT_FALSE(ImpositionConflictTable(a, b, c)) << a << " " << b << " " << c;
                EXPECT_EQ(PunchComboTable(a, b, c), 0) << a << " " << b << " " << c;
            }
            EXPECT_FALSE(StapleMixTable(a, b)) << a << " " << b;
            EXPECT_FALSE(PunchMixTable(a, b)) << a << " " << b;
            EXPECT_FALSE(FoldMixTable(a, b)) << a << " " << b;
            EXPECT_FALSE(SpotColorConflictTable(a, b)) << a << " " << b;
            EXPECT_FALSE(TwoColorConflictTable(a, b)) << a << " " << b;
        }
    }
}

} // namespace
