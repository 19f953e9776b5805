#include "session/printer_log.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "oemps/devmode.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace {

constexpr std::size_t kDevModeHead = offsetof(DEVMODEA, dmFields); // as far as dmDriverExtra

void LogDocumentSize(HANDLE printer, PCWSTR printerName) {
    std::array<char, 1024> name{};
    if (printerName && !WideCharToMultiByte(CP_ACP, 0, printerName, -1, name.data(),
                                            static_cast<int>(name.size()) - 1, nullptr, nullptr))
        name[0] = '\0';
    const LONG size = DocumentPropertiesA(nullptr, printer, name.data(), nullptr, nullptr, 0);
    ZR_LOG("DocumentProperties size=%ld\n", size);
}

// The private DEVMODE is the last thing in the driver's.
void LogDevMode(std::span<const std::byte> bytes) {
    if (bytes.size() < kDevModeHead)
        return;
    WORD size = 0;
    WORD extra = 0;
    std::memcpy(&size, bytes.data() + offsetof(DEVMODEA, dmSize), sizeof size);
    std::memcpy(&extra, bytes.data() + offsetof(DEVMODEA, dmDriverExtra), sizeof extra);
    ZR_LOG("dmSize=%u dmDriverExtra=%u\n", size, extra);
    const std::size_t end = std::size_t{size} + extra;
    if (end < kDevModeSize || end > bytes.size())
        return;
    std::uint32_t privateSize = 0;
    std::memcpy(&privateSize, bytes.data() + end - kDevModeSize + offsetof(PrivateDevMode, dwSize),
                sizeof privateSize);
    ZR_LOG("dwSize=%u\n", privateSize);
}

} // namespace

bool LogStoredDevMode(HANDLE printer, PCWSTR printerName) {
    ZR_LOG_ENTRY();
    LogDocumentSize(printer, printerName);

    PrinterInfo info;
    info.Fetch(printer, 9);
    const auto* perUser = info.As<PRINTER_INFO_9A>();
    if (perUser && perUser->pDevMode) {
        LogDevMode(info.BytesFrom(perUser->pDevMode));
        return true;
    }
    if (info.Fetch(printer, 8) == PrinterInfo::Result::NoMemory) {
        ZR_LOG("pi8=NULL\n");
        return false;
    }
    const auto* global = info.As<PRINTER_INFO_8A>();
    if (global && global->pDevMode)
        LogDevMode(info.BytesFrom(global->pDevMode));
    return true;
}
