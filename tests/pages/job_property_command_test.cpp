// The command lines of the job property application, as the application takes them apart.
#include "pages/job_property_command.h"

#include <gtest/gtest.h>

namespace {

constexpr char kApp[] = "C:\\driver\\PrinterDriverApplication.exe ";
// What the store calls its keys; the id is their last part.
constexpr char kKey[] = "Software\\Zephra\\QPSP\\DataSet_0000002A00000001";

std::string Start(std::uint32_t communicationMode, std::uint32_t startupMode = 0,
                  std::string_view server = "10.1.2.3") {
    return StartCommand(
        kApp,
        {.key = kKey, .server = server, .communicationMode = communicationMode, .startupMode = startupMode});
}

} // namespace

TEST(JobPropertyId, OfTheStoresKeyIsWhatStandsBehindDataSet) {
    EXPECT_EQ(JobPropertyId(kKey), "0000002A00000001");
}

TEST(JobPropertyId, HasAsManyCharactersAsStandBeforeTheLastNameAtMost) {
    EXPECT_EQ(JobPropertyId("abc\\12345678ABCDEFGH"), "ABCD");
    EXPECT_EQ(JobPropertyId("a\\c\\12345678ABCDEFGH"), "ABCD");
    EXPECT_EQ(JobPropertyId("abc\\12345678AB"), "AB");
}

TEST(JobPropertyId, HasAtMost31Characters) {
    const std::string parent(100, 'p');
    EXPECT_EQ(JobPropertyId(parent + "\\12345678" + std::string(40, 'i')), std::string(31, 'i'));
}

TEST(JobPropertyId, ThatWouldBeginBehindTheEndIsEmpty) {
    for (const char* key : {"", "\\", "abc\\", "abc\\1234567", "abc\\12345678"})
        EXPECT_EQ(JobPropertyId(key), "") << key;
    EXPECT_EQ(JobPropertyId("abc\\12345678A"), "A");
}

TEST(JobPropertyId, OfAKeyWithoutABackslashIsEmpty) {
    EXPECT_EQ(JobPropertyId("DataSet_0000002A00000001"), "");
}

TEST(JobPropertyId, GoesByTheLastCharacterThatIsABackslash) {
    // The second byte of "表" is the backslash's.
    EXPECT_EQ(JobPropertyId("abc\\12345678A表B"), "A表B");
    EXPECT_EQ(JobPropertyId("表\\12345678ABCDE"), "ABC");
}

TEST(JobPropertyId, IsCutOnACharacterBoundary) {
    EXPECT_EQ(JobPropertyId("abc\\12345678表表表"), "表表");
    EXPECT_EQ(JobPropertyId("ab\\12345678表表表"), "表");
}

TEST(JobPropertyId, IsTakenFromTheKeysFirst259Bytes) {
    const std::string parent(240, 'p'); // 241 with its backslash, and 8 to the id
    EXPECT_EQ(JobPropertyId(parent + "\\12345678ABCDEFGHIJKLMN"), "ABCDEFGHIJ");
}

TEST(StartCommand, NamesTheAddressAloneWithCommunication) {
    EXPECT_EQ(Start(1), "C:\\driver\\PrinterDriverApplication.exe -start 0000002A00000001 "
                        "Software\\Zephra\\QPSP\\DataSet_0000002A00000001 PDF ja-JP 10.1.2.3 -iotproduct 10");
    for (const std::uint32_t mode : {2u, 10u, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_EQ(Start(mode), Start(1)) << mode;
}

TEST(StartCommand, ForcesTheAddressWithoutCommunicationAndHasTwoBlanksBehindOnceForce) {
    EXPECT_EQ(Start(0), "C:\\driver\\PrinterDriverApplication.exe -start 0000002A00000001 "
                        "Software\\Zephra\\QPSP\\DataSet_0000002A00000001 PDF ja-JP -ip 10.1.2.3 -onceForce  "
                        "-iotproduct 10");
}

TEST(StartCommand, SaysMockInStartupMode1Only) {
    for (const std::uint32_t communication : {0u, 1u}) {
        const std::string plain = Start(communication);
        EXPECT_EQ(Start(communication, 1), plain + " -mock -market JP");
        for (const std::uint32_t mode : {2u, 3u, 0x101u, 0xFFFFFFFFu})
            EXPECT_EQ(Start(communication, mode), plain) << mode;
    }
}

TEST(StartCommand, KeepsTheBlanksAroundAnEmptyAddress) {
    EXPECT_TRUE(Start(1, 0, "").ends_with(" PDF ja-JP  -iotproduct 10"));
    EXPECT_TRUE(Start(0, 0, "").ends_with(" PDF ja-JP -ip  -onceForce  -iotproduct 10"));
}

TEST(StartCommand, CutsTheKeyAndTheAddressAt259Bytes) {
    const std::string key = "k\\" + std::string(300, 'y');
    const std::string server(300, 's');
    EXPECT_EQ(StartCommand("app ", {.key = key, .server = server, .communicationMode = 1}),
              "app -start yy k\\" + std::string(257, 'y') + " PDF ja-JP " + std::string(259, 's') +
                  " -iotproduct 10");
}

TEST(StartCommand, CutsBetweenTwoCharacters) {
    std::string wide;
    for (int i = 0; i < 150; ++i)
        wide += "表";
    EXPECT_EQ(StartCommand("app ", {.key = "", .server = wide, .communicationMode = 1}),
              "app -start   PDF ja-JP " + wide.substr(0, 258) + " -iotproduct 10");
}

TEST(ShowCommand, HasTwoBlanksBeforeItsWordAndOneAtTheEnd) {
    EXPECT_EQ(ShowCommand(kApp, kKey), "C:\\driver\\PrinterDriverApplication.exe  -show 0000002A00000001 "
                                       "Software\\Zephra\\QPSP\\DataSet_0000002A00000001 PDF ");
}

TEST(ShowCommand, WithoutAKeyHasOnlyTheBlanks) {
    EXPECT_EQ(ShowCommand(kApp, ""), "C:\\driver\\PrinterDriverApplication.exe  -show   PDF ");
}

TEST(ExitCommand, NamesTheIdAlone) {
    EXPECT_EQ(ExitCommand(kApp, kKey), "C:\\driver\\PrinterDriverApplication.exe -exit 0000002A00000001");
    EXPECT_EQ(ExitCommand(kApp, ""), "C:\\driver\\PrinterDriverApplication.exe -exit ");
}

TEST(FileCommand, HasItsTwoDummyWordsAndABlankAtTheEnd) {
    EXPECT_EQ(FileCommand(kApp, "10.1.2.3"), "C:\\driver\\PrinterDriverApplication.exe -file dummyID "
                                             "dummyRegKey PDF ja-JP -ip 10.1.2.3 -onceForce -iotproduct 10 ");
    EXPECT_EQ(FileCommand("", std::string(300, 'a')), "-file dummyID dummyRegKey PDF ja-JP -ip " +
                                                          std::string(259, 'a') +
                                                          " -onceForce -iotproduct 10 ");
}

TEST(Commands, AreCutAt2046Bytes) {
    const std::string app(3000, 'a');
    for (const std::string& command : {StartCommand(app, {.key = kKey, .server = ""}), ShowCommand(app, kKey),
                                       ExitCommand(app, kKey), FileCommand(app, "10.1.2.3")})
        EXPECT_EQ(command, std::string(2046, 'a'));
    const std::string almost(2045, 'a');
    EXPECT_EQ(ExitCommand(almost, kKey), almost + "-");
    EXPECT_EQ(ExitCommand(almost + "表", kKey), almost);
}
