#include "host/driverhost_player.h"

#include "host/driverhost_controls.h"
#include "host/driverhost_sheet_thread.h"
#include "host/driverhost_store.h"
#include "host/driverhost_text.h"
#include "host/driverhost_windows.h"
#include "host/screenshot.h"
#include "host/wide.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
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

std::string Seconds(std::chrono::milliseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time).count();
    return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

// What stands in a message box.
std::wstring MessageOf(HWND box) {
    return ShownText(GetDlgItem(box, kMessageText));
}

std::string Mismatch(const std::string& what, const std::string& found, const std::string& wanted) {
    return found == wanted ? "" : what + " is " + found + ", expected " + wanted;
}

std::string Shown(bool on, std::string_view yes, std::string_view no) {
    return std::string(on ? yes : no);
}

// One control action or expectation, on the sheet's thread.
std::string WorkOn(HWND front, const Action& action) {
    const HWND control = FindControl(front, action.control);
    const std::string name = "control " + std::to_string(action.control);
    if (!control)
        return "there is no " + name;
    const auto about = [&](std::string error) { return error.empty() ? error : name + ": " + error; };
    switch (action.verb) {
    case Verb::Choose:
        return about(action.row ? ChooseRow(control, *action.row) : ChooseText(control, Wide(action.text)));
    case Verb::Press:
    case Verb::Click: return about(Click(control));
    case Verb::Check: return about(Check(control, action.number != 0));
    case Verb::Type: return about(TypeText(control, Wide(action.text)));
    case Verb::ExpectRow:
        if (!IsCombo(control))
            return about("the control is no combo box");
        return Mismatch("the row of " + name, std::to_string(SelectedRow(control)),
                        std::to_string(*action.row));
    case Verb::ExpectText:
        return Mismatch("the text of " + name, Quoted(Utf8(ShownText(control))), Quoted(action.text));
    case Verb::ExpectEnabled:
    case Verb::ExpectDisabled:
        return Mismatch(name, Shown(IsWindowEnabled(control), "enabled", "disabled"),
                        Shown(action.verb == Verb::ExpectEnabled, "enabled", "disabled"));
    case Verb::ExpectVisible:
    case Verb::ExpectHidden:
        return Mismatch(name, Shown(IsWindowVisible(control), "visible", "hidden"),
                        Shown(action.verb == Verb::ExpectVisible, "visible", "hidden"));
    case Verb::ExpectChecked:
        return Mismatch(name, Shown(IsChecked(control), "on", "off"), Shown(action.number != 0, "on", "off"));
    default: return "no action on a control";
    }
}

std::string ExpectMessage(HWND front, const std::string& wanted) {
    if (!IsMessageBox(front))
        return "no message box is up, expected " + Quoted(wanted);
    return Mismatch("the message", Quoted(Utf8(MessageOf(front))), Quoted(wanted));
}

std::string Answer(HWND front, int button) {
    if (!IsMessageBox(front))
        return "no message box is up";
    const HWND control = GetDlgItem(front, button);
    return control ? Click(control) : "the message box has no such button";
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
    Player(SheetThread& thread, const Show& show) : m_thread(thread), m_show(show) { StartLimit(); }

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

    // A message box keeps a user from the sheet, so it keeps a script from it too.
    std::string WhyBarred(HWND front) {
        if (!front || !IsMessageBox(front))
            return "";
        const auto text = std::make_shared<std::string>();
        Do([front, text] {
            *text = Utf8(MessageOf(front));
            return std::string();
        });
        return "a message box is up: " + Quoted(*text);
    }

    std::string OnFront(const Action& action) {
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        if (std::string barred = WhyBarred(front); !barred.empty())
            return barred;
        return Do([front, action] { return WorkOn(front, action); });
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
        const HWND front = Front();
        return front ? Do([front, work = std::move(work)] { return work(front); }) : "no message box is up";
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
            const std::string error = Do([window, onScreen] {
                *onScreen = IsOnScreen(window);
                return std::string();
            });
            if (!error.empty())
                return;
        }
    }

    std::string Screenshot(const std::wstring& file) {
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        AwaitOnScreen(front);
        return Do([front, file] { return WriteScreenshot(front, file); });
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

    std::string Put(const Action& action) {
        return Ask([action] {
                   return StoreAnswer{"", action.verb == Verb::SetBank
                                              ? SetBankValue(action.bank, action.keyword, action.number)
                                              : SetNamedValue(action.text, action.number)};
               })
            .error;
    }

    // A key may end the dialog that it is for.
    std::string OnKeys(std::function<std::string(HWND)> work) {
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        m_closing = true;
        std::string error = Do([front, work = std::move(work)] { return work(front); });
        m_closing = false;
        return error;
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
        case Verb::SetValue: return Put(action);
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
    Clock::time_point m_sheetEnd = Clock::time_point::max();
    std::shared_ptr<Task> m_blocked; // work that goes on behind a dialog
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
