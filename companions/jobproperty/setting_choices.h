// What a setting can be chosen from.
#pragma once

#include "companions/jobproperty/setting_rows.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace jobproperty {

// None for a row that is no choice, and for a keyword that nobody has options for.
std::vector<Choice> ChoicesOf(const SettingRow& row, const ppd::PpdFile& device);

// What an option index of a keyword is while the application shows; nothing for one beyond the tag numbers of
// a keyword that has some.
std::optional<std::int64_t> ShownValue(int keyword, std::uint32_t optionIndex);

} // namespace jobproperty
