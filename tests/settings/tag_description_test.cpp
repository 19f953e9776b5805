#include "settings/InterchangeOptionTag.h"
#include "tests/support/ansi_text.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <optional>
#include <set>

namespace {

// Empty for a key that the table lacks; no row's description is.
std::string DescriptionOf(std::string_view key) {
    std::string longName;
    std::string description;
    CTagTable().GetTagInfo(key, &longName, &description);
    return description;
}

using Descriptions = std::map<std::string, std::string>;

Descriptions DescriptionsByLongName() {
    Descriptions descriptions;
    for (const ListedTag& tag : ListedTags())
        descriptions[tag.longName] = DescriptionOf(tag.key);
    return descriptions;
}

struct StockFamily {
    std::string name;
    std::string prefix;
    std::string sheetNumber = "SheetNumOfOneSet"; // has "Stk" in front in two families
    bool hasTypeTrayAndWeight = true;
};

const std::array<StockFamily, 8> kStockFamilies{{
    {"", "本文-", "StkSheetNumOfOneSet"},
    {"Separators", "合紙-部単位で挿入-", "StkSheetNumOfOneSet"},
    {"BlankPapersFront", "白紙-前-部単位で挿入-"},
    {"BlankPapersBack", "白紙-後-部単位で挿入-"},
    {"FrontCover", "おもて表紙-部単位で挿入-"},
    {"BackCover", "うら表紙-部単位で挿入-"},
    {"Imposition1st", "面付け-1枚目-"},
    {"ImpositionOther", "面付け-2枚目以降-", "SheetNumOfOneSet", false},
}};

// By long name.
Descriptions ExpectedOf(const StockFamily& family) {
    Descriptions items{
        {"StkName", "メディア名"},
        {"StkPaperSizeType", "用紙サイズ"},
        {"StkPaperSizeName", "用紙サイズ-サイズ名"},
        {"StkPaperSizeWidth", "用紙サイズ-幅"},
        {"StkPaperSizeLength", "用紙サイズ-長さ"},
        {"StkPaperColor", "用紙色"},
        {"StkCustomPaperColor", "カスタム用紙色"},
        {"StkPaperType", "用紙種類"},
        {"StkCustomPaperType", "カスタム用紙種類"},
        {family.sheetNumber, "1組の枚数"},
        {"StkOrder", "順序"},
        {"StkIsDrilled", "パンチ穴"},
        {"StkSidesCoated", "コート面"},
        {"StkCoatingType", "コート種類"},
        {"StkGrain", "紙目"},
    };
    if (family.hasTypeTrayAndWeight)
        items.insert({{"StkType", "メディアタイプ"}, {"StkTray", "メディアのトレイ"}, {"StkWeight", "坪量"}});
    Descriptions expected;
    for (const auto& [item, text] : items)
        expected[family.name + item] = family.prefix + text;
    return expected;
}

// By key.
Descriptions ExpectedOfUserMark(int number) {
    const std::string key = "LUM" + std::to_string(number);
    const std::string text = "面付け-ユーザーマーク" + std::to_string(number);
    return {{key, text},
            {key + "F", text + "-ファイル"},
            {key + "PX", text + "-位置X"},
            {key + "PY", text + "-位置Y"}};
}

TEST(TagDescriptions, OfTheTellingRowsAreGiven) {
    EXPECT_EQ(DescriptionOf("OTra"), "用紙トレイ");
    EXPECT_EQ(DescriptionOf("ONOC"), "部数");
    EXPECT_EQ(DescriptionOf("PSCPSW"), "PostScript Custom Page Size・幅");
    EXPECT_EQ(DescriptionOf("Depth"), "印刷品質");
    EXPECT_EQ(DescriptionOf("SFCSTy"), "おもて表紙-部単位で挿入-メディアタイプ");
    EXPECT_EQ(DescriptionOf("EXT_PGSIZE"), "原稿サイズ");
    EXPECT_EQ(DescriptionOf("OSMe"), "ホチキスの機構");
}

TEST(TagDescriptions, OfTheStockFamiliesAreTheFamilyAndTheItem) {
    const Descriptions descriptions = DescriptionsByLongName();
    for (const StockFamily& family : kStockFamilies)
        for (const auto& [longName, expected] : ExpectedOf(family)) {
            ASSERT_TRUE(descriptions.contains(longName)) << longName;
            EXPECT_EQ(descriptions.at(longName), expected) << longName;
        }
}

TEST(TagDescriptions, OfTheUserMarksAreTheMarkAndTheItem) {
    for (int number = 1; number <= 48; ++number)
        for (const auto& [key, expected] : ExpectedOfUserMark(number))
            EXPECT_EQ(DescriptionOf(key), expected) << key;
}

TEST(TagDescriptions, OfAllOtherRowsAreTheListedOnes) {
    const auto listed = ListedTagDescriptions();
    EXPECT_EQ(listed.size(), 531u);
    for (const ListedTagDescription& row : listed)
        EXPECT_EQ(DescriptionOf(row.key), AnsiText(row.description)) << row.key;
}

TEST(TagDescriptions, AreEachExpectedOnceByAFamilyOrByTheListing) {
    std::map<std::string, std::string> keyOf;
    std::map<std::string, int> rowOf;
    for (const ListedTag& tag : ListedTags()) {
        keyOf[tag.longName] = tag.key;
        rowOf[tag.key] = tag.row;
    }
    std::multiset<std::string> keys;
    for (const ListedTagDescription& row : ListedTagDescriptions()) {
        keys.insert(row.key);
        EXPECT_EQ(row.row, rowOf[row.key]) << row.key;
    }
    for (const StockFamily& family : kStockFamilies)
        for (const auto& [longName, expected] : ExpectedOf(family))
            keys.insert(keyOf[longName]);
    for (int number = 1; number <= 48; ++number)
        for (const auto& [key, expected] : ExpectedOfUserMark(number))
            keys.insert(key);
    EXPECT_EQ(keys.size(), 864u);
    for (const ListedTag& tag : ListedTags())
        EXPECT_EQ(keys.count(tag.key), 1u) << tag.key;
}

// No setting that is there with and without imposition is an exception.
TEST(TagDescriptions, OfAnImpositionSettingAreThoseOfTheSameSettingWithoutIt) {
    const Descriptions descriptions = DescriptionsByLongName();
    const std::string imposition = "Imposition";
    int pairs = 0;
    for (const auto& [longName, description] : descriptions) {
        const auto own = descriptions.find(imposition + longName);
        if (own == descriptions.end())
            continue;
        EXPECT_EQ(own->second, "面付け-" + description) << own->first;
        ++pairs;
    }
    EXPECT_EQ(pairs, 33);
}

struct Side {
    std::string name;
    std::string text;
};

// What follows the side's text; nothing if the description begins otherwise.
std::optional<std::string> ItemOf(const std::string& description, const Side& side) {
    if (!description.starts_with(side.text))
        return std::nullopt;
    return description.substr(side.text.size());
}

// The number of settings that are there for both sides. Each has the same item on both.
int ExpectMirrored(const Side& image, const Side& text) {
    const Descriptions descriptions = DescriptionsByLongName();
    int pairs = 0;
    for (const auto& [longName, description] : descriptions) {
        if (!longName.starts_with(image.name))
            continue;
        const auto other = descriptions.find(text.name + longName.substr(image.name.size()));
        if (other == descriptions.end())
            continue;
        const std::optional<std::string> item = ItemOf(description, image);
        EXPECT_TRUE(item.has_value()) << longName;
        EXPECT_EQ(item, ItemOf(other->second, text)) << longName;
        ++pairs;
    }
    return pairs;
}

TEST(TagDescriptions, OfImagesAndTextMirrorEachOther) {
    EXPECT_EQ(ExpectMirrored({"Image", "画像-"}, {"Text", "文字-"}), 18);
    EXPECT_EQ(ExpectMirrored({"RgbImage", "RGB画像-"}, {"RgbText", "RGB文字-"}), 5);
    EXPECT_EQ(ExpectMirrored({"CmykImage", "CMYK画像-"}, {"CmykText", "CMYK文字-"}), 2);
}

// Only the rendering intent has a row for text beside one for everything.
TEST(TagDescriptions, OfTheTextsRenderingIntentIsTheGeneralOneForText) {
    EXPECT_EQ(DescriptionOf("CRRI"), "RGBレンダリングインテント");
    EXPECT_EQ(DescriptionOf("CTRRI"), "文字-RGBレンダリングインテント");
}

TEST(TagDescriptions, SetATypeOrNameOffWithAHyphenWhereWhatItBelongsToHasARow) {
    const Descriptions descriptions = DescriptionsByLongName();
    for (const auto& [longName, description] : descriptions) {
        if (!description.ends_with("種類") && !description.ends_with("名") && !description.ends_with("名前"))
            continue;
        for (const auto& [headName, head] : descriptions) {
            if (description != head && description.starts_with(head)) {
                EXPECT_EQ(description[head.size()], '-') << longName << " " << headName;
            }
        }
    }
}

// The characters of a CP932 text, 0 if it is not one.
int CharacterCount(std::string_view text) {
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++i, ++count) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool isLead = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        if (byte < 0x20 || byte == 0x7F || (isLead && ++i == text.size()))
            return 0;
        if (isLead) {
            const auto trail = static_cast<unsigned char>(text[i]);
            if (trail < 0x40 || trail == 0x7F || trail > 0xFC)
                return 0;
        }
    }
    return count;
}

TEST(TagDescriptions, HaveOneTo42CharactersInAtMost84Bytes) {
    EXPECT_EQ(CharacterCount("用紙トレイ"), 5);
    for (const ListedTag& tag : ListedTags()) {
        const std::string description = DescriptionOf(tag.key);
        EXPECT_GE(CharacterCount(description), 1) << tag.key;
        EXPECT_LE(CharacterCount(description), 42) << tag.key;
        EXPECT_LE(description.size(), 84u) << tag.key;
    }
}

TEST(TagDescriptions, CanStandInAComment) {
    for (const ListedTag& tag : ListedTags()) {
        const std::string description = DescriptionOf(tag.key);
        EXPECT_EQ(description.find("--"), std::string::npos) << tag.key;
        EXPECT_EQ(description.find_first_of("<>&"), std::string::npos) << tag.key;
        EXPECT_FALSE(description.starts_with('-')) << tag.key;
        EXPECT_FALSE(description.ends_with('-')) << tag.key;
    }
}

TEST(TagDescriptions, TellEveryRowFromEveryOther) {
    std::map<std::string, std::string> keyOf;
    for (const ListedTag& tag : ListedTags()) {
        const auto [other, isNew] = keyOf.try_emplace(DescriptionOf(tag.key), tag.key);
        EXPECT_TRUE(isNew) << other->second << " " << tag.key;
    }
}

} // namespace
