#include "host/sheet_title.h"

#include "host/window_class.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <utility>

namespace {

// A hook is told nothing but runs on the thread that it watches.
thread_local SheetTitle* t_waiting = nullptr;

} // namespace

SheetTitle::SheetTitle(std::wstring title) : m_title(std::move(title)) {
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&m_others));
    t_waiting = this;
    Hook(WH_CBT, &AwaitSheet);
}

SheetTitle::~SheetTitle() {
    Unhook();
    if (t_waiting == this)
        t_waiting = nullptr;
}

void SheetTitle::Hook(int kind, HOOKPROC function) {
    m_hook = SetWindowsHookExW(kind, function, nullptr, GetCurrentThreadId());
}

void SheetTitle::Unhook() {
    if (m_hook)
        UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
}

// A message box has no tabs, and another tabbed dialog of the program was there before.
bool SheetTitle::IsSheet(HWND window) const {
    return HasClass(window, kDialogClass) && FindWindowExW(window, nullptr, WC_TABCONTROLW, nullptr) &&
           std::ranges::find(m_others, window) == m_others.end();
}

// The sheet is activated before it names itself, so its name has to wait until it is complete.
LRESULT CALLBACK SheetTitle::AwaitSheet(int code, WPARAM window, LPARAM param) {
    SheetTitle* self = t_waiting;
    if (code == HCBT_ACTIVATE && self && self->IsSheet(reinterpret_cast<HWND>(window))) {
        self->m_sheet = reinterpret_cast<HWND>(window);
        self->Unhook();
        self->Hook(WH_GETMESSAGE, &AwaitLoop);
    }
    return CallNextHookEx(nullptr, code, window, param);
}

// The first message that the thread takes: the sheet is complete and in its loop.
LRESULT CALLBACK SheetTitle::AwaitLoop(int code, WPARAM removed, LPARAM message) {
    SheetTitle* self = t_waiting;
    if (code == HC_ACTION && self && self->m_hook) {
        self->Unhook();
        t_waiting = nullptr;
        SendMessageW(self->m_sheet, PSM_SETTITLEW, 0, reinterpret_cast<LPARAM>(self->m_title.c_str()));
    }
    return CallNextHookEx(nullptr, code, removed, message);
}
