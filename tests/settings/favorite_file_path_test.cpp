// The files that a favourite's Directory and Name tell.
#include "Common/strings.h"
#include "Common/text.h"
#include "resources/resource.h"
#include "settings/favorite_cache.h"
#include "settings/favorite_path.h"
#include "tests/settings/favorite_directory.h"
#include "tests/settings/favorite_fixture.h"

#include <algorithm>

namespace {

class FavoriteFilePath : public FavoriteTest {
  protected:
    void Name(std::string_view name, std::string_view in) {
        CopyText(setting.Name, name);
        CopyText(setting.Directory, in);
    }

    FavoriteDirectory directory;
};

} // namespace

TEST_F(FavoriteFilePath, ASaveIsReadAndNotWhatTheCacheHeld) {
    FavoriteCache cache;
    CFavoriteFileManager cached({}, &cache);
    const std::string path = PathOf("a.pfk");
    for (const char* copies : {"3", "4", "5"}) {
        Store("ONOC", copies);
        ASSERT_EQ(cached.SaveFavoriteFromPath(setting, path.c_str()), 1);
        for (int i = 0; i < 2; ++i) {
            CFavoriteSetting read;
            ASSERT_EQ(cached.LoadFavoriteFromPath(read, path.c_str()), 1);
            EXPECT_EQ(Value("ONOC", read), copies);
        }
    }
}

TEST_F(FavoriteFilePath, AFavouriteIsWrittenWhereItsDirectoryAndNameTell) {
    Name("表", folder.string());
    setting.FileVer = 2;
    EXPECT_EQ(manager.WriteFavorite(&setting, 0), 1);
    EXPECT_TRUE(platform_files::IsThere(PathOf("表.pfk").c_str()));
    CFavoriteSetting read;
    CopyText(read.Name, "表");
    CopyText(read.Directory, folder.string());
    EXPECT_EQ(manager.ReadFavorite(&read), 1);
    EXPECT_EQ(read.FileVer, 2u);
}

TEST_F(FavoriteFilePath, AForcedDirectoryReplacesThatOfTheSetting) {
    directory.Put("forced.pfk", "old");
    Name("forced", PathOf("none"));
    EXPECT_EQ(manager.WriteFavorite(&setting, 1), 1);
    EXPECT_EQ(FieldText(setting.Directory), directory.Path());
    EXPECT_EQ(manager.ReadFavorite(&setting), 1);
}

TEST_F(FavoriteFilePath, ANameAloneStandsForAFileOfTheFavoriteDirectory) {
    const auto path = FavoritePath("表");
    ASSERT_TRUE(path);
    EXPECT_EQ(FieldText(*path), directory.Path() + "\\表.pfk");
    EXPECT_FALSE(FavoritePath(std::string(300, 'x')));
}

TEST_F(FavoriteFilePath, TheFavoriteDirectoryIsHadWhole) {
    const auto path = WholeFavoriteDirectory();
    ASSERT_TRUE(path);
    EXPECT_EQ(FieldText(*path), directory.Path());
}

// Its file would stand in the root of the current drive.
TEST_F(FavoriteFilePath, ASettingWithoutADirectoryHasNoFile) {
    Name("a", "");
    EXPECT_FALSE(FavoritePath(setting, IDS_FAVORITE_EXTENSION));
    EXPECT_EQ(manager.WriteFavorite(&setting, 0), 0);
    EXPECT_EQ(manager.ReadFavorite(&setting), 0);
}

TEST_F(FavoriteFilePath, WithoutASettingNothingIsWrittenOrRead) {
    EXPECT_EQ(manager.WriteFavorite(nullptr, 0), 0);
    EXPECT_EQ(manager.ReadFavorite(nullptr), 0);
}

TEST_F(FavoriteFilePath, AFileThatIsNotThereIsNotRead) {
    Name("none", directory.Path());
    EXPECT_EQ(manager.ReadFavorite(&setting), 0);
}

TEST_F(FavoriteFilePath, APathThatDoesNotFitIsNeverCut) {
    const std::string fitting(259 - folder.string().size() - 5, 'n');
    ASSERT_LT(fitting.size(), 255u);
    Name(fitting, folder.string());
    EXPECT_EQ(manager.WriteFavorite(&setting, 0), 1);
    EXPECT_EQ(manager.ReadFavorite(&setting), 1);
    for (std::size_t more = 1; more <= 5; ++more) {
        Name(fitting + std::string(more, 'n'), folder.string());
        EXPECT_EQ(manager.WriteFavorite(&setting, 0), 0);
        EXPECT_EQ(manager.ReadFavorite(&setting), 0);
    }
    const auto isFile = [](const auto& entry) { return entry.is_regular_file(); };
    EXPECT_EQ(std::ranges::count_if(std::filesystem::directory_iterator(folder), isFile), 1);
}

#ifdef _WIN32
TEST_F(FavoriteFilePath, WithoutTheStringOfTheExtensionItIsPfk) {
    SetStringModule(GetModuleHandleA("kernel32.dll"));
    Name("a", folder.string());
    EXPECT_EQ(manager.WriteFavorite(&setting, 0), 1);
    SetStringModule(nullptr);
    EXPECT_TRUE(platform_files::IsThere(PathOf("a.pfk").c_str()));
}
#else
TEST_F(FavoriteFilePath, AFolderThatCantBeHadListsAndForcesNothing) {
    platform_files::Folders() = {};
    std::vector<std::string> names;
    EXPECT_EQ(manager.GetFindFavoriteFileList(names), 0);
    EXPECT_FALSE(WholeFavoriteDirectory());
    EXPECT_FALSE(FavoritePath("a"));
    Name("a", folder.string());
    EXPECT_EQ(manager.WriteFavorite(&setting, 1), 0);
    EXPECT_EQ(FieldText(setting.Directory), folder.string());
}

TEST_F(FavoriteFilePath, AFavouriteDirectoryThatDoesNotFitIsNone) {
    platform_files::Folders().commonDocuments = "/" + std::string(219, 'd');
    EXPECT_FALSE(WholeFavoriteDirectory());
    EXPECT_FALSE(FavoritePath("a"));
    Name("a", folder.string());
    EXPECT_EQ(manager.WriteFavorite(&setting, 1), 0);
    EXPECT_EQ(FieldText(setting.Directory), folder.string());
}
#endif
