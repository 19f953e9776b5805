// One open property sheet with the plug-in's pages, as far as document and device sheets are alike.
#pragma once

#include "Common/win_handles.h"
#include "host/driver.h"
#include "host/driver_ui.h"
#include "host/sheet_title.h"
#include "oemps/printoem.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

// Lives from PROPSHEETUI_REASON_INIT to PROPSHEETUI_REASON_DESTROY, on the sheet's thread. Its address stands
// in PROPSHEETUI_INFO::UserData.
class PluginSheet {
  public:
    virtual ~PluginSheet();
    PluginSheet(const PluginSheet&) = delete;
    PluginSheet& operator=(const PluginSheet&) = delete;

    // Everything of PROPSHEETUI_REASON_INIT: the plug-in is asked for its items and adds its pages. Throws
    // Failure.
    void Open(PPROPSHEETUI_INFO info);

    // Any later reason.
    LONG Handle(PPROPSHEETUI_INFO info, LPARAM param);

  protected:
    using PageCallback = HRESULT (STDMETHODCALLTYPE IPrintOemUI::*)(PPROPSHEETUI_INFO, LPARAM);

    PluginSheet(HANDLE printer, PCWSTR name);

    Driver& TheDriver() { return m_driver; }

    // What the plug-in is told about the sheet; parts of it may be filled in by a constructor.
    OEMCUIPPARAM& ItemsParam() { return m_items; }
    OEMUIPSPARAM& SheetParam() { return m_param; }
    DriverUi& Helper() { return *m_helper; }
    std::wstring PrinterName() const { return m_driver.Printer().Name(); }
    bool InJapanese() const { return m_driver.Model().TextLanguage() == Language::Japanese; }

  private:
    virtual DWORD SheetKind() const = 0; // OEMCUIP_
    virtual PageCallback PagesOf() const = 0;
    virtual std::wstring Title() const = 0;
    virtual void Accept() {}  // the user has applied the settings
    virtual void Deliver() {} // the sheet closes and the settings are to be kept

    static LONG_PTR CALLBACK ComPropSheet(HANDLE sheet, UINT function, LPARAM first, LPARAM second);

    void AskForItems();
    void CallItems(const char* when);
    HRESULT Forward(PPROPSHEETUI_INFO info, LPARAM param);
    LONG_PTR PassOn(HANDLE sheet, UINT function, LPARAM first, LPARAM second);
    void NoteResult(HANDLE page, LRESULT result);
    void ApplyOemItems();
    LONG GiveHeader(PPROPSHEETUI_INFO info, LPARAM param);
    LONG Close(PPROPSHEETUI_INFO info, LPARAM param);

    Driver m_driver;
    UniqueHeap m_heap;
    UniqueCom<DriverUi> m_helper;
    std::wstring m_printerName; // the plug-in gets it writable
    std::wstring m_title;
    std::optional<SheetTitle> m_naming;
    std::vector<OPTITEM> m_oemItems;
    OEMCUIPPARAM m_items{};
    OEMUIPSPARAM m_param{};

    PROPSHEETUI_INFO m_info{}; // of the sheet, for calls that come from its pages
    PFNCOMPROPSHEET m_comPropSheet = nullptr;
    ULONG_PTR m_pluginUserData = 0;
    bool m_opened = false; // the plug-in has taken part in PROPSHEETUI_REASON_INIT
    LRESULT m_result = CPSUI_CANCEL;
};

// Makes a sheet for an INIT and drives it by the reasons after it, the frame of both exported callbacks.
LONG DriveSheet(PPROPSHEETUI_INFO info, LPARAM param,
                std::unique_ptr<PluginSheet> (*make)(LPARAM lParamInit));
