#include "pages/finished_size.h"
#include "tests/support/paper_listing.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

struct ListedLayout {
    LayoutRepeat repeat;
    int layout;
    bool isTurned;
    LayoutRepeat becomes;
    std::string heightOf;
    std::uint32_t heightPart;
    std::string widthOf;
    std::uint32_t widthPart;
};

std::vector<ListedLayout> ListedLayouts() {
    std::ifstream file(ZR_TEST_DATA_DIR "/finished_layouts.tsv");
    std::string columns;
    std::getline(file, columns);
    std::vector<ListedLayout> layouts;
    for (ListedLayout row; file >> row.repeat.x >> row.repeat.y >> row.repeat.sheetDirection >> row.layout >>
                           row.isTurned >> row.becomes.x >> row.becomes.y >> row.becomes.sheetDirection >>
                           row.heightOf >> row.heightPart >> row.widthOf >> row.widthPart;)
        layouts.push_back(row);
    return layouts;
}

std::optional<int> OptionOf(const std::string& setting, std::int32_t tag) {
    const std::vector<std::int32_t> tags = ListedTagsOf(setting);
    const auto found = std::ranges::find(tags, tag);
    return found == tags.end() ? std::nullopt : std::optional(static_cast<int>(found - tags.begin()));
}

constexpr std::int32_t kA3 = 1; // 168378 by 238110
constexpr ImpositionSettings kNoImposition{};

ImpositionSettings TwoHalves() {
    return {2, 2, {1, 1, 0}, 0, 0, 0};
}

ImpositionSettings Repeated(const LayoutRepeat& repeat, std::uint32_t finishSheetDirection) {
    return {2, 1, repeat, finishSheetDirection, 0, 0};
}

FinishedSizeChanges Follow(std::int32_t tag, const ImpositionSettings& settings = kNoImposition) {
    return FollowPaperSize(PaperSizes(), {tag, tag, 1}, settings);
}

TEST(PaperSizes, HoldsExactlyTheListedPapers) {
    FinishedSizes listed;
    for (const auto& [tag, row] : ListedPapers())
        listed[tag] = {{row.width, row.height}};
    EXPECT_EQ(listed.size(), 53u);
    EXPECT_EQ(PaperSizes(), listed);
}

TEST(PaperSizes, HasTellingRows) {
    FinishedSizes sizes = PaperSizes();
    using Pair = std::map<std::uint32_t, std::uint32_t>;
    EXPECT_EQ(sizes[1], (Pair{{168378, 238110}}));
    EXPECT_EQ(sizes[2], (Pair{{168378, 119055}}));
    EXPECT_EQ(sizes[30], (Pair{{336756, 238111}}));
    EXPECT_EQ(sizes[68], (Pair{{68032, 133229}}));
    EXPECT_EQ(sizes[121], (Pair{{68032, 133229}}));
}

TEST(PaperSizes, HasNoRowForTheCustomSizeAndSixteenOthersOfTheList) {
    const FinishedSizes sizes = PaperSizes();
    std::set<std::int32_t> without;
    for (const std::int32_t tag : ListedTagsOf("ChgPrintPaperSizeType")) {
        if (!sizes.contains(tag))
            without.insert(tag);
    }
    EXPECT_EQ(without, (std::set<std::int32_t>{0, 9, 20, 21, 58, 59, 60, 80, 81, 120, 134, 135, 137, 145, 146,
                                               148, 185, 228}));
}

TEST(FollowPaperSize, GivesSheetAndPaperOfEveryListedSize) {
    for (const auto& [tag, row] : ListedPapers()) {
        SCOPED_TRACE(tag);
        const FinishedSizeChanges changes = Follow(tag);
        ASSERT_TRUE(changes.sheet);
        EXPECT_EQ(changes.sheet->fixedForm, OptionOf("FixedForm", tag));
        EXPECT_EQ(changes.sheet->sheetWidth, row.width);
        EXPECT_EQ(changes.sheet->sheetHeight, row.height);
        EXPECT_EQ(changes.sheet->paperLengthMicrons, row.widthMicrons);
        EXPECT_EQ(changes.sheet->paperWidthMicrons, row.heightMicrons);
        EXPECT_EQ(changes.sheet->finishFixedForm, 0);
        EXPECT_FALSE(changes.repeat);
        EXPECT_FALSE(changes.finished);
    }
}

TEST(FollowPaperSize, GivesTheLengthTheFirstNumberOfARowAndTheWidthTheSecond) {
    const FinishedSizeChanges changes = Follow(2);
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->paperLengthMicrons, 297000u);
    EXPECT_EQ(changes.sheet->paperWidthMicrons, 210000u);
}

TEST(FollowPaperSize, RoundsTheMillimetresToTwoDecimals) {
    // 8.5 by 14 inch, and one unit more of each: 215.9018 and 355.6018 mm.
    const FinishedSizeChanges changes = Follow(15);
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->paperLengthMicrons, 215900u);
    EXPECT_EQ(changes.sheet->paperWidthMicrons, 355600u);
}

TEST(FollowPaperSize, TakesTheRowOfTagTwoForTagZeroButTheSheetOfTagOne) {
    const FinishedSizeChanges changes = FollowPaperSize(PaperSizes(), {0, 0, 1}, TwoHalves());
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->fixedForm, 0); // tag 1
    EXPECT_EQ(changes.sheet->sheetWidth, 168378u);
    EXPECT_EQ(changes.sheet->sheetHeight, 238110u);
    EXPECT_EQ(changes.sheet->paperLengthMicrons, 297000u);
    EXPECT_EQ(changes.sheet->paperWidthMicrons, 210000u);
    EXPECT_EQ(changes.finished, (FinishedSize{119055, 84189}));
}

TEST(FollowPaperSize, LeavesSheetAndPaperAloneForASizeWithoutARow) {
    for (const std::int32_t tag : {20, 9, 135, 228, -1, 1000000})
        EXPECT_FALSE(Follow(tag).sheet) << tag;
}

TEST(FollowPaperSize, GivesASheetWithoutARowNoSize) {
    const FinishedSizeChanges changes = FollowPaperSize(PaperSizes(), {1, 9, 1}, kNoImposition);
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->sheetWidth, 0u);
    EXPECT_EQ(changes.sheet->sheetHeight, 0u);
    EXPECT_EQ(changes.sheet->fixedForm, std::nullopt);
}

TEST(FollowPaperSize, FindsTheFormByTheLowSixteenBitsOfItsTag) {
    const FinishedSizeChanges changes = FollowPaperSize(PaperSizes(), {1, 0x30003, 1}, kNoImposition);
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->fixedForm, 2); // tag 3
    EXPECT_EQ(changes.sheet->sheetWidth, 0u);
}

TEST(FollowPaperSize, LeavesAFormWithoutAnOptionAlone) {
    // The sizes from 106 up have rows but are no forms.
    const FinishedSizeChanges changes = FollowPaperSize(PaperSizes(), {110, 110, 110}, kNoImposition);
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->fixedForm, std::nullopt);
    EXPECT_EQ(changes.sheet->finishFixedForm, std::nullopt);
    EXPECT_EQ(changes.sheet->sheetWidth, 180284u);
}

TEST(FollowPaperSize, GivesTheFinishedFormOfItsTag) {
    const FinishedSizeChanges changes = FollowPaperSize(PaperSizes(), {1, 1, 104}, kNoImposition);
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->finishFixedForm, 38);
}

TEST(FollowPaperSize, TakesTheLastPairOfARow) {
    const FinishedSizes sizes{{1, {{100, 900}, {300, 200}}}};
    const FinishedSizeChanges changes = FollowPaperSize(sizes, {1, 1, 1}, TwoHalves());
    ASSERT_TRUE(changes.sheet);
    EXPECT_EQ(changes.sheet->sheetWidth, 300u);
    EXPECT_EQ(changes.finished, (FinishedSize{200, 150}));
}

TEST(FollowPaperSize, CountsAnEmptyRowAsNone) {
    EXPECT_FALSE(FollowPaperSize({{1, {}}}, {1, 1, 1}, kNoImposition).sheet);
}

TEST(Imposition, LeavesTheFinishedSizeAloneInAnyOtherMode) {
    for (const std::uint32_t mode : {0u, 1u, 3u, 0xFFFFFFFFu}) {
        ImpositionSettings settings = TwoHalves();
        settings.mode = mode;
        EXPECT_FALSE(Follow(kA3, settings).finished) << mode;
    }
}

TEST(Imposition, LeavesTheFinishedSizeAloneInAnyOtherCustomMode) {
    for (const std::uint32_t customMode : {0u, 3u, 0x10001u, 0xFFFFFFFFu}) {
        ImpositionSettings settings = Repeated({2, 2, 0}, 0);
        settings.customMode = customMode;
        EXPECT_FALSE(Follow(kA3, settings).finished) << customMode;
        EXPECT_FALSE(Follow(kA3, settings).repeat) << customMode;
    }
}

TEST(Imposition, HalvesTheLongSideOfEveryListedSizeForTwoHalves) {
    for (const auto& [tag, row] : ListedPapers()) {
        const FinishedSizeChanges changes = Follow(tag, TwoHalves());
        const std::uint32_t longSide = row.width > row.height ? row.width : row.height;
        const std::uint32_t shortSide = row.width > row.height ? row.height : row.width;
        EXPECT_EQ(changes.finished, (FinishedSize{shortSide, longSide / 2})) << tag;
        EXPECT_FALSE(changes.repeat) << tag;
    }
}

TEST(Imposition, GivesTheExampleOfTwoByTwo) {
    const FinishedSizeChanges changes = Follow(kA3, Repeated({2, 2, 0}, 0));
    EXPECT_EQ(changes.finished, (FinishedSize{119055, 84189}));
    EXPECT_EQ(changes.repeat, (LayoutRepeat{2, 2, 0}));
}

TEST(Imposition, FollowsEveryListedLayoutInBothDirections) {
    const std::vector<ListedLayout> layouts = ListedLayouts();
    ASSERT_EQ(layouts.size(), 20u);
    for (const ListedLayout& row : layouts) {
        SCOPED_TRACE(testing::Message() << row.repeat.x << " by " << row.repeat.y << ", "
                                        << row.repeat.sheetDirection << ", " << row.isTurned);
        EXPECT_EQ(LayoutOf(row.repeat), row.layout);
        for (const std::uint32_t direction :
             row.isTurned ? std::vector<std::uint32_t>{1, 2, 0xFFFFFFFF} : std::vector<std::uint32_t>{0}) {
            const FinishedSizeChanges changes = Follow(kA3, Repeated(row.repeat, direction));
            const std::uint32_t height = (row.heightOf == "long" ? 238110 : 168378) / row.heightPart;
            const std::uint32_t width = (row.widthOf == "long" ? 238110 : 168378) / row.widthPart;
            EXPECT_EQ(changes.finished, (FinishedSize{height, width}));
            EXPECT_EQ(changes.repeat, row.becomes);
        }
    }
}

TEST(Imposition, TakesTheSidesOfALyingPaperAlike) {
    // Tag 30 is 336756 by 238111.
    EXPECT_EQ(Follow(30, Repeated({2, 1, 1}, 0)).finished, (FinishedSize{238111, 168378}));
    EXPECT_EQ(Follow(30, Repeated({8, 4, 1}, 1)).finished, (FinishedSize{59527, 42094}));
}

TEST(Imposition, LeavesAllLayoutValuesAloneForAnyOtherRepeat) {
    std::set<std::array<std::uint32_t, 3>> listed;
    for (const ListedLayout& row : ListedLayouts())
        listed.insert({row.repeat.x, row.repeat.y, row.repeat.sheetDirection});
    ASSERT_EQ(listed.size(), 10u);
    for (std::uint32_t x = 0; x < 12; ++x) {
        for (std::uint32_t y = 0; y < 12; ++y) {
            for (std::uint32_t direction = 0; direction < 4; ++direction) {
                if (listed.contains({x, y, direction}))
                    continue;
                SCOPED_TRACE(testing::Message() << x << " by " << y << ", " << direction);
                const FinishedSizeChanges changes = Follow(kA3, Repeated({x, y, direction}, 0));
                EXPECT_EQ(LayoutOf({x, y, direction}), std::nullopt);
                EXPECT_FALSE(changes.repeat);
                EXPECT_FALSE(changes.finished);
                EXPECT_TRUE(changes.sheet);
            }
        }
    }
}

TEST(Imposition, TakesTheTypedSizeForTheCustomPaper) {
    ImpositionSettings settings = TwoHalves();
    settings.customWidthMicrons = 210000;
    settings.customLengthMicrons = 297000;
    const FinishedSizeChanges changes = Follow(20, settings);
    EXPECT_FALSE(changes.sheet);
    EXPECT_EQ(changes.finished, (FinishedSize{119055, 84189}));
    std::swap(settings.customWidthMicrons, settings.customLengthMicrons);
    EXPECT_EQ(Follow(20, settings).finished, (FinishedSize{119055, 84189}));
}

TEST(Imposition, FinishesAPaperWithoutARowAtNoSize) {
    EXPECT_EQ(Follow(135, TwoHalves()).finished, (FinishedSize{0, 0}));
    const FinishedSizeChanges changes = Follow(135, Repeated({2, 1, 1}, 1));
    EXPECT_EQ(changes.finished, (FinishedSize{0, 0}));
    EXPECT_EQ(changes.repeat, (LayoutRepeat{1, 2, 0}));
}

TEST(PaperLengthFromMicrons, RoundsWhereTheSessionsConversionCuts) {
    EXPECT_EQ(PaperLengthFromMicrons(297000), 168378u); // 168377.95
    EXPECT_EQ(PaperLengthFromMicrons(210000), 119055u); // 119055.12
    EXPECT_EQ(PaperLengthFromMicrons(100000), 56693u);  // 56692.91
    EXPECT_EQ(PaperLengthFromMicrons(25400), 14400u);
    EXPECT_EQ(PaperLengthFromMicrons(1), 1u); // 0.57
    EXPECT_EQ(PaperLengthFromMicrons(0), 0u);
    EXPECT_EQ(PaperLengthFromMicrons(0xFFFFFFFF), 2434942089u); // 2434942088.50
}

TEST(FollowPaperSize, TakesAnyNumbers) {
    std::mt19937 random(5);
    const std::array<std::uint32_t, 12> telling{0,          1,  2,  4,  8,          20,
                                                0x7FFFFFFF, 30, 38, 66, 0x80000000, 0xFFFFFFFF};
    const auto any = [&]() -> std::uint32_t {
        return static_cast<std::uint32_t>(random() % 4 ? telling[random() % telling.size()] : random());
    };
    const FinishedSizes sizes = PaperSizes();
    for (int round = 0; round < 20000; ++round) {
        const PaperTags tags{static_cast<std::int32_t>(any()), static_cast<std::int32_t>(any()),
                             static_cast<std::int32_t>(any())};
        const ImpositionSettings settings{any() % 4, any() % 4, {any(), any(), any()}, any(), any(), any()};
        const FinishedSizeChanges changes = FollowPaperSize(sizes, tags, settings);
        const std::int32_t tag = tags.outputPaperSize == 0 ? 2 : tags.outputPaperSize;
        EXPECT_EQ(changes.sheet.has_value(), sizes.contains(tag));
        if (settings.mode != 2) {
            EXPECT_FALSE(changes.finished);
        }
        if (changes.repeat) {
            EXPECT_TRUE(LayoutOf(*changes.repeat));
        }
    }
}

} // namespace
