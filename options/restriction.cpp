#include "options/restriction.h"

#include "Common/ask_user.h"
#include "Common/log.h"
#include "options/restriction_conflict.h"
#include "options/restriction_message.h"
#include "session/datamanager.h"

namespace {

std::int32_t DefaultOf(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetDefault(keyword, &value);
    return static_cast<std::int32_t>(value);
}

int Ask(void* hwnd, const RestrictionValues& values, const RestrictionConflict& conflict) {
    const RestrictionMessage message = ComposeRestrictionMessage(values, conflict, DefaultOf);
    return AskUser(hwnd, message.text.data(), message.title.data(), message.buttons);
}

void LogError(const RestrictionCaller& caller, int result) {
    if (caller.file)
        WriteLog("%s %d行目 %s() result = %d error\n", caller.file, caller.line, caller.function, result);
    else
        WriteLog("%s() result = %d error\n", caller.function, result);
}

// False for an answer that is none. A conflict in which no other setting takes part names no keyword, and
// nothing gives way.
bool Act(const RestrictionAnswers& answers, int result, int keyword) {
    if (result == ask_answer::Ok) {
        if (keyword >= 0)
            answers.giveWay(keyword);
        return true;
    }
    if (result == ask_answer::Cancel) {
        answers.takeBack();
        return true;
    }
    return false;
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
    RestrictionValues before = ReadRestrictionValues();
    while (CheckRestriction(hwnd, session, caller.group, &result, &keyword, &asked)) {
        outcome.end = RestrictionEnd::Settled;
        outcome.refused = outcome.refused || result == ask_answer::Cancel;
        const bool acted = Act(answers, result, keyword);
        const RestrictionValues after = ReadRestrictionValues();
        if (!acted || after == before) {
            LogError(caller, result);
            outcome.end = RestrictionEnd::Failed;
            return outcome;
        }
        before = after;
    }
    return outcome;
}
