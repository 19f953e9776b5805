#include "oemps/printer_event.h"

#include "Common/log.h"

HRESULT hrOEMPrinterEvent(PWSTR, INT, DWORD, LPARAM) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}

HRESULT hrOEMDriverEvent(DWORD, DWORD, LPBYTE, LPARAM) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}
