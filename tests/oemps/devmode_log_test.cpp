// The lines that the record operations leave in the record log. None goes to the main log.
#include "Common/log_recorder.h"
#include "tests/oemps/devmode_records.h"

#include <gtest/gtest.h>

#include <string>

namespace {

bool Names(const std::string& line, const std::string& function) {
    return line.ends_with(" " + function) && line.find("devmode.cpp ") != std::string::npos;
}

TEST(RecordLog, HasOneLineForAConversion) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    const log_backend::Recorder log;
    CDevMode::Convert(*target, source.get());
    ASSERT_EQ(log.record.size(), 1u);
    EXPECT_TRUE(Names(log.record[0], "Convert")) << log.record[0];
    EXPECT_TRUE(log.main.empty());
}

TEST(RecordLog, HasNoLineForARefusedConversion) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->dwVersion = 1;
    const log_backend::Recorder log;
    CDevMode::Convert(*target, source.get());
    EXPECT_TRUE(log.record.empty());
    EXPECT_TRUE(log.main.empty());
}

TEST(RecordLog, HasALineForAMergeBeforeThatOfItsConversion) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    const log_backend::Recorder log;
    CDevMode::Merge(*target, source.get());
    ASSERT_EQ(log.record.size(), 2u);
    EXPECT_TRUE(Names(log.record[0], "Merge")) << log.record[0];
    EXPECT_TRUE(Names(log.record[1], "Convert")) << log.record[1];
}

TEST(RecordLog, HasOneLineForAMergeWhoseSourceIsRefused) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->dwSignature = 0;
    const log_backend::Recorder log;
    CDevMode::Merge(*target, source.get());
    ASSERT_EQ(log.record.size(), 1u);
    EXPECT_TRUE(Names(log.record[0], "Merge")) << log.record[0];
}

TEST(RecordLog, HasALineForDefaultsAndForTheMarkOfAChange) {
    PrivateDevMode record{};
    const log_backend::Recorder log;
    CDevMode(record).SetDefault(24112);
    CDevMode(record).SetModified();
    ASSERT_EQ(log.record.size(), 2u);
    EXPECT_TRUE(Names(log.record[0], "SetDefault")) << log.record[0];
    EXPECT_TRUE(Names(log.record[1], "SetModified")) << log.record[1];
}

} // namespace
