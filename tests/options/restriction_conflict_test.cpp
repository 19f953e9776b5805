#include "options/restriction.h"
#include "options/restriction_conflict.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

using enum RestrictionClass;

// What the numbers of the fourteen rows stand for, by hand.
struct ExpectedRow {
    int keyword;
    RestrictionClass kind;
};
const std::array<ExpectedRow, 14> kExpectedRows{{
    {114, Finishing},     // Fold
    {112, Finishing},     // Punch
    {111, Finishing},     // StapleMode
    {104, Media},         // DuplexMode
    {15, Media},          // PaperTypeD
    {25, Media},          // PaperTypeBypass
    {138, SpotColor},     // ColorMode
    {194, SpotColor},     // SpotColorCorrection
    {199, TwoColor},      // TwoColorPressSimulation
    {307, MixedSizesOff}, // MixSizePrint
    {307, MixedSizesOn},  // MixSizePrint
    {12, Imposition},     // ChgPrintPaperSizeType
    {134, Imposition},    // ImpositionMode
    {135, Imposition},    // ImpositionCustomMode
}};

std::vector<int> RowsOf(const RestrictionConflict& conflict) {
    std::vector<int> rows;
    for (int row = 0; row < 32; ++row)
        if (conflict.rows >> row & 1)
            rows.push_back(row);
    return rows;
}

bool TakesPart(int row, const RestrictionValues& values) {
    return RestrictionRows()[static_cast<std::size_t>(row)].takesPart(values);
}

TEST(RestrictionClasses, AreNumberedFrom0To6) {
    EXPECT_EQ(static_cast<int>(Finishing), 0);
    EXPECT_EQ(static_cast<int>(Media), 1);
    EXPECT_EQ(static_cast<int>(SpotColor), 2);
    EXPECT_EQ(static_cast<int>(TwoColor), 3);
    EXPECT_EQ(static_cast<int>(MixedSizesOff), 4);
    EXPECT_EQ(static_cast<int>(MixedSizesOn), 5);
    EXPECT_EQ(static_cast<int>(Imposition), 6);
}

TEST(RestrictionRows, AreTheFourteenInTheirOrder) {
    ASSERT_EQ(RestrictionRows().size(), kExpectedRows.size());
    for (std::size_t row = 0; row < kExpectedRows.size(); ++row) {
        EXPECT_EQ(RestrictionRows()[row].keyword, kExpectedRows[row].keyword) << row;
        EXPECT_EQ(RestrictionRows()[row].kind, kExpectedRows[row].kind) << row;
    }
}

TEST(RestrictionRows, HaveTheKeywordThatTheirNameGivesInTheKeywordTable) {
    for (const RestrictionRow& row : RestrictionRows())
        EXPECT_EQ(FindKeyword(kKeywordNames[static_cast<std::size_t>(row.keyword)]), row.keyword);
}

TEST(RestrictionGroups, AreTheRowsThatTheCallersPass) {
    EXPECT_EQ(restriction_group::Fold, 0);
    EXPECT_EQ(restriction_group::Punch, 1);
    EXPECT_EQ(restriction_group::StapleMode, 2);
    EXPECT_EQ(restriction_group::DuplexMode, 3);
    EXPECT_EQ(restriction_group::PaperTypeD, 4);
    EXPECT_EQ(restriction_group::PaperTypeBypass, 5);
    EXPECT_EQ(restriction_group::ColorMode, 6);
    EXPECT_EQ(restriction_group::ChgPrintPaperSizeType, 11);
}

TEST(RestrictionRows, TakePartAboveZero) {
    const std::array<std::pair<int, std::int32_t RestrictionValues::*>, 10> rows{{
        {0, &RestrictionValues::Fold},
        {2, &RestrictionValues::StapleMode},
        {3, &RestrictionValues::DuplexMode},
        {4, &RestrictionValues::PaperTypeD},
        {5, &RestrictionValues::PaperTypeBypass},
        {6, &RestrictionValues::ColorMode},
        {7, &RestrictionValues::SpotColorCorrection},
        {8, &RestrictionValues::TwoColorPressSimulation},
        {12, &RestrictionValues::ImpositionMode},
        {13, &RestrictionValues::ImpositionCustomMode},
    }};
    for (const auto& [row, member] : rows) {
        for (const std::int32_t value : {1, 2, std::numeric_limits<std::int32_t>::max()}) {
            RestrictionValues values;
            values.*member = value;
            EXPECT_TRUE(TakesPart(row, values)) << row << " " << value;
        }
        for (const std::int32_t value : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
            RestrictionValues values;
            values.*member = value;
            EXPECT_FALSE(TakesPart(row, values)) << row << " " << value;
        }
    }
}

TEST(RestrictionRows, TakePartBelowOneForTheMixSwitchedOffAndThePaperSize) {
    const std::array<std::pair<int, std::int32_t RestrictionValues::*>, 2> rows{
        {{9, &RestrictionValues::MixSizePrint}, {11, &RestrictionValues::ChgPrintPaperSizeType}}};
    for (const auto& [row, member] : rows) {
        for (const std::int32_t value : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
            RestrictionValues values;
            values.*member = value;
            EXPECT_TRUE(TakesPart(row, values)) << row << " " << value;
        }
        for (const std::int32_t value : {1, 2, std::numeric_limits<std::int32_t>::max()}) {
            RestrictionValues values;
            values.*member = value;
            EXPECT_FALSE(TakesPart(row, values)) << row << " " << value;
        }
    }
}

TEST(RestrictionRows, TakePartAboveZeroForTheMixSwitchedOn) {
    EXPECT_TRUE(TakesPart(10, {.MixSizePrint = 1}));
    EXPECT_TRUE(TakesPart(10, {.MixSizePrint = 2}));
    EXPECT_FALSE(TakesPart(10, {.MixSizePrint = 0}));
    EXPECT_FALSE(TakesPart(10, {.MixSizePrint = -1}));
}

TEST(RestrictionRows, TakePartForAPunchWithHoles) {
    for (int holes = 0; holes < 4; ++holes)
        for (int punch = 0; punch < 6; ++punch)
            EXPECT_EQ(TakesPart(1, {.Punch = punch, .PunchHoles = holes}), holes > 0 && punch > 0)
                << holes << " " << punch;
}

TEST(RestrictionRows, TakePartForPunchHoles4AsWhatLiesBehindTheTableSays) {
    EXPECT_TRUE(TakesPart(1, {.Punch = 0, .PunchHoles = 4}));
    EXPECT_FALSE(TakesPart(1, {.Punch = 1, .PunchHoles = 4, .Fold = 0}));
    EXPECT_TRUE(TakesPart(1, {.Punch = 1, .PunchHoles = 4, .Fold = 1}));
    for (int punch = 2; punch < 6; ++punch)
        EXPECT_FALSE(TakesPart(1, {.Punch = punch, .PunchHoles = 4, .Fold = 1})) << punch;
}

TEST(FindRestrictionClass, FindsNothingWithAllSettingsAtZero) {
    EXPECT_EQ(FindRestrictionClass({}), std::nullopt);
}

TEST(FindRestrictionClass, FindsTheFinishingClass) {
    EXPECT_EQ(FindRestrictionClass({.Punch = 1, .Fold = 1}), Finishing);
    EXPECT_EQ(FindRestrictionClass({.StapleMode = 1, .Fold = 1}), Finishing);
    EXPECT_EQ(FindRestrictionClass({.Punch = 2, .StapleMode = 1}), Finishing);
}

TEST(FindRestrictionClass, FindsMixedSizesByEachOfTheThreeFinishers) {
    EXPECT_EQ(FindRestrictionClass({.StapleMode = 5}), MixedSizesOff);
    EXPECT_EQ(FindRestrictionClass({.Punch = 5}), MixedSizesOff);
    EXPECT_EQ(FindRestrictionClass({.Fold = 6}), MixedSizesOff);
    EXPECT_EQ(FindRestrictionClass({.StapleMode = 1, .MixSizePrint = 1}), MixedSizesOn);
    EXPECT_EQ(FindRestrictionClass({.Punch = 1, .MixSizePrint = 1}), MixedSizesOn);
    EXPECT_EQ(FindRestrictionClass({.Fold = 1, .MixSizePrint = 1}), MixedSizesOn);
    EXPECT_EQ(FindRestrictionClass({.StapleMode = 5, .MixSizePrint = 1}), std::nullopt);
    EXPECT_EQ(FindRestrictionClass({.Punch = 5, .MixSizePrint = 1}), std::nullopt);
    EXPECT_EQ(FindRestrictionClass({.Fold = 6, .MixSizePrint = 1}), std::nullopt);
}

TEST(FindRestrictionClass, TakesAMixSizePrintOtherThanZeroForOn) {
    EXPECT_EQ(FindRestrictionClass({.StapleMode = 4, .MixSizePrint = 2}), MixedSizesOn);
    EXPECT_EQ(FindRestrictionClass({.StapleMode = 2, .MixSizePrint = -1}), MixedSizesOn);
}

TEST(FindRestrictionClass, FindsPunchHoles4WithStapleOrFoldAsFinishing) {
    EXPECT_EQ(FindRestrictionClass({.PunchHoles = 4}), std::nullopt);
    EXPECT_EQ(FindRestrictionClass({.PunchHoles = 4, .StapleMode = 1}), Finishing);
    EXPECT_EQ(FindRestrictionClass({.PunchHoles = 4, .Fold = 1}), Finishing);
}

TEST(FindRestrictionClass, FindsNoPaperThatCannotBePrintedOnBothSides) {
    for (int duplex = 0; duplex < 5; ++duplex) {
        for (int paper = 0; paper < 59; ++paper) {
            for (int weight = 0; weight < 12; ++weight) {
                EXPECT_EQ(FindRestrictionClass(
                              {.DuplexMode = duplex, .PaperTypeD = paper, .KW_MEDIATYPEWEIGHT2 = weight}),
                          std::nullopt);
                EXPECT_EQ(
                    FindRestrictionClass(
                        {.DuplexMode = duplex, .PaperTypeBypass = paper, .MediaTypeWeightBypass = weight}),
                    std::nullopt);
            }
        }
    }
}

TEST(FindRestrictionClass, FindsTheColorClasses) {
    EXPECT_EQ(FindRestrictionClass({.SpotColorCorrection = 1}), SpotColor);
    EXPECT_EQ(FindRestrictionClass({.TwoColorPressSimulation = 1}), TwoColor);
    EXPECT_EQ(FindRestrictionClass({.ColorMode = 1, .SpotColorCorrection = 1, .TwoColorPressSimulation = 1}),
              std::nullopt);
}

TEST(FindRestrictionClass, FindsTheImpositionClass) {
    EXPECT_EQ(FindRestrictionClass({.ImpositionMode = 2, .ImpositionCustomMode = 1}), Imposition);
    EXPECT_EQ(FindRestrictionClass({.ImpositionMode = 2, .ImpositionCustomMode = 2}), Imposition);
    EXPECT_EQ(
        FindRestrictionClass({.ChgPrintPaperSizeType = 1, .ImpositionMode = 2, .ImpositionCustomMode = 1}),
        std::nullopt);
}

TEST(FindRestrictionClass, AsksTheTablesInTheirOrder) {
    RestrictionValues values{.Punch = 1,
                             .PunchHoles = 4,
                             .StapleMode = 2,
                             .SpotColorCorrection = 1,
                             .TwoColorPressSimulation = 1,
                             .Fold = 1,
                             .MixSizePrint = 1,
                             .ImpositionMode = 2,
                             .ImpositionCustomMode = 1};
    EXPECT_EQ(FindRestrictionClass(values), Finishing) << "staple, punch and fold first";
    values.Punch = 0;
    values.Fold = 0;
    EXPECT_EQ(FindRestrictionClass(values), MixedSizesOn) << "mixed sizes before PunchHoles 4";
    values.MixSizePrint = 0;
    EXPECT_EQ(FindRestrictionClass(values), Finishing) << "PunchHoles 4";
    values.PunchHoles = 1;
    EXPECT_EQ(FindRestrictionClass(values), SpotColor);
    values.SpotColorCorrection = 0;
    EXPECT_EQ(FindRestrictionClass(values), TwoColor);
    values.TwoColorPressSimulation = 0;
    EXPECT_EQ(FindRestrictionClass(values), Imposition);
    values.ImpositionMode = 0;
    EXPECT_EQ(FindRestrictionClass(values), std::nullopt);
}

TEST(RestrictionValues, TakeEveryWayOfPrintingOnBothSidesForOne) {
    EXPECT_EQ(RestrictionValues{.DuplexMode = 4}.DuplexOfTables(), 1);
    EXPECT_EQ(RestrictionValues{.DuplexMode = 1}.DuplexOfTables(), 1);
    EXPECT_EQ(RestrictionValues{.DuplexMode = 0}.DuplexOfTables(), 0);
    EXPECT_EQ(RestrictionValues{.DuplexMode = -7}.DuplexOfTables(), -7);
    EXPECT_EQ(RestrictionValues{.DuplexMode = 0x7FFFFFFF}.DuplexOfTables(), 1);
}

TEST(FindRestrictionConflict, SpeaksOfPunchForAFoldAcrossIt) {
    const auto conflict = FindRestrictionConflict({.Punch = 1, .PunchHoles = 1, .Fold = 1}, 0);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->kind, Finishing);
    EXPECT_EQ(RowsOf(*conflict), std::vector{1});
    EXPECT_EQ(conflict->other->keyword, keyword::Punch);
    EXPECT_EQ(conflict->own->keyword, keyword::Fold);
}

TEST(FindRestrictionConflict, SpeaksOfTheLastOfSeveralRows) {
    const auto conflict =
        FindRestrictionConflict({.Punch = 1, .PunchHoles = 1, .StapleMode = 1, .Fold = 1}, 0);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(RowsOf(*conflict), (std::vector{1, 2}));
    EXPECT_EQ(conflict->other->keyword, keyword::StapleMode);
}

TEST(FindRestrictionConflict, SpeaksOfTheImpositionCustomModeForThePaperSize) {
    const auto conflict = FindRestrictionConflict({.ImpositionMode = 2, .ImpositionCustomMode = 1}, 11);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(RowsOf(*conflict), (std::vector{12, 13}));
    EXPECT_EQ(conflict->other->keyword, keyword::ImpositionCustomMode);
}

TEST(FindRestrictionConflict, LeavesOutTheCallersOwnRowOnly) {
    const RestrictionValues all{.Punch = 1, .PunchHoles = 1, .StapleMode = 1, .Fold = 1};
    EXPECT_EQ(RowsOf(*FindRestrictionConflict(all, 1)), (std::vector{0, 2}));
    EXPECT_EQ(RowsOf(*FindRestrictionConflict(all, 2)), (std::vector{0, 1}));
    EXPECT_EQ(RowsOf(*FindRestrictionConflict(all, 6)), (std::vector{0, 1, 2}));
}

TEST(FindRestrictionConflict, HasNoOtherForAPunchWithoutHolesAgainstTheStaple) {
    const auto conflict = FindRestrictionConflict({.Punch = 2, .PunchHoles = 0, .StapleMode = 1}, 2);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->kind, Finishing);
    EXPECT_EQ(conflict->rows, 0u);
    EXPECT_EQ(conflict->other, nullptr);
    EXPECT_EQ(conflict->own->keyword, keyword::StapleMode);
}

TEST(FindRestrictionConflict, GivesTheTwoColorClassOnlyItsOneRow) {
    const auto conflict = FindRestrictionConflict({.TwoColorPressSimulation = 1}, 6);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(RowsOf(*conflict), std::vector{8});
}

TEST(FindRestrictionConflict, GivesTheSpotColorClassNoColorModeAtGrayScale) {
    const auto conflict = FindRestrictionConflict({.SpotColorCorrection = 1}, 0);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(RowsOf(*conflict), std::vector{7});
}

TEST(FindRestrictionConflict, FindsTheSameClassForEveryGroup) {
    const RestrictionValues values{.Punch = 1, .PunchHoles = 1, .Fold = 1};
    for (int group = -3; group < 20; ++group) {
        const auto conflict = FindRestrictionConflict(values, group);
        ASSERT_TRUE(conflict) << group;
        EXPECT_EQ(conflict->kind, Finishing) << group;
    }
}

TEST(FindRestrictionConflict, HasNoOwnRowForAGroupThatIsNone) {
    for (const int group :
         {-1, 14, 15, 256, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        const auto conflict = FindRestrictionConflict({.Punch = 1, .PunchHoles = 1, .Fold = 1}, group);
        ASSERT_TRUE(conflict) << group;
        EXPECT_EQ(conflict->own, nullptr) << group;
        EXPECT_EQ(RowsOf(*conflict), (std::vector{0, 1})) << group;
    }
}

TEST(FindRestrictionConflict, HasNoOtherForANegativeMixSizePrint) {
    const auto conflict = FindRestrictionConflict({.StapleMode = 2, .MixSizePrint = -1}, 2);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->kind, MixedSizesOn);
    EXPECT_EQ(conflict->other, nullptr);
}

} // namespace
