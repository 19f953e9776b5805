// Stands in the place of a command: command_program REPORT MILLISECONDS CODE. It waits, writes its command
// line, its priority class and whether it has a console's window into the report, and ends with the code.
// With other arguments it adds its command line to the file "commands.txt" beside itself.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

int Add() {
    std::string path(1024, '\0');
    path.resize(GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
    std::FILE* file = std::fopen((path.substr(0, path.rfind('\\') + 1) + "commands.txt").c_str(), "ab");
    if (!file)
        return 98;
    std::fprintf(file, "%s\n", GetCommandLineA());
    std::fclose(file);
    return 0;
}

} // namespace

int main(int count, char** words) {
    if (count != 4)
        return Add();
    Sleep(static_cast<DWORD>(std::atoi(words[2])));
    std::FILE* file = std::fopen(words[1], "wb");
    if (!file)
        return 98;
    std::fprintf(file, "%s\n%lu\n%s\n", GetCommandLineA(), GetPriorityClass(GetCurrentProcess()),
                 IsWindowVisible(GetConsoleWindow()) ? "window" : "no window");
    std::fclose(file);
    return std::atoi(words[3]);
}
