#include "settings/InterchangeOptionTag.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace {

struct Tag {
    std::string_view key;
    std::string_view longName;
    std::string_view description;
};

constexpr auto kTags = std::to_array<Tag>({
#define ZR_TAG(key, longName, description) Tag{#key, #longName, description},
#include "settings/tag_table.def"
});
static_assert(kTags.size() == kTagCount);

// A hyphen at an end would run together with those of "<!--" and "-->", so both ends count as hyphens. A
// plain loop: the library's searches take more steps over the table than clang allows in a constant.
constexpr bool IsPlainInComment(std::string_view text) {
    bool isBehindHyphen = true;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < ' ' || (c == '-' && isBehindHyphen))
            return false;
        isBehindHyphen = c == '-';
    }
    return !isBehindHyphen;
}
static_assert(std::ranges::all_of(kTags, IsPlainInComment, &Tag::description));

constexpr std::uint32_t Hash(std::string_view text) {
    std::uint32_t hash = 2166136261u;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash ^ (hash >> 16);
}

// Finds a row by one of its names: a name stands in the slot of its hash or in the next free one behind it.
class Index {
  public:
    using Name = std::string_view Tag::*;

    consteval explicit Index(Name name) : name_(name) {
        for (std::size_t i = 0; i < kTags.size(); ++i) {
            const std::string_view text = kTags[i].*name;
            longest_ = std::max(longest_, text.size());
            const std::size_t slot = SlotOf(text);
            hasUniqueNames_ = hasUniqueNames_ && rows_[slot] == kFree;
            rows_[slot] = static_cast<std::uint16_t>(i);
        }
    }

    constexpr bool HasUniqueNames() const { return hasUniqueNames_; }

    // Names are ASCII: equal as bytes is then the same as equal by double-byte characters.
    const Tag* Find(std::string_view text) const {
        if (text.size() > longest_)
            return nullptr;
        const std::uint16_t row = rows_[SlotOf(text)];
        return row == kFree ? nullptr : &kTags[row];
    }

  private:
    static constexpr std::size_t kSlots = 4096;
    static constexpr std::uint16_t kFree = 0xFFFF;

    static constexpr std::array<std::uint16_t, kSlots> NoRows() {
        std::array<std::uint16_t, kSlots> rows;
        rows.fill(kFree);
        return rows;
    }

    // The slot that holds the name, or the free one where it would stand.
    constexpr std::size_t SlotOf(std::string_view text) const {
        std::size_t slot = Hash(text) % kSlots;
        while (rows_[slot] != kFree && kTags[rows_[slot]].*name_ != text)
            slot = (slot + 1) % kSlots;
        return slot;
    }

    Name name_;
    std::array<std::uint16_t, kSlots> rows_ = NoRows();
    std::size_t longest_ = 0;
    bool hasUniqueNames_ = true;
};

constexpr Index kByKey(&Tag::key);
constexpr Index kByLongName(&Tag::longName);
static_assert(kByKey.HasUniqueNames() && kByLongName.HasUniqueNames());

void Append(std::vector<std::string_view>& list, Index::Name name) {
    list.reserve(list.size() + kTags.size());
    for (const Tag& tag : kTags)
        list.push_back(tag.*name);
}

} // namespace

void CTagTable::GetTagInfo(std::string_view tag, std::string* longName, std::string* description) const {
    if (const Tag* row = kByKey.Find(tag)) {
        *longName = row->longName;
        *description = row->description;
    }
}

void CTagTable::GetTagFromLongName(std::string_view longName, std::string* tag) const {
    if (const Tag* row = kByLongName.Find(longName))
        *tag = row->key;
}

void CTagTable::GetLongNameList(std::vector<std::string_view>* list) const {
    Append(*list, &Tag::longName);
}

void CTagTable::GetTagList(std::vector<std::string_view>* list) const {
    Append(*list, &Tag::key);
}
