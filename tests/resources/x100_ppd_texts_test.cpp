// The Japanese texts of the device description, list by list.
#include "x100_description.h"

#include "tests/support/utf8_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace x100_description;

std::vector<std::string> Texts(std::initializer_list<std::u8string_view> list) {
    std::vector<std::string> result;
    std::transform(list.begin(), list.end(), std::back_inserter(result), Utf8);
    return result;
}

std::vector<std::string> JapaneseOptions(const std::string& keyword) {
    std::vector<std::string> result;
    for (const Option& option : FeatureOf(keyword).options)
        result.push_back(option.japanese);
    return result;
}

TEST(X100Ppd, TranslatesEveryFeatureAndOption) {
    for (const Feature& each : Features()) {
        EXPECT_FALSE(each.japanese.empty()) << each.keyword;
        for (const Option& option : each.options)
            EXPECT_FALSE(option.japanese.empty()) << each.keyword << ' ' << option.keyword;
    }
}

TEST(X100Ppd, TranslatesEveryGroup) {
    for (const std::string& group : ValuesOf("*CloseGroup: "))
        EXPECT_FALSE(TranslationOf("Translation", group).empty()) << group;
}

TEST(X100Ppd, ListsTheTraysOfThePaperSource) {
    EXPECT_EQ(JapaneseOptions("InputSlot"),
              Texts({u8"自動選択", u8"トレイ1", u8"トレイ2", u8"トレイ3", u8"トレイ4", u8"手差しトレイ",
                     u8"トレイ6", u8"メディア"}));
}

TEST(X100Ppd, ListsBothResolutions) {
    EXPECT_EQ(JapaneseOptions("Resolution"), Texts({u8"600x600dpi", u8"1200x1200dpi"}));
}

TEST(X100Ppd, ListsBothColorModes) {
    EXPECT_EQ(JapaneseOptions("ColorMode"), Texts({u8"グレースケール", u8"フルカラー"}));
}

TEST(X100Ppd, ListsTheDuplexModes) {
    EXPECT_EQ(JapaneseOptions("DuplexMode"),
              Texts({u8"しない", u8"長辺とじ", u8"短辺とじ", u8"天地同じ", u8"天地逆"}));
}

TEST(X100Ppd, ListsTheOutputTrays) {
    EXPECT_EQ(JapaneseOptions("OutputTray"), Texts({u8"自動選択", u8"インナー排出トレイ", u8"サイドトレイ",
                                                    u8"フィニッシャー排出トレイ", u8"フィニッシャートレイ"}));
}

TEST(X100Ppd, ListsTheStaplesWithTheMixedSizesInBetween) {
    EXPECT_EQ(JapaneseOptions("StapleMode"), Texts({u8"しない",
                                                    u8"左上１ヵ所",
                                                    u8"右上１ヵ所",
                                                    u8"左下１ヵ所",
                                                    u8"右下１ヵ所",
                                                    u8"1ヵ所（サイズ混在）",
                                                    u8"上２ヵ所",
                                                    u8"下２ヵ所",
                                                    u8"左２ヵ所",
                                                    u8"右２ヵ所",
                                                    u8"2ヵ所（サイズ混在）",
                                                    u8"中とじ(内側に印字)",
                                                    u8"中とじ(外側に印字)",
                                                    u8"中とじ",
                                                    u8"中央上1ヵ所",
                                                    u8"中央下1ヵ所",
                                                    u8"中央左1ヵ所",
                                                    u8"中央右1ヵ所",
                                                    u8"上4ヵ所",
                                                    u8"下4ヵ所",
                                                    u8"左4ヵ所",
                                                    u8"右4ヵ所"}));
}

TEST(X100Ppd, ListsThePunchesWithTheMixedSizesLast) {
    EXPECT_EQ(JapaneseOptions("Punch"),
              Texts({u8"しない", u8"左", u8"右", u8"上", u8"下", u8"(サイズ混在)"}));
}

TEST(X100Ppd, ListsTheNumbersOfPunchHoles) {
    EXPECT_EQ(JapaneseOptions("PunchHoles"), Texts({u8"設定なし", u8"2穴", u8"3穴", u8"4穴"}));
}

TEST(X100Ppd, ListsTheFoldsWithTheZFoldsInBetween) {
    EXPECT_EQ(JapaneseOptions("Fold"),
              Texts({u8"しない", u8"二つ折り(内側に印字)", u8"二つ折り(外側に印字)", u8"二つ折り",
                     u8"Z折り (右とじ/下とじ)", u8"Z折り (左とじ/上とじ)", u8"Z折り (サイズ混在)",
                     u8"内三折り(内側に印字)", u8"内三折り(外側に印字)", u8"外三折り(内側に印字)",
                     u8"外三折り(外側に印字)"}));
}

TEST(X100Ppd, ListsThePaperColors) {
    EXPECT_EQ(JapaneseOptions("PaperColor"),
              Texts({u8"その他", u8"白", u8"青", u8"黄色", u8"緑", u8"ピンク", u8"アイボリー", u8"グレー",
                     u8"クリーム", u8"山吹色", u8"赤", u8"オレンジ", u8"透明", u8"ユーザー色1",
                     u8"ユーザー色2", u8"ユーザー色3", u8"ユーザー色4", u8"ユーザー色5"}));
}

TEST(X100Ppd, ListsTheMediaTypes) {
    EXPECT_EQ(JapaneseOptions("MediaType"), Texts({u8"普通紙",           u8"上質紙",
                                                   u8"再生紙",           u8"普通紙(うら)",
                                                   u8"穴あき紙",         u8"OHPフィルム",
                                                   u8"うす紙",           u8"厚紙1",
                                                   u8"厚紙1(うら)",      u8"厚紙2",
                                                   u8"厚紙2(うら)",      u8"厚紙3",
                                                   u8"厚紙3(うら)",      u8"コート紙1",
                                                   u8"コート紙1(うら)",  u8"コート紙2",
                                                   u8"コート紙2(うら)",  u8"コート紙3",
                                                   u8"コート紙3(うら)",  u8"ラベル紙",
                                                   u8"はがき",           u8"封筒",
                                                   u8"ユーザー用紙1",    u8"ユーザー用紙2",
                                                   u8"ユーザー用紙3",    u8"ユーザー用紙4",
                                                   u8"ユーザー用紙5",    u8"上質紙A",
                                                   u8"上質紙B",          u8"厚紙1A",
                                                   u8"厚紙1B",           u8"厚紙1C",
                                                   u8"厚紙1S",           u8"厚紙1(うら)A",
                                                   u8"厚紙1(うら)B",     u8"厚紙1(うら)C",
                                                   u8"厚紙1(うら)S",     u8"厚紙2A",
                                                   u8"厚紙2S",           u8"厚紙2(うら)A",
                                                   u8"厚紙2(うら)S",     u8"厚紙3A",
                                                   u8"厚紙3B",           u8"厚紙3S",
                                                   u8"厚紙3(うら)A",     u8"厚紙3(うら)B",
                                                   u8"厚紙3(うら)S",     u8"コート紙1A",
                                                   u8"コート紙1B",       u8"コート紙1C",
                                                   u8"コート紙1(うら)A", u8"コート紙1(うら)B",
                                                   u8"コート紙1(うら)C", u8"コート紙2A",
                                                   u8"コート紙2(うら)A", u8"コート紙3A",
                                                   u8"コート紙3B",       u8"コート紙3(うら)A",
                                                   u8"コート紙3(うら)B"}));
}

TEST(X100Ppd, ListsTheOutputPaperSizes) {
    EXPECT_EQ(JapaneseOptions("ChgPrintPaperSizeType"), Texts({u8"原稿サイズと同じ",
                                                               u8"SRA3(320x450mm) SEF",
                                                               u8"A3(297x420mm) SEF",
                                                               u8"A4(210x297mm) SEF",
                                                               u8"A4(210x297mm) LEF",
                                                               u8"A5(148x210mm) SEF",
                                                               u8"A5(148x210mm) LEF",
                                                               u8"A6(105x148mm) SEF",
                                                               u8"B4(257x364mm) SEF",
                                                               u8"B5(182x257mm) SEF",
                                                               u8"B5(182x257mm) LEF ",
                                                               u8"B6(128x182mm) SEF",
                                                               u8"表紙A4(223x297mm) LEF",
                                                               u8"9x11\" LEF",
                                                               u8"往復はがき(148x200mm) LEF",
                                                               u8"はがき(100x148mm) SEF",
                                                               u8"八開(267x388mm) SEF",
                                                               u8"八開(270x390mm) SEF",
                                                               u8"十六開(194x267mm) SEF",
                                                               u8"十六開(194x267mm) LEF",
                                                               u8"十六開(195x270mm) SEF",
                                                               u8"十六開(195x270mm) LEF",
                                                               u8"12x18\" SEF",
                                                               u8"11x17\" SEF",
                                                               u8"11x15\" SEF",
                                                               u8"8.5x14\"(リーガル) SEF",
                                                               u8"8.5x13\" SEF",
                                                               u8"8.5x11\"(レター) SEF",
                                                               u8"8.5x11\"(レター) LEF",
                                                               u8"8x10\" SEF",
                                                               u8"8x10\" LEF",
                                                               u8"7.25x10.5\"(エグゼクティブ) SEF",
                                                               u8"7.25x10.5\"(エグゼクティブ) LEF",
                                                               u8"5.5x8.5\" SEF",
                                                               u8"5.5x8.5\" LEF",
                                                               u8"写真2Lサイズ(5x7\") SEF",
                                                               u8"はがき(4x6\") SEF",
                                                               u8"215x315mm SEF",
                                                               u8"封筒角形2号(240x332mm) SEF",
                                                               u8"封筒角形6号(162x229mm) SEF",
                                                               u8"封筒角形20号(229x324mm) SEF",
                                                               u8"封筒長形3号(120x235mm) SEF",
                                                               u8"封筒長形4号(90x205mm) SEF",
                                                               u8"封筒洋長形3号(120x235mm) LEF",
                                                               u8"封筒洋形2号(114x162mm) LEF",
                                                               u8"封筒洋形3号(98x148mm) LEF",
                                                               u8"封筒洋形4号(235x105mm) LEF",
                                                               u8"A2(420x594mm) LEF",
                                                               u8"B3(364x515mm) LEF",
                                                               u8"カスタムサイズ"}));
}

TEST(X100Ppd, CountsTheOptionsOfTheOtherListedKeywords) {
    const std::map<std::string, std::size_t> expected = {
        {"FittenToPaper", 5},          {"PagePrintOnCenter", 2},    {"MediaTypeWeight", 12},
        {"MediaTypeWeightBypass", 12}, {"PaperColorBypass", 18},    {"PaperTypeBypass", 59},
        {"MediaTypePreprinted", 2},    {"MediaTypeDrilled", 4},     {"MediaTypeCoatingMaterial", 4},
        {"MsiDuplexMode", 5},          {"OffsetMode", 3},           {"PageOrder", 2},
        {"ImpositionMode", 3},         {"ImpositionCustomMode", 3}, {"AutoJobStartType", 4},
        {"TrimmerOnOff", 2},           {"SeparatorsTray", 8},       {"StkTray", 8},
        {"FinishFixedForm", 39},       {"FixedForm", 39},           {"MixSizeFirstPageSize", 6},
        {"MixSizeRotation", 4},        {"FormJobMapping", 5},       {"FormOrigin", 5}};
    for (const auto& [keyword, count] : expected)
        EXPECT_EQ(FeatureOf(keyword).options.size(), count) << keyword;
}

TEST(X100Ppd, StartsWithTheTextsOfTheDevicesOwnDefaults) {
    const auto defaultText = [](const std::string& keyword) {
        const Feature& found = FeatureOf(keyword);
        for (const Option& option : found.options)
            if (option.keyword == found.defaultOption)
                return option.japanese;
        return std::string{};
    };
    EXPECT_EQ(defaultText("PageSize"), Utf8(u8"A4(210x297mm)"));
    EXPECT_EQ(defaultText("InputSlot"), Utf8(u8"自動選択"));
    EXPECT_EQ(defaultText("MediaType"), Utf8(u8"普通紙"));
    EXPECT_EQ(defaultText("Resolution"), Utf8(u8"600x600dpi"));
    EXPECT_EQ(defaultText("ChgPrintPaperSizeType"), Utf8(u8"原稿サイズと同じ"));
    EXPECT_EQ(defaultText("StapleMode"), Utf8(u8"しない"));
    EXPECT_EQ(defaultText("PaperColor"), Utf8(u8"白"));
    EXPECT_EQ(defaultText("ColorMode"), Utf8(u8"フルカラー"));
}

} // namespace
