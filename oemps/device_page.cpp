#include "oemps/device_page.h"

#include "Common/log.h"
#include "companions/authentication/authentication_manager.h"
#include "companions/communication/communication_setting.h"
#include "oemps/file_job_property.h"
#include "oemps/sheet_state.h"
#include "pages/controls.h"
#include "pages/message_guard.h"
#include "resources/resource.h"
#include "session/datamanager.h"

#include <direct.h>
#include <prsht.h>

#include <utility>

namespace {

constexpr Caption kCaptions[] = {
    {IDC_DEVICE_ACCOUNTS, IDS_DEVICE_ACCOUNTS},
    {IDC_DEVICE_ACCOUNTS_TEXT, IDS_DEVICE_ACCOUNTS_TEXT},
    {IDC_DEVICE_AUTHENTICATION, IDS_DEVICE_AUTHENTICATION},
    {IDC_DEVICE_SERVER, IDS_DEVICE_SERVER},
    {IDC_DEVICE_SERVER_TEXT, IDS_DEVICE_SERVER_TEXT},
    {IDC_DEVICE_COMMUNICATION, IDS_DEVICE_COMMUNICATION},
    {IDC_DEVICE_JOB_PROPERTIES, IDS_DEVICE_JOB_PROPERTIES},
    {IDC_DEVICE_OLD_PRINTERS, IDS_DEVICE_OLD_PRINTERS},
};

// The check box of the communication mode.
bool IsModeChecked(HWND dialog) {
    return SendDlgItemMessageA(dialog, IDC_DEVICE_OLD_PRINTERS, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// With the mode on no information can be fetched.
void ShowMode(HWND dialog, bool isOn) {
    SendDlgItemMessageA(dialog, IDC_DEVICE_OLD_PRINTERS, BM_SETCHECK, isOn ? BST_CHECKED : BST_UNCHECKED, 0);
    EnableWindow(GetDlgItem(dialog, IDC_DEVICE_JOB_PROPERTIES), !isOn);
}

// Nobody sees the check box, so that its state comes from the store alone.
bool IsModeStored() {
    std::uint32_t mode = 0;
    ExportedFunc_GetCommunicationMode(g_hPrinter, &mode);
    return mode != 0;
}

void InitDialog(HWND dialog) {
    ZR_LOG_ENTRY();
    ShowWindow(GetDlgItem(dialog, IDC_DEVICE_OLD_PRINTERS), SW_HIDE);
    SetCaptions(dialog, kCaptions);
    const bool isOn = IsModeStored();
    ShowMode(dialog, isOn);
    ExportedFunc_SetCommunicationMode(g_hPrinter, isOn);
}

// 1 for drive A and so on; 0 for a directory that is on none.
void LogCurrentDrive() {
    ZR_LOG("drive=%d\n", _getdrive());
}

void OpenAuthenticationManager() {
    ZR_LOG_ENTRY();
    LogCurrentDrive();
    OnAuthenticationManagerDlg(g_hPrinter, g_UserInfoKey, static_cast<std::uint32_t>(g_Permission));
}

void OpenCommunicationSetting(HWND dialog) {
    ZR_LOG_ENTRY();
    LogCurrentDrive();
    const bool hasStored = OnCommunicationSettingDlg(g_hPrinter, g_UserInfoKey) != 0;
    // The page's OK must not undo what was stored there. The sheet may have been closed behind its dialog.
    if (hasStored && IsWindow(dialog))
        ShowMode(dialog, IsModeStored());
}

void DiscardWaitingInput() {
    constexpr std::pair<UINT, UINT> kInput[] = {{WM_KEYFIRST, WM_KEYLAST}, {WM_MOUSEFIRST, WM_MOUSELAST}};
    MSG message;
    for (const auto& [first, last] : kInput) {
        while (PeekMessageA(&message, nullptr, first, last, PM_REMOVE)) {
            // It is taken out whatever is asked for, and the thread's loop needs it.
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<int>(message.wParam));
                return;
            }
        }
    }
}

// Keeps a button disabled while it lives.
class DisabledButton {
  public:
    explicit DisabledButton(HWND button) : m_button(button), m_hadFocus(GetFocus() == button) {
        EnableWindow(button, FALSE);
    }
    ~DisabledButton() {
        // Clicks and keys of the time when the thread was blocked would come to the enabled button.
        DiscardWaitingInput();
        EnableWindow(m_button, TRUE);
        // A disabled control loses the focus, and with it the keys of the whole sheet.
        if (m_hadFocus)
            SetFocus(m_button);
    }
    DisabledButton(const DisabledButton&) = delete;
    DisabledButton& operator=(const DisabledButton&) = delete;

  private:
    HWND m_button;
    bool m_hadFocus;
};

void RunJobProperties(HWND dialog) {
    ZR_LOG_ENTRY();
    // Nothing else keeps the application from being started twice.
    const DisabledButton disabled(GetDlgItem(dialog, IDC_DEVICE_JOB_PROPERTIES));
    FileJobProperty();
}

INT_PTR OnCommand(HWND dialog, WORD control, WORD notifyCode) {
    if (notifyCode != BN_CLICKED)
        return 0;
    switch (control) {
    case IDC_DEVICE_OLD_PRINTERS: CommunicationMethod(dialog); return 1;
    case IDC_DEVICE_AUTHENTICATION: OpenAuthenticationManager(); return 1;
    case IDC_DEVICE_COMMUNICATION: OpenCommunicationSetting(dialog); return 1;
    case IDC_DEVICE_JOB_PROPERTIES: RunJobProperties(dialog); return 1;
    default: return 0;
    }
}

void OnNotify(HWND dialog, const NMHDR* notification) {
    if (!notification)
        return;
    switch (notification->code) {
    case PSN_APPLY: {
        const bool isOn = IsModeChecked(dialog);
        ZR_LOG("PSN_APPLY mode=%d\n", isOn);
        ExportedFunc_SetCommunicationMode(g_hPrinter, isOn);
        return;
    }
    case PSN_SETACTIVE: ZR_LOG("PSN_SETACTIVE\n"); return;
    case PSN_KILLACTIVE: ZR_LOG("PSN_KILLACTIVE\n"); return;
    case PSN_RESET: ZR_LOG("PSN_RESET\n"); return;
    default: return;
    }
}

} // namespace

INT_PTR CALLBACK DevicePropPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return GuardMessage(message, [&]() -> INT_PTR {
        switch (message) {
        case WM_INITDIALOG: InitDialog(dialog); return 1;
        case WM_COMMAND: return OnCommand(dialog, LOWORD(wParam), HIWORD(wParam));
        case WM_NOTIFY: OnNotify(dialog, reinterpret_cast<const NMHDR*>(lParam)); return 0;
        default: return 0;
        }
    });
}

void CommunicationMethod(HWND dialog) {
    ZR_LOG_ENTRY();
    ShowMode(dialog, IsModeChecked(dialog));
    NotifyPageChanged(dialog);
}
