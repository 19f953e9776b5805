#include "host/driverhost_sheet_thread.h"

#include "host/driverhost_windows.h"

#include <algorithm>
#include <exception>

namespace driverhost {
namespace {

constexpr wchar_t kClassName[] = L"ZrDriverhostSheetThread";
constexpr UINT kWorkMessage = WM_APP;

// No message tells another thread that a dialog has come up, so it is looked for: often at first, then less
// and less, since each look asks what the sheet's own thread asks too, and holds that up.
class Looks {
  public:
    Clock::duration UntilNext() const {
        constexpr Clock::duration kOften = std::chrono::milliseconds(5);
        constexpr Clock::duration kSeldom = std::chrono::milliseconds(25);
        return std::clamp((Clock::now() - m_begin) / 4, kOften, kSeldom);
    }

  private:
    const Clock::time_point m_begin = Clock::now();
};

} // namespace

SheetThread::SheetThread() : m_id(GetCurrentThreadId()) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClassName;
    RegisterClassW(&windowClass);
    m_window = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               windowClass.hInstance, nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

SheetThread::~SheetThread() {
    DestroyWindow(m_window);
}

LRESULT CALLBACK SheetThread::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kWorkMessage)
        return DefWindowProcW(window, message, wParam, lParam);
    reinterpret_cast<SheetThread*>(GetWindowLongPtrW(window, GWLP_USERDATA))->CarryOut();
    return 0;
}

void SheetThread::CarryOut() {
    std::shared_ptr<Task> task;
    {
        const std::lock_guard lock(m_mutex);
        if (m_tasks.empty())
            return;
        task = m_tasks.front();
        m_tasks.pop_front();
        task->started = true;
    }
    std::string error;
    try {
        error = task->work();
    } catch (const std::exception& exception) {
        error = exception.what();
    }
    const std::lock_guard lock(m_mutex);
    task->error = std::move(error);
    task->done = true;
    m_changed.notify_all();
}

void SheetThread::Serve(const std::function<void()>& open) {
    for (;;) {
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return m_state == State::Wanted || m_state == State::Left; });
            if (m_state == State::Left)
                return;
            m_state = State::Open;
        }
        open();
        const std::lock_guard lock(m_mutex);
        m_state = State::Closed;
        m_tasks.clear(); // what was meant for this sheet must not meet the next
        m_changed.notify_all();
    }
}

SheetThread::Outcome SheetThread::Run(const std::shared_ptr<Task>& task, Clock::time_point limit) {
    const HWND before = FindFront(m_id);
    std::unique_lock lock(m_mutex);
    if (m_state == State::Closed)
        return Outcome::Closed;
    m_tasks.push_back(task);
    PostMessageW(m_window, kWorkMessage, 0, 0);
    const Looks looks;
    for (;;) {
        if (task->done)
            return Outcome::Done;
        if (m_state == State::Closed)
            return Outcome::Closed;
        if (task->started) {
            const HWND front = FindFront(m_id);
            if (front && front != before)
                return Outcome::Blocked;
        }
        if (Clock::now() >= limit)
            return Outcome::TimedOut;
        m_changed.wait_for(lock, looks.UntilNext());
    }
}

bool SheetThread::AwaitWindow(Clock::time_point limit) {
    std::unique_lock lock(m_mutex);
    const Looks looks;
    while (!FindFront(m_id)) {
        if (m_state == State::Closed || Clock::now() >= limit)
            return false;
        m_changed.wait_for(lock, looks.UntilNext());
    }
    return true;
}

bool SheetThread::AwaitClosed(Clock::time_point limit) {
    std::unique_lock lock(m_mutex);
    const auto closed = [this] { return m_state == State::Closed; };
    if (limit == Clock::time_point::max()) {
        m_changed.wait(lock, closed);
        return true;
    }
    return m_changed.wait_until(lock, limit, closed);
}

bool SheetThread::IsClosed() {
    const std::lock_guard lock(m_mutex);
    return m_state == State::Closed;
}

void SheetThread::Reopen() {
    const std::lock_guard lock(m_mutex);
    m_state = State::Wanted;
    m_changed.notify_all();
}

void SheetThread::Leave() {
    const std::lock_guard lock(m_mutex);
    m_state = State::Left;
    m_changed.notify_all();
}

} // namespace driverhost
