// The setting objects: their loops over all values, the favourite's answers, and their slots.
#include "settings/setting_info.h"

#include "tests/settings/option_bytes.h"
#include "tests/settings/setting_fixture.h"
#include "tests/support/tag_listing.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <type_traits>
#include <utility>

namespace {

using Numbers = std::vector<int>;

Numbers From(int first, int last) {
    Numbers numbers(static_cast<std::size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

// Notes each step; one of them fails.
class NotingSetting : public CCurrentSetting {
  public:
    int PrintOptionFromSession(int keyword, TransferDirection direction) override {
        directions.push_back(direction);
        return Note(keywords, keyword);
    }
    int FavoriteFromSession(int keyword) override { return Note(favoriteKeywords, keyword); }
    int NamedValueFromSession(int number, TransferDirection direction) override {
        directions.push_back(direction);
        return Note(named, number);
    }
    int NamedValueToSession(int number) override { return Note(favoriteNamed, number); }
    SessionBlock* Session() override {
        ++sessions;
        return nullptr;
    }

    int failing = -1;
    Numbers keywords, favoriteKeywords, named, favoriteNamed;
    std::vector<TransferDirection> directions;
    int sessions = 0;

  private:
    int Note(Numbers& steps, int number) {
        steps.push_back(number);
        return number == failing ? 0 : 2;
    }
};

class SettingLoops : public SettingTest {
  protected:
    const std::unique_ptr<NotingSetting> setting = std::make_unique<NotingSetting>();
};

TEST_F(SettingLoops, OfCreateSettingInfoReadAllKeywordsAndThenAllNamedValues) {
    EXPECT_EQ(setting->CreateSettingInfo(), 1);
    EXPECT_EQ(setting->keywords, From(0, 326));
    EXPECT_EQ(setting->named, From(327, 562));
    EXPECT_EQ(setting->directions, std::vector<TransferDirection>(563, TransferDirection::FromBank));
}

TEST_F(SettingLoops, OfSaveToSessionWriteAllKeywordsAndThenAllNamedValues) {
    EXPECT_EQ(setting->SaveToSession(), 1);
    EXPECT_EQ(setting->keywords, From(0, 326));
    EXPECT_EQ(setting->named, From(327, 562));
    EXPECT_EQ(setting->directions, std::vector<TransferDirection>(563, TransferDirection::ToBank));
}

TEST_F(SettingLoops, OfSaveFavoriteToSessionWriteAllByTheFavoritesRules) {
    EXPECT_EQ(setting->SaveFavoriteToSession(), 1);
    EXPECT_EQ(setting->favoriteKeywords, From(0, 326));
    EXPECT_EQ(setting->favoriteNamed, From(327, 562));
    EXPECT_TRUE(setting->keywords.empty());
    EXPECT_TRUE(setting->named.empty());
}

TEST_F(SettingLoops, OfAllCurrentToSessionWriteKeywordsAndNoNamedValues) {
    FillStore(31);
    FillRecord(*setting, 32);
    const auto named = AllNamedValues();
    EXPECT_EQ(setting->AllCurrentToSession(), 1);
    EXPECT_EQ(GetBank(StoreBank::Current, 0), FieldNumber(*setting, 0));
    EXPECT_EQ(GetBank(StoreBank::Current, 326), FieldNumber(*setting, 326));
    EXPECT_TRUE(setting->named.empty());
    EXPECT_EQ(AllNamedValues(), named);
}

TEST_F(SettingLoops, OfAllSessionToCurrentReadKeywordsAndThenAllNamedValues) {
    FillStore(33);
    EXPECT_EQ(setting->AllSessionToCurrent(), 1);
    EXPECT_EQ(FieldNumber(*setting, 0), GetBank(StoreBank::Current, 0));
    EXPECT_EQ(FieldNumber(*setting, 326), GetBank(StoreBank::Current, 326));
    EXPECT_EQ(setting->named, From(327, 562));
    EXPECT_EQ(setting->directions, std::vector<TransferDirection>(236, TransferDirection::FromBank));
}

TEST_F(SettingLoops, GoOnBehindAFailedStepAndAnswerZero) {
    for (const int failing : {0, 150, 326, 327, 562}) {
        NotingSetting failed;
        failed.failing = failing;
        EXPECT_EQ(failed.CreateSettingInfo(), 0) << failing;
        EXPECT_EQ(failed.keywords, From(0, 326));
        EXPECT_EQ(failed.named, From(327, 562));
        EXPECT_EQ(failed.SaveToSession(), 0) << failing;
        EXPECT_EQ(failed.keywords.size(), 2u * 327);
        EXPECT_EQ(failed.named.size(), 2u * 236);
        EXPECT_EQ(failed.SaveFavoriteToSession(), 0) << failing;
        EXPECT_EQ(failed.favoriteKeywords, From(0, 326));
        EXPECT_EQ(failed.favoriteNamed, From(327, 562));
        EXPECT_EQ(failed.AllSessionToCurrent(), failing < 327 ? 1 : 0) << failing;
        EXPECT_EQ(failed.named.size(), 3u * 236);
    }
}

TEST_F(SettingLoops, AnswerOneOnTheRealOperations) {
    CCurrentSetting current;
    CDefaultSetting standard;
    for (CCurrentSetting* one : {&current, static_cast<CCurrentSetting*>(&standard)}) {
        EXPECT_EQ(one->CreateSettingInfo(), 1);
        EXPECT_EQ(one->SaveToSession(), 1);
        EXPECT_EQ(one->SaveFavoriteToSession(), 1);
        EXPECT_EQ(one->AllCurrentToSession(), 1);
        EXPECT_EQ(one->AllSessionToCurrent(), 1);
    }
}

TEST_F(SettingLoops, AskForTheSessionOnceInEachKeywordsOperationWhateverTheNumber) {
    for (const int keyword : {0, 284, 326, 327, -1}) {
        NotingSetting one;
        one.CCurrentSetting::PrintOptionFromSession(keyword, TransferDirection::FromBank);
        EXPECT_EQ(one.sessions, 1) << keyword;
        one.CCurrentSetting::FavoriteFromSession(keyword);
        EXPECT_EQ(one.sessions, 2) << keyword;
        one.CurrentToSession(keyword);
        EXPECT_EQ(one.sessions, 3) << keyword;
        one.SessionToCurrent(keyword);
        EXPECT_EQ(one.sessions, 4) << keyword;
    }
}

TEST_F(SettingTest, ThereIsNoSessionWhileNoSheetIsOpen) {
    EXPECT_EQ(CCurrentSetting().Session(), nullptr);
    EXPECT_EQ(CFavoriteSetting().Session(), nullptr);
}

TEST_F(SettingTest, EverySettingBeginsCleared) {
    const std::vector<std::uint8_t> cleared(22120 + 2352 + 44, 0);
    EXPECT_EQ(BytesOf(CCurrentSetting()), cleared);
    EXPECT_EQ(BytesOf(CDefaultSetting()), cleared);
    EXPECT_EQ(BytesOf(CFavoriteSetting()), cleared);
}

// A record all of whose values can come back: the tags of options, words of 16 bits, texts within both sides.
void FillWithStorableValues(CSettingInfo& setting, std::mt19937& random) {
    std::map<int, std::vector<std::int32_t>> tags;
    for (const ListedTagArray& array : ListedTagArrays())
        tags[array.number] = array.tags;
    for (int number = 0; number <= 562; ++number) {
        const ListedPlace* place = PlaceOf(number);
        if (!place)
            continue;
        if (place->isText) {
            const std::size_t limit = std::min(place->width, SlotNamed(StoreNameOf(number)).width) - 1;
            PutFieldText(setting, number, TextOfLength(random() % (limit + 1), random));
        } else if (number > 326 || number == 301 || number == 302) {
            PutFieldNumber(setting, number, std::uint64_t{random()} << 32 | random());
        } else if (number == 1) {
            PutFieldNumber(setting, number, 1 + random() % 9999);
        } else {
            const auto known = tags.contains(number) ? tags[number] : std::vector<std::int32_t>{0, 1};
            PutFieldNumber(setting, number, static_cast<std::uint32_t>(known[random() % known.size()]));
        }
    }
}

// What has no way back: the name of the front cover's stock and the crease and trim values.
void CopyWhatStays(CSettingInfo& to, const CSettingInfo& from) {
    for (int number = 518; number <= 542; ++number)
        PutFieldNumber(to, number, FieldNumber(from, number));
    PutFieldText(to, 502, FieldTextOf(from, 502));
}

TEST_F(SettingTest, ASavedRecordComesBackByteForByte) {
    std::mt19937 random(41);
    for (int round = 0; round < 60; ++round) {
        CCurrentSetting saved;
        FillWithStorableValues(saved, random);
        FillStore(static_cast<std::uint32_t>(random()));
        ASSERT_EQ(saved.SaveToSession(), 1);
        CCurrentSetting read;
        FillRecord(read, static_cast<std::uint32_t>(random()));
        CopyWhatStays(read, saved);
        ASSERT_EQ(read.CreateSettingInfo(), 1);
        ASSERT_EQ(BytesOf(read), BytesOf(saved)) << round;
    }
}

TEST_F(SettingTest, TheStandardSettingsKeywordsComeBackFromTheDefaultBank) {
    std::mt19937 random(43);
    CDefaultSetting saved;
    FillWithStorableValues(saved, random);
    saved.SaveToSession();
    CDefaultSetting read;
    read.CreateSettingInfo();
    for (int keyword = 0; keyword <= 326; ++keyword) {
        if (PlaceOf(keyword)) {
            EXPECT_EQ(FieldNumber(read, keyword), FieldNumber(saved, keyword)) << keyword;
        }
    }
}

// Whatever a record holds, it moves without harm.
TEST_F(SettingTest, ARecordOfRandomBytesMovesBothWays) {
    std::mt19937 random(47);
    for (int round = 0; round < 20; ++round) {
        CCurrentSetting setting;
        for (const ddb::Block block : kAllBlocks)
            for (std::uint8_t& byte : setting.PrintOption().Bytes(block))
                byte = static_cast<std::uint8_t>(random());
        setting.PreparePassword();
        EXPECT_EQ(setting.SaveToSession(), 1);
        EXPECT_EQ(setting.SaveFavoriteToSession(), 1);
        EXPECT_EQ(setting.AllCurrentToSession(), 1);
        EXPECT_EQ(setting.CreateSettingInfo(), 1);
        EXPECT_EQ(setting.AllSessionToCurrent(), 1);
    }
}

class FavoriteSetting : public SettingTest {
  protected:
    const std::unique_ptr<CFavoriteSetting> setting = std::make_unique<CFavoriteSetting>();
};

TEST_F(FavoriteSetting, AnswersOneToEveryTransferAndChangesNothing) {
    FillStore(51);
    FillRecord(*setting, 52);
    const auto record = BytesOf(*setting);
    const auto banks = AllBanks();
    const auto named = AllNamedValues();
    EXPECT_EQ(setting->CreateSettingInfo(), 1);
    EXPECT_EQ(setting->SaveToSession(), 1);
    EXPECT_EQ(setting->SaveFavoriteToSession(), 1);
    for (int number = 0; number <= 562; ++number) {
        EXPECT_EQ(setting->PrintOptionFromSession(number, TransferDirection::FromBank), 1);
        EXPECT_EQ(setting->PrintOptionFromSession(number, TransferDirection::ToBank), 1);
    }
    EXPECT_EQ(BytesOf(*setting), record);
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(AllNamedValues(), named);
}

TEST_F(FavoriteSetting, ReadsAndWritesTheWholeWordsOfTheFavoriteBank) {
    auto banks = AllBanks();
    setting->WriteBank(12, 0xABCD1234);
    banks[2 * 327 + 12] = 0xABCD1234;
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(setting->ReadBank(12), 0xABCD1234u);
}

TEST_F(FavoriteSetting, BeginsWithoutNameOrCommentAndCarriesItsTexts) {
    EXPECT_STREQ(setting->Name.data(), "");
    EXPECT_STREQ(setting->Comment.data(), "");
    EXPECT_STREQ(setting->Directory.data(), "");
    EXPECT_STREQ(setting->PageSize.data(), "");
    EXPECT_EQ(setting->IotVer, 0u);
    EXPECT_EQ(setting->FileVer, 0u);
    EXPECT_EQ(setting->CharCode, 0u);
    EXPECT_EQ(setting->Name.size(), 260u);
    EXPECT_EQ(setting->Comment.size(), 256u);
    EXPECT_EQ(setting->Directory.size(), 260u);
    EXPECT_EQ(setting->PageSize.size(), 260u);
}

TEST_F(FavoriteSetting, IsCopiedWhole) {
    std::strcpy(setting->Name.data(), "a name");
    std::strcpy(setting->Comment.data(), "a comment");
    setting->IotVer = 10;
    setting->FileVer = 2;
    std::strcpy(setting->Directory.data(), "a directory");
    setting->CharCode = 7;
    std::strcpy(setting->PageSize.data(), "a size");
    // A fresh record has the mark or not by the code page; a cleared one has none.
    for (const bool isCleared : {false, true}) {
        setting->PrintOption() = ddb::CPrintOptionEx();
        if (isCleared)
            setting->PrintOption().Clear();
        FillRecord(*setting, 53);
        const CFavoriteSetting constructed = *setting;
        CFavoriteSetting assigned;
        assigned = *setting;
        for (const CFavoriteSetting* copy : {&constructed, &std::as_const(assigned)}) {
            EXPECT_EQ(BytesOf(*copy), BytesOf(*setting));
            EXPECT_EQ(copy->PrintOption().IsJapanese(), setting->PrintOption().IsJapanese());
            EXPECT_EQ(copy->Name, setting->Name);
            EXPECT_EQ(copy->Comment, setting->Comment);
            EXPECT_EQ(copy->IotVer, 10u);
            EXPECT_EQ(copy->FileVer, 2u);
            EXPECT_EQ(copy->Directory, setting->Directory);
            EXPECT_EQ(copy->CharCode, 7u);
            EXPECT_EQ(copy->PageSize, setting->PageSize);
        }
    }
}

TEST_F(FavoriteSetting, HasItsMembersInTheirOrder) {
    const CFavoriteSetting& favorite = *setting;
    const void* const members[] = {&favorite.PrintOption(), &favorite.Name,    &favorite.Comment,
                                   &favorite.IotVer,        &favorite.FileVer, &favorite.Directory,
                                   &favorite.CharCode,      &favorite.PageSize};
    EXPECT_TRUE(std::ranges::is_sorted(members, std::less<>()));
}

template <class Setting>
void ExpectBank(StoreBank bank) {
    Setting setting;
    FillStore(61);
    auto banks = AllBanks();
    EXPECT_EQ(setting.ReadBank(5), GetBank(bank, 5));
    EXPECT_EQ(setting.ReadBankShort(5), GetBank(bank, 5) & 0xFFFF);
    setting.WriteBank(6, 0x12345678);
    setting.WriteBankShort(7, 0xFEDC);
    banks[static_cast<std::size_t>(bank) * 327 + 6] = 0x12345678;
    banks[static_cast<std::size_t>(bank) * 327 + 7] = 0xFEDC;
    EXPECT_EQ(AllBanks(), banks);
}

TEST_F(SettingTest, TheCurrentSettingIsTiedToTheCurrentBank) {
    ExpectBank<CCurrentSetting>(StoreBank::Current);
}

TEST_F(SettingTest, TheDefaultSettingIsTiedToTheDefaultBank) {
    ExpectBank<CDefaultSetting>(StoreBank::Default);
}

// A pointer to a virtual operation holds its place in the table of slots, where the destructor takes two.
template <class Operation>
std::size_t SlotOf(Operation operation) {
    std::size_t words[2];
    static_assert(sizeof operation == sizeof words);
    std::memcpy(words, &operation, sizeof words);
    return (words[0] - 1) / sizeof(void*) - 1;
}

TEST(SettingSlots, OfTheCurrentSettingStandInTheirOrder) {
    using Setting = CCurrentSetting;
    EXPECT_EQ(SlotOf(&Setting::CreateSettingInfo), 1u);
    EXPECT_EQ(SlotOf(&Setting::PreparePassword), 2u);
    EXPECT_EQ(SlotOf(&Setting::PrintOptionFromSession), 3u);
    EXPECT_EQ(SlotOf(&Setting::SaveToSession), 4u);
    EXPECT_EQ(SlotOf(&Setting::SaveFavoriteToSession), 5u);
    EXPECT_EQ(SlotOf(&Setting::FavoriteFromSession), 6u);
    EXPECT_EQ(SlotOf(&Setting::NamedValueFromSession), 7u);
    EXPECT_EQ(SlotOf(&Setting::Session), 8u);
    EXPECT_EQ(SlotOf(&Setting::ReadBankShort), 9u);
    EXPECT_EQ(SlotOf(&Setting::WriteBankShort), 10u);
    EXPECT_EQ(SlotOf(&Setting::NamedValueToSession), 11u);
    EXPECT_EQ(SlotOf(&Setting::ReadBank), 12u);
    EXPECT_EQ(SlotOf(&Setting::WriteBank), 13u);
}

TEST(SettingSlots, OfAFavoriteStandInTheirOrder) {
    using Setting = CFavoriteSetting;
    EXPECT_EQ(SlotOf(&Setting::CreateSettingInfo), 1u);
    EXPECT_EQ(SlotOf(&Setting::PreparePassword), 2u);
    EXPECT_EQ(SlotOf(&Setting::PrintOptionFromSession), 3u);
    EXPECT_EQ(SlotOf(&Setting::SaveToSession), 4u);
    EXPECT_EQ(SlotOf(&Setting::SaveFavoriteToSession), 5u);
    EXPECT_EQ(SlotOf(&Setting::WriteBank), 6u);
    EXPECT_EQ(SlotOf(&Setting::ReadBank), 7u);
    EXPECT_EQ(SlotOf(&Setting::Session), 8u);
}

TEST(SettingClasses, StandAsTheyShould) {
    static_assert(std::is_abstract_v<CSettingInfo>);
    static_assert(std::is_base_of_v<CCurrentSetting, CDefaultSetting>);
    static_assert(!std::is_base_of_v<CCurrentSetting, CFavoriteSetting>);
    EXPECT_EQ(sizeof(CCurrentSetting), sizeof(CSettingInfo));
    EXPECT_EQ(sizeof(CDefaultSetting), sizeof(CSettingInfo));
}

} // namespace
