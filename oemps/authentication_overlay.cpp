#include "oemps/authentication_overlay.h"

#include "Common/log.h"

void OverlayAuthentication(PrivateDevMode&, const PRINTER_INFO_2A&, HANDLE) {
    ZR_LOG_ENTRY();
}
