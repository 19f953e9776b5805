// What the device description offers, and that it holds together.
#include "x100_description.h"

#include "tests/support/utf8_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace x100_description;

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

std::vector<std::string> TableKeywords() {
    std::vector<std::string> keywords;
    for (const std::string& line : LinesOf(ZR_TEST_DATA_DIR "/keywords.tsv"))
        keywords.push_back(line.substr(line.find('\t') + 1));
    return keywords;
}

std::string EffectiveDefault(const Feature& feature) {
    if (!feature.defaultOption.empty() || feature.options.empty())
        return feature.defaultOption;
    return feature.options.front().keyword;
}

// A feature and an option; without an option every one but None and False is meant.
using Choice = std::pair<std::string, std::string>;

std::vector<std::pair<Choice, Choice>> Constraints() {
    std::vector<std::pair<Choice, Choice>> result;
    for (const std::string& value : ValuesOf("*UIConstraints: ")) {
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

bool IsChosenByDefault(const Choice& choice) {
    const std::string option = EffectiveDefault(FeatureOf(choice.first));
    return choice.second.empty() ? option != "None" && option != "False" : option == choice.second;
}

TEST(X100Ppd, HasTheWholeKeywordTableToCompareWith) {
    EXPECT_EQ(TableKeywords().size(), 327u);
}

TEST(X100Ppd, HasEveryKeywordThatIsNotPublicInTableOrder) {
    std::vector<std::string> expected = kStandardKeywords;
    for (const std::string& keyword : TableKeywords())
        if (!kPublicKeywords.contains(keyword))
            expected.push_back(keyword);
    std::vector<std::string> found;
    for (const Feature& each : Features())
        found.push_back(each.keyword);
    EXPECT_EQ(found.size(), 5u + 314u);
    EXPECT_EQ(found, expected);
}

TEST(X100Ppd, HasNoFeatureForAPublicKeywordThatIsNotStandard) {
    for (const std::string& keyword : kPublicKeywords) {
        const bool standard = keyword == "PageSize" || keyword == "Resolution";
        EXPECT_EQ(FeatureOf(keyword).keyword.empty(), !standard) << keyword;
    }
    EXPECT_TRUE(FeatureOf("Duplex").keyword.empty());
}

TEST(X100Ppd, ClosesEveryFeatureAndGroupItOpens) {
    EXPECT_EQ(ValuesOf("*OpenUI *").size(), ValuesOf("*CloseUI: *").size());
    std::vector<std::string> opened;
    for (const std::string& value : ValuesOf("*OpenGroup: "))
        opened.push_back(value.substr(0, value.find('/')));
    EXPECT_EQ(opened, ValuesOf("*CloseGroup: "));
    EXPECT_FALSE(opened.empty());
}

TEST(X100Ppd, OffersAtLeastTwoDifferentOptionsForEveryFeature) {
    for (const Feature& each : Features()) {
        std::set<std::string> keywords;
        for (const Option& option : each.options)
            keywords.insert(option.keyword);
        EXPECT_GE(keywords.size(), 2u) << each.keyword;
        EXPECT_EQ(keywords.size(), each.options.size()) << each.keyword;
    }
}

TEST(X100Ppd, NamesAnOptionAsDefaultOfEveryFeature) {
    for (const Feature& each : Features()) {
        if (kFeaturesWithoutDefault.contains(each.keyword))
            continue;
        EXPECT_TRUE(HasOption(each, each.defaultOption)) << each.keyword << ' ' << each.defaultOption;
    }
}

TEST(X100Ppd, NamesNoDefaultWhereItsKeywordWouldPassFortyCharacters) {
    for (const Feature& each : Features()) {
        const bool tooLong = ("Default" + each.keyword).size() > 40;
        EXPECT_EQ(tooLong, kFeaturesWithoutDefault.contains(each.keyword)) << each.keyword;
        EXPECT_EQ(tooLong, each.defaultOption.empty()) << each.keyword;
    }
}

TEST(X100Ppd, SwitchesBooleansFromFalseToTrueAndLeavesThemOff) {
    for (const Feature& each : Features()) {
        if (!HasOption(each, "True"))
            continue;
        ASSERT_EQ(each.options.size(), 2u) << each.keyword;
        EXPECT_EQ(each.options[0].keyword, "False") << each.keyword;
        EXPECT_EQ(EffectiveDefault(each), "False") << each.keyword;
    }
}

TEST(X100Ppd, WritesEverythingButTranslationsInAscii) {
    for (const std::string& line : Description()) {
        const bool ascii = std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
        EXPECT_TRUE(ascii || line.starts_with("*ja.")) << line;
    }
}

TEST(X100Ppd, GivesPaperDataForEveryPageSize) {
    const Feature& sizes = FeatureOf("PageSize");
    EXPECT_EQ(sizes.options.size(), 38u);
    EXPECT_EQ(FeatureOf("PageRegion").options.size(), sizes.options.size());
    EXPECT_EQ(ValuesOf("*ImageableArea ").size(), sizes.options.size());
    EXPECT_EQ(ValuesOf("*PaperDimension ").size(), sizes.options.size());
    for (const Option& size : sizes.options) {
        EXPECT_EQ(ValuesOf("*PageRegion " + size.keyword + '/').size(), 1u) << size.keyword;
        EXPECT_EQ(ValuesOf("*ImageableArea " + size.keyword + '/').size(), 1u) << size.keyword;
        EXPECT_EQ(ValuesOf("*PaperDimension " + size.keyword + '/').size(), 1u) << size.keyword;
    }
}

TEST(X100Ppd, MeasuresPaperInPoints) {
    EXPECT_EQ(ValuesOf("*PaperDimension A4/"), std::vector<std::string>{"A4 (210x297 mm): 595.28 841.89"});
    EXPECT_EQ(ValuesOf("*PaperDimension SRA3/"),
              std::vector<std::string>{"SRA3 (320x450 mm): 907.09 1275.59"});
    EXPECT_EQ(ValuesOf("*PaperDimension Letter/"), std::vector<std::string>{"Letter (8.5x11 in): 612 792"});
}

TEST(X100Ppd, TakesCustomPagesOf89To320By98To1200Millimetres) {
    EXPECT_EQ(ValuesOf("*ParamCustomPageSize Width/"),
              std::vector<std::string>{"Width: 1 points 252.28 907.09"});
    EXPECT_EQ(ValuesOf("*ParamCustomPageSize Height/"),
              std::vector<std::string>{"Height: 2 points 277.79 3401.58"});
    EXPECT_EQ(ValuesOf("*MaxMediaWidth: "), std::vector<std::string>{"907.09"});
    EXPECT_EQ(ValuesOf("*MaxMediaHeight: "), std::vector<std::string>{"3401.58"});
    EXPECT_EQ(ValuesOf("*VariablePaperSize: "), std::vector<std::string>{"True"});
    EXPECT_EQ(TranslationOf("CustomPageSize", "True"), Utf8(u8"PostScript カスタム ページ サイズ"));
}

TEST(X100Ppd, ReachesTheLimitsOfCustomPagesInMicrometres) {
    const auto limits = [](const std::string& parameter, const char* unit) {
        const std::string value = ValuesOf("*ParamCustomPageSize " + parameter + '/').at(0);
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
    EXPECT_FALSE(Constraints().empty());
    for (const auto& [first, second] : Constraints()) {
        for (const Choice& choice : {first, second}) {
            const Feature& found = FeatureOf(choice.first);
            EXPECT_EQ(found.keyword, choice.first);
            EXPECT_TRUE(choice.second.empty() || HasOption(found, choice.second))
                << choice.first << ' ' << choice.second;
        }
    }
}

TEST(X100Ppd, ConstrainsEveryPairOnceInEachDirection) {
    const auto all = Constraints();
    const std::set<std::pair<Choice, Choice>> unique(all.begin(), all.end());
    EXPECT_EQ(unique.size(), all.size());
    for (const auto& [first, second] : all)
        EXPECT_TRUE(unique.contains({second, first})) << first.first << ' ' << first.second;
}

TEST(X100Ppd, LeavesTheDefaultsFreeOfConflict) {
    for (const auto& [first, second] : Constraints())
        EXPECT_FALSE(IsChosenByDefault(first) && IsChosenByDefault(second))
            << first.first << ' ' << second.first;
}

TEST(X100Ppd, KeepsStaplesAndPunchesAwayFromFoldedEdges) {
    const auto all = Constraints();
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

} // namespace
