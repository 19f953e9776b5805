#include "Common/log.h"

#include "Common/text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

constexpr std::size_t kMaxMessage = 2048;

void Write(log_backend::Target target, const char* format, va_list arguments) {
    if (!log_backend::IsOpenable(target))
        return;
    // One byte more than is written tells whether the message has to be cut.
    char message[kMaxMessage + 2];
    const int length = std::vsnprintf(message, sizeof message, format, arguments);
    if (length < 0)
        return;
    const std::string_view whole(message,
                                 std::min<std::size_t>(static_cast<std::size_t>(length), kMaxMessage + 1));
    log_backend::Append(target, whole.substr(0, CutLength(whole, kMaxMessage)));
}

} // namespace

OpenMainLog::OpenMainLog() {
    log_backend::HoldMain();
}

OpenMainLog::~OpenMainLog() {
    log_backend::ReleaseMain();
}

void WriteLog(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    Write(log_backend::Target::Main, format, arguments);
    va_end(arguments);
}

void WriteRecordLog(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    Write(log_backend::Target::Record, format, arguments);
    va_end(arguments);
}

void WriteFavoriteLog(std::string_view first, std::string_view second) {
    if (!log_backend::IsOpenable(log_backend::Target::Favorite))
        return;
    std::string lines(first);
    lines.append("\n").append(second).append("\n");
    log_backend::Replace(log_backend::Target::Favorite, lines);
}
