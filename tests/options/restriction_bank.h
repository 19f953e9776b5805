// The banks of the walks: arrays behind the store's operations, so that a walk sets, compares and resets all
// settings at once.
#pragma once

#include <array>
#include <cstdint>

// By KeywordId or option_item.
using Bank = std::array<std::int32_t, 340>;

struct Banks {
    Bank current{};
    Bank defaults{};
};
extern Banks banks;

struct SettingValue {
    int item;
    std::int32_t value;
};
