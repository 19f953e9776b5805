// Printers that come, with printers of the spooler and keys of the port monitor.
#include "oemps/printer_event.h"

#include "tests/oemps/printer_event_fixture.h"
#include "tests/support/made_key.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

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

} // namespace
