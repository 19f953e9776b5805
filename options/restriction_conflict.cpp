#include "options/restriction_conflict.h"

#include "options/restriction_tables.h"
#include "session/keyword.h"

#include <array>
#include <cstddef>

namespace {

constexpr auto kRows = std::to_array<RestrictionRow>({
#define ZR_RESTRICTION_ROW(group, setting, kind, condition)                                                  \
    {keyword::setting, &RestrictionValues::setting, RestrictionClass::kind,                                  \
     [](const RestrictionValues& values) -> bool { return condition; }},
#include "options/restriction_rows.def"
});
static_assert(kRows.size() <= 32, "RestrictionConflict::rows has a bit for each");

} // namespace

std::span<const RestrictionRow> RestrictionRows() {
    return kRows;
}

std::optional<RestrictionClass> FindRestrictionClass(const RestrictionValues& v) {
    using namespace restriction_table;
    const RestrictionClass mixedSizes =
        v.MixSizePrint == 0 ? RestrictionClass::MixedSizesOff : RestrictionClass::MixedSizesOn;
    if (FinishingConflictTable(v.Fold, v.StapleMode, v.Punch))
        return RestrictionClass::Finishing;
    if (StapleMixTable(v.StapleMode, v.MixSizePrint))
        return mixedSizes;
    if (PunchMixTable(v.Punch, v.MixSizePrint))
        return mixedSizes;
    if (FoldMixTable(v.Fold, v.MixSizePrint))
        return mixedSizes;
    if (HolesConflictTable(v.Fold, v.StapleMode, v.PunchHoles))
        return RestrictionClass::Finishing;
    if (MediaConflictTable(v.DuplexOfTables(), v.PaperTypeD, v.KW_MEDIATYPEWEIGHT2))
        return RestrictionClass::Media;
    if (MediaConflictTable(v.DuplexOfTables(), v.PaperTypeBypass, v.MediaTypeWeightBypass))
        return RestrictionClass::Media;
    if (SpotColorConflictTable(v.ColorMode, v.SpotColorCorrection))
        return RestrictionClass::SpotColor;
    if (TwoColorConflictTable(v.ColorMode, v.TwoColorPressSimulation))
        return RestrictionClass::TwoColor;
    if (ImpositionConflictTable(v.ChgPrintPaperSizeType, v.ImpositionMode, v.ImpositionCustomMode))
        return RestrictionClass::Imposition;
    return std::nullopt;
}

std::optional<RestrictionConflict> FindRestrictionConflict(const RestrictionValues& values, int group) {
    const std::optional<RestrictionClass> kind = FindRestrictionClass(values);
    if (!kind)
        return std::nullopt;
    RestrictionConflict conflict{*kind, 0, nullptr, nullptr};
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        if (group >= 0 && row == static_cast<std::size_t>(group)) {
            conflict.own = &kRows[row];
        } else if (kRows[row].kind == *kind && kRows[row].takesPart(values)) {
            conflict.rows |= std::uint32_t{1} << row;
            conflict.other = &kRows[row];
        }
    }
    return conflict;
}
