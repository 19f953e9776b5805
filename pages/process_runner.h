// Starting programs and waiting for them: all that the link to the job property application and the driver's
// installation ask of the system.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

// A started process; its handles are closed with it, unless they are left open on purpose.
class StartedProcess {
  public:
    virtual ~StartedProcess() = default;
    virtual bool WaitForInputIdle() = 0;
    virtual DWORD Wait(DWORD milliseconds) = 0;
    // STILL_ACTIVE while it runs; 0 if it can't be told.
    virtual DWORD ExitCode() = 0;
    virtual void CloseThread() = 0;
    virtual void CloseProcess() = 0;
    // Gives both handles up without closing them.
    virtual void Abandon() = 0;
};

enum class ProgramWindow {
    OwnChoice, // the program shows what it likes
    Shown,
    None, // and no console's window
};

class ProcessRunner {
  public:
    virtual ~ProcessRunner() = default;
    // Null if the process can't be started; the thread's last error then tells why.
    virtual std::unique_ptr<StartedProcess> Start(const std::string& commandLine, ProgramWindow window) = 0;
    // True if the path of the first module of any process that can be asked contains `name`.
    virtual bool IsAnyRunning(const char* name) = 0;
    virtual void Sleep(DWORD milliseconds) = 0;
};

// The system's own, unless another one takes its place.
ProcessRunner& TheProcessRunner();

enum class ProgramRun {
    NotStarted, // the thread's last error tells why
    NotIdle,    // started, but it never waited for input; nobody waits for it, and its handles stay open
    Ended,
};
// Starts a program and waits, without a limit, until it takes input and then for its end.
ProgramRun RunProgram(const std::string& commandLine, ProgramWindow window);

// Puts a runner in the place of the system's while it lives.
class ReplacedProcessRunner {
  public:
    explicit ReplacedProcessRunner(ProcessRunner& runner);
    ~ReplacedProcessRunner();
    ReplacedProcessRunner(const ReplacedProcessRunner&) = delete;
    ReplacedProcessRunner& operator=(const ReplacedProcessRunner&) = delete;

  private:
    ProcessRunner* m_before;
};
