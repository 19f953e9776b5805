// The meeting point of a thread that opens sheets and a thread that works on them. Work is carried out on the
// sheet's thread by a message in its queue, so that it comes after everything that stood there before, as a
// user's would.
#pragma once

// Brings the clocks along. <chrono> itself holds a literal that the execution character set lacks.
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include <windows.h>

namespace driverhost {

using Clock = std::chrono::steady_clock;

// A piece of work and how it ended.
struct Task {
    std::function<std::string()> work; // returns "" or why it failed
    bool started = false;
    bool done = false;
    std::string error;
};

class SheetThread {
  public:
    // Made and destroyed on the sheet's thread.
    SheetThread();
    ~SheetThread();
    SheetThread(const SheetThread&) = delete;
    SheetThread& operator=(const SheetThread&) = delete;

    // Calls `open`, which returns when its sheet is closed, and again as often as the other side wants it.
    // Returns when the other side has left.
    void Serve(const std::function<void()>& open);

    // The other side.

    enum class Outcome {
        Done,
        Blocked, // the work has opened a dialog and goes on when that is closed
        Closed,  // the sheet was closed before the work came to its end
        TimedOut,
    };
    Outcome Run(const std::shared_ptr<Task>& task, Clock::time_point limit);

    // Waits until there is a window to work on. False if there will be none or time is up.
    bool AwaitWindow(Clock::time_point limit);
    // Waits until the sheet is closed; false if time is up.
    bool AwaitClosed(Clock::time_point limit);
    bool IsClosed();

    // After the sheet was closed: wants it opened again, or nothing more.
    void Reopen();
    void Leave();

    DWORD Id() const { return m_id; }

  private:
    enum class State { Open, Closed, Wanted, Left };

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void CarryOut();

    DWORD m_id;
    HWND m_window = nullptr;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    State m_state = State::Wanted;
    std::deque<std::shared_ptr<Task>> m_tasks;
};

} // namespace driverhost
