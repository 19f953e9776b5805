// The manager on a machine without the platform's XML object.
#include "session/keyword.h"
#include "tests/settings/setting_manager_fixture.h"
#include "tests/support/no_xml_object.h"

namespace {

constexpr char kReason[] = "the XML layer could not make a document";

} // namespace

TEST_F(SettingManagerTest, WithoutTheXmlObjectCreateGivesAManagerThatLoadedNothing) {
    const std::string file = SaveDefaults("def", MakeFavorite({}, 7));
    ExportedFunc_SetDefault(keyword::Copies, 44);
    const LogLines log;
    const NoXmlObject missing;
    CSettingManager* const manager = CSettingManager::Create(file.c_str());
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(missing.Asked(), 1);
    EXPECT_EQ(manager, CSettingManager::Existing());
    EXPECT_EQ(Copies(manager->Default()), 0);
    EXPECT_EQ(Default(keyword::Copies), 44u);
    EXPECT_EQ(CountMessages(log, "LoadDefaultSettingInfo", "Exception"), 1);
    EXPECT_EQ(CountMessages(log, "LoadDefaultSettingInfo()", kReason), 1);
}

TEST_F(SettingManagerTest, WithoutTheXmlObjectTheStandardSettingsStayAsTheyWere) {
    CSettingManager& manager = *CSettingManager::Create(SaveDefaults("first", MakeFavorite({}, 7)).c_str());
    const std::string second = SaveDefaults("second", MakeFavorite({}, 8));
    const NoXmlObject missing;
    manager.LoadDefaultSettingInfo(second.c_str());
    EXPECT_EQ(missing.Asked(), 1);
    EXPECT_EQ(Copies(manager.Default()), 7);
    EXPECT_EQ(Default(keyword::Copies), 7u);
}

TEST_F(SettingManagerTest, WithoutTheXmlObjectTheListIsEmpty) {
    SaveFavorite("first", MakeFavorite({}, 11));
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    const NoXmlObject missing;
    manager.AddFavorite(MakeFavorite("before"));
    manager.LoadFavoriteSettingList();
    EXPECT_GE(missing.Asked(), 1);
    EXPECT_EQ(manager.Count(), 0u);
}

TEST_F(SettingManagerTest, WithoutTheXmlObjectAddFavoriteFromPathGives0AndTheSettingIsAsItWas) {
    const std::string file = SaveDefaults("file", MakeFavorite({}, 11));
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("mine", 5);
    const NoXmlObject missing;
    EXPECT_EQ(manager.AddFavoriteFromPath(favorite, file.c_str()), 0);
    EXPECT_EQ(Copies(favorite), 5);
    EXPECT_STREQ(favorite.Name.data(), "mine");
    EXPECT_EQ(CountMessages(log, "AddFavoriteFromPath", "Exception"), 1);
    EXPECT_EQ(CountMessages(log, "AddFavoriteFromPath()", kReason), 1);
}

TEST_F(SettingManagerTest, WithoutTheXmlObjectAFavoriteIsNotSavedAndItsOldFileStays) {
    const std::string file = Write("name.pfk", "old");
    const LogLines log;
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    CFavoriteSetting favorite = MakeFavorite("name");
    std::ranges::copy(folder.string(), favorite.Directory.begin());
    manager.AddFavorite(favorite);
    const NoXmlObject missing;
    EXPECT_EQ(manager.SaveFavoriteSetting(0, 0), 0);
    EXPECT_EQ(Content(file), "old");
    EXPECT_EQ(CountMessages(log, "SaveFavoriteSetting", "Exception"), 1);
    EXPECT_EQ(CountMessages(log, "SaveFavoriteSetting()", kReason), 1);
}

TEST_F(SettingManagerTest, WithoutTheXmlObjectThePresentSettingsAreStillCompared) {
    CSettingManager& manager = *CSettingManager::GetSettingManager();
    const char* const tags[] = {"ONOC"};
    manager.SetTagList(tags, 1);
    manager.AddFavorite(MakeFavorite("one", 1));
    const NoXmlObject missing;
    ExportedFunc_SetCurrent(keyword::Copies, 2);
    EXPECT_EQ(manager.ChangeFavorite(0), 1);
    ExportedFunc_SetCurrent(keyword::Copies, 1);
    EXPECT_EQ(manager.ChangeFavorite(0), 0);
}
