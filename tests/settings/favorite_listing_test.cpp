// The list of the favourite directory's usable files: of what is in it, of bad files among good ones, and of
// changes between two listings.
#include "settings/FavoriteFileManager.h"

#include "settings/favorite_cache.h"
#include "tests/settings/encoded_text.h"
#include "tests/settings/favorite_directory.h"
#include "tests/settings/favorite_samples.h"

#ifdef _WIN32
#include "tests/support/main_log.h"
#else
#include "Common/log_recorder.h"
#endif

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Lines = std::vector<std::string>;

class FavoriteListing : public testing::Test {
  protected:
    // Sorted.
    static Names Listed(FavoriteCache* cache = nullptr) {
        Names names;
        EXPECT_EQ(CFavoriteFileManager({}, cache).GetFindFavoriteFileList(names), 1);
        std::ranges::sort(names);
        return names;
    }
    CFavoriteSetting Read(std::string_view name, FavoriteCache& cache) const {
        CFavoriteSetting setting;
        name.copy(setting.Name.data(), setting.Name.size() - 1);
        directory.Path().copy(setting.Directory.data(), setting.Directory.size() - 1);
        EXPECT_EQ(CFavoriteFileManager({}, &cache).ReadFavorite(&setting), 1);
        return setting;
    }
    // Waits until the file's stamp is one that is kept.
    void Settle(const std::string& name) const {
        const std::string path = directory.Path() + "\\" + name;
        while (!HasFailure()) {
            const auto file = platform_files::OpenShared(path.c_str());
            ASSERT_TRUE(file) << path;
            const auto stamp = file->Stamp();
            ASSERT_TRUE(stamp);
            if (stamp->settled)
                return;
        }
    }

    // What the call logs.
    template <class Call>
    static Lines LinesOf(Call call) {
#ifdef _WIN32
        const MainLog log;
        call();
        return log.Messages();
#else
        const log_backend::Recorder log;
        call();
        return log.main;
#endif
    }

    static std::string Good(std::string_view copies = "3") {
        return FavoriteAround("<NumOfCopies>" + std::string(copies) + "</NumOfCopies>");
    }
    static std::string OfVersion(std::string_view iotVer) {
        return "<Favorite><FileVer>2</FileVer><IotVer>" + std::string(iotVer) + "</IotVer></Favorite>";
    }

    FavoriteDirectory directory;
    CFavoriteFileManager manager{{}};
};

// Every file here is refused as a document.
std::map<std::string, std::string> HostileFiles() {
    const std::string good = FavoriteAround("");
    std::string laughs = "<!DOCTYPE r [<!ENTITY a0 'ha'>";
    for (int level = 1; level < 12; ++level) {
        laughs += "<!ENTITY a" + std::to_string(level) + " '";
        for (int time = 0; time < 10; ++time)
            laughs += "&a" + std::to_string(level - 1) + ";";
        laughs += "'>";
    }
    return {
        {"external", "<!DOCTYPE r [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><Favorite><IotVer>10</IotVer>"
                     "<Comment>&a;</Comment></Favorite>"},
        {"laughs", laughs + "]><Favorite><IotVer>10</IotVer><Comment>&a11;</Comment></Favorite>"},
        {"utf16",
         Encoded(u"<!DOCTYPE r><Favorite><IotVer>10</IotVer></Favorite>", Encoding::Utf16Little, true)},
        {"empty", ""},
        {"blank", " \r\n"},
        {"zeros", std::string(5000, '\0')},
        {"cut", good.substr(0, good.size() - 5)},
        {"ini", "[Favorite]\r\nIotVer=10\r\n"},
        {"code page", "<Favorite><IotVer>10</IotVer><Comment>\x95\x5C</Comment></Favorite>"},
        {"large", good + std::string(4194305 - good.size(), ' ')},
    };
}

} // namespace

TEST_F(FavoriteListing, AnEmptyDirectoryListsNothing) {
    Names names;
    EXPECT_EQ(manager.GetFindFavoriteFileList(names), 0);
    EXPECT_EQ(names, Names{});
}

TEST_F(FavoriteListing, NamesStandWithoutTheirExtension) {
    directory.Put("first.pfk", Good());
    directory.Put("表.pfk", Good());
    directory.Put("two.parts.pfk", Good());
    directory.Put("other.txt", Good());
    Names expected{"first", "two.parts", "表"};
    std::ranges::sort(expected);
    EXPECT_EQ(Listed(), expected);
}

TEST_F(FavoriteListing, NamesAreAppended) {
    directory.Put("first.pfk", Good());
    Names names{"before"};
    EXPECT_EQ(manager.GetFindFavoriteFileList(names), 1);
    EXPECT_EQ(names, (Names{"before", "first"}));
}

TEST_F(FavoriteListing, ANameOf28BytesIsSkipped) {
    const std::string longest(27, 'n');
    directory.Put(longest + ".pfk", Good());
    directory.Put(longest + "n.pfk", Good());
    EXPECT_EQ(Listed(), Names{longest});
}

TEST_F(FavoriteListing, OnlyDeviceFormat10IsListed) {
    directory.Put("nine.pfk", OfVersion("9"));
    directory.Put("ten.pfk", OfVersion("10"));
    directory.Put("eleven.pfk", OfVersion("11"));
    directory.Put("none.pfk", "<Favorite/>");
    EXPECT_EQ(Listed(), Names{"ten"});
}

TEST_F(FavoriteListing, TheFileFormatIsNotTested) {
    directory.Put("one.pfk", "<Favorite><FileVer>1</FileVer><IotVer>10</IotVer></Favorite>");
    directory.Put("none.pfk", "<Favorite><IotVer>10</IotVer></Favorite>");
    EXPECT_EQ(Listed(), (Names{"none", "one"}));
}

TEST_F(FavoriteListing, ADirectoryIsNoFavourite) {
    directory.Put("a.pfk", Good());
    directory.PutDirectory("folder.pfk");
    EXPECT_EQ(Listed(), Names{"a"});
}

TEST_F(FavoriteListing, AFileThatChangedIsSeenAtTheNextListing) {
    FavoriteCache cache;
    directory.Put("a.pfk", OfVersion("10"));
    directory.Put("b.pfk", OfVersion("9"));
    EXPECT_EQ(Listed(&cache), Names{"a"});
    directory.Put("a.pfk", OfVersion("9"));
    directory.Put("b.pfk", OfVersion("10"));
    EXPECT_EQ(Listed(&cache), Names{"b"});
    EXPECT_EQ(Listed(&cache), Names{"b"});
}

TEST_F(FavoriteListing, WhatAListingReadIsReadWholeLater) {
    FavoriteCache cache;
    directory.Put("a.pfk", Good());
    EXPECT_EQ(Listed(&cache), Names{"a"});
    EXPECT_EQ(Listed(&cache), Names{"a"});
    const CFavoriteSetting setting = Read("a", cache);
    EXPECT_EQ(setting.FileVer, 2u);
    EXPECT_EQ(ValueOf("ONOC", setting), "3");
}

TEST_F(FavoriteListing, HasExactlyTheGoodFilesAmongHostileOnes) {
    const auto hostile = HostileFiles();
    for (const auto& [name, content] : hostile)
        directory.Put(name + ".pfk", content);
    directory.Put("huge.pfk", Good());
    directory.Resize("huge.pfk", 100u * 1024 * 1024);
    directory.PutDirectory("directory.pfk");
    directory.Put("old device.pfk", OfVersion("9"));
    directory.Put("no version.pfk", "<Favorite/>");
    directory.Put("many digits.pfk", OfVersion(std::string(10'000, '9') + "10"));
    directory.Put("other.sfk", Good());
    directory.Put("a good one.pfk", Good());
    directory.Put("in the middle.pfk", Good());
    directory.Put("zzz.pfk", Good());

    const Names good{"a good one", "in the middle", "zzz"};
    EXPECT_EQ(Listed(), good);
    FavoriteCache cache;
    EXPECT_EQ(Listed(&cache), good);
    EXPECT_EQ(Listed(&cache), good);
}

TEST_F(FavoriteListing, LogsALineThatNamesEachBadFileAndNoGoodOne) {
    const auto hostile = HostileFiles();
    for (const auto& [name, content] : hostile)
        directory.Put(name + ".pfk", content);
    directory.Put("a good one.pfk", Good());
    const Lines lines = LinesOf([] { EXPECT_EQ(Listed(), Names{"a good one"}); });
    const auto countOf = [&](const std::string& text) {
        return std::ranges::count_if(lines,
                                     [&](const std::string& line) { return line.find(text) != line.npos; });
    };
    for (const auto& [name, content] : hostile)
        EXPECT_EQ(countOf(name + ".pfk"), 1) << name;
    EXPECT_EQ(countOf("a good one"), 0);
    EXPECT_EQ(countOf("ファイル読み込みエラー"), static_cast<std::ptrdiff_t>(hostile.size()));
}

TEST_F(FavoriteListing, HasNamesOfUpTo27BytesOfWhateverCharacters) {
    const std::string backslashes = "表ソ能十予"; // 0x5C is the second byte of each
    const Names listed{"ソ", "表", backslashes, backslashes + backslashes + "表ソ能a", std::string(27, 'n')};
    for (const std::string& name : listed)
        directory.Put(name + ".pfk", Good());
    directory.Put(std::string(28, 'n') + ".pfk", Good());
    directory.Put(backslashes + backslashes + "表ソ能十.pfk", Good()); // 28 bytes
    Names sorted = listed;
    std::ranges::sort(sorted);
    EXPECT_EQ(Listed(), sorted);
}

TEST_F(FavoriteListing, HasANameWithPointsUpToTheLastOne) {
    directory.Put("a.b.c.pfk", Good());
    directory.Put("a.pfk.pfk", Good());
    EXPECT_EQ(Listed(), (Names{"a.b.c", "a.pfk"}));
}

TEST_F(FavoriteListing, SeesAFileThatWasReplacedByOneOfTheSameSize) {
    FavoriteCache cache;
    directory.Put("a.pfk", Good("3"));
    Settle("a.pfk");
    EXPECT_EQ(Listed(&cache), Names{"a"});
    EXPECT_EQ(ValueOf("ONOC", Read("a", cache)), "3");
    directory.Put("a.pfk", Good("4"));
    EXPECT_EQ(ValueOf("ONOC", Read("a", cache)), "4") << "before it has settled";
    Settle("a.pfk");
    EXPECT_EQ(Listed(&cache), Names{"a"});
    EXPECT_EQ(ValueOf("ONOC", Read("a", cache)), "4");
}

TEST_F(FavoriteListing, SeesEveryChangeOfManyInARow) {
    FavoriteCache cache;
    for (char copies = '1'; copies <= '9'; ++copies) {
        directory.Put("a.pfk", Good({&copies, 1}));
        EXPECT_EQ(ValueOf("ONOC", Read("a", cache)), std::string(1, copies));
        EXPECT_EQ(ValueOf("ONOC", Read("a", cache)), std::string(1, copies));
    }
}

TEST_F(FavoriteListing, SeesAGoodFileTurnBadAndGoodAgain) {
    FavoriteCache cache;
    directory.Put("a.pfk", Good());
    Settle("a.pfk");
    EXPECT_EQ(Listed(&cache), Names{"a"});
    directory.Put("a.pfk", "<!DOCTYPE r>" + Good());
    Settle("a.pfk");
    EXPECT_EQ(Listed(&cache), Names{});
    EXPECT_EQ(Listed(&cache), Names{});
    directory.Put("a.pfk", Good());
    EXPECT_EQ(Listed(&cache), Names{"a"});
}

TEST_F(FavoriteListing, SeesAFileGoAndAnotherTakeItsName) {
    FavoriteCache cache;
    directory.Put("a.pfk", Good());
    Settle("a.pfk");
    EXPECT_EQ(Listed(&cache), Names{"a"});
    directory.Remove("a.pfk");
    directory.Put("b.pfk", Good());
    EXPECT_EQ(Listed(&cache), Names{"b"});
    directory.Put("a.pfk", OfVersion("9"));
    EXPECT_EQ(Listed(&cache), Names{"b"});
}

TEST_F(FavoriteListing, GivesTheSameFromTheCacheAsFromTheFile) {
    FavoriteCache cache;
    directory.Put("a.pfk",
                  FavoriteAround("<NumOfCopies>12</NumOfCopies><OptionMemoFile>memo</OptionMemoFile>"));
    Settle("a.pfk");
    const std::string first = ImageOf(Read("a", cache));
    EXPECT_TRUE(ImageOf(Read("a", cache)) == first);
    FavoriteCache other;
    EXPECT_TRUE(ImageOf(Read("a", other)) == first);
}
