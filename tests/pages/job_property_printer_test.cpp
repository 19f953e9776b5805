// What the link reads from a printer of the spooler: the server's address, and the modes of the start.
#include "host/install_printer.h"
#include "tests/pages/job_property_fixture.h"

#include <winspool.h>

#include <cstring>
#include <utility>

namespace {

class PrinterOfTheSpooler : public JobPropertyTest {
  protected:
    static void SetUpTestSuite() {
        JobPropertyTest::SetUpTestSuite();
        DriverPackage package;
        package.applicationPath.clear();
        const InstallResult installed = InstallPrinter(OwnFolder().wstring(), kPrinterName, package);
        ASSERT_TRUE(installed.ok) << std::string(installed.message.begin(), installed.message.end());
    }

    PrinterOfTheSpooler() {
        std::wstring name = kPrinterName;
        PRINTER_DEFAULTSW access{nullptr, nullptr, PRINTER_ALL_ACCESS};
        EXPECT_TRUE(OpenPrinterW(name.data(), &block.hPrinter, &access)) << GetLastError();
        Forget();
    }
    ~PrinterOfTheSpooler() override {
        Forget();
        ClosePrinter(block.hPrinter);
    }

    // Wine has no function for this.
    static void Forget() {
        for (const char* value : {"PrinterPortAddress", "CommunicationMode", "StarttupMode"})
            RegDeleteKeyValueA(HKEY_LOCAL_MACHINE,
                               "System\\CurrentControlSet\\Control\\Print\\Printers\\Orvane X100\\"
                               "PrinterDriverData",
                               value);
    }
    void SetData(const wchar_t* name, DWORD type, const void* data, std::size_t size) {
        const auto* first = static_cast<const BYTE*>(data);
        std::vector<BYTE> bytes(first, first + size);
        EXPECT_EQ(SetPrinterDataW(block.hPrinter, const_cast<LPWSTR>(name), type, bytes.data(),
                                  static_cast<DWORD>(size)),
                  static_cast<DWORD>(ERROR_SUCCESS));
    }
    void SetAddress(const std::wstring& text) {
        SetData(L"PrinterPortAddress", REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    void SetNumber(const wchar_t* name, DWORD value) { SetData(name, REG_DWORD, &value, sizeof value); }

    int Read(const char* serverName = "") {
        address.fill('\0');
        return CStandardPageDlg::GetIpAddressFromRegstry(block.hPrinter, address, serverName);
    }
    std::string ServerAddress() {
        ExportedFunc_SetServerAddress("before");
        CStandardPageDlg(nullptr, nullptr).SetServerAddress(&block);
        std::array<char, 260> server{};
        ExportedFunc_GetServerAddress(server.data());
        return server.data();
    }
    std::string StartLine() {
        runner.calls.clear();
        CStandardPageDlg(nullptr, nullptr).StartJobProperty(&block);
        const Calls lines = runner.CommandLines();
        const std::string head = kApplication + "-start " + id + " " + key;
        EXPECT_EQ(lines.size(), 1u);
        EXPECT_TRUE(lines[0].starts_with(head)) << lines[0];
        return lines[0].substr(head.size());
    }

    std::array<char, 128> address{};
};

TEST_F(PrinterOfTheSpooler, HasAnAddressThatIsRead) {
    SetAddress(L"10.1.2.3");
    EXPECT_EQ(Read(), 1);
    EXPECT_STREQ(address.data(), "10.1.2.3");
}

TEST_F(PrinterOfTheSpooler, WithALocalAddressIsReachedByTheMachineName) {
    for (const wchar_t* local : {L"127.0.0.1", L"localhost", L"."}) {
        SetAddress(local);
        EXPECT_EQ(Read("\\\\SERVER"), 1);
        EXPECT_STREQ(address.data(), "SERVER");
        EXPECT_EQ(Read("\\\\表の表"), 1);
        EXPECT_STREQ(address.data(), "表の表");
    }
}

TEST_F(PrinterOfTheSpooler, KeepsALocalAddressWithoutAServerName) {
    SetAddress(L"127.0.0.1");
    for (const char* none : {"", "(null)"}) {
        EXPECT_EQ(Read(none), 1);
        EXPECT_STREQ(address.data(), "127.0.0.1");
    }
}

TEST_F(PrinterOfTheSpooler, HasItsAddressAndAServersNameCutAt127Bytes) {
    SetAddress(std::wstring(500, L'a'));
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(address.data(), std::string(127, 'a'));
    SetAddress(std::wstring(300, L'\x8868'));
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(std::strlen(address.data()), 126u);
    SetAddress(L".");
    EXPECT_EQ(Read(("\\\\" + std::string(250, 's')).c_str()), 1);
    EXPECT_EQ(address.data(), std::string(127, 's'));
}

TEST_F(PrinterOfTheSpooler, WithoutAnAddressGives0) {
    EXPECT_EQ(Read("\\\\SERVER"), 0);
    EXPECT_STREQ(address.data(), "");
}

TEST_F(PrinterOfTheSpooler, WithAnAddressOfAnotherTypeHasNone) {
    const DWORD types[] = {REG_DWORD, REG_BINARY, REG_EXPAND_SZ, REG_MULTI_SZ, REG_NONE, REG_QWORD, 77};
    for (const DWORD type : types) {
        SetData(L"PrinterPortAddress", type, L".\0\0\0", 8);
        EXPECT_EQ(Read("\\\\SERVER"), 0) << type; // there is more data than the question for it takes
        EXPECT_STREQ(address.data(), "") << type;
    }
}

TEST_F(PrinterOfTheSpooler, NeedsNoNulBehindItsAddressAndTakesNothingBehindOne) {
    SetData(L"PrinterPortAddress", REG_SZ, L"10.1.2.3", 16);
    EXPECT_EQ(Read(), 1);
    EXPECT_STREQ(address.data(), "10.1.2.3");
    SetData(L"PrinterPortAddress", REG_SZ, L"10.1\0.2.3", 18);
    EXPECT_EQ(Read(), 1);
    EXPECT_STREQ(address.data(), "10.1");
}

TEST_F(PrinterOfTheSpooler, WithAnEmptyAddressOfAnySizeHasNone) {
    for (const std::size_t size : {0u, 1u, 2u, 4u}) {
        SetData(L"PrinterPortAddress", REG_SZ, L"\0\0", size);
        EXPECT_EQ(Read("\\\\SERVER"), 1) << size;
        EXPECT_STREQ(address.data(), "") << size;
    }
}

TEST_F(PrinterOfTheSpooler, TakesAHugeAddressForALongOne) {
    SetAddress(std::wstring(500'000, L'a'));
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(address.data(), std::string(127, 'a'));
}

TEST_F(PrinterOfTheSpooler, GivesTheStoreItsAddress) {
    SetAddress(L"10.1.2.3");
    EXPECT_EQ(ServerAddress(), "10.1.2.3");
    SetAddress(L"127.0.0.1"); // a printer of this machine has no server
    EXPECT_EQ(ServerAddress(), "127.0.0.1");
}

TEST_F(PrinterOfTheSpooler, WithoutAnAddressIsAskedOnceMoreByItsNameAndLeavesTheStoreNone) {
    log->Forget();
    EXPECT_EQ(ServerAddress(), "");
    EXPECT_EQ(Logged("GetIpAddressFromRegstry").size(), 4u) << "two calls of two lines";
    const Calls lines = Logged("SetServerAddress");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1], "SetServerAddress() pServerName=(null) pPrinterName=Orvane X100 pPortName=FILE:");
}

TEST_F(PrinterOfTheSpooler, IsNotAskedAgainWhereItHasAnAddress) {
    SetAddress(L"10.1.2.3");
    log->Forget();
    ServerAddress();
    EXPECT_EQ(Logged("GetIpAddressFromRegstry").size(), 2u);
    EXPECT_EQ(Logged("SetServerAddress").size(), 2u);
}

TEST_F(PrinterOfTheSpooler, ThatIsNoneLeavesTheStoresAddress) {
    const HANDLE printer = std::exchange(block.hPrinter, nullptr);
    EXPECT_EQ(ServerAddress(), "before");
    block.hPrinter = printer;
}

TEST_F(PrinterOfTheSpooler, HasItsAddressOnTheCommandLineOfThePageThatOpens) {
    SetAddress(L"10.1.2.3");
    Open(1066, StandardPageProc);
    EXPECT_EQ(runner.CommandLines(), Calls{kApplication + "-start " + id + " " + key +
                                           " PDF ja-JP -ip 10.1.2.3 -onceForce  -iotproduct 10"});
}

TEST_F(PrinterOfTheSpooler, GivesTheStartItsModes) {
    ExportedFunc_SetServerAddress("10.1.2.3");
    constexpr struct {
        DWORD communication;
        DWORD startup;
        const char* line;
    } kRows[] = {
        {0, 0, " PDF ja-JP -ip 10.1.2.3 -onceForce  -iotproduct 10"},
        {1, 0, " PDF ja-JP 10.1.2.3 -iotproduct 10"},
        {0xFFFFFFFF, 2, " PDF ja-JP 10.1.2.3 -iotproduct 10"},
        {0, 1, " PDF ja-JP -ip 10.1.2.3 -onceForce  -iotproduct 10 -mock -market JP"},
        {7, 1, " PDF ja-JP 10.1.2.3 -iotproduct 10 -mock -market JP"},
    };
    for (const auto& [communication, startup, line] : kRows) {
        SetNumber(L"CommunicationMode", communication);
        SetNumber(L"StarttupMode", startup);
        log->Forget();
        EXPECT_EQ(StartLine(), line);
        EXPECT_EQ(Logged("StartJobProperty")[2], "StartJobProperty() startupMode=" + std::to_string(startup) +
                                                     " communicationMode=" + std::to_string(communication));
    }
}

} // namespace
