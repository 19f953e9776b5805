// The standard page with everything fitted, worked as a user works it.
#pragma once

#include "tests/pages/page_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/message_box.h"

#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

using CurrentBank = std::vector<std::uint32_t>;

// A setting and a value of it.
struct Setting {
    int keyword;
    std::uint32_t value;
};
using Settings = std::vector<Setting>;

class StandardPageDriver : public PageTest {
  protected:
    static void SetUpTestSuite();

    // Opens the page with these settings current; all others are 0.
    HWND OpenWith(const Settings& current = {}, const Settings& defaults = {});

    HWND Control(int id) const { return GetDlgItem(page, id); }
    int Row(int id) const;
    int RowCount(int id) const;
    bool IsChecked(int id) const { return IsDlgButtonChecked(page, id) == BST_CHECKED; }
    bool IsShown(int id) const { return (GetWindowLongA(Control(id), GWL_STYLE) & WS_VISIBLE) != 0; }

    LRESULT Send(int id, int notifyCode) { return Command(page, id, notifyCode); }
    // Selects the row and has the control tell of it.
    LRESULT Choose(int id, int row);
    // Checks or clears the box or button and has it tell of its click.
    LRESULT Click(int id, bool isChecked);
    // Choose, with the one message box that comes of it answered.
    MessageBoxSeen ChooseAndAnswer(int id, int row, int button);

    static void SetCurrent(const Settings& settings);
    static void SetDefaults(const Settings& settings);
    static CurrentBank WholeBank();
    // "keyword=value" for each, as the Current bank has them.
    static std::string ValuesOf(const Settings& settings);
    static std::string Text(const Settings& settings);

    // The commands that wait for the page: control id and notification, in order. They are taken out.
    struct Posted {
        int controlId;
        int notifyCode;
        HWND control;
        bool operator==(const Posted&) const = default;
    };
    std::vector<Posted> TakePosted();

    HWND page = nullptr;
};

// With the main log on, which tells what has run.
class LoggedStandardPage : public StandardPageDriver {
  protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // The functions that have logged since the page was opened or ForgetCalls, as far as they are among
    // these, in order.
    static std::vector<std::string> CallsAmong(const std::vector<std::string>& functions);
    static void ForgetCalls() { log->Forget(); }
    static bool HasLogged(const std::string& ending);

    HWND OpenWith(const Settings& current = {}, const Settings& defaults = {});

  private:
    static std::unique_ptr<MainLog> log;
};

// Waits up to ten seconds for a dialog with this control and ends it with its close box; false if none came.
// `look` runs first, on another thread.
std::future<bool> CloseNextDialog(int controlId, std::function<void(HWND)> look = {});
