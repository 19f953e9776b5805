// A document sheet as the driver starts and ends it, with a common property sheet of the test's own behind
// it.
#pragma once

#include "oemps/devmode.h"
#include "oemps/document_sheet.h"
#include "oemps/module.h"
#include "oemps/sheet_state.h"
#include "session/session.h"
#include "settings/SettingManager.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

struct AddedPage {
    WORD dialog;
    WORD title;
    DWORD flags;
    LPARAM param;
};

inline std::vector<AddedPage> addedPages;

inline LONG_PTR CALLBACK ComPropSheet(HANDLE, UINT function, LPARAM param1, LPARAM) {
    if (function != CPSFUNC_ADD_PROPSHEETPAGEA)
        return 0;
    const auto& page = *reinterpret_cast<const PROPSHEETPAGEA*>(param1);
    addedPages.push_back({LOWORD(page.pszTemplate), LOWORD(page.pszTitle), page.dwFlags, page.lParam});
    return static_cast<LONG_PTR>(0x100 + addedPages.size());
}

// A driver with a handful of items, as it stands before its sheet opens.
struct Driver {
    Driver() {
        heap = HeapCreate(0, 0, 0);
        CDevMode(record).SetDefault(kDevModeSize);
        record.dwSignature = kDevModeSignature;
        record.dwVersion = kDevModeVersion;
        std::strcpy(record.Profile, "office.cps");

        publicDM.devmode.dmSize = sizeof(DEVMODEW);
        publicDM.devmode.dmDriverVersion = 0x600;
        publicDM.devmode.dmDriverExtra = sizeof publicDM.extra;
        const DWORD width = 210000;
        std::memcpy(publicDM.extra + 152, &width, sizeof width);

        for (OPTITEM& item : items) {
            item = {};
            item.cbSize = sizeof item;
            item.Level = 1;
            item.pOptType = &optType;
        }
        optType.cbSize = sizeof optType;
        optType.Count = 2;

        param.cbSize = sizeof param;
        param.poemuiobj = reinterpret_cast<POEMUIOBJ>(0x77);
        param.hOEMHeap = heap;
        param.pPublicDM = &publicDM.devmode;
        param.pOEMDM = &record;
        param.pDrvOptItems = items.data();
        param.cDrvOptItems = static_cast<DWORD>(items.size());
        param.pOEMOptItems = &oemItem;

        sheet.cbSize = sizeof sheet;
        sheet.poemuiobj = param.poemuiobj;
        info.cbSize = sizeof info;
        info.Version = 0x100;
        info.hComPropSheet = reinterpret_cast<HANDLE>(0x55);
        info.pfnComPropSheet = ComPropSheet;
        info.lParamInit = reinterpret_cast<LPARAM>(&sheet);
    }
    ~Driver() { HeapDestroy(heap); }

    LONG_PTR Reason(WORD reason, LPARAM reasonParam = 0) {
        info.Reason = reason;
        info.Result = 0xBAD;
        status = hrOEMDocumentPropertySheets(&info, reasonParam, nullptr);
        return static_cast<LONG_PTR>(info.Result);
    }

    HANDLE heap;
    PrivateDevMode record{};
    struct {
        DEVMODEW devmode{};
        std::uint8_t extra[400] = {};
    } publicDM;
    OPTTYPE optType{};
    std::array<OPTITEM, 6> items;
    OPTITEM oemItem{};
    OEMCUIPPARAM param{};
    OEMUIPSPARAM sheet{};
    PROPSHEETUI_INFO info{};
    HRESULT status = E_UNEXPECTED;
};

class DocumentSheetTest : public testing::Test {
  protected:
    void SetUp() override {
        SetModuleHandle(GetModuleHandleA(nullptr));
        addedPages.clear();
        ASSERT_EQ(g_SheetCount, 0);
        ASSERT_EQ(g_SessionBlock, nullptr);
    }
    void TearDown() override {
        while (g_SheetCount > 0)
            driver.Reason(PROPSHEETUI_REASON_DESTROY);
        g_SheetCount = 0;
        g_SessionBlock = nullptr;
        CSessionAccessor::Release();
        CSettingManager::Destroy();
    }
    void Open() {
        ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
        driver.Reason(PROPSHEETUI_REASON_INIT);
        ASSERT_EQ(driver.status, S_OK);
    }

    Driver driver;
};
