// The table of the settings that are shown, and the units of their numbers.
#pragma once

#include "companions/jobproperty/catalogue.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace jobproperty {

// Where a setting's values come from.
enum class Source : std::uint8_t { Options, Switch, ItemOptions, Values, Number, Text, Password };

// The key's unit of a number.
enum class Unit : std::uint8_t {
    None,
    Micron,
    Inch14400,
    Percent,
    TenthPercent,
    Point,
    ThousandthPoint,
    Hour,
    Minute,
    Day,
    GramPerSquareMetre,
    Count
};

struct SettingRow {
    Subject subject;
    Source source;
    const char* name;
    int item = 0; // of Source::ItemOptions
    Unit unit = Unit::None;
    std::int64_t least = 0;
    std::int64_t most = 0;
};

// In the order of settings.def, which is that of the subjects.
std::span<const SettingRow> SettingRows();

// What of a setting's description follows from the unit of its number.
void DescribeUnit(SettingInfo& setting, Unit unit);

// Rounds halves away from 0. The divisor must be above 0.
constexpr std::int64_t RoundedQuotient(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t half = dividend < 0 ? -(divisor / 2) : divisor / 2;
    return (dividend + half) / divisor;
}

} // namespace jobproperty
