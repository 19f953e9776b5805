#include "Common/printer_info.h"

#include "Common/log.h"

#include <new>

PrinterInfo::Result PrinterInfo::Fetch(HANDLE printer, DWORD level) {
    m_size = 0;
    DWORD size = 0;
    GetPrinterA(printer, level, nullptr, 0, &size);
    if (size == 0) {
        ZR_LOG("level=%lu error=%lu\n", level, GetLastError());
        return Result::Failed;
    }
    m_buffer.reset(new (std::nothrow) std::byte[size]());
    if (!m_buffer) {
        ZR_LOG("level=%lu no memory for %lu bytes\n", level, size);
        return Result::NoMemory;
    }
    DWORD needed = 0;
    if (!GetPrinterA(printer, level, reinterpret_cast<BYTE*>(m_buffer.get()), size, &needed)) {
        ZR_LOG("level=%lu error=%lu\n", level, GetLastError());
        return Result::Failed;
    }
    m_size = size;
    return Result::Fetched;
}

std::span<const std::byte> PrinterInfo::BytesFrom(const void* begin) const {
    const auto first = reinterpret_cast<std::uintptr_t>(m_buffer.get());
    const auto at = reinterpret_cast<std::uintptr_t>(begin);
    if (at < first || at - first > m_size)
        return {};
    return {m_buffer.get() + (at - first), m_size - (at - first)};
}
