// The manager's list of favourites, and their files.
#include "tests/settings/setting_manager_fixture.h"

#if defined(_WIN32)
#include "Common/strings.h"
#endif

#include <stdexcept>

namespace {

using Names = std::vector<std::string>;

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

} // namespace

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

TEST_F(SettingManagerTest, KeepsANewFavoriteAtTheEndOfTheListAndInItsFile) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    manager.AddFavorite(MakeFavorite("first"));
    CFavoriteSetting favorite = MakeFavorite("second", 22);
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    EXPECT_EQ(manager.KeepFavorite(favorite), 1);
    EXPECT_EQ(manager.IndexOf("second"), 1);
    EXPECT_TRUE(std::filesystem::exists(folder / "second.pfk"));
}

TEST_F(SettingManagerTest, KeepsAFavoriteInThePlaceOfTheOneWithItsName) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("first", 11);
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    manager.AddFavorite(MakeFavorite("second"));
    SetI32(favorite.PrintOption(), FieldAt(FieldId::NumOfCopies), 99);
    EXPECT_EQ(manager.KeepFavorite(favorite), 1);
    EXPECT_EQ(manager.Count(), 2u);
    EXPECT_EQ(Copies(manager.Favorite(0)), 99);
}

TEST_F(SettingManagerTest, AFavoriteThatCannotBeKeptLeavesTheListAsItWas) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("first", 11);
    std::ranges::copy((folder / "missing").string(), favorite.Directory.begin());
    EXPECT_EQ(manager.KeepFavorite(favorite), 0);
    EXPECT_EQ(manager.Count(), 0u);
    manager.AddFavorite(favorite);
    SetI32(favorite.PrintOption(), FieldAt(FieldId::NumOfCopies), 99);
    EXPECT_EQ(manager.KeepFavorite(favorite), 0);
    EXPECT_EQ(manager.Count(), 1u);
    EXPECT_EQ(Copies(manager.Favorite(0)), 11);
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
