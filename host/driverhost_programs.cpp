#include "host/driverhost_programs.h"

#include "Common/win_handles.h"
#include "host/driverhost_text.h"

#include <map>

#include <tlhelp32.h>

namespace driverhost {
namespace {

template <typename Action>
void ForEachProcess(Action action) {
    const UniqueHandle processes(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(processes.Get(), &entry); more;
         more = Process32NextW(processes.Get(), &entry))
        action(entry);
}

// Windows are looked for many times a second, and a process keeps its parent.
bool IsStartedHere(DWORD process) {
    thread_local std::map<DWORD, bool> known;
    const auto [entry, isNew] = known.try_emplace(process, false);
    if (isNew)
        ForEachProcess([&](const PROCESSENTRY32W& found) {
            if (found.th32ProcessID == process)
                entry->second = found.th32ParentProcessID == GetCurrentProcessId();
        });
    return entry->second;
}

// Keeps the first window, and goes on until one is enabled.
BOOL CALLBACK NoteProgramWindow(HWND window, LPARAM param) {
    if (!IsWindowVisible(window))
        return TRUE;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() || !IsStartedHere(process))
        return TRUE;
    HWND& found = *reinterpret_cast<HWND*>(param);
    const bool isEnabled = IsWindowEnabled(window);
    if (!found || isEnabled)
        found = window;
    return !isEnabled;
}

} // namespace

HWND FindProgramWindow() {
    HWND found = nullptr;
    EnumWindows(NoteProgramWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

int CountRunning(const std::wstring& fileName) {
    int count = 0;
    ForEachProcess([&](const PROCESSENTRY32W& found) {
        count += lstrcmpiW(found.szExeFile, fileName.c_str()) == 0 ? 1 : 0;
    });
    return count;
}

std::string EndProgramOf(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const UniqueHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
    if (!process || !TerminateProcess(process.Get(), 1))
        return "the program can't be ended: " + ErrorText(GetLastError());
    WaitForSingleObject(process.Get(), INFINITE);
    return "";
}

} // namespace driverhost
