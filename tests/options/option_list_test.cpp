#include "options/PrintOptionSetting.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

const Texts kOffOn{"しない", "する"};
const Texts kOffOnKana{"オフ", "オン"};

const std::map<int, Texts> kLists{
    {2, {"横置きに回転", "たて原稿", "よこ原稿"}},
    {3, {"Nアップしない", "2アップ", "4アップ", "6アップ", "9アップ", "16アップ"}},
    {4, {"自動選択", "トレイ1", "トレイ2", "トレイ3", "トレイ4", "手差しトレイ", "トレイ6", "メディア"}},
    {14, kOffOn},
    {24, kOffOn},
    {104, {"しない", "長辺とじ", "短辺とじ", "天地同じ", "天地逆"}},
    {109, kOffOn},
    {110, {"順", "逆"}},
    {112, {"しない", "左", "右", "上", "下", "(サイズ混在)"}},
    {113, {"", "2穴", "3穴", "4穴"}},
    {134, {"使用しない", "テンプレートを使用", "ジョブ設定を使用"}},
    {135, {"詳細設定", "まとめて1枚", "小冊子"}},
    {194, kOffOnKana},
    {199, kOffOnKana},
    {303, {"短辺から出力"}},
    {305, {"600x600dpi", "1200x1200dpi"}},
    {307, kOffOnKana},
    {554, {"しない", "部全体", "シート数ごと"}},
};

struct Answer {
    int result;
    std::string text;
};

Answer OptionOf(int item, int option) {
    std::array<char, 256> buffer{"untouched"};
    const int result = GetPrintOptionStringList(&item, buffer.data(), buffer.size(), &option);
    return {result, buffer.data()};
}

int CountOf(int item) {
    int count = -1;
    return GetPrintOptionStringList(&item, nullptr, 0, &count) ? count : 0;
}

struct Row {
    std::string item;
    int value; // -1 for an option without one
};

const std::vector<Row> kRows{
#define ZR_LIST(item) {#item, -1},
#define ZR_SAME_LIST(item)
#define ZR_TEXT_OPTION(text) {"", -1},
#define ZR_VALUE_OPTION(value, text) {"", value},
#include "options/option_lists.def"
#undef ZR_LIST
#undef ZR_SAME_LIST
#undef ZR_TEXT_OPTION
#undef ZR_VALUE_OPTION
};

std::vector<int> ValuesOf(const std::string& item) {
    std::vector<int> values;
    bool inside = false;
    for (const Row& row : kRows) {
        if (!row.item.empty())
            inside = row.item == item;
        else if (inside)
            values.push_back(row.value);
    }
    return values;
}

TEST(GetPrintOptionStringList, GivesEveryTextOfEveryList) {
    for (const auto& [item, texts] : kLists) {
        for (std::size_t option = 0; option < texts.size(); ++option) {
            const Answer answer = OptionOf(item, static_cast<int>(option));
            EXPECT_EQ(answer.result, 1) << item << " " << option;
            EXPECT_EQ(answer.text, texts[option]) << item << " " << option;
        }
    }
}

TEST(GetPrintOptionStringList, CountsTheOptionsWhenThereIsNoBuffer) {
    for (const auto& [item, texts] : kLists)
        EXPECT_EQ(CountOf(item), static_cast<int>(texts.size())) << item;
}

TEST(GetPrintOptionStringList, CountsSixOptionsOfPunch) {
    EXPECT_EQ(CountOf(112), 6);
}

TEST(GetPrintOptionStringList, GivesMixedSizesForPunch13AndPunch6) {
    for (int option : {6, 13, 0x7FFFFFFF}) {
        const Answer answer = OptionOf(112, option);
        EXPECT_EQ(answer.result, 1) << option;
        EXPECT_EQ(answer.text, "(サイズ混在)") << option;
    }
}

TEST(GetPrintOptionStringList, GivesAnEmptyTextForOption0OfPunchHoles) {
    const Answer answer = OptionOf(113, 0);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.text, "");
}

TEST(GetPrintOptionStringList, LeavesTheBufferAloneBeyondTheList) {
    for (int option : {2, 3, 0x7FFFFFFF, -1}) {
        const Answer answer = OptionOf(305, option);
        EXPECT_EQ(answer.result, 0) << option;
        EXPECT_EQ(answer.text, "untouched") << option;
    }
}

TEST(GetPrintOptionStringList, WritesTheNumberOfCopies) {
    const Answer answer = OptionOf(1, 12);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.text, "12");
}

TEST(GetPrintOptionStringList, WritesTheScaleInPercent) {
    const Answer answer = OptionOf(5, 100);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.text, "100%");
}

TEST(GetPrintOptionStringList, HasNothingToCountForCopiesAndScale) {
    EXPECT_EQ(CountOf(1), 0);
    EXPECT_EQ(CountOf(5), 0);
}

TEST(GetPrintOptionStringList, KnowsNothingOfKeyword6) {
    EXPECT_EQ(OptionOf(6, 0).result, 0);
    EXPECT_EQ(OptionOf(6, 0).text, "untouched");
    int count = 77;
    const int item = 6;
    EXPECT_EQ(GetPrintOptionStringList(&item, nullptr, 0, &count), 0);
    EXPECT_EQ(count, 77);
}

TEST(GetPrintOptionStringList, KnowsNothingOfItemsOutsideItsNumbers) {
    for (int item : {-1, -0x7FFFFFFF - 1, 593, 1000, 0x7FFFFFFF})
        EXPECT_EQ(OptionOf(item, 0).result, 0) << item;
}

TEST(GetPrintOptionStringList, CutsATextThatDoesNotFit) {
    std::array<char, 12> buffer;
    buffer.fill('x');
    const int item = 305;
    int option = 1;
    EXPECT_EQ(GetPrintOptionStringList(&item, buffer.data(), 5, &option), 1);
    EXPECT_STREQ(buffer.data(), "1200");
    EXPECT_EQ(buffer[5], 'x');
}

TEST(OptionLists, KeepTheValuesOfOptionsThatHaveOne) {
    EXPECT_EQ(ValuesOf("Punch"), (std::vector{0, 1, 2, 3, 4, 13}));
    EXPECT_EQ(ValuesOf("PunchHoles"), (std::vector{0, 1, 2, 3}));
    EXPECT_EQ(ValuesOf("DuplexMode"), (std::vector{0, 1, 2, 3, 4}));
}

} // namespace
