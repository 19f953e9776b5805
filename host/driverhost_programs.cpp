#include "host/driverhost_programs.h"

#include "Common/win_handles.h"
#include "host/driverhost_text.h"

#include <map>
#include <utility>

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

// Whether they were started by this process.
using Processes = std::map<DWORD, bool>;

// What one search after another finds out. A process that has ended shows no window, and its number may be
// another one's later: nothing is known of it after the next search.
struct ProgramSearch {
    Processes before;
    Processes seen;
    HWND found = nullptr;
};

// Windows are looked for many times a second, and a process keeps its parent.
bool IsStartedHere(DWORD process, ProgramSearch& search) {
    const auto [entry, isNew] = search.seen.try_emplace(process, false);
    if (!isNew)
        return entry->second;
    const auto known = search.before.find(process);
    if (known != search.before.end())
        return entry->second = known->second;
    ForEachProcess([&](const PROCESSENTRY32W& found) {
        if (found.th32ProcessID == process)
            entry->second = found.th32ParentProcessID == GetCurrentProcessId();
    });
    return entry->second;
}

// Keeps the first window, and goes on until one is enabled. To ask whether another process's window is
// visible goes to the system, so only the windows of programs that were started here are asked.
BOOL CALLBACK NoteProgramWindow(HWND window, LPARAM param) {
    ProgramSearch& search = *reinterpret_cast<ProgramSearch*>(param);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() || !IsStartedHere(process, search) || !IsWindowVisible(window))
        return TRUE;
    const bool isEnabled = IsWindowEnabled(window);
    if (!search.found || isEnabled)
        search.found = window;
    return !isEnabled;
}

} // namespace

HWND FindProgramWindow() {
    thread_local Processes known;
    ProgramSearch search{known, {}};
    EnumWindows(NoteProgramWindow, reinterpret_cast<LPARAM>(&search));
    known = std::move(search.seen);
    return search.found;
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
