#include "oemps/class_factory.h"

#include "oemps/com_guard.h"
#include "oemps/module.h"
#include "oemps/oemui.h"

HRESULT STDMETHODCALLTYPE IOemCF::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
    return ComGuard(__func__, [&]() -> HRESULT {
        ZR_LOG_ENTRY();
        if (out)
            *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return GiveNewObject<IOemUI>(iid, out);
    });
}

HRESULT STDMETHODCALLTYPE IOemCF::LockServer(BOOL lock) {
    ZR_LOG_ENTRY();
    LockModule(lock != FALSE);
    return S_OK;
}
