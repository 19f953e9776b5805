// A printer of the spooler and a user's registry, from which the job owner's data are laid over records. What
// is expected is checked of the overlay alone and of a whole merge.
#pragma once

#include "oemps/authentication_overlay.h"
#include "oemps/oem_devmode.h"
#include "tests/oemps/owner_fields.h"
#include "tests/support/registry_override.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

// The user's four values in the order in which they are read.
inline constexpr std::array<const char*, 4> kOwnerValues = {"SpecifyJobOwnerName_User", "JobOwnerName_User",
                                                            "JobOwnerNamePassword_User", "AccountID_User"};

// A record as the driver prepares it, and one that was stored by another user.
inline PrivateDevMode PreparedRecord() {
    PrivateDevMode record{};
    record.dwSignature = kDevModeSignature;
    record.dwVersion = kDevModeVersion;
    CDevMode(record).SetDefault(kDevModeSize);
    return record;
}
inline PrivateDevMode StoredRecord() {
    PrivateDevMode record = PreparedRecord();
    record.ManageMethod = 5;
    record.SpecifyJobOwnerName = 1;
    record.Modified = 1;
    std::strcpy(record.UserComment, "stored");
    std::strcpy(record.AuthJobUserId, "jiro, who was here before");
    std::strcpy(record.AuthJobPassword, "the password of jiro");
    std::strcpy(record.AuthJobAccount, "the account of jiro");
    return record;
}

class OverlayFixture : public testing::Test {
  protected:
    static void SetUpTestSuite() { s_printer = std::make_unique<SpoolerPrinter>("Owner Overlay"); }
    static void TearDownTestSuite() { s_printer.reset(); }

    void SetUp() override {
        user.AddText(("Printers\\Connections\\,,server," + printerName).c_str(), "GuidPrinter", "{G}");
        printer = s_printer->Handle();
        printerInfo.pPrinterName = printerName.data();
    }
    void TearDown() override { DeleteMode(); }

    // The authentication mode in the printer's data.
    static void SetMode(const std::string& bytes, DWORD type = REG_BINARY) {
        std::string data = bytes;
        EXPECT_EQ(SetPrinterDataExA(s_printer->Handle(), "PrinterDriverData", "ManageMethod", type,
                                    reinterpret_cast<BYTE*>(data.data()), static_cast<DWORD>(data.size())),
                  0u);
    }
    // Wine's DeletePrinterDataEx does nothing.
    static void DeleteMode() {
        const std::string key = "System\\CurrentControlSet\\Control\\Print\\Printers\\" + s_printer->Name() +
                                "\\PrinterDriverData";
        RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), "ManageMethod");
    }

    // One of the user's values. A NUL behind the bytes of a text would be stored with it.
    void SetValue(const char* name, const std::string& bytes, DWORD type = REG_BINARY) const {
        const std::string data = bytes + 'x';
        EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, userKey.c_str(), name, type, data.data(),
                                  static_cast<DWORD>(bytes.size())),
                  0);
    }
    void DeleteValue(const char* name) const {
        EXPECT_EQ(RegDeleteKeyValueA(HKEY_CURRENT_USER, userKey.c_str(), name), 0);
    }
    void SetAllValues() const {
        user.AddText(userKey.c_str(), "SpecifyJobOwnerName_User", "OwnerName");
        user.AddText(userKey.c_str(), "JobOwnerName_User", "hanako");
        user.AddText(userKey.c_str(), "JobOwnerNamePassword_User", "s e c r e t");
        user.AddText(userKey.c_str(), "AccountID_User", "A-17");
    }

    void ExpectOverlay(const OwnerFields& expected) {
        PrivateDevMode record = StrangeRecord();
        const std::string wanted = With(BytesOf(record), expected);
        EXPECT_EQ(OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, keyText), 1);
        EXPECT_EQ(Difference(BytesOf(record), wanted), "");
    }
    // The driver's request on a record that it prepared and a stored one.
    HRESULT Request(DWORD mode, PrivateDevMode& target, PrivateDevMode source = StoredRecord()) const {
        OEMDMPARAM param{};
        param.hPrinter = printer;
        param.pOEMDMIn = &source;
        param.pOEMDMOut = &target;
        return hrOEMDevMode(mode, &param);
    }
    void ExpectMerge(const OwnerFields& expected) const {
        PrivateDevMode target = PreparedRecord();
        EXPECT_EQ(Request(OEMDM_MERGE, target), S_OK);
        // The stored record needs nothing of what a merge does besides.
        EXPECT_EQ(Difference(BytesOf(target), With(BytesOf(StoredRecord()), expected)), "");
    }
    void ExpectBoth(const OwnerFields& expected) {
        ExpectOverlay(expected);
        ExpectMerge(expected);
    }

    static std::string LoggedInName() {
        std::array<char, 300> name{};
        GetEnvironmentVariableA("USERNAME", name.data(), static_cast<DWORD>(name.size()));
        return name.data();
    }

    RegistryOverride user{HKEY_CURRENT_USER};
    HANDLE printer = nullptr;
    PRINTER_INFO_2A printerInfo{};
    std::string printerName = s_printer->Name();
    const std::string keyText = printerName + "{G}\\UserInfo";
    const std::string userKey = "Software\\Zephra\\ZR Print Driver Data\\" + keyText;

  private:
    static inline std::unique_ptr<SpoolerPrinter> s_printer;
};
