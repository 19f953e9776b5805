#include "Common/platform_files.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// <chrono> needs literals that code page 932 can't hold; file times are had through their own clock.
namespace {

using FileTime = std::filesystem::file_time_type;

class PlatformFiles : public testing::Test, protected TestFolder {
  protected:
    static FileStamp StampOf(const std::string& path) {
        const auto file = platform_files::OpenShared(path.c_str());
        const auto stamp = file ? file->Stamp() : std::nullopt;
        EXPECT_TRUE(stamp) << path;
        return stamp.value_or(FileStamp{});
    }
    // The stamp once the file has been left alone long enough.
    static FileStamp SettledStampOf(const std::string& path) {
        for (FileStamp stamp = StampOf(path);; stamp = StampOf(path))
            if (stamp.settled || testing::Test::HasFailure())
                return stamp;
    }
    static void MoveTime(const std::string& path, FileTime::duration by) {
        std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + by);
    }
    // The names without regard to their order, which is the volume's.
    std::vector<std::string> Listed(const char* pattern) const {
        std::vector<std::string> names;
        platform_files::ListFiles(folder.string().c_str(), pattern, names);
        std::ranges::sort(names);
        return names;
    }

    static constexpr FileTime::duration kSecond{FileTime::period::den};
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(PlatformFiles, AStampTellsAnotherContentOfTheSameSize) {
    const std::string path = Write("a.pfk", "one");
    const FileStamp before = SettledStampOf(path);
    EXPECT_EQ(before.size, 3u);
    Write("a.pfk", "two");
    EXPECT_NE(SettledStampOf(path), before);
}

TEST_F(PlatformFiles, AStampStaysAsLongAsTheFileDoes) {
    const std::string path = Write("a.pfk", "one");
    const FileStamp before = SettledStampOf(path);
    Write("b.pfk", "two");
    Content(path);
    EXPECT_EQ(SettledStampOf(path), before);
}

TEST_F(PlatformFiles, AStampTellsAnotherSize) {
    const std::string path = Write("a.pfk", "one");
    const FileStamp before = SettledStampOf(path);
    Write("a.pfk", "three");
    EXPECT_EQ(SettledStampOf(path).size, 5u);
    EXPECT_NE(SettledStampOf(path).size, before.size);
}

TEST_F(PlatformFiles, AStampTellsAReplacedFile) {
    const std::string path = Write("a.pfk", "one");
    const std::string other = Write("b.pfk", "two");
    const FileStamp before = SettledStampOf(path);
    std::filesystem::rename(other, path);
    EXPECT_NE(SettledStampOf(path), before);
}

TEST_F(PlatformFiles, AStampIsUnsettledRightAfterAWrite) {
    EXPECT_FALSE(StampOf(Write("a.pfk", "one")).settled);
}

TEST_F(PlatformFiles, AStampOfTheFutureIsUnsettled) {
    const std::string path = Write("a.pfk", "one");
    SettledStampOf(path);
    MoveTime(path, 3600 * kSecond);
    const std::string later = Write("later.pfk", "one");
    SettledStampOf(later);
    EXPECT_FALSE(StampOf(path).settled);
}

TEST_F(PlatformFiles, TheStampOfAPathIsThatOfTheOpenFile) {
    const std::string path = Write("a.pfk", "one");
    const FileStamp open = SettledStampOf(path);
    EXPECT_EQ(platform_files::StampOf(path.c_str()), open);
}

TEST_F(PlatformFiles, ADirectoryAndAMissingFileHaveNoStamp) {
    EXPECT_EQ(platform_files::StampOf(folder.string().c_str()), std::nullopt);
    EXPECT_EQ(platform_files::StampOf((folder / "none.pfk").string().c_str()), std::nullopt);
}

#if !defined(_WIN32)

TEST_F(PlatformFiles, AStampTellsAnotherContentWhoseWriteTimeWasSetBack) {
    const std::string path = Write("a.pfk", "one");
    const FileStamp before = SettledStampOf(path);
    const FileTime time = std::filesystem::last_write_time(path);
    Write("a.pfk", "two");
    std::filesystem::last_write_time(path, time);
    const FileStamp after = SettledStampOf(path);
    EXPECT_NE(after.changeTime, before.changeTime);
    EXPECT_NE(after, before);
}

TEST_F(PlatformFiles, AStampIsUnsettledRightAfterTheWriteTimeWasSetBack) {
    const std::string path = Write("a.pfk", "one");
    MoveTime(path, -3600 * kSecond);
    EXPECT_FALSE(StampOf(path).settled);
}

#endif

TEST_F(PlatformFiles, WhatIsNoFileHasNoStamp) {
    class Memory : public ByteSource {
        std::size_t Read(std::span<char>) override { return 0; }
    };
    EXPECT_EQ(Memory().Stamp(), std::nullopt);
}

TEST_F(PlatformFiles, ListsTheFilesOfAnExtensionInEitherCaseWithoutDirectories) {
    for (const char* name :
         {"b.pfk", "A.PFK", "c.Pfk", "d.sfk", "pfk", "a.pfkx", "longer name.pfk~", "e.pfk.txt", "f", ".pfk"})
        Write(name, "");
    std::filesystem::create_directory(folder / "directory.pfk");
    EXPECT_EQ(Listed("*.pfk"), (Names{".pfk", "A.PFK", "b.pfk", "c.Pfk"}));
}

TEST_F(PlatformFiles, ListsNamesOfDoubleByteCharacters) {
    const Names names{"ソ.pfk", "表.pfk"}; // 0x5C is the second byte of each
    for (const std::string& name : names)
        Write(name, "");
    EXPECT_EQ(Listed("*.pfk"), names);
}

TEST_F(PlatformFiles, AppendsWhatItLists) {
    Write("a.pfk", "");
    Names names{"before"};
    EXPECT_TRUE(platform_files::ListFiles(folder.string().c_str(), "*.pfk", names));
    EXPECT_EQ(names, (Names{"before", "a.pfk"}));
}

TEST_F(PlatformFiles, ListsNothingWhereNothingMatches) {
    Write("a.sfk", "");
    Names names;
    EXPECT_FALSE(platform_files::ListFiles(folder.string().c_str(), "*.pfk", names));
    EXPECT_FALSE(platform_files::ListFiles(PathOf("missing").c_str(), "*.pfk", names));
    EXPECT_FALSE(platform_files::ListFiles(PathOf("a.sfk").c_str(), "*.pfk", names));
    EXPECT_FALSE(platform_files::ListFiles(std::string(5000, 'x').c_str(), "*.pfk", names));
    EXPECT_EQ(names, Names{});
}

TEST_F(PlatformFiles, ListsWithoutNamesWhereOnlyADirectoryMatches) {
    std::filesystem::create_directory(folder / "directory.pfk");
    Names names;
    EXPECT_TRUE(platform_files::ListFiles(folder.string().c_str(), "*.pfk", names));
    EXPECT_EQ(names, Names{});
}

#if !defined(_WIN32)
TEST_F(PlatformFiles, ListsInTheOrderOfTheNamesBytes) {
    for (const char* name : {"b.pfk", "a.pfk", "B.pfk"})
        Write(name, "");
    Names names;
    EXPECT_TRUE(platform_files::ListFiles(folder.string().c_str(), "*.pfk", names));
    EXPECT_EQ(names, (Names{"B.pfk", "a.pfk", "b.pfk"}));
}
#endif

TEST_F(PlatformFiles, CopiesAFileWholeToANewOne) {
    std::string content(100'000, 'x');
    content += '\0';
    content += "end";
    const std::string from = Write("a.pfk", content);
    EXPECT_TRUE(platform_files::CopyWholeFile(from.c_str(), PathOf("new.pfk").c_str(), true));
    EXPECT_EQ(Content(PathOf("new.pfk")), content);
    EXPECT_EQ(Content(from), content);
}

TEST_F(PlatformFiles, CopiesOverAFileOnlyIfThatMayBeThere) {
    const std::string from = Write("a.pfk", "one");
    const std::string to = Write("b.pfk", "another");
    EXPECT_FALSE(platform_files::CopyWholeFile(from.c_str(), to.c_str(), true));
    EXPECT_EQ(Content(to), "another");
    EXPECT_TRUE(platform_files::CopyWholeFile(from.c_str(), to.c_str(), false));
    EXPECT_EQ(Content(to), "one");
}

TEST_F(PlatformFiles, DoesNotCopyWhatIsNotThere) {
    EXPECT_FALSE(
        platform_files::CopyWholeFile(PathOf("missing.pfk").c_str(), PathOf("new.pfk").c_str(), false));
    EXPECT_FALSE(std::filesystem::exists(PathOf("new.pfk")));
}

TEST_F(PlatformFiles, DoesNotCopyADirectoryOrToAMissingOne) {
    const std::string from = Write("a.pfk", "one");
    std::filesystem::create_directory(folder / "directory.pfk");
    EXPECT_FALSE(
        platform_files::CopyWholeFile(PathOf("directory.pfk").c_str(), PathOf("new.pfk").c_str(), false));
    EXPECT_FALSE(platform_files::CopyWholeFile(
        from.c_str(), (PathOf("missing") + (PathOf("")[0] == '/' ? "/" : "\\") + "b.pfk").c_str(), false));
}
