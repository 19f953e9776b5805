// A command that is started and waited for.
#include "oemps/driver_event.h"

#include "tests/oemps/with_log.h"
#include "tests/support/own_folder.h"
#include "tests/support/recording_runner.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Calls = std::vector<std::string>;

class ModalCommand : public WithLog {
  protected:
    RecordingRunner runner;
    ReplacedProcessRunner replaced{runner};
};

TEST_F(ModalCommand, IsWaitedForWithoutLimit) {
    EXPECT_EQ(DoModalCommand("tool.exe  install  a b"), 1);
    EXPECT_EQ(runner.calls, (Calls{"start without window: tool.exe  install  a b", "close thread",
                                   "wait for ever", "exit code", "close process"}));
}

TEST_F(ModalCommand, IsAskedForItsExitCodeUntilThatIsNoLonger259) {
    runner.exitCodes = {259, 259, 1};
    EXPECT_EQ(DoModalCommand("tool.exe"), 1);
    EXPECT_EQ(runner.calls,
              (Calls{"start without window: tool.exe", "close thread", "wait for ever", "exit code",
                     "sleep 10", "exit code", "sleep 10", "exit code", "close process"}));
}

TEST_F(ModalCommand, WhoseWaitFailsIsAskedAllTheSame) {
    runner.waitResult = WAIT_FAILED;
    runner.exitCodes = {259};
    EXPECT_EQ(DoModalCommand("tool.exe"), 1);
    EXPECT_EQ(std::ranges::count(runner.calls, "exit code"), 2);
}

TEST_F(ModalCommand, ThatEndsWithAnErrorWasStartedAllTheSame) {
    runner.exitCodes = {0xC0000005};
    EXPECT_EQ(DoModalCommand("tool.exe"), 1);
}

TEST_F(ModalCommand, ThatIsEmptyStartsNothing) {
    EXPECT_EQ(DoModalCommand(""), 0);
    EXPECT_EQ(runner.calls, Calls{});
}

TEST_F(ModalCommand, ThatCantStartIsLogged) {
    runner.startError = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(DoModalCommand("tool.exe"), 0);
    EXPECT_EQ(runner.calls, Calls{"start without window: tool.exe"});
    EXPECT_EQ(Logged("DoModalCommand() error=2"), 1u);
}

class RealCommand : public WithLog, protected TestFolder {
  protected:
    std::string Command(const std::string& milliseconds, const std::string& code) const {
        return (OwnFolder() / "command_program.exe").string() + " " + PathOf("report") + " " + milliseconds +
               " " + code;
    }
};

TEST_F(RealCommand, HasEndedWhenTheCallReturns) {
    const std::string command = Command("300", "0");
    EXPECT_EQ(DoModalCommand(command), 1);
    EXPECT_EQ(Content(PathOf("report")), command + "\n32\nno window\n") << "NORMAL_PRIORITY_CLASS";
}

TEST_F(RealCommand, ThatFailsWasStartedAllTheSame) {
    EXPECT_EQ(DoModalCommand(Command("0", "7")), 1);
    EXPECT_NE(Content(PathOf("report")), "");
}

TEST_F(RealCommand, ThatIsNotThereIsLogged) {
    EXPECT_EQ(DoModalCommand(PathOf("ngen.exe") + " install nothing"), 0);
    EXPECT_EQ(Logged("DoModalCommand() error=2"), 1u);
}

} // namespace
