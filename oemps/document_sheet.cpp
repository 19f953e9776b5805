#include "oemps/document_sheet.h"

#include "Common/ProfileInfo.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "oemps/com_guard.h"
#include "oemps/dotnet.h"
#include "oemps/property_sheet.h"
#include "oemps/sheet_state.h"
#include "pages/advancedpage.h"
#include "pages/controls.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/initialize_data_manager.h"
#include "session/session.h"
#include "settings/SettingManager.h"

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace {

// Where the driver's own area begins in the DEVMODE that it hands over.
constexpr std::size_t kPublicDevModeSize = 220;
static_assert(sizeof(DEVMODEW) == kPublicDevModeSize);

// The resource number that the driver's group of advanced features bears instead of a name.
constexpr DWORD kAdvancedFeaturesName = 418;

void ShowWarning(unsigned textId) {
    MessageBoxA(GetForegroundWindow(), LoadText(textId).c_str(), LoadText(IDS_WARNING_TITLE).c_str(),
                MB_OK | MB_ICONWARNING);
}

bool RequireDotNet() {
    if (IsDotNet4Present())
        return true;
    ShowWarning(IDS_NO_DOTNET);
    return false;
}

struct FreeSession {
    void operator()(SessionBlock* block) const { HeapFree(block->hOEMHeap, 0, block); }
};
using UniqueSession = std::unique_ptr<SessionBlock, FreeSession>;

UniqueSession CreateSession(const OEMCUIPPARAM& param) {
    auto* block =
        static_cast<SessionBlock*>(HeapAlloc(param.hOEMHeap, HEAP_ZERO_MEMORY, sizeof(SessionBlock)));
    if (!block)
        return {};
    block->hOEMHeap = param.hOEMHeap;
    block->pOEMDM = static_cast<PrivateDevMode*>(param.pOEMDM);
    block->hPrinter = param.hPrinter;
    if (param.pPublicDM) {
        block->dmDriverVersion = param.pPublicDM->dmDriverVersion;
        block->pDrvExtra = reinterpret_cast<std::uint8_t*>(param.pPublicDM) + kPublicDevModeSize;
        block->drvExtraSize =
            param.pPublicDM->dmSize == kPublicDevModeSize ? param.pPublicDM->dmDriverExtra : 0;
    }
    return UniqueSession(block);
}

void HideAdvancedFeatures(std::span<OPTITEM> items) {
    for (std::size_t at = 0; at < items.size(); ++at) {
        if (static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(items[at].pName)) != kAdvancedFeaturesName)
            continue;
        items[at].Flags |= OPTIF_HIDE;
        while (++at < items.size() && items[at].Level > 1)
            items[at].Flags |= OPTIF_HIDE;
        return;
    }
}

void HideAll(std::span<OPTITEM> items) {
    for (OPTITEM& item : items)
        item.Flags |= OPTIF_HIDE;
}

// The sheet's pages are added by now, so a profile that can't be read must not end the sheet's start.
void ReadDeviceProfile(SessionBlock& block) {
    ExportedFunc_GetProfile(block.Profile);
    ComGuard(__func__, [&] {
        ProcessProfile()->UpdateProfile(block.Profile);
        return S_OK;
    });
}

// The pages exist before the block is complete; they get their first message after the callback has returned.
void AddPages(PROPSHEETUI_INFO& info, IPrintOemDriverUI* helper) {
    RegisterPageControls();
    SessionBlock& block = *g_SessionBlock;
    const auto session = reinterpret_cast<LPARAM>(g_SessionBlock);
    AddPage(info, IDD_STANDARD_PAGE, IDS_STANDARD_PAGE_TITLE, StandardPageProc, session);
    const LONG_PTR second =
        AddPage(info, IDD_ADVANCED_PAGE, IDS_ADVANCED_PAGE_TITLE, AdvancedPageProc, session);

    block.pDriverUI = helper;
    if (const auto* sheet = reinterpret_cast<const OEMUIPSPARAM*>(info.lParamInit))
        block.poemuiobj = sheet->poemuiobj;
    block.hComPropSheet = info.hComPropSheet;
    block.pfnComPropSheet = info.pfnComPropSheet;
    block.hResultPage = reinterpret_cast<HANDLE>(second);
    g_SheetThread = GetCurrentThreadId();

    ReadDeviceProfile(block);

    ++g_SheetCount;
    info.Result = second;
}

HRESULT OpenSheet(PROPSHEETUI_INFO& info, IPrintOemDriverUI* helper) {
    info.Result = 0;
    // The box comes once more than for CommonUIProp: this sheet is the one that the user has asked for.
    if (!RequireDotNet())
        return E_FAIL;
    if (g_SheetCount >= 1) {
        ShowWarning(IDS_SHEET_IN_USE);
        ++g_SheetCount;
        return S_OK;
    }
    if (!g_SessionBlock) {
        ZR_LOG("no session\n");
        return E_FAIL;
    }
    AddPages(info, helper);
    return S_OK;
}

// The end of any sheet on the session's thread ends the session, also that of a refused second sheet.
void CloseSheet() {
    // A sheet whose start failed was never counted.
    if (g_SheetCount > 0)
        --g_SheetCount;
    if (GetCurrentThreadId() != g_SheetThread)
        return;
    // It owns setting objects, which reach the store through the session. A sheet whose session went with a
    // refused second one may have made it anew.
    CSettingManager::Destroy();
    if (!g_SessionBlock)
        return;
    CSessionAccessor::Release();
    UniqueSession(std::exchange(g_SessionBlock, nullptr)).reset();
}

// A session whose sheet never opened, or ended on another thread, lies in a heap that the driver may have
// destroyed. With no sheet open it is only forgotten. The manager that such a sheet left goes, since only one
// that is made anew loads the standard settings.
void ForgetSession() {
    CSettingManager::Destroy();
    CSessionAccessor::Release();
    g_SessionBlock = nullptr;
}

} // namespace

HRESULT hrDocumentPropertyPage(OEMCUIPPARAM* param) {
    ZR_LOG_ENTRY();
    if (g_SheetCount > 0)
        return S_OK;
    ForgetSession();
    if (!param->pOEMOptItems) {
        param->cOEMOptItems = 0;
        return S_OK;
    }
    if (!RequireDotNet()) {
        param->cOEMOptItems = 0;
        return S_OK;
    }
    if (!param->pOEMDM) {
        ZR_LOG("no record\n");
        return S_OK;
    }
    UniqueSession session = CreateSession(*param);
    if (!session) {
        ZR_LOG("no session block\n");
        return S_OK;
    }
    InitializeDataManager();
    CSession::HidePrinterSetting(param, session.get());
    CSessionAccessor::Instance()->SetSession(session.get());
    g_SessionBlock = session.release();

    const std::span items(param->pDrvOptItems, param->pDrvOptItems ? param->cDrvOptItems : 0);
    HideAdvancedFeatures(items);
    HideAll(items);
    return S_OK;
}

HRESULT hrOEMDocumentPropertySheets(PROPSHEETUI_INFO* info, LPARAM param, IPrintOemDriverUI* helper) {
    ZR_LOG_ENTRY();
    if (!IsKnownSheetInfo(info))
        return E_FAIL;
    if (info->Reason == PROPSHEETUI_REASON_INIT)
        return OpenSheet(*info, helper);
    if (info->Reason == PROPSHEETUI_REASON_DESTROY)
        CloseSheet();
    AnswerSheetReason(*info, param);
    return S_OK;
}
