// The loop of all callers, with the store behind it and a scripted user in front.
#include "options/restriction.h"

#include "Common/ask_user_recorder.h"
#include "Common/log_recorder.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

using Settings = std::vector<std::pair<int, std::uint32_t>>;

void Set(const Settings& settings) {
    for (const auto& [id, value] : settings)
        ExportedFunc_SetCurrent(id, value);
}

std::uint32_t Current(int id) {
    std::uint32_t value = 0;
    ExportedFunc_GetCurrent(id, &value);
    return value;
}

// A caller that sets StapleMode and does what its test says.
class RestrictionLoop : public testing::Test {
  protected:
    RestrictionLoop() { ExportedFunc_InitializeDataManager(); }

    RestrictionOutcome Resolve(int group = 2) {
        return ResolveRestrictions(nullptr, nullptr, {group, "ApplyStaple"},
                                   {[this](int id) {
                                        calls.push_back(id);
                                        if (giveWay)
                                            giveWay(id);
                                    },
                                    [this] {
                                        calls.push_back(kTakeBack);
                                        if (takeBack)
                                            takeBack();
                                    }});
    }

    static void ToDefault(int id) {
        std::uint32_t value = 0;
        ExportedFunc_GetDefault(id, &value);
        ExportedFunc_SetCurrent(id, value);
    }

    static constexpr int kTakeBack = -100;
    std::vector<int> calls; // keywords that gave way, kTakeBack
    std::function<void(int)> giveWay;
    std::function<void()> takeBack;
    log_backend::Recorder log;

    std::vector<std::string> ErrorLines() const {
        std::vector<std::string> lines;
        std::ranges::copy_if(log.main, std::back_inserter(lines),
                             [](const std::string& line) { return line.ends_with("error\n"); });
        return lines;
    }
};

TEST_F(RestrictionLoop, EndsAtOnceWithoutAConflict) {
    ScriptedUser user({ask_answer::Ok});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::NoConflict);
    EXPECT_EQ(outcome.Result(), 1);
    EXPECT_FALSE(outcome.refused);
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(RestrictionLoop, ClearsAWholeChainWithOneOk) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = ToDefault;
    Set({{keyword::Fold, 1},
         {keyword::StapleMode, 11},
         {keyword::Punch, 1},
         {keyword::PunchHoles, 1},
         {keyword::SpotColorCorrection, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Settled);
    EXPECT_EQ(outcome.Result(), 0);
    EXPECT_FALSE(outcome.refused);
    EXPECT_EQ(calls, (std::vector<int>{keyword::Punch, keyword::Fold, keyword::SpotColorCorrection}));
    EXPECT_EQ(user.questions.size(), 1u);
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(RestrictionLoop, TakesTheOwnValueBackOnCancelAndGoesOnWithWhatIsLeft) {
    ScriptedUser user({ask_answer::Cancel});
    giveWay = ToDefault;
    takeBack = [] { ExportedFunc_SetCurrent(keyword::StapleMode, 0); };
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}, {keyword::TwoColorPressSimulation, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Settled);
    EXPECT_TRUE(outcome.refused);
    EXPECT_EQ(calls, (std::vector<int>{kTakeBack, keyword::TwoColorPressSimulation}));
    EXPECT_EQ(Current(keyword::Fold), 1u);
    EXPECT_EQ(user.questions.size(), 1u);
}

TEST_F(RestrictionLoop, EndsOnAnAnswerThatIsNoneAndNamesTheFunction) {
    ScriptedUser user({7});
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Failed);
    EXPECT_EQ(outcome.Result(), 0);
    EXPECT_FALSE(outcome.refused);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 7 error\n"});
    EXPECT_EQ(Current(keyword::StapleMode), 1u);
}

TEST_F(RestrictionLoop, EndsOnABoxThatCannotBeShown) {
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Failed);
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 0 error\n"});
}

TEST_F(RestrictionLoop, NamesFileAndLineOfACallerThatTellsThem) {
    ScriptedUser user({5});
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    ResolveRestrictions(nullptr, nullptr, {4, "ApplyValues", "mediatypedlg.cpp", 77}, {});
    EXPECT_EQ(ErrorLines(),
              std::vector<std::string>{"mediatypedlg.cpp 77行目 ApplyValues() result = 5 error\n"});
}

TEST_F(RestrictionLoop, EndsAfterARoundThatHasChangedNothing) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Failed);
    EXPECT_EQ(outcome.Result(), 0);
    EXPECT_EQ(calls, std::vector<int>{keyword::Fold});
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 1 error\n"});
}

TEST_F(RestrictionLoop, GoesOnAfterACancelThatHasChangedNothing) {
    ScriptedUser user({ask_answer::Cancel});
    giveWay = ToDefault;
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Settled);
    EXPECT_TRUE(outcome.refused);
    EXPECT_EQ(calls, (std::vector<int>{kTakeBack, keyword::Fold}));
    EXPECT_EQ(Current(keyword::Fold), 0u);
    EXPECT_EQ(user.questions.size(), 1u);
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(RestrictionLoop, EndsIfNothingGivesWayAfterACancelThatHasChangedNothing) {
    ScriptedUser user({ask_answer::Cancel});
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Failed);
    EXPECT_TRUE(outcome.refused);
    EXPECT_EQ(calls, (std::vector<int>{kTakeBack, keyword::Fold}));
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 1 error\n"});
}

TEST_F(RestrictionLoop, EndsAfterFifteenRoundsThatTurnInACircle) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = [](int) { ExportedFunc_SetCurrent(keyword::Fold, Current(keyword::Fold) == 1 ? 2 : 1); };
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    const RestrictionOutcome outcome = Resolve();
    EXPECT_EQ(outcome.end, RestrictionEnd::Failed);
    EXPECT_EQ(calls, std::vector<int>(15, keyword::Fold));
    EXPECT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 1 error\n"});
}

TEST_F(RestrictionLoop, SettlesInTheFifteenthRound) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = [this](int) {
        const bool last = calls.size() == 15;
        ExportedFunc_SetCurrent(keyword::Fold, last ? 0 : Current(keyword::Fold) == 1 ? 2 : 1);
    };
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Settled);
    EXPECT_EQ(calls.size(), 15u);
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(RestrictionLoop, EndsWhenADefaultConflictsItself) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = ToDefault;
    ExportedFunc_SetDefault(keyword::Fold, 2);
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Failed);
    EXPECT_EQ(calls, (std::vector<int>{keyword::Fold, keyword::Fold}));
    EXPECT_EQ(Current(keyword::Fold), 2u);
}

TEST_F(RestrictionLoop, AsksNobodyToGiveWayIfNoSettingIsInTheWay) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = ToDefault;
    Set({{keyword::StapleMode, 1}, {keyword::Punch, 2}, {keyword::PunchHoles, 0}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Failed);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 1 error\n"});
}

// Which changes nothing any more, so that the loop ends.
TEST_F(RestrictionLoop, LetsTheLastKeywordGiveWayAgainIfNoOtherSettingTakesPart) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = ToDefault;
    Set({{keyword::Fold, 1}, {keyword::Punch, 2}, {keyword::PunchHoles, 0}, {keyword::StapleMode, 1}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Failed);
    EXPECT_EQ(calls, (std::vector<int>{114, 114})) << "Fold";
    EXPECT_EQ(Current(keyword::StapleMode), 1u);
    EXPECT_EQ(Current(keyword::Punch), 2u);
    EXPECT_EQ(ErrorLines(), std::vector<std::string>{"ApplyStaple() result = 1 error\n"});
}

TEST_F(RestrictionLoop, TakesTheOwnValueBackAgainIfItConflictsWithAPunchWithoutHoles) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = [](int) { ExportedFunc_SetCurrent(keyword::StapleMode, 1); };
    Set({{keyword::StapleMode, 5}, {keyword::Punch, 2}, {keyword::PunchHoles, 0}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Failed);
    EXPECT_EQ(calls, (std::vector<int>{307, 307})) << "MixSizePrint";
    EXPECT_EQ(Current(keyword::StapleMode), 1u);
}

TEST_F(RestrictionLoop, EndsOnAChangeOfASettingThatTheChecksDoNotRead) {
    ScriptedUser user({ask_answer::Ok});
    giveWay = [](int) { ExportedFunc_SetCurrent(keyword::Copies, Current(keyword::Copies) + 1); };
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}});
    EXPECT_EQ(Resolve().end, RestrictionEnd::Failed);
    EXPECT_EQ(calls.size(), 1u);
}

} // namespace
