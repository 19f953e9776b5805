// Every pair of values of every two settings that take part in a restriction, from each caller's row.
#include "tests/options/restriction_walk.h"

#include "options/PrintOptionSetting.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace keyword;
using enum WalkOutcome;
using option_item::KW_MEDIATYPEWEIGHT2;

constexpr std::int32_t kFarOut = 0x7FFFFFFF;

struct Setting {
    int item;
    int options; // of its list
    // A few of the values: the ends, the options for mixed sizes, and what lies outside.
    std::vector<std::int32_t> telling;
};

// All that the checks read.
const std::vector<Setting> kSettings{
    {Punch, 6, {-1, 0, 1, 2, 5, 6, 13}},
    {PunchHoles, 4, {-1, 0, 1, 3, 4}},
    {StapleMode, 22, {-1, 0, 1, 5, 10, 11, 22}},
    {DuplexMode, 5, {-1, 0, 1, 4}},
    {PaperTypeD, 59, {0, 58}},
    {KW_MEDIATYPEWEIGHT2, 12, {0, 11}},
    {ColorMode, 2, {-1, 0, 1, 2}},
    {SpotColorCorrection, 2, {-1, 0, 1, 2}},
    {TwoColorPressSimulation, 2, {-1, 0, 1, 2}},
    {Fold, 11, {-1, 0, 1, 4, 5, 6, 11}},
    {MixSizePrint, 2, {-1, 0, 1, 2}},
    {ChgPrintPaperSizeType, 50, {-1, 0, 1, 49}},
    {ImpositionMode, 3, {-1, 0, 1, 2, 3}},
    {ImpositionCustomMode, 3, {-1, 0, 1, 2, 3}},
    {AutoTraySettingToBypass, 2, {0, 1}},
    {PaperTypeBypass, 59, {0, 58}},
    {MediaTypeWeightBypass, 12, {0, 11}},
};

using Values = std::vector<SettingValue>;

// Every option, the number behind the last one, one far out, and the telling ones outside the list.
Values AllValues(const Setting& setting) {
    Values values;
    for (int option = 0; option <= setting.options; ++option)
        values.push_back({setting.item, option});
    for (const std::int32_t value : setting.telling)
        if (value < 0 || value > setting.options)
            values.push_back({setting.item, value});
    values.push_back({setting.item, kFarOut});
    return values;
}

Values TellingValues(const Setting& setting) {
    Values values;
    for (const std::int32_t value : setting.telling)
        values.push_back({setting.item, value});
    return values;
}

// An old setting at 0 is none.
Values TellingValuesButZero(const Setting& setting) {
    Values values = TellingValues(setting);
    std::erase_if(values, [](const SettingValue& each) { return each.value == 0; });
    return values;
}

using ValuesOf = Values (*)(const Setting& setting);

// The rows of the first page's punch control, Punch and PunchHoles.
constexpr std::array<std::array<std::int32_t, 2>, 16> kPunchRows{{{0, 1},
                                                                  {1, 1},
                                                                  {2, 1},
                                                                  {3, 1},
                                                                  {4, 1},
                                                                  {13, 1},
                                                                  {1, 2},
                                                                  {2, 2},
                                                                  {3, 2},
                                                                  {4, 2},
                                                                  {13, 2},
                                                                  {1, 3},
                                                                  {2, 3},
                                                                  {3, 3},
                                                                  {4, 3},
                                                                  {13, 3}}};

// What becomes of a caller's walks, by row.
struct Expected {
    int group;
    std::vector<int> settable;
    std::vector<WalkOutcome> failures; // with all defaults at 0
};
const std::vector<int> kAnyInTheWay{Fold,
                                    Punch,
                                    StapleMode,
                                    ColorMode,
                                    SpotColorCorrection,
                                    MixSizePrint,
                                    ImpositionMode,
                                    ImpositionCustomMode,
                                    TwoColorPressSimulation};
const std::vector<int> kAnyButMixSizePrint{Fold,
                                           Punch,
                                           ColorMode,
                                           SpotColorCorrection,
                                           StapleMode,
                                           PunchHoles,
                                           ImpositionMode,
                                           ImpositionCustomMode,
                                           TwoColorPressSimulation};
const std::vector<WalkOutcome> kOfTheMediaAndDuplex{NoOtherSetting, MixSizePrintAtDefault, HolesWithoutPunch};
const std::vector<Expected> kExpected{
    {0, {StapleMode, Punch, PunchHoles}, {NoOtherSetting, MixSizePrintInWay, NotTheCallersToSet}},
    {1, kAnyButMixSizePrint, {NoOtherSetting, MixSizePrintInWay}},
    {2, kAnyButMixSizePrint, {NoOtherSetting, MixSizePrintInWay}},
    {3, kAnyInTheWay, kOfTheMediaAndDuplex},
    {4, kAnyInTheWay, kOfTheMediaAndDuplex},
    {5, kAnyInTheWay, kOfTheMediaAndDuplex},
    {6, {SpotColorCorrection, TwoColorPressSimulation}, {NoOtherSetting, NotTheCallersToSet}},
    {11, {ImpositionMode}, {NoOtherSetting, NotTheCallersToSet}},
};

// The counts stand in the test's XML report.
void RecordCounts(const RestrictionWalk& walk) {
    for (int outcome = 0; outcome < static_cast<int>(Count); ++outcome)
        testing::Test::RecordProperty("outcome_" + std::to_string(outcome),
                                      std::to_string(walk.Count(static_cast<WalkOutcome>(outcome))));
}

class RestrictionWalks : public testing::TestWithParam<int> {
  protected:
    RestrictionWalks()
        : caller(*std::ranges::find(RestrictionCallerModels(), GetParam(), &RestrictionCallerModel::group)),
          expected(*std::ranges::find(kExpected, GetParam(), &Expected::group)),
          walk(caller, expected.settable) {
        banks = {};
    }

    void TearDown() override { RecordCounts(walk); }

    // A setting that is the caller's own comes from each telling value, as long as there is anything to take
    // back. Any other is there before, and the caller sets its own to what it is.
    void ChangeTo(Bank before, const Setting& setting, const SettingValue& changed) {
        std::int32_t& slot = before[static_cast<std::size_t>(setting.item)];
        if (!Owns(caller, setting.item)) {
            slot = changed.value;
            walk.Run(before, {});
            return;
        }
        for (const std::int32_t earlier : setting.telling) {
            slot = earlier;
            if (!walk.Run(before, {&changed, 1}))
                return;
        }
    }

    // Two settings that take part, in both orders, on top of a bank that holds none of them yet.
    void WalkEveryPair(ValuesOf oldsOf, ValuesOf changesOf, const Bank& bank = {}) {
        for (const Setting& first : kSettings)
            for (const Setting& second : kSettings)
                if (IsPair(first, second) && !IsIn(bank, first) && !IsIn(bank, second))
                    WalkPair(second, oldsOf(first), changesOf(second), bank);
    }

    // To a caller that owns neither of the two, both orders are the same bank: one of them stands for both.
    bool IsPair(const Setting& first, const Setting& second) const {
        const bool ownsOne = Owns(caller, first.item) || Owns(caller, second.item);
        return ownsOne ? first.item != second.item : first.item < second.item;
    }
    static bool IsIn(const Bank& bank, const Setting& setting) {
        return bank[static_cast<std::size_t>(setting.item)] != 0;
    }

    void WalkPair(const Setting& setting, const Values& olds, const Values& changes, const Bank& bank) {
        for (const SettingValue& old : olds) {
            Bank before = bank;
            before[static_cast<std::size_t>(old.item)] = old.value;
            for (const SettingValue& changed : changes)
                ChangeTo(before, setting, changed);
        }
    }

    const RestrictionCallerModel& caller;
    const Expected& expected;
    RestrictionWalk walk;
};

TEST_P(RestrictionWalks, OfEveryPairOfValuesHaveANamedOutcome) {
    WalkEveryPair(AllValues, AllValues);
    EXPECT_GT(walk.Count(NoConflict), 0);
    EXPECT_GT(walk.Count(Settled), 0);
    for (const WalkOutcome failure : {NoOtherSetting, MixSizePrintInWay, MixSizePrintAtDefault,
                                      HolesWithoutPunch, DefaultConflicts, NotTheCallersToSet}) {
        const bool mayCome = std::ranges::find(expected.failures, failure) != expected.failures.end();
        EXPECT_EQ(walk.Count(failure) > 0, mayCome) << static_cast<int>(failure);
    }
}

// Conflicts with each other and with much else.
const Values kThirdSettings{{StapleMode, 1},
                            {StapleMode, 5},
                            {Fold, 1},
                            {PunchHoles, 1},
                            {PunchHoles, 4},
                            {MixSizePrint, 1},
                            {TwoColorPressSimulation, 1}};

TEST_P(RestrictionWalks, OfEveryPairWithAThirdSettingHaveANamedOutcome) {
    for (const SettingValue& third : kThirdSettings) {
        Bank bank{};
        bank[static_cast<std::size_t>(third.item)] = third.value;
        WalkEveryPair(TellingValuesButZero, TellingValues, bank);
    }
    EXPECT_GT(walk.Count(Settled), 0);
    EXPECT_EQ(walk.Count(DefaultConflicts), 0);
}

TEST_P(RestrictionWalks, WithDefaultsThatConflictHaveANamedOutcome) {
    for (const SettingValue& each : Values{{StapleMode, 1},
                                           {Fold, 1},
                                           {Punch, 1},
                                           {PunchHoles, 1},
                                           {TwoColorPressSimulation, 1},
                                           {ImpositionMode, 2},
                                           {MixSizePrint, 1}})
        banks.defaults[static_cast<std::size_t>(each.item)] = each.value;
    WalkEveryPair(TellingValues, TellingValues);
    EXPECT_GT(walk.Count(DefaultConflicts), 0);
}

INSTANTIATE_TEST_SUITE_P(FromRow, RestrictionWalks, testing::Values(0, 1, 2, 3, 4, 5, 6, 11),
                         testing::PrintToStringParamName());

// The punch control changes two settings at once; each of its rows from each other one.
TEST(RestrictionPunchWalks, FromEveryRowToEveryRowHaveANamedOutcome) {
    banks = {};
    const auto& caller = *std::ranges::find(RestrictionCallerModels(), 1, &RestrictionCallerModel::group);
    RestrictionWalk walk(caller, kAnyButMixSizePrint);
    for (const Setting& other : kSettings) {
        if (Owns(caller, other.item))
            continue;
        for (const SettingValue& old : AllValues(other)) {
            Bank before{};
            before[static_cast<std::size_t>(old.item)] = old.value;
            for (const auto& from : kPunchRows) {
                before[Punch] = from[0];
                before[PunchHoles] = from[1];
                for (const auto& to : kPunchRows)
                    walk.Run(before, Values{{Punch, to[0]}, {PunchHoles, to[1]}});
            }
        }
    }
    EXPECT_GT(walk.Count(NoConflict), 0);
    EXPECT_GT(walk.Count(Settled), 0);
    RecordCounts(walk);
}

} // namespace
