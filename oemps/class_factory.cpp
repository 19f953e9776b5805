#include "oemps/class_factory.h"

#include "oemps/com_guard.h"
#include "oemps/module.h"
#include "oemps/oemui.h"

#include <new>

HRESULT STDMETHODCALLTYPE IOemCF::QueryInterface(REFIID iid, void** out) {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory))
        return E_NOINTERFACE;
    *out = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE IOemCF::AddRef() {
    return ++m_references;
}

ULONG STDMETHODCALLTYPE IOemCF::Release() {
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT STDMETHODCALLTYPE IOemCF::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
    return ComGuard(__func__, [&]() -> HRESULT {
        ZR_LOG_ENTRY();
        if (out)
            *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        auto* plugIn = new (std::nothrow) IOemUI;
        if (!plugIn)
            return E_OUTOFMEMORY;
        const HRESULT result = plugIn->QueryInterface(iid, out);
        plugIn->Release();
        return result;
    });
}

HRESULT STDMETHODCALLTYPE IOemCF::LockServer(BOOL lock) {
    ZR_LOG_ENTRY();
    LockModule(lock != FALSE);
    return S_OK;
}
