// What is kept with a printer, on a real printer of the spooler.
#include "session/datamanager.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

class PrinterData : public testing::Test {
  protected:
    void Put(const wchar_t* valueName, DWORD type, const void* data, std::size_t size) {
        spoolerPrinter.Put(valueName, type, data, size);
    }

    int Address() {
        address.fill(L'#');
        return ExportedFunc_GetPrinterPortAddress(printer, address.data());
    }

    const SpoolerPrinter spoolerPrinter{"Store test"};
    const HANDLE printer = spoolerPrinter.Handle();
    std::array<wchar_t, 260> address{};
};

TEST_F(PrinterData, HasModesOfZeroWhileNothingIsStored) {
    std::uint32_t mode = 99;
    ExportedFunc_GetCommunicationMode(printer, &mode);
    EXPECT_EQ(mode, 0u);
    mode = 99;
    ExportedFunc_GetStarttupMode(printer, &mode);
    EXPECT_EQ(mode, 0u);
}

TEST_F(PrinterData, KeepsTheCommunicationModeWithThePrinter) {
    ExportedFunc_SetCommunicationMode(printer, 1);
    ExportedFunc_InitializeDataManager();
    std::uint32_t mode = 99;
    ExportedFunc_GetCommunicationMode(printer, &mode);
    EXPECT_EQ(mode, 1u);
    ExportedFunc_SetCommunicationMode(printer, 0);
    ExportedFunc_GetCommunicationMode(printer, &mode);
    EXPECT_EQ(mode, 0u);
}

TEST_F(PrinterData, TellsTheStoredStartUpMode) {
    const DWORD stored = 1;
    Put(L"StarttupMode", REG_DWORD, &stored, sizeof stored);
    std::uint32_t mode = 99;
    ExportedFunc_GetStarttupMode(printer, &mode);
    EXPECT_EQ(mode, 1u);
}

TEST_F(PrinterData, TakesAModeOfAnotherTypeOrSizeForNone) {
    std::uint32_t mode = 99;
    Put(L"CommunicationMode", REG_BINARY, "1234", 4);
    ExportedFunc_GetCommunicationMode(printer, &mode);
    EXPECT_EQ(mode, 0u);
    mode = 99;
    Put(L"CommunicationMode", REG_DWORD, "12345678", 8);
    ExportedFunc_GetCommunicationMode(printer, &mode);
    EXPECT_EQ(mode, 0u);
    mode = 99;
    Put(L"CommunicationMode", REG_DWORD, "1", 1);
    ExportedFunc_GetCommunicationMode(printer, &mode);
    EXPECT_EQ(mode, 0u);
}

TEST_F(PrinterData, GivesZeroAndNoAddressWhileNoneIsStored) {
    EXPECT_EQ(Address(), 0);
    EXPECT_STREQ(address.data(), L"");
}

TEST_F(PrinterData, GivesOneAndTheStoredAddress) {
    std::string stored = "192.168.100.10";
    ASSERT_EQ(SetPrinterDataExA(printer, "PrinterDriverData", "PrinterPortAddress", REG_SZ,
                                reinterpret_cast<BYTE*>(stored.data()),
                                static_cast<DWORD>(stored.size() + 1)),
              static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(Address(), 1);
    EXPECT_STREQ(address.data(), L"192.168.100.10");
}

TEST_F(PrinterData, GivesZeroForAnEmptyAddress) {
    Put(L"PrinterPortAddress", REG_SZ, L"", sizeof(wchar_t));
    EXPECT_EQ(Address(), 0);
    EXPECT_STREQ(address.data(), L"");
}

TEST_F(PrinterData, GivesAnAddressThatFillsTheBuffer) {
    const std::wstring stored(259, L'a');
    Put(L"PrinterPortAddress", REG_SZ, stored.c_str(), 260 * sizeof(wchar_t));
    EXPECT_EQ(Address(), 1);
    EXPECT_EQ(address.data(), stored);
}

TEST_F(PrinterData, TakesAnAddressThatDoesNotFitForNone) {
    const std::wstring stored(5000, L'a');
    for (const std::size_t length : {260u, 261u, 5000u}) {
        Put(L"PrinterPortAddress", REG_SZ, stored.c_str(), length * sizeof(wchar_t));
        EXPECT_EQ(Address(), 0) << length;
        EXPECT_STREQ(address.data(), L"") << length;
    }
}

TEST_F(PrinterData, EndsAnAddressStoredWithoutATerminator) {
    Put(L"PrinterPortAddress", REG_SZ, L"10.0.0.1", 8 * sizeof(wchar_t));
    EXPECT_EQ(Address(), 1);
    EXPECT_STREQ(address.data(), L"10.0.0.1");
}

TEST_F(PrinterData, TakesAnAddressOfAnotherTypeForNone) {
    Put(L"PrinterPortAddress", REG_BINARY, L"10.0.0.1", 9 * sizeof(wchar_t));
    EXPECT_EQ(Address(), 0);
    EXPECT_STREQ(address.data(), L"");
}

TEST(PrinterDataOfNoPrinter, GivesZeroAndNothing) {
    for (void* handle : {static_cast<void*>(nullptr), reinterpret_cast<void*>(0x7FFF)}) {
        std::array<wchar_t, 260> address;
        address.fill(L'#');
        EXPECT_EQ(ExportedFunc_GetPrinterPortAddress(handle, address.data()), 0);
        EXPECT_STREQ(address.data(), L"");
        std::uint32_t mode = 99;
        ExportedFunc_SetCommunicationMode(handle, 1);
        ExportedFunc_GetCommunicationMode(handle, &mode);
        EXPECT_EQ(mode, 0u);
    }
}

} // namespace
