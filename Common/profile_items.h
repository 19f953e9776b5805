// The items of a device profile and how its lines are matched against them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

inline constexpr std::size_t kProfileItemCount = 149;
inline constexpr std::size_t kFirstCustomPaperNameSlot = 29;

// Kept as a number in ProfileItem, where any other can stand too.
namespace profile_item_type {
inline constexpr std::int32_t Presence = 0;
inline constexpr std::int32_t Text = 1;
} // namespace profile_item_type

struct ProfileItem {
    std::string name;      // what a line must contain
    std::int32_t type = 0; // one of profile_item_type
    std::string value;     // of a presence item the second text that a line must contain, else what was read
    std::int32_t exists = 0; // 1 if a presence item was found
};

// Clears all flags and gives every named slot its name, type and start value. Empty slots keep their texts.
void InitProfileItems(std::span<ProfileItem, kProfileItemCount> items);

// Matches one line against the items in their order, up to the first that takes it. Throws std::out_of_range,
// "invalid string position", if the line ends with the name of a text item.
void ScanProfileLine(std::span<ProfileItem> items, std::string_view line);
