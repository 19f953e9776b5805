// How long the plug-in's document sheet takes from the first CommonUIProp until both pages are painted,
// beside an empty two-page sheet of the same templates. Plays the driver itself, so that nothing but the
// plug-in is in the figure. Prints milliseconds; run it under Wine with a display after the product is built.
#include "host/install_printer.h"
#include "oemps/printoem.h"
#include "session/keyword.h"
#include "tests/support/own_folder.h"

#include <prsht.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

using OpenSheetFunction = LONG(WINAPI*)(HWND, PFNPROPSHEETUI, LPARAM, LPDWORD);

constexpr WORD kTemplates[] = {1066, 4007};
constexpr UINT kBothPagesMessage = WM_APP + 1;
constexpr int kRounds = 30;

OpenSheetFunction openSheet;
HMODULE plugInModule;
// In counts of the performance counter.
LONGLONG painted;

LONGLONG Now() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

void PaintAll(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// Sees the message that was posted before the sheet existed, as the first one of the sheet's own loop.
LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && !message.hwnd && message.message == kBothPagesMessage) {
        const HWND sheet = GetActiveWindow();
        PaintAll(sheet);
        SendMessageA(sheet, PSM_SETCURSEL, 1, 0);
        PaintAll(sheet);
        painted = Now();
        PostMessageA(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void ShowSheet(PFNPROPSHEETUI callback, LPARAM param) {
    HHOOK hook = SetWindowsHookExA(WH_GETMESSAGE, OnMessage, nullptr, GetCurrentThreadId());
    PostThreadMessageA(GetCurrentThreadId(), kBothPagesMessage, 0, 0);
    DWORD result = 0;
    openSheet(nullptr, callback, param, &result);
    UnhookWindowsHookEx(hook);
}

double MillisecondsSince(LONGLONG start) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(painted - start) / static_cast<double>(frequency.QuadPart);
}

INT_PTR CALLBACK EmptyPage(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

LONG CALLBACK EmptySheet(PPROPSHEETUI_INFO info, LPARAM) {
    if (info->Reason == PROPSHEETUI_REASON_INIT) {
        for (const WORD dialog : kTemplates) {
            PROPSHEETPAGEA page{};
            page.dwSize = sizeof page;
            page.dwFlags = PSP_USETITLE;
            page.hInstance = plugInModule;
            page.pszTemplate = MAKEINTRESOURCEA(dialog);
            page.pszTitle = "empty";
            page.pfnDlgProc = EmptyPage;
            info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEA,
                                  reinterpret_cast<LPARAM>(&page), 0);
        }
    }
    return 1;
}

double TimeEmptySheet() {
    const auto start = Now();
    ShowSheet(EmptySheet, 0);
    return MillisecondsSince(start);
}

class Helper final : public IPrintOemDriverUI {
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

// A driver whose tree has one item for every keyword.
class Driver {
  public:
    explicit Driver(HANDLE printer) : m_record(24112) {
        m_features.fill({0, 0, 0, 0});
        m_optType.cbSize = sizeof m_optType;
        m_optType.Count = 2;
        for (int id = 0; id < kKeywordCount; ++id) {
            const auto at = static_cast<std::size_t>(id);
            m_userData[at] = {};
            m_userData[at].dwSize = sizeof(USERDATA);
            m_userData[at].dwItemID = reinterpret_cast<ULONG_PTR>(&m_features[at]);
            m_userData[at].pKeyWordName = const_cast<PSTR>(kKeywordNames[at]);
            m_items[at] = {};
            m_items[at].cbSize = sizeof(OPTITEM);
            m_items[at].Level = 2;
            m_items[at].pOptType = &m_optType;
            m_items[at].UserData = reinterpret_cast<ULONG_PTR>(&m_userData[at]);
        }
        m_public.devmode.dmSize = sizeof(DEVMODEW);
        m_public.devmode.dmDriverVersion = 0x600;
        m_public.devmode.dmDriverExtra = sizeof m_public.extra;
        m_heap = HeapCreate(0, 0, 0);
        m_param.cbSize = sizeof m_param;
        m_param.hPrinter = printer;
        m_param.hOEMHeap = m_heap;
        m_param.pPublicDM = &m_public.devmode;
        m_param.pOEMDM = m_record.data();
        m_param.pDrvOptItems = m_items.data();
        m_param.cDrvOptItems = static_cast<DWORD>(m_items.size());
        m_sheet.cbSize = sizeof m_sheet;
        m_sheet.hPrinter = printer;
    }
    ~Driver() { HeapDestroy(m_heap); }
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    double TimeSheet(IPrintOemUI& plugIn) {
        OEMDMPARAM dm{};
        dm.cbSize = sizeof dm;
        dm.pOEMDMOut = m_record.data();
        plugIn.DevMode(OEMDM_DEFAULT, &dm);
        m_plugIn = &plugIn;

        const auto start = Now();
        m_param.pOEMOptItems = nullptr;
        plugIn.CommonUIProp(OEMCUIP_DOCPROP, &m_param);
        OPTITEM none{};
        m_param.pOEMOptItems = &none;
        plugIn.CommonUIProp(OEMCUIP_DOCPROP, &m_param);
        m_opened = Now();
        ShowSheet(Sheet, reinterpret_cast<LPARAM>(this));
        return MillisecondsSince(start);
    }
    double OpeningMilliseconds(double whole) const { return whole - MillisecondsSince(m_opened); }

  private:
    static LONG CALLBACK Sheet(PPROPSHEETUI_INFO info, LPARAM param) {
        auto& driver = *reinterpret_cast<Driver*>(info->lParamInit);
        PROPSHEETUI_INFO own = *info;
        own.lParamInit = reinterpret_cast<LPARAM>(&driver.m_sheet);
        driver.m_plugIn->DocumentPropertySheets(&own, param);
        return 1;
    }

    HANDLE m_heap;
    std::vector<unsigned char> m_record;
    std::array<std::array<DWORD, 4>, kKeywordCount> m_features;
    std::array<USERDATA, kKeywordCount> m_userData;
    std::array<OPTITEM, kKeywordCount> m_items;
    OPTTYPE m_optType{};
    struct {
        DEVMODEW devmode{};
        unsigned char extra[400] = {};
    } m_public;
    OEMCUIPPARAM m_param{};
    OEMUIPSPARAM m_sheet{};
    IPrintOemUI* m_plugIn = nullptr;
    LONGLONG m_opened;
};

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main() {
    const InstallResult installed = InstallPrinter(OwnFolder().wstring());
    if (!installed.ok) {
        std::printf("%ls\n", installed.message.c_str());
        return 1;
    }
    // Where a sheet opens, the driver's module and the plug-in are loaded, both from the driver's folder.
    LoadLibraryW((installed.driverDirectory + L"\\x100drvui.dll").c_str());
    plugInModule = LoadLibraryExW((installed.driverDirectory + L"\\ZRPDS31J.dll").c_str(), nullptr,
                                  LOAD_WITH_ALTERED_SEARCH_PATH);
    wchar_t name[] = L"Orvane X100";
    HANDLE printer = nullptr;
    openSheet = reinterpret_cast<OpenSheetFunction>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("compstui.dll"), "CommonPropertySheetUIW")));
    if (!plugInModule || !openSheet || !OpenPrinterW(name, &printer, nullptr)) {
        std::printf("cannot start, error %lu\n", GetLastError());
        return 1;
    }
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(plugInModule, "DllGetClassObject")));
    IClassFactory* factory = nullptr;
    IPrintOemUI* plugIn = nullptr;
    getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&plugIn));
    Helper helper;
    plugIn->PublishDriverInterface(&helper);
    Driver driver(printer);

    std::vector<double> empty;
    std::vector<double> own;
    std::vector<double> opening;
    TimeEmptySheet();
    driver.TimeSheet(*plugIn);
    for (int round = 0; round < kRounds; ++round) {
        empty.push_back(TimeEmptySheet());
        own.push_back(driver.TimeSheet(*plugIn));
        opening.push_back(driver.OpeningMilliseconds(own.back()));
    }
    std::printf("medians of %d rounds\n", kRounds);
    std::printf("empty two-page sheet          %7.2f ms\n", Median(empty));
    std::printf("plug-in's sheet               %7.2f ms, of it CommonUIProp %.2f ms\n", Median(own),
                Median(opening));
    std::printf("ratio                         %7.2f\n", Median(own) / Median(empty));
    plugIn->Release();
    factory->Release();
    ClosePrinter(printer);
    return 0;
}
