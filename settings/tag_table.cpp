#include "settings/InterchangeOptionTag.h"

#include "Common/name_index.h"

#include <algorithm>
#include <array>
#include <cstddef>

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

constexpr std::string_view KeyOf(std::size_t row) {
    return kTags[row].key;
}
constexpr std::string_view LongNameOf(std::size_t row) {
    return kTags[row].longName;
}
// Names are ASCII: equal as bytes is then the same as equal by double-byte characters.
constexpr NameIndex<kTagCount, KeyOf> kByKey;
constexpr NameIndex<kTagCount, LongNameOf> kByLongName;

void Append(std::vector<std::string_view>& list, std::string_view Tag::*name) {
    list.reserve(list.size() + kTags.size());
    for (const Tag& tag : kTags)
        list.push_back(tag.*name);
}

} // namespace

void CTagTable::GetTagInfo(std::string_view tag, std::string* longName, std::string* description) const {
    const int row = kByKey.Find(tag);
    if (row < 0)
        return;
    *longName = kTags[static_cast<std::size_t>(row)].longName;
    *description = kTags[static_cast<std::size_t>(row)].description;
}

void CTagTable::GetTagFromLongName(std::string_view longName, std::string* tag) const {
    if (const int row = kByLongName.Find(longName); row >= 0)
        *tag = kTags[static_cast<std::size_t>(row)].key;
}

void CTagTable::GetLongNameList(std::vector<std::string_view>* list) const {
    Append(*list, &Tag::longName);
}

void CTagTable::GetTagList(std::vector<std::string_view>* list) const {
    Append(*list, &Tag::key);
}
