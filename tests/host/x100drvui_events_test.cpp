// The events that the spooler sends to the driver, handed on to the test plug-in.
#include "tests/support/spooler_printer.h"
#include "x100drvui_fixture.h"

namespace {

class DriverEvents : public X100DrvUiTest {
  protected:
    BOOL SendPrinter(int event, const wchar_t* name = L"no such printer", DWORD flags = 0, LPARAM param = 0) {
        std::wstring writable = name ? name : L"";
        return FunctionOf<PFNDRVPRINTEREVENT>(m_module, "DrvPrinterEvent")(name ? writable.data() : nullptr,
                                                                           event, flags, param);
    }
    BOOL SendDriver(DWORD event, DWORD level = 3, BYTE* info = nullptr, LPARAM param = 0) {
        return FunctionOf<PFNDRVDRIVEREVENT>(m_module, "DrvDriverEvent")(event, level, info, param);
    }
};

TEST_F(DriverEvents, OfAPrinterReachThePluginAsTheyAre) {
    EXPECT_TRUE(SendPrinter(4, L"gone", 1, 77));
    EXPECT_EQ(Calls(), "PrinterEvent4:gone:1:77 released ");
    ForgetCalls();
    EXPECT_TRUE(SendPrinter(-1, L""));
    EXPECT_TRUE(SendPrinter(1, nullptr));
    EXPECT_EQ(Calls(), "PrinterEvent-1::0:0 released PrinterEvent1:(none):0:0 released ");
}

TEST_F(DriverEvents, OfTheDriverReachThePluginAsTheyAre) {
    BYTE info = 9;
    EXPECT_TRUE(SendDriver(2, 3, &info, 78));
    EXPECT_TRUE(SendDriver(1, 6));
    EXPECT_EQ(Calls(), "DriverEvent2:3:9:78 released DriverEvent1:6:(none):0 released ");
}

TEST_F(DriverEvents, ThatThePluginDeclinesLetTheDriverGoOn) {
    for (const HRESULT status : {E_NOTIMPL, S_OK, S_FALSE}) {
        m_hooks->eventStatus = status;
        EXPECT_TRUE(SendPrinter(3)) << status;
        EXPECT_TRUE(SendDriver(1)) << status;
    }
    EXPECT_EQ(Message(), L"");
}

TEST_F(DriverEvents, ThatFailInThePluginFail) {
    m_hooks->eventStatus = E_FAIL;
    EXPECT_FALSE(SendPrinter(3));
    EXPECT_EQ(Message(), L"The plug-in fails at an event, status 0x80004005.");
    EXPECT_FALSE(SendDriver(1));
    EXPECT_EQ(Message(), L"The plug-in fails at an event, status 0x80004005.");
}

TEST_F(DriverEvents, WithoutThePluginFail) {
    WriteText(L"x100.ini", "[OEMFiles]\r\nOEMConfigFile1=no_such_plugin.dll\r\n");
    EXPECT_FALSE(SendPrinter(3));
    EXPECT_NE(Message().find(L"no_such_plugin.dll"), std::wstring::npos);
    EXPECT_FALSE(SendDriver(1));
}

// It can still be opened as long as the test has it open.
TEST_F(DriverEvents, OfAPrinterWhoseDriverTheSpoolerDoesNotTellReachThePlugin) {
    SpoolerPrinter printer("ZR driver event test");
    std::wstring name(printer.Name().begin(), printer.Name().end());
    printer.Delete();
    HANDLE opened = nullptr;
    ASSERT_TRUE(OpenPrinterW(name.data(), &opened, nullptr));
    ClosePrinter(opened);
    EXPECT_TRUE(SendPrinter(4, name.c_str()));
    EXPECT_EQ(Calls(), "PrinterEvent4:" + printer.Name() + ":0:0 released ");
}

// The description is not needed for them.
TEST_F(DriverEvents, NeedNoDescription) {
    WriteDescription("nonsense");
    EXPECT_TRUE(SendPrinter(3));
    EXPECT_TRUE(SendDriver(1));
}

} // namespace
