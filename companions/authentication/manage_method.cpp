#include "companions/authentication/manage_method.h"

#include "Common/log.h"
#include "companions/common/raw_value.h"
#include "datamanager/printer_settings.h"
#include "oemps/owner_values.h"

#include <winspool.h>

#include <vector>

namespace {

DWORD Query(HANDLE printer, std::vector<BYTE>& data, DWORD& needed) {
    DWORD type = REG_NONE;
    return GetPrinterDataExA(printer, "PrinterDriverData", owner_values::kManageMethod, &type,
                             data.empty() ? nullptr : data.data(), static_cast<DWORD>(data.size()), &needed);
}

} // namespace

// The first byte counts as the spooler's ANSI side gives it, whatever the value's type and size.
BYTE ReadManageMethod(HANDLE printer) {
    std::vector<BYTE> data;
    DWORD needed = 0;
    DWORD status = Query(printer, data, needed);
    if (status == ERROR_MORE_DATA || (status == ERROR_SUCCESS && needed > 0)) {
        data.resize(needed);
        status = Query(printer, data, needed);
    }
    if (status != ERROR_SUCCESS)
        ZR_LOG("GetPrinterDataEx=%lu %s\n", status, owner_values::kManageMethod);
    return status == ERROR_SUCCESS && !data.empty() ? data.front() : 0;
}

DWORD WriteManageMethod(HANDLE printer, BYTE mode) {
    return printer_settings::WriteNumber(printer, WideName(owner_values::kManageMethod).c_str(), mode);
}
