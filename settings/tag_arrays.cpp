#include "settings/InterchangeOptionTag.h"

#include "Common/log.h"
#include "session/keyword.h"
#include "settings/tag_search.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace {

using TagArray = std::span<const std::int32_t>;

namespace tag_array {
#define ZR_TAG_ARRAY(name, ...) constexpr std::int32_t name[]{__VA_ARGS__};
#include "settings/tag_arrays.def"
} // namespace tag_array

struct Row {
    int number;
    TagArray tags;
};

constexpr auto kRows = [] {
    using namespace keyword;
    return std::to_array<Row>({
#define ZR_TAGS_OF(number, array) {number, tag_array::array},
#include "settings/tag_arrays.def"
    });
}();

constexpr int kLastNumber = std::ranges::max(kRows, {}, &Row::number).number;

constexpr auto kRowsOfNumber = [] {
    std::array<int, kLastNumber + 1> result{};
    for (const Row& row : kRows)
        ++result[static_cast<std::size_t>(row.number)];
    return result;
}();
static_assert(std::ranges::max(kRowsOfNumber) == 1, "a setting has one array");

constexpr auto kTagsOfNumber = [] {
    std::array<TagArray, kLastNumber + 1> result;
    result.fill(tag_array::ZeroOne);
    for (const Row& row : kRows)
        result[static_cast<std::size_t>(row.number)] = row.tags;
    return result;
}();

TagArray TagsOf(int number) {
    if (number < 0 || number > kLastNumber)
        return tag_array::ZeroOne;
    return kTagsOfNumber[static_cast<std::size_t>(number)];
}

} // namespace

int GetTagIndexArrayFromKeyword(int keyword, const std::int32_t** array, int* count) {
    if (keyword == keyword::ChgPrintPaperSizeType)
        WriteLog("%s %d行目 %s KW_OUTPUTPAPERSIZE\n", __FILE__, __LINE__, __func__);
    const TagArray tags = TagsOf(keyword);
    *array = tags.data();
    *count = static_cast<int>(tags.size());
    return 1;
}

int GetTagNumberFromPreset(int keyword, int optionIndex, std::int32_t* tagNumber) {
    const std::int32_t* array = nullptr;
    int count = 0;
    GetTagIndexArrayFromKeyword(keyword, &array, &count);
    if (optionIndex < 0 || optionIndex >= count) {
        WriteLog("%s %d行目 %s Error KW=%d\n", __FILE__, __LINE__, __func__, keyword);
        return 0;
    }
    *tagNumber = array[optionIndex];
    return 1;
}

int GetOptionIndexFromTagNumber(int keyword, std::int32_t tagNumber, int* optionIndex) {
    const std::int32_t* array = nullptr;
    int count = 0;
    GetTagIndexArrayFromKeyword(keyword, &array, &count);
    const int index = FirstIndexOf({array, static_cast<std::size_t>(count)}, tagNumber);
    if (index < 0) {
        ZR_LOG("return:FALSE keywordID=%d optionKeywordTag=%d\n", keyword, tagNumber);
        return 0;
    }
    *optionIndex = index;
    return 1;
}
