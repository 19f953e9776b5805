// The real program, started by a test as the plug-in starts it.
#pragma once

#include "Common/win_handles.h"
#include "tests/support/own_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

// Ends the process when it goes, if the process has not ended itself.
class Application {
  public:
    // With the given words behind the program's path.
    explicit Application(const std::string& words) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        UniqueHandle errorEnd;
        CreatePipe(m_error.Receive(), errorEnd.Receive(), &inherited, 0);
        SetHandleInformation(m_error.Get(), HANDLE_FLAG_INHERIT, 0);
        std::string line = (OwnFolder() / "PrinterDriverApplication.exe").string() + " " + words;
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdError = errorEnd.Get();
        PROCESS_INFORMATION process{};
        if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS, nullptr,
                            nullptr, &startup, &process)) {
            ADD_FAILURE() << "not started: " << line << " error " << GetLastError();
            return;
        }
        CloseHandle(process.hThread);
        m_process.Reset(process.hProcess);
        m_id = process.dwProcessId;
    }
    ~Application() {
        if (IsRunning())
            TerminateProcess(m_process.Get(), kKilled);
        WaitForSingleObject(m_process.Get(), kPatience);
    }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    static constexpr DWORD kPatience = 10'000;
    static constexpr DWORD kKilled = 999;
    static constexpr int kStillRunning = -1;

    bool IsRunning() const { return WaitForSingleObject(m_process.Get(), 0) == WAIT_TIMEOUT; }
    HANDLE Process() const { return m_process.Get(); }
    DWORD Id() const { return m_id; }

    // What it ends with, kStillRunning if it does not end.
    int ExitCodeAtEnd(DWORD patience = kPatience) const {
        if (WaitForSingleObject(m_process.Get(), patience) != WAIT_OBJECT_0)
            return kStillRunning;
        DWORD code = 0;
        GetExitCodeProcess(m_process.Get(), &code);
        return static_cast<int>(code);
    }

    // What it has written to its standard error by its end.
    std::string ErrorAtEnd() const {
        EXPECT_NE(ExitCodeAtEnd(), kStillRunning);
        std::string text;
        DWORD waiting = 0;
        while (PeekNamedPipe(m_error.Get(), nullptr, 0, nullptr, &waiting, nullptr) && waiting > 0) {
            std::array<char, 512> part{};
            DWORD read = 0;
            if (!ReadFile(m_error.Get(), part.data(), part.size(), &read, nullptr))
                break;
            text.append(part.data(), read);
        }
        return text;
    }

  private:
    UniqueHandle m_error;
    UniqueHandle m_process;
    DWORD m_id = 0;
};
