#include "Common/strings.h"
#include "options/PrintOptionSetting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

const std::map<int, std::string> kLabels{
    {0, "原稿サイズ(&S)"},
    {1, "部数(&C)"},
    {2, "原稿の向き"},
    {3, "まとめて一枚(&N)"},
    {4, "用紙トレイ(&F)"},
    {5, "倍率を指定する"},
    {12, "出力用紙サイズ(&P)"},
    {13, "拡大/縮小(&U)"},
    {14, "用紙の中心にプリント(&K)"},
    {15, "用紙種類(&T)"},
    {17, "用紙色(&C)"},
    {24, "自動トレイの用紙設定を手差し設定に適用(&S)"},
    {25, "用紙種類(&T)"},
    {26, "用紙種類-坪量(&W)"},
    {27, "用紙色(&C)"},
    {34, "手差し両面印刷(&A)"},
    {57, "スプールオプション(&S)"},
    {104, "両面印刷(&R)"},
    {106, "排出先(&O)"},
    {108, "オフセット排出(&L)"},
    {109, "ソートする(一部ごと)(&Q)"},
    {110, "最終ページからプリントする"},
    {111, "ホチキス(&H)"},
    {112, "パンチ(&I)"},
    {114, "紙折り"},
    {134, "面付け設定"},
    {135, "面付け設定"},
    {138, "カラーモード(&M)"},
    {194, "特色補正を行う"},
    {199, "２色印刷シミュレーションを有効にする"},
    {205, "プリンタモード(&P)"},
    {305, "印刷品質"},
    {307, "サイズ混在原稿をプリントする"},
    {336, "用紙種類-坪量(&W)"},
    {554, "サンプル出力"},
    {564, "基本"},
    {565, "トレイ/排出"},
    {566, "手差し設定"},
    {567, "自動トレイの用紙設定"},
    {579, "ジョブ名(&N)"},
    {580, "ジョブ名の指定"},
    {583, "お気に入り(&J)"},
    {584, "用紙種類(&T)"},
    {585, "用紙坪量(&W)"},
    {586, "用紙色(&C)"},
    {587, "1組の枚数(&S)"},
    {588, "番号(&N)"},
    {589, "コート(&M)"},
    {590, "パンチ穴(&P)"},
    {591, "グロス(&G)"},
    {592, "プレプリント紙(&G)"},
};

const std::map<std::string, std::string> kTags{
    {"CPM", "プリンタモード"},
    {"OSpO", "スプールオプション"},
    {"OFTP", "拡大/縮小"},
    {"ODM", "両面印刷"},
    {"CCM", "カラーモード"},
    {"OSM", "ホチキス"},
    {"OPu", "パンチ"},
    {"OFo", "紙折り"},
    {"ODO", "原稿の向き"},
    {"OTra", "用紙トレイ"},
    {"OOT", "排出先"},
    {"OOfMo", "オフセット排出"},
    {"Ocol", "ソートする(一部ごと)"},
    {"OPTB", "用紙種類"},
    {"OPTyD", "用紙種類"},
    {"OMTWB", "用紙種類-坪量"},
    {"OMTW", "用紙種類-坪量"},
    {"OPCB", "用紙色"},
    {"OPC", "用紙色"},
    {"OMDM", "手差し両面印刷"},
    {"OMSP", "サイズ混在原稿をプリントする"},
};

struct Answer {
    int result;
    std::string text;
};

Answer LabelOf(int item) {
    std::array<char, 64> buffer;
    buffer.fill('x');
    const int result = GetPrintOptionString(&item, buffer.data(), buffer.size());
    return {result, buffer.data()};
}

TEST(GetPrintOptionString, GivesEveryLabelWithItsAccelerator) {
    ASSERT_EQ(kLabels.size(), 51u);
    for (const auto& [item, label] : kLabels) {
        const Answer answer = LabelOf(item);
        EXPECT_EQ(answer.result, 1) << item;
        EXPECT_EQ(answer.text, label) << item;
    }
}

TEST(GetPrintOptionString, GivesNoLabelToAnyOtherItem) {
    for (int item = -3; item < 1000; ++item) {
        if (!kLabels.contains(item)) {
            EXPECT_EQ(LabelOf(item).result, 0) << item;
        }
    }
    EXPECT_EQ(LabelOf(0x7FFFFFFF).result, 0);
    EXPECT_EQ(LabelOf(-0x7FFFFFFF - 1).result, 0);
}

TEST(GetPrintOptionString, ZeroFillsTheBufferForItems16And113And301And582) {
    for (int item : {16, 113, 301, 582}) {
        std::array<char, 64> buffer;
        buffer.fill('x');
        EXPECT_EQ(GetPrintOptionString(&item, buffer.data(), buffer.size()), 0) << item;
        EXPECT_EQ(std::ranges::count(buffer, '\0'), 64) << item;
    }
}

TEST(GetPrintOptionString, HasNoAcceleratorFor2And5And110And114And307) {
    for (int item : {2, 5, 110, 114, 307})
        EXPECT_EQ(LabelOf(item).text.find("(&"), std::string::npos) << item;
    for (int item : {1, 3, 4, 109, 111, 112})
        EXPECT_NE(LabelOf(item).text.find("(&"), std::string::npos) << item;
}

TEST(GetPrintOptionString, LeavesOneAcceleratorToBothGlossAndPreprinted) {
    EXPECT_EQ(LabelOf(591).text, "グロス(&G)");
    EXPECT_EQ(LabelOf(592).text, "プレプリント紙(&G)");
}

TEST(GetPrintOptionString, CutsALabelThatDoesNotFit) {
    std::array<char, 12> buffer;
    buffer.fill('x');
    const int item = 305;
    EXPECT_EQ(GetPrintOptionString(&item, buffer.data(), 8), 1);
    EXPECT_STREQ(buffer.data(), "印刷品");
    EXPECT_EQ(buffer[8], 'x');
}

TEST(GetPrintOptionString, CutsOnACharacterBoundary) {
    std::array<char, 12> buffer;
    buffer.fill('x');
    const int item = 305;
    EXPECT_EQ(GetPrintOptionString(&item, buffer.data(), 4), 1);
    EXPECT_STREQ(buffer.data(), "印");
    EXPECT_EQ(buffer[4], 'x');
}

TEST(GetPrintOptionString, WritesNoMoreThanABufferOf0Or1BytesHolds) {
    for (int item : {305, 113}) {
        std::array<char, 2> buffer{'x', 'x'};
        EXPECT_EQ(GetPrintOptionString(&item, buffer.data(), 0), item == 305) << item;
        EXPECT_EQ(buffer[0], 'x') << item;
        EXPECT_EQ(GetPrintOptionString(&item, buffer.data(), 1), item == 305) << item;
        EXPECT_EQ(buffer[0], '\0') << item;
        EXPECT_EQ(buffer[1], 'x') << item;
    }
}

TEST(GetPrintOptionString, WritesNothingWithoutABuffer) {
    for (int item : {305, 113}) {
        EXPECT_EQ(GetPrintOptionString(&item, nullptr, 0), item == 305) << item;
        EXPECT_EQ(GetPrintOptionString(&item, nullptr, 64), item == 305) << item;
    }
}

TEST(GetPrintOptionString, TellsNoAcceleratorOfTheStandardPageTwice) {
    std::vector<std::string> captions;
    for (int item : {0, 1, 2, 3, 4, 12, 13, 14, 104, 106, 108, 109, 110, 111, 112, 114, 138, 583})
        captions.push_back(LabelOf(item).text);
    for (unsigned button : {15000, 15001, 15002, 15003, 15004, 15005, 15006, 15007, 15008, 15022})
        captions.push_back(LoadText(button));

    std::set<char> accelerators{'A'}; // the sheet's own button that applies
    for (const std::string& caption : captions) {
        const std::size_t mark = caption.find("(&");
        if (mark != std::string::npos) {
            EXPECT_TRUE(accelerators.insert(caption[mark + 2]).second) << caption;
        }
    }
    EXPECT_EQ(accelerators.size(), 25u);
}

// The label without its accelerator, "?" in front if the result is 0.
std::string TranslationOf(int item, std::size_t size = 64) {
    std::array<char, 64> buffer;
    buffer.fill('x');
    const int result = UICommon::GetKeywordTranslation(item, buffer.data(), size);
    return (result ? "" : "?") + std::string(buffer.data());
}

TEST(GetKeywordTranslation, GivesEveryLabelWithoutItsAccelerator) {
    for (const auto& [item, label] : kLabels)
        EXPECT_EQ(TranslationOf(item), label.substr(0, label.find("(&"))) << item;
}

TEST(GetKeywordTranslation, DropsTheAcceleratorOfTray) {
    EXPECT_EQ(TranslationOf(4), "用紙トレイ");
}

TEST(GetKeywordTranslation, LeavesTheLabelOfFoldAsItIs) {
    EXPECT_EQ(TranslationOf(114), "紙折り");
}

TEST(GetKeywordTranslation, KeepsABracketThatIsNoAccelerator) {
    EXPECT_EQ(TranslationOf(109), "ソートする(一部ごと)");
}

TEST(GetKeywordTranslation, ZeroFillsTheBufferForAnItemWithoutALabel) {
    for (int item : {16, 113, 301, 582, -1, 593, 0x7FFFFFFF}) {
        std::array<char, 64> buffer;
        buffer.fill('x');
        EXPECT_EQ(UICommon::GetKeywordTranslation(item, buffer.data(), buffer.size()), 0) << item;
        EXPECT_EQ(std::ranges::count(buffer, '\0'), 64) << item;
    }
}

TEST(GetKeywordTranslation, LeavesNoHalfOfAnAcceleratorInASmallBuffer) {
    for (std::size_t size : {11, 12, 13, 14, 15})
        EXPECT_EQ(TranslationOf(4, size), "用紙トレイ") << size;
    EXPECT_EQ(TranslationOf(4, 10), "用紙トレ");
    EXPECT_EQ(TranslationOf(4, 1), "");
}

TEST(GetKeywordTranslation, WritesNothingIntoNoBuffer) {
    std::array<char, 1> buffer{'x'};
    EXPECT_EQ(UICommon::GetKeywordTranslation(4, buffer.data(), 0), 1);
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_EQ(UICommon::GetKeywordTranslation(4, nullptr, 0), 1);
    EXPECT_EQ(UICommon::GetKeywordTranslation(113, nullptr, 64), 0);
}

TEST(LookupOptionTag, GivesTheTextOfEveryTag) {
    ASSERT_EQ(kTags.size(), 21u);
    for (const auto& [tag, text] : kTags) {
        std::string result = "before";
        EXPECT_EQ(LookupOptionTag(result, tag), text) << tag;
        EXPECT_EQ(result, text) << tag;
    }
}

TEST(LookupOptionTag, ComparesTheWholeTag) {
    std::string result;
    EXPECT_EQ(LookupOptionTag(result, "OPC"), "用紙色");
    EXPECT_EQ(LookupOptionTag(result, "OP"), "");
    EXPECT_EQ(LookupOptionTag(result, "OPCX"), "");
    EXPECT_EQ(LookupOptionTag(result, "opc"), "");
}

TEST(LookupOptionTag, TakesATagThatLiesInTheResult) {
    std::string result = "OFo";
    EXPECT_EQ(LookupOptionTag(result, result), "紙折り");
}

TEST(LookupOptionTag, ReturnsTheStringOfTheCaller) {
    std::string result;
    EXPECT_EQ(&LookupOptionTag(result, "OFo"), &result);
}

} // namespace
