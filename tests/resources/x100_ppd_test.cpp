#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct Option {
    std::string keyword;
    std::string japanese;
};

struct Feature {
    std::string keyword;
    std::string japanese;
    std::string defaultOption;
    std::vector<Option> options;
};

// Handled by the driver's own items, so no feature of the device.
const std::set<std::string> kPublicKeywords = {"PageSize",
                                               "Copies",
                                               "PageOrientation",
                                               "NUP",
                                               "Tray",
                                               "Scale",
                                               "Collate",
                                               "PaperTypeD",
                                               "Resolution",
                                               "CustomPaperWidth",
                                               "CustomPaperHeight",
                                               "CustomPaperDirection",
                                               "CustomChgPaperDirection"};

const std::vector<std::string> kStandardKeywords = {"PageSize", "PageRegion", "InputSlot", "MediaType",
                                                    "Resolution"};

// Main keywords, "Default" included, may have 40 characters; these two would have more.
const std::set<std::string> kFeaturesWithoutDefault = {"ImpositionPaginationTotalPagePrint",
                                                       "ImpositionPaginationBackgroundColor"};

std::string utf8(std::u8string_view text) {
    return {text.begin(), text.end()};
}

std::vector<std::string> texts(std::initializer_list<std::u8string_view> list) {
    std::vector<std::string> result;
    std::transform(list.begin(), list.end(), std::back_inserter(result), utf8);
    return result;
}

std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

const std::vector<std::string>& description() {
    static const std::vector<std::string> lines = linesOf(ZR_RESOURCES_DIR "/x100.ppd");
    return lines;
}

std::vector<std::string> tableKeywords() {
    std::vector<std::string> keywords;
    for (const std::string& line : linesOf(ZR_TEST_DATA_DIR "/keywords.tsv"))
        keywords.push_back(line.substr(line.find('\t') + 1));
    return keywords;
}

// The text between prefix and the first end behind it; empty if the line starts otherwise.
std::string between(const std::string& line, const std::string& prefix, std::string_view end) {
    if (!line.starts_with(prefix))
        return {};
    return line.substr(prefix.size(), line.find(end, prefix.size()) - prefix.size());
}

// The values of all lines that start with prefix, quotes taken off.
std::vector<std::string> valuesOf(const std::string& prefix) {
    std::vector<std::string> values;
    for (const std::string& line : description()) {
        if (!line.starts_with(prefix))
            continue;
        std::string value = line.substr(prefix.size());
        std::erase(value, '"');
        values.push_back(value);
    }
    return values;
}

using Translations = std::map<std::string, std::string>;

std::map<std::string, Translations> readTranslations() {
    std::map<std::string, Translations> result;
    for (const std::string& line : description()) {
        const std::string keyword = between(line, "*ja.", " ");
        if (keyword.empty())
            continue;
        const std::string option = between(line, "*ja." + keyword + ' ', "/");
        result[keyword][option] = between(line, "*ja." + keyword + ' ' + option + '/', ": \"\"");
    }
    return result;
}

// Option keyword to Japanese text, for the main keyword; features and groups stand under "Translation".
const Translations& translationsOf(const std::string& keyword) {
    static const std::map<std::string, Translations> all = readTranslations();
    static const Translations none;
    const auto found = all.find(keyword);
    return found == all.end() ? none : found->second;
}

std::string translationOf(const std::string& keyword, const std::string& option) {
    const Translations& texts = translationsOf(keyword);
    const auto found = texts.find(option);
    return found == texts.end() ? std::string{} : found->second;
}

Feature readFeature(std::vector<std::string>::const_iterator line) {
    Feature feature;
    feature.keyword = between(*line, "*OpenUI *", "/");
    feature.japanese = translationOf("Translation", feature.keyword);
    for (; line != description().end() && *line != "*CloseUI: *" + feature.keyword; ++line) {
        const std::string option = between(*line, '*' + feature.keyword + ' ', "/");
        if (!option.empty())
            feature.options.push_back({option, translationOf(feature.keyword, option)});
        if (line->starts_with("*Default" + feature.keyword + ": "))
            feature.defaultOption = line->substr(line->find(' ') + 1);
    }
    return feature;
}

const std::vector<Feature>& features() {
    static const std::vector<Feature> all = [] {
        std::vector<Feature> result;
        const std::vector<std::string>& lines = description();
        for (auto line = lines.begin(); line != lines.end(); ++line)
            if (line->starts_with("*OpenUI "))
                result.push_back(readFeature(line));
        return result;
    }();
    return all;
}

const Feature& feature(const std::string& keyword) {
    static const Feature none;
    const auto found = std::find_if(features().begin(), features().end(),
                                    [&](const Feature& each) { return each.keyword == keyword; });
    return found == features().end() ? none : *found;
}

std::vector<std::string> japaneseOptions(const std::string& keyword) {
    std::vector<std::string> result;
    for (const Option& option : feature(keyword).options)
        result.push_back(option.japanese);
    return result;
}

bool hasOption(const Feature& feature, const std::string& keyword) {
    return std::any_of(feature.options.begin(), feature.options.end(),
                       [&](const Option& option) { return option.keyword == keyword; });
}

std::string effectiveDefault(const Feature& feature) {
    if (!feature.defaultOption.empty() || feature.options.empty())
        return feature.defaultOption;
    return feature.options.front().keyword;
}

// A feature and an option; without an option every one but None and False is meant.
using Choice = std::pair<std::string, std::string>;

std::vector<std::pair<Choice, Choice>> constraints() {
    std::vector<std::pair<Choice, Choice>> result;
    for (const std::string& value : valuesOf("*UIConstraints: ")) {
        const std::size_t second = value.find('*', 1);
        const auto choice = [](std::string text) {
            text.erase(text.find_last_not_of(' ') + 1);
            const std::size_t space = text.find(' ');
            return space == std::string::npos ? Choice{text, {}}
                                              : Choice{text.substr(0, space), text.substr(space + 1)};
        };
        result.emplace_back(choice(value.substr(1, second - 1)), choice(value.substr(second + 1)));
    }
    return result;
}

bool chosenByDefault(const Choice& choice) {
    const std::string option = effectiveDefault(feature(choice.first));
    return choice.second.empty() ? option != "None" && option != "False" : option == choice.second;
}

} // namespace

TEST(X100Ppd, HasTheWholeKeywordTableToCompareWith) {
    EXPECT_EQ(tableKeywords().size(), 327u);
}

TEST(X100Ppd, HasEveryKeywordThatIsNotPublicInTableOrder) {
    std::vector<std::string> expected = kStandardKeywords;
    for (const std::string& keyword : tableKeywords())
        if (!kPublicKeywords.contains(keyword))
            expected.push_back(keyword);
    std::vector<std::string> found;
    for (const Feature& each : features())
        found.push_back(each.keyword);
    EXPECT_EQ(found.size(), 5u + 314u);
    EXPECT_EQ(found, expected);
}

TEST(X100Ppd, HasNoFeatureForAPublicKeywordThatIsNotStandard) {
    for (const std::string& keyword : kPublicKeywords) {
        const bool standard = keyword == "PageSize" || keyword == "Resolution";
        EXPECT_EQ(feature(keyword).keyword.empty(), !standard) << keyword;
    }
    EXPECT_TRUE(feature("Duplex").keyword.empty());
}

TEST(X100Ppd, ClosesEveryFeatureAndGroupItOpens) {
    EXPECT_EQ(valuesOf("*OpenUI *").size(), valuesOf("*CloseUI: *").size());
    std::vector<std::string> opened;
    for (const std::string& value : valuesOf("*OpenGroup: "))
        opened.push_back(value.substr(0, value.find('/')));
    EXPECT_EQ(opened, valuesOf("*CloseGroup: "));
    EXPECT_FALSE(opened.empty());
}

TEST(X100Ppd, OffersAtLeastTwoDifferentOptionsForEveryFeature) {
    for (const Feature& each : features()) {
        std::set<std::string> keywords;
        for (const Option& option : each.options)
            keywords.insert(option.keyword);
        EXPECT_GE(keywords.size(), 2u) << each.keyword;
        EXPECT_EQ(keywords.size(), each.options.size()) << each.keyword;
    }
}

TEST(X100Ppd, NamesAnOptionAsDefaultOfEveryFeature) {
    for (const Feature& each : features()) {
        if (kFeaturesWithoutDefault.contains(each.keyword))
            continue;
        EXPECT_TRUE(hasOption(each, each.defaultOption)) << each.keyword << ' ' << each.defaultOption;
    }
}

TEST(X100Ppd, NamesNoDefaultWhereItsKeywordWouldPassFortyCharacters) {
    for (const Feature& each : features()) {
        const bool tooLong = ("Default" + each.keyword).size() > 40;
        EXPECT_EQ(tooLong, kFeaturesWithoutDefault.contains(each.keyword)) << each.keyword;
        EXPECT_EQ(tooLong, each.defaultOption.empty()) << each.keyword;
    }
}

TEST(X100Ppd, SwitchesBooleansFromFalseToTrueAndLeavesThemOff) {
    for (const Feature& each : features()) {
        if (!hasOption(each, "True"))
            continue;
        ASSERT_EQ(each.options.size(), 2u) << each.keyword;
        EXPECT_EQ(each.options[0].keyword, "False") << each.keyword;
        EXPECT_EQ(effectiveDefault(each), "False") << each.keyword;
    }
}

TEST(X100Ppd, TranslatesEveryFeatureAndOption) {
    for (const Feature& each : features()) {
        EXPECT_FALSE(each.japanese.empty()) << each.keyword;
        for (const Option& option : each.options)
            EXPECT_FALSE(option.japanese.empty()) << each.keyword << ' ' << option.keyword;
    }
}

TEST(X100Ppd, TranslatesEveryGroup) {
    for (const std::string& group : valuesOf("*CloseGroup: "))
        EXPECT_FALSE(translationOf("Translation", group).empty()) << group;
}

TEST(X100Ppd, WritesEverythingButTranslationsInAscii) {
    for (const std::string& line : description()) {
        const bool ascii = std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
        EXPECT_TRUE(ascii || line.starts_with("*ja.")) << line;
    }
}

TEST(X100Ppd, ListsTheTraysOfThePaperSource) {
    EXPECT_EQ(japaneseOptions("InputSlot"),
              texts({u8"自動選択", u8"トレイ1", u8"トレイ2", u8"トレイ3", u8"トレイ4", u8"手差しトレイ",
                     u8"トレイ6", u8"メディア"}));
}

TEST(X100Ppd, ListsBothResolutions) {
    EXPECT_EQ(japaneseOptions("Resolution"), texts({u8"600x600dpi", u8"1200x1200dpi"}));
}

TEST(X100Ppd, ListsBothColorModes) {
    EXPECT_EQ(japaneseOptions("ColorMode"), texts({u8"グレースケール", u8"フルカラー"}));
}

TEST(X100Ppd, ListsTheDuplexModes) {
    EXPECT_EQ(japaneseOptions("DuplexMode"),
              texts({u8"しない", u8"長辺とじ", u8"短辺とじ", u8"天地同じ", u8"天地逆"}));
}

TEST(X100Ppd, ListsTheOutputTrays) {
    EXPECT_EQ(japaneseOptions("OutputTray"), texts({u8"自動選択", u8"インナー排出トレイ", u8"サイドトレイ",
                                                    u8"フィニッシャー排出トレイ", u8"フィニッシャートレイ"}));
}

TEST(X100Ppd, ListsTheStaplesWithTheMixedSizesInBetween) {
    EXPECT_EQ(japaneseOptions("StapleMode"), texts({u8"しない",
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
    EXPECT_EQ(japaneseOptions("Punch"),
              texts({u8"しない", u8"左", u8"右", u8"上", u8"下", u8"(サイズ混在)"}));
}

TEST(X100Ppd, ListsTheNumbersOfPunchHoles) {
    EXPECT_EQ(japaneseOptions("PunchHoles"), texts({u8"設定なし", u8"2穴", u8"3穴", u8"4穴"}));
}

TEST(X100Ppd, ListsTheFoldsWithTheZFoldsInBetween) {
    EXPECT_EQ(japaneseOptions("Fold"),
              texts({u8"しない", u8"二つ折り(内側に印字)", u8"二つ折り(外側に印字)", u8"二つ折り",
                     u8"Z折り (右とじ/下とじ)", u8"Z折り (左とじ/上とじ)", u8"Z折り (サイズ混在)",
                     u8"内三折り(内側に印字)", u8"内三折り(外側に印字)", u8"外三折り(内側に印字)",
                     u8"外三折り(外側に印字)"}));
}

TEST(X100Ppd, ListsThePaperColors) {
    EXPECT_EQ(japaneseOptions("PaperColor"),
              texts({u8"その他", u8"白", u8"青", u8"黄色", u8"緑", u8"ピンク", u8"アイボリー", u8"グレー",
                     u8"クリーム", u8"山吹色", u8"赤", u8"オレンジ", u8"透明", u8"ユーザー色1",
                     u8"ユーザー色2", u8"ユーザー色3", u8"ユーザー色4", u8"ユーザー色5"}));
}

TEST(X100Ppd, ListsTheMediaTypes) {
    EXPECT_EQ(japaneseOptions("MediaType"), texts({u8"普通紙",           u8"上質紙",
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
    EXPECT_EQ(japaneseOptions("ChgPrintPaperSizeType"), texts({u8"原稿サイズと同じ",
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
        EXPECT_EQ(feature(keyword).options.size(), count) << keyword;
}

TEST(X100Ppd, StartsWithTheTextsOfTheDevicesOwnDefaults) {
    const auto defaultText = [](const std::string& keyword) {
        const Feature& found = feature(keyword);
        for (const Option& option : found.options)
            if (option.keyword == found.defaultOption)
                return option.japanese;
        return std::string{};
    };
    EXPECT_EQ(defaultText("PageSize"), utf8(u8"A4(210x297mm)"));
    EXPECT_EQ(defaultText("InputSlot"), utf8(u8"自動選択"));
    EXPECT_EQ(defaultText("MediaType"), utf8(u8"普通紙"));
    EXPECT_EQ(defaultText("Resolution"), utf8(u8"600x600dpi"));
    EXPECT_EQ(defaultText("ChgPrintPaperSizeType"), utf8(u8"原稿サイズと同じ"));
    EXPECT_EQ(defaultText("StapleMode"), utf8(u8"しない"));
    EXPECT_EQ(defaultText("PaperColor"), utf8(u8"白"));
    EXPECT_EQ(defaultText("ColorMode"), utf8(u8"フルカラー"));
}

TEST(X100Ppd, GivesPaperDataForEveryPageSize) {
    const Feature& sizes = feature("PageSize");
    EXPECT_EQ(sizes.options.size(), 38u);
    EXPECT_EQ(feature("PageRegion").options.size(), sizes.options.size());
    EXPECT_EQ(valuesOf("*ImageableArea ").size(), sizes.options.size());
    EXPECT_EQ(valuesOf("*PaperDimension ").size(), sizes.options.size());
    for (const Option& size : sizes.options) {
        EXPECT_EQ(valuesOf("*PageRegion " + size.keyword + '/').size(), 1u) << size.keyword;
        EXPECT_EQ(valuesOf("*ImageableArea " + size.keyword + '/').size(), 1u) << size.keyword;
        EXPECT_EQ(valuesOf("*PaperDimension " + size.keyword + '/').size(), 1u) << size.keyword;
    }
}

TEST(X100Ppd, MeasuresPaperInPoints) {
    EXPECT_EQ(valuesOf("*PaperDimension A4/"), std::vector<std::string>{"A4 (210x297 mm): 595.28 841.89"});
    EXPECT_EQ(valuesOf("*PaperDimension SRA3/"),
              std::vector<std::string>{"SRA3 (320x450 mm): 907.09 1275.59"});
    EXPECT_EQ(valuesOf("*PaperDimension Letter/"), std::vector<std::string>{"Letter (8.5x11 in): 612 792"});
}

TEST(X100Ppd, TakesCustomPagesOf89To320By98To1200Millimetres) {
    EXPECT_EQ(valuesOf("*ParamCustomPageSize Width/"),
              std::vector<std::string>{"Width: 1 points 252.28 907.09"});
    EXPECT_EQ(valuesOf("*ParamCustomPageSize Height/"),
              std::vector<std::string>{"Height: 2 points 277.79 3401.58"});
    EXPECT_EQ(valuesOf("*MaxMediaWidth: "), std::vector<std::string>{"907.09"});
    EXPECT_EQ(valuesOf("*MaxMediaHeight: "), std::vector<std::string>{"3401.58"});
    EXPECT_EQ(valuesOf("*VariablePaperSize: "), std::vector<std::string>{"True"});
    EXPECT_EQ(translationOf("CustomPageSize", "True"), utf8(u8"PostScript カスタム ページ サイズ"));
}

TEST(X100Ppd, ReachesTheLimitsOfCustomPagesInMicrometres) {
    const auto limits = [](const std::string& parameter, const char* unit) {
        const std::string value = valuesOf("*ParamCustomPageSize " + parameter + '/').at(0);
        const std::string numbers = value.substr(value.find(unit) + std::string_view(unit).size());
        std::size_t end = 0;
        const double first = std::stod(numbers, &end);
        return std::pair(first * 25400 / 72, std::stod(numbers.substr(end)) * 25400 / 72);
    };
    const auto [minWidth, maxWidth] = limits("Width", "points");
    EXPECT_LE(minWidth, 89000);
    EXPECT_GE(maxWidth, 320000);
    const auto [minHeight, maxHeight] = limits("Height", "points");
    EXPECT_LE(minHeight, 98000);
    EXPECT_GE(maxHeight, 1200000);
}

TEST(X100Ppd, ConstrainsOnlyOptionsThatExist) {
    EXPECT_FALSE(constraints().empty());
    for (const auto& [first, second] : constraints()) {
        for (const Choice& choice : {first, second}) {
            const Feature& found = feature(choice.first);
            EXPECT_EQ(found.keyword, choice.first);
            EXPECT_TRUE(choice.second.empty() || hasOption(found, choice.second))
                << choice.first << ' ' << choice.second;
        }
    }
}

TEST(X100Ppd, ConstrainsEveryPairOnceInEachDirection) {
    const auto all = constraints();
    const std::set<std::pair<Choice, Choice>> unique(all.begin(), all.end());
    EXPECT_EQ(unique.size(), all.size());
    for (const auto& [first, second] : all)
        EXPECT_TRUE(unique.contains({second, first})) << first.first << ' ' << first.second;
}

TEST(X100Ppd, LeavesTheDefaultsFreeOfConflict) {
    for (const auto& [first, second] : constraints())
        EXPECT_FALSE(chosenByDefault(first) && chosenByDefault(second)) << first.first << ' ' << second.first;
}

TEST(X100Ppd, KeepsStaplesAndPunchesAwayFromFoldedEdges) {
    const auto all = constraints();
    const auto conflict = [&](const Choice& first, const Choice& second) {
        return std::find(all.begin(), all.end(), std::pair(first, second)) != all.end();
    };
    EXPECT_TRUE(conflict({"StapleMode", "TopLeft"}, {"Fold", "HalfInside"}));
    EXPECT_FALSE(conflict({"StapleMode", "SingleMixed"}, {"Fold", "HalfInside"}));
    EXPECT_TRUE(conflict({"StapleMode", "TopLeft"}, {"Fold", "ZRightBottom"}));
    EXPECT_FALSE(conflict({"StapleMode", "TopRight"}, {"Fold", "ZRightBottom"}));
    EXPECT_TRUE(conflict({"StapleMode", "BottomRight"}, {"Fold", "ZLeftTop"}));
    EXPECT_FALSE(conflict({"StapleMode", "TopLeft"}, {"Fold", "ZMixed"}));
    EXPECT_TRUE(conflict({"Punch", "Left"}, {"Fold", "HalfInside"}));
    EXPECT_FALSE(conflict({"Punch", "Mixed"}, {"Fold", "HalfInside"}));
    EXPECT_TRUE(conflict({"StapleMode", "TopLeft"}, {"Punch", "Right"}));
    EXPECT_FALSE(conflict({"StapleMode", "TopLeft"}, {"Punch", "Left"}));
    EXPECT_TRUE(conflict({"StapleMode", "SingleMixed"}, {"MixSizePrint", "False"}));
    EXPECT_TRUE(conflict({"StapleMode", "TopLeft"}, {"MixSizePrint", "True"}));
    EXPECT_TRUE(conflict({"ColorMode", "Gray"}, {"SpotColorCorrection", "True"}));
}
