#include "Common/number_index.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "options/PrintOptionSetting.h"
#include "resources/resource.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <span>

namespace {

struct ValueText {
    std::string_view item;
    int value;
    unsigned text; // string number
};

constexpr ValueText kValueTexts[]{
#define ZR_VALUE_TEXT(item, value, text) {#item, value, text},
#include "options/option_texts.def"
};

// Evaluated by the compiler only, where reaching the `throw` is an error.
constexpr unsigned TextOfValue(std::string_view item, int value) {
    const ValueText* found = nullptr;
    for (const ValueText& row : kValueTexts) {
        if (row.value != value || row.item != item)
            continue;
        if (found)
            throw "the value has two texts";
        found = &row;
    }
    if (!found)
        throw "option_texts.def lacks the value";
    return found->text;
}

struct Option {
    // Implicit, so that a row of the table is a plain number where there is no suffix.
    constexpr Option(unsigned textNumber = 0, const char* accelerator = "")
        : text(textNumber), suffix(accelerator) {}

    unsigned text; // string number
    const char* suffix;
};

template <std::size_t Count>
constexpr auto OptionsOfValues(std::string_view item, const int (&values)[Count]) {
    std::array<Option, Count> options;
    std::ranges::transform(values, options.begin(), [&](int value) { return TextOfValue(item, value); });
    return options;
}

namespace options_of {
#define ZR_TEXT_LIST(item, ...) constexpr Option item[]{__VA_ARGS__};
#define ZR_VALUE_LIST(item, ...) constexpr auto item = OptionsOfValues(#item, {__VA_ARGS__});
#define ZR_EMPTY_LIST(item) constexpr std::array<Option, 0> item;
#include "options/option_lists.def"
} // namespace options_of

using Options = std::span<const Option>;

constexpr int kNever = std::numeric_limits<int>::max();

struct List {
    constexpr List(int listItem, Options listOptions) : item(listItem), options(listOptions) {
        // Only one string has that text, so the text itself need not be compared.
        const auto mixed = std::ranges::find(options, unsigned{IDS_MIXED_SIZES}, &Option::text);
        if (mixed != options.end())
            stop = static_cast<int>(mixed - options.begin());
    }

    int Count() const { return static_cast<int>(options.size()); }

    int item;
    Options options;
    int stop = kNever; // the first option whose text is "(サイズ混在)"; those behind it are out of reach
};

constexpr auto kLists = [] {
    using namespace keyword;
    using namespace option_item;
    return std::array{
#define ZR_TEXT_LIST(item, ...) List(item, options_of::item),
#define ZR_VALUE_LIST(item, ...) List(item, options_of::item),
#define ZR_EMPTY_LIST(item) List(item, options_of::item),
#define ZR_SAME_LIST(item, list) List(item, options_of::list),
#include "options/option_lists.def"
    };
}();

constexpr NumberIndex<option_item::Limit> kListOfItem(kLists, &List::item);

std::string TextOf(const Option& option) {
    return LoadText(option.text).append(option.suffix);
}

// The number itself is the text of the option.
int NumberText(int number, std::string_view unit, char* buffer, std::size_t bufferSize) {
    if (!buffer)
        return 0;
    CopyText({buffer, bufferSize}, std::to_string(number).append(unit));
    return 1;
}

void AppendTexts(Options options, std::vector<std::string>& texts) {
    std::ranges::transform(options, std::back_inserter(texts), TextOf);
}

} // namespace

int GetPrintOptionStringList(const int* key, char* buffer, std::size_t bufferSize, int* index) {
    if (*key == keyword::Copies)
        return NumberText(*index, "", buffer, bufferSize);
    if (*key == keyword::Scale)
        return NumberText(*index, "%", buffer, bufferSize);

    const List* list = kListOfItem.Find(kLists, *key);
    if (!list)
        return 0;
    if (!buffer) {
        *index = list->Count();
        return 1;
    }
    const int option = *index < 0 ? list->stop : std::min(*index, list->stop);
    if (option >= list->Count())
        return 0;
    CopyText({buffer, bufferSize}, TextOf(list->options[static_cast<std::size_t>(option)]));
    return 1;
}

int UICommon::GetKeywordOptionString(int keyword, char* buffer, std::size_t size, int value) {
    return GetPrintOptionStringList(&keyword, buffer, size, &value);
}

#define ZR_TEXT_LIST(item, ...)                                                                              \
    void UICommon::GetStringList_##item(std::vector<std::string>& texts) {                                   \
        AppendTexts(options_of::item, texts);                                                                \
    }
#define ZR_VALUE_LIST(item, ...) ZR_TEXT_LIST(item)
#define ZR_EMPTY_LIST(item) ZR_TEXT_LIST(item)
#include "options/option_lists.def"
