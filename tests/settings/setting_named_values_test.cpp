// How every named value moves, 328 to 562, by the names of the listing.
#include "tests/settings/setting_fixture.h"

#include "settings/named_values_guard.h"

#include <limits>
#include <memory>
#include <set>

namespace {

constexpr int kFrontCoverStkName = 502;

class SettingNamedValues : public SettingTest {
  protected:
    const std::unique_ptr<CCurrentSetting> setting = std::make_unique<CCurrentSetting>();
};

// Moves each named value to the store by `move`.
template <class Move>
void ExpectEachReachesItsSlot(CCurrentSetting& setting, Move move) {
    FillStore(21);
    FillRecord(setting, 22);
    for (int number = 328; number <= 562; ++number) {
        const auto banks = AllBanks();
        const auto before = AllNamedValues();
        ASSERT_EQ(move(number), 1) << number;
        if (IsCreaseOrTrim(number) || number == kFrontCoverStkName) {
            EXPECT_EQ(AllNamedValues(), before) << number;
            continue;
        }
        const NamedSlot& slot = SlotNamed(StoreNameOf(number));
        if (slot.IsText()) {
            const std::string sent = FieldTextOf(setting, number);
            EXPECT_EQ(slot.getText(), sent.substr(0, slot.width - 1)) << slot.name;
        } else {
            EXPECT_EQ(slot.getNumber(), FieldNumber(setting, number)) << slot.name;
        }
        const auto after = AllNamedValues();
        int changed = 0;
        for (std::size_t i = 0; i < after.size(); ++i)
            changed += before[i] != after[i];
        EXPECT_LE(changed, 1) << number;
        EXPECT_EQ(AllBanks(), banks) << number;
    }
}

TEST(NamedValueListing, NamesASlotOfItsKindForEveryNumberThatMoves) {
    std::set<std::string> names;
    for (int number = 328; number <= 562; ++number) {
        if (IsCreaseOrTrim(number)) {
            EXPECT_EQ(StoreNameOf(number), "");
            continue;
        }
        const NamedSlot& slot = SlotNamed(StoreNameOf(number));
        ASSERT_NE(PlaceOf(number), nullptr) << number;
        EXPECT_EQ(slot.IsText(), PlaceOf(number)->isText) << slot.name;
        EXPECT_EQ(slot.isReadable, number != kFrontCoverStkName) << slot.name;
        names.insert(slot.name);
    }
    EXPECT_EQ(names.size(), 210u);
}

TEST_F(SettingNamedValues, GoToTheSlotsOfTheirNames) {
    ExpectEachReachesItsSlot(
        *setting, [&](int n) { return setting->NamedValueFromSession(n, TransferDirection::ToBank); });
}

TEST_F(SettingNamedValues, OfAFavoriteGoToTheSlotsOfTheirNames) {
    ExpectEachReachesItsSlot(*setting, [&](int n) { return setting->NamedValueToSession(n); });
}

TEST_F(SettingNamedValues, OfTheDefaultSettingsRecordGoToTheStoreInTheFavoritesWay) {
    CDefaultSetting standard;
    ExpectEachReachesItsSlot(standard, [&](int n) { return standard.NamedValueToSession(n); });
}

TEST_F(SettingNamedValues, ComeFromTheSlotsOfTheirNames) {
    FillStore(23);
    const auto named = AllNamedValues();
    const auto banks = AllBanks();
    for (int number = 328; number <= 562; ++number) {
        const auto before = BytesOf(*setting);
        ASSERT_EQ(setting->NamedValueFromSession(number, TransferDirection::FromBank), 1) << number;
        if (IsCreaseOrTrim(number) || number == kFrontCoverStkName) {
            EXPECT_EQ(BytesOf(*setting), before) << number;
            continue;
        }
        const NamedSlot& slot = SlotNamed(StoreNameOf(number));
        const ListedPlace& place = *PlaceOf(number);
        if (slot.IsText()) {
            EXPECT_EQ(FieldTextOf(*setting, number), slot.getText().substr(0, place.width - 1)) << slot.name;
            if (place.flag) {
                EXPECT_EQ(setting->PrintOption().Bytes(place.block)[place.flag], 1) << slot.name;
            }
        } else {
            EXPECT_EQ(FieldNumber(*setting, number), slot.getNumber()) << slot.name;
        }
        const auto after = BytesOf(*setting);
        std::size_t changed = 0;
        for (std::size_t i = 0; i < after.size(); ++i)
            changed += before[i] != after[i];
        EXPECT_LE(changed, place.width + 1) << slot.name;
    }
    EXPECT_EQ(AllNamedValues(), named);
    EXPECT_EQ(AllBanks(), banks);
}

TEST_F(SettingNamedValues, OfTheGapAndOutsideTheRangeMoveNothingAndSucceed) {
    FillStore(24);
    FillRecord(*setting, 24);
    const auto named = AllNamedValues();
    const auto banks = AllBanks();
    const auto record = BytesOf(*setting);
    for (const int number : {327, 0, 1, 301, 302, -1, 563, 0x10148, std::numeric_limits<int>::min(),
                             std::numeric_limits<int>::max()}) {
        EXPECT_EQ(setting->NamedValueFromSession(number, TransferDirection::FromBank), 1) << number;
        EXPECT_EQ(setting->NamedValueFromSession(number, TransferDirection::ToBank), 1) << number;
        EXPECT_EQ(setting->NamedValueToSession(number), 1) << number;
    }
    EXPECT_EQ(setting->NamedValueFromSession(328, static_cast<TransferDirection>(2)), 1);
    EXPECT_EQ(AllNamedValues(), named);
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(BytesOf(*setting), record);
}

TEST_F(SettingNamedValues, OfALoadedRecordWithoutANulEndWithTheirField) {
    const ListedPlace& place = *PlaceOf(505);
    for (std::size_t i = 0; i < place.width; ++i)
        setting->PrintOption().Bytes(place.block)[place.offset + i] = 'x';
    setting->NamedValueFromSession(505, TransferDirection::ToBank);
    EXPECT_EQ(SlotNamed("SPages").getText(), std::string(1023, 'x'));
}

TEST_F(SettingNamedValues, ThatAreTooLongForTheirFieldAreCutAndFlagged) {
    SlotNamed("AuthJobAccount").setText(std::string(65, 'a').c_str());
    SlotNamed("Tags").setText(std::string(511, 't').c_str());
    setting->NamedValueFromSession(391, TransferDirection::FromBank);
    setting->NamedValueFromSession(392, TransferDirection::FromBank);
    EXPECT_EQ(FieldTextOf(*setting, 391), std::string(33, 'a'));
    EXPECT_EQ(FieldTextOf(*setting, 392), std::string(255, 't'));
    EXPECT_EQ(setting->PrintOption().Bytes(ddb::Block::Record)[21935], 1);
    EXPECT_EQ(setting->PrintOption().Bytes(ddb::Block::Record)[21937], 1);
}

// The store has 512 bytes for the tags and the record 256; "ソ" is the bytes 83 5C.
TEST_F(SettingNamedValues, AreCutBetweenTwoCharacters) {
    for (const std::size_t before : {252u, 253u, 254u, 255u}) {
        const std::string ascii(before, 't');
        SlotNamed("Tags").setText((ascii + "\x83\x5C\x83\x5C").c_str());
        setting->NamedValueFromSession(392, TransferDirection::FromBank);
        EXPECT_EQ(FieldTextOf(*setting, 392), before < 254 ? ascii + "\x83\x5C" : ascii);
        EXPECT_EQ(setting->PrintOption().Bytes(ddb::Block::Record)[21937], 1);
    }
}

TEST_F(SettingNamedValues, ThatAreEmptySetTheirFlagToo) {
    setting->NamedValueFromSession(328, TransferDirection::FromBank);
    EXPECT_EQ(FieldTextOf(*setting, 328), "");
    EXPECT_EQ(setting->PrintOption().Bytes(ddb::Block::Record)[21878], 1);
}

TEST_F(SettingNamedValues, HoldAllSixtyFourBitsOfTheStartTime) {
    PutFieldNumber(*setting, 517, 0xFEDCBA9876543210);
    setting->NamedValueFromSession(517, TransferDirection::ToBank);
    EXPECT_EQ(SlotNamed("AutoJobStartSpecifiedDayAndTimeForDriver").getNumber(), 0xFEDCBA9876543210);
    PutFieldNumber(*setting, 517, 0);
    setting->NamedValueFromSession(517, TransferDirection::FromBank);
    EXPECT_EQ(FieldNumber(*setting, 517), 0xFEDCBA9876543210);
}

TEST_F(SettingNamedValues, AreAsBeforeWhenAGuardEnds) {
    FillStore(25);
    const auto before = AllNamedValues();
    {
        const NamedValuesGuard guard;
        FillStore(26);
        EXPECT_NE(AllNamedValues(), before);
    }
    EXPECT_EQ(AllNamedValues(), before);
}

TEST_F(SettingNamedValues, AreAsBeforeTheStandardSettingsFilledTheDefaultBankUnderAGuard) {
    FillStore(27);
    const auto before = AllNamedValues();
    CDefaultSetting standard;
    {
        const NamedValuesGuard guard;
        standard.SaveToSession();
        EXPECT_NE(AllNamedValues(), before);
    }
    EXPECT_EQ(AllNamedValues(), before);
}

TEST_F(SettingNamedValues, KeepTheBanksThatWereWrittenUnderAGuard) {
    {
        const NamedValuesGuard guard;
        SetBank(StoreBank::Default, 7, 5);
    }
    EXPECT_EQ(GetBank(StoreBank::Default, 7), 5u);
}

} // namespace
