// Whether the present settings differ from a favourite or from the standard ones.
#include "session/keyword.h"
#include "tests/settings/setting_manager_fixture.h"

namespace {

void SetTags(CSettingManager& manager, const std::vector<const char*>& tags) {
    manager.SetTagList(tags.data(), tags.size());
}

} // namespace

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
