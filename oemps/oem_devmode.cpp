#include "oemps/oem_devmode.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "oemps/authentication_overlay.h"
#include "oemps/devmode.h"

namespace {

HRESULT RefuseParameter() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return E_FAIL;
}

void FillDefaults(PrivateDevMode& record) {
    record.dwSize = kDevModeSize;
    record.dwSignature = kDevModeSignature;
    record.dwVersion = kDevModeVersion;
    CDevMode(record).SetDefault(kDevModeSize);
}

HRESULT MergeRecord(PrivateDevMode& target, const void* source, HANDLE printer) {
    CDevMode::Convert(target, source);
    CDevMode::Merge(target, source);

    PrinterInfo info;
    info.Fetch(printer, 2);
    const auto* printerInfo = info.As<PRINTER_INFO_2A>();
    if (!printerInfo) {
        ZR_LOG("no printer information\n");
        return E_FAIL;
    }
    OverlayAuthentication(target, *printerInfo, printer);
    return S_OK;
}

} // namespace

HRESULT hrOEMDevMode(DWORD mode, OEMDMPARAM* param) {
    ZR_LOG_ENTRY();
    if (!param)
        return RefuseParameter();
    if (mode == OEMDM_SIZE) {
        param->cbBufSize = kDevModeSize;
        return S_OK;
    }
    if (mode != OEMDM_DEFAULT && mode != OEMDM_CONVERT && mode != OEMDM_MERGE)
        return RefuseParameter();

    auto* target = static_cast<PrivateDevMode*>(param->pOEMDMOut);
    const void* source = param->pOEMDMIn;
    if (!target || (mode != OEMDM_DEFAULT && !source))
        return RefuseParameter();
    // A driver that says how large its buffer is must have given the size it was told.
    if (param->cbBufSize != 0 && param->cbBufSize < kDevModeSize)
        return RefuseParameter();
    switch (mode) {
    case OEMDM_DEFAULT: FillDefaults(*target); return S_OK;
    case OEMDM_CONVERT: CDevMode::Convert(*target, source); return S_OK;
    default: return MergeRecord(*target, source, param->hPrinter);
    }
}
