#include "Common/log.h"

#include <windows.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace log_backend {
namespace {

// A missing log directory is the normal case, and asking for it costs more than all else in a log call. After
// a directory was not there it is not asked for again for this long, in milliseconds.
constexpr ULONGLONG kRetryAfter = 1000;

struct LogFile {
    const char* path;
    ULONGLONG silentUntil;
};

// By target.
std::array<LogFile, 3> logFiles{{{"C:\\qpsp\\Log\\debugLog.txt", 0},
                                 {"C:/Users/Public/Documents/Zephra/QPSP/Log/zqnprt.log", 0},
                                 {"C:\\qpsp\\Log\\Favorite.txt", 0}}};

thread_local std::FILE* heldMain = nullptr;

LogFile& FileOf(Target target) {
    return logFiles[static_cast<std::size_t>(target)];
}

// Null, and silence for a while, where the log can't be opened.
std::FILE* Open(LogFile& log, const char* mode) {
    std::FILE* file = std::fopen(log.path, mode);
    if (!file && errno == ENOENT)
        log.silentUntil = GetTickCount64() + kRetryAfter;
    return file;
}

} // namespace

bool IsOpenable(Target target) {
    return GetTickCount64() >= FileOf(target).silentUntil;
}

void HoldMain() {
    if (IsOpenable(Target::Main))
        heldMain = Open(FileOf(Target::Main), "a+");
}

void ReleaseMain() {
    if (std::FILE* file = std::exchange(heldMain, nullptr))
        std::fclose(file);
}

void Append(Target target, std::string_view message) {
    std::FILE* held = target == Target::Main ? heldMain : nullptr;
    std::FILE* file = held ? held : Open(FileOf(target), "a+");
    if (!file)
        return;
    const int length = static_cast<int>(message.size());
    if (target == Target::Main) {
        SYSTEMTIME now;
        GetLocalTime(&now);
        std::fprintf(file, "[%4d/%2d/%2d|%02d:%02d:%02d:%03d(%d)] %.*s", now.wYear, now.wMonth, now.wDay,
                     now.wHour, now.wMinute, now.wSecond, now.wMilliseconds,
                     static_cast<int>(GetCurrentProcessId()), length, message.data());
    } else {
        std::fprintf(file, "%.*s\n", length, message.data());
    }
    if (held)
        std::fflush(file);
    else
        std::fclose(file);
}

void Replace(Target target, std::string_view message) {
    std::FILE* file = Open(FileOf(target), "w");
    if (!file)
        return;
    std::fwrite(message.data(), 1, message.size(), file);
    std::fclose(file);
}

} // namespace log_backend
