#include "tests/oemps/devmode_records.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

// Bytes that differ from their neighbours, with a NUL now and then, so that texts end at many places.
std::unique_ptr<PrivateDevMode> MakePatterned() {
    auto record = std::make_unique<PrivateDevMode>();
    const auto bytes = BytesOf(*record);
    for (std::size_t at = 0; at < bytes.size(); ++at)
        bytes[at] = static_cast<unsigned char>((at * 7 + at / 256) % 251);
    SetHeader(*record);
    return record;
}

TEST(Convert, CopiesEveryFieldAsThePlainCopyDoes) {
    const auto source = MakePatterned();
    const auto target = MakeFilled(0xCC);
    PrivateDevMode expected = *target;
    PlainConvert(expected, *source);
    EXPECT_EQ(CDevMode::Convert(*target, source.get()), 1);
    EXPECT_EQ(FirstDifference(*target, expected), kDevModeSize);
}

TEST(Convert, LeavesPadsAndTheTwoUnusedWordsAlone) {
    const auto source = MakePatterned();
    const auto target = MakeFilled(0xCC);
    CDevMode::Convert(*target, source.get());
    const auto bytes = BytesOf(*target);
    for (const std::size_t at : {4703, 4768, 4769, 4770, 4771, 5453, 5454, 5455, 10435, 23767})
        EXPECT_EQ(bytes[at], 0xCC) << at;
    for (std::size_t at = 24108; at < 24112; ++at)
        EXPECT_EQ(bytes[at], 0xCC) << at;
}

TEST(Convert, CopiesReservedWordsAndReservedSlots) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->reserved4708[0] = 11;
    source->reserved4764[0] = 12;
    source->reserved4792[0] = 13;
    source->reserved16852[95] = 14;
    source->reserved23200[0] = 15;
    source->reserved23776[0] = 16;
    SetText(source->reserved11712[14], "slot 15");
    SetText(source->reserved13212[0], "slot 16");
    SetText(source->reserved13312[31], "slot 48");
    SetText(source->reserved23052[0], "stock");
    CDevMode::Convert(*target, source.get());
    EXPECT_EQ(target->reserved4708[0], 11u);
    EXPECT_EQ(target->reserved4764[0], 12u);
    EXPECT_EQ(target->reserved4792[0], 13u);
    EXPECT_EQ(target->reserved16852[95], 14u);
    EXPECT_EQ(target->reserved23200[0], 15u);
    EXPECT_EQ(target->reserved23776[0], 16u);
    EXPECT_STREQ(target->reserved11712[14], "slot 15");
    EXPECT_STREQ(target->reserved13212[0], "slot 16");
    EXPECT_STREQ(target->reserved13312[31], "slot 48");
    EXPECT_STREQ(target->reserved23052[0], "stock");
}

TEST(Convert, CopiesManageMethodTheJobOwnerFlagsAndThe64BitTimeByValue) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->ManageMethod = 3;
    source->SpecifyJobOwnerName = 1;
    source->SpecificJobName = 1;
    source->AutoJobStartSpecifiedDayAndTimeForDriver = 0x0123456789ABCDEF;
    CDevMode::Convert(*target, source.get());
    EXPECT_EQ(target->ManageMethod, 3u);
    EXPECT_EQ(target->SpecifyJobOwnerName, 1u);
    EXPECT_EQ(target->SpecificJobName, 1u);
    EXPECT_EQ(target->AutoJobStartSpecifiedDayAndTimeForDriver, 0x0123456789ABCDEFu);
}

TEST(Convert, StopsATextAtItsNulAndFillsTheRestWithZeros) {
    const auto source = MakeDefault();
    const auto target = MakeFilled('t');
    std::memcpy(source->JobName, "name\0hidden", 12);
    CDevMode::Convert(*target, source.get());
    EXPECT_EQ(std::string(target->JobName, 512), "name" + std::string(508, '\0'));
}

TEST(Convert, LeavesATextOfFullWidthUnterminated) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->FavoriteName, std::string(28, 'f'));
    SetText(source->Profile, "profile");
    CDevMode::Convert(*target, source.get());
    EXPECT_EQ(std::string(target->FavoriteName, 28), std::string(28, 'f'));
    EXPECT_STREQ(target->Profile, "profile");
}

TEST(Convert, KeepsLineFeedsAndTabs) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->UserComment, "one\ttwo\nthree");
    CDevMode::Convert(*target, source.get());
    EXPECT_STREQ(target->UserComment, "one\ttwo\nthree");
}

TEST(Convert, BringsAModifiedOf7As7) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->Modified = 7;
    CDevMode::Convert(*target, source.get());
    EXPECT_EQ(target->Modified, 7u);
}

TEST(Convert, LeavesTextAloneIfTheSourceHasVersion1) {
    const auto source = MakePatterned();
    source->dwVersion = 1;
    const auto target = MakeDefault();
    SetText(target->JobName, "mine");
    CDevMode::Convert(*target, source.get());
    EXPECT_STREQ(target->JobName, "mine");
    EXPECT_STREQ(target->MemoFontName, "SYSTEM_DEFAULT");
}

TEST(Convert, ChangesNoByteIfSizeSignatureOrVersionDiffers) {
    const auto target = MakeDefault();
    const PrivateDevMode before = *target;
    const std::array<std::array<std::uint32_t, 3>, 5> headers{{{24111, 0x4D534654, 2},
                                                               {24113, 0x4D534654, 2},
                                                               {24112, 0x4D534655, 2},
                                                               {24112, 0x4D534654, 1},
                                                               {24112, 0x4D534654, 3}}};
    for (const auto& [size, signature, version] : headers) {
        const auto source = MakePatterned();
        source->dwSize = size;
        source->dwSignature = signature;
        source->dwVersion = version;
        EXPECT_EQ(CDevMode::Convert(*target, source.get()), 1);
        EXPECT_EQ(FirstDifference(*target, before), kDevModeSize)
            << size << ' ' << signature << ' ' << version;
    }
}

TEST(Convert, ComparesTheHeadersWithEachOtherAndNotWithThisVersion) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->dwVersion = target->dwVersion = 9;
    source->dwSignature = target->dwSignature = 5;
    SetText(source->JobName, "from the source");
    CDevMode::Convert(*target, source.get());
    EXPECT_STREQ(target->JobName, "from the source");
    EXPECT_EQ(target->dwVersion, 9u);
}

TEST(Convert, CopiesNothingIfBothRecordsClaimToBeShorterThanTheLayout) {
    const auto source = MakePatterned();
    const auto target = MakeDefault();
    source->dwSize = target->dwSize = 24111;
    const PrivateDevMode before = *target;
    CDevMode::Convert(*target, source.get());
    EXPECT_EQ(FirstDifference(*target, before), kDevModeSize);
}

TEST(Convert, OfARecordIntoItselfFillsTailsWithZeros) {
    const auto record = MakeFilled('x');
    std::memcpy(record->JobName, "name", 5);
    CDevMode::Convert(*record, record.get());
    EXPECT_EQ(std::string(record->JobName, 512), "name" + std::string(508, '\0'));
    EXPECT_EQ(record->ManageMethod, 0x78787878u);
}

TEST(Convert, TakesRecordsAlignedOnFourBytesOnly) {
    alignas(8) std::array<unsigned char, kDevModeSize + 4> memory{};
    auto& target = *reinterpret_cast<PrivateDevMode*>(memory.data() + 4);
    CDevMode(target).SetDefault(24112);
    const auto source = MakeDefault();
    source->AutoJobStartSpecifiedDayAndTimeForDriver = 5;
    CDevMode::Convert(target, source.get());
    EXPECT_EQ(target.AutoJobStartSpecifiedDayAndTimeForDriver + 0, 5u);
}

} // namespace
