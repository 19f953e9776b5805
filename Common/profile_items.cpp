#include "Common/profile_items.h"

#include "Common/log.h"

#include <stdexcept>
#include <utility>

namespace {

struct ItemRow {
    std::size_t slot;
    std::string_view name;
    std::int32_t type;
    std::string_view value;
};

struct TextRange {
    std::size_t firstSlot;
    std::size_t count;
    std::string_view name;
};

using namespace profile_item_type;

constexpr ItemRow kItems[] = {
#define ZR_PROFILE_ITEM(slot, name, type, value) {slot, name, type, value},
#define ZR_PROFILE_TEXTS(firstSlot, count, name)
#include "Common/profile_items.def"
#undef ZR_PROFILE_ITEM
#undef ZR_PROFILE_TEXTS
};

constexpr TextRange kTexts[] = {
#define ZR_PROFILE_ITEM(slot, name, type, value)
#define ZR_PROFILE_TEXTS(firstSlot, count, name) {firstSlot, count, name},
#include "Common/profile_items.def"
#undef ZR_PROFILE_ITEM
#undef ZR_PROFILE_TEXTS
};

consteval bool HasEachSlotOnce() {
    bool taken[kProfileItemCount] = {};
    const auto take = [&](std::size_t slot) {
        return slot < kProfileItemCount && !std::exchange(taken[slot], true);
    };
    for (const ItemRow& row : kItems)
        if (!take(row.slot))
            return false;
    for (const TextRange& range : kTexts)
        for (std::size_t i = 0; i < range.count; ++i)
            if (!take(range.firstSlot + i))
                return false;
    return true;
}
static_assert(HasEachSlotOnce());
static_assert(kTexts[0].firstSlot == kFirstCustomPaperNameSlot);

bool Contains(std::string_view line, std::string_view text) {
    return line.find(text) != std::string_view::npos;
}

// True if the item ends the line.
bool MatchText(ProfileItem& item, std::string_view line, std::size_t behindName) {
    if (behindName >= line.size())
        throw std::out_of_range("invalid string position");
    // Watermark1 must not swallow a line for Watermark10.
    if (line[behindName] != '=')
        return false;
    item.value = line.substr(behindName + 1);
    return true;
}

bool MatchItem(ProfileItem& item, std::string_view line) {
    const std::size_t name = line.find(item.name);
    if (name == std::string_view::npos)
        return false;
    switch (item.type) {
    case Presence:
        // The value counts wherever it stands in the line, also in front of the name.
        if (!Contains(line, item.value))
            return false;
        item.exists = 1;
        return true;
    case Text: return MatchText(item, line, name + item.name.size());
    default: ZR_LOG("type=%d\n", item.type); return true;
    }
}

} // namespace

void InitProfileItems(std::span<ProfileItem, kProfileItemCount> items) {
    for (ProfileItem& item : items)
        item.exists = 0;
    for (const ItemRow& row : kItems) {
        ProfileItem& item = items[row.slot];
        item.name = row.name;
        item.type = row.type;
        item.value = row.value;
    }
    for (const TextRange& range : kTexts) {
        for (std::size_t i = 0; i < range.count; ++i) {
            ProfileItem& item = items[range.firstSlot + i];
            item.name = std::string(range.name) + std::to_string(i + 1);
            item.type = Text;
            item.value.clear();
        }
    }
}

void ScanProfileLine(std::span<ProfileItem> items, std::string_view line) {
    // Empty slots are not passed over. Both texts of one are found in any line, so slot 3, the first of them,
    // takes every line that slots 0 to 2 leave, and no slot behind it is ever reached.
    for (ProfileItem& item : items)
        if (MatchItem(item, line))
            return;
}
