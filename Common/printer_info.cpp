#include "Common/printer_info.h"

namespace printer_info {

std::vector<std::byte> Fetch(HANDLE printer, DWORD level, std::size_t minimum) {
    DWORD needed = 0;
    GetPrinterA(printer, level, nullptr, 0, &needed);
    if (needed < minimum)
        return {};
    std::vector<std::byte> buffer(needed);
    if (!GetPrinterA(printer, level, reinterpret_cast<LPBYTE>(buffer.data()), needed, &needed))
        return {};
    return buffer;
}

} // namespace printer_info
