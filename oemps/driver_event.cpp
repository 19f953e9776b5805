#include "oemps/driver_event.h"

#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "oemps/directory_tree.h"
#include "oemps/dotnet.h"
#include "oemps/install_commands.h"
#include "oemps/oemui.h"
#include "pages/process_runner.h"
#include "resources/resource.h"

#include <shlwapi.h>

namespace {

constexpr DWORD kPollMilliseconds = 10;

// "" for a variable that is not there.
std::string Environment(const char* name) {
    std::string value;
    DWORD length = GetEnvironmentVariableA(name, nullptr, 0);
    // Another thread can lengthen it between two calls, and then what was read is of no use.
    while (length > value.size()) {
        value.resize(length);
        length = GetEnvironmentVariableA(name, value.data(), static_cast<DWORD>(value.size()));
    }
    value.resize(length);
    return value;
}

std::string Processor() {
    return Environment("PROCESSOR_ARCHITECTURE");
}

std::string WindowsDirectory() {
    return Environment("WINDIR");
}

void DeleteDirectory(const std::string& path) {
    const bool deleted = DeleteDirectoryTree(path.c_str()) == 1;
    ZR_LOG("%s %s\n", path.c_str(), deleted ? "deleted" : "not deleted");
}

} // namespace

void WarnWithoutDotNet() {
    if (!IsDotNet4Present())
        AskUser(nullptr, LoadText(IDS_NO_DOTNET).c_str(), LoadText(IDS_WARNING_TITLE).c_str(), AskButtons::Ok,
                AskIcon::Warning, AskPlace::Foreground);
}

int DoModalCommand(const std::string& command) {
    ZR_LOG_ENTRY();
    if (command.empty())
        return 0;
    ProcessRunner& runner = TheProcessRunner();
    const auto process = runner.Start(command, ProgramWindow::None);
    if (!process) {
        ZR_LOG("error=%lu\n", GetLastError());
        return 0;
    }
    process->CloseThread();
    process->Wait(INFINITE);
    // A program that ends with this very code would keep the caller here for good.
    while (process->ExitCode() == STILL_ACTIVE)
        runner.Sleep(kPollMilliseconds);
    process->CloseProcess();
    return 1;
}

void IOemUI::GetJobPropPath(const char* processor, const char* amd64, std::span<char, 260> out) {
    ZR_LOG_ENTRY();
    const std::string path = JobPropertyPath(processor ? processor : "", amd64 ? amd64 : "");
    // A cut path would be another directory's.
    CopyText(out, path.size() < out.size() ? path : "");
}

void IOemUI::RunNgenExecute(int install) {
    ZR_LOG_ENTRY();
    for (const std::string& command : NgenCommands(install != 0, Processor(), WindowsDirectory()))
        if (DoModalCommand(command) == 0)
            ZR_LOG("not started: %s\n", command.c_str());
}

void IOemUI::DeletePrintOptionDirectoy() {
    ZR_LOG_ENTRY();
    std::array<char, 260> path{};
    GetJobPropPath(Processor().c_str(), kAmd64, path);
    if (path[0] == '\0') {
        // The Windows directory alone would be left of it.
        ZR_LOG("the application's directory has no name\n");
        return;
    }
    const std::string directory = WindowsDirectory() + path.data();
    if (directory.size() >= path.size()) {
        ZR_LOG("%s not deleted: the path is too long\n", directory.c_str());
        return;
    }
    DeleteDirectory(directory);
    const std::string other = OtherArchitecture(directory);
    if (PathIsDirectoryA(other.c_str()))
        DeleteDirectory(other);
}
