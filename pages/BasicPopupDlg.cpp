#include "pages/BasicPopupDlg.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "pages/message_guard.h"
#include "pages/pspage.h"

namespace {

constexpr INT_PTR kClosed = 2;

} // namespace

INT_PTR CBasicPopupDlg::DoModal() {
    ZR_LOG_ENTRY();
    return DialogBoxParamA(static_cast<HINSTANCE>(StringModule()), MAKEINTRESOURCEA(templateId),
                           GetActiveWindow(), DialogProc, reinterpret_cast<LPARAM>(this));
}

INT_PTR CALLBACK CBasicPopupDlg::DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG)
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    else if (message != WM_COMMAND && message != WM_CLOSE)
        return 0;
    auto* popup = reinterpret_cast<CBasicPopupDlg*>(GetWindowLongPtrA(dialog, DWLP_USER));
    return popup ? GuardMessage(message, [&] { return popup->Route(dialog, message, wParam, lParam); }) : 0;
}

INT_PTR CBasicPopupDlg::Route(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        m_hwnd = dialog;
        return OnInitDialog();
    }
    // The sheet below can go while the dialog is open; what is left of it can only be closed.
    if (message == WM_CLOSE || !IsLiveSession(session)) {
        EndDialog(dialog, kClosed);
        return 1;
    }
    return OnCommand(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam));
}
