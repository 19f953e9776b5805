// The generated default settings file against the device description, read by lines, and the listing of the
// private DEVMODE.
#include "settings/FavoriteFileManager.h"
#include "tests/resources/x100_description.h"
#include "tests/settings/setting_keyword_lists.h"
#include "tests/settings/travelling_fields.h"
#include "tests/support/ansi_text.h"
#include "tests/support/devmode_listing.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr int kKeywords = 327;
constexpr int kFirstCrease = 518;
constexpr int kLastTrim = 542;

class DefaultSettingsFile : public testing::Test {
  protected:
    DefaultSettingsFile() {
        EXPECT_EQ(CFavoriteFileManager({}).LoadFavoriteFromPath(setting, ZR_DEFAULT_SETTINGS_FILE), 1);
        for (const TravellingField& field : TravellingFields())
            fields.emplace(field.field.number, field);
    }

    std::int64_t Number(int number) const { return fields.at(number).NumberIn(setting.PrintOption()); }

    CFavoriteSetting setting;
    std::map<int, TravellingField> fields; // those that files tell, by value number
};

// Names by KeywordId or value number.
std::map<int, std::string> ListedValueNames() {
    std::ifstream file(ZR_TEST_DATA_DIR "/valuenumbers.tsv");
    std::string line;
    std::getline(file, line);
    std::map<int, std::string> names;
    std::string name;
    for (int number; file >> number >> name;)
        names.emplace(number, name);
    return names;
}

// The place of a feature's default option; without a default the first option is it, and without the feature
// nothing is bound.
int DefaultOptionIndex(const std::string& keyword) {
    const x100_description::Feature& feature = x100_description::FeatureOf(keyword);
    const auto found =
        std::ranges::find(feature.options, feature.defaultOption, &x100_description::Option::keyword);
    return found == feature.options.end() ? 0 : static_cast<int>(found - feature.options.begin());
}

// What a keyword's option is called in a record.
std::int64_t TagNumber(int keyword, int optionIndex) {
    if (!kConverted.contains(keyword))
        return optionIndex;
    for (const ListedTagArray& array : ListedTagArrays())
        if (array.number == keyword)
            return array.tags.at(static_cast<std::size_t>(optionIndex));
    EXPECT_LE(optionIndex, 1) << keyword;
    return optionIndex;
}

// The features that the driver keeps in public fields under names of its own.
const std::map<int, std::string> kPublicFeatures{
    {0, "PageSize"}, {4, "InputSlot"}, {15, "MediaType"}, {305, "Resolution"}};
// What the driver keeps without a feature: copies, orientation, pages per sheet, collate.
const std::map<int, std::int64_t> kPublicNumbers{{1, 1}, {2, 0}, {3, 0}, {109, 1}};
// The custom page.
const std::set<int> kCustomPage{301, 302, 303, 304};

// A default of the listing, 0 for a field that the listing lacks or that has none.
std::int64_t ListedNumber(const std::map<std::string, std::string>& defaults, const std::string& name) {
    const auto found = defaults.find(name);
    return found == defaults.end() || found->second.empty() ? 0 : std::stoll(found->second, nullptr, 0);
}

std::string ListedText(const std::map<std::string, std::string>& defaults, const std::string& name) {
    const auto found = defaults.find(name);
    return found == defaults.end() || found->second.size() < 2
               ? ""
               : AnsiText(found->second.substr(1, found->second.size() - 2));
}

} // namespace

TEST_F(DefaultSettingsFile, IsAFavoriteOfThePresentFormat) {
    EXPECT_EQ(setting.FileVer, 2u);
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_EQ(setting.CharCode, 0u);
    EXPECT_STREQ(setting.Comment.data(), "");
    EXPECT_STREQ(setting.PageSize.data(), "");
}

TEST_F(DefaultSettingsFile, HoldsForEachKeywordTheTagNumberOfTheDescriptionsDefaultOption) {
    std::size_t seen = 0;
    for (const auto& [number, name] : ListedValueNames()) {
        if (number >= kKeywords || !fields.contains(number) || kPublicNumbers.contains(number) ||
            kCustomPage.contains(number))
            continue;
        const auto publicName = kPublicFeatures.find(number);
        const std::string& feature = publicName == kPublicFeatures.end() ? name : publicName->second;
        EXPECT_EQ(Number(number), TagNumber(number, DefaultOptionIndex(feature))) << number << ' ' << name;
        ++seen;
    }
    EXPECT_EQ(seen, 279u);
}

TEST_F(DefaultSettingsFile, HoldsThePublicSettingsOfAFreshPrinter) {
    for (const auto& [number, value] : kPublicNumbers)
        EXPECT_EQ(Number(number), value) << number;
}

// A4 is 595.28 by 841.89 points.
TEST_F(DefaultSettingsFile, HoldsTheDefaultFormsLengthsInThousandthsOfAMillimetreAsTheCustomPage) {
    EXPECT_EQ(Number(301), 210002);
    EXPECT_EQ(Number(302), 297000);
    EXPECT_EQ(Number(303), 0);
}

TEST_F(DefaultSettingsFile, HoldsTheDirectionOfTheOutputPaperThatAFreshPrivateDevModeHas) {
    EXPECT_EQ(Number(304), 1);
}

TEST_F(DefaultSettingsFile, HoldsForEachNamedValueTheDefaultOfThePrivateDevMode) {
    std::map<std::string, std::string> defaults;
    for (const ListedField& field : ListDevModeFields())
        defaults.emplace(field.name, field.value);
    // Its unit changes on the way into the store: 168378 and 119055 become thousandths of a millimetre.
    defaults["ChgPrintPaperSizeWidth"] = "297000";
    defaults["ChgPrintPaperSizeLength"] = "210000";

    std::size_t seen = 0;
    for (const auto& [number, name] : ListedValueNames()) {
        if (number < kKeywords || !fields.contains(number) || (number >= kFirstCrease && number <= kLastTrim))
            continue;
        const TravellingField& field = fields.at(number);
        if (field.IsText())
            EXPECT_EQ(field.TextIn(setting.PrintOption()), ListedText(defaults, name))
                << number << ' ' << name;
        else
            EXPECT_EQ(Number(number), ListedNumber(defaults, name)) << number << ' ' << name;
        ++seen;
    }
    EXPECT_EQ(seen, 157u);
}

// What a fresh printer has of a keyword that no tag tells; 100 is the driver's public scale.
TEST_F(DefaultSettingsFile, CannotTellTheScaleAndTheDefaultOptionsOfThreeFeatures) {
    std::map<std::string, int> untold;
    for (const auto& [number, name] : ListedValueNames()) {
        if (number >= kKeywords || fields.contains(number))
            continue;
        const int fresh = name == "Scale" ? 100 : DefaultOptionIndex(name);
        if (fresh != 0)
            untold.emplace(name, fresh);
    }
    const std::map<std::string, int> expected{
        {"Scale", 100}, {"SaveFileDpi", 2}, {"MediaTypeWeightBypass", 1}, {"PaperColorBypass", 1}};
    EXPECT_EQ(untold, expected);
}

// They move neither way between a bank and a record, whatever the private DEVMODE holds for them.
TEST_F(DefaultSettingsFile, Holds0ForCreasesAndTopAndTailTrim) {
    for (int number = kFirstCrease; number <= kLastTrim; ++number)
        EXPECT_EQ(Number(number), 0) << number;
}

TEST_F(DefaultSettingsFile, HasAnElementForEachTagButThoseOfAuthentication) {
    std::ifstream file(ZR_DEFAULT_SETTINGS_FILE, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    for (const ListedTag& tag : ListedTags()) {
        const bool hasElement = content.find('<' + tag.longName + '>') != std::string::npos ||
                                content.find('<' + tag.longName + "/>") != std::string::npos;
        EXPECT_NE(hasElement, IsAuthentication(tag.key)) << tag.longName;
    }
}
