#include "oemps/class_factory.h"
#include "oemps/com_guard.h"
#include "oemps/module.h"
#include "oemps/printoem.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        SetModuleHandle(instance);
    return TRUE;
}

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) {
    return ComGuard(__func__, [&]() -> HRESULT {
        ZR_LOG_ENTRY();
        if (out)
            *out = nullptr;
        if (!IsEqualCLSID(clsid, CLSID_OEMUI))
            return CLASS_E_CLASSNOTAVAILABLE;
        return GiveNewObject<IOemCF>(iid, out);
    });
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return CanUnloadModule() ? S_OK : S_FALSE;
}
}
