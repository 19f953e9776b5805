// Taking a preset over, and what a favourite keeps of the present settings.
#include "settings/preset_settings.h"

#include "session/keyword.h"
#include "tests/settings/setting_manager_fixture.h"

namespace {

constexpr FieldId kCredentials[] = {FieldId::AuthJobUserId, FieldId::AuthJobPassword,
                                    FieldId::AuthJobAccount};

class PresetSettings : public SettingManagerTest {
  protected:
    CSettingManager& manager = *CSettingManager::GetSettingManager();

    static void PutCredentialTexts(CSettingInfo& setting, std::string_view text) {
        for (const FieldId field : kCredentials)
            SetText(setting.PrintOption(), FieldAt(field), text);
    }
    static std::string Text(const CSettingInfo& setting, FieldId field) {
        return GetText(setting.PrintOption(), FieldAt(field));
    }
    static int Flag(const CSettingInfo& setting, FieldId field) {
        return setting.PrintOption().Bytes(ddb::Block::Record)[FieldAt(field).flag];
    }
    static void SetJobCredentials(const char* text) {
        ExportedFunc_SetAuthJobUserId(text);
        ExportedFunc_SetAuthJobPassword(text);
        ExportedFunc_SetAuthJobAccount(text);
    }
    static CFavoriteSetting WithCustomPage(std::int32_t width, std::int32_t height, std::int32_t direction) {
        CFavoriteSetting favorite = MakeFavorite();
        SetI32(favorite.PrintOption(), FieldAt(FieldId::CustomPaperWidth), width);
        SetI32(favorite.PrintOption(), FieldAt(FieldId::CustomPaperHeight), height);
        SetI32(favorite.PrintOption(), FieldAt(FieldId::CustomPaperDirection), direction);
        return favorite;
    }
    static std::vector<std::int32_t> CustomPage(const CSettingInfo& setting) {
        std::vector<std::int32_t> page;
        for (const FieldId field :
             {FieldId::CustomPaperWidth, FieldId::CustomPaperHeight, FieldId::CustomPaperDirection})
            page.push_back(GetI32(setting.PrintOption(), FieldAt(field)));
        return page;
    }
};

} // namespace

TEST_F(PresetSettings, CredentialsAreCarriedOverAsSetAlsoWhereTheyAreEmpty) {
    CFavoriteSetting from = MakeFavorite();
    CFavoriteSetting to = MakeFavorite();
    SetText(from.PrintOption(), FieldAt(FieldId::AuthJobUserId), "user");
    PutCredentialTexts(to, "old");
    PutCredentials(from.PrintOption(), to.PrintOption());
    EXPECT_EQ(Text(to, FieldId::AuthJobUserId), "user");
    EXPECT_EQ(Text(to, FieldId::AuthJobPassword), "");
    EXPECT_EQ(Text(to, FieldId::AuthJobAccount), "");
    for (const FieldId field : kCredentials)
        EXPECT_EQ(Flag(to, field), 1);
}

TEST_F(PresetSettings, CredentialsFillTheirFieldsOf67And130And34Bytes) {
    CFavoriteSetting from = MakeFavorite();
    CFavoriteSetting to = MakeFavorite();
    PutCredentialTexts(from, std::string(200, 'x'));
    PutCredentials(from.PrintOption(), to.PrintOption());
    EXPECT_EQ(Text(to, FieldId::AuthJobUserId).size(), 66u);
    EXPECT_EQ(Text(to, FieldId::AuthJobPassword).size(), 129u);
    EXPECT_EQ(Text(to, FieldId::AuthJobAccount).size(), 33u);
}

TEST_F(PresetSettings, TakingAPresetBringsItToTheBankAndKeepsTheCredentialsOfTheMoment) {
    CFavoriteSetting preset = MakeFavorite("preset", 12);
    PutCredentialTexts(preset, "of the preset");
    SetComment(preset, "comment");
    // The record has not heard of them.
    SetJobCredentials("of the job");
    TakePreset(manager, preset.PrintOption());
    EXPECT_EQ(Current(keyword::Copies), 12u);
    EXPECT_EQ(UserComment(), "comment");
    for (const FieldId field : kCredentials) {
        EXPECT_EQ(Text(manager.Current(), field), "of the job");
        EXPECT_EQ(Flag(manager.Current(), field), 1);
    }
    std::array<char, 1024> text{};
    ExportedFunc_GetAuthJobPassword(text.data());
    EXPECT_STREQ(text.data(), "of the job");
}

TEST_F(PresetSettings, TakingAPresetThatHasNoScaleGives100) {
    const CFavoriteSetting preset = MakeFavorite("preset", 12);
    TakePreset(manager, preset.PrintOption());
    EXPECT_EQ(Current(keyword::Scale), 100u);
    CFavoriteSetting scaled = preset;
    SetI32(scaled.PrintOption(), FieldAt(FieldId::Scale), 70);
    TakePreset(manager, scaled.PrintOption());
    EXPECT_EQ(Current(keyword::Scale), 70u);
}

TEST_F(PresetSettings, AFavoriteGetsThePresentSettingsWithTheStandardOnesCredentials) {
    SetJobCredentials("of the job");
    ExportedFunc_SetCurrent(keyword::Copies, 5);
    manager.LoadCurrentSettingInfo();
    SetText(manager.Default().PrintOption(), FieldAt(FieldId::AuthJobUserId), "standard");
    CFavoriteSetting favorite = MakeFavorite("favorite");
    PutCredentialTexts(favorite, "old");
    PutPresentSettings(manager, favorite);
    EXPECT_EQ(Copies(favorite), 5);
    EXPECT_EQ(Text(favorite, FieldId::AuthJobUserId), "standard");
    EXPECT_EQ(Text(favorite, FieldId::AuthJobPassword), "");
    EXPECT_EQ(Text(favorite, FieldId::AuthJobAccount), "");
    for (const FieldId field : kCredentials)
        EXPECT_EQ(Flag(favorite, field), 1);
    EXPECT_STREQ(favorite.Name.data(), "favorite");
}

TEST_F(PresetSettings, ACustomPageInDirection1Or3StaysAsItIs) {
    for (const std::int32_t direction : {1, 3}) {
        CFavoriteSetting favorite = WithCustomPage(10, 20, direction);
        TurnCustomPage(favorite.PrintOption());
        EXPECT_EQ(CustomPage(favorite), (std::vector<std::int32_t>{10, 20, direction}));
    }
}

TEST_F(PresetSettings, ACustomPageInAnyOtherDirectionIsTurnedOnce) {
    for (const std::int32_t direction : {0, 2, 4, -1, 0x7FFFFFFF}) {
        CFavoriteSetting favorite = WithCustomPage(10, -20, direction);
        TurnCustomPage(favorite.PrintOption());
        EXPECT_EQ(CustomPage(favorite), (std::vector<std::int32_t>{-20, 10, 1})) << direction;
        TurnCustomPage(favorite.PrintOption());
        EXPECT_EQ(CustomPage(favorite), (std::vector<std::int32_t>{-20, 10, 1})) << direction;
    }
}

TEST_F(PresetSettings, ARecordOfRandomBytesIsTakenAndLeavesNoMoreThan16BitsInTheBank) {
    std::mt19937 random(6);
    for (int round = 0; round < 50; ++round) {
        CFavoriteSetting preset = MakeFavorite();
        for (const ddb::Block block : {ddb::Block::Record, ddb::Block::JobInfo, ddb::Block::Ex})
            for (std::uint8_t& one : preset.PrintOption().Bytes(block))
                one = static_cast<std::uint8_t>(random());
        TurnCustomPage(preset.PrintOption());
        TakePreset(manager, preset.PrintOption());
        for (int keyword = 0; keyword < kKeywordCount; ++keyword) {
            if (keyword == keyword::CustomPaperWidth || keyword == keyword::CustomPaperHeight)
                continue;
            ASSERT_LE(Current(keyword), 0xFFFFu) << keyword;
        }
    }
}
