#include "companions/jobproperty/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using jobproperty::Command;
using jobproperty::CommandError;
using jobproperty::CommandFault;
using jobproperty::ParseCommandLine;
using jobproperty::Verb;

const std::string kId = "000001A40BCDEF12";
const std::string kKey = "Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12";
const std::string kStart = "-start " + kId + " " + kKey + " PDF ja-JP ";
const std::string kFile = "-file dummyID dummyRegKey PDF ja-JP -ip ";

Command Parsed(const std::string& line) {
    const auto result = ParseCommandLine(line);
    if (const auto* error = std::get_if<CommandError>(&result)) {
        ADD_FAILURE() << "refused: " << line << ": fault " << static_cast<int>(error->fault) << " "
                      << error->word;
        return {};
    }
    return std::get<Command>(result);
}

CommandError Refused(const std::string& line) {
    const auto result = ParseCommandLine(line);
    if (std::holds_alternative<Command>(result)) {
        ADD_FAILURE() << "taken: " << line;
        return {};
    }
    return std::get<CommandError>(result);
}

CommandFault FaultOf(const std::string& line) {
    return Refused(line).fault;
}

} // namespace

TEST(CommandLine, StartGivesIdAndKey) {
    EXPECT_EQ(Parsed(kStart + "192.0.2.1 -iotproduct 10"), (Command{Verb::Start, kId, kKey}));
}

TEST(CommandLine, StartHasTheFourFormsOfThePlugIn) {
    for (const char* rest :
         {"server -iotproduct 10", "-ip server -onceForce  -iotproduct 10",
          "server -iotproduct 10 -mock -market JP", "-ip server -onceForce  -iotproduct 10 -mock -market JP"})
        EXPECT_EQ(Parsed(kStart + rest).verb, Verb::Start) << rest;
}

TEST(CommandLine, StartMayHaveAnEmptyAddress) {
    for (const char* rest :
         {" -iotproduct 10", "-ip  -onceForce  -iotproduct 10", " -iotproduct 10 -mock -market JP"})
        EXPECT_EQ(Parsed(kStart + rest).key, kKey) << rest;
}

TEST(CommandLine, ShowGivesIdAndKey) {
    EXPECT_EQ(Parsed(" -show " + kId + " " + kKey + " PDF "), (Command{Verb::Show, kId, kKey}));
}

TEST(CommandLine, ExitGivesTheId) {
    EXPECT_EQ(Parsed("-exit " + kId), (Command{Verb::Exit, kId, ""}));
}

TEST(CommandLine, FileGivesNothing) {
    EXPECT_EQ(Parsed(kFile + "192.0.2.1 -onceForce -iotproduct 10 "), (Command{Verb::File, "", ""}));
}

TEST(CommandLine, FileMayHaveAnEmptyAddress) {
    EXPECT_EQ(Parsed(kFile + " -onceForce -iotproduct 10 ").verb, Verb::File);
}

TEST(CommandLine, BlanksMayRun) {
    EXPECT_EQ(Parsed("  \t -show\t\t" + kId + "     " + kKey + "  PDF\t  ").key, kKey);
    EXPECT_EQ(Parsed("   -exit   " + kId + "   ").id, kId);
}

TEST(CommandLine, WithoutAWordIsEmpty) {
    for (const char* line : {"", " ", " \t  "})
        EXPECT_EQ(Refused(line), (CommandError{CommandFault::Empty, true, ""})) << '"' << line << '"';
}

TEST(CommandLine, AnUnknownCommandIsToldWithItsWord) {
    for (const std::string word : {"-Start", "start", "/show", "-shows", "--show", "-", "\"-show\""})
        EXPECT_EQ(Refused(word + " " + kId + " " + kKey + " PDF"),
                  (CommandError{CommandFault::UnknownCommand, true, word}));
}

TEST(CommandLine, OfStartAndExitNobodySeesAnError) {
    EXPECT_FALSE(Refused("-start").isSeen);
    EXPECT_FALSE(Refused("-exit x").isSeen);
    EXPECT_TRUE(Refused("-show").isSeen);
    EXPECT_TRUE(Refused("-file").isSeen);
    EXPECT_TRUE(Refused("-else").isSeen);
}

TEST(CommandLine, AWordThatIsMissingIsTold) {
    for (const std::string& line : {std::string("-start"),
                                    "-start " + kId,
                                    "-start " + kId + " " + kKey,
                                    "-start " + kId + " " + kKey + " PDF",
                                    std::string("-show"),
                                    "-show " + kId,
                                    "-show " + kId + " " + kKey,
                                    std::string("-exit"),
                                    std::string("-file"),
                                    std::string("-file dummyID"),
                                    kFile,
                                    kFile + "a",
                                    kFile + "a -onceForce",
                                    kFile + "a -onceForce -iotproduct",
                                    kStart,
                                    kStart + "a",
                                    kStart + "a -iotproduct",
                                    kStart + "-ip",
                                    kStart + "-ip a -onceForce",
                                    kStart + "a -iotproduct 10 -mock",
                                    kStart + "a -iotproduct 10 -mock -market"})
        EXPECT_EQ(FaultOf(line), CommandFault::MissingWord) << line;
}

TEST(CommandLine, AnIdIsSixteenHexadecimalDigitsInCapitals) {
    for (const std::string id :
         {"000001A40BCDEF1", "000001A40BCDEF123", "000001a40bcdef12", "000001A40BCDEG12", "..\\\\1A40BCDEF12",
          "\\", "*", "000001A40BCDEF1\x81", "dummyID"}) {
        EXPECT_EQ(Refused("-exit " + id), (CommandError{CommandFault::WrongId, false, id}));
        EXPECT_EQ(Refused("-show " + id + " " + kKey + " PDF"),
                  (CommandError{CommandFault::WrongId, true, id}));
    }
}

TEST(CommandLine, AKeyIsExactlyADataSettingKeysName) {
    for (const std::string key :
         {"Software", "Software\\Zephra\\QPSP", "Software\\Zephra\\QPSP\\DataSet_",
          "software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12",
          "\\Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12",
          "Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12\\Current",
          "Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12\\",
          "Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF123",
          "Software\\Zephra\\QPSP\\..\\DataSet_000001A40BCDEF12", "DataSet_000001A40BCDEF12", "dummyRegKey",
          "\"Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12\""}) {
        EXPECT_EQ(Refused("-show " + kId + " " + key + " PDF"),
                  (CommandError{CommandFault::WrongKey, true, key}));
        EXPECT_EQ(FaultOf("-start " + kId + " " + key + " PDF ja-JP -iotproduct 10"), CommandFault::WrongKey);
    }
}

TEST(CommandLine, TheIdMustBeThatOfTheKey) {
    EXPECT_EQ(FaultOf("-show 000001A40BCDEF13 " + kKey + " PDF"), CommandFault::IdOfAnotherKey);
    EXPECT_EQ(FaultOf("-start 000001A40BCDEF13 " + kKey + " PDF ja-JP -iotproduct 10"),
              CommandFault::IdOfAnotherKey);
}

TEST(CommandLine, TheFirstFaultIsTold) {
    EXPECT_EQ(Refused("-show x y z"), (CommandError{CommandFault::WrongId, true, "x"}));
}

TEST(CommandLine, TheDriverIsThePdfOne) {
    for (const std::string kind : {"PS", "pdf", "PDF2", "-ip"})
        EXPECT_EQ(Refused("-show " + kId + " " + kKey + " " + kind),
                  (CommandError{CommandFault::WrongKind, true, kind}));
}

TEST(CommandLine, TheLanguageIsJapanese) {
    EXPECT_EQ(FaultOf("-start " + kId + " " + kKey + " PDF en-US a -iotproduct 10"),
              CommandFault::WrongLanguage);
    EXPECT_EQ(FaultOf("-file dummyID dummyRegKey PDF ja -ip a -onceForce -iotproduct 10"),
              CommandFault::WrongLanguage);
}

TEST(CommandLine, TheProductIsTen) {
    for (const std::string product : {"1", "11", "010", "-10"}) {
        EXPECT_EQ(FaultOf(kStart + "a -iotproduct " + product), CommandFault::WrongProduct);
        EXPECT_EQ(FaultOf(kFile + "a -onceForce -iotproduct " + product), CommandFault::WrongProduct);
    }
}

TEST(CommandLine, AWordTooManyIsTold) {
    for (const std::string& line :
         {"-exit " + kId + " now", "-show " + kId + " " + kKey + " PDF ja-JP", kStart + "a -iotproduct 10 x",
          kStart + "a -iotproduct 10 -mock -market JP -mock", kFile + "a -onceForce -iotproduct 10 -mock"})
        EXPECT_EQ(FaultOf(line), CommandFault::UnknownWord) << line;
}

TEST(CommandLine, AnAddressMayHaveBlanksAndALeadingHyphen) {
    for (const std::string address : {"a b", "-", "-a", "-mock", "-ip", "two  words -and a\thyphen",
                                      "\\\\印刷 サーバー", "\"quoted name\""}) {
        if (address != "-ip") {
            EXPECT_EQ(Parsed(kStart + address + " -iotproduct 10"), (Command{Verb::Start, kId, kKey}))
                << address;
        }
        EXPECT_EQ(Parsed(kStart + "-ip " + address + " -onceForce  -iotproduct 10 -mock -market JP"),
                  (Command{Verb::Start, kId, kKey}))
            << address;
        EXPECT_EQ(Parsed(kFile + address + " -onceForce -iotproduct 10 "), (Command{Verb::File, "", ""}))
            << address;
    }
}

TEST(CommandLine, AnAddressEndsAtTheFirstWordThatStandsBehindOne) {
    EXPECT_EQ(FaultOf(kStart + "a -iotproduct b -iotproduct 10"), CommandFault::WrongProduct);
    EXPECT_EQ(FaultOf(kFile + "a -onceForce b -onceForce -iotproduct 10"), CommandFault::UnknownWord);
}

TEST(CommandLine, ADirectAddressIsFollowedByItsOwnWord) {
    EXPECT_EQ(FaultOf(kStart + "-ip a -iotproduct 10"), CommandFault::MissingWord);
    EXPECT_EQ(FaultOf(kFile + "a -iotproduct 10"), CommandFault::MissingWord);
}

// The plug-in's words for a sheet whose key was removed.
TEST(CommandLine, WithoutIdAndKeyItIsTheKeyThatIsMissing) {
    EXPECT_EQ(Refused(" -show   PDF "), (CommandError{CommandFault::NoKey, true, ""}));
    EXPECT_EQ(Refused("-start   PDF ja-JP a -iotproduct 10"), (CommandError{CommandFault::NoKey, false, ""}));
}

TEST(CommandLine, TheMarketIsJapan) {
    EXPECT_EQ(FaultOf(kStart + "a -iotproduct 10 -mock -market US"), CommandFault::UnknownWord);
    EXPECT_EQ(FaultOf(kStart + "a -iotproduct 10 -mock JP"), CommandFault::UnknownWord);
}

TEST(CommandLine, FileHasItsTwoPlaceHoldersLiterally) {
    EXPECT_EQ(FaultOf("-file " + kId + " dummyRegKey PDF ja-JP -ip a -onceForce -iotproduct 10"),
              CommandFault::WrongId);
    EXPECT_EQ(FaultOf("-file dummyID " + kKey + " PDF ja-JP -ip a -onceForce -iotproduct 10"),
              CommandFault::WrongKey);
}

TEST(CommandLine, LongerThanThePlugInsBufferIsRefused) {
    const std::string tail = " -iotproduct 10";
    const std::string fits = kStart + std::string(2046 - kStart.size() - tail.size(), 'a') + tail;
    EXPECT_EQ(fits.size(), 2046U);
    EXPECT_EQ(Parsed(fits).verb, Verb::Start);
    EXPECT_EQ(FaultOf(fits + " "), CommandFault::TooLong);
    EXPECT_EQ(FaultOf("-show " + std::string(100'000, ' ')), CommandFault::TooLong);
}

TEST(CommandLine, AnyBytesAreRefusedWithoutHarm) {
    std::string bytes;
    for (int i = 255; i >= 0; --i)
        bytes += static_cast<char>(i);
    EXPECT_EQ(FaultOf(bytes), CommandFault::UnknownCommand);
    EXPECT_EQ(FaultOf("-show " + bytes), CommandFault::WrongId);
    EXPECT_EQ(FaultOf("-show " + kId + " " + bytes), CommandFault::WrongKey);
}
