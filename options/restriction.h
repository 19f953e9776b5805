// The option rules of the device: a page that has changed a setting asks here whether the settings still go
// together, and makes settings give way until they do.
#pragma once

#include <functional>

struct SessionBlock;

// The row of restriction_rows.def that a caller passes: that of the setting which it has just changed.
namespace restriction_group {
enum RestrictionGroup : int {
#define ZR_RESTRICTION_ROW(group, setting, kind, condition) group,
#include "options/restriction_rows.def"
    Count
};
} // namespace restriction_group

// Whether the settings of the Current bank conflict: 1, or 0 with all three left alone. `hwnd` is an HWND,
// the owner of the message box. `session` has nothing to serve here, since a row's keyword is its id in the
// keyword table. `group` is the caller's own row; for any other int, all rows are others.
//
// *result   receives the user's answer: 1 to give way on *keyword, 2 to decline; anything else is the box's
//           failure.
// *keyword  receives the KeywordId of the setting in the way; left alone if no other setting takes part.
// *asked    is 0 before the first call and set to 1 once the user was asked. From then on no box appears and
//           *result becomes 1.
int CheckRestriction(void* hwnd, SessionBlock* session, int group, int* result, int* keyword, int* asked);

struct RestrictionCaller {
    int group;            // see CheckRestriction
    const char* function; // names the caller in the log
    // Where it stands, for a caller whose log lines tell that.
    const char* file = nullptr;
    int line = 0;
};

// What a caller does about a conflict.
struct RestrictionAnswers {
    // Moves `keyword`, a KeywordId, out of the way, as far as this caller does so. Staple, punch and fold
    // never change MixSizePrint but take their own setting back; duplex and the media dialogs set any keyword
    // to its default, MixSizePrint too; colour, fold and output paper size know only some keywords and leave
    // every other one alone. In a round whose conflict names no keyword it comes again with the last one.
    std::function<void(int keyword)> giveWay;
    // The user has declined: the caller's own setting goes back to where it was.
    std::function<void()> takeBack;
};

enum class RestrictionEnd {
    NoConflict, // at the first check
    Settled,    // after at least one answer
    Failed,     // the conflict stays; logged
};

struct RestrictionOutcome {
    RestrictionEnd end;
    bool refused; // the change was taken back
    // What an Apply function returns: 1 only if there was nothing to settle.
    int Result() const { return end == RestrictionEnd::NoConflict; }
};

// Checks, and has the caller act on the answer, until nothing conflicts. The user is asked once; each further
// conflict gives way silently, also after a Cancel. Ends as failed on an answer that is none, after a giving
// way that has changed nothing that the checks read, since every later one would be the same, and after one
// round more than there are rows.
RestrictionOutcome ResolveRestrictions(void* hwnd, SessionBlock* session, const RestrictionCaller& caller,
                                       const RestrictionAnswers& answers);
