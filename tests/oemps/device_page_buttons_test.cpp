// What the buttons of the page of the printer's own sheet open.
#include "companions/authentication/authentication_resource.h"
#include "tests/oemps/device_page_fixture.h"
#include "tests/pages/dialog_windows.h"

#include <array>
#include <functional>
#include <new>
#include <utility>

#include <prsht.h>

namespace {

void Send(std::array<INPUT, 2> inputs) {
    ASSERT_EQ(SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof inputs[0]), inputs.size());
}

void ClickAt(HWND control) {
    RECT place;
    GetWindowRect(control, &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    std::array<INPUT, 2> inputs{};
    for (INPUT& input : inputs)
        input.type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    Send(inputs);
}

void TypeSpace() {
    std::array<INPUT, 2> inputs{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = VK_SPACE;
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    Send(inputs);
}

// Handles what the user does until nothing has come for a while.
void DispatchWaiting() {
    constexpr DWORD kQuiet = 300;
    while (MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuiet, QS_ALLINPUT) == WAIT_OBJECT_0) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

TEST_F(DevicePage, OpensTheAuthenticationManagerForThePrintersUser) {
    OpenPage();
    Press(kAuthentication, {[](HWND dialog) {
                                EXPECT_EQ(TextOf(dialog), "認証設定");
                                EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDC_MODE_ON)));
                                ClickButton(dialog, IDC_MODE_ON);
                                ClickButton(dialog, IDC_OWNER_SPECIFIED);
                                TypeInto(dialog, IDC_USER_ID, "yamada");
                            },
                            Ok});
    std::array<BYTE, 16> method{};
    DWORD type = REG_NONE;
    DWORD size = 0;
    EXPECT_EQ(GetPrinterDataExA(printer.Handle(), "PrinterDriverData", "ManageMethod", &type, method.data(),
                                method.size(), &size),
              static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(method[0], 1);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kKey.c_str(), 0, KEY_READ, &key), ERROR_SUCCESS);
    DWORD values = 0;
    RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr,
                     nullptr, nullptr);
    RegCloseKey(key);
    EXPECT_EQ(values, 4u);
}

TEST_F(DevicePage, OpensTheAuthenticationManagerWithThePermissionOfTheSheet) {
    g_Permission = 0;
    OpenPage();
    Press(kAuthentication, {[](HWND dialog) {
                                EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_MODE_ON)));
                                EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_MODE_OFF)));
                            },
                            Cancel});
}

TEST_F(DevicePage, LogsTheDriveOfTheCurrentDirectoryBeforeItOpensADialog) {
    std::array<char, MAX_PATH> before{};
    GetCurrentDirectoryA(static_cast<DWORD>(before.size()), before.data());
    SetCurrentDirectoryA("C:\\windows");
    OpenPage();
    for (const int button : {kAuthentication, kCommunication}) {
        log->Forget();
        Press(button, {[](HWND dialog) {
                  EXPECT_TRUE(log->HasLogged("drive=3"));
                  Cancel(dialog);
              }});
    }
    SetCurrentDirectoryA(before.data());
}

TEST_F(DevicePage, OpensTheCommunicationSettingAboveTheSheet) {
    OpenPage();
    Press(kCommunication, {[this](HWND dialog) {
              EXPECT_EQ(TextOf(dialog), "プリントサーバーとの通信設定");
              EXPECT_EQ(GetWindow(dialog, GW_OWNER), Sheet());
              Cancel(dialog);
          }});
}

TEST_F(DevicePage, TakesOverTheModeThatTheCommunicationSettingTurnsOn) {
    OpenPage(0);
    TurnModeInTheDialog();
    EXPECT_EQ(Stored(), 1u);
    EXPECT_TRUE(IsModeOn());
    EXPECT_FALSE(CanRunJobProperties());
}

TEST_F(DevicePage, TakesOverTheModeThatTheCommunicationSettingTurnsOff) {
    OpenPage(1);
    TurnModeInTheDialog();
    EXPECT_EQ(Stored(), 0u);
    EXPECT_FALSE(IsModeOn());
    EXPECT_TRUE(CanRunJobProperties());
}

// The page's own check would be the one from before.
TEST_F(DevicePage, AppliesWhatTheCommunicationSettingStored) {
    OpenPage(0);
    TurnModeInTheDialog();
    Notify(page, PSN_APPLY);
    EXPECT_EQ(Stored(), 1u);
    TurnModeInTheDialog();
    Notify(page, PSN_APPLY);
    EXPECT_EQ(Stored(), 0u);
}

TEST_F(DevicePage, KeepsItsModeWhereTheCommunicationSettingIsCancelled) {
    OpenPage(1);
    Press(kCommunication, {[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Cancel});
    EXPECT_EQ(Stored(), 1u);
    EXPECT_TRUE(IsModeOn());
    EXPECT_FALSE(CanRunJobProperties());
}

TEST_F(DevicePage, LeavesTheStoreAloneWhereTheCommunicationSettingIsCancelled) {
    OpenPage(1);
    Press(kCommunication, {[this](HWND dialog) {
              Store(2);
              Cancel(dialog);
          }});
    EXPECT_EQ(Stored(), 2u);
}

TEST_F(DevicePage, KeepsAModeThatIsNotAppliedWhereTheCommunicationSettingIsCancelled) {
    OpenPage(0);
    ClickMode();
    Press(kCommunication, {Cancel});
    EXPECT_TRUE(IsModeOn());
    EXPECT_FALSE(CanRunJobProperties());
    EXPECT_EQ(Stored(), 0u);
}

TEST_F(DevicePage, OnlyShowsTheModeThatTheCommunicationSettingLeftInTheStore) {
    OpenPage(0);
    Press(kCommunication, {[this](HWND dialog) {
              SetDlgItemTextA(dialog, IDC_ADDRESS, "10.0.0.1");
              Store(2);
              Ok(dialog);
          }});
    EXPECT_TRUE(IsModeOn());
    EXPECT_FALSE(CanRunJobProperties());
    EXPECT_EQ(Stored(), 2u);
}

TEST_F(DevicePage, LeavesThePrinterAloneOnceItHasGoneBehindItsDialog) {
    for (const bool goesWithTheSheet : {false, true}) {
        OpenPage(1);
        const HWND gone = goesWithTheSheet ? Sheet() : page;
        const ModalDialog user({[&](HWND dialog) {
            Store(2);
            if (!goesWithTheSheet)
                EndDialog(dialog, IDCANCEL);
            DestroyWindow(gone);
        }});
        DevicePropPageProc(page, WM_COMMAND, MAKEWPARAM(kCommunication, BN_CLICKED), 0);
        EXPECT_FALSE(IsWindow(page));
        EXPECT_EQ(Stored(), 2u);
    }
}

TEST_F(DevicePage, RunsTheJobPropertyApplicationWithItsButtonDisabled) {
    OpenPage(0);
    std::vector<bool> enabled;
    runner.onStart = [&] { enabled.push_back(CanRunJobProperties()); };
    runner.onWait = [&] { enabled.push_back(CanRunJobProperties()); };
    ClickButton(page, kJobProperties);
    EXPECT_EQ(enabled, (std::vector{false, false}));
    EXPECT_TRUE(CanRunJobProperties());
    ASSERT_EQ(runner.CommandLines().size(), 1u);
    EXPECT_NE(runner.CommandLines()[0].find("PrinterDriverApplication.exe -file dummyID dummyRegKey"),
              std::string::npos);
}

TEST_F(DevicePage, EnablesTheButtonOfTheJobPropertyApplicationThatDoesNotStart) {
    OpenPage(0);
    runner.startError = ERROR_FILE_NOT_FOUND;
    ClickButton(page, kJobProperties);
    EXPECT_EQ(runner.CommandLines().size(), 1u);
    EXPECT_TRUE(CanRunJobProperties());
}

TEST_F(DevicePage, EnablesTheButtonOfTheJobPropertyApplicationAfterAFailureInBetween) {
    OpenPage(0);
    SetFocus(Control(kJobProperties));
    runner.onStart = [] { throw std::bad_alloc(); };
    SendMessageA(Control(kJobProperties), BM_CLICK, 0, 0);
    EXPECT_TRUE(CanRunJobProperties());
    EXPECT_EQ(NameOf(GetFocus()), NameOf(Control(kJobProperties)));
}

TEST_F(DevicePage, StartsTheJobPropertyApplicationOnceForClicksAndKeysWhileItRuns) {
    const std::function<void()> kInputs[] = {[this] { ClickAt(Control(kJobProperties)); },
                                             [] { TypeSpace(); }};
    for (const auto& input : kInputs) {
        OpenPage(0);
        SetForegroundWindow(Sheet());
        SetFocus(Control(kJobProperties));
        runner.calls.clear();
        bool isFirst = true;
        runner.onWait = [&] {
            if (std::exchange(isFirst, false))
                input();
        };
        SendMessageA(Control(kJobProperties), BM_CLICK, 0, 0);
        DispatchWaiting();
        EXPECT_EQ(runner.CommandLines().size(), 1u);
        // The same input comes through where nothing blocks the thread.
        runner.onWait = nullptr;
        input();
        DispatchWaiting();
        EXPECT_EQ(runner.CommandLines().size(), 2u);
    }
}

TEST_F(DevicePage, LeavesTheEndOfTheThreadsLoopInItsQueue) {
    OpenPage(0);
    runner.onWait = [] { PostQuitMessage(7); };
    ClickButton(page, kJobProperties);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(DevicePage, GivesTheFocusBackToTheButtonOfTheJobPropertyApplication) {
    OpenPage(0);
    SetFocus(Control(kJobProperties));
    ASSERT_EQ(GetFocus(), Control(kJobProperties));
    SendMessageA(Control(kJobProperties), BM_CLICK, 0, 0);
    EXPECT_EQ(NameOf(GetFocus()), NameOf(Control(kJobProperties)));
}

} // namespace
