// The system's runner with real processes.
#include "pages/process_runner.h"

#include "tests/pages/stand_in_process.h"

namespace {

class SystemRunner : public testing::Test {
  protected:
    ProcessRunner& runner = TheProcessRunner();
    StandIn standIn;

    // A running stand-in that has waited for input.
    std::unique_ptr<StartedProcess> StartOne(const char* life) {
        StandIn::Behave(life);
        auto process = runner.Start(standIn.Path() + "-show", ProgramWindow::Shown);
        EXPECT_TRUE(process && process->WaitForInputIdle());
        return process;
    }
};

TEST_F(SystemRunner, HandsTheCommandLineOnByteForByte) {
    StandIn::Behave("");
    const std::string command = standIn.Path() + " -show  id 表の鍵 PDF ";
    EXPECT_EQ(RunProgram(command, ProgramWindow::Shown), ProgramRun::Ended);
    EXPECT_EQ(standIn.Started(), (std::vector<std::string>{command, "1", "5", "32"}))
        << "STARTF_USESHOWWINDOW, SW_SHOW, NORMAL_PRIORITY_CLASS";
}

TEST_F(SystemRunner, AsksForNoWindowUnlessOneIsToBeShown) {
    StandIn::Behave("");
    const std::string command = standIn.Path() + "-exit id";
    EXPECT_EQ(RunProgram(command, ProgramWindow::OwnChoice), ProgramRun::Ended);
    const std::vector<std::string> started = standIn.Started();
    ASSERT_EQ(started.size(), 4u);
    EXPECT_EQ(started[0], command);
    EXPECT_EQ(std::stoul(started[1]) & STARTF_USESHOWWINDOW, 0u);
    EXPECT_EQ(started[3], "32");
}

TEST_F(SystemRunner, WaitsAsLongAsItIsTold) {
    const auto process = StartOne("wait");
    EXPECT_EQ(process->Wait(0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(process->Wait(150), static_cast<DWORD>(WAIT_TIMEOUT));
    standIn.End();
    EXPECT_EQ(process->Wait(INFINITE), static_cast<DWORD>(WAIT_OBJECT_0));
}

TEST_F(SystemRunner, SeesTheEndOfAKilledProcess) {
    const auto process = StartOne("hang");
    EXPECT_EQ(process->Wait(100), static_cast<DWORD>(WAIT_TIMEOUT));
    standIn.Kill();
    EXPECT_EQ(process->Wait(10'000), static_cast<DWORD>(WAIT_OBJECT_0));
}

TEST_F(SystemRunner, RunsAProgramToItsEndAlsoIfThatIsByForce) {
    StandIn::Behave("hang");
    StandInRunner killing(runner, standIn.Path(), standIn.Path());
    killing.whenIdle = [this] { standIn.Kill(); };
    const ReplacedProcessRunner replaced(killing);
    EXPECT_EQ(RunProgram(standIn.Path() + "-show", ProgramWindow::Shown), ProgramRun::Ended);
}

TEST_F(SystemRunner, TellsOfAMissingFile) {
    SetLastError(0);
    EXPECT_EQ(
        runner.Start("C:\\no such folder\\PrinterDriverApplication.exe -start id", ProgramWindow::OwnChoice),
        nullptr);
    EXPECT_TRUE(GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND)
        << GetLastError();
    EXPECT_EQ(RunProgram("", ProgramWindow::Shown), ProgramRun::NotStarted);
}

TEST_F(SystemRunner, DoesNotWaitForAProgramWithoutInput) {
    EXPECT_EQ(RunProgram("cmd.exe /c exit", ProgramWindow::OwnChoice), ProgramRun::NotIdle);
}

TEST_F(SystemRunner, FindsARunningProgramByAnyPartOfItsPath) {
    const std::string folder = "\\zr" + std::to_string(GetCurrentProcessId()) + "\\";
    EXPECT_FALSE(runner.IsAnyRunning((folder + StandIn::kName).c_str()));
    const auto process = StartOne("wait");
    EXPECT_TRUE(runner.IsAnyRunning((folder + StandIn::kName).c_str()));
    EXPECT_TRUE(runner.IsAnyRunning(StandIn::kName));
    EXPECT_TRUE(runner.IsAnyRunning("stand_in.exe"));
    EXPECT_FALSE(runner.IsAnyRunning("stand_in.exe "));
    standIn.End();
    process->Wait(INFINITE);
    process->CloseThread();
    process->CloseProcess();
    EXPECT_FALSE(runner.IsAnyRunning((folder + StandIn::kName).c_str()));
}

TEST_F(SystemRunner, InheritsNoHandles) {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const std::string path = (std::filesystem::temp_directory_path() / "held_by_nobody.txt").string();
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, &inheritable, CREATE_ALWAYS,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const auto process = StartOne("wait");
    CloseHandle(file);
    EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES) << "the stand-in holds it";
    standIn.End();
    process->Wait(INFINITE);
}

TEST_F(SystemRunner, SleepsForAsLongAsItIsTold) {
    const DWORD before = GetTickCount();
    runner.Sleep(60);
    EXPECT_GE(GetTickCount() - before, 60u - 20u) << "ticks are coarse";
}

TEST(ReplacedRunner, IsTheRunnerWhileItLives) {
    ProcessRunner& system = TheProcessRunner();
    StandInRunner first(system, "a", "b");
    StandInRunner second(system, "a", "b");
    {
        const ReplacedProcessRunner replaced(first);
        EXPECT_EQ(&TheProcessRunner(), &first);
        {
            const ReplacedProcessRunner again(second);
            EXPECT_EQ(&TheProcessRunner(), &second);
        }
        EXPECT_EQ(&TheProcessRunner(), &first);
    }
    EXPECT_EQ(&TheProcessRunner(), &system);
}

} // namespace
