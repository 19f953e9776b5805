#include "host/driver_ui.h"

#include "host/report.h"

#include <cstring>

HRESULT DriverUi::QueryInterface(REFIID iid, void** out) {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IPrintOemDriverUI))
        return E_NOINTERFACE;
    AddRef();
    *out = static_cast<IPrintOemDriverUI*>(this);
    return S_OK;
}

ULONG DriverUi::AddRef() {
    return ++m_references;
}

ULONG DriverUi::Release() {
    ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT DriverUi::DrvGetDriverSetting(PVOID, PCSTR feature, PVOID output, DWORD size, PDWORD needed,
                                      PDWORD optionsReturned) {
    // Below 0x10000 the name is one of the numbers by which drivers of other kinds are asked.
    if (!needed || reinterpret_cast<ULONG_PTR>(feature) < 0x10000)
        return E_INVALIDARG;
    const OPTITEM* item = m_items ? m_items->Find(feature) : nullptr;
    if (!item || !m_items->InRange(*item))
        return E_NOTIMPL;
    const auto* record =
        reinterpret_cast<const FeatureRecord*>(reinterpret_cast<const USERDATA*>(item->UserData)->dwItemID);
    const std::string& keyword =
        m_model->Features()[record->index].options[static_cast<std::size_t>(item->Sel)].keyword;
    *needed = static_cast<DWORD>(keyword.size() + 1);
    if (optionsReturned)
        *optionsReturned = 1;
    if (!output || size < *needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);
    }
    std::memcpy(output, keyword.c_str(), *needed);
    return S_OK;
}

HRESULT DriverUi::DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) {
    return E_NOTIMPL;
}

HRESULT DriverUi::DrvUpdateUISetting(PVOID, PVOID optItem, DWORD previousSelection, DWORD) {
    auto* item = static_cast<OPTITEM*>(optItem);
    if (!m_items || !m_items->Contains(item)) {
        Remark("The plug-in updates an item that is not the driver's.");
        return E_INVALIDARG;
    }
    if (!m_items->InRange(*item)) {
        Remark("The plug-in sets an item outside its range.");
        item->Sel = static_cast<LONG>(previousSelection);
        return E_INVALIDARG;
    }
    item->Flags |= OPTIF_CHANGED;
    return S_OK;
}
