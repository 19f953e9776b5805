#include "oemps/property_page.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "Common/text.h"
#include "oemps/device_sheet.h"
#include "oemps/document_sheet.h"
#include "oemps/printer_connections.h"
#include "oemps/printer_names.h"
#include "oemps/sheet_state.h"

#include <string>

HRESULT hrOEMPropertyPage(DWORD mode, OEMCUIPPARAM* param) {
    ZR_LOG_ENTRY();
    if (!param) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return E_FAIL;
    }
    PrinterInfo info;
    info.Fetch(param->hPrinter, 2);
    const auto* printer = info.As<PRINTER_INFO_2A>();
    if (!printer) {
        ZR_LOG("no printer information\n");
        return E_FAIL;
    }
    const std::string keyName = PrinterKeyName(printer->pPrinterName ? printer->pPrinterName : "");
    CopyText(g_UserInfoKey, UserInfoKey(UserInfoText(keyName)));

    switch (mode) {
    case OEMCUIP_DOCPROP: return hrDocumentPropertyPage(param);
    case OEMCUIP_PRNPROP: g_hPrinter = param->hPrinter; return hrPrinterPropertyPage(param);
    default: SetLastError(ERROR_INVALID_PARAMETER); return E_FAIL;
    }
}
