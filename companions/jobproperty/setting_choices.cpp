#include "companions/jobproperty/setting_choices.h"

#include "Common/strings.h"
#include "companions/jobproperty/device_options.h"
#include "options/PrintOptionSetting.h"
#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"
#include "settings/keyword_transfer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

namespace jobproperty {
namespace {

struct ValueChoice {
    std::string_view name;
    std::int64_t value;
    unsigned text;
};
constexpr ValueChoice kValueChoices[]{
#define ZR_VALUE_CHOICE(name, value, text) {#name, value, text},
#include "companions/jobproperty/settings.def"
};

struct TextsOf {
    std::string_view name;
    std::string_view other;
};
constexpr TextsOf kTextsOf[]{
#define ZR_TEXTS_OF(name, other) {#name, #other},
#include "companions/jobproperty/settings.def"
};

std::string WithoutAccelerator(std::string text) {
    if (const std::size_t at = text.find("(&"); at != std::string::npos)
        text.erase(at, 4);
    return text;
}

std::string ListText(int item, int option) {
    std::array<char, 260> text{};
    UICommon::GetKeywordOptionString(item, text.data(), text.size(), option);
    return WithoutAccelerator(text.data());
}

// The texts of the plug-in's list, in its order.
std::vector<std::string> ListTexts(int item) {
    int count = 0;
    if (!GetPrintOptionStringList(&item, nullptr, 0, &count))
        return {};
    std::vector<std::string> texts;
    for (int option = 0; option < count; ++option)
        texts.push_back(ListText(item, option));
    return texts;
}

// The list is that of three buttons, with the stored value 2 in front.
std::vector<std::string> InStoredOrder(int keyword, std::vector<std::string> texts) {
    if (keyword == keyword::PageOrientation)
        std::ranges::rotate(texts, texts.begin() + 1);
    return texts;
}

std::vector<std::string> NamedOptions(int keyword, const ppd::PpdFile& device) {
    std::vector<std::string> names = DeviceOptions(device, keyword);
    const std::string_view name = kKeywordNames[static_cast<std::size_t>(keyword)];
    const auto* row = std::ranges::find(kTextsOf, name, &TextsOf::name);
    if (row == std::end(kTextsOf))
        return names;
    std::vector<std::string> others = DeviceOptions(device, FindKeyword(row->other));
    return others.size() == names.size() ? others : names;
}

// The device has as many options as its description lists, whatever the plug-in has texts for.
std::vector<std::string> OptionTexts(int keyword, const ppd::PpdFile& device) {
    std::vector<std::string> texts = InStoredOrder(keyword, ListTexts(keyword));
    std::vector<std::string> named = NamedOptions(keyword, device);
    if (named.empty())
        return texts;
    texts.resize(named.size());
    for (std::size_t option = 0; option < texts.size(); ++option)
        if (texts[option].empty())
            texts[option] = std::move(named[option]);
    return texts;
}

void Add(std::vector<Choice>& choices, std::int64_t value, std::string text) {
    // Of options with one tag number the first stands for all, as it does on the way back into the bank.
    if (std::ranges::find(choices, value, &Choice::value) == choices.end())
        choices.push_back({value, std::move(text)});
}

std::vector<Choice> KeywordChoices(int keyword, const ppd::PpdFile& device) {
    std::vector<Choice> choices;
    std::uint32_t option = 0;
    for (std::string& text : OptionTexts(keyword, device)) {
        // The sheet leaves an index without a tag number as it is.
        Add(choices, ShownValue(keyword, option).value_or(option), std::move(text));
        ++option;
    }
    return choices;
}

std::vector<Choice> ItemChoices(int item) {
    std::vector<Choice> choices;
    for (std::string& text : ListTexts(item))
        Add(choices, static_cast<std::int64_t>(choices.size()), std::move(text));
    return choices;
}

std::vector<Choice> NamedChoices(std::string_view name) {
    std::vector<Choice> choices;
    for (const ValueChoice& row : kValueChoices)
        if (row.name == name)
            Add(choices, row.value, LoadText(row.text));
    return choices;
}

} // namespace

std::vector<Choice> ChoicesOf(const SettingRow& row, const ppd::PpdFile& device) {
    switch (row.source) {
    case Source::Options: return KeywordChoices(FindKeyword(row.name), device);
    case Source::Switch: return ItemChoices(keyword::PagePrintOnCenter);
    case Source::ItemOptions: return ItemChoices(row.item);
    case Source::Values: return NamedChoices(row.name);
    case Source::Number:
    case Source::Text:
    case Source::Password: break;
    }
    return {};
}

std::optional<std::int64_t> ShownValue(int keyword, std::uint32_t optionIndex) {
    const KeywordMoves& moves = MovesOf(keyword);
    const bool isTag =
        moves.currentToSession != KeywordMove::None && moves.printOptionFromSession == KeywordMove::Converted;
    if (!isTag)
        return optionIndex;
    std::int32_t tag = 0;
    if (!GetTagNumberFromPreset(keyword, static_cast<int>(optionIndex), &tag))
        return std::nullopt;
    return tag;
}

} // namespace jobproperty
