#include "host/driverhost_windows.h"

#include "host/driverhost_programs.h"
#include "host/window_class.h"

namespace driverhost {
namespace {

// The tab control of a property sheet.
constexpr int kTabControl = 0x3020;

struct Search {
    HWND sheet = nullptr;
    HWND front = nullptr;
};

BOOL CALLBACK NoteDialog(HWND window, LPARAM param) {
    auto& search = *reinterpret_cast<Search*>(param);
    if (!IsWindowVisible(window) || !HasClass(window, kDialogClass))
        return TRUE;
    if (IsSheet(window))
        search.sheet = window;
    else if (!search.front && IsWindowEnabled(window))
        search.front = window;
    return TRUE;
}

Search Look(DWORD thread) {
    Search search;
    EnumThreadWindows(thread, NoteDialog, reinterpret_cast<LPARAM>(&search));
    return search;
}

// Any dialog may have texts; a message box has nothing but its text, its icon and buttons of the platform's
// ids.
BOOL CALLBACK RefuseOtherControl(HWND control, LPARAM) {
    const LONG_PTR id = GetWindowLongPtrW(control, GWLP_ID);
    return HasClass(control, L"Static") || (HasClass(control, L"Button") && id >= IDOK && id <= IDCONTINUE);
}

} // namespace

HWND FindSheet(DWORD thread) {
    return Look(thread).sheet;
}

HWND FindFront(DWORD thread) {
    if (const HWND program = FindProgramWindow())
        return program;
    const Search search = Look(thread);
    return search.front ? search.front : search.sheet;
}

bool IsSheet(HWND window) {
    return GetDlgItem(window, kTabControl) != nullptr;
}

bool IsMessageBox(HWND window) {
    return window && GetDlgItem(window, kMessageText) && EnumChildWindows(window, RefuseOtherControl, 0);
}

} // namespace driverhost
