#include "Common/number_index.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "options/PrintOptionSetting.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace {

struct Tag {
    std::string_view tag;
    unsigned text;
};

constexpr auto kTags = [] {
    std::array tags{
#define ZR_OPTION_TAG(tag, text) Tag{#tag, text},
#include "options/option_tags.def"
    };
    std::ranges::sort(tags, {}, &Tag::tag);
    return tags;
}();
static_assert(std::ranges::adjacent_find(kTags, {}, &Tag::tag) == kTags.end(), "a tag stands twice");

// The string number of a tag, 0 for an unknown one.
constexpr unsigned TagText(std::string_view tag) {
    const auto row = std::ranges::lower_bound(kTags, tag, {}, &Tag::tag);
    return row != kTags.end() && row->tag == tag ? row->text : 0;
}

struct Label {
    int item;
    unsigned text;        // 0 where the text is a tag's
    std::string_view tag; // empty where there is a string number
    std::string_view suffix;
};

constexpr auto kLabels = [] {
    using namespace keyword;
    using namespace option_item;
    return std::array{
#define ZR_TEXT_LABEL(item, text, suffix) Label{item, text, {}, suffix},
#define ZR_TAG_LABEL(item, tag, suffix) Label{item, 0, #tag, suffix},
#include "options/option_labels.def"
    };
}();
static_assert(std::ranges::all_of(kLabels,
                                  [](const Label& label) { return label.text || TagText(label.tag); }),
              "a label names a tag that is not in the tag table");

constexpr NumberIndex<option_item::Limit> kLabelOfItem(kLabels, &Label::item);

// The whole label with its accelerator.
std::optional<std::string> LabelText(int item) {
    const Label* label = kLabelOfItem.Find(kLabels, item);
    if (!label)
        return std::nullopt;
    std::string text;
    if (label->text)
        text = LoadText(label->text);
    else
        LookupOptionTag(text, label->tag);
    return text.append(label->suffix);
}

// Answers a caller that asked for a label.
int GiveLabel(const std::optional<std::string>& label, char* buffer, std::size_t size) {
    const std::span<char> field(buffer, buffer ? size : 0);
    if (label)
        CopyText(field, *label);
    else
        std::ranges::fill(field, '\0');
    return label ? 1 : 0;
}

} // namespace

std::string& LookupOptionTag(std::string& result, std::string_view tag) {
    std::array<char, 64> text;
    const unsigned id = TagText(tag);
    result.assign(text.data(), id ? LoadText(id, text) : 0);
    return result;
}

int GetPrintOptionString(const int* key, char* buffer, std::size_t bufferSize) {
    return GiveLabel(LabelText(*key), buffer, bufferSize);
}

int UICommon::GetKeywordTranslation(int keyword, char* buffer, std::size_t size) {
    std::optional<std::string> label = LabelText(keyword);
    // "(&" and the two characters behind it; no other form of accelerator is known. It goes before the text
    // is cut, so that no half of it stays.
    if (const std::size_t accelerator = label ? label->find("(&") : std::string::npos;
        accelerator != std::string::npos)
        label->erase(accelerator, 4);
    return GiveLabel(label, buffer, size);
}
