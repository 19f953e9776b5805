// The application's defaults against a fresh sheet, and its choices against the sheet's way back.
#include "tests/companions/jobproperty/fresh_sheet.h"
#include "tests/companions/jobproperty/x100_catalogue.h"
#include "tests/support/ansi_text.h"
#include "tests/support/devmode_listing.h"
#include "tests/support/reset_listing.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace jobproperty {
namespace {

std::map<std::string, Value> NamedValuesOfTheStore() {
    std::map<std::string, Value> values;
    std::array<char, 2048> text{};
    std::uint32_t number = 0;
    std::int32_t signedNumber = 0;
#define ZR_U32(name)                                                                                         \
    ExportedFunc_Get##name(&number);                                                                         \
    values[#name].number = number;
#define ZR_I32(name)                                                                                         \
    ExportedFunc_Get##name(&signedNumber);                                                                   \
    values[#name].number = signedNumber;
#define ZR_TEXT_VALUE(name, width)                                                                           \
    ExportedFunc_Get##name(text.data());                                                                     \
    values[#name].text = text.data();
#include "session/named_values.def"
    return values;
}

class FreshSheet : public testing::Test {
  protected:
    FreshSheet() { LoadFreshSheet(X100()); }
    ~FreshSheet() override { ExportedFunc_InitializeDataManager(); }
};

TEST_F(FreshSheet, HasNothingMarkedAndNothingOutOfRange) {
    const auto named = NamedValuesOfTheStore();
    JobSettings settings(X100Catalogue(), X100());
    for (std::size_t i = 0; i < X100Catalogue().Settings().size(); ++i) {
        const SettingInfo& setting = X100Catalogue().Settings()[i];
        if (setting.isKeyword)
            settings.Load(i, {CurrentOf(setting.number), {}}, DefaultOf(setting.number));
        else
            settings.Load(i, named.at(setting.name), {});
        EXPECT_FALSE(settings.DiffersFromDefault(i))
            << setting.name << ": " << settings.Shown(i) << ", not " << settings.ShownDefault(i);
        EXPECT_TRUE(IsAllowed(setting, settings.Current(i))) << setting.name;
    }
}

// Without what the key says of their defaults.
TEST_F(FreshSheet, HasTheBuiltInDefaultsOfKeywords) {
    const JobSettings settings(X100Catalogue(), X100());
    for (std::size_t i = 0; i < X100Catalogue().Settings().size(); ++i) {
        const SettingInfo& setting = X100Catalogue().Settings()[i];
        if (setting.isKeyword) {
            EXPECT_EQ(settings.Default(i).number, CurrentOf(setting.number)) << setting.name;
        }
    }
}

// The sheet takes every choice for the option that stands there in the driver's list.
TEST_F(FreshSheet, TakesBackEveryChoiceOfEveryKeywordAsItsOption) {
    std::size_t most = 0;
    for (const SettingInfo& setting : X100Catalogue().Settings())
        most = std::max(most, setting.choices.size());
    ASSERT_EQ(most, 59u) << "those of the paper types";
    CCurrentSetting current;
    current.CreateSettingInfo();
    for (std::size_t option = 0; option < most; ++option) {
        const auto isTested = [&](const SettingInfo& setting) {
            return setting.isKeyword && option < setting.choices.size();
        };
        for (const SettingInfo& setting : X100Catalogue().Settings())
            if (isTested(setting))
                ExportedFunc_SetCurrent(setting.number,
                                        static_cast<std::uint32_t>(setting.choices[option].value));
        current.AllSessionToCurrent();
        current.SaveToSession();
        for (const SettingInfo& setting : X100Catalogue().Settings())
            if (isTested(setting)) {
                EXPECT_EQ(CurrentOf(setting.number), option) << setting.name;
            }
    }
}

// Of a named value, as the private DEVMODE's listing has it.
std::map<std::string, std::string> DevModeDefaults() {
    std::map<std::string, std::string> defaults;
    for (const ListedField& field : ListDevModeFields())
        defaults[field.name] =
            field.IsText() ? AnsiText(field.value).substr(1, AnsiText(field.value).size() - 2) : field.value;
    return defaults;
}

std::map<std::string, std::string> ResetDefaults() {
    std::map<std::string, std::string> defaults;
    for (const ListedResetValue& value : ListedResetValues())
        defaults[value.name] = value.value;
    return defaults;
}

TEST(DefaultsOfNamedValues, AreThoseOfThePrivateDevModeWhereItHasTheStoresUnit) {
    const JobSettings settings(X100Catalogue(), X100());
    auto expected = DevModeDefaults();
    const auto reset = ResetDefaults();
    std::set<std::string> unlikeReset;
    for (std::size_t i = 0; i < X100Catalogue().Settings().size(); ++i) {
        const SettingInfo& setting = X100Catalogue().Settings()[i];
        const std::string name = setting.name;
        if (setting.isKeyword)
            continue;
        ASSERT_TRUE(expected.contains(name)) << name;
        if (reset.contains(name) && reset.at(name) != expected.at(name))
            unlikeReset.insert(name);
        const bool isPaperLength = name == "ChgPrintPaperSizeWidth" || name == "ChgPrintPaperSizeLength";
        const Value& value = settings.Default(i);
        EXPECT_EQ(setting.limit > 0 ? value.text : std::to_string(value.number),
                  isPaperLength ? reset.at(name) : expected.at(name))
            << name;
    }
    EXPECT_EQ(unlikeReset, (std::set<std::string>{"BackSignatureFontName", "JobInformationFontName",
                                                  "ChgPrintPaperSizeWidth", "ChgPrintPaperSizeLength"}));
}

// What the sheet sends to the store and does not read back from it would be lost.
TEST(NamedValues, ThatTheSheetNeverReadsBackAreNotShown) {
    std::set<std::string> lost;
#define ZR_LOST_Header(name)
#define ZR_LOST_Routed(name)
#define ZR_LOST_Direct(name)
#define ZR_LOST_Twice(name)
#define ZR_LOST_Paper(name)
#define ZR_LOST_Both(name)
#define ZR_LOST_Stays(name) lost.insert(#name);
#define ZR_LOST_StoreOnly(name) lost.insert(#name);
#define ZR_LOST_FrontCover(name) lost.insert(#name);
#define ZR_NUMBER(offset, type, name, value, route, travel) ZR_LOST_##travel(name)
#define ZR_TEXT(offset, name, width, value, travel, control) ZR_LOST_##travel(name)
#include "oemps/private_devmode.def"
    EXPECT_EQ(lost.size(), 13u);
    for (const std::string& name : lost) {
        // The driver's own area has these two.
        if (name == "CustomPaperWidth" || name == "CustomPaperHeight")
            continue;
        EXPECT_EQ(X100Catalogue().Find(name), Catalogue::npos) << name;
    }
    for (const char* name : {"JobRscSetName", "AuthJobUserId", "AuthJobPassword", "AuthJobAccount",
                             "FrontCoverStkName", "FavoriteName", "Profile"})
        EXPECT_TRUE(lost.contains(name)) << name;
}

} // namespace
} // namespace jobproperty
