// Stands in the place of the job property application where a test needs a real process.
//
// It tells the start that it got in the file that ZR_STAND_IN_REPORT names, and does what ZR_STAND_IN says:
// "wait" stays until the event "ZrStandInEnd" is set, "hang" until it is killed, all else ends as soon as it
// has waited for input. One that nobody ends goes after a minute.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

constexpr UINT kLongestLife = 60'000; // milliseconds

std::string Environment(const char* name) {
    char value[512] = {};
    GetEnvironmentVariableA(name, value, sizeof value);
    return value;
}

void Report(const std::string& path) {
    if (path.empty())
        return;
    STARTUPINFOA startup{};
    GetStartupInfoA(&startup);
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return;
    std::fprintf(file, "%s\n%lu\n%u\n%lu\n", GetCommandLineA(), startup.dwFlags, startup.wShowWindow,
                 GetPriorityClass(GetCurrentProcess()));
    std::fclose(file);
}

// Waits for input as a program with a window does.
void WaitForInput(HANDLE end, UINT milliseconds) {
    const DWORD start = GetTickCount();
    MSG message{};
    while (GetTickCount() - start < milliseconds) {
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
        if (MsgWaitForMultipleObjects(end ? 1 : 0, &end, FALSE, 50, QS_ALLINPUT) == WAIT_OBJECT_0 && end)
            return;
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    Report(Environment("ZR_STAND_IN_REPORT"));
    const std::string life = Environment("ZR_STAND_IN");
    const HANDLE end = life == "wait" ? CreateEventA(nullptr, TRUE, FALSE, "ZrStandInEnd") : nullptr;
    WaitForInput(end, life == "wait" || life == "hang" ? kLongestLife : 100);
    return 0;
}
