#include "oemps/manage_method.h"

#include "Common/log.h"
#include "oemps/owner_values.h"

#include <winspool.h>

#include <memory>
#include <new>

namespace {

DWORD QueryManageMethod(HANDLE printer, BYTE* data, DWORD size, DWORD& needed) {
    DWORD type = 0;
    return GetPrinterDataExA(printer, "PrinterDriverData", owner_values::kManageMethod, &type, data, size,
                             &needed);
}

} // namespace

std::optional<ManageMethod> ReadManageMethod(HANDLE printer) {
    ManageMethod method;
    DWORD size = 0;
    method.status = QueryManageMethod(printer, nullptr, 0, size);
    if (method.status != ERROR_SUCCESS && method.status != ERROR_MORE_DATA) {
        ZR_LOG("ManageMethod size, status=%lu\n", method.status);
        return method;
    }
    const std::unique_ptr<BYTE[]> data(new (std::nothrow) BYTE[size]());
    if (!data) {
        ZR_LOG("no memory for %lu bytes\n", size);
        return std::nullopt;
    }
    DWORD needed = 0;
    method.status = QueryManageMethod(printer, data.get(), size, needed);
    if (method.status != ERROR_SUCCESS)
        ZR_LOG("ManageMethod, status=%lu\n", method.status);
    else if (size > 0)
        method.mode = data[0];
    return method;
}
