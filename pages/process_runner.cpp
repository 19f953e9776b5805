#include "pages/process_runner.h"

#include "Common/win_handles.h"

#include <psapi.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace {

class SystemProcess final : public StartedProcess {
  public:
    explicit SystemProcess(const PROCESS_INFORMATION& started)
        : m_process(started.hProcess), m_thread(started.hThread) {}

    bool WaitForInputIdle() override { return ::WaitForInputIdle(m_process.Get(), INFINITE) == 0; }
    DWORD Wait(DWORD milliseconds) override { return WaitForSingleObject(m_process.Get(), milliseconds); }
    DWORD ExitCode() override {
        DWORD code = 0;
        return GetExitCodeProcess(m_process.Get(), &code) ? code : 0;
    }
    void CloseThread() override { m_thread.Reset(); }
    void CloseProcess() override { m_process.Reset(); }
    void Abandon() override {
        static_cast<void>(m_thread.Release());
        static_cast<void>(m_process.Release());
    }

  private:
    UniqueHandle m_process;
    UniqueHandle m_thread;
};

// The path of a process's first module, its program; "" for a process that can't be asked.
std::string ProgramPath(DWORD id) {
    const UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    HMODULE module = nullptr;
    DWORD needed = 0;
    if (!process || !EnumProcessModules(process.Get(), &module, sizeof module, &needed))
        return {};
    std::array<char, 1024> path{};
    const DWORD length =
        GetModuleFileNameExA(process.Get(), module, path.data(), static_cast<DWORD>(path.size()));
    return {path.data(), std::min<std::size_t>(length, path.size())};
}

class SystemRunner final : public ProcessRunner {
  public:
    std::unique_ptr<StartedProcess> Start(const std::string& commandLine, ProgramWindow window) override {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        if (window == ProgramWindow::Shown) {
            startup.dwFlags = STARTF_USESHOWWINDOW;
            startup.wShowWindow = SW_SHOW;
        }
        const DWORD flags = NORMAL_PRIORITY_CLASS | (window == ProgramWindow::None ? CREATE_NO_WINDOW : 0);
        PROCESS_INFORMATION started{};
        std::string writable = commandLine;
        if (!CreateProcessA(nullptr, writable.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                            &startup, &started))
            return nullptr;
        return std::make_unique<SystemProcess>(started);
    }

    bool IsAnyRunning(const char* name) override {
        std::array<DWORD, 1024> ids{};
        DWORD size = 0;
        if (!EnumProcesses(ids.data(), sizeof ids, &size))
            return false;
        const auto found =
            std::ranges::count_if(std::span(ids).first(std::min(ids.size(), size / sizeof(DWORD))),
                                  [&](DWORD id) { return ProgramPath(id).find(name) != std::string::npos; });
        return found > 0;
    }

    void Sleep(DWORD milliseconds) override { ::Sleep(milliseconds); }
};

SystemRunner systemRunner;
ProcessRunner* runner = &systemRunner;

} // namespace

ProcessRunner& TheProcessRunner() {
    return *runner;
}

ProgramRun RunProgram(const std::string& commandLine, ProgramWindow window) {
    const auto process = TheProcessRunner().Start(commandLine, window);
    if (!process)
        return ProgramRun::NotStarted;
    if (!process->WaitForInputIdle()) {
        process->Abandon();
        return ProgramRun::NotIdle;
    }
    process->CloseThread();
    process->Wait(INFINITE);
    process->CloseProcess();
    return ProgramRun::Ended;
}

ReplacedProcessRunner::ReplacedProcessRunner(ProcessRunner& replacement)
    : m_before(std::exchange(runner, &replacement)) {}

ReplacedProcessRunner::~ReplacedProcessRunner() {
    runner = m_before;
}
