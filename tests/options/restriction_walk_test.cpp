// Walks the settings that take part in a restriction through every caller's loop. Each walk has an outcome
// that can be named; one that has none fails the test.
#include "tests/options/restriction_callers.h"

#include "Common/ask_user_recorder.h"
#include "options/PrintOptionSetting.h"
#include "options/restriction_conflict.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace keyword;
using option_item::KW_MEDIATYPEWEIGHT2;

struct Setting {
    int item;
    int options; // of its list
};

// All that the checks read.
constexpr std::array<Setting, 17> kSettings{{
    {Punch, 6},
    {PunchHoles, 4},
    {StapleMode, 22},
    {DuplexMode, 5},
    {PaperTypeD, 59},
    {KW_MEDIATYPEWEIGHT2, 12},
    {ColorMode, 2},
    {SpotColorCorrection, 2},
    {TwoColorPressSimulation, 2},
    {Fold, 11},
    {MixSizePrint, 2},
    {ChgPrintPaperSizeType, 50},
    {ImpositionMode, 3},
    {ImpositionCustomMode, 3},
    {AutoTraySettingToBypass, 2},
    {PaperTypeBypass, 59},
    {MediaTypeWeightBypass, 12},
}};

struct Value {
    int item;
    std::int32_t value;
};
using Values = std::vector<Value>;

constexpr std::int32_t kFarOut = 0x7FFFFFFF;

// Every option, the number behind the last one, and one far out.
Values AllValues(const Setting& setting) {
    Values values;
    for (int option = 0; option <= setting.options; ++option)
        values.push_back({setting.item, option});
    values.push_back({setting.item, kFarOut});
    return values;
}

// A few of each list: the ends, the options for mixed sizes, and what lies outside.
Values TellingValues(const Setting& setting) {
    Values values;
    for (const int option : {-1, 0, 1, 5, 6, setting.options})
        if (option <= setting.options && (setting.options <= 22 || option <= 1))
            values.push_back({setting.item, option});
    return values;
}

void Set(int item, std::int32_t value) {
    ExportedFunc_SetCurrent(item, static_cast<std::uint32_t>(value));
}
std::int32_t Current(int item) {
    std::uint32_t value = 0;
    ExportedFunc_GetCurrent(item, &value);
    return static_cast<std::int32_t>(value);
}
std::int32_t Default(int item) {
    std::uint32_t value = 0;
    ExportedFunc_GetDefault(item, &value);
    return static_cast<std::int32_t>(value);
}

enum class Outcome {
    NoConflict,
    Settled,            // nothing conflicts any more
    NoOtherSetting,     // the settings in conflict have no row that takes part, or only the caller's own
    MixSizePrintInWay,  // an old conflict that only the job property application can settle
    DefaultConflicts,   // what gives way is at its default already
    NotTheCallersToSet, // an old conflict whose setting the caller does not know
    NothingToTakeBack,  // declined by a caller that had changed nothing
    Unnamed,
};
constexpr int kOutcomes = static_cast<int>(Outcome::Unnamed) + 1;

class RestrictionWalk : public testing::Test {
  protected:
    RestrictionWalk() { ExportedFunc_InitializeDataManager(); }

    // From a bank of zeros: sets `old`, has the caller set `changed` and resolve. A setting that the caller
    // does not own is there before, and the caller sets its own to what it is.
    void Run(const RestrictionCallerModel& caller, const Values& old, const Value& changed, int answer) {
        for (const Value& each : old)
            Set(each.item, each.value);
        if (!Owns(caller, changed.item))
            Set(changed.item, changed.value);
        Values prior;
        for (const int item : caller.own)
            prior.push_back({item, Current(item)});
        Set(changed.item, changed.value);

        const Outcome outcome = Resolve(caller, prior, answer);
        ++counts[static_cast<std::size_t>(outcome)];
        if (outcome == Outcome::Unnamed)
            ADD_FAILURE() << Describe(caller, old, changed, answer);
        ClearBank();
    }

    // Without a conflict all callers see the same, so one stands for them.
    void RunAllCallers(const Values& old, const Value& changed) {
        if (!Conflicts(old, changed))
            return Run(NextCaller(), old, changed, ask_answer::Ok);
        for (const RestrictionCallerModel& caller : RestrictionCallerModels())
            RunBothAnswers(caller, old, changed);
    }

    // The callers that own the setting; and in turn one of all, that goes on with what it finds.
    void RunOwnersAndAnother(const Values& old, const Value& changed) {
        if (!Conflicts(old, changed))
            return Run(NextCaller(), old, changed, ask_answer::Ok);
        for (const RestrictionCallerModel& caller : RestrictionCallerModels())
            if (Owns(caller, changed.item))
                RunBothAnswers(caller, old, changed);
        Run(NextCaller(), old, changed, ask_answer::Ok);
    }

    long Count(Outcome outcome) const { return counts[static_cast<std::size_t>(outcome)]; }

    std::array<long, kOutcomes> counts{};
    // The counts stand in the test's XML report.
    void TearDown() override {
        for (std::size_t outcome = 0; outcome < counts.size(); ++outcome)
            RecordProperty("outcome_" + std::to_string(outcome), std::to_string(counts[outcome]));
    }

  private:
    std::size_t m_turn = 0;

    const RestrictionCallerModel& NextCaller() {
        return RestrictionCallerModels()[m_turn++ % RestrictionCallerModels().size()];
    }

    void RunBothAnswers(const RestrictionCallerModel& caller, const Values& old, const Value& changed) {
        for (const int answer : {ask_answer::Ok, ask_answer::Cancel})
            Run(caller, old, changed, answer);
    }

    static bool Conflicts(const Values& old, const Value& changed) {
        SetAll(old);
        Set(changed.item, changed.value);
        const bool conflicts = FindRestrictionClass(ReadRestrictionValues()).has_value();
        ClearBank();
        return conflicts;
    }

    static bool Owns(const RestrictionCallerModel& caller, int item) {
        return std::ranges::find(caller.own, item) != caller.own.end();
    }

    static void SetAll(const Values& values) {
        for (const Value& each : values)
            Set(each.item, each.value);
    }

    static void GiveWay(const RestrictionCallerModel& caller, const Values& prior, int keyword) {
        const auto* resolution = FindResolution(caller, keyword);
        if (!resolution)
            return;
        if (resolution->change == RestrictionCallerModel::Change::TakeOwnBack)
            return SetAll(prior);
        const bool toZero = resolution->change == RestrictionCallerModel::Change::ToZero;
        for (const int item : SettingsOf(*resolution, keyword))
            Set(item, toZero ? 0 : Default(item));
    }

    Outcome Resolve(const RestrictionCallerModel& caller, const Values& prior, int answer) {
        const RestrictionValues start = ReadRestrictionValues();
        ScriptedUser user({answer});
        int steps = 0;
        const RestrictionOutcome outcome =
            ResolveRestrictions(nullptr, nullptr, {caller.group, caller.function},
                                {[&](int keyword) {
                                     ++steps;
                                     GiveWay(caller, prior, keyword);
                                 },
                                 [&] {
                                     ++steps;
                                     SetAll(prior);
                                 }});
        // Each round moves a setting to the one place where it then stays.
        if (steps > 17 || user.questions.size() > 1)
            return Outcome::Unnamed;
        return Classify(caller, start, outcome);
    }

    static Outcome Classify(const RestrictionCallerModel& caller, const RestrictionValues& start,
                            const RestrictionOutcome& outcome) {
        const RestrictionValues values = ReadRestrictionValues();
        const auto conflict = FindRestrictionConflict(values, caller.group);
        switch (outcome.end) {
        case RestrictionEnd::NoConflict:
            return !conflict && values == start ? Outcome::NoConflict : Outcome::Unnamed;
        case RestrictionEnd::Settled: return conflict ? Outcome::Unnamed : Outcome::Settled;
        case RestrictionEnd::Failed: break;
        }
        if (!conflict)
            return Outcome::Unnamed;
        if (outcome.refused && values == start)
            return Outcome::NothingToTakeBack;
        if (!conflict->other)
            return Outcome::NoOtherSetting;
        const int keyword = conflict->other->keyword;
        const auto* resolution = FindResolution(caller, keyword);
        if (!resolution)
            return Outcome::NotTheCallersToSet;
        if (resolution->change == RestrictionCallerModel::Change::TakeOwnBack)
            return keyword == MixSizePrint ? Outcome::MixSizePrintInWay : Outcome::Unnamed;
        const bool atDefault = std::ranges::all_of(SettingsOf(*resolution, keyword),
                                                   [](int item) { return Current(item) == Default(item); });
        return atDefault ? Outcome::DefaultConflicts : Outcome::Unnamed;
    }

    static void ClearBank() {
        for (const Setting& setting : kSettings)
            if (Current(setting.item) != 0)
                Set(setting.item, 0);
    }

    static std::string Describe(const RestrictionCallerModel& caller, const Values& old, const Value& changed,
                                int answer) {
        std::string text = std::string(caller.function) + " answer " + std::to_string(answer);
        for (const Value& each : old)
            text += " old " + std::to_string(each.item) + "=" + std::to_string(each.value);
        return text + " new " + std::to_string(changed.item) + "=" + std::to_string(changed.value);
    }
};

// Two settings that take part, in both orders of setting.
template <typename ValuesOf, typename Action>
void ForEveryPair(ValuesOf valuesOf, Action action) {
    for (const Setting& first : kSettings) {
        for (const Setting& second : kSettings) {
            if (first.item == second.item)
                continue;
            for (const Value& old : valuesOf(first))
                for (const Value& changed : valuesOf(second))
                    action(old, changed);
        }
    }
}

TEST_F(RestrictionWalk, OfEveryPairOfValuesHasANamedOutcome) {
    ForEveryPair(AllValues, [&](const Value& old, const Value& changed) { RunAllCallers({old}, changed); });
    EXPECT_EQ(Count(Outcome::Unnamed), 0);
    for (const Outcome outcome :
         {Outcome::NoConflict, Outcome::Settled, Outcome::NoOtherSetting, Outcome::MixSizePrintInWay,
          Outcome::DefaultConflicts, Outcome::NotTheCallersToSet, Outcome::NothingToTakeBack})
        EXPECT_GT(Count(outcome), 0) << static_cast<int>(outcome);
}

// Conflicts with each other and with much else.
const Values kThirdSettings{
    {StapleMode, 1},    {StapleMode, 5}, {Fold, 1},         {Punch, 1},
    {PunchHoles, 1},    {PunchHoles, 4}, {MixSizePrint, 1}, {TwoColorPressSimulation, 1},
    {ImpositionMode, 2}};

TEST_F(RestrictionWalk, OfEveryPairWithAThirdSettingHasANamedOutcome) {
    ForEveryPair(TellingValues, [&](const Value& old, const Value& changed) {
        for (const Value& third : kThirdSettings)
            if (third.item != old.item && third.item != changed.item)
                RunOwnersAndAnother({third, old}, changed);
    });
    EXPECT_EQ(Count(Outcome::Unnamed), 0);
    EXPECT_GT(Count(Outcome::Settled), 0);
}

TEST_F(RestrictionWalk, WithDefaultsThatConflictHasANamedOutcome) {
    for (const Value& each : Values{{StapleMode, 1},
                                    {Fold, 1},
                                    {Punch, 1},
                                    {PunchHoles, 1},
                                    {TwoColorPressSimulation, 1},
                                    {ImpositionMode, 2},
                                    {MixSizePrint, 1}})
        ExportedFunc_SetDefault(each.item, static_cast<std::uint32_t>(each.value));
    ForEveryPair(TellingValues,
                 [&](const Value& old, const Value& changed) { RunAllCallers({old}, changed); });
    EXPECT_EQ(Count(Outcome::Unnamed), 0);
    EXPECT_GT(Count(Outcome::DefaultConflicts), 0);
}

} // namespace
