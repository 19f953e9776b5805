// A runner of processes that starts none: it records what it is asked for and answers as a test says.
#pragma once

#include "pages/process_runner.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// What the link did, one text each: "start: COMMAND LINE", "show: COMMAND LINE", "start without window:
// COMMAND LINE", "idle", "wait MILLISECONDS", "wait for ever", "exit code", "close thread", "close process",
// "abandon", "is NAME running", "sleep MILLISECONDS". A process that goes with a handle open adds "thread
// left" or "process left".
class RecordingRunner final : public ProcessRunner {
  public:
    std::vector<std::string> calls;

    // The answers. An error other than 0 lets no process start.
    DWORD startError = 0;
    bool becomesIdle = true;
    DWORD waitResult = WAIT_OBJECT_0;
    // The answers when exit codes are asked for in turn, then 0.
    std::deque<DWORD> exitCodes;
    // The answers of the rounds of IsAnyRunning in turn, then false.
    std::deque<bool> running;
    // Runs inside these, as what the started process would do.
    std::function<void()> onStart;
    std::function<void()> onWait;

    std::unique_ptr<StartedProcess> Start(const std::string& commandLine, ProgramWindow window) override {
        calls.push_back(StartWord(window) + commandLine);
        if (onStart)
            onStart();
        if (startError == 0)
            return std::make_unique<Process>(*this);
        SetLastError(startError);
        return nullptr;
    }

    bool IsAnyRunning(const char* name) override {
        calls.push_back(std::string("is ") + name + " running");
        if (running.empty())
            return false;
        const bool answer = running.front();
        running.pop_front();
        return answer;
    }

    void Sleep(DWORD milliseconds) override { calls.push_back("sleep " + std::to_string(milliseconds)); }

    // The command lines of the processes that were to start.
    std::vector<std::string> CommandLines() const {
        std::vector<std::string> lines;
        for (const std::string& call : calls)
            for (const ProgramWindow window :
                 {ProgramWindow::OwnChoice, ProgramWindow::Shown, ProgramWindow::None})
                if (const std::string word = StartWord(window); call.starts_with(word))
                    lines.push_back(call.substr(word.size()));
        return lines;
    }

  private:
    static std::string StartWord(ProgramWindow window) {
        switch (window) {
        case ProgramWindow::Shown: return "show: ";
        case ProgramWindow::None: return "start without window: ";
        case ProgramWindow::OwnChoice: break;
        }
        return "start: ";
    }

    class Process final : public StartedProcess {
      public:
        explicit Process(RecordingRunner& runner) : m_runner(runner) {}
        ~Process() override {
            if (m_thread)
                Note("thread left");
            if (m_process)
                Note("process left");
        }
        bool WaitForInputIdle() override {
            Note("idle");
            return m_runner.becomesIdle;
        }
        DWORD Wait(DWORD milliseconds) override {
            Note(milliseconds == INFINITE ? "wait for ever" : "wait " + std::to_string(milliseconds));
            if (m_runner.onWait)
                m_runner.onWait();
            return m_runner.waitResult;
        }
        DWORD ExitCode() override {
            Note("exit code");
            if (m_runner.exitCodes.empty())
                return 0;
            const DWORD code = m_runner.exitCodes.front();
            m_runner.exitCodes.pop_front();
            return code;
        }
        void CloseThread() override {
            Note("close thread");
            m_thread = false;
        }
        void CloseProcess() override {
            Note("close process");
            m_process = false;
        }
        void Abandon() override {
            Note("abandon");
            m_thread = m_process = false;
        }

      private:
        void Note(std::string call) { m_runner.calls.push_back(std::move(call)); }

        RecordingRunner& m_runner;
        bool m_thread = true;
        bool m_process = true;
    };
};
