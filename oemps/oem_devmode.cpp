#include "oemps/oem_devmode.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "oemps/authentication_data.h"
#include "oemps/authentication_overlay.h"
#include "oemps/devmode.h"

#include <new>
#include <string>

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

void LayOwnerOver(PrivateDevMode& record, const PRINTER_INFO_2A& printerInfo, HANDLE printer) {
    std::string name = printerInfo.pPrinterName ? printerInfo.pPrinterName : "";
    std::string keyText;
    CDevMode::GetAuthenticatInfo(name, keyText);
    OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, keyText);
}

// Once the printer is known the request can't fail, and no owner of the stored record is left: memory that
// ends is an owner that can't be told.
HRESULT OverlayOwner(PrivateDevMode& record, HANDLE printer) {
    PrinterInfo info;
    info.Fetch(printer, 2);
    const auto* printerInfo = info.As<PRINTER_INFO_2A>();
    if (!printerInfo) {
        ZR_LOG("no printer information\n");
        return E_FAIL;
    }
    try {
        LayOwnerOver(record, *printerInfo, printer);
    } catch (const std::bad_alloc&) {
        ClearAuthenticationData(record);
        ZR_LOG("no memory for the owner's data\n");
    }
    return S_OK;
}

// The merged record stays as it is where its owner can't be told for want of the printer.
HRESULT MergeRecord(PrivateDevMode& target, const void* source, HANDLE printer) {
    CDevMode::Convert(target, source);
    CDevMode::Merge(target, source);
    return OverlayOwner(target, printer);
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
