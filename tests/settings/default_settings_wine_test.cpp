// The default settings file beside the module, against the sheet of a printer that was never changed.
#include "host/install_printer.h"
#include "host/module_function.h"
#include "host/option_items.h"
#include "host/ppd.h"
#include "host/x100drvui.h"
#include "oemps/devmode.h"
#include "oemps/document_sheet.h"
#include "oemps/sheet_state.h"
#include "session/session.h"
#include "tests/support/all_tags.h"
#include "tests/support/bank_values.h"
#include "tests/support/file_contents.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace {

constexpr char kFile[] = "ZRPDS31J_def";

PrinterModel Model() {
    return PrinterModel(std::get<ppd::PpdFile>(ppd::Parse(FileContents((OwnFolder() / "x100.ppd").string()))),
                        Language::Japanese);
}

// What the driver gives, with the module's own block, to a program that has no DEVMODE yet.
std::vector<std::byte> DefaultDevMode() {
    const HMODULE driver = LoadLibraryW((OwnFolder() / L"x100drvui.dll").c_str());
    const auto sheets = FunctionOf<PFNDRVPROPERTYSHEETS>(driver, "DrvDocumentPropertySheets");
    DOCUMENTPROPERTYHEADER header{};
    header.cbSize = sizeof header;
    std::vector<std::byte> devMode(
        static_cast<std::size_t>(std::max(sheets(nullptr, reinterpret_cast<LPARAM>(&header)), 0L)));
    header.fMode = DM_OUT_BUFFER;
    header.pdmOut = reinterpret_cast<PDEVMODEW>(devMode.data());
    header.cbOut = static_cast<DWORD>(devMode.size());
    EXPECT_EQ(sheets(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    FreeLibrary(driver);
    return devMode;
}

// The driver's first call to the plug-in for a printer that has its defaults, and a manager as the first page
// makes it.
class FreshSheet : public testing::Test {
  protected:
    void SetUp() override {
        devMode = DefaultDevMode();
        ASSERT_EQ(devMode.size(), DevModeSize(model, kDevModeSize));
        settings = ReadDevMode(devMode, model, DefaultSettings(model)).settings;
        items = std::make_unique<OptionItems>(model, settings);
        std::wstring name = kPrinterName;
        ASSERT_TRUE(OpenPrinterW(name.data(), &param.hPrinter, nullptr)) << GetLastError();
        param.cbSize = sizeof param;
        param.hOEMHeap = GetProcessHeap();
        param.pPublicDM = reinterpret_cast<PDEVMODEW>(devMode.data());
        param.pOEMDM = devMode.data() + devMode.size() - kDevModeSize;
        param.pDrvOptItems = items->Items().data();
        param.cDrvOptItems = static_cast<DWORD>(items->Items().size());
        param.pOEMOptItems = &ownItem;
        ASSERT_EQ(hrDocumentPropertyPage(&param), S_OK);
        ASSERT_NE(g_SessionBlock, nullptr);

        for (int keyword = 0; keyword < kKeywordCount; ++keyword)
            defaults[static_cast<std::size_t>(keyword)] = Default(keyword);
        manager = CSettingManager::Create((OwnFolder() / kFile).string().c_str());
        SetAllTags(*manager);
    }
    void TearDown() override {
        CSettingManager::Destroy();
        CSessionAccessor::Release();
        HeapFree(GetProcessHeap(), 0, std::exchange(g_SessionBlock, nullptr));
        ClosePrinter(param.hPrinter);
    }
    static void SetUpTestSuite() {
        installed = InstallPrinter(OwnFolder().wstring());
        ASSERT_TRUE(installed.ok) << std::string(installed.message.begin(), installed.message.end());
    }

    static inline InstallResult installed;
    const PrinterModel model = Model();
    std::vector<std::byte> devMode;
    Settings settings;
    std::unique_ptr<OptionItems> items;
    OPTITEM ownItem{};
    OEMCUIPPARAM param{};
    std::array<std::uint32_t, kKeywordCount> defaults{}; // the Default bank before the manager was made
    CSettingManager* manager = nullptr;
};

} // namespace

TEST_F(FreshSheet, EqualsTheDefaultSettingsFile) {
    EXPECT_EQ(manager->ChangeFavorite(-1), 0);
}

TEST_F(FreshSheet, DiffersOnceAKeywordIsChangedAndUntilItIsChangedBack) {
    for (const int keyword : {int{keyword::Copies}, int{keyword::Tray}, int{keyword::CustomPaperWidth}}) {
        const std::uint32_t before = Current(keyword);
        ExportedFunc_SetCurrent(keyword, before + 1);
        EXPECT_EQ(manager->ChangeFavorite(-1), 1) << keyword;
        ExportedFunc_SetCurrent(keyword, before);
        EXPECT_EQ(manager->ChangeFavorite(-1), 0) << keyword;
    }
}

TEST_F(FreshSheet, DiffersOnceANamedValueIsChangedAndUntilItIsChangedBack) {
    ExportedFunc_SetUserComment("changed");
    EXPECT_EQ(manager->ChangeFavorite(-1), 1);
    ExportedFunc_SetUserComment("");
    EXPECT_EQ(manager->ChangeFavorite(-1), 0);
    std::uint32_t amount = 0;
    ExportedFunc_GetInkWarningAmount(&amount);
    ExportedFunc_SetInkWarningAmount(amount + 1);
    EXPECT_EQ(manager->ChangeFavorite(-1), 1);
    ExportedFunc_SetInkWarningAmount(amount);
    EXPECT_EQ(manager->ChangeFavorite(-1), 0);
}

TEST_F(FreshSheet, HasTheFileBesideTheModuleInTheDriversFolder) {
    const std::filesystem::path folder = installed.driverDirectory;
    EXPECT_TRUE(std::filesystem::exists(folder / "ZRPDS31J.dll"));
    EXPECT_EQ(FileContents((folder / kFile).string()), FileContents((OwnFolder() / kFile).string()));
}

TEST_F(FreshSheet, LosesNothingToTheStandardSettings) {
    std::array<std::uint32_t, kKeywordCount> fresh{};
    for (int keyword = 0; keyword < kKeywordCount; ++keyword)
        fresh[static_cast<std::size_t>(keyword)] = Current(keyword);
    manager->CopyDefaultToCurrent();
    ASSERT_EQ(manager->SaveCurrentToSession(), 1);

    using Differences = std::map<std::string, std::pair<std::uint32_t, std::uint32_t>>; // fresh and standard
    Differences current, standard;
    for (int keyword = 0; keyword < kKeywordCount; ++keyword) {
        const std::string name = kKeywordNames[static_cast<std::size_t>(keyword)];
        const std::uint32_t before = fresh[static_cast<std::size_t>(keyword)];
        if (Current(keyword) != before)
            current.emplace(name, std::pair(before, Current(keyword)));
        if (Default(keyword) != before)
            standard.emplace(name, std::pair(before, Default(keyword)));
    }
    EXPECT_EQ(current, Differences{});
    EXPECT_EQ(standard, Differences{});
}

// The driver tells the module the defaults of its features alone; the file tells those of the public
// settings but for the scale, which no tag reaches.
TEST_F(FreshSheet, AddsTheDefaultsOfThePublicSettingsToThoseThatTheDriverTold) {
    std::map<std::string, std::pair<std::uint32_t, std::uint32_t>> changed; // before and after
    for (int keyword = 0; keyword < kKeywordCount; ++keyword) {
        const std::uint32_t before = defaults[static_cast<std::size_t>(keyword)];
        if (const std::uint32_t after = Default(keyword); after != before)
            changed.emplace(kKeywordNames[static_cast<std::size_t>(keyword)], std::pair(before, after));
    }
    const decltype(changed) expected{
        {"PageSize", {0, 2}},
        {"Copies", {0, 1}},
        {"Scale", {0, 100}},
        {"Collate", {0, 1}},
        {"CustomChgPaperDirection", {0, 1}},
    };
    EXPECT_EQ(changed, expected);
}
