// How a print server that names itself by a local address is reached.
#include "pages/print_server_address.h"

#include <gtest/gtest.h>

TEST(ReachableAddress, OfALocalAddressIsTheMachineName) {
    for (const char* local : {"localhost", "127.0.0.1", "."})
        EXPECT_EQ(ReachableAddress(local, "\\\\SERVER"), "SERVER") << local;
}

TEST(ReachableAddress, StaysWithoutAServerName) {
    for (const char* local : {"localhost", "127.0.0.1", "."}) {
        EXPECT_EQ(ReachableAddress(local, ""), local);
        EXPECT_EQ(ReachableAddress(local, "(null)"), local);
    }
}

TEST(ReachableAddress, OfAnyOtherAddressStays) {
    for (const char* address : {"", "10.1.2.3", "127.0.0.2", "Localhost", "localhost.", "localhos", "..",
                                " 127.0.0.1", "127.0.0.1 "})
        EXPECT_EQ(ReachableAddress(address, "\\\\SERVER"), address);
}

TEST(ReachableAddress, TakesAServerNameWithoutABackslashWhole) {
    EXPECT_EQ(ReachableAddress("localhost", "SERVER"), "SERVER");
}

TEST(ReachableAddress, IsEmptyForAServerNameThatEndsInABackslash) {
    EXPECT_EQ(ReachableAddress("localhost", "\\\\"), "");
    EXPECT_EQ(ReachableAddress(".", "\\\\SERVER\\"), "");
}

TEST(ReachableAddress, GoesByTheLastCharacterThatIsABackslash) {
    // The second byte of "表" is the backslash's.
    EXPECT_EQ(ReachableAddress("localhost", "\\\\A表B"), "A表B");
    EXPECT_EQ(ReachableAddress("localhost", "表表"), "表表");
}

TEST(JudgeStoredAddress, ReadsATextOfEachAnswerThatTellsOfOne) {
    for (const std::uint32_t status : {0u, 234u, 183u})
        EXPECT_EQ(JudgeStoredAddress(status, 1), StoredAddress::Readable) << status;
    for (const std::uint32_t status : {2u, 5u, 6u, 87u, 122u, 233u, 235u, 0xFFFFFFFFu})
        EXPECT_EQ(JudgeStoredAddress(status, 1), StoredAddress::NotHad) << status;
}

TEST(JudgeStoredAddress, HasNoUseForAValueOfAnotherType) {
    for (const std::uint32_t type : {0u, 2u, 3u, 4u, 7u, 11u, 77u, 0xFFFFFFFFu}) {
        EXPECT_EQ(JudgeStoredAddress(0, type), StoredAddress::Unusable) << type;
        EXPECT_EQ(JudgeStoredAddress(234, type), StoredAddress::NotHad) << type;
        EXPECT_EQ(JudgeStoredAddress(183, type), StoredAddress::NotHad) << type;
    }
}
