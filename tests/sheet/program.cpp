#include "tests/sheet/program.h"

#include <array>
#include <cstdio>
#include <cwchar>

#include <windows.h>

#include <shlobj.h>

namespace {

// No argument of the tests holds a quote or ends in a backslash.
std::wstring CommandLine(const std::filesystem::path& folder, const std::vector<std::wstring>& words) {
    std::wstring line = L"\"" + (folder / L"driverhost.exe").wstring() + L"\"";
    for (const std::wstring& word : words)
        line += L" \"" + word + L"\"";
    return line;
}

HANDLE CreateInheritable(const std::wstring& file) {
    SECURITY_ATTRIBUTES security{sizeof security, nullptr, TRUE};
    return CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &security,
                       CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::wstring TemporaryFile() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    // One for each run: a program that an earlier run has started may still hold that run's file.
    static int run = 0;
    return std::wstring(folder.data()) + L"sheet-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(++run) + L".out";
}

// Wine has refused a start once, for a reason that was not found. Each refusal is printed with its error.
bool Start(std::wstring& line, STARTUPINFOW& startup, PROCESS_INFORMATION& process) {
    constexpr int kTries = 20;
    constexpr DWORD kPause = 100; // milliseconds
    for (int attempt = 1;; ++attempt) {
        if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                           &process))
            return true;
        const DWORD error = GetLastError();
        std::printf("start %d of driverhost.exe failed, error %lu\n", attempt, error);
        SetLastError(error);
        if (attempt == kTries)
            return false;
        Sleep(kPause);
    }
}

} // namespace

ProgramResult RunDriverhost(const std::vector<std::wstring>& words, const std::filesystem::path& folder) {
    constexpr DWORD kLimit = 100'000;
    const std::wstring file = TemporaryFile();
    const HANDLE output = CreateInheritable(file);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = output;
    PROCESS_INFORMATION process{};
    std::wstring line = CommandLine(folder, words);
    ProgramResult result;
    if (!Start(line, startup, process)) {
        result.status = 0xFFFFFFFF;
        result.output = "driverhost.exe does not start, error " + std::to_string(GetLastError());
        CloseHandle(output);
        return result;
    }
    if (WaitForSingleObject(process.hProcess, kLimit) != WAIT_OBJECT_0)
        TerminateProcess(process.hProcess, 0xFFFFFFFE);
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &result.status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    CloseHandle(output);
    const std::vector<char> bytes = ReadBytes(file);
    result.output.assign(bytes.begin(), bytes.end());
    DeleteFileW(file.c_str());
    return result;
}

std::wstring ScriptFile(const std::wstring& name) {
    const std::string folder = ZR_SHEET_SCRIPTS_DIR;
    return std::wstring(folder.begin(), folder.end()) + L"/" + name;
}

std::wstring SettingsPath() {
    std::array<wchar_t, MAX_PATH> path{};
    SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path.data());
    return std::wstring(path.data()) + L"\\Zephra\\Printers\\Orvane X100.devmode";
}

void WriteBytes(const std::wstring& file, const std::vector<char>& bytes) {
    if (std::FILE* stream = _wfopen(file.c_str(), L"wb")) {
        std::fwrite(bytes.data(), 1, bytes.size(), stream);
        std::fclose(stream);
    }
}

std::vector<char> ReadBytes(const std::wstring& file) {
    std::vector<char> bytes;
    if (std::FILE* stream = _wfopen(file.c_str(), L"rb")) {
        std::array<char, 4096> part{};
        while (const std::size_t count = std::fread(part.data(), 1, part.size(), stream))
            bytes.insert(bytes.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(count));
        std::fclose(stream);
    }
    return bytes;
}
