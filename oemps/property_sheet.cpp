#include "oemps/property_sheet.h"

#include "Common/log.h"
#include "oemps/satellite.h"

#include <prsht.h>

namespace {

constexpr WORD kSheetInfoVersion = 0x100;

} // namespace

bool IsKnownSheetInfo(const PROPSHEETUI_INFO* info) {
    if (info && info->Version == kSheetInfoVersion)
        return true;
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
}

void AnswerSheetReason(PROPSHEETUI_INFO& info, LPARAM param) {
    // Sheets of this version speak wide text whatever the header's types say.
    static wchar_t title[] = L"OEM UI Page";
    switch (info.Reason) {
    case PROPSHEETUI_REASON_GET_INFO_HEADER:
        if (auto* header = reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(param))
            header->pTitle = reinterpret_cast<LPTSTR>(title);
        info.Result = TRUE;
        return;
    case PROPSHEETUI_REASON_DESTROY: info.Result = TRUE; return;
    case PROPSHEETUI_REASON_SET_RESULT:
        if (const auto* given = reinterpret_cast<const SETRESULT_INFO*>(param))
            info.Result = given->Result;
        return;
    default: info.Result = 0; return;
    }
}

LONG_PTR AddPage(const PROPSHEETUI_INFO& info, WORD dialogId, WORD titleId, DLGPROC procedure,
                 LPARAM pageParam) {
    PROPSHEETPAGEA page{};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_USETITLE;
    page.hInstance = ResourceModule();
    page.pszTemplate = MAKEINTRESOURCEA(dialogId);
    page.pszTitle = MAKEINTRESOURCEA(titleId);
    page.pfnDlgProc = procedure;
    page.lParam = pageParam;
    const LONG_PTR handle = info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEA,
                                                 reinterpret_cast<LPARAM>(&page), 0);
    // The common property sheet reports a refusal as a negative number.
    if (handle <= 0) {
        ZR_LOG("page %u refused, result=%ld\n", dialogId, static_cast<long>(handle));
        return 0;
    }
    return handle;
}
