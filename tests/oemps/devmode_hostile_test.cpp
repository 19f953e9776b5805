// Blocks that a broken or hostile spooler may hand over, each ending at a page without access.
#include "tests/oemps/devmode_records.h"
#include "tests/oemps/guarded_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr std::uint32_t kWrongSizes[] = {0, 11, 12, 24111, 0xFFFFFFFF};

void SetSize(const GuardedBlock& block, std::uint32_t size) {
    std::memcpy(block.Bytes().data(), &size, 4);
}

void FillBehindHeader(const GuardedBlock& block, unsigned char fill) {
    const auto bytes = block.Bytes();
    const std::uint32_t header[] = {24112, 0x4D534654, 2};
    std::memcpy(bytes.data(), header, std::min(sizeof header, bytes.size()));
    std::fill(bytes.begin() + sizeof header, bytes.end(), fill);
}

PrivateDevMode& RecordOf(const GuardedBlock& block) {
    return *reinterpret_cast<PrivateDevMode*>(block.Bytes().data());
}

// A whole target and a source of some size, both before a guarded page.
class HostileBlock : public testing::Test {
  protected:
    HostileBlock() : target(kDevModeSize) { CDevMode(RecordOf(target)).SetDefault(24112); }

    void ConvertAndMerge(const GuardedBlock& source) {
        CDevMode::Convert(RecordOf(target), source.Bytes().data());
        CDevMode::Merge(RecordOf(target), source.Bytes().data());
        EXPECT_EQ(std::memcmp(target.Bytes().data(), "\x30\x5E\x00\x00TFSM\x02\x00\x00\x00", 12), 0);
    }

    GuardedBlock target;
};

TEST_F(HostileBlock, WithoutANulIsCopiedWholeAndStaysInBounds) {
    const GuardedBlock source(kDevModeSize);
    FillBehindHeader(source, 'x');
    ConvertAndMerge(source);
    EXPECT_EQ(std::string(RecordOf(target).Profile, 260), std::string(260, 'x'));
}

TEST_F(HostileBlock, WithoutANulInATargetThatHasNoneEitherStaysInBounds) {
    const GuardedBlock source(kDevModeSize);
    FillBehindHeader(source, 'x');
    FillBehindHeader(target, '\n');
    ConvertAndMerge(source);
    EXPECT_EQ(std::string(RecordOf(target).JobName, 512), std::string(512, 'x'));
}

TEST_F(HostileBlock, OfControlCharactersOnlyLeavesNoTextButTheNumbersTakenAgain) {
    const GuardedBlock source(kDevModeSize);
    FillBehindHeader(source, '\n');
    ConvertAndMerge(source);
    EXPECT_EQ(std::string(RecordOf(target).JobName, 512), std::string(512, '\0'));
    EXPECT_EQ(RecordOf(target).Magnification, 0x0A0A0A0Au);
}

TEST_F(HostileBlock, OfControlCharactersOnlyInATargetOfThemStaysInBounds) {
    const GuardedBlock source(kDevModeSize);
    FillBehindHeader(source, '\x1F');
    FillBehindHeader(target, '\x01');
    ConvertAndMerge(source);
    EXPECT_EQ(std::string(RecordOf(target).JobName, 512), std::string(512, '\0'));
    EXPECT_EQ(std::string(RecordOf(target).Profile, 260), std::string(260, '\x1F'));
}

TEST_F(HostileBlock, OfAWrongSizeIsNotCopied) {
    for (const std::uint32_t size : kWrongSizes) {
        const GuardedBlock source(kDevModeSize);
        FillBehindHeader(source, 'x');
        SetSize(source, size);
        ConvertAndMerge(source);
        EXPECT_STREQ(RecordOf(target).JobName, "") << size;
        EXPECT_STREQ(RecordOf(target).MemoFontName, "SYSTEM_DEFAULT") << size;
    }
}

TEST_F(HostileBlock, ThatIsShortIsReadOnlyAsFarAsItsSizeTells) {
    for (const std::uint32_t size : {12u, 13u, 4707u, 4708u, 4919u, 23771u, 23772u, 24079u, 24111u}) {
        const GuardedBlock source(size);
        FillBehindHeader(source, 'x');
        SetSize(source, size);
        ConvertAndMerge(source);
    }
}

TEST_F(HostileBlock, ThatIsShortGivesOnlyTheNumbersThatLieWhollyWithinIt) {
    const GuardedBlock source(24079);
    FillBehindHeader(source, 'x');
    SetSize(source, 24079);
    ConvertAndMerge(source);
    EXPECT_EQ(RecordOf(target).ManageMethod, 0x78787878u);
    EXPECT_EQ(RecordOf(target).SpecifyJobOwnerName, 0x78787878u);
    EXPECT_EQ(RecordOf(target).Modified, 1u);
    // One byte short of its eighth.
    EXPECT_EQ(RecordOf(target).AutoJobStartSpecifiedDayAndTimeForDriver + 0, 0u);
    EXPECT_EQ(RecordOf(target).SamplePrintCopyInterval, 50u);
}

TEST_F(HostileBlock, ThatEndsWithinModifiedCountsAsNotModified) {
    const GuardedBlock source(23771);
    FillBehindHeader(source, 'x');
    SetSize(source, 23771);
    RecordOf(target).Modified = 1;
    ConvertAndMerge(source);
    EXPECT_EQ(RecordOf(target).Modified, 0u);
}

TEST_F(HostileBlock, ThatIsAHeaderOnlyGivesNoNumberWhateverItsSizeBelowTells) {
    for (const std::uint32_t size : {0u, 4u, 11u, 12u}) {
        const GuardedBlock source(12);
        FillBehindHeader(source, 'x');
        SetSize(source, size);
        ConvertAndMerge(source);
        EXPECT_EQ(RecordOf(target).ManageMethod, 0u) << size;
        EXPECT_EQ(RecordOf(target).Magnification, 1000u) << size;
    }
}

TEST_F(HostileBlock, ThatIsAHeaderOnlyIsNotReadBehindItByAConversion) {
    const GuardedBlock source(12);
    FillBehindHeader(source, 'x');
    RecordOf(target).dwVersion = 3;
    CDevMode::Convert(RecordOf(target), source.Bytes().data());
    EXPECT_STREQ(RecordOf(target).JobName, "");
}

TEST_F(HostileBlock, OfASizeBeyondTheLayoutIsReadUpToTheLayoutsEnd) {
    const GuardedBlock source(kDevModeSize);
    FillBehindHeader(source, 'x');
    SetSize(source, 0xFFFFFFFF);
    ConvertAndMerge(source);
    EXPECT_EQ(RecordOf(target).StapleMechanism, 0x78787878u);
}

TEST_F(HostileBlock, OfASizeBeyondTheLayoutInATargetThatClaimsItTooIsCopiedUpToTheLayoutsEnd) {
    const GuardedBlock source(kDevModeSize);
    FillBehindHeader(source, 'x');
    SetSize(source, 0xFFFFFFFF);
    SetSize(target, 0xFFFFFFFF);
    CDevMode::Convert(RecordOf(target), source.Bytes().data());
    CDevMode::Merge(RecordOf(target), source.Bytes().data());
    EXPECT_EQ(std::string(RecordOf(target).Profile, 260), std::string(260, 'x'));
    EXPECT_EQ(RecordOf(target).StapleMechanism, 0x78787878u);
    EXPECT_EQ(RecordOf(target).dwSize, 0xFFFFFFFFu);
}

TEST_F(HostileBlock, DefaultsStayWithinTheRecord) {
    FillBehindHeader(target, 'x');
    CDevMode(RecordOf(target)).SetDefault(0xFFFFFFFF);
    CDevMode(RecordOf(target)).SetModified();
    EXPECT_EQ(RecordOf(target).StapleMechanism, 0u);
    EXPECT_EQ(RecordOf(target).unused24108[3], 'x');
}

// The tests above prove nothing if the guard does not guard.
TEST(GuardedBlockDeathTest, EndsTheProgramOnTheByteBehindTheLast) {
    const GuardedBlock block(kDevModeSize);
    volatile unsigned char* const behind = block.Bytes().data() + kDevModeSize;
    EXPECT_DEATH(static_cast<void>(*behind), "");
}

} // namespace
