// The manager's life, the standard settings and the present ones.
#include "session/keyword.h"
#include "tests/settings/setting_manager_fixture.h"

#include <type_traits>

namespace {

// Index 7 of Tray's options is the tag number 25.
constexpr std::uint32_t kTrayIndex = 7;
constexpr std::int32_t kTrayTag = 25;

std::int32_t Tray(const CSettingInfo& setting) {
    return GetI32(setting.PrintOption(), FieldAt(FieldId::Tray));
}
std::string Comment(const CSettingInfo& setting) {
    return GetText(setting.PrintOption(), FieldAt(FieldId::UserComment));
}
void SetTray(CSettingInfo& setting, std::int32_t tag) {
    SetI32(setting.PrintOption(), FieldAt(FieldId::Tray), tag);
}

// Every byte of the three blocks is 0.
bool IsCleared(const ddb::CPrintOptionEx& option) {
    const auto isZero = [](std::uint8_t one) { return one == 0; };
    return std::ranges::all_of(option.Bytes(ddb::Block::Record), isZero) &&
           std::ranges::all_of(option.Bytes(ddb::Block::JobInfo), isZero) &&
           std::ranges::all_of(option.Bytes(ddb::Block::Ex), isZero);
}

static_assert(!std::is_copy_constructible_v<CSettingManager>);
static_assert(!std::is_polymorphic_v<CSettingManager>, "the manager has no virtual operations");

} // namespace

TEST_F(SettingManagerTest, GetSettingManagerBeforeCreateGivesAnEmptyDefaultRecordAndALaterCreateDoesNotLoad) {
    const std::string file = SaveDefaults("def", MakeFavorite({}, 7));
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    ASSERT_NE(manager, nullptr);
    EXPECT_TRUE(IsCleared(manager->Default().PrintOption()));
    EXPECT_TRUE(IsCleared(manager->Current().PrintOption()));
    EXPECT_EQ(manager->Count(), 0u);
    EXPECT_EQ(CSettingManager::Create(file.c_str()), manager);
    EXPECT_TRUE(IsCleared(manager->Default().PrintOption()));
}

TEST_F(SettingManagerTest, CreateLoadsTheDefaultFileIfItMakesTheManagerAndOnlyThen) {
    const std::string first = SaveDefaults("first", MakeFavorite({}, 7));
    const std::string second = SaveDefaults("second", MakeFavorite({}, 8));
    CSettingManager* const manager = CSettingManager::Create(first.c_str());
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(Copies(manager->Default()), 7);
    EXPECT_EQ(CSettingManager::Create(second.c_str()), manager);
    EXPECT_EQ(Copies(manager->Default()), 7);
}

TEST_F(SettingManagerTest, CreateWithoutADefaultFileGivesAManagerAllTheSame) {
    CSettingManager* const manager = CSettingManager::Create(PathOf("missing").c_str());
    ASSERT_NE(manager, nullptr);
    EXPECT_TRUE(IsCleared(manager->Default().PrintOption()));
}

TEST_F(SettingManagerTest, DestroyEndsTheManagerAndDoesNothingWithoutOne) {
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
    CSettingManager::Destroy();
    CSettingManager::GetSettingManager()->AddFavorite(MakeFavorite());
    EXPECT_EQ(CSettingManager::Existing(), CSettingManager::GetSettingManager());
    CSettingManager::Destroy();
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
    EXPECT_EQ(CSettingManager::GetSettingManager()->Count(), 0u);
}

TEST_F(SettingManagerTest, LoadingTheDefaultsFillsTheDefaultBankWithOptionIndices) {
    CFavoriteSetting defaults = MakeFavorite({}, 7);
    SetTray(defaults, kTrayTag);
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", defaults).c_str());
    EXPECT_EQ(Tray(manager.Default()), kTrayTag);
    EXPECT_EQ(Default(keyword::Tray), kTrayIndex);
    EXPECT_EQ(Default(keyword::Copies), 7u);
}

TEST_F(SettingManagerTest, LoadingTheDefaultsKeepsTheNamedValuesAndTheCurrentBank) {
    CFavoriteSetting defaults = MakeFavorite({}, 7);
    SetComment(defaults, "standard");
    SetI32(defaults.PrintOption(), FieldAt(FieldId::InkWarningAmount), 250);
    ExportedFunc_SetUserComment("of the job");
    ExportedFunc_SetInkWarningAmount(123);
    ExportedFunc_SetCurrent(keyword::Copies, 3);
    ExportedFunc_SetCurrent(keyword::Tray, 2);
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", defaults).c_str());
    EXPECT_EQ(Comment(manager.Default()), "standard");
    EXPECT_EQ(UserComment(), "of the job");
    std::uint32_t amount = 0;
    ExportedFunc_GetInkWarningAmount(&amount);
    EXPECT_EQ(amount, 123u);
    EXPECT_EQ(Current(keyword::Copies), 3u);
    EXPECT_EQ(Current(keyword::Tray), 2u);
}

// No tag of a file reaches these; index 2 of SaveFileDpi is the driver's own default there.
TEST_F(SettingManagerTest, LoadingTheDefaultsKeepsTheDriversDefaultOfAKeywordThatNoTagReaches) {
    ExportedFunc_SetDefault(keyword::SaveFileDpi, 2);
    ExportedFunc_SetDefault(keyword::MediaTypeWeightBypass, 1);
    ExportedFunc_SetDefault(keyword::PaperColorBypass, 1);
    ExportedFunc_SetDefault(keyword::Copies, 5);
    ExportedFunc_SetDefault(keyword::Tray, 2);
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", MakeFavorite({}, 7)).c_str());
    EXPECT_EQ(Default(keyword::SaveFileDpi), 2u);
    EXPECT_EQ(Default(keyword::MediaTypeWeightBypass), 1u);
    EXPECT_EQ(Default(keyword::PaperColorBypass), 1u);
    EXPECT_EQ(Default(keyword::Copies), 7u) << "the file tells it";
    EXPECT_EQ(Tray(manager.Default()), 0) << "and this too";
    manager.CopyDefaultToCurrent();
    manager.SaveCurrentToSession();
    EXPECT_EQ(Current(keyword::SaveFileDpi), 2u);
    EXPECT_EQ(Current(keyword::MediaTypeWeightBypass), 1u);
    EXPECT_EQ(Current(keyword::PaperColorBypass), 1u);
}

// The driver keeps the scale in a public field and tells nobody its default.
TEST_F(SettingManagerTest, LoadingTheDefaultsGivesTheUnscaledSize) {
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", MakeFavorite({}, 7)).c_str());
    EXPECT_EQ(GetI32(manager.Default().PrintOption(), FieldAt(FieldId::Scale)), 100);
    EXPECT_EQ(Default(keyword::Scale), 100u);
}

TEST_F(SettingManagerTest, ADefaultFileThatCannotBeOpenedChangesNothing) {
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", MakeFavorite({}, 7)).c_str());
    ExportedFunc_SetDefault(keyword::Copies, 44);
    manager.LoadDefaultSettingInfo(PathOf("missing").c_str());
    EXPECT_EQ(Copies(manager.Default()), 7);
    EXPECT_EQ(Default(keyword::Copies), 44u);
}

// The reader's answer for a file that is no document is not zero.
TEST_F(SettingManagerTest, AMalformedDefaultFileCountsAsReadAndLeavesTheClearedRecord) {
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", MakeFavorite({}, 7)).c_str());
    ExportedFunc_SetUserComment("of the job");
    ExportedFunc_SetCurrent(keyword::Copies, 3);
    manager.LoadDefaultSettingInfo(Write("malformed", "no document at all").c_str());
    EXPECT_TRUE(IsCleared(manager.Default().PrintOption()));
    EXPECT_EQ(Default(keyword::Copies), 0u);
    EXPECT_EQ(UserComment(), "of the job");
    EXPECT_EQ(Current(keyword::Copies), 3u);
}

TEST_F(SettingManagerTest, CopyDefaultToCurrentCopiesTheThreeBlocksAndTheCodePageByteAndNoBank) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    ExportedFunc_SetCurrent(keyword::Copies, 3);
    ddb::CPrintOptionEx& standard = manager.Default().PrintOption();
    standard.CopyFrom(ddb::CPrintOptionEx());
    std::ranges::fill(standard.Bytes(ddb::Block::Record), std::uint8_t{1});
    std::ranges::fill(standard.Bytes(ddb::Block::JobInfo), std::uint8_t{2});
    std::ranges::fill(standard.Bytes(ddb::Block::Ex), std::uint8_t{3});
    ASSERT_TRUE(standard.IsJapanese());
    ASSERT_FALSE(manager.Current().PrintOption().IsJapanese());
    manager.CopyDefaultToCurrent();
    const ddb::CPrintOptionEx& current = manager.Current().PrintOption();
    const auto isFilledWith = [](auto bytes, std::uint8_t value) {
        return std::ranges::all_of(bytes, [=](std::uint8_t one) { return one == value; });
    };
    EXPECT_TRUE(isFilledWith(current.Bytes(ddb::Block::Record), 1));
    EXPECT_TRUE(isFilledWith(current.Bytes(ddb::Block::JobInfo), 2));
    EXPECT_TRUE(isFilledWith(current.Bytes(ddb::Block::Ex), 3));
    EXPECT_TRUE(current.IsJapanese());
    EXPECT_EQ(Current(keyword::Copies), 3u);
}

TEST_F(SettingManagerTest, LoadsThePresentSettingsFromTheCurrentBankAndTheNamedValues) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    ExportedFunc_SetCurrent(keyword::Tray, kTrayIndex);
    ExportedFunc_SetUserComment("of the job");
    EXPECT_EQ(manager.LoadCurrentSettingInfo(), 1);
    EXPECT_EQ(Tray(manager.Current()), kTrayTag);
    EXPECT_EQ(Comment(manager.Current()), "of the job");
}

TEST_F(SettingManagerTest, SavesThePresentSettingsToTheCurrentBankAndTheNamedValues) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetTray(manager.Current(), kTrayTag);
    SetComment(manager.Current(), "changed");
    EXPECT_EQ(manager.SaveCurrentToSession(), 1);
    EXPECT_EQ(Current(keyword::Tray), kTrayIndex);
    EXPECT_EQ(UserComment(), "changed");
}

TEST_F(SettingManagerTest, AllCurrentToSessionMovesTheKeywordsUnconvertedAndNoNamedValue) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    ExportedFunc_SetUserComment("of the job");
    SetTray(manager.Current(), kTrayTag);
    SetComment(manager.Current(), "changed");
    EXPECT_EQ(manager.AllCurrentToSession(), 1);
    EXPECT_EQ(Current(keyword::Tray), static_cast<std::uint32_t>(kTrayTag));
    EXPECT_EQ(UserComment(), "of the job");
}

TEST_F(SettingManagerTest, LoadRegistryToCurrentTakesTheKeywordsUnconvertedAndTheNamedValues) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    ExportedFunc_SetUserComment("of the job");
    ExportedFunc_SetCurrent(keyword::Tray, kTrayIndex);
    EXPECT_EQ(manager.LoadRegistryToCurrentSettingInfo(), 1);
    EXPECT_EQ(Tray(manager.Current()), static_cast<std::int32_t>(kTrayIndex));
    EXPECT_EQ(Comment(manager.Current()), "of the job");
}
