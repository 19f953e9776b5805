#include "settings/SettingManager.h"

#include "session/keyword.h"
#include "tests/settings/setting_manager_fixture.h"

#if defined(_WIN32)
#include "Common/strings.h"
#endif

#include <stdexcept>
#include <type_traits>

namespace {

using Names = std::vector<std::string>;

// Index 7 of Tray's options is the tag number 25.
constexpr std::uint32_t kTrayIndex = 7;
constexpr std::int32_t kTrayTag = 25;

std::int32_t Tray(const CSettingInfo& setting) {
    return GetI32(setting.PrintOption(), FieldAt(FieldId::Tray));
}
std::int32_t Copies(const CSettingInfo& setting) {
    return GetI32(setting.PrintOption(), FieldAt(FieldId::NumOfCopies));
}
std::string Comment(const CSettingInfo& setting) {
    return GetText(setting.PrintOption(), FieldAt(FieldId::UserComment));
}
void SetTray(CSettingInfo& setting, std::int32_t tag) {
    SetI32(setting.PrintOption(), FieldAt(FieldId::Tray), tag);
}
void SetComment(CSettingInfo& setting, std::string_view text) {
    SetText(setting.PrintOption(), FieldAt(FieldId::UserComment), text);
}

// Every byte of the three blocks is 0.
bool IsCleared(const ddb::CPrintOptionEx& option) {
    const auto isZero = [](std::uint8_t one) { return one == 0; };
    return std::ranges::all_of(option.Bytes(ddb::Block::Record), isZero) &&
           std::ranges::all_of(option.Bytes(ddb::Block::JobInfo), isZero) &&
           std::ranges::all_of(option.Bytes(ddb::Block::Ex), isZero);
}

Names SortedNames(CSettingManager& manager) {
    Names names;
    for (int index = 0; index < static_cast<int>(manager.Count()); ++index)
        names.emplace_back(manager.Favorite(index).Name.data());
    std::ranges::sort(names);
    return names;
}

std::string MessageOutside(CSettingManager& manager, int index) {
    try {
        manager.Favorite(index);
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing raised";
}

void SetTags(CSettingManager& manager, const std::vector<const char*>& tags) {
    manager.SetTagList(tags.data(), tags.size());
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

TEST_F(SettingManagerTest, WithNoFavoriteFilesTheListIsEmptyAndTheCountIs0) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.LoadFavoriteSettingList();
    EXPECT_EQ(manager.Count(), 0u) << "no directory";
    ASSERT_EQ(CreateFavoriteDirectory(), 1);
    manager.LoadFavoriteSettingList();
    EXPECT_EQ(manager.Count(), 0u) << "an empty directory";
}

TEST_F(SettingManagerTest, ListsEachFavoriteWithItsNameItsDirectoryAndItsRecord) {
    SaveFavorite("first", MakeFavorite("another", 11));
    SaveFavorite("second", MakeFavorite("another", 22));
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.LoadFavoriteSettingList();
    ASSERT_EQ(SortedNames(manager), (Names{"first", "second"}));
    EXPECT_EQ(Copies(*manager.GetFavoriteSettingFromName("first")), 11);
    EXPECT_EQ(Copies(*manager.GetFavoriteSettingFromName("second")), 22);
    std::array<char, 260> directory{};
    GetFavoriteDirectory(directory.data(), directory.size());
    for (int index : {0, 1}) {
        EXPECT_STREQ(manager.Favorite(index).Directory.data(), directory.data());
        EXPECT_EQ(manager.Favorite(index).FileVer, 2u);
        EXPECT_EQ(manager.Favorite(index).IotVer, 10u);
    }
}

// Scale has a field and no tag, so no file tells it.
TEST_F(SettingManagerTest, AFavoriteHasTheDefaultsValueOfAFieldThatNoFileTells) {
    SaveFavorite("first", MakeFavorite({}, 11));
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetI32(manager.Default().PrintOption(), FieldAt(FieldId::Scale), 77);
    SetI32(manager.Default().PrintOption(), FieldAt(FieldId::NumOfCopies), 99);
    manager.LoadFavoriteSettingList();
    ASSERT_EQ(manager.Count(), 1u);
    EXPECT_EQ(GetI32(manager.Favorite(0).PrintOption(), FieldAt(FieldId::Scale)), 77);
    EXPECT_EQ(Copies(manager.Favorite(0)), 11);
}

TEST_F(SettingManagerTest, AnUnreadableFavoriteFileIsDroppedFromTheList) {
    SaveFavorite("good", MakeFavorite());
    WriteFavoriteFile("bad.pfk", "no document at all");
    WriteFavoriteFile("empty.pfk", "");
    WriteFavoriteFile("doctype.pfk", "<!DOCTYPE Favorite><Favorite><IotVer>10</IotVer></Favorite>");
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.LoadFavoriteSettingList();
    EXPECT_EQ(SortedNames(manager), Names{"good"});
}

TEST_F(SettingManagerTest, AFavoriteOfAnotherDeviceFormatNeverReachesTheListAndOneOfAnotherFileFormatDoes) {
    CFavoriteSetting favorite = MakeFavorite();
    favorite.IotVer = 9;
    SaveFavorite("other device", favorite);
    favorite.IotVer = 10;
    favorite.FileVer = 1;
    SaveFavorite("old file", favorite);
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.LoadFavoriteSettingList();
    EXPECT_EQ(SortedNames(manager), Names{"old file"});
}

TEST_F(SettingManagerTest, EachListingReadsTheDirectoryAnew) {
    SaveFavorite("first", MakeFavorite({}, 11));
    SaveFavorite("second", MakeFavorite({}, 22));
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.LoadFavoriteSettingList();
    manager.AddFavorite(MakeFavorite("added"));
    std::filesystem::remove(FavoritePath("first.pfk"));
    SaveFavorite("second", MakeFavorite({}, 333));
    SaveFavorite("third", MakeFavorite());
    manager.LoadFavoriteSettingList();
    EXPECT_EQ(SortedNames(manager), (Names{"second", "third"}));
    EXPECT_EQ(Copies(*manager.GetFavoriteSettingFromName("second")), 333);
}

TEST_F(SettingManagerTest, TwoFavoritesCannotShareANameSinceItIsTheFiles) {
    SaveFavorite("name", MakeFavorite({}, 11));
    SaveFavorite("name", MakeFavorite({}, 22));
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.LoadFavoriteSettingList();
    ASSERT_EQ(SortedNames(manager), Names{"name"});
    EXPECT_EQ(Copies(manager.Favorite(0)), 22);
}

TEST_F(SettingManagerTest, AFavoriteOutsideTheListRaisesTheError) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    EXPECT_EQ(MessageOutside(manager, 0), "invalid vector<T> subscript");
    manager.AddFavorite(MakeFavorite());
    EXPECT_EQ(MessageOutside(manager, 0), "nothing raised");
    for (const int index : {-1, 1, 2147483647, -2147483647 - 1})
        EXPECT_EQ(MessageOutside(manager, index), "invalid vector<T> subscript") << index;
}

TEST_F(SettingManagerTest, FindsTheFirstExactMatchOfAName) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    EXPECT_EQ(manager.AddFavorite(MakeFavorite("one", 11)), 0);
    EXPECT_EQ(manager.AddFavorite(MakeFavorite("two", 22)), 1);
    EXPECT_EQ(manager.AddFavorite(MakeFavorite("two", 33)), 2);
    EXPECT_EQ(manager.Count(), 3u);
    EXPECT_EQ(manager.IndexOf("one"), 0);
    EXPECT_EQ(manager.IndexOf("two"), 1);
    EXPECT_EQ(manager.GetFavoriteSettingFromName("two"), &manager.Favorite(1));
    for (const char* name : {"", "tw", "two ", "TWO", "three"}) {
        EXPECT_EQ(manager.IndexOf(name), -1) << name;
        EXPECT_EQ(manager.GetFavoriteSettingFromName(name), nullptr) << name;
    }
    EXPECT_EQ(manager.GetFavoriteSettingFromName(nullptr), nullptr);
}

TEST_F(SettingManagerTest, AddsACopyOfAFavorite) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name", 11);
    manager.AddFavorite(favorite);
    SetI32(favorite.PrintOption(), FieldAt(FieldId::NumOfCopies), 12);
    EXPECT_EQ(Copies(manager.Favorite(0)), 11);
}

TEST_F(SettingManagerTest, AddFavoriteFromPathReadsIntoTheSettingAndLeavesTheListAlone) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite;
    EXPECT_EQ(manager.AddFavoriteFromPath(favorite, SaveDefaults("file", MakeFavorite({}, 11)).c_str()), 1);
    EXPECT_EQ(Copies(favorite), 11);
    EXPECT_EQ(manager.AddFavoriteFromPath(favorite, PathOf("missing").c_str()), 0);
    EXPECT_EQ(manager.AddFavoriteFromPath(favorite, Write("malformed", "<Favorite>").c_str()), -1);
    EXPECT_EQ(manager.Count(), 0u);
}

TEST_F(SettingManagerTest, SavesAFavoriteToItsDirectoryOrToTheFavoriteDirectory) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name", 11);
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    EXPECT_EQ(manager.SaveFavoriteSetting(0, 0), 1);
    EXPECT_TRUE(std::filesystem::exists(folder / "name.pfk"));
    EXPECT_FALSE(std::filesystem::exists(FavoritePath("name.pfk")));
    EXPECT_EQ(manager.SaveFavoriteSetting(0, 1), 1);
    EXPECT_TRUE(std::filesystem::exists(FavoritePath("name.pfk")));
}

TEST_F(SettingManagerTest, AFavoriteThatCannotBeWrittenIsLoggedAndAnswers0) {
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name");
    std::ranges::copy(PathOf("missing"), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    EXPECT_EQ(manager.SaveFavoriteSetting(0, 0), 0);
    EXPECT_EQ(CountMessages(log, "SaveFavoriteSetting", "SaveFavorite Error"), 1);
    EXPECT_EQ(CountMessages(log, "SaveFavoriteSetting", "Exception"), 0);
}

TEST_F(SettingManagerTest, SavingOrExportingAFavoriteOutsideTheListIsLoggedAndAnswers0) {
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    EXPECT_EQ(manager.SaveFavoriteSetting(0, 0), 0);
    EXPECT_EQ(CountMessages(log, "SaveFavoriteSetting", "Exception"), 1);
    EXPECT_EQ(CountMessages(log, "SaveFavoriteSetting()", "invalid vector<T> subscript"), 1);
    EXPECT_EQ(manager.ExportFavoriteFile(-1, PathOf("copy").c_str(), 0), 0);
    EXPECT_EQ(CountMessages(log, "ExportFavoriteFile", "Exception"), 1);
    EXPECT_FALSE(std::filesystem::exists(folder / "copy"));
}

// Favourites are saved with the extension ".pfk"; an export looks for ".sfk".
TEST_F(SettingManagerTest, ExportsTheFileWithTheExtensionSfk) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name");
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    Write("name.pfk", "as saved");
    EXPECT_EQ(manager.ExportFavoriteFile(0, PathOf("copy").c_str(), 0), 0);
    EXPECT_FALSE(std::filesystem::exists(folder / "copy"));
    Write("name.sfk", "as exported");
    EXPECT_NE(manager.ExportFavoriteFile(0, PathOf("copy").c_str(), 0), 0);
    EXPECT_EQ(Content(folder / "copy"), "as exported");
}

TEST_F(SettingManagerTest, AnExportReplacesAFileUnlessItIsToFailThen) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name");
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    Write("name.sfk", "new");
    const std::string copy = Write("copy", "old");
    EXPECT_EQ(manager.ExportFavoriteFile(0, copy.c_str(), 1), 0);
    EXPECT_EQ(Content(copy), "old");
    EXPECT_NE(manager.ExportFavoriteFile(0, copy.c_str(), 0), 0);
    EXPECT_EQ(Content(copy), "new");
}

TEST_F(SettingManagerTest, AnExportThatCopiesNothingIsLogged) {
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name");
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    const std::string source = folder.string() + "\\name.sfk";
    const std::string copy = PathOf("copy");
    EXPECT_EQ(manager.ExportFavoriteFile(0, copy.c_str(), 0), 0);
    EXPECT_EQ(CountMessages(log, "ExportFavoriteFile()", "not copied: " + source + " to " + copy), 1);
    EXPECT_EQ(manager.ExportFavoriteFile(0, nullptr, 0), 0);
    EXPECT_EQ(CountMessages(log, "ExportFavoriteFile()", "not copied: " + source + " to "), 1);
    EXPECT_EQ(CountMessages(log, "ExportFavoriteFile", "Exception"), 0);
}

#if defined(_WIN32)
TEST_F(SettingManagerTest, AnExportTakesTheExtensionPfkIfTheStringIsEmpty) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name");
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    Write("name.pfk", "as saved");
    SetStringModule(GetModuleHandleA("DataManager.dll"));
    EXPECT_NE(manager.ExportFavoriteFile(0, PathOf("copy").c_str(), 0), 0);
    SetStringModule(nullptr);
    EXPECT_EQ(Content(folder / "copy"), "as saved");
}
#endif

TEST_F(SettingManagerTest, ChangeFavoriteBelow0ComparesWithTheStandardSettings) {
    CFavoriteSetting defaults = MakeFavorite({}, 7);
    SetComment(defaults, "standard");
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("def", defaults).c_str());
    SetTags(manager, {"ONOC", "OUC"});
    ExportedFunc_SetCurrent(keyword::Copies, 7);
    ExportedFunc_SetUserComment("standard");
    EXPECT_EQ(manager.ChangeFavorite(-1), 0);
    EXPECT_EQ(manager.ChangeFavorite(-2147483647 - 1), 0);
    ExportedFunc_SetCurrent(keyword::Copies, 8);
    EXPECT_EQ(manager.ChangeFavorite(-1), 1);
    ExportedFunc_SetCurrent(keyword::Copies, 7);
    EXPECT_EQ(manager.ChangeFavorite(-1), 0);
    ExportedFunc_SetUserComment("Standard");
    EXPECT_EQ(manager.ChangeFavorite(-1), 1);
}

TEST_F(SettingManagerTest, ChangeFavoriteComparesWithTheFavoriteOfTheIndex) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetTags(manager, {"ONOC"});
    manager.AddFavorite(MakeFavorite("one", 1));
    manager.AddFavorite(MakeFavorite("two", 2));
    ExportedFunc_SetCurrent(keyword::Copies, 2);
    EXPECT_EQ(manager.ChangeFavorite(0), 1);
    EXPECT_EQ(manager.ChangeFavorite(1), 0);
    EXPECT_EQ(Copies(manager.Current()), 2) << "the present settings are loaded";
}

TEST_F(SettingManagerTest, ChangeFavoriteAnswers0WithoutSuchAFavorite) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetTags(manager, {"ONOC"});
    manager.AddFavorite(MakeFavorite("one", 1));
    ExportedFunc_SetCurrent(keyword::Copies, 2);
    EXPECT_EQ(manager.ChangeFavorite(0), 1);
    EXPECT_EQ(manager.ChangeFavorite(1), 0);
    EXPECT_EQ(manager.ChangeFavorite(2147483647), 0);
}

TEST_F(SettingManagerTest, ChangeFavoriteComparesTheTagsOfTheListAlone) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.AddFavorite(MakeFavorite("one", 1));
    ExportedFunc_SetCurrent(keyword::Copies, 2);
    EXPECT_EQ(manager.ChangeFavorite(0), 0) << "no tags";
    SetTags(manager, {"OUC"});
    EXPECT_EQ(manager.ChangeFavorite(0), 0) << "another tag";
    SetTags(manager, {"OUC", "ONOC"});
    EXPECT_EQ(manager.ChangeFavorite(0), 1);
    manager.SetTagList(nullptr, 1);
    EXPECT_EQ(manager.ChangeFavorite(0), 1) << "a null array keeps the list";
    SetTags(manager, {"OUC", nullptr});
    EXPECT_EQ(manager.ChangeFavorite(0), 0) << "the list is replaced";
}

TEST_F(SettingManagerTest, ChangeFavoritePreparesThePasswordsOfBothSidesAndKeepsTheRecords) {
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetTags(manager, {"OSPP"});
    CFavoriteSetting favorite = MakeFavorite("one", 1);
    SetText(favorite.PrintOption(), FieldAt(FieldId::SecPrintPassword), "secret");
    manager.AddFavorite(favorite);
    ExportedFunc_SetSecPrintPassword("secret");
    EXPECT_EQ(manager.ChangeFavorite(0), 0);
    EXPECT_EQ(log.FavoriteLog().find("secret"), std::string::npos);
    EXPECT_EQ(GetText(manager.Favorite(0).PrintOption(), FieldAt(FieldId::SecPrintPassword)), "secret");
    EXPECT_EQ(GetText(manager.Current().PrintOption(), FieldAt(FieldId::SecPrintPassword)), "secret");
    ExportedFunc_SetSecPrintPassword("Secret");
    EXPECT_EQ(manager.ChangeFavorite(0), 1);
}

TEST_F(SettingManagerTest, ChangeFavoriteWritesBothLinesInThePlaceOfThoseBefore) {
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SetTags(manager, {"ONOC", "OUC"});
    manager.AddFavorite(MakeFavorite("one", 1));
    ExportedFunc_SetCurrent(keyword::Copies, 1234);
    ExportedFunc_SetUserComment("a comment that goes");
    manager.ChangeFavorite(0);
    EXPECT_EQ(log.FavoriteLog(), "ONOC=1234\tOUC=a comment that goes\nONOC=1\tOUC=\n");
    ExportedFunc_SetUserComment("");
    manager.ChangeFavorite(0);
    EXPECT_EQ(log.FavoriteLog(), "ONOC=1234\tOUC=\nONOC=1\tOUC=\n");
}

TEST_F(SettingManagerTest, SetTagListWithoutTagsEmptiesTheList) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.AddFavorite(MakeFavorite("one", 1));
    ExportedFunc_SetCurrent(keyword::Copies, 2);
    const char* const tags[] = {"ONOC"};
    manager.SetTagList(tags, 1);
    EXPECT_EQ(manager.ChangeFavorite(0), 1);
    manager.SetTagList(tags, 0);
    EXPECT_EQ(manager.ChangeFavorite(0), 0);
}

// 14999 bytes of a line are kept.
TEST_F(SettingManagerTest, ChangeFavoriteSeesNoDifferenceBeyondWhatALineHolds) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.AddFavorite(MakeFavorite("one", 1));
    ExportedFunc_SetCurrent(keyword::Copies, 2);
    std::vector<const char*> tags(14990 / 5, "OUC"); // "OUC=" and a tab each
    tags.push_back("ONOC");
    SetTags(manager, tags);
    EXPECT_EQ(manager.ChangeFavorite(0), 1) << "the last byte of ONOC=2 is the line's 14996th";
    tags.insert(tags.begin(), "OUC");
    SetTags(manager, tags);
    EXPECT_EQ(manager.ChangeFavorite(0), 0) << "it would be the 15001st";
}
