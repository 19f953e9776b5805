#include "host/driverhost_options.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace {

using driverhost::Command;
using driverhost::Options;

Options Read(std::initializer_list<const char*> words) {
    const std::vector<std::string> list(words.begin(), words.end());
    return driverhost::ParseOptions(list);
}

TEST(DriverhostOptions, OpenTheDocumentSheetOfThePrinterWithoutWords) {
    const Options options = Read({});
    EXPECT_EQ(options.error, "");
    EXPECT_EQ(options.command, Command::DocumentSheet);
    EXPECT_EQ(options.printer, "Orvane X100");
}

TEST(DriverhostOptions, TakeEachCommand) {
    EXPECT_EQ(Read({"--device"}).command, Command::DeviceSheet);
    EXPECT_EQ(Read({"--dump"}).command, Command::Dump);
    EXPECT_EQ(Read({"--remove"}).command, Command::Remove);
    EXPECT_EQ(Read({"--help"}).command, Command::Help);
    EXPECT_EQ(Read({"--version"}).command, Command::Version);
}

TEST(DriverhostOptions, TakePrinterDescriptionScriptAndTimeout) {
    const Options options =
        Read({"--printer", "P 1", "--ppd", "a.ppd", "--script", "s.txt", "--timeout", "5"});
    EXPECT_EQ(options.error, "");
    EXPECT_EQ(options.printer, "P 1");
    EXPECT_EQ(options.ppd, "a.ppd");
    EXPECT_EQ(options.script, "s.txt");
    EXPECT_EQ(driverhost::TimeLimit(options), 5);
}

TEST(DriverhostOptions, LimitAScriptedSheetToAMinuteAndAPersonsNotAtAll) {
    EXPECT_EQ(driverhost::TimeLimit(Read({"--script", "s.txt"})), 60);
    EXPECT_FALSE(driverhost::TimeLimit(Read({})));
    EXPECT_EQ(driverhost::TimeLimit(Read({"--timeout", "3"})), 3);
}

TEST(DriverhostOptions, RefuseAnUnknownWord) {
    EXPECT_EQ(Read({"--frob"}).error, "unknown argument --frob");
}

TEST(DriverhostOptions, RefuseAMissingOrEmptyArgument) {
    EXPECT_EQ(Read({"--printer"}).error, "--printer needs an argument");
    EXPECT_EQ(Read({"--script", ""}).error, "--script needs an argument");
}

TEST(DriverhostOptions, RefuseATimeThatIsNoTime) {
    for (const char* time : {"0", "-1", "1x", "86401", "99999999999"})
        EXPECT_EQ(Read({"--timeout", time}).error, "--timeout needs a number of seconds from 1 to 86400")
            << time;
}

TEST(DriverhostOptions, RefuseTwoCommands) {
    EXPECT_EQ(Read({"--dump", "--remove"}).error, "--remove goes with no other command");
}

TEST(DriverhostOptions, RefuseAScriptWithoutASheet) {
    EXPECT_EQ(Read({"--dump", "--script", "s.txt"}).error, "--script needs a sheet to play on");
}

TEST(DriverhostOptions, TakeAnInstalledPrinterForEitherSheet) {
    EXPECT_FALSE(Read({}).installed);
    for (const Options& options : {Read({"--installed"}), Read({"--installed", "--device"})}) {
        EXPECT_EQ(options.error, "");
        EXPECT_TRUE(options.installed);
    }
}

TEST(DriverhostOptions, RefuseAnInstalledPrinterWithWhatInstallsOrOpensNoSheet) {
    EXPECT_EQ(Read({"--installed", "--ppd", "a.ppd"}).error, "--ppd installs, and --installed does not");
    EXPECT_EQ(Read({"--installed", "--dump"}).error, "--installed goes with a sheet");
}

TEST(DriverhostOptions, HelpTellsTheOptionsTheActionsAndTheFormatOfADump) {
    const std::string help = driverhost::HelpText();
    for (const char* word :
         {"--printer NAME", "--device", "--script FILE", "--dump", "--ppd FILE", "--remove",
          "--timeout SECONDS", "--installed", "choose ID ROW|\"text\"", "[plug-in]"})
        EXPECT_NE(help.find(word), std::string::npos) << word;
}

} // namespace
