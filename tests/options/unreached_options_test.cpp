// Nothing reads these tables, so only this second copy, kept by hand, guards them.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Values = std::vector<int>;
using Key = std::pair<std::string, std::string>;

const std::vector<std::pair<int, Values>> kWeights{
#define ZR_PAPER_TYPE_WEIGHTS(type, ...) {type, {__VA_ARGS__}},
#include "options/unreached_options.def"
};

const std::vector<std::pair<Key, Values>> kLists{
#define ZR_UNREACHED_LIST(item, variant, ...) {{#item, #variant}, {__VA_ARGS__}},
#include "options/unreached_options.def"
};

const std::vector<std::tuple<std::string, std::string, int, std::string>> kTexts{
#define ZR_UNREACHED_TEXT(item, variant, value, text) {#item, #variant, value, text},
#include "options/unreached_options.def"
};

TEST(UnreachedOptions, KeepTheWeightsOfEachPaperType) {
    const std::vector<std::pair<Values, Values>> typesAndWeights{
        {{0, 1, 20, 69, 201, 202, 203, 204, 205}, {1, 2, 3, 4}},
        {{2, 4, 25}, {255}},
        {{7}, {5, 6, 7, 8}},
        {{8}, {6, 7}},
        {{70, 74, 78, 82, 92}, {5, 6, 7}},
        {{71, 75, 79, 83, 93}, {8}},
        {{72, 76, 80, 84}, {9}},
        {{73, 77}, {11}},
        {{81, 85}, {10}},
        {{86, 89}, {5, 6}},
        {{87, 90}, {7, 8}},
        {{88, 91}, {9, 11}},
        {{94}, {9, 10}},
        {{95, 96, 97}, {1, 2}},
    };
    std::map<int, Values> expected;
    for (const auto& [types, weights] : typesAndWeights) {
        for (int type : types)
            expected[type] = weights;
    }
    EXPECT_EQ((std::map<int, Values>(kWeights.begin(), kWeights.end())), expected);
    EXPECT_EQ(kWeights.size(), expected.size());
}

TEST(UnreachedOptions, KeepTheListsOfOtherModelsAndArguments) {
    const std::map<Key, Values> expected{
        {{"MediaTypePreprinted", "Model2"}, {0, 1}},
        {{"MediaTypeGlossFine", "Model2"}, {0, 1}},
        {{"MediaTypeDrilled", "Model2"}, {0, 1, 2, 3}},
        {{"MediaTypeCoatingMaterial", "Model2"}, {0, 1, 2, 3}},
        {{"StapleMode", "OtherModels"}, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        {{"StapleMode", "Appended"},
         {18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 26, 27, 28, 29, 32, 33, 34, 35}},
        {{"Punch", "Appended"}, {9, 10, 11, 12}},
        {{"DuplexMode", "Prepended"}, {200}},
        {{"OutputTray", "OtherModels"}, {}},
        {{"ChgPrintPaperSizeType", "Dropped"}, {30, 38, 54, 55, 66, 49, 50, 51, 52, 71, 72, 73, 20}},
    };
    EXPECT_EQ((std::map<Key, Values>(kLists.begin(), kLists.end())), expected);
    EXPECT_EQ(kLists.size(), expected.size());
}

TEST(UnreachedOptions, KeepTheTextsThatOnlyTheyHave) {
    const decltype(kTexts) expected{
        {"MediaTypePreprinted", "Model2", 0, "オフ"},
        {"MediaTypePreprinted", "Model2", 1, "オン"},
        {"MediaTypeGlossFine", "Model2", 0, "OFF"},
        {"MediaTypeGlossFine", "Model2", 1, "ON"},
        {"MediaTypeDrilled", "Model2", 0, "なし"},
        {"MediaTypeDrilled", "Model2", 1, "2穴"},
        {"MediaTypeDrilled", "Model2", 2, "3穴"},
        {"MediaTypeDrilled", "Model2", 3, "4穴"},
        {"MediaTypeCoatingMaterial", "Model2", 0, "Uncoated"},
        {"MediaTypeCoatingMaterial", "Model2", 1, "Coated"},
        {"MediaTypeCoatingMaterial", "Model2", 2, "Matte Coated"},
        {"MediaTypeCoatingMaterial", "Model2", 3, "Cast Coated"},
        {"DuplexMode", "Prepended", 200, "ジョブ設定を使用"},
        {"ChgPrintPaperSizeType", "SecondMeaning", 0, "イメージサイズに合わせる"},
        {"ChgPrintPaperSizeType", "ThirdMeaning", 0, "自動"},
    };
    EXPECT_EQ(kTexts, expected);
}

} // namespace
