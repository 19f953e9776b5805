// The logs. Two are appended to line by line, the file being opened and closed for each, one is written anew
// each time. All stay silent on a machine where the file can't be opened.
#pragma once

#include <string_view>

// Writes one message to the main log, C:\qpsp\Log\debugLog.txt. The message is cut at 2048 bytes and gets a
// stamp of local time and process id in front; a line feed is the caller's business.
[[gnu::format(printf, 1, 2)]] void WriteLog(const char* format, ...);

// Writes one message and a line feed, without a stamp, to the record log of the DEVMODE code.
[[gnu::format(printf, 1, 2)]] void WriteRecordLog(const char* format, ...);

// Replaces the favourites' log, C:\qpsp\Log\Favorite.txt, by two lines: the option lines that were compared
// last.
void WriteFavoriteLog(std::string_view first, std::string_view second);

// Keeps the main log open on this thread while it lives, for a loop that logs each of many things: opening
// the file takes far longer than writing a line. Each line is in the file at once all the same.
class OpenMainLog {
  public:
    OpenMainLog();
    ~OpenMainLog();
    OpenMainLog(const OpenMainLog&) = delete;
    OpenMainLog& operator=(const OpenMainLog&) = delete;
};

// The opening log line of a function, and a line with text of its own behind the usual three arguments.
#define ZR_LOG_ENTRY() WriteLog("%s %d行目 %s\n", __FILE__, __LINE__, __func__)
#define ZR_LOG(format, ...)                                                                                  \
    WriteLog("%s %d行目 %s() " format, __FILE__, __LINE__, __func__ __VA_OPT__(, ) __VA_ARGS__)
#define ZR_RECORD_LOG_ENTRY() WriteRecordLog("%s %d行目 %s", __FILE__, __LINE__, __func__)

// The side of the logs that differs by platform.
namespace log_backend {

enum class Target { Main, Record, Favorite };

// False if a line would be lost anyway, so that it need not even be put together.
bool IsOpenable(Target target);

// What lies between them on a thread goes to the main log without opening it for each line. Not nested.
void HoldMain();
void ReleaseMain();

// Appends the message; Target::Main puts the stamp in front of it.
void Append(Target target, std::string_view message);

// The message takes the place of what the log held.
void Replace(Target target, std::string_view message);

} // namespace log_backend
