// The contract between the stock PostScript driver's user-interface module and its plug-ins, as the
// platform's public documentation gives it; the cross compiler's headers do not have it.
#pragma once

#include <windows.h>

#include <unknwn.h>
#include <winspool.h>

#include <compstui.h>
#include <winddiui.h>

#include <cstddef>

// Request codes of IPrintOemUI::DevMode.
inline constexpr DWORD OEMDM_SIZE = 1;
inline constexpr DWORD OEMDM_DEFAULT = 2;
inline constexpr DWORD OEMDM_CONVERT = 3;
inline constexpr DWORD OEMDM_MERGE = 4;

// Query codes of IPrintOemUI::GetInfo.
inline constexpr DWORD OEMGI_GETSIGNATURE = 1;
inline constexpr DWORD OEMGI_GETINTERFACEVERSION = 2;
inline constexpr DWORD OEMGI_GETVERSION = 3;
inline constexpr DWORD OEMGI_GETPUBLISHERINFO = 4;

// Sheet kinds of IPrintOemUI::CommonUIProp.
inline constexpr DWORD OEMCUIP_DOCPROP = 1;
inline constexpr DWORD OEMCUIP_PRNPROP = 2;

// The head of every plug-in's private DEVMODE block.
struct OEM_DMEXTRAHEADER {
    DWORD dwSize;
    DWORD dwSignature;
    DWORD dwVersion;
};

struct OEMDMPARAM {
    DWORD cbSize;
    PVOID pdriverobj;
    HANDLE hPrinter;
    HANDLE hModule;
    PDEVMODEW pPublicDMIn;
    PDEVMODEW pPublicDMOut;
    PVOID pOEMDMIn;
    PVOID pOEMDMOut;
    DWORD cbBufSize;
};
using POEMDMPARAM = OEMDMPARAM*;

// The driver's object behind a sheet; opaque to a plug-in, which only hands it back.
struct OEMUIOBJ;
using POEMUIOBJ = OEMUIOBJ*;

struct OEMCUIPPARAM;
using POEMCUIPPARAM = OEMCUIPPARAM*;
using OEMCUIPCALLBACK = LONG(APIENTRY*)(PCPSUICBPARAM, POEMCUIPPARAM);

// What CommonUIProp is given. It is called twice: with pOEMOptItems null to ask for cOEMOptItems, and with an
// array of that many items to have them filled.
struct OEMCUIPPARAM {
    DWORD cbSize;
    POEMUIOBJ poemuiobj;
    HANDLE hPrinter;
    PWSTR pPrinterName;
    HANDLE hModule;
    HANDLE hOEMHeap;
    PDEVMODEW pPublicDM;
    PVOID pOEMDM;
    DWORD dwFlags;
    POPTITEM pDrvOptItems;
    DWORD cDrvOptItems;
    POPTITEM pOEMOptItems;
    DWORD cOEMOptItems;
    PVOID pOEMUserData;
    OEMCUIPCALLBACK OEMCUIPCallback;
};

// What a property sheet callback reaches through PROPSHEETUI_INFO::lParamInit.
struct OEMUIPSPARAM {
    DWORD cbSize;
    POEMUIOBJ poemuiobj;
    HANDLE hPrinter;
    PWSTR pPrinterName;
    HANDLE hModule;
    HANDLE hOEMHeap;
    PDEVMODEW pPublicDM;
    PVOID pOEMDM;
    PVOID pOEMUserData;
    DWORD dwFlags;
    PVOID pOemEntry;
};
using POEMUIPSPARAM = OEMUIPSPARAM*;

// What DevQueryPrintEx is asked about.
struct DEVQUERYPRINT_INFO {
    WORD cbSize;
    WORD Level;
    HANDLE hPrinter;
    PDEVMODEW pDevMode;
    PWSTR pszErrorStr;
    DWORD cchErrorStr;
    DWORD cchNeeded;
};
using PDEVQUERYPRINT_INFO = DEVQUERYPRINT_INFO*;

// The flag of OEMUIPSPARAM and OEMCUIPPARAM by which the sheet's settings may only be looked at.
inline constexpr DWORD OEMUI_READ_ONLY = 1;

// What stands behind OPTITEM::UserData of the driver's items. dwItemID points to the feature's record, whose
// fourth 32-bit word is the index of the default option.
struct USERDATA {
    DWORD dwSize;
    ULONG_PTR dwItemID;
    PSTR pKeyWordName;
    DWORD dwReserved[8];
};
inline constexpr std::size_t kFeatureDefaultOptionWord = 3;

inline constexpr CLSID CLSID_OEMUI = {
    0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xEC}};
inline constexpr IID IID_IPrintOemUI = {
    0xC6A7A9D0, 0x774C, 0x11D1, {0x94, 0x7F, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
inline constexpr IID IID_IPrintOemDriverUI = {
    0x92B05D50, 0x78BC, 0x11D1, {0x94, 0x80, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};

// The driver's helper, handed to a plug-in by PublishDriverInterface.
struct IPrintOemDriverUI : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID pci, PCSTR feature, PVOID output, DWORD size,
                                                          PDWORD needed, PDWORD optionsReturned) = 0;
    virtual HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE printer, PCSTR feature,
                                                                PCSTR option) = 0;
    virtual HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID optItem, DWORD previousSelection,
                                                         DWORD mode) = 0;
};

struct IPrintOemCommon : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetInfo(DWORD mode, PVOID buffer, DWORD size, PDWORD needed) = 0;
    virtual HRESULT STDMETHODCALLTYPE DevMode(DWORD mode, POEMDMPARAM param) = 0;
};

struct IPrintOemUI : IPrintOemCommon {
    virtual HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* driver) = 0;
    virtual HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD mode, POEMCUIPPARAM param) = 0;
    virtual HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM param) = 0;
    virtual HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM param) = 0;
    virtual HRESULT STDMETHODCALLTYPE DevQueryPrintEx(POEMUIOBJ object, PDEVQUERYPRINT_INFO info,
                                                      PDEVMODEW publicDM, PVOID oemDM) = 0;
    virtual HRESULT STDMETHODCALLTYPE DeviceCapabilitiesA(POEMUIOBJ object, HANDLE printer, PWSTR deviceName,
                                                          WORD capability, PVOID output, PDEVMODEW publicDM,
                                                          PVOID oemDM, DWORD oldResult, DWORD* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD level, PBYTE driverUpgradeInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR printerName, INT event, DWORD flags,
                                                   LPARAM param) = 0;
    virtual HRESULT STDMETHODCALLTYPE DriverEvent(DWORD event, DWORD level, LPBYTE driverInfo,
                                                  LPARAM param) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE printer, POEMUIOBJ object, PDEVMODEW publicDM,
                                                        PVOID oemDM, ULONG queryMode, VOID* profileData,
                                                        ULONG* profileDataSize, FLONG* profileFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND dialog, UINT message, WPARAM wParam,
                                                           LPARAM lParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE printer, HANDLE heap, PWSTR cartridges) = 0;
};
