// The start of the job property application when the page opens, and the manager of the settings.
#include "settings/SettingManager.h"
#include "tests/pages/job_property_fixture.h"
#include "tests/support/file_contents.h"

namespace {

class StartJobProperty : public JobPropertyTest {
  protected:
    // The printer of this sheet is none, so its modes are 0.
    std::string CommandLine(const std::string& address) const {
        return kApplication + "-start " + id + " " + key + " PDF ja-JP -ip " + address +
               " -onceForce  -iotproduct 10";
    }
};

TEST_F(StartJobProperty, RunsWhenThePageOpensAndNobodyWaitsForIt) {
    ExportedFunc_SetServerAddress("10.1.2.3");
    Open(1066, StandardPageProc);
    EXPECT_EQ(runner.calls, (Calls{"start: " + CommandLine("10.1.2.3"), "close thread", "close process"}));
}

TEST_F(StartJobProperty, RunsOnceInAPagesLife) {
    OpenPage();
    Notify(page, PSN_SETACTIVE);
    Notify(page, PSN_KILLACTIVE);
    Command(page, 1012, BN_CLICKED);
    EXPECT_EQ(runner.CommandLines(), Calls{});
}

TEST_F(StartJobProperty, Gives1ForAStartedProcess) {
    EXPECT_EQ(OpenPage().StartJobProperty(&block), 1);
}

TEST_F(StartJobProperty, TakesTheAddressThatTheStoreHasNow) {
    CStandardPageDlg& opened = OpenPage();
    ExportedFunc_SetServerAddress("");
    opened.StartJobProperty(&block);
    ExportedFunc_SetServerAddress(std::string(300, 's').c_str());
    opened.StartJobProperty(&block);
    EXPECT_EQ(runner.CommandLines(), (Calls{CommandLine(""), CommandLine(std::string(259, 's'))}));
}

TEST_F(StartJobProperty, LogsKeyModesAndCommandLine) {
    OpenPage().StartJobProperty(&block);
    EXPECT_EQ(Logged("StartJobProperty"),
              (Calls{"StartJobProperty", "StartJobProperty() registryKeyName=" + key,
                     "StartJobProperty() startupMode=0 communicationMode=0",
                     "StartJobProperty() ジョブプロパティ起動 コマンドライン:" + CommandLine("")}));
}

TEST_F(StartJobProperty, Gives0AndLogsTheErrorIfTheProcessCantStart) {
    CStandardPageDlg& opened = OpenPage();
    runner.startError = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(opened.StartJobProperty(&block), 0);
    EXPECT_EQ(Logged("StartJobProperty").back(), "StartJobProperty() 起動失敗=2");
    runner.startError = 740; // the program asks for more rights
    EXPECT_EQ(opened.StartJobProperty(&block), 0);
    EXPECT_EQ(Logged("StartJobProperty").back(), "StartJobProperty() 起動失敗=2e4");
}

TEST_F(StartJobProperty, LetsThePageOpenWithoutTheApplication) {
    runner.startError = ERROR_FILE_NOT_FOUND;
    Bind(104, 5);
    ExportedFunc_SetCurrent(104, 3);
    page = Open(1066, StandardPageProc);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(SendMessageA(GetDlgItem(page, 6010), CB_GETCURSEL, 0, 0), 3);
    EXPECT_EQ(runner.CommandLines().size(), 1u);
}

TEST_F(StartJobProperty, GivesAnEmptyKeyWhereTheStoreHasNone) {
    CStandardPageDlg& opened = OpenPage();
    ExportedFunc_SetServerAddress("10.1.2.3");
    ExportedFunc_DeleteRegistryKey(key.c_str());
    opened.StartJobProperty(&block);
    EXPECT_EQ(runner.CommandLines(), Calls{kApplication + "-start   PDF ja-JP -ip 10.1.2.3 -onceForce  "
                                                          "-iotproduct 10"});
}

class CreatePrintOptionList : public JobPropertyTest {
  protected:
    CreatePrintOptionList() { CSettingManager::Destroy(); }

    static std::string DefaultFile() { return OwnFolder().string() + "\\ZRPDS31J_def"; }
};

TEST_F(CreatePrintOptionList, LogsThePathOfTheStandardSettingsBesideTheModule) {
    log->Forget();
    CStandardPageDlg(nullptr, nullptr).CreatePrintOptionList(&block);
    EXPECT_EQ(Logged("CreatePrintOptionList"),
              (Calls{"CreatePrintOptionList", "CreatePrintOptionList defpath=" + DefaultFile()}));
}

TEST_F(CreatePrintOptionList, MakesTheManagerAndFillsTheDefaultBankFromThatFile) {
    ASSERT_NE(GetFileAttributesA(DefaultFile().c_str()), INVALID_FILE_ATTRIBUTES);
    ExportedFunc_SetDefault(1, 77); // Copies
    CStandardPageDlg(nullptr, nullptr).CreatePrintOptionList(&block);
    EXPECT_NE(CSettingManager::Existing(), nullptr);
    EXPECT_EQ(Default(1), 1u);
}

TEST_F(CreatePrintOptionList, LeavesAManagerThatIsThereAsItIs) {
    CSettingManager* manager = CSettingManager::GetSettingManager();
    ExportedFunc_SetDefault(1, 77);
    CStandardPageDlg(nullptr, nullptr).CreatePrintOptionList(&block);
    EXPECT_EQ(CSettingManager::Existing(), manager);
    EXPECT_EQ(Default(1), 77u);
}

// The log of a comparison has both sides' lines of "tag=value", which are empty without tags.
TEST_F(CreatePrintOptionList, HandsTheManagerAllTagsOfTheTable) {
    CStandardPageDlg(nullptr, nullptr).CreatePrintOptionList(&block);
    CSettingManager::Existing()->ChangeFavorite(-1);
    const std::string lines = FileContents("C:\\qpsp\\Log\\Favorite.txt");
    for (const char* tag : {"PSCPSW=", "ONOC=", "OSMe="})
        EXPECT_NE(lines.find(tag), std::string::npos) << tag;
    DeleteFileA("C:\\qpsp\\Log\\Favorite.txt");
}

} // namespace
