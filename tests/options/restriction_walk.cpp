#include "tests/options/restriction_walk.h"

#include "Common/ask_user_recorder.h"
#include "Common/log_recorder.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using restriction_rules::Judge;
using restriction_rules::kNoneInTheWay;
using restriction_rules::Rule;

constexpr int kMostRounds = 15;

std::int32_t At(const Bank& bank, int item) {
    return bank[static_cast<std::size_t>(item)];
}

// The lines that tell of an error. Each has to name the caller and the answer OK, the only one to fail on.
int CountErrors(const log_backend::Recorder& log, const std::string& function) {
    int count = 0;
    for (const std::string& line : log.main) {
        if (line.ends_with("error\n")) {
            EXPECT_EQ(line, function + "() result = 1 error\n");
            ++count;
        }
    }
    return count;
}

std::string Describe(const Bank& bank) {
    std::string text;
    for (std::size_t item = 0; item < bank.size(); ++item)
        if (bank[item] != 0)
            text += " " + std::to_string(item) + "=" + std::to_string(bank[item]);
    return text;
}

} // namespace

RestrictionWalk::RestrictionWalk(const RestrictionCallerModel& caller, std::span<const int> settable)
    : m_caller(caller),
      m_settable(settable.begin(), settable.end()), m_answers{[this](int keyword) { OnGiveWay(keyword); },
                                                              [this] { OnTakeBack(); }} {}

bool RestrictionWalk::Run(const Bank& before, std::span<const SettingValue> change) {
    m_before = before;
    m_start = before;
    for (const SettingValue& each : change)
        m_start[static_cast<std::size_t>(each.item)] = each.value;
    m_conflicts = Judge(m_start, m_caller.group).rule != Rule::None;
    RunWithAnswer(ask_answer::Ok);
    if (m_conflicts)
        RunWithAnswer(ask_answer::Cancel);
    return m_conflicts;
}

void RestrictionWalk::RunWithAnswer(int answer) {
    banks.current = m_start;
    m_answer = answer;
    m_lastKeyword = -1;
    m_rounds = 0;
    m_tookBack = false;
    log_backend::Recorder log;
    ScriptedUser user({answer});
    const RestrictionOutcome outcome =
        ResolveRestrictions(nullptr, nullptr, {m_caller.group, m_caller.function}, m_answers);

    Expect(m_rounds < kMostRounds, "ends by itself");
    Expect(CountErrors(log, m_caller.function) == (outcome.end == RestrictionEnd::Failed ? 1 : 0),
           "logs an error if it fails, and only then");
    ExpectUser(user.questions.size(), outcome);
    ExpectSettings();
    const WalkOutcome name = Name(outcome);
    Expect(name != WalkOutcome::Count, "has an outcome with a name");
    if (name != WalkOutcome::Count)
        ++m_counts[static_cast<std::size_t>(name)];
}

void RestrictionWalk::OnGiveWay(int keyword) {
    ++m_rounds;
    const int inTheWay = Judge(banks.current, m_caller.group).inTheWay;
    Expect(keyword == (inTheWay == kNoneInTheWay ? m_lastKeyword : inTheWay), "gives way on what is in it");
    m_lastKeyword = keyword;
    // The finishers' answer to MixSizePrint.
    m_tookBack = m_tookBack || (keyword == keyword::MixSizePrint && m_caller.group <= 2);
    GiveWay(m_caller, m_before, keyword);
}

void RestrictionWalk::OnTakeBack() {
    Expect(m_rounds == 0 && m_answer == ask_answer::Cancel, "takes back at once on a Cancel");
    ++m_rounds;
    if (const int inTheWay = Judge(banks.current, m_caller.group).inTheWay; inTheWay != kNoneInTheWay)
        m_lastKeyword = inTheWay;
    m_tookBack = true;
    RestoreOwn(m_caller, m_before);
}

void RestrictionWalk::ExpectUser(std::size_t questions, const RestrictionOutcome& outcome) {
    Expect(questions == (m_conflicts ? 1 : 0), "asks once if there is a conflict");
    Expect(outcome.refused == (m_conflicts && m_answer == ask_answer::Cancel), "knows a refusal");
    Expect(m_tookBack || !outcome.refused, "takes back what was refused");
}

void RestrictionWalk::ExpectSettings() {
    Bank allowed = m_start;
    for (const int item : m_settable)
        allowed[static_cast<std::size_t>(item)] = At(banks.current, item);
    for (const int item : m_caller.own)
        allowed[static_cast<std::size_t>(item)] = At(m_tookBack ? m_before : m_start, item);
    Expect(banks.current == allowed, "leaves alone what is not its to set, and its own where it belongs");
}

WalkOutcome RestrictionWalk::Name(const RestrictionOutcome& outcome) {
    const restriction_rules::Verdict verdict = Judge(banks.current, m_caller.group);
    const bool conflicts = verdict.rule != Rule::None;
    switch (outcome.end) {
    case RestrictionEnd::NoConflict:
        return !m_conflicts && banks.current == m_start ? WalkOutcome::NoConflict : WalkOutcome::Count;
    case RestrictionEnd::Settled:
        return m_conflicts && !conflicts ? WalkOutcome::Settled : WalkOutcome::Count;
    case RestrictionEnd::Failed: break;
    }
    return conflicts ? NameFailure(verdict) : WalkOutcome::Count;
}

// A failure is one only if the caller's answer to the keyword changes nothing more.
WalkOutcome RestrictionWalk::NameFailure(const restriction_rules::Verdict& verdict) {
    if (verdict.inTheWay == kNoneInTheWay)
        return WalkOutcome::NoOtherSetting;
    const auto* resolution = FindResolution(m_caller, verdict.inTheWay);
    if (!resolution)
        return WalkOutcome::NotTheCallersToSet;
    if (resolution->change == RestrictionCallerModel::Change::TakeOwnBack)
        return verdict.inTheWay == keyword::MixSizePrint && m_tookBack ? WalkOutcome::MixSizePrintInWay
                                                                       : WalkOutcome::Count;
    const std::span<const int> given = SettingsOf(*resolution, verdict.inTheWay);
    const auto isAtDefault = [](int item) { return At(banks.current, item) == At(banks.defaults, item); };
    if (!std::ranges::all_of(given, isAtDefault))
        return WalkOutcome::Count;
    if (verdict.inTheWay == keyword::MixSizePrint)
        return WalkOutcome::MixSizePrintAtDefault;
    if (given.size() == 1 && given[0] == keyword::Punch && At(banks.current, keyword::PunchHoles) == 4)
        return WalkOutcome::HolesWithoutPunch;
    const auto isNotZero = [](int item) { return At(banks.defaults, item) != 0; };
    return std::ranges::any_of(given, isNotZero) ? WalkOutcome::DefaultConflicts : WalkOutcome::Count;
}

void RestrictionWalk::Expect(bool holds, const char* what) {
    if (!holds)
        ADD_FAILURE() << what << ": " << m_caller.function << " from row " << m_caller.group << ", answer "
                      << m_answer << ", before" << Describe(m_before) << ", changed" << Describe(m_start)
                      << ", after" << Describe(banks.current);
}
