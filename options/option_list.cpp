#include "Common/strings.h"
#include "Common/text.h"
#include "options/PrintOptionSetting.h"
#include "resources/resource.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace {

enum class RowKind { List, SameList, Option };

struct Row {
    RowKind kind;
    unsigned number; // the item, or the string number of the option's text
};

constexpr auto kRows = [] {
    using namespace keyword;
    using namespace option_item;
    return std::array{
#define ZR_LIST(item) Row{RowKind::List, item},
#define ZR_SAME_LIST(item) Row{RowKind::SameList, item},
#define ZR_TEXT_OPTION(text) Row{RowKind::Option, text},
#define ZR_VALUE_OPTION(value, text) Row{RowKind::Option, text},
#include "options/option_lists.def"
#undef ZR_LIST
#undef ZR_SAME_LIST
#undef ZR_TEXT_OPTION
#undef ZR_VALUE_OPTION
    };
}();

constexpr auto CountRows(RowKind kind) {
    return static_cast<std::size_t>(std::ranges::count(kRows, kind, &Row::kind));
}

constexpr int kNever = std::numeric_limits<int>::max();

struct List {
    std::uint16_t first; // in Lists::texts
    std::uint16_t count;
    int stop; // the first option whose text is "(サイズ混在)"; the options behind it are out of reach
};

struct Lists {
    std::array<unsigned, CountRows(RowKind::Option)> texts{};
    std::array<List, CountRows(RowKind::List)> lists{};
    std::array<std::uint8_t, option_item::Limit> listOfItem{}; // position in `lists` plus 1, 0 for none
};

constexpr Lists kLists = [] {
    Lists result;
    std::size_t textCount = 0;
    std::uint8_t listCount = 0;
    for (const Row& row : kRows) {
        if (row.kind == RowKind::List)
            result.lists[listCount++] = {static_cast<std::uint16_t>(textCount), 0, kNever};
        if (row.kind != RowKind::Option) {
            result.listOfItem[row.number] = listCount;
            continue;
        }
        List& list = result.lists[listCount - 1u];
        // Equal texts have equal numbers, so the text itself need not be compared.
        if (row.number == IDS_MIXED_SIZES)
            list.stop = std::min<int>(list.stop, list.count);
        ++list.count;
        result.texts[textCount++] = row.number;
    }
    return result;
}();

const List* FindList(int item) {
    if (item < 0 || item >= option_item::Limit)
        return nullptr;
    const std::uint8_t position = kLists.listOfItem[static_cast<std::size_t>(item)];
    return position ? &kLists.lists[position - 1u] : nullptr;
}

// The number itself is the text of the option.
int NumberText(int number, std::string_view unit, char* buffer, std::size_t bufferSize) {
    if (!buffer)
        return 0;
    CopyText({buffer, bufferSize}, std::to_string(number).append(unit));
    return 1;
}

} // namespace

int GetPrintOptionStringList(const int* key, char* buffer, std::size_t bufferSize, int* index) {
    if (*key == keyword::Copies)
        return NumberText(*index, "", buffer, bufferSize);
    if (*key == keyword::Scale)
        return NumberText(*index, "%", buffer, bufferSize);

    const List* list = FindList(*key);
    if (!list)
        return 0;
    if (!buffer) {
        *index = list->count;
        return 1;
    }
    const int option = *index < 0 ? list->stop : std::min(*index, list->stop);
    if (option >= list->count)
        return 0;
    LoadText(kLists.texts[list->first + static_cast<std::size_t>(option)], {buffer, bufferSize});
    return 1;
}
