// The print server's address, from the registry and from printers of the spooler.
#include "oemps/server_address.h"

#include "oemps/oemui.h"
#include "oemps/printoem.h"
#include "session/datamanager.h"
#include "tests/support/made_key.h"
#include "tests/support/main_log.h"
#include "tests/support/registry_override.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

const std::string kPorts = "SYSTEM\\ControlSet001\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports\\";

class Logged : public testing::Test {
  protected:
    static void SetUpTestSuite() { log = std::make_unique<MainLog>(); }
    static void TearDownTestSuite() { log.reset(); }

    Logged() { log->Forget(); }

    static inline std::unique_ptr<MainLog> log;
};

class AddressInTheRegistry : public Logged {
  protected:
    void Write(const std::string& port, const char* value, DWORD type, const std::string& bytes) {
        machine.AddKey((kPorts + port).c_str());
        ASSERT_EQ(RegSetKeyValueA(HKEY_LOCAL_MACHINE, (kPorts + port).c_str(), value, type, bytes.data(),
                                  static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
    }
    int Ask(const std::string& port) {
        address.fill('x');
        return GetIpAddressFromRegstry(port.c_str(), address);
    }

    RegistryOverride machine{HKEY_LOCAL_MACHINE};
    std::array<char, 128> address{};
};

const std::string kNul(1, '\0');

TEST_F(AddressInTheRegistry, IsThePortsHostName) {
    Write("IP_1", "HostName", REG_SZ, "rip-server" + kNul);
    Write("IP_1", "IPAddress", REG_SZ, "10.0.0.1" + kNul);
    EXPECT_EQ(Ask("IP_1"), 1);
    EXPECT_STREQ(address.data(), "rip-server");
    EXPECT_TRUE(log->HasLogged("port=IP_1 address=rip-server result=1"));
}

TEST_F(AddressInTheRegistry, IsTheIpAddressOfAPortWithAnEmptyHostName) {
    Write("IP_1", "HostName", REG_SZ, kNul);
    Write("IP_1", "IPAddress", REG_SZ, "10.0.0.1" + kNul);
    EXPECT_EQ(Ask("IP_1"), 1);
    EXPECT_STREQ(address.data(), "10.0.0.1");
}

TEST_F(AddressInTheRegistry, IsThisMachineForAnEmptyHostNameAndNoIpAddress) {
    Write("IP_1", "HostName", REG_SZ, kNul);
    EXPECT_EQ(Ask("IP_1"), 1);
    EXPECT_STREQ(address.data(), "127.0.0.1");
    EXPECT_TRUE(log->HasLogged("IPAddress is not told, status=2"));
}

TEST_F(AddressInTheRegistry, IsThePortsNameWithoutAHostName) {
    Write("IP_1", "IPAddress", REG_SZ, "10.0.0.1" + kNul);
    EXPECT_EQ(Ask("IP_1"), 1);
    EXPECT_STREQ(address.data(), "IP_1");
    EXPECT_TRUE(log->HasLogged("HostName is not told, status=2"));
}

TEST_F(AddressInTheRegistry, IsThePortsNameWithoutAKeyWhichIsThenMade) {
    EXPECT_EQ(Ask("LPT1:"), 1);
    EXPECT_STREQ(address.data(), "LPT1:");
    EXPECT_TRUE(machine.Has((kPorts + "LPT1:").c_str()));
}

TEST_F(AddressInTheRegistry, IsTakenFromAValueOfAnyType) {
    for (const DWORD type : {REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ, 0x1234}) {
        Write("IP_1", "HostName", type, "host");
        EXPECT_EQ(Ask("IP_1"), 1) << type;
        EXPECT_STREQ(address.data(), "host") << type;
        Write("IP_2", "HostName", REG_SZ, kNul);
        Write("IP_2", "IPAddress", type, "1::1");
        EXPECT_EQ(Ask("IP_2"), 1) << type;
        EXPECT_STREQ(address.data(), "1::1") << type;
    }
}

TEST_F(AddressInTheRegistry, IsNoneOfAHostNameWithoutBytes) {
    for (const DWORD type : {REG_SZ, REG_BINARY, REG_DWORD}) {
        Write("IP_1", "HostName", type, "");
        EXPECT_EQ(Ask("IP_1"), 1) << type;
        EXPECT_STREQ(address.data(), "127.0.0.1") << type;
    }
}

TEST_F(AddressInTheRegistry, IsCutAt127BytesOfAValueOfAnySize) {
    Write("IP_1", "HostName", REG_SZ, std::string(127, 'a') + kNul);
    EXPECT_EQ(Ask("IP_1"), 1);
    EXPECT_EQ(address.data(), std::string(127, 'a'));
    for (const DWORD type : {REG_SZ, REG_BINARY}) {
        for (const std::size_t length : {128u, 300u, 1u << 20}) {
            Write("IP_1", "HostName", type, std::string(length, 'a'));
            EXPECT_EQ(Ask("IP_1"), 1);
            EXPECT_EQ(address.data(), std::string(127, 'a')) << length;
        }
    }
}

TEST_F(AddressInTheRegistry, IsNotCutInsideADoubleByteCharacter) {
    std::string doubles;
    for (int i = 0; i < 63; ++i)
        doubles += "表";
    Write("IP_1", "HostName", REG_SZ, doubles + "表" + kNul);
    EXPECT_EQ(Ask("IP_1"), 1);
    EXPECT_EQ(address.data(), doubles);
}

// The registry takes the second byte of the character for half of it, not for a backslash.
TEST_F(AddressInTheRegistry, IsFoundForAPortWithDoubleByteCharacters) {
    Write("表示", "HostName", REG_SZ, "rip-server" + kNul);
    EXPECT_EQ(Ask("表示"), 1);
    EXPECT_STREQ(address.data(), "rip-server");
    EXPECT_EQ(Ask("表"), 1);
    EXPECT_STREQ(address.data(), "表");
}

TEST_F(AddressInTheRegistry, IsTheNameOfAPortWithBackslashes) {
    for (const char* port : {"\\\\server\\Orvane", "a\\b", "C:\\out.prn", "\\", "..\\..\\Environments"}) {
        EXPECT_EQ(Ask(port), 1) << port;
        EXPECT_STREQ(address.data(), port);
    }
    EXPECT_TRUE(machine.Has((kPorts + "..\\..\\Environments").c_str())) << "the registry has no way up";
}

TEST_F(AddressInTheRegistry, IsEmptyForAPortWithoutAName) {
    EXPECT_EQ(Ask(""), 1);
    EXPECT_STREQ(address.data(), "");
}

TEST_F(AddressInTheRegistry, IsNoneForAPortWhosePathDoesNotFit) {
    const std::string longest(259 - kPorts.size(), 'p');
    EXPECT_EQ(Ask(longest), 1);
    EXPECT_EQ(address.data(), longest.substr(0, 127));
    for (const std::string& port : {longest + "p", std::string(1000, 'p')}) {
        EXPECT_EQ(Ask(port), 0);
        EXPECT_STREQ(address.data(), "");
        EXPECT_TRUE(log->HasLogged("too long, length=" + std::to_string(port.size())));
        EXPECT_FALSE(machine.Has((kPorts + port).c_str()));
    }
}

// Below a key that goes with the session none that stays can be made.
TEST_F(Logged, TheNameOfAPortWhoseKeyCantBeMadeIsItsAddress) {
    const std::string path = "Software\\Zephra\\Tests\\Volatile" + std::to_string(GetCurrentProcessId());
    HKEY machine = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &machine, nullptr),
              ERROR_SUCCESS);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
    std::array<char, 128> address{};
    const int result = GetIpAddressFromRegstry("IP_1", address);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(machine);
    RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
    RegDeleteKeyA(HKEY_CURRENT_USER, path.c_str());
    EXPECT_EQ(result, 1);
    EXPECT_STREQ(address.data(), "IP_1");
    EXPECT_TRUE(log->HasLogged("RegCreateKeyEx " + kPorts + "IP_1 failed, status=1021"));
}

// A value that grows after its size was told: whatever comes of it is one of the told answers.
TEST_F(AddressInTheRegistry, IsNeverHalfAValueThatChangesMeanwhile) {
    const std::string grown(100, 'g');
    Write("IP_1", "HostName", REG_SZ, "g" + kNul);
    Write("IP_1", "IPAddress", REG_SZ, "10.0.0.1" + kNul);
    std::atomic<bool> isOver = false;
    std::thread writer([&] {
        HKEY key = nullptr;
        RegOpenKeyExA(HKEY_LOCAL_MACHINE, (kPorts + "IP_1").c_str(), 0, KEY_ALL_ACCESS, &key);
        for (bool isGrown = true; !isOver; isGrown = !isGrown) {
            const std::string& text = isGrown ? grown : "g";
            RegSetValueExA(key, "HostName", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                           static_cast<DWORD>(text.size() + 1));
        }
        RegCloseKey(key);
    });
    bool hasFailed = false;
    for (int round = 0; round < 300 && !hasFailed; ++round) {
        const int result = Ask("IP_1");
        const std::string text = address.data();
        hasFailed = result == 0;
        EXPECT_TRUE(hasFailed ? text == "10.0.0.1" : text == "g" || text == grown) << result << " " << text;
    }
    isOver = true;
    writer.join();
    // Whether it grows between the two calls is chance.
    EXPECT_EQ(log->HasLogged("HostName can't be read, status=234"), hasFailed);
}

class AddressOfAPrinter : public Logged {
  protected:
    static std::string Unique(const std::string& name) {
        return name + std::to_string(GetCurrentProcessId());
    }
    int Step1(HANDLE handle) {
        address.fill('x');
        return PrinterPortAddressUpdateStep1(handle, address);
    }
    bool IsUntouched() const {
        return std::ranges::all_of(address, [](char byte) { return byte == 'x'; });
    }
    // What is kept with the printer, "none" without one.
    static std::string Kept(HANDLE handle, DWORD expectedSize) {
        std::array<char, 512> text{};
        DWORD type = REG_NONE;
        DWORD size = 0;
        if (GetPrinterDataExA(handle, "PrinterDriverData", "PrinterPortAddress", &type,
                              reinterpret_cast<BYTE*>(text.data()), static_cast<DWORD>(text.size()),
                              &size) != ERROR_SUCCESS)
            return "none";
        EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
        EXPECT_EQ(size, expectedSize);
        return text.data();
    }

    const std::string port = Unique("ZR test port ");
    MadeKey key{kPorts + port};
    SpoolerPrinter printer{"ZR address test", port};
    std::array<char, 128> address{};
};

TEST_F(AddressOfAPrinter, IsThatOfItsPort) {
    key.Write("HostName", "rip-server");
    EXPECT_EQ(Step1(printer.Handle()), 1);
    EXPECT_STREQ(address.data(), "rip-server");
    key.Write("HostName", "");
    key.Write("IPAddress", "10.0.0.1");
    EXPECT_EQ(Step1(printer.Handle()), 1);
    EXPECT_STREQ(address.data(), "10.0.0.1");
}

TEST_F(AddressOfAPrinter, IsCopiedWithAll128Bytes) {
    key.Write("HostName", "rip-server");
    EXPECT_EQ(Step1(printer.Handle()), 1);
    EXPECT_EQ(std::ranges::count(address, '\0'), 118);
}

TEST_F(AddressOfAPrinter, IsThePortsNameWithoutAMonitorsKey) {
    const std::string other = Unique("ZR other port ");
    const SpoolerPrinter local("ZR local test", other);
    EXPECT_EQ(Step1(local.Handle()), 1);
    EXPECT_EQ(address.data(), other);
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, (kPorts + other).c_str());
}

TEST_F(AddressOfAPrinter, IsNoneForAPortWhosePathDoesNotFit) {
    const SpoolerPrinter distant("ZR distant test", std::string(1000, 'p'));
    EXPECT_EQ(Step1(distant.Handle()), 0);
    EXPECT_TRUE(IsUntouched());
    EXPECT_TRUE(log->HasLogged("too long, length=1000"));
}

TEST_F(AddressOfAPrinter, IsNoneWithoutAPrinter) {
    for (const HANDLE handle : {HANDLE(nullptr), reinterpret_cast<HANDLE>(0x7FFF)}) {
        log->Forget();
        EXPECT_EQ(Step1(handle), 0);
        EXPECT_TRUE(IsUntouched());
        EXPECT_TRUE(log->HasLogged("level=2 error=6"));
    }
}

TEST_F(AddressOfAPrinter, IsNoneOfAPrinterThatHasGone) {
    printer.Delete();
    EXPECT_EQ(Step1(printer.Handle()), 0);
    EXPECT_TRUE(IsUntouched());
    EXPECT_TRUE(log->HasLogged("Fetch() level=2 error="));
    EXPECT_TRUE(log->HasLogged("PrinterPortAddressUpdateStep1() no printer information"));
}

// Both steps log; the second one records nothing.
TEST_F(AddressOfAPrinter, IsFoundAndNotRecordedByTheUpdateWhichGives0) {
    key.Write("HostName", "rip-server");
    EXPECT_EQ(PrinterPortAddressUpdate(printer.Handle()), 0);
    EXPECT_TRUE(log->HasLogged("PrinterPortAddressUpdateStep2() address=rip-server"));
    EXPECT_EQ(Kept(printer.Handle(), 0), "none");
}

TEST_F(AddressOfAPrinter, IsNotLoggedByTheUpdateWithoutAPrinterWhichGives0Too) {
    EXPECT_EQ(PrinterPortAddressUpdate(nullptr), 0);
    EXPECT_FALSE(log->HasLogged("PrinterPortAddressUpdateStep2"));
}

TEST_F(AddressOfAPrinter, IsAlwaysGiven0ByTheSecondStep) {
    EXPECT_EQ(PrinterPortAddressUpdateStep2(printer.Handle(), "rip-server"), 0);
    EXPECT_EQ(PrinterPortAddressUpdateStep2(nullptr, ""), 0);
}

// The sheet itself is refused for the version of its callback.
class AddressForASheet : public AddressOfAPrinter {
  protected:
    AddressForASheet() {
        key.Write("HostName", "rip-server");
        sheet.hPrinter = printer.Handle();
    }
    void Open(WORD reason, OEMUIPSPARAM* param) const {
        PROPSHEETUI_INFO info{};
        info.Reason = reason;
        info.lParamInit = reinterpret_cast<LPARAM>(param);
        auto* plugIn = new IOemUI;
        EXPECT_EQ(plugIn->DocumentPropertySheets(&info, 0), static_cast<HRESULT>(0x80004005));
        plugIn->Release();
    }

    OEMUIPSPARAM sheet{};
};

TEST_F(AddressForASheet, IsFoundWhenTheSheetOpensAndTheLogSaysFalse) {
    Open(PROPSHEETUI_REASON_INIT, &sheet);
    EXPECT_TRUE(log->HasLogged("address=rip-server"));
    EXPECT_TRUE(log->HasLogged("PrinterPortAddressUpdate=FALSE"));
    EXPECT_EQ(Kept(printer.Handle(), 0), "none");
}

TEST_F(AddressForASheet, IsFoundBeforeThePagesAreMade) {
    Open(PROPSHEETUI_REASON_INIT, &sheet);
    const std::vector<std::string> messages = log->Messages();
    const auto has = [](const char* text) {
        return [text](const std::string& message) { return message.find(text) != std::string::npos; };
    };
    const auto told = std::ranges::find_if(messages, has("PrinterPortAddressUpdate=FALSE"));
    EXPECT_NE(told, messages.end());
    EXPECT_NE(std::find_if(told, messages.end(), has("hrOEMDocumentPropertySheets")), messages.end());
    EXPECT_EQ(std::ranges::count_if(messages, has("hrOEMDocumentPropertySheets")), 1);
}

TEST_F(AddressForASheet, IsNotLookedForWithoutTheDriversParameter) {
    Open(PROPSHEETUI_REASON_INIT, nullptr);
    EXPECT_FALSE(log->HasLogged("PrinterPortAddressUpdate"));
    EXPECT_TRUE(log->HasLogged("hrOEMDocumentPropertySheets"));
}

TEST_F(AddressForASheet, IsNotLookedForForAnotherReason) {
    for (const WORD reason : {PROPSHEETUI_REASON_GET_INFO_HEADER, PROPSHEETUI_REASON_DESTROY,
                              PROPSHEETUI_REASON_SET_RESULT, PROPSHEETUI_REASON_GET_ICON}) {
        log->Forget();
        Open(reason, &sheet);
        EXPECT_FALSE(log->HasLogged("PrinterPortAddressUpdate")) << reason;
        EXPECT_TRUE(log->HasLogged("hrOEMDocumentPropertySheets")) << reason;
    }
}

TEST_F(AddressOfAPrinter, IsKeptWhereNoneIsKept) {
    PrintServerCommSettingChk(printer.Handle(), "10.0.0.1");
    EXPECT_EQ(Kept(printer.Handle(), 9), "10.0.0.1");
    std::array<wchar_t, 260> wide{};
    EXPECT_EQ(ExportedFunc_GetPrinterPortAddress(printer.Handle(), wide.data()), 1);
    EXPECT_STREQ(wide.data(), L"10.0.0.1");
}

TEST_F(AddressOfAPrinter, IsNotTouchedWhereOneIsKept) {
    PrintServerCommSettingChk(printer.Handle(), "10.0.0.1");
    PrintServerCommSettingChk(printer.Handle(), "10.0.0.22");
    EXPECT_EQ(Kept(printer.Handle(), 9), "10.0.0.1");
}

TEST_F(AddressOfAPrinter, TakesThePlaceOfAnEmptyOne) {
    PrintServerCommSettingChk(printer.Handle(), "");
    EXPECT_EQ(Kept(printer.Handle(), 1), "");
    PrintServerCommSettingChk(printer.Handle(), std::string(127, 'a').c_str());
    EXPECT_EQ(Kept(printer.Handle(), 128), std::string(127, 'a'));
}

TEST_F(AddressOfAPrinter, ThatCantBeKeptIsLoggedWithTheStatus) {
    PrintServerCommSettingChk(nullptr, "10.0.0.1");
    EXPECT_TRUE(log->HasLogged("SetPrinterDataEx PrinterPortAddress failed, status=6"));
}

} // namespace
