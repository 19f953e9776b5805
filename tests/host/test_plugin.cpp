#include "test_plugin.h"

#include <commctrl.h>
#include <prsht.h>

#include <cstring>
#include <string>

namespace {

std::string g_calls;
TestPluginHooks g_hooks;
OEMCUIPPARAM g_param;                  // of the second CommonUIProp
IPrintOemDriverUI* g_helper = nullptr; // not counted; good while the sheet is open
PFNCOMPROPSHEET g_comPropSheet = nullptr;
HANDLE g_sheet = nullptr;
HANDLE g_page = nullptr;

void Record(const std::string& call) {
    g_calls += call + " ";
}

void Check(bool condition, const char* what) {
    if (!condition)
        Record(std::string("WRONG:") + what);
}

void Apply() {
    Record("apply");
    if (g_hooks.onApply)
        g_hooks.onApply(&g_param, g_helper);
    if (g_hooks.setResult)
        g_comPropSheet(g_sheet, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(g_page), CPSUI_OK);
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM, LPARAM lParam) {
    constexpr UINT_PTR kPress = 1;
    if (message == WM_INITDIALOG && g_hooks.press != 0)
        SetTimer(page, kPress, 50, nullptr);
    if (message == WM_TIMER) {
        KillTimer(page, kPress);
        PropSheet_PressButton(GetParent(page), g_hooks.press == IDOK ? PSBTN_OK : PSBTN_CANCEL);
    }
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == static_cast<UINT>(PSN_APPLY))
        Apply();
    return message == WM_INITDIALOG;
}

// A page without controls.
struct {
    DLGTEMPLATE dialog{WS_CHILD | WS_VISIBLE | WS_CAPTION, 0, 0, 0, 0, 200, 100};
    WORD menu = 0, windowClass = 0, title = 0;
} g_template;

class TestPlugin final : public IPrintOemUI {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IPrintOemUI);
        *out = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override {
        ULONG left = --m_references;
        if (left == 0) {
            Record("released");
            if (m_helper)
                m_helper->Release();
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetInfo(DWORD mode, PVOID buffer, DWORD size, PDWORD needed) override {
        Check((mode == OEMGI_GETSIGNATURE || mode == OEMGI_GETVERSION) && size == sizeof(DWORD) && needed,
              "GetInfo");
        *static_cast<DWORD*>(buffer) = mode == OEMGI_GETSIGNATURE ? kTestSignature : kTestVersion;
        *needed = sizeof(DWORD);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE DevMode(DWORD mode, POEMDMPARAM param) override {
        Record("DevMode" + std::to_string(mode));
        if (FAILED(g_hooks.devModeStatus))
            return g_hooks.devModeStatus;
        Check(param->cbSize == sizeof *param && param->pdriverobj, "OEMDMPARAM");
        if (mode == OEMDM_SIZE) {
            param->cbBufSize = g_hooks.blockSize;
            return S_OK;
        }
        auto* out = static_cast<TestBlock*>(param->pOEMDMOut);
        auto* whole = reinterpret_cast<BYTE*>(param->pPublicDMOut);
        std::size_t end = param->pPublicDMOut->dmSize + param->pPublicDMOut->dmDriverExtra;
        Check(param->cbBufSize == sizeof(TestBlock), "cbBufSize");
        Check(reinterpret_cast<BYTE*>(out + 1) == whole + end, "block at the end");
        if (mode == OEMDM_DEFAULT) {
            out->header = {sizeof(TestBlock), kTestSignature, kTestVersion};
            out->value = 7;
        } else {
            Check(param->pPublicDMIn && param->pOEMDMIn, "in");
            if (FAILED(g_hooks.takeStatus))
                return g_hooks.takeStatus;
            out->value = static_cast<const TestBlock*>(param->pOEMDMIn)->value;
            out->takenBy = mode;
        }
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* driver) override {
        Record("Publish");
        Check(SUCCEEDED(driver->QueryInterface(IID_IPrintOemDriverUI, reinterpret_cast<void**>(&m_helper))),
              "helper");
        g_helper = m_helper;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD mode, POEMCUIPPARAM param) override {
        Record("Items" + std::to_string(mode) + (param->pOEMOptItems ? "b" : "a"));
        Check(param->cbSize == sizeof *param && param->poemuiobj && param->hOEMHeap, "OEMCUIPPARAM");
        Check(HeapValidate(param->hOEMHeap, 0, nullptr), "heap");
        if (!param->pOEMOptItems) {
            param->cOEMOptItems = g_hooks.oemItems;
            return S_OK;
        }
        Check(param->cOEMOptItems == g_hooks.oemItems, "cOEMOptItems");
        g_param = *param;
        if (g_hooks.onItems)
            g_hooks.onItems(param, g_helper);
        param->pOEMUserData = &g_param;
        if (g_hooks.oemItems > 0)
            param->OEMCUIPCallback = &TestPlugin::Applied;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM param) override {
        return Sheet("Doc", info, param);
    }
    HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM param) override {
        return Sheet("Dev", info, param);
    }

    HRESULT STDMETHODCALLTYPE DevQueryPrintEx(POEMUIOBJ, PDEVQUERYPRINT_INFO, PDEVMODEW, PVOID) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DeviceCapabilitiesA(POEMUIOBJ, HANDLE, PWSTR, WORD, PVOID, PDEVMODEW, PVOID,
                                                  DWORD, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD, PBYTE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR name, INT event, DWORD flags, LPARAM param) override {
        const std::wstring text = name ? name : L"(none)";
        Record("PrinterEvent" + std::to_string(event) + ":" + std::string(text.begin(), text.end()) + ":" +
               std::to_string(flags) + ":" + std::to_string(param));
        return g_hooks.eventStatus;
    }
    HRESULT STDMETHODCALLTYPE DriverEvent(DWORD event, DWORD level, LPBYTE info, LPARAM param) override {
        Record("DriverEvent" + std::to_string(event) + ":" + std::to_string(level) + ":" +
               (info ? std::to_string(*info) : "(none)") + ":" + std::to_string(param));
        return g_hooks.eventStatus;
    }
    HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE, POEMUIOBJ, PDEVMODEW, PVOID, ULONG, VOID*, ULONG*,
                                                FLONG*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND, UINT, WPARAM, LPARAM) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE, HANDLE, PWSTR) override { return E_NOTIMPL; }

  private:
    ~TestPlugin() = default;

    static LONG APIENTRY Applied(PCPSUICBPARAM param, POEMCUIPPARAM) {
        Check(param->pOptItem && param->cOptItem == g_hooks.oemItems, "apply items");
        Record("Applied" + std::to_string(param->Reason));
        return 0;
    }

    HRESULT Sheet(const char* kind, PPROPSHEETUI_INFO info, LPARAM param) {
        Record(kind + std::to_string(info->Reason));
        auto* sheet = reinterpret_cast<POEMUIPSPARAM>(info->lParamInit);
        Check(info->Version == 0x100 && sheet && sheet->cbSize == sizeof *sheet, "PROPSHEETUI_INFO");
        Check(sheet->pOEMUserData == &g_param && sheet->hOEMHeap == g_param.hOEMHeap, "OEMUIPSPARAM");
        if (info->Reason == PROPSHEETUI_REASON_INIT) {
            info->UserData = 0x1234;
            return AddPage(info, param);
        }
        Check(info->UserData == 0x1234, "UserData");
        if (info->Reason == PROPSHEETUI_REASON_SET_RESULT)
            info->Result = static_cast<ULONG_PTR>(reinterpret_cast<PSETRESULT_INFO>(param)->Result);
        else
            info->Result = info->Reason == PROPSHEETUI_REASON_DESTROY;
        return S_OK;
    }

    HRESULT AddPage(PPROPSHEETUI_INFO info, LPARAM param) {
        Check(param == info->lParamInit, "param");
        if (FAILED(g_hooks.pagesStatus))
            return g_hooks.pagesStatus;
        info->Result = 0;
        if (!g_hooks.addPages)
            return S_OK;
        g_comPropSheet = info->pfnComPropSheet;
        g_sheet = info->hComPropSheet;
        PROPSHEETPAGEA page{};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_USETITLE | PSP_DLGINDIRECT;
        page.pResource = &g_template.dialog;
        page.pszTitle = "Test";
        page.pfnDlgProc = &PageProc;
        g_page = reinterpret_cast<HANDLE>(info->pfnComPropSheet(
            info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEA, reinterpret_cast<LPARAM>(&page), 0));
        info->Result = reinterpret_cast<ULONG_PTR>(g_page);
        return S_OK;
    }

    ULONG m_references = 1;
    IPrintOemDriverUI* m_helper = nullptr;
};

class Factory final : public IClassFactory {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
        *out = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** out) override {
        auto* plugin = new TestPlugin;
        HRESULT status = plugin->QueryInterface(iid, out);
        ULONG left = plugin->Release();
        Check(left == 1, "references");
        return status;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    virtual ~Factory() = default;
};
Factory g_factory;

} // namespace

extern "C" {

__declspec(dllexport) HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    return IsEqualCLSID(clsid, CLSID_OEMUI) ? g_factory.QueryInterface(iid, out) : CLASS_E_CLASSNOTAVAILABLE;
}

__declspec(dllexport) const char* TestPluginCalls() {
    return g_calls.c_str();
}

__declspec(dllexport) TestPluginHooks* TestPluginControl() {
    g_calls.clear();
    g_hooks = {};
    return &g_hooks;
}
}
