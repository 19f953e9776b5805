#include "tests/options/restriction_callers.h"

#include "session/keyword.h"

#include <algorithm>

namespace {

using namespace keyword;
using enum RestrictionCallerModel::Change;

// Three kinds of callers. The three finishers never change MixSizePrint, which is the job property
// application's, and take their own setting back instead. Duplex and the media dialogs set whatever keyword
// they are told to its default, MixSizePrint too. Colour, fold and output paper size act on the keywords that
// their rows list and leave every other one alone.
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

std::size_t At(int item) {
    return static_cast<std::size_t>(item);
}

} // namespace

std::span<const RestrictionCallerModel> RestrictionCallerModels() {
    return kCallers;
}

bool Owns(const RestrictionCallerModel& caller, int item) {
    return std::ranges::find(caller.own, item) != caller.own.end();
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

std::span<const int> SettingsOf(const RestrictionCallerModel::Resolution& resolution, const int& keyword) {
    return resolution.settings.empty() ? std::span(&keyword, 1) : std::span<const int>(resolution.settings);
}

void RestoreOwn(const RestrictionCallerModel& caller, const Bank& before) {
    for (const int item : caller.own)
        banks.current[At(item)] = before[At(item)];
}

void GiveWay(const RestrictionCallerModel& caller, const Bank& before, int keyword) {
    const auto* resolution = FindResolution(caller, keyword);
    if (!resolution)
        return;
    if (resolution->change == TakeOwnBack)
        return RestoreOwn(caller, before);
    for (const int item : SettingsOf(*resolution, keyword))
        banks.current[At(item)] = resolution->change == ToZero ? 0 : banks.defaults[At(item)];
}
