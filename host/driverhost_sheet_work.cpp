#include "host/driverhost_sheet_work.h"

#include "host/driverhost_windows.h"
#include "host/driverhost_work.h"
#include "host/script.h"
#include "host/wide.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <utility>

namespace driverhost {
namespace {

using script::Quoted;
using Outcome = SheetThread::Outcome;

std::string Seconds(std::chrono::milliseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time).count();
    return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

} // namespace

SheetWork::SheetWork(SheetThread& thread, const Limits& limits) : m_thread(thread), m_limits(limits) {
    StartLimit();
}

SheetWork::~SheetWork() {
    for (std::thread& worker : m_busy)
        worker.join();
}

void SheetWork::StartLimit() {
    m_sheetEnd = m_limits.sheet ? Clock::now() + *m_limits.sheet : Clock::time_point::max();
}

std::string SheetWork::TooLong() const {
    return "the sheet is open for longer than " + Seconds(*m_limits.sheet);
}

Clock::time_point SheetWork::Limit() const {
    return std::min(m_sheetEnd, Clock::now() + m_limits.action);
}

std::string SheetWork::LateMessage() const {
    return Clock::now() >= m_sheetEnd ? TooLong()
                                      : "the sheet does not answer within " + Seconds(m_limits.action);
}

std::string SheetWork::AwaitSheet() {
    // Installed modules may have to be loaded first, so the sheet's limit alone counts here.
    if (m_thread.AwaitWindow(m_sheetEnd))
        return Settle();
    return m_thread.IsClosed() ? "the sheet did not open" : TooLong();
}

HWND SheetWork::Front() const {
    return FindFront(m_thread.Id());
}

// Runs the work and lets the sheet carry out what that has put into its queue.
SheetThread::Outcome SheetWork::Run(std::function<std::string()> work, std::string& error) {
    const auto task = std::make_shared<Task>(Task{std::move(work), false, false, ""});
    Outcome outcome = m_thread.Run(task, Limit());
    if (outcome == Outcome::Blocked)
        m_blocked = task;
    if (outcome == Outcome::Done)
        error = task->error;
    if (outcome == Outcome::TimedOut)
        error = LateMessage();
    return outcome;
}

// Empty work comes to its turn when all before it in the queue has been dealt with, or waits for a
// dialog.
std::string SheetWork::Settle() {
    if (const HWND front = Front(); front && IsProgram(front))
        return ""; // the sheet's thread deals with nothing before that program has ended
    std::string error;
    Run([] { return std::string(); }, error);
    AwaitDialog();
    if (error.empty() && m_blocked && m_blocked->done)
        error = std::exchange(m_blocked, nullptr)->error;
    return error;
}

// A dialog disables what is below it when it is made, and is shown when its thread has nothing else to
// do.
void SheetWork::AwaitDialog() {
    const auto limit = Limit();
    for (HWND front = Front(); front && !IsWindowEnabled(front) && Clock::now() < limit; front = Front())
        std::this_thread::sleep_for(kLookAgain);
}

std::string SheetWork::Do(std::function<std::string()> work) {
    std::string error;
    const Outcome outcome = Run(std::move(work), error);
    if (outcome == Outcome::Closed && error.empty())
        return m_closing ? "" : "the sheet is closed";
    return error.empty() ? Settle() : error;
}

std::string SheetWork::DoBeside(HWND front, std::function<std::string()> work) {
    std::packaged_task<std::string()> task(std::move(work));
    std::future<std::string> result = task.get_future();
    std::thread worker(std::move(task));
    const auto limit = Limit();
    while (result.wait_for(kLookAgain) != std::future_status::ready) {
        const HWND now = Front();
        const bool isElsewhere = now && now != front;
        if (!isElsewhere && Clock::now() < limit)
            continue;
        m_busy.push_back(std::move(worker));
        return isElsewhere ? "" : LateMessage();
    }
    worker.join();
    return result.get();
}

bool SheetWork::IsProgram(HWND front) const {
    return GetWindowThreadProcessId(front, nullptr) != m_thread.Id();
}

std::string SheetWork::DoOn(HWND front, std::function<std::string()> work) {
    return IsProgram(front) ? DoBeside(front, std::move(work)) : Do(std::move(work));
}

std::string SheetWork::WhyBarred(HWND front) {
    if (!front || !IsMessageBox(front))
        return "";
    const auto text = std::make_shared<std::string>();
    DoOn(front, [front, text] {
        *text = Utf8(MessageOf(front));
        return std::string();
    });
    return "a message box is up: " + Quoted(*text);
}

std::string SheetWork::OnceTrue(const std::function<Attempt(HWND)>& attempt) {
    const auto limit = std::min(Limit(), Clock::now() + kLateLimit);
    for (;;) {
        const auto [error, mayComeTrue] = attempt(Front());
        if (error.empty() || !mayComeTrue || Clock::now() >= limit)
            return error;
        std::this_thread::sleep_for(kLookAgain);
    }
}

SheetWork::Attempt SheetWork::Try(HWND front, bool mayComeTrue, std::function<std::string()> work) {
    const auto hasFailed = std::make_shared<std::atomic<bool>>(false);
    std::string error = DoOn(front, [work = std::move(work), hasFailed] {
        std::string failure = work();
        *hasFailed = !failure.empty();
        return failure;
    });
    return {std::move(error), mayComeTrue && *hasFailed};
}

std::string SheetWork::OnSheet(std::function<std::string(HWND)> work) {
    const HWND front = Front();
    if (!front)
        return "the sheet is closed";
    if (std::string barred = WhyBarred(front); !barred.empty())
        return barred;
    if (!IsSheet(front))
        return "a dialog is in front of the sheet";
    return Do([front, work = std::move(work)] { return work(front); });
}

std::string SheetWork::OnBox(std::function<std::string(HWND)> work) {
    return OnceTrue([&](HWND front) -> Attempt {
        if (!front)
            return {"no message box is up", false};
        return Try(front, IsProgram(front), [front, work] { return work(front); });
    });
}

} // namespace driverhost
