// The language of the sheets follows the ANSI code page of the process: Japanese with 932, else that of the
// satellite, which is English. The printer is the same. ctest runs this program once in each; what it expects
// stands in pairs.
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <windows.h>
#include <winspool.h>

namespace {

bool IsJapanese() {
    return GetACP() == 932;
}

std::string In(const char* japanese, const char* english) {
    return IsJapanese() ? japanese : english;
}

std::string ExpectText(int control, const std::string& text) {
    return "expect text " + std::to_string(control) + " \"" + text + "\"\n";
}

std::string ExpectItem(int control, int row, const std::string& text) {
    return "expect item " + std::to_string(control) + " " + std::to_string(row) + " \"" + text + "\"\n";
}

std::filesystem::path DriverFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    DWORD needed = 0;
    GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<LPBYTE>(path.data()), sizeof path,
                               &needed);
    return std::filesystem::path(path.data()) / L"3";
}

// One of the default texts is Japanese in code page 932 whatever the process's is, while the file of the
// standard settings tells it in the process's: in another code page a fresh sheet counts as changed until
// they are chosen.
constexpr char kChooseStandard[] = "choose 1300 0\n";

class SheetLanguage : public testing::Test {
  protected:
    static void TearDownTestSuite() { ClearPrinter(); }
    void SetUp() override { ClearPrinter(); }
};

TEST_F(SheetLanguage, IsThatOfTheCodePageThatTheTestIsRunFor) {
    EXPECT_EQ(GetACP(), std::getenv("ZR_WINE_LOCALE") ? 1252u : 932u);
}

TEST_F(SheetLanguage, HasItsSatelliteInstalledInEither) {
    PlayText("press cancel\n");
    EXPECT_TRUE(std::filesystem::exists(DriverFolder() / L"ZRPDS31J.dll"));
    EXPECT_TRUE(std::filesystem::exists(DriverFolder() / L"ZRPDS31JENU.dll"));
}

TEST_F(SheetLanguage, IsThatOfThePagesTitles) {
    const std::string basic = In("基本", "Basic");
    const std::string details = In("詳細設定", "\"Detailed Settings\"");
    PlayText("expect page " + basic + "\npage " + details + "\nexpect page " + details + "\npress cancel\n");
}

TEST_F(SheetLanguage, IsThatOfThePrintersPage) {
    PlayText("expect page " + In("初期設定", "\"Initial Settings\"") + "\npress cancel\n", OwnFolder(),
             {L"--device"});
}

TEST_F(SheetLanguage, IsThatOfCaptions) {
    PlayText(ExpectText(1213, In("お気に入り(&J):", "Favorites(&J):")) +
             ExpectText(1294, In("原稿サイズ(&S):", "Document Size(&S):")) +
             ExpectText(1299, In("ホチキス(&H):", "Staple(&H):")) +
             ExpectText(6001, In("たて原稿", "Portrait")) +
             ExpectText(1214, In("保存(&V)...", "Save(&V)...")) +
             ExpectText(1035, In("ジョブプロパティ(&G)...", "Job Properties(&G)...")) +
             ExpectText(1225, In("自動取得", "Get Automatically")) + "press cancel\n");
}

TEST_F(SheetLanguage, IsThatOfRows) {
    PlayText(kChooseStandard + ExpectText(1300, In("標準", "Default")) +
             ExpectItem(1281, 0, In("自動選択", "Auto Select")) +
             ExpectItem(6010, 1, In("長辺とじ", "Long Edge")) + ExpectItem(6014, 1, In("2アップ", "2-Up")) +
             ExpectItem(5001, 0, In("原稿サイズと同じ", "Same as Document Size")) + "press cancel\n");
}

TEST_F(SheetLanguage, IsThatOfDialogs) {
    PlayText("click 1216\n" + ExpectText(1221, In("自動取得する(&A)", "Get Automatically(&A)")) +
             ExpectText(2, In("キャンセル", "Cancel")) + "click 2\nclick 1280\n" +
             ExpectText(60000, In("用紙種類(&T):", "Paper Type(&T):")) + "click 2\npress cancel\n");
}

TEST_F(SheetLanguage, IsThatOfMessages) {
    PlayText("click 1216\ncheck 1222 on\nclick 1\nexpect message \"" +
             In("ジョブ名が入力されていません。", "No job name has been entered.") +
             "\"\nanswer ok\nclick 2\npress cancel\n");
}

// The printer's description names its sizes in both languages, and the custom one, which has no row, is known
// by its name in either.
TEST_F(SheetLanguage, LeavesTheCustomFormWithoutARow) {
    PlayText("expect rows 5000 38\nchoose 5001 49\n" + ExpectText(1315, In("幅:", "Width:")) +
             "click 1322\npress cancel\n");
}

TEST_F(SheetLanguage, HasAMarkOfItsOwnForChangedSettings) {
    PlayText(std::string(kChooseStandard) + "choose 6010 1\n" +
             ExpectText(1300, In("<変更>標準", "<Changed>Default")) +
             "expect disabled 1215\nchoose 6010 0\n" + ExpectText(1300, In("標準", "Default")) +
             "expect rows 1300 1\npress cancel\n");
}

TEST_F(SheetLanguage, HasANameOfTheStandardSettingsThatNoFavouriteTakes) {
    const std::string standard = In("標準", "Default");
    PlayText(std::string(kChooseStandard) + "click 1214\n" + ExpectText(1226, "") + "type 1226 " + standard +
             "\nclick 1\nexpect message \"" +
             In("次の文字または名前は使用できません。", "The following characters or name cannot be used.") +
             "\\n" + standard + "\"\nanswer ok\nclick 2\npress cancel\n");
}

// The store and the stored settings know rows, not texts.
TEST_F(SheetLanguage, LeavesWhatIsStoredAlone) {
    PlayText("choose 6010 1\npress ok\n");
    PlayText(ExpectText(6010, In("長辺とじ", "Long Edge")) + "expect row 6010 1\npress cancel\n");
}

} // namespace
