// A real program in the place of the job property application, and a runner that starts it.
#pragma once

#include "Common/win_handles.h"
#include "pages/process_runner.h"
#include "tests/support/own_folder.h"

#include <psapi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

// The program below a folder that bears the application's name, as the check looks for it, and the way that
// it behaves while this lives.
class StandIn {
  public:
    StandIn() {
        char temporary[MAX_PATH] = {};
        GetTempPathA(sizeof temporary, temporary);
        m_folder = std::filesystem::path(temporary) / ("zr" + std::to_string(GetCurrentProcessId()));
        std::filesystem::create_directories(m_folder / kName);
        std::filesystem::copy_file(OwnFolder() / "stand_in_application.exe", Program(),
                                   std::filesystem::copy_options::overwrite_existing);
        m_end.Reset(CreateEventA(nullptr, TRUE, FALSE, "ZrStandInEnd"));
        SetEnvironmentVariableA("ZR_STAND_IN_REPORT", Report().string().c_str());
    }
    ~StandIn() {
        End();
        for (const UniqueHandle& process : Running())
            if (WaitForSingleObject(process.Get(), 5'000) != WAIT_OBJECT_0)
                Kill();
        SetEnvironmentVariableA("ZR_STAND_IN", nullptr);
        SetEnvironmentVariableA("ZR_STAND_IN_REPORT", nullptr);
        // A program that has just ended can still hold its file.
        std::error_code error;
        for (int attempt = 0; attempt < 100 && std::filesystem::exists(m_folder, error); ++attempt) {
            std::filesystem::remove_all(m_folder, error);
            Sleep(20);
        }
    }
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    static constexpr char kName[] = "PrinterDriverApplication.exe";

    // With the blank that the application's path has in the string table.
    std::string Path() const { return Program().string() + " "; }
    static void Behave(const char* life) { SetEnvironmentVariableA("ZR_STAND_IN", life); }
    // Ends those that wait.
    void End() const { SetEvent(m_end.Get()); }
    // Kills all that run, and waits until they have gone.
    void Kill() const {
        for (const UniqueHandle& process : Running()) {
            TerminateProcess(process.Get(), 9);
            WaitForSingleObject(process.Get(), 5'000);
        }
    }
    // Until one has reported its start.
    void AwaitStart() const {
        for (int attempt = 0; attempt < 500 && Started().size() < 4; ++attempt)
            Sleep(20);
    }
    // What the one that started last was started with: command line, start flags, show command, priority.
    std::vector<std::string> Started() const {
        std::ifstream file(Report());
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

  private:
    std::filesystem::path Program() const { return m_folder / kName / "stand_in.exe"; }
    std::filesystem::path Report() const { return m_folder / "report.txt"; }

    std::vector<UniqueHandle> Running() const {
        std::array<DWORD, 1024> ids{};
        DWORD size = 0;
        EnumProcesses(ids.data(), sizeof ids, &size);
        std::vector<UniqueHandle> running;
        for (const DWORD id : std::span(ids).first(size / sizeof(DWORD))) {
            UniqueHandle process(OpenProcess(
                PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
            std::array<char, 1024> path{};
            if (process && GetModuleFileNameExA(process.Get(), nullptr, path.data(), path.size()) &&
                lstrcmpiA(path.data(), Program().string().c_str()) == 0)
                running.push_back(std::move(process));
        }
        return running;
    }

    std::filesystem::path m_folder;
    UniqueHandle m_end;
};

// The system's runner, but the stand-in takes the application's place and no wait is longer than `limit`.
class StandInRunner final : public ProcessRunner {
  public:
    StandInRunner(ProcessRunner& system, std::string application, std::string program)
        : m_system(system), m_application(std::move(application)), m_program(std::move(program)) {}

    DWORD limit = INFINITE;
    // Runs once a process waits for input, on the thread that has waited for that.
    std::function<void()> whenIdle;

    std::unique_ptr<StartedProcess> Start(const std::string& commandLine, ProgramWindow window) override {
        EXPECT_TRUE(commandLine.starts_with(m_application)) << commandLine;
        auto process = m_system.Start(m_program + commandLine.substr(m_application.size()), window);
        return process ? std::make_unique<Process>(std::move(process), *this) : nullptr;
    }
    bool IsAnyRunning(const char* name) override { return m_system.IsAnyRunning(name); }
    void Sleep(DWORD milliseconds) override { m_system.Sleep(milliseconds); }

  private:
    class Process final : public StartedProcess {
      public:
        Process(std::unique_ptr<StartedProcess> process, const StandInRunner& runner)
            : m_process(std::move(process)), m_runner(runner) {}
        bool WaitForInputIdle() override {
            const bool isIdle = m_process->WaitForInputIdle();
            if (isIdle && m_runner.whenIdle)
                m_runner.whenIdle();
            return isIdle;
        }
        DWORD Wait(DWORD milliseconds) override {
            return m_process->Wait(std::min(milliseconds, m_runner.limit));
        }
        DWORD ExitCode() override { return m_process->ExitCode(); }
        void CloseThread() override { m_process->CloseThread(); }
        void CloseProcess() override { m_process->CloseProcess(); }
        void Abandon() override { m_process->Abandon(); }

      private:
        std::unique_ptr<StartedProcess> m_process;
        const StandInRunner& m_runner;
    };

    ProcessRunner& m_system;
    std::string m_application;
    std::string m_program;
};
