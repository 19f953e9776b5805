// The helper that the driver publishes to its plug-in.
#pragma once

#include "host/option_items.h"
#include "oemps/printoem.h"

#include <atomic>

// One for each sheet. A plug-in may keep it beyond the sheet's end, so it is counted, and forgets the items
// when they go.
class DriverUi final : public IPrintOemDriverUI {
  public:
    DriverUi() = default;

    void SetItems(OptionItems* items, const PrinterModel* model) {
        m_items = items;
        m_model = model;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // The keyword of the option that a feature stands at, with its NUL; by keyword only.
    HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID pci, PCSTR feature, PVOID output, DWORD size,
                                                  PDWORD needed, PDWORD optionsReturned) override;

    HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE printer, PCSTR feature, PCSTR option) override;

    // Takes note of an item that the plug-in has changed: the selection stays and the item is marked. One
    // outside its range goes back to where it was and is refused.
    HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID optItem, DWORD previousSelection,
                                                 DWORD mode) override;

  private:
    ~DriverUi() = default;

    std::atomic<ULONG> m_references{1};
    OptionItems* m_items = nullptr;
    const PrinterModel* m_model = nullptr;
};
