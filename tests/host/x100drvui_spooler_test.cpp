// The module as the spooler's client library loads it: through an installed printer.
#include "Common/win_handles.h"
#include "host/driver_devmode.h"
#include "host/install_printer.h"
#include "host/module_function.h"
#include "host/x100drvui.h"
#include "test_plugin.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

constexpr wchar_t kTestPrinter[] = L"X100 Spooler Test";

DriverPackage TestPackage() {
    DriverPackage package;
    package.driverName = L"X100 Spooler Test Driver";
    package.dataFile = L"x100test.ppd";
    package.dependentFiles = {L"x100test.ini", L"test_plugin.dll"};
    package.applicationPath.clear();
    return package;
}

class SpoolerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        m_folder =
            std::filesystem::temp_directory_path() / (L"x100spool" + std::to_wstring(GetCurrentProcessId()));
        std::filesystem::create_directories(m_folder);
        for (const wchar_t* name : {L"x100drvui.dll", L"test_plugin.dll"})
            std::filesystem::copy_file(OwnFolder() / name, m_folder / name,
                                       std::filesystem::copy_options::overwrite_existing);
        std::filesystem::copy_file(ZR_TEST_DATA_DIR "/small.ppd", m_folder / "x100test.ppd",
                                   std::filesystem::copy_options::overwrite_existing);
        std::ofstream(m_folder / "x100test.ini") << "[OEMFiles]\nOEMConfigFile1=test_plugin.dll\n";
        m_installed = InstallPrinter(m_folder.wstring(), kTestPrinter, TestPackage());
        ASSERT_TRUE(m_installed.ok) << std::string(m_installed.message.begin(), m_installed.message.end());
        std::wstring name = kTestPrinter;
        ASSERT_TRUE(OpenPrinterW(name.data(), m_printer.Receive(), nullptr));
        m_plugin = LoadLibraryW((m_installed.driverDirectory + L"\\test_plugin.dll").c_str());
        m_hooks = FunctionOf<PFNTESTPLUGINCONTROL>(m_plugin, "TestPluginControl")();
    }

    void TearDown() override {
        m_printer.Reset();
        FreeLibrary(m_plugin);
        RemovePrinter(kTestPrinter);
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }

    LONG Properties(DWORD mode, DEVMODEW* out, DEVMODEW* in) {
        std::wstring name = kTestPrinter;
        return DocumentPropertiesW(nullptr, m_printer.Get(), name.data(), out, in, mode);
    }

    std::vector<std::byte> Default() {
        LONG size = Properties(0, nullptr, nullptr);
        EXPECT_GT(size, 0);
        std::vector<std::byte> devmode(static_cast<std::size_t>(std::max<LONG>(size, 0)));
        EXPECT_EQ(Properties(DM_OUT_BUFFER, Public(devmode), nullptr), IDOK);
        return devmode;
    }

    static DWORD LastSheetResult() {
        HMODULE module = GetModuleHandleW(L"x100drvui.dll");
        return FunctionOf<PFNX100GETLASTSHEETRESULT>(module, "X100GetLastSheetResult")();
    }

    static DEVMODEW* Public(std::vector<std::byte>& devmode) {
        return reinterpret_cast<DEVMODEW*>(devmode.data());
    }

    std::filesystem::path m_folder;
    InstallResult m_installed;
    UniquePrinter m_printer;
    HMODULE m_plugin = nullptr;
    TestPluginHooks* m_hooks = nullptr;
};

TEST_F(SpoolerTest, GivesAWholeDevModeOfItsPrinter) {
    auto devmode = Default();
    EXPECT_EQ(std::wstring(Public(devmode)->dmDeviceName), kTestPrinter);
    EXPECT_EQ(Public(devmode)->dmSize, 220);
    EXPECT_EQ(Public(devmode)->dmSize + Public(devmode)->dmDriverExtra, static_cast<int>(devmode.size()));
    const auto* block =
        reinterpret_cast<const TestBlock*>(devmode.data() + devmode.size() - sizeof(TestBlock));
    EXPECT_EQ(block->header.dwSignature, kTestSignature);
    EXPECT_EQ(block->value, 7u);
}

TEST_F(SpoolerTest, OpensTheSheetFromDocumentProperties) {
    auto in = Default();
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        static_cast<TestBlock*>(param->pOEMDM)->value = 42;
    };
    EXPECT_EQ(Properties(DM_IN_PROMPT | DM_IN_BUFFER | DM_OUT_BUFFER, Public(out), Public(in)), IDOK);
    EXPECT_EQ(reinterpret_cast<const TestBlock*>(out.data() + out.size() - sizeof(TestBlock))->value, 42u);
    EXPECT_EQ(LastSheetResult(), static_cast<DWORD>(CPSUI_OK));
}

// Wine's DocumentProperties returns IDOK all the same.
TEST_F(SpoolerTest, LeavesACancelledSheetsCallerWithTheSettingsAsTheyWere) {
    auto in = Default();
    Public(in)->dmCopies = 3;
    std::vector<std::byte> out(in.size(), std::byte{0xCD});
    m_hooks->press = IDCANCEL;
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        static_cast<TestBlock*>(param->pOEMDM)->value = 42;
        for (DWORD i = 0; i < param->cDrvOptItems; ++i)
            if (param->pDrvOptItems[i].DMPubID == DMPUB_COPIES_COLLATE)
                param->pDrvOptItems[i].Sel = 8;
    };
    Properties(DM_IN_PROMPT | DM_IN_BUFFER | DM_OUT_BUFFER, Public(out), Public(in));
    EXPECT_EQ(Public(out)->dmCopies, 3);
    EXPECT_EQ(reinterpret_cast<const TestBlock*>(out.data() + out.size() - sizeof(TestBlock))->value, 7u);
    EXPECT_EQ(LastSheetResult(), static_cast<DWORD>(CPSUI_CANCEL));
}

TEST_F(SpoolerTest, GivesAnErrorOnABrokenDevMode) {
    auto in = Default();
    auto out = Default();
    reinterpret_cast<DriverArea*>(in.data() + kPublicSize)->version = 9;
    EXPECT_LT(Properties(DM_IN_BUFFER | DM_OUT_BUFFER, Public(out), Public(in)), 0);
}

std::wstring g_title;

TEST_F(SpoolerTest, NamesThePrinterInTheSheetsTitle) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM*, IPrintOemDriverUI*) {
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM) -> BOOL {
                wchar_t title[128] = {};
                GetWindowTextW(window, title, 128);
                if (IsWindowVisible(window))
                    g_title = title;
                return TRUE;
            },
            0);
    };
    Properties(DM_IN_PROMPT | DM_OUT_BUFFER, Public(out), nullptr);
    EXPECT_EQ(g_title, L"X100 Spooler Test 印刷設定");
}

TEST_F(SpoolerTest, StartsFromTheDevModeThatTheSpoolerKeeps) {
    auto devmode = Default();
    Public(devmode)->dmCopies = 17;
    auto* block = reinterpret_cast<TestBlock*>(devmode.data() + devmode.size() - sizeof(TestBlock));
    block->value = 33;
    PRINTER_INFO_9W info{Public(devmode)};
    ASSERT_TRUE(SetPrinterW(m_printer.Get(), 9, reinterpret_cast<LPBYTE>(&info), 0)) << GetLastError();
    auto again = Default();
    EXPECT_EQ(Public(again)->dmCopies, 17);
    EXPECT_EQ(reinterpret_cast<TestBlock*>(again.data() + again.size() - sizeof(TestBlock))->value, 33u);
}

TEST_F(SpoolerTest, PassesOverAStoredDevModeThatIsBroken) {
    auto devmode = Default();
    Public(devmode)->dmCopies = 17;
    reinterpret_cast<DriverArea*>(devmode.data() + kPublicSize)->signature = 0;
    PRINTER_INFO_9W info{Public(devmode)};
    ASSERT_TRUE(SetPrinterW(m_printer.Get(), 9, reinterpret_cast<LPBYTE>(&info), 0));
    auto again = Default();
    EXPECT_EQ(Public(again)->dmCopies, 1);
}

// Otherwise the printer would be of no use for good: nothing but its driver could store other settings.
TEST_F(SpoolerTest, PassesOverAStoredDevModeWhoseBlockThePluginDoesNotTake) {
    auto devmode = Default();
    Public(devmode)->dmCopies = 17;
    PRINTER_INFO_9W info{Public(devmode)};
    ASSERT_TRUE(SetPrinterW(m_printer.Get(), 9, reinterpret_cast<LPBYTE>(&info), 0));
    m_hooks->takeStatus = E_FAIL;
    auto again = Default();
    EXPECT_EQ(Public(again)->dmCopies, 1);
    EXPECT_EQ(reinterpret_cast<TestBlock*>(again.data() + again.size() - sizeof(TestBlock))->value, 7u);
}

TEST_F(SpoolerTest, PassesOverAStoredDevModeWithTheBlockOfAnotherPlugin) {
    auto devmode = Default();
    Public(devmode)->dmCopies = 17;
    auto* block = reinterpret_cast<TestBlock*>(devmode.data() + devmode.size() - sizeof(TestBlock));
    block->header.dwSignature ^= 1;
    block->value = 33;
    PRINTER_INFO_9W info{Public(devmode)};
    ASSERT_TRUE(SetPrinterW(m_printer.Get(), 9, reinterpret_cast<LPBYTE>(&info), 0));
    auto again = Default();
    EXPECT_EQ(Public(again)->dmCopies, 1);
    EXPECT_EQ(reinterpret_cast<TestBlock*>(again.data() + again.size() - sizeof(TestBlock))->value, 7u);
}

TEST_F(SpoolerTest, AnswersAnsiCallersInSlotsOf64Bytes) {
    const char* name = "X100 Spooler Test";
    int count = DeviceCapabilitiesA(name, nullptr, DC_PAPERNAMES, nullptr, nullptr);
    ASSERT_EQ(count, 5);
    std::vector<char> names(64 * 5, '\x7F');
    ASSERT_EQ(DeviceCapabilitiesA(name, nullptr, DC_PAPERNAMES, names.data(), nullptr), 5);
    EXPECT_STREQ(names.data(), "A3(297x420mm)");
    EXPECT_STREQ(names.data() + 64 * 3, "封筒洋形4号(235x105mm)");
    EXPECT_STREQ(names.data() + 64 * 4, "PostScript カスタム ページ サイズ");
}

TEST_F(SpoolerTest, AnswersCapabilities) {
    auto ask = [&](WORD capability, void* output = nullptr) {
        return DeviceCapabilitiesW(kTestPrinter, nullptr, capability, static_cast<LPWSTR>(output), nullptr);
    };
    WORD papers[5] = {};
    ASSERT_EQ(ask(DC_PAPERS, papers), 5);
    EXPECT_EQ(papers[0], DMPAPER_A3);
    EXPECT_EQ(papers[3], 91); // DMPAPER_JENV_YOU4
    EXPECT_EQ(papers[4], 0x7FFF);
    POINT sizes[5] = {};
    ASSERT_EQ(ask(DC_PAPERSIZE, sizes), 5);
    EXPECT_EQ(sizes[1].x, 2099);
    EXPECT_EQ(sizes[1].y, 2970);
    WORD bins[3] = {};
    ASSERT_EQ(ask(DC_BINS, bins), 3);
    EXPECT_EQ(bins[0], DMBIN_AUTO);
    EXPECT_EQ(bins[1], DMBIN_USER + 1);
    wchar_t binNames[3 * 24] = {};
    ASSERT_EQ(ask(DC_BINNAMES, binNames), 3);
    EXPECT_STREQ(binNames + 24, L"トレイ1");
    LONG resolutions[4] = {};
    ASSERT_EQ(ask(DC_ENUMRESOLUTIONS, resolutions), 2);
    EXPECT_EQ(resolutions[2], 1200);
    EXPECT_EQ(ask(DC_COPIES), 9999);
    EXPECT_EQ(ask(DC_COLLATE), 1);
    EXPECT_EQ(ask(DC_DUPLEX), 0);
    EXPECT_EQ(ask(DC_COLORDEVICE), 1);
    EXPECT_EQ(ask(DC_ORIENTATION), 90);
    EXPECT_EQ(ask(DC_SIZE), 220);
    EXPECT_EQ(ask(DC_EXTRA), Properties(0, nullptr, nullptr) - 220);
    EXPECT_EQ(ask(DC_VERSION), 0x0401);
    EXPECT_EQ(ask(DC_DRIVER), 0x0600);
    EXPECT_EQ(ask(DC_MINEXTENT), MAKELONG(890, 980));
    EXPECT_EQ(ask(DC_MAXEXTENT), MAKELONG(3200, 12000));
    EXPECT_EQ(ask(DC_FILEDEPENDENCIES), -1);
}

// Its description, and so the file that names the plug-in, has another name than the one beside the module.
TEST_F(SpoolerTest, HandsAnEventToThePluginOfThePrintersOwnDriver) {
    const HMODULE module = LoadLibraryW((m_installed.driverDirectory + L"\\x100drvui.dll").c_str());
    std::wstring name = kTestPrinter;
    EXPECT_TRUE(FunctionOf<PFNDRVPRINTEREVENT>(module, "DrvPrinterEvent")(name.data(), 4, 0, 0));
    EXPECT_STREQ(FunctionOf<PFNTESTPLUGINCALLS>(m_plugin, "TestPluginCalls")(),
                 "PrinterEvent4:X100 Spooler Test:0:0 released ");
    FreeLibrary(module);
}

TEST_F(SpoolerTest, InstallingAgainAddsNothingAndBringsChangedFiles) {
    std::ofstream(m_folder / "x100test.ppd", std::ios::app) << "*% newer\n";
    InstallResult again = InstallPrinter(m_folder.wstring(), kTestPrinter, TestPackage());
    EXPECT_TRUE(again.ok);
    EXPECT_FALSE(again.driverAdded);
    EXPECT_FALSE(again.printerAdded);
    EXPECT_EQ(std::filesystem::file_size(again.driverDirectory + L"\\x100test.ppd"),
              std::filesystem::file_size(m_folder / "x100test.ppd"));
}

// The plug-in of the driver folder is loaded by this very program.
TEST_F(SpoolerTest, ReplacesAModuleThatIsLoaded) {
    std::ofstream(m_folder / "test_plugin.dll", std::ios::binary | std::ios::app) << "newer";
    InstallResult again = InstallPrinter(m_folder.wstring(), kTestPrinter, TestPackage());
    EXPECT_TRUE(again.ok) << std::string(again.message.begin(), again.message.end());
    EXPECT_EQ(std::filesystem::file_size(again.driverDirectory + L"\\test_plugin.dll"),
              std::filesystem::file_size(m_folder / "test_plugin.dll"));
}

TEST_F(SpoolerTest, InstallingNamesAMissingFile) {
    std::filesystem::remove(m_folder / "x100test.ini");
    InstallResult again = InstallPrinter(m_folder.wstring(), kTestPrinter, TestPackage());
    EXPECT_FALSE(again.ok);
    EXPECT_NE(again.message.find(L"x100test.ini is missing"), std::wstring::npos);
}

} // namespace
