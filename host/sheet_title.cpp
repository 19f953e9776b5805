#include "host/sheet_title.h"

#include <commctrl.h>
#include <prsht.h>

#include <map>
#include <mutex>
#include <utility>

namespace {

// A hook is told nothing but its thread.
std::mutex g_mutex;
std::map<DWORD, std::wstring> g_titles;

} // namespace

SheetTitle::SheetTitle(std::wstring title)
    : m_thread(GetCurrentThreadId()), m_hook(SetWindowsHookExW(WH_CBT, &Watch, nullptr, m_thread)) {
    std::lock_guard lock(g_mutex);
    g_titles[m_thread] = std::move(title);
}

SheetTitle::~SheetTitle() {
    if (m_hook)
        UnhookWindowsHookEx(m_hook);
    std::lock_guard lock(g_mutex);
    g_titles.erase(m_thread);
}

// A message box in front of the sheet has no tabs and keeps its own title. The sheet is activated before it
// names itself, so the title is posted; it stays valid as long as the sheet.
LRESULT CALLBACK SheetTitle::Watch(int code, WPARAM window, LPARAM param) {
    auto activated = reinterpret_cast<HWND>(window);
    if (code == HCBT_ACTIVATE && FindWindowExW(activated, nullptr, WC_TABCONTROLW, nullptr)) {
        std::lock_guard lock(g_mutex);
        auto found = g_titles.find(GetCurrentThreadId());
        if (found != g_titles.end())
            PostMessageW(activated, PSM_SETTITLEW, 0, reinterpret_cast<LPARAM>(found->second.c_str()));
    }
    return CallNextHookEx(nullptr, code, window, param);
}
