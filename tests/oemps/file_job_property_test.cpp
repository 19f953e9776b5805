// The job property application for printing to a file, for printers of the spooler.
#include "oemps/file_job_property.h"

#include "host/install_printer.h"
#include "oemps/sheet_state.h"
#include "tests/support/main_log.h"
#include "tests/support/own_folder.h"
#include "tests/support/recording_runner.h"

#include <winspool.h>

#include <gtest/gtest.h>

#include <clocale>

namespace {

using Calls = std::vector<std::string>;

std::string Language() {
    return std::setlocale(LC_CTYPE, nullptr);
}

class Locale : public testing::Test {
  protected:
    Locale() { std::setlocale(LC_CTYPE, "C"); }
    ~Locale() override { std::setlocale(LC_CTYPE, "C"); }
};

class LanguageOfADriver : public Locale {};

TEST_F(LanguageOfADriver, IsToldByTheFirstOfTheMarkersInItsName) {
    constexpr struct {
        const char* name;
        const char* language; // how the locale's name begins
        const char* codePage;
    } kRows[] = {
        {"ZR ORKPN01 J", "Japanese", ".932"},  {"ZR ORKPN01 EN", "English_Australia", ".1252"},
        {"ZR ORKPN01 SC", "Chinese", ".936"},  {"ZR ORKPN01 TC", "Chinese", ".950"},
        {"ZR ORKPN01 KOR", "Korean", ".949"},  {"ZR ENGLISH JPN", "Japanese", ".932"},
        {"ZR SCAN ENTRY", "English", ".1252"}, {"ZR TC KOR SC", "Chinese", ".936"},
        {"ZR KOR TC", "Chinese", ".950"},      {" J", "Japanese", ".932"},
    };
    for (const auto& [name, language, codePage] : kRows) {
        std::setlocale(LC_CTYPE, "C");
        EXPECT_EQ(FindAndSetlocale(name), 1) << name;
        EXPECT_TRUE(Language().starts_with(language)) << name << ": " << Language();
        EXPECT_TRUE(Language().ends_with(codePage)) << name << ": " << Language();
    }
}

TEST_F(LanguageOfADriver, IsNoneWithoutAMarker) {
    for (const char* name : {"", "J", "Zephra Orvane X100", "ZR en", "ZR j", "ZREN", "ZR KO", "ZR K"}) {
        EXPECT_EQ(FindAndSetlocale(name), 0) << name;
        EXPECT_EQ(Language(), "C") << name;
    }
}

class PrintingToAFile : public Locale {
  protected:
    static void SetUpTestSuite() {
        log = std::make_unique<MainLog>();
        for (const wchar_t* name : {kDriverName, kJapaneseDriver}) {
            DriverPackage package;
            package.driverName = name;
            package.applicationPath.clear();
            const InstallResult installed = InstallPrinter(OwnFolder().wstring(), name, package);
            ASSERT_TRUE(installed.ok) << std::string(installed.message.begin(), installed.message.end());
        }
    }
    static void TearDownTestSuite() {
        for (const wchar_t* name : {kDriverName, kJapaneseDriver})
            RemovePrinter(name);
        log.reset();
    }
    ~PrintingToAFile() override {
        SetAddress(L"");
        ClosePrinter(g_hPrinter);
        g_hPrinter = nullptr;
    }

    // Printer and driver have the same name.
    static void Open(std::wstring name) {
        PRINTER_DEFAULTSW access{nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterW(name.data(), &g_hPrinter, &access)) << GetLastError();
        log->Forget();
    }
    static void SetAddress(const std::wstring& address) {
        std::wstring text = address;
        wchar_t name[] = L"PrinterPortAddress";
        SetPrinterDataW(g_hPrinter, name, REG_SZ, reinterpret_cast<BYTE*>(text.data()),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    static std::string CommandLine(const std::string& address) {
        return "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64\\"
               "PrinterDriverApplication.exe -file dummyID dummyRegKey PDF ja-JP -ip " +
               address + " -onceForce -iotproduct 10 ";
    }

    static constexpr wchar_t kJapaneseDriver[] = L"ZR Orvane X100 JPN";
    static inline std::unique_ptr<MainLog> log;
    RecordingRunner runner;
    ReplacedProcessRunner replaced{runner};
};

TEST_F(PrintingToAFile, StartsTheApplicationForThePrintersAddressAndWaitsForItsEnd) {
    Open(kDriverName);
    SetAddress(L"10.1.2.3");
    FileJobProperty();
    EXPECT_EQ(runner.calls, (Calls{"start: " + CommandLine("10.1.2.3"), "idle", "close thread",
                                   "wait for ever", "close process"}));
    EXPECT_TRUE(log->HasLogged("startupMode=0"));
}

TEST_F(PrintingToAFile, IsInEnglishForADriverThatNamesNoLanguage) {
    Open(kDriverName);
    FileJobProperty();
    EXPECT_EQ(Language(), "English_United States.1252");
    EXPECT_EQ(runner.CommandLines(), Calls{CommandLine("")});
}

TEST_F(PrintingToAFile, WritesTheAddressInTheDriversLanguage) {
    Open(kJapaneseDriver);
    SetAddress(L"\x8868\x793A-1"); // the second byte of the first character is a backslash's
    FileJobProperty();
    EXPECT_EQ(Language(), "Japanese_Japan.932");
    EXPECT_EQ(runner.CommandLines(), Calls{CommandLine("表示-1")});
}

TEST_F(PrintingToAFile, HasNoAddressWhereTheLanguageCantWriteIt) {
    Open(kDriverName);
    SetAddress(L"\x8868\x793A-1");
    FileJobProperty();
    EXPECT_EQ(runner.CommandLines(), Calls{CommandLine("")});
}

TEST_F(PrintingToAFile, CutsALongAddressBetweenTwoCharacters) {
    Open(kJapaneseDriver);
    SetAddress(std::wstring(200, L'\x8868'));
    FileJobProperty();
    std::string wide;
    for (int i = 0; i < 129; ++i)
        wide += "表";
    EXPECT_EQ(runner.CommandLines(), Calls{CommandLine(wide)});
}

TEST_F(PrintingToAFile, LeavesAnApplicationThatNeverWaitsForInput) {
    Open(kDriverName);
    runner.becomesIdle = false;
    FileJobProperty();
    EXPECT_EQ(runner.calls, (Calls{"start: " + CommandLine(""), "idle", "abandon"}));
}

TEST_F(PrintingToAFile, LogsTheErrorOfAnApplicationThatCantStart) {
    Open(kDriverName);
    runner.startError = ERROR_FILE_NOT_FOUND;
    FileJobProperty();
    EXPECT_EQ(runner.calls, Calls{"start: " + CommandLine("")});
    EXPECT_TRUE(log->HasLogged("FileJobProperty() error=2"));
}

TEST_F(PrintingToAFile, StopsWithoutAPrinter) {
    log->Forget();
    FileJobProperty();
    EXPECT_EQ(runner.calls, Calls{});
    EXPECT_EQ(Language(), "C");
    EXPECT_TRUE(log->HasLogged("no printer information"));
}

} // namespace
