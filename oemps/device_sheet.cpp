#include "oemps/device_sheet.h"

#include "Common/log.h"
#include "oemps/device_page.h"
#include "oemps/property_sheet.h"
#include "oemps/sheet_state.h"
#include "pages/controls.h"
#include "resources/resource.h"

#include <winspool.h>

namespace {

char kChoiceValue[] = "OEMUI_VALUE";

} // namespace

HRESULT hrPrinterPropertyPage(OEMCUIPPARAM* param) {
    ZR_LOG_ENTRY();
    if (!param->pOEMOptItems) {
        param->cOEMOptItems = 1;
        return S_OK;
    }
    DWORD choice = 0;
    DWORD type = 0;
    DWORD needed = 0;
    const DWORD status = GetPrinterDataA(param->hPrinter, kChoiceValue, &type,
                                         reinterpret_cast<LPBYTE>(&choice), sizeof choice, &needed);
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        ZR_LOG("GetPrinterData %s failed, status=%lu\n", kChoiceValue, status);
    param->OEMCUIPCallback = OEMPrinterUICallBack;
    for (DWORD index = 0; index < param->cOEMOptItems; ++index) {
        OPTITEM& item = param->pOEMOptItems[index];
        item = {};
        item.cbSize = sizeof item;
        item.DMPubID = DMPUB_NONE;
    }
    return S_OK;
}

LONG APIENTRY OEMPrinterUICallBack(PCPSUICBPARAM callback, OEMCUIPPARAM* param) {
    ZR_LOG_ENTRY();
    if (callback && callback->Reason == CPSUICB_REASON_APPLYNOW && param && param->pOEMOptItems &&
        param->cOEMOptItems > 0) {
        DWORD choice = static_cast<DWORD>(param->pOEMOptItems[0].Sel);
        const DWORD status = SetPrinterDataA(param->hPrinter, kChoiceValue, REG_DWORD,
                                             reinterpret_cast<LPBYTE>(&choice), sizeof choice);
        if (status != ERROR_SUCCESS)
            ZR_LOG("SetPrinterData %s failed, status=%lu\n", kChoiceValue, status);
    }
    return CPSUICB_ACTION_NONE;
}

HRESULT hrOEMDevicePropertySheets(PROPSHEETUI_INFO* info, LPARAM param) {
    ZR_LOG_ENTRY();
    if (!IsKnownSheetInfo(info))
        return E_FAIL;
    if (info->Reason != PROPSHEETUI_REASON_INIT) {
        AnswerSheetReason(*info, param);
        return S_OK;
    }
    const auto* sheet = reinterpret_cast<const OEMUIPSPARAM*>(info->lParamInit);
    g_Permission = sheet && (sheet->dwFlags & OEMUI_READ_ONLY) == 0 ? 1 : 0;
    RegisterPageControls();
    info->Result = AddPage(*info, IDD_DEVICE_PAGE, IDS_DEVICE_PAGE_TITLE, DevicePropPageProc, 0);
    return S_OK;
}
