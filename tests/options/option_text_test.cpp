// The tables behind the lists, those rows included that no list shows.
#include "Common/strings.h"
#include "tests/options/option_vocabulary.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

struct Row {
    std::string item;
    int value;
    unsigned text;
};

const std::vector<Row> kRows{
#define ZR_VALUE_TEXT(item, value, text) {#item, value, text},
#include "options/option_texts.def"
#undef ZR_VALUE_TEXT
};

const std::map<std::string, std::vector<int>> kValues{
#define ZR_TEXT_LIST(item, ...)
#define ZR_VALUE_LIST(item, ...) {#item, {__VA_ARGS__}},
#define ZR_EMPTY_LIST(item)
#define ZR_SAME_LIST(item, list)
#include "options/option_lists.def"
#undef ZR_TEXT_LIST
#undef ZR_VALUE_LIST
#undef ZR_EMPTY_LIST
#undef ZR_SAME_LIST
};

TEST(OptionTexts, HoldEveryTextByItsValue) {
    std::map<std::string, std::map<int, std::string>> texts;
    for (const Row& row : kRows)
        EXPECT_TRUE(texts[row.item].emplace(row.value, LoadText(row.text)).second)
            << row.item << " " << row.value;
    EXPECT_EQ(texts, kTextsByValue);
}

TEST(OptionTexts, HoldAsManyRowsAsTheLongTablesHave) {
    std::map<std::string, int> rows;
    for (const Row& row : kRows)
        ++rows[row.item];
    EXPECT_EQ(rows["ChgPrintPaperSizeType"], 121);
    EXPECT_EQ(rows["PaperTypeD"], 59);
    EXPECT_EQ(rows["PaperColor"], 19);
    EXPECT_EQ(rows["StapleMode"], 22);
}

TEST(OptionTexts, NameEveryStringFrom24000Up) {
    std::set<unsigned> named;
    for (const Row& row : kRows)
        named.insert(row.text);
    for (unsigned number = 24000; number <= 24266; ++number)
        EXPECT_TRUE(named.contains(number)) << number;
}

TEST(OptionTexts, GiveOneStringToEqualTexts) {
    std::map<std::string, unsigned> numbers;
    for (const Row& row : kRows) {
        const std::string text = LoadText(row.text);
        if (!text.empty()) {
            EXPECT_EQ(numbers.emplace(text, row.text).first->second, row.text) << text;
        }
    }
}

TEST(OptionLists, KeepTheOrderOfTheirValues) {
    EXPECT_EQ(kValues, kValueLists);
}

TEST(OptionLists, LeaveOutWeight12AndColor18) {
    EXPECT_EQ(kValues.at("MediaTypeWeight").back(), 255);
    EXPECT_EQ(kValues.at("MediaTypeWeight")[10], 11);
    EXPECT_EQ(kValues.at("PaperColor").back(), 17);
}

} // namespace
