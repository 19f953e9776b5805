#include "pages/giving_way.h"

#include "options/PrintOptionSetting.h"
#include "options/restriction.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"

namespace {

// Where a paper's weight in grams stands as an item; the store has it as a named value too.
constexpr int kWeightInGrams = option_item::KW_MEDIATYPEWEIGHT2;
constexpr int kWeightInGramsBypass = option_item::MediaTypeWeightValueBypass;

GaveWay SetToDefault(int keyword) {
    ExportedFunc_SetCurrent(keyword, DefaultOf(keyword));
    return GaveWay::Other;
}

GaveWay GiveWayToColorMode(int keyword) {
    switch (keyword) {
    case keyword::SpotColorCorrection:
        ExportedFunc_SetCurrent(keyword, 0); // off, whatever its default
        return GaveWay::Other;
    case keyword::TwoColorPressSimulation: return SetToDefault(keyword);
    default: return GaveWay::Nothing;
    }
}

GaveWay GiveWayToDuplex(int keyword) {
    if (keyword == kWeightInGrams)
        ExportedFunc_SetMediaTypeWeightValue(DefaultOf(keyword));
    // The bypass tray's grams get the default of its weight class.
    if (keyword == kWeightInGramsBypass)
        ExportedFunc_SetMediaTypeWeightValueBypass(DefaultOf(keyword::MediaTypeWeightBypass));
    return SetToDefault(keyword);
}

// MixSizePrint gives way to duplex only: staple, punch and fold go back themselves.
GaveWay GiveWayToFinishing(int keyword) {
    if (keyword == keyword::MixSizePrint)
        return GaveWay::Own;
    if (keyword == keyword::Punch)
        SetToDefault(keyword::PunchHoles);
    return SetToDefault(keyword);
}

GaveWay GiveWayToFold(int keyword) {
    switch (keyword) {
    case keyword::StapleMode:
    case keyword::Punch:
    case keyword::MixSizePrint: return GiveWayToFinishing(keyword);
    default: return GaveWay::Nothing;
    }
}

} // namespace

GaveWay GiveWayTo(int group, int keyword) {
    switch (group) {
    case restriction_group::ColorMode: return GiveWayToColorMode(keyword);
    case restriction_group::DuplexMode: return GiveWayToDuplex(keyword);
    case restriction_group::StapleMode:
    case restriction_group::Punch: return GiveWayToFinishing(keyword);
    case restriction_group::Fold: return GiveWayToFold(keyword);
    case restriction_group::PaperTypeD:
    case restriction_group::PaperTypeBypass: return SetToDefault(keyword); // MixSizePrint too
    default: return GaveWay::Nothing;
    }
}
