// The package on a machine that has nothing else of this project: installed from its INF, used, removed. The
// tests run in their order, each on what the one before has left; each suite has a process of its own. The
// machine is a fresh Wine prefix with its system drive alone, on which C:\package is the unpacked zip; beside
// this program stand the stand-ins for the stock driver, driverhost.exe and its scripts. Wine's spooler tells
// no driver of events: that is done here in its place.
#include "Common/win_handles.h"
#include "host/install_printer.h"
#include "tests/package/inf_installation.h"
#include "tests/package/traces.h"
#include "tests/sheet/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include <winddiui.h>

namespace {

const std::filesystem::path kPackage = L"C:\\package";

const InfFile& Inf() {
    static const InfFile inf(kPackage / L"x100.inf");
    return inf;
}

std::filesystem::path SystemFile(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> directory{};
    GetSystemDirectoryW(directory.data(), directory.size());
    return std::filesystem::path(directory.data()) / name;
}

std::filesystem::path ApplicationDirectory() {
    return std::filesystem::path(JobPropertyApplicationPath()).parent_path();
}

std::filesystem::path KeptDirectory() {
    return DriverDirectory() / L"3";
}

// The names of the files in a directory, in lower case as far as they are ASCII, in order.
std::vector<std::wstring> FilesIn(const std::filesystem::path& directory) {
    std::vector<std::wstring> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(directory, error))
        if (entry.is_regular_file())
            names.push_back(entry.path().filename().wstring());
    for (std::wstring& name : names)
        CharLowerW(name.data());
    std::ranges::sort(names);
    return names;
}

std::vector<std::wstring> InOrder(std::vector<std::wstring> names) {
    for (std::wstring& name : names)
        CharLowerW(name.data());
    std::ranges::sort(names);
    return names;
}

void ExpectSameContents(const std::filesystem::path& copy, const std::wstring& name) {
    const std::vector<char> expected = ReadBytes((kPackage / name).wstring());
    EXPECT_FALSE(expected.empty()) << copy;
    EXPECT_TRUE(ReadBytes(copy.wstring()) == expected) << copy;
}

void Play(std::vector<std::wstring> words, const wchar_t* script) {
    words.insert(words.begin(), {L"--installed", L"--script", (OwnFolder() / script).wstring()});
    const ProgramResult result = RunDriverhost(words);
    EXPECT_EQ(result.status, 0u) << result.output;
}

UniquePrinter OpenedPrinter() {
    std::wstring name = kPrinterName;
    HANDLE printer = nullptr;
    OpenPrinterW(name.data(), &printer, nullptr);
    return UniquePrinter(printer);
}

bool IsPrinter() {
    return bool(OpenedPrinter());
}

// "" if the printer has none.
std::wstring KeptServerAddress() {
    std::array<wchar_t, 260> address{};
    DWORD type = 0;
    DWORD needed = 0;
    GetPrinterDataExW(OpenedPrinter().Get(), L"PrinterDriverData", L"PrinterPortAddress", &type,
                      reinterpret_cast<BYTE*>(address.data()), sizeof address, &needed);
    return address.data();
}

constexpr wchar_t kPortKeys[] =
    L"SYSTEM\\ControlSet001\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports";

TEST(PackageInstall, NoDriveButTheSystemsIsInReach) {
    EXPECT_EQ(GetLogicalDrives(), DWORD{1} << (L'C' - L'A'));
    EXPECT_FALSE(RegisteredDriver(kDriverName));
    EXPECT_FALSE(std::filesystem::exists(ApplicationDirectory()));
    EXPECT_TRUE(KeysBelow(HKEY_CURRENT_USER, L"Software\\Zephra").empty());
    EXPECT_TRUE(KeysBelow(HKEY_LOCAL_MACHINE, kPortKeys).empty());
    EXPECT_TRUE(TreeBelow(PublicDocuments() / L"Zephra").empty());
}

TEST(PackageInstall, APrinterThatIsTakenAsItIsHasToBeThere) {
    const ProgramResult result = RunDriverhost({L"--installed", L"--timeout", L"5"});
    EXPECT_EQ(result.status, 1u);
    EXPECT_NE(result.output.find("there is no printer Orvane X100"), std::string::npos) << result.output;
    EXPECT_FALSE(RegisteredDriver(kDriverName));
}

TEST(PackageInstall, CopiesTheFilesOfTheInfAndNoOthers) {
    ASSERT_TRUE(Inf());
    const std::vector<std::wstring> before = FilesIn(DriverDirectory());
    ASSERT_EQ(CopyFilesOf(Inf(), kPackage), "");
    std::vector<std::wstring> expected = Inf().CopiedFiles(kDriverDirectory);
    for (const std::wstring& file : expected)
        ExpectSameContents(DriverDirectory() / file, file);
    expected.insert(expected.end(), before.begin(), before.end());
    EXPECT_EQ(FilesIn(DriverDirectory()), InOrder(expected));
    ExpectSameContents(JobPropertyApplicationPath(), L"PrinterDriverApplication.exe");
    EXPECT_EQ(FilesIn(ApplicationDirectory()).size(), 1u);
}

TEST(PackageInstall, RegistersTheDriverWithItsFiles) {
    ASSERT_EQ(AddDriverOf(Inf(), SystemFile(L"wineps.drv"), OwnFolder() / L"x100drvui.dll"), "");
    const RegisteredDriver driver(kDriverName);
    ASSERT_TRUE(driver);
    EXPECT_EQ(driver.DataFile(), KeptDirectory() / L"x100.ppd");
    std::vector<std::wstring> dependent;
    for (const std::filesystem::path& file : driver.DependentFiles()) {
        EXPECT_EQ(file.parent_path(), KeptDirectory());
        dependent.push_back(file.filename().wstring());
    }
    dependent.push_back(L"x100.ppd");
    EXPECT_EQ(InOrder(dependent), InOrder(Inf().CopiedFiles(kDriverDirectory)));
    for (const std::wstring& file : Inf().CopiedFiles(kDriverDirectory))
        ExpectSameContents(KeptDirectory() / file, file);
}

TEST(PackageInstall, ThePluginTakesItsModulesFromTheDriversFolder) {
    const HMODULE plugin =
        LoadLibraryExW((KeptDirectory() / L"ZRPDS31J.dll").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_TRUE(plugin) << GetLastError();
    for (const wchar_t* name :
         {L"DataManager.dll", L"AuthenticationManager.dll", L"CommunicationSetting.dll"}) {
        std::array<wchar_t, MAX_PATH> path{};
        GetModuleFileNameW(GetModuleHandleW(name), path.data(), path.size());
        EXPECT_STRCASEEQ(std::filesystem::path(path.data()).string().c_str(),
                         (KeptDirectory() / name).string().c_str());
    }
    FreeLibrary(plugin);
}

TEST(PackageInstall, TellsTheDriverOfItselfAndItsPrinter) {
    const RegisteredDriver driver(kDriverName);
    ASSERT_TRUE(driver);
    EXPECT_TRUE(driver.TellDriverEvent(DRIVER_EVENT_INITIALIZE));
    ASSERT_EQ(AddPrinterOf(Inf(), kPrinterName), "");
    EXPECT_TRUE(driver.TellPrinterEvent(PRINTER_EVENT_INITIALIZE, kPrinterName));
    EXPECT_TRUE(IsPrinter());
}

// Which is why the first port has to be one of the print server.
TEST(PackageInstall, ThePrinterKeepsTheNameOfAPortThatHasNoAddress) {
    EXPECT_EQ(KeptServerAddress(), L"FILE:");
}

TEST(PackageInstall, TheDocumentSheetHasItsPagesAndKeepsAChange) {
    Play({}, L"document_sheet.txt");
    Play({}, L"change_is_kept.txt");
}

TEST(PackageInstall, TheDeviceSheetHasItsPage) {
    Play({L"--device"}, L"device_sheet.txt");
}

// On a system whose code page is not the Japanese one.
TEST(PackageInEnglish, TheDocumentSheetHasTheTextsOfTheSatellite) {
    ASSERT_EQ(GetACP(), 1252u);
    Play({}, L"english_sheet.txt");
}

TEST(PackageInEnglish, TheDeviceSheetHasTheTextsOfTheSatellite) {
    ASSERT_EQ(GetACP(), 1252u);
    Play({L"--device"}, L"english_device.txt");
}

TEST(PackageRemoval, ThePrinterGoesAndItsDriverStays) {
    const RegisteredDriver driver(kDriverName);
    ASSERT_TRUE(driver);
    EXPECT_TRUE(driver.TellPrinterEvent(PRINTER_EVENT_DELETE, kPrinterName));
    EXPECT_TRUE(RemovePrinter());
    EXPECT_FALSE(IsPrinter());
    EXPECT_TRUE(RegisteredDriver(kDriverName));
    EXPECT_TRUE(std::filesystem::exists(JobPropertyApplicationPath()));
}

TEST(PackageRemoval, TheApplicationsDirectoryGoesWithTheDriver) {
    const RegisteredDriver driver(kDriverName);
    ASSERT_TRUE(driver);
    EXPECT_TRUE(driver.TellDriverEvent(DRIVER_EVENT_DELETE));
    EXPECT_FALSE(std::filesystem::exists(ApplicationDirectory()));
    std::wstring name = kDriverName;
    EXPECT_TRUE(DeletePrinterDriverExW(nullptr, nullptr, name.data(), 0, 0));
    EXPECT_FALSE(RegisteredDriver(kDriverName));
}

// As docs/install.md tells it, "What is written where". What the authentication dialog has stored went with
// the printer.
TEST(PackageRemoval, WhatStaysIsWhatTheGuideTells) {
    const Traces user{L"QPSP", L"ZR Print Driver Data"};
    EXPECT_EQ(KeysBelow(HKEY_CURRENT_USER, L"Software\\Zephra"), user);
    EXPECT_EQ(KeysBelow(HKEY_LOCAL_MACHINE, kPortKeys), Traces{L"FILE:"});
    const Traces documents{L"KP Controller",
                           L"KP Controller\\Orvane X100",
                           L"KP Controller\\Orvane X100\\SpotColor",
                           L"KP Controller\\Orvane X100\\SpotColor\\User",
                           L"KP Controller\\Orvane X100\\favorite",
                           L"KP Controller\\Orvane X100\\profile"};
    EXPECT_EQ(TreeBelow(PublicDocuments() / L"Zephra"), documents);
}

// The spooler deletes a driver's files on Windows; under Wine it leaves them.
TEST(PackageRemoval, TheDriversFolderHoldsNothingButThePackagesFilesAndTheStandIn) {
    std::vector<std::wstring> expected = Inf().CopiedFiles(kDriverDirectory);
    expected.insert(expected.end(), {L"x100drvui.dll", L"wineps.drv"});
    EXPECT_EQ(FilesIn(KeptDirectory()), InOrder(expected));
    for (const std::wstring& file : Inf().CopiedFiles(kDriverDirectory))
        EXPECT_TRUE(DeleteFileW((KeptDirectory() / file).c_str())) << std::filesystem::path(file);
}

} // namespace
