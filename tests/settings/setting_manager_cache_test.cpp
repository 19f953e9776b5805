// A manager on a volume that stamps no change of its files: what a save changed is seen all the same.
#include "tests/settings/setting_manager_fixture.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool g_isStampKept = false;

} // namespace

// In place of the platform's: while the stamp is kept, every file has the same number and times.
static int KeptStatus(int result, struct stat* status) {
    if (result == 0 && g_isStampKept) {
        status->st_ino = 1;
        status->st_mtim = {1, 0};
        status->st_ctim = {1, 0};
    }
    return result;
}
extern "C" int fstat(int file, struct stat* status) noexcept {
    return KeptStatus(fstatat(file, "", status, AT_EMPTY_PATH), status);
}
extern "C" int stat(const char* path, struct stat* status) noexcept {
    return KeptStatus(fstatat(AT_FDCWD, path, status, 0), status);
}

namespace {

class SettingManagerCacheTest : public SettingManagerTest {
  protected:
    SettingManagerCacheTest() { g_isStampKept = true; }
    ~SettingManagerCacheTest() override { g_isStampKept = false; }

    static std::int32_t ListedCopies(CSettingManager& manager) {
        manager.LoadFavoriteSettingList();
        return GetI32(manager.Favorite(0).PrintOption(), FieldAt(FieldId::NumOfCopies));
    }
};

} // namespace

TEST_F(SettingManagerCacheTest, WhatSomebodyElseWroteWithoutAStampIsNotSeen) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SaveFavorite("name", MakeFavorite({}, 11));
    EXPECT_EQ(ListedCopies(manager), 11);
    SaveFavorite("name", MakeFavorite({}, 22));
    EXPECT_EQ(ListedCopies(manager), 11) << "so the files' stamps are the same";
}

TEST_F(SettingManagerCacheTest, WhatTheManagerSavedIsReadAnew) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    SaveFavorite("name", MakeFavorite({}, 11));
    EXPECT_EQ(ListedCopies(manager), 11);
    SetI32(manager.Favorite(0).PrintOption(), FieldAt(FieldId::NumOfCopies), 22);
    EXPECT_EQ(manager.SaveFavoriteSetting(0, 0), 1);
    EXPECT_EQ(ListedCopies(manager), 22);
}

// What was read once is not read again: the change that has no stamp stays unseen.
TEST_F(SettingManagerCacheTest, AnUnchangedFavoriteIsNotReadAgainByTheNextManager) {
    SaveFavorite("name", MakeFavorite({}, 11));
    EXPECT_EQ(ListedCopies(*CSettingManager::GetSettingManager()), 11);
    CSettingManager::Destroy();
    SaveFavorite("name", MakeFavorite({}, 22));
    EXPECT_EQ(ListedCopies(*CSettingManager::GetSettingManager()), 11);
}

TEST_F(SettingManagerCacheTest, AFavoriteWithAPasswordIsForgottenWithItsManager) {
    CFavoriteSetting favorite = MakeFavorite({}, 11);
    SetText(favorite.PrintOption(), FieldAt(FieldId::SecPrintPassword), "password");
    SaveFavorite("name", favorite);
    EXPECT_EQ(ListedCopies(*CSettingManager::GetSettingManager()), 11);
    CSettingManager::Destroy();
    SaveFavorite("name", MakeFavorite({}, 22));
    EXPECT_EQ(ListedCopies(*CSettingManager::GetSettingManager()), 22);
}

TEST_F(SettingManagerCacheTest, UnchangedStandardSettingsAreNotReadAgainByTheNextManager) {
    const std::string path = SaveDefaults("defaults", MakeFavorite({}, 11));
    EXPECT_EQ(Copies(CSettingManager::Create(path.c_str())->Default()), 11);
    CSettingManager::Destroy();
    SaveDefaults("defaults", MakeFavorite({}, 22));
    EXPECT_EQ(Copies(CSettingManager::Create(path.c_str())->Default()), 11);
}
