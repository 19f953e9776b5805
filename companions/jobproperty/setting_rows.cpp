#include "companions/jobproperty/setting_rows.h"

#include "Common/strings.h"
#include "options/PrintOptionSetting.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace jobproperty {
namespace {

struct ShownUnit {
    std::int64_t scale;
    std::int64_t divisor;
    int decimals;
    const char* text;    // "" where the string table has it
    unsigned textNumber; // 0 for a unit without one
};

constexpr ShownUnit kPlain{1, 1, 0, "", 0};

// By Unit. An inch has 25.4 mm; three decimals tell all neighbours of 1/14400 inch apart.
constexpr std::array<ShownUnit, static_cast<std::size_t>(Unit::Count)> kUnits{
    kPlain,
    ShownUnit{1000, 1, 3, "mm", 0},
    ShownUnit{72000, 127, 3, "mm", 0},
    ShownUnit{1, 1, 0, "%", 0},
    ShownUnit{10, 1, 1, "%", 0},
    ShownUnit{1, 1, 0, "pt", 0},
    ShownUnit{1000, 1, 3, "pt", 0},
    ShownUnit{1, 1, 0, "", 24316},
    ShownUnit{1, 1, 0, "", 24317},
    ShownUnit{1, 1, 0, "", 24318},
    ShownUnit{1, 1, 0, "", 24319},
};

constexpr const ShownUnit& ShownUnitOf(Unit unit) {
    return kUnits[static_cast<std::size_t>(unit)];
}

struct Range {
    std::string_view name;
    std::int64_t least;
    std::int64_t most;
};

constexpr Range kChecks[]{
#define ZR_RANGE(name, min, max, value) {#name, min, max},
#include "settings/value_checks.def"
};

// Evaluated by the compiler only, where reaching the `throw` is an error.
constexpr SettingRow Checked(Subject subject, const char* name, Unit unit) {
    const auto* check = std::ranges::find(kChecks, std::string_view(name), &Range::name);
    if (check == std::end(kChecks))
        throw "the number has no check";
    return {subject, Source::Number, name, 0, unit, check->least, check->most};
}

constexpr SettingRow Length(Subject subject, const char* name, Unit unit, std::int64_t least,
                            std::int64_t most) {
    const ShownUnit& shown = ShownUnitOf(unit);
    return {subject,
            Source::Number,
            name,
            0,
            unit,
            RoundedQuotient(least * shown.scale, shown.divisor),
            RoundedQuotient(most * shown.scale, shown.divisor)};
}

constexpr auto kRows = std::to_array<SettingRow>({
#define ZR_OPTIONS(subject, name) {Subject::subject, Source::Options, #name},
#define ZR_SWITCH(subject, name) {Subject::subject, Source::Switch, #name},
#define ZR_ITEM_OPTIONS(subject, name, item)                                                                 \
    {Subject::subject, Source::ItemOptions, #name, option_item::item},
#define ZR_VALUES(subject, name) {Subject::subject, Source::Values, #name},
#define ZR_NUMBER(subject, name, unit, least, most)                                                          \
    {Subject::subject, Source::Number, #name, 0, Unit::unit, least, most},
#define ZR_LENGTH(subject, name, unit, least, most) Length(Subject::subject, #name, Unit::unit, least, most),
#define ZR_CHECKED(subject, name, unit) Checked(Subject::subject, #name, Unit::unit),
#define ZR_TEXT(subject, name) {Subject::subject, Source::Text, #name},
#define ZR_PASSWORD(subject, name) {Subject::subject, Source::Password, #name},
#include "companions/jobproperty/settings.def"
});
static_assert(std::ranges::is_sorted(kRows, {}, &SettingRow::subject), "a subject's settings stand together");

} // namespace

std::span<const SettingRow> SettingRows() {
    return kRows;
}

void DescribeUnit(SettingInfo& setting, Unit unit) {
    const ShownUnit& shown = ShownUnitOf(unit);
    setting.scale = shown.scale;
    setting.divisor = shown.divisor;
    setting.decimals = shown.decimals;
    setting.unit = shown.textNumber ? LoadText(shown.textNumber) : shown.text;
}

} // namespace jobproperty
