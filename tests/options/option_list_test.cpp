#include "options/PrintOptionSetting.h"
#include "tests/options/option_vocabulary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

constexpr int kLargest = 0x7FFFFFFF;
constexpr int kSmallest = -0x7FFFFFFF - 1;

struct Answer {
    int result;
    std::string text;
};

Answer OptionOf(int item, int option) {
    std::array<char, 256> buffer{"untouched"};
    const int result = GetPrintOptionStringList(&item, buffer.data(), buffer.size(), &option);
    return {result, buffer.data()};
}

// The number of options, -1 for an item without a list.
int CountOf(int item) {
    int count = -2;
    return GetPrintOptionStringList(&item, nullptr, 0, &count) ? count : -1;
}

void ExpectText(int item, int option, const std::string& text) {
    const Answer answer = OptionOf(item, option);
    EXPECT_EQ(answer.result, 1) << item << " " << option;
    EXPECT_EQ(answer.text, text) << item << " " << option;
}

void ExpectNoText(int item, int option) {
    const Answer answer = OptionOf(item, option);
    EXPECT_EQ(answer.result, 0) << item << " " << option;
    EXPECT_EQ(answer.text, "untouched") << item << " " << option;
}

bool HasMixedSizes(const std::vector<std::string>& texts) {
    return std::ranges::count(texts, "(サイズ混在)") > 0;
}

TEST(GetPrintOptionStringList, GivesEveryTextOfEveryList) {
    ASSERT_EQ(kListOfItem.size(), 39u);
    for (const auto& [item, list] : kListOfItem) {
        const std::vector<std::string> texts = TextsOfList(list);
        for (std::size_t option = 0; option < texts.size(); ++option)
            ExpectText(item, static_cast<int>(option), texts[option]);
    }
}

TEST(GetPrintOptionStringList, FitsEveryTextInto64Bytes) {
    for (const auto& [item, list] : kListOfItem) {
        const std::vector<std::string> texts = TextsOfList(list);
        for (int option = 0; option < static_cast<int>(texts.size()); ++option) {
            std::array<char, 64> buffer;
            GetPrintOptionStringList(&item, buffer.data(), buffer.size(), &option);
            EXPECT_EQ(buffer.data(), texts[static_cast<std::size_t>(option)]) << item;
        }
    }
}

TEST(GetPrintOptionStringList, CountsTheOptionsWhenThereIsNoBuffer) {
    for (const auto& [item, list] : kListOfItem)
        EXPECT_EQ(CountOf(item), static_cast<int>(TextsOfList(list).size())) << item;
}

TEST(GetPrintOptionStringList, CountsNoOptionOfTheFourMediaProperties) {
    for (int item : {18, 19, 21, 22}) {
        int count = 77;
        EXPECT_EQ(GetPrintOptionStringList(&item, nullptr, 0, &count), 1) << item;
        EXPECT_EQ(count, 0) << item;
        ExpectNoText(item, 0);
    }
}

TEST(GetPrintOptionStringList, CountsTheLongLists) {
    EXPECT_EQ(CountOf(12), 50);
    EXPECT_EQ(CountOf(15), 59);
    EXPECT_EQ(CountOf(16), 12);
    EXPECT_EQ(CountOf(17), 18);
    EXPECT_EQ(CountOf(111), 22);
    EXPECT_EQ(CountOf(114), 11);
}

TEST(GetPrintOptionStringList, KnowsNothingOfAnyOtherItem) {
    for (int item = -3; item < 1000; ++item) {
        if (!kListOfItem.contains(item) && item != 1 && item != 5) {
            EXPECT_EQ(CountOf(item), -1) << item;
            ExpectNoText(item, 0);
        }
    }
    for (int item : {kLargest, kSmallest}) {
        EXPECT_EQ(CountOf(item), -1) << item;
        ExpectNoText(item, 0);
    }
}

TEST(GetPrintOptionStringList, KnowsNothingOfKeyword6) {
    ExpectNoText(6, 0);
    int count = 77;
    const int item = 6;
    EXPECT_EQ(GetPrintOptionStringList(&item, nullptr, 0, &count), 0);
    EXPECT_EQ(count, 77);
}

TEST(GetPrintOptionStringList, LeavesTheBufferAloneOutsideEveryList) {
    for (const auto& [item, list] : kListOfItem) {
        const std::vector<std::string> texts = TextsOfList(list);
        if (HasMixedSizes(texts))
            continue;
        const int count = static_cast<int>(texts.size());
        for (int option : {count, count + 1, kLargest, -1, kSmallest})
            ExpectNoText(item, option);
    }
}

TEST(GetPrintOptionStringList, CountsSixOptionsOfPunch) {
    EXPECT_EQ(CountOf(112), 6);
}

TEST(GetPrintOptionStringList, GivesMixedSizesForPunch13AndPunch6) {
    for (int option : {5, 6, 13, kLargest})
        ExpectText(112, option, "(サイズ混在)");
}

TEST(GetPrintOptionStringList, GivesMixedSizesForANegativePunchToo) {
    for (int option : {-1, kSmallest})
        ExpectText(112, option, "(サイズ混在)");
}

TEST(GetPrintOptionStringList, GoesOnBehindMixedSizesInFullWidthBrackets) {
    ExpectText(111, 5, "1ヵ所（サイズ混在）");
    ExpectText(111, 6, "上２ヵ所");
    ExpectText(111, 21, "右4ヵ所");
    ExpectNoText(111, 22);
}

TEST(GetPrintOptionStringList, GoesOnBehindTheZFoldOfMixedSizes) {
    ExpectText(114, 6, "Z折り (サイズ混在)");
    ExpectText(114, 7, "内三折り(内側に印字)");
    ExpectNoText(114, 11);
}

TEST(GetPrintOptionStringList, GivesAnEmptyTextForOption0OfPunchHoles) {
    ExpectText(113, 0, "");
}

TEST(GetPrintOptionStringList, GivesAnEmptyTextForWeight11) {
    for (int item : {16, 26, 336})
        ExpectText(item, 11, "");
}

TEST(GetPrintOptionStringList, GivesAnEmptyTextForOption0OfStapleFreeBinding) {
    ExpectText(562, 0, "");
    ExpectText(562, 1, "針なし");
}

TEST(GetPrintOptionStringList, KeepsTheAcceleratorsOfTheJobNameChoice) {
    ExpectText(581, 0, "自動取得(&A)");
    ExpectText(581, 1, "ジョブ名を入力する(&E)");
}

TEST(GetPrintOptionStringList, KeepsABlankAtTheEndOfAPaperSize) {
    ExpectText(12, 10, "B5(182x257mm) LEF ");
}

TEST(GetPrintOptionStringList, WritesWeightsInTheCodePage) {
    ExpectText(16, 0, "52-63 g/\x87\x75");
}

TEST(GetPrintOptionStringList, WritesTheNumberOfCopies) {
    ExpectText(1, 12, "12");
    ExpectText(1, kSmallest, "-2147483648");
}

TEST(GetPrintOptionStringList, WritesTheScaleInPercent) {
    ExpectText(5, 100, "100%");
    ExpectText(5, kLargest, "2147483647%");
}

TEST(GetPrintOptionStringList, HasNothingToCountForCopiesAndScale) {
    EXPECT_EQ(CountOf(1), -1);
    EXPECT_EQ(CountOf(5), -1);
}

TEST(GetPrintOptionStringList, ListsRotatedBeforePortraitThoughItIsStoredAs2) {
    ExpectText(2, 0, "横置きに回転");
    ExpectText(2, 1, "たて原稿");
    ExpectText(2, 2, "よこ原稿");
}

TEST(GetPrintOptionStringList, LeavesTheIndexAsItIsWhenItGivesAText) {
    const int item = 112;
    int option = 13;
    std::array<char, 64> buffer;
    EXPECT_EQ(GetPrintOptionStringList(&item, buffer.data(), buffer.size(), &option), 1);
    EXPECT_EQ(option, 13);
}

// The text that a buffer of `size` bytes gets; the byte behind the buffer must stay.
std::string CutOptionOf(int item, int option, std::size_t size) {
    std::array<char, 64> buffer;
    buffer.fill('x');
    EXPECT_EQ(GetPrintOptionStringList(&item, buffer.data(), size, &option), 1);
    EXPECT_EQ(buffer[size], 'x');
    return size ? std::string(buffer.data()) : std::string();
}

TEST(GetPrintOptionStringList, CutsATextThatDoesNotFit) {
    EXPECT_EQ(CutOptionOf(305, 1, 5), "1200");
    EXPECT_EQ(CutOptionOf(5, 100, 4), "100");
    EXPECT_EQ(CutOptionOf(581, 0, 10), "自動取得(");
}

TEST(GetPrintOptionStringList, CutsOnACharacterBoundary) {
    EXPECT_EQ(CutOptionOf(17, 9, 7), "山吹色");
    EXPECT_EQ(CutOptionOf(17, 9, 6), "山吹");
    EXPECT_EQ(CutOptionOf(17, 9, 5), "山吹");
    EXPECT_EQ(CutOptionOf(17, 9, 2), "");
}

TEST(GetPrintOptionStringList, WritesNoMoreThanABufferOf0Or1BytesHolds) {
    for (int item : {1, 5, 305, 581}) {
        EXPECT_EQ(CutOptionOf(item, 1, 1), "") << item;
        CutOptionOf(item, 1, 0);
    }
}

TEST(GetKeywordOptionString, GivesTheTextOfAnOption) {
    std::array<char, 64> buffer;
    EXPECT_EQ(UICommon::GetKeywordOptionString(111, buffer.data(), buffer.size(), 5), 1);
    EXPECT_STREQ(buffer.data(), "1ヵ所（サイズ混在）");
    EXPECT_EQ(UICommon::GetKeywordOptionString(112, buffer.data(), buffer.size(), 13), 1);
    EXPECT_STREQ(buffer.data(), "(サイズ混在)");
    EXPECT_EQ(UICommon::GetKeywordOptionString(1, buffer.data(), buffer.size(), 12), 1);
    EXPECT_STREQ(buffer.data(), "12");
}

TEST(GetKeywordOptionString, PassesOnThatThereIsNoOption) {
    std::array<char, 64> buffer{"untouched"};
    EXPECT_EQ(UICommon::GetKeywordOptionString(111, buffer.data(), buffer.size(), 22), 0);
    EXPECT_EQ(UICommon::GetKeywordOptionString(111, buffer.data(), buffer.size(), -1), 0);
    EXPECT_EQ(UICommon::GetKeywordOptionString(6, buffer.data(), buffer.size(), 0), 0);
    EXPECT_STREQ(buffer.data(), "untouched");
}

TEST(GetKeywordOptionString, WritesNoMoreThanTheBufferHolds) {
    std::array<char, 2> buffer{'x', 'x'};
    EXPECT_EQ(UICommon::GetKeywordOptionString(138, buffer.data(), 0, 1), 1);
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_EQ(UICommon::GetKeywordOptionString(138, buffer.data(), 1, 1), 1);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], 'x');
}

TEST(GetKeywordOptionString, WritesNothingWithoutABuffer) {
    EXPECT_EQ(UICommon::GetKeywordOptionString(138, nullptr, 64, 1), 1);
    EXPECT_EQ(UICommon::GetKeywordOptionString(1, nullptr, 64, 1), 0);
    EXPECT_EQ(UICommon::GetKeywordOptionString(6, nullptr, 64, 1), 0);
}

} // namespace
