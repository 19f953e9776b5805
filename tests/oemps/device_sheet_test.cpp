#include "oemps/device_sheet.h"

#include "oemps/module.h"
#include "oemps/sheet_state.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace {

WORD addedDialog;
WORD addedTitle;

LONG_PTR CALLBACK ComPropSheet(HANDLE, UINT function, LPARAM param1, LPARAM) {
    EXPECT_EQ(function, static_cast<UINT>(CPSFUNC_ADD_PROPSHEETPAGEA));
    const auto& page = *reinterpret_cast<const PROPSHEETPAGEA*>(param1);
    addedDialog = LOWORD(page.pszTemplate);
    addedTitle = LOWORD(page.pszTitle);
    return 0x42;
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
    }

    OEMUIPSPARAM sheet{};
    PROPSHEETUI_INFO info{};
};

} // namespace

TEST_F(DeviceSheet, AddsTheDevicePage) {
    info.Reason = PROPSHEETUI_REASON_INIT;
    EXPECT_EQ(hrOEMDevicePropertySheets(&info, 0), S_OK);
    EXPECT_EQ(addedDialog, 1121);
    EXPECT_EQ(addedTitle, 20049);
    EXPECT_EQ(info.Result, 0x42u);
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
