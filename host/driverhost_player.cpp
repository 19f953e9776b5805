#include "host/driverhost_player.h"

#include "host/driverhost_controls.h"
#include "host/driverhost_programs.h"
#include "host/driverhost_sheet_thread.h"
#include "host/driverhost_store.h"
#include "host/driverhost_text.h"
#include "host/driverhost_windows.h"
#include "host/driverhost_work.h"
#include "host/screenshot.h"
#include "host/wide.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <future>
#include <thread>
#include <utility>

#include <prsht.h>

namespace driverhost {
namespace {

using script::Action;
using script::Quoted;
using script::Verb;
using Outcome = SheetThread::Outcome;

// How long a sheet that is told to cancel may take.
constexpr auto kCancelLimit = std::chrono::seconds(5);
// How long a picture waits for its window to be seen whole; a covered one never is.
constexpr auto kShowLimit = std::chrono::seconds(1);
// How long a sheet may be seen after its button: it goes when what stands on its thread's stack has come
// back, such as the click behind two dialogs of which the last has just ended.
constexpr auto kStayLimit = std::chrono::milliseconds(500);
constexpr auto kLookAgain = std::chrono::milliseconds(10);
// How long what a script does in another program or expects of it may take to come true: such a program acts
// in its own time.
constexpr auto kProgramLimit = std::chrono::seconds(2);

std::string Seconds(std::chrono::milliseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time).count();
    return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

// Tells whatever is in front to go away; messages are posted, since the thread may be stuck.
void PostCancel(HWND front) {
    if (IsSheet(front)) {
        PostMessageW(front, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
        return;
    }
    for (const WORD button : {IDCANCEL, IDNO, IDABORT, IDOK})
        if (GetDlgItem(front, button) || button == IDOK) {
            PostMessageW(front, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(front, button)));
            return;
        }
}

// True if the sheet is closed within the limit. Each dialog is told once.
bool CancelSheet(SheetThread& thread) {
    const auto limit = Clock::now() + kCancelLimit;
    HWND told = nullptr;
    while (Clock::now() < limit) {
        const HWND front = FindFront(thread.Id());
        if (front && front != told)
            PostCancel(front);
        told = front;
        if (thread.AwaitClosed(Clock::now() + kLookAgain))
            return true;
    }
    return thread.IsClosed();
}

// Works on the sheet from a thread of its own.
class Player {
  public:
    Player(SheetThread& thread, const Show& show)
        : m_thread(thread), m_show(show), m_folder(std::filesystem::current_path()) {
        StartLimit();
    }

    // What a program still had to do for the script is done when its windows are closed.
    ~Player() {
        for (std::thread& worker : m_busy)
            worker.join();
    }
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    std::string Play() {
        std::string error = AwaitSheet();
        int line = 0;
        for (auto action = m_show.actions->begin(); error.empty() && action != m_show.actions->end();
             ++action) {
            line = action->line;
            error = Perform(*action);
        }
        return error.empty() ? error : script::Describe(m_show.file, {line, error});
    }

    std::string AwaitPerson() { return m_thread.AwaitClosed(m_sheetEnd) ? "" : TooLong(); }

  private:
    void StartLimit() {
        m_sheetEnd = m_show.sheetLimit ? Clock::now() + *m_show.sheetLimit : Clock::time_point::max();
    }

    std::string TooLong() const { return "the sheet is open for longer than " + Seconds(*m_show.sheetLimit); }

    Clock::time_point Limit() const { return std::min(m_sheetEnd, Clock::now() + m_show.actionLimit); }

    std::string LateMessage() const {
        return Clock::now() >= m_sheetEnd ? TooLong()
                                          : "the sheet does not answer within " + Seconds(m_show.actionLimit);
    }

    std::string AwaitSheet() {
        // Installed modules may have to be loaded first, so the sheet's limit alone counts here.
        if (m_thread.AwaitWindow(m_sheetEnd))
            return Settle();
        return m_thread.IsClosed() ? "the sheet did not open" : TooLong();
    }

    HWND Front() const { return FindFront(m_thread.Id()); }

    // Runs the work and lets the sheet carry out what that has put into its queue.
    Outcome Run(std::function<std::string()> work, std::string& error) {
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
    std::string Settle() {
        if (const HWND front = Front(); front && IsProgram(front))
            return ""; // the sheet's thread deals with nothing before that program has ended
        std::string error;
        Run([] { return std::string(); }, error);
        if (error.empty() && m_blocked && m_blocked->done)
            error = std::exchange(m_blocked, nullptr)->error;
        return error;
    }

    // Work that needs an open sheet.
    std::string Do(std::function<std::string()> work) {
        std::string error;
        const Outcome outcome = Run(std::move(work), error);
        if (outcome == Outcome::Closed && error.empty())
            return m_closing ? "" : "the sheet is closed";
        return error.empty() ? Settle() : error;
    }

    // Work on a program's window, on a thread of its own: a click may come back only when a dialog that it
    // opens is closed.
    std::string DoBeside(HWND front, std::function<std::string()> work) {
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

    bool IsProgram(HWND front) const { return GetWindowThreadProcessId(front, nullptr) != m_thread.Id(); }

    // Nothing tells when a program has dealt with a key that was posted to it. A message that is sent to it
    // finds it looking for messages, and the key is the next that it takes; the last answer comes behind
    // that.
    static void LetAct(HWND program) {
        constexpr int kRounds = 3;
        constexpr UINT kAnswerLimit = 1000; // milliseconds
        for (int round = 0; round < kRounds; ++round) {
            SendMessageTimeoutW(program, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerLimit, nullptr);
            std::this_thread::sleep_for(kLookAgain);
        }
    }

    std::string DoOn(HWND front, std::function<std::string()> work) {
        return IsProgram(front) ? DoBeside(front, std::move(work)) : Do(std::move(work));
    }

    // A message box keeps a user from the sheet, so it keeps a script from it too.
    std::string WhyBarred(HWND front) {
        if (!front || !IsMessageBox(front))
            return "";
        const auto text = std::make_shared<std::string>();
        DoOn(front, [front, text] {
            *text = Utf8(MessageOf(front));
            return std::string();
        });
        return "a message box is up: " + Quoted(*text);
    }

    std::string OnFront(const Action& action) {
        return OnceTrue([&](HWND front) {
            if (!front)
                return std::string("the sheet is closed");
            if (std::string barred = WhyBarred(front); !barred.empty())
                return barred;
            return DoOn(front, [front, action] { return WorkOn(front, action); });
        });
    }

    // Does the work on what is in front. What fails has changed nothing, so that on a program's window it is
    // done again for a while: the program may still be at what the last action began, or be going.
    std::string OnceTrue(const std::function<std::string(HWND)>& work) {
        const auto limit = std::min(Limit(), Clock::now() + kProgramLimit);
        for (;;) {
            const HWND front = Front();
            const bool isProgram = front && IsProgram(front);
            std::string error = work(front);
            if (error.empty() || !isProgram || Clock::now() >= limit)
                return error;
            std::this_thread::sleep_for(kLookAgain);
        }
    }

    std::string OnSheet(std::function<std::string(HWND)> work) {
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        if (std::string barred = WhyBarred(front); !barred.empty())
            return barred;
        if (!IsSheet(front))
            return "a dialog is in front of the sheet";
        return Do([front, work = std::move(work)] { return work(front); });
    }

    std::string OnBox(std::function<std::string(HWND)> work) {
        return OnceTrue([&](HWND front) {
            return front ? DoOn(front, [front, work] { return work(front); }) : "no message box is up";
        });
    }

    std::string Press(const Action& action) {
        if (action.control == script::kApplyButton)
            return OnFront(action);
        const HWND front = Front();
        m_closing = true;
        std::string error = OnFront(action);
        m_closing = false;
        return error.empty() && IsSheet(front) ? AwaitGone(front) : error;
    }

    // A sheet that is going has left the screen, but its caller may need a while. Another dialog in front of
    // it is the next action's business.
    std::string AwaitGone(HWND sheet) {
        HWND front = Front();
        const auto limit = std::min(Limit(), Clock::now() + kStayLimit);
        while (front == sheet && Clock::now() < limit && !m_thread.AwaitClosed(Clock::now() + kLookAgain))
            front = Front();
        if (front == sheet)
            return "the sheet stays open";
        return front || m_thread.AwaitClosed(Limit()) ? "" : LateMessage();
    }

    std::string Reopen(const Action& action) {
        if (!m_thread.IsClosed()) {
            Action ok = action;
            ok.verb = Verb::Press;
            ok.control = script::kOkButton;
            if (std::string error = Press(ok); !error.empty())
                return error;
            if (!m_thread.IsClosed())
                return "a dialog is in front of the sheet";
        }
        StartLimit();
        m_thread.Reopen();
        return AwaitSheet();
    }

    // The window manager shows a window in its own time, and that takes messages of the sheet's thread.
    void AwaitOnScreen(HWND window) {
        const auto onScreen = std::make_shared<bool>(false);
        const auto limit = std::min(Limit(), Clock::now() + kShowLimit);
        while (!*onScreen && Clock::now() < limit && !m_thread.AwaitClosed(Clock::now() + kLookAgain)) {
            const std::string error = DoOn(window, [window, onScreen] {
                *onScreen = IsOnScreen(window);
                return std::string();
            });
            if (!error.empty())
                return;
        }
    }

    std::string Screenshot(const std::wstring& name) {
        // A dialog for files changes the folder of the process.
        const std::wstring file = (m_folder / name).wstring();
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        AwaitOnScreen(front);
        return DoOn(front, [front, file] { return WriteScreenshot(front, file); });
    }

    std::string Wait(std::uint32_t milliseconds) {
        const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
        m_thread.AwaitClosed(std::min(end, m_sheetEnd));
        return Clock::now() >= m_sheetEnd ? TooLong() : "";
    }

    std::string Print(const std::string& line) {
        if (m_show.print)
            m_show.print(line + "\n");
        return "";
    }

    // The store is asked between two messages of the sheet, or at rest.
    StoreAnswer Ask(std::function<StoreAnswer()> question) {
        if (m_thread.IsClosed())
            return question();
        const auto answer = std::make_shared<StoreAnswer>();
        const std::string error = Do([answer, question = std::move(question)] {
            *answer = question();
            return std::string();
        });
        return error.empty() ? *answer : StoreAnswer{"", error};
    }

    StoreAnswer AskFor(const Action& action) {
        if (action.verb == Verb::PrintBank || action.verb == Verb::ExpectBank)
            return Ask([action] { return BankValue(action.bank, action.keyword); });
        return Ask([action] { return NamedValue(action.text); });
    }

    static std::string PutNow(const Action& action) {
        if (action.verb == Verb::SetBank)
            return SetBankValue(action.bank, action.keyword, action.number);
        return action.verb == Verb::SetText ? SetNamedText(action.text, action.wanted)
                                            : SetNamedValue(action.text, action.number);
    }

    std::string Put(const Action& action) {
        return Ask([action] { return StoreAnswer{"", PutNow(action)}; }).error;
    }

    // A key may end the dialog that it is for.
    std::string OnKeys(std::function<std::string(HWND)> work) {
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        m_closing = true;
        std::string error = DoOn(front, [front, work = std::move(work)] { return work(front); });
        if (IsProgram(front))
            LetAct(front);
        m_closing = false;
        return error;
    }

    std::string EndProgram() {
        const HWND front = Front();
        return front && IsProgram(front) ? EndProgramOf(front) : "no other program is in front";
    }

    std::string ExpectRunning(const Action& action) {
        const auto limit = std::min(Limit(), Clock::now() + kProgramLimit);
        int count = CountRunning(Wide(action.text));
        for (; count != static_cast<int>(action.number) && Clock::now() < limit;
             count = CountRunning(Wide(action.text)))
            std::this_thread::sleep_for(kLookAgain);
        return Mismatch("the number of processes of " + action.text, std::to_string(count),
                        std::to_string(action.number));
    }

    std::string Perform(const Action& action) {
        switch (action.verb) {
        case Verb::Page:
            return OnSheet([title = Wide(action.text)](HWND sheet) { return GoToPage(sheet, title); });
        case Verb::ExpectPage:
            return OnSheet([wanted = action.text](HWND sheet) {
                return Mismatch("the page", Quoted(Utf8(CurrentPage(sheet))), Quoted(wanted));
            });
        case Verb::Press: return Press(action);
        case Verb::Reopen: return Reopen(action);
        case Verb::EndProgram: return EndProgram();
        case Verb::ExpectRunning: return ExpectRunning(action);
        case Verb::Answer: return OnBox([button = action.control](HWND box) { return Answer(box, button); });
        case Verb::ExpectMessage:
            return OnBox([wanted = action.text](HWND box) { return ExpectMessage(box, wanted); });
        case Verb::Screenshot: return Screenshot(Wide(action.text));
        case Verb::Wait: return Wait(action.number);
        case Verb::PrintText: return Print(action.text);
        case Verb::PrintBank:
        case Verb::PrintValue: {
            const StoreAnswer answer = AskFor(action);
            return answer.error.empty() ? Print(answer.value) : answer.error;
        }
        case Verb::SetBank:
        case Verb::SetValue:
        case Verb::SetText: return Put(action);
        case Verb::Key: return OnKeys([key = action.number](HWND front) { return PressKey(front, key); });
        case Verb::ExpectBank:
        case Verb::ExpectValue: {
            const StoreAnswer answer = AskFor(action);
            const bool bank = action.verb == Verb::ExpectBank;
            if (!answer.error.empty())
                return answer.error;
            return Mismatch("the value", Quoted(answer.value),
                            Quoted(bank ? std::to_string(action.number) : action.wanted));
        }
        default: return OnFront(action);
        }
    }

    SheetThread& m_thread;
    const Show& m_show;
    const std::filesystem::path m_folder; // of the process when the script began
    Clock::time_point m_sheetEnd = Clock::time_point::max();
    std::shared_ptr<Task> m_blocked; // work that goes on behind a dialog
    std::vector<std::thread> m_busy; // with work on a program's windows
    bool m_closing = false;          // a closed sheet is what is wanted now
};

// Ends the process where the sheet's thread does not come back: its stack can't be unwound from here.
[[noreturn]] void GiveUp(const std::string& error) {
    PrintError("driverhost: " + error + "\ndriverhost: the sheet can't be cancelled\n");
    TerminateProcess(GetCurrentProcess(), 1);
    std::abort();
}

} // namespace

std::string RunSheet(const Show& show) {
    SheetThread thread;
    std::string error;
    std::thread other([&] {
        Player player(thread, show);
        error = show.actions ? player.Play() : player.AwaitPerson();
        if (!thread.IsClosed() && !CancelSheet(thread))
            GiveUp(error.empty() ? "the script is at its end" : error);
        thread.Leave();
    });
    std::string failure;
    thread.Serve([&] {
        try {
            show.open();
        } catch (const std::exception& exception) {
            failure = exception.what();
        }
    });
    other.join();
    return failure.empty() ? error : failure;
}

} // namespace driverhost
