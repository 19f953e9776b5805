// The settings that the restriction checks look at.
#pragma once

#include <algorithm>
#include <cstdint>

// Option indices as they stand in the Current bank, where any 32-bit number may stand.
struct RestrictionValues {
#define ZR_RESTRICTION_SETTING(name) std::int32_t name = 0;
#include "options/restriction_settings.def"

    // To the conflict tables all ways of printing on both sides are one.
    std::int32_t DuplexOfTables() const {
        return std::min(DuplexMode, 1);
    }

    bool operator==(const RestrictionValues&) const = default;
};

// At most seventeen reads of the store.
RestrictionValues ReadRestrictionValues();
