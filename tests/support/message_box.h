// Answers message boxes of the test's own process, as a user at the screen would.
#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <string>
#include <utility>

struct MessageBoxSeen {
    std::string caption;
    std::string text;
    bool canCancel = false;
    HICON icon = nullptr; // null for a box without one
    HWND owner = nullptr;
};

namespace message_box_detail {

inline BOOL CALLBACK FindBox(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    char className[16] = {};
    GetClassNameA(window, className, sizeof className);
    // The text of a message box is the static with id -1; other dialogs have none such with the buttons
    // beside it.
    if (process != GetCurrentProcessId() || std::string(className) != "#32770" || !IsWindowVisible(window) ||
        !GetDlgItem(window, 0xFFFF))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

inline std::string TextOf(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// A box with OK alone gives its one button either of the two ids.
inline bool HasOkAndCancel(HWND box) {
    const HWND ok = GetDlgItem(box, IDOK);
    const HWND cancel = GetDlgItem(box, IDCANCEL);
    return ok && cancel && IsWindowVisible(ok) && IsWindowVisible(cancel);
}

inline BOOL CALLBACK FindIcon(HWND child, LPARAM found) {
    char className[16] = {};
    GetClassNameA(child, className, sizeof className);
    if (lstrcmpiA(className, "Static") != 0 || !IsWindowVisible(child) ||
        (GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON)
        return TRUE;
    *reinterpret_cast<HICON*>(found) = reinterpret_cast<HICON>(SendMessageA(child, STM_GETICON, 0, 0));
    return FALSE;
}

inline HICON IconOf(HWND box) {
    HICON icon = nullptr;
    EnumChildWindows(box, FindIcon, reinterpret_cast<LPARAM>(&icon));
    return icon;
}

} // namespace message_box_detail

// Waits up to ten seconds for the next message box, presses the button and tells what the box was like. An
// empty caption and text mean that no box came. `behindBox` runs first, on another thread.
inline std::future<MessageBoxSeen> AnswerNextMessageBox(int button = IDOK,
                                                        std::function<void()> behindBox = {}) {
    return std::async(std::launch::async, [button, behindBox = std::move(behindBox)] {
        const ULONGLONG deadline = GetTickCount64() + 10000;
        while (GetTickCount64() < deadline) {
            HWND box = nullptr;
            EnumWindows(message_box_detail::FindBox, reinterpret_cast<LPARAM>(&box));
            if (box) {
                MessageBoxSeen seen{message_box_detail::TextOf(box),
                                    message_box_detail::TextOf(GetDlgItem(box, 0xFFFF)),
                                    message_box_detail::HasOkAndCancel(box), message_box_detail::IconOf(box),
                                    GetWindow(box, GW_OWNER)};
                if (behindBox)
                    behindBox();
                PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
                return seen;
            }
            Sleep(20);
        }
        return MessageBoxSeen{};
    });
}
