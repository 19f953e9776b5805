#include "oemps/device_page.h"

#include "Common/log.h"

INT_PTR CALLBACK DevicePropPageProc(HWND, UINT message, WPARAM, LPARAM) {
    ZR_LOG("message=%u\n", message);
    return message == WM_INITDIALOG ? 1 : 0;
}

void CommunicationMethod(HWND) {
    ZR_LOG_ENTRY();
}
