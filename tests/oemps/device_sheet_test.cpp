#include "oemps/device_sheet.h"

#include "Common/strings.h"
#include "oemps/device_page.h"
#include "oemps/module.h"
#include "oemps/sheet_state.h"
#include "tests/support/main_log.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

WORD addedDialog;
WORD addedTitle;
DWORD addedFlags;
DLGPROC addedProcedure;
LONG_PTR addedPage;

LONG_PTR CALLBACK ComPropSheet(HANDLE, UINT function, LPARAM param1, LPARAM) {
    EXPECT_EQ(function, static_cast<UINT>(CPSFUNC_ADD_PROPSHEETPAGEA));
    const auto& page = *reinterpret_cast<const PROPSHEETPAGEA*>(param1);
    addedDialog = LOWORD(page.pszTemplate);
    addedTitle = LOWORD(page.pszTitle);
    addedFlags = page.dwFlags;
    addedProcedure = page.pfnDlgProc;
    return addedPage;
}

class DeviceSheet : public testing::Test {
  protected:
    void SetUp() override {
        SetModuleHandle(GetModuleHandleA(nullptr));
        info.cbSize = sizeof info;
        info.Version = 0x100;
        info.pfnComPropSheet = ComPropSheet;
        info.lParamInit = reinterpret_cast<LPARAM>(&sheet);
        addedDialog = addedTitle = 0;
        addedPage = 0x42;
    }
    void TearDown() override { g_Permission = 0; }

    OEMUIPSPARAM sheet{};
    PROPSHEETUI_INFO info{};
};

} // namespace

TEST_F(DeviceSheet, AddsTheDevicePage) {
    info.Reason = PROPSHEETUI_REASON_INIT;
    EXPECT_EQ(hrOEMDevicePropertySheets(&info, 0), S_OK);
    EXPECT_EQ(addedDialog, 1121);
    EXPECT_EQ(addedTitle, 20049);
    EXPECT_EQ(LoadText(20049), "初期設定");
    EXPECT_EQ(addedFlags, static_cast<DWORD>(PSP_USETITLE));
    EXPECT_EQ(addedProcedure, DevicePropPageProc);
    EXPECT_EQ(info.Result, 0x42u);
}

TEST_F(DeviceSheet, HasNoPageThatTheCommonSheetRefuses) {
    info.Reason = PROPSHEETUI_REASON_INIT;
    for (const LONG_PTR refusal : {0, -1, -3}) {
        addedPage = refusal;
        info.Result = 7;
        EXPECT_EQ(hrOEMDevicePropertySheets(&info, 0), S_OK);
        EXPECT_EQ(info.Result, 0u) << refusal;
    }
}

TEST_F(DeviceSheet, IsRefusedWithoutAKnownCallback) {
    info.Reason = PROPSHEETUI_REASON_INIT;
    g_Permission = 7;
    for (const WORD version : {0, 0xFF, 0x101, 0x200, 0xFFFF}) {
        info.Version = version;
        SetLastError(0);
        EXPECT_EQ(hrOEMDevicePropertySheets(&info, 0), static_cast<HRESULT>(0x80004005)) << version;
        EXPECT_EQ(GetLastError(), 87u) << version;
    }
    SetLastError(0);
    EXPECT_EQ(hrOEMDevicePropertySheets(nullptr, 0), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(addedDialog, 0);
    EXPECT_EQ(g_Permission, 7);
}

TEST_F(DeviceSheet, MayChangeSettingsUnlessTheDriverSaysReadOnly) {
    info.Reason = PROPSHEETUI_REASON_INIT;
    sheet.dwFlags = 0xFFFFFFFE;
    hrOEMDevicePropertySheets(&info, 0);
    EXPECT_EQ(g_Permission, 1);
    sheet.dwFlags = 1;
    hrOEMDevicePropertySheets(&info, 0);
    EXPECT_EQ(g_Permission, 0);
}

TEST_F(DeviceSheet, MayChangeNothingWithoutTheDriversParameter) {
    info.Reason = PROPSHEETUI_REASON_INIT;
    info.lParamInit = 0;
    g_Permission = 1;
    EXPECT_EQ(hrOEMDevicePropertySheets(&info, 0), S_OK);
    EXPECT_EQ(g_Permission, 0);
    EXPECT_EQ(addedDialog, 1121);
}

TEST_F(DeviceSheet, AddsNoPageForAnyOtherReason) {
    g_Permission = 7;
    for (WORD reason = 1; reason < 16; ++reason) {
        info.Reason = reason;
        EXPECT_EQ(hrOEMDevicePropertySheets(&info, 0), S_OK) << reason;
    }
    EXPECT_EQ(addedDialog, 0);
    EXPECT_EQ(g_Permission, 7);
}

TEST_F(DeviceSheet, AnswersTheReasonsThatOnlyAsk) {
    PROPSHEETUI_INFO_HEADER header{};
    info.Reason = PROPSHEETUI_REASON_GET_INFO_HEADER;
    EXPECT_EQ(hrOEMDevicePropertySheets(&info, reinterpret_cast<LPARAM>(&header)), S_OK);
    EXPECT_EQ(info.Result, 1u);
    EXPECT_STREQ(reinterpret_cast<const wchar_t*>(header.pTitle), L"OEM UI Page");

    info.Reason = PROPSHEETUI_REASON_DESTROY;
    hrOEMDevicePropertySheets(&info, 0);
    EXPECT_EQ(info.Result, 1u);

    SETRESULT_INFO given{};
    given.Result = 9;
    info.Reason = PROPSHEETUI_REASON_SET_RESULT;
    hrOEMDevicePropertySheets(&info, reinterpret_cast<LPARAM>(&given));
    EXPECT_EQ(info.Result, 9u);

    info.Reason = PROPSHEETUI_REASON_GET_ICON;
    hrOEMDevicePropertySheets(&info, 0);
    EXPECT_EQ(info.Result, 0u);
}

TEST(PrinterPropertyPage, AsksForOneItem) {
    OEMCUIPPARAM param{};
    EXPECT_EQ(hrPrinterPropertyPage(&param), S_OK);
    EXPECT_EQ(param.cOEMOptItems, 1u);
}

TEST(PrinterPropertyPage, ClearsTheItemsAndTakesTheCallback) {
    std::array<OPTITEM, 2> items;
    std::memset(items.data(), 0xCC, sizeof items);
    OEMCUIPPARAM param{};
    param.pOEMOptItems = items.data();
    param.cOEMOptItems = 2;
    EXPECT_EQ(hrPrinterPropertyPage(&param), S_OK);
    EXPECT_EQ(param.OEMCUIPCallback, OEMPrinterUICallBack);
    for (const OPTITEM& item : items) {
        OPTITEM expected{};
        expected.cbSize = 88;
        EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0);
    }
}

// The value itself decides nothing.
TEST(PrinterPropertyPage, ReadsAChoiceOfAnyTypeAndSize) {
    const SpoolerPrinter printer("ZR choice test");
    OPTITEM item{};
    OEMCUIPPARAM param{};
    param.hPrinter = printer.Handle();
    param.pOEMOptItems = &item;
    param.cOEMOptItems = 1;
    char name[] = "OEMUI_VALUE";
    for (const DWORD type : {REG_DWORD, REG_SZ, REG_BINARY}) {
        for (const std::size_t size : {0u, 2u, 4u, 6u, 1u << 20}) {
            std::string bytes(size, 'x');
            SetPrinterDataA(printer.Handle(), name, type, reinterpret_cast<BYTE*>(bytes.data()),
                            static_cast<DWORD>(size));
            item.Sel = 5;
            EXPECT_EQ(hrPrinterPropertyPage(&param), S_OK);
            EXPECT_EQ(item.Sel, 0) << type << " " << size;
        }
    }
}

TEST(PrinterPropertyPage, LogsTheStatusOfAChoiceThatCantBeReadUnlessThereIsNone) {
    MainLog log;
    const SpoolerPrinter printer("ZR choice test");
    OPTITEM item{};
    OEMCUIPPARAM param{};
    param.pOEMOptItems = &item;
    param.cOEMOptItems = 1;
    EXPECT_EQ(hrPrinterPropertyPage(&param), S_OK);
    EXPECT_TRUE(log.HasLogged("GetPrinterData OEMUI_VALUE failed, status=6"));
    log.Forget();
    param.hPrinter = printer.Handle();
    EXPECT_EQ(hrPrinterPropertyPage(&param), S_OK);
    EXPECT_FALSE(log.HasLogged("status="));
}

TEST(PrinterUICallBack, Returns0ForEveryReason) {
    OPTITEM item{};
    OEMCUIPPARAM param{};
    param.pOEMOptItems = &item;
    param.cOEMOptItems = 1;
    for (WORD reason = 0; reason < 16; ++reason) {
        CPSUICBPARAM callback{};
        callback.Reason = reason;
        EXPECT_EQ(OEMPrinterUICallBack(&callback, &param), 0);
    }
    EXPECT_EQ(OEMPrinterUICallBack(nullptr, nullptr), 0);
}

TEST(PrinterUICallBack, LogsTheStatusOfAChoiceThatCantBeStored) {
    const MainLog log;
    OPTITEM item{};
    OEMCUIPPARAM param{};
    param.pOEMOptItems = &item;
    param.cOEMOptItems = 1;
    CPSUICBPARAM callback{};
    callback.Reason = CPSUICB_REASON_APPLYNOW;
    EXPECT_EQ(OEMPrinterUICallBack(&callback, &param), 0);
    EXPECT_TRUE(log.HasLogged("SetPrinterData OEMUI_VALUE failed, status=6"));
}
