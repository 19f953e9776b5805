// What failed loads leave open as long as their manager is there.
#include "tests/settings/favorite_fixture.h"

#ifdef _WIN32
#include "Common/win_handles.h"
#else
#include <algorithm>
#endif

#include <optional>

namespace {

constexpr std::size_t kMost = 64;

class FavoriteOpenedFiles : public FavoriteTest {
  protected:
    // Whether this process has the file open.
    static bool IsOpen(const std::string& path) {
#ifdef _WIN32
        return !OpenedFile(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
#else
        return std::ranges::any_of(std::filesystem::directory_iterator("/proc/self/fd"),
                                   [&](const auto& file) {
                                       std::error_code ignored;
                                       return std::filesystem::read_symlink(file.path(), ignored) == path;
                                   });
#endif
    }
    int Load(const std::string& path) {
        return own->LoadFavoriteFromPath(setting, path.c_str());
    }

    std::optional<CFavoriteFileManager> own{std::in_place, std::vector<std::string>()};
};

} // namespace

TEST_F(FavoriteOpenedFiles, AFileThatIsNoXmlStaysOpenUntilTheManagerGoes) {
    const std::string bad = Write("bad.pfk", "no XML at all");
    const std::string good = Write("good.pfk", FileOf({}));
    EXPECT_EQ(Load(bad), -1);
    EXPECT_EQ(Load(good), 1);
    EXPECT_TRUE(IsOpen(bad));
    EXPECT_FALSE(IsOpen(good));
    own.reset();
    EXPECT_FALSE(IsOpen(bad));
}

TEST_F(FavoriteOpenedFiles, OfManyTheLast64StayOpen) {
    std::vector<std::string> paths;
    for (std::size_t number = 0; number < kMost + 10; ++number) {
        paths.push_back(Write("bad" + std::to_string(number) + ".pfk", "no XML at all"));
        EXPECT_EQ(Load(paths.back()), -1);
    }
    for (std::size_t number = 0; number < paths.size(); ++number)
        EXPECT_EQ(IsOpen(paths[number]), number >= 10) << number;
}

TEST_F(FavoriteOpenedFiles, AFileThatIsOpenIsSavedOver) {
    const std::string path = Write("a.pfk", "no XML at all");
    EXPECT_EQ(Load(path), -1);
    Store("ONOC", "12");
    EXPECT_EQ(own->SaveFavoriteFromPath(setting, path.c_str()), 1);
    EXPECT_EQ(own->SaveFavoriteFromPath(setting, path.c_str()), 1);
    CFavoriteSetting read;
    EXPECT_EQ(own->LoadFavoriteFromPath(read, path.c_str()), 1);
    EXPECT_EQ(Value("ONOC", read), "12");
    own.reset();
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(FavoriteOpenedFiles, AFileThatTheCallerOpenedStaysTheCallers) {
    const std::string path = Write("a.pfk", "no XML at all");
    {
        const auto file = platform_files::OpenShared(path.c_str());
        ASSERT_TRUE(file);
        EXPECT_EQ(own->LoadFavorite(setting, *file), -1);
    }
    EXPECT_FALSE(IsOpen(path));
}
