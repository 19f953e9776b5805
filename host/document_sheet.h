// The sheet of one document's settings.
#pragma once

#include "host/plugin_sheet.h"
#include "host/x100drvui.h"

class DocumentSheet final : public PluginSheet {
  public:
    // The header must outlive the sheet, as the platform's does.
    explicit DocumentSheet(DOCUMENTPROPERTYHEADER& header);

  private:
    DWORD SheetKind() const override { return OEMCUIP_DOCPROP; }
    PageCallback PagesOf() const override { return &IPrintOemUI::DocumentPropertySheets; }
    std::wstring Title() const override {
        return PrinterName() + (InJapanese() ? L" 印刷設定" : L" Printing Preferences");
    }
    void Accept() override;
    void Deliver() override;

    DOCUMENTPROPERTYHEADER& m_header;
    DevModeBytes m_devmode;  // what the plug-in works on
    DevModeBytes m_accepted; // as it stood when it was last applied
    std::unique_ptr<OptionItems> m_options;
};

// The DEVMODE that a caller gives to start from, null if none.
const DEVMODEW* GivenDevMode(const DOCUMENTPROPERTYHEADER& header);

// Writes a whole DEVMODE to where a caller wants it, if it does. Throws Failure if its buffer is too small.
void GiveDevMode(const DevModeBytes& devmode, DOCUMENTPROPERTYHEADER& header);
