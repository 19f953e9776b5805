#include "Common/log_recorder.h"

#include <gtest/gtest.h>

#include <string>

TEST(Log, PassesTheMessageOnAsItIsPutTogether) {
    log_backend::Recorder recorder;
    WriteLog("%s=%d\n", "id", 305);
    WriteRecordLog("%d", 7);
    EXPECT_EQ(recorder.main, std::vector<std::string>{"id=305\n"});
    EXPECT_EQ(recorder.record, std::vector<std::string>{"7"});
}

TEST(Log, HasTheTwoFavoriteLinesThatWereWrittenLast) {
    log_backend::Recorder recorder;
    WriteFavoriteLog("a long first line", "another");
    WriteFavoriteLog("first", std::string(5000, 's'));
    EXPECT_EQ(recorder.favorite, "first\n" + std::string(5000, 's') + "\n");
    EXPECT_TRUE(recorder.main.empty());
}

TEST(Log, CutsAMessageAt2048Bytes) {
    log_backend::Recorder recorder;
    WriteLog("%s", std::string(5000, 'a').c_str());
    EXPECT_EQ(recorder.main.at(0), std::string(2048, 'a'));
}

TEST(Log, CutsAMessageBetweenTwoCharacters) {
    log_backend::Recorder recorder;
    WriteLog("%s", (std::string(2047, 'a') + "\x95\x5C").c_str());
    EXPECT_EQ(recorder.main.at(0), std::string(2047, 'a'));
}

TEST(Log, OpensAFunctionWithFileLineAndName) {
    log_backend::Recorder recorder;
    const int line = __LINE__ + 1;
    ZR_LOG_ENTRY();
    EXPECT_EQ(recorder.main.at(0), std::string(__FILE__) + " " + std::to_string(line) + "行目 TestBody\n");
}
