// The callers of the restriction checks as far as the banks are concerned: what each sets when a setting has
// to give way, and what it takes back.
#pragma once

#include "tests/options/restriction_bank.h"

#include <span>
#include <vector>

struct RestrictionCallerModel {
    const char* function;
    int group;
    std::vector<int> own; // the settings it changes and takes back
    // What becomes of a setting in the way; the settings named are set.
    enum class Change { ToDefault, ToZero, TakeOwnBack };
    struct Resolution {
        int keyword; // kAnyOther for every one without a resolution of its own
        Change change;
        std::vector<int> settings; // empty for the keyword itself
    };
    std::vector<Resolution> resolutions;
};

inline constexpr int kAnyOther = -1;

// The seven, the media dialog once for each of its trays.
std::span<const RestrictionCallerModel> RestrictionCallerModels();

bool Owns(const RestrictionCallerModel& caller, int item);

// The caller's resolution for a keyword, null if it has none.
const RestrictionCallerModel::Resolution* FindResolution(const RestrictionCallerModel& caller, int keyword);

// The settings that a resolution sets when `keyword` is in the way, but for one that takes the own back.
std::span<const int> SettingsOf(const RestrictionCallerModel::Resolution& resolution, const int& keyword);

// What the caller does to the Current bank; `before` is the bank without its change.
void RestoreOwn(const RestrictionCallerModel& caller, const Bank& before);
void GiveWay(const RestrictionCallerModel& caller, const Bank& before, int keyword);
