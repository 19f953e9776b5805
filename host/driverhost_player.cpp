#include "host/driverhost_player.h"

#include "host/driverhost_controls.h"
#include "host/driverhost_programs.h"
#include "host/driverhost_sheet_work.h"
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
#include <thread>
#include <utility>

#include <prsht.h>

namespace driverhost {
namespace {

using script::Action;
using script::Quoted;
using script::Verb;

// How long a sheet that is told to cancel may take.
constexpr auto kCancelLimit = std::chrono::seconds(5);
// How long a sheet may be seen after its button: it goes when what stands on its thread's stack has come
// back, such as the click behind two dialogs of which the last has just ended.
constexpr auto kStayLimit = std::chrono::milliseconds(500);

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
class Player : private SheetWork {
  public:
    Player(SheetThread& thread, const Show& show)
        : SheetWork(thread, {show.sheetLimit, show.actionLimit}), m_show(show),
          m_folder(std::filesystem::current_path()) {}

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

    std::string AwaitPerson() { return m_thread.AwaitClosed(SheetEnd()) ? "" : TooLong(); }

  private:
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

    std::string OnFront(const Action& action) {
        return OnceTrue([&](HWND front) -> Attempt {
            if (!front)
                return {"the sheet is closed", false};
            const bool isProgram = IsProgram(front);
            if (std::string barred = WhyBarred(front); !barred.empty())
                return {barred, isProgram};
            return Try(front, isProgram || action.verb == Verb::ExpectFocus,
                       [front, action] { return WorkOn(front, action); });
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
        m_thread.AwaitClosed(std::min(end, SheetEnd()));
        return Clock::now() >= SheetEnd() ? TooLong() : "";
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

    // A key may end the dialog that it is for. It waits for that dialog to have the focus, and goes to no
    // other.
    std::string OnKeys(std::uint32_t key) {
        const HWND front = Front();
        if (!front)
            return "the sheet is closed";
        m_closing = true;
        std::string error = OnceTrue(
            [&](HWND) { return Try(front, IsWindow(front), [front, key] { return PressKey(front, key); }); });
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
        const auto limit = std::min(Limit(), Clock::now() + kLateLimit);
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
        case Verb::Key: return OnKeys(action.number);
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

    const Show& m_show;
    const std::filesystem::path m_folder; // of the process when the script began
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
