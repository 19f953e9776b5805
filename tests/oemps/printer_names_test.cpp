#include "oemps/printer_names.h"

#include <gtest/gtest.h>

#include <array>

TEST(ShortPrinterName, OfANameWithoutABackslashIsTheWholeName) {
    EXPECT_EQ(ShortPrinterName("Orvane X100"), "Orvane X100");
    EXPECT_EQ(ShortPrinterName(""), "");
}

TEST(ShortPrinterName, IsWhatFollowsTheLastBackslash) {
    EXPECT_EQ(ShortPrinterName("\\\\server\\Orvane X100"), "Orvane X100");
    EXPECT_EQ(ShortPrinterName("\\\\server\\"), "");
}

TEST(ShortPrinterName, IgnoresABackslashThatIsTheFirstCharacter) {
    EXPECT_EQ(ShortPrinterName("\\Orvane"), "\\Orvane");
}

// The second byte of this character is 0x5C in code page 932.
TEST(ShortPrinterName, DoesNotSplitADoubleByteCharacter) {
    EXPECT_EQ(ShortPrinterName("\\\\server\\表示"), "表示");
}

TEST(FindConnection, TakesTheFirstKeyInOrderThatMerelyContainsTheName) {
    const std::array<std::string, 3> connections{",,server,Other", ",,server,Orvane X100 second",
                                                 ",,server,Orvane X100"};
    EXPECT_EQ(FindConnection(connections, "Orvane X100"), ",,server,Orvane X100 second");
}

// In code page 932 the second byte of this character is an "A".
TEST(FindConnection, ComparesBytesSoThatHalfACharacterIsAMatch) {
    const std::array<std::string, 2> connections{",,server,ア", ",,server,A"};
    EXPECT_EQ(FindConnection(connections, "A"), ",,server,ア");
}

TEST(FindConnection, IsEmptyWithoutAMatch) {
    const std::array<std::string, 1> connections{",,server,Other"};
    EXPECT_EQ(FindConnection(connections, "Orvane X100"), "");
    EXPECT_EQ(FindConnection({}, "Orvane X100"), "");
}

TEST(UserInfoKey, HasNameAndGuidInOnePart) {
    EXPECT_EQ(UserInfoKey(UserInfoText("Orvane X100{12}")),
              "Software\\Zephra\\ZR Print Driver Data\\Orvane X100{12}\\UserInfo");
}

TEST(UserInfoKey, WithoutAGuidEndsInTheShortNameAndUserInfo) {
    EXPECT_EQ(UserInfoKey(UserInfoText("Orvane X100")),
              "Software\\Zephra\\ZR Print Driver Data\\Orvane X100\\UserInfo");
}
