#include "oemps/oemui.h"

#include "oemps/com_guard.h"
#include "oemps/device_sheet.h"
#include "oemps/devmode.h"
#include "oemps/document_sheet.h"
#include "oemps/driver_event.h"
#include "oemps/oem_devmode.h"
#include "oemps/printer_event.h"
#include "oemps/property_page.h"
#include "oemps/satellite.h"
#include "oemps/server_address.h"

#include <algorithm>
#include <iterator>

IOemUI::IOemUI() {
    AcquireSatellite();
}

IOemUI::~IOemUI() {
    ReleaseSatellite();
    if (m_pOEMHelp)
        m_pOEMHelp->Release();
}

HRESULT STDMETHODCALLTYPE IOemUI::GetInfo(DWORD mode, PVOID buffer, DWORD size, PDWORD needed) {
    ZR_LOG_ENTRY();
    if (!needed ||
        (mode != OEMGI_GETSIGNATURE && mode != OEMGI_GETVERSION && mode != OEMGI_GETPUBLISHERINFO)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return E_FAIL;
    }
    if (size < sizeof(DWORD) || !buffer) {
        *needed = sizeof(DWORD);
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return E_FAIL;
    }
    if (mode == OEMGI_GETPUBLISHERINFO) {
        *needed = 0;
        SetLastError(ERROR_NOT_SUPPORTED);
        return E_FAIL;
    }
    *needed = sizeof(DWORD);
    *static_cast<DWORD*>(buffer) = mode == OEMGI_GETSIGNATURE ? kDevModeSignature : kDevModeVersion;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE IOemUI::DevMode(DWORD mode, POEMDMPARAM param) {
    return ComGuard(__func__, [&] {
        ZR_LOG_ENTRY();
        return hrOEMDevMode(mode, param);
    });
}

HRESULT STDMETHODCALLTYPE IOemUI::PublishDriverInterface(IUnknown* driver) {
    ZR_LOG_ENTRY();
    if (m_pOEMHelp)
        return S_OK;
    if (driver &&
        SUCCEEDED(driver->QueryInterface(IID_IPrintOemDriverUI, reinterpret_cast<void**>(&m_pOEMHelp))))
        return S_OK;
    m_pOEMHelp = nullptr;
    return E_FAIL;
}

HRESULT STDMETHODCALLTYPE IOemUI::CommonUIProp(DWORD mode, POEMCUIPPARAM param) {
    return ComGuard(__func__, [&] {
        ZR_LOG_ENTRY();
        return hrOEMPropertyPage(mode, param);
    });
}

HRESULT STDMETHODCALLTYPE IOemUI::DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM param) {
    return ComGuard(__func__, [&] {
        ZR_LOG_ENTRY();
        if (info && info->Reason == PROPSHEETUI_REASON_INIT) {
            if (const auto* sheet = reinterpret_cast<const OEMUIPSPARAM*>(info->lParamInit)) {
                const bool updated = PrinterPortAddressUpdate(sheet->hPrinter) != 0;
                ZR_LOG("PrinterPortAddressUpdate=%s\n", updated ? "TRUE" : "FALSE");
            }
        }
        return hrOEMDocumentPropertySheets(info, param, m_pOEMHelp);
    });
}

HRESULT STDMETHODCALLTYPE IOemUI::DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM param) {
    return ComGuard(__func__, [&] {
        ZR_LOG_ENTRY();
        return hrOEMDevicePropertySheets(info, param);
    });
}

HRESULT STDMETHODCALLTYPE IOemUI::DevQueryPrintEx(POEMUIOBJ, PDEVQUERYPRINT_INFO, PDEVMODEW, PVOID) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE IOemUI::DeviceCapabilitiesA(POEMUIOBJ, HANDLE, PWSTR, WORD, PVOID, PDEVMODEW, PVOID,
                                                      DWORD, DWORD*) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE IOemUI::UpgradePrinter(DWORD, PBYTE) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}

// Whatever comes of an event, the driver goes on as if the plug-in had declined.
HRESULT STDMETHODCALLTYPE IOemUI::PrinterEvent(PWSTR printerName, INT event, DWORD, LPARAM) {
    ZR_LOG_ENTRY();
    ComGuard(__func__, [&] {
        switch (event) {
        case PRINTER_EVENT_ADD_CONNECTION:
        case PRINTER_EVENT_INITIALIZE: PrinterAdded(printerName); break;
        case PRINTER_EVENT_DELETE: PrinterDeleted(printerName); break;
        default: break;
        }
        return S_OK;
    });
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE IOemUI::DriverEvent(DWORD event, DWORD, LPBYTE, LPARAM) {
    ZR_LOG_ENTRY();
    ComGuard(__func__, [&] {
        switch (event) {
        case DRIVER_EVENT_INITIALIZE:
            WarnWithoutDotNet();
            RunNgenExecute(1);
            break;
        case DRIVER_EVENT_DELETE:
            RunNgenExecute(0);
            DeletePrintOptionDirectoy();
            break;
        default: break;
        }
        return S_OK;
    });
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE IOemUI::QueryColorProfile(HANDLE, POEMUIOBJ, PDEVMODEW, PVOID, ULONG queryMode,
                                                    VOID* profileData, ULONG* profileDataSize,
                                                    FLONG* profileFlags) {
    ZR_LOG_ENTRY();
    // What is asked for and reported, deliberately more than the name needs.
    constexpr ULONG kProfileSize = 32;
    constexpr FLONG kProfileIsFileName = 2;
    static constexpr wchar_t kProfile[] = L"OEMPROFILE.icm";

    if (queryMode != 0 || !profileDataSize)
        return E_FAIL;
    if (!profileData || *profileDataSize < kProfileSize) {
        *profileDataSize = kProfileSize;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return E_FAIL;
    }
    std::copy(std::begin(kProfile), std::end(kProfile), static_cast<wchar_t*>(profileData));
    *profileDataSize = kProfileSize;
    if (profileFlags)
        *profileFlags = kProfileIsFileName;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE IOemUI::FontInstallerDlgProc(HWND, UINT, WPARAM, LPARAM) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE IOemUI::UpdateExternalFonts(HANDLE, HANDLE, PWSTR) {
    ZR_LOG_ENTRY();
    return E_NOTIMPL;
}
