#include "host/report.h"

#include "Common/log.h"
#include "host/wide.h"

#include <windows.h>

#include <mutex>

namespace {

std::mutex g_mutex;
std::string g_last;

void Write(std::string_view message) {
    std::string line = "x100drvui: " + std::string(message) + "\n";
    WriteLog("%s", line.c_str());
    OutputDebugStringW(Wide(line).c_str());
}

// Messages are written where nothing else can go wrong any more.
template <class Body>
void Quietly(Body body) noexcept {
    try {
        body();
    } catch (...) {
    }
}

} // namespace

void Report(std::string_view message) noexcept {
    Quietly([&] {
        std::lock_guard lock(g_mutex);
        g_last = message;
    });
    Remark(message);
}

void Remark(std::string_view message) noexcept {
    Quietly([&] { Write(message); });
}

void ClearReport() noexcept {
    Quietly([] {
        std::lock_guard lock(g_mutex);
        g_last.clear();
    });
}

std::wstring LastReport() noexcept {
    std::wstring text;
    Quietly([&] {
        std::lock_guard lock(g_mutex);
        text = Wide(g_last);
    });
    return text;
}
