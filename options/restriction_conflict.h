// Finds what conflicts in a set of values, and which settings have a part in it.
#pragma once

#include "options/restriction_values.h"

#include <cstdint>
#include <optional>
#include <span>

enum class RestrictionClass {
    Finishing,     // staple, punch and fold across each other
    Media,         // paper that cannot be printed on both sides
    SpotColor,     // spot colour correction in gray scale
    TwoColor,      // two colour simulation in gray scale
    MixedSizesOff, // a finishing option for mixed sizes without MixSizePrint
    MixedSizesOn,  // any other finishing option with MixSizePrint
    Imposition,    // imposition on the size of the document
};

struct RestrictionRow {
    int keyword; // a KeywordId
    std::int32_t RestrictionValues::*value;
    RestrictionClass kind;
    bool (*takesPart)(const RestrictionValues& values);
};

// The rows of restriction_rows.def, by their number.
std::span<const RestrictionRow> RestrictionRows();

struct RestrictionConflict {
    RestrictionClass kind;
    std::uint32_t rows;          // bit n: row n takes part and is not the caller's own
    const RestrictionRow* other; // the last of them, which the user is told of; null if there is none
    const RestrictionRow* own;   // the caller's; null for a group that is no row
};

// The class of the first conflict in the order of the checks. Who asks plays no part.
std::optional<RestrictionClass> FindRestrictionClass(const RestrictionValues& values);

// The conflict as the caller with this row meets it. Any int is a possible group.
std::optional<RestrictionConflict> FindRestrictionConflict(const RestrictionValues& values, int group);
