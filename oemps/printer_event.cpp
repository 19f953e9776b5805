#include "oemps/printer_event.h"

HRESULT hrOEMPrinterEvent(PWSTR, INT, DWORD, LPARAM) {
    return E_NOTIMPL;
}

HRESULT hrOEMDriverEvent(DWORD, DWORD, LPBYTE, LPARAM) {
    return E_NOTIMPL;
}
