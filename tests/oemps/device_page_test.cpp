// The page of the printer's own sheet: its controls, its mode and its messages.
#include "tests/oemps/device_page_fixture.h"
#include "tests/pages/dialog_windows.h"

#include <iterator>
#include <utility>

#include <commctrl.h>
#include <prsht.h>

namespace {

struct ControlRow {
    int id;
    const char* text;
    const char* className;
    LONG_PTR kind; // of a button
};

constexpr ControlRow kRows[] = {
    {1109, "認証管理", WC_BUTTONA, BS_GROUPBOX},
    {1403, "プリンターにアクセスするアカウントを設定します。", WC_STATICA, 0},
    {1376, "認証設定", WC_BUTTONA, BS_PUSHBUTTON},
    {1410, "プリントサーバーとの通信", WC_BUTTONA, BS_GROUPBOX},
    {1411, "プリントサーバーとの通信方法を設定します。", WC_STATICA, 0},
    {1398, "プリントサーバーとの通信設定", WC_BUTTONA, BS_PUSHBUTTON},
    {1399, "情報の取得", WC_BUTTONA, BS_PUSHBUTTON},
    {1243, "V1.6.6以前のプリンターに接続する", WC_BUTTONA, BS_AUTOCHECKBOX},
};

TEST_F(DevicePage, HasEachControlWithItsText) {
    // The texts are the page's and not those of the template, which a satellite may have in another language.
    page = CreateDialogParamA(
        nullptr, MAKEINTRESOURCEA(kPage), Sheet(),
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    for (const ControlRow& row : kRows)
        SetDlgItemTextA(page, row.id, "?");
    EXPECT_EQ(DevicePropPageProc(page, WM_INITDIALOG, 0, 0), 1);
    for (const auto& [id, text, className, kind] : kRows) {
        EXPECT_EQ(TextOf(Control(id)), text) << id;
        EXPECT_TRUE(IsOfClass(Control(id), className)) << id;
        if (IsOfClass(Control(id), WC_BUTTONA)) {
            EXPECT_EQ(GetWindowLongPtrA(Control(id), GWL_STYLE) & BS_TYPEMASK, kind) << id;
        }
    }
    EXPECT_EQ(ControlsOf(page).size(), std::size(kRows));
}

TEST_F(DevicePage, HasItsTextsInTheTemplateToo) {
    page = CreateDialogParamA(
        nullptr, MAKEINTRESOURCEA(kPage), Sheet(),
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    for (const ControlRow& row : kRows)
        EXPECT_EQ(TextOf(Control(row.id)), row.text) << row.id;
    EXPECT_EQ(TextOf(page), "初期設定");
}

TEST_F(DevicePage, GivesTheFocusInTheOrderOfItsButtons) {
    OpenPage();
    EXPECT_EQ(NameOf(GetNextDlgTabItem(page, Control(kAuthentication), FALSE)),
              NameOf(Control(kCommunication)));
    EXPECT_EQ(NameOf(GetNextDlgTabItem(page, Control(kCommunication), FALSE)),
              NameOf(Control(kJobProperties)));
    EXPECT_EQ(NameOf(GetNextDlgTabItem(page, Control(kJobProperties), FALSE)),
              NameOf(Control(kAuthentication)));
}

TEST_F(DevicePage, HidesTheCommunicationMode) {
    OpenPage();
    for (const ControlRow& row : kRows)
        EXPECT_EQ(IsShown(Control(row.id)), row.id != kMode) << row.id;
}

TEST_F(DevicePage, StartsWithAModeThatIsOff) {
    for (const std::optional<DWORD> mode : {std::optional<DWORD>(), std::optional<DWORD>(0)}) {
        OpenPage(mode);
        EXPECT_FALSE(IsModeOn());
        EXPECT_TRUE(CanRunJobProperties());
        EXPECT_EQ(Stored(), 0u);
    }
}

TEST_F(DevicePage, TakesEachModeOtherThan0ForOnAndStores1) {
    for (const DWORD mode : {1u, 2u, 0x80000000u, 0xFFFFFFFFu}) {
        OpenPage(mode);
        EXPECT_TRUE(IsModeOn()) << mode;
        EXPECT_FALSE(CanRunJobProperties()) << mode;
        EXPECT_EQ(Stored(), 1u) << mode;
    }
}

TEST_F(DevicePage, TakesAModeOfAnotherTypeForOff) {
    printer.Put(L"CommunicationMode", REG_SZ, L"1", 4);
    OpenPage();
    EXPECT_FALSE(IsModeOn());
    EXPECT_EQ(Stored(), 0u);
}

TEST_F(DevicePage, OpensWithoutAPrinter) {
    g_hPrinter = nullptr;
    OpenPage();
    EXPECT_FALSE(IsModeOn());
    EXPECT_TRUE(CanRunJobProperties());
}

TEST_F(DevicePage, TurnsTheModeAndTellsTheSheetOfTheChange) {
    OpenPage();
    ForgetChanges();
    ClickMode();
    EXPECT_TRUE(IsModeOn());
    EXPECT_FALSE(CanRunJobProperties());
    EXPECT_EQ(ChangesSeen(), 1);
    EXPECT_EQ(ChangedPage(), page);
    EXPECT_EQ(Stored(), 0u) << "what is not applied";
    ClickMode();
    EXPECT_FALSE(IsModeOn());
    EXPECT_TRUE(CanRunJobProperties());
    EXPECT_EQ(ChangesSeen(), 2);
}

TEST_F(DevicePage, SetsTheCheckThatTheCommunicationMethodReads) {
    OpenPage();
    for (const auto& [check, isOn] : {std::pair<WPARAM, bool>{BST_CHECKED, true}, {BST_UNCHECKED, false}}) {
        SendMessageA(Control(kMode), BM_SETCHECK, check, 0);
        ForgetChanges();
        CommunicationMethod(page);
        EXPECT_EQ(IsModeOn(), isOn);
        EXPECT_EQ(CanRunJobProperties(), !isOn);
        EXPECT_EQ(ChangesSeen(), 1);
    }
}

TEST_F(DevicePage, AnswersACommandOfEachOfItsControls) {
    OpenPage();
    EXPECT_EQ(Command(page, kMode, BN_CLICKED), 1);
    EXPECT_EQ(Command(page, kJobProperties, BN_CLICKED), 1);
    for (const int button : {kAuthentication, kCommunication}) {
        const ModalDialog user({Cancel});
        EXPECT_EQ(Command(page, button, BN_CLICKED), 1);
    }
}

TEST_F(DevicePage, StoresTheModeWhenItIsApplied) {
    OpenPage(0);
    ClickMode();
    EXPECT_EQ(Notify(page, PSN_APPLY), 0);
    EXPECT_EQ(Stored(), 1u);
    ClickMode();
    EXPECT_EQ(Notify(page, PSN_APPLY), 0);
    EXPECT_EQ(Stored(), 0u);
}

TEST_F(DevicePage, OnlyLogsTheOtherNotificationsOfTheSheet) {
    constexpr struct {
        UINT code;
        const char* name;
    } kNotifications[] = {{static_cast<UINT>(PSN_SETACTIVE), "PSN_SETACTIVE"},
                          {static_cast<UINT>(PSN_KILLACTIVE), "PSN_KILLACTIVE"},
                          {static_cast<UINT>(PSN_RESET), "PSN_RESET"}};
    OpenPage(0);
    ClickMode();
    ForgetChanges();
    for (const auto& [code, name] : kNotifications) {
        log->Forget();
        EXPECT_EQ(Notify(page, code), 0) << name;
        EXPECT_TRUE(log->HasLogged(name));
        EXPECT_EQ(log->Messages().size(), 1u) << name;
        EXPECT_EQ(Stored(), 0u) << name;
    }
    EXPECT_TRUE(IsModeOn());
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(DevicePage, DoesNothingOnOtherCommands) {
    OpenPage(0);
    ForgetChanges();
    for (const int control : {kMode, kAuthentication, kCommunication, kJobProperties})
        for (const int code : {BN_DOUBLECLICKED, BN_SETFOCUS, BN_KILLFOCUS, 0xFFFF})
            EXPECT_EQ(Command(page, control, code), 0) << control << " " << code;
    for (const int control : {0, 1, 2, 1109, 1403, 1410, 1411, 5000, 0xFFFF})
        EXPECT_EQ(Command(page, control, 0), 0) << control;
    EXPECT_TRUE(runner.calls.empty());
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_TRUE(CanRunJobProperties());
}

TEST_F(DevicePage, Gives0ForEachOtherMessage) {
    OpenPage(0);
    for (UINT message = 0; message < 0x600; ++message) {
        if (message != WM_INITDIALOG && message != WM_COMMAND && message != WM_NOTIFY) {
            EXPECT_EQ(DevicePropPageProc(page, message, ~WPARAM(), ~LPARAM()), 0) << message;
        }
    }
    EXPECT_EQ(DevicePropPageProc(page, WM_NOTIFY, 0, 0), 0);
    NMHDR unknown{};
    for (const UINT code : {0u, 5u, static_cast<UINT>(PSN_QUERYCANCEL), static_cast<UINT>(PSN_HELP)}) {
        unknown.code = code;
        EXPECT_EQ(DevicePropPageProc(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&unknown)), 0) << code;
    }
    EXPECT_EQ(Stored(), 0u);
}

TEST_F(DevicePage, DoesWithoutItsControlsAndWithoutAWindow) {
    OpenPage(1);
    for (const ControlRow& row : kRows)
        DestroyWindow(Control(row.id));
    NMHDR apply{};
    apply.code = static_cast<UINT>(PSN_APPLY);
    for (const HWND window : {page, HWND(nullptr)}) {
        EXPECT_EQ(DevicePropPageProc(window, WM_INITDIALOG, 0, 0), 1);
        EXPECT_EQ(DevicePropPageProc(window, WM_COMMAND, kMode, 0), 1);
        EXPECT_EQ(DevicePropPageProc(window, WM_COMMAND, kJobProperties, 0), 1);
        EXPECT_EQ(DevicePropPageProc(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&apply)), 0);
    }
}

} // namespace
