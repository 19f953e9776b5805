// Walks one caller through its loop, from one bank at a time, and holds what comes of it against the rules.
#pragma once

#include "options/restriction.h"
#include "tests/options/restriction_callers.h"
#include "tests/options/restriction_rules.h"

#include <array>
#include <span>
#include <vector>

enum class WalkOutcome {
    NoConflict,
    Settled,               // nothing conflicts any more
    NoOtherSetting,        // no setting takes part, or only the caller's own
    MixSizePrintInWay,     // of the earlier value or of another setting, and the caller never changes it
    MixSizePrintAtDefault, // which is what the caller sets it to
    HolesWithoutPunch,  // Punch has given way, but by PunchHoles 4, which the caller leaves, it still counts
    DefaultConflicts,   // what gives way conflicts at its default too
    NotTheCallersToSet, // the caller does not know the keyword in the way
    Count
};

class RestrictionWalk {
  public:
    // `settable` names the settings besides its own that the caller may change.
    RestrictionWalk(const RestrictionCallerModel& caller, std::span<const int> settable);

    // The caller changes the bank `before` and resolves what conflicts then, once with each of the user's two
    // answers. An outcome that has no name, and whatever else is not as it must be, fails the test. True if
    // anything conflicted.
    bool Run(const Bank& before, std::span<const SettingValue> change);

    long Count(WalkOutcome outcome) const { return m_counts[static_cast<std::size_t>(outcome)]; }

  private:
    void RunWithAnswer(int answer);
    void OnGiveWay(int keyword);
    void OnTakeBack();
    void ExpectUser(std::size_t questions, const RestrictionOutcome& outcome);
    void ExpectSettings();
    WalkOutcome Name(const RestrictionOutcome& outcome);
    WalkOutcome NameFailure(const restriction_rules::Verdict& verdict);
    void Expect(bool holds, const char* what);

    const RestrictionCallerModel& m_caller;
    const std::vector<int> m_settable;
    const RestrictionAnswers m_answers;
    std::array<long, static_cast<std::size_t>(WalkOutcome::Count)> m_counts{};

    // Of the walk on its way.
    Bank m_before{};
    Bank m_start{}; // with the caller's change
    bool m_conflicts = false;
    int m_answer = 0;
    int m_lastKeyword = -1;
    int m_rounds = 0;
    bool m_tookBack = false;
};
