// The restriction checks of a page or a dialog of one.
#pragma once

#include "options/restriction.h"
#include "pages/pspage.h"

// ResolveRestrictions for a window whose sheet can go behind the question, which stays open for as long as
// the user likes: no answer then changes anything.
inline RestrictionOutcome ResolveRestrictionsOfSheet(HWND owner, SessionBlock* session,
                                                     const RestrictionCaller& caller,
                                                     const RestrictionAnswers& answers) {
    return ResolveRestrictions(owner, session, caller,
                               {[&](int keyword) {
                                    if (IsLiveSession(session))
                                        answers.giveWay(keyword);
                                },
                                [&] {
                                    if (IsLiveSession(session))
                                        answers.takeBack();
                                }});
}
