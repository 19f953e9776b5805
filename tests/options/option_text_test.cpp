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
};

struct String {
    unsigned number;
    std::string text;
};

const std::vector<String> kStrings{
#define ZR_STRING(number, text) {number, text},
#include "resources/strings.def"
#undef ZR_STRING
};

// A string number, with or without a suffix.
struct TextNumber {
    TextNumber(unsigned textNumber, const char* = "") : number(textNumber) {}
    unsigned number;
};

// What the tables of labels, tags, lists and values name, 0 left out.
const std::set<unsigned> kNamedStrings = [] {
    std::set<unsigned> named;
    for (const std::vector<TextNumber>& row : std::vector<std::vector<TextNumber>>{
#define ZR_VALUE_TEXT(item, value, text) {text},
#include "options/option_texts.def"
#define ZR_TEXT_LIST(item, ...) {__VA_ARGS__},
#include "options/option_lists.def"
#define ZR_TEXT_LABEL(item, text, suffix) {text},
#include "options/option_labels.def"
#define ZR_OPTION_TAG(tag, text) {text},
#include "options/option_tags.def"
         })
        for (const TextNumber text : row)
            named.insert(text.number);
    named.erase(0);
    return named;
}();

const std::map<std::string, std::vector<int>> kValues{
#define ZR_VALUE_LIST(item, ...) {#item, {__VA_ARGS__}},
#include "options/option_lists.def"
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

// The strings behind these are the job property application's.
bool IsOptionString(unsigned number) {
    return number >= 24000 && number < 24300;
}

TEST(Vocabulary, NamesEveryStringFrom24000Up) {
    for (const auto& [number, text] : kStrings) {
        if (IsOptionString(number)) {
            EXPECT_TRUE(kNamedStrings.contains(number)) << number;
        }
    }
}

TEST(Vocabulary, GivesNoStringFrom24000UpTheTextOfAnother) {
    std::map<std::string, unsigned> numbers;
    for (const auto& [number, text] : kStrings) {
        const auto [first, isNew] = numbers.emplace(text, number);
        if (!isNew) {
            EXPECT_FALSE(IsOptionString(number)) << number << " has the text of " << first->second;
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
