#include "pages/punch_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<std::string> Listing(PunchTable& table) {
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < 16; ++row)
        texts.push_back(table.TakeRowText(row));
    return texts;
}

std::vector<std::pair<int, int>> Pairs(const PunchTable& table) {
    std::vector<std::pair<int, int>> pairs;
    for (const PunchRow& row : table.Rows())
        pairs.emplace_back(row.punch, row.holes);
    return pairs;
}

TEST(PunchTable, HoldsSixteenPairsInTheOrderOfTheControlsRows) {
    const std::vector<std::pair<int, int>> expected{{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1},  {13, 1},
                                                    {1, 2}, {2, 2}, {3, 2}, {4, 2}, {13, 2}, {1, 3},
                                                    {2, 3}, {3, 3}, {4, 3}, {13, 3}};
    EXPECT_EQ(Pairs(PunchTable{}), expected);
}

TEST(PunchTable, HoldsFiveInPlaceOfThirteenForGoodAfterTheFirstListing) {
    PunchTable table;
    Listing(table);
    const std::vector<std::pair<int, int>> expected{{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1},
                                                    {1, 2}, {2, 2}, {3, 2}, {4, 2}, {5, 2}, {1, 3},
                                                    {2, 3}, {3, 3}, {4, 3}, {5, 3}};
    EXPECT_EQ(Pairs(table), expected);
}

TEST(PunchTable, NamesTheSideAndTheHoles) {
    PunchTable table;
    const std::vector<std::string> expected{"しない",          "左2穴", "右2穴", "上2穴", "下2穴",
                                            "2穴(サイズ混在)", "左3穴", "右3穴", "上3穴", "下3穴",
                                            "3穴(サイズ混在)", "左4穴", "右4穴", "上4穴", "下4穴",
                                            "4穴(サイズ混在)"};
    EXPECT_EQ(Listing(table), expected);
}

TEST(PunchTable, PutsTheHolesInFrontOfMixedSizes) {
    PunchTable table;
    EXPECT_EQ(table.TakeRowText(5), "2穴(サイズ混在)");
}

TEST(PunchTable, NamesNoHolesWhereNothingIsPunched) {
    PunchTable table;
    EXPECT_EQ(table.TakeRowText(0), "しない");
}

TEST(PunchTable, ListsTheTextOfFiveTheSecondTime) {
    PunchTable table;
    const auto first = Listing(table);
    EXPECT_EQ(Listing(table), first);
    EXPECT_EQ(table.Rows()[10].punch, 5);
}

TEST(PunchTable, HasNoTextBeyondItsRows) {
    PunchTable table;
    EXPECT_EQ(table.TakeRowText(16), "");
    EXPECT_EQ(table.TakeRowText(static_cast<std::size_t>(-1)), "");
}

TEST(PunchTable, IsOnePerProcess) {
    EXPECT_EQ(&ProcessPunchTable(), &ProcessPunchTable());
}

TEST(PunchControlRow, FollowsBothSettings) {
    // Of Punch across and PunchHoles down.
    constexpr std::uint32_t kRows[5][6] = {
        {0, 0, 0, 0, 0, 0},      {0, 1, 2, 3, 4, 5},     {0, 6, 7, 8, 9, 10},
        {0, 11, 12, 13, 14, 15}, {0, 16, 17, 18, 19, 0},
    };
    for (std::uint32_t holes = 0; holes < 5; ++holes) {
        for (std::uint32_t punch = 0; punch < 6; ++punch)
            EXPECT_EQ(PunchControlRow(punch, holes), kRows[holes][punch]) << punch << " " << holes;
    }
}

TEST(PunchControlRow, IsNoneBeyondTheTable) {
    for (const std::uint32_t beyond : {22u, 65535u, 0x10000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(PunchControlRow(beyond, 1), std::nullopt);
        EXPECT_EQ(PunchControlRow(1, beyond), std::nullopt);
        EXPECT_EQ(PunchControlRow(beyond, beyond), std::nullopt);
    }
    EXPECT_EQ(PunchControlRow(6, 1), std::nullopt);
    EXPECT_EQ(PunchControlRow(1, 5), std::nullopt);
}

} // namespace
