#include "host/plugin_sheet.h"

#include "host/failure.h"
#include "host/report.h"
#include "host/wide.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace {

// A sheet's items are counted in 16 bits by the platform's own tree view.
constexpr DWORD kMaxOemItems = 0xFFFF;

// The platform calls back with nothing but its own handle of the sheet.
std::mutex g_sheetsMutex;
std::map<HANDLE, PluginSheet*> g_sheets;

PluginSheet* FindSheet(HANDLE handle) {
    std::lock_guard lock(g_sheetsMutex);
    auto found = g_sheets.find(handle);
    return found == g_sheets.end() ? nullptr : found->second;
}

} // namespace

PluginSheet::PluginSheet(HANDLE printer, PCWSTR name)
    : m_driver(printer, name), m_heap(HeapCreate(0, 0, 0)), m_helper(new DriverUi),
      m_printerName(m_driver.Printer().Name()) {
    if (!m_heap)
        throw Failure("The plug-in's heap can't be made.");
    m_items.cbSize = sizeof m_items;
    m_items.poemuiobj = m_driver.OemPlugin().Object();
    m_items.hPrinter = m_driver.Printer().Get();
    m_items.pPrinterName = m_printerName.data();
    m_items.hModule = m_driver.OemPlugin().Module();
    m_items.hOEMHeap = m_heap.Get();
}

PluginSheet::~PluginSheet() {
    m_helper->SetItems(nullptr, nullptr);
    std::lock_guard lock(g_sheetsMutex);
    std::erase_if(g_sheets, [&](const auto& entry) { return entry.second == this; });
}

void PluginSheet::Open(PPROPSHEETUI_INFO info) {
    m_info = *info;
    m_comPropSheet = info->pfnComPropSheet;
    {
        std::lock_guard lock(g_sheetsMutex);
        g_sheets[info->hComPropSheet] = this;
    }
    IUnknown* helper = m_helper.get();
    if (FAILED(m_driver.OemPlugin().Interface().PublishDriverInterface(helper)))
        throw Failure("The plug-in refuses the driver's helper.");
    AskForItems();

    m_param.cbSize = sizeof m_param;
    m_param.poemuiobj = m_items.poemuiobj;
    m_param.hPrinter = m_items.hPrinter;
    m_param.pPrinterName = m_items.pPrinterName;
    m_param.hModule = m_items.hModule;
    m_param.hOEMHeap = m_items.hOEMHeap;
    m_param.pPublicDM = m_items.pPublicDM;
    m_param.pOEMDM = m_items.pOEMDM;
    m_param.pOEMUserData = m_items.pOEMUserData;
    m_param.dwFlags = m_items.dwFlags;
    HRESULT status = Forward(info, reinterpret_cast<LPARAM>(&m_param));
    if (FAILED(status))
        throw Failure("The plug-in adds no pages.");
    m_opened = true;
    m_title = Title();
    m_naming.emplace(m_title);
}

// First for the number of items, then to have that many filled in. The second call comes, and with an array,
// also for no items: plug-ins set up their sheet in it.
void PluginSheet::AskForItems() {
    m_items.pOEMOptItems = nullptr;
    m_items.cOEMOptItems = 0;
    CallItems("count its items");
    if (m_items.cOEMOptItems > kMaxOemItems)
        throw Failure("The plug-in asks for too many items.");
    m_oemItems.resize(std::max<std::size_t>(m_items.cOEMOptItems, 1));
    m_items.pOEMOptItems = m_oemItems.data();
    CallItems("fill its items");
    m_items.cOEMOptItems = std::min(m_items.cOEMOptItems, static_cast<DWORD>(m_oemItems.size()));
}

void PluginSheet::CallItems(const char* when) {
    if (FAILED(m_driver.OemPlugin().Interface().CommonUIProp(SheetKind(), &m_items)))
        throw Failure(std::string("The plug-in fails to ") + when + ".");
}

// The plug-in sees the sheet through a copy: with its own parameter, its own user data, and a callback that
// notes the result.
HRESULT PluginSheet::Forward(PPROPSHEETUI_INFO info, LPARAM param) {
    PROPSHEETUI_INFO copy = *info;
    copy.pfnComPropSheet = &ComPropSheet;
    copy.lParamInit = reinterpret_cast<LPARAM>(&m_param);
    copy.UserData = m_pluginUserData;
    HRESULT status = (m_driver.OemPlugin().Interface().*PagesOf())(&copy, param);
    m_pluginUserData = copy.UserData;
    info->Result = copy.Result;
    return status;
}

LONG_PTR CALLBACK PluginSheet::ComPropSheet(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    PluginSheet* self = FindSheet(sheet);
    if (!self)
        return 0;
    try {
        return self->PassOn(sheet, function, first, second);
    } catch (const std::exception& failure) {
        Report(failure.what());
    } catch (...) {
        Report("The plug-in's call fails for an unknown reason.");
    }
    return 0;
}

// Wine's common property sheet does not know CPSFUNC_SET_RESULT: it returns 0 and tells nobody. What the
// platform does with it is done here, namely to note the result and to call the sheet's function with
// PROPSHEETUI_REASON_SET_RESULT, which may have its say.
LONG_PTR PluginSheet::PassOn(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    if (function != CPSFUNC_SET_RESULT)
        return m_comPropSheet(sheet, function, first, second);
    NoteResult(reinterpret_cast<HANDLE>(first), second);
    return 1;
}

void PluginSheet::NoteResult(HANDLE page, LRESULT result) {
    SETRESULT_INFO set{sizeof(SETRESULT_INFO), 0, page, result};
    PROPSHEETUI_INFO info = m_info;
    info.Reason = PROPSHEETUI_REASON_SET_RESULT;
    info.Result = static_cast<ULONG_PTR>(result);
    Forward(&info, reinterpret_cast<LPARAM>(&set));
    m_result = static_cast<LRESULT>(info.Result);
    if (m_result != CPSUI_OK)
        return;
    ApplyOemItems();
    Accept();
}

// The tree view page, which Wine does not have, would tell a plug-in that its items are to be kept.
void PluginSheet::ApplyOemItems() {
    if (!m_items.OEMCUIPCallback || m_items.cOEMOptItems == 0)
        return;
    CPSUICBPARAM param{};
    param.cbSize = sizeof param;
    param.Reason = CPSUICB_REASON_APPLYNOW;
    param.pOptItem = m_oemItems.data();
    param.cOptItem = static_cast<WORD>(m_items.cOEMOptItems);
    param.pCurItem = m_oemItems.data();
    param.UserData = reinterpret_cast<ULONG_PTR>(m_items.pOEMUserData);
    m_items.OEMCUIPCallback(&param, &m_items);
}

LONG PluginSheet::Handle(PPROPSHEETUI_INFO info, LPARAM param) {
    switch (info->Reason) {
    case PROPSHEETUI_REASON_GET_INFO_HEADER: return GiveHeader(info, param);
    case PROPSHEETUI_REASON_DESTROY: return Close(info, param);
    default: return SUCCEEDED(Forward(info, param)) ? 1 : 0;
    }
}

// Plug-ins have their turn, but the title is the driver's.
LONG PluginSheet::GiveHeader(PPROPSHEETUI_INFO info, LPARAM param) {
    Forward(info, param);
    auto* header = reinterpret_cast<PPROPSHEETUI_INFO_HEADER>(param);
    header->pTitle = reinterpret_cast<LPTSTR>(m_title.data());
    header->Flags = PSUIHDRF_EXACT_PTITLE;
    return 1;
}

// Under Wine the caller of the sheet is shown the result that stands in `info` now, and no other.
LONG PluginSheet::Close(PPROPSHEETUI_INFO info, LPARAM param) {
    m_naming.reset();
    if (m_opened)
        Forward(info, param);
    if (m_result == CPSUI_OK)
        Deliver();
    info->Result = static_cast<ULONG_PTR>(m_result);
    return 1;
}

LONG DriveSheet(PPROPSHEETUI_INFO info, LPARAM param,
                std::unique_ptr<PluginSheet> (*make)(LPARAM lParamInit)) {
    if (info->Reason == PROPSHEETUI_REASON_INIT) {
        info->UserData = 0;
        auto opening = make(info->lParamInit);
        opening->Open(info);
        info->UserData = reinterpret_cast<ULONG_PTR>(opening.release());
        return 1;
    }
    // Wine sends a reason of its own, 5, in front of INIT, and DESTROY also where INIT has failed.
    auto* sheet = reinterpret_cast<PluginSheet*>(info->UserData);
    if (!sheet)
        return 1;
    if (info->Reason != PROPSHEETUI_REASON_DESTROY)
        return sheet->Handle(info, param);
    std::unique_ptr<PluginSheet> closing(sheet);
    info->UserData = 0;
    return closing->Handle(info, param);
}
