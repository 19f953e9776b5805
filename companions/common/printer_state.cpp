#include "companions/common/printer_state.h"

#include <winspool.h>

bool TellsPrinterGone(DWORD status) {
    return status == ERROR_INVALID_HANDLE || status == ERROR_INVALID_PRINTER_NAME ||
           status == ERROR_PRINTER_DELETED;
}

DWORD PrinterGoneStatus(HANDLE printer) {
    if (!printer)
        return ERROR_INVALID_HANDLE;
    constexpr DWORD kStatusLevel = 6;
    PRINTER_INFO_6 info{};
    DWORD needed = 0;
    if (!GetPrinterW(printer, kStatusLevel, reinterpret_cast<BYTE*>(&info), sizeof info, &needed)) {
        const DWORD status = GetLastError();
        return TellsPrinterGone(status) ? status : ERROR_SUCCESS;
    }
    // A deleted printer lasts until its last handle is closed.
    return info.dwStatus & PRINTER_STATUS_PENDING_DELETION ? ERROR_PRINTER_DELETED : ERROR_SUCCESS;
}
