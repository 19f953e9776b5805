// The plug-in object that the driver talks to. Each operation logs its call and hands over to a worker.
#pragma once

#include "oemps/com_object.h"
#include "oemps/printoem.h"

#include <span>

class IOemUI final : public ComObject<IPrintOemUI, IID_IPrintOemUI> {
  public:
    IOemUI();

    HRESULT STDMETHODCALLTYPE GetInfo(DWORD mode, PVOID buffer, DWORD size, PDWORD needed) override;
    HRESULT STDMETHODCALLTYPE DevMode(DWORD mode, POEMDMPARAM param) override;

    HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* driver) override;
    HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD mode, POEMCUIPPARAM param) override;
    HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM param) override;
    HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM param) override;
    HRESULT STDMETHODCALLTYPE DevQueryPrintEx(POEMUIOBJ object, PDEVQUERYPRINT_INFO info, PDEVMODEW publicDM,
                                              PVOID oemDM) override;
    HRESULT STDMETHODCALLTYPE DeviceCapabilitiesA(POEMUIOBJ object, HANDLE printer, PWSTR deviceName,
                                                  WORD capability, PVOID output, PDEVMODEW publicDM,
                                                  PVOID oemDM, DWORD oldResult, DWORD* result) override;
    HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD level, PBYTE driverUpgradeInfo) override;
    HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR printerName, INT event, DWORD flags, LPARAM param) override;
    HRESULT STDMETHODCALLTYPE DriverEvent(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM param) override;
    HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE printer, POEMUIOBJ object, PDEVMODEW publicDM,
                                                PVOID oemDM, ULONG queryMode, VOID* profileData,
                                                ULONG* profileDataSize, FLONG* profileFlags) override;
    HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND dialog, UINT message, WPARAM wParam,
                                                   LPARAM lParam) override;
    HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE printer, HANDLE heap, PWSTR cartridges) override;

    // Pre-compiles the job property application's managed assemblies, or undoes that for 0.
    static void RunNgenExecute(int install);
    // Deletes the application's directories, that of the other architecture too.
    static void DeletePrintOptionDirectoy();
    // The application's directory below the Windows directory: that of 64-bit machines if the texts are
    // equal.
    static void GetJobPropPath(const char* processor, const char* amd64, std::span<char, 260> out);

  private:
    ~IOemUI() override;

    // The driver's helper interface, null until it is published.
    IPrintOemDriverUI* m_pOEMHelp = nullptr;
};
