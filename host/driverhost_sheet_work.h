// Work on a sheet as its user does it: on what is in front, and done only when the sheet has dealt with all
// that came of it. What fails is told in words.
#pragma once

#include "host/driverhost_sheet_thread.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace driverhost {

// How often something that nothing tells of is looked for.
inline constexpr auto kLookAgain = std::chrono::milliseconds(10);
// How long a picture waits for its window to be seen whole; a covered one never is.
inline constexpr auto kShowLimit = std::chrono::seconds(1);
// How long what others do in their own time may take to come true: another program that a script works in,
// the window manager that gives a window the keyboard.
inline constexpr auto kLateLimit = std::chrono::seconds(2);

class SheetWork {
  public:
    struct Limits {
        std::optional<std::chrono::milliseconds> sheet; // how long it may be open, if there is a limit
        std::chrono::milliseconds action;               // how long it may need for one action
    };

    SheetWork(SheetThread& thread, const Limits& limits);
    // What a program still had to do is done when its windows are closed.
    ~SheetWork();
    SheetWork(const SheetWork&) = delete;
    SheetWork& operator=(const SheetWork&) = delete;

  protected:
    // Of a sheet that is opened now.
    void StartLimit();
    Clock::time_point SheetEnd() const { return m_sheetEnd; }
    // Of an action that begins now.
    Clock::time_point Limit() const;
    std::string TooLong() const;
    std::string LateMessage() const;

    std::string AwaitSheet();

    HWND Front() const;
    bool IsProgram(HWND front) const;

    // Work that needs an open sheet.
    std::string Do(std::function<std::string()> work);
    // Work on what is in front, on the thread that suits it.
    std::string DoOn(HWND front, std::function<std::string()> work);
    // Work on the sheet itself, with nothing in front of it.
    std::string OnSheet(std::function<std::string(HWND)> work);
    std::string OnBox(std::function<std::string(HWND)> work);

    struct Attempt {
        std::string error;
        bool mayComeTrue; // work that failed has changed nothing, and may be done again
    };
    // Repeats an attempt at what is in front for a while: a program may still be at what the last action
    // began, or be going, and the window manager hands the keyboard from one window to the next in its own
    // time.
    std::string OnceTrue(const std::function<Attempt(HWND)>& attempt);
    // Only the work's own failure may come true: what was at work before it may fail in its time as well.
    Attempt Try(HWND front, bool mayComeTrue, std::function<std::string()> work);
    // A message box keeps a user from the sheet, so it keeps a script from it too.
    std::string WhyBarred(HWND front);

    SheetThread& m_thread;
    bool m_closing = false; // a closed sheet is what is wanted now

  private:
    SheetThread::Outcome Run(std::function<std::string()> work, std::string& error);
    std::string Settle();
    void AwaitDialog();
    // Work on a program's window, on a thread of its own: a click may come back only when a dialog that it
    // opens is closed.
    std::string DoBeside(HWND front, std::function<std::string()> work);

    const Limits m_limits;
    Clock::time_point m_sheetEnd = Clock::time_point::max();
    std::shared_ptr<Task> m_blocked; // work that goes on behind a dialog
    std::vector<std::thread> m_busy; // with work on a program's windows
};

} // namespace driverhost
