#include "Common/text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

// 0x95 0x5C: the second byte is a backslash.
constexpr char kDoubleByte[] = "\x95\x5C";

TEST(CutLength, NeverSplitsADoubleByteCharacter) {
    const std::string text = std::string("a") + kDoubleByte + "b";
    EXPECT_EQ(CutLength(text, 0), 0u);
    EXPECT_EQ(CutLength(text, 1), 1u);
    EXPECT_EQ(CutLength(text, 2), 1u);
    EXPECT_EQ(CutLength(text, 3), 3u);
    EXPECT_EQ(CutLength(text, 4), 4u);
    EXPECT_EQ(CutLength(text, 99), 4u);
}

TEST(CutLength, OfALeadByteAtTheEndStopsBeforeIt) {
    EXPECT_EQ(CutLength("ab\x95", 2), 2u);
}

TEST(CopyText, EndsTheCopyWithNulWithinTheField) {
    std::array<char, 4> field;
    field.fill('x');
    EXPECT_EQ(CopyText(field, std::string("ab") + kDoubleByte), 2u);
    EXPECT_EQ(field, (std::array{'a', 'b', '\0', 'x'}));
}

TEST(CopyText, LeavesAnEmptyFieldAlone) {
    EXPECT_EQ(CopyText({}, "abc"), 0u);
}

TEST(FillText, ZeroesTheRestOfTheField) {
    std::array<char, 6> field;
    field.fill('x');
    EXPECT_EQ(FillText(field, "ab"), 2u);
    EXPECT_EQ(field, (std::array{'a', 'b', '\0', '\0', '\0', '\0'}));
    EXPECT_EQ(FillText(field, ""), 0u);
    EXPECT_EQ(field, (std::array<char, 6>{}));
}

TEST(FillText, CutsOnACharacterBoundary) {
    std::array<char, 4> field;
    field.fill('x');
    EXPECT_EQ(FillText(field, std::string("ab") + kDoubleByte), 2u);
    EXPECT_EQ(field, (std::array{'a', 'b', '\0', '\0'}));
    EXPECT_EQ(FillText(field, std::string("c") + kDoubleByte), 3u);
    EXPECT_EQ(field, (std::array{'c', '\x95', '\x5C', '\0'}));
    EXPECT_EQ(FillText({}, "abc"), 0u);
}

TEST(FieldText, EndsAtTheFirstNulOrAtTheField) {
    const std::array<char, 4> ended{'a', 'b', '\0', 'x'};
    const std::array<char, 3> open{'a', 'b', 'c'};
    EXPECT_EQ(FieldText(ended), "ab");
    EXPECT_EQ(FieldText(open), "abc");
    EXPECT_EQ(FieldText({}), "");
}

TEST(FindLastCharacter, PassesOverTheSecondByteOfADoubleByteCharacter) {
    EXPECT_EQ(FindLastCharacter(std::string("a\\b") + kDoubleByte, '\\'), 1u);
    EXPECT_EQ(FindLastCharacter(kDoubleByte, '\\'), std::string_view::npos);
    EXPECT_EQ(FindLastCharacter("", '\\'), std::string_view::npos);
    EXPECT_EQ(FindLastCharacter("a\x95", '\\'), std::string_view::npos);
}
