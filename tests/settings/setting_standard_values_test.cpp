#include "settings/standard_values.h"

#include "tests/settings/setting_fixture.h"
#include "tests/settings/standard_value_lists.h"
#include "tests/support/devmode_listing.h"
#include "tests/support/reset_listing.h"

#include <map>
#include <memory>
#include <set>

namespace {

// As text, numbers in decimal.
using Constants = std::vector<std::pair<std::string, std::string>>;

Constants ResetConstants() {
    Constants constants;
    for (const ListedResetValue& value : ListedResetValues())
        constants.emplace_back(value.name, value.value);
    return constants;
}

std::map<std::string, std::string> AllConstants() {
    const Constants reset = ResetConstants();
    std::map<std::string, std::string> constants(reset.begin(), reset.end());
    for (const auto& [name, text] : kTextsBesideTheReset)
        constants[name] = text;
    for (const auto& [name, number] : kNumbersBesideTheReset)
        constants[name] = std::to_string(number);
    return constants;
}

std::string ConstantOf(const std::string& name) {
    const std::string text(StandardText(name));
    return SlotNamed(name).IsText() ? text : std::to_string(StandardNumber(name));
}

TEST(StandardValues, AreTheListedOnesInTheOrderOfAReset) {
    const Constants table{
#define ZR_STANDARD_TEXT(name, value) {#name, value},
#define ZR_STANDARD_NUMBER(name, value) {#name, std::to_string(value)},
#include "settings/standard_values.def"
    };
    EXPECT_EQ(table, ResetConstants());
    EXPECT_EQ(table.size(), 196u);
}

TEST(StandardValues, StandOnceEachAndNameAValueOfTheirKind) {
    std::map<std::string, int> times;
#define ZR_STANDARD_TEXT(name, value)                                                                        \
    ++times[#name];                                                                                          \
    EXPECT_TRUE(SlotNamed(#name).IsText()) << #name;
#define ZR_STANDARD_NUMBER(name, value)                                                                      \
    ++times[#name];                                                                                          \
    EXPECT_FALSE(SlotNamed(#name).IsText()) << #name;
#include "settings/standard_values.def"
    for (const auto& [name, count] : times)
        EXPECT_EQ(count, 1) << name;
}

TEST(StandardValues, AreFoundByNameForEveryConstant) {
    for (const auto& [name, constant] : AllConstants())
        EXPECT_EQ(ConstantOf(name), constant) << name;
}

TEST(StandardValues, CoverEveryNumberThatMoves) {
    const auto constants = AllConstants();
    for (int number = 328; number <= 562; ++number) {
        if (!IsCreaseOrTrim(number)) {
            EXPECT_TRUE(constants.contains(StoreNameOf(number))) << number;
        }
    }
    EXPECT_EQ(constants.size(), 211u) << "the 210 and UseIcCard";
}

// The DEVMODE's own values are in the store's units but for the two paper lengths.
TEST(StandardValues, BesideAResetAreTheDefaultsOfThePrivateDevMode) {
    const std::set<std::string> withoutAField{"ImpositionOtherStkSequence", "ImpositionOtherStkWeight"};
    std::map<std::string, std::string> listed;
    for (const ListedField& field : ListDevModeFields())
        listed[field.name] = field.value;
    for (const auto& [name, number] : kNumbersBesideTheReset) {
        ASSERT_EQ(listed.contains(name), !withoutAField.contains(name)) << name;
        EXPECT_EQ(std::to_string(number), listed.contains(name) ? listed[name] : "0") << name;
    }
    for (const auto& [name, text] : kTextsBesideTheReset) {
        ASSERT_TRUE(listed.contains(name)) << name;
        EXPECT_EQ('"' + text + '"', listed[name]) << name;
    }
}

TEST(StandardValues, OfCreaseAndTrimAreThoseOfThePrivateDevModeToo) {
    EXPECT_EQ(StandardNumber("CreaseMode"), 1);
    EXPECT_EQ(StandardNumber("CreasePosition5"), 63496);
    EXPECT_EQ(StandardNumber("TopAndTailTrimFrontCutSize"), 3402);
}

TEST(StandardValues, OfOtherNamesAreZeroAndEmpty) {
    for (const char* name :
         {"", "CustomPaperWidth", "CustomPaperHeight", "ManageMethod", "dwSize", "dwVersion",
          "CustomChgPaperDirection", "magnification", "Magnification ", "ServerAddress"}) {
        EXPECT_EQ(StandardNumber(name), 0) << name;
        EXPECT_EQ(StandardText(name), "") << name;
    }
}

TEST(StandardValues, OfTheOtherKindAreZeroAndEmpty) {
    EXPECT_EQ(StandardNumber("LayoutBaseFile"), 0);
    EXPECT_EQ(StandardNumber("MemoFontName"), 0);
    EXPECT_EQ(StandardText("Magnification"), "");
    EXPECT_EQ(StandardText("AppeVersion"), "");
}

class DefaultSetting : public SettingTest {
  protected:
    const std::unique_ptr<CDefaultSetting> setting = std::make_unique<CDefaultSetting>();
};

TEST_F(DefaultSetting, WritesItsConstantsToTheStoreWhateverItsRecordHolds) {
    const auto constants = AllConstants();
    FillStore(81);
    FillRecord(*setting, 82);
    const auto banks = AllBanks();
    const auto record = BytesOf(*setting);
    for (int number = 328; number <= 562; ++number) {
        const auto before = AllNamedValues();
        ASSERT_EQ(setting->NamedValueFromSession(number, TransferDirection::ToBank), 1);
        if (IsCreaseOrTrim(number) || number == 502)
            EXPECT_EQ(AllNamedValues(), before) << number;
        else
            EXPECT_EQ(SlotNamed(StoreNameOf(number)).Get(), constants.at(StoreNameOf(number))) << number;
    }
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(BytesOf(*setting), record);
}

TEST_F(DefaultSetting, ReadsItsConstantsIntoTheRecordWhateverTheStoreHolds) {
    const auto constants = AllConstants();
    FillStore(83);
    FillRecord(*setting, 84);
    const auto named = AllNamedValues();
    for (int number = 328; number <= 562; ++number) {
        const auto before = BytesOf(*setting);
        ASSERT_EQ(setting->NamedValueFromSession(number, TransferDirection::FromBank), 1);
        if (IsCreaseOrTrim(number)) {
            EXPECT_EQ(BytesOf(*setting), before) << number;
            continue;
        }
        const ListedPlace& place = *PlaceOf(number);
        const std::string& constant = constants.at(StoreNameOf(number));
        if (place.isText) {
            EXPECT_EQ(FieldTextOf(*setting, number), constant) << number;
            if (place.flag) {
                EXPECT_EQ(setting->PrintOption().Bytes(place.block)[place.flag], 1) << number;
            }
        } else {
            EXPECT_EQ(std::to_string(FieldNumber(*setting, number)), constant) << number;
        }
    }
    EXPECT_EQ(AllNamedValues(), named);
}

TEST_F(DefaultSetting, AnswersToTheCustomPaperSizesTooThroughTheDefaultBank) {
    FillStore(85);
    auto banks = AllBanks();
    EXPECT_EQ(setting->NamedValueFromSession(301, TransferDirection::ToBank), 1);
    EXPECT_EQ(setting->NamedValueFromSession(302, TransferDirection::ToBank), 1);
    banks[327 + 301] = 168378;
    banks[327 + 302] = 119055;
    EXPECT_EQ(AllBanks(), banks);

    EXPECT_EQ(setting->NamedValueFromSession(301, TransferDirection::FromBank), 1);
    EXPECT_EQ(setting->NamedValueFromSession(302, TransferDirection::FromBank), 1);
    EXPECT_EQ(FieldNumber(*setting, 301), 168378u);
    EXPECT_EQ(FieldNumber(*setting, 302), 119055u);
}

TEST_F(DefaultSetting, MovesNothingForOtherNumbersAndDirections) {
    FillStore(86);
    FillRecord(*setting, 87);
    const auto banks = AllBanks();
    const auto named = AllNamedValues();
    const auto record = BytesOf(*setting);
    for (const int number : {-1, 0, 300, 303, 326, 327, 563, 1000}) {
        EXPECT_EQ(setting->NamedValueFromSession(number, TransferDirection::ToBank), 1);
        EXPECT_EQ(setting->NamedValueFromSession(number, TransferDirection::FromBank), 1);
    }
    for (const int number : {301, 328, 330})
        EXPECT_EQ(setting->NamedValueFromSession(number, static_cast<TransferDirection>(2)), 1);
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(AllNamedValues(), named);
    EXPECT_EQ(BytesOf(*setting), record);
}

// The store has one slot for a named value and no default of it.
TEST_F(DefaultSetting, ReplacesThePresentNamedValuesInSaveToSession) {
    FillStore(88);
    setting->SaveToSession();
    for (const auto& [name, constant] : AllConstants())
        if (name != "UseIcCard" && name != "FrontCoverStkName") {
            EXPECT_EQ(SlotNamed(name).Get(), constant) << name;
        }
}

} // namespace
