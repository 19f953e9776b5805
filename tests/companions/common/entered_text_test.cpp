#include "companions/common/entered_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr TextRule kOptional{5};
constexpr TextRule kRequired{5, true};

TEST(EnteredText, MayBeEmptyUnlessItIsRequired) {
    EXPECT_EQ(FaultOf("", kOptional), TextFault::None);
    EXPECT_EQ(FaultOf("", kRequired), TextFault::Missing);
}

TEST(EnteredText, OfBlanksAloneIsMissing) {
    EXPECT_EQ(FaultOf("   ", kRequired), TextFault::Missing);
    EXPECT_EQ(FaultOf("   ", kOptional), TextFault::None);
    EXPECT_EQ(FaultOf(" a ", kRequired), TextFault::None);
}

TEST(EnteredText, HasAsManyBytesAsTheRuleAtMost) {
    EXPECT_EQ(FaultOf("12345", kRequired), TextFault::None);
    EXPECT_EQ(FaultOf("123456", kRequired), TextFault::TooLong);
    // Three double-byte characters.
    EXPECT_EQ(FaultOf("表表表", kRequired), TextFault::TooLong);
    EXPECT_EQ(FaultOf("表表", kRequired), TextFault::None);
}

TEST(EnteredText, HasNoControlCharacter) {
    for (int code = 0; code < 256; ++code) {
        const std::string text(1, static_cast<char>(code));
        const bool isControl = code < 0x20 || code == 0x7F;
        EXPECT_EQ(FaultOf(text, kOptional), isControl ? TextFault::ControlCharacter : TextFault::None)
            << code;
    }
    EXPECT_EQ(FaultOf("a\tb", kRequired), TextFault::ControlCharacter);
    EXPECT_EQ(FaultOf(std::string(1, '\0'), kRequired), TextFault::ControlCharacter);
}

TEST(EnteredText, IsTooLongBeforeItIsAnythingElse) {
    EXPECT_EQ(FaultOf("12\t456", kRequired), TextFault::TooLong);
}

// Second bytes of double-byte characters: 0x5C of the backslash, 0x7C of the bar.
TEST(EnteredText, MayHaveDoubleByteCharactersOfAnySecondByte) {
    EXPECT_EQ(FaultOf("表", kRequired), TextFault::None);
    EXPECT_EQ(FaultOf("ポ", kRequired), TextFault::None);
}

} // namespace
