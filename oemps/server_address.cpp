#include "oemps/server_address.h"

#include "Common/log.h"

int PrinterPortAddressUpdate(HANDLE) {
    ZR_LOG_ENTRY();
    return 0;
}
