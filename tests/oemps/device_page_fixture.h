// The page of the printer's own sheet, on a printer of the spooler and with the real dialogs that it opens.
#pragma once

#include "oemps/device_page.h"

#include "companions/communication/communication_resource.h"
#include "oemps/sheet_state.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

inline constexpr int kPage = 1121;
inline constexpr int kMode = 1243;
inline constexpr int kAuthentication = 1376;
inline constexpr int kCommunication = 1398;
inline constexpr int kJobProperties = 1399;

class DevicePage : public PageTest {
  protected:
    static void SetUpTestSuite() { log = std::make_unique<MainLog>(); }
    static void TearDownTestSuite() { log.reset(); }

    DevicePage() {
        g_hPrinter = printer.Handle();
        std::strcpy(g_UserInfoKey, kKey.c_str());
        g_Permission = 1;
        log->Forget();
    }
    ~DevicePage() override {
        g_hPrinter = nullptr;
        g_UserInfoKey[0] = '\0';
        g_Permission = 0;
        RegDeleteTreeA(HKEY_CURRENT_USER, kKey.c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, kKey.c_str());
    }

    // With this mode in the printer's data; nothing of it there at all without one.
    void OpenPage(std::optional<DWORD> mode = std::nullopt) {
        if (mode)
            Store(*mode);
        page = Open(kPage, DevicePropPageProc);
        ShowWindow(Sheet(), SW_SHOW);
        EnableWindow(page, TRUE);
        ShowWindow(page, SW_SHOW);
        SetActiveWindow(Sheet());
    }
    void Store(DWORD mode) const { printer.Put(L"CommunicationMode", REG_DWORD, &mode, sizeof mode); }
    // Nothing if there is no such number.
    std::optional<DWORD> Stored() const {
        DWORD mode = 0;
        DWORD type = REG_NONE;
        DWORD size = 0;
        const DWORD status = GetPrinterDataExA(printer.Handle(), "PrinterDriverData", "CommunicationMode",
                                               &type, reinterpret_cast<BYTE*>(&mode), sizeof mode, &size);
        return status == ERROR_SUCCESS && type == REG_DWORD ? std::optional(mode) : std::nullopt;
    }

    HWND Control(int id) const { return GetDlgItem(page, id); }
    bool IsModeOn() const { return IsDlgButtonChecked(page, kMode) == BST_CHECKED; }
    bool CanRunJobProperties() const { return IsWindowEnabled(Control(kJobProperties)); }
    // Nobody can click it where the page hides it; the code behind it stands.
    void ClickMode() const { SendMessageA(Control(kMode), BM_CLICK, 0, 0); }
    void Press(int button, std::vector<ModalDialog::Step> steps) const {
        const ModalDialog user(std::move(steps));
        ClickButton(page, button);
        EXPECT_TRUE(user.WasOpen());
    }
    // Presses the button of the communication setting and turns the mode there.
    void TurnModeInTheDialog() const {
        Press(kCommunication,
              {[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, [](HWND dialog) { Ok(dialog); }});
    }
    static void Ok(HWND dialog) { ClickButton(dialog, IDOK); }
    static void Cancel(HWND dialog) { ClickButton(dialog, IDCANCEL); }

    static inline const std::string kKey =
        "Software\\Zephra\\Tests\\DevicePage" + std::to_string(GetCurrentProcessId());
    static inline std::unique_ptr<MainLog> log;
    const SpoolerPrinter printer{"Device page test"};
    HWND page = nullptr;
};
