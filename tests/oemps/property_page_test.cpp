// The driver's first call for a sheet, on a printer of the spooler and with a registry of the test's own.
#include "oemps/property_page.h"

#include "host/install_printer.h"
#include "oemps/device_sheet.h"
#include "oemps/sheet_state.h"
#include "tests/support/own_folder.h"
#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class PropertyPage : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        const InstallResult installed = InstallPrinter(OwnFolder().wstring());
        ASSERT_TRUE(installed.ok) << std::string(installed.message.begin(), installed.message.end());
    }
    void SetUp() override {
        std::wstring name = kPrinterName;
        ASSERT_TRUE(OpenPrinterW(name.data(), &printer, nullptr)) << GetLastError();
        param.cbSize = sizeof param;
        param.hPrinter = printer;
    }
    void TearDown() override { ClosePrinter(printer); }

    const RegistryOverride user{HKEY_CURRENT_USER};
    HANDLE printer = nullptr;
    OEMCUIPPARAM param{};
};

} // namespace

TEST_F(PropertyPage, NamesTheUsersKeyByThePrinterAndTheGuidOfTheFirstConnectionThatContainsItsName) {
    user.AddText("Printers\\Connections\\,,server,Another", "GuidPrinter", "{A}");
    user.AddText("Printers\\Connections\\,,server,Orvane X100 copy", "GuidPrinter", "{B}");
    EXPECT_EQ(hrOEMPropertyPage(OEMCUIP_DOCPROP, &param), S_OK);
    EXPECT_STREQ(g_UserInfoKey, "Software\\Zephra\\ZR Print Driver Data\\Orvane X100{B}\\UserInfo");
}

TEST_F(PropertyPage, WithoutAConnectionNamesTheUsersKeyByThePrinterAlone) {
    EXPECT_EQ(hrOEMPropertyPage(OEMCUIP_DOCPROP, &param), S_OK);
    EXPECT_STREQ(g_UserInfoKey, "Software\\Zephra\\ZR Print Driver Data\\Orvane X100\\UserInfo");
}

TEST_F(PropertyPage, PreparesTheDeviceSheetAndKeepsItsPrinter) {
    g_hPrinter = nullptr;
    EXPECT_EQ(hrOEMPropertyPage(OEMCUIP_PRNPROP, &param), S_OK);
    EXPECT_EQ(g_hPrinter, printer);
    EXPECT_EQ(param.cOEMOptItems, 1u);
}

// The plug-in's own item of the device sheet, chosen and applied.
TEST_F(PropertyPage, StoresTheChoiceInThePrintersDataOnlyWhenTheSheetIsApplied) {
    OPTITEM item{};
    param.pOEMOptItems = &item;
    param.cOEMOptItems = 1;
    char name[] = "OEMUI_VALUE";
    DWORD before = 77;
    SetPrinterDataA(printer, name, REG_DWORD, reinterpret_cast<LPBYTE>(&before), sizeof before);
    const auto stored = [&]() -> DWORD {
        DWORD type = 0;
        DWORD value = 0xFFFFFFFF;
        DWORD needed = 0;
        const DWORD status =
            GetPrinterDataA(printer, name, &type, reinterpret_cast<LPBYTE>(&value), sizeof value, &needed);
        return status == ERROR_SUCCESS && type == REG_DWORD ? value : 0xFFFFFFFF;
    };
    item.Sel = 3;
    for (WORD reason = 0; reason < 16; ++reason) {
        CPSUICBPARAM callback{};
        callback.Reason = reason;
        EXPECT_EQ(OEMPrinterUICallBack(&callback, &param), 0);
        EXPECT_EQ(stored(), reason < 6 ? 77u : 3u) << reason;
        if (reason == 6)
            item.Sel = 9;
    }
}

TEST_F(PropertyPage, RefusesAnotherMode) {
    for (const DWORD mode : {0, 3}) {
        SetLastError(0);
        EXPECT_EQ(hrOEMPropertyPage(mode, &param), static_cast<HRESULT>(0x80004005));
        EXPECT_EQ(GetLastError(), 87u);
    }
}

TEST_F(PropertyPage, FailsWithoutPrinterInformation) {
    param.hPrinter = nullptr;
    EXPECT_EQ(hrOEMPropertyPage(OEMCUIP_DOCPROP, &param), static_cast<HRESULT>(0x80004005));
}
