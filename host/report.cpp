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

} // namespace

void Report(std::string_view message) {
    {
        std::lock_guard lock(g_mutex);
        g_last = message;
    }
    Write(message);
}

void Remark(std::string_view message) {
    Write(message);
}

void ClearReport() {
    std::lock_guard lock(g_mutex);
    g_last.clear();
}

std::wstring LastReport() {
    std::lock_guard lock(g_mutex);
    return Wide(g_last);
}
