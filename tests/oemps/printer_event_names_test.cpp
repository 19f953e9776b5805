// Which part of a printer's name an event goes by.
#include "oemps/printer_event_names.h"

#include <gtest/gtest.h>

#include <string>

TEST(PartBehindTheLastBackslash, OfANameWithoutBackslashAndCommaIsTheWholeName) {
    EXPECT_EQ(PartBehindLastBackslash("Orvane X100"), "Orvane X100");
    EXPECT_EQ(PartBehindLastBackslash(""), "");
}

TEST(PartBehindTheLastBackslash, LacksTheServer) {
    EXPECT_EQ(PartBehindLastBackslash("\\\\server\\Orvane X100"), "Orvane X100");
    EXPECT_EQ(PartBehindLastBackslash("\\Orvane X100"), "Orvane X100");
    EXPECT_EQ(PartBehindLastBackslash("\\\\server\\"), "");
}

TEST(PartBehindTheLastBackslash, EndsAtTheLastComma) {
    EXPECT_EQ(PartBehindLastBackslash("\\\\server\\Orvane X100,LocalOnly"), "Orvane X100");
    EXPECT_EQ(PartBehindLastBackslash("Orvane, second,LocalOnly"), "Orvane, second");
    EXPECT_EQ(PartBehindLastBackslash("Orvane X100,"), "Orvane X100");
    EXPECT_EQ(PartBehindLastBackslash(",LocalOnly"), "");
}

TEST(PartBehindTheLastBackslash, HasNoCommaThatStandsBeforeIt) {
    EXPECT_EQ(PartBehindLastBackslash("\\\\a,b\\Orvane X100"), "Orvane X100");
    EXPECT_EQ(PartBehindLastBackslash("\\\\a,b\\Orvane X100,LocalOnly"), "Orvane X100");
}

TEST(PartBehindTheLastBackslash, IsNotPartedInsideADoubleByteCharacter) {
    EXPECT_EQ(PartBehindLastBackslash("表示"), "表示");
    EXPECT_EQ(PartBehindLastBackslash("\\\\server\\表示,ソ"), "表示");
    EXPECT_EQ(PartBehindLastBackslash("\\\\表示\\予表"), "予表");
}

TEST(PartBehindTheLastBackslash, OfALongNameIsFound) {
    EXPECT_EQ(PartBehindLastBackslash("\\\\" + std::string(1000, 's') + "\\p,x"), "p");
    EXPECT_EQ(PartBehindLastBackslash("\\\\s\\" + std::string(1000, 'p')), std::string(1000, 'p'));
    EXPECT_EQ(PartBehindLastBackslash(std::string(1000, '\\')), "");
    EXPECT_EQ(PartBehindLastBackslash(std::string(1000, ',')), std::string(999, ','));
}

// A lead byte at the end has no second byte; nothing behind the name is read.
TEST(PartBehindTheLastBackslash, OfANameThatEndsInHalfACharacterEndsThere) {
    EXPECT_EQ(PartBehindLastBackslash("\\a\x95"), "a\x95");
    EXPECT_EQ(PartBehindFirstBackslash("\\a\x95"), "a\x95");
    EXPECT_FALSE(IsClientSideRendering("\x95"));
}

TEST(PartBehindTheFirstBackslash, KeepsTheLaterOnes) {
    EXPECT_EQ(PartBehindFirstBackslash("\\\\server\\Orvane X100"), "\\server\\Orvane X100");
    EXPECT_EQ(PartBehindFirstBackslash("server\\Orvane X100"), "Orvane X100");
    EXPECT_EQ(PartBehindFirstBackslash("\\"), "");
}

TEST(PartBehindTheFirstBackslash, OfANameWithoutBackslashAndCommaIsTheWholeName) {
    EXPECT_EQ(PartBehindFirstBackslash("Orvane X100"), "Orvane X100");
    EXPECT_EQ(PartBehindFirstBackslash(""), "");
}

TEST(PartBehindTheFirstBackslash, EndsAtTheLastComma) {
    EXPECT_EQ(PartBehindFirstBackslash("\\\\a,b\\Orvane X100,LocalOnly"), "\\a,b\\Orvane X100");
    EXPECT_EQ(PartBehindFirstBackslash("\\\\a,b\\Orvane X100"), "\\a");
    EXPECT_EQ(PartBehindFirstBackslash("Orvane X100,LocalOnly"), "Orvane X100");
}

TEST(PartBehindTheFirstBackslash, HasNoCommaThatStandsBeforeIt) {
    EXPECT_EQ(PartBehindFirstBackslash("a,b\\Orvane X100"), "Orvane X100");
}

TEST(PartBehindTheFirstBackslash, IsNotPartedInsideADoubleByteCharacter) {
    EXPECT_EQ(PartBehindFirstBackslash("表示\\予"), "予");
    EXPECT_EQ(PartBehindFirstBackslash("表示"), "表示");
}

TEST(ClientSideRendering, IsToldByABackslashTheThreeLettersAndABar) {
    EXPECT_TRUE(IsClientSideRendering("\\server\\CSR|{1234}"));
    EXPECT_TRUE(IsClientSideRendering("\\CSR|"));
    EXPECT_FALSE(IsClientSideRendering("\\server\\Orvane X100"));
    EXPECT_FALSE(IsClientSideRendering("\\server\\CSR{1234}"));
    EXPECT_FALSE(IsClientSideRendering("\\server\\csr|{1234}"));
    EXPECT_FALSE(IsClientSideRendering("\\server\\CSR"));
    EXPECT_FALSE(IsClientSideRendering(""));
}

TEST(ClientSideRendering, IsNotToldByTheNamesFirstBackslash) {
    EXPECT_FALSE(IsClientSideRendering(PartBehindFirstBackslash("\\CSR|server\\{1234}")));
    EXPECT_TRUE(IsClientSideRendering(PartBehindFirstBackslash("\\\\CSR|server\\{1234}")));
}

TEST(ClientSideRendering, IsNotToldByTheSecondByteOfACharacter) {
    EXPECT_FALSE(IsClientSideRendering("表CSR|{1234}"));
    EXPECT_TRUE(IsClientSideRendering("表\\CSR|{1234}"));
}

TEST(BehindTheLastCharacter, IsTheWholeTextWithoutOne) {
    EXPECT_EQ(BehindLast(",,server,Orvane X100", ','), "Orvane X100");
    EXPECT_EQ(BehindLast("Orvane X100", ','), "Orvane X100");
    EXPECT_EQ(BehindLast("Orvane X100,", ','), "");
    EXPECT_EQ(BehindLast("\\server\\CSR|{1234}\\{5678}", '\\'), "{5678}");
    EXPECT_EQ(BehindLast("\\server\\表示", '\\'), "表示");
}
