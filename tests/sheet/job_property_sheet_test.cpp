// The job property application and the sheet of the real driver: started with the page, shown by the button
// 1035, ended with the sheet. In the application's window a search shows and selects the first setting that
// is found. Keyword 4 is the tray, whose combo box is 1281, and 111 the staples', 1273.
#include "companions/jobproperty/window_resource.h"
#include "host/driverhost_programs.h"
#include "host/install_printer.h"
#include "tests/sheet/device_data.h"
#include "tests/sheet/program.h"
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include <windows.h>

namespace {

namespace fs = std::filesystem;

constexpr wchar_t kApplication[] = L"PrinterDriverApplication.exe";
constexpr char kSettingKeys[] = "Software\\Zephra\\QPSP";

// The keys in which sheets share their settings.
int CountSettingKeys() {
    HKEY root = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kSettingKeys, 0, KEY_READ, &root) != ERROR_SUCCESS)
        return 0;
    int count = 0;
    std::array<char, 256> name{};
    for (DWORD i = 0; RegEnumKeyA(root, i, name.data(), static_cast<DWORD>(name.size())) == ERROR_SUCCESS;
         ++i)
        count += std::string(name.data()).starts_with("DataSet_") ? 1 : 0;
    RegCloseKey(root);
    return count;
}

class JobPropertySheet : public testing::Test {
  protected:
    static void SetUpTestSuite() { FitDevice(); }
    static void TearDownTestSuite() {
        UnfitDevice();
        ClearPrinter();
    }
    void SetUp() override {
        ClearPrinter();
        // Of an earlier program that was ended by force.
        RegDeleteTreeA(HKEY_CURRENT_USER, kSettingKeys);
        ASSERT_EQ(driverhost::CountRunning(kApplication), 0);
    }
    // Whatever a sheet did, its application and its key are gone with it.
    void TearDown() override {
        EXPECT_EQ(driverhost::CountRunning(kApplication), 0);
        EXPECT_EQ(CountSettingKeys(), 0);
    }
};

std::string Running(int count) {
    return Line("expect running PrinterDriverApplication.exe", count);
}

// Finds a setting by its name in the key.
std::string Find(const std::string& name) {
    return "type " + std::to_string(IDC_SEARCH) + " " + name + "\n";
}

std::string Pick(const std::string& name, const std::string& option) {
    return Find(name) + "choose " + std::to_string(IDC_CHOICE) + " \"" + option + "\"\n";
}

std::string Enter(const std::string& name, const std::string& text) {
    return Find(name) + "type " + std::to_string(IDC_TEXT) + " \"" + text + "\"\n";
}

const std::string kShow = "click 1035\n" + Running(2);

// What the three settings are at first.
const std::string kUnchanged = "expect row 1281 0\nexpect row 1273 0\n" + ExpectCurrent(4, 0) +
                               ExpectCurrent(111, 0) + "expect value UserComment \"\"\n";
const std::string kChanged = "expect row 1281 2\nexpect row 1273 8\n" + ExpectCurrent(4, 2) +
                             ExpectCurrent(111, 8) + "expect value UserComment 至急、表紙付き\n";

const std::string kChanges =
    Pick("Tray", "トレイ2") + Pick("StapleMode", "左２ヵ所") + Enter("UserComment", "至急、表紙付き");

TEST_F(JobPropertySheet, RunsInTheBackgroundWhileASheetIsOpen) {
    PlayText(Running(1) + "expect page 基本\npress cancel\n");
}

TEST_F(JobPropertySheet, EndsWithASheetThatIsAccepted) {
    PlayText(Running(1) + "press ok\n");
}

TEST_F(JobPropertySheet, GoesOnAfterApply) {
    PlayText(Choose(1281, 1) + "press apply\n" + Running(1) + kShow + "click 2\npress cancel\n");
}

TEST_F(JobPropertySheet, IsStartedAnewForEachSheetOfAProcess) {
    PlayText(Running(1) + "reopen\n" + Running(1) + "reopen\n" + Running(1) + "press cancel\n");
}

TEST_F(JobPropertySheet, ShowsItsChangesOnThePageAfterOk) {
    PlayText(kUnchanged + kShow + kChanges + "click 1\n" + kChanged + Running(1) + "press cancel\n");
}

TEST_F(JobPropertySheet, ChangesReachTheDriversItemsAndTheDevMode) {
    PlayText(kShow + kChanges +
             "click 1\npage 詳細設定\nexpect bank Preview 4 2\nexpect bank Preview 111 8\n"
             "press ok\n");
    const std::string dump = RunDriverhost({L"--dump"}).output;
    EXPECT_NE(dump.find("Tray2"), std::string::npos) << dump;
    EXPECT_NE(dump.find("Dual2Left"), std::string::npos) << dump;
    PlayText(kChanged + "press cancel\n");
}

// What the application changes is stored by OK, but it does not enable Apply.
TEST_F(JobPropertySheet, LeavesApplyAsItIs) {
    PlayText(kShow + kChanges + "click 1\nexpect disabled apply\npress cancel\n");
}

TEST_F(JobPropertySheet, ChangesNothingAfterCancel) {
    PlayText(kShow + kChanges + "click 2\n" + kUnchanged + "press ok\n");
    PlayText(kUnchanged + "press cancel\n");
}

TEST_F(JobPropertySheet, ShowsWhatThePageHasChanged) {
    PlayText(Choose(1281, 3) + kShow + Find("Tray") + "expect text " + std::to_string(IDC_CHOICE) +
             " トレイ3\nclick 2\nexpect row 1281 3\npress cancel\n");
}

TEST_F(JobPropertySheet, LeavesTheSheetAsItWasWhenItIsEndedByForce) {
    PlayText(Choose(1281, 3) + kShow + kChanges + "end\nexpect row 1281 3\nexpect row 1273 0\n" +
             ExpectCurrent(4, 3) + ExpectCurrent(111, 0) + Running(1) + kShow +
             "click 2\nexpect row 1281 3\npress ok\n");
    PlayText("expect row 1281 3\nexpect row 1273 0\npress cancel\n");
}

// The button first takes over what the page shows, and the row without a punch stands for another number of
// holes than a fresh sheet has.
const std::string kNoPunch = Choose(1155, 0);

// Every value of the bank, a line each.
std::string PrintAll() {
    std::string script;
    for (int keyword = 0; keyword < 327; ++keyword)
        script += Line("bank Current", keyword);
    return script;
}

TEST_F(JobPropertySheet, OpensASheetThatGoesOnWithoutTheApplication) {
    const fs::path older = fs::temp_directory_path() / (L"older" + std::to_wstring(GetCurrentProcessId()));
    fs::create_directories(older);
    const DriverPackage package;
    std::vector<std::wstring> names = package.dependentFiles;
    names.insert(names.end(), {package.configFile, package.dataFile, L"driverhost.exe"});
    for (const std::wstring& name : names)
        if (fs::exists(OwnFolder() / name))
            fs::copy_file(OwnFolder() / name, older / name);
    fs::remove(package.applicationPath);

    const std::string printed = PlayText(Running(0) + Choose(1281, 3) + kNoPunch + "print before\n" +
                                             PrintAll() + "print between\nclick 1035\n" +
                                             "expect row 1281 3\nprint after\n" + PrintAll() + "press ok\n",
                                         older);
    fs::remove_all(older);
    EXPECT_TRUE(printed.starts_with("driverhost: The job properties can't be opened: the file ")) << printed;
    const std::size_t before = printed.find("before\n") + 7;
    const std::size_t between = printed.find("between\n");
    const std::size_t after = printed.find("after\n") + 6;
    ASSERT_NE(between, std::string::npos);
    EXPECT_EQ(printed.substr(before, between - before), printed.substr(after));
    // Nothing was started, so the sheet leaves its key.
    EXPECT_EQ(CountSettingKeys(), 1);
    RegDeleteTreeA(HKEY_CURRENT_USER, kSettingKeys);
}

TEST_F(JobPropertySheet, IsPictured) {
    EXPECT_EQ(RunDriverhost({L"--script", ScriptFile(L"pictures_job_properties.txt")}).output, "");
}

} // namespace
