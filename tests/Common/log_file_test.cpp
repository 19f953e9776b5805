#include "Common/log.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

namespace {

constexpr char kMainLog[] = "C:\\qpsp\\Log\\debugLog.txt";
constexpr char kFavoriteLog[] = "C:\\qpsp\\Log\\Favorite.txt";
constexpr char kRecordLog[] = "C:\\Users\\Public\\Documents\\Zephra\\QPSP\\Log\\zqnprt.log";

std::string Contents(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

// Log directories that exist while the test runs.
class LogFiles : public testing::Test {
  protected:
    void SetUp() override {
        TearDown();
        // The attempt that found no directory keeps the log silent for a second.
        Sleep(1100);
        for (const char* directory : kDirectories)
            CreateDirectoryA(directory, nullptr);
    }
    void TearDown() override {
        DeleteFileA(kMainLog);
        DeleteFileA(kFavoriteLog);
        DeleteFileA(kRecordLog);
        for (auto directory = std::rbegin(kDirectories); directory != std::rend(kDirectories); ++directory)
            RemoveDirectoryA(*directory);
    }

  private:
    static constexpr const char* kDirectories[] = {
        "C:\\qpsp", "C:\\qpsp\\Log", "C:\\Users\\Public\\Documents\\Zephra",
        "C:\\Users\\Public\\Documents\\Zephra\\QPSP", "C:\\Users\\Public\\Documents\\Zephra\\QPSP\\Log"};
};

} // namespace

TEST_F(LogFiles, MainLogThatIsKeptOpenHasEachLineAtOnceAndInOrder) {
    const auto messages = [] {
        return std::regex_replace(Contents(kMainLog), std::regex("\\[[^\\]]*\\] "), "");
    };
    WriteLog("before\n");
    {
        const OpenMainLog open;
        WriteLog("first\n");
        EXPECT_EQ(messages(), "before\r\nfirst\r\n");
        // Another program writes between two lines.
        std::ofstream(kMainLog, std::ios::app) << "other\n";
        WriteLog("second\n");
        EXPECT_EQ(messages(), "before\r\nfirst\r\nother\r\nsecond\r\n");
    }
    WriteLog("after\n");
    EXPECT_EQ(messages(), "before\r\nfirst\r\nother\r\nsecond\r\nafter\r\n");
    EXPECT_TRUE(DeleteFileA(kMainLog)) << "the file is still open";
}

TEST_F(LogFiles, MainLogIsKeptOpenOnlyWhereItCanBe) {
    TearDown();
    const OpenMainLog open;
    WriteLog("lost\n");
    EXPECT_EQ(GetFileAttributesA(kMainLog), INVALID_FILE_ATTRIBUTES);
}

TEST_F(LogFiles, MainLogStampsEachMessageWithLocalTimeAndProcess) {
    WriteLog("id=%d\n", 305);
    const std::regex line(
        "\\[(\\d{4})/([ \\d]{2})/([ \\d]{2})\\|\\d\\d:\\d\\d:\\d\\d:\\d{3}\\((\\d+)\\)\\] id=305\r\n");
    std::smatch parts;
    const std::string contents = Contents(kMainLog);
    ASSERT_TRUE(std::regex_match(contents, parts, line)) << contents;
    SYSTEMTIME now;
    GetLocalTime(&now);
    EXPECT_EQ(std::stoi(parts[1]), now.wYear);
    EXPECT_EQ(std::stoul(parts[4]), GetCurrentProcessId());
}

TEST_F(LogFiles, AreAppendedTo) {
    WriteRecordLog("first");
    WriteRecordLog("second");
    EXPECT_EQ(Contents(kRecordLog), "first\r\nsecond\r\n");
}

TEST_F(LogFiles, FavoriteLogHoldsTheTwoLinesThatWereWrittenLast) {
    WriteFavoriteLog("a long first line", "another");
    WriteFavoriteLog("first", "second");
    EXPECT_EQ(Contents(kFavoriteLog), "first\r\nsecond\r\n");
}

TEST(Log, IsSilentWithoutItsDirectory) {
    WriteLog("lost\n");
    WriteFavoriteLog("lost", "lost");
    WriteRecordLog("lost");
    EXPECT_EQ(GetFileAttributesA(kMainLog), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFileAttributesA(kFavoriteLog), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFileAttributesA(kRecordLog), INVALID_FILE_ATTRIBUTES);
}
