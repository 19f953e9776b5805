// The sheet of the printer's own properties.
#pragma once

#include "host/plugin_sheet.h"
#include "host/x100drvui.h"

class DeviceSheet final : public PluginSheet {
  public:
    explicit DeviceSheet(const DEVICEPROPERTYHEADER& header)
        : PluginSheet(header.hPrinter, header.pszPrinterName) {
        if ((header.Flags & DPS_NOPERMISSION) != 0)
            ItemsParam().dwFlags = OEMUI_READ_ONLY;
    }

  private:
    DWORD SheetKind() const override { return OEMCUIP_PRNPROP; }
    PageCallback PagesOf() const override { return &IPrintOemUI::DevicePropertySheets; }
    std::wstring Title() const override {
        return PrinterName() + (InJapanese() ? L"のプロパティ" : L" Properties");
    }
};
