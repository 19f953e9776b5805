#include "pages/giving_way.h"

#include "options/restriction.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "tests/support/bank_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using namespace keyword;
namespace group = restriction_group;

constexpr std::uint32_t kCurrent = 5;
constexpr std::uint32_t kDefault = 3;
constexpr int kItems = 341;

class GivingWay : public testing::Test {
  protected:
    GivingWay() {
        ExportedFunc_InitializeDataManager();
        for (int item = 0; item < kItems; ++item) {
            ExportedFunc_SetCurrent(item, kCurrent);
            ExportedFunc_SetDefault(item, kDefault);
        }
    }

    static std::vector<int> Changed() {
        std::vector<int> changed;
        for (int item = 0; item < kItems; ++item)
            if (Current(item) != kCurrent)
                changed.push_back(item);
        return changed;
    }
};

struct Row {
    int group;
    int keyword;
    GaveWay result;
    std::vector<int> changed;
};

TEST_F(GivingWay, IsEachRowsOwn) {
    using enum GaveWay;
    const std::vector<Row> rows{
        {group::ColorMode, SpotColorCorrection, Other, {SpotColorCorrection}},
        {group::ColorMode, TwoColorPressSimulation, Other, {TwoColorPressSimulation}},
        {group::ColorMode, Punch, Nothing, {}},
        {group::ColorMode, StapleMode, Nothing, {}},
        {group::ColorMode, Fold, Nothing, {}},
        {group::ColorMode, MixSizePrint, Nothing, {}},
        {group::ColorMode, PaperTypeD, Nothing, {}},
        {group::DuplexMode, PaperTypeD, Other, {PaperTypeD}},
        {group::DuplexMode, PaperTypeBypass, Other, {PaperTypeBypass}},
        {group::DuplexMode, 336, Other, {336}},
        {group::DuplexMode, 339, Other, {339}},
        {group::DuplexMode, MixSizePrint, Other, {MixSizePrint}},
        {group::DuplexMode, Punch, Other, {Punch}},
        {group::StapleMode, Punch, Other, {Punch, PunchHoles}},
        {group::StapleMode, Fold, Other, {Fold}},
        {group::StapleMode, MixSizePrint, Own, {}},
        {group::StapleMode, SpotColorCorrection, Other, {SpotColorCorrection}},
        {group::Punch, StapleMode, Other, {StapleMode}},
        {group::Punch, Fold, Other, {Fold}},
        {group::Punch, MixSizePrint, Own, {}},
        {group::Punch, ImpositionMode, Other, {ImpositionMode}},
        {group::Fold, StapleMode, Other, {StapleMode}},
        {group::Fold, Punch, Other, {Punch, PunchHoles}},
        {group::Fold, MixSizePrint, Own, {}},
        {group::Fold, SpotColorCorrection, Nothing, {}},
        {group::Fold, PaperTypeD, Nothing, {}},
        {group::PaperTypeD, Punch, Other, {Punch}},
        {group::PaperTypeD, MixSizePrint, Other, {MixSizePrint}},
        {group::PaperTypeBypass, Fold, Other, {Fold}},
        {group::PaperTypeBypass, MixSizePrint, Other, {MixSizePrint}},
        {group::ChgPrintPaperSizeType, Punch, Nothing, {}},
        {-1, Punch, Nothing, {}},
    };
    for (const Row& row : rows) {
        for (int item = 0; item < kItems; ++item)
            ExportedFunc_SetCurrent(item, kCurrent);
        EXPECT_EQ(GiveWayTo(row.group, row.keyword), row.result) << row.group << ' ' << row.keyword;
        auto expected = row.changed;
        std::ranges::sort(expected);
        EXPECT_EQ(Changed(), expected) << row.group << ' ' << row.keyword;
    }
}

TEST_F(GivingWay, IsToTheDefault) {
    for (const auto& [row, keyword] : {std::pair{group::ColorMode, TwoColorPressSimulation},
                                       {group::DuplexMode, PaperTypeD},
                                       {group::StapleMode, Fold},
                                       {group::Punch, StapleMode},
                                       {group::Fold, StapleMode}}) {
        GiveWayTo(row, keyword);
        EXPECT_EQ(Current(keyword), kDefault) << row;
    }
    GiveWayTo(group::StapleMode, Punch);
    EXPECT_EQ(Current(Punch), kDefault);
    EXPECT_EQ(Current(PunchHoles), kDefault);
}

TEST_F(GivingWay, OfTheSpotColourIsOffWhateverItsDefault) {
    GiveWayTo(group::ColorMode, SpotColorCorrection);
    EXPECT_EQ(Current(SpotColorCorrection), 0u);
}

// The grams of a paper stand in the store as a named value too.
TEST_F(GivingWay, OfAPaperWeightToDuplexSetsItsNamedValue) {
    ExportedFunc_SetMediaTypeWeightValue(90);
    ExportedFunc_SetDefault(336, 81);
    GiveWayTo(group::DuplexMode, 336);
    std::uint32_t weight = 0;
    ExportedFunc_GetMediaTypeWeightValue(&weight);
    EXPECT_EQ(weight, 81u);
    EXPECT_EQ(Current(336), 81u);
}

TEST_F(GivingWay, OfABypassPaperWeightToDuplexSetsItsNamedValueToTheDefaultOfTheWeightClass) {
    ExportedFunc_SetMediaTypeWeightValueBypass(90);
    ExportedFunc_SetDefault(339, 81);
    ExportedFunc_SetDefault(26, 7);
    GiveWayTo(group::DuplexMode, 339);
    std::uint32_t weight = 0;
    ExportedFunc_GetMediaTypeWeightValueBypass(&weight);
    EXPECT_EQ(weight, 7u);
    EXPECT_EQ(Current(339), 81u);
    EXPECT_EQ(Current(26), kCurrent);
}

TEST_F(GivingWay, OfAPaperWeightToAnotherRowLeavesTheNamedValues) {
    ExportedFunc_SetMediaTypeWeightValue(90);
    GiveWayTo(group::StapleMode, 336);
    std::uint32_t weight = 0;
    ExportedFunc_GetMediaTypeWeightValue(&weight);
    EXPECT_EQ(weight, 90u);
}

} // namespace
