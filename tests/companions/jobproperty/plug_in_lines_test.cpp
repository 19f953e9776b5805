// The plug-in's command lines, as the application takes them apart.
#include "companions/jobproperty/command_line.h"
#include "pages/job_property_command.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using jobproperty::Command;
using jobproperty::CommandError;
using jobproperty::CommandFault;
using jobproperty::ParseCommandLine;
using jobproperty::Verb;

// What stands on the line behind the program's path and blank.
constexpr const char* kNoApplication = "";
const std::string kId = "000001A40BCDEF12";
const std::string kKey = "Software\\Zephra\\QPSP\\DataSet_000001A40BCDEF12";

const std::string kAddresses[] = {"",        "192.0.2.1", "\\\\SERVER",          "print server",
                                  "-server", " ",         std::string(259, 'a'), "\\\\印刷サーバー"};

void ExpectTaken(const std::string& line, const Command& expected) {
    const auto parsed = ParseCommandLine(line);
    const auto* command = std::get_if<Command>(&parsed);
    ASSERT_TRUE(command) << "refused: " << line;
    EXPECT_EQ(*command, expected) << line;
}

CommandFault FaultOf(const std::string& line) {
    const auto parsed = ParseCommandLine(line);
    const auto* error = std::get_if<CommandError>(&parsed);
    return error ? error->fault : CommandFault::Empty;
}

} // namespace

TEST(PlugInLines, AStartIsTakenInEveryCommunicationAndStartUpMode) {
    for (const std::string& server : kAddresses)
        for (const std::uint32_t communicationMode : {0U, 1U, 2U})
            for (const std::uint32_t startupMode : {0U, 1U, 2U})
                ExpectTaken(StartCommand(kNoApplication, {.key = kKey,
                                                          .server = server,
                                                          .communicationMode = communicationMode,
                                                          .startupMode = startupMode}),
                            {Verb::Start, kId, kKey});
}

TEST(PlugInLines, AShowIsTaken) {
    ExpectTaken(ShowCommand(kNoApplication, kKey), {Verb::Show, kId, kKey});
}

TEST(PlugInLines, AnExitIsTaken) {
    ExpectTaken(ExitCommand(kNoApplication, kKey), {Verb::Exit, kId, ""});
}

TEST(PlugInLines, AFileIsTakenWithEveryAddress) {
    for (const std::string& address : kAddresses)
        ExpectTaken(FileCommand(kNoApplication, address), {Verb::File, "", ""});
}

TEST(PlugInLines, OfASheetWithoutAKeyTellThatItIsMissing) {
    EXPECT_EQ(FaultOf(ShowCommand(kNoApplication, "")), CommandFault::NoKey);
    EXPECT_EQ(FaultOf(StartCommand(kNoApplication, {.key = "", .server = "a", .communicationMode = 1})),
              CommandFault::NoKey);
    EXPECT_EQ(FaultOf(StartCommand(kNoApplication, {.key = "", .server = "a"})), CommandFault::NoKey);
    EXPECT_EQ(FaultOf(ExitCommand(kNoApplication, "")), CommandFault::MissingWord);
}
