#include "tests/options/restriction_callers.h"

#include "session/keyword.h"

#include <algorithm>

namespace {

using namespace keyword;
using enum RestrictionCallerModel::Change;

const std::vector<RestrictionCallerModel> kCallers{
    {"ApplyColorModel",
     6,
     {ColorMode},
     {{SpotColorCorrection, ToZero, {}}, {TwoColorPressSimulation, ToDefault, {}}}},
    {"ApplyDuplex", 3, {DuplexMode}, {{kAnyOther, ToDefault, {}}}},
    {"ApplyStaple",
     2,
     {StapleMode},
     {{MixSizePrint, TakeOwnBack, {}}, {Punch, ToDefault, {Punch, PunchHoles}}, {kAnyOther, ToDefault, {}}}},
    {"ApplyPunch", 1, {Punch, PunchHoles}, {{MixSizePrint, TakeOwnBack, {}}, {kAnyOther, ToDefault, {}}}},
    {"ApplyFold",
     0,
     {Fold},
     {{MixSizePrint, TakeOwnBack, {}}, {StapleMode, ToDefault, {}}, {Punch, ToDefault, {Punch, PunchHoles}}}},
    {"ApplyOutputPaperSize",
     11,
     {ChgPrintPaperSizeType},
     {{ImpositionMode, ToDefault, {}}, {ImpositionCustomMode, ToDefault, {ImpositionMode}}}},
    {"ApplyValues", 4, {PaperTypeD, MediaTypeWeight}, {{kAnyOther, ToDefault, {}}}},
    {"ApplyValues", 5, {PaperTypeBypass, MediaTypeWeightBypass}, {{kAnyOther, ToDefault, {}}}},
};

} // namespace

std::span<const RestrictionCallerModel> RestrictionCallerModels() {
    return kCallers;
}

const RestrictionCallerModel::Resolution* FindResolution(const RestrictionCallerModel& caller, int keyword) {
    const auto find = [&](int which) {
        return std::ranges::find(caller.resolutions, which, &RestrictionCallerModel::Resolution::keyword);
    };
    auto found = find(keyword);
    if (found == caller.resolutions.end())
        found = find(kAnyOther);
    return found == caller.resolutions.end() ? nullptr : &*found;
}

std::vector<int> SettingsOf(const RestrictionCallerModel::Resolution& resolution, int keyword) {
    return resolution.settings.empty() ? std::vector{keyword} : resolution.settings;
}
