// What the modal dialogs' procedures have in common. An object of the dialog stands behind DWLP_USER while it
// is open; its m_hwnd is the dialog, and its OnInitDialog and OnCommand get the messages.
#pragma once

#include "Common/strings.h"
#include "pages/controls.h"
#include "pages/message_guard.h"
#include "pages/pspage.h"

#include <windows.h>

// The sheet below can go while a dialog is open. A dialog without a session touches nothing of the sheet's.
template <class Dialog>
bool IsServed(const Dialog& object) {
    if constexpr (requires { object.session; })
        return IsLiveSession(object.session);
    else
        return true;
}

template <class Dialog>
INT_PTR RouteToDialog(Dialog& object, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return object.OnInitDialog();
    case WM_COMMAND:
        if (IsServed(object))
            return object.OnCommand(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam));
        [[fallthrough]]; // what is left of the dialog can only be closed
    case WM_CLOSE: EndDialog(object.m_hwnd, IDCANCEL); return 1;
    case WM_NOTIFY:
        if constexpr (requires { object.OnNotify(); })
            return object.OnNotify();
        return 0;
    case WM_DRAWITEM:
        if constexpr (requires { object.OnDrawItem(); })
            return object.OnDrawItem();
        return 0;
    default: return 0;
    }
}

template <class Dialog>
INT_PTR CALLBACK ModalDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        if (lParam)
            reinterpret_cast<Dialog*>(lParam)->m_hwnd = dialog;
    }
    auto* object = reinterpret_cast<Dialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
    return object ? GuardMessage(message, [&] { return RouteToDialog(*object, message, wParam, lParam); })
                  : 0;
}

// Runs the template above `owner` until it is ended; gives what it was ended with, 0 or -1 if there is no
// such template.
template <class Dialog>
INT_PTR RunModalDialog(Dialog& object, HWND owner, int dialogTemplate) {
    RegisterPageControls();
    return DialogBoxParamA(static_cast<HINSTANCE>(StringModule()), MAKEINTRESOURCEA(dialogTemplate), owner,
                           ModalDialogProc<Dialog>, reinterpret_cast<LPARAM>(&object));
}
