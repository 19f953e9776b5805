// Printers that come and go, with printers of the spooler and the registry.
#include "oemps/printer_event.h"

#include "Common/unique_com.h"
#include "oemps/oemui.h"
#include "session/datamanager.h"
#include "tests/support/made_key.h"
#include "tests/support/main_log.h"
#include "tests/support/registry_override.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <initializer_list>
#include <string>

namespace {

class PrinterEvents : public testing::Test {
  protected:
    // One for all: making it takes a second.
    static MainLog& Log() {
        static MainLog log;
        return log;
    }

    PrinterEvents() { Log().Forget(); }

    HRESULT Send(int event, std::wstring name) { return plugIn->PrinterEvent(name.data(), event, 0, 0); }
    static std::wstring Wide(const std::string& text) {
        std::wstring wide(text.size(), L'\0');
        wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
            932, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
        return wide;
    }

    static constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001);

    UniqueCom<IPrintOemUI> plugIn{new IOemUI};
};

// A printer whose port has a key of the port monitor.
class AddedPrinter : public PrinterEvents {
  protected:
    static std::string PortName() { return "ZR event port " + std::to_string(GetCurrentProcessId()); }

    AddedPrinter() { key.Write("HostName", "rip-server"); }

    std::wstring Name(const std::string& before = "", const std::string& behind = "") const {
        return Wide(before + printer.Name() + behind);
    }
    std::string Kept() const { return KeptWith(printer); }
    // The address that is kept with a printer, "none" without one.
    static std::string KeptWith(const SpoolerPrinter& printer) {
        std::array<char, 512> text{};
        DWORD type = REG_NONE;
        DWORD size = 0;
        if (GetPrinterDataExA(printer.Handle(), "PrinterDriverData", "PrinterPortAddress", &type,
                              reinterpret_cast<BYTE*>(text.data()), static_cast<DWORD>(text.size()),
                              &size) != ERROR_SUCCESS)
            return "none";
        EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
        return text.data();
    }

    MadeKey key{"SYSTEM\\ControlSet001\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports\\" +
                PortName()};
    SpoolerPrinter printer{"ZR 表示 event test", PortName()};
};

constexpr int kAddEvents[] = {PRINTER_EVENT_ADD_CONNECTION, PRINTER_EVENT_INITIALIZE};
static_assert(kAddEvents[0] == 1 && kAddEvents[1] == 3 && PRINTER_EVENT_DELETE == 4);

class AddEvent : public AddedPrinter, public testing::WithParamInterface<int> {};

TEST_P(AddEvent, RecordsThePortsAddressWithThePrinter) {
    EXPECT_EQ(Send(GetParam(), Name()), kNotImplemented);
    EXPECT_EQ(Kept(), "rip-server");
}

TEST_P(AddEvent, LeavesAnAddressThatIsThere) {
    EXPECT_EQ(Send(GetParam(), Name()), kNotImplemented);
    key.Write("HostName", "other-server");
    EXPECT_EQ(Send(GetParam(), Name()), kNotImplemented);
    EXPECT_EQ(Kept(), "rip-server");
    const wchar_t own[] = L"own-server";
    printer.Put(L"PrinterPortAddress", REG_SZ, own, sizeof own);
    EXPECT_EQ(Send(GetParam(), Name()), kNotImplemented);
    EXPECT_EQ(Kept(), "own-server");
}

TEST_P(AddEvent, GoesByTheNamesPartBehindTheLastBackslashAndBeforeTheLastComma) {
    constexpr struct {
        const char* before;
        const char* behind;
    } kNames[] = {
        {"\\\\server\\", ""},         {"\\\\server\\", ",LocalOnly"},
        {"", ",LocalOnly"},           {"\\\\a,b\\", ""},
        {"\\\\a,b\\", ","},           {"\\", ""},
        {"\\\\表示\\", ",LocalOnly"},
    };
    for (const auto& [before, behind] : kNames) {
        const SpoolerPrinter other("ZR 予 event test", PortName());
        ASSERT_EQ(KeptWith(other), "none");
        EXPECT_EQ(Send(GetParam(), Wide(before + other.Name() + behind)), kNotImplemented);
        EXPECT_EQ(KeptWith(other), "rip-server") << before << behind;
    }
}

TEST_P(AddEvent, OfAnUnknownPrinterIsLoggedWithTheSystemsMessage) {
    EXPECT_EQ(Send(GetParam(), L"\\\\server\\ZR no such printer,x"), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("ZR no such printer error=1801 "));
    EXPECT_EQ(Kept(), "none");
}

// It can still be opened as long as the test has it open.
TEST_P(AddEvent, OfAPrinterThatIsDeletedMeanwhileStops) {
    const std::wstring name = Name();
    printer.Delete();
    EXPECT_EQ(Send(GetParam(), name), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("level=2 error=1801"));
    EXPECT_TRUE(Log().HasLogged("no printer information"));
}

TEST_P(AddEvent, OfANameInAnotherLanguageStops) {
    EXPECT_EQ(Send(GetParam(), L"\x0E01\\" + Name()), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("the name can't be converted"));
    EXPECT_EQ(Kept(), "none");
}

TEST_P(AddEvent, OfANameThatDoesNotFit512BytesStops) {
    const std::size_t room = 511 - 1 - printer.Name().size();
    EXPECT_EQ(Send(GetParam(), Name(std::string(room + 1, 's') + "\\")), kNotImplemented);
    EXPECT_EQ(Send(GetParam(), Name(std::string(1000, 's') + "\\")), kNotImplemented);
    EXPECT_EQ(Kept(), "none");
    EXPECT_TRUE(Log().HasLogged("the name can't be converted"));
    EXPECT_EQ(Send(GetParam(), Name(std::string(room, 's') + "\\")), kNotImplemented);
    EXPECT_EQ(Kept(), "rip-server");
}

// The character would be cut in its middle, and the name without it is another printer's.
TEST_P(AddEvent, OfANameWhoseLastCharacterDoesNotFit512BytesStops) {
    const std::string before(511 - 1 - printer.Name().size(), 's');
    EXPECT_EQ(Send(GetParam(), Name(before + "\\", "表")), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("the name can't be converted"));
    EXPECT_EQ(Kept(), "none");
}

TEST_P(AddEvent, WithoutANameStops) {
    EXPECT_EQ(plugIn->PrinterEvent(nullptr, GetParam(), 0, 0), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("the name can't be converted"));
    EXPECT_EQ(Send(GetParam(), L""), kNotImplemented);
    EXPECT_EQ(Send(GetParam(), L"\\\\server\\"), kNotImplemented);
    EXPECT_EQ(Kept(), "none");
}

TEST_P(AddEvent, OfAPrinterWhosePortTellsNoAddressRecordsNone) {
    const SpoolerPrinter distant("ZR event distant test", std::string(1000, 'p'));
    EXPECT_EQ(Send(GetParam(), Wide(distant.Name())), kNotImplemented);
    EXPECT_EQ(KeptWith(distant), "none");
}

// What the key of a printer holds is neither a format nor a path.
TEST_P(AddEvent, TakesAnAddressAsItIs) {
    key.Write("HostName", "%s%n\\..\\表");
    EXPECT_EQ(Send(GetParam(), Name()), kNotImplemented);
    EXPECT_EQ(Kept(), "%s%n\\..\\表");
}

INSTANTIATE_TEST_SUITE_P(Both, AddEvent, testing::ValuesIn(kAddEvents));

// The user's registry with authentication keys, in place of the real one.
class DeletedPrinter : public PrinterEvents {
  protected:
    static std::string PathOf(const std::string& name) {
        return "Software\\Zephra\\ZR Print Driver Data\\" + name;
    }
    void AddConnection(const std::string& name, const char* guid) {
        if (guid)
            user.AddText(("Printers\\Connections\\" + name).c_str(), "GuidPrinter", guid);
        else
            user.AddKey(("Printers\\Connections\\" + name).c_str());
    }
    void AddData(std::initializer_list<const char*> names) {
        for (const char* name : names)
            user.AddText((PathOf(name) + "\\UserInfo").c_str(), "JobOwnerName_User", "owner");
    }
    bool HasData(const std::string& name) const { return user.Has((PathOf(name) + "\\UserInfo").c_str()); }
    bool HasKey(const std::string& name) const { return user.Has(PathOf(name).c_str()); }

    HRESULT Delete(const std::string& name) { return Send(PRINTER_EVENT_DELETE, Wide(name)); }

    RegistryOverride user{HKEY_CURRENT_USER};
};

TEST_F(DeletedPrinter, LosesItsAuthenticationKeyAndNoOtherOne) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddConnection(",,server,Other", "{22}");
    AddData({"Orvane X100{11}", "Orvane X100{11}2", "Orvane X100{22}", "Orvane X100", "Other{22}", "{11}"});
    EXPECT_EQ(Delete("\\\\server\\Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100{11}"));
    for (const char* name : {"Orvane X100{11}2", "Orvane X100{22}", "Orvane X100", "Other{22}", "{11}"})
        EXPECT_TRUE(HasData(name)) << name;
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() \\server\\Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() Orvane X100{11}"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() the key is deleted"));
}

TEST_F(DeletedPrinter, IsToldWithTheComputersName) {
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> computer{};
    DWORD size = static_cast<DWORD>(computer.size());
    ASSERT_TRUE(GetComputerNameA(computer.data(), &size));
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged(std::string("() ") + computer.data()));
}

TEST_F(DeletedPrinter, GivesTheResultOfTheRemoval) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddData({"Orvane X100{11}"});
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\Orvane X100"), 1);
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\Orvane X100"), 0);
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() no key is deleted"));
}

TEST_F(DeletedPrinter, WithoutAConnectionHasTheKeyOfItsShortNameAndAnEmptyGuid) {
    AddConnection(",,server,Other", "{22}");
    AddData({"Orvane X100", "Orvane X100{11}"});
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100"));
    EXPECT_TRUE(HasData("Orvane X100{11}"));
}

TEST_F(DeletedPrinter, WithoutAConnectionLosesNoDataOfAGuid) {
    AddData({"Orvane X100{11}"});
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\Orvane X100"), 0);
    EXPECT_TRUE(HasData("Orvane X100{11}"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() Orvane X100"));
}

TEST_F(DeletedPrinter, IsFoundByTheFirstConnectionWhoseNameContainsItsOwn) {
    AddConnection(",,a,Orvane X100 second", "{22}");
    AddConnection(",,b,Orvane X100", "{11}");
    AddData({"Orvane X100{11}", "Orvane X100{22}"});
    EXPECT_EQ(Delete("\\\\b\\Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100{22}"));
    EXPECT_TRUE(HasData("Orvane X100{11}"));
}

TEST_F(DeletedPrinter, HasANameThatEndsAtTheLastCommaOfItsPart) {
    AddConnection(",,server,Orvane X100", "{11}");
    for (const char* name : {"\\\\server\\Orvane X100,LocalOnly", "\\\\a,b\\Orvane X100,LocalOnly",
                             "a,b\\Orvane X100", "Orvane X100,", "a,b\\\\c,d\\Orvane X100,x"}) {
        AddData({"Orvane X100{11}"});
        EXPECT_EQ(Delete(name), kNotImplemented);
        EXPECT_FALSE(HasKey("Orvane X100{11}")) << name;
    }
}

// Here the part begins behind the first backslash, so a comma in the server's name ends it.
TEST_F(DeletedPrinter, WithACommaInItsServersNameAloneIsNotFound) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddData({"Orvane X100{11}"});
    EXPECT_EQ(Delete("\\\\a,b\\Orvane X100"), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100{11}"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() \\a"));
}

TEST_F(DeletedPrinter, WithDoubleByteCharactersHasTheKeyOfThese) {
    AddConnection(",,server,表示予", "{11}");
    AddData({"表示予{11}", "示予{11}"});
    EXPECT_EQ(Delete("\\\\server\\表示予"), kNotImplemented);
    EXPECT_FALSE(HasKey("表示予{11}"));
    AddData({"表示予{11}"});
    EXPECT_EQ(Delete("表示予,x"), kNotImplemented);
    EXPECT_FALSE(HasKey("表示予{11}"));
    EXPECT_TRUE(HasData("示予{11}"));
}

TEST_F(DeletedPrinter, OfALongNameHasNoKey) {
    AddData({"Orvane X100"});
    EXPECT_EQ(Delete(std::string(1000, 'x')), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() no key is deleted"));
    EXPECT_EQ(Delete("\\\\" + std::string(985, 's') + "\\Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100"));
}

TEST_F(DeletedPrinter, WhoseNameDoesNotFit1024BytesKeepsItsData) {
    const std::string name = "Orvane X100";
    AddData({"Orvane X100"});
    EXPECT_EQ(Delete(std::string(1024 - 1 - name.size(), 's') + "\\" + name), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("the name can't be converted, error="));
    EXPECT_EQ(Delete(std::string(1023 - 1 - name.size(), 's') + "\\" + name), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100"));
}

TEST_F(DeletedPrinter, WhoseNamesLastCharacterDoesNotFit1024BytesKeepsTheDataOfTheNameWithoutIt) {
    const std::string name = "Orvane X100";
    AddData({"Orvane X100"});
    EXPECT_EQ(Delete(std::string(1023 - 1 - name.size(), 's') + "\\" + name + "表"), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("the name can't be converted, error="));
}

TEST_F(DeletedPrinter, WhoseNameCantBeConvertedKeepsItsData) {
    AddData({"Orvane X100"});
    EXPECT_EQ(Send(PRINTER_EVENT_DELETE, L"\x0E01\\Orvane X100"), kNotImplemented);
    EXPECT_EQ(plugIn->PrinterEvent(nullptr, PRINTER_EVENT_DELETE, 0, 0), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("the name can't be converted, error="));
}

TEST_F(DeletedPrinter, WithoutANameLosesNothing) {
    AddConnection(",,server,Orvane X100", nullptr);
    AddData({"Orvane X100"});
    for (const char* name : {"", "\\", ",", "\\\\server\\"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100"));
}

TEST_F(DeletedPrinter, ThatIsNoneLosesNothing) {
    EXPECT_EQ(hrOEMPrinterEvent(nullptr), 0);
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() no name"));
    std::array<char, 1024> key;
    key.fill('x');
    GetAuthenticatInfo(nullptr, key);
    EXPECT_STREQ(key.data(), "");
    key.fill('x');
    GetClientAuthenticatInfo(nullptr, key);
    EXPECT_STREQ(key.data(), "");
}

// Neither is there a GUID to compare.
TEST_F(DeletedPrinter, OfAClientSideConnectionWithoutAGuidIsNotTheConnectionWithoutOne) {
    AddConnection(",,server,Orvane X100", nullptr);
    AddConnection(",,server,Other", "");
    AddData({"Orvane X100", "Other"});
    for (const char* name : {"\\\\server\\CSR|\\", "\\\\server\\CSR|\\,LocalOnly"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(HasData("Other"));
}

TEST_F(DeletedPrinter, HasNoNameThatLeadsOutOfTheAuthenticationKeys) {
    AddData({"Orvane X100"});
    user.AddKey("Software\\Zephra\\Other");
    for (const char* name : {"..", "\\\\server\\..\\Other", "\\..\\Other", "%s%s%n"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(user.Has("Software\\Zephra\\Other"));
}

TEST_F(DeletedPrinter, OfAClientSideConnectionIsFoundByItsGuid) {
    AddConnection(",,a,Other", "{22}");
    AddConnection(",,server,Orvane X100", "{11}");
    for (const char* name : {"\\\\server\\CSR|server\\{11}", "\\\\server\\CSR|{11}\\{11},LocalOnly",
                             "\\\\CSR|\\{11}", "表\\\\CSR|表\\{11}"}) {
        AddData({"Orvane X100{11}", "Orvane X100{22}", "Other{22}", "{11}", "Orvane X100"});
        EXPECT_EQ(Delete(name), kNotImplemented);
        EXPECT_FALSE(HasKey("Orvane X100{11}")) << name;
        for (const char* other : {"Orvane X100{22}", "Other{22}", "{11}", "Orvane X100"})
            EXPECT_TRUE(HasData(other)) << other;
    }
}

TEST_F(DeletedPrinter, OfAClientSideConnectionMustHaveExactlyItsGuid) {
    AddConnection(",,server,Orvane X100", "{AB}");
    AddData({"Orvane X100{AB}", "Orvane X100{A}", "Orvane X100{ab}"});
    for (const char* name : {"\\\\server\\CSR|\\{A}", "\\\\server\\CSR|\\{ab}", "\\\\server\\CSR|\\{AB} ",
                             "\\\\server\\CSR|\\{AB}{AB}", "\\\\server\\CSR|{AB}"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100{AB}"));
    EXPECT_TRUE(HasData("Orvane X100{A}"));
}

TEST_F(DeletedPrinter, OfAClientSideConnectionWithoutAMatchHasAnEmptyKey) {
    AddData({"Orvane X100"});
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\CSR|\\Orvane X100"), 0);
    EXPECT_TRUE(HasData("Orvane X100"));
    std::array<char, 1024> key;
    key.fill('x');
    GetClientAuthenticatInfo("\\server\\CSR|\\{11}", key);
    EXPECT_STREQ(key.data(), "");
}

TEST_F(DeletedPrinter, OfAClientSideConnectionHasTheNameBehindTheConnectionsLastComma) {
    std::array<char, 1024> key{};
    AddConnection("Orvane", "{11}");
    GetClientAuthenticatInfo("\\server\\CSR|\\{11}", key);
    EXPECT_STREQ(key.data(), "Orvane{11}");
    AddConnection(",,server,表示", "{22}");
    GetClientAuthenticatInfo("{22}", key);
    EXPECT_STREQ(key.data(), "表示{22}");
}

// The mark has its backslash, and the name's first one is gone by then.
TEST_F(DeletedPrinter, IsNoClientSideConnectionByItsFirstBackslash) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddData({"Orvane X100{11}", "{11}"});
    EXPECT_EQ(Delete("\\CSR|server\\{11}"), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100{11}"));
    EXPECT_FALSE(HasKey("{11}"));
}

TEST_F(DeletedPrinter, HasAKeyNameOfItsShortNameAndItsGuid) {
    std::array<char, 1024> key{};
    AddConnection(",,server,Orvane X100", "{11}");
    GetAuthenticatInfo("\\server\\Orvane X100", key);
    EXPECT_STREQ(key.data(), "Orvane X100{11}");
    GetAuthenticatInfo("\\Orvane X100", key);
    EXPECT_STREQ(key.data(), "\\Orvane X100") << "a backslash that comes first parts nothing here";
}

// The store has one set of values in a process, and the event prepares it anew.
TEST_F(DeletedPrinter, ClearsTheValuesOfAnOpenSheetInTheSameProcess) {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_SetCurrent(305, 7);
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    std::uint32_t value = 7;
    ExportedFunc_GetCurrent(305, &value);
    EXPECT_EQ(value, 0u);
}

TEST_F(DeletedPrinter, SetsTheLocaleOfTheProcess) {
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "Japanese_Japan.932");
}

TEST_F(AddedPrinter, IsOnlyTouchedByTheEventsOfAdding) {
    for (const int event : {-1, 0, PRINTER_EVENT_DELETE_CONNECTION, PRINTER_EVENT_CACHE_REFRESH,
                            PRINTER_EVENT_CACHE_DELETE, PRINTER_EVENT_ATTRIBUTES_CHANGED, 8, 0x7FFFFFFF}) {
        Log().Forget();
        EXPECT_EQ(Send(event, Name()), kNotImplemented) << event;
        EXPECT_EQ(plugIn->PrinterEvent(nullptr, event, 0, 0), kNotImplemented) << event;
        EXPECT_EQ(Kept(), "none") << event;
        EXPECT_EQ(Log().Messages().size(), 2u) << "the two calls alone";
    }
}

TEST_F(DeletedPrinter, LosesItsDataByNoOtherEvent) {
    AddData({"Orvane X100"});
    for (const int event : {-1, 0, 2, 5, 6, 7, 8})
        EXPECT_EQ(Send(event, L"Orvane X100"), kNotImplemented) << event;
    EXPECT_TRUE(HasData("Orvane X100"));
}

} // namespace
