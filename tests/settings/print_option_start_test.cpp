#include "settings/Ddb_PrintOption.h"
#include "settings/print_option_access.h"
#include "tests/settings/print_option_listing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ddb {
namespace {

// The offsets where the two differ, to be read in a failure.
std::vector<std::size_t> Differences(std::span<const std::uint8_t> bytes,
                                     const std::vector<std::uint8_t>& expected) {
    EXPECT_EQ(bytes.size(), expected.size());
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < std::min(bytes.size(), expected.size()); ++i)
        if (bytes[i] != expected[i])
            offsets.push_back(i);
    return offsets;
}

const std::vector<std::size_t> kNone;

TEST(FreshPrintOption, OfTheBaseHasTheListedStartValuesAndReservedBytes) {
    EXPECT_EQ(Differences(CPrintOptionBase().Bytes(Block::Record), ExpectedFreshRecord()), kNone);
}

TEST(FreshPrintOption, HasTheRecordOfTheBaseAndItsJobInformation) {
    CPrintOption option;
    EXPECT_EQ(Differences(option.Bytes(Block::Record), ExpectedFreshRecord()), kNone);
    EXPECT_EQ(Differences(option.Bytes(Block::JobInfo), ExpectedFreshJobInfo()), kNone);
}

TEST(FreshPrintOption, OfTheExtendedClassHasAllThreeBlocks) {
    CPrintOptionEx option;
    EXPECT_EQ(Differences(option.Bytes(Block::Record), ExpectedFreshRecord()), kNone);
    EXPECT_EQ(Differences(option.Bytes(Block::JobInfo), ExpectedFreshJobInfo()), kNone);
    EXPECT_EQ(Differences(option.Bytes(Block::Ex), ExpectedFreshEx()), kNone);
}

TEST(FreshPrintOption, HasTheSevenNumbersOfItsJobInformationAndZerosElsewhere) {
    std::vector<std::uint8_t> expected(2352, 0);
    for (const std::size_t at : {368, 1708, 1740, 2004, 2012, 2020})
        std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(at), 4, std::uint8_t{0xFF});
    expected[2008] = expected[2009] = expected[2010] = 0xFF;
    expected[2011] = 0x7F;
    EXPECT_EQ(Differences(CPrintOption().Bytes(Block::JobInfo), expected), kNone);
}

TEST(FreshPrintOption, HasTheSevenNumbersOfItsThirdBlock) {
    const std::vector<std::uint8_t> expected{0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                             0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 0, 0, 0, 0, 0,
                                             0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0};
    EXPECT_EQ(Differences(CPrintOptionEx().Bytes(Block::Ex), expected), kNone);
}

TEST(FreshPrintOption, EndsItsNinthReservedGroupBeforeTheFlags) {
    const CPrintOptionBase option;
    const auto record = option.Bytes(Block::Record);
    EXPECT_EQ(record[21859], 0);
    for (std::size_t at = 21860; at <= 21875; ++at)
        EXPECT_EQ(record[at], 0xFF) << at;
    for (std::size_t at = 21876; at <= 21995; ++at)
        EXPECT_EQ(record[at], 0) << at;
}

TEST(FreshPrintOption, HasEveryTextEmptyAndNoFlagSet) {
    const CPrintOptionEx option;
    for (const FieldDescriptor& field : kFields) {
        if (!field.IsText())
            continue;
        EXPECT_EQ(GetText(option, field), "") << field.name;
        if (field.flag) {
            EXPECT_EQ(option.Bytes(field.block)[field.flag], 0) << field.name;
        }
    }
}

TEST(ClearedPrintOption, HasZerosInEveryBlockAndNothingUnset) {
    CPrintOptionEx option;
    option.Clear();
    EXPECT_EQ(Differences(option.Bytes(Block::Record), std::vector<std::uint8_t>(22120, 0)), kNone);
    EXPECT_EQ(Differences(option.Bytes(Block::JobInfo), std::vector<std::uint8_t>(2352, 0)), kNone);
    EXPECT_EQ(Differences(option.Bytes(Block::Ex), std::vector<std::uint8_t>(44, 0)), kNone);
    EXPECT_FALSE(option.IsJapanese());
}

TEST(ClearedPrintOption, StillAnswersThroughItsBase) {
    CPrintOptionEx option;
    option.Clear();
    CPersistent& persistent = option;
    EXPECT_EQ(persistent.GetSize(), 24472u);
    EXPECT_FALSE(persistent.Query());
    std::vector<std::uint8_t> image(24472, 0xAA);
    std::uint32_t size = 24472;
    persistent.Save(image.data(), &size);
    EXPECT_EQ(Differences(image, std::vector<std::uint8_t>(24472, 0)), kNone);
}

} // namespace
} // namespace ddb
