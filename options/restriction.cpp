#include "options/restriction.h"

#include "Common/ask_user.h"
#include "Common/log.h"
#include "options/restriction_conflict.h"
#include "options/restriction_message.h"
#include "session/bank_values.h"

namespace {

// The question and a round for each row: a chain that settles is shorter. What a page sets beside the setting
// that gives way could turn in a circle otherwise.
constexpr int kMostRounds = 1 + restriction_group::Count;

std::int32_t DefaultOption(int keyword) {
    return static_cast<std::int32_t>(DefaultOf(keyword));
}

int Ask(void* hwnd, const RestrictionValues& values, const RestrictionConflict& conflict) {
    const RestrictionMessage message = ComposeRestrictionMessage(values, conflict, DefaultOption);
    return AskUser(hwnd, message.text.data(), message.title.data(), message.buttons);
}

void LogError(const RestrictionCaller& caller, int result) {
    if (caller.file)
        WriteLog("%s %d行目 %s() result = %d error\n", caller.file, caller.line, caller.function, result);
    else
        WriteLog("%s() result = %d error\n", caller.function, result);
}

// False if nothing that the checks read has changed. A conflict in which no other setting takes part names no
// keyword: in the first round nothing gives way then, in a later one once more what gave way before.
bool GiveWay(const RestrictionAnswers& answers, int keyword) {
    const RestrictionValues before = ReadRestrictionValues();
    if (keyword >= 0)
        answers.giveWay(keyword);
    return ReadRestrictionValues() != before;
}

// False if every later round would be as this one. After a Cancel it would not, even if nothing was to be
// taken back: from then on the other settings give way.
bool Act(const RestrictionAnswers& answers, int result, int keyword) {
    switch (result) {
    case ask_answer::Ok: return GiveWay(answers, keyword);
    case ask_answer::Cancel: answers.takeBack(); return true;
    default: return false; // no answer
    }
}

} // namespace

int CheckRestriction(void* hwnd, SessionBlock*, int group, int* result, int* keyword, int* asked) {
    ZR_LOG_ENTRY();
    const RestrictionValues values = ReadRestrictionValues();
    const auto conflict = FindRestrictionConflict(values, group);
    if (!conflict)
        return 0;
    if (conflict->other)
        *keyword = conflict->other->keyword;
    if (*asked != 0) {
        *result = ask_answer::Ok;
        return 1;
    }
    *result = Ask(hwnd, values, *conflict);
    *asked = 1;
    return 1;
}

RestrictionOutcome ResolveRestrictions(void* hwnd, SessionBlock* session, const RestrictionCaller& caller,
                                       const RestrictionAnswers& answers) {
    ZR_LOG_ENTRY();
    int result = -1;
    int keyword = -1;
    int asked = 0;
    RestrictionOutcome outcome{RestrictionEnd::NoConflict, false};
    int rounds = 0;
    while (CheckRestriction(hwnd, session, caller.group, &result, &keyword, &asked)) {
        outcome.end = RestrictionEnd::Settled;
        outcome.refused = outcome.refused || result == ask_answer::Cancel;
        if (++rounds > kMostRounds || !Act(answers, result, keyword)) {
            LogError(caller, result);
            outcome.end = RestrictionEnd::Failed;
            return outcome;
        }
    }
    return outcome;
}
