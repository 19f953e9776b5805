#include "tests/support/plugin_sheet.h"

#include "tests/support/own_folder.h"

namespace {

using OpenSheetFunction = LONG(WINAPI*)(HWND, PFNPROPSHEETUI, LPARAM, LPDWORD);

constexpr UINT kSheetIsOpen = WM_APP + 1;
constexpr std::size_t kRecordSize = 24112;

constexpr WORD kFirstPage = 1066;

const std::function<void(HWND)>* workOnSheet;

// Of the sheet that is open.
PlugInSheet* openSheet;
PFNCOMPROPSHEET addPage;
DLGPROC firstPage;

// Sees the message that was posted before the sheet existed, as the first one of the sheet's own loop.
LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && !message.hwnd && message.message == kSheetIsOpen) {
        const HWND sheet = GetActiveWindow();
        (*workOnSheet)(sheet);
        PostMessageA(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

OpenSheetFunction OpenSheet() {
    static const auto function = reinterpret_cast<OpenSheetFunction>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("compstui.dll"), "CommonPropertySheetUIW")));
    return function;
}

class DriverInterface final : public IPrintOemDriverUI {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
        *out = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID, PCSTR, PVOID, DWORD, PDWORD, PDWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID, PVOID, DWORD, DWORD) override { return S_OK; }
};

DriverInterface driverInterface;

} // namespace

void PaintAll(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void ShowSheetAndCancel(PFNPROPSHEETUI callback, LPARAM param, const std::function<void(HWND)>& work) {
    workOnSheet = &work;
    const HHOOK hook = SetWindowsHookExA(WH_GETMESSAGE, OnMessage, nullptr, GetCurrentThreadId());
    PostThreadMessageA(GetCurrentThreadId(), kSheetIsOpen, 0, 0);
    DWORD result = 0;
    OpenSheet()(nullptr, callback, param, &result);
    UnhookWindowsHookEx(hook);
}

PlugInSheet::PlugInSheet() : m_record(kRecordSize) {
    m_trouble = Load();
    if (!m_trouble.empty())
        return;
    MakeItems();
    m_public.devmode.dmSize = sizeof(DEVMODEW);
    m_public.devmode.dmDriverVersion = 0x600;
    m_public.devmode.dmDriverExtra = sizeof m_public.extra;
    m_heap = HeapCreate(0, 0, 0);
    m_param.cbSize = sizeof m_param;
    m_param.hPrinter = m_printer;
    m_param.hOEMHeap = m_heap;
    m_param.pPublicDM = &m_public.devmode;
    m_param.pOEMDM = m_record.data();
    m_param.pDrvOptItems = m_items.data();
    m_param.cDrvOptItems = static_cast<DWORD>(m_items.size());
    m_sheet.cbSize = sizeof m_sheet;
    m_sheet.hPrinter = m_printer;
}

PlugInSheet::~PlugInSheet() {
    if (m_plugIn)
        m_plugIn->Release();
    if (m_factory)
        m_factory->Release();
    if (m_heap)
        HeapDestroy(m_heap);
    if (m_printer)
        ClosePrinter(m_printer);
}

std::string PlugInSheet::Load() {
    const InstallResult installed = InstallPrinter(OwnFolder().wstring());
    if (!installed.ok)
        return "the printer can't be installed";
    // Where a sheet opens, the driver's module and the plug-in are loaded, both from the driver's folder.
    LoadLibraryW((installed.driverDirectory + L"\\x100drvui.dll").c_str());
    m_module = LoadLibraryExW((installed.driverDirectory + L"\\ZRPDS31J.dll").c_str(), nullptr,
                              LOAD_WITH_ALTERED_SEARCH_PATH);
    wchar_t name[] = L"Orvane X100";
    if (!m_module || !OpenSheet() || !OpenPrinterW(name, &m_printer, nullptr))
        return "cannot start, error " + std::to_string(GetLastError());
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(m_module, "DllGetClassObject")));
    getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&m_factory));
    m_factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&m_plugIn));
    m_plugIn->PublishDriverInterface(&driverInterface);
    return "";
}

void PlugInSheet::MakeItems() {
    struct Count {
        int keyword;
        WORD options;
    };
    // Those that the pages list; all others have two options.
    constexpr Count kCounts[] = {{3, 6},   {4, 8},   {12, 50},  {13, 5},  {15, 59},
                                 {17, 18}, {104, 5}, {106, 5},  {108, 3}, {111, 22},
                                 {112, 6}, {113, 4}, {114, 11}, {138, 2}, {305, 2}};
    for (int id = 0; id < kKeywordCount; ++id) {
        const auto at = static_cast<std::size_t>(id);
        m_optTypes[at].cbSize = sizeof(OPTTYPE);
        m_optTypes[at].Count = 2;
        m_userData[at].dwSize = sizeof(USERDATA);
        m_userData[at].dwItemID = reinterpret_cast<ULONG_PTR>(&m_features[at]);
        m_userData[at].pKeyWordName = const_cast<PSTR>(kKeywordNames[at]);
        m_items[at].cbSize = sizeof(OPTITEM);
        m_items[at].Level = 2;
        m_items[at].pOptType = &m_optTypes[at];
        m_items[at].UserData = reinterpret_cast<ULONG_PTR>(&m_userData[at]);
    }
    for (const auto& [keyword, options] : kCounts)
        m_optTypes[static_cast<std::size_t>(keyword)].Count = options;
}

void PlugInSheet::Prepare() {
    OEMDMPARAM dm{};
    dm.cbSize = sizeof dm;
    dm.pOEMDMOut = m_record.data();
    m_plugIn->DevMode(OEMDM_DEFAULT, &dm);
    m_param.pOEMOptItems = nullptr;
    m_plugIn->CommonUIProp(OEMCUIP_DOCPROP, &m_param);
    OPTITEM none{};
    m_param.pOEMOptItems = &none;
    m_plugIn->CommonUIProp(OEMCUIP_DOCPROP, &m_param);
}

void PlugInSheet::Show(const std::function<void(HWND)>& work) {
    ShowSheetAndCancel(Sheet, reinterpret_cast<LPARAM>(this), work);
}

INT_PTR CALLBACK PlugInSheet::FirstPage(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG && openSheet->beforeFirstPage)
        openSheet->beforeFirstPage();
    return firstPage(page, message, wParam, lParam);
}

// Puts itself between the sheet and the first page.
LONG_PTR CALLBACK PlugInSheet::AddPage(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    auto* page = reinterpret_cast<PROPSHEETPAGEA*>(first);
    if (function == CPSFUNC_ADD_PROPSHEETPAGEA && page->pszTemplate == MAKEINTRESOURCEA(kFirstPage)) {
        firstPage = page->pfnDlgProc;
        page->pfnDlgProc = FirstPage;
    }
    return addPage(sheet, function, first, second);
}

LONG CALLBACK PlugInSheet::Sheet(PPROPSHEETUI_INFO info, LPARAM param) {
    auto& driver = *reinterpret_cast<PlugInSheet*>(info->lParamInit);
    PROPSHEETUI_INFO own = *info;
    own.lParamInit = reinterpret_cast<LPARAM>(&driver.m_sheet);
    openSheet = &driver;
    addPage = info->pfnComPropSheet;
    own.pfnComPropSheet = AddPage;
    driver.m_plugIn->DocumentPropertySheets(&own, param);
    return 1;
}
