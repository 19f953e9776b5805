#include "Common/ProfileInfo.h"
#include "pages/media_paper_types.h"
#include "pages/media_weight_table.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr int kPaperTypeD = 15;
constexpr int kMediaTypeWeight = 16;
constexpr int kPaperTypeBypass = 25;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

struct Row {
    int paperType;
    int first;
    int end;
    int defaultRow;
};

constexpr Row kRows[] = {
    {0, 0, 12, 2},  {1, 0, 12, 2},  {2, 0, 12, 2},  {3, 0, 12, 2},  {4, 0, 12, 2},  {5, 1, 4, 2},
    {6, 0, 0, 0},   {7, 4, 12, 4},  {8, 4, 12, 4},  {9, 4, 12, 4},  {10, 4, 12, 4}, {11, 0, 0, 0},
    {12, 0, 12, 2}, {13, 0, 12, 2}, {14, 4, 12, 4}, {15, 0, 12, 2},
};

TEST(WeightRows, AreThoseOfEachPaperTypeThatHasAWeight) {
    for (const Row& row : kRows)
        EXPECT_EQ(WeightRowsOf(row.paperType), (WeightRows{row.first, row.end, row.defaultRow}))
            << row.paperType;
}

TEST(WeightRows, AreEmptyForPaperTypes16To58) {
    for (int paperType = 16; paperType <= 58; ++paperType) {
        EXPECT_TRUE(WeightRowsOf(paperType).IsEmpty()) << paperType;
        EXPECT_EQ(WeightRowsOf(paperType), (WeightRows{0, 0, 0})) << paperType;
    }
}

TEST(WeightRows, AreEmptyForANumberThatIsNoPaperType) {
    for (const int paperType : {-1, -2, kSmallest, 59, 60, 0x10000, kLargest})
        EXPECT_EQ(WeightRowsOf(paperType), (WeightRows{0, 0, 0})) << paperType;
}

TEST(ChosenWeight, IsTheCurrentOneFromTheFirstRowToTheLast) {
    for (const int weight : {1, 2, 3})
        EXPECT_EQ(ChooseWeight({1, 4, 2}, static_cast<std::uint32_t>(weight)), weight);
    for (int weight = 0; weight < 12; ++weight)
        EXPECT_EQ(ChooseWeight({0, 12, 2}, static_cast<std::uint32_t>(weight)), weight);
}

TEST(ChosenWeight, IsTheDefaultBelowTheFirstRow) {
    EXPECT_EQ(ChooseWeight({1, 4, 2}, 0), 2);
    EXPECT_EQ(ChooseWeight({4, 12, 4}, 3), 4);
}

TEST(ChosenWeight, IsTheDefaultFromTheEndOn) {
    EXPECT_EQ(ChooseWeight({1, 4, 2}, 4), 2);
    EXPECT_EQ(ChooseWeight({1, 4, 2}, 8), 2);
    EXPECT_EQ(ChooseWeight({4, 12, 4}, 12), 4);
}

TEST(ChosenWeight, IsTheDefaultForANumberOfMoreThan16Bits) {
    for (const std::uint32_t weight : {0x10002u, 0x80000002u, 0xFFFFFFFFu})
        EXPECT_EQ(ChooseWeight({1, 4, 2}, weight), 2) << weight;
}

TEST(PaperTypeRows, AreThePaperTypesThemselves) {
    for (int paperType = 0; paperType < 59; ++paperType) {
        EXPECT_EQ(RowOfPaperType(static_cast<std::uint32_t>(paperType)), paperType);
        EXPECT_EQ(PaperTypeOfRow(paperType), paperType);
    }
}

TEST(PaperTypeRows, AreMissingForANumberThatIsNoPaperType) {
    for (const std::uint32_t paperType :
         {59u, 60u, 0x10000u, 0x10005u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_EQ(RowOfPaperType(paperType), std::nullopt) << paperType;
}

TEST(PaperTypeRows, StandForNoPaperTypeBeyondTheTable) {
    for (const int row : {-1, kSmallest, 59, 60, kLargest})
        EXPECT_EQ(PaperTypeOfRow(row), std::nullopt) << row;
}

class CustomPaperRows : public testing::Test {
  protected:
    CustomPaperRows() {
        profile.InitProfile();
        for (std::size_t row = 0; row < rows.size(); ++row)
            rows[row] = "row " + std::to_string(row);
        untouched = rows;
    }

    // Slot 29 holds the name of the first custom paper.
    void Name(std::size_t number, const std::string& name) { profile.m_Item[29 + number].value = name; }

    CProfileInfo profile;
    std::vector<std::string> rows = std::vector<std::string>(59);
    std::vector<std::string> untouched;
};

TEST_F(CustomPaperRows, StartWithTheRowOfTag9) {
    Name(0, "Linen");
    for (const int keyword : {kPaperTypeD, kPaperTypeBypass}) {
        rows = untouched;
        PutCustomPaperNames(rows, keyword, 20, profile);
        EXPECT_EQ(rows[22], "Linen") << keyword;
        rows[22] = "row 22";
        EXPECT_EQ(rows, untouched) << keyword;
    }
}

TEST_F(CustomPaperRows, AreTwenty) {
    for (std::size_t number = 0; number < 30; ++number)
        Name(number, "name " + std::to_string(number));
    PutCustomPaperNames(rows, kPaperTypeD, 20, profile);
    for (std::size_t row = 0; row < 59; ++row)
        EXPECT_EQ(rows[row], row < 22 || row > 41 ? untouched[row] : "name " + std::to_string(row - 22))
            << row;
}

TEST_F(CustomPaperRows, KeepTheirTextWhereTheDeviceHasNoName) {
    Name(1, "Cotton");
    Name(3, "Felt");
    PutCustomPaperNames(rows, kPaperTypeD, 20, profile);
    untouched[23] = "Cotton";
    untouched[25] = "Felt";
    EXPECT_EQ(rows, untouched);
}

TEST_F(CustomPaperRows, EndWithTheList) {
    for (std::size_t number = 0; number < 20; ++number)
        Name(number, "name " + std::to_string(number));
    for (const std::size_t count : {0u, 1u, 22u, 23u, 25u}) {
        rows.assign(count, "row");
        PutCustomPaperNames(rows, kPaperTypeD, 20, profile);
        ASSERT_EQ(rows.size(), count);
        for (std::size_t row = 0; row < count; ++row)
            EXPECT_EQ(rows[row], row < 22 ? "row" : "name " + std::to_string(row - 22)) << count;
    }
}

TEST_F(CustomPaperRows, AreNoneForASettingThatHasNotTag9) {
    constexpr int kDuplexMode = 104;
    Name(0, "Linen");
    PutCustomPaperNames(rows, kDuplexMode, 20, profile);
    EXPECT_EQ(rows, untouched);
}

TEST_F(CustomPaperRows, AreNoneIfNoneAreAskedFor) {
    Name(0, "Linen");
    for (const int count : {0, -1, kSmallest}) {
        PutCustomPaperNames(rows, kPaperTypeD, count, profile);
        EXPECT_EQ(rows, untouched) << count;
    }
}

// Of more names than the profile has, those that it refuses leave their rows alone.
TEST_F(CustomPaperRows, KeepTheirTextBeyondTheProfilesTable) {
    rows.assign(200, "row");
    PutCustomPaperNames(rows, kPaperTypeD, kLargest, profile);
    for (std::size_t row = 22 + 120; row < rows.size(); ++row)
        EXPECT_EQ(rows[row], "row") << row;
}

// The weights' own tags hold a 9 as well: the rows go by the setting that is asked for.
TEST_F(CustomPaperRows, GoByTheTagsOfTheSettingThatIsAskedFor) {
    Name(0, "Linen");
    PutCustomPaperNames(rows, kMediaTypeWeight, 1, profile);
    untouched[8] = "Linen";
    EXPECT_EQ(rows, untouched);
}

} // namespace
